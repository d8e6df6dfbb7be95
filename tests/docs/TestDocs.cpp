#include "Page.h"
#include "changes/DemoData.h"
#include "config/CCfgStore.h"
#include "config/CTreeColSet.h"
#include "config/ColumnTable.h"
#include "lang/LoadText.h"
#include "records/ByteStream.h"
#include "records/CDRecord.h"
#include "records/CERecord.h"
#include "records/CPRecord.h"
#include "records/CTRecord.h"
#include "records/GuardedBlock.h"
#include "records/RecordFactory.h"
#include "records/RunPack.h"
#include "reports/definition/CReportStore.h"
#include "reports/query/CQueryStore.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <sqlite3.h>

#include <QTest>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Runs a statement as SQLite's own program would; the number of rows, or -1 and the reason.
int RowsOf(CSqliteFile& file, const QString& statement, QString& reason) {
    sqlite3_stmt* prepared = file.Prepare(statement.toUtf8());
    int count = 0, step = SQLITE_ERROR;
    while (prepared && (step = sqlite3_step(prepared)) == SQLITE_ROW) ++count;
    if (step != SQLITE_DONE) reason = QString::fromUtf8(sqlite3_errmsg(file.Handle()));
    if (prepared) sqlite3_reset(prepared);
    return step == SQLITE_DONE ? count : -1;
}

QString Drawn(const DependencyTree::Node& node) {
    QStringList children;
    for (const auto* child = node.FirstChild(); child; child = child->Next()) children += Drawn(*child);
    const QString below = children.join(u", "_s);
    if (!node.Item()) return below;
    return node.Item()->GetText() + (below.isEmpty() ? QString() : u" ("_s + below + u')');
}

}  // namespace

/// What docs/ says of the forms of files, held against the program.
class TestDocs : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;

    void Run(const QString& block) {
        for (const QString& statement : Page::Statements(block)) {
            QString reason;
            QVERIFY2(RowsOf(home->manager.File(), statement, reason) >= 0, qPrintable(reason));
        }
    }

 private Q_SLOTS:
    void initTestCase();
    void init() { home = std::make_unique<TestHome>(); }
    void cleanup() { home.reset(); }
    void Tables_data();
    void Tables();
    void Queries_data();
    void Queries();
    void DependencyExample();
    void OldDependencyExample();
    void Columns();
    void ColumnBytes();
    void RecordBytes_data();
    void RecordBytes();
    void StoredDefaults();
    void ReportsAndQueries();
};

void TestDocs::initTestCase() {
    QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR)));
}

void TestDocs::Tables_data() {
    QTest::addColumn<RecordKind>("kind");
    QTest::addColumn<QString>("heading");
    QTest::newRow("time records") << RecordKind::Time << u"time_velmarch"_s;
    QTest::newRow("expenses") << RecordKind::Expense << u"expense_velmarch"_s;
    QTest::newRow("items") << RecordKind::PulldownItem << u"item_velmarch"_s;
    QTest::newRow("dependencies") << RecordKind::Dependency << u"dependency_velmarch"_s;
}

/// Every column in the order of the table, with its type.
void TestDocs::Tables() {
    QFETCH(RecordKind, kind);
    QFETCH(QString, heading);
    QStringList documented;
    for (const QStringList& row : Page::Table(Page("store.md").Under(heading)))
        documented += row.at(0) + u' ' + row.at(1);
    QStringList made;
    QVERIFY(home->store->QueryTexts(u"SELECT name || ' ' || type FROM pragma_table_info('%1')"_s.arg(heading),
                                    made));
    QCOMPARE(documented, made);
    QCOMPARE(home->store->TableName(kind), heading);
}

void TestDocs::Queries_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("statement");
    for (const char* page : {"store.md", "dependency-trees.md", "settings-tree.md"}) {
        const QString file =
            QLatin1String(page) == QLatin1String("settings-tree.md") ? u"settings"_s : u"store"_s;
        for (const QString& block : Page::Blocks(Page(page).Under(u"Looking things up"_s), u"sql"_s))
            for (const QString& statement : Page::Statements(block))
                QTest::addRow("%s %s", page, qPrintable(statement.trimmed().section(u'\n', 0, 0)))
                    << file << statement;
    }
}

/// Each finds something in a home with something to find.
void TestDocs::Queries() {
    QFETCH(QString, file);
    QFETCH(QString, statement);
    QVERIFY(FillWithDemoData(*home->document, home->clock, {900, 200}, 1) == DemoOutcome::Filled);
    CTRecord record;
    record.date.Set(11, 19, 2026);
    record.item1 = u"In no list"_s;
    record.SetStart(7, 0, false);
    record.SetEnd(6, 0, true);
    record.SetBillable(true);
    record.GenUnique();
    QVERIFY(home->store->InsertRecord(record, Commit::Now));
    CERecord expense;
    expense.date.Set(11, 19, 2026);
    expense.amount.Set(12.0F);
    expense.flag3 = true;
    expense.GenUnique();
    QVERIFY(home->store->InsertRecord(expense, Commit::Now));
    QVERIFY(home->catalogue->AddItem(109, u"Customer"_s, false));
    Run(Page::Blocks(Page("dependency-trees.md").Under(u"An example"_s), u"sql"_s).first());
    QVERIFY(home->settings->WriteEntry(u"TimeDefaults"_s, u"usual"_s, "record"));
    QVERIFY(
        CReportStore(*home->settings, RecordMode::Time, ReportKind::Listing).Save(u"all"_s, CReportDef()));

    QString reason;
    CSqliteFile& database = file == u"store" ? home->manager.File() : home->tree.File();
    QVERIFY2(RowsOf(database, statement, reason) > 0, qPrintable(reason));
}

void TestDocs::DependencyExample() {
    const QStringList blocks = Page::Blocks(Page("dependency-trees.md").Under(u"An example"_s), u"sql"_s);
    QCOMPARE(blocks.size(), qsizetype(2));
    Run(blocks.at(0));
    QVERIFY(home->catalogue->Load());
    QCOMPARE(Drawn(home->catalogue->Tree(DependencySet::Time).Root()), u"Client A (Alpha), Client B"_s);
}

void TestDocs::OldDependencyExample() {
    const QStringList blocks = Page::Blocks(Page("dependency-trees.md").Under(u"An example"_s), u"sql"_s);
    Run(blocks.at(0));
    Run(u"DELETE FROM dependency_velmarch;\n"_s + blocks.at(1));
    QVERIFY(home->catalogue->Load());
    QCOMPARE(Drawn(home->catalogue->Tree(DependencySet::Time).Root()), u"Client A (Alpha), Client B"_s);
}

void TestDocs::Columns() {
    const QList<QStringList> rows = Page::Table(Page("columns.md").Under(u"The 34 columns"_s));
    QCOMPARE(rows.size(), qsizetype(34));
    const auto number = [](int value) { return value == 0 ? QString() : QString::number(value); };
    const std::span<const int> noLevels = ColumnsWithoutLevel();
    CTreeColSet levels;
    levels.SetDefaults();
    for (const ColumnRow& column : ColumnTable()) {
        const bool isLevel = std::ranges::find(noLevels, column.index) == noLevels.end();
        const QStringList expected{QString::number(column.index),
                                   LoadText(column.caption),
                                   number(column.field),
                                   QString::number(column.width),
                                   QString::number(static_cast<int>(column.kind)),
                                   number(column.listPosition),
                                   isLevel ? number(levels.EntryAt(column.index).position) : u"-"_s};
        QCOMPARE(rows.at(column.index), expected);
    }
}

void TestDocs::ColumnBytes() {
    const QString part = Page("columns.md").Under(u"The value, byte for byte"_s);
    CColSet set;
    set.SetDefaults();
    QByteArray blob, guarded, packed;
    QVERIFY(set.MakeBlob(blob));
    QCOMPARE(blob.size(), qsizetype(937));
    const QByteArray documented = Page::Bytes(Page::Blocks(part, QString()).first());
    QVERIFY(documented.size() > 50);
    QCOMPARE(blob.left(documented.size()).toHex(), documented.toHex());
    ByteStream stream;
    stream.Attach(blob);
    QVERIFY(stream.GetBuffer(guarded) && Unguard(guarded, packed) == BlockState::Sound);
    QCOMPARE(packed.size(), qsizetype(913));
    const QByteArray plain = RunUnpack(packed, 4096).value_or(QByteArray());
    QCOMPARE(plain.size(), qsizetype(1562));
    const QString last = part.section(u"unpacked bytes: `"_s, 1).section(u'`', 0, 0);
    QCOMPARE(plain.right(32).toHex(), QByteArray::fromHex(last.toLatin1()).toHex());
}

void TestDocs::RecordBytes_data() {
    QTest::addColumn<QString>("heading");
    QTest::addColumn<int>("block");
    QTest::addColumn<RecordKind>("kind");
    QTest::addColumn<QString>("shown");
    QTest::newRow("time record") << u"A time record"_s << 0 << RecordKind::Time
                                 << u"2026-11-19 9:05-5:35pm 8:30 A E 1.5 n"_s;
    QTest::newRow("expense") << u"An expense"_s << 0 << RecordKind::Expense
                             << u"2026-11-19 T 12.5 x 0.5 = 6.25 from 7"_s;
    QTest::newRow("item, text") << u"An item of a pick list"_s << 0 << RecordKind::PulldownItem << u"16: A"_s;
    QTest::newRow("item, number") << u"An item of a pick list"_s << 1 << RecordKind::PulldownItem
                                  << u"70: 1.5"_s;
    QTest::newRow("dependencies") << u"A block of dependencies"_s << 0 << RecordKind::Dependency
                                  << u"55: abc"_s;
}

/// The bytes read as what the page says, and the record writes them.
void TestDocs::RecordBytes() {
    QFETCH(QString, heading);
    QFETCH(int, block);
    QFETCH(RecordKind, kind);
    QFETCH(QString, shown);
    const QByteArray bytes =
        Page::Bytes(Page::Blocks(Page("byte-stream.md").Under(heading), QString()).value(block));
    const std::unique_ptr<CVORec> record = NewRecord(kind);
    if (kind == RecordKind::Dependency) static_cast<CDRecord&>(*record).SetPacked(false);
    QVERIFY(record->FromBytes(bytes, false));
    QCOMPARE(record->ToBytes().toHex(), bytes.toHex());

    QString found;
    const auto date = [](const RecordDate& d) {
        return QString::asprintf("%d-%d-%d", d.year, d.month, d.day);
    };
    const auto g = [](float number) { return QString::number(static_cast<double>(number)); };
    if (kind == RecordKind::Time) {
        const auto& time = static_cast<const CTRecord&>(*record);
        found = u"%1 %2:%3-%4:%5%6 %7 %8 %9"_s.arg(date(time.date))
                    .arg(time.startHour)
                    .arg(time.startMinute, 2, 10, QChar(u'0'))
                    .arg(time.endHour)
                    .arg(time.endMinute, 2, 10, QChar(u'0'))
                    .arg(time.endIsPm ? u"pm"_s : u"am"_s, time.spans.duration.clockText, time.item1,
                         time.item5) +
                u' ' + g(time.rate.value) + u' ' + time.notes;
        QVERIFY(time.isBillable && !time.isBilled && time.isExported && !time.spans.breakTime.IsSet());
    } else if (kind == RecordKind::Expense) {
        const auto& expense = static_cast<const CERecord&>(*record);
        found = u"%1 %2 %3 x %4 = %5 from %6"_s.arg(date(expense.date), expense.item3,
                                                    g(expense.GetDistance()), g(expense.rate.value),
                                                    g(expense.amount.value), expense.odometerStart);
        QVERIFY(expense.isDistance && expense.flag5 && !expense.flag1 && !expense.isExported);
    } else if (kind == RecordKind::PulldownItem) {
        const auto& item = static_cast<const CPRecord&>(*record);
        found = u"%1: %2"_s.arg(item.listId).arg(item.GetText());
    } else {
        const auto& rows = static_cast<const CDRecord&>(*record);
        found = u"%1: %2"_s.arg(rows.number).arg(QString::fromLatin1(rows.data));
    }
    QCOMPARE(found, shown);
}

/// The names of keys and values that the page gives are the program's.
void TestDocs::StoredDefaults() {
    const QString part = Page("settings-tree.md").Under(u"The base key"_s);
    for (const Text name : {Text::KeyTimeDefaults, Text::KeyExpenseDefaults, Text::ValueEntry,
                            Text::DefaultsEmptyRecord, Text::ValueListColumns, Text::ValueTreeColumns})
        QVERIFY2(part.contains(u'`' + LoadText(name) + u'`'), qPrintable(LoadText(name)));
}

/// Each value of a definition and of the queries of both modes stands on the page with its type.
void TestDocs::ReportsAndQueries() {
    const Page page("settings-tree.md");
    QStringList documented;
    for (const QString& heading : {u"Definitions of reports"_s, u"Stored queries"_s})
        for (const QString& line : page.Under(heading).split(u'\n'))
            for (const QString& name : line.section(u'|', 1, 1).split(u", "_s))
                documented += name.section(u'`', 1, 1) + u' ' + line.section(u'|', 2, 2).trimmed();
    CCfgStore& settings = *home->settings;
    const EntryContent contents[] = {
        CReportStore(settings, RecordMode::Time, ReportKind::Listing).SaveRequest({}, CReportDef()).values,
        CQueryStore(settings, RecordMode::Time).SaveRequest({}, TimeQuery()).values,
        CQueryStore(settings, RecordMode::Expense).SaveRequest({}, ExpenseQuery()).values};
    for (const EntryContent& content : contents)
        for (const auto& [name, value] : content.Values()) {
            const QString type = std::holds_alternative<QString>(value) ? u" text"_s : u" binary"_s;
            QVERIFY2(documented.contains(name + type), qPrintable(name + type));
        }
}

TEST_CLASS(TestDocs);
#include "TestDocs.moc"
