#include "cli/home/CWindowLink.h"

#include "app/CVelmarchApp.h"
#include "app/OutsideChange.h"
#include "app/RefreshRequest.h"
#include "lang/LoadText.h"
#include "platform/host/CWaitBudget.h"
#include "platform/instance/CInstance.h"

#include <algorithm>
#include <thread>

namespace {

using std::chrono::milliseconds;

/// How long a window is waited for that is starting, or that is only told what was done.
constexpr milliseconds kShort{3000};
/// How long one is waited for that is ending: one that asks its user something may stay for hours.
constexpr milliseconds kEnding{1000};
constexpr milliseconds kPause{50};

/// Time spent on the window comes off what the command may wait.
class CWindowWait {
 public:
    explicit CWindowWait(CWaitBudget& budget) : m_budget(budget) {}
    ~CWindowWait() { m_budget.Spend(Waited()); }
    CWindowWait(const CWindowWait&) = delete;
    CWindowWait& operator=(const CWindowWait&) = delete;

    [[nodiscard]] milliseconds Waited() const {
        return std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now() - m_start);
    }

 private:
    CWaitBudget& m_budget;
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

/// ending: how long the window has been waited for since it said that it ends.
bool MayAnswerOtherwise(const InstanceReply& reply, milliseconds ending) {
    return reply.reason == ReplyReason::WindowOwns ||
           (reply.reason == ReplyReason::WindowEnds && ending < kEnding);
}

int Milliseconds(milliseconds time) {
    return static_cast<int>(time.count());
}

}  // namespace

bool CWindowLink::IsThere() const {
    return CInstance::IsHeld(QString::fromLatin1(CVelmarchApp::kMutexName), m_home);
}

bool CWindowLink::Reach() {
    return Reach(m_budget.Left());
}

/// Where nobody listens a look ends at once; a busy window takes the call and leaves the caller waiting.
bool CWindowLink::Reach(Time limit) {
    const CWindowWait wait(m_budget);
    while (!m_isReached) {
        const Time left = std::max(limit - wait.Waited(), kPause);
        m_isReached = m_client.FindWindow(m_home, LoadText(Text::ProgramTitle), Milliseconds(left));
        if (m_isReached || !IsThere()) break;
        // A command that has waited in vain once doesn't wait again.
        m_isMute = m_isMute || wait.Waited() >= std::min(limit, kShort);
        if (m_isMute) break;
        std::this_thread::sleep_for(kPause);
    }
    return m_isReached;
}

std::optional<InstanceReply> CWindowLink::AskOnce(const InstanceMessage& message, Time limit) {
    if (!Reach(limit)) return std::nullopt;
    const CWindowWait wait(m_budget);
    const Time left = std::max(std::min(limit, m_budget.Left()), kPause);
    auto reply = m_client.Send(message, Milliseconds(left));
    if (!reply) m_isReached = false;
    return reply;
}

std::optional<InstanceReply> CWindowLink::Ask(const InstanceMessage& message) {
    auto reply = AskOnce(message, m_budget.Left());
    Time ending{0};
    while (reply && MayAnswerOtherwise(*reply, ending) && m_budget.Left() > Time(0)) {
        std::this_thread::sleep_for(kPause);
        m_budget.Spend(kPause);
        if (reply->reason == ReplyReason::WindowEnds) ending += kPause;
        reply = AskOnce(message, m_budget.Left());
    }
    return reply;
}

std::optional<InstanceReply> CWindowLink::AskShortly(const InstanceMessage& message) {
    return AskOnce(message, std::min(m_budget.Left(), kShort));
}

bool CWindowLink::TellChanged(RecordKind kind, const QStringList& ids, bool listsToo) {
    if (ids.isEmpty()) return true;
    return Post(OutsideChange{kind, ids.size() <= kMostIds ? ids : QStringList(), listsToo}.ToMessage());
}

bool CWindowLink::TellAllChanged() {
    return Post(OutsideChange{}.ToMessage());
}

InstanceReply CWindowLink::AskForRefresh() {
    if (!IsThere()) return InstanceReply::Done();
    if (const auto reply = AskShortly(RefreshRequest{.isQuestion = true}.ToMessage())) return *reply;
    return IsThere() ? InstanceReply::Refused(ReplyReason::WindowOwns, LoadText(Text::CliWindowNotTold))
                     : InstanceReply::Done();
}

bool CWindowLink::TellReplaced() {
    return Post(RefreshRequest{}.ToMessage());
}

bool CWindowLink::Post(const InstanceMessage& message) {
    if (!IsThere()) return true;
    if (Reach(std::min(m_budget.Left(), kShort)) && m_client.Post(message)) return true;
    m_isReached = false;
    return !IsThere();
}
