#include "reports/aggregate/CGrouping.h"

#include "reports/aggregate/ReportsFixture.h"

using namespace Qt::Literals::StringLiterals;

class TestCGrouping : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadTexts()); }
    void init() { m_fixture = std::make_unique<ReportsFixture>(); }
    void cleanup() { m_fixture.reset(); }
    void GroupsStandAsTheyFirstAppear();
    void CaseMakesTwoGroups();
    void TheShownTextCounts();
    void SeveralKeysAndSums();
    void WithoutASumTheGroupHasZero();
    void AnAmountBelowZeroOfAnExpenseAddsNothing();
    void TimesWithoutAmountAddNothing();
    void DistancesCountOfDistanceEntriesAlone();
    void AFieldOfTheOtherKindLeavesTheRecordOut();
    void FlagsAreGroupedByTheirWords();
    void ManyGroups();
    void RowsInAnotherOrder();
    void CaptionsAreTheUsersNames();
    void PlacesOfSums_data();
    void PlacesOfSums();

 private:
    using Fields = QList<FieldId>;
    /// "key, key: sum sum | ..." and the total.
    static QString Shown(const GroupedTable& table);
    template <class Record>
    QString Grouped(const std::vector<Record>& records, const Fields& groups, const Fields& sums) const {
        CGrouping grouping(Record().Kind(), groups, sums, m_fixture->catalogue);
        for (const Record& record : records) (void)grouping.Add(record);
        return Shown(grouping.Table());
    }
    std::unique_ptr<ReportsFixture> m_fixture;
};

QString TestCGrouping::Shown(const GroupedTable& table) {
    QStringList rows;
    const auto texts = [&](const std::vector<double>& sums) {
        QStringList words;
        for (std::size_t i = 0; i < sums.size(); ++i) words += table.SumText(i, sums[i]);
        return words.join(u' ');
    };
    for (const ReportRow& row : table.rows) rows += row.keys.join(u", "_s) + u": "_s + texts(row.sums);
    rows += texts(table.Total());
    return rows.join(u" | "_s);
}

void TestCGrouping::GroupsStandAsTheyFirstAppear() {
    for (const QString& client : {u"zoo"_s, u"alpha"_s, u"zoo"_s}) {
        CTRecord& record = m_fixture->AddTime();
        record.item1 = client;
        record.SetDurationOnly(1, 30);
    }
    QCOMPARE(Grouped(m_fixture->times, {FieldId::TimeItem1}, {FieldId::Duration}),
             u"zoo: 3.0000 | alpha: 1.5000 | 4.5000"_s);
}

void TestCGrouping::CaseMakesTwoGroups() {
    for (const QString& client : {u"Acme"_s, u"acme"_s}) m_fixture->AddTime().item1 = client;
    QCOMPARE(Grouped(m_fixture->times, {FieldId::TimeItem1}, {FieldId::TimeAmount}),
             u"Acme: 0.00 | acme: 0.00 | 0.00"_s);
}

/// Two rates that show the same number are one group.
void TestCGrouping::TheShownTextCounts() {
    CTRecord& one = m_fixture->AddTime();
    one.rate.precision = 0;
    one.rate.Set(80.2F);
    m_fixture->AddTime().rate.precision = 0;
    m_fixture->times.back().rate.Set(79.8F);
    m_fixture->AddTime();
    QCOMPARE(Grouped(m_fixture->times, {FieldId::TimeRate}, {FieldId::TimeAmount}),
             u"80: 0.00 | : 0.00 | 0.00"_s);
}

void TestCGrouping::SeveralKeysAndSums() {
    for (const int day : {1, 2, 1}) {
        CTRecord& record = m_fixture->AddTime();
        record.date.Set(11, day, 2026);
        record.item1 = u"A"_s;
        record.SetDurationOnly(2, 0);
        record.SetBreak(0, 30);
        record.isBillable = true;
        record.SetRate(10.0F);
    }
    QCOMPARE(Grouped(m_fixture->times, {FieldId::Date, FieldId::TimeItem1},
                     {FieldId::TimeAmount, FieldId::Break, FieldId::Duration, FieldId::Effective}),
             u"11/01/2026, A: 30.00 1.0000 4.0000 3.0000 | 11/02/2026, A: 15.00 0.5000 2.0000 1.5000 | "
             "45.00 1.5000 6.0000 4.5000"_s);
}

void TestCGrouping::WithoutASumTheGroupHasZero() {
    m_fixture->AddTime();
    m_fixture->AddTime();
    QCOMPARE(Grouped(m_fixture->times, {FieldId::TimeItem1}, {FieldId::Duration, FieldId::TimeAmount}),
             u": 0.0000 0.00 | 0.0000 0.00"_s);
}

void TestCGrouping::AnAmountBelowZeroOfAnExpenseAddsNothing() {
    m_fixture->AddExpense().amount.Set(-20.0F);
    m_fixture->AddExpense().amount.Set(5.0F);
    QCOMPARE(Grouped(m_fixture->expenses, {FieldId::ExpenseItem1}, {FieldId::ExpenseAmount}),
             u": 5.00 | 5.00"_s);
}

void TestCGrouping::TimesWithoutAmountAddNothing() {
    m_fixture->AddTime().amount.Set(5.0F);
    m_fixture->AddTime().amount.SetNone();
    QCOMPARE(Grouped(m_fixture->times, {FieldId::TimeItem1}, {FieldId::TimeAmount}), u": 5.00 | 5.00"_s);
}

void TestCGrouping::DistancesCountOfDistanceEntriesAlone() {
    CERecord& trip = m_fixture->AddExpense();
    trip.isDistance = true;
    trip.distance.Set(12.5F);
    m_fixture->AddExpense().distance.Set(7.0F);
    m_fixture->AddExpense().isDistance = true;
    QCOMPARE(Grouped(m_fixture->expenses, {FieldId::ExpenseItem1}, {FieldId::Distance}),
             u": 12.50 | 12.50"_s);
}

void TestCGrouping::AFieldOfTheOtherKindLeavesTheRecordOut() {
    m_fixture->AddTime();
    QCOMPARE(Grouped(m_fixture->times, {FieldId::ExpenseItem1}, {FieldId::TimeAmount}), u"0.00"_s);
    QCOMPARE(Grouped(m_fixture->times, {FieldId::TimeItem1}, {FieldId::TimeItem2}), u"0"_s);
    QCOMPARE(Grouped(m_fixture->times, {FieldId::TimeItem1}, {FieldId::ExpenseAmount}), u"0.00"_s);
}

void TestCGrouping::FlagsAreGroupedByTheirWords() {
    m_fixture->AddExpense().flag5 = true;
    m_fixture->AddExpense();
    QCOMPARE(Grouped(m_fixture->expenses, {FieldId::Flag5}, {FieldId::ExpenseAmount}),
             u"yes: 0.00 | no: 0.00 | 0.00"_s);
}

/// 10,000 groups over 100,000 records; each look-up takes the same time, or this would take minutes.
void TestCGrouping::ManyGroups() {
    constexpr int kGroups = 10000, kRounds = 10;
    CGrouping grouping(RecordKind::Time, {FieldId::TimeItem1, FieldId::TimeItem2}, {FieldId::TimeAmount},
                       m_fixture->catalogue);
    CTRecord record;
    record.amount.Set(1.0F);
    for (int round = 0; round < kRounds; ++round) {
        for (int group = 0; group < kGroups; ++group) {
            record.item1 = QString::number(group % 100);
            record.item2 = QString::number(group / 100);
            QCOMPARE(grouping.Add(record), std::optional(static_cast<std::size_t>(group)));
        }
    }
    QCOMPARE(grouping.RowCount(), std::size_t{kGroups});
    QCOMPARE(grouping.Table().rows.back().sums.front(), double{kRounds});
    QCOMPARE(grouping.Table().Total().front(), double{kRounds} * kGroups);
}

void TestCGrouping::RowsInAnotherOrder() {
    for (const QString& client : {u"a"_s, u"b"_s, u"c"_s}) m_fixture->AddTime().item1 = client;
    CGrouping grouping(RecordKind::Time, {FieldId::TimeItem1}, {FieldId::TimeAmount}, m_fixture->catalogue);
    for (const CTRecord& record : m_fixture->times) (void)grouping.Add(record);
    const std::vector<std::size_t> rows = {2, 0, 1};
    QCOMPARE(Shown(grouping.InOrder(rows)), u"c: 0.00 | a: 0.00 | b: 0.00 | 0.00"_s);
}

void TestCGrouping::CaptionsAreTheUsersNames() {
    m_fixture->labels.Set(109, u"Customer"_s);
    const CGrouping grouping(RecordKind::Time, {FieldId::TimeItem1, FieldId::TimeItem2}, {FieldId::Effective},
                             m_fixture->catalogue);
    QCOMPARE(grouping.Table().keys[0].caption, u"Customer"_s);
    QCOMPARE(grouping.Table().keys[1].caption, u"Project"_s);
    QCOMPARE(grouping.Table().sums[0].caption, u"Net time"_s);
}

void TestCGrouping::PlacesOfSums_data() {
    QTest::addColumn<FieldId>("field");
    QTest::addColumn<QString>("text");
    QTest::newRow("durations") << FieldId::Duration << u"1.5000"_s;
    QTest::newRow("net times") << FieldId::Effective << u"1.5000"_s;
    QTest::newRow("breaks") << FieldId::Break << u"1.5000"_s;
    QTest::newRow("amounts") << FieldId::TimeAmount << u"1.50"_s;
    QTest::newRow("rates") << FieldId::TimeRate << u"1.500"_s;
    QTest::newRow("anything else: six digits") << FieldId::TimeItem1 << u"1.5"_s;
}

void TestCGrouping::PlacesOfSums() {
    QFETCH(FieldId, field);
    const CGrouping grouping(RecordKind::Time, {FieldId::Date}, {field}, m_fixture->catalogue);
    QTEST(grouping.Table().SumText(0, 1.5), "text");
}

TEST_CLASS(TestCGrouping);
#include "TestCGrouping.moc"
