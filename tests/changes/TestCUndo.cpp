#include "HistoryFixture.h"
#include "app/DependencySet.h"
#include "app/HomeFiles.h"
#include "entry/RecordMarks.h"
#include "records/CERecord.h"
#include "support/TestProgram.h"

#include <QFile>
#include <QRandomGenerator>
#include <map>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Changes of a home with three time records of Acorn, an expense, and the clients Acorn and Birch.
using Step = void (*)(HistoryFixture& fixture, const QStringList& ids);

struct StepRow {
    const char* change;  ///< what the history calls it
    Step step;
};

constexpr StepRow kSteps[] = {
    {"add a record", [](HistoryFixture& f, const QStringList&) { QVERIFY(!f.Add(u"Cedar"_s).isEmpty()); }},
    {"edit a record",
     [](HistoryFixture& f, const QStringList& ids) {
         CTRecord record;
         QVERIFY(f.home.store->ReadRecord(record, ids[0]));
         record.item1 = u"Müller \"& Söhne\" 🙂"_s;
         record.notes = u"it's 100 %"_s;
         QVERIFY(f.changes.Edit(record, ids[0]));
     }},
    {"delete 3 records",
     [](HistoryFixture& f, const QStringList& ids) {
         QVERIFY(f.changes.Delete(RecordKind::Time, ids, Ask::No));
     }},
    {"copy 2 records",
     [](HistoryFixture& f, const QStringList& ids) {
         QVERIFY(f.changes.Copy(RecordKind::Time, ids.first(2)));
     }},
    {"mark 3 records",
     [](HistoryFixture& f, const QStringList& ids) {
         QVERIFY(f.changes.SetMark(RecordKind::Time, RecordMark::Exported, ids, Ask::No));
     }},
    {"replace a text in 4 records",
     [](HistoryFixture& f, const QStringList&) {
         QVERIFY(f.changes.RenameInRecords(16, u"Acorn"_s, u"Oak"_s));
     }},
    {"stop a timer",
     [](HistoryFixture& f, const QStringList& ids) {
         QVERIFY(f.timers.StartRecordTimer(ids[0]));
         f.home.clock.Advance(90 * 60);
         f.timers.FoldAndStore();
         QVERIFY(f.timers.StopRecordTimer(ids[0]));
     }},
    {"add a list item",
     [](HistoryFixture& f, const QStringList&) {
         QVERIFY(f.home.catalogue->AddItem(17, u"Fence"_s, false));
     }},
    {"change a list item",
     [](HistoryFixture& f, const QStringList&) {
         QVERIFY(f.home.catalogue->RenameItem(16, u"Birch"_s, u"Beech"_s));
     }},
    {"delete a list item",
     [](HistoryFixture& f, const QStringList&) { QVERIFY(f.home.catalogue->DeleteItem(16, u"Birch"_s)); }},
    {"change the dependencies",
     [](HistoryFixture& f, const QStringList&) {
         DependencyTree& tree = f.home.catalogue->Tree(DependencySetOf(RecordKind::Time));
         tree.Append(tree.Root(), *f.home.catalogue->FindItem(16, u"Birch"_s));
         QVERIFY(f.home.catalogue->SaveTree(DependencySetOf(RecordKind::Time)));
     }},
    {"change the name of a field",
     [](HistoryFixture& f, const QStringList&) {
         QVERIFY(f.home.catalogue->SetNames({{110, u"Matter"_s}}));
     }},
};

QStringList Fill(HistoryFixture& fixture) {
    static_cast<void>(fixture.home.catalogue->AddItem(16, u"Acorn"_s, false));
    static_cast<void>(fixture.home.catalogue->AddItem(16, u"Birch"_s, false));
    QStringList ids;
    for (int record = 0; record < 3; ++record) ids.append(fixture.Add(u"Acorn"_s));
    CERecord expense;
    expense.item1 = u"Acorn"_s;
    static_cast<void>(fixture.changes.Add(expense, Identity::New));
    return ids;
}

/// A change of a record that isn't like the last one.
void ChangeAtRandom(HistoryFixture& fixture, QRandomGenerator& random) {
    QStringList ids;
    QVERIFY(fixture.home.store->QueryTexts(u"SELECT identity FROM time_velmarch"_s, ids));
    const auto any = [&] { return ids[random.bounded(static_cast<int>(ids.size()))]; };
    const int which = ids.size() < 2 ? 0 : random.bounded(7);
    CTRecord record;
    if (which == 0) QVERIFY(!fixture.Add(QString::number(random.bounded(1000))).isEmpty());
    if (which == 1) QVERIFY(fixture.changes.Delete(RecordKind::Time, {any()}, Ask::No));
    if (which == 2) QVERIFY(fixture.changes.Copy(RecordKind::Time, {any(), any()}));
    if (which == 3) {
        QVERIFY(fixture.home.store->ReadRecord(record, any()));
        record.notes = QString::number(random.generate64());
        QVERIFY(fixture.changes.Edit(record, record.GetId()));
    }
    if (which == 4) QVERIFY(fixture.home.catalogue->AddItem(16, QString::number(random.generate64()), false));
    if (which == 5) QVERIFY(fixture.home.catalogue->SetNames({{110, QString::number(random.generate64())}}));
    if (which == 6) {
        QVERIFY(fixture.home.store->ReadRecord(record, any()));
        QVERIFY(fixture.changes.ReplaceInRecords(16, record.item1, record.item1 + u'x'));
    }
}

}  // namespace

/// Changes are taken back and made again: all of one, or nothing.
class TestCUndo final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void eachKindOfChange_data() {
        QTest::addColumn<int>("row");
        for (int row = 0; row < static_cast<int>(std::size(kSteps)); ++row)
            QTest::newRow(kSteps[row].change) << row;
    }

    void eachKindOfChange() {
        QFETCH(int, row);
        HistoryFixture fixture;
        const QStringList ids = Fill(fixture);
        const QStringList before = fixture.Dump();
        const StepRow& change = kSteps[row];
        change.step(fixture, ids);
        const QStringList after = fixture.Dump();
        QVERIFY(after != before);
        QCOMPARE(fixture.Names().section(u", "_s, 0, 0), QString::fromLatin1(change.change));

        const UndoOutcome undone = fixture.Undo();
        QVERIFY2(undone, qPrintable(undone.words));
        QCOMPARE(undone.words, QString::fromLatin1(change.change));
        QCOMPARE(fixture.Dump(), before);
        const UndoOutcome redone = fixture.Redo();
        QVERIFY2(redone, qPrintable(redone.words));
        QCOMPARE(fixture.Dump(), after);
        QVERIFY(fixture.Undo());
        QCOMPARE(fixture.Dump(), before);
    }

    void whatChangedIsTold() {
        HistoryFixture fixture;
        const QStringList ids = Fill(fixture);
        QVERIFY(fixture.changes.RenameInRecords(16, u"Acorn"_s, u"Oak"_s));
        const UndoOutcome outcome = fixture.Undo();
        QVERIFY(outcome.hasLists);
        QCOMPARE(QSet<QString>(outcome.times.begin(), outcome.times.end()),
                 QSet<QString>(ids.begin(), ids.end()));
        QCOMPARE(outcome.expenses.size(), 1);
    }

    void nothingThere() {
        HistoryFixture fixture;
        QCOMPARE(fixture.Undo().end, UndoOutcome::End::Nothing);
        QCOMPARE(fixture.Redo().words, u"There is nothing to redo."_s);
        QVERIFY(!QFile::exists(HistoryPath(fixture.home.Path())));
    }

    void whatIsWrittenAsItWasIsNoChange() {
        HistoryFixture fixture;
        const QString id = fixture.Add(u"Acorn"_s);
        CTRecord record;
        QVERIFY(fixture.home.store->ReadRecord(record, id));
        QVERIFY(fixture.changes.Edit(record, id));
        QCOMPARE(fixture.Names(), u"add a record"_s);
    }

    void aNewChangeEndsRedoing() {
        HistoryFixture fixture;
        fixture.Add(u"Acorn"_s);
        fixture.Add(u"Birch"_s);
        QVERIFY(fixture.Undo());
        QVERIFY(fixture.Undo());
        QCOMPARE(fixture.Names(), u"[add a record], [add a record]"_s);
        QVERIFY(fixture.Redo());
        QCOMPARE(fixture.Names(), u"[add a record], add a record"_s);
        const QString id = fixture.Add(u"Cedar"_s);
        QVERIFY(fixture.changes.Delete(RecordKind::Time, {id}, Ask::No));
        QCOMPARE(fixture.Names(), u"delete a record, add a record, add a record"_s);
        QCOMPARE(fixture.Redo().end, UndoOutcome::End::Nothing);
    }

    void randomChangesToTheStartAndToTheEnd_data() {
        QTest::addColumn<int>("seed");
        for (int seed = 1; seed <= 4; ++seed) QTest::addRow("%d", seed) << seed;
    }

    void randomChangesToTheStartAndToTheEnd() {
        QFETCH(int, seed);
        HistoryFixture fixture;
        QRandomGenerator random(static_cast<quint32>(seed));
        std::vector<QStringList> dumps{fixture.Dump()};
        for (int step = 0; step < 40; ++step) {
            ChangeAtRandom(fixture, random);
            const QStringList dump = fixture.Dump();
            if (dump != dumps.back()) dumps.push_back(dump);
        }
        for (std::size_t at = dumps.size() - 1; at > 0; --at) {
            const UndoOutcome outcome = fixture.Undo();
            QVERIFY2(outcome, qPrintable(outcome.words));
            QCOMPARE(fixture.Dump(), dumps[at - 1]);
        }
        QCOMPARE(fixture.Undo().end, UndoOutcome::End::Nothing);
        for (std::size_t at = 1; at < dumps.size(); ++at) {
            QVERIFY(fixture.Redo());
            QCOMPARE(fixture.Dump(), dumps[at]);
        }
        QCOMPARE(fixture.Redo().end, UndoOutcome::End::Nothing);
    }

    void touchedSince_data() {
        QTest::addColumn<QByteArray>("meanwhile");
        QTest::newRow("one of the records was changed")
            << QByteArray("UPDATE time_velmarch SET notes='x' WHERE item1='Acorn' AND rowid_is");
        QTest::newRow("one of the records is gone") << QByteArray("DELETE FROM time_velmarch WHERE rowid_is");
    }

    /// Of two records that were changed together one isn't as the change left it: the other one stays, too.
    void touchedSince() {
        QFETCH(QByteArray, meanwhile);
        HistoryFixture fixture;
        const QStringList ids = Fill(fixture);
        QVERIFY(fixture.changes.SetMark(RecordKind::Time, RecordMark::Exported, ids, Ask::No));
        meanwhile.replace("rowid_is", "identity='" + ids[0].toLatin1() + '\'');
        {
            TestHome other(fixture.home.Path());
            QVERIFY(other.manager.File().Execute(meanwhile));
        }
        const QStringList before = fixture.Dump();
        const UndoOutcome outcome = fixture.Undo();
        QCOMPARE(outcome.end, UndoOutcome::End::Refused);
        QVERIFY2(outcome.words.contains(ids[0]), qPrintable(outcome.words));
        QCOMPARE(fixture.Dump(), before);
        QCOMPARE(fixture.Names().section(u", "_s, 0, 0), u"mark 3 records"_s);
    }

    void aDeletedRecordThatIsBack() {
        HistoryFixture fixture;
        const QString id = fixture.Add(u"Acorn"_s);
        CTRecord record;
        QVERIFY(fixture.home.store->ReadRecord(record, id));
        QVERIFY(fixture.changes.Delete(RecordKind::Time, {id}, Ask::No));
        {
            TestHome other(fixture.home.Path());
            QVERIFY(other.store->InsertRecord(record, Commit::Now));
        }
        QCOMPARE(fixture.Undo().end, UndoOutcome::End::Refused);
    }

    void aRecordWithATimer() {
        HistoryFixture fixture;
        const QString id = fixture.Add(u"Acorn"_s);
        QVERIFY(fixture.timers.StartRecordTimer(id));
        const QStringList before = fixture.Dump();
        const UndoOutcome outcome = fixture.Undo();
        QCOMPARE(outcome.end, UndoOutcome::End::Refused);
        QVERIFY2(outcome.words.contains(id), qPrintable(outcome.words));
        QCOMPARE(fixture.Dump(), before);
        QVERIFY(fixture.timers.HasTimer(id));
    }

    /// The stop is taken back; the timer has ended all the same.
    void aStopThatIsUndoneStartsNoTimer() {
        HistoryFixture fixture;
        const QString id = fixture.Add(u"Acorn"_s);
        QVERIFY(fixture.timers.StartRecordTimer(id));
        fixture.home.clock.Advance(90 * 60);
        fixture.timers.FoldAndStore();
        QVERIFY(fixture.timers.StopRecordTimer(id));
        QVERIFY(fixture.Undo());
        CTRecord record;
        QVERIFY(fixture.home.store->ReadRecord(record, id));
        QVERIFY(!record.spans.duration.IsSet());
        QVERIFY(!fixture.timers.HasTimer(id));
    }
};

TEST_CLASS(TestCUndo);
#include "TestCUndo.moc"
