#include "app/CVelmarchDoc.h"
#include "cli/CArguments.h"
#include "cli/COutput.h"
#include "cli/CTimerAccess.h"
#include "cli/CWindowLink.h"
#include "cli/RecordCommands.h"
#include "cli/RecordDesk.h"
#include "cli/RecordSteps.h"
#include "config/CCfgStore.h"
#include "entry/QuickEntry.h"
#include "lang/FormatText.h"
#include "records/CTRecord.h"

#include <QJsonObject>

using namespace Qt::Literals::StringLiterals;

// The quick commands. There is no dialog here, so the record is added at once.

namespace {

constexpr OptionRow kNewOptions[] = {
    {"from", "blank|copy:ID", OptionShape::Value, Text::CliOptFromBase},
    {"timestamp", "", OptionShape::Flag, Text::CliOptTimestamp},
    {"successive", "ID", OptionShape::Value, Text::CliOptSuccessive},
    {"timer", "", OptionShape::Flag, Text::CliOptTimer},
};

constexpr QStringView kCopyOf = u"copy:";

/// A quick command as it was typed.
struct QuickRequest {
    int flags = 0;
    QString copied;    ///< the record that is copied; empty: none
    QString followed;  ///< the record whose day and end are gone on from; empty: none
};

/// The sentence that refuses; empty when the request can be read.
QString ReadRequest(const CArguments& arguments, QuickRequest& request) {
    const QString base = arguments.Value("from").value_or(u"blank"_s);
    const bool isCopy = base.startsWith(kCopyOf);
    if (!isCopy && base != u"blank") return FormatText<Text::CliNoSuchBase>(base);
    if (arguments.Has("timestamp") && arguments.Has("successive"))
        return LoadText(Text::CliTimestampOrSuccessive);
    if (isCopy) request.copied = base.mid(kCopyOf.size());
    request.followed = arguments.Value("successive").value_or(QString());
    request.flags = (isCopy ? QuickFlag::kCopy : QuickFlag::kBlank) |
                    (arguments.Has("timestamp") ? QuickFlag::kTimestamp : 0) |
                    (arguments.Has("successive") ? QuickFlag::kSuccessive : 0) |
                    (arguments.Has("timer") ? QuickFlag::kTimer : 0);
    return {};
}

/// Finds the records that the new one is made from.
ExitCode Resolve(QuickRequest& request, Console& console, RecordDesk& desk) {
    const auto resolve = [&](int flag, QString& id) {
        if ((request.flags & flag) == 0) return true;
        const CVORec* record = FindRecord(RecordKind::Time, id, console, desk);
        if (record) id = record->GetId();
        return record != nullptr;
    };
    return resolve(QuickFlag::kCopy, request.copied) && resolve(QuickFlag::kSuccessive, request.followed)
               ? ExitCode::Done
               : LookupFailed(desk);
}

/// Makes the record with the timers at hand; the new identity, empty when it failed.
QString Make(int flags, const QuickRequest& request, Console& console, RecordDesk& desk) {
    QuickEntrySurroundings around{
        desk.document, desk.timers.Desk(), desk.settings, console.clock, {}, {}, {}};
    if ((flags & QuickFlag::kCopy) != 0) around.selectedIds = {request.copied};
    around.successiveId = request.followed;
    const QuickOutcome outcome = NewTimeRecord(flags, around);
    const bool isWritten = desk.document.Store().m_lastError == 0;
    return outcome.succeeded && isWritten ? outcome.addedId : QString();
}

/// The record is made here, and the window, once it knows the record, starts its timer from zero.
ExitCode MakeBesideWindow(const QuickRequest& request, Console& console, RecordDesk& desk, QString& id) {
    if (!desk.window.Reach()) return Refuse(ExitCode::Refused, LoadText(Text::CliWindowOwnsTimers), console);
    id = Make(request.flags & ~QuickFlag::kTimer, request, console, desk);
    if (id.isEmpty()) return ExitCode::Failed;
    Announce(RecordKind::Time, {id}, console, desk);
    const QJsonObject answer =
        desk.timers.Run({{u"action"_s, u"start"_s}, {u"id"_s, id}, {u"fromZero"_s, true}});
    if (answer[u"ok"].toBool()) return ExitCode::Done;
    return Refuse(static_cast<ExitCode>(answer[u"exit"].toInt(1)),
                  FormatText<Text::CliAddedWithoutTimer>(id, answer[u"error"].toString()), console);
}

/// The record is durable before the timer is: a program killed in between leaves a record without its timer.
ExitCode MakeWithTimer(const QuickRequest& request, Console& console, RecordDesk& desk, QString& id) {
    const auto changed = desk.timers.ChangeHere([&] {
        id = Make(request.flags, request, console, desk);
        return !id.isEmpty();
    });
    if (changed == CTimerAccess::Changed::WindowOwns) return MakeBesideWindow(request, console, desk, id);
    if (changed == CTimerAccess::Changed::Done) return ExitCode::Done;
    if (id.isEmpty()) return ExitCode::Failed;
    const QString added = id;
    return Refuse(ExitCode::Failed,
                  FormatText<Text::CliAddedWithoutTimer>(added, LoadText(Text::CliTimersNotStored)), console);
}

ExitCode MakeNow(const QuickRequest& request, Console& console, RecordDesk& desk, QString& id) {
    if ((request.flags & QuickFlag::kTimer) != 0) return MakeWithTimer(request, console, desk, id);
    id = Make(request.flags, request, console, desk);
    return id.isEmpty() ? ExitCode::Failed : ExitCode::Done;
}

}  // namespace

std::span<const OptionRow> NewOptions(RecordKind) {
    return kNewOptions;
}

ExitCode NewRecordFrom(RecordKind, const CArguments& arguments, Console& console, RecordDesk& desk) {
    QuickRequest request;
    if (const QString problem = ReadRequest(arguments, request); !problem.isEmpty())
        return Refuse(ExitCode::Usage, problem, console);
    const ExitCode known = Resolve(request, console, desk);
    if (known != ExitCode::Done) return known;
    QString id;
    const ExitCode exit = MakeNow(request, console, desk, id);
    if (exit != ExitCode::Done) return exit;
    Announce(RecordKind::Time, {id}, console, desk);
    desk.timers.Look();
    PrintRecord(RecordKind::Time, id, console, desk);
    return ExitCode::Done;
}
