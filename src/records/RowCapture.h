#pragma once

#include "records/RowOps.h"

#include <QByteArrayList>
#include <QHash>
#include <optional>

/// Collects what a transaction does to the rows of some tables, as far as it isn't too much. A row's new
/// checksum is taken from where it is stored beside it; a row that is written as it was isn't changed.
class RowCapture {
 public:
    /// More than this of one change isn't kept.
    static constexpr std::int64_t kMostBytes = 64LL << 20;

    /// tables: their names, by the numbers that are written down.
    explicit RowCapture(const QByteArrayList& tables);

    void Clear();
    void Note(const CChangedRow& row);
    /// The transaction is complete.
    void Finish();

    [[nodiscard]] bool IsEmpty() const { return m_changed == 0; }
    /// It was more than is kept.
    [[nodiscard]] bool IsTooLarge() const { return m_isTooLarge; }
    /// A row has no checksum, so it could not be recognised later on.
    [[nodiscard]] bool IsUnsure() const { return m_isUnsure; }
    [[nodiscard]] const RowLog& Log() const { return m_log; }
    /// The last change of a row, without what the row was; one at least was made.
    [[nodiscard]] const RowOp& Last() const { return m_last; }
    /// How many rows of a table were changed in a way.
    [[nodiscard]] int Count(int table, RowEvent event) const;

 private:
    [[nodiscard]] int TableOf(const char* name) const;
    void NoteSum(const CChangedRow& row);
    void Begin(int table, const CChangedRow& row);
    void Flush();

    QByteArrayList m_tables;
    QByteArrayList m_checks;  ///< the tables of their checksums
    struct Open {
        RowOp op;
        std::int64_t sumBefore = 0;
        bool hasSum = false;
    };
    std::optional<Open> m_open;  ///< its new checksum is still to come
    RowLog m_log;
    RowOp m_last{.event = RowEvent::Added, .table = 0, .key = {}, .before = {}};
    QHash<int, int> m_counts;  ///< by table and event
    int m_changed = 0;
    bool m_isTooLarge = false;
    bool m_isUnsure = false;
};
