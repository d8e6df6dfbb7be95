#include "entry/UnlikelyValues.h"

#include "lang/LoadText.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestUnlikelyValues final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void Times_data();
    void Times();
    void StartAndEnd_data();
    void StartAndEnd();
    void Expenses_data();
    void Expenses();
    void APlainExpense();
};

void TestUnlikelyValues::Times_data() {
    QTest::addColumn<int>("hours");
    QTest::addColumn<int>("minutes");
    QTest::addColumn<int>("breakHours");
    QTest::addColumn<QStringList>("words");
    QTest::newRow("nothing entered") << -1 << -1 << -1 << QStringList();
    QTest::newRow("a day's work") << 8 << 0 << 1 << QStringList();
    QTest::newRow("a whole day") << 24 << 0 << -1 << QStringList();
    QTest::newRow("a minute more") << 24 << 1 << -1
                                   << QStringList{u"The duration 24:01 is longer than a day."_s};
    QTest::newRow("a break as long as the duration") << 1 << 0 << 1 << QStringList();
    QTest::newRow("a longer one")
        << 1 << 0 << 2
        << QStringList{u"The break 2:00 is longer than the duration 1:00, so there is no net time."_s};
}

void TestUnlikelyValues::Times() {
    QFETCH(int, hours);
    QFETCH(int, minutes);
    QFETCH(int, breakHours);
    CTRecord record;
    record.SetDurationOnly(hours, minutes);
    record.SetBreak(breakHours, breakHours < 0 ? -1 : 0);
    QTEST(UnlikelyIn(record), "words");
}

void TestUnlikelyValues::StartAndEnd_data() {
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::addColumn<QStringList>("words");
    const auto words = [](const QString& start, const QString& end) {
        return QStringList{
            u"From %1 to %2 there are no hours: the end has to be after the start."_s.arg(start, end)};
    };
    QTest::newRow("a morning") << 9 << 11 << QStringList();
    QTest::newRow("over midnight") << 22 << 6 << QStringList();
    QTest::newRow("the end before the start") << 9 << 8 << words(u"09:00 AM"_s, u"08:00 AM"_s);
    QTest::newRow("the same time") << 14 << 14 << words(u"02:00 PM"_s, u"02:00 PM"_s);
    QTest::newRow("a start alone") << 9 << -1 << QStringList();
}

void TestUnlikelyValues::StartAndEnd() {
    QFETCH(int, start);
    QFETCH(int, end);
    CTRecord record;
    DateTimeVal time;
    QVERIFY(time.SetTime24(start, 0));
    record.SetStart(time);
    if (end >= 0) {
        QVERIFY(time.SetTime24(end, 0));
        record.SetEnd(time);
    }
    QTEST(UnlikelyIn(record), "words");
}

void TestUnlikelyValues::Expenses_data() {
    QTest::addColumn<float>("distance");
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("end");
    QTest::addColumn<QStringList>("words");
    QTest::newRow("a trip") << 120.5F << u"1000"_s << u"1120.5"_s << QStringList();
    QTest::newRow("no distance, no readings") << 0.0F << QString() << QString() << QStringList();
    QTest::newRow("the end alone") << 10.0F << QString() << u"10"_s << QStringList();
    QTest::newRow("a distance below zero")
        << -3.0F << QString() << QString()
        << QStringList{u"The distance -3.00 is below zero. It is stored as it stands."_s};
    QTest::newRow("an end before the start")
        << 5.0F << u"1120"_s << u"1000"_s
        << QStringList{
               u"The odometer reading at the end, 1000, is below the one at the start, 1120, so no "
               u"distance follows from them."_s};
    QTest::newRow("a reading below zero")
        << 5.0F << u"-5"_s << u"0"_s
        << QStringList{u"The odometer reading -5 is below zero. It is stored as it stands."_s};
}

void TestUnlikelyValues::Expenses() {
    QFETCH(float, distance);
    QFETCH(QString, start);
    QFETCH(QString, end);
    CERecord record;
    record.isDistance = true;
    record.distance.Set(distance);
    record.odometerStart = start;
    record.odometerEnd = end;
    QTEST(UnlikelyIn(record), "words");
}

void TestUnlikelyValues::APlainExpense() {
    CERecord record;
    record.distance.Set(-3.0F);
    QCOMPARE(UnlikelyIn(record), QStringList());
}

TEST_CLASS(TestUnlikelyValues);
#include "TestUnlikelyValues.moc"
