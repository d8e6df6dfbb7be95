#include "HistoryFixture.h"
#include "app/DependencySet.h"
#include "app/HomeFiles.h"
#include "changes/CItemCarrier.h"
#include "config/CarriedChange.h"
#include "entry/RecordMarks.h"
#include "records/CERecord.h"
#include "records/NamedChange.h"
#include "records/StoreTransaction.h"
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
    {"add a record (Cedar)",
     [](HistoryFixture& f, const QStringList&) { QVERIFY(!f.Add(u"Cedar"_s).isEmpty()); }},
    {"edit a record (Müller \"& Söhne\" 🙂)",
     [](HistoryFixture& f, const QStringList& ids) {
         CTRecord record;
         QVERIFY(f.home.store->ReadRecord(record, ids[0]));
         record.item1 = u"Müller \"& Söhne\" 🙂"_s;
         record.notes = u"it's 100 %"_s;
         QVERIFY(f.changes.Edit(record, ids[0]));
     }},
    {"delete 3 records (Acorn)",
     [](HistoryFixture& f, const QStringList& ids) {
         QVERIFY(f.changes.Delete(RecordKind::Time, ids, Ask::No));
     }},
    {"copy 2 records (Acorn)",
     [](HistoryFixture& f, const QStringList& ids) {
         QVERIFY(f.changes.Copy(RecordKind::Time, ids.first(2)));
     }},
    {"mark 3 records (Acorn)",
     [](HistoryFixture& f, const QStringList& ids) {
         QVERIFY(f.changes.SetMark(RecordKind::Time, RecordMark::Exported, ids, Ask::No));
     }},
    {"rename \"Acorn\" to \"Oak\" in Client and in 4 records",
     [](HistoryFixture& f, const QStringList&) {
         QVERIFY(f.changes.RenameInRecords(16, u"Acorn"_s, u"Oak"_s));
     }},
    {"replace \"Acorn\" by \"Elm\" in 4 records",
     [](HistoryFixture& f, const QStringList&) {
         QVERIFY(f.changes.ReplaceInRecords(16, u"Acorn"_s, u"Elm"_s));
     }},
    {"merge \"Acorn\" into \"Birch\" in Client",
     [](HistoryFixture& f, const QStringList&) {
         QVERIFY(f.changes.MergeItems(16, u"Acorn"_s, u"Birch"_s));
     }},
    {"stop a timer (Acorn)",
     [](HistoryFixture& f, const QStringList& ids) {
         QVERIFY(f.timers.StartRecordTimer(ids[0]));
         f.home.clock.Advance(90 * 60);
         f.timers.FoldAndStore();
         QVERIFY(f.timers.StopRecordTimer(ids[0]));
     }},
    {"add \"Fence\" to Project",
     [](HistoryFixture& f, const QStringList&) {
         QVERIFY(f.home.catalogue->AddItem(17, u"Fence"_s, false));
     }},
    {"rename \"Birch\" to \"Beech\" in Client",
     [](HistoryFixture& f, const QStringList&) {
         QVERIFY(f.home.catalogue->RenameItem(16, u"Birch"_s, u"Beech"_s));
     }},
    {"delete \"Birch\" from Client",
     [](HistoryFixture& f, const QStringList&) { QVERIFY(f.home.catalogue->DeleteItem(16, u"Birch"_s)); }},
    {"change the dependencies",
     [](HistoryFixture& f, const QStringList&) {
         DependencyTree& tree = f.home.catalogue->Tree(DependencySetOf(RecordKind::Time));
         tree.Append(tree.Root(), *f.home.catalogue->FindItem(16, u"Birch"_s));
         QVERIFY(f.home.catalogue->SaveTree(DependencySetOf(RecordKind::Time)));
     }},
    {"rename the field \"Project\" to \"Matter\"",
     [](HistoryFixture& f, const QStringList&) {
         QVERIFY(f.home.catalogue->SetNames({{110, u"Matter"_s}}));
     }},
};

void TouchFromOutside(const HistoryFixture& fixture, const QString& id) {
    TestHome other(fixture.home.Path());
    QVERIFY(other.manager.File().Execute("UPDATE time_velmarch SET notes='x' WHERE identity='" +
                                         id.toLatin1() + '\''));
}

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

/// A timer starts on a record that had none so far, so that none stands in the way of one that comes back.
void StartOrStop(HistoryFixture& fixture, const QString& id) {
    CTRecord record;
    QVERIFY(fixture.home.store->ReadRecord(record, id));
    if (fixture.set.Count() > 0)
        QVERIFY(fixture.timers.StopRecordTimer(fixture.set.IdAt(0)));
    else if (!record.spans.duration.IsSet())
        QVERIFY(fixture.timers.StartRecordTimer(id));
    fixture.home.clock.Advance(61);
    fixture.timers.FoldAndStore();
}

/// A change of a record that isn't like the last one.
void ChangeAtRandom(HistoryFixture& fixture, QRandomGenerator& random) {
    QStringList ids;
    QVERIFY(fixture.home.store->QueryTexts(u"SELECT identity FROM time_velmarch"_s, ids));
    const auto any = [&] { return ids[random.bounded(static_cast<int>(ids.size()))]; };
    const int which = ids.size() < 2 ? 0 : random.bounded(11);
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
    const QString query = QString::number(random.bounded(4));
    if (which == 7) fixture.PutQuery(query, QString::number(random.generate64()));
    if (which == 8)
        static_cast<void>(fixture.home.settings->DeleteEntry(LoadText(Text::KeyTimeQueries), query));
    if (which > 8) StartOrStop(fixture, any());
}

}  // namespace

Q_DECLARE_METATYPE(Step)

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
        QCOMPARE(fixture.Names().section(u", "_s, 0, 0), QString::fromUtf8(change.change));

        const UndoOutcome undone = fixture.Undo();
        QVERIFY2(undone, qPrintable(undone.words));
        QCOMPARE(undone.words, QString::fromUtf8(change.change));
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
        QCOMPARE(fixture.Names(), u"add a record (Acorn)"_s);
    }

    void aNewChangeEndsRedoing() {
        HistoryFixture fixture;
        fixture.Add(u"Acorn"_s);
        fixture.Add(u"Birch"_s);
        QVERIFY(fixture.Undo());
        QVERIFY(fixture.Undo());
        QCOMPARE(fixture.Names(), u"[add a record (Birch)], [add a record (Acorn)]"_s);
        QVERIFY(fixture.Redo());
        QCOMPARE(fixture.Names(), u"[add a record (Birch)], add a record (Acorn)"_s);
        const QString id = fixture.Add(u"Cedar"_s);
        QVERIFY(fixture.changes.Delete(RecordKind::Time, {id}, Ask::No));
        QCOMPARE(fixture.Names(), u"delete a record (Cedar), add a record (Cedar), add a record (Acorn)"_s);
        QCOMPARE(fixture.Redo().end, UndoOutcome::End::Nothing);
    }

    /// Of a definition, too, whose row nobody has looked at since: it is one of another file.
    void aNewRecordEndsRedoingOfADefinition() {
        HistoryFixture fixture;
        fixture.PutQuery(u"Week"_s, u"Acorn"_s);
        QVERIFY(fixture.Undo());
        fixture.Add(u"Birch"_s);
        for (int time = 0; time < 2; ++time) {
            QVERIFY(fixture.Undo());
            QCOMPARE(fixture.Names(), u"[add a record (Birch)]"_s);
            QVERIFY(fixture.Redo());
            QCOMPARE(fixture.Names(), u"add a record (Birch)"_s);
        }
    }

    void randomChangesToTheStartAndToTheEnd_data() {
        QTest::addColumn<int>("seed");
        for (int seed = 1; seed <= 4; ++seed) QTest::addRow("%d", seed) << seed;
    }

    void randomChangesToTheStartAndToTheEnd() {
        QFETCH(int, seed);
        HistoryFixture fixture;
        QRandomGenerator random(static_cast<quint32>(seed));
        const auto dumpAll = [&] { return fixture.Dump() + fixture.DumpStored(); };
        std::vector<QStringList> dumps{dumpAll()};
        for (int step = 0; step < 60; ++step) {
            ChangeAtRandom(fixture, random);
            const QStringList dump = dumpAll();
            if (dump != dumps.back()) dumps.push_back(dump);
        }
        for (std::size_t at = dumps.size() - 1; at > 0; --at) {
            const UndoOutcome outcome = fixture.Undo();
            QVERIFY2(outcome, qPrintable(outcome.words));
            QCOMPARE(dumpAll(), dumps[at - 1]);
        }
        QCOMPARE(fixture.Undo().end, UndoOutcome::End::Nothing);
        for (std::size_t at = 1; at < dumps.size(); ++at) {
            const UndoOutcome outcome = fixture.Redo();
            QVERIFY2(outcome, qPrintable(outcome.words));
            QCOMPARE(dumpAll(), dumps[at]);
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
        QCOMPARE(fixture.Names().section(u", "_s, 0, 0), u"mark 3 records (Acorn)"_s);
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

    /// The record that was added goes with its timer, and both come back.
    void aRecordWithATimer() {
        HistoryFixture fixture;
        const QString id = fixture.Add(u"Acorn"_s);
        QVERIFY(fixture.timers.StartRecordTimer(id));
        fixture.home.clock.Advance(600);
        QVERIFY(fixture.Undo());
        QVERIFY(!fixture.timers.HasTimer(id));
        QVERIFY(fixture.Redo());
        fixture.home.clock.Advance(600);
        QCOMPARE(fixture.DumpTimers(), QStringList{id + u" 1200 2"_s});
    }

    /// It is edited while the timer runs, and the timer has nothing to do with that.
    void anEditOfARecordWithATimer() {
        HistoryFixture fixture;
        const QString id = fixture.Add(u"Acorn"_s);
        QVERIFY(fixture.timers.StartRecordTimer(id));
        CTRecord record;
        QVERIFY(fixture.home.store->ReadRecord(record, id));
        record.notes = u"typed meanwhile"_s;
        QVERIFY(fixture.changes.Edit(record, id));
        QVERIFY(fixture.Undo());
        QVERIFY(fixture.timers.HasTimer(id));
    }

    /// As by a restore: the record is in the backup as well, and its timer goes on through all of it.
    void aRecordWithATimerThatIsReplaced() {
        HistoryFixture fixture;
        const QString id = fixture.Add(u"Acorn"_s);
        QVERIFY(fixture.timers.StartRecordTimer(id));
        fixture.home.clock.Advance(600);
        CRecordStore& store = *fixture.home.store;
        CTRecord record;
        QVERIFY(store.ReadRecord(record, id));
        record.notes = u"of the backup"_s;
        {
            const NamedChange named(store, ChangeKind::Restore);
            StoreTransaction change(store);
            QVERIFY(change.IsOpen() && store.DeleteRecord(RecordKind::Time, id));
            QVERIFY(store.InsertRecord(record, Commit::Later));
            QCOMPARE(change.Commit(), CommitEnd::Durable);
        }
        for (const CHistory::Way way : {CHistory::Way::Undo, CHistory::Way::Redo, CHistory::Way::Undo}) {
            QVERIFY(fixture.undo.Run(way));
            QCOMPARE(fixture.DumpTimers(), QStringList{id + u" 600 2"_s});
        }
    }

    void aStopThatIsUndone_data() {
        QTest::addColumn<bool>("isPaused");
        QTest::addColumn<QString>("timer");
        QTest::newRow("a running one goes on from its start") << false << u" 7200 2"_s;
        QTest::newRow("a paused one is paused") << true << u" 5400 1"_s;
    }

    /// 90 minutes, and 30 more until the stop is taken back.
    void aStopThatIsUndone() {
        QFETCH(bool, isPaused);
        QFETCH(QString, timer);
        HistoryFixture fixture;
        const QString id = fixture.Add(u"Acorn"_s);
        QVERIFY(fixture.timers.StartRecordTimer(id));
        fixture.home.clock.Advance(90 * 60);
        fixture.timers.FoldAndStore();
        if (isPaused) QVERIFY(fixture.timers.PauseRecordTimer(id));
        QVERIFY(fixture.timers.StopRecordTimer(id));
        fixture.home.clock.Advance(30 * 60);
        const QStringList stopped = fixture.Dump();
        QVERIFY(fixture.Undo());
        CTRecord record;
        QVERIFY(fixture.home.store->ReadRecord(record, id));
        QVERIFY(!record.spans.duration.IsSet());
        QCOMPARE(fixture.DumpTimers(), QStringList{id + timer});
        QVERIFY(fixture.Redo());
        QCOMPARE(fixture.DumpTimers(), QStringList());
        QCOMPARE(fixture.Dump(), stopped);
        QVERIFY(fixture.Undo());
        QCOMPARE(fixture.DumpTimers(), QStringList{id + timer});
    }

    /// What the new one counts isn't thrown away for the old one.
    void aTimerThatWasStartedSince() {
        HistoryFixture fixture;
        const QString id = fixture.Add(u"Acorn"_s);
        QVERIFY(fixture.timers.StartRecordTimer(id));
        fixture.home.clock.Advance(600);
        fixture.timers.FoldAndStore();
        QVERIFY(fixture.timers.StopRecordTimer(id));
        QVERIFY(fixture.timers.StartRecordTimer(id));
        const QStringList before = fixture.Dump() + fixture.DumpTimers();
        const UndoOutcome outcome = fixture.Undo();
        QCOMPARE(outcome.end, UndoOutcome::End::Refused);
        QVERIFY2(outcome.words.contains(id), qPrintable(outcome.words));
        QCOMPARE(fixture.Dump() + fixture.DumpTimers(), before);
    }

    void aRecordThatWasDeletedWithItsTimer() {
        HistoryFixture fixture;
        const QString id = fixture.Add(u"Acorn"_s);
        QVERIFY(fixture.timers.StartRecordTimer(id));
        fixture.home.clock.Advance(600);
        QVERIFY(fixture.changes.Delete(RecordKind::Time, {id}, Ask::No));
        QVERIFY(!fixture.timers.HasTimer(id));
        fixture.home.clock.Advance(60);
        QVERIFY(fixture.Undo());
        QCOMPARE(fixture.DumpTimers(), QStringList{id + u" 660 2"_s});
        QVERIFY(fixture.Redo());
        QVERIFY(!fixture.timers.HasTimer(id));
        QVERIFY(fixture.Undo());
        QVERIFY(fixture.timers.HasTimer(id));
    }

    // --- What the settings hold under names

    void storedUnderNames_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<Step>("step");
        const auto row = [](const char* name, Step step) {
            QTest::newRow(name) << QString::fromUtf8(name) << step;
        };
        row("save the query \"New\"",
            [](HistoryFixture& f, const QStringList&) { f.PutQuery(u"New"_s, u"Oak"_s); });
        row("save the query \"Week\"",
            [](HistoryFixture& f, const QStringList&) { f.PutQuery(u"Week"_s, u"Oak"_s); });
        row("delete the query \"Week\"", [](HistoryFixture& f, const QStringList&) {
            QVERIFY(f.home.settings->DeleteEntry(LoadText(Text::KeyTimeQueries), u"Week"_s));
        });
        row("rename the query \"Week\" to \"Seven days\"", [](HistoryFixture& f, const QStringList&) {
            QVERIFY(ChangeEntry({.key = LoadText(Text::KeyTimeQueries),
                                 .entry = u"Seven days"_s,
                                 .values = EntryContent({{u"Client"_s, u"Acorn"_s}}),
                                 .former = u"Week"_s},
                                *f.home.settings));
        });
        row("save the default \"Plain\"", [](HistoryFixture& f, const QStringList&) {
            QVERIFY(f.home.settings->WriteEntry(LoadText(Text::KeyTimeDefaults), u"Plain"_s, "123"));
        });
    }

    /// They stand where they stood, too.
    void storedUnderNames() {
        QFETCH(QString, name);
        QFETCH(Step, step);
        HistoryFixture fixture;
        for (const QString& query : {u"Week"_s, u"Month"_s}) fixture.PutQuery(query, u"Acorn"_s);
        const QStringList before = fixture.DumpStored();
        step(fixture, {});
        const QStringList after = fixture.DumpStored();
        QVERIFY(after != before);
        QCOMPARE(fixture.Names().section(u", "_s, 0, 0), name);
        const UndoOutcome undone = fixture.Undo();
        QVERIFY2(undone, qPrintable(undone.words));
        QCOMPARE(fixture.DumpStored(), before);
        QVERIFY(fixture.Redo());
        QCOMPARE(fixture.DumpStored(), after);
        QVERIFY(fixture.Undo());
        QCOMPARE(fixture.DumpStored(), before);
    }

    void whatWasUsedLastIsNoChange() {
        HistoryFixture fixture;
        fixture.PutQuery(LoadText(Text::LastUsedName), u"Acorn"_s);
        fixture.PutQuery(u"Week"_s, u"Acorn"_s);
        fixture.PutQuery(u"Week"_s, u"Acorn"_s);  // as it was
        QCOMPARE(fixture.Names(), u"save the query \"Week\""_s);
    }

    void storedAgainSince() {
        HistoryFixture fixture;
        fixture.PutQuery(u"Week"_s, u"Acorn"_s);
        fixture.home.settings->SetEntryJournal(nullptr);
        fixture.PutQuery(u"Week"_s, u"Birch"_s);
        fixture.history.Entries().Watch();
        const QStringList before = fixture.DumpStored();
        const UndoOutcome outcome = fixture.Undo();
        QCOMPARE(outcome.end, UndoOutcome::End::Refused);
        QVERIFY2(outcome.words.contains(u"query \"Week\""_s), qPrintable(outcome.words));
        QCOMPARE(fixture.DumpStored(), before);
    }

    // --- One change of records and settings

    void whatIsCarriedGoesWithTheChange() {
        class Carrier final : public CItemCarrier {
         public:
            explicit Carrier(HistoryFixture& fixture) : m_fixture(fixture) {}
            [[nodiscard]] std::optional<int> Carry(int, const QString&, const QString& newText) override {
                const CarriedChange carrying(*m_fixture.home.settings);
                m_fixture.PutQuery(u"Week"_s, newText);
                return 1;
            }

         private:
            HistoryFixture& m_fixture;
        };
        HistoryFixture fixture;
        static_cast<void>(Fill(fixture));
        fixture.PutQuery(u"Week"_s, u"Acorn"_s);
        const auto dump = [&] { return fixture.Dump() + fixture.DumpStored(); };
        const QStringList before = dump();
        Carrier carrier(fixture);
        CRecordChanges changes({.document = *fixture.home.document,
                                .timers = fixture.ownTimers,
                                .catalogue = *fixture.home.catalogue,
                                .entered = fixture.entered,
                                .settings = *fixture.home.settings,
                                .prompt = fixture.home.prompt,
                                .progress = fixture.progress,
                                .partial = CRecordChanges::Partial::Undone,
                                .carrier = &carrier});
        QCOMPARE(changes.MergeItems(16, u"Acorn"_s, u"Birch"_s).carried, 1);
        const QStringList after = dump();
        const QString name = u"merge \"Acorn\" into \"Birch\" in Client"_s;
        QVERIFY2(fixture.Names().startsWith(name), qPrintable(fixture.Names()));
        QCOMPARE(fixture.Undo().words, name);
        QCOMPARE(dump(), before);
        QCOMPARE(fixture.Redo().words, name);
        QCOMPARE(dump(), after);
        QVERIFY(fixture.Undo());
        QCOMPARE(dump(), before);

        // Nothing of it is undone where a part of it was changed since.
        QVERIFY(fixture.Redo());
        fixture.home.settings->SetEntryJournal(nullptr);
        fixture.PutQuery(u"Week"_s, u"Cedar"_s);
        fixture.history.Entries().Watch();
        const QStringList touched = dump();
        QCOMPARE(fixture.Undo().end, UndoOutcome::End::Refused);
        QCOMPARE(dump(), touched);
    }

    // --- Passing over

    /// Of two records the first one is marked, and then changed by another program.
    void aChangeThatBarsTheOlderOnes() {
        HistoryFixture fixture;
        const QString first = fixture.Add(u"Acorn"_s), second = fixture.Add(u"Birch"_s);
        QVERIFY(fixture.changes.SetMark(RecordKind::Time, RecordMark::Exported, {first}, Ask::No));
        TouchFromOutside(fixture, first);
        const QStringList before = fixture.Dump();
        const UndoOutcome refused = fixture.Undo();
        QCOMPARE(refused.end, UndoOutcome::End::Refused);
        QCOMPARE(refused.instead, u"add a record (Birch)"_s);
        QCOMPARE(fixture.Dump(), before);

        const UndoOutcome past = fixture.UndoPast();
        QVERIFY2(past, qPrintable(past.words));
        QCOMPARE(past.words, u"add a record (Birch)"_s);
        QCOMPARE(past.passedOver, QStringList{u"mark a record (Acorn)"_s});
        QCOMPARE(past.times, QStringList{second});
        QCOMPARE(fixture.Names(), u"mark a record (Acorn), [add a record (Birch)], add a record (Acorn)"_s);
        QVERIFY(fixture.Redo());
        QCOMPARE(fixture.Dump(), before);
    }

    /// What is left concerns the same record.
    void nothingBeyond() {
        HistoryFixture fixture;
        const QString id = fixture.Add(u"Acorn"_s);
        QVERIFY(fixture.changes.SetMark(RecordKind::Time, RecordMark::Exported, {id}, Ask::No));
        TouchFromOutside(fixture, id);
        QCOMPARE(fixture.Undo().instead, QString());
        const UndoOutcome past = fixture.UndoPast();
        QCOMPARE(past.end, UndoOutcome::End::Refused);
        QVERIFY2(past.words.contains(LoadText(Text::HistoryNothingBeyond)), qPrintable(past.words));
    }

    void nothingToPassOver() {
        HistoryFixture fixture;
        fixture.Add(u"Acorn"_s);
        const UndoOutcome past = fixture.UndoPast();
        QCOMPARE(past.words, u"add a record (Acorn)"_s);
        QCOMPARE(past.passedOver, QStringList());
        QCOMPARE(fixture.UndoPast().end, UndoOutcome::End::Nothing);
    }
};

TEST_CLASS(TestCUndo);
#include "TestCUndo.moc"
