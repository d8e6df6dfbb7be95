#pragma once

#include "platform/instance/CInstanceChannel.h"

#include <QString>
#include <QStringList>
#include <chrono>
#include <optional>

class CWaitBudget;
struct OutsideChange;
enum class RecordKind : int;

/// The running window of the same home, if there is one. Where none runs, every question here costs one look
/// at a lock.
class CWindowLink {
 public:
    /// budget: how long the command may wait for other programs, the window among them.
    CWindowLink(const QString& home, CWaitBudget& budget) : m_home(home), m_budget(budget) {}

    [[nodiscard]] const QString& Home() const { return m_home; }
    /// Whether a window runs, or is about to: it owns timers and settings then.
    [[nodiscard]] bool IsThere() const;
    /// Waits for a window that is still starting, three seconds at most, and for one that is busy, as long as
    /// the command may wait. False when it can't be told anything, or has ended meanwhile.
    [[nodiscard]] bool Reach();
    /// Hands a command over and waits for the answer. A window that owns what is asked for and can't change
    /// it now is asked again as long as the command may wait, one that is ending for a second. Nothing when
    /// it doesn't answer.
    [[nodiscard]] std::optional<InstanceReply> Ask(const InstanceMessage& message);
    /// The same for what can be had without the window too: waits three seconds at most.
    [[nodiscard]] std::optional<InstanceReply> AskShortly(const InstanceMessage& message);
    /// Tells that records of a kind were changed, so that the window shows it at once. False when a window
    /// runs and could not be told. listsToo: pick lists as well, which the window reads anew then.
    [[nodiscard]] bool TellChanged(RecordKind kind, const QStringList& ids, bool listsToo = false);
    /// Tells that anything may have changed.
    [[nodiscard]] bool TellAllChanged();

    // For a command that replaces all records.

    /// Asks the window whether it can read everything anew. Done also where none runs; where it doesn't
    /// answer it owns what it shows.
    [[nodiscard]] InstanceReply AskForRefresh();
    /// Has it do so, whatever the user has set about changes from outside. False when a window runs and could
    /// not be told.
    [[nodiscard]] bool TellReplaced();

    static constexpr int kMostIds = 1000;  ///< with more than these the window reads everything anew

 private:
    using Time = std::chrono::milliseconds;
    [[nodiscard]] bool Reach(Time limit);
    [[nodiscard]] std::optional<InstanceReply> AskOnce(const InstanceMessage& message, Time limit);
    [[nodiscard]] bool Post(const InstanceMessage& message);

    QString m_home;
    CWaitBudget& m_budget;
    CInstanceClient m_client;
    bool m_isReached = false;
    bool m_isMute = false;
};
