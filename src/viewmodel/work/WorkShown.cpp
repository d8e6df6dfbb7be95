#include "viewmodel/work/WorkShown.h"

#include "app/CVelmarchDoc.h"
#include "lang/FormatText.h"
#include "records/CTRecord.h"
#include "timers/ActiveTimerSet.h"
#include "timers/TimerTexts.h"

#include <algorithm>

namespace {

constexpr int kStartTime = 3;

/// Of time records all are in memory while they are shown; while expenses are, one is read.
const CTRecord* RecordOf(const ActiveTimer& timer, CVelmarchDoc& document) {
    const CVORec* record = theRecordMode == RecordMode::Time
                               ? document.FindLoaded(timer.recordId)
                               : document.FetchRecord(RecordKind::Time, timer.recordId);
    return record && record->Kind() == RecordKind::Time ? static_cast<const CTRecord*>(record) : nullptr;
}

TimedWork Of(const ActiveTimer& timer, CVelmarchDoc& document, const std::vector<TimedWork>& known) {
    TimedWork shown{.id = timer.recordId,
                    .work = {},
                    .isRunning = timer.state == TimerState::Running,
                    .seconds = timer.Seconds(),
                    .since = {}};
    if (const auto same = std::ranges::find(known, shown.id, &TimedWork::id);
        theRecordMode != RecordMode::Time && same != known.end()) {
        shown.work = same->work;
        shown.since = same->since;
        return shown;
    }
    // A record that is being entered isn't stored yet.
    const CTRecord* record = RecordOf(timer, document);
    if (!record) return shown;
    shown.work = WorkOf(*record);
    if (record->HasStart()) shown.since = TimeTextOfRecord(*record, kStartTime);
    return shown;
}

}  // namespace

QString TimedWork::Words() const {
    const QString words = WorkWords(work);
    return words.isEmpty() ? LoadText(Text::WorkNothingSaid) : words;
}

QString TimedWork::Count() const {
    return TimerCountText(std::int64_t{seconds});
}

QString TimedWork::Hours() const {
    return HoursText(seconds);
}

QString TimedWork::State() const {
    if (!isRunning) return LoadText(Text::WorkPaused);
    return since.isEmpty() ? LoadText(Text::WorkRuns) : FormatText<Text::WorkRunsSince>(since);
}

std::vector<TimedWork> TimedWorks(const ActiveTimerSet& timers, CVelmarchDoc& document,
                                  const std::vector<TimedWork>& known) {
    std::vector<TimedWork> works;
    for (int i = timers.Count() - 1; i >= 0; --i) works.push_back(Of(timers.At(i), document, known));
    const auto first = std::ranges::find_if(works, &TimedWork::isRunning);
    if (first != works.end()) std::rotate(works.begin(), first, std::next(first));
    return works;
}

void TakeCounts(std::vector<TimedWork>& works, const ActiveTimerSet& timers) {
    for (TimedWork& shown : works)
        if (const ActiveTimer* timer = timers.Find(shown.id)) shown.seconds = timer->Seconds();
}

QString WindowTitle(const std::vector<TimedWork>& works) {
    QString program = LoadText(Text::ProgramTitle);
    if (works.empty() || !works.front().isRunning) return program;
    const TimedWork& shown = works.front();
    const QString what = shown.work.Client().isEmpty() ? WorkWords(shown.work) : shown.work.Client();
    const QString count = shown.Hours();
    return what.isEmpty() ? FormatText<Text::WorkTitleNothingSaid>(count, program)
                          : FormatText<Text::WorkTitle>(count, what, program);
}
