#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <optional>

#include <sys/socket.h>
#include <sys/un.h>

/// What both ends of the instance channel share. One message is one JSON object on one line:
///   {"find": TITLE}                                  answered by {"found": true or false}
///   {"post": COMMAND, "arguments": {...}}            answered by {"received": true} before it is carried out
///   {"send": COMMAND, "id": N, "arguments": {...}}   answered by {"id": N, "answer": {...}} afterwards
namespace InstanceProtocol {

inline constexpr QLatin1String kFind("find");
inline constexpr QLatin1String kFound("found");
inline constexpr QLatin1String kPost("post");
inline constexpr QLatin1String kReceived("received");
inline constexpr QLatin1String kSend("send");
inline constexpr QLatin1String kId("id");
inline constexpr QLatin1String kArguments("arguments");
inline constexpr QLatin1String kAnswer("answer");

/// A longer line from a client ends the conversation.
inline constexpr qsizetype kMaxLine = 1 << 20;

struct Address {
    sockaddr_un name{};
    socklen_t length = 0;
};
/// The address of a home's window: a name in the kernel, made from the user and the home's real path, so that
/// nothing lies about on the disk.
[[nodiscard]] Address AddressOf(const QString& home);

/// Whether the other end of a connection runs as the same user.
[[nodiscard]] bool IsSameUser(int socket);

[[nodiscard]] QByteArray ToLine(const QJsonObject& message);
/// Nothing when the line is no JSON object.
[[nodiscard]] std::optional<QJsonObject> FromLine(const QByteArray& line);

}  // namespace InstanceProtocol
