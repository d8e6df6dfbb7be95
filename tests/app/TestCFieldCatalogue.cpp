#include "app/CFieldCatalogue.h"

#include "app/FieldLabels.h"
#include "config/Settings.h"
#include "lang/LoadText.h"
#include "platform/host/CRegionalInfo.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Every text is another, so that no field is taken for its neighbour.
CTRecord FullTime() {
    CTRecord record;
    record.date.Set(2, 29, 2028);
    record.item1 = u"client"_s;
    record.item2 = u"project"_s;
    record.item3 = u"activity"_s;
    record.item4 = u"centre"_s;
    record.item5 = u"EUR"_s;
    record.notes = u"some notes"_s;
    record.isBillable = true;
    record.SetStart(9, 5, false);
    record.SetDuration(8, 30, false);
    record.SetBreak(0, 45);
    record.SetRate(40.0F);
    return record;
}

CERecord FullExpense() {
    CERecord record;
    record.date.Set(2, 29, 2028);
    record.item1 = u"client"_s;
    record.item2 = u"project"_s;
    record.item3 = u"description"_s;
    record.item4 = u"payment"_s;
    record.item5 = u"EUR"_s;
    record.notes = u"some notes"_s;
    record.isDistance = true;
    record.distance.Set(120.5F);
    record.rate.Set(0.42F);
    record.amount.Set(50.61F);
    record.flag1 = record.flag3 = record.flag4 = true;
    return record;
}

/// Like QString and double, with "none" for nothing.
QString Shown(const std::optional<QString>& text) {
    return text.value_or(u"none"_s);
}
QString Shown(const std::optional<double>& number) {
    return number ? QString::number(*number, 'f', 2) : u"none"_s;
}

}  // namespace

class TestCFieldCatalogue : public QObject {
    Q_OBJECT

    FieldLabels labels;
    Settings settings;
    const CFieldCatalogue catalogue{labels, settings};
    std::unique_ptr<RegionScope> region;

    void AddFieldColumns() {
        QTest::addColumn<int>("field");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("number");
        QTest::addColumn<QString>("display");
    }

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void init() {
        labels.Clear();
        settings = Settings();
        UseRegion(u'.', true);
    }
    void cleanup() { region.reset(); }
    void Titles_data();
    void Titles();
    void TitleOfTheDistance();
    void OwnLabels_data();
    void OwnLabels();
    void TimeFields_data();
    void TimeFields();
    void ExpenseFields_data();
    void ExpenseFields();
    void EmptyTime_data();
    void EmptyTime();
    void EmptyExpense_data();
    void EmptyExpense();
    void YesAndNo_data();
    void YesAndNo();
    void TimesOfDay_data();
    void TimesOfDay();
    void AmountOfAnExpense_data();
    void AmountOfAnExpense();
    void Distance_data();
    void Distance();
    void Precisions_data();
    void Precisions();

 private:
    void UseRegion(char16_t decimal, bool is24Hour) {
        CRegionalInfo info;
        info.decimalChar = decimal;
        info.usesDotDecimal = decimal == u'.';
        info.is24Hour = is24Hour;
        region.reset();
        region = std::make_unique<RegionScope>(info);
    }
};

void TestCFieldCatalogue::Titles_data() {
    QTest::addColumn<int>("field");
    QTest::addColumn<QString>("title");
    QTest::newRow("date") << 5000 << u"Date"_s;
    QTest::newRow("duration") << 5001 << u"Duration"_s;
    QTest::newRow("effective") << 5002 << u"Net time"_s;
    QTest::newRow("break") << 5003 << u"Break"_s;
    QTest::newRow("start") << 5005 << u"Start"_s;
    QTest::newRow("end") << 5006 << u"End"_s;
    QTest::newRow("distance rate") << 5007 << u"Rate"_s;
    QTest::newRow("a field of a time record: its label") << 111 << u"Activity"_s;
    QTest::newRow("a field of an expense: its label") << 134 << u"Payment"_s;
    QTest::newRow("exported") << 146 << u"Exported"_s;
    QTest::newRow("exported, of expenses") << 148 << u"Exported"_s;
    QTest::newRow("a heading has none by default") << 99 << QString();
    QTest::newRow("a list has no label") << 16 << QString();
    QTest::newRow("before the computed columns") << 4999 << QString();
    QTest::newRow("behind them") << 5008 << QString();
    QTest::newRow("no field at all") << 0 << QString();
    QTest::newRow("a negative one") << -1 << QString();
}

void TestCFieldCatalogue::Titles() {
    QFETCH(int, field);
    QTEST(catalogue.GetFieldTitle(field), "title");
}

void TestCFieldCatalogue::TitleOfTheDistance() {
    QCOMPARE(catalogue.GetFieldTitle(5004), u"miles"_s);
    settings.metricUnits = true;
    QCOMPARE(catalogue.GetFieldTitle(5004), u"km"_s);
}

void TestCFieldCatalogue::OwnLabels_data() {
    QTest::addColumn<int>("field");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("title");
    QTest::newRow("the user's own") << 109 << u"Kunde"_s << u"Kunde"_s;
    QTest::newRow("an empty one: the default") << 109 << u""_s << u"Client"_s;
    QTest::newRow("of a field without default") << 99 << u"Kunde"_s << u"Kunde"_s;
    QTest::newRow("computed columns keep their titles") << 5000 << u"Tag"_s << u"Date"_s;
}

void TestCFieldCatalogue::OwnLabels() {
    QFETCH(int, field);
    QFETCH(QString, label);
    labels.Set(field, label);
    QTEST(catalogue.GetFieldTitle(field), "title");
}

void TestCFieldCatalogue::TimeFields_data() {
    AddFieldColumns();
    const auto row = [](const char* name, int field, const QString& text, const QString& number) {
        QTest::newRow(name) << field << text << number << text;
    };
    const QString none = u"none"_s;
    row("client", 109, u"client"_s, none);
    row("project", 110, u"project"_s, none);
    row("activity", 111, u"activity"_s, none);
    row("cost centre", 112, u"centre"_s, none);
    row("rate", 113, u"40.000"_s, none);
    row("currency", 114, u"EUR"_s, none);
    row("amount: 7:45 at 40", 115, u"310.00"_s, u"310.00"_s);
    row("notes", 116, u"some notes"_s, none);
    row("billable", 117, u"yes"_s, none);
    row("billed", 118, u"no"_s, none);
    row("date", 5000, u"02/29/2028"_s, none);
    row("duration", 5001, u"8.5000"_s, u"8.50"_s);
    row("effective", 5002, u"7.7500"_s, u"7.75"_s);
    row("break", 5003, u"0.7500"_s, u"0.75"_s);
    row("start", 5005, u"09:05"_s, none);
    row("end", 5006, u"17:35"_s, none);
    row("a distance is of expenses", 5004, none, none);
    row("its rate too", 5007, none, none);
    row("a field of expenses", 131, none, none);
    row("the amount of expenses", 136, none, none);
    row("exported has a label alone", 146, none, none);
    row("a heading", 99, none, none);
    row("a list", 16, none, none);
    row("an unknown number", 5008, none, none);
    row("zero", 0, none, none);
}

void TestCFieldCatalogue::TimeFields() {
    QFETCH(int, field);
    const CTRecord record = FullTime();
    QTEST(Shown(catalogue.GetFieldText(record, field)), "text");
    QTEST(Shown(catalogue.GetFieldNumber(record, field)), "number");
    QTEST(Shown(catalogue.GetFieldDisplay(record, field)), "display");
}

void TestCFieldCatalogue::ExpenseFields_data() {
    AddFieldColumns();
    const auto row = [](const char* name, int field, const QString& text) {
        QTest::newRow(name) << field << text << u"none"_s << text;
    };
    const QString none = u"none"_s;
    row("client", 131, u"client"_s);
    row("project", 132, u"project"_s);
    row("description", 133, u"description"_s);
    row("payment", 134, u"payment"_s);
    row("currency", 135, u"EUR"_s);
    QTest::newRow("amount: through the number") << 136 << none << u"50.61"_s << u"50.61"_s;
    row("notes", 137, u"some notes"_s);
    row("first mark", 138, u"yes"_s);
    row("second mark", 139, u"no"_s);
    row("fifth mark", 140, u"no"_s);
    row("third mark", 141, u"yes"_s);
    row("fourth mark", 142, u"yes"_s);
    row("date", 5000, u"02/29/2028"_s);
    QTest::newRow("distance: through the number") << 5004 << none << u"120.50"_s << u"120.5"_s;
    row("distance rate", 5007, u"0.420"_s);
    row("a duration is of time records", 5001, none);
    row("a start too", 5005, none);
    row("a field of time records", 109, none);
    row("the amount of time records", 115, none);
    row("exported has a label alone", 148, none);
    row("a heading", 119, none);
    row("a list", 69, none);
    row("an unknown number", 143, none);
}

void TestCFieldCatalogue::ExpenseFields() {
    QFETCH(int, field);
    const CERecord record = FullExpense();
    QTEST(Shown(catalogue.GetFieldText(record, field)), "text");
    QTEST(Shown(catalogue.GetFieldNumber(record, field)), "number");
    QTEST(Shown(catalogue.GetFieldDisplay(record, field)), "display");
}

void TestCFieldCatalogue::EmptyTime_data() {
    AddFieldColumns();
    const QString none = u"none"_s, empty;
    QTest::newRow("an item") << 109 << empty << none << empty;
    QTest::newRow("no rate") << 113 << empty << none << empty;
    QTest::newRow("no amount: an empty text, the number 0") << 115 << empty << u"0.00"_s << empty;
    QTest::newRow("no notes") << 116 << empty << none << empty;
    QTest::newRow("no date") << 5000 << empty << none << empty;
    QTest::newRow("no duration: dashes, the number 0") << 5001 << u"--:--"_s << u"0.00"_s << u"--:--"_s;
    QTest::newRow("no effective time") << 5002 << u"--:--"_s << u"0.00"_s << u"--:--"_s;
    QTest::newRow("no break") << 5003 << u"--:--"_s << u"0.00"_s << u"--:--"_s;
    QTest::newRow("no start") << 5005 << u"--:--"_s << none << u"--:--"_s;
    QTest::newRow("no end") << 5006 << u"--:--"_s << none << u"--:--"_s;
}

/// A copy, as the document has it, shows the same as the record that was made.
void TestCFieldCatalogue::EmptyTime() {
    QFETCH(int, field);
    CTRecord copy;
    copy.Copy(CTRecord());
    QTEST(Shown(catalogue.GetFieldText(copy, field)), "text");
    QTEST(Shown(catalogue.GetFieldNumber(copy, field)), "number");
    QTEST(Shown(catalogue.GetFieldDisplay(copy, field)), "display");
}

void TestCFieldCatalogue::EmptyExpense_data() {
    AddFieldColumns();
    const QString none = u"none"_s, empty;
    QTest::newRow("an item") << 131 << empty << none << empty;
    QTest::newRow("no amount counts as 0") << 136 << none << u"0.00"_s << u"0"_s;
    QTest::newRow("no distance counts as 0") << 5004 << none << u"0.00"_s << u"0"_s;
    QTest::newRow("no distance rate") << 5007 << empty << none << empty;
    QTest::newRow("no date") << 5000 << empty << none << empty;
    QTest::newRow("no mark") << 140 << u"no"_s << none << u"no"_s;
}

void TestCFieldCatalogue::EmptyExpense() {
    QFETCH(int, field);
    const CERecord record;
    QTEST(Shown(catalogue.GetFieldText(record, field)), "text");
    QTEST(Shown(catalogue.GetFieldNumber(record, field)), "number");
    QTEST(Shown(catalogue.GetFieldDisplay(record, field)), "display");
}

void TestCFieldCatalogue::YesAndNo_data() {
    QTest::addColumn<int>("field");
    QTest::addColumn<int>("place");
    QTest::newRow("first mark") << 138 << 0;
    QTest::newRow("second mark") << 139 << 1;
    QTest::newRow("third mark") << 141 << 2;
    QTest::newRow("fourth mark") << 142 << 3;
    QTest::newRow("fifth mark") << 140 << 4;
}

/// The numbers of the marks don't come in the order of the marks: each is asked alone.
void TestCFieldCatalogue::YesAndNo() {
    QFETCH(int, field);
    QFETCH(int, place);
    CERecord record;
    bool* const flags[] = {&record.flag1, &record.flag2, &record.flag3, &record.flag4, &record.flag5};
    *flags[place] = true;
    for (const int each : {138, 139, 140, 141, 142})
        QCOMPARE(Shown(catalogue.GetFieldText(record, each)), each == field ? u"yes"_s : u"no"_s);
}

void TestCFieldCatalogue::TimesOfDay_data() {
    QTest::addColumn<int>("hour");
    QTest::addColumn<bool>("isPm");
    QTest::addColumn<bool>("is24Hour");
    QTest::addColumn<QString>("text");
    QTest::newRow("24 hours: morning") << 9 << false << true << u"09:05"_s;
    QTest::newRow("24 hours: afternoon") << 9 << true << true << u"21:05"_s;
    QTest::newRow("24 hours: noon stays 12") << 12 << true << true << u"12:05"_s;
    QTest::newRow("24 hours: midnight is 0") << 12 << false << true << u"00:05"_s;
    QTest::newRow("12 hours: morning") << 9 << false << false << u"09:05 AM"_s;
    QTest::newRow("12 hours: afternoon") << 9 << true << false << u"09:05 PM"_s;
    QTest::newRow("12 hours: noon") << 12 << true << false << u"12:05 PM"_s;
    QTest::newRow("12 hours: midnight") << 12 << false << false << u"12:05 AM"_s;
}

void TestCFieldCatalogue::TimesOfDay() {
    QFETCH(int, hour);
    QFETCH(bool, isPm);
    QFETCH(bool, is24Hour);
    UseRegion(u'.', is24Hour);
    CTRecord start, end;
    start.SetStart(hour, 5, isPm);
    end.SetEnd(hour, 5, isPm);
    QTEST(Shown(catalogue.GetFieldText(start, 5005)), "text");
    QTEST(Shown(catalogue.GetFieldText(end, 5006)), "text");
    QCOMPARE(Shown(catalogue.GetFieldText(start, 5006)), u"--:--"_s);
}

void TestCFieldCatalogue::AmountOfAnExpense_data() {
    QTest::addColumn<float>("amount");
    QTest::addColumn<QString>("decimal");
    QTest::addColumn<QString>("display");
    QTest::newRow("cents") << 12.1F << u"."_s << u"12.1"_s;
    QTest::newRow("six significant digits") << 12345.67F << u"."_s << u"12345.7"_s;
    QTest::newRow("whole") << 100.0F << u"."_s << u"100"_s;
    QTest::newRow("millions") << 1234567.0F << u"."_s << u"1.23457e+06"_s;
    QTest::newRow("with decimal comma") << 12.1F << u","_s << u"12,1"_s;
    QTest::newRow("a negative one reads 0") << -20.0F << u"."_s << u"0"_s;
}

void TestCFieldCatalogue::AmountOfAnExpense() {
    QFETCH(float, amount);
    QFETCH(QString, decimal);
    UseRegion(decimal[0].unicode(), true);
    CERecord record;
    record.amount.Set(amount);
    QTEST(Shown(catalogue.GetFieldDisplay(record, 136)), "display");
    QVERIFY(!catalogue.GetFieldText(record, 136));
}

void TestCFieldCatalogue::Distance_data() {
    QTest::addColumn<bool>("isDistance");
    QTest::addColumn<float>("distance");
    QTest::addColumn<QString>("number");
    QTest::addColumn<QString>("rate");
    QTest::newRow("a distance entry") << true << 10.0F << u"10.00"_s << u"0.500"_s;
    QTest::newRow("a distance of 0 has no rate to show") << true << 0.0F << u"0.00"_s << QString();
    QTest::newRow("no distance entry, though distance and rate were kept")
        << false << 10.0F << u"0.00"_s << u"0.500"_s;
    QTest::newRow("a negative distance has its rate") << true << -10.0F << u"-10.00"_s << u"0.500"_s;
}

void TestCFieldCatalogue::Distance() {
    QFETCH(bool, isDistance);
    QFETCH(float, distance);
    CERecord record;
    record.isDistance = isDistance;
    record.distance.Set(distance);
    record.rate.Set(0.5F);
    QTEST(Shown(catalogue.GetFieldNumber(record, 5004)), "number");
    QTEST(Shown(catalogue.GetFieldText(record, 5007)), "rate");
}

void TestCFieldCatalogue::Precisions_data() {
    QTest::addColumn<int>("field");
    QTest::addColumn<int>("places");
    QTest::newRow("duration") << 5001 << 6;
    QTest::newRow("effective") << 5002 << 6;
    QTest::newRow("break") << 5003 << 6;
    QTest::newRow("distance") << 5004 << 5;
    QTest::newRow("rate of a time") << 113 << 4;
    QTest::newRow("rate of a distance") << 5007 << 4;
    QTest::newRow("amount of a time") << 115 << 3;
    QTest::newRow("amount of an expense") << 136 << 3;
    QTest::newRow("a text has none") << 109 << -1;
    QTest::newRow("nor has a date") << 5000 << -1;
    QTest::newRow("nor a time of day") << 5005 << -1;
    QTest::newRow("nor a list of amounts") << 73 << -1;
}

void TestCFieldCatalogue::Precisions() {
    QFETCH(int, field);
    settings.precisionDuration = 6;
    settings.precisionDistance = 5;
    settings.precisionRate = 4;
    settings.precisionAmount = 3;
    QTEST(catalogue.Precision(field).value_or(-1), "places");
}

TEST_CLASS(TestCFieldCatalogue);
#include "TestCFieldCatalogue.moc"
