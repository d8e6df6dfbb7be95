#include "viewmodel/program/CInstanceHost.h"

#include "app/CVelmarchDoc.h"
#include "config/CCfgStore.h"
#include "entry/DefaultsCommand.h"
#include "lang/LoadText.h"
#include "timers/CRecordTimers.h"
#include "timers/TimerCommand.h"

#include <QJsonArray>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kGatherMs = 60;
constexpr int kExitOwned = 3;  ///< the window owns what was asked for and can't do it now

QJsonObject Done() {
    return {{u"ok"_s, true}};
}

QJsonObject Refused(Text why) {
    return {{u"ok"_s, false}, {u"exit"_s, kExitOwned}, {u"error"_s, LoadText(why)}};
}

}  // namespace

CInstanceHost::CInstanceHost(Context context, QObject* parent)
    : QObject(parent), m_context(std::move(context)) {
    m_delay.setSingleShot(true);
    m_delay.setInterval(kGatherMs);
    connect(&m_delay, &QTimer::timeout, this, &CInstanceHost::ShowChanges);
}

bool CInstanceHost::Listen(const QString& home, const QString& title) {
    return m_server.Listen(home, title, [this](int command, const QJsonObject& arguments) {
        return Handle(command, arguments);
    });
}

QJsonObject CInstanceHost::Handle(int command, const QJsonObject& arguments) {
    switch (command) {
        case InstanceCommand::kSyncEnd:
            if (m_context.settings.refreshOnSyncEnd) NoteChange(arguments);
            return Done();
        case InstanceCommand::kRaise:
            m_context.raise();
            return Done();
        case InstanceCommand::kExit:
            return Leave();
        case InstanceCommand::kTimer:
            return RunTimer(arguments);
        case InstanceCommand::kSetting:
            return RunSetting(arguments);
        default:
            return Refused(Text::UnknownInstanceCommand);
    }
}

/// Without identities anything may have changed; with "lists" the pick lists have.
void CInstanceHost::NoteChange(const QJsonObject& arguments) {
    const QJsonArray ids = arguments.value(u"ids"_s).toArray();
    const bool ofTime = arguments.value(u"kind"_s).toString(u"time"_s) == u"time"_s;
    if (ids.isEmpty()) m_allChanged = true;
    if (arguments.value(u"lists"_s).toBool()) m_listsChanged = true;
    for (const auto& id : ids) (ofTime ? m_changedTimes : m_changedExpenses).append(id.toString());
    if (!m_delay.isActive()) m_delay.start();
}

void CInstanceHost::ShowChanges() {
    if (m_context.isBusy()) return m_delay.start();
    const QStringList times = std::exchange(m_changedTimes, {});
    const QStringList expenses = std::exchange(m_changedExpenses, {});
    const bool lists = std::exchange(m_listsChanged, false);
    const bool all = std::exchange(m_allChanged, false) || (lists && !m_context.refreshLists);
    const auto isShown = [this](RecordKind kind, const QStringList& ids) {
        return ids.isEmpty() || m_context.document.RefreshRecords(kind, ids);
    };
    if (all || !isShown(RecordKind::Time, times) || !isShown(RecordKind::Expense, expenses))
        m_context.refresh();
    else if (lists)
        m_context.refreshLists();
}

QJsonObject CInstanceHost::RunTimer(const QJsonObject& arguments) {
    if (m_context.isBusy()) return Refused(Text::WindowIsBusy);
    // A record that the console added a moment ago is known before its timer is started.
    if (m_delay.isActive()) {
        m_delay.stop();
        ShowChanges();
    }
    return RunTimerCommand(arguments, m_context.timers, m_context.document);
}

QJsonObject CInstanceHost::RunSetting(const QJsonObject& arguments) {
    QJsonObject answer = RunSettingsRequest(arguments, m_context.settings, m_context.document.Clock());
    if (answer.value(u"ok"_s).toBool()) {
        m_allChanged = true;
        if (!m_delay.isActive()) m_delay.start();
    }
    return answer;
}

/// A dialog in which the user is entering something isn't thrown away: the window comes forward instead.
QJsonObject CInstanceHost::Leave() {
    m_context.raise();
    if (m_context.hasDialog()) return Refused(Text::DialogIsOpen);
    QMetaObject::invokeMethod(
        this, [this] { m_context.leave(); }, Qt::QueuedConnection);
    return Done();
}
