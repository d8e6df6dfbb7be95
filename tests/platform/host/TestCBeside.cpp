#include "platform/host/CBeside.h"

#include "support/TestProgram.h"

#include <QTest>
#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <thread>
#include <vector>

class TestCBeside : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void theCallerGoesOn();
    void onePieceMayWait();
    void onePieceAfterTheOther();
    void theSameThreadDoesAll();
    void waitingForNothing();
    void itsEndWaits();
};

/// The work waits for what the caller does after it was started: done in one thread it would never end.
void TestCBeside::theCallerGoesOn() {
    std::promise<int> said;
    int heard = 0;
    CBeside beside;
    beside.Start([&] { heard = said.get_future().get(); });
    said.set_value(7);
    beside.Wait();
    QCOMPARE(heard, 7);
}

/// And only one: the room of the piece before those two can be used again.
void TestCBeside::onePieceMayWait() {
    std::promise<void> first;
    std::atomic<int> done = 0;
    CBeside beside;
    beside.Start([&] {
        first.get_future().wait();
        ++done;
    });
    beside.Start([&] { ++done; });
    QCOMPARE(done.load(), 0);
    std::thread later([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        first.set_value();
    });
    beside.Start([&] { ++done; });
    QVERIFY(done.load() >= 1);
    beside.Wait();
    QCOMPARE(done.load(), 3);
    later.join();
}

void TestCBeside::onePieceAfterTheOther() {
    std::vector<int> done;
    CBeside beside;
    for (int i = 0; i < 1000; ++i) beside.Start([&done, i] { done.push_back(i); });
    beside.Wait();
    QCOMPARE(done.size(), std::size_t{1000});
    for (int i = 0; i < 1000; ++i) QCOMPARE(done[static_cast<std::size_t>(i)], i);
}

void TestCBeside::theSameThreadDoesAll() {
    std::vector<std::thread::id> threads;
    CBeside beside;
    for (int i = 0; i < 3; ++i) beside.Start([&] { threads.push_back(std::this_thread::get_id()); });
    beside.Wait();
    QVERIFY(threads[0] != std::this_thread::get_id());
    QCOMPARE(threads, std::vector(3, threads[0]));
}

void TestCBeside::waitingForNothing() {
    CBeside beside;
    beside.Wait();
    beside.Start([] {});
    beside.Wait();
    beside.Wait();
}

void TestCBeside::itsEndWaits() {
    bool isDone = false;
    auto beside = std::make_unique<CBeside>();
    beside->Start([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        isDone = true;
    });
    beside.reset();
    QVERIFY(isDone);
}

TEST_CLASS(TestCBeside);
#include "TestCBeside.moc"
