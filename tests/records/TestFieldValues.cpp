#include "records/FieldValues.h"

#include "RecordsFixture.h"
#include "records/SharedTexts.h"
#include "support/TestProgram.h"

#include <limits>

class TestFieldValues : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void DecimalSet_data();
    void DecimalSet();
    void TypedMoneyStays_data();
    void TypedMoneyStays();
    void DecimalFollowsTheRegion();
    void DecimalCopy();
    void DateSet_data();
    void DateSet();
    void DateReset();
    void SpanSetValues_data();
    void SpanSetValues();
    void SpanReset();
    void SpanCopyOfUnset();
    void Subtract_data();
    void Subtract();
    void Recompute_data();
    void Recompute();
    void Shared();
    void SharedOfUnits();

 private:
    RegionScope m_region{Region24()};
};

namespace {

/// "8:05" or nothing for an unset span.
SpanField Span(const QString& text) {
    SpanField span;
    if (!text.isEmpty()) span.Set(text.section(u':', 0, 0).toInt(), text.section(u':', 1).toInt());
    return span;
}

}  // namespace

void TestFieldValues::DecimalSet_data() {
    QTest::addColumn<float>("given");
    QTest::addColumn<int>("precision");
    QTest::addColumn<float>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("two places") << 12.5F << 2 << 12.5F << QStringLiteral("12.50");
    QTest::newRow("rounded") << 1.006F << 2 << 1.01F << QStringLiteral("1.01");
    QTest::newRow("a half goes away from zero") << 2.5F << 0 << 3.0F << QStringLiteral("3");
    QTest::newRow("a negative half too") << -1.5F << 0 << -2.0F << QStringLiteral("-2");
    QTest::newRow("zero with four places") << 0.0F << 4 << 0.0F << QStringLiteral("0.0000");
    for (int precision = 0; precision <= 6; ++precision)
        QTest::addRow("no value stays -1 with %d places", precision)
            << -1.0F << precision << -1.0F << QString::number(-1.0, 'f', precision);
}

void TestFieldValues::DecimalSet() {
    QFETCH(float, given);
    QFETCH(int, precision);
    DecimalField field;
    QCOMPARE(field.precision, 2);
    QVERIFY(!field.isSet);
    field.precision = precision;
    field.Set(given);
    QTEST(field.value, "value");
    QTEST(field.text, "text");
    QVERIFY(field.isSet);
}

void TestFieldValues::TypedMoneyStays_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("precision");
    const auto row = [](const QString& typed) {
        const auto places = static_cast<int>(typed.contains(u'.') ? typed.section(u'.', 1).size() : 0);
        QTest::newRow(qPrintable(typed)) << typed << places;
    };
    for (const char* typed :
         {"10000000", "9999999", "999999.9", "65536.02", "100000.00", "99999.99", "9999.999", "4194.324",
          "999.9999", "512.0004", "99.99999", "64.00002", "9.000000", "4.194321"})
        row(QString::fromLatin1(typed));
}

/// What single precision can hold is shown as it was typed, and stays so however often it is copied and
/// edited.
void TestFieldValues::TypedMoneyStays() {
    QFETCH(QString, typed);
    QFETCH(int, precision);
    DecimalField field;
    field.precision = precision;
    field.Set(typed.toFloat());
    QCOMPARE(field.text, typed);
    for (int time = 0; time < 5; ++time) {
        DecimalField copy;
        copy.precision = precision;
        copy.Copy(field);
        field.Set(copy.text.toFloat());
        QCOMPARE(field.text, typed);
        QCOMPARE(copy.value, field.value);
    }
}

void TestFieldValues::DecimalFollowsTheRegion() {
    DecimalField field;
    field.Set(1.25F);
    QCOMPARE(field.text, QStringLiteral("1.25"));
    CRegionalInfo comma = Region24();
    comma.usesDotDecimal = false;
    comma.decimalChar = u',';
    const RegionScope scope(comma);
    field.Set(1.25F);
    QCOMPARE(field.text, QStringLiteral("1,25"));
}

void TestFieldValues::DecimalCopy() {
    DecimalField source;
    source.precision = 4;
    source.Set(1.2345F);
    DecimalField target;
    target.Copy(source);
    QCOMPARE(target.value, 1.23F);
    QCOMPARE(target.text, QStringLiteral("1.23"));
    QCOMPARE(target.precision, 2);
    DecimalField unset;
    target.Copy(unset);
    QVERIFY(target.isSet);
    QCOMPARE(target.text, QStringLiteral("0.00"));
}

void TestFieldValues::DateSet_data() {
    QTest::addColumn<int>("order");
    QTest::addColumn<QList<int>>("date");
    QTest::addColumn<QStringList>("texts");
    const auto row = [](const char* name, int order, const QList<int>& date, const char* texts) {
        QTest::newRow(name) << order << date << QString::fromLatin1(texts).split(u' ');
    };
    row("month first", 0, {11, 19, 2026}, "11/19/2026 11/19/26 11/19");
    row("day first", 1, {11, 19, 2026}, "19/11/2026 19/11/26 19/11");
    row("year first", 2, {11, 19, 2026}, "2026/11/19 26/11/19 11/19");
    row("single digits are filled up", 0, {3, 4, 2003}, "03/04/2003 03/04/03 03/04");
    row("in 2000 the two-digit year is 0 and falls away", 0, {2, 29, 2000}, "02/29/2000 02/29 02/29");
    row("1999", 1, {12, 31, 1999}, "31/12/1999 31/12/99 31/12");
}

void TestFieldValues::DateSet() {
    QFETCH(int, order);
    QFETCH(QList<int>, date);
    QFETCH(QStringList, texts);
    CRegionalInfo region = Region24();
    region.dateOrder = order;
    const RegionScope scope(region);
    RecordDate value;
    QVERIFY(!value.IsSet());
    value.Set(date[0], date[1], date[2]);
    QVERIFY(value.IsSet());
    QCOMPARE(QStringList({value.longText, value.shortText, value.dayText}), texts);
    RecordDate copy;
    copy.Copy(value);
    QCOMPARE(copy.day, date[1]);
    QCOMPARE(copy.longText, texts[0]);
}

void TestFieldValues::DateReset() {
    const QList<int> bad[] = {{11, 0, 2026}, {0, 19, 2026}, {11, 19, 0}, {-1, -1, -1}, {11, 19, -5}};
    for (const QList<int>& date : bad) {
        RecordDate value;
        value.Set(11, 19, 2026);
        value.Set(date[0], date[1], date[2]);
        QVERIFY(!value.IsSet());
        QCOMPARE(QList<int>({value.month, value.day, value.year}), QList<int>({-1, -1, -1}));
        QVERIFY(value.longText.isEmpty() && value.shortText.isEmpty() && value.dayText.isEmpty());
    }
}

void TestFieldValues::SpanSetValues_data() {
    QTest::addColumn<int>("hours");
    QTest::addColumn<int>("minutes");
    QTest::addColumn<QString>("clock");
    QTest::addColumn<QString>("decimal");
    constexpr int kGreatest = std::numeric_limits<int>::max();
    constexpr int kLeast = std::numeric_limits<int>::min();
    const QString none = QStringLiteral("--:--");
    QTest::newRow("eight hours five") << 8 << 5 << QStringLiteral("8:05") << QStringLiteral("8.0833");
    QTest::newRow("75 minutes carry into the hours")
        << 1 << 75 << QStringLiteral("2:15") << QStringLiteral("2.2500");
    QTest::newRow("zero is set") << 0 << 0 << QStringLiteral("0:00") << QStringLiteral("0.0000");
    QTest::newRow("more than a day") << 100 << 30 << QStringLiteral("100:30") << QStringLiteral("100.5000");
    QTest::newRow("no hours") << -1 << 30 << none << QString();
    QTest::newRow("no minutes") << 5 << -1 << none << QString();
    QTest::newRow("negative minutes") << 2 << -5 << none << QString();
    QTest::newRow("the least integers") << kLeast << kLeast << none << QString();
    QTest::newRow("hours don't grow beyond an integer")
        << kGreatest << 99999 << QStringLiteral("2147483647:39") << QString();
}

void TestFieldValues::SpanSetValues() {
    QFETCH(int, hours);
    QFETCH(int, minutes);
    QFETCH(QString, decimal);
    SpanField span;
    span.decimal.precision = 4;
    span.Set(hours, minutes);
    QTEST(span.clockText, "clock");
    QCOMPARE(span.IsSet(), span.clockText != QStringLiteral("--:--"));
    float value = -5.0F;
    QCOMPARE(span.GetDecimal(value), span.IsSet());
    if (!span.IsSet()) QCOMPARE(value, 0.0F);
    if (!decimal.isEmpty() || !span.IsSet()) QCOMPARE(span.decimal.text, decimal);
}

void TestFieldValues::SpanReset() {
    SpanField span;
    QCOMPARE(span.clockText, QStringLiteral("--:--"));
    span.decimal.precision = 6;
    span.Set(1, 30);
    span.Reset();
    QVERIFY(!span.IsSet());
    QVERIFY(!span.decimal.isSet);
    QCOMPARE(span.decimal.value, 0.0F);
    QCOMPARE(span.decimal.text, QString());
    QCOMPARE(span.decimal.precision, 6);
}

void TestFieldValues::SpanCopyOfUnset() {
    SpanField target;
    target.Set(3, 0);
    target.Copy(SpanField());
    QVERIFY(!target.IsSet());
    QCOMPARE(target.clockText, QStringLiteral("--:--"));
    // Odd and wanted: the copied decimal is set, with 0.
    QVERIFY(target.decimal.isSet);
    QCOMPARE(target.decimal.value, 0.0F);
}

void TestFieldValues::Subtract_data() {
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const char* a, const char* b, const char* expected) {
        QTest::newRow(name) << QString::fromLatin1(a) << QString::fromLatin1(b)
                            << QString::fromLatin1(expected);
    };
    row("whole hours", "8:00", "1:00", "7:00");
    row("minutes borrow an hour", "8:15", "0:30", "7:45");
    row("equal lengths leave nothing", "1:30", "1:30", "0:00");
    row("a longer one unsets", "1:00", "1:30", "--:--");
    row("longer by a minute", "0:00", "0:01", "--:--");
    row("the longest there is", "0:00", "2147483647:59", "--:--");
}

void TestFieldValues::Subtract() {
    QFETCH(QString, a);
    QFETCH(QString, b);
    SpanField result;
    result.Subtract(Span(a), Span(b));
    QTEST(result.clockText, "expected");
}

void TestFieldValues::Recompute_data() {
    QTest::addColumn<QString>("duration");
    QTest::addColumn<QString>("breakTime");
    QTest::addColumn<QString>("effective");
    const QString none = QStringLiteral("--:--");
    QTest::newRow("no duration") << QString() << QStringLiteral("0:30") << none;
    QTest::newRow("no break") << QStringLiteral("8:00") << QString() << QStringLiteral("8:00");
    QTest::newRow("a break") << QStringLiteral("8:00") << QStringLiteral("0:30") << QStringLiteral("7:30");
    QTest::newRow("a break of nothing")
        << QStringLiteral("8:00") << QStringLiteral("0:00") << QStringLiteral("8:00");
    QTest::newRow("a break longer than the duration")
        << QStringLiteral("1:00") << QStringLiteral("1:30") << none;
}

void TestFieldValues::Recompute() {
    QFETCH(QString, duration);
    QFETCH(QString, breakTime);
    SpanSet spans;
    spans.duration = Span(duration);
    spans.breakTime = Span(breakTime);
    spans.Recompute();
    QTEST(spans.effective.clockText, "effective");
    SpanSet copy;
    copy.Copy(spans);
    QTEST(copy.effective.clockText, "effective");
    copy.Reset();
    QVERIFY(!copy.duration.IsSet() && !copy.breakTime.IsSet() && !copy.effective.IsSet());
}

void TestFieldValues::Shared() {
    const QString first = SharedText("Meeting");
    const QString second = SharedText("Meeting");
    QCOMPARE(first, QStringLiteral("Meeting"));
    QVERIFY(first.constData() == second.constData());
    QCOMPARE(SharedText("Übung \xF0\x9F\x98\x80"), QStringLiteral("Übung \U0001F600"));
    QCOMPARE(SharedText(QByteArrayView()), QString());
    const QByteArray longText(65, 'x');
    QCOMPARE(SharedText(longText), QString::fromLatin1(longText));
    QVERIFY(SharedText(longText).constData() != SharedText(longText).constData());
    // Far more texts than are kept at a time: each is still the right one.
    for (int round = 0; round < 2; ++round)
        for (int i = 0; i < 100000; ++i) QCOMPARE(SharedText(QByteArray::number(i)), QString::number(i));
}

void TestFieldValues::SharedOfUnits() {
    const QString first = SharedText(QStringView(u"a Meeting").mid(2));
    QCOMPARE(first, QStringLiteral("Meeting"));
    QVERIFY(first.constData() == SharedText(QStringView(u"Meeting")).constData());
    QCOMPARE(SharedText(QStringView()), QString());
    const QString longest(32, u'x'), longer(33, u'x');
    QVERIFY(SharedText(QStringView(longest)).constData() == SharedText(QStringView(longest)).constData());
    QCOMPARE(SharedText(QStringView(longer)), longer);
    QVERIFY(SharedText(QStringView(longer)).constData() != SharedText(QStringView(longer)).constData());
}

TEST_CLASS(TestFieldValues);
#include "TestFieldValues.moc"
