#pragma once

#include "changes/CEntryHistory.h"
#include "changes/CHistoryNotice.h"
#include "changes/CHistoryWriter.h"
#include "records/CHistoryFile.h"
#include "records/CStoreJournal.h"
#include "records/RowCapture.h"
#include "records/RowReverter.h"

#include <QString>
#include <QStringList>
#include <cstdint>
#include <optional>
#include <vector>

class CCfgStore;
class CClock;
class CSqliteFile;

/// The changes that can be undone. What a transaction of the store changes is written down just before it
/// becomes durable, and counts once it did: a row of the history that a program left behind in between is
/// compared with the store. Changes of the settings are beside them (Entries). See docs/history.md.
class CHistory final : public CStoreJournal, public CRowListener {
 public:
    /// What is kept of one change at most, as it is said to the user.
    static constexpr int kMegabytes = static_cast<int>(RowCapture::kMostBytes >> 20);

    /// home: the folder of the records. The history is opened with the first change.
    CHistory(const QString& home, const CClock& clock, CCfgStore& settings);

    [[nodiscard]] CRowListener& Rows() override { return *this; }
    void SetKind(ChangeKind kind, const QStringList& names) override;
    [[nodiscard]] ChangeKind Kind() const override { return m_kind; }
    void NoteTimer(const QString& recordId, const QByteArray& image) override;
    [[nodiscard]] QString TakeNotice() override { return m_notice.Take(); }

    void OnBegin(CSqliteFile& file) override;
    void OnRow(const CChangedRow& row) override { m_capture.Note(row); }
    void OnCommit(CSqliteFile& file) override;
    void OnEnd(bool isDurable) override;

    /// Changes of what the settings hold under names.
    [[nodiscard]] CEntryHistory& Entries() { return m_entries; }

    /// Which way through the history.
    enum class Way { Undo, Redo };
    [[nodiscard]] static Way Opposite(Way way) { return way == Way::Undo ? Way::Redo : Way::Undo; }
    /// The changes that can be undone or done again, the newest first. Nothing when the history can't be
    /// read; Error() says why. file: that of the records.
    [[nodiscard]] std::optional<std::vector<HistoryRow>> Changes(CSqliteFile& file);
    /// The rows that it takes to go that way, in blocks; nothing when they can't be read.
    [[nodiscard]] std::optional<std::vector<QByteArray>> Parts(const HistoryRow& row) {
        return m_file.Parts(row.row);
    }
    /// A timer that comes back with the change which is undone goes again when that is done again.
    void NoteTimerBack(const QString& recordId, const QByteArray& image);
    /// Within the transaction that takes a change back, or makes it again, once all its rows are as they
    /// were: writes that down instead of a new change. False when it can't be, and the transaction is not to
    /// be committed.
    [[nodiscard]] bool NoteWay(const HistoryRow& change, Way way);
    [[nodiscard]] const QString& Error() const { return m_file.Error(); }
    /// Another number as soon as there may be other changes.
    [[nodiscard]] std::int64_t Edition();

 private:
    [[nodiscard]] RowReverter::End Compare(const HistoryRow& row, CSqliteFile& file) const;
    [[nodiscard]] bool Write(HistoryRow& row);
    [[nodiscard]] HistoryRow RowOf() const;
    static void Take(std::vector<HistoryRow>& changes, const HistoryRow& row);
    static void DropOvertaken(std::vector<HistoryRow>& changes, std::int64_t newest);

    const CClock& m_clock;
    CHistoryFile m_file;
    CHistoryNotice m_notice;
    RowCapture m_capture;
    CHistoryWriter m_writer;
    CEntryHistory m_entries;
    ChangeKind m_kind = ChangeKind::Other;
    QStringList m_names;
    RowLog m_timers;  ///< that go or come back with the next transaction
};

/// What a change becomes that goes a way: undone or done, or too large to come back.
[[nodiscard]] ChangeState StateAfter(CHistory::Way way, bool isTooLarge);
