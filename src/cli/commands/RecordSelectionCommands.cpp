#include "app/CVelmarchDoc.h"
#include "cli/arguments/CArguments.h"
#include "cli/commands/RecordCommands.h"
#include "cli/commands/RecordSteps.h"
#include "cli/home/CTimerAccess.h"
#include "cli/home/CWindowLink.h"
#include "cli/home/RecordContext.h"
#include "cli/output/COutput.h"
#include "config/CCfgStore.h"
#include "entry/RecordMarks.h"
#include "lang/FormatText.h"

#include <algorithm>
#include <functional>
#include <vector>

using namespace Qt::Literals::StringLiterals;

// What is done to several records at once: all of it or nothing, with one commit.

namespace {

constexpr OptionRow kTimeMarkOptions[] = {{"as", "MARK", OptionShape::Value, Text::CliOptAs}};
constexpr OptionRow kExpenseMarkOptions[] = {{"as", "MARK", OptionShape::Value, Text::CliOptExpAs}};

struct MarkRow {
    const char* name;
    RecordMark mark;
};
constexpr MarkRow kMarks[] = {
    {"first", RecordMark::First},
    {"first-second", RecordMark::FirstAndSecond},
    {"third", RecordMark::Third},
    {"third-fourth", RecordMark::ThirdAndFourth},
    {"fifth", RecordMark::Fifth},
    {"exported", RecordMark::Exported},
    {"not-exported", RecordMark::NotExported},
};

QString MarkNames(RecordKind kind) {
    QStringList names;
    for (const MarkRow& row : kMarks)
        if (IsMarkOf(kind, row.mark)) names.append(QString::fromLatin1(row.name));
    return names.join(u", "_s);
}

const MarkRow* FindMark(RecordKind kind, const QString& name) {
    const auto found = std::ranges::find_if(kMarks, [&](const MarkRow& row) {
        return IsMarkOf(kind, row.mark) && name == QLatin1String(row.name);
    });
    return found == std::end(kMarks) ? nullptr : found;
}

/// Runs the work on every identity within one transaction, which the caller commits. Undone as a whole when
/// one fails.
bool AsOneChange(RecordContext& context, const QStringList& ids,
                 const std::function<bool(const QString&)>& work) {
    CVOSrcMgr& manager = context.document.Store().Manager();
    if (!context.document.BeginBatch()) return false;
    if (std::all_of(ids.begin(), ids.end(), work)) return true;
    manager.Discard();
    return false;
}

// --- Delete

bool DeleteAll(RecordKind kind, RecordContext& context, const QStringList& ids) {
    return AsOneChange(context, ids,
                       [&](const QString& id) { return context.document.DeleteRecord(kind, id, false); });
}

/// The timers go first and the records with the commit after it: a program killed in between leaves a record
/// without its timer, never a timer without its record.
bool DeleteWithTimers(RecordContext& context, const QStringList& ids, const QStringList& timed) {
    std::vector<ActiveTimer> dropped;
    for (const QString& id : timed) dropped.push_back(*context.timers.Find(id));
    const auto changed = context.timers.ChangeHere([&] {
        if (!DeleteAll(RecordKind::Time, context, ids)) return false;
        for (const QString& id : timed) context.timers.Timers().Drop(id);
        return true;
    });
    if (changed == CTimerAccess::Changed::Done && context.document.Commit()) return true;
    context.document.Store().Manager().Discard();
    if (changed == CTimerAccess::Changed::Done)
        for (const ActiveTimer& timer : dropped) (void)context.timers.PutBack(timer);
    return false;
}

/// The window drops the timers, which it owns, and is told of the records afterwards.
bool DeleteBesideWindow(RecordContext& context, const QStringList& ids, const QStringList& timed) {
    for (const QString& id : timed)
        if (!context.timers.Run({TimerAction::Drop, id})) return false;
    return DeleteAll(RecordKind::Time, context, ids) && context.document.Commit();
}

/// Those of the records that have a timer; an expense has none.
QStringList Timed(RecordKind kind, RecordContext& context, const QStringList& ids) {
    QStringList timed;
    if (kind != RecordKind::Time) return timed;
    context.timers.Read();
    for (const QString& id : ids)
        if (context.timers.Timers().HasTimer(id)) timed.append(id);
    return timed;
}

ExitCode DeleteNow(RecordKind kind, RecordContext& context, const QStringList& ids, Console& console) {
    const QStringList timed = Timed(kind, context, ids);
    if (timed.isEmpty())
        return DeleteAll(kind, context, ids) && context.document.Commit() ? ExitCode::Done : ExitCode::Failed;
    if (!context.window.IsThere())
        return DeleteWithTimers(context, ids, timed) ? ExitCode::Done : ExitCode::Failed;
    if (!context.window.Reach())
        return Refuse(ExitCode::Refused, LoadText(Text::CliWindowOwnsTimers), console);
    return DeleteBesideWindow(context, ids, timed) ? ExitCode::Done : ExitCode::Failed;
}

// --- Mark

/// What is stored of a marked record; null where it has the mark already.
std::unique_ptr<CVORec> Marked(const CVORec& stored, RecordMark mark) {
    std::unique_ptr<CVORec> record = stored.Clone();
    return SetMark(*record, mark) ? std::move(record) : nullptr;
}

}  // namespace

std::span<const OptionRow> MarkOptions(RecordKind kind) {
    return kind == RecordKind::Time ? kTimeMarkOptions : kExpenseMarkOptions;
}

ExitCode DeleteRecords(RecordKind kind, const CArguments& arguments, Console& console,
                       RecordContext& context) {
    const auto ids = FindRecords(kind, arguments.Words(), console, context);
    if (!ids) return LookupFailed(context);
    const bool isAgreed =
        !context.settings.confirmDelete ||
        Confirm(Text::AskDeleteRecords, Text::AskDeleteTitle, Text::AskDeleteTitle, console);
    const ExitCode exit = isAgreed ? DeleteNow(kind, context, *ids, console) : ExitCode::Failed;
    if (exit == ExitCode::Done) Announce(kind, *ids, console, context);
    PrintCount(console.out, "deleted", Text::CliDeleted, exit == ExitCode::Done ? ids->size() : 0);
    return exit;
}

ExitCode CopyRecords(RecordKind kind, const CArguments& arguments, Console& console, RecordContext& context) {
    const auto ids = FindRecords(kind, arguments.Words(), console, context);
    if (!ids) return LookupFailed(context);
    const bool isAgreed = !context.settings.confirmCopy ||
                          Confirm(Text::AskCopyRecords, Text::AskCopyTitle, Text::AskCopyTitle, console);
    QStringList copies;
    const bool isDone =
        isAgreed &&
        AsOneChange(context, *ids,
                    [&](const QString& id) {
                        const CVORec* record = context.document.FetchRecord(kind, id);
                        QString copy;
                        if (!record || !context.document.AddRecord(*record, false, true, true, &copy))
                            return false;
                        copies.append(copy);
                        return true;
                    }) &&
        context.document.Commit();
    if (isDone) Announce(kind, copies, console, context);
    PrintTexts(console.out, isDone ? copies : QStringList());
    return isDone ? ExitCode::Done : ExitCode::Failed;
}

ExitCode MarkRecords(RecordKind kind, const CArguments& arguments, Console& console, RecordContext& context) {
    const QString name = arguments.Value("as").value_or(QString());
    const MarkRow* row = FindMark(kind, name);
    if (!row) return Refuse(ExitCode::Usage, FormatText<Text::CliNoSuchMark>(name, MarkNames(kind)), console);
    const auto ids = FindRecords(kind, arguments.Words(), console, context);
    if (!ids) return LookupFailed(context);
    const bool isAgreed = !context.settings.confirmMark ||
                          Confirm(Text::AskMarkRecords, Text::AskMarkTitle, Text::AskMarkTitle, console);
    QStringList changed;
    const bool isDone =
        isAgreed &&
        AsOneChange(context, *ids,
                    [&](const QString& id) {
                        const CVORec* stored = context.document.FetchRecord(kind, id);
                        if (!stored) return false;
                        const auto record = Marked(*stored, row->mark);
                        if (!record) return true;
                        changed.append(id);
                        return context.document.ModifyRecord(*record, id, false, true, true, true);
                    }) &&
        context.document.Commit();
    if (isDone) Announce(kind, changed, console, context);
    PrintCount(console.out, "changed", Text::CliChanged, isDone ? changed.size() : 0);
    return isDone ? ExitCode::Done : ExitCode::Failed;
}
