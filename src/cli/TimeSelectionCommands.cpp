#include "app/CVelmarchDoc.h"
#include "cli/CArguments.h"
#include "cli/CJsonText.h"
#include "cli/COutput.h"
#include "cli/CTimerAccess.h"
#include "cli/CWindowLink.h"
#include "cli/RecordDesk.h"
#include "cli/RecordSteps.h"
#include "cli/TimeCommands.h"
#include "config/CCfgStore.h"
#include "entry/RecordMarks.h"
#include "lang/FormatText.h"
#include "records/CTRecord.h"

#include <QJsonObject>
#include <algorithm>
#include <functional>
#include <vector>

using namespace Qt::Literals::StringLiterals;

// What is done to several records at once: all of it or nothing, with one commit.

namespace {

constexpr OptionRow kMarkOptions[] = {{"as", "MARK", OptionShape::Value, Text::CliOptAs}};

struct MarkRow {
    const char* name;
    RecordMark mark;
};
constexpr MarkRow kMarks[] = {
    {"first", RecordMark::First},
    {"first-second", RecordMark::FirstAndSecond},
    {"exported", RecordMark::Exported},
    {"not-exported", RecordMark::NotExported},
};

QString MarkNames() {
    QStringList names;
    for (const MarkRow& row : kMarks) names.append(QString::fromLatin1(row.name));
    return names.join(u", "_s);
}

const MarkRow* FindMark(const QString& name) {
    const auto found = std::find_if(std::begin(kMarks), std::end(kMarks),
                                    [&](const MarkRow& row) { return name == QLatin1String(row.name); });
    return found == std::end(kMarks) ? nullptr : found;
}

void PrintCount(COutput& out, const char* key, Text sentence, qsizetype count) {
    if (!out.isJson)
        return out.PutLine(QString::asprintf(LoadText(sentence).toUtf8().constData(), int(count)));
    CJsonText json(out);
    json.BeginObject();
    json.Key(key);
    json.Integer(count);
    json.EndObject();
    out.Put("\n");
}

void PrintIds(COutput& out, const QStringList& ids) {
    if (!out.isJson) {
        for (const QString& id : ids) out.PutLine(id);
        return;
    }
    CJsonText json(out);
    json.BeginArray();
    for (const QString& id : ids) json.Text(id);
    json.EndArray();
    out.Put("\n");
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

bool DeleteAll(RecordDesk& desk, const QStringList& ids) {
    return AsOneChange(desk, ids, [&](const QString& id) {
        return desk.document.DeleteRecord(RecordKind::Time, id, false);
    });
}

/// The timers go first and the records with the commit after it: a program killed in between leaves a record
/// without its timer, never a timer without its record.
bool DeleteWithTimers(RecordDesk& desk, const QStringList& ids, const QStringList& timed) {
    std::vector<ActiveTimer> dropped;
    for (const QString& id : timed) dropped.push_back(*desk.timers.Find(id));
    const auto changed = desk.timers.ChangeHere([&] {
        if (!DeleteAll(desk, ids)) return false;
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
    return DeleteAll(desk, ids) && desk.document.Commit();
}

ExitCode DeleteNow(RecordDesk& desk, const QStringList& ids, Console& console) {
    desk.timers.Read();
    QStringList timed;
    for (const QString& id : ids)
        if (desk.timers.Desk().HasTimer(id)) timed.append(id);
    if (timed.isEmpty())
        return DeleteAll(desk, ids) && desk.document.Commit() ? ExitCode::Done : ExitCode::Failed;
    if (!desk.window.IsThere()) return DeleteWithTimers(desk, ids, timed) ? ExitCode::Done : ExitCode::Failed;
    if (!desk.window.Reach()) return Refuse(ExitCode::Refused, LoadText(Text::CliWindowOwnsTimers), console);
    return DeleteBesideWindow(desk, ids, timed) ? ExitCode::Done : ExitCode::Failed;
}

}  // namespace

std::span<const OptionRow> TimeMarkOptions() {
    return kMarkOptions;
}

ExitCode DeleteTimes(const CArguments& arguments, Console& console, RecordDesk& desk) {
    const auto ids = FindTimeRecords(arguments.Words(), console, desk);
    if (!ids) return LookupFailed(desk);
    const bool isAgreed =
        !desk.settings.confirmDelete ||
        Confirm(Text::AskDeleteRecords, Text::AskDeleteTitle, Text::AskDeleteTitle, console);
    const ExitCode exit = isAgreed ? DeleteNow(desk, *ids, console) : ExitCode::Failed;
    if (exit == ExitCode::Done) Announce(*ids, console, desk);
    PrintCount(console.out, "deleted", Text::CliDeleted, exit == ExitCode::Done ? ids->size() : 0);
    return exit;
}

ExitCode CopyTimes(const CArguments& arguments, Console& console, RecordDesk& desk) {
    const auto ids = FindTimeRecords(arguments.Words(), console, desk);
    if (!ids) return LookupFailed(desk);
    const bool isAgreed = !desk.settings.confirmCopy ||
                          Confirm(Text::AskCopyRecords, Text::AskCopyTitle, Text::AskCopyTitle, console);
    QStringList copies;
    const bool isDone =
        isAgreed &&
        AsOneChange(desk, *ids,
                    [&](const QString& id) {
                        const CVORec* record = desk.document.FetchRecord(RecordKind::Time, id);
                        QString copy;
                        if (!record || !desk.document.AddRecord(*record, false, true, true, &copy))
                            return false;
                        copies.append(copy);
                        return true;
                    }) &&
        desk.document.Commit();
    if (isDone) Announce(copies, console, desk);
    PrintIds(console.out, isDone ? copies : QStringList());
    return isDone ? ExitCode::Done : ExitCode::Failed;
}

ExitCode MarkTimes(const CArguments& arguments, Console& console, RecordDesk& desk) {
    const QString name = arguments.Value("as").value_or(QString());
    const MarkRow* row = FindMark(name);
    if (!row) return Refuse(ExitCode::Usage, FormatText<Text::CliNoSuchMark>(name, MarkNames()), console);
    const auto ids = FindTimeRecords(arguments.Words(), console, desk);
    if (!ids) return LookupFailed(desk);
    const bool isAgreed = !desk.settings.confirmMark ||
                          Confirm(Text::AskMarkRecords, Text::AskMarkTitle, Text::AskMarkTitle, console);
    QStringList changed;
    const bool isDone =
        isAgreed &&
        AsOneChange(desk, *ids,
                    [&](const QString& id) {
                        CTRecord record;
                        record.Copy(*desk.document.FindTime(id));
                        if (!SetMark(record, row->mark)) return true;
                        changed.append(id);
                        return desk.document.ModifyRecord(record, id, false, true, true, true);
                    }) &&
        desk.document.Commit();
    if (isDone) Announce(changed, console, desk);
    PrintCount(console.out, "changed", Text::CliChanged, isDone ? changed.size() : 0);
    return isDone ? ExitCode::Done : ExitCode::Failed;
}
