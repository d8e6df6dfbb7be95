#include "calendar/NumberText.h"

#include "support/TestProgram.h"

#include <QTest>
#include <cmath>
#include <limits>

namespace {

constexpr int kNone = 0;
constexpr int kExpansion = 16;
constexpr int kNearest = 32;
constexpr int kMost = std::numeric_limits<int>::max();
constexpr int kLeast = std::numeric_limits<int>::min();

/// The rounding of earlier versions, word for word: stored amounts came about by it.
float FormerRounding(float value, int precision) {
    const double power = std::pow(10.0, precision);
    const auto shift = static_cast<float>(std::pow(10.0, precision + 1.0));
    const float shifted = value * shift;
    const float tenths = value < 0 ? shifted - 5 : shifted + 5;
    const auto rounded = static_cast<float>(std::trunc(tenths * 0.1F) / power);
    return std::isfinite(rounded) ? rounded + 0.0F : value;
}

}  // namespace

class TestRounding final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void Decimal_data();
    void Decimal();
    void DecimalStays_data();
    void DecimalStays();
    void DecimalAsBeforeBelow_data();
    void DecimalAsBeforeBelow();
    void DecimalWide_data();
    void DecimalWide();
    void NoNumbers();
    void ZeroHasNoSign();
    void DurationMinutes_data();
    void DurationMinutes();
    void TimeOfDayMinutes_data();
    void TimeOfDayMinutes();
    void AbsurdMinutes();
};

void TestRounding::Decimal_data() {
    QTest::addColumn<float>("value");
    QTest::addColumn<int>("precision");
    QTest::addColumn<float>("rounded");
    QTest::newRow("half goes up") << 2.5F << 0 << 3.0F;
    QTest::newRow("half goes away from zero") << -1.5F << 0 << -2.0F;
    QTest::newRow("below half goes down") << 2.4F << 0 << 2.0F;
    QTest::newRow("below half of a negative value") << -2.4F << 0 << -2.0F;
    QTest::newRow("1.005 becomes 1.01") << 1.005F << 2 << 1.01F;
    QTest::newRow("-1.005 becomes -1.01") << -1.005F << 2 << -1.01F;
    QTest::newRow("0.004 falls away") << 0.004F << 2 << 0.0F;
    QTest::newRow("0.005 becomes 0.01") << 0.005F << 2 << 0.01F;
    QTest::newRow("what fits stays") << 12.25F << 2 << 12.25F;
    QTest::newRow("three places") << 0.3335F << 3 << 0.334F;
    QTest::newRow("six places") << 1.2345678F << 6 << 1.234568F;
    QTest::newRow("zero") << 0.0F << 2 << 0.0F;
    QTest::newRow("the mark of no value stays") << -1.0F << 4 << -1.0F;
    QTest::newRow("tens") << 125.0F << -1 << 130.0F;
}

void TestRounding::Decimal() {
    QFETCH(float, value);
    QFETCH(int, precision);
    QFETCH(float, rounded);
    QVERIFY2(RoundDecimal(value, precision) == rounded,
             qPrintable(QString::number(static_cast<double>(RoundDecimal(value, precision)), 'g', 9)));
}

void TestRounding::DecimalStays_data() {
    QTest::addColumn<int>("precision");
    for (int precision = 0; precision <= 6; ++precision) QTest::addRow("%d places", precision) << precision;
}

/// Money that is loaded, copied and edited is rounded each time; from 1 to 10,000,000 nothing may drift.
void TestRounding::DecimalStays() {
    QFETCH(int, precision);
    const auto check = [precision](double typed) {
        const auto stored = static_cast<float>(typed);
        if (RoundDecimal(stored, precision) == stored && RoundDecimal(-stored, precision) == -stored)
            return true;
        qWarning("%.9g", typed);
        return false;
    };
    const double unit = std::pow(10.0, -precision);
    for (int whole = 1; whole <= 10'000'000; whole += 397) {
        QVERIFY(check(whole));
        QVERIFY(check(std::round((whole + 0.777777) / unit) * unit));
    }
    for (const double typed : {9.0, 65536.02, 100000.0, 131072.01, 1234567.89, 9999999.0, 10000000.0})
        QVERIFY(check(std::round(typed / unit) * unit));
}

void TestRounding::DecimalAsBeforeBelow_data() {
    QTest::addColumn<int>("precision");
    QTest::addColumn<float>("first");  // the first that was led away from itself
    QTest::newRow("no places") << 0 << 6710887.0F;
    QTest::newRow("1 place") << 1 << 524288.6F;
    QTest::newRow("2 places") << 2 << 65536.02F;
    QTest::newRow("3 places") << 3 << 4194.324F;
    QTest::newRow("4 places") << 4 << 512.0004F;
    QTest::newRow("5 places") << 5 << 64.00002F;
    QTest::newRow("6 places") << 6 << 4.19432F;
}

/// Up to where single precision fails, all results are those of earlier versions: decimals of these places,
/// those of more, and the binary neighbours of both.
void TestRounding::DecimalAsBeforeBelow() {
    QFETCH(int, precision);
    QFETCH(float, first);
    QVERIFY(FormerRounding(first, precision) != first);
    QVERIFY(RoundDecimal(first, precision) == first);
    const double fine = std::pow(10.0, -precision) / 8;
    const auto steps = static_cast<int>(static_cast<double>(first) / fine) - 8;
    for (int step = 0; step < steps; step += 41) {
        const auto value = static_cast<float>(step * fine);
        for (const float near : {value, std::nextafterf(value, 0.0F), -value}) {
            if (RoundDecimal(near, precision) == FormerRounding(near, precision)) continue;
            QFAIL(qPrintable(QString::number(static_cast<double>(near), 'g', 9)));
        }
    }
}

void TestRounding::DecimalWide_data() {
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("precision");
    QTest::addColumn<double>("rounded");
    QTest::newRow("half goes up") << 2.5 << 0 << 3.0;
    QTest::newRow("half goes away from zero") << -1.5 << 0 << -2.0;
    QTest::newRow("a sum of a long list") << 123456789.125 << 2 << 123456789.13;
    QTest::newRow("1.125 becomes 1.13") << 1.125 << 2 << 1.13;
    QTest::newRow("1.005 is a little less in 64 bits, and 1000 times that shows it") << 1.005 << 2 << 1.0;
    QTest::newRow("0.004 falls away") << 0.004 << 2 << 0.0;
}

void TestRounding::DecimalWide() {
    QFETCH(double, value);
    QFETCH(int, precision);
    QFETCH(double, rounded);
    QVERIFY2(RoundDecimalWide(value, precision) == rounded,
             qPrintable(QString::number(RoundDecimalWide(value, precision), 'g', 17)));
}

/// It would be shown as "-0.00".
void TestRounding::ZeroHasNoSign() {
    QVERIFY(!std::signbit(RoundDecimal(-0.004F, 2)));
    QVERIFY(!std::signbit(RoundDecimal(-0.0F, 2)));
    QVERIFY(!std::signbit(RoundDecimalWide(-0.004, 2)));
    QVERIFY(std::signbit(RoundDecimal(-0.005F, 2)));
}

void TestRounding::NoNumbers() {
    const float infinite = std::numeric_limits<float>::infinity();
    QVERIFY(RoundDecimal(infinite, 2) == infinite);
    QVERIFY(RoundDecimal(-infinite, 2) == -infinite);
    QVERIFY(std::isnan(RoundDecimal(std::numeric_limits<float>::quiet_NaN(), 2)));
    QVERIFY2(RoundDecimal(1e38F, 2) == 1e38F, "too large to be shifted, nothing to round");
    QVERIFY(RoundDecimal(1.5F, kMost) == 1.5F);
    QVERIFY(RoundDecimal(1.5F, kLeast) == 1.5F);
    QVERIFY(RoundDecimalWide(1e308, 6) == 1e308);
    QVERIFY(std::isnan(RoundDecimalWide(std::numeric_limits<double>::quiet_NaN(), 2)));
    QVERIFY(RoundDecimalWide(1.5, kMost) == 1.5);
    QVERIFY(RoundDecimalWide(1.5, kLeast) == 1.5);
}

void TestRounding::DurationMinutes_data() {
    QTest::addColumn<int>("hours");
    QTest::addColumn<int>("minutes");
    QTest::addColumn<int>("divisor");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("newHours");
    QTest::addColumn<int>("newMinutes");
    QTest::newRow("upward with a carry") << 1 << 58 << 5 << kExpansion << 2 << 0;
    QTest::newRow("a duration goes past 24 hours") << 23 << 58 << 5 << kExpansion << 24 << 0;
    QTest::newRow("a duration goes past 12 hours") << 12 << 58 << 5 << kExpansion << 13 << 0;
    QTest::newRow("upward by a minute") << 0 << 4 << 5 << kExpansion << 0 << 5;
    QTest::newRow("upward from the least rest") << 0 << 1 << 15 << kExpansion << 0 << 15;
    QTest::newRow("a multiple stays") << 0 << 15 << 15 << kExpansion << 0 << 15;
    QTest::newRow("zero stays") << 0 << 0 << 15 << kExpansion << 0 << 0;
    QTest::newRow("nearest, down") << 1 << 7 << 15 << kNearest << 1 << 0;
    QTest::newRow("nearest, up") << 1 << 8 << 15 << kNearest << 1 << 15;
    QTest::newRow("nearest, a tie goes down") << 0 << 5 << 10 << kNearest << 0 << 0;
    QTest::newRow("nearest, above the tie") << 0 << 6 << 10 << kNearest << 0 << 10;
    QTest::newRow("nearest with a carry") << 0 << 53 << 15 << kNearest << 1 << 0;
    QTest::newRow("both bits: upward wins") << 0 << 1 << 15 << (kExpansion | kNearest) << 0 << 15;
    QTest::newRow("no type: nothing") << 1 << 58 << 5 << kNone << 1 << 58;
    QTest::newRow("an unknown type: nothing") << 1 << 58 << 5 << 64 << 1 << 58;
    QTest::newRow("no type, but the carry runs") << 1 << 61 << 5 << kNone << 2 << 1;
    QTest::newRow("60 minutes at 5 stay 60") << 1 << 60 << 5 << kExpansion << 1 << 60;
    QTest::newRow("120 minutes at 15 stay 120") << 0 << 120 << 15 << kNearest << 0 << 120;
    QTest::newRow("divisor 60 changes nothing") << 1 << 58 << 60 << kExpansion << 1 << 58;
    QTest::newRow("divisor 60 changes nothing, nearest") << 1 << 58 << 60 << kNearest << 1 << 58;
    QTest::newRow("divisor 0 changes nothing") << 1 << 58 << 0 << kExpansion << 1 << 58;
    QTest::newRow("divisor 0 changes nothing, no type") << 1 << 61 << 0 << kNone << 1 << 61;
    QTest::newRow("a negative divisor changes nothing") << 1 << 58 << -5 << kExpansion << 1 << 58;
    QTest::newRow("divisor 1 has no rest") << 1 << 58 << 1 << kExpansion << 1 << 58;
    QTest::newRow("divisor 59") << 0 << 58 << 59 << kExpansion << 0 << 59;
    QTest::newRow("divisor 7 passes the hour") << 0 << 57 << 7 << kExpansion << 1 << 3;
}

void TestRounding::DurationMinutes() {
    QFETCH(int, hours);
    QFETCH(int, minutes);
    QFETCH(int, divisor);
    QFETCH(int, type);
    RoundMinutes(hours, minutes, divisor, type, nullptr);
    QTEST(hours, "newHours");
    QTEST(minutes, "newMinutes");
}

void TestRounding::TimeOfDayMinutes_data() {
    QTest::addColumn<int>("hours");
    QTest::addColumn<int>("minutes");
    QTest::addColumn<bool>("isPm");
    QTest::addColumn<int>("divisor");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("newHours");
    QTest::addColumn<int>("newMinutes");
    QTest::addColumn<bool>("newIsPm");
    QTest::newRow("11:58 AM becomes noon") << 11 << 58 << false << 5 << kExpansion << 12 << 0 << true;
    QTest::newRow("11:58 PM becomes midnight") << 11 << 58 << true << 5 << kExpansion << 12 << 0 << false;
    QTest::newRow("12:58 PM becomes 1:00 PM") << 12 << 58 << true << 5 << kExpansion << 1 << 0 << true;
    QTest::newRow("12:58 AM becomes 1:00 AM") << 12 << 58 << false << 5 << kExpansion << 1 << 0 << false;
    QTest::newRow("11:53 AM to the nearest quarter")
        << 11 << 53 << false << 15 << kNearest << 12 << 0 << true;
    QTest::newRow("11:52 AM to the nearest quarter")
        << 11 << 52 << false << 15 << kNearest << 11 << 45 << false;
    QTest::newRow("9:58 AM passes no noon") << 9 << 58 << false << 5 << kExpansion << 10 << 0 << false;
    QTest::newRow("9:02 AM within the hour") << 9 << 2 << false << 5 << kExpansion << 9 << 5 << false;
}

void TestRounding::TimeOfDayMinutes() {
    QFETCH(int, hours);
    QFETCH(int, minutes);
    QFETCH(bool, isPm);
    QFETCH(int, divisor);
    QFETCH(int, type);
    RoundMinutes(hours, minutes, divisor, type, &isPm);
    QTEST(hours, "newHours");
    QTEST(minutes, "newMinutes");
    QTEST(isPm, "newIsPm");
}

void TestRounding::AbsurdMinutes() {
    int hours = kMost;
    int minutes = kMost;
    RoundMinutes(hours, minutes, 10, kExpansion, nullptr);
    QCOMPARE(hours, kMost);
    QVERIFY(minutes < 60);
    hours = kLeast;
    minutes = kLeast;
    bool isPm = false;
    RoundMinutes(hours, minutes, 59, kNearest, &isPm);
    QCOMPARE(hours, kLeast);
}

TEST_CLASS(TestRounding);
#include "TestRounding.moc"
