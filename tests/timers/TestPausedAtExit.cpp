#include "timers/PausedAtExit.h"

#include "TimerHome.h"
#include "lang/LoadText.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// Timers that the end of the window has paused, at the next start.
class TestPausedAtExit final : public QObject {
    Q_OBJECT

    /// A home whose window has ended with a timer of 20 minutes.
    struct Ended {
        Ended() {
            id = home.AddTime(2026, 11, 19, u"09:00"_s, {});
            [&] { QVERIFY(home.timers->StartRecordTimer(id)); }();
            home.clock.Advance(1200);
        }
        void End() { home.timers->SaveTimers(); }

        TimerHome home;
        QString id;
    };

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void TheyAreOffered_data() {
        QTest::addColumn<int>("answer");
        QTest::addColumn<QString>("expected");
        QTest::newRow("to go on") << int(Answer::Yes) << "00:20:00 running";
        QTest::newRow("to stay paused") << int(Answer::No) << "00:20:00 paused";
    }
    void TheyAreOffered() {
        QFETCH(int, answer);
        Ended t;
        t.End();
        TimerHome next(t.home.Path());
        QVERIFY(next.timers->RestoreTimers());
        next.prompt.Expect(Text::PausedAtExitOne, Answer{answer});
        OfferPausedTimers(*next.timers, *next.document, next.prompt);
        QVERIFY(next.prompt.told.back().contains(u"00:20:00"_s));
        QTEST(next.CountOf(t.id), "expected");
        QTEST(next.StoredCountOf(t.id), "expected");
        // Once, whatever was answered.
        OfferPausedTimers(*next.timers, *next.document, next.prompt);
        next.prompt.Finish();
    }

    void ARecordWithNotesAloneIsNamedByThem() {
        TimerHome home;
        CTRecord record;
        record.Reset();
        record.date.Set(11, 19, 2026);
        record.notes = u"the header\nand more"_s;
        QString id;
        QVERIFY(home.document->AddRecord(record, {Notify::Later, Commit::Now, Identity::New}, &id));
        QVERIFY(home.timers->StartRecordTimer(id));
        home.timers->SaveTimers();
        TimerHome next(home.Path());
        QVERIFY(next.timers->RestoreTimers());
        next.prompt.Expect(Text::PausedAtExitOne, Answer::No);
        OfferPausedTimers(*next.timers, *next.document, next.prompt);
        QVERIFY(next.prompt.told.back().contains(u"  the header\n"_s));
    }

    void SeveralAreOfferedTogether() {
        Ended t;
        const QString other = t.home.AddTime(2026, 11, 19, {}, {});
        QVERIFY(t.home.timers->StartRecordTimer(other));
        t.End();
        TimerHome next(t.home.Path());
        QVERIFY(next.timers->RestoreTimers());
        next.settings->timerOnNewTimer = CRecordTimers::kStopOnNewTimer;
        next.prompt.Expect(Text::PausedAtExitMany, Answer::Yes);
        OfferPausedTimers(*next.timers, *next.document, next.prompt);
        QCOMPARE(next.CountOf(t.id), u"00:20:00 running"_s);
        QCOMPARE(next.CountOf(other), u"00:00:00 running"_s);
    }

    void NothingIsOfferedOf_data() {
        QTest::addColumn<QString>("what");
        QTest::newRow("a timer that the user has paused") << "paused";
        QTest::newRow("a timer that counts on") << "continued";
        QTest::newRow("a timer that somebody has started since") << "started";
        QTest::newRow("a record that is gone") << "gone";
    }
    void NothingIsOfferedOf() {
        QFETCH(QString, what);
        Ended t;
        if (what == u"paused"_s) QVERIFY(t.home.timers->PauseRecordTimer(t.id));
        if (what == u"continued"_s) t.home.settings->timerOnExit = 0;
        t.End();
        TimerHome next(t.home.Path());
        QVERIFY(next.timers->RestoreTimers());
        if (what == u"started"_s) QVERIFY(next.set->Start(t.id, false, 0, 0, 0));
        if (what == u"gone"_s) QVERIFY(next.document->DeleteRecord(RecordKind::Time, t.id, Notify::Later));
        OfferPausedTimers(*next.timers, *next.document, next.prompt);
        next.prompt.Finish();
    }
};

TEST_CLASS(TestPausedAtExit);
#include "TestPausedAtExit.moc"
