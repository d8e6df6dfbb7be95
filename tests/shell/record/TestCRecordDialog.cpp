#include "shell/record/CRecordDialog.h"

#include "lang/LoadText.h"
#include "shell/record/RecordDialogHome.h"
#include "support/TestProgram.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>

/// The record dialog as a whole: what it shows, takes and refuses, its keys and its manners.
class TestCRecordDialog : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void ShowsTheRecord() {
        RecordDialogHome t;
        t.SetTimes(QStringLiteral("09:00"), QStringLiteral("10:30"));
        t.record.item1 = QStringLiteral("M\u00fcller & S\u00f6hne");
        t.record.SetBillable(true);
        t.record.SetRate(10);
        t.record.notes = QStringLiteral("line\nline");
        t.Open();
        QCOMPARE(t.Shown("dateField"), QStringLiteral("11/19/2026"));
        QCOMPARE(t.Label("weekday"), QStringLiteral("Thursday"));
        QCOMPARE(t.Times(), QStringLiteral("09:00 AM to 10:30 AM, 1:30 less "));
        QCOMPARE(t.Label("netTime"), QStringLiteral("1:30 (1.5000 h)"));
        QCOMPARE(t.Label("moneySum"), QStringLiteral("15.00"));
        QCOMPARE(t.Shown("item1Field"), QStringLiteral("M\u00fcller & S\u00f6hne"));
        QCOMPARE(t.Shown("rateField"), QStringLiteral("10.000"));
        QCOMPARE(t.Shown("amountField"), QStringLiteral("15.00"));
        QCOMPARE(t.Find<QPlainTextEdit>("notesField")->toPlainText(), QStringLiteral("line\nline"));
        QCOMPARE(t.Label("timerTime"), QStringLiteral("01:30"));
        QCOMPARE(t.Label("timerState"), QStringLiteral("No timer"));
    }

    /// What stands beside a caption is read aloud with it.
    void ValuesAreReadWithTheirCaptions() {
        RecordDialogHome t;
        t.SetTimes(QStringLiteral("09:00"), QStringLiteral("10:30"));
        t.record.SetBillable(true);
        t.record.SetRate(10);
        t.Open();
        const auto told = [&t](const char* name) { return t.Find<QLabel>(name)->accessibleName(); };
        QCOMPARE(told("weekday"), QStringLiteral("Date: Thursday"));
        QCOMPARE(told("netTime"), QStringLiteral("Net time: 1:30 (1.5000 h)"));
        QCOMPARE(told("moneySum"), QStringLiteral("Amount: 15.00"));
        QCOMPARE(told("timerTime"), QStringLiteral("Time of the timer: 01:30"));
        t.Enter("endField", QStringLiteral("11:00"));
        QCOMPARE(told("moneySum"), QStringLiteral("Amount: 20.00"));
        QCOMPARE(t.Find<QComboBox>("item1Field")->view()->accessibleName(), QStringLiteral("Client"));
    }

    /// Client, project and notes are the same fields as on the pages behind.
    void TheFirstPageHasTheWorkToo() {
        RecordDialogHome t;
        t.record.item1 = QStringLiteral("Acme");
        t.record.notes = QStringLiteral("line\r\nline");
        t.Open();
        QCOMPARE(t.Shown("workItem1Field"), QStringLiteral("Acme"));
        QCOMPARE(t.Find<QPlainTextEdit>("workNotesField")->toPlainText(), QStringLiteral("line\nline"));
        t.Enter("workItem2Field", QStringLiteral("Alpha"));
        QCOMPARE(t.Shown("item2Field"), QStringLiteral("Alpha"));
        t.TurnTo(1);
        t.Enter("item1Field", QStringLiteral("Zoo"));
        t.TurnTo(0);
        QCOMPARE(t.Shown("workItem1Field"), QStringLiteral("Zoo"));
        t.dialog->accept();
        QCOMPARE(t.dialog->GetDraft().Record().item1, QStringLiteral("Zoo"));
        QCOMPARE(t.dialog->GetDraft().Record().item2, QStringLiteral("Alpha"));
        QCOMPARE(t.dialog->GetDraft().Record().notes, QStringLiteral("line\r\nline"));
    }

    void NotesGoFromPageToPage() {
        RecordDialogHome t;
        t.Open();
        auto* first = t.Find<QPlainTextEdit>("workNotesField");
        auto* page = t.Find<QPlainTextEdit>("notesField");
        QTest::keyClicks(first, QStringLiteral("one"));
        t.TurnTo(2);
        QCOMPARE(page->toPlainText(), QStringLiteral("one"));
        page->moveCursor(QTextCursor::End);
        QTest::keyClicks(page, QStringLiteral(" two"));
        t.TurnTo(0);
        QCOMPARE(first->toPlainText(), QStringLiteral("one two"));
        first->moveCursor(QTextCursor::End);
        QTest::keyClicks(first, QStringLiteral(" three"));
        t.dialog->accept();
        QCOMPARE(t.dialog->GetDraft().Record().notes, QStringLiteral("one two three"));
    }

    void AcceptTakesThePages() {
        RecordDialogHome t;
        t.Open();
        t.Enter("dateField", QStringLiteral("12/24/2026"));
        t.Enter("startField", QStringLiteral("9"));
        t.Enter("endField", QStringLiteral("9:30 pm"));
        t.TurnTo(1);
        for (const char* name : {"item1Field", "item2Field", "item3Field", "item4Field", "item5Field"})
            t.Type(name, QStringLiteral("%1 \"'%").arg(QString::fromLatin1(name)));
        t.Press("billableBox");
        t.Type("rateField", QStringLiteral("8"));
        t.Press("billedBox");
        t.TurnTo(2);
        QTest::keyClicks(t.Find<QPlainTextEdit>("notesField"), QStringLiteral("a note"));
        t.Press("acceptButton");
        QCOMPARE(t.dialog->result(), int(QDialog::Accepted));
        const CTRecord& record = t.dialog->GetDraft().Record();
        QCOMPARE(record.GetId(), t.record.GetId());
        QCOMPARE(record.date.longText, QStringLiteral("12/24/2026"));
        QCOMPARE(record.spans.duration.clockText, QStringLiteral("12:30"));
        QCOMPARE(record.item1, QStringLiteral("item1Field \"'%"));
        QCOMPARE(record.item2, QStringLiteral("item2Field \"'%"));
        QCOMPARE(record.item3, QStringLiteral("item3Field \"'%"));
        QCOMPARE(record.item4, QStringLiteral("item4Field \"'%"));
        QCOMPARE(record.item5, QStringLiteral("item5Field \"'%"));
        QCOMPARE(record.GetRateText(), QStringLiteral("8.000"));
        QCOMPARE(record.GetAmountText(), QStringLiteral("100.00"));
        QVERIFY(record.isBillable && record.isBilled);
        QCOMPARE(record.notes, QStringLiteral("a note"));
    }

    void RefuseWhatCantBeRead_data() {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("message");
        QTest::addColumn<QString>("mended");
        QTest::newRow("a day that no month has") << "dateField"
                                                 << "2/31/2026" << int(Text::DateUnreadable) << "2/28/2026";
        QTest::newRow("no date") << "dateField"
                                 << "" << int(Text::DateMissing) << "t";
        QTest::newRow("a time of 25 hours") << "startField"
                                            << "25:00" << int(Text::TimeUnreadable) << "";
        QTest::newRow("a duration in words") << "durationField"
                                             << "long" << int(Text::SpanUnreadable) << "1h";
        QTest::newRow("a break of a day") << "breakField"
                                          << "24h" << int(Text::SpanUnreadable) << "";
    }
    void RefuseWhatCantBeRead() {
        QFETCH(QString, field);
        QFETCH(QString, typed);
        QFETCH(int, message);
        QFETCH(QString, mended);
        RecordDialogHome t;
        t.Open();
        t.Type(qPrintable(field), typed);
        t.TurnTo(2);
        t.home.prompt.ExpectTold(static_cast<Text>(message), Text::CheckEntryTitle);
        t.dialog->accept();
        t.home.prompt.Finish();
        QVERIFY(t.dialog->isVisible());
        QVERIFY(t.home.prompt.told.back().contains(typed));
        QCOMPARE(t.Find<QTabWidget>("pages")->currentIndex(), 0);
        QVERIFY(t.Find<QLineEdit>(qPrintable(field))->hasFocus());
        QCOMPARE(t.Shown(qPrintable(field)), typed);
        t.Enter(qPrintable(field), mended);
        t.dialog->accept();
        QCOMPARE(t.dialog->result(), int(QDialog::Accepted));
    }

    void KeysThatEndTheDialog_data() {
        QTest::addColumn<QString>("field");
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<int>("result");
        QTest::newRow("Return in a time") << "startField" << int(Qt::Key_Return) << 0 << 1;
        QTest::newRow("Enter in an item")
            << "item1Field" << int(Qt::Key_Enter) << int(Qt::KeypadModifier) << 1;
        QTest::newRow("Return on the timer's button") << "timerStart" << int(Qt::Key_Return) << 0 << 1;
        QTest::newRow("Ctrl+Return in the notes")
            << "notesField" << int(Qt::Key_Return) << int(Qt::ControlModifier) << 1;
        QTest::newRow("Escape in the notes") << "notesField" << int(Qt::Key_Escape) << 0 << 0;
        QTest::newRow("Escape in a time") << "startField" << int(Qt::Key_Escape) << 0 << 0;
    }
    void KeysThatEndTheDialog() {
        QFETCH(QString, field);
        QFETCH(int, key);
        QFETCH(int, modifiers);
        RecordDialogHome t;
        t.Open();
        auto* widget = t.Find<QWidget>(qPrintable(field));
        t.Find<QTabWidget>("pages")->setCurrentIndex(field == QLatin1String("item1Field")   ? 1
                                                     : field == QLatin1String("notesField") ? 2
                                                                                            : 0);
        widget->setFocus();
        QTest::keyClick(widget, Qt::Key(key), Qt::KeyboardModifiers(modifiers));
        QVERIFY(!t.dialog->isVisible());
        QTEST(t.dialog->result(), "result");
    }

    void LongTexts_data() {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("expected");
        const QString smile = QStringLiteral("\U0001F600");
        QTest::newRow("an item of 255") << "item1Field" << QString(255, u'x') << 255;
        QTest::newRow("an item of 256") << "item1Field" << QString(256, u'x') << 255;
        QTest::newRow("an item that ends in half a character")
            << "item1Field" << QString(254, u'x') + smile << 254;
        QTest::newRow("notes of 32000") << "notesField" << QString(32000, u'x') << 32000;
        QTest::newRow("notes of 32001") << "notesField" << QString(32001, u'x') << 32000;
        QTest::newRow("notes that end in half a character")
            << "notesField" << QString(31999, u'x') + smile << 31999;
    }
    void LongTexts() {
        QFETCH(QString, field);
        QFETCH(QString, text);
        RecordDialogHome t;
        t.Open();
        if (auto* notes = qobject_cast<QPlainTextEdit*>(t.Find<QWidget>(qPrintable(field))))
            notes->insertPlainText(text);
        else
            t.Line(qPrintable(field))->insert(text);
        t.dialog->accept();
        const CTRecord& record = t.dialog->GetDraft().Record();
        QTEST(int(record.item1.size() + record.notes.size()), "expected");
    }

    void TabFollowsTheReadingOrder() {
        RecordDialogHome t;
        t.Open();
        const QStringList expected{
            QStringLiteral("dateField"),
            QStringLiteral("startField"),
            QStringLiteral("endField"),
            QStringLiteral("durationField"),
            QStringLiteral("breakField"),
            QStringLiteral("workItem1Field"),
            QStringLiteral("workItem2Field"),
            QStringLiteral("workNotesField"),
            QStringLiteral("lockDurationOnTimeEditBox"),
            QStringLiteral("accumulateOnReentryBox"),
            QStringLiteral("timerStart"),
            QStringLiteral("acceptButton"),
            QStringLiteral("cancelButton"),
        };
        QCOMPARE(t.TabOrder(expected.size()), expected);
    }

    void MnemonicsComeOnce_data() {
        QTest::addColumn<int>("page");
        QTest::newRow("time") << 0;
        QTest::newRow("entry") << 1;
        QTest::newRow("notes") << 2;
    }
    void MnemonicsComeOnce() {
        QFETCH(int, page);
        RecordDialogHome t;
        t.Open();
        t.TurnTo(page);
        VERIFY_MNEMONICS(t, 8);
    }

    void EveryFieldIsNamed() {
        RecordDialogHome t;
        t.Open();
        QCOMPARE(t.Unnamed(), QString());
    }

    void FieldsAreCalledAsTheUserCallsThem() {
        RecordDialogHome t;
        for (int field = 109; field <= 118; ++field)
            t.NameField(field, QStringLiteral("My field %1").arg(field));
        t.Open();
        const std::pair<const char*, int> fields[] = {
            {"item1Field", 109},  {"item2Field", 110}, {"item3Field", 111},  {"item4Field", 112},
            {"rateField", 113},   {"item5Field", 114}, {"amountField", 115}, {"notesField", 116},
            {"billableBox", 117}, {"billedBox", 118},  {"moneySum", 115},
        };
        for (const auto& [name, field] : fields)
            QCOMPARE(t.Find<QWidget>(name)->accessibleName(), QStringLiteral("My field %1").arg(field));
        QCOMPARE(QString(t.Label("item4FieldLabel")).remove(u'&'), QStringLiteral("My field 112"));
        QCOMPARE(t.Find<QCheckBox>("billableBox")->text().remove(u'&'), QStringLiteral("My field 117"));
    }

    void ALongNameOfAFieldLeavesRoomForTheField() {
        RecordDialogHome t;
        t.NameField(109, QString(200, u'W'));
        t.Open();
        t.TurnTo(1);
        VERIFY_SMALL_SCREEN(*t.dialog);
        QVERIFY(t.Label("item1FieldLabel").endsWith(QChar(0x2026)));
    }

    void ARecordWithoutIdentityHasNoTimer() {
        RecordDialogHome t;
        t.record.SetId({});
        t.Open();
        QVERIFY(!t.Find<QWidget>("timerPanel")->isVisible());
        QTest::keyClick(t.dialog.get(), Qt::Key_F7);
        QCOMPARE(t.timers.StateOf({}), TimerState::None);
        t.Enter("durationField", QStringLiteral("1:30"));
        QCOMPARE(t.Shown("durationField"), QStringLiteral("1:30"));
    }

    void FitsASmallScreen() {
        RecordDialogHome t;
        t.Open();
        VERIFY_SMALL_SCREEN(*t.dialog);
    }

    /// Also when the keyboard went from the button that cancels straight to a page by its mnemonic.
    void EnterInAFieldAccepts() {
        RecordDialogHome t;
        t.Open();
        auto* cancel = t.dialog->findChild<QPushButton*>(QStringLiteral("cancelButton"));
        cancel->setFocus();
        QVERIFY(cancel->isDefault() || cancel->hasFocus());
        const DialogUser user(*t.dialog);
        user.TurnTo(1);
        auto* item = t.dialog->findChild<QWidget*>(QStringLiteral("item1Field"));
        item->setFocus();
        QVERIFY(t.dialog->findChild<QPushButton*>(QStringLiteral("acceptButton"))->isDefault());
        QTest::keyClick(item, Qt::Key_Return);
        QCOMPARE(t.dialog->result(), int(QDialog::Accepted));
    }

    void LeavingAsksOnlyForWhatWouldBeLost_data() {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("field");
        QTest::addColumn<int>("question");
        QTest::newRow("a new record, nothing entered") << "new"
                                                       << "" << 0;
        QTest::newRow("a new record with a time") << "new"
                                                  << "startField" << int(Text::AskLeaveNew);
        QTest::newRow("a new record with a client") << "new"
                                                    << "workItem1Field" << int(Text::AskLeaveNew);
        QTest::newRow("a new record, entered what can't be read")
            << "new"
            << "durationField" << int(Text::AskLeaveNew);
        QTest::newRow("a stored record, nothing entered") << "stored"
                                                          << "" << 0;
        QTest::newRow("a stored record with another time") << "stored"
                                                           << "startField" << int(Text::AskLeaveChanged);
        QTest::newRow("a stored default") << "default"
                                          << "workItem1Field" << int(Text::AskLeaveDefault);
    }
    void LeavingAsksOnlyForWhatWouldBeLost() {
        QFETCH(QString, kind);
        QFETCH(QString, field);
        QFETCH(int, question);
        RecordDialogHome t;
        if (kind == QLatin1String("default")) t.record.SetId({});
        if (kind == QLatin1String("stored"))
            QVERIFY(t.home.document->AddRecord(t.record, {Notify::Yes, Commit::Now, Identity::Own}));
        t.Open();
        if (!field.isEmpty())
            t.Enter(qPrintable(field),
                    field == QLatin1String("durationField") ? QStringLiteral("long") : QStringLiteral("9"));
        if (question == 0) {
            t.dialog->reject();
            QVERIFY(!t.dialog->isVisible());
            return;
        }
        t.home.prompt.Expect(static_cast<Text>(question), Answer::Cancel);
        t.dialog->reject();
        QVERIFY(t.dialog->isVisible());
        t.home.prompt.Expect(static_cast<Text>(question), Answer::No);
        t.dialog->reject();
        QVERIFY(!t.dialog->isVisible());
        QCOMPARE(t.dialog->result(), int(QDialog::Rejected));
        t.home.prompt.Finish();
    }

    void LeavingCanKeepARecord() {
        RecordDialogHome t;
        t.Open();
        t.Enter("startField", QStringLiteral("9"));
        t.home.prompt.Expect(Text::AskLeaveNew, Answer::Yes);
        t.dialog->reject();
        QCOMPARE(t.dialog->result(), int(QDialog::Accepted));
        QVERIFY(t.dialog->GetDraft().Record().HasStart());
    }

    /// The button beside the timer, whose record nobody has stored yet.
    void ATimerOfANewRecordIsAskedAbout() {
        RecordDialogHome t;
        t.Open();
        t.Press("timerStart");
        QCOMPARE(t.timers.StateOf(t.record.GetId()), TimerState::Running);
        t.home.prompt.Expect(Text::AskLeaveTimer, Answer::Cancel);
        t.dialog->reject();
        QVERIFY(t.dialog->isVisible());
        QCOMPARE(t.timers.StateOf(t.record.GetId()), TimerState::Running);
        t.home.prompt.Expect(Text::AskLeaveTimer, Answer::Yes);
        t.dialog->reject();
        QCOMPARE(t.dialog->result(), int(QDialog::Accepted));
    }

    /// It goes on, and nothing is lost.
    void ATimerOfAStoredRecordIsNot() {
        RecordDialogHome t;
        QVERIFY(t.home.document->AddRecord(t.record, {Notify::Yes, Commit::Now, Identity::Own}));
        t.Open();
        t.Press("timerStart");
        t.dialog->reject();
        QVERIFY(!t.dialog->isVisible());
        QCOMPARE(t.timers.StateOf(t.record.GetId()), TimerState::Running);
    }

    void ATimerThatWasStoppedHereIsAskedAbout() {
        RecordDialogHome t;
        QVERIFY(t.home.document->AddRecord(t.record, {Notify::Yes, Commit::Now, Identity::Own}));
        t.Open();
        t.Press("timerStart");
        t.home.clock.Advance(3600);
        t.Press("timerStop");
        t.home.prompt.Expect(Text::AskLeaveStopped, Answer::No);
        t.dialog->reject();
        QVERIFY(!t.dialog->isVisible());
    }

    void TheStartOfANewTimerIsTheStartOfTheWork_data() {
        QTest::addColumn<QString>("entered");
        QTest::addColumn<bool>("isStored");
        QTest::addColumn<QString>("start");
        QTest::newRow("a new record of today") << "" << false << "09:00 AM";
        QTest::newRow("one that has a start already") << "startField" << false << "08:00 AM";
        QTest::newRow("one of another day") << "dateField" << false << "";
        QTest::newRow("a stored one") << "" << true << "";
    }
    void TheStartOfANewTimerIsTheStartOfTheWork() {
        QFETCH(QString, entered);
        QFETCH(bool, isStored);
        RecordDialogHome t;
        if (isStored)
            QVERIFY(t.home.document->AddRecord(t.record, {Notify::Yes, Commit::Now, Identity::Own}));
        t.Open();
        if (!entered.isEmpty())
            t.Enter(qPrintable(entered), entered == QLatin1String("startField")
                                             ? QStringLiteral("8")
                                             : QStringLiteral("11/18/2026"));
        t.Press("timerStart");
        QTEST(t.Shown("startField"), "start");
    }

    void RemembersItsSize() {
        RecordDialogHome t;
        t.Open();
        t.dialog->resize(600, 450);
        t.dialog->reject();
        t.Open();
        QCOMPARE(t.dialog->size(), QSize(600, 450));
    }

    void Run_data() {
        QTest::addColumn<bool>("isAccepted");
        QTest::addColumn<QString>("expected");
        QTest::newRow("accepted: the record is changed") << true << "new";
        QTest::newRow("cancelled: the record is as it was") << false << "old";
    }
    void Run() {
        QFETCH(bool, isAccepted);
        RecordDialogHome t;
        t.record.item1 = QStringLiteral("old");
        QTimer::singleShot(0, qApp, [isAccepted] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            const DialogUser user(*dialog);
            user.TurnTo(1);
            user.Enter("item1Field", QStringLiteral("new"));
            isAccepted ? dialog->accept() : dialog->reject();
        });
        if (!isAccepted) t.home.prompt.Expect(Text::AskLeaveNew, Answer::No);
        QCOMPARE(RunRecordDialog(nullptr, t.record, t.Context()), isAccepted);
        QTEST(t.record.item1, "expected");
    }
};

TEST_CLASS(TestCRecordDialog);
#include "TestCRecordDialog.moc"
