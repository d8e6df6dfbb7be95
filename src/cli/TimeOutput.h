#pragma once

#include "cli/TimeColumns.h"

#include <vector>

class COutput;

/// The fields of a record as a JSON object.
void WriteTimeJson(CJsonText& json, const TimeRow& row);
/// One record as the answer of a command: a JSON object, or a line for each field that is set.
void WriteTime(COutput& out, const TimeRow& row);
/// Records as lines of aligned columns below their captions; columns that no record fills are left out.
void WriteTimeTable(COutput& out, const std::vector<TimeRow>& rows);
