#include "platform/instance/InstanceProtocol.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QJsonDocument>
#include <cstddef>
#include <cstring>

#include <unistd.h>

namespace InstanceProtocol {

Address AddressOf(const QString& home) {
    const QFileInfo folder(home);
    const QString real = folder.exists() ? folder.canonicalFilePath() : folder.absoluteFilePath();
    const QByteArray hash =
        QCryptographicHash::hash(real.toUtf8(), QCryptographicHash::Sha256).toHex().left(32);
    const QByteArray name = "velmarch-" + QByteArray::number(::geteuid()) + '-' + hash;
    Address address;
    address.name.sun_family = AF_UNIX;
    // A leading zero byte: the name lies in the kernel's own space, not in a folder.
    std::memcpy(address.name.sun_path + 1, name.constData(), static_cast<std::size_t>(name.size()));
    address.length =
        static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + static_cast<std::size_t>(name.size()));
    return address;
}

bool IsSameUser(int socket) {
    ucred peer{};
    socklen_t length = sizeof peer;
    return ::getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &length) == 0 && peer.uid == ::geteuid();
}

QByteArray ToLine(const QJsonObject& message) {
    return QJsonDocument(message).toJson(QJsonDocument::Compact) + '\n';
}

/// Qt's reader drops a U+FEFF at the beginning of a text, unless it is escaped.
std::optional<QJsonObject> FromLine(const QByteArray& line) {
    const QJsonDocument document =
        QJsonDocument::fromJson(QByteArray(line).replace("\xEF\xBB\xBF", "\\ufeff"));
    if (!document.isObject()) return std::nullopt;
    return document.object();
}

}  // namespace InstanceProtocol
