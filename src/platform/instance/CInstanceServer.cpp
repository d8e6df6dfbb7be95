#include "platform/instance/CInstanceChannel.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QTimer>
#include <algorithm>
#include <cerrno>
#include <deque>
#include <utility>

#include <unistd.h>

#include "platform/host/ErrorText.h"
#include "platform/instance/InstanceProtocol.h"

namespace {

/// Callers at once; the one that called first hangs longest and has to go when another comes.
constexpr std::size_t kMostClients = 200;
/// Commands of one caller that may wait; no more is read from it until they are carried out.
constexpr int kMostWaiting = 100;
/// Answers that a caller hasn't fetched.
constexpr qsizetype kMostUnread = 16 * InstanceProtocol::kMaxLine;
constexpr int kPauseMs = 100;

}  // namespace

/// Everything runs from the event loop. Reading only queues commands, and one after another is carried out by
/// a call of its own, so a handler that opens a box (and with it another event loop) is never entered again
/// before it is done, while callers are still heard.
class CInstanceServer::Worker final : public QObject, public std::enable_shared_from_this<Worker> {
 public:
    Worker(int listener, QString title, Handler handler);
    ~Worker() override { Close(); }
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;
    void Close();

 private:
    /// One caller.
    struct Client {
        explicit Client(int handle) : socket(handle) {}
        ~Client() {
            Silence();
            ::close(socket);
        }
        Client(const Client&) = delete;
        Client& operator=(const Client&) = delete;
        void Silence() {
            readable.reset();
            writable.reset();
        }

        int socket;
        QByteArray in;
        QByteArray out;
        int waiting = 0;  ///< commands of it in the queue
        bool isGone = false;
        std::unique_ptr<QSocketNotifier> readable;
        std::unique_ptr<QSocketNotifier> writable;
    };
    using ClientPtr = std::shared_ptr<Client>;
    struct Job {
        ClientPtr client;
        InstanceMessage message;
        std::optional<int> id;  ///< nothing for a posted command
    };

    void Accept();
    void Add(int socket);
    void Drop(const ClientPtr& client);
    void Receive(const ClientPtr& client);
    void TakeLines(const ClientPtr& client);
    [[nodiscard]] bool Understand(const ClientPtr& client, const QJsonObject& message);
    void Queue(Job job);
    void RunNext();
    [[nodiscard]] static bool IsWanted(const Job& job);
    void Reply(const ClientPtr& client, const QJsonObject& message);
    void Flush(const ClientPtr& client);

    int m_listener;
    QString m_title;
    Handler m_handler;
    std::unique_ptr<QSocketNotifier> m_callers;
    std::deque<ClientPtr> m_clients;
    std::deque<Job> m_jobs;
    bool m_isRunning = false;
};

CInstanceServer::Worker::Worker(int listener, QString title, Handler handler)
    : m_listener(listener),
      m_title(std::move(title)),
      m_handler(std::move(handler)),
      m_callers(std::make_unique<QSocketNotifier>(listener, QSocketNotifier::Read)) {
    connect(m_callers.get(), &QSocketNotifier::activated, this, [this] { Accept(); });
}

void CInstanceServer::Worker::Close() {
    if (m_listener < 0) return;
    m_callers.reset();
    ::close(std::exchange(m_listener, -1));
    m_jobs.clear();
    for (const ClientPtr& client : m_clients) client->Silence();
    m_clients.clear();
}

void CInstanceServer::Worker::Accept() {
    while (true) {
        const int socket = ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
        if (socket >= 0) {
            Add(socket);
        } else if (errno == EMFILE || errno == ENFILE || errno == ENOMEM || errno == ENOBUFS) {
            // The caller stays in the kernel's queue; asking again at once would only turn in a circle.
            m_callers->setEnabled(false);
            QTimer::singleShot(kPauseMs, this, [this] {
                if (m_callers) m_callers->setEnabled(true);
            });
            return;
        } else if (errno != EINTR && errno != ECONNABORTED) {
            return;
        }
    }
}

void CInstanceServer::Worker::Add(int socket) {
    const auto client = std::make_shared<Client>(socket);
    if (!InstanceProtocol::IsSameUser(socket)) return;
    if (m_clients.size() >= kMostClients) Drop(ClientPtr(m_clients.front()));
    m_clients.push_back(client);
    client->readable = std::make_unique<QSocketNotifier>(socket, QSocketNotifier::Read);
    client->writable = std::make_unique<QSocketNotifier>(socket, QSocketNotifier::Write);
    client->writable->setEnabled(false);
    const std::weak_ptr<Client> caller = client;
    connect(client->readable.get(), &QSocketNotifier::activated, this, [this, caller] {
        if (const ClientPtr alive = caller.lock()) Receive(alive);
    });
    connect(client->writable.get(), &QSocketNotifier::activated, this, [this, caller] {
        if (const ClientPtr alive = caller.lock()) Flush(alive);
    });
}

/// The object goes a little later: a notifier must not be deleted while it is telling something.
void CInstanceServer::Worker::Drop(const ClientPtr& client) {
    if (client->isGone) return;
    client->isGone = true;
    if (client->readable) client->readable->setEnabled(false);
    if (client->writable) client->writable->setEnabled(false);
    ::shutdown(client->socket, SHUT_RDWR);
    std::erase(m_clients, client);
    QMetaObject::invokeMethod(
        qApp, [client] {}, Qt::QueuedConnection);
}

void CInstanceServer::Worker::Receive(const ClientPtr& client) {
    char buffer[16384];
    const ssize_t got = ::recv(client->socket, buffer, sizeof buffer, MSG_DONTWAIT);
    if (got > 0) {
        client->in.append(buffer, got);
        TakeLines(client);
    } else if (got == 0 || (errno != EAGAIN && errno != EINTR)) {
        Drop(client);
    }
}

/// Takes the whole lines that have come, as long as not too many commands wait.
void CInstanceServer::Worker::TakeLines(const ClientPtr& client) {
    qsizetype from = 0;
    while (!client->isGone && client->waiting < kMostWaiting) {
        const qsizetype end = client->in.indexOf('\n', from);
        if (end < 0) break;
        const auto message = InstanceProtocol::FromLine(client->in.mid(from, end - from));
        from = end + 1;
        if (!message || !Understand(client, *message)) Drop(client);
    }
    client->in.remove(0, from);
    if (client->isGone) return;
    client->readable->setEnabled(client->waiting < kMostWaiting);
    if (client->in.size() > InstanceProtocol::kMaxLine && client->in.indexOf('\n') < 0) Drop(client);
}

/// False when the message is none of ours.
bool CInstanceServer::Worker::Understand(const ClientPtr& client, const QJsonObject& message) {
    const QJsonObject arguments = message.value(InstanceProtocol::kArguments).toObject();
    if (const QJsonValue title = message.value(InstanceProtocol::kFind); title.isString()) {
        Reply(client, {{InstanceProtocol::kFound, title.toString() == m_title}});
        return true;
    }
    if (const QJsonValue command = message.value(InstanceProtocol::kPost); command.isDouble()) {
        Queue({client, {static_cast<InstanceCommand>(command.toInt()), arguments}, std::nullopt});
        Reply(client, {{InstanceProtocol::kReceived, true}});
        return true;
    }
    if (const QJsonValue command = message.value(InstanceProtocol::kSend); command.isDouble()) {
        Queue({client,
               {static_cast<InstanceCommand>(command.toInt()), arguments},
               message.value(InstanceProtocol::kId).toInt()});
        return true;
    }
    return false;
}

void CInstanceServer::Worker::Queue(Job job) {
    ++job.client->waiting;
    m_jobs.push_back(std::move(job));
    QMetaObject::invokeMethod(
        this, [this] { RunNext(); }, Qt::QueuedConnection);
}

void CInstanceServer::Worker::RunNext() {
    if (m_isRunning || m_jobs.empty()) return;
    const std::shared_ptr<Worker> self = shared_from_this();  // the handler may close the channel
    m_isRunning = true;
    const Job job = std::move(m_jobs.front());
    m_jobs.pop_front();
    if (IsWanted(job)) {
        const InstanceReply reply = m_handler(job.message);
        if (job.id)
            Reply(job.client,
                  {{InstanceProtocol::kId, *job.id}, {InstanceProtocol::kAnswer, reply.ToJson()}});
    }
    m_isRunning = false;
    if (m_listener < 0) {
        // Closed meanwhile: this object may not be deleted from within a call of its own.
        QMetaObject::invokeMethod(
            qApp, [self] {}, Qt::QueuedConnection);
        return;
    }
    --job.client->waiting;
    if (!job.client->isGone) TakeLines(job.client);
    if (!m_jobs.empty())
        QMetaObject::invokeMethod(
            this, [this] { RunNext(); }, Qt::QueuedConnection);
}

/// A command whose sender has hung up is dropped: it gave up waiting and has told its user so. A posted one
/// is carried out all the same.
bool CInstanceServer::Worker::IsWanted(const Job& job) {
    if (!job.id) return true;
    char next = 0;
    return !job.client->isGone && ::recv(job.client->socket, &next, 1, MSG_PEEK | MSG_DONTWAIT) != 0;
}

void CInstanceServer::Worker::Reply(const ClientPtr& client, const QJsonObject& message) {
    if (client->isGone) return;
    client->out += InstanceProtocol::ToLine(message);
    Flush(client);
    if (client->out.size() > kMostUnread) Drop(client);
}

/// Sends what the caller takes without making anybody wait.
void CInstanceServer::Worker::Flush(const ClientPtr& client) {
    while (!client->out.isEmpty()) {
        const ssize_t sent =
            ::send(client->socket, client->out.constData(), static_cast<std::size_t>(client->out.size()),
                   MSG_NOSIGNAL | MSG_DONTWAIT);
        if (sent >= 0) {
            client->out.remove(0, sent);
        } else if (errno == EAGAIN) {
            break;
        } else if (errno != EINTR) {
            Drop(client);
            return;
        }
    }
    if (client->writable) client->writable->setEnabled(!client->out.isEmpty());
}

namespace {

/// Names of the kernel's own space can be taken by anybody.
bool IsTakenByAnotherUser(const InstanceProtocol::Address& address) {
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (socket < 0) return false;
    const bool isAnswered =
        ::connect(socket, reinterpret_cast<const sockaddr*>(&address.name), address.length) == 0;
    const bool isStrange = isAnswered && !InstanceProtocol::IsSameUser(socket);
    ::close(socket);
    return isStrange;
}

QString WhyNotHeard(const InstanceProtocol::Address& address, int error) {
    if (error != EADDRINUSE)
        return QStringLiteral("Commands from other programs can't be received: %1.").arg(ErrorText(error));
    if (IsTakenByAnotherUser(address))
        return QStringLiteral(
            "A program of another user has taken the name under which this window would be "
            "found. Ask the administrator of this computer which one it is.");
    return QStringLiteral("Another window of this folder is there already.");
}

}  // namespace

CInstanceServer::CInstanceServer() = default;

CInstanceServer::~CInstanceServer() {
    Close();
}

bool CInstanceServer::Listen(const QString& home, const QString& title, Handler handler) {
    Close();
    m_error.clear();
    const InstanceProtocol::Address address = InstanceProtocol::AddressOf(home);
    const int listener = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (listener < 0 ||
        ::bind(listener, reinterpret_cast<const sockaddr*>(&address.name), address.length) != 0 ||
        ::listen(listener, SOMAXCONN) != 0) {
        m_error = WhyNotHeard(address, errno);
        if (listener >= 0) ::close(listener);
        return false;
    }
    m_worker = std::make_shared<Worker>(listener, title, std::move(handler));
    return true;
}

void CInstanceServer::Close() {
    if (m_worker) m_worker->Close();
    m_worker.reset();
}
