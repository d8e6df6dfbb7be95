#include "timers/CDraftStore.h"

#include "support/TestProgram.h"
#include "timers/TimerHome.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// A new record with a timer that isn't stored yet, over the end of the program.
class TestCDraftStore : public QObject {
    Q_OBJECT

 private:
    /// A new record, its timer started in its dialog.
    static CTRecord Started(TimerHome& home) {
        CTRecord record;
        record.GenUnique();
        record.date.Set(11, 19, 2026);
        record.item1 = u"Acme"_s;
        record.notes = u"one\ntwo"_s;
        [&] { QVERIFY(home.timers->StartDraftTimer(record)); }();
        return record;
    }

 private Q_SLOTS:
    void ADraftOutlivesAKilledProgram() {
        QTemporaryDir folder;
        QString id;
        {
            TimerHome home(folder.path());
            home.settings->KeepStoreUntouched();
            const CTRecord record = Started(home);
            id = record.GetId();
            QVERIFY(home.timers->PersistDraft(record));
        }
        TimerHome next(folder.path());
        next.timers->RestoreTimers();
        QCOMPARE(next.CountOf(id), u"none"_s);
        next.clock.Advance(1800);
        const auto draft = next.timers->TakeOverDraft();
        QVERIFY(draft);
        QCOMPARE(draft->record.GetId(), id);
        QCOMPARE(draft->record.item1 + u'/' + draft->record.notes, u"Acme/one\ntwo"_s);
        QCOMPARE(draft->record.date.longText, u"11/19/2026"_s);
        next.timers->AwaitAgain(*draft);
        QCOMPARE(next.CountOf(id), u"00:30:00 running"_s);
        QVERIFY(next.timers->IsAwaited(id));
    }

    void ATimerThatWasStoppedInTheDialog() {
        TimerHome home;
        CTRecord record = Started(home);
        QVERIFY(home.timers->Set().Stop(record.GetId()));
        record.SetDuration(1, 15, true);
        QVERIFY(home.timers->PersistDraft(record));
        const auto draft = home.timers->TakeOverDraft();
        QVERIFY(draft && !draft->timer);
        QCOMPARE(draft->record.spans.duration.clockText, u"1:15"_s);
    }

    void AtTheEndOfTheWindow_data() {
        QTest::addColumn<int>("timerOnExit");
        QTest::addColumn<QString>("count");
        QTest::newRow("it runs on") << 0 << u"01:00:00 running"_s;
        QTest::newRow("it pauses") << 1 << u"00:10:00 paused"_s;
        QTest::newRow("there is no record to stop it into: it pauses") << 2 << u"00:10:00 paused"_s;
    }
    void AtTheEndOfTheWindow() {
        QFETCH(int, timerOnExit);
        TimerHome home;
        home.settings->timerOnExit = timerOnExit;
        const CTRecord record = Started(home);
        home.clock.Advance(600);
        home.timers->PersistDraftAtExit(record);
        QVERIFY(home.timers->Drop(record.GetId()));
        home.clock.Advance(3000);
        const auto draft = home.timers->TakeOverDraft();
        QVERIFY(draft);
        home.timers->AwaitAgain(*draft);
        QTEST(home.CountOf(record.GetId()), "count");
    }

    void OnceTheRecordIsStoredThereIsNoDraft() {
        TimerHome home;
        const CTRecord record = Started(home);
        QVERIFY(home.timers->PersistDraft(record));
        QVERIFY(home.document->AddRecord(record, {Notify::Yes, Commit::Now}));
        QVERIFY(home.timers->Keep(record.GetId()));
        QVERIFY(!home.timers->IsAwaited(record.GetId()));
        QVERIFY(!home.timers->TakeOverDraft());
        QCOMPARE(home.StoredCountOf(record.GetId()), u"00:00:00 running"_s);
    }

    /// Killed after the record was stored and before its timer was: the timer is taken over.
    void ADraftWhoseRecordWasStored() {
        QTemporaryDir folder;
        QString id;
        {
            TimerHome home(folder.path());
            home.settings->KeepStoreUntouched();
            const CTRecord record = Started(home);
            id = record.GetId();
            QVERIFY(home.timers->PersistDraft(record));
            QVERIFY(home.document->AddRecord(record, {Notify::Yes, Commit::Now}));
        }
        TimerHome next(folder.path());
        next.timers->RestoreTimers();
        next.clock.Advance(60);
        QVERIFY(!next.timers->TakeOverDraft());
        QCOMPARE(next.StoredCountOf(id), u"00:01:00 running"_s);
    }

    void ADiscardedDraftIsGone() {
        TimerHome home;
        const CTRecord record = Started(home);
        QVERIFY(home.timers->PersistDraft(record));
        home.timers->DiscardDraft(u"another"_s);
        QVERIFY(home.timers->TakeOverDraft());
        home.timers->DiscardDraft(record.GetId());
        QVERIFY(!home.timers->TakeOverDraft());
    }

    void OnlyANewRecordWithATimerHasADraft() {
        TimerHome home;
        CTRecord untimed;
        untimed.GenUnique();
        QVERIFY(home.timers->PersistDraft(untimed));
        QVERIFY(!home.timers->TakeOverDraft());
        const QString stored = home.AddTime(2026, 11, 19);
        QVERIFY(home.timers->StartRecordTimer(stored));
        QVERIFY(home.timers->PersistDraft(*home.document->FindTime(stored)));
        QVERIFY(!home.timers->TakeOverDraft());
    }

    void WhatCantBeReadIsNoDraft() {
        TimerHome home;
        CDraftStore drafts(*home.profile);
        const CTRecord record = Started(home);
        QVERIFY(drafts.Persist(record, nullptr, home.clock));
        QCOMPARE(drafts.Read(home.clock).size(), std::size_t(1));
        const QString name = u"Record-"_s + record.GetId();
        QVERIFY(home.profile->WriteBinary(u"OpenDraft"_s, name, QByteArray("damaged")));
        QVERIFY(home.profile->WriteBinary(u"OpenDraft"_s, u"Record-nobody"_s, QByteArray()));
        QVERIFY(drafts.Read(home.clock).empty());
    }

    /// The first one was put off when it was offered; then a second dialog was cut off too.
    void TwoDraftsOneAfterTheOther() {
        TimerHome home;
        const CTRecord first = Started(home);
        QVERIFY(home.timers->PersistDraft(first));
        QVERIFY(home.timers->Drop(first.GetId()));
        const CTRecord second = Started(home);
        QVERIFY(home.timers->PersistDraft(second));
        QVERIFY(home.timers->Drop(second.GetId()));
        QStringList offered;
        while (const auto draft = home.timers->TakeOverDraft(offered)) offered.append(draft->record.GetId());
        offered.sort();
        QStringList both{first.GetId(), second.GetId()};
        both.sort();
        QCOMPARE(offered, both);
        home.timers->DiscardDraft(first.GetId());
        QCOMPARE(home.timers->TakeOverDraft()->record.GetId(), second.GetId());
        home.timers->DiscardDraft(second.GetId());
        QVERIFY(home.profile->Section(u"OpenDraft"_s).empty());
    }

    /// As programs before this one wrote the only draft that they knew.
    void TheFormForASingleDraft() {
        TimerHome home;
        const CTRecord record = Started(home);
        QVERIFY(home.profile->WriteText(u"OpenDraft"_s, u"Identity"_s, record.GetId()));
        QVERIFY(home.profile->WriteBinary(u"OpenDraft"_s, u"Record"_s, record.ToBytes()));
        QVERIFY(home.profile->WriteBinary(u"OpenDraft"_s, u"Timer"_s, QByteArray()));
        const auto draft = home.timers->TakeOverDraft();
        QVERIFY(draft && !draft->timer);
        QCOMPARE(draft->record.GetId(), record.GetId());
        QVERIFY(home.timers->PersistDraft(record));
        QVERIFY(!home.timers->TakeOverDraft({record.GetId()}));
        home.timers->DiscardDraft(record.GetId());
        QVERIFY(home.profile->Section(u"OpenDraft"_s).empty());
    }
};

TEST_CLASS(TestCDraftStore);
#include "TestCDraftStore.moc"
