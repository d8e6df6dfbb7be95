#include "reports/write/ReportPage.h"

#include "reports/aggregate/CAggregation.h"
#include "reports/aggregate/ReportsFixture.h"
#include "reports/definition/ReportKinds.h"
#include "reports/write/CHTMLWriter.h"
#include "reports/write/CTextSink.h"
#include "reports/write/CsvTable.h"

#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The rows of the listing over records in an order.
class CRecordRows final : public CListingRows {
 public:
    CRecordRows(const std::vector<const CVORec*>& records, const ReportResult& result)
        : m_records(records), m_result(result) {}
    [[nodiscard]] bool ForEachRow(const Visit& visit) override {
        QStringList cells;
        for (const CVORec* record : m_records) {
            m_result.listing->ReadCells(*record, cells);
            if (isBroken || !visit(cells)) return false;
        }
        return true;
    }
    bool isBroken = false;

 private:
    const std::vector<const CVORec*>& m_records;
    const ReportResult& m_result;
};

class CText final : public CTextSink {
 public:
    [[nodiscard]] bool Take(const QString& piece) override {
        text += piece;
        return true;
    }
    QString text;
};

/// A cell as "[l #F1F1E2 Client!]": alignment, colour, text, and a mark where it is strong; the beginning of
/// a row as "/#FFFFFF ".
QString Shortened(QString html) {
    static const QRegularExpression kCell(
        u"<td align=\"(l|r)[a-z]*\" bgcolor=\"([#0-9A-F]*)\"><font [^>]*>(.*?)</font></td>"_s,
        QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression kRow(u"<tr bgcolor=\"([#0-9A-F]*)\">"_s);
    html.replace(u"<strong>"_s, QString()).replace(u"</strong>"_s, u"!"_s);
    html.replace(kCell, u"[\\1 \\2 \\3]"_s).replace(kRow, u"/\\1 "_s);
    return html.remove(u"</tr>\n"_s);
}

const QString kTable =
    u"<table width=\"100%\" cellSpacing=0 cellPadding=3 border=1 bgcolor=\"#FFFFFF\" bordercolor=\"#CCCCCC\">"_s;
const QString kFont = u"<font face=\"Tahoma, Verdana, Arial\" color=\""_s;
const QString kPlain = kFont + u"#000\" size=\"2\">"_s;

}  // namespace

class TestReportPage : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadTexts()); }
    void init();
    void cleanup() { m_fixture.reset(); }
    void TheWholePage();
    void WithoutHeaderAndFooter();
    void AnEmptyTitleIsABlank();
    void GroupedRowsAreStriped();
    void NoGroupsNoTable();
    void WithoutGroupFieldsThePageHasItsTexts();
    void AListing();
    void AListingWithoutColumns();
    void AnAmountOfAnExpenseHasSixDigits();
    void TheListingOfACompoundComesFirst();
    void ASummary();
    void ABrokenListingEndsThePage();
    void AnotherKindEndsThePage();
    void TheOrderOfTheKeysIsThatOfRowsAndGroups();
    void Csv_data();
    void Csv();

 private:
    struct Made {
        bool isWhole;
        QString html;
        QString csv;
    };
    template <class Record>
    [[nodiscard]] Made Make(const std::vector<Record>& records, bool isBroken = false) const;
    /// What stands between the table of the title and the end of the page, shortened.
    template <class Record>
    [[nodiscard]] QString Tables(const std::vector<Record>& records) const;

    CReportDef m_report;
    std::unique_ptr<ReportsFixture> m_fixture;
};

void TestReportPage::init() {
    m_fixture = std::make_unique<ReportsFixture>();
    m_report = {.kind = ReportKind::Grouped,
                .groupFields = {FieldId::TimeItem1},
                .sumFields = {FieldId::TimeAmount},
                .listFields = {{FieldId::Date, 0}, {FieldId::TimeItem1, 0}},
                .title = u"Hours"_s};
}

template <class Record>
TestReportPage::Made TestReportPage::Make(const std::vector<Record>& records, bool isBroken) const {
    CAggregation aggregation(Record().Kind(), m_report, m_fixture->catalogue, m_fixture->settings);
    for (const Record& record : records) aggregation.Add(record);
    const std::vector<std::uint32_t> order = aggregation.Order();
    const ReportResult result = aggregation.Result(order, u"11/22/2026"_s);
    std::vector<const CVORec*> sorted;
    for (const std::uint32_t place : order) sorted.push_back(&records[place]);
    CRecordRows rows(sorted, result);
    rows.isBroken = isBroken;
    CHTMLWriter writer;
    const bool isWhole = WriteReportPage(writer, result, rows);
    CText csv;
    (void)WriteCsv(csv, result, rows);
    return {isWhole, writer.GetHtml(), csv.text};
}

template <class Record>
QString TestReportPage::Tables(const std::vector<Record>& records) const {
    const Made made = Make(records);
    const QString afterTitle = u"</table>\n<br>\n"_s;
    const qsizetype place = made.html.indexOf(afterTitle) + afterTitle.size();
    return made.isWhole ? Shortened(made.html.mid(place)).remove(u"</body>\n</html>\n"_s) : u"broken"_s;
}

void TestReportPage::TheWholePage() {
    m_fixture->AddTime().item1 = u"A"_s;
    m_report.header = u"above <i>all</i>"_s;
    m_report.footer = u"below"_s;
    const QString cell = u"<tr bgcolor=\"#FFFFFF\"><td align=\"left\" bgcolor=\"#FFFFFF\">"_s + kFont;
    const Made made = Make(m_fixture->times);
    QVERIFY(made.isWhole);
    const QString title =
        u"<table width=\"100%\" cellSpacing=0 cellPadding=0 border=0 bgcolor=\"#FFFFFF\" bordercolor=\"#FFFFFF\">"_s +
        cell + u"#999999\" size=\"5\"><strong>Hours</strong></font></td></tr>\n"_s + cell +
        u"#000\" size=\"2\"><strong>Date: 11/22/2026</strong></font></td></tr>\n</table>\n<br>\n"_s;
    QVERIFY(made.html.contains(title + kPlain + u"above <i>all</i></font><br>\n<br>\n"_s + kTable));
    QVERIFY(made.html.endsWith(u"</table>\n<br>\n"_s + kPlain + u"below</font></body>\n</html>\n"_s));
}

void TestReportPage::WithoutHeaderAndFooter() {
    m_fixture->AddTime();
    const QString html = Make(m_fixture->times).html;
    QVERIFY(html.contains(u"</table>\n<br>\n"_s + kTable));
    QVERIFY(html.endsWith(u"</table>\n</body>\n</html>\n"_s));
}

void TestReportPage::AnEmptyTitleIsABlank() {
    m_fixture->AddTime();
    m_report.title.clear();
    QVERIFY(Make(m_fixture->times).html.contains(u"size=\"5\"><strong>&nbsp;</strong>"_s));
}

void TestReportPage::GroupedRowsAreStriped() {
    for (const QString& client : {u"A"_s, u"B"_s, u"C"_s}) {
        CTRecord& record = m_fixture->AddTime();
        record.item1 = client;
        record.amount.Set(10.5F);
    }
    m_report.groupFields = {FieldId::TimeItem1, FieldId::TimeItem2};
    QCOMPARE(Tables(m_fixture->times),
             kTable + u"/#FFFFFF [l #F1F1E2 Client!][l #F1F1E2 Project!][r #F1F1E2 Amount!]"_s +
                 u"/#FFFFFF [l #FFFFFF A][l #FFFFFF &nbsp;][r #FFFFFF 10.50]"_s +
                 u"/#F7F7F7 [l #F7F7F7 B][l #F7F7F7 &nbsp;][r #F7F7F7 10.50]"_s +
                 u"/#FFFFFF [l #FFFFFF C][l #FFFFFF &nbsp;][r #FFFFFF 10.50]"_s +
                 u"/#FFFFFF [l #F1F1E2 Total!][l #F1F1E2 &nbsp;][r #F1F1E2 31.50]</table>\n"_s);
}

void TestReportPage::NoGroupsNoTable() {
    m_fixture->AddTime();
    m_report.groupFields = {FieldId::ExpenseItem1};
    QCOMPARE(Tables(m_fixture->times), QString());
}

void TestReportPage::WithoutGroupFieldsThePageHasItsTexts() {
    m_fixture->AddTime();
    m_report.groupFields.clear();
    m_report.footer = u"below"_s;
    QCOMPARE(LackOf(m_report), GroupLack::GroupFields);
    QVERIFY(Tables(m_fixture->times).contains(u"below"_s));
    m_report.groupFields = {FieldId::TimeItem1};
    m_report.sumFields.clear();
    QCOMPARE(LackOf(m_report), GroupLack::SumFields);
    QVERIFY(!Make(m_fixture->times).html.contains(u"border=1"_s));
}

void TestReportPage::AListing() {
    m_report.kind = ReportKind::Listing;
    m_report.listFields = {{FieldId::Date, 0},      {FieldId::Start, 0},    {FieldId::Duration, 0},
                           {FieldId::TimeNotes, 0}, {FieldId::Billable, 0}, {FieldId::ExpenseItem1, 0}};
    m_fixture->AddTime().date.Set(2, 3, 2026);
    CTRecord& full = m_fixture->AddTime(u"some\nnotes"_s);
    full.isBillable = true;
    full.SetStart(9, 5, false);
    full.SetDuration(1, 30, false);
    QCOMPARE(Tables(m_fixture->times),
             kTable +
                 u"/#FFFFFF [l #F1F1E2 Date!][l #F1F1E2 Start!][l #F1F1E2 Duration!][l #F1F1E2 Notes!]"
                 "[l #F1F1E2 Billable!][l #F1F1E2 Client!]"_s +
                 u"/#FFFFFF [l #FFFFFF 02/03/2026][l #FFFFFF --:--][l #FFFFFF --:--][l #FFFFFF &nbsp;]"
                 "[l #FFFFFF no][l #FFFFFF &nbsp;]"_s +
                 u"/#F7F7F7 [l #F7F7F7 &nbsp;][l #F7F7F7 09:05 AM][l #F7F7F7 1.5000][l #F7F7F7 some\nnotes]"
                 "[l #F7F7F7 yes][l #F7F7F7 &nbsp;]</table>\n"_s);
}

void TestReportPage::AListingWithoutColumns() {
    m_report.kind = ReportKind::Listing;
    m_report.listFields.clear();
    m_fixture->AddTime();
    QCOMPARE(Tables(m_fixture->times), kTable + u"/#FFFFFF /#FFFFFF </table>\n"_s);
}

void TestReportPage::AnAmountOfAnExpenseHasSixDigits() {
    m_report.kind = ReportKind::Listing;
    m_report.listFields = {{FieldId::ExpenseAmount, 0}, {FieldId::Distance, 0}};
    m_fixture->AddExpense().amount.Set(12.5F);
    m_fixture->AddExpense().amount.Set(-3.0F);
    m_fixture->AddExpense().amount.Set(1234567.0F);
    QCOMPARE(Make(m_fixture->expenses).csv, u"Amount,miles\r\n12.5,0\r\n0,0\r\n1.23457e+06,0\r\n"_s);
}

void TestReportPage::TheListingOfACompoundComesFirst() {
    m_report.kind = ReportKind::Compound;
    m_fixture->AddTime().item1 = u"A"_s;
    QCOMPARE(Tables(m_fixture->times),
             kTable +
                 u"/#FFFFFF [l #F1F1E2 Date!][l #F1F1E2 Client!]/#FFFFFF [l #FFFFFF &nbsp;][l #FFFFFF A]"
                 "</table>\n<br>\n"_s +
                 kTable +
                 u"/#FFFFFF [l #F1F1E2 Client!][r #F1F1E2 Amount!]/#FFFFFF [l #FFFFFF A][r #FFFFFF 0.00]"
                 "/#FFFFFF [l #F1F1E2 Total!][r #F1F1E2 0.00]</table>\n"_s);
}

void TestReportPage::ASummary() {
    m_report.kind = ReportKind::Summary;
    m_fixture->AddTime().SetDurationOnly(2, 0);
    const QString page = Tables(m_fixture->times);
    const QString other =
        kPlain + u"Other!</font><br>\n<br>\n"_s + kTable +
        u"/#FFFFFF [l #F7F7F7 Entries!][r #FFFFFF 1]/#FFFFFF [l #F7F7F7 Duration!][r #FFFFFF 2.0000]"
        "/#FFFFFF [l #F7F7F7 Break!][r #FFFFFF 0.0000]/#FFFFFF [l #F7F7F7 Effective!][r #FFFFFF 2.0000]"
        "/#FFFFFF [l #F7F7F7 Amount!][r #FFFFFF 0.00]</table>\n"_s;
    QVERIFY(page.startsWith(kPlain + u"Billable!</font><br>\n<br>\n"_s + kTable));
    QVERIFY(page.contains(u"</table>\n<br>\n"_s + other + u"<br>\n"_s + kPlain + u"Total!</font>"_s));
    QVERIFY(page.endsWith(u"</table>\n"_s));
}

void TestReportPage::ABrokenListingEndsThePage() {
    m_report.kind = ReportKind::Compound;
    m_fixture->AddTime();
    const Made made = Make(m_fixture->times, true);
    QVERIFY(!made.isWhole);
    QVERIFY(!made.html.contains(u"Total"_s));
}

void TestReportPage::AnotherKindEndsThePage() {
    m_report.kind = ReportKind{3};
    m_fixture->AddTime();
    const Made made = Make(m_fixture->times);
    QVERIFY(!made.isWhole);
    QVERIFY(made.html.contains(u"Hours"_s));
    QVERIFY(!made.html.contains(u"</body>"_s));
}

void TestReportPage::TheOrderOfTheKeysIsThatOfRowsAndGroups() {
    m_report.kind = ReportKind::Compound;
    m_report.listFields = {{FieldId::TimeItem1, 0}};
    m_report.sortKeys = {{FieldId::TimeItem1, 1}};
    for (const QString& client : {u"b"_s, u"c"_s, u"a"_s, u"B"_s}) m_fixture->AddTime().item1 = client;
    const QString page = Tables(m_fixture->times);
    QVERIFY(page.contains(
        u"[l #FFFFFF a]/#F7F7F7 [l #F7F7F7 b]/#FFFFFF [l #FFFFFF B]/#F7F7F7 [l #F7F7F7 c]</table>"_s));
    QVERIFY(page.contains(
        u"[l #FFFFFF a][r #FFFFFF 0.00]/#F7F7F7 [l #F7F7F7 b][r #F7F7F7 0.00]/#FFFFFF [l #FFFFFF B]"
        "[r #FFFFFF 0.00]/#F7F7F7 [l #F7F7F7 c]"_s));
}

void TestReportPage::Csv_data() {
    QTest::addColumn<ReportKind>("kind");
    QTest::addColumn<QString>("client");
    QTest::addColumn<QString>("csv");
    QTest::newRow("a listing") << ReportKind::Listing << u"A"_s << u"Date,Client\r\n,A\r\n"_s;
    QTest::newRow("quotes are doubled")
        << ReportKind::Listing << u"say \"a\""_s << u"Date,Client\r\n,\"say \"\"a\"\"\"\r\n"_s;
    QTest::newRow("commas and lines are put between quotes")
        << ReportKind::Listing << u"a,b\nc"_s << u"Date,Client\r\n,\"a,b\nc\"\r\n"_s;
    QTest::newRow("so is a carriage return by itself")
        << ReportKind::Listing << u"a\rb"_s << u"Date,Client\r\n,\"a\rb\"\r\n"_s;
    QTest::newRow("groups without their total")
        << ReportKind::Grouped << u"A"_s << u"Client,Amount\r\nA,0.00\r\n"_s;
    QTest::newRow("a summary: section, caption, value")
        << ReportKind::Summary << u"A"_s
        << u"Billable,Entries,0\r\nBillable,Duration,0.0000\r\nBillable,Break,0.0000\r\n"
           "Billable,Effective,0.0000\r\nBillable,Amount,0.00\r\nOther,Entries,1\r\nOther,Duration,0.0000\r\n"
           "Other,Break,0.0000\r\nOther,Effective,0.0000\r\nOther,Amount,0.00\r\nTotal,Entries,1\r\n"
           "Total,Duration,0.0000\r\nTotal,Break,0.0000\r\nTotal,Effective,0.0000\r\nTotal,Amount,0.00\r\n"_s;
}

void TestReportPage::Csv() {
    QFETCH(ReportKind, kind);
    QFETCH(QString, client);
    m_report.kind = kind;
    m_fixture->AddTime().item1 = client;
    QTEST(Make(m_fixture->times).csv, "csv");
}

TEST_CLASS(TestReportPage);
#include "TestReportPage.moc"
