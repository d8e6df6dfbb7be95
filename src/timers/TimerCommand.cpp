#include "timers/TimerCommand.h"

#include "app/CVelmarchDoc.h"
#include "config/CCfgStore.h"
#include "lang/FormatText.h"
#include "timers/CRecordTimers.h"
#include "timers/TimerImage.h"

#include <algorithm>

namespace {

/// What a command acts on.
struct Context {
    const TimerRequest& request;
    CRecordTimers& timers;
    CVelmarchDoc& document;
    std::vector<TimerReading> before = {};  ///< all timers when the command began
};

/// The timer as it stands now; a running one is counted on to the present in a copy.
TimerReading Reading(ActiveTimer timer, const CClock& clock) {
    timer.UpdateElapsed(clock);
    return {timer.recordId, timer.state == TimerState::Running, timer.Seconds(), timer.trueCount.Seconds()};
}

std::vector<TimerReading> Readings(const ActiveTimerSet& set) {
    std::vector<TimerReading> all;
    all.reserve(static_cast<std::size_t>(set.Count()));
    for (int i = 0; i < set.Count(); ++i) all.push_back(Reading(set.At(i), set.Clock()));
    return all;
}

/// Those of the timers before that aren't there any more; one that was dropped has counted nothing.
std::vector<TimerReading> Stopped(const Context& context) {
    std::vector<TimerReading> stopped;
    if (context.request.action == TimerAction::Drop) return stopped;
    for (const TimerReading& timer : context.before)
        if (context.timers.Set().IndexOf(timer.recordId) < 0) stopped.push_back(timer);
    return stopped;
}

InstanceReply Done(Context& context) {
    return ReplyWith(Readings(context.timers.Set()), Stopped(context));
}

/// failure: what is said of anything but timers that could not be saved.
InstanceReply ReplyTo(const TimerOutcome& outcome, Context& context, Text failure) {
    if (outcome) return Done(context);
    if (outcome.end != TimerOutcome::End::NotSaved)
        return InstanceReply::Refused(ReplyReason::Failed, LoadText(failure));
    return InstanceReply::Refused(ReplyReason::Failed,
                                  FormatText<Text::TimersNotSaved>(context.timers.SaveError()));
}

/// Of work that has nothing else to fail at.
TimerOutcome IfSaved(bool isSaved) {
    return {isSaved ? TimerOutcome::End::Done : TimerOutcome::End::NotSaved};
}

bool HasRecord(Context& context) {
    return context.document.FetchRecord(RecordKind::Time, context.request.id) != nullptr;
}

InstanceReply NoRecord(const Context& context) {
    return InstanceReply::Refused(ReplyReason::NotFound,
                                  FormatText<Text::TimerRecordUnknown>(context.request.id));
}

/// The timer of a new record, as the quick commands start it.
TimerOutcome StartFromZero(Context& context) {
    if (!context.timers.RunNewTimerAction()) return {TimerOutcome::End::NotInRecord};
    return IfSaved(context.timers.StartFromZero(context.request.id));
}

InstanceReply Start(Context& context) {
    if (!HasRecord(context)) return NoRecord(context);
    const TimerOutcome started = context.request.isFromZero
                                     ? StartFromZero(context)
                                     : context.timers.StartRecordTimer(context.request.id);
    return ReplyTo(started, context, Text::TimerNotStarted);
}

InstanceReply Pause(Context& context) {
    if (!HasRecord(context)) return NoRecord(context);
    context.timers.FoldAndStore();
    return ReplyTo(context.timers.PauseRecordTimer(context.request.id), context, Text::TimerNotRunning);
}

InstanceReply Stop(Context& context) {
    if (!HasRecord(context)) return NoRecord(context);
    context.timers.FoldAndStore();
    const ActiveTimer* timer = context.timers.Set().Find(context.request.id);
    const CountBy by = context.request.isTrueTime ? CountBy::TrueTime : CountBy::Clock;
    if (timer && by == CountBy::TrueTime && !timer->trueCount.isKnown)
        return InstanceReply::Refused(ReplyReason::Failed, LoadText(Text::TimerTrueTimeUnknown));
    const TimerOutcome stopped = context.timers.StopRecordTimer(context.request.id, by);
    const bool hadTimer = stopped.end != TimerOutcome::End::NoTimer;
    return ReplyTo(stopped, context, hadTimer ? Text::TimerNotStopped : Text::TimerNotThere);
}

InstanceReply StopAll(Context& context) {
    context.timers.FoldAndStore();
    return ReplyTo(context.timers.StopAllTimers(), context, Text::TimersNotAllStopped);
}

InstanceReply PauseAll(Context& context) {
    context.timers.FoldAndStore();
    return ReplyTo(context.timers.PauseAllTimers(), context, Text::TimersNotAllPaused);
}

InstanceReply Drop(Context& context) {
    if (!context.timers.HasTimer(context.request.id))
        return InstanceReply::Refused(ReplyReason::NotFound, LoadText(Text::TimerNotThere));
    return ReplyTo(IfSaved(context.timers.Drop(context.request.id)), context, Text::TimerNotThere);
}

InstanceReply PutBack(Context& context) {
    if (!HasRecord(context)) return NoRecord(context);
    const auto timer = TimerOfImage(context.request.image, context.request.id, context.timers.Set().Clock());
    if (!timer) return InstanceReply::Refused(ReplyReason::NotUnderstood, LoadText(Text::RequestUnknown));
    return ReplyTo(IfSaved(context.timers.PutBack(*timer)), context, Text::TimerNotStarted);
}

InstanceReply Status(Context& context) {
    context.timers.FoldAndStore();
    return Done(context);
}

struct ActionRow {
    TimerAction action;
    InstanceReply (*run)(Context& context);
};

constexpr ActionRow kActions[] = {
    {TimerAction::Start, Start},     {TimerAction::Pause, Pause},       {TimerAction::Stop, Stop},
    {TimerAction::StopAll, StopAll}, {TimerAction::PauseAll, PauseAll}, {TimerAction::Status, Status},
    {TimerAction::Drop, Drop},       {TimerAction::PutBack, PutBack},
};

}  // namespace

InstanceReply RunTimerRequest(const TimerRequest& request, CRecordTimers& timers, CVelmarchDoc& document) {
    Context context{request, timers, document, Readings(timers.Set())};
    const auto row = std::ranges::find(kActions, request.action, &ActionRow::action);
    return row->run(context);
}

InstanceReply RunTimerMessage(const QJsonObject& arguments, CRecordTimers& timers, CVelmarchDoc& document) {
    if (const auto request = TimerRequest::FromJson(arguments))
        return RunTimerRequest(*request, timers, document);
    return InstanceReply::Refused(ReplyReason::Failed,
                                  FormatText<Text::TimerActionUnknown>(TimerRequest::ActionIn(arguments)));
}
