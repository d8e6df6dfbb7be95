#include "timers/TimerMerge.h"

#include "support/CTestClock.h"
#include "support/TestProgram.h"
#include "timers/ActiveTimerSet.h"

#include <QTest>

/// What two programs did to the stored timers comes together. Timers are written "A5 B7": record and minutes.
class TestTimerMerge : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void Merge_data();
    void Merge();
};

void TestTimerMerge::Merge_data() {
    QTest::addColumn<QString>("base");
    QTest::addColumn<QString>("theirs");
    QTest::addColumn<QString>("ours");
    QTest::addColumn<QString>("merged");
    const auto row = [](const char* situation, const char* base, const char* theirs, const char* ours,
                        const char* merged) {
        QTest::newRow(situation) << QString::fromLatin1(base) << QString::fromLatin1(theirs)
                                 << QString::fromLatin1(ours) << QString::fromLatin1(merged);
    };
    row("nothing anywhere", "", "", "", "");
    row("both started one", "", "A0", "B0", "B0 A0");
    row("they started one more", "A5", "A5 B0", "A5", "A5 B0");
    row("we started one more", "A5", "A5", "A5 B0", "A5 B0");
    row("they stopped one", "A5 B5", "B5", "A5 B5", "B5");
    row("we stopped one", "A5 B5", "A5 B5", "B5", "B5");
    row("they counted on", "A5", "A9", "A5", "A9");
    row("we counted on", "A5", "A5", "A7", "A7");
    row("both counted on: ours stands", "A5", "A9", "A7", "A7");
    row("they stopped what we counted on", "A5", "", "A7", "");
    row("they counted on what we stopped", "A5", "A9", "", "");
    row("both started the same record: ours stands", "", "A3", "A1", "A1");
    row("each stopped the other's", "A1 B1", "A1", "B1", "");
}

void TestTimerMerge::Merge() {
    QFETCH(QString, base);
    QFETCH(QString, theirs);
    QFETCH(QString, ours);
    QFETCH(QString, merged);
    const CTestClock clock;
    const auto read = [&clock](const QString& text) {
        ActiveTimerSet set(clock);
        for (const QString& one : text.split(u' ', Qt::SkipEmptyParts))
            set.Start(one.left(1), true, 0, one.mid(1).toInt(), 0);
        return set;
    };
    ActiveTimerSet result = read(ours);
    MergeTimers(result, read(base), read(theirs));
    QStringList shown;
    for (int i = 0; i < result.Count(); ++i)
        shown.append(result.IdAt(i) + QString::number(result.At(i).minutes));
    QCOMPARE(shown.join(u' '), merged);
}

TEST_CLASS(TestTimerMerge);
#include "TestTimerMerge.moc"
