#include "cli/commands/ImportCommands.h"

#include "app/CVelmarchDoc.h"
#include "app/ListTable.h"
#include "app/RecordMode.h"
#include "changes/CRecordChanges.h"
#include "cli/arguments/CArguments.h"
#include "cli/arguments/TextFileArguments.h"
#include "cli/commands/ImportSteps.h"
#include "cli/commands/RecordSteps.h"
#include "cli/home/CSettingsOwner.h"
#include "cli/home/CWindowLink.h"
#include "cli/home/RecordContext.h"
#include "cli/output/CConsoleProgress.h"
#include "cli/output/COutput.h"
#include "config/CCfgStore.h"
#include "exchange/import/CLineQuestion.h"
#include "exchange/import/CLookProgress.h"
#include "fields/ListId.h"
#include "lang/FormatText.h"

#include <algorithm>
#include <cerrno>

#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr OptionRow kRecordOptions[] = {
    {"mode", "M", OptionShape::Value, Text::CliOptExportMode},
    {"form", "F", OptionShape::Value, Text::CliOptForm},
    {"no-list-items", "", OptionShape::Flag, Text::CliOptNoListItems},
    {"on-error", "WHAT", OptionShape::Value, Text::CliOptOnError},
    {"skip-duplicates", "", OptionShape::Flag, Text::CliOptSkipDuplicates},
    {"dry-run", "", OptionShape::Flag, Text::CliOptDryRun},
};
constexpr OptionRow kItemOptions[] = {{"dry-run", "", OptionShape::Flag, Text::CliOptDryRun}};

// --- What was asked for

/// What becomes of an import at a line that is refused.
enum class OnError { Ask, Abort, GoOn };

struct OnErrorRow {
    QStringView word;
    OnError what;
};
/// To the console a retry and an ignored line are the same: each refused line stands in the account.
constexpr OnErrorRow kOnErrors[] = {{u"ask", OnError::Ask},
                                    {u"abort", OnError::Abort},
                                    {u"retry", OnError::GoOn},
                                    {u"ignore", OnError::GoOn}};

struct Wanted {
    ImportRequest request;
    OnError onError;
};

std::optional<Wanted> ReadWanted(const CArguments& arguments, const CCfgStore& settings, Console& console) {
    const auto mode = ReadMode(arguments.Value("mode").value_or(u"time"_s), console);
    const auto choice = mode ? ReadTextFileChoice(arguments, console) : std::nullopt;
    if (!choice) return std::nullopt;
    const QString form = arguments.Value("form").value_or(u"4"_s);
    const QString what = arguments.Value("on-error").value_or(u"ask"_s);
    const auto* onError = std::ranges::find(kOnErrors, QStringView(what), &OnErrorRow::word);
    if (form != u"4" && form != u"2") {
        console.out.Complain(FormatText<Text::CliNoForm>(form));
        return std::nullopt;
    }
    if (onError == std::end(kOnErrors)) {
        console.out.Complain(FormatText<Text::CliNoOnError>(what));
        return std::nullopt;
    }
    return Wanted{.request = {.kind = KindOf(*mode),
                              .form = {.delimiters = choice->delimiters,
                                       .form = form == u"2" ? RecordForm::Older : RecordForm::Present,
                                       .clock24 = settings.clock24},
                              .encoding = choice->encoding,
                              .addListItems = !arguments.Has("no-list-items"),
                              .skipDuplicates = arguments.Has("skip-duplicates")},
                  .onError = onError->what};
}

ExitCode OpenFile(CTextFile& file, const QString& path, Console& console) {
    const int error = file.Open(path);
    if (error == 0) return ExitCode::Done;
    if (error == ENOENT || error == ENOTDIR)
        return Refuse(ExitCode::NotFound, FormatText<Text::CliNoSuchFile>(path), console);
    return Refuse(ExitCode::Failed, FormatText<Text::ImportCantOpen>(path, error), console);
}

/// How the program ends after a look, and what has to be said about it when what came before was stored.
ExitCode EndOfLook(const ImportPlan& plan, const CTextFile& file, Console& console) {
    switch (plan.end) {
        case ImportPlan::End::Complete:
            return ExitCode::Done;
        case ImportPlan::End::Aborted:
            return Refuse(ExitCode::Failed,
                          FormatText<Text::CliRefusedLine>(plan.lastLine, plan.refused.back().line,
                                                           TextOf(plan.refused.back().code)) +
                              u'\n' + LoadText(Text::ImportLineEnded),
                          console);
        case ImportPlan::End::Failed:
            return Refuse(ExitCode::Failed, FormatText<Text::ImportReadFailed>(file.Error()), console);
        default:
            return ExitCode::Failed;
    }
}

/// Where nobody can be asked, a line that is refused ends the import.
ImportPlan LookAt(CRecordImport& import, const CTextFile& file, OnError onError, Console& console) {
    if (onError == OnError::Ask && ::isatty(STDIN_FILENO) == 0) onError = OnError::Abort;
    CLineQuestion question(console.prompt);
    CConsoleProgress shown(console.out);
    CLookProgress progress(shown, file);
    return import.Look({.goesOn =
                            [&](const RefusedLine& line) {
                                return onError == OnError::Ask ? question.GoesOn(line)
                                                               : onError == OnError::GoOn;
                            },
                        .advance = [&progress] { return progress.GoesOn(); }});
}

QList<int> ListsOfRecords() {
    QList<int> lists;
    for (const ListRow& row : RecordLists()) lists.append(row.list);
    return lists;
}

/// Stores what the plan says, and tells the window.
ExitCode Store(CRecordImport& import, const ImportPlan& plan, RecordKind kind, ImportAccount& account,
               Console& console, RecordContext& context) {
    const Outcome outcome = import.Run(plan, context.changes, Hold::No,
                                       [&account](const QString& id) { account.ids.Append(id); });
    if (!outcome) {
        account.ids = {};
        account.added = account.listItems = 0;
        if (import.FileChanged()) console.out.Complain(LoadText(Text::ImportFileChanged));
        return ExitCode::Failed;
    }
    if (account.added == 0 && !outcome.hasNewItems) return ExitCode::Done;
    const bool isTold = account.added > CWindowLink::kMostIds
                            ? context.window.TellAllChanged()
                            : context.window.TellChanged(kind, account.ids.All(), outcome.hasNewItems);
    if (!isTold) console.out.Note(LoadText(Text::CliWindowNotTold));
    return ExitCode::Done;
}

}  // namespace

std::span<const OptionRow> ImportRecordOptions() {
    return kRecordOptions;
}

std::span<const OptionRow> ImportItemOptions() {
    return kItemOptions;
}

ExitCode ImportRecords(const CArguments& arguments, Console& console, RecordContext& context) {
    auto wanted = ReadWanted(arguments, context.settings, console);
    if (!wanted) return ExitCode::Usage;
    const RecordKind kind = wanted->request.kind;
    const RecordModeScope mode(ModeOf(kind));
    CTextFile file;
    if (const ExitCode exit = OpenFile(file, arguments.Words().first(), console); exit != ExitCode::Done)
        return exit;
    if (!context.catalogue.LoadLists(ListsOfRecords())) return ExitCode::Failed;
    wanted->request.distances = context.catalogue.Texts(ListId::kDistance);
    CStoredContents stored(kind, wanted->request.form.form);
    if (stored.Read(context.document.Store()) != CStoredContents::ReadEnd::Complete) return ExitCode::Failed;
    CRecordImport import(file, wanted->request, stored);
    const ImportPlan plan = LookAt(import, file, wanted->onError, console);
    if (file.FellBack()) console.out.Note(LoadText(Text::EncodingFellBack));
    if (plan.end == ImportPlan::End::Undecodable) return RefuseUndecodable(plan.lastLine, file, console);
    ImportAccount account{.plan = plan,
                          .encoding = file.Encoding(),
                          .added = plan.records,
                          .listItems = static_cast<int>(context.catalogue.NewAmong(plan.listTexts).size()),
                          .isDryRun = arguments.Has("dry-run")};
    ExitCode exit = ExitCode::Done;
    if (!account.isDryRun) exit = Store(import, plan, kind, account, console, context);
    PrintAccount(console.out, account);
    const ExitCode endOfLook = EndOfLook(plan, file, console);
    return exit == ExitCode::Done ? endOfLook : exit;
}

ExitCode ImportItems(const CArguments& arguments, Console& console, RecordContext& context) {
    const auto choice = ReadTextFileChoice(arguments, console);
    if (!choice) return ExitCode::Usage;
    CTextFile file;
    if (const ExitCode exit = OpenFile(file, arguments.Words().first(), console); exit != ExitCode::Done)
        return exit;
    const ItemPlan plan = LookAtItems(file, choice->delimiters, choice->encoding);
    if (file.FellBack()) console.out.Note(LoadText(Text::EncodingFellBack));
    if (plan.end == ItemPlan::End::Undecodable) return RefuseUndecodable(plan.lastLine, file, console);
    const bool isDryRun = arguments.Has("dry-run");
    // Names of fields may be among them, which the window's columns follow.
    if (!isDryRun && context.window.IsThere() && !context.window.Reach())
        return Refuse(ExitCode::Refused, LoadText(Text::CliWindowOwnsSettings), console);
    if (!context.catalogue.Load()) return ExitCode::Failed;
    auto added = static_cast<int>(context.catalogue.NewAmong(plan.texts).size());
    ExitCode exit = ExitCode::Done;
    if (!isDryRun) exit = StoreItems(plan, added, console, context);
    if (plan.end == ItemPlan::End::Failed)
        exit = Refuse(ExitCode::Failed, FormatText<Text::ImportReadFailed>(file.Error()), console);
    PrintItemAccount(console.out, plan, added, isDryRun);
    return exit;
}
