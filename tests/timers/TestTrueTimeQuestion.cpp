#include "timers/TrueTimeQuestion.h"

#include "lang/LoadText.h"
#include "support/CScriptedPrompt.h"
#include "support/CTestClock.h"
#include "support/TestProgram.h"
#include "timers/ActiveTimerSet.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// Which count a stop writes where the clock has counted another time than has passed.
class TestTrueTimeQuestion : public QObject {
    Q_OBJECT

    static QString Id(int number) { return QString::number(number).rightJustified(32, u'0'); }

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void NobodyIsAskedWithoutADifference() {
        CTestClock clock;
        ActiveTimerSet timers(clock);
        timers.Start(Id(1), false, 0, 0, 0);
        clock.Advance(3600);
        timers.FoldAll();
        CScriptedPrompt prompt;
        QCOMPARE(AskCountBy(timers.Find(Id(1)), prompt), CountBy::Clock);
        QCOMPARE(AskCountBy(nullptr, prompt), CountBy::Clock);
    }

    /// A flight west: 1:00 by the clock, 7:00 have passed. Of the third the user would rather go on.
    void EachIsAskedAbout() {
        CTestClock clock;
        ActiveTimerSet timers(clock);
        for (int i = 1; i <= 3; ++i) timers.Start(Id(i), false, 0, 0, 0);
        clock.Advance(7 * 3600);
        clock.ShiftZone(-6 * 3600);
        timers.FoldAll();
        CScriptedPrompt prompt;
        prompt.Expect(Text::AskTrueTime, Answer::Yes);
        prompt.Expect(Text::AskTrueTime, Answer::No);
        prompt.Expect(Text::AskTrueTime, Answer::Cancel);
        const StopChoice choice = AskCountsBy({Id(1), Id(2), Id(3), Id(4)}, timers, prompt);
        QCOMPARE(choice.byTrueTime, QStringList{Id(1)});
        QCOMPARE(choice.byClock, (QStringList{Id(2), Id(4)}));
        QVERIFY(prompt.told.first().contains(u"it counts 1:00, but 7:00 have truly passed"_s));
        prompt.Finish();
    }
};

TEST_CLASS(TestTrueTimeQuestion);
#include "TestTrueTimeQuestion.moc"
