#include "RecordsFixture.h"
#include "records/CTRecord.h"
#include "support/TestProgram.h"

#include <QTest>

namespace {

enum class Change { Start, End, Duration, DurationFromTheEnd, Break };

/// "9:30" into hours and minutes.
std::pair<int, int> Span(const QString& text) {
    return {text.section(u':', 0, 0).toInt(), text.section(u':', 1).toInt()};
}

DateTimeVal Time(const QString& text) {
    const auto [hour, minute] = Span(text);
    DateTimeVal time;
    [&] { QVERIFY(time.SetTime24(hour, minute)); }();
    return time;
}

void Apply(CTRecord& record, Change change, const QString& value) {
    const auto [hours, minutes] = Span(value);
    switch (change) {
        case Change::Start:
            return record.SetStart(Time(value));
        case Change::End:
            return record.SetEnd(Time(value));
        case Change::Duration:
            return record.SetDuration(hours, minutes, false);
        case Change::DurationFromTheEnd:
            return record.SetDuration(hours, minutes, true);
        case Change::Break:
            return record.SetBreak(hours, minutes);
    }
}

/// Rate and amount as they are shown.
QString Money(const CTRecord& record) {
    return record.GetRateText() + u'|' + record.GetAmountText();
}

/// What a stored record knows of its money: both values, and not which of them was computed.
void PutLoadedMoney(CTRecord& record, float rate, float amount) {
    record.SetBillable(true);
    record.rate.Set(rate);
    record.amount.Set(amount);
}

}  // namespace

/// The money of a time record follows each change of its times, and goes on to do so in a copy.
class TestTimesAndMoney final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void EnteredRate_data() {
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("end");
        QTest::addColumn<QString>("duration");
        QTest::addColumn<Change>("change");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("money");
        const auto row = [](const char* name, const char* start, const char* end, const char* duration,
                            Change change, const char* value, const char* money) {
            QTest::newRow(name) << QString::fromLatin1(start) << QString::fromLatin1(end)
                                << QString::fromLatin1(duration) << change << QString::fromLatin1(value)
                                << QString::fromLatin1(money);
        };
        row("a start before an end gives the amount", "", "17:00", "", Change::Start, "15:30",
            "10.000|15.00");
        row("an end behind a start gives the amount", "15:30", "", "", Change::End, "17:00", "10.000|15.00");
        row("a start alone gives no amount", "", "", "", Change::Start, "15:30", "10.000|");
        row("an end alone gives no amount", "", "", "", Change::End, "15:30", "10.000|");
        row("a moved start leaves the duration and the amount", "09:00", "11:00", "", Change::Start, "10:00",
            "10.000|20.00");
        row("a moved end leaves the duration and the amount", "09:00", "11:00", "", Change::End, "12:00",
            "10.000|20.00");
        row("a start that unsets the duration takes the amount away", "", "", "100:00", Change::Start,
            "09:00", "10.000|");
        row("an end that unsets the duration takes the amount away", "", "", "100:00", Change::End, "09:00",
            "10.000|");
        row("a start that unsets the duration finds another one", "", "17:00", "100:00", Change::Start,
            "09:00", "10.000|80.00");
        row("an end that unsets the duration finds another one", "09:00", "", "100:00", Change::End, "17:00",
            "10.000|80.00");
        row("a new duration", "09:00", "11:00", "", Change::Duration, "3:00", "10.000|30.00");
        row("a new duration that moves the start", "09:00", "11:00", "", Change::DurationFromTheEnd, "1:00",
            "10.000|10.00");
        row("a break", "09:00", "11:00", "", Change::Break, "0:30", "10.000|15.00");
    }
    void EnteredRate() {
        QFETCH(QString, start);
        QFETCH(QString, end);
        QFETCH(QString, duration);
        QFETCH(Change, change);
        QFETCH(QString, value);
        CTRecord record;
        record.SetBillable(true);
        static_cast<void>(record.SetRate(10.0F));
        if (!start.isEmpty()) record.SetStart(Time(start));
        if (!end.isEmpty()) record.SetEnd(Time(end));
        if (!duration.isEmpty()) record.SetDurationOnly(Span(duration).first, Span(duration).second);
        Apply(record, change, value);
        QTEST(Money(record), "money");
    }

    /// Nothing says which of the two was entered: the rate wins at the first change, also at one that leaves
    /// the duration as it is.
    void LoadedMoney_data() {
        QTest::addColumn<Change>("change");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("money");
        QTest::newRow("a moved start") << Change::Start << "10:00"
                                       << "10.000|20.00";
        QTest::newRow("a moved end") << Change::End << "12:00"
                                     << "10.000|20.00";
        QTest::newRow("a new duration") << Change::Duration << "3:00"
                                        << "10.000|30.00";
        QTest::newRow("a break") << Change::Break << "0:30"
                                 << "10.000|15.00";
    }
    void LoadedMoney() {
        QFETCH(Change, change);
        QFETCH(QString, value);
        CTRecord record;
        record.SetStart(Time(QStringLiteral("09:00")));
        record.SetEnd(Time(QStringLiteral("11:00")));
        PutLoadedMoney(record, 10.0F, 99.0F);
        Apply(record, change, value);
        QTEST(Money(record), "money");
    }

    void NothingIsComputedWhenNotBillable_data() {
        QTest::addColumn<Change>("change");
        QTest::addColumn<QString>("value");
        QTest::newRow("a start") << Change::Start << "10:00";
        QTest::newRow("an end") << Change::End << "12:00";
        QTest::newRow("a duration") << Change::Duration << "3:00";
        QTest::newRow("a break") << Change::Break << "0:30";
    }
    void NothingIsComputedWhenNotBillable() {
        QFETCH(Change, change);
        QFETCH(QString, value);
        CTRecord record;
        record.SetStart(Time(QStringLiteral("09:00")));
        record.SetEnd(Time(QStringLiteral("11:00")));
        PutLoadedMoney(record, 10.0F, 99.0F);
        record.isBillable = false;
        Apply(record, change, value);
        QCOMPARE(Money(record), QStringLiteral("10.000|99.00"));
    }

    /// A copy knows which of rate and amount was computed, whatever its target knew before: with 4:00 instead
    /// of 2:00 the one that was entered stays.
    void CopyOfWhatIsDerived_data() {
        QTest::addColumn<bool>("isRateEntered");
        QTest::addColumn<bool>("isAmountEntered");
        QTest::addColumn<bool>("hadRateEntered");
        QTest::addColumn<QString>("money");
        QTest::newRow("the amount was computed") << true << false << false << "10.000|40.00";
        QTest::newRow("the rate was computed") << false << true << true << "5.000|20.00";
        QTest::newRow("neither, over a computed amount") << false << false << true << "10.000|40.00";
        QTest::newRow("neither, over a computed rate") << false << false << false << "10.000|40.00";
    }
    void CopyOfWhatIsDerived() {
        QFETCH(bool, isRateEntered);
        QFETCH(bool, isAmountEntered);
        QFETCH(bool, hadRateEntered);
        CTRecord source;
        source.SetDurationOnly(2, 0);
        PutLoadedMoney(source, 10.0F, 20.0F);
        if (isRateEntered) QVERIFY(source.SetRate(10.0F));
        if (isAmountEntered) QVERIFY(source.SetAmount(20.0F));
        CTRecord target;
        target.SetBillable(true);
        target.SetDurationOnly(1, 0);
        QVERIFY(hadRateEntered ? target.SetRate(1.0F) : target.SetAmount(1.0F));
        target.Copy(source);
        QCOMPARE(Money(target), QStringLiteral("10.000|20.00"));
        QCOMPARE(target.amountIsDerived, isRateEntered);
        QCOMPARE(target.rateIsDerived, isAmountEntered);
        target.SetDurationOnly(4, 0);
        QTEST(Money(target), "money");
    }

    /// Each part of both times, one by one, so that none stands in for another.
    void CopyOfTheTimes() {
        CTRecord source;
        source.SetStart(8, 5, false);
        source.SetEnd(3, 40, true);
        CTRecord target;
        target.SetStart(11, 59, true);
        target.SetEnd(1, 1, false);
        target.Copy(source);
        int hour = 0, minute = 0;
        bool isPm = false;
        QVERIFY(target.GetStart(hour, minute, isPm));
        QCOMPARE(std::tuple(hour, minute, isPm), std::tuple(8, 5, false));
        QVERIFY(target.GetEnd(hour, minute, isPm));
        QCOMPARE(std::tuple(hour, minute, isPm), std::tuple(3, 40, true));
        QCOMPARE(target.spans.duration.clockText, QStringLiteral("7:35"));
        target.Copy(CTRecord());
        QVERIFY(!target.HasStart() && !target.HasEnd() && !target.spans.duration.IsSet());
    }
};

TEST_CLASS(TestTimesAndMoney);
#include "TestTimesAndMoney.moc"
