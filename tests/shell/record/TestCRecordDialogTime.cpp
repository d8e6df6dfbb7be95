#include "shell/record/CRecordDialogTime.h"

#include "config/SettingsTable.h"
#include "lang/LoadText.h"
#include "shell/record/RecordDialogHome.h"
#include "support/TestProgram.h"

/// The page with the times: what keys and clicks show.
class TestCRecordDialogTime : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    /// A key that steps moves the value as it is shown; it is no entry that is added to it.
    void SteppingAddsNothingUp() {
        RecordDialogHome t;
        t.home.settings->accumulateOnReentry = true;
        t.SetTimes(QStringLiteral("08:00"), QStringLiteral("10:00"));
        t.Open();
        t.Find<QWidget>("durationField")->setFocus();
        t.Key("durationField", Qt::Key_Up);
        t.Key("durationField", Qt::Key_Up);
        QCOMPARE(t.Times(), QStringLiteral("08:00 AM to 10:10 AM, 2:10 less "));
        t.Key("durationField", Qt::Key_Down);
        t.Key("durationField", Qt::Key_Down);
        QCOMPARE(t.Times(), QStringLiteral("08:00 AM to 10:00 AM, 2:00 less "));
    }

    void SteppingMoreThanADay() {
        RecordDialogHome t;
        t.record.SetDuration(30, 0, true);
        t.Open();
        t.Find<QWidget>("durationField")->setFocus();
        t.Key("durationField", Qt::Key_Up);
        QCOMPARE(t.Shown("durationField"), QStringLiteral("30:05"));
        t.dialog->accept();
        QCOMPARE(t.dialog->GetDraft().Record().spans.duration.clockText, QStringLiteral("30:05"));
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
        QCOMPARE(t.dialog->GetDraft().Record().startHour, 9);
    }
};

TEST_CLASS(TestCRecordDialogTime);
#include "TestCRecordDialogTime.moc"
