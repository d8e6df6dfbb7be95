#pragma once

#include "platform/instance/InstanceMessage.h"

#include <QByteArray>
#include <QDeadlineTimer>
#include <QString>
#include <functional>
#include <memory>
#include <optional>

/// The receiving end, owned by the running window of a home. Answers only processes of the same user.
/// Needs a running event loop (QCoreApplication). Commands are handled one after another in the order they
/// came, never one within another, even while a handler has a box on the screen.
class CInstanceServer {
 public:
    /// Handles one command; what it returns goes back to a sender that waits.
    using Handler = std::function<InstanceReply(const InstanceMessage& message)>;

    CInstanceServer();
    ~CInstanceServer();
    CInstanceServer(const CInstanceServer&) = delete;
    CInstanceServer& operator=(const CInstanceServer&) = delete;

    /// title: the text by which the window is found. False when the address is taken or can't be made: see
    /// Error().
    [[nodiscard]] bool Listen(const QString& home, const QString& title, Handler handler);
    /// Allowed in a handler too: its answer still goes out.
    void Close();
    [[nodiscard]] const QString& Error() const { return m_error; }

 private:
    class Worker;
    std::shared_ptr<Worker> m_worker;
    QString m_error;
};

/// The sending end. Needs no event loop; every wait is bounded.
class CInstanceClient {
 public:
    CInstanceClient();
    ~CInstanceClient();
    CInstanceClient(const CInstanceClient&) = delete;
    CInstanceClient& operator=(const CInstanceClient&) = delete;

    /// Looks for the running window of a home by its title.
    [[nodiscard]] bool FindWindow(const QString& home, const QString& title, int timeoutMs = 2000);
    /// Hands a command over without waiting for it to be carried out. Once it returns true the command isn't
    /// lost when this program ends.
    [[nodiscard]] bool Post(const InstanceMessage& message);
    /// Hands a command over and waits for its answer; nothing when none came in time. The connection is then
    /// closed, and the window drops the command if it hasn't begun with it.
    [[nodiscard]] std::optional<InstanceReply> Send(const InstanceMessage& message, int timeoutMs = 10000);

 private:
    void Close();
    [[nodiscard]] bool Write(const QJsonObject& line, const QDeadlineTimer& deadline);
    [[nodiscard]] std::optional<QJsonObject> Read(const QDeadlineTimer& deadline);

    int m_socket = -1;
    int m_lastId = 0;
    QByteArray m_pending;
};
