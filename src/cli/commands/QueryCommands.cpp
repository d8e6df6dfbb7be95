#include "cli/commands/QueryCommands.h"

#include "app/CFieldCatalogue.h"
#include "app/CPulldownCatalogue.h"
#include "cli/arguments/CArguments.h"
#include "cli/arguments/QueryArguments.h"
#include "cli/commands/RecordSteps.h"
#include "cli/home/CSettingsOwner.h"
#include "cli/home/RecordContext.h"
#include "cli/output/COutput.h"
#include "cli/output/QueryOutput.h"
#include "config/CCfgStore.h"
#include "lang/FormatText.h"
#include "reports/query/CQueryActions.h"

namespace {

/// The sentence that refuses a name under which nothing can be stored by hand; empty for any other.
QString ReservedProblem(const QString& name) {
    return CQueryStore::IsReserved(name) ? FormatText<Text::CliNoRenamingToReserved>(name) : QString();
}

/// For people the names of the fields are read from the store.
ExitCode Print(const QString& name, const StoredQuery& query, Console& console, RecordContext& context) {
    const PeriodContext periods = context.owner.Periods();
    const ShownQuery shown{name, query, periods};
    if (console.out.isJson) {
        WriteQueryJson(console.out, shown);
        return ExitCode::Done;
    }
    if (!context.catalogue.Load()) return ExitCode::Failed;
    WriteQueryLines(console.out, shown, CFieldCatalogue(context.catalogue.Labels(), context.settings));
    return ExitCode::Done;
}

ExitCode PrintStored(const QString& name, RecordMode mode, Console& console, RecordContext& context) {
    const auto query = context.owner.Queries(mode).Load(name);
    if (!query) return Refuse(ExitCode::Failed, FormatText<Text::QueryDamaged>(name), console);
    const PeriodContext periods = context.owner.Periods();
    const QStringList unread =
        std::visit([&](const QueryFields& fields) { return UnreadDates(fields, periods); }, *query);
    for (const QString& date : unread) console.out.Note(FormatText<Text::QueryDateUnread>(name, date));
    return Print(name, *query, console, context);
}

/// Asked of each query that differs from the name by nothing but the case of letters; the one that is renamed
/// isn't among them.
bool MayReplace(const QString& name, const QString& renamed, RecordMode mode, Console& console,
                const CSettingsOwner& owner) {
    for (const QString& stored : owner.Queries(mode).Alike(name))
        if (stored != renamed &&
            !Confirm(Text::AskReplaceQuery, QueryTitle(mode), Text::VerbReplace, console))
            return false;
    return true;
}

}  // namespace

ExitCode ListQueries(const CArguments& arguments, Console& console, CSettingsOwner& owner) {
    const auto mode = ReadModeOption(arguments, console);
    if (!mode) return ExitCode::Usage;
    PrintTexts(console.out, owner.Queries(*mode).Names());
    return ExitCode::Done;
}

ExitCode ShowQuery(const CArguments& arguments, Console& console, RecordContext& context) {
    const auto mode = ReadModeOption(arguments, console);
    if (!mode) return ExitCode::Usage;
    const QString typed = arguments.Words().first();
    const auto stored = context.owner.Queries(*mode).Find(typed);
    return stored ? PrintStored(*stored, *mode, console, context)
                  : RefuseStored(NoSuchQuery(typed), console, context.owner);
}

ExitCode SaveQuery(const CArguments& arguments, Console& console, RecordContext& context) {
    const auto mode = ReadModeOption(arguments, console);
    if (!mode) return ExitCode::Usage;
    const QString name = arguments.Words().first();
    if (const QString problem = CheckName(name); !problem.isEmpty())
        return Refuse(ExitCode::Usage, problem, console);
    if (const QString problem = ReservedProblem(name); !problem.isEmpty())
        return Refuse(ExitCode::Failed, problem, console);
    StoredQuery query;
    const FilterProblem problem = ReadQuery(*mode, arguments, context.owner.Periods(), query);
    if (problem.exit != ExitCode::Done) return Refuse(problem.exit, problem.words, console);
    for (const QString& note : problem.notes) console.out.Note(note);
    if (!MayReplace(name, {}, *mode, console, context.owner)) return ExitCode::Failed;
    const EntryRequest request = context.owner.Queries(*mode).SaveRequest(name, query);
    const ExitCode exit = ChangeSettings(request, console, context.owner);
    return exit == ExitCode::Done ? Print(name, query, console, context) : exit;
}

/// A query that can't be used moves too, with a word about it.
ExitCode RenameQuery(const CArguments& arguments, Console& console, RecordContext& context) {
    const auto mode = ReadModeOption(arguments, console);
    if (!mode) return ExitCode::Usage;
    const QString typed = arguments.Words()[0], newName = arguments.Words()[1];
    if (const QString problem = CheckName(newName); !problem.isEmpty())
        return Refuse(ExitCode::Usage, problem, console);
    for (const QString& name : {typed, newName})
        if (const QString problem = ReservedProblem(name); !problem.isEmpty())
            return Refuse(ExitCode::Failed, problem, console);
    const CQueryStore queries = context.owner.Queries(*mode);
    const auto stored = queries.Find(typed);
    if (!stored) return RefuseStored(NoSuchQuery(typed), console, context.owner);
    if (newName == *stored) return PrintStored(*stored, *mode, console, context);
    if (!MayReplace(newName, *stored, *mode, console, context.owner)) return ExitCode::Failed;
    const auto request = queries.RenameRequest(*stored, newName);
    if (!request) return Refuse(ExitCode::Failed, FormatText<Text::QueryDamaged>(*stored), console);
    auto query = queries.Load(*stored);
    const ExitCode exit = ChangeSettings(*request, console, context.owner);
    if (exit != ExitCode::Done) return exit;
    // A disk that refused a moment ago may give it now.
    if (!query) query = context.owner.Queries(*mode).Load(newName);
    if (query) return Print(newName, *query, console, context);
    console.out.Note(FormatText<Text::QueryDamaged>(newName));
    return ExitCode::Done;
}

ExitCode DeleteQuery(const CArguments& arguments, Console& console, CSettingsOwner& owner) {
    const auto mode = ReadModeOption(arguments, console);
    if (!mode) return ExitCode::Usage;
    const QString typed = arguments.Words().first();
    if (CQueryStore::IsReserved(typed)) return Refuse(ExitCode::Failed, ReservedQueryRefusal(typed), console);
    const auto stored = owner.Queries(*mode).Find(typed);
    if (!stored) return RefuseStored(NoSuchQuery(typed), console, owner);
    const bool isAgreed =
        !owner.Stored().confirmDelete || Confirm(Text::AskDeleteDefault, DeleteQueryQuestion(*stored),
                                                 QueryTitle(*mode), Text::AskDeleteTitle, console);
    const EntryRequest request = owner.Queries(*mode).DeleteRequest(*stored);
    const ExitCode exit = isAgreed ? ChangeSettings(request, console, owner) : ExitCode::Failed;
    PrintCount(console.out, "deleted", Text::CliDeleted, exit == ExitCode::Done ? 1 : 0);
    return exit;
}
