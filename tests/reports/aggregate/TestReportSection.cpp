#include "reports/aggregate/ReportSection.h"

#include "reports/aggregate/ReportsFixture.h"

using namespace Qt::Literals::StringLiterals;

class TestReportSection : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadTexts()); }
    void init() { m_fixture = std::make_unique<ReportsFixture>(); }
    void cleanup() { m_fixture.reset(); }
    void TimesCountAsBillableOrOther();
    void NetTimeCountsWhereThereIsADuration();
    void AnExpenseWithBothFlagsCountsTwice();
    void AmountsBelowZeroAreAdded();
    void TripsAndOtherExpenses();
    void ANullRecordAddsNothing();
    void ACloneHasCountedNothing();
    void CaptionsAreTheUsersNames();
    void CaptionsWithoutBlanks();
    void PrecisionsOfTheSettings();

 private:
    template <class Record>
    [[nodiscard]] ReportSectionList SummaryOf(const std::vector<Record>& records) const {
        ReportSectionList summary(Record().Kind(), m_fixture->catalogue, m_fixture->settings);
        for (const Record& record : records) summary.Add(record);
        return summary;
    }
    /// "Billable: 1 2.0000 ...".
    static QString Shown(const ReportSectionList& summary, std::size_t section);
    std::unique_ptr<ReportsFixture> m_fixture;
};

QString TestReportSection::Shown(const ReportSectionList& summary, std::size_t section) {
    QStringList texts;
    for (const auto& column : summary.sections.at(section)->columns) texts += column->Text();
    return summary.sections[section]->caption + u": "_s + texts.join(u' ');
}

void TestReportSection::TimesCountAsBillableOrOther() {
    for (const bool isBillable : {true, false, true}) {
        CTRecord& record = m_fixture->AddTime();
        record.isBillable = isBillable;
        record.SetDurationOnly(2, 0);
        record.SetBreak(0, 30);
        record.amount.Set(isBillable ? 15.0F : -1.0F);
    }
    const ReportSectionList summary = SummaryOf(m_fixture->times);
    QCOMPARE(summary.sections.size(), std::size_t{3});
    QCOMPARE(Shown(summary, 0), u"Billable: 2 4.0000 1.0000 3.0000 30.00"_s);
    QCOMPARE(Shown(summary, 1), u"Other: 1 2.0000 0.5000 1.5000 0.00"_s);
    QCOMPARE(Shown(summary, 2), u"Total: 3 6.0000 1.5000 4.5000 30.00"_s);
}

void TestReportSection::NetTimeCountsWhereThereIsADuration() {
    m_fixture->AddTime().spans.effective.Set(3, 0);
    m_fixture->AddTime().spans.duration.Set(1, 0);
    m_fixture->times.back().spans.effective.Set(0, 45);
    QCOMPARE(Shown(SummaryOf(m_fixture->times), 2), u"Total: 2 1.0000 0.0000 0.7500 0.00"_s);
}

void TestReportSection::AnExpenseWithBothFlagsCountsTwice() {
    CERecord& both = m_fixture->AddExpense();
    both.flag1 = both.flag3 = true;
    both.amount.Set(8.0F);
    m_fixture->AddExpense().flag1 = true;
    m_fixture->AddExpense().flag3 = true;
    m_fixture->AddExpense();
    const ReportSectionList summary = SummaryOf(m_fixture->expenses);
    QCOMPARE(summary.sections.size(), std::size_t{4});
    QCOMPARE(Shown(summary, 0), u"Billable: 2 2 0 8.00 8.00 0.00"_s);
    QVERIFY(Shown(summary, 1).endsWith(u": 2 2 0 8.00 8.00 0.00"_s));
    QCOMPARE(Shown(summary, 2), u"Other: 1 1 0 0.00 0.00 0.00"_s);
    QCOMPARE(Shown(summary, 3), u"Total: 4 4 0 8.00 8.00 0.00"_s);
}

void TestReportSection::AmountsBelowZeroAreAdded() {
    m_fixture->AddExpense().amount.Set(-20.0F);
    m_fixture->AddExpense().amount.Set(5.0F);
    QCOMPARE(Shown(SummaryOf(m_fixture->expenses), 3), u"Total: 2 2 0 -15.00 -15.00 0.00"_s);
}

void TestReportSection::TripsAndOtherExpenses() {
    m_fixture->AddExpense().amount.Set(5.0F);
    CERecord& trip = m_fixture->AddExpense();
    trip.isDistance = true;
    trip.amount.Set(7.0F);
    QCOMPARE(Shown(SummaryOf(m_fixture->expenses), 3), u"Total: 2 1 1 12.00 5.00 7.00"_s);
}

void TestReportSection::ANullRecordAddsNothing() {
    const ReportSectionList summary = SummaryOf(m_fixture->expenses);
    for (const auto& column : summary.sections.front()->columns) column->Add(nullptr);
    QCOMPARE(Shown(summary, 0), u"Billable: 0 0 0 0.00 0.00 0.00"_s);
}

void TestReportSection::ACloneHasCountedNothing() {
    CTRecord& record = m_fixture->AddTime();
    record.SetDurationOnly(2, 0);
    const ReportSectionList summary = SummaryOf(m_fixture->times);
    const auto clone = summary.sections.back()->Clone();
    QCOMPARE(clone->caption, u"Total"_s);
    QCOMPARE(clone->columns.size(), std::size_t{5});
    QCOMPARE(clone->columns[0]->Text(), u"0"_s);
    QCOMPARE(clone->columns[1]->Text(), u"0.0000"_s);
    QCOMPARE(clone->columns[1]->caption, u"Duration"_s);
}

void TestReportSection::CaptionsAreTheUsersNames() {
    m_fixture->labels.Set(138, u"Company pays"_s);
    m_fixture->labels.Set(141, u"Client pays"_s);
    const ReportSectionList summary = SummaryOf(m_fixture->expenses);
    QCOMPARE(summary.sections[0]->caption, u"Company pays"_s);
    QCOMPARE(summary.sections[1]->caption, u"Client pays"_s);
}

void TestReportSection::CaptionsWithoutBlanks() {
    const ReportSectionList summary = SummaryOf(m_fixture->expenses);
    QStringList captions, plain;
    for (const auto& column : summary.sections[0]->columns) {
        captions += column->caption;
        plain += PlainCaption(*column);
    }
    QCOMPARE(captions,
             (QStringList{u"Entries"_s, u"&nbsp;&nbsp;&nbsp;Expense"_s, u"&nbsp;&nbsp;&nbsp;Mileage"_s,
                          u"Amount"_s, u"&nbsp;&nbsp;&nbsp;Expense"_s, u"&nbsp;&nbsp;&nbsp;Mileage"_s}));
    QCOMPARE(plain, (QStringList{u"Entries"_s, u"Expense"_s, u"Mileage"_s, u"Amount"_s, u"Expense"_s,
                                 u"Mileage"_s}));
}

void TestReportSection::PrecisionsOfTheSettings() {
    m_fixture->settings.precisionDuration = 1;
    m_fixture->settings.precisionAmount = 0;
    QCOMPARE(Shown(SummaryOf(m_fixture->times), 2), u"Total: 0 0.0 0.0 0.0 0"_s);
}

TEST_CLASS(TestReportSection);
#include "TestReportSection.moc"
