#include "calendar/GroupedNumber.h"

#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestGroupedNumber final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void Groups_data() {
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("precision");
        QTest::addColumn<QString>("text");
        QTest::newRow("nothing") << 0.0 << 0 << u"0"_s;
        QTest::newRow("three digits stay together") << 999.0 << 2 << u"999.00"_s;
        QTest::newRow("four are parted") << 1000.0 << 0 << u"1,000"_s;
        QTest::newRow("millions") << 1234567.5 << 2 << u"1,234,567.50"_s;
        QTest::newRow("decimal places aren't parted") << 1.23456 << 5 << u"1.23456"_s;
        QTest::newRow("below zero") << -123456.0 << 0 << u"-123,456"_s;
    }
    void Groups() {
        QFETCH(double, value);
        QFETCH(int, precision);
        QTEST(GroupedNumber(CRegionalInfo(), value, precision), "text");
    }

    void SignsOfTheRegion() {
        CRegionalInfo german;
        german.groupChar = u'.';
        german.decimalChar = u',';
        QCOMPARE(GroupedNumber(german, 12345.6, 1), u"12.345,6"_s);
        CRegionalInfo swedish;
        swedish.groupChar = u'\u00A0';
        swedish.decimalChar = u',';
        QCOMPARE(GroupedNumber(swedish, 12345.6, 1), u"12\u00A0345,6"_s);
    }
};

TEST_CLASS(TestGroupedNumber);
#include "TestGroupedNumber.moc"
