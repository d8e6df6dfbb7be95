#pragma once

#include "records/RowOps.h"

#include <QByteArrayList>
#include <vector>

class CSqliteFile;

/// Takes back changes of rows, one after the other, within a transaction of their file. A row is looked at
/// first: one that isn't as the change left it isn't touched.
class RowReverter {
 public:
    enum class End {
        Done,
        Touched,  ///< the row was changed since
        Failed    ///< the file has noted why
    };

    /// tables: their names by number.
    RowReverter(CSqliteFile& file, const QByteArrayList& tables);
    [[nodiscard]] End Revert(const RowOp& op);
    /// Whether a row is as a change left it.
    [[nodiscard]] End Check(const RowOp& op);

 private:
    /// The statements of a table.
    struct Table {
        bool isKnown = false;
        int columns = 0;
        QByteArray sum;     ///< the checksum of a row
        QByteArray insert;  ///< all columns
        QByteArray modify;  ///< all columns, the key of the row behind them
        QByteArray remove;
        QByteArray note;  ///< makes the checksum of a row
    };
    [[nodiscard]] const Table* Find(int number);
    void Compose(Table& table, const QByteArray& name, const QByteArrayList& columns) const;
    [[nodiscard]] End Run(const QByteArray& sql, const RowOp& op, int columns);
    [[nodiscard]] End RunWithKey(const QByteArray& sql, const QByteArray& key);
    [[nodiscard]] End Step(sqlite3_stmt* statement);

    CSqliteFile& m_file;
    QByteArrayList m_names;
    std::vector<Table> m_tables;
};
