#pragma once

#include "exchange/import/CRecordImport.h"

#include <QList>
#include <QStringList>

class FieldLabels;
struct Settings;

/// What an import would make of the beginning of a file, in words.
struct ImportPreview {
    QStringList heads;
    QList<QStringList> rows;  ///< the first records or items, as they would be stored
    QStringList refused;      ///< lines with their numbers and reasons
    QString counts;
    QByteArray encoding;
};

/// So many lines are looked at while the user is choosing.
inline constexpr int kPreviewedLines = 1000;

[[nodiscard]] ImportPreview PreviewRecords(CTextFile& file, const ImportRequest& request, CRecordStore& store,
                                           const FieldLabels& labels, const Settings& settings);
[[nodiscard]] ImportPreview PreviewItems(CTextFile& file, const Delimiters& delimiters,
                                         const QByteArray& encoding, const CPulldownCatalogue& catalogue);
