#pragma once

#include "cli/output/RecordColumns.h"

#include <vector>

class COutput;

/// The fields of a record as a JSON object.
void WriteRecordJson(CJsonText& json, const RecordRow& row);
/// One record as the answer of a command: a JSON object, or a line for each field that is set.
void WriteRecord(COutput& out, const RecordRow& row);
/// Records of one kind as lines of aligned columns below their captions; columns that no record fills are
/// left out. Each record is measured before the first is written, so that none of them has to be kept.
class CRecordTable {
 public:
    explicit CRecordTable(RecordKind kind);
    void Measure(const RecordRow& row);
    void WriteHead(COutput& out) const;
    void WriteLine(COutput& out, const RecordRow& row) const;

 private:
    struct ListedColumn {
        const RecordColumn* column;
        qsizetype widest = 0;  ///< 0: nothing in it
        [[nodiscard]] qsizetype Width() const;
    };
    std::vector<ListedColumn> m_columns;
};
