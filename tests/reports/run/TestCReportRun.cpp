#include "reports/run/CReportRun.h"

#include "app/CFieldCatalogue.h"
#include "changes/CProgress.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "reports/query/CQueryStore.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QFile>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A list with a selection, and a user who answers the filter dialog.
class CListStandIn final : public CReportSource {
 public:
    [[nodiscard]] std::optional<QStringList> SelectedIds() const override { return selected; }
    [[nodiscard]] std::optional<QStringList> ListedIds() const override { return listed; }
    [[nodiscard]] bool AskFilter(TimeFilter& filter) override {
        ++asked;
        filter.items[0] = wanted;
        return !isCancelled;
    }
    [[nodiscard]] bool AskFilter(ExpenseFilter& filter) override {
        ++asked;
        filter.items[0] = wanted;
        return !isCancelled;
    }

    std::optional<QStringList> selected;
    std::optional<QStringList> listed;
    QString wanted;
    bool isCancelled = false;
    int asked = 0;
};

/// Counts steps; the user cancels after so many.
class CCountedProgress final : public CProgress {
 public:
    void Begin(const QString&, int steps) override { announced = steps; }
    [[nodiscard]] bool Advance() override { return ++done <= most; }
    void End() override { ++ended; }
    int announced = 0, done = 0, ended = 0;
    int most = 1000;
};

}  // namespace

class TestCReportRun : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init();
    void cleanup();
    void TheSelectedRecords();
    void TheListedRecords();
    void WithoutTheListInFront_data();
    void WithoutTheListInFront();
    void NoRecords();
    void AQueryLooksAtAllRecords();
    void ACancelledQuery();
    void AQueryThatNothingMatches();
    void AStoredQuery();
    void AStoredQueryThatIsGone();
    void ADateThatCannotBeReadIsTold();
    void ThePageHasTitleAndDate();
    void SortedRowsAndGroups();
    void WithoutGroupsThePageIsMade();
    void WithoutSumsThePageIsMade();
    void ARecordThatIsGone();
    void AnotherKindLeavesTheFormerPage();
    void ACancelledRunLeavesTheFormerPage_data();
    void ACancelledRunLeavesTheFormerPage();
    void EachRecordCountsTwice();
    void TheTableIsThatOfThePage();
    void ThePageIsSaved();
    void Expenses();
    void DistancesThatArentReadWholeAreTold();
    void ARangeThatEndsBeforeItStartsIsTold();
    void APreview();

 private:
    [[nodiscard]] QString Clients(const CReportDef& report) const;
    [[nodiscard]] RunEnd Resolve(CReportDef& report) { return m_run->ResolveRecords(report).end; }
    [[nodiscard]] RunEnd Run(const CReportDef& report) { return m_run->RunReport(report).end; }
    /// A record of a day in November with an amount of 10.
    QString Add(int day, const QString& client);

    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<CFieldCatalogue> m_catalogue;
    CListStandIn m_list;
    CCountedProgress m_progress;
    std::unique_ptr<CReportRun> m_run;
    QStringList m_ids;
    CReportDef m_listing;
};

void TestCReportRun::init() {
    m_home = std::make_unique<TestHome>();
    m_ids = {Add(3, u"B"_s), Add(2, u"A"_s), Add(1, u"b"_s)};
    m_home->document->LoadCurrentMode();
    m_catalogue = std::make_unique<CFieldCatalogue>(m_home->catalogue->Labels(), *m_home->settings);
    m_list = {};
    m_list.listed = m_ids;
    m_list.selected = QStringList{m_ids[1]};
    m_progress = {};
    m_run = std::make_unique<CReportRun>(ReportContext{.document = *m_home->document,
                                                       .settings = *m_home->settings,
                                                       .catalogue = *m_catalogue,
                                                       .source = m_list,
                                                       .prompt = m_home->prompt,
                                                       .progress = m_progress,
                                                       .clock = m_home->clock});
    m_listing = {.kind = ReportKind::Listing, .listFields = {{FieldId::TimeItem1, 0}}, .title = u"T"_s};
    m_listing.recordIds = m_ids;
}

void TestCReportRun::cleanup() {
    m_home->prompt.Finish();
    m_run.reset();
    m_home.reset();
}

QString TestCReportRun::Add(int day, const QString& client) {
    CTRecord record;
    record.GenUnique();
    record.date.Set(11, day, 2026);
    record.item1 = client;
    record.isBillable = true;
    record.amount.Set(10.0F);
    const AddChoice choice{.notify = Notify::No, .commit = Commit::Now};
    return m_home->document->AddRecord(record, choice) ? record.GetId() : QString();
}

QString TestCReportRun::Clients(const CReportDef& report) const {
    QStringList clients;
    for (const QString& id : report.recordIds) clients += m_home->document->FindTime(id)->item1;
    return clients.join(u' ');
}

void TestCReportRun::TheSelectedRecords() {
    CReportDef report{.selection = ReportSelection::Selected};
    QCOMPARE(Resolve(report), RunEnd::Done);
    QCOMPARE(Clients(report), u"A"_s);
}

void TestCReportRun::TheListedRecords() {
    CReportDef report{.selection = ReportSelection::Listed};
    QCOMPARE(Resolve(report), RunEnd::Done);
    QCOMPARE(Clients(report), u"B A b"_s);
}

void TestCReportRun::WithoutTheListInFront_data() {
    QTest::addColumn<ReportSelection>("selection");
    QTest::newRow("selected") << ReportSelection::Selected;
    QTest::newRow("listed") << ReportSelection::Listed;
}

void TestCReportRun::WithoutTheListInFront() {
    QFETCH(ReportSelection, selection);
    m_list.selected.reset();
    m_list.listed.reset();
    CReportDef report{.selection = selection};
    QCOMPARE(Resolve(report), RunEnd::NotInFront);
}

void TestCReportRun::NoRecords() {
    m_list.selected = QStringList();
    m_list.listed = QStringList();
    CReportDef selected{.selection = ReportSelection::Selected}, listed{.selection = ReportSelection::Listed};
    m_home->prompt.ExpectTold(Text::ReportNothingSelected);
    QCOMPARE(Resolve(selected), RunEnd::Told);
    m_home->prompt.ExpectTold(Text::ReportNothingListed);
    QCOMPARE(Resolve(listed), RunEnd::Told);
}

/// The filter of the list hides none of them.
void TestCReportRun::AQueryLooksAtAllRecords() {
    m_home->document->Filter().items[0] = u"A"_s;
    m_home->document->BuildVisible();
    m_list.wanted = u"b"_s;
    CReportDef report{.selection = ReportSelection::Query};
    QCOMPARE(Resolve(report), RunEnd::Done);
    QCOMPARE(report.recordIds.size(), 2);
    QCOMPARE(m_list.asked, 1);
}

void TestCReportRun::ACancelledQuery() {
    m_list.isCancelled = true;
    CReportDef report{.selection = ReportSelection::Query};
    QCOMPARE(Resolve(report), RunEnd::Cancelled);
}

void TestCReportRun::AQueryThatNothingMatches() {
    m_list.wanted = u"nobody"_s;
    CReportDef report{.selection = ReportSelection::Query};
    m_home->prompt.ExpectTold(Text::ReportNothingFound);
    QCOMPARE(Resolve(report), RunEnd::Told);
}

void TestCReportRun::AStoredQuery() {
    TimeQuery query;
    query.Reset(m_home->document->GetPeriodContext());
    query.items[0] = u"A"_s;
    QVERIFY(CQueryStore(*m_home->settings, RecordMode::Time).Save(u"mine"_s, query));
    CReportDef report{.selection = ReportSelection::Query, .useStoredQuery = true, .queryName = u"mine"_s};
    QCOMPARE(Resolve(report), RunEnd::Done);
    QCOMPARE(Clients(report), u"A"_s);
    QCOMPARE(m_list.asked, 0);
}

void TestCReportRun::AStoredQueryThatIsGone() {
    CReportDef report{.selection = ReportSelection::Query, .useStoredQuery = true, .queryName = u"gone"_s};
    QCOMPARE(Resolve(report), RunEnd::QueryGone);
    report.queryName.clear();
    m_list.wanted = u"A"_s;
    QCOMPARE(Resolve(report), RunEnd::Done);
    QCOMPARE(m_list.asked, 1);
}

/// Written where dates have full stops; here it can't be read, and today takes its place.
void TestCReportRun::ADateThatCannotBeReadIsTold() {
    TimeQuery query;
    query.Reset(m_home->document->GetPeriodContext());
    query.isPeriodOn = true;
    query.startText = u"1.11.2026"_s;
    QVERIFY(CQueryStore(*m_home->settings, RecordMode::Time).Save(u"old"_s, query));
    CReportDef report{.selection = ReportSelection::Query, .useStoredQuery = true, .queryName = u"old"_s};
    m_home->prompt.ExpectTold(Text::QueryDateUnread, Text::ReportMessageTitle);
    m_home->prompt.ExpectTold(Text::ReportNothingFound);
    QCOMPARE(Resolve(report), RunEnd::Told);
    QVERIFY(m_home->prompt.told[0].contains(u"1.11.2026"_s));
}

void TestCReportRun::ThePageHasTitleAndDate() {
    QCOMPARE(m_run->GetHtml(), QString());
    QCOMPARE(Run(m_listing), RunEnd::Done);
    QVERIFY(m_run->GetHtml().contains(u"<strong>T</strong>"_s));
    QVERIFY(m_run->GetHtml().contains(u"<strong>Date: 11/19/2026</strong>"_s));
    QCOMPARE(m_run->Result().date, u"11/19/2026"_s);
    QCOMPARE(m_run->Result().definition.title, u"T"_s);
}

void TestCReportRun::SortedRowsAndGroups() {
    m_listing.kind = ReportKind::Compound;
    m_listing.groupFields = {FieldId::TimeItem1};
    m_listing.sumFields = {FieldId::TimeAmount};
    m_listing.sortKeys = {{FieldId::TimeItem1, -1}};
    QCOMPARE(Run(m_listing), RunEnd::Done);
    QCOMPARE(m_run->Csv(), QByteArray("Client\r\nB\r\nb\r\nA\r\n"));
    const GroupedTable& groups = *m_run->Result().grouped;
    QCOMPARE(groups.rows.size(), std::size_t{3});
    QCOMPARE(groups.rows[0].keys, QStringList(u"B"_s));
    QCOMPARE(groups.rows[2].keys, QStringList(u"A"_s));
    QCOMPARE(groups.Total(), std::vector<double>{30.0});
}

void TestCReportRun::WithoutGroupsThePageIsMade() {
    m_listing.kind = ReportKind::Grouped;
    m_home->prompt.ExpectTold(Text::ReportLacksGroup);
    QCOMPARE(Run(m_listing), RunEnd::Done);
    QVERIFY(m_run->GetHtml().contains(u"<strong>T</strong>"_s));
    QVERIFY(!m_run->Result().grouped);
}

void TestCReportRun::WithoutSumsThePageIsMade() {
    m_listing.kind = ReportKind::Compound;
    m_listing.groupFields = {FieldId::TimeItem1};
    m_home->prompt.ExpectTold(Text::ReportLacksSum);
    QCOMPARE(Run(m_listing), RunEnd::Done);
    QCOMPARE(m_run->Csv(), QByteArray("Client\r\nB\r\nA\r\nb\r\n"));
}

void TestCReportRun::ARecordThatIsGone() {
    QCOMPARE(Run(m_listing), RunEnd::Done);
    const QString former = m_run->GetHtml();
    QVERIFY(m_home->document->DeleteRecord(RecordKind::Time, m_ids[1], Notify::No));
    m_listing.title = u"other"_s;
    QCOMPARE(Run(m_listing), RunEnd::RecordGone);
    QCOMPARE(m_run->GetHtml(), former);
}

void TestCReportRun::AnotherKindLeavesTheFormerPage() {
    m_listing.kind = ReportKind{2};
    QCOMPARE(Run(m_listing), RunEnd::NoSuchKind);
    QCOMPARE(m_run->GetHtml(), QString());
}

void TestCReportRun::ACancelledRunLeavesTheFormerPage_data() {
    QTest::addColumn<int>("steps");
    QTest::newRow("at once") << 0;
    QTest::newRow("while it counts") << 2;
    QTest::newRow("while it writes") << 4;
}

void TestCReportRun::ACancelledRunLeavesTheFormerPage() {
    QCOMPARE(Run(m_listing), RunEnd::Done);
    const QString former = m_run->GetHtml();
    m_listing.title = u"other"_s;
    QFETCH(int, steps);
    m_progress.done = 0;
    m_progress.most = steps;
    QCOMPARE(Run(m_listing), RunEnd::Cancelled);
    QCOMPARE(m_run->GetHtml(), former);
    QCOMPARE(m_run->Result().definition.title, u"T"_s);
    QCOMPARE(m_progress.ended, 2);
}

/// Once to be counted, once to be written.
void TestCReportRun::EachRecordCountsTwice() {
    QCOMPARE(Run(m_listing), RunEnd::Done);
    QCOMPARE(m_progress.announced, 6);
    QCOMPARE(m_progress.done, 6);
}

/// Also after a record of it went.
void TestCReportRun::TheTableIsThatOfThePage() {
    QCOMPARE(Run(m_listing), RunEnd::Done);
    QVERIFY(m_home->document->DeleteRecord(RecordKind::Time, m_ids[0], Notify::No));
    QCOMPARE(m_run->Csv(), QByteArray("Client\r\nB\r\nA\r\nb\r\n"));
}

void TestCReportRun::ThePageIsSaved() {
    m_listing.title = u"Ω"_s;
    QCOMPARE(Run(m_listing), RunEnd::Done);
    QCOMPARE(m_run->CountLostCharacters(), 0);
    const QString path = m_home->Path() + u"/page.html"_s;
    QVERIFY(m_run->SavePage(path).written);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(file.readAll()), m_run->GetHtml());
    const QByteArray locale = qgetenv("LC_ALL");
    qputenv("LC_ALL", "de_DE.ISO-8859-1");
    QCOMPARE(m_run->CountLostCharacters(), 1);
    qputenv("LC_ALL", locale);
}

void TestCReportRun::Expenses() {
    CERecord expense;
    expense.GenUnique();
    expense.item1 = u"travel"_s;
    expense.amount.Set(-5.0F);
    const AddChoice choice{.notify = Notify::No, .commit = Commit::Now, .hold = Hold::No};
    QVERIFY(m_home->document->AddRecord(expense, choice));
    const RecordModeScope mode(RecordMode::Expense);
    m_home->document->LoadRecords(RecordKind::Expense);
    m_list.wanted = u"travel"_s;
    CReportDef report{.kind = ReportKind::Summary, .selection = ReportSelection::Query};
    QCOMPARE(Resolve(report), RunEnd::Done);
    QCOMPARE(Run(report), RunEnd::Done);
    QCOMPARE(m_run->Result().summary->sections.back()->columns[3]->Text(), u"-5.00"_s);
}

void TestCReportRun::DistancesThatArentReadWholeAreTold() {
    CERecord expense;
    expense.GenUnique();
    expense.date.Set(11, 12, 2026);
    expense.isDistance = true;
    expense.TakeStoredDistance(u"12,35"_s);
    const AddChoice choice{.notify = Notify::No, .commit = Commit::Now, .hold = Hold::No};
    QVERIFY(m_home->document->AddRecord(expense, choice));
    const RecordModeScope mode(RecordMode::Expense);
    m_home->document->LoadRecords(RecordKind::Expense);
    CReportDef report{.kind = ReportKind::Grouped,
                      .selection = ReportSelection::Query,
                      .groupFields = {FieldId::Date},
                      .sumFields = {FieldId::Distance}};
    m_list.wanted = LoadText(Text::AnyWord);
    QCOMPARE(Resolve(report), RunEnd::Done);
    m_home->prompt.ExpectTold(Text::DistancesCut, Text::ReportMessageTitle);
    QCOMPARE(Run(report), RunEnd::Done);
    QVERIFY(m_home->prompt.told[0].contains(u"1, the first of 11/12/2026"_s));
    QCOMPARE(m_run->Result().grouped->rows[0].sums[0], 12.0);
    report.sumFields = {FieldId::ExpenseAmount};
    QCOMPARE(Run(report), RunEnd::Done);
}

/// It covers one day.
void TestCReportRun::ARangeThatEndsBeforeItStartsIsTold() {
    TimeQuery query;
    query.Reset(m_home->document->GetPeriodContext());
    query.isPeriodOn = true;
    query.startText = u"11/03/2026"_s;
    query.endText = u"11/02/2026"_s;
    QVERIFY(CQueryStore(*m_home->settings, RecordMode::Time).Save(u"swapped"_s, query));
    CReportDef report{.selection = ReportSelection::Query, .useStoredQuery = true, .queryName = u"swapped"_s};
    m_home->prompt.ExpectTold(Text::PeriodEndsSwapped, Text::ReportMessageTitle);
    QCOMPARE(Resolve(report), RunEnd::Done);
    QCOMPARE(report.recordIds, QStringList{m_ids[1]});
}

void TestCReportRun::APreview() {
    m_listing.groupFields = {FieldId::TimeItem1};
    m_listing.sumFields = {FieldId::TimeAmount};
    std::vector<const CVORec*> records;
    for (const QString& id : m_ids) records.push_back(m_home->document->FindRecord(id));
    const GroupedTable groups = PreviewGroups(m_listing, records, *m_catalogue);
    QCOMPARE(groups.rows.size(), std::size_t{3});
    QCOMPARE(groups.SumText(0, groups.rows[0].sums[0]), u"10.00"_s);
}

TEST_CLASS(TestCReportRun);
#include "TestCReportRun.moc"
