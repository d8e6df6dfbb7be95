#pragma once

#include "app/RecordMode.h"

#include <QString>
#include <functional>
#include <optional>

class CListingRows;
class COutput;
struct ReportResult;

/// A run as it is shown.
struct ShownRun {
    RecordMode mode;
    std::optional<QString> name;  ///< of the stored definition
    QString date;                 ///< of the run, "2026-11-19"
    std::size_t count;            ///< of records
    const ReportResult& result;
};
/// Visits the identities of the records in their order.
using ForEachIdentity = std::function<void(const std::function<void(const QString& id)>& visit)>;

/// The numbers and texts of the page as one JSON document. False where the rows break off; the document
/// breaks off there, too.
[[nodiscard]] bool WriteRunJson(COutput& out, const ShownRun& run, const ForEachIdentity& forEachId,
                                CListingRows& rows);
