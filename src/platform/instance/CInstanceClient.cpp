#include "platform/instance/CInstanceChannel.h"

#include <QDeadlineTimer>
#include <QRandomGenerator>
#include <algorithm>
#include <cerrno>
#include <chrono>
#include <thread>
#include <utility>

#include <poll.h>
#include <unistd.h>

#include "platform/instance/InstanceProtocol.h"

namespace {

/// How long a window may take to say that it has received a command.
constexpr int kReceiptMs = 2000;

/// Waits until the socket can be read or written; false at the deadline.
bool WaitFor(int socket, short events, const QDeadlineTimer& deadline) {
    pollfd wait{.fd = socket, .events = events, .revents = 0};
    while (true) {
        const auto left = std::clamp<qint64>(deadline.remainingTime(), 0, 60'000);
        const int ready = ::poll(&wait, 1, static_cast<int>(left));
        if (ready > 0) return true;
        if ((ready == 0 || errno != EINTR) && deadline.hasExpired()) return false;
    }
}

/// A socket connected to the address; -1 when nobody listens there or the time is up. While the window's
/// queue of callers is full the kernel says EAGAIN.
int ConnectTo(const InstanceProtocol::Address& address, const QDeadlineTimer& deadline) {
    const int handle = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (handle < 0) return -1;
    const auto* name = reinterpret_cast<const sockaddr*>(&address.name);
    while (::connect(handle, name, address.length) != 0) {
        if ((errno != EAGAIN && errno != EINTR) || deadline.hasExpired()) {
            ::close(handle);
            return -1;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return handle;
}

}  // namespace

CInstanceClient::CInstanceClient() = default;

CInstanceClient::~CInstanceClient() {
    Close();
}

void CInstanceClient::Close() {
    if (m_socket >= 0) ::close(std::exchange(m_socket, -1));
    m_pending.clear();
}

bool CInstanceClient::FindWindow(const QString& home, const QString& title, int timeoutMs) {
    Close();
    const QDeadlineTimer deadline(timeoutMs);
    m_socket = ConnectTo(InstanceProtocol::AddressOf(home), deadline);
    if (m_socket < 0) return false;
    if (InstanceProtocol::IsSameUser(m_socket) && Write({{InstanceProtocol::kFind, title}}, deadline)) {
        const auto answer = Read(deadline);
        if (answer && answer->value(InstanceProtocol::kFound).toBool()) return true;
    }
    Close();
    return false;
}

bool CInstanceClient::Post(const InstanceMessage& message) {
    const QDeadlineTimer deadline(kReceiptMs);
    const QJsonObject line{{InstanceProtocol::kPost, static_cast<int>(message.command)},
                           {InstanceProtocol::kArguments, message.arguments}};
    if (!Write(line, deadline)) return false;
    while (m_socket >= 0) {
        const auto answer = Read(deadline);
        if (answer && answer->contains(InstanceProtocol::kReceived)) return true;
        // No receipt, but the connection stands: the command lies in the window's queue, which is busy.
        if (!answer && m_socket >= 0) return true;
    }
    return false;
}

std::optional<InstanceReply> CInstanceClient::Send(const InstanceMessage& message, int timeoutMs) {
    const QDeadlineTimer deadline(timeoutMs);
    ++m_lastId;
    const QJsonObject line{{InstanceProtocol::kSend, static_cast<int>(message.command)},
                           {InstanceProtocol::kId, m_lastId},
                           {InstanceProtocol::kArguments, message.arguments}};
    if (!Write(line, deadline)) return std::nullopt;
    while (const auto answer = Read(deadline)) {
        if (answer->value(InstanceProtocol::kId).toInt() != m_lastId) continue;
        return InstanceReply::FromJson(answer->value(InstanceProtocol::kAnswer).toObject());
    }
    // Hanging up tells the window to drop the command if it hasn't begun with it.
    Close();
    return std::nullopt;
}

/// False when the message is too long, or the window is gone or doesn't read in time.
bool CInstanceClient::Write(const QJsonObject& line, const QDeadlineTimer& deadline) {
    const QByteArray bytes = InstanceProtocol::ToLine(line);
    if (m_socket < 0 || bytes.size() > InstanceProtocol::kMaxLine) return false;
    QByteArrayView rest(bytes);
    while (!rest.isEmpty()) {
        const ssize_t sent =
            ::send(m_socket, rest.data(), static_cast<std::size_t>(rest.size()), MSG_NOSIGNAL | MSG_DONTWAIT);
        if (sent > 0) rest = rest.sliced(sent);
        if (sent >= 0 || errno == EINTR) continue;
        if (errno != EAGAIN || !WaitFor(m_socket, POLLOUT, deadline)) {
            Close();
            return false;
        }
    }
    return true;
}

/// The next message; nothing when the time is up (the connection then stands) or the window is gone.
std::optional<QJsonObject> CInstanceClient::Read(const QDeadlineTimer& deadline) {
    while (m_socket >= 0) {
        if (const qsizetype end = m_pending.indexOf('\n'); end >= 0) {
            const QByteArray line = m_pending.left(end);
            m_pending.remove(0, end + 1);
            if (auto message = InstanceProtocol::FromLine(line)) return message;
            Close();
            break;
        }
        if (!WaitFor(m_socket, POLLIN, deadline)) break;
        char buffer[16384];
        const ssize_t got = ::recv(m_socket, buffer, sizeof buffer, MSG_DONTWAIT);
        if (got > 0) m_pending.append(buffer, got);
        if (got == 0 || (got < 0 && errno != EAGAIN && errno != EINTR)) Close();
    }
    return std::nullopt;
}
