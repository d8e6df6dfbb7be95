#include "app/DependencyStore.h"

#include "app/DependencyBytes.h"
#include "lang/FormatText.h"
#include "records/CDRecord.h"
#include "records/CRecordStore.h"
#include "records/CVORecordset.h"
#include "records/StoreTransaction.h"

using namespace Qt::Literals::StringLiterals;

namespace {

using State = StoredTree::State;

constexpr qsizetype kIdSize = 16;

/// What a row gives whose content can't be used and that has no code of its own (DISP_E_EXCEPTION).
constexpr std::int32_t kUnnamedDamage = -2147352567;

bool IsDamage(std::int32_t code) {
    return code == RowError::kBadEncoding || code == RowError::kBadDigest || code == kUnnamedDamage;
}

CDRecord RowOf(DependencySet set, const QString& id, bool isPacked) {
    CDRecord row;
    row.SetPacked(isPacked);
    row.number = static_cast<int>(set);
    row.SetId(id);
    return row;
}

}  // namespace

QString DependencyStore::RootId(DependencySet set) {
    return set == DependencySet::Time ? u"FFFF26110BDC7162F073A5BC94A40010"_s
                                      : u"FFFF26110BDC7162F073A5BC94A40011"_s;
}

QString DependencyStore::OldRootId(DependencySet set) {
    return set == DependencySet::Time ? u"FFFF26110BDC7162F073A5BC94A40001"_s
                                      : u"FFFF26110BDC7162F073A5BC94A40002"_s;
}

// --- Reading

/// Another program may save between the root and its chunks: a root that is another one by then is read anew.
StoredTree DependencyStore::Read(DependencySet set) {
    QByteArray former;
    while (true) {
        CDRecord root = RowOf(set, {}, false);
        if (!m_store.ReadRecord(root, RootId(set))) {
            const StoredTree none = NotRead();
            return none.state == State::None ? ReadOld(set) : none;
        }
        StoredTree tree = ReadChunks(root.data);
        if (tree.state != State::None) return tree;
        if (root.data == former) return {State::Damaged, {}};
        former = root.data;
    }
}

StoredTree DependencyStore::ReadOld(DependencySet set) {
    CDRecord root = RowOf(set, {}, true);
    if (!m_store.ReadRecord(root, OldRootId(set))) return NotRead();
    return {State::Old, root.data};
}

/// None: a chunk isn't there.
StoredTree DependencyStore::ReadChunks(const QByteArray& ids) {
    if (ids.size() % kIdSize != 0) return {State::Damaged, {}};
    StoredTree tree{State::Current, {}};
    for (qsizetype at = 0; at < ids.size(); at += kIdSize) {
        CDRecord chunk;
        chunk.SetPacked(false);
        if (!m_store.ReadRecord(chunk, IdentityFromBytes(QByteArrayView(ids).sliced(at, kIdSize))))
            return NotRead();
        tree.bytes += chunk.data;
    }
    return tree;
}

/// Why the last row wasn't read.
StoredTree DependencyStore::NotRead() const {
    const std::int32_t code = m_store.m_lastError;
    if (code == 0) return {State::None, {}};
    return {IsDamage(code) ? State::Damaged : State::Failed, {}};
}

// --- Writing

bool DependencyStore::Save(DependencySet set, const QByteArray& bytes) {
    StoreTransaction change(m_store);
    return change.IsOpen() && Put(set, bytes) && change.Commit() == CommitEnd::Durable;
}

bool DependencyStore::Put(DependencySet set, const QByteArray& bytes) {
    QByteArray chunkIds;
    for (qsizetype at = 0; at < bytes.size(); at += CDRecord::kMaxData) {
        CVOId id;
        id.GenUnique();
        chunkIds += IdentityToBytes(id.GetId());
    }
    const QString table = m_store.TableName(RecordKind::Dependency);
    return PutRoot(set, chunkIds) &&
           m_store.Query(FormatText<Text::SqlDeleteChunks>(table, static_cast<int>(set))) &&
           PutChunks(set, chunkIds, bytes);
}

bool DependencyStore::PutRoot(DependencySet set, const QByteArray& chunkIds) {
    CDRecord root = RowOf(set, RootId(set), false);
    root.data = chunkIds;
    // Looked for without decoding it: a damaged root is there, too, and is to be overwritten.
    if (!m_store.Query(
            FormatText<Text::SqlSelectByIdentity>(m_store.TableName(RecordKind::Dependency), root.GetId())))
        return false;
    const bool isThere = !m_store.IsEOF();
    m_store.Manager().CloseQuery();
    return isThere ? m_store.ModifyRecord(root, root.GetId(), Commit::Later)
                   : m_store.InsertRecord(root, Commit::Later);
}

bool DependencyStore::PutChunks(DependencySet set, const QByteArray& chunkIds, const QByteArray& bytes) {
    for (qsizetype i = 0; i * kIdSize < chunkIds.size(); ++i) {
        CDRecord chunk =
            RowOf(set, IdentityFromBytes(QByteArrayView(chunkIds).sliced(i * kIdSize, kIdSize)), false);
        chunk.data = bytes.mid(i * CDRecord::kMaxData, CDRecord::kMaxData);
        if (!m_store.InsertRecord(chunk, Commit::Later)) return false;
    }
    return true;
}
