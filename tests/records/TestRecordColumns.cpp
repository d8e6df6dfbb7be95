#include "records/RecordColumns.h"

#include "lang/LoadText.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/TestProgram.h"

#include <QStringList>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

QString NamesOf(const CVORec& record, ColumnSet columns) {
    QStringList names;
    for (const FieldDef& field : ChosenFields(record, columns)) names += LoadText(field.nameId);
    return names.join(u' ');
}

/// A table of rows with these columns of a record's table, and one row that is filled by the caller.
RowTable TableOf(const CVORec& record, ColumnSet columns) {
    std::vector<RowColumnType> types;
    for (const FieldDef& field : ChosenFields(record, columns)) types.push_back(ColumnTypeOf(field.type));
    return RowTable(types);
}

}  // namespace

class TestRecordColumns : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void ColumnsOfMembers_data();
    void ColumnsOfMembers();
    void OnlyTheseAreLoaded();
    void ADistanceThatCannotBeReadIsNotTheOneBefore();
    void OtherColumnsDoNotFit();
};

void TestRecordColumns::ColumnsOfMembers_data() {
    QTest::addColumn<bool>("isTime");
    QTest::addColumn<ColumnSet>("columns");
    QTest::addColumn<QString>("names");
    const auto time = [](const char* name, ColumnSet columns, const QString& names) {
        QTest::newRow(name) << true << columns << names;
    };
    const auto expense = [](const char* name, ColumnSet columns, const QString& names) {
        QTest::newRow(name) << false << columns << names;
    };
    time("an item", ColumnsOf(&CTRecord::item3), u"item3"_s);
    time("notes", ColumnsOf(&CTRecord::notes), u"notes"_s);
    time("a flag", ColumnsOf(&CTRecord::isBilled), u"billed"_s);
    time("money", ColumnsOf(&CTRecord::rate), u"rate"_s);
    time("a day", ColumnsOf(&CTRecord::date), u"month day year"_s);
    time("a span", ColumnsOf(&SpanSet::duration), u"duration_hours duration_minutes"_s);
    time("the net time needs both others", ColumnsOf(&SpanSet::effective),
         u"duration_hours duration_minutes break_hours break_minutes"_s);
    time("a start", ColumnsOf(&CTRecord::GetStart), u"start_hour start_minute start_pm"_s);
    time("an end", ColumnsOf(&CTRecord::GetEnd), u"end_hour end_minute end_pm"_s);
    time("the identity", IdentityColumn(CTRecord()), u"identity"_s);
    expense("an item of expenses", ColumnsOf(&CERecord::item5), u"item5"_s);
    expense("a flag of expenses", ColumnsOf(&CERecord::isDistance), u"is_distance"_s);
    expense("a distance", ColumnsOf(&CERecord::distance), u"distance"_s);
    expense("money of expenses", ColumnsOf(&CERecord::amount), u"amount"_s);
    expense("a day of expenses", ColumnsOf(&CERecord::date), u"month day year"_s);
}

void TestRecordColumns::ColumnsOfMembers() {
    QFETCH(bool, isTime);
    QFETCH(ColumnSet, columns);
    const QString names = isTime ? NamesOf(CTRecord(), columns) : NamesOf(CERecord(), columns);
    QTEST(names, "names");
}

void TestRecordColumns::OnlyTheseAreLoaded() {
    const ColumnSet columns = ColumnsOf(&CTRecord::item1) | ColumnsOf(&SpanSet::effective);
    CTRecord record;
    record.notes = u"before"_s;
    RowTable rows = TableOf(record, columns);
    rows.PutText(0, "Acme", 4);
    int column = 1;
    for (const int number : {8, 30, 0, 45}) rows.PutInteger(column++, number);
    rows.EndRow();
    QVERIFY(Fits(rows, record, columns));
    LoadColumns(record, rows, 0, columns);
    QCOMPARE(record.item1, u"Acme"_s);
    QCOMPARE(record.spans.effective.clockText, u"7:45"_s);
    QCOMPARE(record.notes, u"before"_s);
}

void TestRecordColumns::ADistanceThatCannotBeReadIsNotTheOneBefore() {
    const ColumnSet columns = ColumnsOf(&CERecord::distance);
    CERecord record;
    RowTable rows = TableOf(record, columns);
    for (const char* text : {"12.50", "far"}) {
        rows.PutText(0, text, qstrlen(text));
        rows.EndRow();
    }
    LoadColumns(record, rows, 0, columns);
    QCOMPARE(record.GetDistance(), 12.5F);
    LoadColumns(record, rows, 1, columns);
    QCOMPARE(record.GetDistance(), 0.0F);
}

void TestRecordColumns::OtherColumnsDoNotFit() {
    const CTRecord record;
    const ColumnSet text = ColumnsOf(&CTRecord::item1), number = ColumnsOf(&CTRecord::rate);
    QVERIFY(!Fits(TableOf(record, text), record, number));
    QVERIFY(!Fits(TableOf(record, text), record, text | number));
    QVERIFY(Fits(TableOf(record, text | number), record, text | number));
}

TEST_CLASS(TestRecordColumns);
#include "TestRecordColumns.moc"
