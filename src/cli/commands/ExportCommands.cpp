#include "cli/commands/ExportCommands.h"

#include "app/CPulldownCatalogue.h"
#include "app/CVelmarchDoc.h"
#include "app/RecordMode.h"
#include "changes/CRecordChanges.h"
#include "cli/arguments/CArguments.h"
#include "cli/arguments/QueryArguments.h"
#include "cli/arguments/TextFileArguments.h"
#include "cli/commands/RecordSteps.h"
#include "cli/commands/SortOption.h"
#include "cli/home/CSettingsOwner.h"
#include "cli/home/CTimerAccess.h"
#include "cli/home/CWindowLink.h"
#include "cli/home/RecordContext.h"
#include "cli/output/CJsonText.h"
#include "cli/output/COutput.h"
#include "config/CCfgStore.h"
#include "exchange/backup/MakeBackup.h"
#include "exchange/export/CRecordExport.h"
#include "exchange/export/ItemExport.h"
#include "exchange/export/PostProcessing.h"
#include "exchange/import/CIdList.h"
#include "exchange/text/TextColumns.h"
#include "lang/FormatText.h"

#include <algorithm>
#include <functional>
#include <vector>

#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr OptionRow kOwnOptions[] = {
    {"mode", "M", OptionShape::Value, Text::CliOptExportMode},
    {"post", "WHAT", OptionShape::Value, Text::CliOptPost},
};

std::vector<OptionRow> AllOptions() {
    std::vector<OptionRow> all(std::begin(kOwnOptions), std::end(kOwnOptions));
    for (const auto& options : {StoredQueryOptions(), QueryOption(), SortOption()})
        all.insert(all.end(), options.begin(), options.end());
    return all;
}

// --- What was asked for

struct PostRow {
    QStringView word;
    AfterExport what;
};
constexpr PostRow kPosts[] = {
    {u"nothing", AfterExport::Nothing}, {u"delete", AfterExport::Delete}, {u"mark", AfterExport::Mark}};

struct Wanted {
    RecordKind kind = RecordKind::Time;
    QString path;
    ExportForm form;
    AfterExport post = AfterExport::Nothing;
    ListOrder order = {};
};

/// The sentence that refuses; empty where records are to be taken from a list that can be made, or by their
/// identities.
QString SelectionProblem(const CArguments& arguments, Wanted& wanted) {
    for (const OptionRow& option : StoredQueryOptions()) {
        if (!arguments.Has(option.name)) continue;
        const auto known = FilterOptions(wanted.kind);
        const bool isKnown = std::ranges::any_of(
            known, [&option](const OptionRow& one) { return std::string_view(one.name) == option.name; });
        if (!isKnown) return FormatText<Text::CliOptionOfOtherMode>(QString::fromLatin1(option.name));
        if (arguments.Words().size() > 1) return LoadText(Text::CliIdsOrFilter);
    }
    const bool hasOthers = arguments.Has("query") || arguments.Has("sort");
    if (hasOthers && arguments.Words().size() > 1) return LoadText(Text::CliIdsOrFilter);
    return ReadSort(wanted.kind, arguments, wanted.order);
}

QString PostProblem(const CArguments& arguments, const CCfgStore& settings, Wanted& wanted) {
    const auto typed = arguments.Value("post");
    if (!typed) {
        wanted.post = static_cast<AfterExport>(settings.exportPostProcessing);
        const bool canBeAsked = ::isatty(STDIN_FILENO) != 0;
        if (wanted.post == AfterExport::Ask && !canBeAsked) wanted.post = AfterExport::Nothing;
        return {};
    }
    const auto* row = std::ranges::find(kPosts, QStringView(*typed), &PostRow::word);
    if (row == std::end(kPosts)) return FormatText<Text::CliNoPost>(*typed);
    wanted.post = row->what;
    return {};
}

std::optional<ExportForm> ReadForm(const CArguments& arguments, Console& console, RecordContext& context) {
    const auto choice = ReadTextFileChoice(arguments, console);
    if (!choice) return std::nullopt;
    const QString& path = arguments.Words().first();
    if (IsFileOfHome(context.window.Home(), path)) {
        console.out.Complain(FormatText<Text::ExportOwnFile>(path));
        return std::nullopt;
    }
    ExportForm form{.delimiters = choice->delimiters};
    if (!choice->encoding.isEmpty()) form.encoding = choice->encoding;
    return form;
}

std::optional<Wanted> ReadWanted(const CArguments& arguments, Console& console, RecordContext& context) {
    const auto mode = ReadMode(arguments.Value("mode").value_or(u"time"_s), console);
    const auto form = mode ? ReadForm(arguments, console, context) : std::nullopt;
    if (!form) return std::nullopt;
    Wanted wanted{.kind = KindOf(*mode), .path = arguments.Words().first(), .form = *form};
    QString problem = SelectionProblem(arguments, wanted);
    if (problem.isEmpty()) problem = PostProblem(arguments, context.settings, wanted);
    if (problem.isEmpty()) return wanted;
    console.out.Complain(problem);
    return std::nullopt;
}

// --- The records

/// Where the records come from: calls put for each of them; false when they can't be read, or one is gone.
using Records = std::function<bool(const std::function<void(const CVORec& record)>& put)>;

struct Exported {
    ExitCode exit = ExitCode::Failed;
    int count = 0;
    CIdList ids;  ///< in their order, where something is to become of the records
    ExportEnd end = {};
};

Exported WriteFile(const Wanted& wanted, const Records& records, Console& console, RecordContext& context) {
    Exported exported;
    CRecordExport file(wanted.path, wanted.form, wanted.kind, {context.catalogue.Labels(), context.settings});
    const bool areNamed = wanted.post != AfterExport::Nothing;
    const bool areThere = records([&](const CVORec& record) {
        file.Put(record);
        ++exported.count;
        if (areNamed) exported.ids.Append(record.GetId());
    });
    if (!areThere) return exported;
    exported.end = file.Finish();
    exported.exit =
        exported.end.isWritten ? ExitCode::Done : Refuse(ExitCode::Failed, exported.end.words, console);
    for (const ExportNote& note : NotesOn(exported.end)) console.out.Note(note.words);
    return exported;
}

/// What the records became: how many were deleted or marked.
struct Processed {
    AfterExport what = AfterExport::Nothing;
    ExitCode exit = ExitCode::Done;
    qsizetype count = 0;
};

/// Where the user is to be asked: only about what can be taken back.
AfterExport WhatBecomes(const Wanted& wanted, const Exported& exported, Console& console) {
    if (wanted.post != AfterExport::Ask) return wanted.post;
    const QString question = FormatText<Text::PostProcessingHint>(exported.count, wanted.path) + u'\n' +
                             LoadText(Text::AfterExportMark) + u'?';
    return Confirm(Text::PostProcessingHint, question, Text::PostProcessingTitle, Text::AfterExportMark,
                   console)
               ? AfterExport::Mark
               : AfterExport::Nothing;
}

Processed Process(const Wanted& wanted, const Exported& exported, Console& console, RecordContext& context) {
    Processed processed{.what = WhatBecomes(wanted, exported, console)};
    if (processed.what == AfterExport::Nothing) return processed;
    const auto objection = WhyNotDeleted(exported.end);
    if (processed.what == AfterExport::Delete && objection) {
        console.out.Note(LoadText(*objection));
        return processed;
    }
    const Outcome outcome = PostProcess(processed.what, wanted.kind, exported.ids.All(), context.changes);
    if (!outcome.ids.isEmpty()) Announce(wanted.kind, outcome.ids, console, context);
    processed.exit = outcome ? ExitCode::Done : ExitCode::Failed;
    processed.count = outcome.ids.size();
    return processed;
}

void PrintExported(const Exported& exported, const Processed& processed, COutput& out) {
    const int written = exported.count, count = static_cast<int>(processed.count);
    if (!out.isJson) {
        out.PutLine(FormatText<Text::CliExported>(written));
        if (processed.what == AfterExport::Delete) out.PutLine(FormatText<Text::CliDeleted>(count));
        if (processed.what == AfterExport::Mark) out.PutLine(FormatText<Text::CliExportMarked>(count));
        return;
    }
    CJsonText json(out);
    json.BeginObject();
    json.Key("written");
    json.Integer(written);
    if (processed.what == AfterExport::Delete || processed.what == AfterExport::Mark) {
        json.Key(processed.what == AfterExport::Delete ? "deleted" : "marked");
        json.Integer(count);
    }
    if (exported.end.replaced > 0) {
        json.Key("replaced");
        json.Integer(exported.end.replaced);
    }
    if (exported.end.lost > 0) {
        json.Key("notReadBack");
        json.Integer(exported.end.lost);
    }
    json.EndObject();
    out.Put("\n");
}

ExitCode Export(const Wanted& wanted, const Records& records, Console& console, RecordContext& context) {
    if (!context.catalogue.Load()) return ExitCode::Failed;
    const Exported exported = WriteFile(wanted, records, console, context);
    if (exported.exit != ExitCode::Done) return exported.exit;
    const Processed processed = Process(wanted, exported, console, context);
    PrintExported(exported, processed, console.out);
    return processed.exit;
}

ExitCode NothingSelected(Console& console) {
    console.out.Note(LoadText(Text::ExportNothingSelected));
    PrintDone(console.out, "written", 0);
    return ExitCode::Done;
}

/// Before anything is written.
ExitCode CheckDeleting(const Wanted& wanted, const CListedRecords& listed, Console& console,
                       RecordContext& context) {
    if (wanted.post != AfterExport::Delete) return ExitCode::Done;
    QStringList ids;
    listed.ForEachId([&ids](const QString& id) { ids.append(id); });
    return CheckTimers(wanted.kind, ids, console, context);
}

/// In the order in which they were given.
ExitCode ExportByIds(const Wanted& wanted, const QStringList& typed, Console& console,
                     RecordContext& context) {
    const auto ids = FindRecords(wanted.kind, typed, console, context);
    if (!ids) return LookupFailed(context);
    if (wanted.post == AfterExport::Delete)
        if (const ExitCode exit = CheckTimers(wanted.kind, *ids, console, context); exit != ExitCode::Done)
            return exit;
    return Export(
        wanted,
        [&](const std::function<void(const CVORec&)>& put) {
            for (const QString& id : *ids) {
                const CVORec* record = context.document.FetchRecord(wanted.kind, id);
                if (!record) return false;
                put(*record);
            }
            return true;
        },
        console, context);
}

ExitCode ExportListed(const Wanted& wanted, const CArguments& arguments, Console& console,
                      RecordContext& context) {
    const FilterProblem problem =
        ReadListFilter(wanted.kind, arguments, context.owner.Queries(ModeOf(wanted.kind)), context.document);
    if (problem.exit != ExitCode::Done) return Refuse(problem.exit, problem.words, console);
    for (const QString& note : problem.notes) console.out.Note(note);
    context.timers.Look();
    CRecordReader reader(context.document, wanted.kind, &context.timers.Timers());
    CListedRecords listed(reader, wanted.order);
    if (!listed.Find([](const CVORec&) {})) return ExitCode::Failed;
    if (listed.Count() == 0) return NothingSelected(console);
    if (const ExitCode exit = CheckDeleting(wanted, listed, console, context); exit != ExitCode::Done)
        return exit;
    return Export(
        wanted,
        [&](const std::function<void(const CVORec&)>& put) {
            const bool isRead = listed.ForEachShown([&put](const CVORec& record) {
                put(record);
                return true;
            });
            if (isRead && listed.MissingCount() > 0) console.out.Complain(LoadText(Text::ExportRecordGone));
            return isRead && listed.MissingCount() == 0;
        },
        console, context);
}

}  // namespace

std::span<const OptionRow> ExportOptions() {
    static const std::vector<OptionRow> kAll = AllOptions();
    return kAll;
}

ExitCode ExportRecords(const CArguments& arguments, Console& console, RecordContext& context) {
    const auto wanted = ReadWanted(arguments, console, context);
    if (!wanted) return ExitCode::Usage;
    const RecordModeScope mode(ModeOf(wanted->kind));
    const QStringList ids = arguments.Words().mid(1);
    return ids.isEmpty() ? ExportListed(*wanted, arguments, console, context)
                         : ExportByIds(*wanted, ids, console, context);
}

ExitCode ExportItems(const CArguments& arguments, Console& console, RecordContext& context) {
    const auto form = ReadForm(arguments, console, context);
    if (!form) return ExitCode::Usage;
    const ItemExportEnd end = ::ExportItems(arguments.Words().first(), *form, context.document.Store());
    if (!end.areItemsRead) return ExitCode::Failed;
    if (!end.file.isWritten) return Refuse(ExitCode::Failed, end.file.words, console);
    for (const ExportNote& note : NotesOn(end.file)) console.out.Note(note.words);
    if (!console.out.isJson) console.out.PutLine(FormatText<Text::CliExportedItems>(end.items));
    PrintDone(console.out, "written", end.items);
    return ExitCode::Done;
}
