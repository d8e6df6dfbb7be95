#pragma once

#include "records/RowOps.h"

#include <QByteArrayList>
#include <QHash>
#include <QStringList>
#include <optional>
#include <vector>

/// A table whose rows are collected.
struct CapturedTable {
    QByteArray name;
    std::vector<int> named;  ///< the columns by which the user knows a row
};

/// What the changed rows of a table are known by.
struct RowNames {
    QStringList before;  ///< of a row as it was; none of an added one
    QStringList after;   ///< as it is; none of one that is gone
    bool isSame = true;  ///< all of them are known by the same
};

/// Collects what a transaction does to the rows of some tables, as far as it isn't too much. A row's new
/// checksum is taken from where it is stored beside it; a row that is written as it was isn't changed.
class RowCapture {
 public:
    /// More than this of one change isn't kept.
    static constexpr std::int64_t kMostBytes = 64LL << 20;

    /// tables: by the numbers that are written down.
    explicit RowCapture(const std::vector<CapturedTable>& tables);

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
    /// What they are known by.
    [[nodiscard]] RowNames NamesOf(int table) const { return m_names.value(table); }

 private:
    [[nodiscard]] int TableOf(const char* name) const;
    void NoteSum(const CChangedRow& row);
    void Begin(int table, const CChangedRow& row);
    void NoteNames(int table, const CChangedRow& row);
    void Flush();

    std::vector<CapturedTable> m_tables;
    QByteArrayList m_checks;  ///< the tables of their checksums
    struct Open {
        RowOp op;
        std::int64_t sumBefore = 0;
        bool hasSum = false;
    };
    std::optional<Open> m_open;  ///< its new checksum is still to come
    RowLog m_log;
    RowOp m_last{.event = RowEvent::Added, .table = 0, .key = {}, .before = {}};
    QHash<int, int> m_counts;      ///< by table and event
    QHash<int, RowNames> m_names;  ///< by table
    int m_changed = 0;
    bool m_isTooLarge = false;
    bool m_isUnsure = false;
};
