#pragma once

#include "records/CHistoryFile.h"
#include "records/CStoreJournal.h"
#include "records/RowCapture.h"
#include "records/RowReverter.h"

#include <QString>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

class CClock;
class CSqliteFile;

/// The changes that can be undone. What a transaction of the store changes is written down just before it
/// becomes durable, and counts once it did: a row of the history that a program left behind in between is
/// compared with the store. See docs/history.md.
class CHistory final : public CStoreJournal, public CRowListener {
 public:
    /// What is kept of one change at most, as it is said to the user.
    static constexpr int kMegabytes = static_cast<int>(RowCapture::kMostBytes >> 20);

    /// home: the folder of the records. The history is opened with the first change.
    CHistory(const QString& home, const CClock& clock);

    [[nodiscard]] CRowListener& Rows() override { return *this; }
    void SetKind(ChangeKind kind) override { m_kind = kind; }
    [[nodiscard]] ChangeKind Kind() const override { return m_kind; }
    [[nodiscard]] QString TakeNotice() override { return std::exchange(m_notice, {}); }

    void OnBegin(CSqliteFile& file) override;
    void OnRow(const CChangedRow& row) override { m_capture.Note(row); }
    void OnCommit(CSqliteFile& file) override;
    void OnEnd(bool isDurable) override;

    /// Which way through the history.
    enum class Way { Undo, Redo };
    /// The changes that can be undone or done again, the newest first. Nothing when the history can't be
    /// read; Error() says why. file: that of the records.
    [[nodiscard]] std::optional<std::vector<HistoryRow>> Changes(CSqliteFile& file);
    /// The change that is next, of those.
    [[nodiscard]] static const HistoryRow* Next(const std::vector<HistoryRow>& changes, Way way);
    /// The rows that it takes to go that way, in blocks; nothing when they can't be read.
    [[nodiscard]] std::optional<std::vector<QByteArray>> Parts(const HistoryRow& row) {
        return m_file.Parts(row.row);
    }
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
    [[nodiscard]] bool WriteOnce(HistoryRow& row);
    [[nodiscard]] bool WriteSettled();
    [[nodiscard]] HistoryRow RowOf() const;
    void TellKeptAside();
    static void Take(std::vector<HistoryRow>& changes, const HistoryRow& row);

    const CClock& m_clock;
    CHistoryFile m_file;
    RowCapture m_capture;
    ChangeKind m_kind = ChangeKind::Other;
    QString m_notice;
    bool m_isFailureTold = false;
    std::optional<HistoryRow> m_written;  ///< of the transaction that is about to end
    std::int64_t m_lastTrue = 0;          ///< the row whose transaction this program saw end well
    std::vector<HistoryRow> m_true;       ///< rows that came true, which isn't written yet
    std::vector<std::int64_t> m_untrue;   ///< and those that didn't
    std::int64_t m_edition = 0;
};
