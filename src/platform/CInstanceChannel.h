#pragma once

#include <QJsonObject>
#include <QString>
#include <functional>
#include <memory>
#include <optional>

/// The commands that travel between instances.
namespace InstanceCommand {
inline constexpr int kSyncEnd = 1045;  ///< data changed outside: refresh
inline constexpr int kExit = 57665;    ///< leave the program
inline constexpr int kRaise = 1;       ///< come to the front
inline constexpr int kTimer = 2;       ///< a timer command, see docs/architecture.md
inline constexpr int kSetting = 3;     ///< change a setting
}  // namespace InstanceCommand

/// The receiving end, owned by the running window of a home. Answers only processes of the same user.
/// Needs a running event loop (QCoreApplication).
class CInstanceServer {
 public:
    /// Handles one command; what it returns goes back to a sender that waits.
    using Handler = std::function<QJsonObject(int command, const QJsonObject& arguments)>;

    CInstanceServer();
    ~CInstanceServer();

    /// title: the text by which the window is found. False when the address is taken or can't be made: see
    /// Error().
    [[nodiscard]] bool Listen(const QString& home, const QString& title, Handler handler);
    void Close();
    [[nodiscard]] const QString& Error() const { return m_error; }

 private:
    class Worker;
    std::unique_ptr<Worker> m_worker;
    QString m_error;
};

/// The sending end. Needs no event loop; every wait is bounded.
class CInstanceClient {
 public:
    CInstanceClient();
    ~CInstanceClient();

    /// Looks for the running window of a home by its title.
    [[nodiscard]] bool FindWindow(const QString& home, const QString& title, int timeoutMs = 2000);
    /// Hands a command over without waiting for it to be carried out.
    [[nodiscard]] bool Post(int command, const QJsonObject& arguments = {});
    /// Hands a command over and waits for its answer; nothing when none came in time.
    [[nodiscard]] std::optional<QJsonObject> Send(int command, const QJsonObject& arguments = {},
                                                  int timeoutMs = 10000);

 private:
    [[nodiscard]] bool Write(const QByteArray& line, int timeoutMs);
    int m_socket = -1;
    QByteArray m_pending;
};
