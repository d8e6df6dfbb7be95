#pragma once

#include "exchange/export/CReadBack.h"
#include "exchange/export/CTextExport.h"

class CVORec;
struct ColumnNames;

/// A text file of records in the making: a head line, then a line for each.
class CRecordExport {
 public:
    CRecordExport(const QString& path, const ExportForm& form, RecordKind kind, const ColumnNames& names);

    /// What can't be written is told by Finish.
    void Put(const CVORec& record);
    [[nodiscard]] ExportEnd Finish();

 private:
    RecordKind m_kind;
    Delimiters m_delimiters;
    CTextExport m_file;
    CReadBack m_readBack;
};
