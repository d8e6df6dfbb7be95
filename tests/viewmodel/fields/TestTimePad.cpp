#include "viewmodel/fields/TimePad.h"

#include "calendar/NumberText.h"
#include "lang/LoadText.h"
#include "platform/host/CRegionalInfo.h"
#include "records/CTRecord.h"
#include "support/CScriptedPrompt.h"
#include "support/CTestClock.h"
#include "support/TestProgram.h"

#include <QtTest>

namespace {

/// A control that keeps what it is given, or fails as it is told to.
class CKeptTime final : public CTimeControl {
 public:
    int SetTime(const SYSTEMTIME& time) override {
        if (error == 0) shown = time;
        return error;
    }
    bool GetTime(SYSTEMTIME& out) const override {
        out = shown;
        return isReadable;
    }
    SYSTEMTIME shown{};
    int error = 0;
    bool isReadable = true;
};

}  // namespace

/// The pad for a time of day by its numbered buttons.
class TestTimePad : public QObject {
    Q_OBJECT

 private:
    CTestClock m_clock{2026, 11, 19, 14, 7};
    CTRecord m_entry;
    CScriptedPrompt m_prompt;
    CKeptTime m_control;

    TimePad Pad(bool is24Hour, TimeField field = TimeField::Start) {
        m_control = {};
        return TimePad({field, m_entry, m_clock, m_prompt}, m_control, is24Hour);
    }
    /// "09:30", or nothing.
    static std::optional<DateTimeVal> Time(const QString& text) {
        DateTimeVal time;
        if (!time.ParseTimeText(text, true)) return {};
        return time;
    }
    static QString Shown(const TimePad& pad) {
        const auto time = pad.Time();
        return time ? FormatTimeOfDay({}, time->hour12, time->minute, time->isPm != 0)
                    : QStringLiteral("none");
    }
    [[nodiscard]] QString InControl() const {
        return QStringLiteral("%1:%2").arg(m_control.shown.wHour).arg(m_control.shown.wMinute);
    }

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void Tap_data() {
        QTest::addColumn<bool>("is24Hour");
        QTest::addColumn<QString>("before");
        QTest::addColumn<QList<int>>("ids");
        QTest::addColumn<QString>("expected");
        using L = QList<int>;
        QTest::newRow("12 hours: the first button is 12") << false << "09:07" << L{1025} << "12:07 AM";
        QTest::newRow("12 hours: the second is 1") << false << "09:07" << L{1026} << "01:07 AM";
        QTest::newRow("12 hours: the last is 11, PM stays") << false << "21:07" << L{1036} << "11:07 PM";
        QTest::newRow("12 hours: minute 0") << false << "09:07" << L{1037} << "09:00 AM";
        QTest::newRow("12 hours: minute 55") << false << "21:07" << L{1048} << "09:55 PM";
        QTest::newRow("12 hours: AM") << false << "21:07" << L{3} << "09:07 AM";
        QTest::newRow("12 hours: PM") << false << "09:07" << L{4} << "09:07 PM";
        QTest::newRow("12 hours: PM without a time is noon") << false << "" << L{4} << "12:00 PM";
        QTest::newRow("12 hours: a minute without a time is after midnight")
            << false << "" << L{1038} << "12:05 AM";
        QTest::newRow("12 hours: an hour without a time") << false << "" << L{1030} << "05:00 AM";
        QTest::newRow("12 hours: hour, minute, half") << false << "" << L{1034, 1043, 4} << "09:30 PM";
        QTest::newRow("12 hours: there are no buttons of the afternoon")
            << false << "09:07" << L{1049, 1060} << "09:07 AM";
        QTest::newRow("24 hours: hour 0 is midnight") << true << "09:07" << L{1025} << "12:07 AM";
        QTest::newRow("24 hours: hour 12 is noon") << true << "09:07" << L{1049} << "12:07 PM";
        QTest::newRow("24 hours: hour 11") << true << "21:07" << L{1036} << "11:07 AM";
        QTest::newRow("24 hours: hour 23") << true << "09:07" << L{1060} << "11:07 PM";
        QTest::newRow("24 hours: hour 0 without a time") << true << "" << L{1025} << "12:00 AM";
        QTest::newRow("24 hours: a minute keeps the half") << true << "21:07" << L{1040} << "09:15 PM";
        QTest::newRow("24 hours: there is no AM and no PM") << true << "09:07" << L{4} << "09:07 AM";
        QTest::newRow("numbers that are no button")
            << true << "09:07" << L{0, 7, 1024, 1061, 1064, 2000} << "09:07 AM";
    }
    void Tap() {
        QFETCH(bool, is24Hour);
        QFETCH(QString, before);
        QFETCH(QList<int>, ids);
        for (const TimeField field : {TimeField::Start, TimeField::End}) {
            TimePad pad = Pad(is24Hour, field);
            pad.Open(Time(before));
            for (const int id : ids) QCOMPARE(pad.Press(id), PadState::Open);
            QTEST(Shown(pad), "expected");
            // The other time of the scratch record is left alone.
            QVERIFY(field == TimeField::Start ? !m_entry.HasEnd() : !m_entry.HasStart());
        }
    }

    void ControlShowsTheSameTime_data() {
        QTest::addColumn<QString>("before");
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("expected");
        QTest::newRow("at the start") << "09:07" << 0 << "9:7";
        QTest::newRow("at the start without a time it is midnight") << "" << 0 << "0:0";
        QTest::newRow("after an hour") << "09:07" << 1060 << "23:7";
        QTest::newRow("after a minute") << "21:07" << 1048 << "21:55";
    }
    void ControlShowsTheSameTime() {
        QFETCH(QString, before);
        QFETCH(int, id);
        TimePad pad = Pad(true);
        pad.Open(Time(before));
        pad.Press(id);
        QTEST(InControl(), "expected");
    }

    void OpenForgetsTheLastTime() {
        TimePad pad = Pad(false);
        pad.Open(Time(QStringLiteral("09:07")));
        pad.Open({});
        QCOMPARE(Shown(pad), QStringLiteral("none"));
        QVERIFY(!m_entry.HasStart());
        QCOMPARE(pad.LitHour(), 0);
    }

    void Light() {
        TimePad pad = Pad(false);
        pad.Open(Time(QStringLiteral("09:07")));
        // The time at the start; :07 has no button.
        QCOMPARE(pad.LitHour(), 1034);
        QCOMPARE(pad.LitMinute(), 0);
        QCOMPARE(pad.LitHalf(), 3);
        pad.Press(1028);
        pad.Press(1040);
        QCOMPARE(pad.LitHour(), 1028);
        QCOMPARE(pad.LitMinute(), 1040);
        pad.Press(1030);
        pad.Press(4);
        QCOMPARE(pad.LitHour(), 1030);
        QCOMPARE(pad.LitMinute(), 1040);
        QCOMPARE(pad.LitHalf(), 4);
    }

    void LightOfBothHalvesOfTheDayIsOneGroup() {
        TimePad pad = Pad(true);
        pad.Open({});
        pad.Press(1030);
        pad.Press(1050);
        QCOMPARE(pad.LitHour(), 1050);
    }

    void ControlChanged() {
        TimePad pad = Pad(false);
        pad.Open(Time(QStringLiteral("09:00")));
        pad.Press(1030);
        m_control.shown.wHour = 21;
        m_control.shown.wMinute = 8;
        pad.ControlChanged();
        QCOMPARE(Shown(pad), QStringLiteral("09:08 PM"));
        QCOMPARE(pad.LitHour(), 0);
        QCOMPARE(pad.LitMinute(), 0);
        QCOMPARE(pad.LitHalf(), 0);
        QCOMPARE(pad.Title(), QStringLiteral("Start: 09:08 PM"));
    }

    void Title_data() {
        QTest::addColumn<bool>("is24Hour");
        QTest::addColumn<bool>("isStart");
        QTest::addColumn<QString>("time");
        QTest::addColumn<QString>("expected");
        QTest::newRow("start, morning") << false << true << "09:07"
                                        << "Start: 09:07 AM";
        QTest::newRow("start, noon") << false << true << "12:00"
                                     << "Start: 12:00 PM";
        QTest::newRow("start of 24 hours") << true << true << "21:07"
                                           << "Start: 21:07";
        QTest::newRow("end, evening") << false << false << "21:07"
                                      << "End: 09:07 PM";
        QTest::newRow("end of 24 hours, midnight") << true << false << "00:07"
                                                   << "End: 00:07";
        QTest::newRow("no time yet") << false << true << ""
                                     << "Start: 12:00 AM";
    }
    void Title() {
        QFETCH(bool, is24Hour);
        QFETCH(bool, isStart);
        QFETCH(QString, time);
        TimePad pad = Pad(is24Hour, isStart ? TimeField::Start : TimeField::End);
        pad.Open(Time(time));
        QTEST(pad.Title(), "expected");
    }

    void Close_data() {
        QTest::addColumn<QString>("before");
        QTest::addColumn<int>("id");
        QTest::addColumn<bool>("isAccepted");
        QTest::addColumn<QString>("expected");
        QTest::newRow("accept") << "09:07" << 1 << true << "09:07 AM";
        QTest::newRow("accept without a time") << "" << 1 << true << "none";
        QTest::newRow("cancel") << "09:07" << 2 << false << "09:07 AM";
        QTest::newRow("now") << "09:07" << 5 << true << "02:07 PM";
        QTest::newRow("clear leaves no time") << "09:07" << 6 << true << "none";
    }
    void Close() {
        QFETCH(QString, before);
        QFETCH(int, id);
        QFETCH(bool, isAccepted);
        TimePad pad = Pad(false, TimeField::End);
        pad.Open(Time(before));
        QCOMPARE(pad.Press(id), isAccepted ? PadState::Accepted : PadState::Cancelled);
        QTEST(Shown(pad), "expected");
        QVERIFY(!m_entry.spans.duration.IsSet());
        m_prompt.Finish();
    }

    void NowGoesByWayOfTheControl() {
        TimePad pad = Pad(false);
        pad.Open({});
        pad.Press(5);
        QCOMPARE(InControl(), QStringLiteral("14:7"));
    }

    void NowThatTheControlRefusesIsToldWithTheNumber() {
        TimePad pad = Pad(false);
        pad.Open(Time(QStringLiteral("09:07")));
        m_control.error = 87;
        m_prompt.ExpectTold(Text::ClockTimeRefused);
        QCOMPARE(pad.Press(5), PadState::Open);
        QVERIFY(m_prompt.told.last().contains(QStringLiteral("87")));
        QCOMPARE(Shown(pad), QStringLiteral("09:07 AM"));
        m_prompt.Finish();
    }

    void NowThatTheControlDoesNotGiveBackCallsThePadOff() {
        TimePad pad = Pad(false);
        pad.Open(Time(QStringLiteral("09:07")));
        m_control.isReadable = false;
        m_prompt.ExpectTold(Text::ClockTimeUnreadable);
        QCOMPARE(pad.Press(5), PadState::Cancelled);
        m_prompt.Finish();
    }

    void Captions_data() {
        QTest::addColumn<bool>("is24Hour");
        QTest::addColumn<QString>("hours");
        QTest::newRow("12 hours") << false << "12 1 2 3 4 5 6 7 8 9 10 11";
        QTest::newRow("24 hours")
            << true << "00 01 02 03 04 05 06 07 08 09 10 11 12 13 14 15 16 17 18 19 20 21 22 23";
    }
    void Captions() {
        QFETCH(bool, is24Hour);
        const TimePad pad = Pad(is24Hour);
        QStringList hours, minutes;
        for (const int id : pad.HourIds()) hours << pad.CaptionOf(id);
        for (const int id : TimePad::MinuteIds()) minutes << pad.CaptionOf(id);
        QTEST(hours.join(QLatin1Char(' ')), "hours");
        QCOMPARE(minutes.join(QLatin1Char(' ')),
                 QStringLiteral(":00 :05 :10 :15 :20 :25 :30 :35 :40 :45 :50 :55"));
        QCOMPARE(pad.CaptionOf(3), QStringLiteral("AM"));
        QCOMPARE(pad.CaptionOf(4), QStringLiteral("PM"));
    }
};

TEST_CLASS(TestTimePad);
#include "TestTimePad.moc"
