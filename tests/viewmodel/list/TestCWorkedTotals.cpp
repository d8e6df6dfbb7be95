#include "viewmodel/list/CWorkedTotals.h"

#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The clock stands on Thursday, 19 November 2026; the week began on Sunday, the 15th.
struct Fixture {
    TestHome home;
    CWorkedTotals totals{*home.document};

    QString Add(int day, int hours) {
        CTRecord record;
        record.Reset();
        record.date.Set(11, day, 2026);
        record.SetDurationOnly(hours, 0);
        QString id;
        [&] { QVERIFY(home.document->AddRecord(record, {Notify::Yes, Commit::Now, Identity::New}, &id)); }();
        Deliver();
        return id;
    }
    void Change(const QString& id, int day, int hours) {
        CTRecord record;
        record.Copy(*home.document->FindTime(id));
        record.date.Set(11, day, 2026);
        record.SetDurationOnly(hours, 0);
        [&] { QVERIFY(home.document->ModifyRecord(record, id, {Notify::Yes, Commit::Now})); }();
        Deliver();
    }
    void Deliver() {
        const auto seen = std::exchange(home.views.seen, {});
        for (const auto& [hint, ids] : seen) totals.OnHint(hint, ids);
    }
    [[nodiscard]] std::pair<double, double> Shown() const { return {totals.Today(), totals.ThisWeek()}; }
};

using Pair = std::pair<double, double>;

}  // namespace

class TestCWorkedTotals final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void TodayAndItsWeek() {
        Fixture fixture;
        fixture.totals.OnHint(Hint::Rebuild, {});
        fixture.Add(14, 1);
        fixture.Add(15, 2);
        fixture.Add(19, 4);
        fixture.Add(21, 8);
        fixture.Add(22, 16);
        QCOMPARE(fixture.Shown(), Pair(4.0, 14.0));
    }

    void ChangesAreTakenIn() {
        Fixture fixture;
        fixture.totals.OnHint(Hint::Rebuild, {});
        const QString id = fixture.Add(19, 4);
        fixture.Change(id, 19, 5);
        QCOMPARE(fixture.Shown(), Pair(5.0, 5.0));
        fixture.Change(id, 18, 5);
        QCOMPARE(fixture.Shown(), Pair(0.0, 5.0));
        fixture.Change(id, 8, 5);
        QCOMPARE(fixture.Shown(), Pair(0.0, 0.0));
        fixture.Change(id, 19, 3);
        QVERIFY(fixture.home.document->DeleteRecord(RecordKind::Time, id, Notify::Yes));
        fixture.Deliver();
        QCOMPARE(fixture.Shown(), Pair(0.0, 0.0));
    }

    /// The window stays open overnight, and over the end of the week.
    void AnotherDay() {
        Fixture fixture;
        fixture.totals.OnHint(Hint::Rebuild, {});
        fixture.Add(19, 4);
        fixture.home.clock.Advance(24 * 3600);
        const QString id = fixture.Add(20, 1);
        QCOMPARE(fixture.Shown(), Pair(1.0, 5.0));
        fixture.home.clock.Advance(24 * 3600);
        fixture.Change(id, 20, 2);
        QCOMPARE(fixture.Shown(), Pair(0.0, 6.0));
        fixture.home.clock.Advance(24 * 3600);
        fixture.Add(22, 3);
        QCOMPARE(fixture.Shown(), Pair(3.0, 3.0));
    }

    /// Whatever the filter lets pass.
    void OfAllRecordsRead() {
        Fixture fixture;
        fixture.Add(18, 4);
        fixture.Add(19, 2);
        fixture.home.document->Filter().ApplyPreset(23, fixture.home.document->GetPeriodContext());
        fixture.home.document->BuildVisible();
        fixture.totals.OnHint(Hint::Clear, {});
        QCOMPARE(fixture.Shown(), Pair(0.0, 0.0));
        fixture.totals.OnHint(Hint::Rebuild, {});
        QCOMPARE(fixture.Shown(), Pair(2.0, 6.0));
    }

    void ANewDay() {
        Fixture fixture;
        fixture.totals.OnHint(Hint::Rebuild, {});
        fixture.Add(19, 2);
        fixture.home.clock.Advance(24 * 60 * 60);
        fixture.totals.OnHint(Hint::Rebuild, {});
        QCOMPARE(fixture.Shown(), Pair(0.0, 2.0));
    }
};

TEST_CLASS(TestCWorkedTotals);
#include "TestCWorkedTotals.moc"
