#include "calendar/ScanText.h"

#include "support/TestProgram.h"

#include <QTest>
#include <limits>

using namespace Qt::Literals::StringLiterals;

class TestScanText final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void Count_data();
    void Count();
    void Values();
    void WholeNumbersEndAtTheBounds();
    void OtherTargetStops();
};

void TestScanText::Count_data() {
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("count");
    QTest::newRow("all fields") << u"%d:%d %s"_s << u"9:05 PM"_s << 3;
    QTest::newRow("blanks in the text where the format has one") << u"%d:%d %s"_s << u"9:05 \t PM"_s << 3;
    QTest::newRow("no blank in the text") << u"%d:%d %s"_s << u"9:05PM"_s << 3;
    QTest::newRow("the first that doesn't fit ends it") << u"%d:%d %s"_s << u"9-05 PM"_s << 1;
    QTest::newRow("no word left") << u"%d:%d %s"_s << u"9:05 "_s << 2;
    QTest::newRow("nothing fits") << u"%d:%d %s"_s << u"noon"_s << 0;
    QTest::newRow("an empty text") << u"%d:%d %s"_s << QString() << 0;
    QTest::newRow("an empty format") << QString() << u"9:05 PM"_s << 0;
    QTest::newRow("an unknown form") << u"%x"_s << u"9"_s << 0;
    QTest::newRow("a percent sign at the end") << u"%d:%"_s << u"9:05"_s << 1;
    QTest::newRow("more forms than targets") << u"%d:%d %s%d"_s << u"9:05 PM 5"_s << 3;
    QTest::newRow("marks that direct the writing")
        << u"%d:%d %s"_s << u"\u200F9\u200E:\u061C05 \u2067PM\u2069"_s << 3;
    QTest::newRow("a sign without digits") << u"%d"_s << u"+"_s << 0;
}

void TestScanText::Count() {
    QFETCH(QString, format);
    QFETCH(QString, text);
    int first = 0;
    int second = 0;
    QString word;
    QTEST(ScanText(format, text, {&first, &second, &word}), "count");
}

void TestScanText::Values() {
    int number = 0;
    float narrow = 0.0F;
    double wide = 0.0;
    QString word;
    QCOMPARE(
        ScanText(u"%d,%f;%lf %s"_s, u"-12, 1.5;-.25 a\u00e4\U0001F600 b"_s, {&number, &narrow, &wide, &word}),
        4);
    QCOMPARE(number, -12);
    QCOMPARE(narrow, 1.5F);
    QCOMPARE(wide, -0.25);
    QCOMPARE(word, u"a\u00e4\U0001F600"_s);
}

void TestScanText::WholeNumbersEndAtTheBounds() {
    int number = 0;
    QCOMPARE(ScanText(u"%d"_s, QString(10000, u'9'), {&number}), 1);
    QCOMPARE(number, std::numeric_limits<int>::max());
    QCOMPARE(ScanText(u"%d"_s, u"-"_s + QString(10000, u'9'), {&number}), 1);
    QCOMPARE(number, std::numeric_limits<int>::min());
    QCOMPARE(ScanText(u"%d"_s, u"2147483647"_s, {&number}), 1);
    QCOMPARE(number, std::numeric_limits<int>::max());
    QCOMPARE(ScanText(u"%d"_s, u"-2147483648"_s, {&number}), 1);
    QCOMPARE(number, std::numeric_limits<int>::min());
    QCOMPARE(ScanText(u"%d"_s, QString(10000, u'0') + u"7"_s, {&number}), 1);
    QCOMPARE(number, 7);
}

/// A format that asks for something else than the caller takes reads nothing into the wrong place.
void TestScanText::OtherTargetStops() {
    QString word = u"kept"_s;
    QCOMPARE(ScanText(u"%d"_s, u"5"_s, {&word}), 0);
    QCOMPARE(word, u"kept"_s);
    int number = 7;
    QCOMPARE(ScanText(u"%s"_s, u"5"_s, {&number}), 0);
    QCOMPARE(number, 7);
}

TEST_CLASS(TestScanText);
#include "TestScanText.moc"
