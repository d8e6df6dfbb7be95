#include "platform/sqlite/VARIANT.h"

#include "support/TestProgram.h"

#include <QTest>
#include <cmath>
#include <limits>

Q_DECLARE_METATYPE(VARIANT)

class TestVARIANT : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void conversions_data();
    void conversions();
};

void TestVARIANT::conversions_data() {
    QTest::addColumn<VARIANT>("value");
    QTest::addColumn<int>("integer");
    QTest::addColumn<float>("number");
    QTest::addColumn<QString>("text");
    const double infinity = std::numeric_limits<double>::infinity();
    const auto row = [](const char* name, const VARIANT& value, int integer, float number,
                        const QString& text) { QTest::newRow(name) << value << integer << number << text; };
    row("nothing", VARIANT(), 0, 0.0F, QString());
    row("a 16-bit integer", std::int16_t{-32768}, -32768, -32768.0F, u"-32768"_qs);
    row("a 32-bit integer", std::int32_t{2147483647}, 2147483647, 2147483648.0F, u"2147483647"_qs);
    row("a float is cut toward zero", -2.75F, -2, -2.75F, u"-2.75"_qs);
    row("a double is cut toward zero", 2.999, 2, 2.999F, u"2.999"_qs);
    row("six significant digits", 1234567.0, 1234567, 1234567.0F, u"1.23457e+06"_qs);
    row("a float has no more digits than it holds", 0.1F, 0, 0.1F, u"0.1"_qs);
    row("a double too large for an integer", 1e20, 2147483647, 1e20F, u"1e+20"_qs);
    row("a double too small for an integer", -1e20, std::numeric_limits<int>::min(), -1e20F, u"-1e+20"_qs);
    row("infinity", infinity, 2147483647, std::numeric_limits<float>::infinity(), u"inf"_qs);
    row("an empty text", QString(), 0, 0.0F, QString());
    row("a text of digits", u"42"_qs, 42, 42.0F, u"42"_qs);
    row("a text with a fraction", u"-12.5"_qs, -12, -12.5F, u"-12.5"_qs);
    row("digits before other signs", u"  +7 apples"_qs, 7, 0.0F, u"  +7 apples"_qs);
    row("a comma ends the number", u"1,5"_qs, 1, 0.0F, u"1,5"_qs);
    row("a text without digits", u"apples 7"_qs, 0, 0.0F, u"apples 7"_qs);
    row("a lone sign", u"-"_qs, 0, 0.0F, u"-"_qs);
    row("a text too large for an integer", u"99999999999999999999"_qs, 2147483647, 1e20F,
        u"99999999999999999999"_qs);
    row("a text too small for an integer", u"-99999999999999999999"_qs, std::numeric_limits<int>::min(),
        -1e20F, u"-99999999999999999999"_qs);
    row("the smallest integer as text", u"-2147483648"_qs, std::numeric_limits<int>::min(), -2147483648.0F,
        u"-2147483648"_qs);
    row("the word nan is no number", u"nan"_qs, 0, 0.0F, u"nan"_qs);
    row("a number beyond all floats is none", u"1e999"_qs, 1, 0.0F, u"1e999"_qs);
}

void TestVARIANT::conversions() {
    QFETCH(VARIANT, value);
    QFETCH(int, integer);
    QFETCH(float, number);
    QFETCH(QString, text);
    QCOMPARE(ToInt32(value), integer);
    QCOMPARE(ToFloat(value), number);
    QCOMPARE(ToText(value), text);
    QCOMPARE(ToInt32(VARIANT(std::nan(""))), 0);
}

TEST_CLASS(TestVARIANT);
#include "TestVARIANT.moc"
