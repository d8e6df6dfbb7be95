#include "timers/TimerTexts.h"

#include "lang/LoadText.h"
#include "records/FieldValues.h"
#include "support/TestProgram.h"
#include "timers/ActiveTimer.h"

#include <QTest>

class TestTimerTexts : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void LiveDuration_data();
    void LiveDuration();
};

void TestTimerTexts::LiveDuration_data() {
    QTest::addColumn<int>("state");  // 4: no timer
    QTest::addColumn<bool>("hasDuration");
    QTest::addColumn<QString>("text");
    QTest::newRow("running") << 2 << false << "123:04:05";
    QTest::newRow("paused, over a duration") << 1 << true << "123:04:05";
    QTest::newRow("no timer") << 4 << true << "01:30";
    QTest::newRow("no timer, no duration") << 4 << false << "--:--";
    QTest::newRow("a timer that was never started") << 0 << true << "01:30";
}

void TestTimerTexts::LiveDuration() {
    QFETCH(int, state);
    QFETCH(bool, hasDuration);
    QFETCH(QString, text);
    ActiveTimer timer;
    timer.hours = 123;
    timer.minutes = 4;
    timer.seconds = 5;
    timer.state = static_cast<TimerState>(state);
    SpanField duration;
    if (hasDuration) duration.Set(1, 30);
    QCOMPARE(LiveDurationText(timer.state == TimerState::None ? nullptr : &timer, duration), text);
}

TEST_CLASS(TestTimerTexts);
#include "TestTimerTexts.moc"
