#include "config/CColSet.h"

#include "ColumnBytes.h"
#include "config/CColumnNames.h"
#include "config/Settings.h"
#include "lang/LoadText.h"
#include "support/TestProgram.h"

#include <QHash>
#include <QTest>

using namespace ColumnBytes;

namespace {

constexpr ColumnHalf kTime = ColumnHalf::Time;
constexpr ColumnHalf kExpense = ColumnHalf::Expense;

/// "0 6 1 ...": the visible columns of a half.
QString OrderOf(const CColSet& set, ColumnHalf half) {
    QStringList columns;
    for (const int column : set.Order(half)) columns.append(QString::number(column));
    return columns.join(u' ');
}

/// The same as a walk finds them.
QString TimeWalk(CColSet& set) {
    QStringList columns;
    for (set.BeginTime(); set.CurrentTime() != 600; set.NextTime())
        columns.append(QString::number(set.CurrentTime()));
    return columns.join(u' ');
}
QString ExpenseWalk(CColSet& set) {
    QStringList columns;
    for (set.BeginExpense(); set.CurrentExpense() != 600; set.NextExpense())
        columns.append(QString::number(set.CurrentExpense()));
    return columns.join(u' ');
}

CColSet Defaults() {
    CColSet set;
    set.SetDefaults();
    return set;
}

/// A set loaded from rows.
CColSet Loaded(const QByteArray& rows) {
    CColSet set;
    [&] { QVERIFY(set.LoadBlob(Blob(rows + NoBreaks()))); }();
    return set;
}

class Names final : public CColumnNames {
 public:
    QHash<int, QString> names;
    QString ColumnName(int field) const override { return names.value(field); }
};

}  // namespace

class TestCColSet final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void defaults();
    void defaultsTwiceDoubleTheBreaks();
    void emptySet();
    void entryOutOfRange_data();
    void entryOutOfRange();
    void findByCaption();
    void walks();
    void repair();
    void repairOfTheOldOrder_data();
    void repairOfTheOldOrder();
    void kindOfABlobNeverCounts();
    void loadReplacesTheBreaks();
    void damagedPositions_data();
    void damagedPositions();
    void move_data();
    void move();
    void hide();
    void show();
    void showInAnEmptyHalf();
    void setColumnThatStays();
    void setColumnKeepsWhatCouldNotBeLoaded();
    void setColumnNotFound();
    void setWidth();
    void longCaptions_data();
    void longCaptions();
    void assignOrder_data();
    void assignOrder();
    void showExactly_data();
    void showExactly();
    void applyCaptions();
    void applyCaptionsWithoutNames();
};

void TestCColSet::defaults() {
    const CColSet set = Defaults();
    QCOMPARE(OrderOf(set, kTime), QStringLiteral("0 6 1 13 14 4 5 9 10"));
    QCOMPARE(OrderOf(set, kExpense), QStringLiteral("17 18 27 28 19 20 21 25"));
    QCOMPARE(set.Breaks(kTime), (std::vector<std::int32_t>{5, 7, 9}));
    QCOMPARE(set.Breaks(kExpense), (std::vector<std::int32_t>{4, 6, 8}));
    QVERIFY((set.EntryAt(6) == ColumnEntry{QStringLiteral("Start"), 1, 65, 2, 7}));
    QVERIFY((set.EntryAt(33) == ColumnEntry{QStringLiteral("Exported"), 0, 30, 0, 3}));
    QCOMPARE(set.OrderPosition(kTime, 1), 2);
    QCOMPARE(set.OrderPosition(kTime, 2), -1);
    QCOMPARE(set.OrderPosition(kExpense, 25), 7);
    QCOMPARE(set.OrderPosition(kExpense, 1), -1);
    QVERIFY(!set.IsExcluded(0));
}

void TestCColSet::defaultsTwiceDoubleTheBreaks() {
    CColSet set = Defaults();
    set.SetDefaults();
    QCOMPARE(set.Breaks(kTime), (std::vector<std::int32_t>{5, 7, 9, 5, 7, 9}));
    QCOMPARE(set.Breaks(kExpense), (std::vector<std::int32_t>{4, 6, 8, 4, 6, 8}));
}

void TestCColSet::emptySet() {
    CColSet set;
    QCOMPARE(OrderOf(set, kTime), QString());
    QCOMPARE(TimeWalk(set), QString());
    set.MoveUp(kTime, 1);
    set.MoveDown(kTime, 0);
    QVERIFY(!set.IsVisible(0));
}

void TestCColSet::entryOutOfRange_data() {
    QTest::addColumn<int>("column");
    QTest::newRow("-1") << -1;
    QTest::newRow("34") << 34;
    QTest::newRow("no column") << 600;
    QTest::newRow("the least number") << INT_MIN;
}

void TestCColSet::entryOutOfRange() {
    QFETCH(int, column);
    CColSet set = Defaults();
    QVERIFY((set.EntryAt(column) == ColumnEntry{QString(), 0, 0, 0, 1}));
    QCOMPARE(set.KindOf(column), 1);
    QVERIFY(!set.IsVisible(column));
    QCOMPARE(set.OrderPosition(kTime, column), -1);
    set.SetWidth(column, 10);
}

void TestCColSet::findByCaption() {
    const CColSet set = Defaults();
    QCOMPARE(set.IndexOfCaption(kTime, QStringLiteral("Amount")), 12);
    QCOMPARE(set.IndexOfCaption(kExpense, QStringLiteral("Amount")), 18);
    QCOMPARE(set.IndexOfCaption(kTime, QStringLiteral("Payment")), -1);
    QCOMPARE(set.IndexOfCaption(kTime, QStringLiteral("amount")), -1);
    QCOMPARE(set.FindByCaption(kExpense, QStringLiteral("Amount")).width, 60);
    QVERIFY(set.FindByCaption(kTime, QStringLiteral("Payment")) == ColumnEntry());
}

void TestCColSet::walks() {
    CColSet set = Defaults();
    QCOMPARE(TimeWalk(set), QStringLiteral("0 6 1 13 14 4 5 9 10"));
    QCOMPARE(ExpenseWalk(set), QStringLiteral("17 18 27 28 19 20 21 25"));
    QCOMPARE(TimeWalk(set), QStringLiteral("0 6 1 13 14 4 5 9 10"));
    // The two halves walk apart.
    set.BeginTime();
    set.NextTime();
    set.BeginExpense();
    QCOMPARE(set.CurrentTime(), 6);
    QCOMPARE(set.CurrentExpense(), 17);
}

void TestCColSet::repair() {
    CColSet set = Defaults();
    QByteArray rows = Rows();
    PutRow(rows, 4, Row('C', 1, -5, 1, 9));
    set = Loaded(rows);
    set.Repair();
    QVERIFY((set.EntryAt(4) == ColumnEntry{QStringLiteral("C"), 1, 60, 1, 5}));
    QVERIFY((set.EntryAt(0) == ColumnEntry{QStringLiteral("A"), 0, 50, 0, 8}));
    // A name that wasn't found leaves an empty caption; the default stands in.
    const Names names;
    set.SetCatalogue(&names);
    QVERIFY(set.ApplyCaptions(Settings()));
    QCOMPARE(set.EntryAt(4).caption, QString());
    set.Repair();
    QCOMPARE(set.EntryAt(4).caption, QStringLiteral("Client"));
}

void TestCColSet::repairOfTheOldOrder_data() {
    QTest::addColumn<QString>("second");
    QTest::addColumn<QString>("third");
    QTest::addColumn<QString>("captions");
    QTest::addColumn<int>("shown");
    const QString net = QStringLiteral("Net"), pause = QStringLiteral("Break");
    QTest::newRow("a shown break stays shown") << pause << net << QStringLiteral("Net|Break") << 3;
    QTest::newRow("the order of today stays") << net << pause << QStringLiteral("Net|Break") << 2;
    QTest::newRow("other words stay")
        << pause << QStringLiteral("Pause") << QStringLiteral("Break|Pause") << 2;
}

void TestCColSet::repairOfTheOldOrder() {
    QFETCH(QString, second);
    QFETCH(QString, third);
    CColSet set = Defaults();
    set.ShowExactly(kTime, {0, 2});
    set.SetColumn(kTime, set.EntryAt(3).caption, {third, 62, 0, false});
    set.SetColumn(kTime, 2, {second, 61, 2, true});
    set.Repair();
    QTEST(set.EntryAt(2).caption + u'|' + set.EntryAt(3).caption, "captions");
    QFETCH(int, shown);
    QCOMPARE(set.Order(kTime), (std::vector{0, shown}));
    QCOMPARE(set.EntryAt(shown).width, 61);
}

void TestCColSet::kindOfABlobNeverCounts() {
    QByteArray rows = Rows();
    PutRow(rows, 13, Row('B', 1, 30, 1, 9));
    CColSet set = Loaded(rows);
    QCOMPARE(set.KindOf(13), 9);
    set.Repair();
    QCOMPARE(set.KindOf(13), 3);
}

void TestCColSet::loadReplacesTheBreaks() {
    CColSet set = Defaults();
    QVERIFY(set.LoadBlob(Blob(Rows() + Number(1) + Number(3) + Number(0))));
    QCOMPARE(set.Breaks(kTime), (std::vector<std::int32_t>{3}));
    QCOMPARE(set.Breaks(kExpense), std::vector<std::int32_t>());
    QCOMPARE(OrderOf(set, kTime), QString());
}

void TestCColSet::damagedPositions_data() {
    QTest::addColumn<QList<int>>("positions");  // of columns 0, 1, 2, all visible
    QTest::addColumn<QString>("order");
    QTest::addColumn<QString>("walk");
    QTest::newRow("in order") << QList<int>{1, 2, 3} << "0 1 2"
                              << "0 1 2";
    QTest::newRow("one place twice: the walk finds the first of them") << QList<int>{1, 1, 2} << "0 1 2"
                                                                       << "0 2";
    QTest::newRow("equal ones behind a smaller one: the exchange turns them")
        << QList<int>{2, 2, 1} << "2 1 0"
        << "2 0";
    QTest::newRow("a gap ends the walk") << QList<int>{1, 2, 4} << "0 1 2"
                                         << "0 1";
    QTest::newRow("negative ones are out of the walk") << QList<int>{-7, 1, INT_MIN} << "2 0 1"
                                                       << "1";
    QTest::newRow("the greatest number") << QList<int>{1, INT_MAX, 2} << "0 2 1"
                                         << "0 2";
}

/// Whatever a damaged set says, it holds still, and nothing is done outside it.
void TestCColSet::damagedPositions() {
    QFETCH(QList<int>, positions);
    QByteArray rows = Rows();
    for (int i = 0; i < 3; ++i) PutRow(rows, i, Row(static_cast<char>('P' + i), 1, 50, positions[i], 5));
    CColSet set = Loaded(rows);
    QTEST(OrderOf(set, kTime), "order");
    QTEST(TimeWalk(set), "walk");
    for (const int position : {INT_MIN, -1, 0, 1, 2, 3, INT_MAX}) {
        set.MoveUp(kTime, position);
        set.MoveDown(kTime, position);
    }
    set.SetColumn(kTime, QStringLiteral("A"), {QStringLiteral("shown"), 10, 0, true});
    set.SetColumn(kTime, QStringLiteral("P"), {QStringLiteral("gone"), 10, 0, false});
    QCOMPARE(set.Order(kTime).size(), 3U);
    QVERIFY(set.IsVisible(3));
}

void TestCColSet::move_data() {
    QTest::addColumn<bool>("isUp");
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("order");
    const QString unchanged = QStringLiteral("17 18 27 28 19 20 21 25");
    QTest::newRow("up at the first changes nothing") << true << 1 << unchanged;
    QTest::newRow("up at 0") << true << 0 << unchanged;
    QTest::newRow("up at the second") << true << 2 << "18 17 27 28 19 20 21 25";
    QTest::newRow("up at the last") << true << 8 << "17 18 27 28 19 20 25 21";
    QTest::newRow("up behind the last") << true << 9 << unchanged;
    QTest::newRow("down at the last changes nothing") << false << 8 << unchanged;
    QTest::newRow("down behind the last") << false << 100 << unchanged;
    QTest::newRow("down at 0") << false << 0 << unchanged;
    QTest::newRow("down at the first") << false << 1 << "18 17 27 28 19 20 21 25";
    QTest::newRow("down at the last but one") << false << 7 << "17 18 27 28 19 20 25 21";
}

void TestCColSet::move() {
    QFETCH(bool, isUp);
    QFETCH(int, position);
    CColSet set = Defaults();
    isUp ? set.MoveUp(kExpense, position) : set.MoveDown(kExpense, position);
    QTEST(OrderOf(set, kExpense), "order");
    QTEST(ExpenseWalk(set), "order");
    QCOMPARE(OrderOf(set, kTime), QStringLiteral("0 6 1 13 14 4 5 9 10"));
}

void TestCColSet::hide() {
    CColSet set = Defaults();
    set.SetColumn(kTime, 3, {QStringLiteral("Hours"), 99, 3, false});
    QCOMPARE(OrderOf(set, kTime), QStringLiteral("0 6 13 14 4 5 9 10"));
    QCOMPARE(TimeWalk(set), QStringLiteral("0 6 13 14 4 5 9 10"));
    QVERIFY((set.EntryAt(1) == ColumnEntry{QStringLiteral("Hours"), 0, 99, 0, 9}));  // keeps its width
    QCOMPARE(set.EntryAt(10).position, 8);
    QCOMPARE(set.EntryAt(17).position, 1);  // the other half stays
}

void TestCColSet::show() {
    CColSet set = Defaults();
    set.SetColumn(kExpense, QStringLiteral("Rate"), {QStringLiteral("Per km"), 55, 2, true});
    QCOMPARE(OrderOf(set, kExpense), QStringLiteral("17 18 27 28 19 20 21 25 24"));
    QVERIFY((set.EntryAt(24) == ColumnEntry{QStringLiteral("Per km"), 1, 55, 9, 9}));
}

void TestCColSet::showInAnEmptyHalf() {
    CColSet set = Loaded(Rows());
    set.SetColumn(kTime, QStringLiteral("A"), {QStringLiteral("First"), 20, 7, true});
    QCOMPARE(set.EntryAt(0).position, 1);
    QCOMPARE(OrderOf(set, kTime), QStringLiteral("0"));
}

void TestCColSet::setColumnThatStays() {
    CColSet set = Defaults();
    set.SetColumn(kTime, 1, {QStringLiteral("Day"), 81, 20, true});
    QVERIFY((set.EntryAt(0) == ColumnEntry{QStringLiteral("Day"), 1, 81, 20, 8}));
    QCOMPARE(OrderOf(set, kTime), QStringLiteral("6 1 13 14 4 5 9 10 0"));
}

void TestCColSet::setColumnKeepsWhatCouldNotBeLoaded() {
    CColSet set = Defaults();
    set.SetColumn(kTime, 1, {QString(), 0, 1, true});
    QVERIFY((set.EntryAt(0) == ColumnEntry{QStringLiteral("Date"), 1, 80, 1, 8}));
}

void TestCColSet::setColumnNotFound() {
    CColSet set = Defaults();
    for (const int position : {0, -1, 10, INT_MAX})
        set.SetColumn(kTime, position, {QStringLiteral("x"), 1, 1, false});
    set.SetColumn(kTime, QStringLiteral("Payment"), {QStringLiteral("x"), 1, 1, true});
    QByteArray after;
    QVERIFY(set.MakeBlob(after));
    QCOMPARE(after, Default("list"));
}

void TestCColSet::setWidth() {
    CColSet set = Defaults();
    set.SetWidth(0, 123);
    set.SetWidth(1, 0);
    set.SetWidth(2, -9);
    QCOMPARE(set.EntryAt(0).width, 123);
    QCOMPARE(set.EntryAt(1).width, 44);
    QCOMPARE(set.EntryAt(2).width, 44);
}

void TestCColSet::longCaptions_data() {
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("caption");
    QTest::newRow("16 units") << "1234567890123456"
                              << "1234567890123456";
    QTest::newRow("17 units are cut") << "12345678901234567"
                                      << "1234567890123456";
    QTest::newRow("an emoji at the cut goes whole")
        << QStringLiteral("123456789012345\U0001F600") << "123456789012345";
    QTest::newRow("an emoji before it stays")
        << QStringLiteral("12345678901234\U0001F600!") << QStringLiteral("12345678901234\U0001F600");
    QTest::newRow("umlauts and quotes") << QStringLiteral("\"Ä'öß%\"") << QStringLiteral("\"Ä'öß%\"");
}

void TestCColSet::longCaptions() {
    QFETCH(QString, given);
    CColSet set = Defaults();
    set.SetColumn(kTime, 1, {given, 80, 1, true});
    QTEST(set.EntryAt(0).caption, "caption");
    QByteArray blob;
    QVERIFY(set.MakeBlob(blob));
    CColSet read;
    QVERIFY(read.LoadBlob(blob));
    QTEST(read.EntryAt(0).caption, "caption");
}

void TestCColSet::assignOrder_data() {
    QTest::addColumn<QString>("hidden");  // captions
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("order");
    const char* const all = "Date Amount Billable Billed Client Project Description Payment";
    QTest::newRow("nothing named, nothing changes") << ""
                                                    << ""
                                                    << "17 18 27 28 19 20 21 25";
    QTest::newRow("turned round") << ""
                                  << "Payment Description Project Client Billed Billable Amount Date"
                                  << "25 21 20 19 28 27 18 17";
    QTest::newRow("two hidden, one shown anew") << "Client Project"
                                                << "Notes Date Amount Billable Billed Description Payment"
                                                << "32 17 18 27 28 21 25";
    QTest::newRow("all hidden") << all << ""
                                << "";
    QTest::newRow("captions of the other half mean nothing") << "Hours Break"
                                                             << ""
                                                             << "17 18 27 28 19 20 21 25";
    QTest::newRow("in both lists: shown") << all << "Payment Date"
                                          << "25 17";
}

void TestCColSet::assignOrder() {
    QFETCH(QString, hidden);
    QFETCH(QString, shown);
    CColSet set = Defaults();
    set.AssignOrder(kExpense, hidden.split(u' ', Qt::SkipEmptyParts), shown.split(u' ', Qt::SkipEmptyParts));
    QTEST(OrderOf(set, kExpense), "order");
    QTEST(ExpenseWalk(set), "order");
    QCOMPARE(OrderOf(set, kTime), QStringLiteral("0 6 1 13 14 4 5 9 10"));
    for (int column = 17; column < 34; ++column)
        QCOMPARE(set.EntryAt(column).position > 0, set.IsVisible(column));
}

void TestCColSet::showExactly_data() {
    QTest::addColumn<std::vector<int>>("columns");
    QTest::addColumn<QString>("order");
    QTest::newRow("turned round") << std::vector{25, 18, 17} << "25 18 17";
    QTest::newRow("nothing") << std::vector<int>() << "";
    QTest::newRow("equal captions are two columns") << std::vector{23, 22} << "23 22";
    QTest::newRow("one that comes again counts where it came first") << std::vector{18, 17, 18} << "18 17";
    QTest::newRow("what isn't of the half is left out") << std::vector{16, 17, 34, -1, 600} << "17";
}

void TestCColSet::showExactly() {
    QFETCH(std::vector<int>, columns);
    CColSet set = Defaults();
    set.ShowExactly(kExpense, columns);
    QTEST(OrderOf(set, kExpense), "order");
    QTEST(ExpenseWalk(set), "order");
    QCOMPARE(OrderOf(set, kTime), QStringLiteral("0 6 1 13 14 4 5 9 10"));
    for (int column = 17; column < 34; ++column)
        QCOMPARE(set.EntryAt(column).position > 0, set.IsVisible(column));
}

void TestCColSet::applyCaptions() {
    Names names;
    for (int field = 99; field <= 148; ++field) names.names.insert(field, QStringLiteral("F%1").arg(field));
    names.names.insert(113, QStringLiteral("A rate per hour of work"));
    names.names.remove(139);
    CColSet set = Defaults();
    set.SetCatalogue(&names);
    Settings settings;
    settings.metricUnits = true;
    QVERIFY(set.ApplyCaptions(settings));
    const char* const expected[] = {
        "Date", "Hours", "Net",  "Break", "F109",     "F110", "Start", "End",  "A rate per hour ",
        "F111", "F112",  "F114", "F115",  "F117",     "F118", "F116",  "F146", "Date",
        "F136", "F131",  "F132", "F133",  "Distance", "km",   "Rate",  "F134", "F135",
        "F138", "",      "F141", "F142",  "F140",     "F137", "F148"};
    for (int column = 0; column < 34; ++column)
        QCOMPARE(set.EntryAt(column).caption, QString::fromLatin1(expected[column]));
    settings.metricUnits = false;
    QVERIFY(set.ApplyCaptions(settings));
    for (int column = 0; column < 34; ++column)  // nothing but the unit differs
        QCOMPARE(set.EntryAt(column).caption, QString::fromLatin1(column == 23 ? "miles" : expected[column]));
}

void TestCColSet::applyCaptionsWithoutNames() {
    CColSet set = Defaults();
    QVERIFY(!set.ApplyCaptions(Settings()));
    QCOMPARE(set.EntryAt(23).caption, QStringLiteral("Distance"));
}

TEST_CLASS(TestCColSet);
#include "TestCColSet.moc"
