#pragma once

#include "records/CHistoryFile.h"
#include "records/RowReverter.h"

#include <QByteArray>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

class CHistoryNotice;

/// Writes the rows of the history that belong to the transactions of one file, the store or the settings. A
/// row is written just before its transaction becomes durable, and is unsure until it is known that it did:
/// rows that were left behind in between are compared with the file by who changes it next. Only they can
/// tell, since nobody else is in the middle of a change of that file then.
class CHistoryWriter {
 public:
    enum class File { Store, Settings };
    /// Both must outlive it.
    CHistoryWriter(CHistoryFile& file, CHistoryNotice& notice, File of)
        : m_file(file), m_notice(notice), m_of(of) {}

    /// Whether the file is as a row says that the change left it.
    using Compare = std::function<RowReverter::End(const HistoryRow& row)>;
    /// A transaction of the file has begun, and nothing is changed yet.
    void Begin(const Compare& compare);
    /// All is changed. One row for a transaction: false, and Error() of the history says why, when it can't
    /// be written.
    [[nodiscard]] bool Write(HistoryRow& row, const std::vector<QByteArray>& parts);
    [[nodiscard]] bool HasWritten() const { return m_written.has_value(); }
    /// What became of the transaction.
    void End(bool isDurable);

    /// This program saw the transaction of the row end well.
    [[nodiscard]] bool IsTrue(const HistoryRow& row) const { return row.row == m_lastTrue; }
    /// Another number after each row.
    [[nodiscard]] std::int64_t Edition() const { return m_edition; }
    /// Tells where a history that can't be read was put.
    void TellKeptAside();

 private:
    [[nodiscard]] bool IsOurs(const HistoryRow& row) const;
    [[nodiscard]] bool WriteOnce(HistoryRow& row, const std::vector<QByteArray>& parts);
    [[nodiscard]] bool WriteSettled();

    CHistoryFile& m_file;
    CHistoryNotice& m_notice;
    File m_of;
    std::optional<HistoryRow> m_written;  ///< of the transaction that is about to end
    std::int64_t m_lastTrue = 0;
    std::vector<HistoryRow> m_true;      ///< rows that came true, which isn't written yet
    std::vector<std::int64_t> m_untrue;  ///< and those that didn't
    std::int64_t m_edition = 0;
};
