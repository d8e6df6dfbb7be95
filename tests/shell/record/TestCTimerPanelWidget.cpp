#include "shell/record/CTimerPanelWidget.h"

#include "lang/LoadText.h"
#include "shell/controls/CPickEdit.h"
#include "shell/record/RecordDialogHome.h"
#include "support/TestProgram.h"
#include "timers/TimerTexts.h"

/// The timer in the record dialog, by its buttons, its count, and what it does to the fields.
class TestCTimerPanelWidget : public QObject {
    Q_OBJECT

 private:
    /// Lets one tick come at once instead of after a second.
    static void Tick(RecordDialogHome& t) {
        auto* tick = t.Find<QWidget>("timerPanel")->findChild<QTimer*>();
        QVERIFY(tick->isActive());
        QCOMPARE(tick->interval(), 1000);
        QSignalSpy ticked(tick, &QTimer::timeout);
        tick->setInterval(0);
        QTRY_VERIFY(ticked.count() > 0);
        tick->setInterval(1000);
    }
    /// A stored record of two hours, 08:00 to 10:00, in the dialog.
    static void OpenStored(RecordDialogHome& t) {
        const QString id = t.home.AddTime(2026, 11, 19, QStringLiteral("08:00"), QStringLiteral("10:00"));
        t.record.Copy(*t.home.document->FindTime(id));
        t.Open();
    }

 private Q_SLOTS:
    void StartCountsFromTheDurationInTheDialog() {
        RecordDialogHome t;
        OpenStored(t);
        t.Enter("durationField", QStringLiteral("1:30"));
        t.Press("timerStart");
        QCOMPARE(t.Label("timerTime"), QStringLiteral("01:30:00"));
        QCOMPARE(t.Label("timerState"), QStringLiteral("Running"));
        t.home.clock.Advance(65);
        Tick(t);
        QCOMPARE(t.Label("timerTime"), QStringLiteral("01:31:05"));
        // The end moves with the running time.
        QCOMPARE(t.Times(), QStringLiteral("08:00 AM to 09:31 AM, 1:31 less "));
        QCOMPARE(t.Label("netTime"), QStringLiteral("1:31 (1.5167 h)"));
    }

    void StartFromZero() {
        RecordDialogHome t;
        t.Open();
        QTest::keyClick(t.dialog.get(), Qt::Key_F7);
        QCOMPARE(t.Label("timerTime"), QStringLiteral("00:00:00"));
        QCOMPARE(t.set.StateOf(t.record.GetId()), TimerState::Running);
        QVERIFY(t.Find<QPushButton>("timerStart")->isChecked());
        QVERIFY(!t.Find<QPushButton>("timerPause")->isChecked());
    }

    void StartTakesWhatIsBeingTyped() {
        RecordDialogHome t;
        OpenStored(t);
        t.Type("durationField", QStringLiteral("3"));
        QTest::keyClick(t.dialog.get(), Qt::Key_F7);
        QCOMPARE(t.Label("timerTime"), QStringLiteral("03:00:00"));
        QCOMPARE(t.Shown("durationField"), QStringLiteral("3:00"));
    }

    void StartOnARunningTimerDoesNothing() {
        RecordDialogHome t;
        t.home.settings->timerOnNewTimer = 2;
        OpenStored(t);
        t.Press("timerStart");
        const QString other = t.home.AddTime(2026, 11, 18);
        QVERIFY(t.set.Start(other, false, 0, 0, 0));
        t.home.clock.Advance(60);
        t.Press("timerStart");
        // The action "stop the others" did not run, the button still shows that it runs.
        QCOMPARE(t.set.StateOf(other), TimerState::Running);
        QVERIFY(t.Find<QPushButton>("timerStart")->isChecked());
        QCOMPARE(t.Label("timerTime"), QStringLiteral("02:00:00"));
    }

    void WhatOthersDoIsShown_data() {
        QTest::addColumn<bool>("isPausedBefore");
        QTest::addColumn<bool>("isStoppedThere");
        QTest::newRow("a paused one is stopped") << true << true;
        QTest::newRow("a running one is stopped") << false << true;
        QTest::newRow("a running one is paused") << false << false;
    }
    /// The console does it through the window, while the dialog is open.
    void WhatOthersDoIsShown() {
        QFETCH(bool, isPausedBefore);
        QFETCH(bool, isStoppedThere);
        RecordDialogHome t;
        OpenStored(t);
        t.Press("timerStart");
        if (isPausedBefore) t.Press("timerPause");
        const QString id = t.record.GetId();
        t.home.clock.Advance(60);
        QVERIFY(isStoppedThere ? t.timers.StopRecordTimer(id) : t.timers.PauseRecordTimer(id));
        t.Find<QWidget>("timerPanel")->findChild<QTimer*>(QStringLiteral("timerWatch"))->setInterval(0);
        QTRY_COMPARE(t.Label("timerState"),
                     LoadText(isStoppedThere ? Text::TimerIsNone : Text::TimerIsPaused));
        QCOMPARE(t.Find<QPushButton>("timerPause")->isChecked(), !isStoppedThere);
        QVERIFY(!t.Find<QPushButton>("timerStart")->isChecked());
    }

    void PauseAndGoOn() {
        RecordDialogHome t;
        t.Open();
        t.Press("timerStart");
        t.home.clock.Advance(90);
        t.Press("timerPause");
        QCOMPARE(t.Label("timerTime"), QStringLiteral("00:01:30"));
        QCOMPARE(t.Label("timerState"), QStringLiteral("Paused"));
        QVERIFY(t.Find<QPushButton>("timerPause")->isChecked());
        t.home.clock.Advance(600);
        t.Press("timerStart");
        QCOMPARE(t.Label("timerTime"), QStringLiteral("00:01:30"));
    }

    /// What a program that starts now would offer: the item, the notes and the count.
    static QString Offered(RecordDialogHome& t) {
        const auto draft = t.timers.TakeOverDraft();
        if (!draft) return QStringLiteral("nothing");
        const QString count = draft->timer ? TimerCountText(*draft->timer) : QStringLiteral("no timer");
        return QStringLiteral("%1/%2/%3").arg(draft->record.item1, draft->record.notes, count);
    }

    void ANewRecordIsPersistedWhenItsTimerStarts() {
        RecordDialogHome t;
        t.record.item1 = QStringLiteral("Acme");
        t.Open();
        QCOMPARE(Offered(t), QStringLiteral("nothing"));
        t.Press("timerStart");
        QCOMPARE(Offered(t), QStringLiteral("Acme//00:00:00"));
        t.home.clock.Advance(60);
        t.Press("timerPause");
        t.home.clock.Advance(60);
        QCOMPARE(Offered(t), QStringLiteral("Acme//00:01:00"));
        t.Press("timerStop");
        QCOMPARE(Offered(t), QStringLiteral("Acme//no timer"));
    }

    void WhatIsEnteredIsPersistedAMomentLater() {
        RecordDialogHome t;
        t.Open();
        t.Press("timerStart");
        t.TurnTo(1);
        t.Type("item1Field", QStringLiteral("Acme"));
        QCOMPARE(Offered(t), QStringLiteral("//00:00:00"));
        QTRY_COMPARE_WITH_TIMEOUT(Offered(t), QStringLiteral("Acme//00:00:00"), 3000);
        t.TurnTo(2);
        QTest::keyClicks(t.Find<QWidget>("notesField"), QStringLiteral("one"));
        QTRY_COMPARE_WITH_TIMEOUT(Offered(t), QStringLiteral("Acme/one/00:00:00"), 3000);
    }

    void AStoredRecordIsNotPersistedAsADraft() {
        RecordDialogHome t;
        OpenStored(t);
        t.Press("timerStart");
        QCOMPARE(Offered(t), QStringLiteral("nothing"));
    }

    void WhoEndsTheDialog_data() {
        QTest::addColumn<bool>("isWindowLeaving");
        QTest::addColumn<bool>("isDecided");
        QTest::newRow("the user cancels") << false << true;
        QTest::newRow("the window leaves: nobody has decided") << true << false;
    }
    void WhoEndsTheDialog() {
        QFETCH(bool, isWindowLeaving);
        RecordDialogHome t;
        QWidget window;
        window.show();
        CRecordDialog dialog(t.Context(), &window);
        TimeDraft draft(*t.home.settings);
        draft.Begin(t.record);
        dialog.SetDraft(draft);
        dialog.show();
        if (isWindowLeaving) window.hide();
        dialog.reject();
        QTEST(dialog.IsDecided(), "isDecided");
    }

    void WithoutATimerThereIsNothingToPauseOrStop() {
        RecordDialogHome t;
        OpenStored(t);
        QVERIFY(t.IsEnabled("timerStart") && !t.IsEnabled("timerPause") && !t.IsEnabled("timerStop"));
        t.Key("timerPanel", Qt::Key_F8);
        QVERIFY(!t.Find<QPushButton>("timerPause")->isChecked());
        QCOMPARE(t.Label("timerTime"), QStringLiteral("02:00"));
        t.Press("timerStart");
        QVERIFY(t.IsEnabled("timerPause") && t.IsEnabled("timerStop"));
        t.Press("timerStop");
        QVERIFY(!t.IsEnabled("timerPause") && !t.IsEnabled("timerStop"));
    }

    void StopRoundsTheDurationAndFreesTheFields() {
        RecordDialogHome t;
        t.home.settings->roundDurationType = 16;
        t.home.settings->roundDurationMinutes = 15;
        OpenStored(t);
        t.Press("timerStart");
        t.home.clock.Advance(130);
        t.Press("timerStop");
        QCOMPARE(t.Times(), QStringLiteral("08:00 AM to 10:15 AM, 2:15 less "));
        QCOMPARE(t.Label("timerTime"), QStringLiteral("02:15"));
        QCOMPARE(t.Label("timerState"), QStringLiteral("No timer"));
        QVERIFY(!t.Find<CPickEdit>("startField")->IsLocked());
        t.Enter("startField", QStringLiteral("9"));
        QCOMPARE(t.Shown("startField"), QStringLiteral("09:00 AM"));
    }

    void ViewsHearOfTheTimer_data() {
        QTest::addColumn<QString>("button");
        QTest::addColumn<int>("hint");
        QTest::newRow("pause") << "timerPause" << int(Hint::TimerPaused);
        QTest::newRow("stop") << "timerStop" << int(Hint::TimerStopped);
    }
    void ViewsHearOfTheTimer() {
        QFETCH(QString, button);
        RecordDialogHome t;
        t.Open();
        t.home.views.seen.clear();
        t.Press("timerStart");
        QVERIFY(t.home.views.seen.contains({Hint::TimerStarted, {t.record.GetId()}}));
        t.Press(qPrintable(button));
        QFETCH(int, hint);
        QCOMPARE(t.home.views.seen.back().first, static_cast<Hint>(hint));
        QCOMPARE(t.home.views.seen.back().second, QStringList{t.record.GetId()});
    }

    void CancelLeavesARunningTimer() {
        RecordDialogHome t;
        OpenStored(t);
        t.Press("timerStart");
        t.home.clock.Advance(60);
        t.dialog->reject();
        QCOMPARE(t.set.StateOf(t.record.GetId()), TimerState::Running);
        QCOMPARE(t.home.document->FindTime(t.record.GetId())->spans.duration.clockText,
                 QStringLiteral("2:00"));
        t.home.clock.Advance(60);
        t.set.FoldAll();
        int hours = 0;
        int minutes = 0;
        int seconds = 0;
        QVERIFY(t.set.GetElapsed(t.record.GetId(), hours, minutes, seconds));
        QCOMPARE(hours * 60 + minutes, 122);
    }

    void StopAndCancelDropsTheCount() {
        RecordDialogHome t;
        OpenStored(t);
        t.Press("timerStart");
        t.home.clock.Advance(3600);
        t.Press("timerStop");
        QCOMPARE(t.Shown("durationField"), QStringLiteral("3:00"));
        t.home.prompt.Expect(Text::AskLeaveStopped, Answer::No);
        t.dialog->reject();
        QCOMPARE(t.set.StateOf(t.record.GetId()), TimerState::None);
        QCOMPARE(t.home.document->FindTime(t.record.GetId())->spans.duration.clockText,
                 QStringLiteral("2:00"));
    }

    void AcceptTakesTheCountOfTheMoment() {
        RecordDialogHome t;
        OpenStored(t);
        t.Press("timerStart");
        t.home.clock.Advance(300);
        Tick(t);
        t.dialog->accept();
        QCOMPARE(t.dialog->result(), int(QDialog::Accepted));
        QCOMPARE(t.dialog->GetDraft().Record().spans.duration.clockText, QStringLiteral("2:05"));
        QCOMPARE(t.set.StateOf(t.record.GetId()), TimerState::Running);
    }

    void AcceptTakesTheMoneyOfTheCount() {
        RecordDialogHome t;
        t.record.SetBillable(true);
        t.record.SetRate(10);
        t.SetTimes(QStringLiteral("08:00"), QStringLiteral("10:00"));
        t.Open();
        t.Press("timerStart");
        t.home.clock.Advance(3600);
        Tick(t);
        QCOMPARE(t.Shown("amountField"), QStringLiteral("30.00"));
        t.dialog->accept();
        QCOMPARE(t.dialog->GetDraft().Record().GetAmountText(), QStringLiteral("30.00"));
    }

    void OpensOnATimerThatRuns_data() {
        QTest::addColumn<bool>("isPaused");
        QTest::addColumn<QString>("time");
        QTest::addColumn<QString>("state");
        QTest::newRow("as a quick command started it") << false << "00:02:30"
                                                       << "Running";
        QTest::newRow("paused") << true << "00:01:00"
                                << "Paused";
    }
    void OpensOnATimerThatRuns() {
        QFETCH(bool, isPaused);
        RecordDialogHome t;
        t.record.SetStart(RecordDialogHome::Time(QStringLiteral("09:00")));
        QVERIFY(t.timers.StartFromZero(t.record.GetId()));
        t.home.clock.Advance(60);
        if (isPaused) QVERIFY(t.set.Pause(t.record.GetId()));
        t.home.clock.Advance(90);
        t.Open();
        QTEST(t.Label("timerTime"), "time");
        QTEST(t.Label("timerState"), "state");
        QVERIFY(t.Find<CPickEdit>("startField")->IsLocked());
    }

    void EntryIsRefusedWhileThereIsATimer_data() {
        QTest::addColumn<QString>("field");
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::newRow("typing a start") << "startField" << int(Qt::Key_9) << 0;
        QTest::newRow("stepping an end") << "endField" << int(Qt::Key_Up) << 0;
        QTest::newRow("clearing a duration") << "durationField" << int(Qt::Key_Backspace) << 0;
        QTest::newRow("picking a break") << "breakField" << int(Qt::Key_Down) << int(Qt::AltModifier);
    }
    void EntryIsRefusedWhileThereIsATimer() {
        QFETCH(QString, field);
        QFETCH(int, key);
        QFETCH(int, modifiers);
        RecordDialogHome t;
        OpenStored(t);
        t.Press("timerStart");
        const QString before = t.Times();
        auto* widget = t.Find<QLineEdit>(qPrintable(field));
        QCOMPARE(widget->toolTip(), LoadText(Text::TimesDrivenByTimer));
        widget->setFocus();
        t.home.prompt.ExpectTold(Text::TimesDrivenByTimer);
        QTest::keyClick(widget, Qt::Key(key), Qt::KeyboardModifiers(modifiers));
        t.home.prompt.Finish();
        QCOMPARE(t.Times(), before);
    }

    void TheButtonOfALockedFieldIsRefusedToo() {
        RecordDialogHome t;
        OpenStored(t);
        t.Press("timerStart");
        t.home.prompt.ExpectTold(Text::TimesDrivenByTimer);
        QTest::mouseClick(t.Find<QLineEdit>("startField")->findChild<QAbstractButton*>(), Qt::LeftButton);
        t.home.prompt.Finish();
        QVERIFY(!t.dialog->findChild<QWidget*>(QStringLiteral("pickPopup")));
    }

    void DateAndItemsAreFreeWhileThereIsATimer() {
        RecordDialogHome t;
        OpenStored(t);
        t.Press("timerStart");
        t.Enter("dateField", QStringLiteral("12/24/2026"));
        t.Type("item1Field", QStringLiteral("client"));
        Tick(t);
        t.dialog->accept();
        QCOMPARE(t.dialog->GetDraft().Record().date.longText, QStringLiteral("12/24/2026"));
        QCOMPARE(t.dialog->GetDraft().Record().item1, QStringLiteral("client"));
    }

    void ATickLeavesADateThatIsBeingTyped() {
        RecordDialogHome t;
        OpenStored(t);
        t.Press("timerStart");
        t.Type("dateField", QStringLiteral("12/2"));
        Tick(t);
        QCOMPARE(t.Shown("dateField"), QStringLiteral("12/2"));
        QTest::keyClicks(t.Find<QLineEdit>("dateField"), QStringLiteral("4"));
        t.dialog->accept();
        QCOMPARE(t.dialog->GetDraft().Record().date.longText, QStringLiteral("12/24/2026"));
    }

    void WhatCantBeReadGivesWayToTheTimer() {
        RecordDialogHome t;
        OpenStored(t);
        t.Type("startField", QStringLiteral("xx"));
        QTest::keyClick(t.dialog.get(), Qt::Key_F7);
        QCOMPARE(t.Shown("startField"), QStringLiteral("08:00 AM"));
        t.dialog->accept();
        QCOMPARE(t.dialog->result(), int(QDialog::Accepted));
    }

    void ATimerStoppedElsewhereFreesTheFields() {
        RecordDialogHome t;
        OpenStored(t);
        t.Press("timerStart");
        QVERIFY(t.timers.Drop(t.record.GetId()));
        Tick(t);
        QCOMPARE(t.Label("timerState"), QStringLiteral("No timer"));
        QVERIFY(!t.Find<CPickEdit>("startField")->IsLocked());
    }
};

TEST_CLASS(TestCTimerPanelWidget);
#include "TestCTimerPanelWidget.moc"
