#include "records/CTRecord.h"

#include "RecordsFixture.h"
#include "records/Precisions.h"
#include "support/TestProgram.h"

#include <limits>

/// The rules that bind start, end, duration, break and money.
class TestCTRecord : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void Reset();
    void SetStart_data();
    void SetStart();
    void SetEnd_data();
    void SetEnd();
    void TimesAreRepaired();
    void SetDuration_data();
    void SetDuration();
    void SetDurationOnly();
    void SetBreak_data();
    void SetBreak();
    void ClearTimes();
    void SetAmountAndRate_data();
    void SetAmountAndRate();
    void MoneyFollowsTime_data();
    void MoneyFollowsTime();
    void SetBillable();
    void BreakBeyondTheDuration();
    void Copy();
    void Clone();
    void TimeText_data();
    void TimeText();
    void AbsurdNumbers();

 private:
    RegionScope m_region{Region24()};
};

namespace {

struct ClockText {
    int hour12;
    int minute;
    bool isPm;
};

/// "17:05" as the record holds it: 5:05 PM.
ClockText Clock(const QString& text) {
    const int hour = text.left(2).toInt();
    return {hour % 12 == 0 ? 12 : hour % 12, text.mid(3).toInt(), hour >= 12};
}

QString Start(const CTRecord& record) {
    return TimeTextOfRecord(record, 3);
}
QString End(const CTRecord& record) {
    return TimeTextOfRecord(record, 4);
}

void PutStart(CTRecord& record, const QString& time) {
    const ClockText clock = Clock(time);
    record.SetStart(clock.hour12, clock.minute, clock.isPm);
}

void PutEnd(CTRecord& record, const QString& time) {
    const ClockText clock = Clock(time);
    record.SetEnd(clock.hour12, clock.minute, clock.isPm);
}

/// "9:30" into hours and minutes.
void PutDuration(CTRecord& record, const QString& length) {
    record.SetDurationOnly(length.section(u':', 0, 0).toInt(), length.section(u':', 1).toInt());
}

/// A record with those of the three that aren't empty; the duration is put in without moving a time.
CTRecord Record(const QString& start, const QString& end, const QString& duration) {
    CTRecord record;
    if (!start.isEmpty()) PutStart(record, start);
    if (!end.isEmpty()) PutEnd(record, end);
    if (!duration.isEmpty()) PutDuration(record, duration);
    return record;
}

QString State(const CTRecord& record) {
    return QStringList({Start(record), End(record), record.spans.duration.clockText}).join(u' ');
}

void TimeColumns() {
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("end");
    QTest::addColumn<QString>("duration");
    QTest::addColumn<QString>("entered");
    QTest::addColumn<QString>("state");
}

void TimeRow(const char* name, const char* start, const char* end, const char* duration, const char* entered,
             const char* state) {
    QTest::newRow(name) << QString::fromLatin1(start) << QString::fromLatin1(end)
                        << QString::fromLatin1(duration) << QString::fromLatin1(entered)
                        << QString::fromLatin1(state);
}

}  // namespace

void TestCTRecord::Reset() {
    struct Precise final : CPrecisionSource {
        [[nodiscard]] int DurationPrecision() const override { return 1; }
        [[nodiscard]] int DistancePrecision() const override { return 2; }
        [[nodiscard]] int RatePrecision() const override { return 5; }
        [[nodiscard]] int AmountPrecision() const override { return 6; }
    } precise;
    CTRecord record = Record(QStringLiteral("09:00"), QStringLiteral("17:00"), {});
    QCOMPARE(record.amount.precision, 2);
    QCOMPARE(record.rate.precision, 3);
    QCOMPARE(record.spans.effective.decimal.precision, 4);
    record.GenUnique();
    record.date.Set(1, 2, 2026);
    record.notes = QStringLiteral("x");
    record.SetBillable(true);
    record.isExported = true;
    (void)record.SetRate(5.0F);
    const PrecisionScope scope(precise);
    record.Reset();
    QCOMPARE(State(record), QStringLiteral("--:-- --:-- --:--"));
    QCOMPARE(record.GetId(), QString());
    QVERIFY(!record.date.IsSet() && record.notes.isEmpty() && !record.isBillable && !record.isExported);
    QVERIFY(!record.amountIsDerived && !record.rateIsDerived);
    QCOMPARE(record.amount.value, -1.0F);
    QCOMPARE(record.rate.value, -1.0F);
    QCOMPARE(record.amount.precision, 6);
    QCOMPARE(record.rate.precision, 5);
    QCOMPARE(record.spans.duration.decimal.precision, 1);
}

void TestCTRecord::SetStart_data() {
    TimeColumns();
    TimeRow("a start over a set duration moves the end", "09:00", "17:00", "", "10:00", "10:00 18:00 8:00");
    TimeRow("a duration past midnight wraps", "09:00", "", "8:00", "20:00", "20:00 04:00 8:00");
    TimeRow("a start before an end gives the duration", "", "17:00", "", "09:15", "09:15 17:00 7:45");
    TimeRow("a start alone", "", "", "", "09:00", "09:00 --:-- --:--");
    TimeRow("a start with a duration gives the end", "", "", "1:30", "23:00", "23:00 00:30 1:30");
    TimeRow("a start equal to the end is no span", "", "09:00", "", "09:00", "09:00 09:00 --:--");
    TimeRow("a start after a morning's end is no span", "", "08:00", "", "09:00", "09:00 08:00 --:--");
    TimeRow("an afternoon's start reaches over midnight", "", "08:00", "", "20:00", "20:00 08:00 12:00");
    TimeRow("a duration of nothing gives an end at the start", "", "", "0:00", "12:00", "12:00 12:00 0:00");
    TimeRow("from noon", "", "", "0:59", "11:30", "11:30 12:29 0:59");
    TimeRow("a duration that leads to no time gives way to the times", "", "17:00", "100:00", "09:00",
            "09:00 17:00 8:00");
    TimeRow("a duration that leads to no time is unset without an end", "", "", "100:00", "09:00",
            "09:00 --:-- --:--");
}

void TestCTRecord::SetStart() {
    QFETCH(QString, start);
    QFETCH(QString, end);
    QFETCH(QString, duration);
    QFETCH(QString, entered);
    CTRecord record = Record(start, end, duration);
    PutStart(record, entered);
    QTEST(State(record), "state");
}

void TestCTRecord::SetEnd_data() {
    TimeColumns();
    TimeRow("an end over a set duration moves the start", "09:00", "17:00", "", "18:00", "10:00 18:00 8:00");
    TimeRow("a duration past midnight wraps back", "", "", "8:00", "04:00", "20:00 04:00 8:00");
    TimeRow("an end after a start gives the duration", "09:15", "", "", "17:00", "09:15 17:00 7:45");
    TimeRow("equal times with no duration are no span", "09:00", "", "", "09:00", "09:00 09:00 --:--");
    TimeRow("an end alone", "", "", "", "17:00", "--:-- 17:00 --:--");
    TimeRow("over midnight", "23:00", "", "", "00:00", "23:00 00:00 1:00");
    TimeRow("minutes borrow an hour", "", "", "0:45", "13:30", "12:45 13:30 0:45");
    TimeRow("a duration that leads to no time gives way to the times", "09:00", "", "100:00", "17:00",
            "09:00 17:00 8:00");
}

void TestCTRecord::SetEnd() {
    QFETCH(QString, start);
    QFETCH(QString, end);
    QFETCH(QString, duration);
    QFETCH(QString, entered);
    CTRecord record = Record(start, {}, duration);
    if (!end.isEmpty()) PutEnd(record, end);
    PutEnd(record, entered);
    QTEST(State(record), "state");
}

void TestCTRecord::TimesAreRepaired() {
    CTRecord record;
    record.SetStart(NoTimeHour, 70, false);
    QCOMPARE(Start(record), QStringLiteral("00:59"));
    record.SetEnd(0, -3, true);
    QCOMPARE(End(record), QStringLiteral("12:00"));
    DateTimeVal time;
    QVERIFY(time.SetTime24(14, 5));
    record.Reset();
    record.SetStart(time);
    QCOMPARE(Start(record), QStringLiteral("14:05"));
}

void TestCTRecord::SetDuration_data() {
    TimeColumns();
    QTest::addColumn<bool>("moveStart");
    const auto row = [](const char* name, const char* start, const char* end, const char* entered,
                        bool moveStart, const char* state) {
        QTest::newRow(name) << QString::fromLatin1(start) << QString::fromLatin1(end) << QString()
                            << QString::fromLatin1(entered) << QString::fromLatin1(state) << moveStart;
    };
    row("both known: the end moves", "09:00", "17:00", "4:00", false, "09:00 13:00 4:00");
    row("both known: the start moves where that is wanted", "09:00", "17:00", "4:00", true,
        "13:00 17:00 4:00");
    row("a start alone gets its end", "09:00", "", "1:30", false, "09:00 10:30 1:30");
    row("a start alone gets its end whatever should move", "09:00", "", "1:30", true, "09:00 10:30 1:30");
    row("an end alone gets its start", "", "17:00", "1:30", true, "15:30 17:00 1:30");
    row("an end alone gets its start whatever should move", "", "17:00", "1:30", false, "15:30 17:00 1:30");
    row("no times: nothing but the duration", "", "", "1:30", true, "--:-- --:-- 1:30");
    row("over midnight", "22:00", "", "3:00", false, "22:00 01:00 3:00");
    row("back over midnight", "", "01:00", "3:00", false, "22:00 01:00 3:00");
    row("a whole day comes back to the start", "09:00", "", "24:00", false, "09:00 09:00 24:00");
    row("minutes carry", "09:00", "", "1:75", false, "09:00 11:15 2:15");
    row("a length without a time of day clears both times", "09:00", "17:00", "100:00", false,
        "--:-- --:-- 100:00");
    row("and does so backward", "09:00", "17:00", "100:00", true, "--:-- --:-- 100:00");
}

void TestCTRecord::SetDuration() {
    QFETCH(QString, start);
    QFETCH(QString, end);
    QFETCH(QString, entered);
    QFETCH(bool, moveStart);
    CTRecord record = Record(start, end, {});
    record.SetDuration(entered.section(u':', 0, 0).toInt(), entered.section(u':', 1).toInt(), moveStart);
    QTEST(State(record), "state");
    QCOMPARE(record.spans.effective.clockText, record.spans.duration.clockText);
}

void TestCTRecord::SetDurationOnly() {
    CTRecord record = Record(QStringLiteral("09:00"), QStringLiteral("17:00"), {});
    record.SetBreak(0, 30);
    record.SetDurationOnly(3, 0);
    QCOMPARE(State(record), QStringLiteral("09:00 17:00 3:00"));
    QCOMPARE(record.spans.effective.clockText, QStringLiteral("2:30"));
    record.SetDurationOnly(-1, -1);
    QVERIFY(!record.spans.duration.IsSet() && !record.spans.effective.IsSet());
}

void TestCTRecord::SetBreak_data() {
    QTest::addColumn<int>("hours");
    QTest::addColumn<int>("minutes");
    QTest::addColumn<QString>("effective");
    QTest::addColumn<QString>("amount");
    QTest::newRow("half an hour") << 0 << 30 << QStringLiteral("1:00") << QStringLiteral("10.00");
    QTest::newRow("nothing") << 0 << 0 << QStringLiteral("1:30") << QStringLiteral("15.00");
    QTest::newRow("unset leaves the money as it is")
        << -1 << -1 << QStringLiteral("1:30") << QStringLiteral("15.00");
    QTest::newRow("a negative half unsets it too")
        << 0 << -1 << QStringLiteral("1:30") << QStringLiteral("15.00");
    QTest::newRow("longer than the duration") << 2 << 0 << QStringLiteral("--:--") << QString();
}

void TestCTRecord::SetBreak() {
    QFETCH(int, hours);
    QFETCH(int, minutes);
    CTRecord record = Record({}, {}, QStringLiteral("1:30"));
    record.SetBillable(true);
    QVERIFY(record.SetRate(10.0F));
    QCOMPARE(record.GetAmountText(), QStringLiteral("15.00"));
    record.SetBreak(hours, minutes);
    QTEST(record.spans.effective.clockText, "effective");
    QTEST(record.GetAmountText(), "amount");
    QCOMPARE(record.spans.breakTime.IsSet(), hours >= 0 && minutes >= 0);
}

void TestCTRecord::ClearTimes() {
    CTRecord record = Record(QStringLiteral("09:00"), QStringLiteral("17:05"), {});
    record.ClearStart();
    QCOMPARE(State(record), QStringLiteral("--:-- 17:05 8:05"));
    int hour = 0;
    int minute = -1;
    bool isPm = true;
    QVERIFY(!record.GetStart(hour, minute, isPm));
    QCOMPARE(hour, 50);
    QCOMPARE(minute, 0);
    QVERIFY(!isPm);
    QVERIFY(record.GetEnd(hour, minute, isPm));
    QCOMPARE(hour, 5);
    QCOMPARE(minute, 5);
    QVERIFY(isPm);
    record.ClearEnd();
    QVERIFY(!record.HasStart() && !record.HasEnd());
    QCOMPARE(State(record), QStringLiteral("--:-- --:-- 8:05"));
}

void TestCTRecord::SetAmountAndRate_data() {
    QTest::addColumn<QString>("duration");
    QTest::addColumn<bool>("isRate");
    QTest::addColumn<float>("value");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QString>("rate");
    QTest::addColumn<QString>("amount");
    const auto row = [](const char* name, const char* duration, bool isRate, float value, bool result,
                        const char* rate, const char* amount) {
        QTest::newRow(name) << QString::fromLatin1(duration) << isRate << value << result
                            << QString::fromLatin1(rate) << QString::fromLatin1(amount);
    };
    row("a rate gives the amount", "1:30", true, 10.0F, true, "10.000", "15.00");
    row("an amount gives the rate", "2:00", false, 30.0F, true, "15.000", "30.00");
    row("a rate without time stands alone", "", true, 10.0F, false, "10.000", "");
    row("an amount without time stands alone", "", false, 30.0F, false, "", "30.00");
    row("an amount for no time at all: the rate is 0", "0:00", false, 30.0F, true, "0.000", "30.00");
    row("a rate for no time at all", "0:00", true, 10.0F, true, "10.000", "0.00");
    row("a rate of 0 is a rate", "1:00", true, 0.0F, true, "0.000", "0.00");
    row("a negative rate takes it away", "1:00", true, -3.0F, false, "", "");
    row("a negative amount takes it away", "1:00", false, -0.5F, false, "", "");
    row("what is no number takes it away", "1:00", false, std::numeric_limits<float>::quiet_NaN(), false, "",
        "");
}

void TestCTRecord::SetAmountAndRate() {
    QFETCH(QString, duration);
    QFETCH(bool, isRate);
    QFETCH(float, value);
    CTRecord record = Record({}, {}, duration);
    record.SetBillable(true);
    QTEST(isRate ? record.SetRate(value) : record.SetAmount(value), "result");
    QTEST(record.GetRateText(), "rate");
    QTEST(record.GetAmountText(), "amount");
    float out = -7.0F;
    QCOMPARE(record.GetRate(out), !record.GetRateText().isEmpty());
    if (record.GetRateText().isEmpty()) QCOMPARE(out, 0.0F);
    QCOMPARE(record.GetAmount(out), !record.GetAmountText().isEmpty());
}

void TestCTRecord::MoneyFollowsTime_data() {
    QTest::addColumn<QString>("before");
    QTest::addColumn<float>("rate");
    QTest::addColumn<float>("amount");
    QTest::addColumn<bool>("isLoaded");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("money");
    const auto row = [](const char* name, const char* before, float rate, float amount, bool isLoaded,
                        const char* after, const char* money) {
        QTest::newRow(name) << QString::fromLatin1(before) << rate << amount << isLoaded
                            << QString::fromLatin1(after) << QString::fromLatin1(money);
    };
    row("an entered rate stays, the amount follows", "1:30", 10.0F, -1.0F, false, "1:00", "10.000 10.00");
    row("an entered amount stays, the rate follows", "2:00", -1.0F, 30.0F, false, "3:00", "10.000 30.00");
    row("a rate entered before the time gives the amount", "", 10.0F, -1.0F, false, "1:30", "10.000 15.00");
    row("an amount entered before the time gives the rate", "", -1.0F, 30.0F, false, "2:00", "15.000 30.00");
    row("a loaded rate wins over a loaded amount", "2:00", 10.0F, 99.0F, true, "3:00", "10.000 30.00");
    row("neither gives nothing", "2:00", -1.0F, -1.0F, true, "3:00", " ");
    row("no time any more: the derived amount goes", "1:30", 10.0F, -1.0F, false, "-1:-1", "10.000 ");
    row("no time any more: the derived rate goes", "2:00", -1.0F, 30.0F, false, "-1:-1", " 30.00");
    row("a time of nothing: the rate is 0, no division", "2:00", -1.0F, 30.0F, false, "0:00", "0.000 30.00");
}

void TestCTRecord::MoneyFollowsTime() {
    QFETCH(QString, before);
    QFETCH(float, rate);
    QFETCH(float, amount);
    QFETCH(bool, isLoaded);
    QFETCH(QString, after);
    CTRecord record = Record({}, {}, before);
    record.SetBillable(true);
    if (isLoaded) {
        record.rate.Set(rate);
        record.amount.Set(amount);
    } else if (rate >= 0.0F) {
        (void)record.SetRate(rate);
    } else {
        (void)record.SetAmount(amount);
    }
    PutDuration(record, after);
    QTEST(record.GetRateText() + u' ' + record.GetAmountText(), "money");
    // What was entered leads again as soon as there is a time.
    PutDuration(record, QStringLiteral("4:00"));
    if (rate >= 0.0F)
        QCOMPARE(record.GetAmountText(), QStringLiteral("40.00"));
    else if (amount >= 0.0F)
        QCOMPARE(record.GetRateText(), QStringLiteral("7.500"));
}

void TestCTRecord::SetBillable() {
    CTRecord record = Record({}, {}, QStringLiteral("2:00"));
    record.SetBillable(true);
    record.isBilled = true;
    QVERIFY(record.SetRate(10.0F));
    record.SetBillable(false);
    QVERIFY(!record.isBilled && !record.amountIsDerived && !record.rateIsDerived);
    QCOMPARE(record.GetRateText() + record.GetAmountText(), QString());
    QCOMPARE(record.rate.value, -1.0F);
    QCOMPARE(record.amount.value, -1.0F);
    PutDuration(record, QStringLiteral("3:00"));
    QCOMPARE(record.amount.value, -1.0F);
}

void TestCTRecord::BreakBeyondTheDuration() {
    CTRecord record = Record({}, {}, QStringLiteral("1:00"));
    record.SetBillable(true);
    QVERIFY(record.SetRate(10.0F));
    record.SetBreak(1, 30);
    QVERIFY(!record.spans.effective.IsSet());
    QCOMPARE(record.amount.value, -1.0F);
    QVERIFY(record.amountIsDerived);
    record.SetBreak(0, 30);
    QCOMPARE(record.GetAmountText(), QStringLiteral("5.00"));
}

void TestCTRecord::Copy() {
    CTRecord source = Record(QStringLiteral("09:00"), QStringLiteral("10:20"), {});
    source.GenUnique();
    source.date.Set(2, 29, 2028);
    source.item1 = QStringLiteral("1");
    source.item2 = QStringLiteral("2");
    source.item3 = QStringLiteral("3");
    source.item4 = QStringLiteral("4");
    source.item5 = QStringLiteral("5");
    source.notes = QStringLiteral("n");
    source.SetBreak(0, 20);
    source.SetBillable(true);
    source.isBilled = source.isExported = true;
    QVERIFY(source.SetRate(7.125F));
    CTRecord target;
    target.rate.precision = 1;
    target.Copy(source);
    QCOMPARE(State(target), QStringLiteral("09:00 10:20 1:20"));
    QCOMPARE(target.GetId(), source.GetId());
    QCOMPARE(target.date.longText, QStringLiteral("02/29/2028"));
    QCOMPARE(target.item1 + target.item2 + target.item3 + target.item4 + target.item5 + target.notes,
             QStringLiteral("12345n"));
    QCOMPARE(target.spans.effective.clockText, QStringLiteral("1:00"));
    QVERIFY(target.isBillable && target.isBilled && target.isExported && target.amountIsDerived);
    QCOMPARE(target.GetRateText(), QStringLiteral("7.1"));
    QCOMPARE(target.GetAmountText(), source.GetAmountText());
}

void TestCTRecord::Clone() {
    CTRecord source = Record(QStringLiteral("09:00"), QStringLiteral("10:20"), {});
    source.GenUnique();
    const std::unique_ptr<CVORec> clone = source.Clone();
    QCOMPARE(clone->Kind(), RecordKind::Time);
    QCOMPARE(clone->GetId(), source.GetId());
    QCOMPARE(State(dynamic_cast<const CTRecord&>(*clone)), QStringLiteral("09:00 10:20 1:20"));
}

void TestCTRecord::TimeText_data() {
    QTest::addColumn<bool>("is24Hour");
    QTest::addColumn<QString>("time");
    QTest::addColumn<QString>("text");
    QTest::newRow("24 hours") << true << QStringLiteral("17:05") << QStringLiteral("17:05");
    QTest::newRow("12 hours keep the leading zero")
        << false << QStringLiteral("09:05") << QStringLiteral("09:05 AM");
    QTest::newRow("midnight") << false << QStringLiteral("00:00") << QStringLiteral("12:00 AM");
    QTest::newRow("noon") << false << QStringLiteral("12:00") << QStringLiteral("12:00 PM");
    QTest::newRow("no time") << false << QString() << QStringLiteral("--:--");
}

void TestCTRecord::TimeText() {
    QFETCH(bool, is24Hour);
    QFETCH(QString, time);
    CRegionalInfo region = Region24();
    region.is24Hour = is24Hour;
    const RegionScope scope(region);
    const CTRecord starting = Record(time, {}, {});
    QTEST(TimeTextOfRecord(starting, 3), "text");
    QCOMPARE(TimeTextOfRecord(starting, 4), QStringLiteral("--:--"));
    const CTRecord ending = Record({}, time, {});
    QTEST(TimeTextOfRecord(ending, 4), "text");
    QCOMPARE(TimeTextOfRecord(ending, 5), QStringLiteral("--:--"));
}

void TestCTRecord::AbsurdNumbers() {
    constexpr int kNumbers[] = {std::numeric_limits<int>::min(), -1, 0, 99999,
                                std::numeric_limits<int>::max()};
    for (const int hours : kNumbers) {
        for (const int minutes : kNumbers) {
            CTRecord record;
            record.startHour = hours;
            record.startMinute = minutes;
            record.endHour = minutes;
            record.endMinute = hours;
            record.RecalcDuration();
            QVERIFY(!record.spans.duration.IsSet());
            record.SetDuration(hours, minutes, false);
            record.SetDuration(hours, minutes, true);
            record.SetBreak(minutes, hours);
            QCOMPARE(record.spans.duration.IsSet(), hours >= 0 && minutes >= 0);
            record.Reset();
            record.SetStart(hours, minutes, true);
            record.SetDuration(hours, minutes, false);
            QVERIFY(!record.HasEnd() || (record.endHour >= 1 && record.endHour <= 12));
        }
    }
}

TEST_CLASS(TestCTRecord);
#include "TestCTRecord.moc"
