#include "cli/commands/ReportSteps.h"

#include "cli/arguments/CArguments.h"
#include "cli/commands/RecordSteps.h"
#include "cli/home/CSettingsOwner.h"
#include "cli/output/COutput.h"
#include "cli/output/ReportNames.h"
#include "lang/FormatText.h"

#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

std::vector<ReportKind> KindsOf(const ReportPlace& place) {
    if (place.kind) return {*place.kind};
    const auto kinds = StoredKinds();
    return {kinds.begin(), kinds.end()};
}

/// Exactly that name, or one that equals it ignoring case.
std::vector<FoundReport> Search(const ReportPlace& place, const QString& name, const CSettingsOwner& owner,
                                bool isExact) {
    std::vector<FoundReport> found;
    for (const ReportKind kind : KindsOf(place)) {
        const auto stored = owner.Reports(place.mode, kind).Find(name);
        if (stored && (!isExact || *stored == name)) found.push_back({kind, *stored});
    }
    return found;
}

}  // namespace

std::optional<ReportPlace> ReadReportPlace(const CArguments& arguments, Console& console) {
    const auto mode = ReadModeOption(arguments, console);
    if (!mode) return std::nullopt;
    ReportPlace place{*mode};
    if (const auto typed = arguments.Value("kind")) {
        place.kind = StoredKindNamed(*typed);
        if (!place.kind) {
            console.out.Complain(FormatText<Text::CliNoKind>(*typed, StoredKindNames()));
            return std::nullopt;
        }
    }
    return place;
}

FilterProblem FindReport(const ReportPlace& place, const QString& typed, const CSettingsOwner& owner,
                         FoundReport& found) {
    std::vector<FoundReport> all = Search(place, typed, owner, true);
    if (all.empty()) all = Search(place, typed, owner, false);
    if (all.empty()) return {ExitCode::NotFound, FormatText<Text::CliNoSuchReport>(typed)};
    if (all.size() > 1) {
        QStringList kinds;
        for (const FoundReport& one : all) kinds.append(NameOf(one.kind));
        return {ExitCode::Usage, FormatText<Text::CliReportOfSomeKinds>(typed, kinds.join(u", "_s))};
    }
    found = all.front();
    return {};
}

FilterProblem LoadReport(RecordMode mode, const FoundReport& found, const CSettingsOwner& owner,
                         CReportDef& report) {
    report.Reset();
    if (owner.Reports(mode, found.kind).Load(found.name, report)) return {};
    return {ExitCode::Failed, FormatText<Text::CliReportUnreadable>(found.name)};
}
