#include "viewmodel/tree/TreePath.h"

#include "app/ExpenseFilter.h"
#include "app/TimeFilter.h"
#include "config/Settings.h"
#include "records/CERecord.h"
#include "records/CPRecord.h"
#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"
#include "viewmodel/tree/TreeTexts.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

/// "4=Client A; 13=Billable": a path.
TreePath Path(const QString& words) {
    TreePath path;
    for (const QString& step : words.split(u"; "_s, Qt::SkipEmptyParts))
        path.push_back({step.section(u'=', 0, 0).toInt(), step.section(u'=', 1)});
    return path;
}

/// The conditions of a filter that aren't any: "item1=Client A billable=1".
QString Conditions(const TimeFilter& filter) {
    QStringList words;
    for (std::size_t i = 0; i < 5; ++i)
        if (filter.items[i] != LoadText(Text::AnyWord))
            words << u"item%1=%2"_s.arg(i + 1).arg(filter.items[i]);
    const std::pair<const char*, int> flags[] = {{"billable", filter.billable},
                                                 {"billed", filter.billed},
                                                 {"exported", filter.exported},
                                                 {"timer", filter.timer}};
    for (const auto& [name, value] : flags)
        if (value != 100) words << QString::fromLatin1(name) + u"=%1"_s.arg(value);
    return words.join(u' ');
}

QString Conditions(const ExpenseFilter& filter) {
    QStringList words;
    for (std::size_t i = 0; i < 5; ++i)
        if (filter.items[i] != LoadText(Text::AnyWord))
            words << u"item%1=%2"_s.arg(i + 1).arg(filter.items[i]);
    if (filter.amount != -1.0F) words << u"amount"_s;
    if (filter.distance != 100) words << u"distance=%1"_s.arg(filter.distance);
    for (std::size_t i = 0; i < 5; ++i)
        if (filter.flags[i] != 100) words << u"flag%1=%2"_s.arg(i + 1).arg(filter.flags[i]);
    if (filter.exported != 100) words << u"exported=%1"_s.arg(filter.exported);
    return words.join(u' ');
}

}  // namespace

class TestTreePath final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void applyToTime_data();
    void applyToTime();
    void applyToExpenses_data();
    void applyToExpenses();
    void periodStays();
    void fillTime_data();
    void fillTime();
    void fillBreak();
    void fillTimeByTheClock();
    void fillExpense_data();
    void fillExpense();
    void fillByKind();
    void rootFillsNothing();
    void aNodeShowsItsRecords();
};

void TestTreePath::applyToTime_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("conditions");
    QTest::newRow("the root clears everything") << u""_s << u""_s;
    QTest::newRow("one text") << u"4=Client A"_s << u"item1=Client A"_s;
    QTest::newRow("all texts") << u"4=a; 5=b; 9=c; 10=d; 11=e"_s
                               << u"item1=a item2=b item3=c item4=d item5=e"_s;
    QTest::newRow("an empty text is a condition") << u"5="_s << u"item2="_s;
    QTest::newRow("billable") << u"13=Billable"_s << u"billable=1"_s;
    QTest::newRow("not billable") << u"13=Not billable"_s << u"billable=0"_s;
    QTest::newRow("billed, which is the only text there") << u"14=Billed"_s << u"billed=1"_s;
    QTest::newRow("another text of that level") << u"14=Not billed"_s << u"billed=0"_s;
    QTest::newRow("flags and texts") << u"13=Billable; 9=Design"_s << u"item3=Design billable=1"_s;
    QTest::newRow("columns of expenses are none of time") << u"19=a; 27=Billable"_s << u""_s;
    QTest::newRow("a column that makes no level") << u"0=11/19/26; 16=x"_s << u""_s;
}

void TestTreePath::applyToTime() {
    QFETCH(QString, path);
    TimeFilter filter;
    filter.items.fill(u"old"_s);
    filter.billable = filter.billed = filter.exported = filter.timer = 1;
    ApplyPath(Path(path), filter);
    QTEST(Conditions(filter), "conditions");
}

void TestTreePath::applyToExpenses_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("conditions");
    QTest::newRow("the root clears everything") << u""_s << u""_s;
    QTest::newRow("all texts") << u"19=a; 20=b; 21=c; 25=d; 26=e"_s
                               << u"item1=a item2=b item3=c item4=d item5=e"_s;
    QTest::newRow("a trip") << u"22=Distance entry"_s << u"distance=1"_s;
    QTest::newRow("no trip") << u"22=No distance entry"_s << u"distance=0"_s;
    QTest::newRow("all flags set") << u"27=Billable; 28=Billed; 29=Reimbursable; 30=Reimbursed; 31=Personal"_s
                                   << u"flag1=1 flag2=1 flag3=1 flag4=1 flag5=1"_s;
    QTest::newRow("all flags clear")
        << u"27=Not billable; 28=Not billed; 29=Not reimbursable; 30=Not reimbursed; 31=Not personal"_s
        << u"flag1=0 flag2=0 flag3=0 flag4=0 flag5=0"_s;
    QTest::newRow("columns of time records") << u"4=a; 13=Billable"_s << u""_s;
}

void TestTreePath::applyToExpenses() {
    QFETCH(QString, path);
    ExpenseFilter filter;
    filter.items.fill(u"old"_s);
    filter.flags.fill(1);
    filter.distance = filter.exported = 1;
    filter.amount = 5.0F;
    filter.comparison = AmountComparison::kLess;
    ApplyPath(Path(path), filter);
    QTEST(Conditions(filter), "conditions");
    QCOMPARE(filter.comparison, 3);
}

/// Selecting the root, as any node, leaves the period.
void TestTreePath::periodStays() {
    const TestHome home;
    for (const QString& path : {u""_s, u"4=A"_s}) {
        TimeFilter time;
        ExpenseFilter expense;
        for (PeriodFilter* filter :
             {static_cast<PeriodFilter*>(&time), static_cast<PeriodFilter*>(&expense)}) {
            QVERIFY(filter->SetSingleDate(u"11/18/2026"_s, home.document->GetPeriodContext()));
            filter->matchCase = true;
        }
        const QString name = time.displayName;
        ApplyPath(Path(path), time);
        ApplyPath(Path(path), expense);
        for (const PeriodFilter* filter :
             {static_cast<PeriodFilter*>(&time), static_cast<PeriodFilter*>(&expense)}) {
            QVERIFY(filter->isEnabled);
            QVERIFY(filter->matchCase);
            QVERIFY(!filter->matchWhole);
            QCOMPARE(filter->preset, 5);
            QCOMPARE(filter->startText, u"11/18/2026"_s);
            QCOMPARE(filter->endText, u"11/18/2026"_s);
            QCOMPARE(filter->displayName, name);
        }
    }
}

void TestTreePath::fillTime_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("items");  // item1|item2|...
    QTest::addColumn<QString>("flags");  // billable, billed
    QTest::addColumn<QString>("duration");
    const auto row = [](const char* name, const QString& path, const QString& items, const QString& flags,
                        const QString& duration) {
        QTest::newRow(name) << path << items << flags << duration;
    };
    row("texts", u"4=a; 5=b; 9=c; 10=d; 11=e"_s, u"a|b|c|d|e"_s, u"00"_s, u"--:--"_s);
    row("an empty text", u"4=a; 5="_s, u"a||||"_s, u"00"_s, u"--:--"_s);
    row("billable", u"13=Billable"_s, u"||||"_s, u"10"_s, u"--:--"_s);
    row("not billable", u"13=Not billable"_s, u"||||"_s, u"00"_s, u"--:--"_s);
    row("billed, whatever the record", u"13=Billable; 14=Billed"_s, u"||||"_s, u"11"_s, u"--:--"_s);
    row("hours", u"1=1.75"_s, u"||||"_s, u"00"_s, u"1:45"_s);
    row("net time is computed, not filled", u"2=2.5000"_s, u"||||"_s, u"00"_s, u"--:--"_s);
    row("a break is no duration", u"3=2.5000"_s, u"||||"_s, u"00"_s, u"--:--"_s);
    row("a third of an hour", u"1=0.3333"_s, u"||||"_s, u"00"_s, u"0:20"_s);
    row("nearly an hour", u"1=0.9999"_s, u"||||"_s, u"00"_s, u"1:00"_s);
    row("no hours", u"1=--:--"_s, u"||||"_s, u"00"_s, u"--:--"_s);
    row("hours that no record can have", u"1=1e30"_s, u"||||"_s, u"00"_s, u"--:--"_s);
    row("hours below 0", u"1=-1"_s, u"||||"_s, u"00"_s, u"--:--"_s);
    row("columns of expenses", u"19=a; 27=Billable"_s, u"||||"_s, u"00"_s, u"--:--"_s);
}

void TestTreePath::fillTime() {
    const RegionScope region{CRegionalInfo()};
    QFETCH(QString, path);
    CTRecord record;
    record.item1 = u"old"_s;
    record.notes = u"old"_s;
    record.SetStart(9, 0, false);
    QVERIFY(FillRecord(Path(path), record, Settings()));
    QTEST((QStringList{record.item1, record.item2, record.item3, record.item4, record.item5}.join(u'|')),
          "items");
    QTEST(QString::number(record.isBillable) + QString::number(record.isBilled), "flags");
    QTEST(record.spans.duration.clockText, "duration");
    QCOMPARE(record.notes, QString());
    QVERIFY(!record.HasStart());
}

void TestTreePath::fillBreak() {
    const RegionScope region{CRegionalInfo()};
    CTRecord record;
    QVERIFY(FillRecord(Path(u"1=8.5; 3=0.75"_s), record, Settings()));
    QCOMPARE(record.spans.breakTime.clockText, u"0:45"_s);
    QCOMPARE(record.spans.effective.clockText, u"7:45"_s);
}

void TestTreePath::fillTimeByTheClock() {
    const RegionScope region{CRegionalInfo()};
    Settings settings;
    CTRecord record;
    QVERIFY(FillRecord(Path(u"6=09:15 AM; 7=05:30 PM"_s), record, settings));
    QCOMPARE(TimeTextOfRecord(record, 3), u"09:15 AM"_s);
    QCOMPARE(TimeTextOfRecord(record, 4), u"05:30 PM"_s);
    QCOMPARE(record.spans.duration.clockText, u"8:15"_s);
    settings.clock24 = true;
    QVERIFY(FillRecord(Path(u"6=17:30"_s), record, settings));
    QCOMPARE(TimeTextOfRecord(record, 3), u"05:30 PM"_s);
    QVERIFY(!record.HasEnd());
    QVERIFY(FillRecord(Path(u"6=--:--"_s), record, settings));
    QVERIFY(!record.HasStart());
}

void TestTreePath::fillExpense_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("items");
    QTest::addColumn<QString>("flags");  // trip, flag1 to flag5
    QTest::addColumn<QString>("distance");
    QTest::newRow("texts") << u"19=a; 20=b; 21=c; 25=d; 26=e"_s << u"a|b|c|d|e"_s << u"000000"_s << u""_s;
    QTest::newRow("flags set")
        << u"22=Distance entry; 27=Billable; 28=Billed; 29=Reimbursable; 30=Reimbursed; 31=Personal"_s
        << u"||||"_s << u"111111"_s << u""_s;
    QTest::newRow("flags clear") << u"22=No distance entry; 28=Not billed"_s << u"||||"_s << u"000000"_s
                                 << u""_s;
    QTest::newRow("a distance") << u"23=120.5"_s << u"||||"_s << u"000000"_s << u"120.50"_s;
    QTest::newRow("no number") << u"23=far"_s << u"||||"_s << u"000000"_s << u""_s;
    QTest::newRow("columns of time records") << u"4=a; 13=Billable"_s << u"||||"_s << u"000000"_s << u""_s;
}

void TestTreePath::fillExpense() {
    const RegionScope region{CRegionalInfo()};
    QFETCH(QString, path);
    CERecord record;
    record.item1 = record.notes = u"old"_s;
    record.isExported = true;
    QVERIFY(FillRecord(Path(path), record));
    QTEST((QStringList{record.item1, record.item2, record.item3, record.item4, record.item5}.join(u'|')),
          "items");
    QString flags;
    for (const bool flag :
         {record.isDistance, record.flag1, record.flag2, record.flag3, record.flag4, record.flag5})
        flags += flag ? u'1' : u'0';
    QTEST(flags, "flags");
    QTEST(record.distance.text, "distance");
    QVERIFY(record.notes.isEmpty() && !record.isExported);
}

void TestTreePath::fillByKind() {
    CTRecord time;
    CERecord expense;
    CPRecord item;
    QVERIFY(FillRecord(Path(u"4=a; 19=b"_s), static_cast<CVORec&>(time), Settings()));
    QVERIFY(FillRecord(Path(u"4=a; 19=b"_s), static_cast<CVORec&>(expense), Settings()));
    QVERIFY(!FillRecord(Path(u"4=a"_s), static_cast<CVORec&>(item), Settings()));
    QVERIFY(!FillRecord({}, static_cast<CVORec&>(time), Settings()));
    QCOMPARE(time.item1, u"a"_s);
    QCOMPARE(expense.item1, u"b"_s);
}

void TestTreePath::rootFillsNothing() {
    CTRecord time;
    time.item1 = u"kept"_s;
    QVERIFY(!FillRecord({}, time, Settings()));
    QCOMPARE(time.item1, u"kept"_s);
    CERecord expense;
    expense.item1 = u"kept"_s;
    QVERIFY(!FillRecord({}, expense));
    QCOMPARE(expense.item1, u"kept"_s);
}

/// With whole texts and case, a node's filter lets exactly its records pass, the empty texts among them.
void TestTreePath::aNodeShowsItsRecords() {
    const TestHome home;
    const Settings settings;
    std::vector<CTRecord> records;
    for (const QString& client : {u""_s, u"a"_s, u"A"_s, u"aa"_s})
        for (const bool billable : {true, false}) {
            CTRecord record;
            record.item1 = client;
            record.SetBillable(billable);
            records.push_back(record);
        }
    for (const CTRecord& chosen : records) {
        TimeFilter filter;
        ApplyPath({{4, ColumnText(chosen, 4, settings)}, {13, ColumnText(chosen, 13, settings)}}, filter);
        filter.matchWhole = filter.matchCase = true;
        for (const CTRecord& record : records)
            QCOMPARE(filter.Matches(record, home.document->GetPeriodContext(), nullptr),
                     record.item1 == chosen.item1 && record.isBillable == chosen.isBillable);
    }
}

TEST_CLASS(TestTreePath);
#include "TestTreePath.moc"
