#include "platform/instance/CInstanceChannel.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <atomic>
#include <csignal>
#include <map>
#include <thread>
#include <vector>

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/instance/InstanceProtocol.h"
#include "support/TestProgram.h"

namespace {

const QString kTitle = u"Velmarch"_qs;

/// Does the work beside the event loop, as another program would, while the loop turns.
template <typename Work>
auto Context(Work work) {
    decltype(work()) result{};
    std::atomic<bool> isDone = false;
    std::thread other([&] {
        result = work();
        isDone = true;
    });
    while (!isDone) QTest::qWait(1);
    other.join();
    return result;
}

InstanceMessage Message(int command, const QJsonObject& arguments = {}) {
    return {static_cast<InstanceCommand>(command), arguments};
}

int Number(const InstanceMessage& message) {
    return static_cast<int>(message.command);
}

/// Lets the loop turn for a while, as a box on the screen does.
void TurnLoop(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

/// A connection that says what it likes.
class RawCaller {
 public:
    explicit RawCaller(const QString& home) : m_socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        const auto address = InstanceProtocol::AddressOf(home);
        isConnected =
            ::connect(m_socket, reinterpret_cast<const sockaddr*>(&address.name), address.length) == 0;
    }
    ~RawCaller() { ::close(m_socket); }
    RawCaller(const RawCaller&) = delete;
    RawCaller& operator=(const RawCaller&) = delete;
    /// What could be sent without waiting long.
    qsizetype Say(const QByteArray& bytes, int patienceMs = 300) const {
        qsizetype sent = 0;
        while (sent < bytes.size()) {
            pollfd wait{.fd = m_socket, .events = POLLOUT, .revents = 0};
            if (::poll(&wait, 1, patienceMs) <= 0) break;
            const ssize_t now =
                ::send(m_socket, bytes.constData() + sent, static_cast<std::size_t>(bytes.size() - sent),
                       MSG_NOSIGNAL | MSG_DONTWAIT);
            if (now <= 0) break;
            sent += now;
        }
        return sent;
    }
    /// Whether the other end has hung up within the time.
    [[nodiscard]] bool WasDropped(int milliseconds) const {
        pollfd wait{.fd = m_socket, .events = POLLIN, .revents = 0};
        char buffer[65536];
        while (::poll(&wait, 1, milliseconds) > 0) {
            if (::recv(m_socket, buffer, sizeof buffer, MSG_DONTWAIT) <= 0) return true;
        }
        return false;
    }
    bool isConnected = false;

 private:
    int m_socket;
};

}  // namespace

class TestCInstanceChannel : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init();
    void findWindow_data();
    void findWindow();
    void findWindowOfAFrozenProgram();
    void post();
    void postThenExit();
    void postToABusyWindow();
    void send_data();
    void send();
    void sendInVain();
    void sendGivenUpIsNotBegun();
    void commandsComeOneAfterAnother();
    void manyCallers();
    void nonsense_data();
    void nonsense();
    void idleCallers();
    void callerThatNeverReads();
    void callerThatFloods();
    void listenTwice();
    void closeInAHandler();
    void windowGone();
    void strangers();

 private:
    [[nodiscard]] QString Home() const { return m_folder->path(); }
    /// A window that counts and answers by {"command": N, "arguments": {...}}.
    [[nodiscard]] bool Open() {
        return m_server.Listen(Home(), kTitle, [this](const InstanceMessage& message) {
            m_commands.push_back(Number(message));
            return InstanceReply::Done(
                {{u"command"_qs, Number(message)}, {u"arguments"_qs, message.arguments}});
        });
    }
    /// Whether an ordinary caller is served.
    [[nodiscard]] bool IsServed() const {
        return Context([&] {
            CInstanceClient client;
            return client.FindWindow(Home(), kTitle) && client.Send(Message(1), 2000).has_value();
        });
    }
    std::unique_ptr<QTemporaryDir> m_folder;
    CInstanceServer m_server;
    std::vector<int> m_commands;
};

void TestCInstanceChannel::init() {
    m_server.Close();
    m_folder = std::make_unique<QTemporaryDir>();
    m_commands.clear();
}

void TestCInstanceChannel::findWindow_data() {
    QTest::addColumn<QByteArray>("home");
    QTest::addColumn<QString>("title");
    QTest::addColumn<bool>("found");
    QTest::newRow("the window of the home") << QByteArray("same") << kTitle << true;
    QTest::newRow("by another path to the home") << QByteArray("link") << kTitle << true;
    QTest::newRow("a path with a dot in it") << QByteArray("dot") << kTitle << true;
    QTest::newRow("another title") << QByteArray("same") << u"velmarch"_qs << false;
    QTest::newRow("no title") << QByteArray("same") << QString() << false;
    QTest::newRow("another home") << QByteArray("other") << kTitle << false;
    QTest::newRow("a home that isn't there") << QByteArray("none") << kTitle << false;
}

void TestCInstanceChannel::findWindow() {
    QFETCH(QByteArray, home);
    QFETCH(QString, title);
    QFETCH(bool, found);
    QVERIFY(Open());
    const QTemporaryDir other;
    const QString link = other.filePath(u"link"_qs);
    QVERIFY(QFile::link(Home(), link));
    const std::map<QByteArray, QString> homes = {{"same", Home()},
                                                 {"link", link},
                                                 {"dot", Home() + u"/./"_qs},
                                                 {"other", other.path()},
                                                 {"none", Home() + u"/none"_qs}};
    QCOMPARE(Context([&] { return CInstanceClient().FindWindow(homes.at(home), title); }), found);
    m_server.Close();
    QVERIFY(!CInstanceClient().FindWindow(homes.at(home), title));
}

void TestCInstanceChannel::findWindowOfAFrozenProgram() {
    QVERIFY(Open());
    QElapsedTimer timer;
    timer.start();
    QVERIFY(!CInstanceClient().FindWindow(Home(), kTitle, 300));  // no loop turns here meanwhile
    QVERIFY(timer.elapsed() >= 300 && timer.elapsed() < 1500);
}

void TestCInstanceChannel::post() {
    QVERIFY(Open());
    QVERIFY(Context([&] {
        CInstanceClient client;
        return client.FindWindow(Home(), kTitle) && client.Post(Message(1045)) &&
               client.Post(Message(2, {{u"a"_qs, 1}})) && client.Post(Message(3));
    }));
    QTRY_COMPARE(m_commands, (std::vector<int>{1045, 2, 3}));
    QVERIFY(!CInstanceClient().Post(Message(1045)));  // to nobody
}

void TestCInstanceChannel::postThenExit() {
    QVERIFY(Open());
    const pid_t child = ::fork();
    if (child == 0) {
        CInstanceClient client;
        ::_exit(client.FindWindow(Home(), kTitle, 10'000) && client.Post(Message(1045)) ? 0 : 1);
    }
    QTRY_COMPARE(m_commands, std::vector<int>{1045});
    int status = 0;
    ::waitpid(child, &status, 0);
    QCOMPARE(status, 0);
}

void TestCInstanceChannel::postToABusyWindow() {
    std::atomic<int> handled = 0;
    QVERIFY(m_server.Listen(Home(), kTitle, [&](const InstanceMessage& message) {
        if (Number(message) == 1) TurnLoop(700);
        ++handled;
        return InstanceReply::Done();
    }));
    QVERIFY(Context([&] {
        CInstanceClient client;
        return client.FindWindow(Home(), kTitle) && client.Post(Message(1)) && client.Post(Message(1045)) &&
               handled == 0;
    }));
    QTRY_COMPARE(handled.load(), 2);
}

void TestCInstanceChannel::send_data() {
    QTest::addColumn<QJsonObject>("arguments");
    QTest::newRow("no arguments") << QJsonObject();
    QTest::newRow("texts with line ends, quotes and an emoji")
        << QJsonObject{{u"a"_qs, u"\n\"'\U0001F552\\"_qs}};
    QTest::newRow("numbers and nothing") << QJsonObject{{u"a"_qs, 0.1}, {u"b"_qs, QJsonValue()}};
    QTest::newRow("500,000 characters") << QJsonObject{{u"a"_qs, QString(500'000, u'x')}};
}

void TestCInstanceChannel::send() {
    QFETCH(QJsonObject, arguments);
    QVERIFY(Open());
    const auto answers = Context([&] {
        CInstanceClient client;
        std::vector<std::optional<InstanceReply>> got;
        if (!client.FindWindow(Home(), kTitle)) return got;
        for (const int command : {57665, 3}) got.push_back(client.Send(Message(command, arguments)));
        return got;
    });
    QCOMPARE(answers.size(), std::size_t{2});
    const QJsonObject second{{u"command"_qs, 3}, {u"arguments"_qs, arguments}};
    QVERIFY(answers[0] && answers[1]);
    QCOMPARE(answers[0]->payload.value(u"command"_qs).toInt(), 57665);
    QCOMPARE(answers[1]->payload, second);
}

void TestCInstanceChannel::sendInVain() {
    QVERIFY(m_server.Listen(Home(), kTitle, [&](const InstanceMessage& message) {
        if (Number(message) == 1) TurnLoop(800);
        return InstanceReply::Done({{u"command"_qs, Number(message)}});
    }));
    QVERIFY(Context([&] {
        CInstanceClient client;
        if (!client.FindWindow(Home(), kTitle)) return false;
        QElapsedTimer timer;
        timer.start();
        if (client.Send(Message(1), 200) || timer.elapsed() > 600) return false;
        if (client.Send(Message(2)) || client.Post(Message(2))) return false;  // the connection is gone
        const auto answer = client.FindWindow(Home(), kTitle) ? client.Send(Message(2)) : std::nullopt;
        return answer &&
               answer->payload.value(u"command"_qs).toInt() == 2;  // not the late answer to the first
    }));
    const QJsonObject huge{{u"a"_qs, QString(2'000'000, u'x')}};
    QVERIFY(!Context([&] {
        CInstanceClient client;
        return client.FindWindow(Home(), kTitle) && client.Send(Message(2, huge));
    }));
}

void TestCInstanceChannel::sendGivenUpIsNotBegun() {
    QVERIFY(m_server.Listen(Home(), kTitle, [&](const InstanceMessage& message) {
        if (Number(message) == 1) TurnLoop(600);
        m_commands.push_back(Number(message));
        return InstanceReply::Done();
    }));
    QVERIFY(Context([&] {
        CInstanceClient first;
        CInstanceClient second;
        if (!first.FindWindow(Home(), kTitle) || !second.FindWindow(Home(), kTitle)) return false;
        return first.Post(Message(1)) && !second.Send(Message(2), 100) && first.Post(Message(3));
    }));
    QTRY_COMPARE(m_commands, (std::vector<int>{1, 3}));
    QTest::qWait(50);
    QCOMPARE(m_commands, (std::vector<int>{1, 3}));
}

void TestCInstanceChannel::commandsComeOneAfterAnother() {
    int depth = 0;
    int deepest = 0;
    int handled = 0;
    QVERIFY(m_server.Listen(Home(), kTitle, [&](const InstanceMessage&) {
        deepest = std::max(deepest, ++depth);
        TurnLoop(20);
        --depth;
        ++handled;
        return InstanceReply::Done();
    }));
    QVERIFY(Context([&] {
        CInstanceClient one;
        CInstanceClient two;
        bool good = one.FindWindow(Home(), kTitle) && two.FindWindow(Home(), kTitle);
        for (int i = 0; i < 5; ++i) good = good && one.Post(Message(1)) && two.Post(Message(2));
        return good;
    }));
    QTRY_COMPARE(handled, 10);
    QCOMPARE(deepest, 1);
}

void TestCInstanceChannel::manyCallers() {
    constexpr int kCallers = 50;
    constexpr int kCommands = 20;
    QVERIFY(Open());
    const int failed = Context([&] {
        std::atomic<int> failures = 0;
        std::vector<std::thread> callers;
        for (int i = 0; i < kCallers; ++i) {
            callers.emplace_back([&] {
                CInstanceClient client;
                if (!client.FindWindow(Home(), kTitle, 10'000)) ++failures;
                for (int n = 0; n < kCommands; ++n) {
                    const bool good =
                        n % 2 == 0 ? client.Post(Message(n)) : client.Send(Message(n), 10'000).has_value();
                    if (!good) ++failures;
                }
            });
        }
        for (std::thread& caller : callers) caller.join();
        return failures.load();
    });
    QCOMPARE(failed, 0);
    QTRY_COMPARE(m_commands.size(), std::size_t{kCallers * kCommands});
}

void TestCInstanceChannel::nonsense_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("no JSON") << QByteArray("GET / HTTP/1.1\r\n\r\n");
    QTest::newRow("an empty line") << QByteArray("\n");
    QTest::newRow("a JSON array") << QByteArray("[]\n");
    QTest::newRow("an object with nothing known") << QByteArray("{}\n");
    QTest::newRow("a command that is a text") << QByteArray("{\"post\":\"1045\"}\n");
    QTest::newRow("a title that is a number") << QByteArray("{\"find\":1}\n");
    QTest::newRow("zero bytes") << QByteArray(5000, '\0') + '\n';
    QTest::newRow("deep brackets") << QByteArray(100'000, '[') + '\n';
    QTest::newRow("a line of 2 MiB") << QByteArray(2 << 20, 'x');
}

void TestCInstanceChannel::nonsense() {
    QFETCH(QByteArray, bytes);
    QVERIFY(Open());
    QVERIFY(Context([&] {
        const RawCaller caller(Home());
        caller.Say(bytes);
        return caller.isConnected && caller.WasDropped(3000);
    }));
    QVERIFY(m_commands.empty());
    QVERIFY(IsServed());
}

void TestCInstanceChannel::idleCallers() {
    QVERIFY(Open());
    std::vector<std::unique_ptr<RawCaller>> callers;
    for (int i = 0; i < 300; ++i) {
        callers.push_back(std::make_unique<RawCaller>(Home()));
        QVERIFY(callers.back()->isConnected);
        callers.back()->Say("{\"fin");
        QCoreApplication::processEvents();
    }
    QVERIFY(IsServed());
}

void TestCInstanceChannel::callerThatNeverReads() {
    QVERIFY(Open());
    const RawCaller caller(Home());
    QVERIFY(caller.isConnected);
    Context([&] { return caller.Say(QByteArray("{\"find\":\"x\"}\n").repeated(200'000)); });
    QVERIFY(IsServed());
}

void TestCInstanceChannel::callerThatFloods() {
    int handled = 0;
    QVERIFY(m_server.Listen(Home(), kTitle, [&](const InstanceMessage&) {
        ++handled;
        return InstanceReply::Done();
    }));
    constexpr int kCommands = 5000;
    Context([&] {
        const RawCaller caller(Home());
        caller.Say(QByteArray("{\"post\":7}\n").repeated(kCommands), 5000);
        while (handled < kCommands && !caller.WasDropped(10)) {
        }
        return true;
    });
    QTRY_COMPARE(handled, kCommands);
}

void TestCInstanceChannel::listenTwice() {
    QVERIFY(Open());
    CInstanceServer second;
    QVERIFY(!second.Listen(Home(), kTitle, [](const InstanceMessage&) { return InstanceReply::Done(); }));
    QVERIFY(!second.Error().isEmpty());
    QVERIFY(IsServed());
    m_server.Close();
    QVERIFY(second.Listen(Home(), kTitle, [](const InstanceMessage&) { return InstanceReply::Done(); }));
    QVERIFY(IsServed());
}

void TestCInstanceChannel::closeInAHandler() {
    auto server = std::make_unique<CInstanceServer>();
    QVERIFY(server->Listen(Home(), kTitle, [&](const InstanceMessage&) {
        server.reset();
        TurnLoop(50);
        return InstanceReply::Done({{u"done"_qs, true}});
    }));
    const auto answer = Context([&] {
        CInstanceClient client;
        return client.FindWindow(Home(), kTitle) ? client.Send(Message(57665)) : std::nullopt;
    });
    QVERIFY(answer.has_value());
    QVERIFY(answer->payload.value(u"done"_qs).toBool());
    QVERIFY(!Context([&] { return CInstanceClient().FindWindow(Home(), kTitle); }));
    QTest::qWait(10);
}

void TestCInstanceChannel::windowGone() {
    QVERIFY(Open());
    CInstanceClient client;
    QVERIFY(Context([&] { return client.FindWindow(Home(), kTitle); }));
    m_server.Close();
    QTest::qWait(10);
    QElapsedTimer timer;
    timer.start();
    QVERIFY(!client.Post(Message(1045)));  // and no signal ends this program
    QVERIFY(!client.Send(Message(57665)));
    QVERIFY(timer.elapsed() < 1000);
}

void TestCInstanceChannel::strangers() {
    if (::geteuid() != 0) QSKIP("only the administrator can pretend to be another user");
    QVERIFY(Open());
    const pid_t child = ::fork();
    if (child == 0) {
        const auto address = InstanceProtocol::AddressOf(Home());  // of the window's user
        const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
        if (::seteuid(65534) != 0) ::_exit(3);
        const auto* name = reinterpret_cast<const sockaddr*>(&address.name);
        if (::connect(socket, name, address.length) != 0) ::_exit(2);
        const bool sent = ::send(socket, "{\"post\":1}\n", 11, MSG_NOSIGNAL) == 11;
        char answer = 0;
        ::_exit(sent && ::recv(socket, &answer, 1, 0) > 0 ? 1 : 0);
    }
    int status = -1;
    QTRY_VERIFY(status != -1 || ::waitpid(child, &status, WNOHANG) == child);
    QCOMPARE(status, 0);
    QVERIFY(m_commands.empty());

    // The other way round: somebody else sits at our address.
    m_server.Close();
    int ready[2];
    QCOMPARE(::pipe(ready), 0);
    const pid_t impostor = ::fork();
    if (impostor == 0) {
        const auto address = InstanceProtocol::AddressOf(Home());
        if (::seteuid(65534) != 0) ::_exit(3);
        const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
        const auto* name = reinterpret_cast<const sockaddr*>(&address.name);
        const bool listens = ::bind(socket, name, address.length) == 0 && ::listen(socket, 5) == 0;
        if (!listens || ::write(ready[1], "!", 1) != 1) ::_exit(2);
        const int caller = ::accept(socket, nullptr, nullptr);
        const QByteArray yes = "{\"found\":true}\n";
        ::send(caller, yes.constData(), static_cast<std::size_t>(yes.size()), MSG_NOSIGNAL);
        ::pause();
        ::_exit(0);
    }
    char sign = 0;
    QCOMPARE(::read(ready[0], &sign, 1), 1);
    QVERIFY(!CInstanceClient().FindWindow(Home(), kTitle));
    QVERIFY(!Open());
    QVERIFY2(m_server.Error().contains(u"another user"_qs), qPrintable(m_server.Error()));
    ::kill(impostor, SIGKILL);
    ::waitpid(impostor, nullptr, 0);
    ::close(ready[0]);
    ::close(ready[1]);
}

TEST_CLASS(TestCInstanceChannel);
#include "TestCInstanceChannel.moc"
