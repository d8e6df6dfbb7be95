#include "records/StoreSalvage.h"

#include "lang/LoadText.h"
#include "platform/pages/PageSize.h"
#include "platform/sqlite/CCheckSum.h"
#include "platform/sqlite/CSqliteFile.h"
#include "records/CRecordStore.h"
#include "records/CStoreTable.h"
#include "records/RecordFactory.h"
#include "records/SalvageTable.h"

#include <algorithm>

namespace {

constexpr RecordKind kKinds[] = {RecordKind::Time, RecordKind::Expense, RecordKind::PulldownItem,
                                 RecordKind::Dependency};

/// Takes the records out of the pages and into the tables.
class CSalvager {
 public:
    CSalvager(const CPageWalk& walk, CRecordStore& target, SalvagedRecords& out)
        : m_walk(walk), m_out(out), m_file(target.Manager().File()) {
        for (const RecordKind kind : kKinds)
            m_tables.emplace_back(kind, target.TableName(kind), FieldDefsOf(kind));
    }

    [[nodiscard]] bool Run();

 private:
    [[nodiscard]] bool MayHoldLive(const CPageWalk::Found& found, const SalvageTable& table) const;
    [[nodiscard]] bool AreChecksWhole() const;
    [[nodiscard]] bool Take(const CPageWalk::Found& found);
    [[nodiscard]] bool Write(const SalvageTable& table, const RawRow& row, KnownRows::Match match);
    void Count();

    const CPageWalk& m_walk;
    SalvagedRecords& m_out;
    CSqliteFile& m_file;
    std::vector<SalvageTable> m_tables;
    KnownRows m_known;
    QSet<QByteArray> m_taken;
    QSet<QByteArray> m_doubtful;
};

bool CSalvager::AreChecksWhole() const {
    return std::ranges::all_of(
        m_tables, [&](const SalvageTable& table) { return m_walk.IsWhole(table.Name() + "_checks"); });
}

/// A page to which no tree leads holds rows of the store only where a tree is broken. Otherwise it is one
/// that the store doesn't use any more.
bool CSalvager::MayHoldLive(const CPageWalk::Found& found, const SalvageTable& table) const {
    return found.tree != nullptr || !m_walk.IsWhole(table.Name());
}

/// Of a loose page a row that was changed since, or deleted, is left out where the checksums tell.
bool CSalvager::Take(const CPageWalk::Found& found) {
    const auto table = std::ranges::find_if(
        m_tables, [&](const SalvageTable& candidate) { return candidate.Fits(found.row); });
    if (table == m_tables.end() || !MayHoldLive(found, *table)) return true;
    const QByteArray& id = SalvageTable::IdOf(found.row);
    const KnownRows::Match match = m_known.Compare(id, table->SumOf(found.row));
    const bool isLoose = found.tree == nullptr;
    if (isLoose && match != KnownRows::Match::Same && (m_taken.contains(id) || AreChecksWhole())) return true;
    if (isLoose && m_taken.contains(id) && !m_doubtful.contains(id)) return true;
    return Write(*table, found.row, match);
}

bool CSalvager::Write(const SalvageTable& table, const RawRow& row, KnownRows::Match match) {
    const QByteArray& id = SalvageTable::IdOf(row);
    if (match == KnownRows::Match::Other)
        m_doubtful.insert(id);
    else
        m_doubtful.remove(id);
    if (!m_taken.contains(id)) ++m_out.saved[table.Kind()];
    m_taken.insert(id);
    return table.Write(m_file, row);
}

void CSalvager::Count() {
    m_out.lost = m_known.LostBeside(m_taken);
    const bool areTablesWhole = std::ranges::all_of(
        m_tables, [&](const SalvageTable& table) { return m_walk.IsWhole(table.Name()); });
    m_out.isLossKnown = areTablesWhole || AreChecksWhole();
    for (const QByteArray& id : m_doubtful) m_out.doubtful += QString::fromLatin1(id);
    m_out.doubtful.sort();
}

bool CSalvager::Run() {
    for (const SalvageTable& table : m_tables) m_out.saved[table.Kind()] = 0;
    m_walk.ForEachRow([&](const CPageWalk::Found& found) {
        if (found.tree != nullptr || !m_walk.IsWhole()) m_known.Note(found);
    });
    if (!m_file.Begin()) return false;
    bool isGood = true;
    m_walk.ForEachRow([&](const CPageWalk::Found& found) { isGood = isGood && Take(found); });
    isGood = isGood &&
             std::ranges::all_of(m_tables, [&](const SalvageTable& table) { return table.Finish(m_file); });
    if (isGood && m_file.Commit()) {
        Count();
        return true;
    }
    m_file.Rollback();
    return false;
}

}  // namespace

bool SalvageStore(QByteArrayView bytes, CRecordStore& target, SalvagedRecords& out) {
    const CPageImage image(bytes, PageSizeOf(bytes));
    const CPageWalk walk(image);
    return CSalvager(walk, target, out).Run();
}
