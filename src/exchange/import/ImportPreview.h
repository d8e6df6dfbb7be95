#pragma once

#include "exchange/import/CRecordImport.h"
#include "exchange/text/TextColumns.h"

#include <QList>
#include <QStringList>
#include <span>

/// What an import would make of the beginning of a file, in words.
struct ImportPreview {
    QStringList heads;
    QList<QStringList> rows;  ///< the first records or items, as they would be stored
    QStringList refused;      ///< lines with their numbers and reasons
    QStringList misread;      ///< values that aren't read as they are written, likewise
    QString counts;
    QByteArray encoding;
};

/// So many lines are looked at while the user is choosing.
inline constexpr int kPreviewedLines = 1000;

/// stored: what is there already.
[[nodiscard]] ImportPreview PreviewRecords(CTextFile& file, const ImportRequest& request,
                                           const CStoredContents& stored, const ColumnNames& names);
[[nodiscard]] ImportPreview PreviewItems(CTextFile& file, const Delimiters& delimiters,
                                         const QByteArray& encoding, const CPulldownCatalogue& catalogue);

/// "Line 3, Rate: ...". field: what it is called.
[[nodiscard]] QString MisreadWords(const MisreadLine& line, const QString& field);
/// The same for each of them.
[[nodiscard]] QStringList MisreadWords(std::span<const MisreadLine> misread, const ColumnNames& names);
