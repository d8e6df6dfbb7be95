#pragma once

#include "calendar/PeriodFilter.h"
#include "reports/query/StoredQuery.h"

class CFieldCatalogue;
class COutput;

/// A stored query as it is shown, with its period as it is today.
struct ShownQuery {
    const QString& name;
    const StoredQuery& query;
    const PeriodContext& context;
};

void WriteQueryJson(COutput& out, const ShownQuery& shown);
/// The criteria for people, with the names of the fields.
void WriteQueryLines(COutput& out, const ShownQuery& shown, const CFieldCatalogue& fields);
