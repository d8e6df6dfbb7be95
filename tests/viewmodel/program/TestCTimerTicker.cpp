#include "viewmodel/program/CTimerTicker.h"

#include "app/RecordMode.h"
#include "viewmodel/list/CRecordListModel.h"
#include "support/TestHome.h"
#include "timers/ActiveTimerSet.h"

#include <QSignalSpy>
#include <QTest>

namespace {

struct Scene {
    TestHome home;
    ActiveTimerSet timers{home.clock};
    CRecordListModel model{*home.document, timers, *home.settings};
    std::pair<int, int> sight{0, 9};
    CTimerTicker ticker{timers, model, [this] { return sight; }};

    /// Sixty records; row 3 and row 50 have a running timer.
    Scene() {
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
        Scene scene;
        QSignalSpy changed(&scene.model, &QAbstractItemModel::dataChanged);
        scene.ticker.Tick();
        QCOMPARE(scene.SecondsOf(3), 5);
        QCOMPARE(scene.SecondsOf(50), 0);
        for (const QList<QVariant>& signal : changed) {
            QCOMPARE(signal[0].toModelIndex().row(), 3);
            QCOMPARE(signal[1].toModelIndex().row(), 3);
        }
        QVERIFY(!changed.isEmpty());
        scene.sight = {45, 55};
        scene.home.clock.Advance(60);
        scene.ticker.Tick();
        QCOMPARE(scene.SecondsOf(50), 65);
        QCOMPARE(scene.SecondsOf(3), 5);
    }

    void noTimerInSight() {
        Scene scene;
        scene.sight = {20, 40};
        QSignalSpy changed(&scene.model, &QAbstractItemModel::dataChanged);
        scene.ticker.Tick();
        QVERIFY(changed.isEmpty());
    }

    /// A clock set back adds nothing, and nothing is shown anew.
    void clockSetBack() {
        Scene scene;
        scene.home.clock.Advance(-3600);
        QSignalSpy changed(&scene.model, &QAbstractItemModel::dataChanged);
        scene.ticker.Tick();
        QCOMPARE(scene.SecondsOf(3), 0);
        QVERIFY(changed.isEmpty());
    }

    void sightBeyondTheRows() {
        Scene scene;
        scene.sight = {-5, 100000};
        scene.ticker.Tick();
        QCOMPARE(scene.SecondsOf(50), 5);
        scene.sight = {0, -1};
        scene.ticker.Tick();
    }

    void notInExpenseMode() {
        Scene scene;
        const RecordModeScope mode(RecordMode::Expense);
        scene.ticker.Tick();
        QCOMPARE(scene.SecondsOf(3), 0);
    }

    void ticksWhileATimerRuns() {
        Scene scene;
        QVERIFY(!scene.ticker.IsTicking());
        scene.ticker.Reconsider();
        QVERIFY(scene.ticker.IsTicking());
        scene.timers.Pause(scene.model.IdAt(3));
        scene.ticker.Reconsider();
        QVERIFY(scene.ticker.IsTicking());
        scene.timers.Pause(scene.model.IdAt(50));
        scene.ticker.Reconsider();
        QVERIFY(!scene.ticker.IsTicking());
    }

    void ticksOnceASecond() {
        Scene scene;
        scene.ticker.Reconsider();
        QTRY_COMPARE_WITH_TIMEOUT(scene.SecondsOf(3), 5, 3000);
    }
};

QTEST_GUILESS_MAIN(TestCTimerTicker)
#include "TestCTimerTicker.moc"
