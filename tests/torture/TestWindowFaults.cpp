#include <QTest>
#include <algorithm>

#include "lang/LoadText.h"
#include "support/TestProgram.h"
#include "torture/CFaultInjector.h"
#include "torture/CFaultWalk.h"
#include "torture/FaultHome.h"
#include "torture/FaultWindow.h"
#include "torture/HomeContent.h"
#include "torture/QuickWaits.h"
#include "viewmodel/commands/CommandTable.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kNewWithTimestamp = 32852;
constexpr int kNewWithTimer = 32853;
constexpr int kMarkExported = 32841;

/// A command of the window, the records that are selected for it, and what the console sets before.
struct WindowRow {
    const char* name;
    int command;
    const char* selected = "";
    const char* before = "";
};
constexpr const char* kAtOnce = ";settings set dialogOnQuickEntry no";
constexpr const char* kStopsOthers = ";settings set dialogOnQuickEntry no;settings set timerOnNewTimer 2";
constexpr const char* kExpenses = ";settings set lastModeWasTime no";
constexpr WindowRow kCommands[] = {
    {"a new record in its dialog", Command::kNewPlain},
    {"a new record at once", kNewWithTimestamp, "", kAtOnce},
    {"a new record with a timer", kNewWithTimer, "", kAtOnce},
    {"a new record whose timer stops the others", kNewWithTimer, "", kStopsOthers},
    {"edit", Command::kEdit, "{t1}"},
    {"delete", Command::kDelete, "{t1} {t2}"},
    {"delete one with a timer", Command::kDelete, "{t3}"},
    {"copy", Command::kCopy, "{t1}"},
    {"mark", Command::kMarkFirstAndSecond, "{t2}"},
    {"mark as exported", kMarkExported, "{t1} {t2}"},
    {"start a timer", Command::kTimerStart, "{t1}"},
    {"start a timer that stops the others", Command::kTimerStart, "{t1}", kStopsOthers},
    {"pause a timer", Command::kTimerPause, "{t3}"},
    {"stop a timer", Command::kTimerStop, "{t3}"},
    {"stop a paused timer", Command::kTimerStop, "{t4}"},
    {"stop all timers", Command::kStopAllTimers},
    {"pause all timers", Command::kPauseAllTimers},
    {"a new expense in its dialog", Command::kNewPlain, "", kExpenses},
    {"edit an expense", Command::kEdit, "{e1}", kExpenses},
    {"delete an expense", Command::kDelete, "{e2}", kExpenses},
};

/// At the end of the window timers run on.
constexpr const char* kBefore = "settings set timerOnExit 0;settings set resortOnChange no";

/// In the short form about so many of the calls of each command fail.
constexpr int kSample = 1;

}  // namespace

/// Each call to the system that a command of the window makes fails once, and from then on. After the end of
/// the window the command is either done, or not done and the user was told.
class TestWindowFaults : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase();
    void FailingCalls_data();
    void FailingCalls();
    void cleanupTestCase();

 private:
    void RunInWindow(const std::function<void()>& begin);
    [[nodiscard]] QStringList Content() const;
    [[nodiscard]] QStringList Judge();
    [[nodiscard]] bool IsTold(Text sentence) const;
    [[nodiscard]] bool IsSaidToBeStored() const;

    CFaultInjector m_disk;
    QuickWaits m_waits;
    std::unique_ptr<FaultHome> m_home;
    std::unique_ptr<CFaultWalk> m_walk;
    int m_command = 0;
    bool m_isAtOnce = false;
    QStringList m_selected, m_told, m_before, m_after;
};

void TestWindowFaults::initTestCase() {
    QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR)));
    m_home = std::make_unique<FaultHome>();
    QVERIFY(m_home->IsMade());
    m_walk = std::make_unique<CFaultWalk>(m_disk, *m_home, kSample);
}

void TestWindowFaults::FailingCalls_data() {
    QTest::addColumn<int>("command");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QString>("before");
    for (const WindowRow& row : kCommands)
        QTest::newRow(row.name) << row.command << QString::fromLatin1(row.selected)
                                << QString::fromLatin1(kBefore) + QString::fromLatin1(row.before);
}

void TestWindowFaults::RunInWindow(const std::function<void()>& begin) {
    FaultWindow window(m_home->Path(), m_home->Clock(), m_isAtOnce ? 0 : 1);
    QVERIFY(window.IsOpen());
    begin();
    window.Run(m_command, m_selected);
    m_disk.Disarm();
    m_told = window.Told();
}

/// Without the settings that a window keeps at its end: sizes, columns, periods.
QStringList TestWindowFaults::Content() const {
    QStringList lines = m_home->Content();
    lines.removeIf([](const QString& line) {
        return line.startsWith(u"settings list") || line.startsWith(u"columns list");
    });
    return lines;
}

void TestWindowFaults::FailingCalls() {
    QFETCH(int, command);
    QFETCH(QString, selected);
    QFETCH(QString, before);
    m_command = command;
    m_isAtOnce = before.contains(QLatin1String(kAtOnce));
    m_selected = m_home->Words(selected);
    m_walk->Name(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY2(m_home->Prepare(before), qPrintable(before));
    m_before = Content();
    QVERIFY(m_home->Renew());
    RunInWindow([] {});
    QCOMPARE(m_told, QStringList());
    m_after = Content();
    QVERIFY(m_before != m_after);
    m_walk->FailCalls([this](const auto& begin) { RunInWindow(begin); }, [this] { return Judge(); });
    const QStringList complaints = m_walk->TakeComplaints();
    for (const QString& complaint : complaints) qWarning("%s", qPrintable(complaint));
    QVERIFY2(complaints.isEmpty(), qPrintable(u"%1 runs failed"_s.arg(complaints.size())));
}

QStringList TestWindowFaults::Judge() {
    const QStringList content = Content();
    if (m_told.isEmpty())
        return content == m_after ? QStringList()
                                  : QStringList(u"nothing told, but\n"_s + Difference(m_after, content));
    if (content == m_before || (content == m_after && IsSaidToBeStored())) return {};
    if (IsTold(Text::AddedWithoutTimer) && IsBetween(content, m_before, m_after)) return {};
    const QString told = u" ["_s + m_told.join(u" | "_s) + u']';
    if (content == m_after) return {u"done, but said to have failed"_s + told};
    RunInWindow([] {});
    return Content() == m_after ? QStringList()
                                : QStringList(u"half done\n"_s + Difference(m_before, content) + told);
}

bool TestWindowFaults::IsTold(Text sentence) const {
    const QString beginning = LoadText(sentence).section(u'%', 0, 0);
    return std::ranges::any_of(m_told, [&](const QString& told) { return told.startsWith(beginning); });
}

/// What was told doesn't deny it: the timers of a window count on, and are saved when that can be done again.
bool TestWindowFaults::IsSaidToBeStored() const {
    return IsTold(Text::CommitUnconfirmed) || IsTold(Text::TimersNotSaved) ||
           IsTold(Text::AddedWithoutTimer) || IsTold(Text::HistoryTitle);
}

void TestWindowFaults::cleanupTestCase() {
    if (m_walk) qInfo("%d runs, %d failures", m_walk->Runs(), m_walk->FailedRuns());
}

TEST_CLASS(TestWindowFaults);
#include "TestWindowFaults.moc"
