#include "platform/host/CWaitBudget.h"

#include "platform/host/CLockWait.h"
#include "support/TestProgram.h"

#include <QElapsedTimer>
#include <QTest>

using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;

/// How long an operation waits for other programs in all, whatever it waits for.
class TestCWaitBudget : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void WaitsShareOneBudget();
    void WithoutABudgetEachLockHasItsOwnLimit();
    void ALockMayBeWaitedForLessThanTheBudget();
    void TimeSpentOtherwiseCounts();
    void TheListenerMayGiveUp();
    void TheNextOperationWaitsAnew();
    void NothingWaitsWithinAWait();
};

namespace {

/// Waits for a lock that never comes free; how long, in milliseconds.
qint64 WaitInVain(CLockWait& wait) {
    QElapsedTimer timer;
    timer.start();
    for (int count = 0; wait.Wait(count); ++count) {
    }
    return timer.elapsed();
}

/// Notes what it is asked, and gives up when it was waited for so long.
class CNotingListener final : public CWaitListener {
 public:
    explicit CNotingListener(std::chrono::milliseconds patience) : m_patience(patience) {}
    Choice OnWaiting(const QString& what, std::chrono::milliseconds waited) override {
        asked.append(what);
        if (within) within();
        return waited < m_patience ? Choice::GoOn : Choice::GiveUp;
    }
    QStringList asked;
    std::function<void()> within;

 private:
    std::chrono::milliseconds m_patience;
};

}  // namespace

void TestCWaitBudget::WaitsShareOneBudget() {
    CWaitBudget budget(200ms);
    const WaitBudgetScope scope(budget);
    CLockWait store(u"store"_s, 30s), settings(u"settings"_s, 30s);
    const qint64 first = WaitInVain(store);
    QVERIFY2(first >= 200 && first < 1000, qPrintable(QString::number(first)));
    QCOMPARE(budget.Left(), 0ms);
    QVERIFY(WaitInVain(settings) < 100);
    QVERIFY(WaitInVain(store) < 100);
}

void TestCWaitBudget::WithoutABudgetEachLockHasItsOwnLimit() {
    CLockWait wait(u"store"_s, 1s);
    QVERIFY(WaitInVain(wait) >= 1000);
    QVERIFY(WaitInVain(wait) >= 1000);
}

void TestCWaitBudget::ALockMayBeWaitedForLessThanTheBudget() {
    CWaitBudget budget(30s);
    const WaitBudgetScope scope(budget);
    CLockWait wait(u"store"_s, 0s);
    QVERIFY(WaitInVain(wait) < 100);
    QCOMPARE(budget.Left(), 30s);
}

void TestCWaitBudget::TimeSpentOtherwiseCounts() {
    CWaitBudget budget(30s);
    budget.Spend(29s);
    QCOMPARE(budget.Left(), 1s);
    budget.Spend(29s);
    QCOMPARE(budget.Left(), 0ms);
    QVERIFY(!budget.Wait(u"store"_s, 0ms, 1ms));
}

void TestCWaitBudget::TheListenerMayGiveUp() {
    CWaitBudget budget(30s);
    const WaitBudgetScope scope(budget);
    CNotingListener listener(100ms);
    budget.SetListener(&listener);
    CLockWait store(u"store"_s, 30s), settings(u"settings"_s, 30s);
    QVERIFY(WaitInVain(store) < 5000);
    QVERIFY(listener.asked.size() > 2);
    QCOMPARE(listener.asked.first(), u"store"_s);
    // Who doesn't want to wait for the store doesn't want to wait for the settings either.
    QVERIFY(WaitInVain(settings) < 50);
    QVERIFY(!listener.asked.contains(u"settings"_s));
}

void TestCWaitBudget::TheNextOperationWaitsAnew() {
    CWaitBudget budget(50ms);
    const WaitBudgetScope scope(budget);
    CLockWait wait(u"store"_s, 30s);
    QVERIFY(WaitInVain(wait) >= 50);
    budget.Renew();
    QCOMPARE(budget.Left(), 50ms);
    QVERIFY(WaitInVain(wait) >= 50);
}

/// The screen is served during a wait, and a command may come in that way.
void TestCWaitBudget::NothingWaitsWithinAWait() {
    CWaitBudget budget(30s);
    CNotingListener listener(1h);
    budget.SetListener(&listener);
    listener.within = [&] {
        QVERIFY(budget.IsWaiting());
        QVERIFY(!budget.Wait(u"settings"_s, 0ms, 1ms));
        budget.Renew();
    };
    budget.Spend(29s);
    QVERIFY(budget.Wait(u"store"_s, 0ms, 1ms));
    QVERIFY(budget.Left() < 1s);
    QVERIFY(!budget.IsWaiting());
    QCOMPARE(listener.asked, QStringList{u"store"_s});
}

TEST_CLASS(TestCWaitBudget);
#include "TestCWaitBudget.moc"
