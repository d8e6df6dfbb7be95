#include <QTest>

#include "lang/LoadText.h"
#include "support/TestProgram.h"
#include "torture/CFaultInjector.h"
#include "torture/FaultHome.h"
#include "torture/HomeContent.h"
#include "torture/QuickWaits.h"

using namespace Qt::Literals::StringLiterals;

namespace {

struct FaultRow {
    const char* name;
    Fault fault;
    Lasting lasting;
};
constexpr FaultRow kFaults[] = {
    {"one call fails", Fault::DiskError, Lasting::OneCall},
    {"all calls fail", Fault::DiskError, Lasting::FromThenOn},
    {"the disk is full for a moment", Fault::DiskFull, Lasting::OneCall},
    {"the disk is full", Fault::DiskFull, Lasting::FromThenOn},
    {"there is no lock for a moment", Fault::NoLocks, Lasting::OneCall},
    {"there are no locks", Fault::NoLocks, Lasting::FromThenOn},
    {"another program reads", Fault::Reader, Lasting::FromThenOn},
};

/// A command that changes data, and the commands that have to come before it. beside: what it changes
/// besides, and may leave with a word about it: the command's own change is done.
struct CommandRow {
    const char* command;
    const char* before = "";
    const char* beside = "";
};
constexpr CommandRow kCommands[] = {
    {"time add --date 2026-11-20 --duration 1:00 --notes new"},
    {"time edit {t1} --notes other --duration 0:45"},
    {"time delete {t1}"},
    {"time delete {t1} {t2}"},
    {"time copy {t1} {t2}"},
    {"time mark {t2} --as first-second"},
    {"expense add --date 2026-11-20 --amount 5"},
    {"expense add --odometer-start 150 --odometer-end 180 --rate 2", "", "VirtualCfgObj0033|"},
    {"expense edit {e1} --amount 7"},
    {"expense delete {e1} {e2}"},
    {"expense copy {e2}"},
    {"expense mark {e1} --as third-fourth"},
    {"expense new --from copy:{e1}"},
    {"timer start {t1}"},
    {"timer start {t4}"},
    {"timer start {t1}", "settings set timerOnNewTimer 1"},
    {"timer pause {t3}"},
    {"timer stop {t3}"},
    {"timer stop {t4}"},
    {"timer stop-all"},
    {"timer pause-all"},
    {"timer drop {t3}"},
    {"items rename 16 Acme Apex --in-records"},
    {"items rename 16 Acme Beta --in-records"},
    {"tree add time Beta Plan"},
    {"tree remove time Acme"},
    {"labels set 110 Work", "", "Columns|"},
    {"labels reset", "", "Columns|"},
    {"labels preset 2", "", "Columns|"},
    {"defaults save New --notes n"},
    {"columns set time date start --width date=99"},
    {"columns reset time", "columns set time date start"},
    {"settings set firstDayOfWeek 1"},
    {"settings reset"},
};

/// In the short form some of the calls fail, others for each command.
constexpr int kSample = 2;

bool IsLong() {
    return qEnvironmentVariableIsSet("VELMARCH_LONG_TESTS");
}

constexpr qint64 kPage = 4096;

}  // namespace

/// Each call to the system of each command that changes data fails once, and from then on. The command is
/// then either wholly done and ends with 0, or not done, ends with something else and says so in words; and
/// the same command, given again, does it.
class TestFaults : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase();
    void FailingCalls_data() { Commands(); }
    void FailingCalls();
    void FullDisk_data() { Commands(); }
    void FullDisk();
    void cleanupTestCase();

 private:
    void Commands();
    void Begin();
    void Try(const QString& what);
    void Judge(const ConsoleRun& run, const QString& what);
    void JudgeDone(const ConsoleRun& run, const QStringList& content, const QString& what);
    void Complain(const QString& what, const QString& why, const ConsoleRun& run);
    void End() const;
    [[nodiscard]] bool IsSampled(int call, int calls) const;

    CFaultInjector m_disk;
    QuickWaits m_waits;
    std::unique_ptr<FaultHome> m_home;
    QString m_command, m_beside;
    QByteArray m_printed;
    QStringList m_before, m_after, m_complaints;
    int m_runs = 0, m_failedRuns = 0;
};

void TestFaults::initTestCase() {
    QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR)));
    m_home = std::make_unique<FaultHome>();
    QVERIFY(m_home->IsMade());
}

void TestFaults::Commands() {
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("beside");
    for (const CommandRow& row : kCommands) {
        const QByteArray before = row.before;
        QTest::newRow((row.command + (before.isEmpty() ? before : " after " + before)).constData())
            << QString::fromLatin1(row.command) << QString::fromLatin1(row.before)
            << QString::fromLatin1(row.beside);
    }
}

/// What the command does when nothing fails.
void TestFaults::Begin() {
    QFETCH(QString, command);
    QFETCH(QString, before);
    QFETCH(QString, beside);
    m_command = command;
    m_beside = beside;
    m_complaints.clear();
    QVERIFY2(m_home->Prepare(before), qPrintable(before));
    m_before = m_home->Content();
    QVERIFY(m_home->Renew());
    const ConsoleRun run = m_home->Run(m_command);
    QVERIFY2(run.exit == 0, run.err.constData());
    m_printed = run.out;
    m_after = m_home->Content();
    QVERIFY(m_before != m_after);
}

bool TestFaults::IsSampled(int call, int calls) const {
    const int stride = IsLong() ? 1 : std::max(1, calls / kSample);
    return (call + static_cast<int>(m_command.size())) % stride == 0;
}

void TestFaults::FailingCalls() {
    Begin();
    if (QTest::currentTestFailed()) return;
    for (const FaultRow& row : kFaults) {
        QVERIFY(m_home->Renew());
        m_disk.Arm(row.fault, row.lasting, 0);
        (void)m_home->Run(m_command);
        const int calls = m_disk.Calls();
        for (int call = 1; call <= calls; ++call) {
            if (!IsSampled(call, calls)) continue;
            QVERIFY(m_home->Renew());
            m_disk.Arm(row.fault, row.lasting, call);
            Try(u"%1, call %2 of %3"_s.arg(QLatin1String(row.name)).arg(call).arg(calls));
        }
    }
    End();
}

/// The files may grow by no page, by one, by two, up to as many as the command needs.
void TestFaults::FullDisk() {
    Begin();
    if (QTest::currentTestFailed()) return;
    QVERIFY(m_home->Renew());
    m_disk.ArmDisk(std::numeric_limits<qint64>::max() / 2);
    (void)m_home->Run(m_command);
    const int pages = static_cast<int>(m_disk.MostGrowth() / kPage);
    for (int page = 0; page <= pages; ++page) {
        if (!IsSampled(page, pages)) continue;
        QVERIFY(m_home->Renew());
        m_disk.ArmDisk(page * kPage);
        Try(u"a disk with room for %1 of %2 pages"_s.arg(page).arg(pages));
    }
    End();
}

void TestFaults::Try(const QString& what) {
    const ConsoleRun run = m_home->Run(m_command);
    m_disk.Disarm();
    ++m_runs;
    const qsizetype complaints = m_complaints.size();
    Judge(run, what);
    if (m_complaints.size() != complaints) ++m_failedRuns;
}

void TestFaults::Judge(const ConsoleRun& run, const QString& what) {
    const QStringList content = m_home->Content();
    if (run.exit == 0) return JudgeDone(run, content, what);
    if (run.err.isEmpty()) Complain(what, u"not a word"_s, run);
    if (content == m_before) return;
    if (content == m_after) return Complain(what, u"done, but said to have failed"_s, run);
    const ConsoleRun again = m_home->Run(m_command);
    const QStringList last = m_home->Content();
    const QString halfway = Difference(m_before, content);
    if (again.exit != 0 || last != m_after)
        Complain(what,
                 u"half done\n"_s + halfway + u"and, when repeated, "_s + QString::fromUtf8(again.err) +
                     u'\n' + Difference(m_after, last),
                 run);
}

void TestFaults::JudgeDone(const ConsoleRun& run, const QStringList& content, const QString& what) {
    if (run.out.isEmpty() && !m_printed.isEmpty()) Complain(what, u"done, but not shown"_s, run);
    if (content == m_after) return;
    const auto others = [this](QStringList lines) {
        lines.removeIf([this](const QString& line) { return line.contains(m_beside); });
        return lines;
    };
    if (!m_beside.isEmpty() && !run.err.isEmpty() && others(content) == others(m_after)) return;
    Complain(what, u"acknowledged, but\n"_s + Difference(m_after, content), run);
}

void TestFaults::Complain(const QString& what, const QString& why, const ConsoleRun& run) {
    m_complaints += u"%1: %2: exit %3: %4[%5]\n"_s.arg(m_command, what)
                        .arg(run.exit)
                        .arg(why, QString::fromUtf8(run.err.trimmed()));
}

void TestFaults::End() const {
    for (const QString& complaint : m_complaints) qWarning("%s", qPrintable(complaint));
    QVERIFY2(m_complaints.isEmpty(), qPrintable(u"%1 runs failed"_s.arg(m_complaints.size())));
}

void TestFaults::cleanupTestCase() {
    qInfo("%d runs, %d failures", m_runs, m_failedRuns);
}

TEST_CLASS(TestFaults);
#include "TestFaults.moc"
