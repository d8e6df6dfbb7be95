#include "cli/arguments/EnteredValues.h"
#include "lang/LoadText.h"
#include "platform/host/CInstallLocation.h"
#include "support/CTestClock.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;
using namespace EnteredValues;

namespace {

CRegionalInfo Region(const QString& name) {
    CRegionalInfo region;
    if (name == u"German") region = {false, u',', true, 1, u'.', 2, true, u'.'};
    if (name == u"Swedish") region = {false, u',', true, 2, u'-', 2, true};
    return region;
}

QString DateText(const std::optional<DateTimeVal>& date) {
    return date ? QString::asprintf("%04d-%02d-%02d", date->year, date->month, date->day) : QString();
}

}  // namespace

class TestEnteredValues : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase();
    void ReadDate_data();
    void ReadDate();
    void ReadTime_data();
    void ReadTime();
    void ReadSpan_data();
    void ReadSpan();
    void ReadNumber_data();
    void ReadNumber();
    void ReadSignedNumber_data();
    void ReadSignedNumber();
    void ReadIdentity_data();
    void ReadIdentity();
};

void TestEnteredValues::initTestCase() {
    QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR)));
}

void TestEnteredValues::ReadDate_data() {
    QTest::addColumn<QString>("region");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("date");  // empty: refused
    const QString us = u"American"_s, de = u"German"_s, se = u"Swedish"_s;
    QTest::newRow("year, month, day") << us << u"2026-11-19"_s << u"2026-11-19"_s;
    QTest::newRow("the word for today") << us << u"today"_s << u"2026-11-19"_s;
    QTest::newRow("in capitals") << us << u"TODAY"_s << u"2026-11-19"_s;
    QTest::newRow("the word for yesterday") << us << u"yesterday"_s << u"2026-11-18"_s;
    QTest::newRow("blanks around") << us << u" 2026-11-19 "_s << u"2026-11-19"_s;
    QTest::newRow("American, short year") << us << u"11/19/26"_s << u"2026-11-19"_s;
    QTest::newRow("American, full year") << us << u"1/2/2026"_s << u"2026-01-02"_s;
    QTest::newRow("German") << de << u"19.11.2026"_s << u"2026-11-19"_s;
    QTest::newRow("German, year of the last century") << de << u"19.11.50"_s << u"1950-11-19"_s;
    QTest::newRow("Swedish, short year") << se << u"26-11-19"_s << u"2026-11-19"_s;
    QTest::newRow("29 February of a leap year") << us << u"2024-02-29"_s << u"2024-02-29"_s;
    QTest::newRow("29 February of a common year") << us << u"2026-02-29"_s << QString();
    QTest::newRow("29 February of 1900") << us << u"1900-02-29"_s << QString();
    QTest::newRow("31 February") << us << u"2026-02-31"_s << QString();
    QTest::newRow("31 February as Germans write it") << de << u"31.2.2026"_s << QString();
    QTest::newRow("31 April") << us << u"4/31/2026"_s << QString();
    QTest::newRow("month 13") << us << u"2026-13-01"_s << QString();
    QTest::newRow("day 0") << us << u"2026-11-00"_s << QString();
    QTest::newRow("day and month swapped for this region") << us << u"31/2"_s << QString();
    QTest::newRow("the separator of another region") << us << u"19.11.2026"_s << QString();
    QTest::newRow("a year before 1000 would be taken for another") << us << u"0049-01-01"_s << QString();
    QTest::newRow("a year of five digits") << us << u"12026-01-01"_s << QString();
    QTest::newRow("something behind it") << us << u"2026-11-19x"_s << QString();
    QTest::newRow("something behind a regional one") << us << u"11/19/26 x"_s << QString();
    QTest::newRow("digits of another script") << us << u"٢٠٢٦-١١-١٩"_s << QString();
    QTest::newRow("nothing") << us << QString() << QString();
    QTest::newRow("a word") << us << u"tomorrow"_s << QString();
}

void TestEnteredValues::ReadDate() {
    QFETCH(QString, region);
    QFETCH(QString, typed);
    const CTestClock clock(2026, 11, 19);
    QTEST(DateText(EnteredValues::ReadDate(typed, Region(region), clock)), "date");
}

void TestEnteredValues::ReadTime_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("time");  // 24 hours; empty: refused
    QTest::newRow("morning") << u"9:05"_s << u"09:05"_s;
    QTest::newRow("leading zero") << u"09:05"_s << u"09:05"_s;
    QTest::newRow("evening") << u"17:30"_s << u"17:30"_s;
    QTest::newRow("midnight") << u"0:00"_s << u"00:00"_s;
    QTest::newRow("noon") << u"12:00"_s << u"12:00"_s;
    QTest::newRow("last minute") << u"23:59"_s << u"23:59"_s;
    QTest::newRow("with PM") << u"5:30 PM"_s << u"17:30"_s;
    QTest::newRow("with am") << u"12:15 am"_s << u"00:15"_s;
    QTest::newRow("24 hours are no time of day") << u"24:00"_s << QString();
    QTest::newRow("60 minutes") << u"9:60"_s << QString();
    QTest::newRow("13 PM") << u"13:00 PM"_s << QString();
    QTest::newRow("one digit of minutes") << u"9:5"_s << QString();
    QTest::newRow("no minutes") << u"9"_s << QString();
    QTest::newRow("with seconds") << u"9:05:00"_s << QString();
    QTest::newRow("a sign") << u"-9:05"_s << QString();
    QTest::newRow("another word") << u"9:05 XM"_s << QString();
    QTest::newRow("nothing") << QString() << QString();
}

void TestEnteredValues::ReadTime() {
    QFETCH(QString, typed);
    const auto time = EnteredValues::ReadTime(typed);
    QTEST(time ? QString::asprintf("%02d:%02d", time->Hour24(), time->minute) : QString(), "time");
}

void TestEnteredValues::ReadSpan_data() {
    QTest::addColumn<QString>("region");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("minutes");  // -1: refused
    const QString us = u"American"_s, de = u"German"_s;
    QTest::newRow("hours and minutes") << us << u"1:30"_s << 90;
    QTest::newRow("nothing at all is a span") << us << u"0:00"_s << 0;
    QTest::newRow("more than a day") << us << u"100:15"_s << 6015;
    QTest::newRow("hours with decimals") << us << u"1.5"_s << 90;
    QTest::newRow("whole hours") << us << u"8"_s << 480;
    QTest::newRow("a tenth of an hour") << us << u"0.1"_s << 6;
    QTest::newRow("a third is rounded to minutes") << us << u"0.333"_s << 20;
    QTest::newRow("a comma where it is the decimal character") << de << u"1,5"_s << 90;
    QTest::newRow("a full stop there too") << de << u"1.5"_s << 90;
    QTest::newRow("a comma elsewhere") << us << u"1,5"_s << -1;
    QTest::newRow("the longest") << us << u"32767:59"_s << 1966079;
    QTest::newRow("longer") << us << u"32768:00"_s << -1;
    QTest::newRow("a thousand million hours") << us << u"1000000000"_s << -1;
    QTest::newRow("60 minutes") << us << u"1:60"_s << -1;
    QTest::newRow("below zero") << us << u"-1:30"_s << -1;
    QTest::newRow("below zero in hours") << us << u"-1.5"_s << -1;
    QTest::newRow("three parts") << us << u"1:30:00"_s << -1;
    QTest::newRow("an exponent") << us << u"1e3"_s << -1;
    QTest::newRow("nothing") << us << QString() << -1;
}

void TestEnteredValues::ReadSpan() {
    QFETCH(QString, region);
    QFETCH(QString, typed);
    const auto span = EnteredValues::ReadSpan(typed, Region(region));
    QTEST(span ? span->hours * 60 + span->minutes : -1, "minutes");
}

void TestEnteredValues::ReadNumber_data() {
    QTest::addColumn<QString>("region");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<double>("number");  // -1: refused
    const QString us = u"American"_s, de = u"German"_s;
    QTest::newRow("whole") << us << u"80"_s << 80.0;
    QTest::newRow("with decimals") << us << u"0.125"_s << 0.125;
    QTest::newRow("no digit in front") << us << u".5"_s << 0.5;
    QTest::newRow("a comma where it is the decimal character") << de << u"80,5"_s << 80.5;
    QTest::newRow("a full stop there too") << de << u"80.5"_s << 80.5;
    QTest::newRow("digits in groups") << de << u"1.080,5"_s << 1080.5;
    QTest::newRow("digits in American groups") << us << u"1,080.5"_s << 1080.5;
    QTest::newRow("one full stop is the decimal character everywhere") << de << u"1.080"_s << 1.08;
    QTest::newRow("groups the other way round") << de << u"1,080.5"_s << -1.0;
    QTest::newRow("the greatest") << us << u"999999999"_s << 999999999.0;
    QTest::newRow("greater") << us << u"1000000000"_s << -1.0;
    QTest::newRow("an exponent") << us << u"1e300"_s << -1.0;
    QTest::newRow("no number") << us << u"NaN"_s << -1.0;
    QTest::newRow("infinity") << us << u"inf"_s << -1.0;
    QTest::newRow("hexadecimal") << us << u"0x10"_s << -1.0;
    QTest::newRow("below zero") << us << u"-5"_s << -1.0;
    QTest::newRow("with a currency") << us << u"80 EUR"_s << -1.0;
    QTest::newRow("only a full stop") << us << u"."_s << -1.0;
    QTest::newRow("a hundred digits") << us << QString(100, u'9') << -1.0;
}

void TestEnteredValues::ReadNumber() {
    QFETCH(QString, region);
    QFETCH(QString, typed);
    QTEST(EnteredValues::ReadNumber(typed, Region(region)).value_or(-1.0), "number");
}

void TestEnteredValues::ReadSignedNumber_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<double>("number");  // 99: none
    QTest::newRow("a number without a sign") << u"12.5"_s << 12.5;
    QTest::newRow("a negative one") << u"-12.5"_s << -12.5;
    QTest::newRow("blanks around") << u" -3 "_s << -3.0;
    QTest::newRow("nothing behind the sign") << u"-"_s << 99.0;
    QTest::newRow("a blank behind the sign") << u"- 3"_s << 99.0;
    QTest::newRow("two signs") << u"--3"_s << 99.0;
    QTest::newRow("a plus sign") << u"+3"_s << 99.0;
    QTest::newRow("a sign behind") << u"3-"_s << 99.0;
    QTest::newRow("too much") << u"-1000000000"_s << 99.0;
    QTest::newRow("nothing") << QString() << 99.0;
}

void TestEnteredValues::ReadSignedNumber() {
    QFETCH(QString, typed);
    QTEST(EnteredValues::ReadSignedNumber(typed, {}).value_or(99.0), "number");
}

void TestEnteredValues::ReadIdentity_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("id");  // empty: refused
    const QString id = u"0123456789ABCDEF0123456789ABCDEF"_s;
    QTest::newRow("as it is") << id << id;
    QTest::newRow("in small letters") << id.toLower() << id;
    QTest::newRow("a digit short") << id.left(31) << QString();
    QTest::newRow("a digit long") << id + u'0' << QString();
    QTest::newRow("a letter that is no digit") << id.left(31) + u'G' << QString();
    QTest::newRow("an apostrophe") << id.left(31) + u'\'' << QString();
    QTest::newRow("nothing") << QString() << QString();
}

void TestEnteredValues::ReadIdentity() {
    QFETCH(QString, typed);
    QTEST(EnteredValues::ReadIdentity(typed).value_or(QString()), "id");
}

TEST_CLASS(TestEnteredValues);
#include "TestEnteredValues.moc"
