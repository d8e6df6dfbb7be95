#include "records/CBulkInsert.h"

#include "platform/sqlite/CSqliteFile.h"

#include <utility>

namespace {

/// A piece has either of them at most, and one row: enough for the other thread to be worth waking, and few
/// enough to stay in the processor's cache on the way to it.
constexpr std::size_t kRows = 512;
constexpr qsizetype kBytes = 1 << 18;

}  // namespace

bool CBulkInsert::Add(const std::shared_ptr<const CStoreTable>& table, std::span<const VARIANT> values) {
    if (m_table != table && !Settle()) return false;
    m_table = table;
    CStoredRows& piece = m_pieces[m_made];
    piece.Add(values);
    const bool isFull = piece.Count() >= kRows || piece.Bytes() >= kBytes;
    return !isFull || HandOver();
}

bool CBulkInsert::Settle() {
    return m_pieces[m_made].Count() > 0 ? HandOver() && Finish() : Finish();
}

bool CBulkInsert::HandOver() {
    if (m_isUnderWay && m_adding.HasFailed()) return Finish();
    if (!m_isUnderWay && !Begin()) return GiveUp();
    m_beside.Start([this, &piece = m_pieces[m_made]] { m_adding.Run(piece); });
    m_made = (m_made + 1) % m_pieces.size();
    m_pieces[m_made].Clear();
    return true;
}

/// The file isn't this thread's own from here on.
bool CBulkInsert::Begin() {
    if (!m_table->Prepare(m_file, m_adding)) return false;
    m_isUnderWay = true;
    m_file.Lend(true);
    return true;
}

bool CBulkInsert::Finish() {
    if (!m_isUnderWay) return true;
    m_beside.Wait();
    m_isUnderWay = false;
    m_file.Lend(false);
    return m_table->Finish(m_file, m_adding) || GiveUp();
}

bool CBulkInsert::GiveUp() {
    m_pieces[m_made].Clear();
    m_file.Undo();
    return false;
}
