#include "reports/definition/CFieldChoice.h"

#include "support/TestProgram.h"

#include <QTest>

namespace {

using enum CFieldChoice::Purpose;

QList<int> Numbers(const QList<FieldId>& fields) {
    QList<int> numbers;
    for (const FieldId field : fields) numbers << NumberOf(field);
    return numbers;
}

QList<int> Chosen(const CFieldChoice& choice) {
    QList<int> numbers;
    for (qsizetype place = 0; place < choice.Count(); ++place) numbers << NumberOf(choice.FieldAt(place));
    return numbers;
}

}  // namespace

class TestCFieldChoice final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void whatIsChosenIsNotAvailable() {
        CFieldChoice choice(RecordKind::Expense, Order, {{FieldId::Date, 1}, {FieldId::ExpenseAmount, -1}});
        QCOMPARE(Numbers(choice.Available()),
                 QList<int>({131, 132, 133, 134, 135, 138, 139, 141, 142, 140, 5007, 5004}));
        QVERIFY(choice.GiveBack(1));
        QCOMPARE(Numbers(choice.Available()),
                 QList<int>({131, 132, 133, 134, 135, 138, 139, 141, 142, 140, 5007, 5004, 136}));
        QVERIFY(!choice.GiveBack(1));
        QVERIFY(!choice.GiveBack(-1));
    }

    void columnsOfferTheNotes() {
        const CFieldChoice columns(RecordKind::Time, Columns, {});
        QVERIFY(columns.Available().contains(FieldId::TimeNotes));
        const CFieldChoice order(RecordKind::Time, Order, {});
        QVERIFY(!order.Available().contains(FieldId::TimeNotes));
    }

    void chosenFieldsStandBehindTheOthers() {
        CFieldChoice choice(RecordKind::Time, Columns, {{FieldId::TimeNotes, 0}});
        QVERIFY(choice.Choose(FieldId::Date));
        QVERIFY(!choice.Choose(FieldId::Date));
        QVERIFY(!choice.Choose(FieldId::ExpenseItem1));
        QCOMPARE(Chosen(choice), QList<int>({116, 5000}));
    }

    void moving() {
        CFieldChoice choice(RecordKind::Time, Order,
                            {{FieldId::Date, 1}, {FieldId::Start, 1}, {FieldId::TimeItem1, 1}});
        QVERIFY(choice.MoveUp(2));
        QCOMPARE(Chosen(choice), QList<int>({5000, 109, 5005}));
        QVERIFY(choice.MoveDown(0));
        QCOMPARE(Chosen(choice), QList<int>({109, 5000, 5005}));
        QVERIFY(!choice.MoveUp(0));
        QVERIFY(!choice.MoveDown(2));
        QVERIFY(!choice.MoveDown(-1));
        QVERIFY(!choice.MoveUp(3));
        QCOMPARE(Chosen(choice), QList<int>({109, 5000, 5005}));
    }

    void theDirectionMovesWithItsField() {
        CFieldChoice choice(RecordKind::Time, Order, {{FieldId::Date, 1}, {FieldId::Start, 1}});
        QVERIFY(choice.SetDescending(1, true));
        QVERIFY(choice.MoveUp(1));
        QVERIFY(choice.IsDescending(0) && !choice.IsDescending(1));
        QCOMPARE(choice.Result(), (QList<SortKey>{{FieldId::Start, -1}, {FieldId::Date, 1}}));
        QVERIFY(choice.SetDescending(0, false));
        QCOMPARE(choice.Result().first().direction, 1);
        QVERIFY(!choice.SetDescending(2, true));
    }

    /// Only -1 is checked, and what isn't checked is written as 1.
    void otherDirectionsBecomeAscending() {
        const CFieldChoice choice(RecordKind::Time, Order, {{FieldId::Date, 7}, {FieldId::Start, -1}});
        QVERIFY(!choice.IsDescending(0));
        QCOMPARE(choice.Result(), (QList<SortKey>{{FieldId::Date, 1}, {FieldId::Start, -1}}));
    }

    void columnsHaveNoDirection() {
        CFieldChoice choice(RecordKind::Time, Columns, {{FieldId::Date, -1}});
        QVERIFY(!choice.IsDescending(0));
        QVERIFY(!choice.SetDescending(0, true));
        QVERIFY(choice.Choose(FieldId::TimeItem1));
        QCOMPARE(choice.Result(), (QList<SortKey>{{FieldId::Date, 0}, {FieldId::TimeItem1, 0}}));
    }
};

TEST_CLASS(TestCFieldChoice);
#include "TestCFieldChoice.moc"
