#include "support/TestProgram.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRandomGenerator>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>
#include <map>

using namespace Qt::Literals::StringLiterals;

namespace {

/// What a record may look like after commands of which some were killed: the notes it may carry, and whether
/// it may be gone.
struct Allowed {
    QSet<QString> notes;
    bool mayBeGone = false;
};

/// What a record's timer may be doing: "running", "paused", "none".
using TimerStates = QSet<QString>;

struct Reply {
    bool acknowledged = false;  ///< the program ended by itself with exit code 0
    QJsonDocument json;
};

}  // namespace

/// Kills the console program at random moments of its commands. Whatever it acknowledged must be there
/// afterwards; a command that was killed has either happened as a whole or not at all.
class TestKill : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init();
    void EverythingAcknowledgedIsThere();

 private:
    Reply Run(const QStringList& arguments, int killAfterMs = -1);
    void OneCommand();
    void Add(int killAfterMs);
    void Edit(const QString& id, int killAfterMs);
    void Delete(const QString& id, int killAfterMs);
    void Timer(const QString& action, const QString& id, int killAfterMs);
    void CheckRecords();
    void CheckTimers();
    [[nodiscard]] QString NextNote() { return u"note %1"_s.arg(++m_noteNumber); }
    [[nodiscard]] QString AnyRecord();

    std::unique_ptr<QTemporaryDir> m_home;
    QRandomGenerator m_random;
    std::map<QString, Allowed> m_records;
    std::map<QString, TimerStates> m_timers;
    QSet<QString> m_maybeAdded;  ///< notes of adds that were killed before they acknowledged
    int m_noteNumber = 0;
    int m_kills = 0;
    int m_acknowledged = 0;
    int m_killWithinMs = 0;  ///< kills come at any moment of a command, and sometimes after its end
};

void TestKill::init() {
    m_home = std::make_unique<QTemporaryDir>();
    QVERIFY(m_home->isValid());
    m_random.seed(4711);
    constexpr int kTrials = 5;
    QElapsedTimer since;
    since.start();
    for (int i = 0; i < kTrials; ++i) Add(-1);
    m_killWithinMs = static_cast<int>(since.elapsed()) * 2 / kTrials + 1;
}

Reply TestKill::Run(const QStringList& arguments, int killAfterMs) {
    QProcess program;
    program.setProgram(QStringLiteral(TEST_BIN_DIR "/velmarch-cli"));
    program.setArguments(QStringList{u"--home"_s, m_home->path(), u"--json"_s, u"--yes"_s} + arguments);
    program.start();
    if (killAfterMs >= 0 && !program.waitForFinished(killAfterMs)) {
        program.kill();
        ++m_kills;
    }
    program.waitForFinished(60000);
    Reply reply;
    reply.acknowledged = program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0;
    if (reply.acknowledged) {
        ++m_acknowledged;
        reply.json = QJsonDocument::fromJson(program.readAllStandardOutput());
    }
    return reply;
}

QString TestKill::AnyRecord() {
    if (m_records.empty()) return {};
    auto place = m_records.begin();
    std::advance(place, m_random.bounded(static_cast<int>(m_records.size())));
    return place->first;
}

void TestKill::Add(int killAfterMs) {
    const QString note = NextNote();
    const Reply reply =
        Run({u"time"_s, u"add"_s, u"--date"_s, u"2026-11-19"_s, u"--notes"_s, note}, killAfterMs);
    if (!reply.acknowledged) {
        m_maybeAdded.insert(note);
        return;
    }
    const QString id = reply.json[u"id"_s].toString();
    QCOMPARE(id.size(), 32);
    m_records[id].notes = {note};
}

void TestKill::Edit(const QString& id, int killAfterMs) {
    const QString note = NextNote();
    const Reply reply = Run({u"time"_s, u"edit"_s, id, u"--notes"_s, note}, killAfterMs);
    Allowed& record = m_records[id];
    if (reply.acknowledged)
        record = {{note}, false};
    else
        record.notes.insert(note);
}

void TestKill::Delete(const QString& id, int killAfterMs) {
    const Reply reply = Run({u"time"_s, u"delete"_s, id}, killAfterMs);
    if (!reply.acknowledged) {
        m_records[id].mayBeGone = true;
        m_timers[id].insert(u"none"_s);
        return;
    }
    m_records.erase(id);
    m_timers.erase(id);
}

void TestKill::Timer(const QString& action, const QString& id, int killAfterMs) {
    static const std::map<QString, QString> kLeadsTo{
        {u"start"_s, u"running"_s}, {u"pause"_s, u"paused"_s}, {u"stop"_s, u"none"_s}};
    const Reply reply = Run({u"timer"_s, action, id}, killAfterMs);
    TimerStates& states = m_timers[id];
    if (states.isEmpty()) states = {u"none"_s};
    const QString after = kLeadsTo.at(action);
    if (reply.acknowledged)
        states = {after};
    else
        states.insert(after);
}

void TestKill::OneCommand() {
    const QString id = AnyRecord();
    const int killAfterMs = m_random.bounded(m_killWithinMs);
    const int choice = id.isEmpty() || m_records.size() < 8 ? 0 : m_random.bounded(10);
    if (choice < 3)
        Add(killAfterMs);
    else if (choice < 5)
        Edit(id, killAfterMs);
    else if (choice < 6)
        Delete(id, killAfterMs);
    else if (choice < 8)
        Timer(u"start"_s, id, killAfterMs);
    else if (choice < 9)
        Timer(u"pause"_s, id, killAfterMs);
    else
        Timer(u"stop"_s, id, killAfterMs);
}

void TestKill::CheckRecords() {
    const Reply reply = Run({u"time"_s, u"list"_s});
    QVERIFY2(reply.acknowledged, "the list can't be read");
    std::map<QString, QString> found;
    for (const QJsonValue& record : reply.json[u"records"_s].toArray())
        found[record[u"id"_s].toString()] = record[u"notes"_s].toString();
    for (auto record = m_records.begin(); record != m_records.end();) {
        const auto there = found.find(record->first);
        if (there == found.end()) {
            QVERIFY2(record->second.mayBeGone, qPrintable(u"lost: "_s + record->first));
            m_timers.erase(record->first);
            record = m_records.erase(record);
            continue;
        }
        QVERIFY2(record->second.notes.contains(there->second),
                 qPrintable(u"wrong content: "_s + there->second));
        record->second = {{there->second}, false};  // what is seen once must stay
        ++record;
    }
    for (const auto& [id, note] : found) {
        if (m_records.contains(id)) continue;
        QVERIFY2(m_maybeAdded.contains(note), qPrintable(u"from nowhere: "_s + note));
        m_records[id].notes = {note};
    }
    m_maybeAdded.clear();
}

void TestKill::CheckTimers() {
    const Reply reply = Run({u"timer"_s, u"status"_s});
    QVERIFY2(reply.acknowledged, "the timers can't be read");
    std::map<QString, QString> found;
    for (const QJsonValue& timer : reply.json.array())
        found[timer[u"id"_s].toString()] = timer[u"state"_s].toString();
    for (auto& [id, states] : m_timers) {
        const auto there = found.find(id);
        const QString state = there == found.end() ? u"none"_s : there->second;
        QVERIFY2(states.contains(state), qPrintable(u"timer of %1 is %2"_s.arg(id, state)));
        states = {state};
    }
}

void TestKill::EverythingAcknowledgedIsThere() {
    const int wanted = qEnvironmentVariableIsSet("VELMARCH_LONG_TESTS") ? 1000 : 60;
    while (m_kills < wanted) {
        OneCommand();
        if (QTest::currentTestFailed()) return;
        if (m_random.bounded(12) != 0) continue;
        CheckRecords();
        CheckTimers();
        if (QTest::currentTestFailed()) return;
    }
    CheckRecords();
    CheckTimers();
    QVERIFY2(Run({u"doctor"_s}).acknowledged, "the store isn't sound");
    QVERIFY(m_acknowledged > 20);
    qInfo("%d kills, %d acknowledged commands, %d records", m_kills, m_acknowledged,
          static_cast<int>(m_records.size()));
}

TEST_CLASS(TestKill);
#include "TestKill.moc"
