#include "viewmodel/commands/CRecordCommands.h"

#include "entry/RecordMarks.h"
#include "lang/LoadText.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "viewmodel/program/CProgress.h"
#include "support/TestHome.h"
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

struct Scene {
    TestHome home;
    ActiveTimerSet set{home.clock};
    CRecordTimers timers{set, *home.document, *home.settings};
    Progress progress;
    CRecordCommands commands{{*home.document, timers, *home.settings, home.prompt, progress}};
    QStringList ids;

    Scene() {
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

}  // namespace

class TestCRecordCommands final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void deleteAsksFirst() {
        Scene scene;
        scene.home.prompt.Expect(Text::AskDeleteRecords, Answer::No);
        scene.commands.Delete(scene.ids, true);
        QCOMPARE(scene.Stored(), 3U);
        scene.home.prompt.Finish();
    }

    /// The views let go of the records before they go, and hear of all in one piece.
    void deleteInOneNotice() {
        Scene scene;
        scene.home.prompt.Expect(Text::AskDeleteRecords, Answer::Yes);
        scene.commands.Delete({scene.ids[0], scene.ids[2]}, true);
        QCOMPARE(scene.Hints(), (QList<int>{12, 2}));
        QCOMPARE(scene.home.views.seen[0].second, (QStringList{scene.ids[0], scene.ids[2]}));
        QCOMPARE(scene.home.views.seen[1].second, (QStringList{scene.ids[0], scene.ids[2]}));
        QCOMPARE(scene.progress.wanted, 2);
        QVERIFY(scene.progress.ended);
        QCOMPARE(scene.Stored(), 1U);
    }

    void deleteWithoutAsking() {
        Scene scene;
        scene.home.settings->confirmDelete = false;
        scene.commands.Delete({scene.ids[0]}, true);
        QCOMPARE(scene.Stored(), 2U);
        scene.home.settings->confirmDelete = true;
        scene.commands.Delete({scene.ids[1]}, false);
        QCOMPARE(scene.Stored(), 1U);
    }

    void deletedRecordsLoseTheirTimers() {
        Scene scene;
        scene.set.Start(scene.ids[0], false, 0, 0, 0);
        scene.set.Start(scene.ids[1], false, 0, 0, 0);
        scene.commands.Delete({scene.ids[0]}, false);
        QCOMPARE(scene.set.StateOf(scene.ids[0]), TimerState::None);
        QCOMPARE(scene.set.StateOf(scene.ids[1]), TimerState::Running);
    }

    /// The first failure ends it: what stands behind it stays, and the views show it again.
    void deleteStopsAtAFailure() {
        Scene scene;
        scene.commands.Delete({scene.ids[0], QStringLiteral("no identity"), scene.ids[1]}, false);
        QCOMPARE(scene.Stored(), 2U);
        QVERIFY(scene.Hints().contains(6));
    }

    void deleteIsCancelled() {
        Scene scene;
        scene.progress.cancelAt = 2;
        scene.commands.Delete(scene.ids, false);
        QCOMPARE(scene.Stored(), 2U);
    }

    void nothingSelected() {
        Scene scene;
        scene.commands.Delete({}, true);
        scene.commands.Copy({});
        scene.commands.SetMark(RecordMark::First, {}, true);
        QVERIFY(scene.home.views.seen.isEmpty());
        scene.home.prompt.Finish();
    }

    void copies() {
        Scene scene;
        scene.home.prompt.Expect(Text::AskCopyRecords, Answer::Yes);
        scene.commands.Copy({scene.ids[0], scene.ids[1]});
        QCOMPARE(scene.Hints(), (QList<int>{0}));
        const QStringList made = scene.home.views.seen[0].second;
        QCOMPARE(made.size(), 2);
        QVERIFY(!scene.ids.contains(made[0]));
        const CTRecord* copy = scene.home.document->FindTime(made[0]);
        QCOMPARE(copy->date.day, 17);
        QCOMPARE(copy->spans.duration.hours, 1);
        QCOMPARE(scene.Stored(), 5U);
    }

    void copyAsksOnlyWhenWanted() {
        Scene scene;
        scene.home.prompt.Expect(Text::AskCopyRecords, Answer::No);
        scene.commands.Copy(scene.ids);
        QCOMPARE(scene.Stored(), 3U);
        scene.home.settings->confirmCopy = false;
        scene.commands.Copy(scene.ids);
        QCOMPARE(scene.Stored(), 6U);
        scene.home.prompt.Finish();
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
        Scene scene;
        scene.commands.SetMark(static_cast<RecordMark>(code), scene.ids, false);
        QCOMPARE(scene.Stored(), 3U);
        const CTRecord* record = scene.home.document->FindTime(scene.ids[0]);
        QTEST(record->isBillable, "billable");
        QTEST(record->isBilled, "billed");
        QTEST(record->isExported, "exported");
    }

    /// One question for all; each change goes out before it is made; one notice at the end. A marked record
    /// is left alone.
    void marksInOneNotice() {
        Scene scene;
        scene.commands.SetMark(RecordMark::Exported, {scene.ids[1]}, false);
        scene.home.views.seen.clear();
        scene.home.prompt.Expect(Text::AskMarkRecords, Answer::Yes);
        scene.commands.SetMark(RecordMark::Exported, scene.ids, true);
        QCOMPARE(scene.Hints(), (QList<int>{14, 14, 1}));
        QCOMPARE(scene.home.views.seen[2].second, (QStringList{scene.ids[0], scene.ids[2]}));
        scene.home.views.seen.clear();
        scene.commands.SetMark(RecordMark::Exported, scene.ids, false);
        QVERIFY(scene.home.views.seen.isEmpty());
        scene.commands.SetMark(RecordMark::NotExported, scene.ids, false);
        QCOMPARE(scene.Hints(), (QList<int>{14, 14, 14, 1}));
        scene.home.prompt.Finish();
    }

    /// A record that is billable but not billed still takes the second mark; money stays.
    void secondMarkOnTheFirst() {
        Scene scene;
        CTRecord record;
        record.Reset();
        record.Copy(*scene.home.document->FindTime(scene.ids[0]));
        record.SetBillable(true);
        record.SetRate(80.0F);
        QVERIFY(scene.home.document->ModifyRecord(record, scene.ids[0], true, false, true, true));
        scene.commands.SetMark(RecordMark::FirstAndSecond, {scene.ids[0]}, false);
        const CTRecord* marked = scene.home.document->FindTime(scene.ids[0]);
        QVERIFY(marked->isBillable && marked->isBilled);
        QCOMPARE(marked->amount.value, 80.0F);
    }

    /// In the other mode the same commands are about expenses.
    void expenses() {
        Scene scene;
        scene.home.document->SwitchMode(RecordMode::Expense);
        QStringList ids;
        for (int i = 0; i < 3; ++i) {
            QString id;
            QVERIFY(scene.home.document->AddRecord(CERecord(), false, false, true, &id));
            ids.append(id);
        }
        scene.home.document->FlushPending(Hint::Added);
        scene.home.views.seen.clear();
        scene.commands.SetMark(RecordMark::ThirdAndFourth, {ids[0], ids[1]}, false);
        QCOMPARE(scene.Hints(), (QList<int>{14, 14, 1}));
        scene.home.settings->confirmDelete = scene.home.settings->confirmCopy = false;
        scene.commands.Delete({ids[1]}, true);
        scene.commands.Copy({ids[0]});
        scene.home.document->LoadRecords(RecordKind::Expense);
        QCOMPARE(scene.home.document->RecordCount(), 3U);
        QVERIFY(!scene.home.document->FindExpense(ids[1]));
        QVERIFY(scene.home.document->FindExpense(ids[0])->flag3);
        QVERIFY(scene.home.document->FindExpense(ids[0])->flag4);
        QVERIFY(!scene.home.document->FindExpense(ids[2])->flag3);
        scene.home.document->LoadRecords(RecordKind::Time);
        QCOMPARE(scene.home.document->RecordCount(), 3U);
    }

    /// What can't be saved, as another program has deleted it, ends it: the one before is marked and told of,
    /// the one behind stays as it was.
    void marksStopAtAFailure() {
        Scene scene;
        {
            const TestHome other(scene.home.Path());
            other.document->LoadRecords(RecordKind::Time);
            QVERIFY(other.document->DeleteRecord(RecordKind::Time, scene.ids[1], false));
        }
        scene.home.prompt.ExpectTold(Text::ModifyFailed);
        scene.commands.SetMark(RecordMark::Exported, scene.ids, false);
        scene.home.prompt.Finish();
        QCOMPARE(scene.Hints(), (QList<int>{14, 14, 1}));
        QCOMPARE(scene.home.views.seen[1].second, QStringList{scene.ids[1]});
        QCOMPARE(scene.home.views.seen[2].second, QStringList{scene.ids[0]});
        QCOMPARE(scene.Stored(), 2U);
        QVERIFY(scene.home.document->FindTime(scene.ids[0])->isExported);
        QVERIFY(!scene.home.document->FindTime(scene.ids[2])->isExported);
    }

    void markIsRefused() {
        Scene scene;
        scene.home.prompt.Expect(Text::AskMarkRecords, Answer::No);
        scene.commands.SetMark(RecordMark::First, scene.ids, true);
        QVERIFY(scene.home.views.seen.isEmpty());
        scene.home.prompt.Finish();
    }
};

QTEST_GUILESS_MAIN(TestCRecordCommands)
#include "TestCRecordCommands.moc"
