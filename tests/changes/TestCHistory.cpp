#include "HistoryFixture.h"
#include "app/HomeFiles.h"
#include "support/TestProgram.h"

#include <QDir>
#include <QFile>

using namespace Qt::Literals::StringLiterals;

namespace {

QStringList FilesAside(const QString& home) {
    return QDir(home).entryList({u"velmarch.history.unreadable-*"_s});
}

QString PathOf(const HistoryFixture& fixture) {
    return HistoryPath(fixture.home.Path());
}

void Overwrite(const QString& path, qint64 from) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.seek(from));
    QCOMPARE(file.write(QByteArray(200, 'x')), 200);
}

}  // namespace

/// What the history holds after programs have ended in all ways, and what it does when it is damaged.
class TestCHistory final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void keptOverRestarts() {
        HistoryFixture fixture;
        const QString id = fixture.Add(u"Acorn"_s);
        const QStringList before = fixture.Dump();
        QVERIFY(fixture.changes.Delete(RecordKind::Time, {id}, Ask::No));
        fixture.home.manager.SetJournal(nullptr);
        CHistory next(fixture.home.Path(), fixture.home.clock, *fixture.home.settings);
        fixture.home.manager.SetJournal(&next);
        CUndo undo({.store = *fixture.home.store,
                    .history = next,
                    .timers = fixture.ownTimers,
                    .settings = *fixture.home.settings});
        const UndoOutcome outcome = undo.Run(CHistory::Way::Undo);
        QCOMPARE(outcome.words, u"delete a record (Acorn)"_s);
        QCOMPARE(fixture.Dump(), before);
        fixture.home.manager.SetJournal(nullptr);
    }

    void endedBetweenHistoryAndStore_data() {
        QTest::addColumn<bool>("isStored");
        QTest::addColumn<QString>("names");
        QTest::newRow("before the store: the history doesn't claim it") << false << u"add a record (Acorn)"_s;
        QTest::newRow("after the store: the history has it")
            << true << u"delete a record (Acorn), add a record (Acorn)"_s;
    }

    /// A program writes the history first. Nobody tells it the end of the transaction: it isn't there any
    /// more.
    void endedBetweenHistoryAndStore() {
        QFETCH(bool, isStored);
        QFETCH(QString, names);
        HistoryFixture fixture;
        const QString id = fixture.Add(u"Acorn"_s);
        CSqliteFile& file = fixture.home.manager.File();
        {
            CHistory killed(fixture.home.Path(), fixture.home.clock, *fixture.home.settings);
            fixture.home.manager.SetJournal(&killed);
            QVERIFY(file.Begin());
            QVERIFY(file.Execute("DELETE FROM time_velmarch"));
            killed.OnCommit(file);
            fixture.home.manager.SetJournal(nullptr);
            if (isStored)
                QVERIFY(file.Commit());
            else
                file.Rollback();
        }
        fixture.home.manager.SetJournal(&fixture.history);
        QCOMPARE(fixture.Names(), names);
        const QString other = fixture.Add(u"Birch"_s);
        QCOMPARE(fixture.Names(), u"add a record (Birch), "_s + names);
        for (int change = 0; change < (isStored ? 3 : 2); ++change) QVERIFY(fixture.Undo());
        QCOMPARE(fixture.Dump(), QStringList());
        QCOMPARE(fixture.Undo().end, UndoOutcome::End::Nothing);
    }

    void endedInTheMiddleOfAnUndo_data() {
        QTest::addColumn<bool>("isStored");
        QTest::addColumn<QString>("names");
        QTest::newRow("before the store: it can still be undone") << false << u"add a record (Acorn)"_s;
        QTest::newRow("after the store: it can be done again") << true << u"[add a record (Acorn)]"_s;
    }

    void endedInTheMiddleOfAnUndo() {
        QFETCH(bool, isStored);
        QFETCH(QString, names);
        HistoryFixture fixture;
        fixture.Add(u"Acorn"_s);
        CSqliteFile& file = fixture.home.manager.File();
        {
            CHistory killed(fixture.home.Path(), fixture.home.clock, *fixture.home.settings);
            fixture.home.manager.SetJournal(&killed);
            QVERIFY(file.Begin());
            const auto changes = killed.Changes(file);
            QVERIFY(file.Execute("DELETE FROM time_velmarch"));
            QVERIFY(killed.NoteWay(changes->front(), CHistory::Way::Undo));
            fixture.home.manager.SetJournal(nullptr);
            if (isStored)
                QVERIFY(file.Commit());
            else
                file.Rollback();
        }
        fixture.home.manager.SetJournal(&fixture.history);
        QCOMPARE(fixture.Names(), names);
        QVERIFY(isStored ? fixture.Redo() : fixture.Undo());
        QCOMPARE(fixture.Dump().isEmpty(), !isStored);
    }

    void endedInTheMiddleOfAChangeOfTheSettings_data() {
        QTest::addColumn<bool>("isStored");
        QTest::addColumn<QString>("names");
        QTest::newRow("before the settings: the history doesn't claim it")
            << false << u"save the query \"Week\""_s;
        QTest::newRow("after the settings: the history has it")
            << true << u"delete the query \"Week\", save the query \"Week\""_s;
    }

    /// Nobody but who holds the settings can tell: a change of the records in between settles nothing of it.
    void endedInTheMiddleOfAChangeOfTheSettings() {
        QFETCH(bool, isStored);
        QFETCH(QString, names);
        HistoryFixture fixture;
        fixture.PutQuery(u"Week"_s, u"Acorn"_s);
        CSqliteFile& file = fixture.home.tree.File();
        {
            CHistory killed(fixture.home.Path(), fixture.home.clock, *fixture.home.settings);
            file.Watch(nullptr);
            QVERIFY(file.Begin());
            killed.Entries().NoteEntry(LoadText(Text::KeyTimeQueries), u"Week"_s);
            fixture.home.settings->SetEntryJournal(nullptr);
            QVERIFY(file.Execute("DELETE FROM keys WHERE name='Week'"));
            killed.Entries().OnCommit(file);
            if (isStored)
                QVERIFY(file.Commit());
            else
                file.Rollback();
        }
        fixture.history.Entries().Watch();
        fixture.Add(u"Birch"_s);
        QCOMPARE(fixture.Names(), u"add a record (Birch), "_s + names);
        QVERIFY(fixture.Undo());
        fixture.PutQuery(u"Month"_s, u"Acorn"_s);
        QCOMPARE(fixture.Names(), u"save the query \"Month\", "_s + names);
        for (int change = 0; change < (isStored ? 3 : 2); ++change) QVERIFY(fixture.Undo());
        QCOMPARE(fixture.DumpStored(), QStringList());
    }

    void aCommitThatFails() {
        HistoryFixture fixture;
        fixture.Add(u"Acorn"_s);
        fixture.FailCommits("INSERT");
        fixture.home.prompt.ExpectTold(Text::InsertCommitFailed);
        QCOMPARE(fixture.Add(u"Birch"_s), QString());
        fixture.MendCommits();
        QCOMPARE(fixture.Names(), u"add a record (Acorn)"_s);
    }

    void damagedHistory_data() {
        QTest::addColumn<qint64>("from");
        QTest::newRow("its head") << qint64{0};
        QTest::newRow("a page of it") << qint64{4096};
    }

    /// The change is stored, the user is told, and a new history begins.
    void damagedHistory() {
        QFETCH(qint64, from);
        HistoryFixture fixture;
        fixture.Add(u"Acorn"_s);
        Overwrite(PathOf(fixture), from);
        fixture.home.manager.SetJournal(nullptr);
        CHistory next(fixture.home.Path(), fixture.home.clock, *fixture.home.settings);
        fixture.home.manager.SetJournal(&next);
        CUndo undo({.store = *fixture.home.store,
                    .history = next,
                    .timers = fixture.ownTimers,
                    .settings = *fixture.home.settings});
        fixture.home.prompt.ExpectTold(Text::HistoryTitle);
        QVERIFY(!fixture.Add(u"Birch"_s).isEmpty());
        QCOMPARE(FilesAside(fixture.home.Path()).size(), 1);
        const auto changes = undo.Changes();
        QVERIFY(changes && changes->size() == 1);
        QVERIFY(undo.Run(CHistory::Way::Undo));
        fixture.home.manager.SetJournal(nullptr);
    }

    void historyThatCantBeWritten() {
        HistoryFixture fixture;
        fixture.Add(u"Acorn"_s);
        CSqliteFile other;
        static_cast<void>(
            other.Open(PathOf(fixture), {.applicationId = 0x564D4849U, .busySeconds = 1}, false));
        QVERIFY(other.Execute("BEGIN EXCLUSIVE"));
        fixture.home.prompt.ExpectTold(Text::HistoryTitle);
        QVERIFY(!fixture.Add(u"Birch"_s).isEmpty());
        QVERIFY(!fixture.Add(u"Cedar"_s).isEmpty());  // told once
        QVERIFY(other.Execute("ROLLBACK"));
        QCOMPARE(fixture.Names(), u"add a record (Acorn)"_s);
        QVERIFY(!fixture.Add(u"Dogwood"_s).isEmpty());
        QCOMPARE(fixture.Names(), u"add a record (Dogwood), add a record (Acorn)"_s);
    }

    /// The folder is put aside like any other file that can't be read.
    void aFolderInItsPlace() {
        HistoryFixture fixture;
        QVERIFY(QDir().mkpath(PathOf(fixture) + u"/within"_s));
        fixture.home.prompt.ExpectTold(Text::HistoryTitle);
        QVERIFY(!fixture.Add(u"Acorn"_s).isEmpty());
        QCOMPARE(fixture.Names(), u"add a record (Acorn)"_s);
        QCOMPARE(FilesAside(fixture.home.Path()).size(), 1);
    }

    /// Histories of before had no names.
    void aHistoryWithoutNames() {
        HistoryFixture fixture;
        fixture.home.manager.SetJournal(nullptr);
        CSqliteFile old;
        QVERIFY(old.Open(PathOf(fixture), {.applicationId = 0x564D4849U, .busySeconds = 1}, true) ==
                OpenOutcome::Created);
        QVERIFY(old.Execute(
            "CREATE TABLE changes(row INTEGER PRIMARY KEY, number INTEGER NOT NULL, time TEXT NOT NULL,"
            " kind INTEGER NOT NULL, count INTEGER NOT NULL, state INTEGER NOT NULL,"
            " event INTEGER NOT NULL, target INTEGER NOT NULL, key BLOB NOT NULL, target_sum INTEGER NOT "
            "NULL,"
            " sum INTEGER NOT NULL, sure INTEGER NOT NULL);"
            "CREATE TABLE parts(id INTEGER PRIMARY KEY, ops BLOB NOT NULL, sum INTEGER NOT NULL);"));
        old.Close();
        fixture.home.manager.SetJournal(&fixture.history);
        fixture.Add(u"Acorn"_s);
        QCOMPARE(fixture.Names(), u"add a record (Acorn)"_s);
        QVERIFY(fixture.Undo());
    }

    /// 2,300 records with 32,000 characters each are more than 64 MB.
    void tooLargeToBeUndone() {
        HistoryFixture fixture;
        CTRecord record;
        record.notes = QString(32000, u'n');
        QVERIFY(fixture.changes.Add(record, Identity::New));
        fixture.Run(
            "INSERT INTO time_velmarch SELECT start_hour, start_minute, start_pm, end_hour, end_minute, "
            "end_pm,"
            " item1, item2, item3, item4, rate, item5, amount, billable, billed, exported, duration_hours,"
            " duration_minutes, break_hours, break_minutes, month, day, year, notes,"
            " substr('00000000000000000000000000000000' || value, -32) FROM time_velmarch,"
            " (WITH RECURSIVE n(value) AS (SELECT 1 UNION ALL SELECT value+1 FROM n WHERE value<2300)"
            " SELECT value FROM n)");
        QStringList ids;
        QVERIFY(fixture.home.store->QueryTexts(u"SELECT identity FROM time_velmarch"_s, ids));
        fixture.home.prompt.ExpectTold(Text::HistoryTitle);
        QVERIFY(fixture.changes.Delete(RecordKind::Time, ids, Ask::No));
        const UndoOutcome outcome = fixture.Undo();
        QCOMPARE(outcome.end, UndoOutcome::End::Refused);
        QVERIFY2(outcome.words.contains(u"64 MB"_s), qPrintable(outcome.words));
        QCOMPARE(fixture.Names(), u"delete 2301 records, add a record"_s);
    }

    void theOldestGoFirst() {
        HistoryFixture fixture;
        for (int change = 0; change < CHistoryFile::kMostChanges + 100; ++change)
            QVERIFY(fixture.home.catalogue->AddItem(17, QString::number(change), false));
        const auto changes = fixture.undo.Changes();
        QVERIFY(changes->size() >= CHistoryFile::kMostChanges);
        QVERIFY(changes->size() < CHistoryFile::kMostChanges + 40);
        QCOMPARE(changes->front().number - changes->back().number, qint64(changes->size()) - 1);
    }
};

TEST_CLASS(TestCHistory);
#include "TestCHistory.moc"
