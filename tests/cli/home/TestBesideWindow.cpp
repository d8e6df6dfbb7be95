#include "app/CVelmarchApp.h"
#include "cli/home/ConsoleHome.h"
#include "lang/LoadText.h"
#include "platform/instance/CInstance.h"
#include "platform/instance/CInstanceChannel.h"
#include "support/TestProgram.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

using namespace Qt::Literals::StringLiterals;

/// What the console program tells a running window and asks it for. The window is played by the test: it
/// holds the home's mutex and notes what arrives.
class TestBesideWindow : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void ChangesAreTold_data();
    void ChangesAreTold();
    void NewListItemsAreToldWithTheRecord();
    void ChangesOfListsAreTold_data();
    void ChangesOfListsAreTold();
    void ManyChangesAreToldWithoutIdentities();
    void ReadingTellsNothing();
    void TimersAreCarriedOutByTheWindow();
    void TimersOfTheWindowAreShown();
    void ARefusalOfTheWindowIsHandedOn();
    void SettingsAreChangedByTheWindow();
    void ColumnsAreChangedByTheWindow();
    void DefaultsAreChangedByTheWindow();
    void DefinitionsAndQueriesAreChangedByTheWindow();
    void TheLastReadingIsNotedByTheWindow();
    void ANewTimerIsStartedByTheWindow();
    void DeleteLetsTheWindowDropTheTimer();
    void AMuteWindow_data();
    void AMuteWindow();
    void AWindowThatIsStillStarting();
    void ABusyWindowIsWaitedFor_data();
    void ABusyWindowIsWaitedFor();
    void AnEndingWindowIsNotWaitedForLong_data();
    void AnEndingWindowIsNotWaitedForLong();
    void AWindowOfAnotherHome();
    void ARestoreIsTold();
    void ARestoreWaitsForNoDialog();

 private:
    struct Heard {
        InstanceCommand command;
        QJsonObject arguments;
    };
    void Listen(const QString& home);
    [[nodiscard]] QJsonObject Only(InstanceCommand command) const;
    std::unique_ptr<ConsoleHome> m_home;
    std::unique_ptr<CInstance> m_mutex;
    std::unique_ptr<CInstanceServer> m_server;
    QList<Heard> m_heard;
    QJsonObject m_answer;
};

void TestBesideWindow::initTestCase() {
    QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR)));
}

void TestBesideWindow::init() {
    m_home = std::make_unique<ConsoleHome>();
    m_mutex = std::make_unique<CInstance>();
    m_server = std::make_unique<CInstanceServer>();
    m_heard.clear();
    m_answer = {{u"ok"_s, true}, {u"timers"_s, QJsonArray()}};
}

void TestBesideWindow::cleanup() {
    m_server.reset();
    m_mutex.reset();
}

void TestBesideWindow::Listen(const QString& home) {
    QCOMPARE(m_mutex->Take(QString::fromLatin1(CVelmarchApp::kMutexName), home), CInstance::Outcome::Taken);
    QVERIFY2(m_server->Listen(home, LoadText(Text::ProgramTitle),
                              [this](const InstanceMessage& message) {
                                  m_heard.append({message.command, message.arguments});
                                  return InstanceReply::FromJson(m_answer);
                              }),
             qPrintable(m_server->Error()));
}

/// The arguments of the one command of its kind that was heard.
QJsonObject TestBesideWindow::Only(InstanceCommand command) const {
    QList<QJsonObject> found;
    for (const Heard& heard : m_heard)
        if (heard.command == command) found.append(heard.arguments);
    return found.size() == 1 ? found.first() : QJsonObject{{u"heard"_s, found.size()}};
}

void TestBesideWindow::ChangesAreTold_data() {
    QTest::addColumn<QStringList>("command");  // %1: the record
    QTest::newRow("add") << QStringList{u"time"_s, u"add"_s};
    QTest::newRow("edit") << QStringList{u"time"_s, u"edit"_s, u"%1"_s, u"--item1"_s, u"A"_s};
    QTest::newRow("delete") << QStringList{u"time"_s, u"delete"_s, u"%1"_s};
    QTest::newRow("copy") << QStringList{u"time"_s, u"copy"_s, u"%1"_s};
    QTest::newRow("mark") << QStringList{u"time"_s, u"mark"_s, u"%1"_s, u"--as"_s, u"first"_s};
    QTest::newRow("new") << QStringList{u"time"_s, u"new"_s, u"--timestamp"_s};
    QTest::newRow("add an expense") << QStringList{u"expense"_s, u"add"_s};
    QTest::newRow("edit one") << QStringList{u"expense"_s, u"edit"_s, u"%1"_s, u"--notes"_s, u"A"_s};
    QTest::newRow("delete one") << QStringList{u"expense"_s, u"delete"_s, u"%1"_s};
    QTest::newRow("copy one") << QStringList{u"expense"_s, u"copy"_s, u"%1"_s};
    QTest::newRow("mark one") << QStringList{u"expense"_s, u"mark"_s, u"%1"_s, u"--as"_s, u"fifth"_s};
    QTest::newRow("a new one") << QStringList{u"expense"_s, u"new"_s};
}

void TestBesideWindow::ChangesAreTold() {
    QFETCH(QStringList, command);
    const QString id = m_home->Add({}, command[0]);
    Listen(m_home->Path());
    command.replaceInStrings(u"%1"_s, id);
    const Reply reply = m_home->RunJson(QStringList(u"--yes"_s) + command);
    QCOMPARE(reply.exit, 0);
    QTRY_VERIFY(!m_heard.isEmpty());
    const QJsonObject told = Only(InstanceCommand::SyncEnd);
    QCOMPARE(told[u"kind"].toString(), command[0]);
    const bool isOwn = command.contains(id) && command[1] != u"copy";
    const QString changed = isOwn                    ? id
                            : reply.Json().isArray() ? reply.Array()[0].toString()
                                                     : reply.Object()[u"id"].toString();
    QCOMPARE(told[u"ids"].toArray(), QJsonArray{changed});
}

/// The window then reads its lists anew.
void TestBesideWindow::NewListItemsAreToldWithTheRecord() {
    Listen(m_home->Path());
    for (const bool isNew : {true, false}) {
        m_heard.clear();
        QCOMPARE(m_home->Run({u"time"_s, u"add"_s, u"--item1"_s, u"Alpha"_s}).exit, 0);
        QTRY_VERIFY(!m_heard.isEmpty());
        const QJsonObject told = Only(InstanceCommand::SyncEnd);
        QCOMPARE(told[u"ids"].toArray().size(), 1);
        QCOMPARE(told[u"lists"].toBool(), isNew);
    }
}

void TestBesideWindow::ChangesOfListsAreTold_data() {
    QTest::addColumn<QStringList>("command");
    QTest::newRow("a new item") << QStringList{u"items"_s, u"add"_s, u"17"_s, u"One"_s};
    QTest::newRow("a renamed one") << QStringList{u"items"_s, u"rename"_s, u"16"_s, u"Alpha"_s, u"Beta"_s};
    QTest::newRow("a deleted one") << QStringList{u"items"_s, u"delete"_s, u"16"_s, u"Alpha"_s};
    QTest::newRow("a cleared list") << QStringList{u"items"_s, u"clear"_s, u"16"_s};
    QTest::newRow("the dependencies") << QStringList{u"tree"_s, u"add"_s, u"time"_s, u"Alpha"_s};
    QTest::newRow("a name") << QStringList{u"labels"_s, u"set"_s, u"109"_s, u"Matter"_s};
    QTest::newRow("all names") << QStringList{u"labels"_s, u"reset"_s};
}

/// Anything may look different now, so no records are named. The window sees to its columns by itself.
void TestBesideWindow::ChangesOfListsAreTold() {
    QFETCH(QStringList, command);
    QCOMPARE(m_home->Run({u"items"_s, u"add"_s, u"16"_s, u"Alpha"_s}).exit, 0);
    Listen(m_home->Path());
    QCOMPARE(m_home->Run(QStringList(u"--yes"_s) + command).exit, 0);
    QTRY_VERIFY(!m_heard.isEmpty());
    QCOMPARE(Only(InstanceCommand::SyncEnd), QJsonObject());
    QCOMPARE(m_heard.size(), 1);
    cleanup();
    const QJsonArray columns = m_home->RunJson({u"columns"_s, u"list"_s, u"time"_s}).Array();
    QCOMPARE(columns[4][u"caption"].toString(), u"Client"_s);
}

void TestBesideWindow::ManyChangesAreToldWithoutIdentities() {
    QCOMPARE(m_home->Run({u"demo"_s, u"fill"_s, u"2000"_s}).exit, 0);
    QStringList ids;
    for (const QJsonValue& record :
         m_home->RunJson({u"time"_s, u"list"_s, u"--exported"_s}).Object()[u"records"].toArray())
        ids.append(record[u"id"].toString());
    QVERIFY(ids.size() > 1000);
    Listen(m_home->Path());
    const Reply reply =
        m_home->RunJson(QStringList{u"--yes"_s, u"time"_s, u"mark"_s, u"--as"_s, u"not-exported"_s} + ids);
    QCOMPARE(reply.Object()[u"changed"].toInt(), ids.size());
    QTRY_VERIFY(!m_heard.isEmpty());
    QVERIFY(!Only(InstanceCommand::SyncEnd).contains(u"ids"_s));
}

void TestBesideWindow::ReadingTellsNothing() {
    const QString id = m_home->Add({});
    Listen(m_home->Path());
    for (const QStringList& words :
         {QStringList{u"time"_s, u"list"_s}, QStringList{u"time"_s, u"show"_s, id},
          QStringList{u"settings"_s, u"list"_s}, QStringList{u"day"_s, u"today"_s}, QStringList{u"doctor"_s}})
        QCOMPARE(m_home->Run(words).exit, 0);
    QTest::qWait(100);
    QVERIFY(m_heard.isEmpty());
}

void TestBesideWindow::TimersAreCarriedOutByTheWindow() {
    const QString id = m_home->Add({});
    Listen(m_home->Path());
    m_answer[u"timers"_s] = QJsonArray{
        QJsonObject{{u"id"_s, id}, {u"state"_s, u"running"_s}, {u"seconds"_s, 4711}, {u"trueSeconds"_s, 60}}};
    const Reply reply = m_home->RunJson({u"timer"_s, u"start"_s, id});
    QCOMPARE(reply.exit, 0);
    QCOMPARE(reply.out, "[{\"id\": \"" + id.toLatin1() +
                            "\", \"state\": \"running\", \"seconds\": 4711, \"trueSeconds\": 60}]\n");
    QCOMPARE(Only(InstanceCommand::Timer), (QJsonObject{{u"action"_s, u"start"_s}, {u"id"_s, id}}));
    for (const QString& action : {u"stop-all"_s, u"pause-all"_s, u"status"_s}) {
        m_heard.clear();
        QCOMPARE(m_home->RunJson({u"timer"_s, action}).exit, 0);
        QCOMPARE(Only(InstanceCommand::Timer), (QJsonObject{{u"action"_s, action}}));
    }
    // Nothing of it was done here.
    cleanup();
    QCOMPARE(m_home->RunJson({u"timer"_s, u"status"_s}).Array(), QJsonArray());
}

void TestBesideWindow::TimersOfTheWindowAreShown() {
    const QString id = m_home->Add({});
    m_home->Run({u"timer"_s, u"start"_s, id});
    Listen(m_home->Path());
    m_answer[u"timers"_s] = QJsonArray{QJsonObject{
        {u"id"_s, id}, {u"state"_s, u"paused"_s}, {u"seconds"_s, 360000}, {u"trueSeconds"_s, 3600}}};
    for (const QStringList& words : {QStringList{u"list"_s}, QStringList{u"show"_s, id}}) {
        const Reply text = m_home->Run(QStringList{u"time"_s} + words);
        QVERIFY2(text.out.contains("100:00:00 paused, true time 01:00:00"), text.out.constData());
    }
    QCOMPARE(m_home->Show(id)[u"timer"].toObject(), FromText(u"{'state': 'paused', 'seconds': 360000}"_s));
}

void TestBesideWindow::ARefusalOfTheWindowIsHandedOn() {
    const QString id = m_home->Add({});
    Listen(m_home->Path());
    m_answer = {{u"ok"_s, false}, {u"exit"_s, 1}, {u"error"_s, u"No timer runs."_s}};
    const Reply reply = m_home->RunJson({u"timer"_s, u"pause"_s, id});
    QCOMPARE(reply.exit, 1);
    QVERIFY(reply.err.contains("No timer runs."));
    QVERIFY(reply.out.isEmpty());
}

void TestBesideWindow::SettingsAreChangedByTheWindow() {
    Listen(m_home->Path());
    QCOMPARE(m_home->Run({u"settings"_s, u"set"_s, u"confirmCopy"_s, u"0"_s}).exit, 0);
    QCOMPARE(Only(InstanceCommand::Setting), (QJsonObject{{u"name"_s, u"confirmCopy"_s}, {u"value"_s, 0}}));
    m_heard.clear();
    QCOMPARE(m_home->Run({u"settings"_s, u"reset"_s}).exit, 0);
    QCOMPARE(Only(InstanceCommand::Setting), (QJsonObject{{u"reset"_s, true}}));
    cleanup();
    QCOMPARE(m_home->RunJson({u"settings"_s, u"get"_s, u"confirmCopy"_s}).Object()[u"value"].toInt(), 1);
}

void TestBesideWindow::ColumnsAreChangedByTheWindow() {
    Listen(m_home->Path());
    QCOMPARE(m_home
                 ->Run({u"columns"_s, u"set"_s, u"time"_s, u"Client"_s, u"0"_s, u"--width"_s, u"Date=99"_s,
                        u"--breaks"_s, u"1,2"_s})
                 .exit,
             0);
    QCOMPARE(Only(InstanceCommand::Setting), FromText(u"{'columns': 'list', 'half': 'time', 'shown': [4, 0], "
                                                      "'widths': {'0': 99}, 'breaks': [1, 2]}"_s));
    m_heard.clear();
    QCOMPARE(m_home->Run({u"columns"_s, u"reset"_s, u"expense"_s, u"--tree"_s}).exit, 0);
    QCOMPARE(Only(InstanceCommand::Setting),
             FromText(u"{'columns': 'tree', 'half': 'expense', 'reset': true}"_s));
    cleanup();
    const QJsonArray columns = m_home->RunJson({u"columns"_s, u"list"_s, u"time"_s}).Array();
    QCOMPARE(columns[0][u"width"].toInt(), 80);
}

void TestBesideWindow::DefaultsAreChangedByTheWindow() {
    QCOMPARE(m_home->Run({u"defaults"_s, u"save"_s, u"Mine"_s}).exit, 0);
    Listen(m_home->Path());
    const auto only = [this] {
        return ::Only(Only(InstanceCommand::Setting), {u"defaults"_s, u"action"_s, u"name"_s});
    };
    QCOMPARE(m_home->Run({u"defaults"_s, u"save"_s, u"Other"_s, u"--mode"_s, u"expense"_s}).exit, 0);
    QCOMPARE(only(), FromText(u"{'defaults': 'expense', 'action': 'write', 'name': 'Other'}"_s));
    m_heard.clear();
    QCOMPARE(m_home->Run({u"defaults"_s, u"rename"_s, u"mine"_s, u"Yours"_s}).exit, 0);
    QCOMPARE(only(), FromText(u"{'defaults': 'time', 'action': 'rename', 'name': 'Mine'}"_s));
    m_heard.clear();
    QCOMPARE(m_home->Run({u"--yes"_s, u"defaults"_s, u"delete"_s, u"Mine"_s}).exit, 0);
    QCOMPARE(only(), FromText(u"{'defaults': 'time', 'action': 'delete', 'name': 'Mine'}"_s));
    cleanup();
    QCOMPARE(m_home->RunJson({u"defaults"_s, u"list"_s}).out, QByteArray("[\"Mine\", \"(empty record)\"]\n"));
}

void TestBesideWindow::DefinitionsAndQueriesAreChangedByTheWindow() {
    QCOMPARE(m_home->Run(Words(u"report save Mine --kind listing"_s)).exit, 0);
    QCOMPARE(m_home->Run(Words(u"query save Mine --item1 a"_s)).exit, 0);
    Listen(m_home->Path());
    const auto only = [this](const QString& command) {
        m_heard.clear();
        (void)m_home->Run(Words(u"--yes "_s + command));
        return ::Only(Only(InstanceCommand::Setting), {u"key"_s, u"entry"_s, u"former"_s});
    };
    const auto told = [](const char* key, const char* entry, const char* former) {
        return QJsonObject{{u"key"_s, QString::fromLatin1(key)},
                           {u"entry"_s, QString::fromLatin1(entry)},
                           {u"former"_s, QString::fromLatin1(former)}};
    };
    QCOMPARE(only(u"report edit Mine --title t"_s), told("ListReportsTime", "Mine", ""));
    QCOMPARE(only(u"report rename Mine Yours"_s), told("ListReportsTime", "Yours", "Mine"));
    QCOMPARE(only(u"report delete Mine"_s), told("ListReportsTime", "", "Mine"));
    QCOMPARE(only(u"query save New --mode expense"_s), told("ExpenseQueries", "New", ""));
    QCOMPARE(only(u"query rename mine Yours"_s), told("TimeQueries", "Yours", "Mine"));
    QCOMPARE(only(u"query delete Mine"_s), told("TimeQueries", "", "Mine"));
    cleanup();
    QCOMPARE(m_home->RunJson({u"query"_s, u"list"_s}).out, QByteArray("[\"Mine\"]\n"));
}

void TestBesideWindow::TheLastReadingIsNotedByTheWindow() {
    Listen(m_home->Path());
    QCOMPARE(m_home->Run({u"expense"_s, u"add"_s, u"--odometer-end"_s, u"1120.5"_s}).exit, 0);
    QCOMPARE(Only(InstanceCommand::Setting), FromText(u"{'name': 'odometerLastEnd', 'value': 1120}"_s));
}

void TestBesideWindow::ANewTimerIsStartedByTheWindow() {
    Listen(m_home->Path());
    const Reply reply = m_home->RunJson({u"time"_s, u"new"_s, u"--timestamp"_s, u"--timer"_s});
    QCOMPARE(reply.exit, 0);
    const QString id = reply.Object()[u"id"].toString();
    QCOMPARE(Only(InstanceCommand::Timer),
             (QJsonObject{{u"action"_s, u"start"_s}, {u"id"_s, id}, {u"fromZero"_s, true}}));
    QVERIFY2(m_heard.first().command == InstanceCommand::SyncEnd, "the window must know the record first");
}

void TestBesideWindow::DeleteLetsTheWindowDropTheTimer() {
    const QString id = m_home->Add({});
    m_home->Run({u"timer"_s, u"start"_s, id});
    Listen(m_home->Path());
    QCOMPARE(m_home->Run({u"--yes"_s, u"time"_s, u"delete"_s, id}).exit, 0);
    QCOMPARE(Only(InstanceCommand::Timer), (QJsonObject{{u"action"_s, u"drop"_s}, {u"id"_s, id}}));
    QCOMPARE(Only(InstanceCommand::SyncEnd)[u"ids"].toArray(), QJsonArray{id});
}

void TestBesideWindow::AMuteWindow_data() {
    QTest::addColumn<QStringList>("command");  // %1: a record with a timer
    QTest::addColumn<int>("exit");
    QTest::newRow("a timer") << QStringList{u"timer"_s, u"pause"_s, u"%1"_s} << 3;
    QTest::newRow("all timers") << QStringList{u"timer"_s, u"stop-all"_s} << 3;
    QTest::newRow("what timers there are") << QStringList{u"timer"_s, u"status"_s} << 3;
    QTest::newRow("a setting") << QStringList{u"settings"_s, u"set"_s, u"confirmCopy"_s, u"0"_s} << 3;
    QTest::newRow("a new record with a timer") << QStringList{u"time"_s, u"new"_s, u"--timer"_s} << 3;
    QTest::newRow("a record with a timer goes") << QStringList{u"time"_s, u"delete"_s, u"%1"_s} << 3;
    QTest::newRow("columns") << QStringList{u"columns"_s, u"set"_s, u"time"_s, u"Date"_s} << 3;
    QTest::newRow("default columns") << QStringList{u"columns"_s, u"reset"_s, u"time"_s} << 3;
    QTest::newRow("a stored default") << QStringList{u"defaults"_s, u"save"_s, u"Mine"_s} << 3;
    QTest::newRow("a definition") << QStringList{u"report"_s, u"save"_s, u"Mine"_s, u"--kind"_s, u"listing"_s}
                                  << 3;
    QTest::newRow("a stored query") << QStringList{u"query"_s, u"save"_s, u"Mine"_s} << 3;
    QTest::newRow("a name of a field") << QStringList{u"labels"_s, u"set"_s, u"109"_s, u"Matter"_s} << 3;
    QTest::newRow("list items are everybody's") << QStringList{u"items"_s, u"list"_s, u"16"_s} << 0;
    QTest::newRow("records are everybody's") << QStringList{u"time"_s, u"add"_s} << 0;
    QTest::newRow("so is looking at them") << QStringList{u"time"_s, u"show"_s, u"%1"_s} << 0;
}

/// The mutex is held and nobody listens.
void TestBesideWindow::AMuteWindow() {
    QFETCH(QStringList, command);
    const QString id = m_home->Add({});
    m_home->Run({u"timer"_s, u"start"_s, id});
    QCOMPARE(m_mutex->Take(QString::fromLatin1(CVelmarchApp::kMutexName), m_home->Path()),
             CInstance::Outcome::Taken);
    command.replaceInStrings(u"%1"_s, id);
    const Reply reply = m_home->RunJson(QStringList(u"--yes"_s) + command);
    QTEST(reply.exit, "exit");
    QVERIFY(reply.exit == 0 || reply.err.contains("window"));
    cleanup();
    const QJsonObject list = m_home->RunJson({u"time"_s, u"list"_s}).Object();
    QCOMPARE(list[u"count"].toInt(), command[1] == u"add" ? 2 : 1);
    QCOMPARE(m_home->RunJson({u"timer"_s, u"status"_s}).Array()[0][u"state"].toString(), u"running"_s);
    QCOMPARE(m_home->RunJson({u"settings"_s, u"get"_s, u"confirmCopy"_s}).Object()[u"value"].toInt(), 1);
}

void TestBesideWindow::ABusyWindowIsWaitedFor_data() {
    QTest::addColumn<bool>("isDeaf");
    QTest::newRow("one that says so") << false;
    QTest::newRow("one that doesn't listen for a while") << true;
}

/// Longer than it would be waited for if it were only starting.
void TestBesideWindow::ABusyWindowIsWaitedFor() {
    QFETCH(bool, isDeaf);
    const QString id = m_home->Add({});
    Listen(m_home->Path());
    if (isDeaf) {
        QTimer::singleShot(0, this, [] { QTest::qSleep(3500); });
    } else {
        m_answer = {{u"ok"_s, false}, {u"exit"_s, 3}, {u"error"_s, u"Busy."_s}};
        QTimer::singleShot(3500, this, [this] { m_answer = {{u"ok"_s, true}, {u"timers"_s, QJsonArray()}}; });
    }
    const Reply reply = m_home->RunJson({u"timer"_s, u"start"_s, id});
    QCOMPARE(reply.err, QByteArray());
    QCOMPARE(reply.exit, 0);
    QCOMPARE(m_heard.last().arguments[u"action"].toString(), u"start"_s);
}

void TestBesideWindow::AWindowThatIsStillStarting() {
    const QString id = m_home->Add({});
    QCOMPARE(m_mutex->Take(QString::fromLatin1(CVelmarchApp::kMutexName), m_home->Path()),
             CInstance::Outcome::Taken);
    QTimer::singleShot(700, this, [this] {
        QVERIFY(m_server->Listen(m_home->Path(), LoadText(Text::ProgramTitle),
                                 [this](const InstanceMessage& message) {
                                     m_heard.append({message.command, message.arguments});
                                     return InstanceReply::FromJson(m_answer);
                                 }));
    });
    QCOMPARE(m_home->RunJson({u"timer"_s, u"start"_s, id}).exit, 0);
    QCOMPARE(m_heard.size(), 1);
}

void TestBesideWindow::AnEndingWindowIsNotWaitedForLong_data() {
    QTest::addColumn<QStringList>("command");
    QTest::newRow("a timer") << QStringList{u"timer"_s, u"stop-all"_s};
    QTest::newRow("a setting") << QStringList{u"settings"_s, u"set"_s, u"confirmCopy"_s, u"0"_s};
}

/// A box of its may stand for hours.
void TestBesideWindow::AnEndingWindowIsNotWaitedForLong() {
    QFETCH(QStringList, command);
    m_answer = {{u"ok"_s, false}, {u"exit"_s, 5}, {u"error"_s, u"It ends."_s}};
    Listen(m_home->Path());
    QElapsedTimer timer;
    timer.start();
    const Reply reply = m_home->Run(command);
    QCOMPARE(reply.exit, 3);
    QVERIFY2(reply.err.contains("It ends."), reply.err.constData());
    QVERIFY2(timer.elapsed() < 10000, "it waited for all that it may");
    QVERIFY2(m_heard.size() > 1, "a window that has nothing to ask is gone in a moment");
}

void TestBesideWindow::AWindowOfAnotherHome() {
    const ConsoleHome other;
    Listen(other.Path());
    const QString id = m_home->Add({});
    QCOMPARE(m_home->RunJson({u"timer"_s, u"start"_s, id}).exit, 0);
    QCOMPARE(m_home->RunJson({u"timer"_s, u"status"_s}).Array().size(), 1);
    QVERIFY(m_heard.isEmpty());
}

/// Whatever the user has set about changes from outside: the window is asked first and told afterwards.
void TestBesideWindow::ARestoreIsTold() {
    m_home->Add({});
    const QString file = m_home->File(u"b.vbk"_s);
    QCOMPARE(m_home->Run({u"backup"_s, file}).exit, 0);
    Listen(m_home->Path());
    QCOMPARE(m_home->RunJson({u"--yes"_s, u"restore"_s, file}).exit, 0);
    QTRY_COMPARE(m_heard.size(), 2);
    for (const Heard& heard : m_heard) QCOMPARE(heard.command, InstanceCommand::Refresh);
    QVERIFY(m_heard[0].arguments[u"ask"_s].toBool());
    QVERIFY(m_heard[1].arguments.isEmpty());
}

void TestBesideWindow::ARestoreWaitsForNoDialog() {
    m_home->Add({});
    const QString file = m_home->File(u"b.vbk"_s);
    QCOMPARE(m_home->Run({u"backup"_s, file}).exit, 0);
    Listen(m_home->Path());
    m_answer = InstanceReply::Refused(ReplyReason::WindowOwns, u"A dialog is open."_s).ToJson();
    const Reply reply = m_home->RunJson({u"--yes"_s, u"restore"_s, file});
    QCOMPARE(reply.exit, 3);
    QVERIFY(reply.err.contains("A dialog is open."));
    QCOMPARE(QDir(m_home->Path()).entryList({u"before-restore-*"_s}), QStringList());
}

TEST_CLASS(TestBesideWindow);
#include "TestBesideWindow.moc"
