#include "cli/commands/ReportRequest.h"

#include "cli/arguments/CArguments.h"
#include "cli/arguments/QueryArguments.h"
#include "cli/arguments/ReportArguments.h"
#include "cli/commands/RecordSteps.h"
#include "cli/commands/ReportSteps.h"
#include "cli/home/CSettingsOwner.h"
#include "cli/output/ReportNames.h"
#include "lang/FormatText.h"
#include "reports/definition/ReportKinds.h"
#include "reports/definition/ReportPages.h"

#include <algorithm>
#include <string_view>

using namespace Qt::Literals::StringLiterals;

namespace {

FilterProblem Usage(const QString& words) {
    return {ExitCode::Usage, words};
}

FilterProblem ReadFormat(const CArguments& arguments, ReportRequest& request) {
    const QString format = arguments.Value("format").value_or(u"html"_s);
    if (format != u"html" && format != u"csv") return Usage(FormatText<Text::CliRunNoFormat>(format));
    request.format = format == u"csv" ? RunFormat::Table : RunFormat::Page;
    request.file = arguments.Value("out");
    return {};
}

bool IsOf(std::span<const OptionRow> options, std::string_view name) {
    return std::ranges::any_of(options, [name](const OptionRow& option) { return name == option.name; });
}

/// Criteria of the other kind of records are refused.
FilterProblem ReadFilterUse(const CArguments& arguments, ReportRequest& request) {
    for (const OptionRow& option : StoredQueryOptions()) {
        if (!arguments.Has(option.name)) continue;
        if (!IsOf(FilterOptions(KindOf(request.mode)), option.name))
            return Usage(FormatText<Text::CliUnexpected>(u"--"_s + QString::fromLatin1(option.name)));
        request.filter.AddOption(option.name, arguments.Values(option.name));
        request.isFiltered = true;
    }
    return {};
}

/// The records can be said in one way alone.
FilterProblem ReadRecords(const CArguments& arguments, ReportRequest& request) {
    FilterProblem problem = ReadFilterUse(arguments, request);
    if (problem.exit != ExitCode::Done) return problem;
    if (const auto ids = arguments.Value("ids")) request.ids = ids->split(u',', Qt::SkipEmptyParts);
    request.query = arguments.Value("query");
    if (request.query && request.query->isEmpty()) request.query.reset();  // it unties the stored query
    const int ways = int{request.ids.has_value()} + int{request.query.has_value()} + int{request.isFiltered};
    return ways > 1 ? Usage(LoadText(Text::CliRunOneChoice)) : FilterProblem{};
}

/// What describes the report. A query is no part of it where the definition can't be tied to it: a summary
/// has no definition, and the query that was used last changes with every use.
CArguments DefinitionPart(const CArguments& arguments, const ReportRequest& request) {
    const bool isTied = request.report.kind != ReportKind::Summary &&
                        !(request.query && CQueryStore::IsReserved(*request.query));
    CArguments part;
    for (const OptionRow& option : DefinitionOptions())
        if (arguments.Has(option.name) && (isTied || std::string_view(option.name) != "query"))
            part.AddOption(option.name, arguments.Values(option.name));
    return part;
}

FilterProblem ReadStored(const CArguments& arguments, Console& console, const CSettingsOwner& owner,
                         ReportRequest& request) {
    if (arguments.Value("kind") == u"summary"_s) return Usage(LoadText(Text::CliRunSummaryStored));
    const auto place = ReadReportPlace(arguments, console);
    if (!place) return {ExitCode::Usage, {}};
    FoundReport found;
    FilterProblem problem = FindReport(*place, arguments.Words().first(), owner, found);
    if (problem.exit == ExitCode::Done) problem = LoadReport(request.mode, found, owner, request.report);
    request.name = found.name;
    return problem;
}

FilterProblem StartQuick(const CArguments& arguments, ReportRequest& request) {
    const QString typed = arguments.Value("kind").value_or(QString());
    const QString allowed = StoredKindNames() + u", "_s + NameOf(ReportKind::Summary);
    if (typed.isEmpty()) return Usage(FormatText<Text::CliRunNeedsKind>(allowed));
    const auto kind =
        typed == NameOf(ReportKind::Summary) ? std::optional(ReportKind::Summary) : StoredKindNamed(typed);
    if (!kind) return Usage(FormatText<Text::CliNoKind>(typed, allowed));
    request.report.kind = *kind;
    request.report.title = QuickTitle(*kind);
    return {};
}

FilterProblem ReadReport(const CArguments& arguments, Console& console, const CSettingsOwner& owner,
                         ReportRequest& request) {
    const bool isQuick = arguments.Words().isEmpty();
    FilterProblem problem =
        isQuick ? StartQuick(arguments, request) : ReadStored(arguments, console, owner, request);
    if (problem.exit != ExitCode::Done) return problem;
    problem = ReadDefinition(DefinitionPart(arguments, request), KindOf(request.mode),
                             owner.Queries(request.mode), request.report);
    if (problem.exit != ExitCode::Done) return problem;
    if (const auto lack = isQuick ? GroupProblem(request.report) : std::nullopt)
        return Usage(LoadText(*lack));
    if (request.format == RunFormat::Table && request.report.kind == ReportKind::Compound)
        return Usage(LoadText(Text::CliRunCompoundTable));
    return problem;
}

}  // namespace

FilterProblem ReadReportRequest(const CArguments& arguments, Console& console, const CSettingsOwner& owner,
                                ReportRequest& request) {
    const auto mode = ReadModeOption(arguments, console);
    if (!mode) return {ExitCode::Usage, {}};
    request.mode = *mode;
    FilterProblem problem = ReadFormat(arguments, request);
    if (problem.exit == ExitCode::Done) problem = ReadRecords(arguments, request);
    return problem.exit == ExitCode::Done ? ReadReport(arguments, console, owner, request) : problem;
}
