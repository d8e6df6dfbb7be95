#include "cli/home/CWindowLink.h"

#include "app/CVelmarchApp.h"
#include "app/OutsideChange.h"
#include "lang/LoadText.h"
#include "platform/instance/CInstance.h"

#include <QElapsedTimer>
#include <chrono>
#include <thread>

namespace {
constexpr int kPatienceMs = 3000;
constexpr int kLookMs = 500;
constexpr std::chrono::milliseconds kPause{50};
}  // namespace

bool CWindowLink::IsThere() const {
    return CInstance::IsHeld(QString::fromLatin1(CVelmarchApp::kMutexName), m_home);
}

bool CWindowLink::Reach() {
    QElapsedTimer waited;
    waited.start();
    while (!m_isReached) {
        m_isReached = m_client.FindWindow(m_home, LoadText(Text::ProgramTitle), kLookMs);
        if (m_isReached || !IsThere()) break;
        // Who has waited in vain once doesn't wait again.
        m_isMute = m_isMute || waited.elapsed() >= kPatienceMs;
        if (m_isMute) break;
        std::this_thread::sleep_for(kPause);
    }
    return m_isReached;
}

std::optional<InstanceReply> CWindowLink::Ask(const InstanceMessage& message) {
    if (!Reach()) return std::nullopt;
    auto reply = m_client.Send(message);
    if (!reply) m_isReached = false;
    return reply;
}

bool CWindowLink::TellChanged(RecordKind kind, const QStringList& ids, bool listsToo) {
    if (ids.isEmpty()) return true;
    return Post({kind, ids.size() <= kMostIds ? ids : QStringList(), listsToo});
}

bool CWindowLink::TellAllChanged() {
    return Post({});
}

bool CWindowLink::Post(const OutsideChange& change) {
    if (!IsThere()) return true;
    if (Reach() && m_client.Post(change.ToMessage())) return true;
    m_isReached = false;
    return !IsThere();
}
