#include "shell/CRecordDialog.h"

#include "lang/LoadText.h"
#include "shell/FormRows.h"
#include "shell/RecordDialogHome.h"

#include <QPlainTextEdit>

/// The pages of the record dialog: what keys and clicks show, and what the record holds afterwards.
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

    void EnterTimes_data() {
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("end");
        QTest::addColumn<QString>("settings");
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("expected");
        QTest::newRow("lock off: the end stays") << "08:00"
                                                 << "10:00"
                                                 << ""
                                                 << "startField"
                                                 << "9"
                                                 << "09:00 AM to 10:00 AM, 1:00 less ";
        QTest::newRow("lock on: the duration stays") << "08:00"
                                                     << "10:00"
                                                     << "lock"
                                                     << "startField"
                                                     << "9"
                                                     << "09:00 AM to 11:00 AM, 2:00 less ";
        QTest::newRow("a duration past midnight") << "23:30"
                                                  << ""
                                                  << ""
                                                  << "durationField"
                                                  << "1"
                                                  << "11:30 PM to 12:30 AM, 1:00 less ";
        QTest::newRow("equal times are no duration") << "08:00"
                                                     << ""
                                                     << ""
                                                     << "endField"
                                                     << "8:00"
                                                     << "08:00 AM to 08:00 AM,  less ";
        QTest::newRow("a start and a duration make the end") << "08:00"
                                                             << ""
                                                             << ""
                                                             << "durationField"
                                                             << "1:30"
                                                             << "08:00 AM to 09:30 AM, 1:30 less ";
        QTest::newRow("whatever the lock of the start says") << "08:00"
                                                             << ""
                                                             << "free start"
                                                             << "durationField"
                                                             << "1:30"
                                                             << "08:00 AM to 09:30 AM, 1:30 less ";
        QTest::newRow("an end and a duration make the start") << ""
                                                              << "10:00"
                                                              << ""
                                                              << "durationField"
                                                              << "90m"
                                                              << "08:30 AM to 10:00 AM, 1:30 less ";
        QTest::newRow("with a free start the start moves") << "08:00"
                                                           << "10:00"
                                                           << "free start"
                                                           << "durationField"
                                                           << "1:00"
                                                           << "09:00 AM to 10:00 AM, 1:00 less ";
        QTest::newRow("with a locked start the end moves") << "08:00"
                                                           << "10:00"
                                                           << ""
                                                           << "durationField"
                                                           << "1:00"
                                                           << "08:00 AM to 09:00 AM, 1:00 less ";
        QTest::newRow("accumulated, hours carried") << "08:00"
                                                    << "09:50"
                                                    << "accumulate"
                                                    << "durationField"
                                                    << "0:20"
                                                    << "08:00 AM to 10:10 AM, 2:10 less ";
        QTest::newRow("accumulated, the same again") << "08:00"
                                                     << "09:30"
                                                     << "accumulate"
                                                     << "durationField"
                                                     << "1:30"
                                                     << "08:00 AM to 11:00 AM, 3:00 less ";
        QTest::newRow("the same again without accumulation") << "08:00"
                                                             << "09:30"
                                                             << ""
                                                             << "durationField"
                                                             << "1:30"
                                                             << "08:00 AM to 09:30 AM, 1:30 less ";
        QTest::newRow("accumulated, then rounded") << "08:00"
                                                   << "09:50"
                                                   << "accumulate round"
                                                   << "durationField"
                                                   << "0:18"
                                                   << "08:00 AM to 10:15 AM, 2:15 less ";
        QTest::newRow("a start rounded upward") << ""
                                                << "10:00"
                                                << "round"
                                                << "startField"
                                                << "8:07"
                                                << "08:15 AM to 10:00 AM, 1:45 less ";
        QTest::newRow("rounded past noon") << ""
                                           << ""
                                           << "round"
                                           << "startField"
                                           << "11:58"
                                           << "12:00 PM to ,  less ";
        QTest::newRow("a break, which moves no time") << "08:00"
                                                      << "10:00"
                                                      << ""
                                                      << "breakField"
                                                      << "0:30"
                                                      << "08:00 AM to 10:00 AM, 2:00 less 0:30";
        QTest::newRow("a cleared start leaves the rest") << "08:00"
                                                         << "10:00"
                                                         << ""
                                                         << "startField"
                                                         << ""
                                                         << " to 10:00 AM, 2:00 less ";
        QTest::newRow("a cleared duration leaves the times") << "08:00"
                                                             << "10:00"
                                                             << ""
                                                             << "durationField"
                                                             << ""
                                                             << "08:00 AM to 10:00 AM,  less ";
        QTest::newRow("nothing is entered by a text that is no time") << "08:00"
                                                                      << "10:00"
                                                                      << ""
                                                                      << "startField"
                                                                      << "25:00"
                                                                      << "25:00 to 10:00 AM, 2:00 less ";
    }
    void EnterTimes() {
        QFETCH(QString, start);
        QFETCH(QString, end);
        QFETCH(QString, settings);
        QFETCH(QString, field);
        QFETCH(QString, typed);
        RecordDialogHome t;
        CCfgStore& s = *t.home.settings;
        s.lockDurationOnTimeEdit = settings.contains(QLatin1String("lock"));
        s.lockStartOnDurationEdit = !settings.contains(QLatin1String("free start"));
        s.accumulateOnReentry = settings.contains(QLatin1String("accumulate"));
        if (settings.contains(QLatin1String("round"))) {
            s.roundStartType = s.roundDurationType = 16;
            s.roundStartMinutes = s.roundDurationMinutes = 15;
        }
        t.SetTimes(start, end);
        t.Open();
        t.Enter(qPrintable(field), typed);
        QTEST(t.Times(), "expected");
    }

    void AllFollowsAtEveryKey() {
        RecordDialogHome t;
        t.SetTimes(QStringLiteral("08:00"), QStringLiteral("10:00"));
        t.record.SetBillable(true);
        t.record.SetRate(10);
        t.Open();
        t.Type("endField", QStringLiteral("1"));  // 1 AM is no end of a start in the morning
        QCOMPARE(t.Times(), QStringLiteral("08:00 AM to 1,  less "));
        QCOMPARE(t.Label("netTime"), QStringLiteral("--:--"));
        QTest::keyClicks(t.Find<QLineEdit>("endField"), QStringLiteral("1"));
        QCOMPARE(t.Times(), QStringLiteral("08:00 AM to 11, 3:00 less "));
        QCOMPARE(t.Label("netTime"), QStringLiteral("3:00 (3.0000 h)"));
        QCOMPARE(t.Label("moneySum"), QStringLiteral("30.00"));
        QCOMPARE(t.Label("timerTime"), QStringLiteral("03:00"));
        QTest::keyClicks(t.Find<QLineEdit>("endField"), QStringLiteral("30"));
        QCOMPARE(t.Times(), QStringLiteral("08:00 AM to 1130, 3:30 less "));
        QTest::keyClick(t.Find<QLineEdit>("endField"), Qt::Key_Tab);
        QCOMPARE(t.Times(), QStringLiteral("08:00 AM to 11:30 AM, 3:30 less "));
    }

    void AccumulationCountsAnEntryOnceHoweverManyKeysItHas() {
        RecordDialogHome t;
        t.home.settings->accumulateOnReentry = true;
        t.SetTimes(QStringLiteral("08:00"), QStringLiteral("09:00"));
        t.Open();
        t.Enter("durationField", QStringLiteral("0:30"));
        QCOMPARE(t.Shown("durationField"), QStringLiteral("1:30"));
        t.Enter("durationField", QStringLiteral("0:30"));
        QCOMPARE(t.Shown("durationField"), QStringLiteral("2:00"));
    }

    void LookingAtATimeDoesNotRoundIt() {
        RecordDialogHome t;
        t.home.settings->roundStartType = 16;
        t.home.settings->roundStartMinutes = 15;
        t.SetTimes(QStringLiteral("09:07"), QStringLiteral("10:00"));
        t.Open();
        auto* start = t.Find<QLineEdit>("startField");
        start->setFocus();
        QTest::keyClick(start, Qt::Key_End);
        QTest::keyClick(start, Qt::Key_Backspace);
        QTest::keyClicks(start, QStringLiteral("M"));
        QTest::keyClick(start, Qt::Key_Tab);
        QCOMPARE(t.Times(), QStringLiteral("09:07 AM to 10:00 AM, 0:53 less "));
    }

    void BreakLongerThanTheDuration() {
        RecordDialogHome t;
        t.SetTimes(QStringLiteral("08:00"), QStringLiteral("10:00"));
        t.record.SetBillable(true);
        t.record.SetRate(10);
        t.Open();
        QCOMPARE(t.Label("moneySum"), QStringLiteral("20.00"));
        t.Enter("breakField", QStringLiteral("2:30"));
        QCOMPARE(t.Label("netTime"), QStringLiteral("--:--"));
        QCOMPARE(t.Label("moneySum"), QString());
        QCOMPARE(t.Shown("amountField"), QString());
        QCOMPARE(t.Shown("rateField"), QStringLiteral("10.000"));
    }

    void RateAndAmountFollowOneAnother() {
        RecordDialogHome t;
        t.SetTimes(QStringLiteral("08:00"), QStringLiteral("09:30"));
        t.record.SetBillable(true);
        t.Open();
        t.Type("rateField", QStringLiteral("10"));
        QCOMPARE(t.Shown("rateField"), QStringLiteral("10"));
        QCOMPARE(t.Shown("amountField"), QStringLiteral("15.00"));
        t.Type("amountField", QStringLiteral("30"));
        QCOMPARE(t.Shown("rateField"), QStringLiteral("20.000"));
        QCOMPARE(t.Label("moneySum"), QStringLiteral("30.00"));
        // The amount was typed: a longer duration makes the rate smaller.
        t.Enter("durationField", QStringLiteral("3"));
        QCOMPARE(t.Shown("rateField"), QStringLiteral("10.000"));
        QCOMPARE(t.Shown("amountField"), QStringLiteral("30"));
        t.dialog->accept();
        QCOMPARE(t.dialog->GetDraft().GetRateText(), QStringLiteral("10.000"));
        QCOMPARE(t.dialog->GetDraft().GetAmountText(), QStringLiteral("30.00"));
    }

    void MoneyThatIsNoNumberChangesNothingAndIsMarked() {
        RecordDialogHome t;
        t.SetTimes(QStringLiteral("08:00"), QStringLiteral("10:00"));
        t.record.SetBillable(true);
        t.record.SetRate(10);
        t.Open();
        t.Type("rateField", QStringLiteral("x"));
        QVERIFY(IsMarked(*t.Find<QLineEdit>("rateField")));
        QCOMPARE(t.Shown("amountField"), QStringLiteral("20.00"));
        QCOMPARE(t.Label("moneySum"), QStringLiteral("20.00"));
        t.Type("rateField", QStringLiteral("5"));
        QVERIFY(!IsMarked(*t.Find<QLineEdit>("rateField")));
        QCOMPARE(t.Shown("amountField"), QStringLiteral("10.00"));
    }

    void BillableGovernsTheMoney() {
        RecordDialogHome t;
        t.SetTimes(QStringLiteral("08:00"), QStringLiteral("10:00"));
        t.Open();
        t.Find<QTabWidget>("pages")->setCurrentIndex(1);
        for (const char* name : {"rateField", "amountField", "billedBox"})
            QVERIFY(!t.Find<QWidget>(name)->isEnabled());
        t.Press("billableBox");
        for (const char* name : {"rateField", "amountField", "billedBox"})
            QVERIFY(t.Find<QWidget>(name)->isEnabled());
        t.Type("rateField", QStringLiteral("10"));
        t.Press("billedBox");
        QCOMPARE(t.Label("moneySum"), QStringLiteral("20.00"));
        t.Press("billableBox");
        QCOMPARE(t.Shown("rateField"), QString());
        QCOMPARE(t.Shown("amountField"), QString());
        QVERIFY(!t.Find<QCheckBox>("billedBox")->isChecked());
        QCOMPARE(t.Label("moneySum"), QString());
    }

    void AcceptTakesThePages() {
        RecordDialogHome t;
        t.Open();
        t.Enter("dateField", QStringLiteral("12/24/2026"));
        t.Enter("startField", QStringLiteral("9"));
        t.Enter("endField", QStringLiteral("9:30 pm"));
        t.Find<QTabWidget>("pages")->setCurrentIndex(1);
        for (const char* name : {"item1Field", "item2Field", "item3Field", "item4Field", "item5Field"})
            t.Type(name, QStringLiteral("%1 \"'%").arg(QString::fromLatin1(name)));
        t.Press("billableBox");
        t.Type("rateField", QStringLiteral("8"));
        t.Press("billedBox");
        t.Find<QTabWidget>("pages")->setCurrentIndex(2);
        QTest::keyClicks(t.Find<QPlainTextEdit>("notesField"), QStringLiteral("a note"));
        t.Press("acceptButton");
        QCOMPARE(t.dialog->result(), int(QDialog::Accepted));
        const CTRecord& record = t.dialog->GetDraft();
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

    void AnUnreadRateIsNoValueAfterAcceptance() {
        RecordDialogHome t;
        t.SetTimes(QStringLiteral("08:00"), QStringLiteral("10:00"));
        t.record.SetBillable(true);
        t.record.SetRate(10);
        t.Open();
        t.Type("rateField", QString());
        QVERIFY(!IsMarked(*t.Find<QLineEdit>("rateField")));
        t.dialog->accept();
        QCOMPARE(t.dialog->GetDraft().rate.value, -1.0F);
        QCOMPARE(t.dialog->GetDraft().amount.value, 20.0F);
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
        t.Find<QTabWidget>("pages")->setCurrentIndex(2);
        t.home.prompt.ExpectTold(static_cast<Text>(message));
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
        QTest::newRow("Return on the timer's button") << "timerStop" << int(Qt::Key_Return) << 0 << 1;
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

    void ReturnInTheNotesIsALine() {
        RecordDialogHome t;
        t.Open();
        t.Find<QTabWidget>("pages")->setCurrentIndex(2);
        QTest::keyClick(t.Find<QPlainTextEdit>("notesField"), Qt::Key_Return);
        QVERIFY(t.dialog->isVisible());
    }

    void SwitchesWriteTheirSettingAtOnce_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("lock duration") << "lockDurationOnTimeEdit";
        QTest::newRow("accumulate") << "accumulateOnReentry";
    }
    void SwitchesWriteTheirSettingAtOnce() {
        QFETCH(QString, name);
        RecordDialogHome t;
        t.Open();
        auto* box = t.Find<QCheckBox>(qPrintable(name + QStringLiteral("Box")));
        QVERIFY(!box->isChecked());
        t.Press(qPrintable(name + QStringLiteral("Box")));
        const SettingRow& row = *FindSetting(name);
        QCOMPARE(SettingValue(*t.home.settings, row), 1);
        CCfgStore fresh(t.home.tree, *t.home.profile, t.home.prompt, t.home.region,
                        LoadText(Text::BaseKeyPath));
        fresh.LoadValues();
        fresh.KeepStoreUntouched();
        QCOMPARE(SettingValue(fresh, row), 1);
        t.dialog->reject();
        QCOMPARE(SettingValue(*t.home.settings, row), 1);
    }

    void PickATimeFromThePopup() {
        RecordDialogHome t;
        t.SetTimes(QStringLiteral("08:00"), QStringLiteral("10:00"));
        t.Open();
        auto* start = t.Find<QLineEdit>("startField");
        start->setFocus();
        QTest::keyClick(start, Qt::Key_Down, Qt::AltModifier);
        auto* hours = t.Find<QWidget>("hourGrid");
        QTest::keyClick(hours, Qt::Key_Right);
        QTest::keyClick(hours, Qt::Key_Return);
        QCOMPARE(t.Shown("durationField"), QStringLiteral("1:00"));
        QVERIFY(t.dialog->isVisible());
        t.dialog->accept();
        QCOMPARE(t.dialog->GetDraft().startHour, 9);
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
        auto* widget = t.Find<QWidget>(qPrintable(field));
        if (auto* notes = qobject_cast<QPlainTextEdit*>(widget))
            notes->insertPlainText(text);
        else
            qobject_cast<QLineEdit*>(widget)->insert(text);
        t.dialog->accept();
        const CTRecord& record = t.dialog->GetDraft();
        QTEST(int(record.item1.size() + record.notes.size()), "expected");
    }

    void FullNotesTakeNothingInTheirMiddle() {
        RecordDialogHome t;
        t.record.notes = QString(31998, u'a') + QStringLiteral("zz");
        t.Open();
        t.Find<QTabWidget>("pages")->setCurrentIndex(2);
        auto* notes = t.Find<QPlainTextEdit>("notesField");
        QTest::keyClicks(notes, QStringLiteral("bbb"));
        QCOMPARE(notes->toPlainText(), t.record.notes);
        QCOMPARE(t.Label("notesRoom"), QStringLiteral("32000 of 32000 characters"));
    }

    void UntouchedNotesStayAsTheyAre() {
        RecordDialogHome t;
        t.record.notes = QStringLiteral("a\r\nb\u00a0c");
        t.Open();
        t.dialog->accept();
        QCOMPARE(t.dialog->GetDraft().notes, QStringLiteral("a\r\nb\u00a0c"));
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
            QStringLiteral("lockDurationOnTimeEditBox"),
            QStringLiteral("accumulateOnReentryBox"),
            QStringLiteral("timerStart"),
            QStringLiteral("timerPause"),
            QStringLiteral("timerStop"),
            QStringLiteral("acceptButton"),
            QStringLiteral("cancelButton"),
        };
        QStringList seen;
        for (qsizetype i = 0; i < expected.size(); ++i) {
            QWidget* focus = t.dialog->focusWidget();
            seen << focus->objectName();
            QTest::keyClick(focus, Qt::Key_Tab);
        }
        QCOMPARE(seen, expected);
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
        auto* pages = t.Find<QTabWidget>("pages");
        pages->setCurrentIndex(page);
        QStringList keys;
        for (int i = 0; i < pages->count(); ++i) keys << QKeySequence::mnemonic(pages->tabText(i)).toString();
        for (const auto* label : t.dialog->findChildren<QLabel*>())
            if (label->isVisible() && label->buddy())
                keys << QKeySequence::mnemonic(label->text()).toString();
        for (const auto* button : t.dialog->findChildren<QAbstractButton*>())
            if (button->isVisible() && !button->text().isEmpty())
                keys << QKeySequence::mnemonic(button->text()).toString();
        QVERIFY(keys.size() >= 8);
        for (const QString& key : keys)
            QVERIFY2(!key.isEmpty() && keys.count(key) == 1, qPrintable(keys.join(u' ')));
    }

    void EveryFieldIsNamed() {
        RecordDialogHome t;
        t.Open();
        for (const auto* widget : t.dialog->findChildren<QWidget*>()) {
            if (widget->focusPolicy() == Qt::NoFocus || widget->objectName().startsWith(QLatin1String("qt_")))
                continue;
            QVERIFY2(!widget->objectName().isEmpty(), widget->metaObject()->className());
            QVERIFY2(!widget->accessibleName().isEmpty(), qPrintable(widget->objectName()));
        }
    }

    void FitsASmallScreen() {
        RecordDialogHome t;
        t.Open();
        const QSize least = t.dialog->minimumSizeHint();
        QVERIFY2(least.width() <= 640 && least.height() <= 480,
                 qPrintable(QStringLiteral("%1 x %2").arg(least.width()).arg(least.height())));
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
            dialog->findChild<QLineEdit*>(QStringLiteral("item1Field"))->setText(QStringLiteral("new"));
            isAccepted ? dialog->accept() : dialog->reject();
        });
        const RecordDialogSurroundings around{*t.home.document, t.timers, *t.home.settings, t.home.prompt,
                                              t.home.clock};
        QCOMPARE(RunRecordDialog(nullptr, t.record, around), isAccepted);
        QTEST(t.record.item1, "expected");
    }
};

QTEST_MAIN(TestCRecordDialog)
#include "TestCRecordDialog.moc"
