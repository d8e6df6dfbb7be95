#include "TimerHome.h"
#include "support/TestProgram.h"

#include <QTest>

namespace {

enum class Walk { Stop, Pause };

constexpr int kMinutesEach = 10;

/// Three records with running timers, started in turn ten minutes apart: a, b, c, with 30, 20 and 10 minutes.
struct ThreeTimers : TimerHome {
    QStringList ids;

    ThreeTimers() {
        for (int i = 0; i < 3; ++i) {
            ids.append(AddTime(2026, 11, 19));
            [&] { QVERIFY(timers->StartRecordTimer(ids.back())); }();
            clock.Advance(kMinutesEach * 60);
        }
        timers->FoldAndStore();
        views.seen.clear();
    }
    [[nodiscard]] bool Run(Walk walk) {
        return bool(walk == Walk::Stop ? timers->StopAllTimers() : timers->PauseAllTimers());
    }
    void RunSql(const QString& statement) { QVERIFY(manager.File().Execute(statement.toUtf8().constData())); }
    /// The records as letters, in the order of their hints of one kind.
    [[nodiscard]] QString Told(Hint wanted) const {
        QString letters;
        for (const auto& [hint, told] : views.seen)
            if (hint == wanted)
                for (const QString& id : told)
                    letters += QChar(u'a' + static_cast<char16_t>(ids.indexOf(id)));
        return letters;
    }
    /// The counts of a, b and c, as they are and as they are stored.
    [[nodiscard]] QStringList Counts() const {
        QStringList counts;
        for (const QString& id : ids) {
            counts.append(CountOf(id));
            [&] { QCOMPARE(StoredCountOf(id), counts.back()); }();
        }
        return counts;
    }
};

}  // namespace

/// The walks over all timers: their order, and where a failure ends them.
class TestAllTimers final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void Order_data() {
        QTest::addColumn<Walk>("walk");
        QTest::addColumn<int>("hint");
        QTest::addColumn<QString>("order");
        QTest::newRow("stop goes from the last to the first")
            << Walk::Stop << static_cast<int>(Hint::TimerStopped) << "cba";
        QTest::newRow("pause goes from the first to the last")
            << Walk::Pause << static_cast<int>(Hint::TimerPaused) << "abc";
    }
    void Order() {
        QFETCH(Walk, walk);
        QFETCH(int, hint);
        ThreeTimers home;
        QVERIFY(home.Run(walk));
        QTEST(home.Told(static_cast<Hint>(hint)), "order");
    }

    /// The record of b can't be changed: c, which is stopped before it, stays stopped, b and a go on.
    void AFailedStopEndsTheWalk() {
        ThreeTimers home;
        home.RunSql(
            QStringLiteral("CREATE TRIGGER refuse BEFORE UPDATE ON %1 WHEN OLD.%2 = '%3' "
                           "BEGIN SELECT RAISE(ABORT, 'no'); END")
                .arg(home.store->TableName(RecordKind::Time), QStringLiteral("identity"), home.ids[1]));
        home.prompt.ExpectTold(Text::ModifyFailed);
        QVERIFY(!home.Run(Walk::Stop));
        home.prompt.Finish();
        QCOMPARE(home.Counts(), QStringList({QStringLiteral("00:30:00 running"),
                                             QStringLiteral("00:20:00 running"), QStringLiteral("none")}));
        QCOMPARE(home.Told(Hint::TimerStopped), QStringLiteral("c"));
        QCOMPARE(home.TimesOf(home.ids[2]), QStringLiteral("--:-----:-- 0:10"));
        QCOMPARE(home.TimesOf(home.ids[1]), QStringLiteral("--:-----:-- --:--"));
        QCOMPARE(home.TimesOf(home.ids[0]), QStringLiteral("--:-----:-- --:--"));
        home.RunSql(QStringLiteral("DROP TRIGGER refuse"));
        QVERIFY(home.Run(Walk::Stop));
        QCOMPARE(home.TimesOf(home.ids[0]), QStringLiteral("--:-----:-- 0:30"));
    }

    void AMissingRecordEndsTheWalk_data() {
        QTest::addColumn<Walk>("walk");
        QTest::addColumn<QStringList>("counts");
        const QString a = QStringLiteral("00:30:00 "), b = QStringLiteral("00:20:00 running"),
                      c = QStringLiteral("00:10:00 running");
        QTest::newRow("stop: c was stopped, a goes on")
            << Walk::Stop << QStringList{a + QStringLiteral("running"), b, QStringLiteral("none")};
        QTest::newRow("pause: a was paused, c goes on")
            << Walk::Pause << QStringList{a + QStringLiteral("paused"), b, c};
    }
    /// Another program deleted the record of b.
    void AMissingRecordEndsTheWalk() {
        QFETCH(Walk, walk);
        ThreeTimers home;
        QVERIFY(home.document->DeleteRecord(RecordKind::Time, home.ids[1], Notify::Yes));
        QVERIFY(!home.Run(walk));
        QTEST(home.Counts(), "counts");
    }

    /// What is done is stored, also where the walk ends early; a paused timer is nothing to pause.
    void PausedOnesAreLeftOut() {
        ThreeTimers home;
        QVERIFY(home.timers->PauseRecordTimer(home.ids[1]));
        home.views.seen.clear();
        home.clock.Advance(60);
        QVERIFY(home.Run(Walk::Pause));
        QCOMPARE(home.Told(Hint::TimerPaused), QStringLiteral("ac"));
        QCOMPARE(home.Counts()[1], QStringLiteral("00:20:00 paused"));
    }
};

TEST_CLASS(TestAllTimers);
#include "TestAllTimers.moc"
