#include "viewmodel/program/CInstanceHost.h"

#include "app/CVelmarchDoc.h"
#include "app/OutsideChange.h"
#include "app/RefreshRequest.h"
#include "config/CCfgStore.h"
#include "entry/SettingsRequest.h"
#include "lang/LoadText.h"
#include "timers/CRecordTimers.h"
#include "timers/TimerCommand.h"

namespace {

constexpr int kGatherMs = 60;
/// So often a whole refresh looks whether the dialog that it waits for is gone.
constexpr int kDialogMs = 300;

InstanceReply Refused(Text why) {
    return InstanceReply::Refused(ReplyReason::WindowOwns, LoadText(why));
}

}  // namespace

CInstanceHost::CInstanceHost(Context context, QObject* parent)
    : QObject(parent), m_context(std::move(context)) {
    m_delay.setSingleShot(true);
    connect(&m_delay, &QTimer::timeout, this, &CInstanceHost::ShowChanges);
}

bool CInstanceHost::Listen(const QString& home, const QString& title) {
    return m_server.Listen(home, title, [this](const InstanceMessage& message) { return Handle(message); });
}

void CInstanceHost::BeginEnd() {
    m_isEnding = true;
    m_delay.stop();
}

InstanceReply CInstanceHost::Handle(const InstanceMessage& message) {
    if (m_isEnding && message.command != InstanceCommand::Raise)
        return InstanceReply::Refused(ReplyReason::WindowEnds, LoadText(Text::WindowIsEnding));
    switch (message.command) {
        case InstanceCommand::SyncEnd:
            if (m_context.settings.refreshOnSyncEnd) NoteChange(OutsideChange::FromJson(message.arguments));
            return InstanceReply::Done();
        case InstanceCommand::Refresh:
            return Refresh(RefreshRequest::FromJson(message.arguments));
        case InstanceCommand::Raise:
            m_context.raise();
            return InstanceReply::Done();
        case InstanceCommand::Exit:
            return Leave();
        case InstanceCommand::Timer:
            return RunTimer(message.arguments);
        case InstanceCommand::Setting:
            return RunSetting(message.arguments);
    }
    return Refused(Text::UnknownInstanceCommand);
}

void CInstanceHost::NoteChange(const OutsideChange& change) {
    if (change.hasLists) m_listsChanged = true;
    if (change.NamesRecords())
        (*change.kind == RecordKind::Time ? m_changedTimes : m_changedExpenses).append(change.ids);
    else
        m_allChanged = true;
    if (!m_delay.isActive()) m_delay.start(kGatherMs);
}

bool CInstanceHost::IsBusy() const {
    return m_context.isBusy() || m_context.document.IsBeingChanged();
}

/// Single records change under a dialog: who edits one is told when it is stored. Everything else waits for
/// its end, as a dialog may show lists and records that a whole refresh takes away.
void CInstanceHost::ShowChanges() {
    if (IsBusy()) return m_delay.start(kGatherMs);
    const QStringList times = std::exchange(m_changedTimes, {});
    const QStringList expenses = std::exchange(m_changedExpenses, {});
    const auto isShown = [this](RecordKind kind, const QStringList& ids) {
        return ids.isEmpty() || m_context.document.RefreshRecords(kind, ids);
    };
    if (!m_allChanged)
        m_allChanged = !isShown(RecordKind::Time, times) || !isShown(RecordKind::Expense, expenses);
    if (!m_allChanged && !m_listsChanged) return;
    if (m_context.hasDialog()) return m_delay.start(kDialogMs);
    const bool lists = std::exchange(m_listsChanged, false);
    if (std::exchange(m_allChanged, false) || !m_context.refreshLists)
        m_context.refresh();
    else if (lists)
        m_context.refreshLists();
}

InstanceReply CInstanceHost::RunTimer(const QJsonObject& arguments) {
    if (IsBusy()) return Refused(Text::WindowIsBusy);
    // A record that the console added a moment ago is known before its timer is started.
    if (m_delay.isActive()) {
        m_delay.stop();
        ShowChanges();
    }
    return RunTimerMessage(arguments, m_context.timers, m_context.document);
}

/// Whatever the user has set about changes from outside: records that are gone can't stay in the window. What
/// is being entered in a dialog would be lost, so the question comes first.
InstanceReply CInstanceHost::Refresh(const RefreshRequest& request) {
    if (request.isQuestion && m_context.hasDialog()) return Refused(Text::DialogIsOpen);
    if (request.isQuestion && IsBusy()) return Refused(Text::WindowIsBusy);
    if (!request.isQuestion) NoteChange({});
    return InstanceReply::Done();
}

InstanceReply CInstanceHost::RunSetting(const QJsonObject& arguments) {
    InstanceReply reply = RunSettingsMessage(arguments, m_context.settings, m_context.document.Clock());
    if (reply) NoteChange({});  // anything may look different now
    return reply;
}

/// A dialog in which the user is entering something isn't thrown away: the window comes forward instead.
InstanceReply CInstanceHost::Leave() {
    m_context.raise();
    if (m_context.hasDialog()) return Refused(Text::DialogIsOpen);
    QMetaObject::invokeMethod(
        this, [this] { m_context.leave(); }, Qt::QueuedConnection);
    return InstanceReply::Done();
}
