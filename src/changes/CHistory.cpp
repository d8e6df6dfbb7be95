#include "changes/CHistory.h"

#include "app/HomeFiles.h"
#include "changes/ChangeNames.h"
#include "changes/HistoryTables.h"
#include "lang/FormatText.h"
#include "platform/host/CClock.h"

#include <algorithm>
#include <functional>

namespace {

RowOp TimerOp(RowEvent event, const QString& recordId, const QByteArray& image) {
    return {.event = event,
            .table = static_cast<int>(HistoryTable::Timer),
            .key = recordId.toUtf8(),
            .before = image};
}

}  // namespace

CHistory::CHistory(const QString& home, const CClock& clock, CCfgStore& settings)
    : m_clock(clock),
      m_file(HistoryPath(home)),
      m_capture(CapturedTables()),
      m_writer(m_file, m_notice, CHistoryWriter::File::Store),
      m_entries(settings, m_file, m_notice, clock) {}

// --- Writing down what a transaction changes

void CHistory::SetKind(ChangeKind kind, const QStringList& names) {
    m_kind = kind;
    m_names = names;
    m_timers.Clear();
}

void CHistory::NoteTimer(const QString& recordId, const QByteArray& image) {
    m_timers.Append(TimerOp(RowEvent::Deleted, recordId, image));
}

void CHistory::NoteTimerBack(const QString& recordId, const QByteArray& image) {
    m_timers.Append(TimerOp(RowEvent::Added, recordId, image));
}

/// Rows that another program, or this one, left behind are settled while nobody changes the records: what
/// they say is compared with these.
void CHistory::OnBegin(CSqliteFile& file) {
    m_capture.Clear();
    m_writer.Begin([&](const HistoryRow& row) { return Compare(row, file); });
}

/// Whether the last row that it changed is as it left it: a transaction is there as a whole or not at all.
RowReverter::End CHistory::Compare(const HistoryRow& row, CSqliteFile& file) const {
    if (IsOfSettings(row)) return m_entries.Compare(row);
    if (m_writer.IsTrue(row)) return RowReverter::End::Done;
    return RowReverter(file, HistoryTables()).Check(row.last);
}

HistoryRow CHistory::RowOf() const {
    HistoryRow row = DescribeChange(m_kind, m_names, m_capture);
    row.time = HistoryTime(m_clock.GetLocalTime());
    row.state = m_capture.IsTooLarge() ? ChangeState::TooLarge : ChangeState::Done;
    row.last = m_capture.Last();
    return row;
}

void CHistory::OnCommit(CSqliteFile&) {
    m_capture.Finish();
    if (m_capture.IsEmpty() || m_writer.HasWritten()) return;
    HistoryRow row = RowOf();
    if (m_capture.IsUnsure() || !Write(row))
        return m_notice.PutFailure(FormatText<Text::HistoryNotWritten>(m_file.Error()));
    m_notice.NoteSuccess();
    if (row.state == ChangeState::TooLarge) m_notice.Put(FormatText<Text::HistoryChangeTooLarge>(kMegabytes));
}

void CHistory::OnEnd(bool isDurable) {
    m_capture.Clear();
    m_timers.Clear();
    m_writer.End(isDurable);
}

/// The timers stand behind the rows, whose changes are taken back first of all where they are.
bool CHistory::Write(HistoryRow& row) {
    std::vector<QByteArray> parts = m_capture.Log().Parts();
    if (!m_capture.IsTooLarge()) parts.insert(parts.end(), m_timers.Parts().begin(), m_timers.Parts().end());
    return m_writer.Write(row, parts);
}

// --- What can be undone

std::int64_t CHistory::Edition() {
    const std::int64_t own = m_writer.Edition() + m_entries.Edition();
    return m_file.Open(CHistoryFile::Missing::Leave) ? own + (m_file.Version() << 20) : own;
}

std::optional<std::vector<HistoryRow>> CHistory::Changes(CSqliteFile& file) {
    std::vector<HistoryRow> changes;
    const bool isOpen = m_file.Open(CHistoryFile::Missing::Leave);
    m_writer.TellKeptAside();
    if (!isOpen) return m_file.Error().isEmpty() ? std::optional(changes) : std::nullopt;
    auto rows = m_file.Rows();
    if (!rows && m_file.Open(CHistoryFile::Missing::Make)) {
        m_writer.TellKeptAside();
        rows = m_file.Rows();
    }
    if (!rows) return std::nullopt;
    std::ranges::sort(*rows, {}, &HistoryRow::row);
    std::int64_t newest = 0;
    for (HistoryRow& row : *rows) {
        row.isSure = row.isSure || Compare(row, file) == RowReverter::End::Done;
        if (!row.isSure) continue;
        Take(changes, row);
        newest = std::max(newest, row.number);
    }
    DropOvertaken(changes, newest);
    std::ranges::sort(changes, std::greater(), &HistoryRow::number);
    return changes;
}

/// What a row means for those that were written before it.
void CHistory::Take(std::vector<HistoryRow>& changes, const HistoryRow& row) {
    const bool isGone = row.state == ChangeState::Gone;
    std::erase_if(changes, [&](const HistoryRow& one) {
        return isGone ? one.number >= row.number : one.number == row.number;
    });
    if (!isGone) changes.push_back(row);
}

/// What was undone before a change was made can't be done again. The number of that change says so even when
/// it was undone itself since, and only another row of it is left: rows of the two files become sure at
/// different times.
void CHistory::DropOvertaken(std::vector<HistoryRow>& changes, std::int64_t newest) {
    std::erase_if(changes, [newest](const HistoryRow& one) {
        return one.state == ChangeState::Undone && one.row < newest;
    });
}

bool CHistory::NoteWay(const HistoryRow& change, Way way) {
    m_capture.Finish();
    if (m_capture.IsEmpty() || m_capture.IsUnsure()) return false;
    HistoryRow row = change;
    row.last = m_capture.Last();
    row.state = StateAfter(way, m_capture.IsTooLarge());
    if (!Write(row)) return false;
    if (row.state == ChangeState::Gone) m_notice.Put(FormatText<Text::HistoryLarge>(kMegabytes));
    return true;
}

ChangeState StateAfter(CHistory::Way way, bool isTooLarge) {
    if (way == CHistory::Way::Undo) return isTooLarge ? ChangeState::Gone : ChangeState::Undone;
    return isTooLarge ? ChangeState::TooLarge : ChangeState::Done;
}
