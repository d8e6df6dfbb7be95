#include "changes/CEntryHistory.h"

#include "changes/CHistoryNotice.h"
#include "changes/ChangeNames.h"
#include "config/CCfgStore.h"
#include "config/CNamedEntries.h"
#include "lang/FormatText.h"
#include "platform/host/CClock.h"

#include <algorithm>

CEntryHistory::CEntryHistory(CCfgStore& settings, CHistoryFile& file, CHistoryNotice& notice,
                             const CClock& clock)
    : m_settings(settings),
      m_file(file),
      m_notice(notice),
      m_clock(clock),
      m_writer(file, notice, CHistoryWriter::File::Settings) {}

CEntryHistory::~CEntryHistory() {
    if (!m_isWatching) return;
    m_settings.Tree().File().Watch(nullptr);
    m_settings.SetEntryJournal(nullptr);
}

/// Settings that are in memory alone are gone with the program, and so would be what is undone in them.
void CEntryHistory::Watch() {
    m_isWatching = m_settings.Tree().IsFromFile();
    if (!m_isWatching) return;
    m_settings.Tree().File().Watch(this);
    m_settings.SetEntryJournal(this);
}

RowReverter::End CEntryHistory::Compare(const HistoryRow& row) const {
    return m_writer.IsTrue(row) ? RowReverter::End::Done : CheckEntry(row.last, m_settings);
}

// --- Writing down

/// Settings change often, and entries of them hardly ever: the history is looked at with the first entry.
void CEntryHistory::OnBegin(CSqliteFile&) {
    m_before.clear();
    m_isUnsure = false;
}

void CEntryHistory::NoteEntry(const QString& key, const QString& entry) {
    const EntryName name{key, entry};
    const auto isName = [&](const auto& one) { return one.first == name; };
    if (std::ranges::any_of(m_before, isName) || !IsOfUser(name)) return;
    if (m_before.empty()) m_writer.Begin([this](const HistoryRow& row) { return Compare(row); });
    m_before.emplace_back(name, Find(name));
}

/// What can't be read now is no entry that isn't there.
std::optional<StoredEntry> CEntryHistory::Find(const EntryName& name) {
    static_cast<void>(m_settings.Tree().TakeReadFailure());
    auto stored = m_settings.FindEntry(name.key, name.entry);
    m_isUnsure = m_settings.Tree().TakeReadFailure() || m_isUnsure;
    return stored;
}

std::vector<RowOp> CEntryHistory::Changed() {
    std::vector<RowOp> ops;
    for (const auto& [name, before] : m_before)
        if (const auto op = EntryOpOf(name, before, Find(name))) ops.push_back(*op);
    return ops;
}

HistoryRow CEntryHistory::RowOf(const std::vector<RowOp>& ops) const {
    HistoryRow row = DescribeEntries(ops);
    if (m_isCarrying) {
        row.kind = ChangeKind::Carry;
        row.names.clear();
    }
    row.time = HistoryTime(m_clock.GetLocalTime());
    return row;
}

bool CEntryHistory::Write(HistoryRow& row, const std::vector<RowOp>& ops) {
    RowLog log;
    for (const RowOp& op : ops) log.Append(op);
    row.last = ops.back();
    row.last.before.clear();
    return m_writer.Write(row, log.Parts());
}

void CEntryHistory::OnCommit(CSqliteFile&) {
    if (m_before.empty() || m_writer.HasWritten()) return;
    const std::vector<RowOp> ops = Changed();
    if (ops.empty()) return;
    HistoryRow row = RowOf(ops);
    if (!m_isUnsure && Write(row, ops))
        m_notice.NoteSuccess();
    else
        m_notice.PutFailure(FormatText<Text::HistoryNotWritten>(m_file.Error()));
}

void CEntryHistory::OnEnd(bool isDurable) {
    m_before.clear();
    m_writer.End(isDurable);
}

bool CEntryHistory::NoteWay(HistoryRow row) {
    const std::vector<RowOp> ops = Changed();
    return !ops.empty() && !m_isUnsure && Write(row, ops);
}
