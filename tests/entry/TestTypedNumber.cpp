#include "entry/TypedNumber.h"

#include "lang/LoadText.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

CRegionalInfo Region(const QString& name) {
    CRegionalInfo region;
    if (name == u"en") return region;
    region.decimalChar = u',';
    region.usesDotDecimal = false;
    if (name == u"de") region.groupChar = u'.';
    if (name == u"fr") region.groupChar = u'\u202f';
    if (name == u"ch") {
        region.decimalChar = u'.';
        region.usesDotDecimal = true;
        region.groupChar = u'\u2019';
    }
    return region;
}

}  // namespace

/// Numbers as they are typed, with and without groups of digits.
class TestTypedNumber : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void Reads_data();
    void Reads();
    void Unreadable_data();
    void Unreadable();
    void Nothing();
    void Ambiguous_data();
    void Ambiguous();
    void Shows_data();
    void Shows();
};

void TestTypedNumber::Reads_data() {
    QTest::addColumn<QString>("region");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("plain");
    const auto row = [](const char* situation, const QString& region, const QString& typed, double value,
                        const QString& plain) {
        QTest::newRow(situation) << region << typed << value << plain;
    };
    row("whole", u"en"_s, u"80"_s, 80.0, u"80"_s);
    row("with decimals", u"en"_s, u"0.125"_s, 0.125, u"0.125"_s);
    row("no digit in front", u"en"_s, u".5"_s, 0.5, u".5"_s);
    row("no digit behind", u"en"_s, u"5."_s, 5.0, u"5."_s);
    row("blanks before and behind", u"en"_s, u" 5 "_s, 5.0, u"5"_s);
    row("English groups", u"en"_s, u"1,234.50"_s, 1234.5, u"1234.50"_s);
    row("English groups without decimals", u"en"_s, u"1,234,567"_s, 1234567.0, u"1234567"_s);
    row("groups of two above a thousand", u"en"_s, u"12,34,567"_s, 1234567.0, u"1234567"_s);
    row("below zero", u"en"_s, u"-1,234.50"_s, -1234.5, u"-1234.50"_s);
    row("with the longer minus sign", u"fr"_s, u"\u22125"_s, -5.0, u"-5"_s);
    row("German groups", u"de"_s, u"1.234,50"_s, 1234.5, u"1234,50"_s);
    row("two German groups", u"de"_s, u"1.234.567"_s, 1234567.0, u"1234567"_s);
    row("a comma", u"de"_s, u"1,5"_s, 1.5, u"1,5"_s);
    row("a full stop where a comma is usual", u"de"_s, u"1.5"_s, 1.5, u"1.5"_s);
    row("French groups, as written", u"fr"_s, u"1\u202f234,5"_s, 1234.5, u"1234,5"_s);
    row("French groups, as typed", u"fr"_s, u"1 234,5"_s, 1234.5, u"1234,5"_s);
    row("French groups with a full stop", u"fr"_s, u"1 234.5"_s, 1234.5, u"1234.5"_s);
    row("Swiss groups, as typed", u"ch"_s, u"1'234.5"_s, 1234.5, u"1234.5"_s);
    row("a mark of direction", u"en"_s, u"\u200e5\u200f"_s, 5.0, u"5"_s);
    row("the greatest", u"en"_s, u"999,999,999"_s, 999999999.0, u"999999999"_s);
    row("the least", u"en"_s, u"-999999999"_s, -999999999.0, u"-999999999"_s);
}

void TestTypedNumber::Reads() {
    QFETCH(QString, region);
    QFETCH(QString, typed);
    const TypedNumber number = ReadTypedNumber(typed, Region(region));
    QVERIFY(number.IsValue());
    QTEST(number.value, "value");
    QTEST(number.plain, "plain");
    QVERIFY(!number.isAmbiguous);
}

void TestTypedNumber::Unreadable_data() {
    QTest::addColumn<QString>("region");
    QTest::addColumn<QString>("typed");
    QTest::newRow("a word") << u"en"_s << u"much"_s;
    QTest::newRow("something behind it") << u"en"_s << u"80 EUR"_s;
    QTest::newRow("something before it") << u"en"_s << u"$80"_s;
    QTest::newRow("a comma where groups are of three digits") << u"en"_s << u"12,5"_s;
    QTest::newRow("a group too long in front") << u"en"_s << u"1234,567"_s;
    QTest::newRow("a group begun with zero") << u"en"_s << u"0,125"_s;
    QTest::newRow("an empty group") << u"en"_s << u"1,,234"_s;
    QTest::newRow("nothing before the first group") << u"en"_s << u",234"_s;
    QTest::newRow("a group behind the decimals") << u"en"_s << u"1.234,567"_s;
    QTest::newRow("groups of different sizes") << u"en"_s << u"1,23,456,789"_s;
    QTest::newRow("two full stops") << u"en"_s << u"1.2.3"_s;
    QTest::newRow("English groups in German") << u"de"_s << u"1,234.50"_s;
    QTest::newRow("two commas in German") << u"de"_s << u"1,2,3"_s;
    QTest::newRow("a blank in German") << u"de"_s << u"1 234"_s;
    QTest::newRow("a sign alone") << u"en"_s << u"-"_s;
    QTest::newRow("two signs") << u"en"_s << u"--5"_s;
    QTest::newRow("only a full stop") << u"en"_s << u"."_s;
    QTest::newRow("an exponent") << u"en"_s << u"1e3"_s;
    QTest::newRow("hexadecimal") << u"en"_s << u"0x10"_s;
    QTest::newRow("digits of another script") << u"en"_s << u"٥"_s;
    QTest::newRow("above the greatest") << u"en"_s << u"1,000,000,000"_s;
    QTest::newRow("below the least") << u"en"_s << u"-1000000000"_s;
}

void TestTypedNumber::Unreadable() {
    QFETCH(QString, region);
    QFETCH(QString, typed);
    const TypedNumber number = ReadTypedNumber(typed, Region(region));
    QVERIFY(number.state == Typed::Unreadable);
    QCOMPARE(number.plain, typed);
    QCOMPARE(number.value, 0.0);
}

void TestTypedNumber::Nothing() {
    for (const QString& typed : {QString(), u"  "_s, u"\u200f"_s})
        QVERIFY(ReadTypedNumber(typed, CRegionalInfo()).state == Typed::Nothing);
}

void TestTypedNumber::Ambiguous_data() {
    QTest::addColumn<QString>("region");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("isAmbiguous");
    QTest::newRow("three digits behind a German full stop") << u"de"_s << u"1.234"_s << true;
    QTest::newRow("two digits") << u"de"_s << u"1.23"_s << false;
    QTest::newRow("four digits") << u"de"_s << u"1.2345"_s << false;
    QTest::newRow("a zero in front") << u"de"_s << u"0.234"_s << false;
    QTest::newRow("in English") << u"en"_s << u"1.234"_s << false;
}

void TestTypedNumber::Ambiguous() {
    QFETCH(QString, region);
    QFETCH(QString, typed);
    QTEST(ReadTypedNumber(typed, Region(region)).isAmbiguous, "isAmbiguous");
}

void TestTypedNumber::Shows_data() {
    QTest::addColumn<QString>("kept");
    QTest::addColumn<int>("precision");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("expected");
    QTest::newRow("the same") << u"12.50"_s << 2 << u"12.5"_s << true;
    QTest::newRow("rounded down") << u"12.34"_s << 2 << u"12.3449"_s << true;
    QTest::newRow("rounded up") << u"12.35"_s << 2 << u"12.345"_s << true;
    QTest::newRow("half, up") << u"1.01"_s << 2 << u"1.005"_s << true;
    QTest::newRow("a hundredth off") << u"1234567.88"_s << 2 << u"1234567.89"_s << false;
    QTest::newRow("one off") << u"16777216.00"_s << 2 << u"16777217"_s << false;
    QTest::newRow("nothing kept") << QString() << 2 << u"-1"_s << false;
    QTest::newRow("no places") << u"13"_s << 0 << u"12.5"_s << true;
    QTest::newRow("no number") << u"0.00"_s << 2 << u"x"_s << false;
}

void TestTypedNumber::Shows() {
    QFETCH(QString, kept);
    QFETCH(int, precision);
    QFETCH(QString, typed);
    const RegionScope region((CRegionalInfo()));
    QTEST(ShowsAsTyped(kept, precision, ReadTypedNumber(typed, TheRegion())), "expected");
}

TEST_CLASS(TestTypedNumber);
#include "TestTypedNumber.moc"
