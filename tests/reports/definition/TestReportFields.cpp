#include "reports/definition/ReportFields.h"
#include "support/TestProgram.h"

#include <QTest>

namespace {

QList<int> Numbers(RecordKind kind, ReportUse use) {
    QList<int> numbers;
    for (const FieldRow* field : ReportFields(kind, use)) numbers << NumberOf(field->id);
    return numbers;
}

}  // namespace

class TestReportFields final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void theFieldsOfAUseInTheirOrder_data() {
        QTest::addColumn<RecordKind>("kind");
        QTest::addColumn<ReportUse>("use");
        QTest::addColumn<QList<int>>("numbers");
        const auto time = RecordKind::Time, expense = RecordKind::Expense;
        QTest::newRow("time: groups")
            << time << ReportUse::Group << QList<int>{5000, 109, 110, 111, 112, 113, 114, 117, 118};
        QTest::newRow("time: sums") << time << ReportUse::Sum << QList<int>{115, 5003, 5001, 5002};
        QTest::newRow("time: sorting")
            << time << ReportUse::Sort
            << QList<int>{5000, 109, 110, 111, 112, 113, 114, 117, 118, 115, 5003, 5001, 5002, 5005, 5006};
        QTest::newRow("time: columns")
            << time << ReportUse::List << QList<int>{5000, 109, 110,  111,  112,  113,  114,  117,
                                                     118,  115, 5003, 5001, 5002, 5005, 5006, 116};
        QTest::newRow("expense: groups")
            << expense << ReportUse::Group
            << QList<int>{5000, 131, 132, 133, 134, 135, 138, 139, 141, 142, 140, 5007};
        QTest::newRow("expense: sums") << expense << ReportUse::Sum << QList<int>{5004, 136};
        QTest::newRow("expense: sorting")
            << expense << ReportUse::Sort
            << QList<int>{5000, 131, 132, 133, 134, 135, 138, 139, 141, 142, 140, 5007, 5004, 136};
        QTest::newRow("expense: columns")
            << expense << ReportUse::List
            << QList<int>{5000, 131, 132, 133, 134, 135, 138, 139, 141, 142, 140, 5007, 5004, 136, 137};
        QTest::newRow("no use") << time << ReportUse::None << QList<int>{};
    }
    void theFieldsOfAUseInTheirOrder() {
        QFETCH(RecordKind, kind);
        QFETCH(ReportUse, use);
        QTEST(Numbers(kind, use), "numbers");
    }

    void aFieldCanBeUsedWhereItIsOffered() {
        QVERIFY(CanUse(RecordKind::Time, FieldId::Start, ReportUse::Sort));
        QVERIFY(!CanUse(RecordKind::Time, FieldId::Start, ReportUse::Group));
        QVERIFY(!CanUse(RecordKind::Time, FieldId::TimeNotes, ReportUse::Sort));
        QVERIFY(!CanUse(RecordKind::Time, FieldId::ExpenseItem1, ReportUse::List));
        QVERIFY(!CanUse(RecordKind::Expense, FieldId::ExpenseExported, ReportUse::List));
    }

    void reportsKnowTheFieldsOfBothKinds() {
        QVERIFY(IsReportField(FieldId::TimeNotes) && IsReportField(FieldId::ExpenseRate));
        QVERIFY(!IsReportField(FieldId::TimeExported));
        QVERIFY(!IsReportField(FieldId::None));
        QVERIFY(!IsReportField(static_cast<FieldId>(9999)));
    }
};

TEST_CLASS(TestReportFields);
#include "TestReportFields.moc"
