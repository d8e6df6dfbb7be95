#include "calendar/DateTimeVal.h"
#include "calendar/NumberText.h"
#include "lang/LoadText.h"
#include "platform/host/CRegionalInfo.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// Numbers, dates and times as people of five countries write them, from the environment to the text and
/// back. Expected values from the Unicode locale data (decimal character, short date, 12 or 24 hours).
class TestUserLocales final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void cleanupTestCase() { qputenv("LC_ALL", "C.UTF-8"); }
    void Texts_data();
    void Texts();
};

void TestUserLocales::Texts_data() {
    QTest::addColumn<QByteArray>("locale");
    QTest::addColumn<QString>("number");     // 1234.5 with two places
    QTest::addColumn<QString>("date");       // 3 February 2026
    QTest::addColumn<QString>("day");        // without year
    QTest::addColumn<QString>("afternoon");  // a quarter past three
    QTest::addColumn<bool>("isMetric");
    QTest::newRow("United States") << QByteArray("en_US.UTF-8") << u"1234.50"_s << u"02/03/2026"_s
                                   << u"02/03"_s << u"03:15 PM"_s << false;
    QTest::newRow("Great Britain") << QByteArray("en_GB.UTF-8") << u"1234.50"_s << u"03/02/2026"_s
                                   << u"03/02"_s << u"15:15"_s << true;
    QTest::newRow("Germany") << QByteArray("de_DE.UTF-8") << u"1234,50"_s << u"03.02.2026"_s << u"03.02"_s
                             << u"15:15"_s << true;
    QTest::newRow("Sweden") << QByteArray("sv_SE.UTF-8") << u"1234,50"_s << u"2026-02-03"_s << u"02-03"_s
                            << u"15:15"_s << true;
    QTest::newRow("Japan") << QByteArray("ja_JP.UTF-8") << u"1234.50"_s << u"2026/02/03"_s << u"02/03"_s
                           << u"15:15"_s << true;
    QTest::newRow("Egypt, whose separator stands behind a mark that directs the writing")
        << QByteArray("ar_EG.UTF-8") << u"1234\u066B50"_s << u"03/02/2026"_s << u"03/02"_s << u"03:15 PM"_s
        << true;
    QTest::newRow("Israel") << QByteArray("he_IL.UTF-8") << u"1234.50"_s << u"03.02.2026"_s << u"03.02"_s
                            << u"15:15"_s << true;
    QTest::newRow("no locale") << QByteArray("C.UTF-8") << u"1234.50"_s << u"02/03/2026"_s << u"02/03"_s
                               << u"03:15 PM"_s << false;
}

void TestUserLocales::Texts() {
    QFETCH(QByteArray, locale);
    qputenv("LC_ALL", locale);
    const CRegionalInfo region = ReadRegionalInfo(CUserLocale());
    QTEST(FormatNumber(region, 1234.5, 2), "number");
    QTEST(FormatDate(region, 2, 3, 2026), "date");
    QTEST(FormatDate(region, 2, 3, -1), "day");
    QTEST(FormatTimeOfDay(region, 3, 15, true), "afternoon");
    QTEST(region.isMetric, "isMetric");

    QFETCH(QString, number);
    float value = 0.0F;
    QVERIFY(ParseFloat(region, number, value));
    QCOMPARE(value, 1234.5F);
    QFETCH(QString, date);
    SYSTEMTIME clock;
    QVERIFY(ParseDate(region, date, clock));
    QCOMPARE(int{clock.wYear} * 10000 + clock.wMonth * 100 + clock.wDay, 20260203);
    QFETCH(QString, afternoon);
    DateTimeVal time;
    QVERIFY(time.ParseTimeText(afternoon, region.is24Hour));
    QCOMPARE(time.Hour24() * 100 + time.minute, 1515);
}

TEST_CLASS(TestUserLocales);
#include "TestUserLocales.moc"
