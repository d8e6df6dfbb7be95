#include "entry/ExpenseEntryRules.h"

#include "config/Settings.h"
#include "entry/NewListItems.h"
#include "lang/LoadText.h"
#include "platform/host/CRegionalInfo.h"
#include "records/CERecord.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace ExpenseEntryRules;
using namespace Qt::Literals::StringLiterals;

namespace {

CRegionalInfo Region(QChar decimal) {
    CRegionalInfo region;
    region.decimalChar = decimal.unicode();
    region.usesDotDecimal = decimal == u'.';
    return region;
}

/// "distance rate amount" as fields show them, a dash for none.
QString Money(const CERecord& record) {
    const auto shown = [](const QString& text) { return text.isEmpty() ? u"-"_s : text; };
    return shown(record.distance.text) + u' ' + shown(record.GetRateText()) + u' ' +
           shown(record.GetAmountText());
}

}  // namespace

class TestExpenseEntryRules : public QObject {
    Q_OBJECT

    const RegionScope m_fullStop{CRegionalInfo()};

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void DistanceAmount_data();
    void DistanceAmount();
    void MoneyPage_data();
    void MoneyPage();
    void UntouchedDistanceStaysAsStored();
    void MoneyPageTakesDateAndItem();
    void ItemsPage_data();
    void ItemsPage();
    void ItemsPageTakesItems();
    void TakeDistanceForADraft();
    void OpenOdometer_data();
    void OpenOdometer();
    void OpensOnRateAndDistance();
    void Readings_data();
    void Readings();
    void DistanceByHand();
    void AcceptOdometer_data();
    void AcceptOdometer();
    void CancelledOdometer();
};

void TestExpenseEntryRules::DistanceAmount_data() {
    QTest::addColumn<QString>("distance");
    QTest::addColumn<QString>("rate");
    QTest::addColumn<QString>("decimal");
    QTest::addColumn<QString>("amount");
    QTest::newRow("distance times rate") << u"10"_s << u"0.5"_s << u"."_s << u"5.00"_s;
    QTest::newRow("a negative rate gives 0, not a negative amount")
        << u"10"_s << u"-0.5"_s << u"."_s << u"0.00"_s;
    QTest::newRow("nothing at a negative rate is plain 0") << u"0"_s << u"-0.5"_s << u"."_s << u"0.00"_s;
    QTest::newRow("both negative: the product counts") << u"-10"_s << u"-0.5"_s << u"."_s << u"5.00"_s;
    QTest::newRow("no distance counts as 0") << QString() << u"0.5"_s << u"."_s << u"0.00"_s;
    QTest::newRow("no rate counts as 0") << u"10"_s << QString() << u"."_s << u"0.00"_s;
    QTest::newRow("a rate that can't be read counts as 0") << u"10"_s << u"half"_s << u"."_s << u"0.00"_s;
    QTest::newRow("rounded half up: 3 * 0.335 is 1.005") << u"3"_s << u"0.335"_s << u"."_s << u"1.01"_s;
    QTest::newRow("with decimal comma") << u"12,5"_s << u"0,42"_s << u","_s << u"5,25"_s;
    QTest::newRow("a full stop is read under a comma too") << u"12.5"_s << u"0.42"_s << u","_s << u"5,25"_s;
    QTest::newRow("under a full stop a comma between other than groups of digits is no number")
        << u"12,5"_s << u"2"_s << u"."_s << u"0.00"_s;
    QTest::newRow("digits in groups") << u"1,250"_s << u"2"_s << u"."_s << u"2500.00"_s;
}

void TestExpenseEntryRules::DistanceAmount() {
    QFETCH(QString, distance);
    QFETCH(QString, rate);
    QFETCH(QString, decimal);
    const RegionScope region(Region(decimal[0]));
    QTEST(UpdateDistanceAmount(distance, rate), "amount");
}

void TestExpenseEntryRules::MoneyPage_data() {
    QTest::addColumn<bool>("isDistance");
    QTest::addColumn<QString>("distance");
    QTest::addColumn<QString>("rate");
    QTest::addColumn<QString>("amount");
    QTest::addColumn<QString>("money");
    QTest::newRow("a distance entry")
        << true << u"100"_s << u"0.3"_s << u"30.00"_s << u"100.00 0.300 30.00"_s;
    QTest::newRow("a distance entry without distance has none")
        << true << QString() << u"0.3"_s << u"0.00"_s << u"- 0.300 0.00"_s;
    QTest::newRow("a distance and a rate that can't be read are none")
        << true << u"far"_s << u"much"_s << u"0.00"_s << u"- - 0.00"_s;
    QTest::newRow("a distance entry into which nothing was typed")
        << true << QString() << QString() << u"--"_s << u"- - -"_s;
    QTest::newRow("no distance entry: distance and rate stay in the record")
        << false << QString() << QString() << u"12.5"_s << u"80.00 0.250 12.50"_s;
    QTest::newRow("no amount") << false << QString() << QString() << QString() << u"80.00 0.250 -"_s;
    QTest::newRow("an amount that can't be read is none")
        << false << QString() << QString() << u"a lot"_s << u"80.00 0.250 -"_s;
    QTest::newRow("money that came back")
        << false << QString() << QString() << u"-20"_s << u"80.00 0.250 -20.00"_s;
    QTest::newRow("minus one is no amount")
        << false << QString() << QString() << u"-1"_s << u"80.00 0.250 -"_s;
}

void TestExpenseEntryRules::MoneyPage() {
    QFETCH(bool, isDistance);
    QFETCH(QString, distance);
    QFETCH(QString, rate);
    QFETCH(QString, amount);
    CERecord record;
    record.isDistance = true;
    record.distance.Set(80.0F);
    record.rate.Set(0.25F);
    record.amount.Set(20.0F);
    ExpenseEntryRules::MoneyPage page;
    page.isDistance = isDistance;
    page.distance = distance;
    page.rate = rate;
    page.amount = amount;
    AcceptMoneyPage(record, page, NewListItems());
    QCOMPARE(record.isDistance, isDistance);
    QTEST(Money(record), "money");
    QCOMPARE(record.distance.isSet, !record.distance.text.isEmpty());
}

/// The store has "12,75", this machine reads 12 of it: what the page shows and gives back isn't a new
/// distance.
void TestExpenseEntryRules::UntouchedDistanceStaysAsStored() {
    CERecord record;
    record.TakeStoredDistance(u"12,75"_s);
    ExpenseEntryRules::MoneyPage page;
    page.isDistance = true;
    page.distance = record.distance.text;
    AcceptMoneyPage(record, page, NewListItems());
    QCOMPARE(record.StoredDistance(), u"12,75"_s);
    Settings settings;
    ExpenseEntryRules::AcceptOdometer(record, ExpenseEntryRules::OpenOdometer(record, settings), settings);
    QCOMPARE(record.StoredDistance(), u"12,75"_s);
    page.distance = u"12"_s;
    AcceptMoneyPage(record, page, NewListItems());
    QCOMPARE(record.StoredDistance(), u"12.00"_s);
}

void TestExpenseEntryRules::MoneyPageTakesDateAndItem() {
    CERecord record;
    ExpenseEntryRules::MoneyPage page;
    page.month = 2;
    page.day = 29;
    page.year = 2028;
    page.item5 = QString(254, u'x') + u"\U0001F600"_s;
    AcceptMoneyPage(record, page, NewListItems());
    QCOMPARE(record.date.longText, u"02/29/2028"_s);
    QCOMPARE(record.item5, QString(254, u'x'));
    page.month = page.day = page.year = 0;
    AcceptMoneyPage(record, page, NewListItems());
    QVERIFY(!record.date.IsSet());
}

void TestExpenseEntryRules::ItemsPage_data() {
    QTest::addColumn<QString>("checked");
    QTest::addColumn<QString>("flags");
    QTest::newRow("all") << u"12345"_s << u"12345"_s;
    QTest::newRow("none") << QString() << QString();
    QTest::newRow("the second without the first is cleared") << u"2"_s << QString();
    QTest::newRow("the fourth without the third is cleared") << u"124"_s << u"12"_s;
    QTest::newRow("the first alone") << u"1"_s << u"1"_s;
    QTest::newRow("the third and fourth") << u"34"_s << u"34"_s;
    QTest::newRow("the fifth stands alone") << u"5"_s << u"5"_s;
    QTest::newRow("the first doesn't allow the fourth") << u"14"_s << u"1"_s;
}

void TestExpenseEntryRules::ItemsPage() {
    QFETCH(QString, checked);
    ExpenseEntryRules::ItemsPage page;
    page.flag1 = checked.contains(u'1');
    page.flag2 = checked.contains(u'2');
    page.flag3 = checked.contains(u'3');
    page.flag4 = checked.contains(u'4');
    page.flag5 = checked.contains(u'5');
    for (const bool before : {false, true}) {
        CERecord record;
        record.flag1 = record.flag2 = record.flag3 = record.flag4 = record.flag5 = before;
        AcceptItemsPage(record, page, NewListItems());
        QString flags;
        const bool after[] = {record.flag1, record.flag2, record.flag3, record.flag4, record.flag5};
        for (int i = 0; i < 5; ++i)
            if (after[i]) flags += QString::number(i + 1);
        QTEST(flags, "flags");
    }
}

void TestExpenseEntryRules::ItemsPageTakesItems() {
    CERecord record;
    record.item5 = u"EUR"_s;
    ExpenseEntryRules::ItemsPage page;
    page.item1 = u"Client & Sons \"A\""_s;
    page.item2 = u"O'Brien 100%"_s;
    page.item3 = QString(256, u'ä');
    page.item4 = u"CA: Cash \U0001F600"_s;
    AcceptItemsPage(record, page, NewListItems());
    QCOMPARE(record.item1, page.item1);
    QCOMPARE(record.item2, page.item2);
    QCOMPARE(record.item3, QString(255, u'ä'));
    QCOMPARE(record.item4, page.item4);
    QCOMPARE(record.item5, u"EUR"_s);
}

/// The odometer dialog opens on what the page shows, not on what the record held before.
void TestExpenseEntryRules::TakeDistanceForADraft() {
    CERecord record;
    record.distance.Set(80.0F);
    record.rate.Set(0.25F);
    TakeDistance(record, u"12.5"_s, u"x"_s);
    QCOMPARE(Money(record), u"12.50 - -"_s);
    TakeDistance(record, QString(), u"0.3"_s);
    QCOMPARE(Money(record), u"- 0.300 -"_s);
    QVERIFY(!record.distance.isSet);
}

void TestExpenseEntryRules::OpenOdometer_data() {
    QTest::addColumn<bool>("suggest");
    QTest::addColumn<int>("lastEnd");
    QTest::addColumn<QString>("recordStart");
    QTest::addColumn<QString>("recordEnd");
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("end");
    QTest::newRow("the last reading is suggested")
        << true << 12345 << QString() << QString() << u"12345"_s << QString();
    QTest::newRow("a last reading of 0 is one") << true << 0 << QString() << QString() << u"0"_s << QString();
    QTest::newRow("suggestions off: an empty start")
        << false << 12345 << QString() << QString() << QString() << QString();
    QTest::newRow("no last reading: an empty start")
        << true << -1 << QString() << QString() << QString() << QString();
    QTest::newRow("a record with readings keeps them")
        << true << 12345 << u"100"_s << u"120.5"_s << u"100"_s << u"120.5"_s;
    QTest::newRow("a record with a start alone")
        << true << 12345 << u"100"_s << QString() << u"100"_s << QString();
    QTest::newRow("a record with an end alone has no start suggested")
        << true << 12345 << QString() << u"120"_s << QString() << u"120"_s;
}

void TestExpenseEntryRules::OpenOdometer() {
    QFETCH(bool, suggest);
    QFETCH(int, lastEnd);
    Settings settings;
    settings.odometerSuggestStart = suggest;
    settings.odometerLastEnd = lastEnd;
    CERecord record;
    QFETCH(QString, recordStart);
    QFETCH(QString, recordEnd);
    record.odometerStart = recordStart;
    record.odometerEnd = recordEnd;
    const Odometer odometer = ExpenseEntryRules::OpenOdometer(record, settings);
    QTEST(odometer.start, "start");
    QTEST(odometer.end, "end");
}

void TestExpenseEntryRules::OpensOnRateAndDistance() {
    CERecord record;
    Odometer odometer = ExpenseEntryRules::OpenOdometer(record, Settings());
    QCOMPARE(odometer.rate + odometer.distance, QString());
    record.rate.Set(0.3F);
    record.distance.Set(12.5F);
    odometer = ExpenseEntryRules::OpenOdometer(record, Settings());
    QCOMPARE(odometer.rate, u"0.300"_s);
    QCOMPARE(odometer.distance, u"12.50"_s);
}

void TestExpenseEntryRules::Readings_data() {
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("end");
    QTest::addColumn<QString>("decimal");
    QTest::addColumn<QString>("distance");
    QTest::newRow("whole readings") << u"1000"_s << u"1120"_s << u"."_s << u"120"_s;
    QTest::newRow("a reading with a fraction") << u"1000"_s << u"1120.5"_s << u"."_s << u"120.5"_s;
    QTest::newRow("with decimal comma") << u"1000"_s << u"1120,5"_s << u","_s << u"120,5"_s;
    QTest::newRow("end below start: the distance stays") << u"1120"_s << u"1000"_s << u"."_s << u"former"_s;
    QTest::newRow("end at the start: the distance stays") << u"1000"_s << u"1000"_s << u"."_s << u"former"_s;
    QTest::newRow("only an end: the start counts as 0") << QString() << u"1120"_s << u"."_s << u"1120"_s;
    QTest::newRow("a start that can't be read counts as 0") << u"home"_s << u"1120"_s << u"."_s << u"1120"_s;
    QTest::newRow("only a start: the distance stays") << u"1000"_s << QString() << u"."_s << u"former"_s;
    QTest::newRow("an end that can't be read: the distance stays")
        << u"1000"_s << u"there"_s << u"."_s << u"former"_s;
    QTest::newRow("from a negative start") << u"-20"_s << u"100"_s << u"."_s << u"120"_s;
    QTest::newRow("six significant digits") << u"0"_s << u"123456.7"_s << u"."_s << u"123457"_s;
    QTest::newRow("high readings differ in full")
        << u"1000000.25"_s << u"1000012.5"_s << u"."_s << u"12.25"_s;
}

void TestExpenseEntryRules::Readings() {
    QFETCH(QString, start);
    QFETCH(QString, end);
    QFETCH(QString, decimal);
    const RegionScope region(Region(decimal[0]));
    Odometer odometer{start, end, u"0.3"_s, u"former"_s};
    ReadingsChanged(odometer);
    QTEST(odometer.distance, "distance");
    QCOMPARE(odometer.start, start);
    QCOMPARE(odometer.end, end);
    QCOMPARE(odometer.rate, u"0.3"_s);
}

void TestExpenseEntryRules::DistanceByHand() {
    Odometer odometer{u"1000"_s, u"1120"_s, u"0.3"_s, u"120"_s};
    DistanceChosen(odometer, u"115"_s);
    QCOMPARE(odometer.distance, u"115"_s);
    QCOMPARE(odometer.start + odometer.end, QString());
    QCOMPARE(odometer.rate, u"0.3"_s);
}

void TestExpenseEntryRules::AcceptOdometer_data() {
    QTest::addColumn<QString>("end");
    QTest::addColumn<QString>("rate");
    QTest::addColumn<QString>("distance");
    QTest::addColumn<QString>("decimal");
    QTest::addColumn<QString>("money");
    QTest::addColumn<int>("lastEnd");
    QTest::newRow("a whole reading") << u"1120"_s << u"0.5"_s << u"120"_s << u"."_s << u"120.00 0.500 60.00"_s
                                     << 1120;
    QTest::newRow("a fraction is dropped from the suggestion")
        << u"12345.6"_s << u"0.5"_s << u"10"_s << u"."_s << u"10.00 0.500 5.00"_s << 12345;
    QTest::newRow("with decimal comma: what stands before it")
        << u"1120,5"_s << u"0,5"_s << u"120,5"_s << u","_s << u"120,50 0,500 60,25"_s << 1120;
    QTest::newRow("an end that can't be read: nothing to suggest")
        << u"there"_s << u"0.5"_s << u"120"_s << u"."_s << u"120.00 0.500 60.00"_s << -1;
    QTest::newRow("no end: the last one stays")
        << QString() << u"0.5"_s << u"120"_s << u"."_s << u"120.00 0.500 60.00"_s << 777;
    QTest::newRow("an end beyond all numbers: the highest is suggested")
        << u"99999999999"_s << u"0.5"_s << u"120"_s << u"."_s << u"120.00 0.500 60.00"_s << 2147483647;
    QTest::newRow("rate and distance that can't be read leave the record's")
        << u"1120"_s << u"?"_s << QString() << u"."_s << u"80.00 0.250 20.00"_s << 1120;
}

void TestExpenseEntryRules::AcceptOdometer() {
    QFETCH(QString, end);
    QFETCH(QString, rate);
    QFETCH(QString, distance);
    QFETCH(QString, decimal);
    const RegionScope region(Region(decimal[0]));
    CERecord record;
    record.distance.Set(80.0F);
    record.rate.Set(0.25F);
    Settings settings;
    settings.odometerLastEnd = 777;
    ExpenseEntryRules::AcceptOdometer(record, {u"1000"_s, end, rate, distance}, settings);
    QTEST(Money(record), "money");
    QCOMPARE(record.odometerStart, u"1000"_s);
    QCOMPARE(record.odometerEnd, end);
    QTEST(settings.odometerLastEnd, "lastEnd");
}

void TestExpenseEntryRules::CancelledOdometer() {
    CERecord record;
    record.distance.Set(80.0F);
    Settings settings;
    settings.odometerLastEnd = 777;
    Odometer odometer = ExpenseEntryRules::OpenOdometer(record, settings);
    odometer.end = u"900"_s;
    ReadingsChanged(odometer);
    QCOMPARE(odometer.distance, u"123"_s);
    QCOMPARE(Money(record), u"80.00 - -"_s);
    QCOMPARE(record.odometerStart + record.odometerEnd, QString());
    QCOMPARE(settings.odometerLastEnd, 777);
}

TEST_CLASS(TestExpenseEntryRules);
#include "TestExpenseEntryRules.moc"
