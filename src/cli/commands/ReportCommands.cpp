#include "cli/commands/ReportCommands.h"

#include "app/CFieldCatalogue.h"
#include "app/CPulldownCatalogue.h"
#include "cli/arguments/CArguments.h"
#include "cli/arguments/ReportArguments.h"
#include "cli/commands/RecordSteps.h"
#include "cli/commands/ReportSteps.h"
#include "cli/home/CSettingsOwner.h"
#include "cli/home/RecordContext.h"
#include "cli/output/CJsonText.h"
#include "cli/output/COutput.h"
#include "cli/output/ReportNames.h"
#include "cli/output/ReportOutput.h"
#include "config/CCfgStore.h"
#include "lang/FormatText.h"
#include "records/KindNames.h"
#include "reports/definition/ReportPages.h"

using namespace Qt::Literals::StringLiterals;

namespace {

ExitCode RefuseReserved(const QString& name, Console& console) {
    return Refuse(ExitCode::Failed, FormatText<Text::ReportNameReserved>(name), console);
}

/// For people the names of the fields are read from the store.
ExitCode Print(const ShownReport& shown, Console& console, RecordContext& context) {
    if (console.out.isJson) {
        WriteReportJson(console.out, shown);
        return ExitCode::Done;
    }
    if (!context.catalogue.Load()) return ExitCode::Failed;
    WriteReportLines(console.out, shown, CFieldCatalogue(context.catalogue.Labels(), context.settings));
    return ExitCode::Done;
}

/// The sentence that refuses a definition as its group page would.
FilterProblem ReadWholeDefinition(const CArguments& arguments, RecordMode mode, const CSettingsOwner& owner,
                                  CReportDef& report) {
    FilterProblem problem = ReadDefinition(arguments, KindOf(mode), owner.Queries(mode), report);
    if (problem.exit != ExitCode::Done) return problem;
    if (const auto lack = GroupProblem(report)) return {ExitCode::Usage, LoadText(*lack)};
    return problem;
}

/// Asked of each definition that differs from the name by nothing but the case of letters.
bool MayReplace(const QString& name, const CReportStore& store, Console& console) {
    for (const QString& stored : store.Alike(name))
        if (!Confirm(Text::AskReplaceReport, FormatText<Text::AskReplaceReport>(stored),
                     Text::ReplaceReportTitle, Text::VerbReplace, console))
            return false;
    return true;
}

/// A stored definition that is to be changed.
struct ReportAtHand {
    RecordMode mode = RecordMode::Time;
    FoundReport found;
    CReportDef report;
};

/// Tells why there is none.
ExitCode Fetch(const CArguments& arguments, Console& console, const CSettingsOwner& owner,
               ReportAtHand& atHand) {
    const auto place = ReadReportPlace(arguments, console);
    if (!place) return ExitCode::Usage;
    atHand.mode = place->mode;
    FilterProblem problem = FindReport(*place, arguments.Words().first(), owner, atHand.found);
    if (problem.exit == ExitCode::Done) problem = LoadReport(place->mode, atHand.found, owner, atHand.report);
    return problem.exit == ExitCode::Done ? ExitCode::Done : RefuseStored(problem, console, owner);
}

ExitCode ChangeAndPrint(const EntryRequest& request, const ReportAtHand& atHand, Console& console,
                        RecordContext& context) {
    const ExitCode exit = ChangeSettings(request, console, context.owner);
    if (exit != ExitCode::Done) return exit;
    return Print({atHand.mode, atHand.found.kind, atHand.report}, console, context);
}

void WriteNameJson(CJsonText& json, RecordMode mode, const FoundReport& one) {
    json.NewLine();
    json.BeginObject();
    json.Key("mode");
    json.Text(KindName(KindOf(mode)));
    json.Key("kind");
    json.Text(NameOf(one.kind));
    json.Key("name");
    json.Text(one.name);
    json.Key("reserved");
    json.Flag(CReportStore::IsReserved(one.name));
    json.EndObject();
}

}  // namespace

ExitCode ListReportFields(const CArguments& arguments, Console& console, RecordContext& context) {
    const auto mode = ReadModeOption(arguments, console);
    if (!mode) return ExitCode::Usage;
    if (!context.catalogue.Load()) return ExitCode::Failed;
    WriteReportFields(console.out, KindOf(*mode),
                      CFieldCatalogue(context.catalogue.Labels(), context.settings));
    return ExitCode::Done;
}

ExitCode ListReports(const CArguments& arguments, Console& console, CSettingsOwner& owner) {
    const auto place = ReadReportPlace(arguments, console);
    if (!place) return ExitCode::Usage;
    std::vector<FoundReport> all;
    for (const ReportKind kind : StoredKinds())
        if (!place->kind || *place->kind == kind)
            for (const QString& name : owner.Reports(place->mode, kind).Names()) all.push_back({kind, name});
    COutput& out = console.out;
    if (!out.isJson) {
        for (const FoundReport& one : all)
            out.PutLine(NameOf(one.kind).leftJustified(NameOf(ReportKind::Compound).size() + 2) + one.name);
        return ExitCode::Done;
    }
    CJsonText json(out);
    json.BeginArray();
    for (const FoundReport& one : all) WriteNameJson(json, place->mode, one);
    json.EndArray();
    out.Put("\n");
    return ExitCode::Done;
}

ExitCode ShowReport(const CArguments& arguments, Console& console, RecordContext& context) {
    ReportAtHand atHand;
    const ExitCode exit = Fetch(arguments, console, context.owner, atHand);
    if (exit != ExitCode::Done) return exit;
    return Print({atHand.mode, atHand.found.kind, atHand.report}, console, context);
}

ExitCode SaveReport(const CArguments& arguments, Console& console, RecordContext& context) {
    const auto place = ReadReportPlace(arguments, console);
    if (!place) return ExitCode::Usage;
    const QString name = arguments.Words().first();
    QString problem = CheckName(name);
    if (problem.isEmpty() && !place->kind) problem = FormatText<Text::CliKindNeeded>(StoredKindNames());
    if (!problem.isEmpty()) return Refuse(ExitCode::Usage, problem, console);
    if (CReportStore::IsReserved(name)) return RefuseReserved(name, console);

    ReportAtHand atHand{place->mode, {*place->kind, name}, {}};
    atHand.report.kind = *place->kind;
    atHand.report.name = name;
    const FilterProblem refusal = ReadWholeDefinition(arguments, place->mode, context.owner, atHand.report);
    if (refusal.exit != ExitCode::Done) return RefuseStored(refusal, console, context.owner);
    const CReportStore store = context.owner.Reports(place->mode, *place->kind);
    if (!MayReplace(name, store, console)) return ExitCode::Failed;
    return ChangeAndPrint(store.SaveRequest(name, atHand.report), atHand, console, context);
}

ExitCode EditReport(const CArguments& arguments, Console& console, RecordContext& context) {
    const QString name = arguments.Words().first();
    if (CReportStore::IsReserved(name)) return RefuseReserved(name, console);
    ReportAtHand atHand;
    const ExitCode exit = Fetch(arguments, console, context.owner, atHand);
    if (exit != ExitCode::Done) return exit;
    const FilterProblem refusal = ReadWholeDefinition(arguments, atHand.mode, context.owner, atHand.report);
    if (refusal.exit != ExitCode::Done) return RefuseStored(refusal, console, context.owner);
    const CReportStore store = context.owner.Reports(atHand.mode, atHand.found.kind);
    return ChangeAndPrint(store.SaveRequest(atHand.found.name, atHand.report), atHand, console, context);
}

/// The new name is compared with nothing: a definition of that name is replaced without a question.
ExitCode RenameReport(const CArguments& arguments, Console& console, RecordContext& context) {
    const QString newName = arguments.Words()[1];
    if (CReportStore::IsReserved(arguments.Words().first()))
        return RefuseReserved(arguments.Words().first(), console);
    ReportAtHand atHand;
    const ExitCode exit = Fetch(arguments, console, context.owner, atHand);
    if (exit != ExitCode::Done) return exit;
    const QString name = atHand.found.name;
    if (newName.isEmpty() || newName == name)
        return Print({atHand.mode, atHand.found.kind, atHand.report}, console, context);
    if (const QString problem = CheckName(newName); !problem.isEmpty())
        return Refuse(ExitCode::Usage, problem, console);
    atHand.report.name = newName;
    const CReportStore store = context.owner.Reports(atHand.mode, atHand.found.kind);
    return ChangeAndPrint(store.RenameRequest(name, newName, atHand.report), atHand, console, context);
}

ExitCode DeleteReport(const CArguments& arguments, Console& console, CSettingsOwner& owner) {
    const QString name = arguments.Words().first();
    const auto place = ReadReportPlace(arguments, console);
    if (!place) return ExitCode::Usage;
    if (CReportStore::IsReserved(name)) return RefuseReserved(name, console);
    FoundReport found;
    const FilterProblem problem = FindReport(*place, name, owner, found);
    if (problem.exit != ExitCode::Done) return RefuseStored(problem, console, owner);
    const bool isAgreed = !owner.Stored().confirmDelete ||
                          Confirm(Text::AskDeleteReport, FormatText<Text::AskDeleteReport>(found.name),
                                  Text::DeleteReportTitle, Text::AskDeleteTitle, console);
    const EntryRequest request = owner.Reports(place->mode, found.kind).DeleteRequest(found.name);
    const ExitCode exit = isAgreed ? ChangeSettings(request, console, owner) : ExitCode::Failed;
    PrintCount(console.out, "deleted", Text::CliDeleted, exit == ExitCode::Done ? 1 : 0);
    return exit;
}
