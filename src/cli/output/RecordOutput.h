#pragma once

#include "cli/output/RecordColumns.h"

#include <vector>

class COutput;

/// The fields of a record as a JSON object.
void WriteRecordJson(CJsonText& json, const RecordRow& row);
/// One record as the answer of a command: a JSON object, or a line for each field that is set.
void WriteRecord(COutput& out, const RecordRow& row);
/// Records of one kind as lines of aligned columns below their captions; columns that no record fills are
/// left out.
void WriteRecordTable(COutput& out, const std::vector<RecordRow>& rows);
