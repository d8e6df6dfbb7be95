#pragma once

#include "platform/instance/CInstanceChannel.h"

#include <QString>
#include <QStringList>
#include <optional>

struct OutsideChange;
enum class RecordKind : int;

/// The running window of the same home, if there is one. Where none runs, every question here costs one look
/// at a lock.
class CWindowLink {
 public:
    explicit CWindowLink(const QString& home) : m_home(home) {}

    /// Whether a window runs, or is about to: it owns timers and settings then.
    [[nodiscard]] bool IsThere() const;
    /// Waits for a window that is still starting, three seconds at most. False when it can't be told
    /// anything, or has ended meanwhile.
    [[nodiscard]] bool Reach();
    /// Hands a command over and waits for the answer; nothing when the window doesn't answer.
    [[nodiscard]] std::optional<InstanceReply> Ask(const InstanceMessage& message);
    /// Tells that records of a kind were changed, so that the window shows it at once. False when a window
    /// runs and could not be told. listsToo: pick lists as well, which the window reads anew then.
    [[nodiscard]] bool TellChanged(RecordKind kind, const QStringList& ids, bool listsToo = false);
    /// Tells that anything may have changed.
    [[nodiscard]] bool TellAllChanged();

    static constexpr int kMostIds = 1000;  ///< with more than these the window reads everything anew

 private:
    [[nodiscard]] bool Post(const OutsideChange& change);

    QString m_home;
    CInstanceClient m_client;
    bool m_isReached = false;
    bool m_isMute = false;
};
