#include "changes/CHistoryWriter.h"

#include "changes/CHistoryNotice.h"
#include "changes/HistoryTables.h"
#include "lang/FormatText.h"

#include <algorithm>

bool CHistoryWriter::IsOurs(const HistoryRow& row) const {
    return IsOfSettings(row) == (m_of == File::Settings);
}

void CHistoryWriter::Begin(const Compare& compare) {
    m_written.reset();
    m_true.clear();
    m_untrue.clear();
    if (!m_file.Open(CHistoryFile::Missing::Leave)) return TellKeptAside();
    const auto rows = m_file.UnsureRows();
    if (!rows) return;
    for (const HistoryRow& row : *rows) {
        if (!IsOurs(row)) continue;
        const RowReverter::End end = IsTrue(row) ? RowReverter::End::Done : compare(row);
        if (end == RowReverter::End::Done) m_true.push_back(row);
        if (end == RowReverter::End::Touched) m_untrue.push_back(row.row);
    }
}

/// A file that turns out to be damaged is put aside, and the change is the first one of the next.
bool CHistoryWriter::Write(HistoryRow& row, const std::vector<QByteArray>& parts) {
    if (!WriteOnce(row, parts)) {
        if (!m_file.IsDamaged()) return false;
        m_true.clear();
        m_untrue.clear();
        if (!WriteOnce(row, parts)) return false;
    }
    m_written = row;
    return true;
}

bool CHistoryWriter::WriteOnce(HistoryRow& row, const std::vector<QByteArray>& parts) {
    const bool isOpen = m_file.Open(CHistoryFile::Missing::Make);
    TellKeptAside();
    if (!isOpen || !m_file.Begin()) return false;
    if (WriteSettled() && m_file.Insert(row, parts) && m_file.Commit()) return true;
    m_file.Rollback();
    return false;
}

bool CHistoryWriter::WriteSettled() {
    return std::ranges::all_of(m_untrue, [this](std::int64_t row) { return m_file.Drop(row); }) &&
           std::ranges::all_of(m_true, [this](const HistoryRow& row) { return m_file.MakeSure(row); });
}

/// What isn't true is taken out at once where that can be done, and else by who changes something next.
void CHistoryWriter::End(bool isDurable) {
    if (!m_written) return;
    ++m_edition;
    if (isDurable)
        m_lastTrue = m_written->row;
    else if (!(m_file.Begin() && m_file.Drop(m_written->row) && m_file.Commit()))
        m_file.Rollback();
    if (!isDurable) m_notice.Drop();
    m_written.reset();
}

void CHistoryWriter::TellKeptAside() {
    const QString aside = m_file.TakeKeptAside();
    if (!aside.isEmpty()) m_notice.Put(FormatText<Text::HistoryKeptAside>(aside));
}
