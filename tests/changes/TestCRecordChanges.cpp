#include "changes/CRecordChanges.h"

#include "ChangesFixture.h"
#include "entry/RecordMarks.h"
#include "lang/LoadText.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/TestProgram.h"

#include <QTest>
#include <functional>

namespace {

/// Notes the steps; cancels before the step with this number.
class Progress final : public CProgress {
 public:
    void Begin(const QString& what, int count) override {
        said = what;
        wanted = count;
        done = 0;
        if (atBegin) atBegin();
    }
    bool Advance() override {
        ++steps;
        if (atStep) atStep();
        return ++done != cancelAt;
    }
    void End() override { ended = true; }

    QString said;
    int wanted = 0;
    int done = 0;
    int steps = 0;  ///< of all work together
    int cancelAt = 0;
    std::function<void()> atBegin, atStep;
    bool ended = false;
};

using Partial = CRecordChanges::Partial;
using End = Outcome::End;
using Failure = Outcome::Failure;

struct Fixture : ChangesFixture<Progress> {
    QStringList ids;

    explicit Fixture(Partial whatStays = Partial::Kept) : ChangesFixture(whatStays) {
        for (int day = 17; day < 20; ++day)
            ids.append(home.AddTime(2026, 11, day, QStringLiteral("09:00"), QStringLiteral("10:00")));
        Load();
    }
    [[nodiscard]] QList<int> Hints() const {
        QList<int> hints;
        for (const auto& [hint, ids] : home.views.seen) hints.append(static_cast<int>(hint));
        return hints;
    }
    void DeleteOutside(const QString& id) const {
        const TestHome other(home.Path());
        other.document->LoadRecords(RecordKind::Time);
        [&] { QVERIFY(other.document->DeleteRecord(RecordKind::Time, id, Notify::Later)); }();
    }
    /// The store waits for no other program.
    void LookOnce() {
        home.manager.Close();
        home.manager.m_busySeconds = 0;
        eActionDisposition source, second;
        [&] { QVERIFY(home.manager.InitDataSrc(source, second)); }();
    }
    [[nodiscard]] std::size_t Stored() {
        home.document->LoadRecords(RecordKind::Time);
        return home.document->RecordCount();
    }
};

RecordKind Kind() {
    return KindOf(theRecordMode);
}

}  // namespace

class TestCRecordChanges final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void deleteAsksFirst() {
        Fixture fixture;
        fixture.home.prompt.Expect(Text::AskDeleteRecords, Answer::No);
        (void)fixture.changes.Delete(Kind(), fixture.ids, Ask::BySetting);
        QCOMPARE(fixture.Stored(), 3U);
        fixture.home.prompt.Finish();
    }

    /// The views let go of the records before they go, and hear of all in one piece.
    void deleteInOneNotice() {
        Fixture fixture;
        fixture.home.prompt.Expect(Text::AskDeleteRecords, Answer::Yes);
        (void)fixture.changes.Delete(Kind(), {fixture.ids[0], fixture.ids[2]}, Ask::BySetting);
        QCOMPARE(fixture.Hints(), (QList<int>{12, 2}));
        QCOMPARE(fixture.home.views.seen[0].second, (QStringList{fixture.ids[0], fixture.ids[2]}));
        QCOMPARE(fixture.home.views.seen[1].second, (QStringList{fixture.ids[0], fixture.ids[2]}));
        QCOMPARE(fixture.progress.wanted, 2);
        QVERIFY(fixture.progress.ended);
        QCOMPARE(fixture.Stored(), 1U);
    }

    void deleteWithoutAsking() {
        Fixture fixture;
        fixture.home.settings->confirmDelete = false;
        (void)fixture.changes.Delete(Kind(), {fixture.ids[0]}, Ask::BySetting);
        QCOMPARE(fixture.Stored(), 2U);
        fixture.home.settings->confirmDelete = true;
        (void)fixture.changes.Delete(Kind(), {fixture.ids[1]}, Ask::No);
        QCOMPARE(fixture.Stored(), 1U);
    }

    void deletedRecordsLoseTheirTimers() {
        Fixture fixture;
        fixture.set.Start(fixture.ids[0], false, 0, 0, 0);
        fixture.set.Start(fixture.ids[1], false, 0, 0, 0);
        (void)fixture.changes.Delete(Kind(), {fixture.ids[0]}, Ask::No);
        QCOMPARE(fixture.set.StateOf(fixture.ids[0]), TimerState::None);
        QCOMPARE(fixture.set.StateOf(fixture.ids[1]), TimerState::Running);
    }

    /// The first failure ends it: what stands behind it stays, and the views show it again.
    void deleteStopsAtAFailure() {
        Fixture fixture;
        (void)fixture.changes.Delete(Kind(), {fixture.ids[0], QStringLiteral("no identity"), fixture.ids[1]},
                                     Ask::No);
        QCOMPARE(fixture.Stored(), 2U);
        QVERIFY(fixture.Hints().contains(6));
    }

    void deleteIsCancelled() {
        Fixture fixture;
        fixture.progress.cancelAt = 2;
        (void)fixture.changes.Delete(Kind(), fixture.ids, Ask::No);
        QCOMPARE(fixture.Stored(), 2U);
    }

    void nothingSelected() {
        Fixture fixture;
        (void)fixture.changes.Delete(Kind(), {}, Ask::BySetting);
        (void)fixture.changes.Copy(Kind(), {});
        (void)fixture.changes.SetMark(Kind(), RecordMark::First, {}, Ask::BySetting);
        QVERIFY(fixture.home.views.seen.isEmpty());
        fixture.home.prompt.Finish();
    }

    void copies() {
        Fixture fixture;
        fixture.home.prompt.Expect(Text::AskCopyRecords, Answer::Yes);
        (void)fixture.changes.Copy(Kind(), {fixture.ids[0], fixture.ids[1]});
        QCOMPARE(fixture.Hints(), (QList<int>{0}));
        const QStringList made = fixture.home.views.seen[0].second;
        QCOMPARE(made.size(), 2);
        QVERIFY(!fixture.ids.contains(made[0]));
        const CTRecord* copy = fixture.home.document->FindTime(made[0]);
        QCOMPARE(copy->date.day, 17);
        QCOMPARE(copy->spans.duration.hours, 1);
        QCOMPARE(fixture.Stored(), 5U);
    }

    void copyAsksOnlyWhenWanted() {
        Fixture fixture;
        fixture.home.prompt.Expect(Text::AskCopyRecords, Answer::No);
        (void)fixture.changes.Copy(Kind(), fixture.ids);
        QCOMPARE(fixture.Stored(), 3U);
        fixture.home.settings->confirmCopy = false;
        (void)fixture.changes.Copy(Kind(), fixture.ids);
        QCOMPARE(fixture.Stored(), 6U);
        fixture.home.prompt.Finish();
    }

    void marks_data() {
        QTest::addColumn<int>("code");
        QTest::addColumn<bool>("billable");
        QTest::addColumn<bool>("billed");
        QTest::addColumn<bool>("exported");
        QTest::newRow("first") << 0 << true << false << false;
        QTest::newRow("first and second") << 1 << true << true << false;
        QTest::newRow("third has no effect on time records") << 2 << false << false << false;
        QTest::newRow("third and fourth neither") << 3 << false << false << false;
        QTest::newRow("fifth neither") << 4 << false << false << false;
        QTest::newRow("exported") << 5 << false << false << true;
        QTest::newRow("not exported") << 6 << false << false << false;
    }
    void marks() {
        QFETCH(int, code);
        Fixture fixture;
        (void)fixture.changes.SetMark(Kind(), static_cast<RecordMark>(code), fixture.ids, Ask::No);
        QCOMPARE(fixture.Stored(), 3U);
        const CTRecord* record = fixture.home.document->FindTime(fixture.ids[0]);
        QTEST(record->isBillable, "billable");
        QTEST(record->isBilled, "billed");
        QTEST(record->isExported, "exported");
    }

    /// One question for all; each change goes out before it is made; one notice at the end. A marked record
    /// is left alone.
    void marksInOneNotice() {
        Fixture fixture;
        (void)fixture.changes.SetMark(Kind(), RecordMark::Exported, {fixture.ids[1]}, Ask::No);
        fixture.home.views.seen.clear();
        fixture.home.prompt.Expect(Text::AskMarkRecords, Answer::Yes);
        (void)fixture.changes.SetMark(Kind(), RecordMark::Exported, fixture.ids, Ask::BySetting);
        QCOMPARE(fixture.Hints(), (QList<int>{14, 14, 1}));
        QCOMPARE(fixture.home.views.seen[2].second, (QStringList{fixture.ids[0], fixture.ids[2]}));
        fixture.home.views.seen.clear();
        (void)fixture.changes.SetMark(Kind(), RecordMark::Exported, fixture.ids, Ask::No);
        QVERIFY(fixture.home.views.seen.isEmpty());
        (void)fixture.changes.SetMark(Kind(), RecordMark::NotExported, fixture.ids, Ask::No);
        QCOMPARE(fixture.Hints(), (QList<int>{14, 14, 14, 1}));
        fixture.home.prompt.Finish();
    }

    /// A record that is billable but not billed still takes the second mark; money stays.
    void secondMarkOnTheFirst() {
        Fixture fixture;
        CTRecord record;
        record.Reset();
        record.Copy(*fixture.home.document->FindTime(fixture.ids[0]));
        record.SetBillable(true);
        record.SetRate(80.0F);
        QVERIFY(fixture.home.document->ModifyRecord(record, fixture.ids[0], {Notify::Yes, Commit::Now}));
        (void)fixture.changes.SetMark(Kind(), RecordMark::FirstAndSecond, {fixture.ids[0]}, Ask::No);
        const CTRecord* marked = fixture.home.document->FindTime(fixture.ids[0]);
        QVERIFY(marked->isBillable && marked->isBilled);
        QCOMPARE(marked->amount.value, 80.0F);
    }

    /// In the other mode the same commands are about expenses.
    void expenses() {
        Fixture fixture;
        fixture.home.document->SwitchMode(RecordMode::Expense);
        QStringList ids;
        for (int i = 0; i < 3; ++i) {
            QString id;
            QVERIFY(fixture.home.document->AddRecord(CERecord(), {Notify::Later, Commit::Now, Identity::New},
                                                     &id));
            ids.append(id);
        }
        fixture.home.document->FlushPending(Hint::Added);
        fixture.home.views.seen.clear();
        (void)fixture.changes.SetMark(Kind(), RecordMark::ThirdAndFourth, {ids[0], ids[1]}, Ask::No);
        QCOMPARE(fixture.Hints(), (QList<int>{14, 14, 1}));
        fixture.home.settings->confirmDelete = fixture.home.settings->confirmCopy = false;
        (void)fixture.changes.Delete(Kind(), {ids[1]}, Ask::BySetting);
        (void)fixture.changes.Copy(Kind(), {ids[0]});
        fixture.home.document->LoadRecords(RecordKind::Expense);
        QCOMPARE(fixture.home.document->RecordCount(), 3U);
        QVERIFY(!fixture.home.document->FindExpense(ids[1]));
        QVERIFY(fixture.home.document->FindExpense(ids[0])->flag3);
        QVERIFY(fixture.home.document->FindExpense(ids[0])->flag4);
        QVERIFY(!fixture.home.document->FindExpense(ids[2])->flag3);
        fixture.home.document->LoadRecords(RecordKind::Time);
        QCOMPARE(fixture.home.document->RecordCount(), 3U);
    }

    /// What can't be saved, as another program has deleted it, ends it: the one before is marked and the
    /// views are told, the one behind stays as it was. The one that is gone goes from the views.
    void marksStopAtAFailure() {
        Fixture fixture;
        fixture.DeleteOutside(fixture.ids[1]);
        fixture.home.prompt.ExpectTold(Text::ModifyFailed);
        const Outcome outcome = fixture.changes.SetMark(Kind(), RecordMark::Exported, fixture.ids, Ask::No);
        fixture.home.prompt.Finish();
        QVERIFY(!outcome);
        QCOMPARE(outcome.end, End::Failed);
        QCOMPARE(outcome.failure, Failure::Record);
        QCOMPARE(outcome.failedId, fixture.ids[1]);
        QCOMPARE(outcome.ids, QStringList{fixture.ids[0]});
        QCOMPARE(outcome.commit, CommitEnd::Durable);
        QCOMPARE(fixture.Hints(), (QList<int>{14, 14, 1, 12, 2}));
        QCOMPARE(fixture.home.views.seen[1].second, QStringList{fixture.ids[1]});
        QCOMPARE(fixture.home.views.seen[2].second, QStringList{fixture.ids[0]});
        QCOMPARE(fixture.home.views.seen[4].second, QStringList{fixture.ids[1]});
        QCOMPARE(fixture.Stored(), 2U);
        QVERIFY(fixture.home.document->FindTime(fixture.ids[0])->isExported);
        QVERIFY(!fixture.home.document->FindTime(fixture.ids[2])->isExported);
    }

    // --- What it came to

    void declinedIsNoSuccess() {
        Fixture fixture;
        fixture.home.prompt.Expect(Text::AskDeleteRecords, Answer::No);
        fixture.home.prompt.Expect(Text::AskCopyRecords, Answer::No);
        fixture.home.prompt.Expect(Text::AskMarkRecords, Answer::No);
        for (const Outcome& outcome :
             {fixture.changes.Delete(Kind(), fixture.ids, Ask::BySetting),
              fixture.changes.Copy(Kind(), fixture.ids),
              fixture.changes.SetMark(Kind(), RecordMark::First, fixture.ids, Ask::BySetting)}) {
            QVERIFY(!outcome);
            QCOMPARE(outcome.end, End::Declined);
            QVERIFY(outcome.ids.isEmpty());
        }
        fixture.home.prompt.Finish();
    }

    void cancelledKeepsWhatWasDone() {
        Fixture fixture;
        fixture.progress.cancelAt = 3;
        const Outcome outcome = fixture.changes.Delete(Kind(), fixture.ids, Ask::No);
        QVERIFY(!outcome);
        QCOMPARE(outcome.end, End::Cancelled);
        QCOMPARE(outcome.ids, fixture.ids.first(2));
        QCOMPARE(fixture.Hints(), (QList<int>{12, 2, 6}));
        QCOMPARE(fixture.home.document->VisibleCount(), 1U);
    }

    void identitiesOfWhatWasDone() {
        Fixture fixture;
        fixture.home.settings->confirmCopy = false;
        const Outcome copied = fixture.changes.Copy(Kind(), fixture.ids);
        QVERIFY(copied);
        QCOMPARE(copied.ids.size(), 3);
        for (const QString& id : copied.ids)
            QVERIFY(!fixture.ids.contains(id) && fixture.home.document->FindTime(id));
        QVERIFY(fixture.changes.SetMark(Kind(), RecordMark::Exported, {fixture.ids[1]}, Ask::No));
        const Outcome marked = fixture.changes.SetMark(Kind(), RecordMark::Exported, fixture.ids, Ask::No);
        QVERIFY(marked);
        QCOMPARE(marked.ids, (QStringList{fixture.ids[0], fixture.ids[2]}));
        const Outcome deleted = fixture.changes.Delete(Kind(), copied.ids, Ask::No);
        QVERIFY(deleted);
        QCOMPARE(deleted.ids, copied.ids);
        QVERIFY(fixture.changes.Delete(Kind(), {}, Ask::No));
    }

    void addsAndEdits() {
        Fixture fixture;
        CTRecord record;
        record.item1 = QStringLiteral("Acorn");
        const Outcome added = fixture.changes.Add(record, Identity::New);
        QVERIFY(added);
        QCOMPARE(added.ids.size(), 1);
        QCOMPARE(fixture.Hints(), (QList<int>{0}));
        record.Copy(*fixture.home.document->FindTime(added.ids.first()));
        record.SetId(added.ids.first());
        record.item1 = QStringLiteral("Birch");
        const Outcome edited = fixture.changes.Edit(record, added.ids.first());
        QVERIFY(edited);
        QCOMPARE(edited.ids, added.ids);
        QCOMPARE(fixture.Hints(), (QList<int>{0, 14, 1}));
        QCOMPARE(fixture.home.document->FindTime(added.ids.first())->item1, QStringLiteral("Birch"));
        record.SetId(QString(32, u'0'));
        fixture.home.prompt.ExpectTold(Text::ModifyFailed);
        const Outcome refused = fixture.changes.Edit(record, record.GetId());
        QVERIFY(!refused);
        QCOMPARE(refused.failure, Failure::Record);
        QCOMPARE(refused.failedId, record.GetId());
        fixture.home.prompt.Finish();
    }

    /// Another program holds the store: nothing is begun, and the views keep what they show.
    void storeThatIsBusy() {
        Fixture fixture;
        const TestHome other(fixture.home.Path());
        QVERIFY(other.store->BeginBatch());
        fixture.home.prompt.ExpectTold(Text::CommitFailed);
        fixture.LookOnce();
        const Outcome outcome = fixture.changes.Delete(Kind(), fixture.ids, Ask::No);
        QCOMPARE(outcome.end, End::Failed);
        QCOMPARE(outcome.failure, Failure::Opening);
        QVERIFY(fixture.home.views.seen.isEmpty());
        QCOMPARE(fixture.home.document->VisibleCount(), 3U);
        fixture.home.prompt.Finish();
    }

    // --- All or nothing

    void deleteUndone() {
        Fixture fixture(Partial::Undone);
        fixture.set.Start(fixture.ids[0], false, 0, 0, 0);
        const Outcome outcome =
            fixture.changes.Delete(Kind(), {fixture.ids[0], QStringLiteral("no identity")}, Ask::No);
        QVERIFY(!outcome);
        QCOMPARE(outcome.commit, CommitEnd::Undone);
        QVERIFY(outcome.ids.isEmpty());
        QCOMPARE(fixture.home.document->VisibleCount(), 3U);
        QVERIFY(fixture.home.document->FindTime(fixture.ids[0]));
        QCOMPARE(fixture.set.StateOf(fixture.ids[0]), TimerState::Running);
        QCOMPARE(fixture.Hints(), (QList<int>{12, 9, 6}));
        QCOMPARE(fixture.Stored(), 3U);
    }

    void copyUndone() {
        Fixture fixture(Partial::Undone);
        fixture.home.settings->confirmCopy = false;
        QVERIFY(!fixture.changes.Copy(Kind(), {fixture.ids[0], QString(32, u'0')}));
        QCOMPARE(fixture.home.document->VisibleCount(), 3U);
        QCOMPARE(fixture.Stored(), 3U);
    }

    void markUndone() {
        Fixture fixture(Partial::Undone);
        fixture.DeleteOutside(fixture.ids[1]);
        fixture.home.prompt.ExpectTold(Text::ModifyFailed);
        const Outcome outcome = fixture.changes.SetMark(Kind(), RecordMark::Exported, fixture.ids, Ask::No);
        QVERIFY(!outcome);
        QCOMPARE(outcome.failedId, fixture.ids[1]);
        QVERIFY(outcome.ids.isEmpty());
        QVERIFY(!fixture.home.document->FindTime(fixture.ids[0])->isExported);
        QCOMPARE(fixture.Stored(), 2U);
        QVERIFY(!fixture.home.document->FindTime(fixture.ids[0])->isExported);
        fixture.home.prompt.Finish();
    }

    /// A record that the document never loaded, as with a console command: what was read of it is read anew.
    void undoneWithoutALoad() {
        Fixture fixture;
        TestHome console(fixture.home.Path());
        COwnTimers timers(fixture.timers);
        CRecordChanges changes({.document = *console.document,
                                .timers = timers,
                                .catalogue = *console.catalogue,
                                .entered = fixture.entered,
                                .settings = *console.settings,
                                .prompt = console.prompt,
                                .progress = fixture.progress,
                                .partial = Partial::Undone});
        fixture.progress.cancelAt = 2;
        QVERIFY(!changes.SetMark(RecordKind::Time, RecordMark::Exported, fixture.ids, Ask::No));
        QVERIFY(!console.document->FindTime(fixture.ids[0]));
        const auto* stored =
            static_cast<const CTRecord*>(console.document->FetchRecord(RecordKind::Time, fixture.ids[0]));
        QVERIFY(stored && !stored->isExported);
    }

    // --- A commit that fails

    /// The window too gives it up: nothing waits that could undo what others store meanwhile.
    void commitThatFailsIsNoSuccess() {
        Fixture fixture;
        fixture.set.Start(fixture.ids[0], false, 0, 0, 0);
        fixture.FailCommits("DELETE");
        fixture.home.prompt.ExpectTold(Text::CommitFailed);
        const Outcome outcome = fixture.changes.Delete(Kind(), {fixture.ids[0]}, Ask::No);
        fixture.home.prompt.Finish();
        QVERIFY(!outcome);
        QCOMPARE(outcome.end, End::Failed);
        QCOMPARE(outcome.failure, Failure::Commit);
        QCOMPARE(outcome.commit, CommitEnd::Undone);
        QCOMPARE(fixture.set.StateOf(fixture.ids[0]), TimerState::Running);
        QCOMPARE(fixture.home.document->VisibleCount(), 3U);
        fixture.MendCommits();
        QVERIFY(fixture.home.store->Commit());
        QCOMPARE(fixture.Stored(), 3U);
    }

    void commitThatFailsIsUndone() {
        Fixture fixture(Partial::Undone);
        fixture.set.Start(fixture.ids[0], false, 0, 0, 0);
        fixture.FailCommits("DELETE");
        fixture.home.prompt.ExpectTold(Text::CommitFailed);
        const Outcome outcome = fixture.changes.Delete(Kind(), {fixture.ids[0]}, Ask::No);
        fixture.home.prompt.Finish();
        QCOMPARE(outcome.failure, Failure::Commit);
        QCOMPARE(outcome.commit, CommitEnd::Undone);
        QVERIFY(outcome.ids.isEmpty());
        QVERIFY(!fixture.home.manager.HasOpenChanges());
        QCOMPARE(fixture.set.StateOf(fixture.ids[0]), TimerState::Running);
        QCOMPARE(fixture.home.document->VisibleCount(), 3U);
        QCOMPARE(fixture.Stored(), 3U);
    }

    void addWhoseCommitFails_data() {
        QTest::addColumn<Partial>("partial");
        QTest::newRow("in the window") << Partial::Kept;
        QTest::newRow("in the console") << Partial::Undone;
    }
    void addWhoseCommitFails() {
        QFETCH(Partial, partial);
        Fixture fixture(partial);
        fixture.FailCommits("INSERT");
        fixture.home.prompt.ExpectTold(Text::InsertCommitFailed);
        const Outcome outcome = fixture.changes.Add(CTRecord(), Identity::New);
        fixture.home.prompt.Finish();
        QVERIFY(!outcome);
        QVERIFY(outcome.ids.isEmpty());
        QVERIFY(fixture.home.views.seen.isEmpty());
        fixture.MendCommits();
        QVERIFY(fixture.home.store->Commit());
        QCOMPARE(fixture.Stored(), 3U);
    }

    /// The views show what is stored, and what another program stores meanwhile isn't undone later on.
    void editWhoseCommitFails() {
        Fixture fixture;
        const QString& id = fixture.ids[0];
        CTRecord record;
        record.Copy(*fixture.home.document->FindTime(id));
        record.item1 = QStringLiteral("Never stored");
        fixture.FailCommits("UPDATE");
        fixture.home.prompt.ExpectTold(Text::ModifyCommitFailed);
        QCOMPARE(fixture.changes.Edit(record, id).failedId, id);
        fixture.home.prompt.Finish();
        const CVORec* shown = fixture.home.document->VisibleAt(fixture.home.document->VisiblePlaceOf(id));
        QCOMPARE(static_cast<const CTRecord*>(shown)->item1, QString());
        fixture.MendCommits();
        const TestHome other(fixture.home.Path());
        record.item1 = QStringLiteral("Another's");
        QVERIFY(other.document->ModifyRecord(record, id, {Notify::No, Commit::Now, Hold::No}));
        QVERIFY(fixture.changes.Add(CTRecord(), Identity::New));
        fixture.LookOnce();
        QCOMPARE(fixture.Stored(), 4U);
        QCOMPARE(fixture.home.document->FindTime(id)->item1, QStringLiteral("Another's"));
    }

    /// Records are gone for good; a timer that can't be taken out now goes with the next fold.
    void timersThatStay() {
        class StuckTimers final : public CTimersOfRecords {
         public:
            [[nodiscard]] QStringList Timed(const QStringList& ids) override { return ids; }
            [[nodiscard]] QHash<QString, QByteArray> Images(const QStringList&) override { return {}; }
            [[nodiscard]] bool Drop(const QStringList& ids) override { return ids.isEmpty(); }
            [[nodiscard]] bool PutBack(const QString&, const QByteArray&) override { return false; }
        } stuck;
        Fixture fixture;
        CRecordChanges changes({.document = *fixture.home.document,
                                .timers = stuck,
                                .catalogue = *fixture.home.catalogue,
                                .entered = fixture.entered,
                                .settings = *fixture.home.settings,
                                .prompt = fixture.home.prompt,
                                .progress = fixture.progress,
                                .partial = Partial::Kept});
        const Outcome outcome = changes.Delete(Kind(), {fixture.ids[0]}, Ask::No);
        QVERIFY(outcome);
        QCOMPARE(outcome.ids, QStringList{fixture.ids[0]});
        QCOMPARE(fixture.Stored(), 2U);
    }

    /// Other programs' changes wait until this one is through, and not for ever.
    void isBeingChangedMeanwhile() {
        Fixture fixture;
        bool wasChanging = true;
        fixture.progress.atStep = [&] {
            wasChanging = wasChanging && fixture.home.document->IsBeingChanged();
        };
        QVERIFY(fixture.changes.SetMark(Kind(), RecordMark::Exported, fixture.ids, Ask::No));
        QVERIFY(fixture.changes.Delete(Kind(), fixture.ids, Ask::No));
        QCOMPARE(fixture.progress.steps, 6);
        QVERIFY(wasChanging);
        QVERIFY(!fixture.home.document->IsBeingChanged());
    }

    /// The progress begins before the views are told to let go of the records.
    void progressFromTheStart() {
        Fixture fixture;
        QList<std::pair<Hint, QStringList>> before{{}};
        fixture.progress.atBegin = [&] { before = fixture.home.views.seen; };
        QVERIFY(fixture.changes.Delete(Kind(), fixture.ids, Ask::No));
        QVERIFY(before.isEmpty());
    }

    void markIsRefused() {
        Fixture fixture;
        fixture.home.prompt.Expect(Text::AskMarkRecords, Answer::No);
        (void)fixture.changes.SetMark(Kind(), RecordMark::First, fixture.ids, Ask::BySetting);
        QVERIFY(fixture.home.views.seen.isEmpty());
        fixture.home.prompt.Finish();
    }
};

TEST_CLASS(TestCRecordChanges);
#include "TestCRecordChanges.moc"
