#pragma once

#include "app/RecordMode.h"
#include "cli/arguments/FilterArguments.h"
#include "cli/output/Console.h"
#include "reports/definition/CReportDef.h"

#include <optional>

class CArguments;
class CSettingsOwner;

// Steps that commands about reports share.

/// Which definitions are meant: those of a mode, of all kinds or of one.
struct ReportPlace {
    RecordMode mode = RecordMode::Time;
    std::optional<ReportKind> kind = {};
};
/// From --mode and --kind; nothing, after telling, when one of them can't be read.
[[nodiscard]] std::optional<ReportPlace> ReadReportPlace(const CArguments& arguments, Console& console);

/// A stored definition by its name and the kind of the key in which it lies.
struct FoundReport {
    ReportKind kind = ReportKind::Listing;
    QString name{};
};
/// The definition of that name: not found, or refused when more than one kind has it. Case of letters counts
/// only where two names differ in nothing else.
[[nodiscard]] FilterProblem FindReport(const ReportPlace& place, const QString& typed,
                                       const CSettingsOwner& owner, FoundReport& found);
/// Failed when its kind can't be read.
[[nodiscard]] FilterProblem LoadReport(RecordMode mode, const FoundReport& found, const CSettingsOwner& owner,
                                       CReportDef& report);
