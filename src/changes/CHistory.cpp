#include "changes/CHistory.h"

#include "app/HomeFiles.h"
#include "changes/ChangeNames.h"
#include "changes/HistoryTables.h"
#include "lang/FormatText.h"
#include "platform/host/CClock.h"
#include "records/RowReverter.h"

#include <algorithm>
#include <utility>

namespace {

QString TimeText(const SYSTEMTIME& time) {
    return QString::asprintf("%04d-%02d-%02dT%02d:%02d:%02d", time.wYear, time.wMonth, time.wDay, time.wHour,
                             time.wMinute, time.wSecond);
}

}  // namespace

CHistory::CHistory(const QString& home, const CClock& clock)
    : m_clock(clock), m_file(HistoryPath(home)), m_capture(HistoryTables()) {}

// --- Writing down what a transaction changes

/// Rows that another program, or this one, left behind are settled while nobody changes the records: what
/// they say is compared with these.
void CHistory::OnBegin(CSqliteFile& file) {
    m_capture.Clear();
    m_written.reset();
    m_true.clear();
    m_untrue.clear();
    if (!m_file.Open(CHistoryFile::Missing::Leave)) return TellKeptAside();
    const auto rows = m_file.UnsureRows();
    if (!rows) return;
    for (const HistoryRow& row : *rows) {
        const RowReverter::End end = Compare(row, file);
        if (end == RowReverter::End::Done) m_true.push_back(row);
        if (end == RowReverter::End::Touched) m_untrue.push_back(row.row);
    }
}

/// Whether the last row that it changed is as it left it: a transaction is there as a whole or not at all.
RowReverter::End CHistory::Compare(const HistoryRow& row, CSqliteFile& file) const {
    if (row.row == m_lastTrue) return RowReverter::End::Done;
    return RowReverter(file, HistoryTables()).Check(row.last);
}

HistoryRow CHistory::RowOf() const {
    const CountedChange change = DescribeChange(m_kind, m_capture);
    return {.time = TimeText(m_clock.GetLocalTime()),
            .kind = change.kind,
            .count = change.count,
            .state = m_capture.IsTooLarge() ? ChangeState::TooLarge : ChangeState::Done,
            .last = m_capture.Last()};
}

void CHistory::OnCommit(CSqliteFile&) {
    m_capture.Finish();
    if (m_capture.IsEmpty() || m_written) return;
    HistoryRow row = RowOf();
    const bool isWritten = !m_capture.IsUnsure() && Write(row);
    if (isWritten)
        m_written = row;
    else if (!std::exchange(m_isFailureTold, true))
        m_notice = FormatText<Text::HistoryNotWritten>(m_file.Error());
    m_isFailureTold = m_isFailureTold && !isWritten;
    if (isWritten && row.state == ChangeState::TooLarge)
        m_notice = FormatText<Text::HistoryChangeTooLarge>(kMegabytes);
}

/// What isn't true is taken out at once where that can be done, and else by whoever changes something next.
void CHistory::OnEnd(bool isDurable) {
    m_capture.Clear();
    if (!m_written) return;
    ++m_edition;
    if (isDurable)
        m_lastTrue = m_written->row;
    else if (!(m_file.Begin() && m_file.Drop(m_written->row) && m_file.Commit()))
        m_file.Rollback();
    if (!isDurable) m_notice.clear();
    m_written.reset();
}

/// A file that turns out to be damaged is put aside, and the change is the first one of the next.
bool CHistory::Write(HistoryRow& row) {
    if (WriteOnce(row)) return true;
    if (!m_file.IsDamaged()) return false;
    m_true.clear();
    m_untrue.clear();
    return WriteOnce(row);
}

bool CHistory::WriteOnce(HistoryRow& row) {
    const bool isOpen = m_file.Open(CHistoryFile::Missing::Make);
    TellKeptAside();
    if (!isOpen || !m_file.Begin()) return false;
    if (WriteSettled() && m_file.Insert(row, m_capture.Log().Parts()) && m_file.Commit()) return true;
    m_file.Rollback();
    return false;
}

bool CHistory::WriteSettled() {
    return std::ranges::all_of(m_untrue, [this](std::int64_t row) { return m_file.Drop(row); }) &&
           std::ranges::all_of(m_true, [this](const HistoryRow& row) { return m_file.MakeSure(row); });
}

void CHistory::TellKeptAside() {
    const QString aside = m_file.TakeKeptAside();
    if (!aside.isEmpty()) m_notice = FormatText<Text::HistoryKeptAside>(aside);
}

// --- What can be undone

std::int64_t CHistory::Edition() {
    return m_file.Open(CHistoryFile::Missing::Leave) ? m_edition + (m_file.Version() << 20) : m_edition;
}

std::optional<std::vector<HistoryRow>> CHistory::Changes(CSqliteFile& file) {
    std::vector<HistoryRow> changes;
    const bool isOpen = m_file.Open(CHistoryFile::Missing::Leave);
    TellKeptAside();
    if (!isOpen) return m_file.Error().isEmpty() ? std::optional(changes) : std::nullopt;
    auto rows = m_file.Rows();
    if (!rows && m_file.Open(CHistoryFile::Missing::Make)) {
        TellKeptAside();
        rows = m_file.Rows();
    }
    if (!rows) return std::nullopt;
    std::ranges::sort(*rows, {}, &HistoryRow::row);
    for (HistoryRow& row : *rows) {
        row.isSure = row.isSure || Compare(row, file) == RowReverter::End::Done;
        if (row.isSure) Take(changes, row);
    }
    std::ranges::sort(changes, std::greater(), &HistoryRow::number);
    return changes;
}

/// What a row means for those that were written before it.
void CHistory::Take(std::vector<HistoryRow>& changes, const HistoryRow& row) {
    const bool isGone = row.state == ChangeState::Gone;
    std::erase_if(changes, [&](const HistoryRow& one) {
        if (isGone) return one.number >= row.number;
        return row.IsNew() ? one.state == ChangeState::Undone : one.number == row.number;
    });
    if (!isGone) changes.push_back(row);
}

/// They are undone from the newest on, and done again in the order in which they were made.
const HistoryRow* CHistory::Next(const std::vector<HistoryRow>& changes, Way way) {
    if (way == Way::Undo) {
        const auto done = std::ranges::find_if(changes, &HistoryRow::IsDone);
        return done == changes.end() ? nullptr : &*done;
    }
    const auto undone = std::find_if(changes.rbegin(), changes.rend(),
                                     [](const HistoryRow& row) { return row.state == ChangeState::Undone; });
    return undone == changes.rend() ? nullptr : &*undone;
}

bool CHistory::NoteWay(const HistoryRow& change, Way way) {
    m_capture.Finish();
    if (m_capture.IsEmpty() || m_capture.IsUnsure()) return false;
    HistoryRow row = change;
    row.last = m_capture.Last();
    if (way == Way::Undo)
        row.state = m_capture.IsTooLarge() ? ChangeState::Gone : ChangeState::Undone;
    else
        row.state = m_capture.IsTooLarge() ? ChangeState::TooLarge : ChangeState::Done;
    if (!Write(row)) return false;
    m_written = row;
    if (row.state == ChangeState::Gone) m_notice = FormatText<Text::HistoryLarge>(kMegabytes);
    return true;
}
