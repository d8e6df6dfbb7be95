#include <QRegularExpression>
#include <QTest>
#include <algorithm>

#include "cli/commands/CommandTable.h"
#include "lang/LoadText.h"
#include "support/TestProgram.h"
#include "torture/CFaultInjector.h"
#include "torture/CFaultWalk.h"
#include "torture/FaultHome.h"
#include "torture/HomeContent.h"
#include "torture/QuickWaits.h"
#include "torture/SmallDisk.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// A command that changes data, and the commands that have to come before it. beside: what it changes
/// besides, and may leave with a word about it: the command's own change is done.
struct TriedRow {
    const char* command;
    const char* before = "";
    const char* beside = "";
    FaultHome::State home = FaultHome::State::Filled;
};
constexpr TriedRow kCommands[] = {
    {"time add --date 2026-11-20 --duration 1:00 --notes new"},
    {"time edit {t1} --notes other --duration 0:45"},
    {"time delete {t1}"},
    {"time delete {t1} {t2}"},
    {"time delete {t3}"},
    {"time delete {t4} {t1}"},
    {"time copy {t1} {t2}"},
    {"time mark {t2} --as first-second"},
    {"time mark {t1} {t2} --as exported"},
    {"time new --from copy:{t1}"},
    {"time new --from defaults:Usual"},
    {"time new --timer"},
    {"time new --timer", "settings set timerOnNewTimer 2"},
    {"time add --item1 Gamma"},
    {"expense add --date 2026-11-20 --amount 5"},
    {"expense add --odometer-start 150 --odometer-end 180 --rate 2", "", "odometerLastEnd"},
    {"expense edit {e1} --amount 7"},
    {"expense delete {e1} {e2}"},
    {"expense copy {e2}"},
    {"expense mark {e1} --as third-fourth"},
    {"expense new --from copy:{e1}"},
    {"expense mark {e1} {e2} --as fifth"},
    {"timer start {t1}"},
    {"timer start {t4}"},
    {"timer start {t1}", "settings set timerOnNewTimer 1"},
    {"timer start {t1}", "settings set timerOnNewTimer 2"},
    {"timer pause {t3}"},
    {"timer stop {t3}"},
    {"timer stop {t4}"},
    {"timer stop-all"},
    {"timer pause-all"},
    {"timer drop {t3}"},
    {"items add 16 Gamma"},
    {"items rename 16 Acme Apex"},
    {"items rename 16 Acme Apex --in-records"},
    {"items rename 16 Acme Beta --in-records"},
    {"items merge 16 Acme Beta"},
    {"items delete 16 Acme"},
    {"items clear 16"},
    {"tree add time Beta Plan"},
    {"tree remove time Acme"},
    {"labels set 110 Work", "", "columns list"},
    {"labels reset", "", "columns list"},
    {"labels preset 2", "", "columns list"},
    {"defaults save New --notes n"},
    {"defaults save Usual --notes n"},
    {"defaults rename Usual Other"},
    {"defaults delete Usual"},
    {"report save New --kind compound --group 109 --sum 5002 --columns 5000 --title t"},
    {"report save Old --kind listing --title t", "report save Old --kind listing --sort date"},
    {"report edit Old --title t --sort start:desc", "report save Old --kind listing --columns 5000"},
    {"report rename Old New", "report save Old --kind listing --title t"},
    {"report delete Old", "report save Old --kind listing --title t"},
    {"query save New --period 2 --item1 Acme"},
    {"query save Old --item1 Beta", "query save Old --period 2 --item1 Acme"},
    {"query rename Old New", "query save Old --period 2 --item1 Acme"},
    {"query delete Old", "query save Old --period 2 --item1 Acme"},
    {"import records {times}"},
    {"import records {times} --no-list-items"},
    {"import items {items}"},
    {"export records {target} {t1} {t2} --post delete"},
    {"export records {target} {t1} {t2} --post mark"},
    {"undo", "time delete {t1} {t2}"},
    {"undo", "items rename 16 Acme Apex"},
    {"redo", "time delete {t1} {t2};undo"},
    {"columns set time date start --width date=99"},
    {"columns set time 4 5 --tree"},
    {"columns reset time", "columns set time date start"},
    {"settings set firstDayOfWeek 1"},
    {"settings reset confirmCopy"},
    {"settings reset"},
    {"time add --date 2026-11-20 --notes new", "", "", FaultHome::State::New},
    {"settings set firstDayOfWeek 1", "", "", FaultHome::State::New},
    {"items add 16 Gamma", "", "", FaultHome::State::New},
    {"demo fill 3", "", "", FaultHome::State::New},
};

/// In the short form about so many of the calls of each command fail, others for each.
constexpr int kSample = 2;

}  // namespace

/// Each call to the system of each command that changes data fails once, and from then on. The command is
/// then either wholly done and ends with 0, or not done, ends with something else and says so in words; and
/// the same command, given again, does it.
class TestFaults : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase();
    void EveryCommandIsTried();
    void FailingCalls_data() { Commands(); }
    void FailingCalls();
    void FullDisk_data() { Commands(); }
    void FullDisk();
    void RealDisk_data() { Commands(); }
    void RealDisk();
    void cleanupTestCase();

 private:
    static void Commands();
    void Begin();
    [[nodiscard]] QStringList Judge() const;
    [[nodiscard]] QStringList JudgeDone(const QStringList& content) const;
    [[nodiscard]] QStringList JudgeHalf(const QStringList& content) const;
    void End();

    CFaultInjector m_disk;
    QuickWaits m_waits;
    std::unique_ptr<FaultHome> m_home;
    std::unique_ptr<CFaultWalk> m_walk;
    CFaultWalk::Change m_change = [this](const std::function<void()>& begin) {
        begin();
        m_run = m_home->Run(m_command);
    };
    QString m_command, m_beside;
    QByteArray m_printed;
    QStringList m_before, m_after;
    ConsoleRun m_run;
};

void TestFaults::initTestCase() {
    QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR)));
    m_home = std::make_unique<FaultHome>();
    QVERIFY(m_home->IsMade());
    m_walk = std::make_unique<CFaultWalk>(m_disk, *m_home, kSample);
}

/// What may change data by its function's arguments, and isn't called show, list, status or fields. What
/// "report run" notes as the last report is passed over in silence where it can't be stored, and "export
/// items" only reads.
void TestFaults::EveryCommandIsTried() {
    const QStringList readers{u"show"_s, u"list"_s, u"status"_s, u"fields"_s};
    const QStringList others{u"report run"_s, u"export items"_s, u"history"_s};
    for (const auto& row : ::Commands()) {
        const bool mayChange =
            std::holds_alternative<RunOnRecords>(row.run) || std::holds_alternative<RunOnSettings>(row.run);
        const QString name = (QLatin1String(row.group) + u' ' + QLatin1String(row.name)).trimmed();
        if (!mayChange || readers.contains(QLatin1String(row.name)) || others.contains(name)) continue;
        const bool isTried = std::ranges::any_of(kCommands, [&](const TriedRow& tried) {
            return (QLatin1String(tried.command) + u' ').startsWith(name + u' ');
        });
        QVERIFY2(isTried, qPrintable(name));
    }
}

void TestFaults::Commands() {
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("beside");
    QTest::addColumn<FaultHome::State>("home");
    for (const TriedRow& row : kCommands) {
        const QByteArray before = *row.before ? QByteArray(" after ") + row.before : QByteArray();
        const QByteArray where = row.home == FaultHome::State::New ? " in a new home" : "";
        QTest::newRow((row.command + before + where).constData())
            << QString::fromLatin1(row.command) << QString::fromLatin1(row.before)
            << QString::fromLatin1(row.beside) << row.home;
    }
}

/// What the command does when nothing fails.
void TestFaults::Begin() {
    QFETCH(QString, command);
    QFETCH(QString, before);
    QFETCH(QString, beside);
    QFETCH(FaultHome::State, home);
    m_command = command;
    m_beside = beside;
    m_walk->Name(command);
    QVERIFY2(m_home->Prepare(before, home), qPrintable(before));
    m_before = m_home->Content();
    QVERIFY(m_home->Renew());
    const ConsoleRun run = m_home->Run(m_command);
    QVERIFY2(run.exit == 0, run.err.constData());
    m_printed = run.out;
    m_after = m_home->Content();
    QVERIFY(m_before != m_after);
}

void TestFaults::FailingCalls() {
    Begin();
    if (QTest::currentTestFailed()) return;
    m_walk->FailCalls(m_change, [this] { return Judge(); });
    End();
}

void TestFaults::FullDisk() {
    Begin();
    if (QTest::currentTestFailed()) return;
    m_walk->FillDisk(m_change, [this] { return Judge(); });
    End();
}

/// The same on a file system that is really full: one page more is free each time, until the command is done.
void TestFaults::RealDisk() {
    SmallDisk disk(m_home->Path());
    if (!disk.IsThere()) QSKIP("only the administrator can make a small disk");
    Begin();
    m_run.exit = 1;
    for (int pages = 0; m_run.exit != 0 && !QTest::currentTestFailed(); ++pages) {
        QVERIFY(m_home->Renew());
        QVERIFY(disk.LeaveFree(pages));
        m_run = m_home->Run(m_command);
        disk.Empty();
        m_walk->Look([this] { return Judge(); }, u"%1 pages free"_s.arg(pages));
    }
    End();
}

QStringList TestFaults::Judge() const {
    const QStringList content = m_home->Content();
    const QString said = u"exit %1 [%2]: "_s.arg(m_run.exit).arg(QString::fromUtf8(m_run.err.trimmed()));
    QStringList wrong;
    if (m_run.exit == 0) {
        wrong = JudgeDone(content);
    } else {
        if (m_run.err.isEmpty()) wrong += u"not a word"_s;
        if (content == m_after) wrong += u"done, but said to have failed"_s;
        if (content != m_before && content != m_after) wrong += JudgeHalf(content);
    }
    return wrong.replaceInStrings(QRegularExpression(u"^"_s), said);
}

QStringList TestFaults::JudgeDone(const QStringList& content) const {
    QStringList wrong;
    if (m_run.out.isEmpty() && !m_printed.isEmpty()) wrong += u"done, but not shown"_s;
    const auto others = [this](QStringList lines) {
        lines.removeIf([this](const QString& line) { return line.contains(m_beside); });
        return lines;
    };
    const bool isTold = !m_beside.isEmpty() && !m_run.err.isEmpty() && others(content) == others(m_after);
    if (content != m_after && !isTold) wrong += u"acknowledged, but\n"_s + Difference(m_after, content);
    return wrong;
}

/// What is half done is finished by the same command. The user hears of a record without its timer, so that
/// it isn't added twice, and of a new text that the records have and a stored default hasn't.
QStringList TestFaults::JudgeHalf(const QStringList& content) const {
    for (const Text text : {Text::CliAddedWithoutTimer, Text::ChangeCarryOne}) {
        const QString words = LoadText(text),
                      said = words.contains(u"%s"_s) ? words.section(u"%s"_s, 1, 1) : words;
        if (QString::fromUtf8(m_run.err).contains(said) && IsBetween(content, m_before, m_after)) return {};
    }
    const ConsoleRun again = m_home->Run(m_command);
    const QStringList last = m_home->Content();
    if (again.exit == 0 && last == m_after) return {};
    return {u"half done\n%1and, when repeated, %2\n%3"_s.arg(
        Difference(m_before, content), QString::fromUtf8(again.err), Difference(m_after, last))};
}

void TestFaults::End() {
    const QStringList complaints = m_walk->TakeComplaints();
    for (const QString& complaint : complaints) qWarning("%s", qPrintable(complaint));
    QVERIFY2(complaints.isEmpty(), qPrintable(u"%1 runs failed"_s.arg(complaints.size())));
}

void TestFaults::cleanupTestCase() {
    if (m_walk) qInfo("%d runs, %d failures", m_walk->Runs(), m_walk->FailedRuns());
}

TEST_CLASS(TestFaults);
#include "TestFaults.moc"
