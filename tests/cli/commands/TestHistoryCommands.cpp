#include "cli/home/ConsoleHome.h"

#include "support/TestProgram.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// "history", "undo", "redo".
class TestHistoryCommands : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init() { m_home = std::make_unique<ConsoleHome>(); }

    void undoAndRedo();
    void listOfChanges();
    void nothingThere();
    void unreadableFile();
    void restoreAndImport();
    void timerThatRuns();
    void whatIsStoredUnderNames();
    void aRestoreThatTakesATimer();
    void aMergeWithWhatIsStored();
    void passedOver();
    void notToBeWritten();
    void changedBySomebodyElse();
    void usage_data();
    void usage();

 private:
    [[nodiscard]] QString Add(const QString& client) const {
        const Reply reply = m_home->RunJson({u"time"_s, u"add"_s, u"--item1"_s, client});
        return reply.Object()[u"id"].toString();
    }
    [[nodiscard]] QByteArray Listed() const {
        return m_home->RunJson({u"time"_s, u"list"_s}).out +
               m_home->RunJson({u"items"_s, u"list"_s, u"16"_s}).out;
    }
    std::unique_ptr<ConsoleHome> m_home;
};

void TestHistoryCommands::undoAndRedo() {
    const QString first = Add(u"Acorn"_s), second = Add(u"Birch"_s);
    const QByteArray before = Listed();
    QCOMPARE(m_home->Run({u"--yes"_s, u"time"_s, u"delete"_s, first, second}).exit, 0);
    const QByteArray after = Listed();
    const Reply undone = m_home->RunJson({u"undo"_s});
    QCOMPARE(undone.out,
             QByteArray("{\"undone\": \"delete 2 records\", \"times\": 2, \"expenses\": 0, \"lists\": false, "
                        "\"passedOver\": []}\n"));
    QCOMPARE(Listed(), before);
    const Reply redone = m_home->Run({u"redo"_s});
    QCOMPARE(redone.out, QByteArray("Done again: delete 2 records\n"));
    QCOMPARE(Listed(), after);
}

void TestHistoryCommands::listOfChanges() {
    const QString id = Add(u"Acorn"_s);
    QCOMPARE(m_home->Run({u"items"_s, u"add"_s, u"16"_s, u"Birch"_s}).exit, 0);
    QCOMPARE(m_home->Run({u"--yes"_s, u"time"_s, u"delete"_s, id}).exit, 0);
    QCOMPARE(m_home->Run({u"undo"_s}).exit, 0);
    QStringList changes;
    for (const QJsonValue& change : m_home->RunJson({u"history"_s}).Array())
        changes.append(change[u"change"].toString() + u'/' + change[u"state"].toString());
    QCOMPARE(changes, (QStringList{u"delete a record (Acorn)/undone"_s, u"add \"Birch\" to Client/done"_s,
                                   u"add a record (Acorn)/done"_s}));
    const QByteArray lines = m_home->Run({u"history"_s, u"--limit"_s, u"1"_s}).out;
    QCOMPARE(lines.count('\n'), 1);
    QVERIFY2(lines.endsWith("  delete a record (Acorn) (undone)\n"), lines);
}

void TestHistoryCommands::nothingThere() {
    QCOMPARE(m_home->RunJson({u"history"_s}).out, QByteArray("[]\n"));
    const Reply reply = m_home->Run({u"undo"_s});
    QCOMPARE(reply.exit, 4);
    QCOMPARE(reply.err, QByteArray("velmarch-cli: There is nothing to undo.\n"));
    QCOMPARE(m_home->Run({u"redo"_s}).exit, 4);
}

/// It is put aside once, and whoever asks hears of it.
void TestHistoryCommands::unreadableFile() {
    static_cast<void>(Add(u"Acorn"_s));
    QFile history(m_home->File(u"velmarch.history"_s));
    QVERIFY(history.open(QFile::WriteOnly));
    history.write(QByteArray(6000, 'g'));
    history.close();
    const Reply reply = m_home->Run({u"history"_s});
    QCOMPARE(reply.exit, 0);
    QVERIFY2(reply.err.contains("velmarch.history.unreadable-"), reply.err.constData());
    QCOMPARE(m_home->Run({u"history"_s}).err, QByteArray());
}

void TestHistoryCommands::restoreAndImport() {
    static_cast<void>(Add(u"Acorn"_s));
    const QString backup = m_home->File(u"saved.backup"_s), text = m_home->File(u"records.txt"_s);
    QCOMPARE(m_home->Run({u"backup"_s, backup}).exit, 0);
    QCOMPARE(m_home->Run({u"export"_s, u"records"_s, text}).exit, 0);
    static_cast<void>(Add(u"Birch"_s));
    const QByteArray both = Listed();
    QCOMPARE(m_home->Run({u"--yes"_s, u"restore"_s, backup}).exit, 0);
    QVERIFY(Listed() != both);
    QCOMPARE(m_home->Run({u"undo"_s}).out, QByteArray("Undone: restore a backup\n"));
    QCOMPARE(Listed(), both);
    QCOMPARE(m_home->Run({u"import"_s, u"records"_s, text}).exit, 0);
    QCOMPARE(m_home->Run({u"undo"_s}).out, QByteArray("Undone: import a record\n"));
    QCOMPARE(Listed(), both);
}

/// A stop that is taken back leaves the timer as it was; the record that was added goes with its timer.
void TestHistoryCommands::timerThatRuns() {
    const QString id = Add(u"Acorn"_s);
    const auto timers = [&] { return m_home->RunJson({u"timer"_s, u"status"_s}).out.count(id.toLatin1()); };
    QCOMPARE(m_home->Run({u"timer"_s, u"start"_s, id}).exit, 0);
    QCOMPARE(m_home->Run({u"timer"_s, u"stop"_s, id}).exit, 0);
    QCOMPARE(timers(), 0);
    QCOMPARE(m_home->Run({u"undo"_s}).out, QByteArray("Undone: stop a timer (Acorn)\n"));
    QCOMPARE(timers(), 1);
    QCOMPARE(m_home->Run({u"redo"_s}).out, QByteArray("Done again: stop a timer (Acorn)\n"));
    QCOMPARE(timers(), 0);
    QCOMPARE(m_home->Run({u"undo"_s}).exit, 0);
    QCOMPARE(m_home->Run({u"undo"_s}).out, QByteArray("Undone: add a record (Acorn)\n"));
    QCOMPARE(timers(), 0);
    QCOMPARE(m_home->Run({u"redo"_s}).exit, 0);
    QCOMPARE(timers(), 1);
}

void TestHistoryCommands::whatIsStoredUnderNames() {
    const auto names = [&] { return m_home->RunJson({u"query"_s, u"list"_s}).out; };
    const QByteArray none = names();
    QCOMPARE(m_home->Run({u"query"_s, u"save"_s, u"Week"_s, u"--item1"_s, u"Acorn"_s}).exit, 0);
    const QByteArray one = names();
    static_cast<void>(Add(u"Birch"_s));
    QCOMPARE(m_home->Run({u"--yes"_s, u"query"_s, u"delete"_s, u"Week"_s}).exit, 0);
    QCOMPARE(m_home->Run({u"undo"_s}).out, QByteArray("Undone: delete the query \"Week\"\n"));
    QCOMPARE(names(), one);
    QCOMPARE(m_home->Run({u"undo"_s}).out, QByteArray("Undone: add a record (Birch)\n"));
    QCOMPARE(m_home->Run({u"undo"_s}).out, QByteArray("Undone: save the query \"Week\"\n"));
    QCOMPARE(names(), none);
    QCOMPARE(m_home->Run({u"redo"_s}).exit, 0);
    QCOMPARE(names(), one);
}

/// The backup doesn't have the record whose timer runs.
void TestHistoryCommands::aRestoreThatTakesATimer() {
    static_cast<void>(Add(u"Acorn"_s));
    const QString backup = m_home->File(u"saved.backup"_s);
    QCOMPARE(m_home->Run({u"backup"_s, backup}).exit, 0);
    const QString id = Add(u"Birch"_s);
    QCOMPARE(m_home->Run({u"timer"_s, u"start"_s, id}).exit, 0);
    QCOMPARE(m_home->Run({u"--yes"_s, u"restore"_s, backup}).exit, 0);
    const auto timers = [&] { return m_home->RunJson({u"timer"_s, u"status"_s}).out.count(id.toLatin1()); };
    QCOMPARE(timers(), 0);
    QCOMPARE(m_home->Run({u"undo"_s}).exit, 0);
    QCOMPARE(timers(), 1);
}

/// Queries and defaults that ask for the item take its new text; both are one change.
void TestHistoryCommands::aMergeWithWhatIsStored() {
    static_cast<void>(Add(u"Beta"_s));
    for (const QString& text : {u"Beta"_s, u"Gamma"_s})
        static_cast<void>(m_home->Run({u"items"_s, u"add"_s, u"16"_s, text}));
    QCOMPARE(m_home->Run({u"query"_s, u"save"_s, u"Week"_s, u"--item1"_s, u"Beta"_s}).exit, 0);
    const auto found = [&] {
        return m_home->RunJson({u"time"_s, u"list"_s, u"--query"_s, u"Week"_s}).Object()[u"count"].toInt();
    };
    QCOMPARE(found(), 1);
    QCOMPARE(m_home->Run({u"--yes"_s, u"items"_s, u"merge"_s, u"16"_s, u"Beta"_s, u"Gamma"_s}).out,
             QByteArray("Merged. Records changed: 1, stored queries and defaults: 1\n"));
    QCOMPARE(found(), 1);
    QCOMPARE(m_home->Run({u"undo"_s}).out, QByteArray("Undone: merge \"Beta\" into \"Gamma\" in Client\n"));
    QCOMPARE(found(), 1);
    QCOMPARE(m_home->RunJson({u"query"_s, u"show"_s, u"Week"_s}).Object()[u"item1"].toString(), u"Beta"_s);
}

void TestHistoryCommands::passedOver() {
    const QString first = Add(u"Acorn"_s);
    static_cast<void>(Add(u"Birch"_s));
    QCOMPARE(m_home->Run({u"time"_s, u"edit"_s, first, u"--notes"_s, u"here"_s}).exit, 0);
    static_cast<void>(Add(u"Cedar"_s));  // from here on it is sure that the edit was made
    QCOMPARE(m_home->Run({u"undo"_s}).exit, 0);
    QVERIFY(
        m_home->Execute(u"velmarch.store"_s, "UPDATE time_velmarch SET notes='there' WHERE item1='Acorn'"));
    const Reply refused = m_home->Run({u"undo"_s});
    QCOMPARE(refused.exit, 1);
    QVERIFY2(refused.err.contains("--skip"), refused.err);
    QCOMPARE(m_home->Run({u"undo"_s, u"--skip"_s}).out,
             QByteArray("Passed over: edit a record (Acorn)\nUndone: add a record (Birch)\n"));
    const Reply nothing = m_home->Run({u"undo"_s, u"--skip"_s});
    QCOMPARE(nothing.exit, 1);
    QVERIFY2(nothing.err.contains("no other change"), nothing.err);
}

/// The change is stored, and its command says once that it can't be undone.
void TestHistoryCommands::notToBeWritten() {
    QVERIFY(QDir(m_home->Path()).mkdir(u"velmarch.history"_s));
    const Reply reply = m_home->Run({u"time"_s, u"add"_s, u"--item1"_s, u"Acorn"_s});
    QCOMPARE(reply.exit, 0);
    QVERIFY2(reply.err.contains("istory"), reply.err);
    QCOMPARE(m_home->Run({u"time"_s, u"add"_s}).err, QByteArray());
}

void TestHistoryCommands::changedBySomebodyElse() {
    const QString id = Add(u"Acorn"_s);
    QCOMPARE(m_home->Run({u"time"_s, u"edit"_s, id, u"--item1"_s, u"Birch"_s}).exit, 0);
    QFile::remove(m_home->Path() + u"/velmarch.history"_s);
    QCOMPARE(m_home->Run({u"time"_s, u"edit"_s, id, u"--item1"_s, u"Cedar"_s}).exit, 0);
    QFile::rename(m_home->Path() + u"/velmarch.history"_s, m_home->Path() + u"/kept"_s);
    QCOMPARE(m_home->Run({u"time"_s, u"edit"_s, id, u"--item1"_s, u"Dogwood"_s}).exit, 0);
    QFile::remove(m_home->Path() + u"/velmarch.history"_s);
    QFile::rename(m_home->Path() + u"/kept"_s, m_home->Path() + u"/velmarch.history"_s);
    const QByteArray before = Listed();
    QCOMPARE(m_home->Run({u"undo"_s}).exit, 4);  // that change isn't what the records show
    QCOMPARE(Listed(), before);
}

void TestHistoryCommands::usage_data() {
    QTest::addColumn<QStringList>("words");
    QTest::newRow("undo takes no words") << QStringList{u"undo"_s, u"2"_s};
    QTest::newRow("a limit of none") << QStringList{u"history"_s, u"--limit"_s, u"0"_s};
    QTest::newRow("a limit that is no number") << QStringList{u"history"_s, u"--limit"_s, u"x"_s};
}

void TestHistoryCommands::usage() {
    QFETCH(QStringList, words);
    QCOMPARE(m_home->Run(words).exit, 2);
}

TEST_CLASS(TestHistoryCommands);
#include "TestHistoryCommands.moc"
