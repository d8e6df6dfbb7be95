#include "shell/record/OfferDrafts.h"

#include "lang/Text.h"
#include "shell/record/RecordDialogHome.h"
#include "support/TestProgram.h"

/// The question after the start, and what its answers do.
class TestOfferDrafts : public QObject {
    Q_OBJECT

 private:
    /// A draft of another run: its dialog was open for ten minutes.
    static void LeaveADraft(RecordDialogHome& t) {
        t.record.item1 = QStringLiteral("Acme");
        QVERIFY(t.timers.StartDraftTimer(t.record));
        QVERIFY(t.timers.PersistDraft(t.record));
        QVERIFY(t.timers.Drop(t.record.GetId()));
        t.home.clock.Advance(600);
    }
    /// Carries the steps out in the dialog that comes.
    static void InTheDialog(const std::function<void(QDialog& dialog)>& steps) {
        QTimer::singleShot(0, qApp, [steps] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!dialog) qFatal("no dialog came");
            steps(*dialog);
        });
    }

 private Q_SLOTS:
    void NothingIsAskedWithoutADraft() {
        RecordDialogHome t;
        OfferDrafts(nullptr, t.Context());
        QVERIFY(t.home.prompt.told.isEmpty());
    }

    void TakenUpAndSaved() {
        RecordDialogHome t;
        LeaveADraft(t);
        t.home.prompt.Expect(Text::AskTakeUpDraft, Answer::Yes);
        InTheDialog([](QDialog& dialog) {
            QCOMPARE(DialogUser(dialog).Label("timerTime"), QStringLiteral("00:10:00"));
            dialog.accept();
        });
        OfferDrafts(nullptr, t.Context());
        QVERIFY(t.home.prompt.told.front().contains(QStringLiteral("00:10:00")));
        const auto* stored = t.home.document->FindTime(t.record.GetId());
        QVERIFY(stored);
        QCOMPARE(stored->item1, QStringLiteral("Acme"));
        QCOMPARE(t.set.StateOf(t.record.GetId()), TimerState::Running);
        QVERIFY(!t.timers.TakeOverDraft());
    }

    void TakenUpAndCancelled() {
        RecordDialogHome t;
        LeaveADraft(t);
        t.home.prompt.Expect(Text::AskTakeUpDraft, Answer::Yes);
        t.home.prompt.Expect(Text::AskLeaveTimer, Answer::No);
        InTheDialog([](QDialog& dialog) { dialog.reject(); });
        OfferDrafts(nullptr, t.Context());
        QVERIFY(!t.home.document->FindTime(t.record.GetId()));
        QCOMPARE(t.set.StateOf(t.record.GetId()), TimerState::None);
        QVERIFY(!t.timers.TakeOverDraft());
    }

    /// Its time counts on until it is taken up.
    void RefusedIsOfferedAgain() {
        RecordDialogHome t;
        LeaveADraft(t);
        t.home.prompt.Expect(Text::AskTakeUpDraft, Answer::No);
        OfferDrafts(nullptr, t.Context());
        QCOMPARE(t.set.StateOf(t.record.GetId()), TimerState::None);
        t.home.clock.Advance(600);
        const auto draft = t.timers.TakeOverDraft();
        QVERIFY(draft && draft->timer);
        QCOMPARE(draft->record.item1, QStringLiteral("Acme"));
        QCOMPARE(draft->timer->minutes, 20);
    }

    /// The program leaves with the dialog open: the draft is offered again the next time.
    void LeftOpen() {
        RecordDialogHome t;
        t.home.settings->timerOnExit = 1;
        LeaveADraft(t);
        QWidget window;
        window.show();
        t.home.prompt.Expect(Text::AskTakeUpDraft, Answer::Yes);
        InTheDialog([&window](QDialog& dialog) {
            window.hide();
            dialog.close();
        });
        OfferDrafts(&window, t.Context());
        t.home.clock.Advance(600);
        const auto draft = t.timers.TakeOverDraft();
        QVERIFY(draft && draft->timer);
        QCOMPARE(draft->timer->minutes, 10);
        QVERIFY(draft->timer->state == TimerState::Paused);
    }
};

TEST_CLASS(TestOfferDrafts);
#include "TestOfferDrafts.moc"
