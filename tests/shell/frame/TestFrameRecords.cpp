#include "entry/NamedDefaults.h"
#include "lang/LoadText.h"
#include "records/StoreTransaction.h"
#include "shell/frame/FrameCommandsHome.h"
#include "support/TestProgram.h"

using namespace Qt::Literals::StringLiterals;

/// New records from stored defaults, and what the window knows of the timers of selected ones.
class TestFrameRecords final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void NewRecordFromADefaultByItsName() {
        Fixture fixture;
        NamedDefaults defaults(*fixture.home.settings, fixture.home.clock, RecordMode::Time);
        CTRecord record;
        record.Reset();
        record.item1 = u"Acme"_s;
        QVERIFY(defaults.Write(u"Travel"_s, record));
        CFrameRecords& records = fixture.commands->Records();
        QCOMPARE(records.DefaultNames(), QStringList{u"Travel"_s});
        records.NewFromDefault(u"Travel"_s);
        QCOMPARE(fixture.dialogs.called, QStringList());
        QCOMPARE(fixture.dialogs.edited, 1);
        fixture.SelectAll();
        QCOMPARE(fixture.OnlyTime().item1, u"Acme"_s);
        QVERIFY(defaults.Delete(u"Travel"_s));
        QCOMPARE(records.DefaultNames(), QStringList());
        fixture.home.prompt.ExpectTold(Text::DefaultDamaged, Text::DefaultsTitleTime);
        records.NewFromDefault(u"Travel"_s);
        fixture.home.prompt.Finish();
        QCOMPARE(fixture.home.document->RecordCount(), 1U);
    }

    /// Of a new window's settings none asks; so many that undo may not hold them are asked about all the
    /// same.
    void ManyAreNotDeletedUnasked() {
        Fixture fixture;
        fixture.home.settings->confirmDelete = false;
        CTRecord record;
        record.Reset();
        record.date.Set(11, 18, 2026);
        StoreTransaction transaction(fixture.home.document->Store());
        for (int i = 0; i < 1001; ++i)
            QVERIFY(fixture.home.document->AddRecord(record, {Notify::Later, Commit::Later, Identity::New}));
        QCOMPARE(transaction.Commit(), CommitEnd::Durable);
        fixture.home.document->FlushPending(Hint::Added);
        fixture.SelectAll();
        fixture.home.prompt.Expect(Text::AskDeleteRecords, Answer::No);
        fixture.Run(Command::kDelete);
        fixture.home.prompt.Finish();
        QCOMPARE(fixture.home.document->RecordCount(), 1001U);
    }

    /// Pause and stop are offered where there is something to pause or stop.
    void TimersOfTheSelectionAreKnown() {
        Fixture fixture;
        const QString timed = fixture.home.AddTime(2026, 11, 18), other = fixture.home.AddTime(2026, 11, 19);
        fixture.home.settings->timerOnNewTimer = 0;
        fixture.SelectAll();
        fixture.view.SelectIds({timed});
        QVERIFY(!fixture.State().selectedHasTimer);
        fixture.Run(40112);
        QVERIFY(fixture.State().selectedHasTimer && fixture.State().selectedRuns);
        fixture.Run(40113);
        QVERIFY(fixture.State().selectedHasTimer && !fixture.State().selectedRuns);
        fixture.view.SelectIds({other});
        QVERIFY(!fixture.State().selectedHasTimer);
        fixture.SelectAll();
        QVERIFY(fixture.State().selectedHasTimer);
    }
};

TEST_CLASS(TestFrameRecords);
#include "TestFrameRecords.moc"
