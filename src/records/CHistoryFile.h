#pragma once

#include "platform/sqlite/CSqliteFile.h"
#include "records/HistoryRow.h"

#include <QByteArray>
#include <QString>
#include <initializer_list>
#include <optional>
#include <utility>
#include <vector>

/// What somebody who only looks finds out about a history.
struct HistoryHealth {
    OpenOutcome outcome;
    QString error;    ///< what is wrong with the file; empty when it can be read
    int changes = 0;  ///< that can be undone or done again, those that may not have come true among them
    int faults = 0;   ///< changes, and blocks of their rows, that aren't as they were written
};

/// The file of the history: which changes were made, and what it takes to undo them. Its tables are described
/// in docs/history.md. A file that can't be read is put in quarantine, and a new one takes its place: the
/// history is a help, and never worth a change.
class CHistoryFile {
 public:
    /// So many changes are kept at least; the oldest go first.
    static constexpr int kMostChanges = 1000;
    /// All of them together hold no more than this for long.
    static constexpr std::int64_t kMostBytes = 128LL << 20;

    explicit CHistoryFile(const QString& path) : m_path(path) {}
    /// Reads all of a file that is there, and changes nothing.
    [[nodiscard]] static HistoryHealth Examine(const QString& path);

    enum class Missing { Make, Leave };
    /// Opens the file where it isn't open. False when it can't be used now, Error() says why, or when it
    /// isn't there and isn't to be made. One that may only be read can be used with Missing::Leave.
    [[nodiscard]] bool Open(Missing missing);
    void Close() { m_file.Close(); }
    /// Where the former file was put, told once; empty: it wasn't.
    [[nodiscard]] QString TakeKeptAside() { return std::exchange(m_keptAside, {}); }
    [[nodiscard]] const QString& Error() const { return m_error; }
    /// Damage was met in the open file: the next use puts it aside.
    [[nodiscard]] bool IsDamaged() const { return m_file.IsOpen() && m_file.IsDamaged(); }
    /// Another number once another program has written to the file.
    [[nodiscard]] std::int64_t Version();

    // Reading: nothing when it can't be read.

    /// All rows, those of the newest change first.
    [[nodiscard]] std::optional<std::vector<HistoryRow>> Rows();
    /// Those that may not have come true.
    [[nodiscard]] std::optional<std::vector<HistoryRow>> UnsureRows();
    /// The blocks of changed rows of a row of the history.
    [[nodiscard]] std::optional<std::vector<QByteArray>> Parts(std::int64_t row);

    // Writing, within one transaction.

    [[nodiscard]] bool Begin();
    /// Gives the row its number, and a new change its own.
    [[nodiscard]] bool Insert(HistoryRow& row, const std::vector<QByteArray>& parts);
    /// It came true: what it takes the place of goes, and with a new change everything that was undone.
    [[nodiscard]] bool MakeSure(const HistoryRow& row);
    /// It didn't.
    [[nodiscard]] bool Drop(std::int64_t row);
    [[nodiscard]] bool Commit();
    void Rollback() { m_file.Rollback(); }

 private:
    [[nodiscard]] bool IsForReadingOnly(Missing missing) const;
    [[nodiscard]] bool Use(OpenOutcome outcome, Missing missing);
    [[nodiscard]] static bool IsUnreadable(OpenOutcome outcome);
    /// Whether the file was found bad by what was read of it.
    enum class Bad { Yes, No };
    [[nodiscard]] bool OpenInTurn(Bad bad);
    [[nodiscard]] bool MakeTables();
    [[nodiscard]] bool Fail();
    [[nodiscard]] std::optional<std::vector<HistoryRow>> Select(const QByteArray& conditions);
    [[nodiscard]] static std::optional<HistoryRow> RowOf(sqlite3_stmt* statement);
    void CountFaults(HistoryHealth& health);
    [[nodiscard]] bool Run(const QByteArray& sql, std::initializer_list<std::int64_t> values);
    [[nodiscard]] bool Step(sqlite3_stmt* statement);
    [[nodiscard]] bool InsertParts(std::int64_t row, const std::vector<QByteArray>& parts);
    [[nodiscard]] std::optional<std::int64_t> Number(const QByteArray& sql);
    [[nodiscard]] bool IsFull();
    [[nodiscard]] bool DropOldest();

    QString m_path;
    CSqliteFile m_file;
    QString m_error;
    QString m_keptAside;
};
