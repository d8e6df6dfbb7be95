#include "app/CVelmarchDoc.h"
#include "changes/CRecordChanges.h"
#include "cli/arguments/CArguments.h"
#include "cli/commands/RecordCommands.h"
#include "cli/commands/RecordSteps.h"
#include "cli/home/CSettingsOwner.h"
#include "cli/home/CTimerAccess.h"
#include "cli/home/CWindowLink.h"
#include "cli/home/RecordContext.h"
#include "cli/output/COutput.h"
#include "config/CCfgStore.h"
#include "entry/QuickEntry.h"
#include "lang/FormatText.h"
#include "records/CTRecord.h"
#include "records/RecordFactory.h"

using namespace Qt::Literals::StringLiterals;

// The quick commands. There is no dialog here, so the record is added at once.

namespace {

constexpr OptionRow kExpenseOptions[] = {
    {"from", "blank|defaults:NAME|copy:ID", OptionShape::Value, Text::CliOptFromStored},
    {"timestamp", "", OptionShape::Flag, Text::CliOptTimestamp},
    {"successive", "ID", OptionShape::Value, Text::CliOptExpSuccessive},
    {"timer", "", OptionShape::Flag, Text::CliOptExpTimer},
};
constexpr OptionRow kTimeOptions[] = {
    {"from", "blank|defaults:NAME|copy:ID", OptionShape::Value, Text::CliOptFromStored},
    {"timestamp", "", OptionShape::Flag, Text::CliOptTimestamp},
    {"successive", "ID", OptionShape::Value, Text::CliOptSuccessive},
    {"timer", "", OptionShape::Flag, Text::CliOptTimer},
};

constexpr QStringView kCopyOf = u"copy:";
constexpr QStringView kDefaultsOf = u"defaults:";

/// A quick command as it was typed.
struct QuickRequest {
    RecordKind kind;
    int flags = 0;
    QString stored;    ///< the stored default that it starts from; empty: none
    QString copied;    ///< the record that is copied; empty: none
    QString followed;  ///< the record whose day and end are gone on from; empty: none
};

/// Where the new record comes from; 0 for what is no such place.
int ReadBase(const QString& base, QuickRequest& request) {
    if (base == u"blank") return QuickFlag::kBlank;
    if (base.startsWith(kCopyOf)) {
        request.copied = base.mid(kCopyOf.size());
        return QuickFlag::kCopy;
    }
    if (base.startsWith(kDefaultsOf)) {
        request.stored = base.mid(kDefaultsOf.size());
        return QuickFlag::kDefaults;
    }
    return 0;
}

/// The sentence that refuses; empty when the request can be read.
QString ReadRequest(const CArguments& arguments, QuickRequest& request) {
    const QString base = arguments.Value("from").value_or(u"blank"_s);
    request.flags = ReadBase(base, request);
    if (request.flags == 0) return FormatText<Text::CliNoSuchBaseStored>(base);
    if (arguments.Has("timestamp") && arguments.Has("successive"))
        return LoadText(Text::CliTimestampOrSuccessive);
    request.followed = arguments.Value("successive").value_or(QString());
    const bool hasTimer = request.kind == RecordKind::Time && arguments.Has("timer");
    request.flags |= (arguments.Has("timestamp") ? QuickFlag::kTimestamp : 0) |
                     (arguments.Has("successive") ? QuickFlag::kSuccessive : 0) |
                     (hasTimer ? QuickFlag::kTimer : 0);
    return {};
}

/// Finds the stored default; one that can't be read is told and fails.
ExitCode ResolveDefault(QuickRequest& request, Console& console, RecordContext& context) {
    if ((request.flags & QuickFlag::kDefaults) == 0) return ExitCode::Done;
    const NamedDefaults defaults = context.owner.Defaults(theRecordMode);
    const auto stored =
        NamedDefaults::IsReserved(request.stored) ? request.stored : defaults.FindName(request.stored);
    if (!stored)
        return Refuse(ExitCode::NotFound, FormatText<Text::CliNoSuchDefault>(request.stored), console);
    request.stored = *stored;
    if (defaults.Read(*stored, *NewRecord(request.kind))) return ExitCode::Done;
    return Refuse(ExitCode::Failed, FormatText<Text::DefaultDamaged>(*stored), console);
}

/// Finds what the new record is made from.
ExitCode Resolve(QuickRequest& request, Console& console, RecordContext& context) {
    const auto resolve = [&](int flag, QString& id) {
        if ((request.flags & flag) == 0) return true;
        const CVORec* record = FindRecord(request.kind, id, console, context);
        if (record) id = record->GetId();
        return record != nullptr;
    };
    return resolve(QuickFlag::kCopy, request.copied) && resolve(QuickFlag::kSuccessive, request.followed)
               ? ResolveDefault(request, console, context)
               : LookupFailed(context);
}

/// The default was read before; that it can't be by now is told.
bool FillFromDefault(CVORec& record, const QuickRequest& request, Console& console, RecordContext& context) {
    if (context.owner.Defaults(theRecordMode).Read(request.stored, record)) return true;
    console.out.Complain(FormatText<Text::DefaultDamaged>(request.stored));
    return false;
}

/// Makes the record with the timers at hand.
QuickOutcome Make(int flags, const QuickRequest& request, Console& console, RecordContext& context) {
    const bool isCopy = (flags & QuickFlag::kCopy) != 0;
    return NewRecordOf(
        request.kind, flags,
        {.document = context.document,
         .timers = context.timers.Timers(),
         .settings = context.settings,
         .clock = console.clock,
         .add = [&](const CVORec& record) { return bool(context.changes.Add(record, Identity::Own)); },
         .selectedIds = isCopy ? QStringList{request.copied} : QStringList(),
         .edit = {},
         .successiveId = request.followed,
         .fillFromDefaults =
             [&](CVORec& record) { return FillFromDefault(record, request, console, context); }});
}

ExitCode TellWithoutTimer(const QString& id, const QString& why, Console& console) {
    return Refuse(ExitCode::Failed, FormatText<Text::CliAddedWithoutTimer>(id, why), console);
}

/// The record is made here, and the window, once it knows the record, starts its timer from zero.
ExitCode MakeBesideWindow(const QuickRequest& request, Console& console, RecordContext& context,
                          QString& id) {
    if (!context.window.Reach())
        return Refuse(ExitCode::Refused, LoadText(Text::CliWindowOwnsTimers), console);
    id = Make(request.flags & ~QuickFlag::kTimer, request, console, context).addedId;
    if (id.isEmpty()) return ExitCode::Failed;
    Announce(RecordKind::Time, {id}, console, context);
    const InstanceReply reply =
        context.timers.Run({.action = TimerAction::Start, .id = id, .isFromZero = true});
    if (reply) return ExitCode::Done;
    return Refuse(ExitFor(reply.reason), FormatText<Text::CliAddedWithoutTimer>(id, reply.words), console);
}

/// The record is durable before the timer is: a program killed in between leaves a record without its timer.
ExitCode MakeWithTimer(const QuickRequest& request, Console& console, RecordContext& context, QString& id) {
    QuickOutcome made;
    bool isBegun = false;
    const auto changed = context.timers.ChangeHere(
        [&] {
            isBegun = true;
            made = Make(request.flags, request, console, context);
            return !made.addedId.isEmpty() && !made.lacksTimer;
        },
        context.timers.OfNewTimer());
    if (changed == CTimerAccess::Changed::WindowOwns) return MakeBesideWindow(request, console, context, id);
    id = made.addedId;
    if (changed == CTimerAccess::Changed::Done) return ExitCode::Done;
    if (!isBegun) return Refuse(ExitCode::Failed, context.timers.WhyNotStored(), console);
    if (id.isEmpty()) return ExitCode::Failed;
    return TellWithoutTimer(id, context.timers.WhyNotStored(), console);
}

ExitCode MakeNow(const QuickRequest& request, Console& console, RecordContext& context, QString& id) {
    if ((request.flags & QuickFlag::kTimer) != 0) return MakeWithTimer(request, console, context, id);
    id = Make(request.flags, request, console, context).addedId;
    return id.isEmpty() ? ExitCode::Failed : ExitCode::Done;
}

}  // namespace

std::span<const OptionRow> NewOptions(RecordKind kind) {
    return kind == RecordKind::Time ? kTimeOptions : kExpenseOptions;
}

ExitCode NewRecordFrom(RecordKind kind, const CArguments& arguments, Console& console,
                       RecordContext& context) {
    QuickRequest request{kind, 0, {}, {}, {}};
    if (const QString problem = ReadRequest(arguments, request); !problem.isEmpty())
        return Refuse(ExitCode::Usage, problem, console);
    const ExitCode known = Resolve(request, console, context);
    if (known != ExitCode::Done) return known;
    QString id;
    const ExitCode exit = MakeNow(request, console, context, id);
    if (exit != ExitCode::Done) return exit;
    Announce(kind, {id}, console, context);
    context.timers.Look();
    PrintRecord(kind, id, console, context);
    return ExitCode::Done;
}
