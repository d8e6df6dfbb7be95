#pragma once

#include "platform/instance/CInstanceChannel.h"

#include <QObject>
#include <QStringList>
#include <QTimer>
#include <functional>

class CCfgStore;
class CRecordTimers;
class CVelmarchDoc;
struct OutsideChange;
struct RefreshRequest;

/// What the running window does for other processes of its home: it comes forward, leaves, shows what changed
/// outside, and carries out commands on what it owns, timers and settings.
class CInstanceHost final : public QObject {
    Q_OBJECT

 public:
    struct Context {
        CVelmarchDoc& document;
        CRecordTimers& timers;
        CCfgStore& settings;
        std::function<void()> refresh;  ///< reads everything again
        std::function<void()> raise;
        std::function<void()> leave;
        std::function<bool()> isBusy;             ///< records are being read
        std::function<bool()> hasDialog;          ///< something waits for the user's answer
        std::function<void()> refreshLists = {};  ///< reads the pick lists again; empty: everything
    };
    explicit CInstanceHost(Context context, QObject* parent = nullptr);

    [[nodiscard]] bool Listen(const QString& home, const QString& title);
    [[nodiscard]] const QString& Error() const { return m_server.Error(); }

    /// One command; the answer for a sender that waits.
    InstanceReply Handle(const InstanceMessage& message);

    /// The window ends: from here on it only comes forward, with whatever is still asked in its end, and
    /// refuses everything else in words. What changes outside isn't shown any more.
    void BeginEnd();

 private:
    void NoteChange(const OutsideChange& change);
    void ShowChanges();
    [[nodiscard]] bool IsBusy() const;
    [[nodiscard]] InstanceReply Refresh(const RefreshRequest& request);
    [[nodiscard]] InstanceReply RunTimer(const QJsonObject& arguments);
    [[nodiscard]] InstanceReply RunSetting(const QJsonObject& arguments);
    [[nodiscard]] InstanceReply Leave();

    Context m_context;
    CInstanceServer m_server;
    QTimer m_delay;  ///< gathers what comes within a moment: 5,000 changes are shown in a few steps
    QStringList m_changedTimes, m_changedExpenses;
    bool m_allChanged = false;
    bool m_listsChanged = false;
    bool m_isEnding = false;
};
