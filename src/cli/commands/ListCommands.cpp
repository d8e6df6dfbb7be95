#include "cli/commands/ListCommands.h"

#include "app/CPulldownCatalogue.h"
#include "app/CVelmarchDoc.h"
#include "changes/CRecordChanges.h"
#include "cli/arguments/CArguments.h"
#include "cli/arguments/EnteredValues.h"
#include "cli/commands/ListSteps.h"
#include "cli/commands/RecordSteps.h"
#include "cli/home/RecordContext.h"
#include "cli/output/CJsonText.h"
#include "cli/output/COutput.h"
#include "config/CCfgStore.h"
#include "lang/FormatText.h"

#include <functional>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr OptionRow kRenameOptions[] = {
    {"in-records", "", OptionShape::Flag, Text::CliOptInRecords},
};

/// A list with its items loaded.
struct OpenList {
    const ListRow* row = nullptr;
    ExitCode exit = ExitCode::Done;  ///< when there is none: not found, or the store can't be read
};

OpenList Open(const CArguments& arguments, Console& console, RecordContext& context) {
    const ListRow* row = FindList(arguments.Words().first(), console);
    if (!row) return {nullptr, ExitCode::NotFound};
    if (!context.catalogue.LoadLists({row->list})) return {nullptr, ExitCode::Failed};
    return {row};
}

/// The sentence that refuses a text as an item, empty for one that is short enough.
QString CheckLength(const QString& text) {
    return text.size() > kLongestItem
               ? FormatText<Text::CliTooLong>(static_cast<int>(text.size()), kLongestItem)
               : QString();
}

/// A list of numbers takes what is one from its first to its last character; the catalogue itself would stop
/// at the first that is none.
bool IsReadable(const ListRow& row, const QString& text, const CRegionalInfo& region) {
    return !row.holdsNumbers || EnteredValues::ReadSignedNumber(text.trimmed(), region);
}

/// Texts that differ in capitals are items of their own, which isn't always meant.
void NoteOthersLike(int list, const QString& text, Console& console, RecordContext& context) {
    for (const QString& other : context.catalogue.Texts(list))
        if (other != text && other.compare(text, Qt::CaseInsensitive) == 0)
            return console.out.Note(FormatText<Text::ItemDiffersInCase>(other));
}

/// Changes lists and trees as they are by now, with nobody in between. The user has been asked before.
bool AsLoadedNow(RecordContext& context, const std::function<bool()>& change) {
    StoreTransaction hold(context.document.Store());
    return hold.IsOpen() && context.catalogue.Load() && change() && hold.Commit() == CommitEnd::Durable;
}

ExitCode NoSuchItem(const QString& text, Console& console) {
    return Refuse(ExitCode::NotFound, FormatText<Text::CliNoSuchItem>(text), console);
}

/// What a rename changes. Where the list has the new text already, its items stay as they are, and only
/// records take it.
enum class Renaming { Item, ItemAndRecords, RecordsOnly };

Outcome Rename(Renaming renaming, int list, const QString& former, const QString& text,
               RecordContext& context) {
    if (renaming == Renaming::RecordsOnly) return context.changes.ReplaceInRecords(list, former, text);
    if (renaming == Renaming::ItemAndRecords) return context.changes.RenameInRecords(list, former, text);
    return context.catalogue.RenameItem(list, former, text) ? Outcome::Nothing()
                                                            : Outcome::Failed(Outcome::Failure::Item);
}

/// "changed" as ever; people see as well what took the text over beside the records. Where that could not be,
/// which was told, the command has done a part only.
template <Text Records, Text RecordsAndStored>
ExitCode PrintTaken(COutput& out, const Outcome& outcome) {
    const auto records = static_cast<int>(outcome.ids.size());
    if (out.isJson || outcome.carried == 0)
        PrintCount(out, "changed", Records, records);
    else
        out.PutLine(FormatText<RecordsAndStored>(records, outcome.carried));
    return outcome.isCarried ? ExitCode::Done : ExitCode::Failed;
}

/// Records hold numbers, no items of a list of numbers.
QString MergeQuestion(const ListRow& list, const QString& gone, const QString& kept) {
    return list.holdsNumbers ? FormatText<Text::CliAskMergeNumbers>(kept, gone, gone)
                             : FormatText<Text::CliAskMerge>(kept, gone, gone);
}

}  // namespace

std::span<const OptionRow> RenameItemOptions() {
    return kRenameOptions;
}

ExitCode ShowLists(const CArguments&, Console& console) {
    COutput& out = console.out;
    if (!out.isJson) {
        for (const ListRow& row : RecordLists())
            out.PutLine(FormatText<Text::CliListLine>(row.list, LoadText(row.title)));
        return ExitCode::Done;
    }
    CJsonText json(out);
    json.BeginArray();
    for (const ListRow& row : RecordLists()) {
        json.NewLine();
        json.BeginObject();
        json.Key("list");
        json.Integer(row.list);
        json.Key("name");
        json.Text(LoadText(row.title));
        json.Key("kind");
        json.Text(row.holdsNumbers ? u"number"_s : u"text"_s);
        json.EndObject();
    }
    json.EndArray();
    out.Put("\n");
    return ExitCode::Done;
}

ExitCode ListItems(const CArguments& arguments, Console& console, RecordContext& context) {
    const OpenList list = Open(arguments, console, context);
    if (!list.row) return list.exit;
    PrintTexts(console.out, context.catalogue.Texts(list.row->list));
    return ExitCode::Done;
}

ExitCode AddItem(const CArguments& arguments, Console& console, RecordContext& context) {
    const QString text = arguments.Words()[1];
    if (const QString words = CheckLength(text); !words.isEmpty())
        return Refuse(ExitCode::Usage, words, console);
    const StoreTransaction hold(context.document.Store());
    if (!hold.IsOpen()) return ExitCode::Failed;
    const OpenList list = Open(arguments, console, context);
    if (!list.row) return list.exit;
    if (!IsReadable(*list.row, text, context.settings.Region()) ||
        context.catalogue.CheckNewItem(list.row->list, text) == NewItem::Refused)
        return Refuse(ExitCode::Failed, FormatText<Text::CliItemRefused>(text), console);
    // Without a question, whatever confirmAddListItem says: the user has just typed it.
    if (!context.catalogue.AddItem(list.row->list, text, false)) return ExitCode::Failed;
    NoteOthersLike(list.row->list, text, console, context);
    AnnounceLists(console, context);
    PrintDone(console.out, "added", 1);
    return ExitCode::Done;
}

ExitCode RenameItem(const CArguments& arguments, Console& console, RecordContext& context) {
    const QString former = arguments.Words()[1], text = arguments.Words()[2];
    if (const QString words = CheckLength(text); !words.isEmpty())
        return Refuse(ExitCode::Usage, words, console);
    const StoreTransaction hold(context.document.Store());
    if (!hold.IsOpen()) return ExitCode::Failed;
    const OpenList opened = Open(arguments, console, context);
    if (!opened.row) return opened.exit;
    const int list = opened.row->list;
    if (!context.catalogue.HasItem(list, ItemShown(list, former))) return NoSuchItem(former, console);
    const bool isInRecords = arguments.Has("in-records");
    const bool isMerge = isInRecords && ItemShown(list, former) != ItemShown(list, text) &&
                         context.catalogue.HasItem(list, ItemShown(list, text));
    if (!isMerge && (!IsReadable(*opened.row, text, context.settings.Region()) ||
                     context.catalogue.CheckNewItem(list, text) == NewItem::Refused))
        return Refuse(ExitCode::Failed, FormatText<Text::CliRenameRefused>(text), console);
    const Renaming renaming = isMerge       ? Renaming::RecordsOnly
                              : isInRecords ? Renaming::ItemAndRecords
                                            : Renaming::Item;
    const Outcome renamed = Rename(renaming, list, former, text, context);
    if (!renamed) return ExitCode::Failed;
    AnnounceLists(console, context);
    return PrintTaken<Text::CliRenamed, Text::CliRenamedCarried>(console.out, renamed);
}

/// Records are asked about with the item: both would be hard to part again.
ExitCode MergeItems(const CArguments& arguments, Console& console, RecordContext& context) {
    const OpenList opened = Open(arguments, console, context);
    if (!opened.row) return opened.exit;
    const int list = opened.row->list;
    const QString gone = ItemShown(list, arguments.Words()[1]), kept = ItemShown(list, arguments.Words()[2]);
    for (const QString& text : {gone, kept})
        if (!context.catalogue.HasItem(list, text)) return NoSuchItem(text, console);
    if (gone == kept) return Refuse(ExitCode::Usage, LoadText(Text::CliMergeSame), console);
    if (!Confirm(Text::CliAskMerge, MergeQuestion(*opened.row, gone, kept), Text::MergeTitle,
                 Text::ActionMerge, console))
        return ExitCode::Failed;
    Outcome merged = Outcome::Failed(Outcome::Failure::Item);
    const bool isDone = AsLoadedNow(context, [&] {
        merged = context.changes.MergeItems(list, gone, kept);
        return bool(merged);
    });
    if (!isDone) return ExitCode::Failed;
    AnnounceLists(console, context);
    if (!opened.row->holdsNumbers || console.out.isJson)
        return PrintTaken<Text::CliMerged, Text::CliMergedCarried>(console.out, merged);
    console.out.PutLine(LoadText(Text::CliMergedNumbers));
    return ExitCode::Done;
}

ExitCode DeleteItem(const CArguments& arguments, Console& console, RecordContext& context) {
    const OpenList opened = Open(arguments, console, context);
    if (!opened.row) return opened.exit;
    const int list = opened.row->list;
    const QString text = arguments.Words()[1];
    if (!context.catalogue.HasItem(list, ItemShown(list, text))) return NoSuchItem(text, console);
    const bool isAgreed = !context.settings.confirmDeleteListItem ||
                          Confirm(Text::CliAskDeleteItem, Text::ListsTitle, Text::AskDeleteTitle, console);
    const bool isDone =
        isAgreed && AsLoadedNow(context, [&] { return context.catalogue.DeleteItem(list, text); });
    if (isDone) AnnounceLists(console, context);
    PrintCount(console.out, "deleted", Text::CliItemsDeleted, isDone ? 1 : 0);
    return isDone ? ExitCode::Done : ExitCode::Failed;
}

/// An empty list is nothing to ask about.
ExitCode ClearItems(const CArguments& arguments, Console& console, RecordContext& context) {
    const OpenList opened = Open(arguments, console, context);
    if (!opened.row) return opened.exit;
    const int list = opened.row->list;
    const qsizetype count = context.catalogue.Texts(list).size();
    const bool isAgreed = count == 0 || !context.settings.confirmDeleteListItem ||
                          Confirm(Text::CliAskClearList, Text::ListsTitle, Text::AskDeleteTitle, console);
    const bool isDone =
        isAgreed &&
        (count == 0 || AsLoadedNow(context, [&] { return context.catalogue.DeleteAllItems(list); }));
    if (isDone && count > 0) AnnounceLists(console, context);
    PrintCount(console.out, "deleted", Text::CliItemsDeleted, isDone ? count : 0);
    return isDone ? ExitCode::Done : ExitCode::Failed;
}
