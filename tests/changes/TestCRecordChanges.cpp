#include "changes/CRecordChanges.h"

#include "changes/CProgress.h"
#include "changes/CTimersOfRecords.h"
#include "entry/RecordMarks.h"
#include "lang/LoadText.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"
#include "timers/CRecordTimers.h"

#include <QTest>

namespace {

/// Notes the steps; cancels before the step with this number.
class Progress final : public CProgress {
 public:
    void Begin(const QString& what, int steps) override {
        said = what;
        wanted = steps;
        done = 0;
    }
    bool Advance() override { return ++done != cancelAt; }
    void End() override { ended = true; }

    QString said;
    int wanted = 0;
    int done = 0;
    int cancelAt = 0;
    bool ended = false;
};

using Partial = CRecordChanges::Partial;
using End = Outcome::End;
using Failure = Outcome::Failure;

struct Fixture {
    Partial partial;
    TestHome home;
    ActiveTimerSet set{home.clock};
    CRecordTimers timers{set, *home.document, *home.settings};
    Progress progress;
    COwnTimers ownTimers{timers};
    CRecordChanges changes{{.document = *home.document,
                            .timers = ownTimers,
                            .settings = *home.settings,
                            .prompt = home.prompt,
                            .progress = progress,
                            .partial = partial}};
    QStringList ids;

    explicit Fixture(Partial whatStays = Partial::Kept) : partial(whatStays) {
        for (int day = 17; day < 20; ++day)
            ids.append(home.AddTime(2026, 11, day, QStringLiteral("09:00"), QStringLiteral("10:00")));
        home.document->LoadRecords(RecordKind::Time);
        home.document->BuildVisible();
        home.views.seen.clear();
    }
    [[nodiscard]] QList<int> Hints() const {
        QList<int> hints;
        for (const auto& [hint, ids] : home.views.seen) hints.append(static_cast<int>(hint));
        return hints;
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

    /// What can't be saved, as another program has deleted it, ends it: the one before is marked and told of,
    /// the one behind stays as it was.
    void marksStopAtAFailure() {
        Fixture fixture;
        {
            const TestHome other(fixture.home.Path());
            other.document->LoadRecords(RecordKind::Time);
            QVERIFY(other.document->DeleteRecord(RecordKind::Time, fixture.ids[1], Notify::Later));
        }
        fixture.home.prompt.ExpectTold(Text::ModifyFailed);
        (void)fixture.changes.SetMark(Kind(), RecordMark::Exported, fixture.ids, Ask::No);
        fixture.home.prompt.Finish();
        QCOMPARE(fixture.Hints(), (QList<int>{14, 14, 1}));
        QCOMPARE(fixture.home.views.seen[1].second, QStringList{fixture.ids[1]});
        QCOMPARE(fixture.home.views.seen[2].second, QStringList{fixture.ids[0]});
        QCOMPARE(fixture.Stored(), 2U);
        QVERIFY(fixture.home.document->FindTime(fixture.ids[0])->isExported);
        QVERIFY(!fixture.home.document->FindTime(fixture.ids[2])->isExported);
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
