#include "shell/program/CSingleWindow.h"

#include "app/CVelmarchApp.h"
#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"
#include "platform/instance/CInstanceChannel.h"

#include <QDeadlineTimer>
#include <chrono>
#include <thread>

using namespace std::chrono_literals;

namespace {

/// A window that starts or ends isn't found for a while, though it has the lock.
constexpr auto kPatience = 5s;
constexpr auto kPause = 100ms;

bool RaiseOther(const QString& home) {
    CInstanceClient other;
    return other.FindWindow(home, LoadText(Text::ProgramTitle)) && other.Post({InstanceCommand::Raise});
}

}  // namespace

CSingleWindow::Start CSingleWindow::Begin(const QString& home) {
    const QDeadlineTimer deadline(kPatience);
    while (true) {
        const CInstance::Outcome outcome =
            m_instance.Take(QString::fromLatin1(CVelmarchApp::kMutexName), home);
        m_isLocked = outcome == CInstance::Outcome::Taken;
        if (m_isLocked) return Start::IsAlone;
        if (RaiseOther(home)) return Start::OtherRaised;
        if (outcome == CInstance::Outcome::ReadOnly) return Start::IsAlone;
        if (outcome == CInstance::Outcome::Failed || deadline.hasExpired()) return Refuse(home, outcome);
        std::this_thread::sleep_for(kPause);
    }
}

CSingleWindow::Start CSingleWindow::Refuse(const QString& home, CInstance::Outcome outcome) {
    if (outcome == CInstance::Outcome::AlreadyExists)
        Tell(Text::OtherWindowIsMute, FormatText<Text::OtherWindowIsMute>(home));
    else
        TellNotAlone(home, m_instance.Error());
    return Start::Refused;
}

void CSingleWindow::TellNotAlone(const QString& home, const QString& why) {
    Tell(Text::WindowNotAlone, FormatText<Text::WindowNotAlone>(home, why));
}

void CSingleWindow::Tell(Text text, const QString& words) {
    m_prompt.Tell({.textId = static_cast<int>(text),
                   .title = LoadText(Text::ProgramTitle),
                   .text = words,
                   .icon = BoxIcon::Warning,
                   .actionLabel = {}});
}
