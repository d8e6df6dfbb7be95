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
    m_made.Add(values);
    const bool isFull = m_made.Count() >= kRows || m_made.Bytes() >= kBytes;
    return !isFull || HandOver();
}

bool CBulkInsert::Settle() {
    return m_made.Count() > 0 ? HandOver() && Finish() : Finish();
}

/// The piece that is made goes under way, once that before it is in the file.
bool CBulkInsert::HandOver() {
    if (!Finish()) return false;
    if (!m_table->Prepare(m_file, m_adding)) return GiveUp();
    std::swap(m_made, m_underWay);
    m_file.Lend(true);
    m_beside.Start([this] { m_adding.Run(m_underWay); });
    return true;
}

/// The piece under way, if there is one.
bool CBulkInsert::Finish() {
    if (m_underWay.Count() == 0) return true;
    m_beside.Wait();
    m_file.Lend(false);
    m_underWay.Clear();
    return m_table->Finish(m_file, m_adding) || GiveUp();
}

bool CBulkInsert::GiveUp() {
    m_made.Clear();
    m_file.Undo();
    return false;
}
