#pragma once

#include <QJsonObject>
#include <QString>

/// The commands that travel between the processes of a home. The numbers are fixed: a program of another
/// version may be at the other end, and may send one that isn't among these.
enum class InstanceCommand : int {
    Raise = 1,        ///< come to the front
    Timer = 2,        ///< a timer command
    Setting = 3,      ///< a change of what the settings hold
    SyncEnd = 1045,   ///< data changed outside
    Refresh = 32780,  ///< all records were replaced
    Exit = 57665      ///< leave the program
};

/// A command with its arguments, which its request type reads and writes. See docs/architecture.md.
struct InstanceMessage {
    InstanceCommand command;
    QJsonObject arguments = {};
};

/// How a command ended. The numbers are those of the channel, and fixed too.
enum class ReplyReason : int {
    Done = 0,
    Failed = 1,
    NotUnderstood = 2,  ///< arguments that are unknown or out of range
    WindowOwns = 3,     ///< the window owns what was asked for and can't change it now
    NotFound = 4,       ///< a record, a name
    WindowEnds = 5      ///< the window owns it, and doesn't change it any more
};

/// The reply to a command: {"ok": true} with the payload beside it, or {"ok": false, "exit": reason, "error":
/// words}.
struct [[nodiscard]] InstanceReply {
    ReplyReason reason = ReplyReason::Done;
    QString words;        ///< why it wasn't done, for the user
    QJsonObject payload;  ///< what was asked for

    explicit operator bool() const { return reason == ReplyReason::Done; }

    static InstanceReply Done(QJsonObject payload = {});
    static InstanceReply Refused(ReplyReason reason, const QString& words);

    [[nodiscard]] QJsonObject ToJson() const;
    /// A reason that is unknown here, from a program of another version, is a failure.
    static InstanceReply FromJson(const QJsonObject& json);
};
