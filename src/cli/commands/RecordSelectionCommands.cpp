#include "app/CVelmarchDoc.h"
#include "cli/arguments/CArguments.h"
#include "cli/output/COutput.h"
#include "cli/home/CTimerAccess.h"
#include "cli/home/CWindowLink.h"
#include "cli/commands/RecordCommands.h"
#include "cli/commands/RecordDesk.h"
#include "cli/commands/RecordSteps.h"
#include "config/CCfgStore.h"
#include "entry/RecordMarks.h"
#include "lang/FormatText.h"

#include <QJsonObject>
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
bool AsOneChange(RecordDesk& desk, const QStringList& ids, const std::function<bool(const QString&)>& work) {
    CVOSrcMgr& manager = desk.document.Store().Manager();
    if (!desk.document.BeginBatch()) return false;
    if (std::all_of(ids.begin(), ids.end(), work)) return true;
    manager.Discard();
    return false;
}

// --- Delete

bool DeleteAll(RecordKind kind, RecordDesk& desk, const QStringList& ids) {
    return AsOneChange(desk, ids,
                       [&](const QString& id) { return desk.document.DeleteRecord(kind, id, false); });
}

/// The timers go first and the records with the commit after it: a program killed in between leaves a record
/// without its timer, never a timer without its record.
bool DeleteWithTimers(RecordDesk& desk, const QStringList& ids, const QStringList& timed) {
    std::vector<ActiveTimer> dropped;
    for (const QString& id : timed) dropped.push_back(*desk.timers.Find(id));
    const auto changed = desk.timers.ChangeHere([&] {
        if (!DeleteAll(RecordKind::Time, desk, ids)) return false;
        for (const QString& id : timed) desk.timers.Desk().Drop(id);
        return true;
    });
    if (changed == CTimerAccess::Changed::Done && desk.document.Commit()) return true;
    desk.document.Store().Manager().Discard();
    if (changed == CTimerAccess::Changed::Done)
        for (const ActiveTimer& timer : dropped) (void)desk.timers.PutBack(timer);
    return false;
}

/// The window drops the timers, which it owns, and is told of the records afterwards.
bool DeleteBesideWindow(RecordDesk& desk, const QStringList& ids, const QStringList& timed) {
    for (const QString& id : timed) {
        const QJsonObject answer = desk.timers.Run({{u"action"_s, u"drop"_s}, {u"id"_s, id}});
        if (!answer[u"ok"].toBool()) return false;
    }
    return DeleteAll(RecordKind::Time, desk, ids) && desk.document.Commit();
}

/// Those of the records that have a timer; an expense has none.
QStringList Timed(RecordKind kind, RecordDesk& desk, const QStringList& ids) {
    QStringList timed;
    if (kind != RecordKind::Time) return timed;
    desk.timers.Read();
    for (const QString& id : ids)
        if (desk.timers.Desk().HasTimer(id)) timed.append(id);
    return timed;
}

ExitCode DeleteNow(RecordKind kind, RecordDesk& desk, const QStringList& ids, Console& console) {
    const QStringList timed = Timed(kind, desk, ids);
    if (timed.isEmpty())
        return DeleteAll(kind, desk, ids) && desk.document.Commit() ? ExitCode::Done : ExitCode::Failed;
    if (!desk.window.IsThere()) return DeleteWithTimers(desk, ids, timed) ? ExitCode::Done : ExitCode::Failed;
    if (!desk.window.Reach()) return Refuse(ExitCode::Refused, LoadText(Text::CliWindowOwnsTimers), console);
    return DeleteBesideWindow(desk, ids, timed) ? ExitCode::Done : ExitCode::Failed;
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

ExitCode DeleteRecords(RecordKind kind, const CArguments& arguments, Console& console, RecordDesk& desk) {
    const auto ids = FindRecords(kind, arguments.Words(), console, desk);
    if (!ids) return LookupFailed(desk);
    const bool isAgreed =
        !desk.settings.confirmDelete ||
        Confirm(Text::AskDeleteRecords, Text::AskDeleteTitle, Text::AskDeleteTitle, console);
    const ExitCode exit = isAgreed ? DeleteNow(kind, desk, *ids, console) : ExitCode::Failed;
    if (exit == ExitCode::Done) Announce(kind, *ids, console, desk);
    PrintCount(console.out, "deleted", Text::CliDeleted, exit == ExitCode::Done ? ids->size() : 0);
    return exit;
}

ExitCode CopyRecords(RecordKind kind, const CArguments& arguments, Console& console, RecordDesk& desk) {
    const auto ids = FindRecords(kind, arguments.Words(), console, desk);
    if (!ids) return LookupFailed(desk);
    const bool isAgreed = !desk.settings.confirmCopy ||
                          Confirm(Text::AskCopyRecords, Text::AskCopyTitle, Text::AskCopyTitle, console);
    QStringList copies;
    const bool isDone =
        isAgreed &&
        AsOneChange(desk, *ids,
                    [&](const QString& id) {
                        const CVORec* record = desk.document.FetchRecord(kind, id);
                        QString copy;
                        if (!record || !desk.document.AddRecord(*record, false, true, true, &copy))
                            return false;
                        copies.append(copy);
                        return true;
                    }) &&
        desk.document.Commit();
    if (isDone) Announce(kind, copies, console, desk);
    PrintTexts(console.out, isDone ? copies : QStringList());
    return isDone ? ExitCode::Done : ExitCode::Failed;
}

ExitCode MarkRecords(RecordKind kind, const CArguments& arguments, Console& console, RecordDesk& desk) {
    const QString name = arguments.Value("as").value_or(QString());
    const MarkRow* row = FindMark(kind, name);
    if (!row) return Refuse(ExitCode::Usage, FormatText<Text::CliNoSuchMark>(name, MarkNames(kind)), console);
    const auto ids = FindRecords(kind, arguments.Words(), console, desk);
    if (!ids) return LookupFailed(desk);
    const bool isAgreed = !desk.settings.confirmMark ||
                          Confirm(Text::AskMarkRecords, Text::AskMarkTitle, Text::AskMarkTitle, console);
    QStringList changed;
    const bool isDone =
        isAgreed &&
        AsOneChange(desk, *ids,
                    [&](const QString& id) {
                        const CVORec* stored = desk.document.FetchRecord(kind, id);
                        if (!stored) return false;
                        const auto record = Marked(*stored, row->mark);
                        if (!record) return true;
                        changed.append(id);
                        return desk.document.ModifyRecord(*record, id, false, true, true, true);
                    }) &&
        desk.document.Commit();
    if (isDone) Announce(kind, changed, console, desk);
    PrintCount(console.out, "changed", Text::CliChanged, isDone ? changed.size() : 0);
    return isDone ? ExitCode::Done : ExitCode::Failed;
}
