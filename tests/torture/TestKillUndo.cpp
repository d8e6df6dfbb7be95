#include "support/TestProgram.h"

#include <sqlite3.h>

#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <memory>
#include <optional>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

using Database = std::unique_ptr<sqlite3, decltype(&sqlite3_close)>;

/// The rows that a statement gives, every value with its type.
void AddRows(const QString& path, const QByteArray& sql, QStringList& rows) {
    sqlite3* opened = nullptr;
    // Who reads first rolls back what a killed program has left halfway.
    const int result = sqlite3_open_v2(path.toUtf8().constData(), &opened, SQLITE_OPEN_READWRITE, nullptr);
    const Database database(opened, sqlite3_close);
    QCOMPARE(result, SQLITE_OK);
    sqlite3_stmt* statement = nullptr;
    QCOMPARE(sqlite3_prepare_v2(opened, sql.constData(), -1, &statement, nullptr), SQLITE_OK);
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(statement)) == SQLITE_ROW) {
        QString row;
        for (int column = 0; column < sqlite3_column_count(statement); ++column)
            row += QStringLiteral("%1:%2|").arg(
                QString::number(sqlite3_column_type(statement, column)),
                QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, column))));
        rows.append(row);
    }
    sqlite3_finalize(statement);
    QCOMPARE(step, SQLITE_DONE);
}

}  // namespace

/// Kills the console program at random moments of changes, undo and redo. Afterwards the records and what is
/// stored under names are, to the byte, what they were before the command or what they are after it, and the
/// history says which of the two.
class TestKillUndo : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void storeAndHistoryAgree();

 private:
    [[nodiscard]] std::optional<QJsonDocument> Run(const QStringList& words, int killAfterMs = -1);
    [[nodiscard]] QStringList Dump() const;
    [[nodiscard]] QStringList ChangeAtRandom();
    /// How many changes are done by the history.
    [[nodiscard]] std::optional<std::size_t> DoneByHistory();
    void Settle(const QStringList& words);
    void UndoToTheStart();

    QTemporaryDir m_home;
    QRandomGenerator m_random{4711};
    std::vector<QStringList> m_states;  ///< of the home, one after each change that can be undone or redone
    std::size_t m_place = 0;            ///< the present one
    int m_kills = 0;
    int m_number = 0;
};

std::optional<QJsonDocument> TestKillUndo::Run(const QStringList& words, int killAfterMs) {
    QProcess program;
    program.setProgram(QStringLiteral(TEST_BIN_DIR "/velmarch-cli"));
    program.setArguments(QStringList{u"--home"_s, m_home.path(), u"--json"_s, u"--yes"_s} + words);
    program.start();
    if (killAfterMs >= 0 && !program.waitForFinished(killAfterMs)) {
        program.kill();
        ++m_kills;
    }
    program.waitForFinished(60000);
    if (program.exitStatus() != QProcess::NormalExit || program.exitCode() != 0) return std::nullopt;
    return QJsonDocument::fromJson(program.readAllStandardOutput());
}

QStringList TestKillUndo::Dump() const {
    QStringList rows;
    const QString store = m_home.filePath(u"velmarch.store"_s);
    for (const QByteArray table : {"time_velmarch", "time_velmarch_checks", "item_velmarch"})
        AddRows(store, "SELECT * FROM " + table + " ORDER BY identity", rows);
    AddRows(m_home.filePath(u"velmarch.settings"_s),
            "SELECT k.id, k.name, e.* FROM keys k JOIN keys p ON p.id=k.parent JOIN entries e ON e.key=k.id "
            "WHERE p.name='TimeQueries' ORDER BY k.id, e.name",
            rows);
    return rows;
}

std::optional<std::size_t> TestKillUndo::DoneByHistory() {
    const auto listed = Run({u"history"_s});
    if (!listed) return std::nullopt;
    std::size_t done = 0;
    for (const QJsonValue change : listed->array())
        if (change[u"state"].toString() == u"done") ++done;
    return done;
}

/// None is like another one, so each state is a different one.
QStringList TestKillUndo::ChangeAtRandom() {
    const QString note = QString::number(++m_number);
    const auto listed = Run({u"time"_s, u"list"_s});
    const QJsonArray records = listed ? listed->object()[u"records"].toArray() : QJsonArray();
    const QString id =
        records.isEmpty()
            ? QString()
            : records[m_random.bounded(static_cast<int>(records.size()))].toObject()[u"id"].toString();
    switch (id.isEmpty() ? 0 : m_random.bounded(5)) {
        case 1:
            return {u"time"_s, u"edit"_s, id, u"--notes"_s, note};
        case 2:
            return {u"time"_s, u"delete"_s, id};
        case 3:
            return {u"query"_s, u"save"_s, u"It"_s, u"--item1"_s, note};
        case 4:
            return {u"items"_s, u"add"_s, u"16"_s, note};
        default:
            return {u"time"_s, u"add"_s, u"--date"_s, u"2026-11-19"_s, u"--notes"_s, note};
    }
}

/// Takes note of where the home is now: where it was, or one change on, or back.
void TestKillUndo::Settle(const QStringList& words) {
    const QStringList now = Dump();
    const bool isUndo = words[0] == u"undo", isRedo = words[0] == u"redo";
    if (now != m_states[m_place]) {
        if (!isUndo && !isRedo) {
            m_states.resize(m_place + 1);
            m_states.push_back(now);
        }
        m_place = isUndo ? m_place - 1 : m_place + 1;
    }
    QVERIFY2(m_place < m_states.size(), qPrintable(words.join(u' ')));
    QCOMPARE(now, m_states[m_place]);
    QCOMPARE(DoneByHistory(), std::optional(m_place));
    QCOMPARE(Dump(), now);  // looking settles nothing of the records
}

void TestKillUndo::UndoToTheStart() {
    while (m_place > 0) {
        QVERIFY(Run({u"undo"_s}));
        QCOMPARE(Dump(), m_states[--m_place]);
    }
    QVERIFY(!Run({u"undo"_s}));
    while (m_place + 1 < m_states.size()) {
        QVERIFY(Run({u"redo"_s}));
        QCOMPARE(Dump(), m_states[++m_place]);
    }
    QVERIFY(!Run({u"redo"_s}));
    QVERIFY(Run({u"doctor"_s}));
}

void TestKillUndo::storeAndHistoryAgree() {
    QVERIFY(m_home.isValid());
    QVERIFY(Run({u"time"_s, u"list"_s}));
    QVERIFY(Run({u"settings"_s, u"list"_s}));
    m_states = {Dump()};
    QElapsedTimer since;
    since.start();
    QVERIFY(Run({u"time"_s, u"add"_s, u"--notes"_s, u"first"_s}));
    const int killWithinMs = 2 * static_cast<int>(since.elapsed()) + 1;
    Settle({u"time"_s});
    const int wanted = qEnvironmentVariableIsSet("VELMARCH_LONG_TESTS") ? 1000 : 30;
    while (m_kills < wanted) {
        const bool isBack = m_place > 0 && m_random.bounded(3) == 0;
        const bool isOn = m_place + 1 < m_states.size() && m_random.bounded(2) == 0;
        const QStringList words = isBack ? QStringList{u"undo"_s}
                                  : isOn ? QStringList{u"redo"_s}
                                         : ChangeAtRandom();
        static_cast<void>(Run(words, m_random.bounded(killWithinMs)));
        Settle(words);
        if (QTest::currentTestFailed()) return;
    }
    UndoToTheStart();
}

TEST_CLASS(TestKillUndo);
#include "TestKillUndo.moc"
