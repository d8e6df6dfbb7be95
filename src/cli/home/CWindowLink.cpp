#include "cli/home/CWindowLink.h"

#include "app/CVelmarchApp.h"
#include "lang/LoadText.h"
#include "platform/instance/CInstance.h"
#include "records/CVORec.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <chrono>
#include <thread>

using namespace Qt::Literals::StringLiterals;

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

std::optional<QJsonObject> CWindowLink::Ask(int command, const QJsonObject& arguments) {
    if (!Reach()) return std::nullopt;
    auto answer = m_client.Send(command, arguments);
    if (!answer) m_isReached = false;
    return answer;
}

bool CWindowLink::TellChanged(RecordKind kind, const QStringList& ids, bool listsToo) {
    if (ids.isEmpty()) return true;
    QJsonObject changed{{u"kind"_s, kind == RecordKind::Time ? u"time"_s : u"expense"_s}};
    if (ids.size() <= kMostIds) changed.insert(u"ids"_s, QJsonArray::fromStringList(ids));
    if (listsToo) changed.insert(u"lists"_s, true);
    return Post(changed);
}

bool CWindowLink::TellAllChanged() {
    return Post({});
}

bool CWindowLink::Post(const QJsonObject& changed) {
    if (!IsThere()) return true;
    if (Reach() && m_client.Post(InstanceCommand::kSyncEnd, changed)) return true;
    m_isReached = false;
    return !IsThere();
}
