#pragma once

#include "app/RecordMode.h"
#include "reports/definition/CReportDef.h"

class CFieldCatalogue;
class COutput;

/// A definition as it is shown: kind is that of the key in which it lies.
struct ShownReport {
    RecordMode mode;
    ReportKind kind;
    const CReportDef& report;
};

void WriteReportJson(COutput& out, const ShownReport& shown);
/// For people, with the captions of the fields.
void WriteReportLines(COutput& out, const ShownReport& shown, const CFieldCatalogue& fields);
/// The fields of reports and what can be done with each.
void WriteReportFields(COutput& out, RecordKind kind, const CFieldCatalogue& fields);
