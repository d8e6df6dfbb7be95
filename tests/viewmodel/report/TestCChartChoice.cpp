#include "viewmodel/report/CChartChoice.h"

#include "app/CFieldCatalogue.h"
#include "app/FieldLabels.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "reports/aggregate/CGrouping.h"
#include "reports/aggregate/ReportSection.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Two clients with hours and amounts.
GroupedTable Table() {
    return {.keys = {{.field = FieldId::TimeItem1, .caption = u"Client"_s}},
            .sums = {{.field = FieldId::Effective, .caption = u"Effective"_s, .places = 4},
                     {.field = FieldId::TimeAmount, .caption = u"Amount"_s, .places = 2}},
            .rows = {{.keys = {u"A"_s}, .sums = {7.25, 640.0}}, {.keys = {u"B"_s}, .sums = {1.0, -12.5}}}};
}

GroupedTable AmountsAlone() {
    GroupedTable table = Table();
    table.sums.erase(table.sums.begin());
    for (ReportRow& row : table.rows) row.sums.erase(row.sums.begin());
    return table;
}

/// "A 7.2500, B 1.0000"; "nothing" where no chart is shown.
QString Words(const CChartChoice& choice) {
    const ChartModel* chart = choice.Shown();
    if (!chart) return u"nothing"_s;
    QStringList words;
    for (qsizetype label = 0; label < chart->labels.size(); ++label)
        words.append(chart->labels[label] + u' ' +
                     chart->series.front().values[static_cast<std::size_t>(label)].text);
    return words.join(u", "_s);
}

}  // namespace

/// Which chart of a report is shown.
class TestCChartChoice final : public QObject {
    Q_OBJECT

    const CRegionalInfo m_region;
    const ChartCalendar m_calendar{.region = m_region, .firstDayOfWeek = 1};

 private Q_SLOTS:
    void TheFirstSumAtFirst() {
        const TestHome home;
        CChartChoice choice(*home.profile);
        QCOMPARE(Words(choice), u"nothing"_s);
        QVERIFY(!choice.IsOffered());
        choice.SetReport(Table(), m_calendar);
        QVERIFY(choice.IsOffered());
        QCOMPARE(Words(choice), u"A 7.2500, B 1.0000"_s);
        QCOMPARE(choice.Shown()->title, u"Effective by Client"_s);
        QCOMPARE(choice.Sums(), (QStringList{u"Effective"_s, u"Amount"_s}));
    }

    void AnotherSum() {
        const TestHome home;
        CChartChoice choice(*home.profile);
        choice.SetReport(Table(), m_calendar);
        choice.Choose(1);
        QCOMPARE(Words(choice), u"A 640.00, B -12.50"_s);
        choice.Choose(2);
        QCOMPARE(choice.Chosen(), std::size_t{1});
        choice.ChooseNext();
        QCOMPARE(choice.Chosen(), std::size_t{0});
        choice.Clear();
        choice.ChooseNext();
        QCOMPARE(Words(choice), u"nothing"_s);
    }

    /// It is the field that is remembered, wherever it stands in the next report.
    void IsRememberedByItsField() {
        const TestHome home;
        CChartChoice choice(*home.profile);
        choice.SetReport(Table(), m_calendar);
        choice.Choose(1);
        CChartChoice next(*home.profile);
        next.SetReport(AmountsAlone(), m_calendar);
        QCOMPARE(Words(next), u"A 640.00, B -12.50"_s);
        next.SetReport(Table(), m_calendar);
        QCOMPARE(next.Chosen(), std::size_t{1});
    }

    void ASumThatTheReportLacksIsTheFirst() {
        const TestHome home;
        CChartChoice choice(*home.profile);
        choice.SetReport(Table(), m_calendar);
        choice.Choose(0);
        choice.SetReport(AmountsAlone(), m_calendar);
        QCOMPARE(Words(choice), u"A 640.00, B -12.50"_s);
    }

    void IsShownUntilNobodyWantsIt() {
        const TestHome home;
        CChartChoice choice(*home.profile);
        choice.SetReport(Table(), m_calendar);
        choice.Want(false);
        QCOMPARE(Words(choice), u"nothing"_s);
        QVERIFY2(choice.IsOffered(), "it can be had again");
        CChartChoice next(*home.profile);
        next.SetReport(Table(), m_calendar);
        QVERIFY(!next.IsWanted());
        next.Want(true);
        QCOMPARE(Words(next), u"A 7.2500, B 1.0000"_s);
    }

    void NoGroupsNoChart() {
        const TestHome home;
        CChartChoice choice(*home.profile);
        GroupedTable table = Table();
        table.rows.clear();
        choice.SetReport(table, m_calendar);
        QVERIFY(!choice.IsOffered());
    }

    /// Lines by the day where the date is a key, wherever it stands among them.
    void TheDateMakesLines() {
        const TestHome home;
        CChartChoice choice(*home.profile);
        GroupedTable table = AmountsAlone();
        table.keys.push_back({.field = FieldId::Date, .caption = u"Date"_s});
        table.rows[0].keys.append(u"11/19/2026"_s);
        table.rows[1].keys.append(u"11/20/2026"_s);
        choice.SetReport(table, m_calendar);
        QCOMPARE(choice.Shown()->form, ChartForm::Lines);
        QCOMPARE(choice.Shown()->title, u"Amount per day by Client"_s);
    }

    /// A bar for each section; what is set in belongs to what stands above it.
    void OfASummary() {
        const TestHome home;
        const FieldLabels labels;
        ReportSectionList summary(RecordKind::Expense, CFieldCatalogue(labels, *home.settings),
                                  *home.settings);
        CERecord record;
        record.amount.Set(12.5F);
        record.isDistance = true;
        record.flag1 = true;
        summary.Add(record);
        CChartChoice choice(*home.profile);
        choice.SetReport(summary, m_calendar);
        QCOMPARE(choice.Sums(), (QStringList{u"Entries"_s, u"Entries · Expense"_s, u"Entries · Mileage"_s,
                                             u"Amount"_s, u"Amount · Expense"_s, u"Amount · Mileage"_s}));
        QCOMPARE(Words(choice), u"Billable 1, Reimbursable 0, Other 0, Total 1"_s);
        choice.Choose(5);
        QCOMPARE(Words(choice), u"Billable 12.50, Reimbursable 0.00, Other 0.00, Total 12.50"_s);
        QCOMPARE(choice.Shown()->title, u"Amount · Mileage"_s);
    }

    /// As on the page, where a count of seven digits is whole.
    void CountsAreWhole() {
        const TestHome home;
        const FieldLabels labels;
        ReportSectionList summary(RecordKind::Time, CFieldCatalogue(labels, *home.settings), *home.settings);
        auto& total = static_cast<ColEntries&>(*summary.sections.back()->columns.front());
        total.count = 1234567;
        CChartChoice choice(*home.profile);
        choice.SetReport(summary, m_calendar);
        QCOMPARE(choice.Shown()->series.front().values.back().text, total.Text());
        QCOMPARE(total.Text(), u"1234567"_s);
    }

    /// The place of a sum in a summary says nothing of a table's.
    void TablesAndSummariesAreRememberedApart() {
        const TestHome home;
        const FieldLabels labels;
        const ReportSectionList summary(RecordKind::Time, CFieldCatalogue(labels, *home.settings),
                                        *home.settings);
        CChartChoice choice(*home.profile);
        choice.SetReport(summary, m_calendar);
        choice.Choose(3);
        choice.SetReport(Table(), m_calendar);
        choice.Choose(1);
        choice.SetReport(summary, m_calendar);
        QCOMPARE(choice.Chosen(), std::size_t{3});
    }

    /// Of records: the texts of the chart are those of the table.
    void SaysWhatTheTableSays() {
        const TestHome home;
        const FieldLabels labels;
        const CFieldCatalogue catalogue(labels, *home.settings);
        CGrouping grouping(RecordKind::Time, {FieldId::TimeItem1}, {FieldId::Effective, FieldId::TimeAmount},
                           catalogue);
        for (const auto& [client, amount] : {std::pair{u"A"_s, 100.1F}, {u"B"_s, 0.2F}, {u"A"_s, 0.7F}}) {
            CTRecord record;
            record.item1 = client;
            record.amount.Set(amount);
            grouping.Add(record);
        }
        const GroupedTable& table = grouping.Table();
        const std::vector<ReportChart> charts = ChartsOf(table, m_calendar);
        QCOMPARE(charts.size(), table.sums.size());
        for (std::size_t sum = 0; sum < charts.size(); ++sum)
            for (std::size_t row = 0; row < table.rows.size(); ++row) {
                const ChartValue& value = charts[sum].model.series.front().values[row];
                QCOMPARE(value.number, table.rows[row].sums[sum]);
                QCOMPARE(value.text, table.SumText(sum, table.rows[row].sums[sum]));
            }
    }
};

TEST_CLASS(TestCChartChoice);
#include "TestCChartChoice.moc"
