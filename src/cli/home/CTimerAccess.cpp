#include "cli/home/CTimerAccess.h"

#include "app/CVelmarchDoc.h"
#include "cli/home/CWindowLink.h"
#include "cli/output/ExitCode.h"
#include "config/CCfgStore.h"
#include "lang/LoadText.h"
#include "timers/TimerCommand.h"

#include <QJsonArray>

using namespace Qt::Literals::StringLiterals;

namespace {

QJsonObject Refusal(ExitCode exit, Text words) {
    return {{u"ok"_s, false}, {u"exit"_s, static_cast<int>(exit)}, {u"error"_s, LoadText(words)}};
}

ActiveTimer FromAnswer(const QJsonObject& shown) {
    const int seconds = shown[u"seconds"].toInt();
    ActiveTimer timer;
    timer.recordId = shown[u"id"].toString();
    timer.hours = static_cast<std::uint16_t>(seconds / 3600);
    timer.minutes = static_cast<std::uint16_t>(seconds / 60 % 60);
    timer.seconds = static_cast<std::uint16_t>(seconds % 60);
    timer.state = shown[u"state"].toString() == u"running" ? TimerState::Running : TimerState::Paused;
    return timer;
}

}  // namespace

CTimerAccess::CTimerAccess(const CClock& clock, CVelmarchDoc& document, CCfgStore& settings,
                           CWindowLink& window)
    : m_document(document),
      m_settings(settings),
      m_window(window),
      m_set(clock),
      m_timers(m_set, document, settings) {}

void CTimerAccess::Read() {
    m_set.Clear();
    m_timers.RestoreTimers();
}

void CTimerAccess::Look() {
    Read();
    if (!m_set.AnyActive()) return;
    if (m_window.IsThere()) {
        const auto answer = m_window.Ask(InstanceCommand::kTimer, {{u"action"_s, u"status"_s}});
        if (answer && answer->value(u"ok"_s).toBool()) return TakeOver(*answer);
        m_set.FoldAll();  // shown only: what is stored belongs to the window
        return;
    }
    if (!m_set.AnyRunning()) return;
    const auto fold = [this] {
        m_timers.FoldAndStore();
        return true;
    };
    if (ChangeHere(fold) == Changed::Done) return;
    Read();
    m_set.FoldAll();
}

void CTimerAccess::TakeOver(const QJsonObject& answer) {
    m_set.Clear();
    for (const auto& shown : answer[u"timers"].toArray()) m_set.Put(FromAnswer(shown.toObject()));
}

std::optional<TimerShown> CTimerAccess::Shown(const QString& recordId) const {
    int hours = 0, minutes = 0, seconds = 0;
    if (!m_set.GetElapsed(recordId, hours, minutes, seconds)) return std::nullopt;
    return TimerShown{m_set.StateOf(recordId) == TimerState::Running,
                      (qint64{hours} * 60 + minutes) * 60 + seconds};
}

CTimerAccess::Changed CTimerAccess::ChangeHere(const std::function<bool()>& work) {
    bool isOwned = false;
    const bool isDone = m_settings.Profile().Change([&] {
        isOwned = m_window.IsThere();  // looked at inside the change: a window that starts now reads after it
        if (isOwned) return false;
        Read();
        const bool hadTimers = m_set.Count() > 0;
        if (!work()) return false;
        // The work has stored what it changed; storing it again only tells whether that succeeded.
        return (!hadTimers && m_set.Count() == 0) || m_timers.StoreTimers();
    });
    if (isOwned) return Changed::WindowOwns;
    return isDone ? Changed::Done : Changed::Failed;
}

QJsonObject CTimerAccess::RunHere(const QJsonObject& command, Changed& changed) {
    QJsonObject answer;
    changed = ChangeHere([&] {
        answer = RunTimerCommand(command, m_timers, m_document);
        return answer[u"ok"].toBool();
    });
    // Where settings can't be written the timers can still be shown.
    const bool isChange = command[u"action"].toString() != u"status";
    if (changed == Changed::Failed && isChange && answer[u"ok"].toBool())
        return Refusal(ExitCode::Failed, Text::CliTimersNotStored);
    return answer;
}

QJsonObject CTimerAccess::Run(const QJsonObject& command) {
    for (int attempt = 0; attempt < 2; ++attempt) {
        if (m_window.IsThere()) {
            if (const auto answer = m_window.Ask(InstanceCommand::kTimer, command)) return *answer;
            if (m_window.IsThere()) break;
        }
        Changed changed = Changed::Done;
        QJsonObject answer = RunHere(command, changed);
        if (changed != Changed::WindowOwns) return answer;
    }
    return Refusal(ExitCode::Refused, Text::CliWindowOwnsTimers);
}

bool CTimerAccess::PutBack(const ActiveTimer& timer) {
    return ChangeHere([&] {
               m_set.Put(timer);
               return m_timers.StoreTimers();
           }) == Changed::Done;
}
