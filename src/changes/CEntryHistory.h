#pragma once

#include "changes/CHistoryWriter.h"
#include "changes/EntryOps.h"
#include "config/CEntryJournal.h"
#include "platform/sqlite/CRowListener.h"

#include <optional>
#include <utility>
#include <vector>

class CCfgStore;
class CClock;

/// Writes down what changes of the settings do to definitions of reports, stored queries and stored defaults,
/// in the history of the store and in the same way. What the program itself stores under the name of what was
/// used last isn't a change of the user's.
class CEntryHistory final : public CRowListener, public CEntryJournal {
 public:
    /// All must outlive it. Nothing is written down before Watch.
    CEntryHistory(CCfgStore& settings, CHistoryFile& file, CHistoryNotice& notice, const CClock& clock);
    ~CEntryHistory() override;
    CEntryHistory(const CEntryHistory&) = delete;
    CEntryHistory& operator=(const CEntryHistory&) = delete;

    void Watch();
    /// Whether the settings are as a row of theirs says.
    [[nodiscard]] RowReverter::End Compare(const HistoryRow& row) const;
    /// Within the change of the settings that takes a change back, once all is as it was: writes that down in
    /// place of a new change. False when it can't be, and the change of the settings is to be undone.
    [[nodiscard]] bool NoteWay(HistoryRow row);
    [[nodiscard]] std::int64_t Edition() const { return m_writer.Edition(); }

    void NoteEntry(const QString& key, const QString& entry) override;
    void SetCarrying(bool isCarrying) override { m_isCarrying = isCarrying; }
    void OnBegin(CSqliteFile& file) override;
    void OnRow(const CChangedRow&) override {}
    void OnCommit(CSqliteFile& file) override;
    void OnEnd(bool isDurable) override;

 private:
    [[nodiscard]] std::optional<StoredEntry> Find(const EntryName& name);
    [[nodiscard]] std::vector<RowOp> Changed();
    [[nodiscard]] HistoryRow RowOf(const std::vector<RowOp>& ops) const;
    [[nodiscard]] bool Write(HistoryRow& row, const std::vector<RowOp>& ops);

    CCfgStore& m_settings;
    CHistoryFile& m_file;
    CHistoryNotice& m_notice;
    const CClock& m_clock;
    CHistoryWriter m_writer;
    bool m_isWatching = false;
    bool m_isCarrying = false;
    bool m_isUnsure = false;                                                 ///< an entry could not be read
    std::vector<std::pair<EntryName, std::optional<StoredEntry>>> m_before;  ///< as the change found them
};
