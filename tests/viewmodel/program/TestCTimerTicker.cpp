#include "viewmodel/program/CTimerTicker.h"

#include "app/RecordMode.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"
#include "timers/ActiveTimerSet.h"
#include "viewmodel/list/CRecordListModel.h"

#include <QSignalSpy>
#include <QTest>

namespace {

struct Fixture {
    TestHome home;
    ActiveTimerSet timers{home.clock};
    CRecordListModel model{*home.document, timers, *home.settings};
    std::pair<int, int> sight{0, 9};
    CTimerTicker ticker{timers, model, [this] {
                            std::vector<int> rows;
                            for (int row = sight.first; row <= sight.second; ++row) rows.push_back(row);
                            return rows;
                        }};

    /// Sixty records; row 3 and row 50 have a running timer.
    Fixture() {
        for (int i = 0; i < 60; ++i) home.AddTime(2026, 11, 19);
        home.settings->listLayout = 3;
        home.document->BuildVisible();
        model.Rebuild();
        for (const int row : {3, 50}) timers.Start(model.IdAt(row), false, 0, 0, 0);
        home.clock.Advance(5);
    }
    int SecondsOf(int row) {
        int hours = 0, minutes = 0, seconds = 0;
        timers.GetElapsed(model.IdAt(row), hours, minutes, seconds);
        return hours * 3600 + minutes * 60 + seconds;
    }
};

}  // namespace

class TestCTimerTicker final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    /// Only rows in sight are folded and shown; the one out of sight is right as soon as it is scrolled to.
    void foldsRowsInSight() {
        Fixture fixture;
        QSignalSpy changed(&fixture.model, &QAbstractItemModel::dataChanged);
        fixture.ticker.Tick();
        QCOMPARE(fixture.SecondsOf(3), 5);
        QCOMPARE(fixture.SecondsOf(50), 0);
        for (const QList<QVariant>& signal : changed) {
            QCOMPARE(signal[0].toModelIndex().row(), 3);
            QCOMPARE(signal[1].toModelIndex().row(), 3);
        }
        QVERIFY(!changed.isEmpty());
        fixture.sight = {45, 55};
        fixture.home.clock.Advance(60);
        fixture.ticker.Tick();
        QCOMPARE(fixture.SecondsOf(50), 65);
        QCOMPARE(fixture.SecondsOf(3), 5);
    }

    void noTimerInSight() {
        Fixture fixture;
        fixture.sight = {20, 40};
        QSignalSpy changed(&fixture.model, &QAbstractItemModel::dataChanged);
        fixture.ticker.Tick();
        QVERIFY(changed.isEmpty());
    }

    /// A clock set back adds nothing, and nothing is shown anew.
    void clockSetBack() {
        Fixture fixture;
        fixture.home.clock.Advance(-3600);
        QSignalSpy changed(&fixture.model, &QAbstractItemModel::dataChanged);
        fixture.ticker.Tick();
        QCOMPARE(fixture.SecondsOf(3), 0);
        QVERIFY(changed.isEmpty());
    }

    void sightBeyondTheRows() {
        Fixture fixture;
        fixture.sight = {-5, 100000};
        fixture.ticker.Tick();
        QCOMPARE(fixture.SecondsOf(50), 5);
        fixture.sight = {0, -1};
        fixture.ticker.Tick();
    }

    void notInExpenseMode() {
        Fixture fixture;
        const RecordModeScope mode(RecordMode::Expense);
        fixture.ticker.Tick();
        QCOMPARE(fixture.SecondsOf(3), 0);
    }

    void ticksWhileATimerRuns() {
        Fixture fixture;
        QVERIFY(!fixture.ticker.IsTicking());
        fixture.ticker.Reconsider();
        QVERIFY(fixture.ticker.IsTicking());
        fixture.timers.Pause(fixture.model.IdAt(3));
        fixture.ticker.Reconsider();
        QVERIFY(fixture.ticker.IsTicking());
        fixture.timers.Pause(fixture.model.IdAt(50));
        fixture.ticker.Reconsider();
        QVERIFY(!fixture.ticker.IsTicking());
    }

    /// A period that has begun runs to its end, however often the timers are looked at meanwhile.
    void ticksOnceASecond() {
        Fixture fixture;
        const auto* clock = fixture.ticker.findChild<QTimer*>();
        QVERIFY(clock);
        QCOMPARE(clock->interval(), 1000);
        QVERIFY(!clock->isSingleShot());
        fixture.ticker.Reconsider();
        const int running = clock->timerId();
        fixture.ticker.Reconsider();
        QCOMPARE(clock->timerId(), running);
        QTRY_COMPARE_WITH_TIMEOUT(fixture.SecondsOf(3), 5, 3000);
    }
};

TEST_CLASS(TestCTimerTicker);
#include "TestCTimerTicker.moc"
