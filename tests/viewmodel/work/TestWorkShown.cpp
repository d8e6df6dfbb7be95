#include "viewmodel/work/WorkShown.h"

#include "WorkRecords.h"
#include "support/TestProgram.h"
#include "timers/ActiveTimerSet.h"

using namespace Qt::Literals::StringLiterals;

namespace {

struct Fixture : WorkRecords {
    ActiveTimerSet set{home.clock};

    Fixture() { Load(); }
    QString Start(const Entered& entered, int minutes = 0) {
        const QString id = Add(19, entered);
        set.Start(id, true, 0, minutes, 0);
        return id;
    }
    [[nodiscard]] QStringList Words() {
        QStringList words;
        for (const TimedWork& work : TimedWorks(set, *home.document))
            words << (work.isRunning ? u"runs "_s : u"paused "_s) + work.Words();
        return words;
    }
};

}  // namespace

class TestWorkShown final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void newestThatRunsComesFirst() {
        Fixture fixture;
        QVERIFY(fixture.Words().isEmpty());
        const QString a = fixture.Start({.client = u"A"_s});
        const QString b = fixture.Start({.client = u"B"_s});
        const QString c = fixture.Start({});
        QCOMPARE(fixture.Words(), (QStringList{u"runs (nothing entered)"_s, u"runs B"_s, u"runs A"_s}));
        QVERIFY(fixture.set.Pause(c));
        QCOMPARE(fixture.Words(), (QStringList{u"runs B"_s, u"paused (nothing entered)"_s, u"runs A"_s}));
        QVERIFY(fixture.set.Pause(b));
        QCOMPARE(fixture.Words(), (QStringList{u"runs A"_s, u"paused (nothing entered)"_s, u"paused B"_s}));
        QVERIFY(fixture.set.Pause(a));
        QCOMPARE(fixture.Words(), (QStringList{u"paused (nothing entered)"_s, u"paused B"_s, u"paused A"_s}));
    }

    void texts() {
        Fixture fixture;
        fixture.Start({.client = u"A"_s, .notes = u"letter"_s, .start = u"08:15"_s}, 42);
        const TimedWork work = TimedWorks(fixture.set, *fixture.home.document).front();
        QCOMPARE(work.Words(), u"A · letter"_s);
        QCOMPARE(work.Count(), u"00:42:00"_s);
        QCOMPARE(work.Hours(), u"0:42"_s);
        QCOMPARE(work.State(), u"Running since 08:15 AM"_s);
    }

    void countsFollowTheTimers() {
        Fixture fixture;
        fixture.Start({.client = u"A"_s});
        std::vector<TimedWork> works = TimedWorks(fixture.set, *fixture.home.document);
        fixture.home.clock.Advance(75);
        fixture.set.FoldAll();
        QCOMPARE(works.front().Count(), u"00:00:00"_s);
        TakeCounts(works, fixture.set);
        QCOMPARE(works.front().Count(), u"00:01:15"_s);
    }

    /// The record of a timer isn't in memory then.
    void whileExpensesAreShown() {
        Fixture fixture;
        fixture.Start({.client = u"A"_s});
        fixture.home.document->SwitchMode(RecordMode::Expense);
        QCOMPARE(fixture.Words(), QStringList{u"runs A"_s});
    }

    void title_data() {
        QTest::addColumn<QString>("client");
        QTest::addColumn<QString>("project");
        QTest::addColumn<bool>("isRunning");
        QTest::addColumn<QString>("title");
        QTest::newRow("time, client, program") << u"A"_s << u"P"_s << true << u"1:42 A · Velmarch"_s;
        QTest::newRow("without a client what there is") << u""_s << u"P"_s << true << u"1:42 P · Velmarch"_s;
        QTest::newRow("nothing entered") << u""_s << u""_s << true << u"1:42 · Velmarch"_s;
        QTest::newRow("paused") << u"A"_s << u""_s << false << u"Velmarch"_s;
    }
    void title() {
        Fixture fixture;
        QFETCH(QString, client);
        QFETCH(QString, project);
        QFETCH(bool, isRunning);
        const QString id = fixture.Start({.client = client, .project = project}, 102);
        if (!isRunning) QVERIFY(fixture.set.Pause(id));
        QTEST(WindowTitle(TimedWorks(fixture.set, *fixture.home.document)), "title");
        QCOMPARE(WindowTitle({}), u"Velmarch"_s);
    }
};

TEST_CLASS(TestWorkShown);
#include "TestWorkShown.moc"
