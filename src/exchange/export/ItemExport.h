#pragma once

#include "exchange/export/CTextExport.h"

class CRecordStore;

struct [[nodiscard]] ItemExportEnd {
    ExportEnd file;
    int items = 0;
    bool areItemsRead = true;  ///< false: the store can't be read; told, and nothing was written
};

/// Writes all stored items of lists that have a name in text files, a line for each; no head line.
[[nodiscard]] ItemExportEnd ExportItems(const QString& path, const ExportForm& form, CRecordStore& store);
