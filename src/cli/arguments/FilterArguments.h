#pragma once

#include "cli/arguments/OptionRow.h"
#include "cli/output/ExitCode.h"
#include "records/CVORec.h"

#include <QString>
#include <span>

class CArguments;
class CVelmarchDoc;

/// The options that narrow a list of records of a kind: --period to the flags.
[[nodiscard]] std::span<const OptionRow> FilterOptions(RecordKind kind);

/// Why a filter can't be made; the exit code says which kind.
struct FilterProblem {
    ExitCode exit = ExitCode::Done;
    QString words;
};

/// Makes the document's filter of that kind the one that a command line describes; without any option it lets
/// everything pass.
[[nodiscard]] FilterProblem ReadFilter(RecordKind kind, const CArguments& arguments, CVelmarchDoc& document);
