#include "calendar/DateText.h"
#include "calendar/NumberText.h"
#include "lang/LoadText.h"
#include "platform/host/CRegionalInfo.h"
#include "support/TestProgram.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <clocale>
#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The regional values that matter to numbers.
CRegionalInfo WithDecimal(char16_t decimal) {
    CRegionalInfo region;
    region.decimalChar = decimal;
    region.usesDotDecimal = decimal == u'.';
    return region;
}

CRegionalInfo WithDates(int order, char16_t separator) {
    CRegionalInfo region;
    region.dateOrder = order;
    region.dateSeparator = separator;
    return region;
}

}  // namespace

class TestNumberText final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void ParseNumber_data();
    void ParseNumber();
    void ReadsWhole_data();
    void ReadsWhole();
    void FailureLeavesTheNumber();
    void FormatNumber_data();
    void FormatNumber();
    void ProcessLocaleDoesNotMatter();
    void FormatTimeOfDay_data();
    void FormatTimeOfDay();
    void FormatDate_data();
    void FormatDate();
    void ParseDate_data();
    void ParseDate();
    void TextsOfADay_data();
    void TextsOfADay();
};

void TestNumberText::ParseNumber_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isComma");
    QTest::addColumn<bool>("read");
    QTest::addColumn<double>("number");
    const auto both = [](const char* name, const QString& text, double number) {
        QTest::addRow("%s, full stop", name) << text << false << true << number;
        QTest::addRow("%s, comma", name) << text << true << true << number;
    };
    const auto neither = [](const char* name, const QString& text) {
        QTest::addRow("%s, full stop", name) << text << false << false << 0.0;
        QTest::addRow("%s, comma", name) << text << true << false << 0.0;
    };
    both("one and a half with a full stop", u"1.5"_s, 1.5);
    QTest::newRow("one and a half with a comma, comma") << u"1,5"_s << true << true << 1.5;
    QTest::newRow("a comma where the full stop counts ends the number") << u"1,5"_s << false << true << 1.0;
    QTest::newRow("both kinds, comma") << u"1.5,2"_s << true << false << 0.0;
    QTest::newRow("both kinds the other way, comma") << u"1,234.5"_s << true << false << 0.0;
    QTest::newRow("two commas") << u"1,5,2"_s << true << false << 0.0;
    neither("two full stops", u"1.5.2"_s);
    both("a whole number", u"42"_s, 42.0);
    both("a sign", u"-0.25"_s, -0.25);
    both("a plus sign", u"+3"_s, 3.0);
    both("no digit in front", u".5"_s, 0.5);
    both("no digit behind", u"5."_s, 5.0);
    both("blanks in front", u" \t7"_s, 7.0);
    both("words behind", u"7 hours"_s, 7.0);
    both("an exponent", u"2.5e2"_s, 250.0);
    both("a unit that looks like an exponent", u"3e"_s, 3.0);
    neither("an empty text", QString());
    neither("blanks alone", u"   "_s);
    neither("a word", u"many"_s);
    neither("a sign alone", u"-"_s);
    neither("two signs", u"+-5"_s);
    neither("a full stop alone", u"."_s);
    neither("infinity", u"inf"_s);
    neither("negative infinity", u"-infinity"_s);
    neither("not a number", u"nan"_s);
    neither("hexadecimal digits", u"0x1F"_s);
    neither("too large to be held", u"1e999"_s);
    neither("ten thousand nines", QString(10000, u'9'));
    both("ten thousand zeros in front", QString(10000, u'0') + u"8"_s, 8.0);
    both("ten thousand places", u"0.5"_s + QString(10000, u'0'), 0.5);
    neither("an emoji", u"\U0001F600"_s);
    neither("a NUL in front", QChar(u'\0') + u"5"_s);
    both("marks that direct the writing", u"\u200F1\u200E5\u061C"_s, 15.0);
    neither("digits of another script", u"\u0663"_s);
}

void TestNumberText::ParseNumber() {
    QFETCH(QString, text);
    QFETCH(bool, isComma);
    QFETCH(bool, read);
    QFETCH(double, number);
    const CRegionalInfo region = WithDecimal(isComma ? u',' : u'.');
    float narrow = 0.0F;
    QCOMPARE(ParseFloat(region, text, narrow), read);
    QCOMPARE(narrow, static_cast<float>(number));
    double wide = 0.0;
    QCOMPARE(ParseDouble(region, text, wide), read);
    QCOMPARE(wide, number);
}

void TestNumberText::ReadsWhole_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("fullStop");
    QTest::addColumn<bool>("comma");
    QTest::newRow("a full stop is read everywhere") << u"12.75"_s << true << true;
    QTest::newRow("a comma where it is the decimal character") << u"12,75"_s << false << true;
    QTest::newRow("blanks around") << u" 7 "_s << true << true;
    QTest::newRow("words behind") << u"7 km"_s << false << false;
    QTest::newRow("both kinds") << u"1.234,5"_s << false << false;
    QTest::newRow("a word") << u"far"_s << false << false;
    QTest::newRow("nothing") << QString() << false << false;
}

void TestNumberText::ReadsWhole() {
    QFETCH(QString, text);
    QTEST(::ReadsWhole(WithDecimal(u'.'), text), "fullStop");
    QTEST(::ReadsWhole(WithDecimal(u','), text), "comma");
}

void TestNumberText::FailureLeavesTheNumber() {
    float narrow = 7.5F;
    QVERIFY(!ParseFloat(CRegionalInfo(), u"x"_s, narrow));
    QCOMPARE(narrow, 7.5F);
    QVERIFY2(!ParseFloat(CRegionalInfo(), u"1e39"_s, narrow), "too large for single precision");
    double wide = 0.0;
    QVERIFY(ParseDouble(CRegionalInfo(), u"1e39"_s, wide));
    QCOMPARE(wide, 1e39);
}

void TestNumberText::FormatNumber_data() {
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("precision");
    QTest::addColumn<QString>("decimal");
    QTest::addColumn<QString>("text");
    QTest::newRow("two places") << 1234.5 << 2 << u"."_s << u"1234.50"_s;
    QTest::newRow("two places with a comma") << 1234.5 << 2 << u","_s << u"1234,50"_s;
    QTest::newRow("no places") << 1234.5 << 0 << u"."_s << u"1234"_s;
    QTest::newRow("six places") << 0.1 << 6 << u"."_s << u"0.100000"_s;
    QTest::newRow("a negative value") << -0.5 << 1 << u","_s << u"-0,5"_s;
    QTest::newRow("free places: no trailing zeros") << 2.5 << -1 << u"."_s << u"2.5"_s;
    QTest::newRow("free places: a whole number") << 12.0 << -1 << u"."_s << u"12"_s;
    QTest::newRow("free places: six significant digits") << 1234.5678 << -1 << u","_s << u"1234,57"_s;
    QTest::newRow("free places: a large number") << 12345678.0 << -1 << u"."_s << u"1.23457e+07"_s;
    QTest::newRow("free places: a small number") << 0.000012345 << -1 << u"."_s << u"1.2345e-05"_s;
    QTest::newRow("the decimal character of Arabic") << 0.5 << 2 << u"\u066B"_s << u"0\u066B50"_s;
    QTest::newRow("zero") << 0.0 << 2 << u"."_s << u"0.00"_s;
    QTest::newRow("the greatest number has 309 digits")
        << std::numeric_limits<double>::max() << 0 << u"."_s
        << QString::asprintf("%.0f", std::numeric_limits<double>::max());
}

void TestNumberText::FormatNumber() {
    QFETCH(double, value);
    QFETCH(int, precision);
    QFETCH(QString, decimal);
    QTEST(::FormatNumber(WithDecimal(decimal[0].unicode()), value, precision), "text");
    const int absurd = std::numeric_limits<int>::max();
    QVERIFY(::FormatNumber(CRegionalInfo(), -std::numeric_limits<double>::max(), absurd).size() < 500);
}

/// The window's toolkit sets the C library's locale; numbers must not notice.
void TestNumberText::ProcessLocaleDoesNotMatter() {
    const QTemporaryDir folder;
    const QString locale = folder.filePath(u"de_DE.UTF-8"_s);
    QProcess::execute(u"localedef"_s, {u"-i"_s, u"de_DE"_s, u"-f"_s, u"UTF-8"_s, locale});
    qputenv("LOCPATH", folder.path().toLocal8Bit());
    if (!std::setlocale(LC_ALL, "de_DE.UTF-8")) QSKIP("a German locale can't be made on this machine");
    QCOMPARE(std::localeconv()->decimal_point, ",");
    float number = 0.0F;
    const bool read = ParseFloat(CRegionalInfo(), u"1.5"_s, number);
    const QString text = ::FormatNumber(CRegionalInfo(), 1.5, 2);
    std::setlocale(LC_ALL, "C.UTF-8");
    QVERIFY(read);
    QCOMPARE(number, 1.5F);
    QCOMPARE(text, u"1.50"_s);
}

void TestNumberText::FormatTimeOfDay_data() {
    QTest::addColumn<int>("hour");
    QTest::addColumn<int>("minute");
    QTest::addColumn<bool>("isPm");
    QTest::addColumn<QString>("text12");
    QTest::addColumn<QString>("text24");
    QTest::newRow("the morning keeps its leading zero") << 9 << 5 << false << u"09:05 AM"_s << u"09:05"_s;
    QTest::newRow("an afternoon") << 5 << 30 << true << u"05:30 PM"_s << u"17:30"_s;
    QTest::newRow("midnight") << 12 << 0 << false << u"12:00 AM"_s << u"00:00"_s;
    QTest::newRow("noon") << 12 << 0 << true << u"12:00 PM"_s << u"12:00"_s;
    QTest::newRow("the last minute") << 11 << 59 << true << u"11:59 PM"_s << u"23:59"_s;
}

void TestNumberText::FormatTimeOfDay() {
    QFETCH(int, hour);
    QFETCH(int, minute);
    QFETCH(bool, isPm);
    CRegionalInfo region;
    QTEST(::FormatTimeOfDay(region, hour, minute, isPm), "text12");
    region.is24Hour = true;
    QTEST(::FormatTimeOfDay(region, hour, minute, isPm), "text24");
}

void TestNumberText::FormatDate_data() {
    QTest::addColumn<int>("order");
    QTest::addColumn<QString>("separator");
    QTest::addColumn<int>("year");
    QTest::addColumn<QString>("text");
    QTest::newRow("month, day, year") << 0 << u"/"_s << 2026 << u"02/03/2026"_s;
    QTest::newRow("day, month, year") << 1 << u"."_s << 2026 << u"03.02.2026"_s;
    QTest::newRow("year, month, day") << 2 << u"-"_s << 2026 << u"2026-02-03"_s;
    QTest::newRow("an unknown order is month, day, year") << 7 << u"/"_s << 2026 << u"02/03/2026"_s;
    QTest::newRow("a short year has two digits") << 0 << u"/"_s << 5 << u"02/03/05"_s;
    QTest::newRow("year 0 falls away") << 0 << u"/"_s << 0 << u"02/03"_s;
    QTest::newRow("a negative year falls away") << 0 << u"/"_s << -1 << u"02/03"_s;
    QTest::newRow("day and month without year") << 1 << u"."_s << -1 << u"03.02"_s;
    QTest::newRow("year first without year") << 2 << u"-"_s << -1 << u"02-03"_s;
    QTest::newRow("an unknown order without year") << -1 << u"/"_s << -1 << u"02/03"_s;
    QTest::newRow("a percent sign for a separator") << 0 << u"%"_s << 2026 << u"02%03%2026"_s;
}

void TestNumberText::FormatDate() {
    QFETCH(int, order);
    QFETCH(QString, separator);
    QFETCH(int, year);
    QTEST(::FormatDate(WithDates(order, separator[0].unicode()), 2, 3, year), "text");
}

void TestNumberText::ParseDate_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("order");
    QTest::addColumn<bool>("read");
    QTest::addColumn<int>("month");
    QTest::addColumn<int>("day");
    QTest::addColumn<int>("year");
    QTest::newRow("month first") << u"2/3/2026"_s << 0 << true << 2 << 3 << 2026;
    QTest::newRow("day first") << u"2/3/2026"_s << 1 << true << 3 << 2 << 2026;
    QTest::newRow("year first") << u"2026/2/3"_s << 2 << true << 2 << 3 << 2026;
    QTest::newRow("an unknown order is month first") << u"2/3/2026"_s << 9 << true << 2 << 3 << 2026;
    QTest::newRow("the year is taken as written") << u"2/3/26"_s << 0 << true << 2 << 3 << 26;
    QTest::newRow("months aren't checked here") << u"77/88/99"_s << 0 << true << 77 << 88 << 99;
    QTest::newRow("a part too large for a clock value") << u"1/1/65536"_s << 0 << false << 0 << 0 << 0;
    QTest::newRow("the largest part") << u"1/1/65535"_s << 0 << true << 1 << 1 << 65535;
    QTest::newRow("two parts") << u"2/3/"_s << 0 << false << 0 << 0 << 0;
    QTest::newRow("marks that direct the writing")
        << u"\u200F2\u200F/3\u200F/2026\u200E"_s << 0 << true << 2 << 3 << 2026;
    QTest::newRow("another separator") << u"2.3.2026"_s << 0 << false << 0 << 0 << 0;
}

void TestNumberText::ParseDate() {
    QFETCH(QString, text);
    QFETCH(int, order);
    QFETCH(bool, read);
    SYSTEMTIME before;
    before.wHour = 17;
    SYSTEMTIME clock = before;
    QCOMPARE(::ParseDate(WithDates(order, u'/'), text, clock), read);
    if (!read) {
        QCOMPARE(clock, before);
        return;
    }
    QTEST(int{clock.wMonth}, "month");
    QTEST(int{clock.wDay}, "day");
    QTEST(int{clock.wYear}, "year");
    QVERIFY2(clock.wHour == 0, "the clock value is cleared first");
}

void TestNumberText::TextsOfADay_data() {
    QTest::addColumn<int>("order");
    QTest::addColumn<int>("year");
    QTest::addColumn<QString>("longText");
    QTest::addColumn<QString>("shortText");
    QTest::addColumn<QString>("dayText");
    QTest::newRow("month first") << 0 << 2026 << u"11/19/2026"_s << u"11/19/26"_s << u"11/19"_s;
    QTest::newRow("day first") << 1 << 2026 << u"19/11/2026"_s << u"19/11/26"_s << u"19/11"_s;
    QTest::newRow("year first") << 2 << 2026 << u"2026/11/19"_s << u"26/11/19"_s << u"11/19"_s;
    QTest::newRow("in 2000 the short year is 0 and falls away")
        << 0 << 2000 << u"11/19/2000"_s << u"11/19"_s << u"11/19"_s;
    QTest::newRow("2001") << 0 << 2001 << u"11/19/2001"_s << u"11/19/01"_s << u"11/19"_s;
    QTest::newRow("1999") << 0 << 1999 << u"11/19/1999"_s << u"11/19/99"_s << u"11/19"_s;
    QTest::newRow("2100") << 0 << 2100 << u"11/19/2100"_s << u"11/19"_s << u"11/19"_s;
    QTest::newRow("a year of five digits") << 0 << 65535 << u"11/19/65535"_s << u"11/19/35"_s << u"11/19"_s;
}

void TestNumberText::TextsOfADay() {
    QFETCH(int, order);
    QFETCH(int, year);
    const CRegionalInfo region = WithDates(order, u'/');
    QTEST(LongDateText(region, 11, 19, year), "longText");
    QTEST(ShortDateText(region, 11, 19, year), "shortText");
    QTEST(DayText(region, 11, 19), "dayText");
    for (const int absurd : {std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        QVERIFY(!ShortDateText(region, absurd, absurd, absurd).isEmpty());
}

TEST_CLASS(TestNumberText);
#include "TestNumberText.moc"
