#include "calendar/DateTimeVal.h"
#include "calendar/IsoDays.h"
#include "lang/LoadText.h"
#include "platform/host/CRegionalInfo.h"
#include "support/CTestClock.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

CRegionalInfo Region(int dateOrder, char16_t separator) {
    CRegionalInfo region;
    region.dateOrder = dateOrder;
    region.dateSeparator = separator;
    return region;
}

}  // namespace

class TestDateTimeText final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void ParseTime12_data();
    void ParseTime12();
    void ParseTime24_data();
    void ParseTime24();
    void ParseDate_data();
    void ParseDate();
    void ParseDateKeepsTheTime();
};

void TestDateTimeText::ParseTime12_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("read");
    QTest::addColumn<QString>("time");
    const auto good = [](const char* name, const QString& text, const char* time) {
        QTest::newRow(name) << text << true << QString::fromLatin1(time);
    };
    const auto bad = [](const char* name, const QString& text, const char* time = "0:00 AM") {
        QTest::newRow(name) << text << false << QString::fromLatin1(time);
    };
    good("a morning", u"9:05 AM"_s, "9:05 AM");
    good("leading zeros and small letters", u"09:05 pm"_s, "9:05 PM");
    good("midnight", u"12:00 am"_s, "12:00 AM");
    good("noon", u"12:00 PM"_s, "12:00 PM");
    good("blanks at the places for blanks", u"  9: 05   PM  "_s, "9:05 PM");
    good("no blank before the word", u"9:05PM"_s, "9:05 PM");
    good("what follows the word is passed over", u"9:05 PM sharp"_s, "9:05 PM");
    bad("a word in mixed letters leaves hour and minute", u"9:05 Pm"_s, "9:05 PM");
    bad("an unknown word leaves hour and minute", u"9:05 in the morning"_s, "9:05 PM");
    bad("a word that goes on", u"9:05 AMEN"_s, "9:05 PM");
    bad("a word of ten thousand letters", u"9:05 "_s + QString(10000, u'A'), "9:05 PM");
    bad("an emoji for a word", u"9:05 \U0001F600"_s, "9:05 PM");
    bad("a NUL within the word", u"9:05 AM"_s + QChar(u'\0') + u"x"_s, "9:05 PM");
    bad("no word", u"9:05"_s);
    bad("hour 0", u"0:15 AM"_s);
    bad("hour 13", u"13:15 PM"_s);
    bad("minute 60", u"9:60 AM"_s);
    bad("a negative minute", u"9:-5 AM"_s);
    bad("no minute", u"9 AM"_s);
    bad("an empty text", QString());
    bad("words", u"nine"_s);
    bad("ten thousand digits", QString(10000, u'9') + u":05 AM"_s);
    bad("digits of another script", u"\u0669:05 AM"_s);
}

void TestDateTimeText::ParseTime12() {
    QFETCH(QString, text);
    QFETCH(bool, read);
    DateTimeVal value = DayOf(u"2026-11-19"_s);
    QVERIFY(value.SetTime(3, 33, true));
    QCOMPARE(value.ParseTimeText(text, false), read);
    QCOMPARE(value.IsValid(), read);
    QTEST(TimeTextOf(value), "time");
    QCOMPARE(IsoOf(value), u"2026-11-19"_s);
}

void TestDateTimeText::ParseTime24_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("time");  // empty: can't be read
    QTest::newRow("0:15 is a quarter past midnight") << u"0:15"_s << u"12:15 AM"_s;
    QTest::newRow("12:15 is a quarter past noon") << u"12:15"_s << u"12:15 PM"_s;
    QTest::newRow("12:00 is noon") << u"12:00"_s << u"12:00 PM"_s;
    QTest::newRow("a morning") << u"09:05"_s << u"9:05 AM"_s;
    QTest::newRow("the last minute") << u"23:59"_s << u"11:59 PM"_s;
    QTest::newRow("what follows is passed over") << u"17:30 h"_s << u"5:30 PM"_s;
    QTest::newRow("24:00") << u"24:00"_s << QString();
    QTest::newRow("minute 60") << u"9:60"_s << QString();
    QTest::newRow("a negative hour") << u"-1:00"_s << QString();
    QTest::newRow("an hour alone") << u"9"_s << QString();
    QTest::newRow("a full stop between") << u"9.30"_s << QString();
    QTest::newRow("an empty text") << QString() << QString();
    QTest::newRow("ten thousand digits") << u"9:"_s + QString(10000, u'0') + u"x"_s << u"9:00 AM"_s;
    QTest::newRow("ten thousand nines") << u"9:"_s + QString(10000, u'9') << QString();
}

void TestDateTimeText::ParseTime24() {
    QFETCH(QString, text);
    QFETCH(QString, time);
    DateTimeVal value;
    QVERIFY(value.SetTime(3, 33, true));
    QCOMPARE(value.ParseTimeText(text, true), !time.isEmpty());
    QCOMPARE(value.IsValid(), !time.isEmpty());
    QCOMPARE(TimeTextOf(value), time.isEmpty() ? u"0:00 AM"_s : time);
}

void TestDateTimeText::ParseDate_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("order");
    QTest::addColumn<QString>("separator");
    QTest::addColumn<QString>("date");  // empty: can't be read
    QTest::newRow("month first") << u"11/19/2026"_s << 0 << u"/"_s << u"2026-11-19"_s;
    QTest::newRow("day first") << u"19.11.2026"_s << 1 << u"."_s << u"2026-11-19"_s;
    QTest::newRow("year first") << u"2026-11-19"_s << 2 << u"-"_s << u"2026-11-19"_s;
    QTest::newRow("a year of two digits below 50") << u"2/3/49"_s << 0 << u"/"_s << u"2049-02-03"_s;
    QTest::newRow("a year of two digits from 50") << u"2/3/50"_s << 0 << u"/"_s << u"1950-02-03"_s;
    QTest::newRow("31 February") << u"2/31/2003"_s << 0 << u"/"_s << u"2003-02-31"_s;
    QTest::newRow("29 February of a common year") << u"02/29/2003"_s << 0 << u"/"_s << u"2003-02-29"_s;
    QTest::newRow("blanks before the numbers") << u" 11/ 19/ 2026"_s << 0 << u"/"_s << u"2026-11-19"_s;
    QTest::newRow("what follows is passed over") << u"11/19/2026, noon"_s << 0 << u"/"_s << u"2026-11-19"_s;
    QTest::newRow("no date at all") << u"soon"_s << 0 << u"/"_s << QString();
    QTest::newRow("an empty text") << QString() << 0 << u"/"_s << QString();
    QTest::newRow("two numbers") << u"11/19"_s << 0 << u"/"_s << QString();
    QTest::newRow("another separator") << u"11-19-2026"_s << 0 << u"/"_s << QString();
    QTest::newRow("month 13") << u"13/1/2026"_s << 0 << u"/"_s << QString();
    QTest::newRow("day 0") << u"1/0/2026"_s << 0 << u"/"_s << QString();
    QTest::newRow("day 32") << u"1/32/2026"_s << 0 << u"/"_s << QString();
    QTest::newRow("month 65537 isn't month 1") << u"65537/1/2026"_s << 0 << u"/"_s << QString();
    QTest::newRow("a negative year") << u"1/1/-5"_s << 0 << u"/"_s << QString();
    QTest::newRow("ten thousand digits") << u"1/1/"_s + QString(10000, u'9') << 0 << u"/"_s << QString();
    QTest::newRow("an emoji") << u"1/\U0001F600/2026"_s << 0 << u"/"_s << QString();
    QTest::newRow("a NUL") << u"1/"_s + QChar(u'\0') + u"1/2026"_s << 0 << u"/"_s << QString();
}

void TestDateTimeText::ParseDate() {
    QFETCH(QString, text);
    QFETCH(int, order);
    QFETCH(QString, separator);
    QFETCH(QString, date);
    const CTestClock clock(2024, 2, 29);
    DateTimeVal value;
    QCOMPARE(value.ParseDateText(text, Region(order, separator[0].unicode()), clock), !date.isEmpty());
    QCOMPARE(IsoOf(value), date.isEmpty() ? u"2024-02-29"_s : date);
    QVERIFY2(value.IsValid(), "today takes the place of a text that can't be read");
}

void TestDateTimeText::ParseDateKeepsTheTime() {
    DateTimeVal value = TimeOf(u"9:05 PM"_s);
    QVERIFY(value.ParseDateText(u"11/19/2026"_s, CRegionalInfo(), CTestClock()));
    QCOMPARE(TimeTextOf(value), u"9:05 PM"_s);
}

TEST_CLASS(TestDateTimeText);
#include "TestDateTimeText.moc"
