#include "fields/FieldTable.h"

#include "fields/FieldValue.h"
#include "fields/Headings.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr RecordKind kTime = RecordKind::Time;
constexpr RecordKind kExpense = RecordKind::Expense;
using enum FieldForm;

const FieldRow* Named(RecordKind kind, const QString& name) {
    for (const FieldRow& field : FieldsOf(kind))
        if (name == QLatin1String(field.name)) return &field;
    return nullptr;
}

QStringList Names(RecordKind kind) {
    QStringList names;
    for (const FieldRow& field : FieldsOf(kind)) names << QString::fromLatin1(field.name);
    return names;
}

/// The numbers of the fields that a report can use so, in the order of the table.
QList<int> Used(RecordKind kind, ReportUse use) {
    QList<int> numbers;
    for (const FieldRow& field : FieldsOf(kind))
        if (field.report == use) numbers << NumberOf(field.id);
    std::ranges::sort(numbers);
    return numbers;
}

}  // namespace

/// What is known of each field, told as literal numbers.
class TestFieldTable final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void names() {
        QCOMPARE(
            Names(kTime),
            u"date start end duration break effective item1 item2 item3 item4 item5 rate amount isBillable "
            "isBilled isExported notes"_s.split(u' '));
        QCOMPARE(
            Names(kExpense),
            u"date item1 item2 item3 item4 item5 isDistance distance rate amount odometerStart odometerEnd "
            "flag1 flag2 flag3 flag4 flag5 isExported notes"_s.split(u' '));
        QVERIFY(FieldsOf(RecordKind::PulldownItem).empty());
    }

    void numbers_data() {
        QTest::addColumn<RecordKind>("kind");
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("number");
        QTest::addColumn<FieldForm>("form");
        QTest::addColumn<int>("column");
        QTest::addColumn<int>("heading");
        QTest::addColumn<int>("list");
        const auto row = [](const char* situation, RecordKind kind, const QString& name, int number,
                            FieldForm form, int column, int heading, int list) {
            QTest::newRow(situation) << kind << name << number << form << column << heading << list;
        };
        row("time: date", kTime, u"date"_s, 5000, Date, 0, 0, 0);
        row("time: start", kTime, u"start"_s, 5005, TimeOfDay, 6, 0, 0);
        row("time: end", kTime, u"end"_s, 5006, TimeOfDay, 7, 0, 0);
        row("time: duration", kTime, u"duration"_s, 5001, Span, 1, 0, 0);
        row("time: net time is column 2", kTime, u"effective"_s, 5002, Span, 2, 0, 0);
        row("time: break is column 3", kTime, u"break"_s, 5003, Span, 3, 0, 0);
        row("time: client", kTime, u"item1"_s, 109, FieldForm::Text, 4, 99, 16);
        row("time: project", kTime, u"item2"_s, 110, FieldForm::Text, 5, 100, 17);
        row("time: third item", kTime, u"item3"_s, 111, FieldForm::Text, 9, 101, 32);
        row("time: fourth item", kTime, u"item4"_s, 112, FieldForm::Text, 10, 102, 33);
        row("time: rate, a field before the currency", kTime, u"rate"_s, 113, Money, 8, 103, 34);
        row("time: currency", kTime, u"item5"_s, 114, FieldForm::Text, 11, 104, 72);
        row("time: amount", kTime, u"amount"_s, 115, Money, 12, 105, 73);
        row("time: notes", kTime, u"notes"_s, 116, Notes, 15, 106, 0);
        row("time: billable", kTime, u"isBillable"_s, 117, Flag, 13, 107, 0);
        row("time: billed", kTime, u"isBilled"_s, 118, Flag, 14, 108, 0);
        row("time: exported", kTime, u"isExported"_s, 146, Flag, 16, 0, 0);
        row("expense: date", kExpense, u"date"_s, 5000, Date, 17, 0, 0);
        row("expense: client", kExpense, u"item1"_s, 131, FieldForm::Text, 19, 119, 16);
        row("expense: project", kExpense, u"item2"_s, 132, FieldForm::Text, 20, 120, 17);
        row("expense: description", kExpense, u"item3"_s, 133, FieldForm::Text, 21, 121, 68);
        row("expense: payment", kExpense, u"item4"_s, 134, FieldForm::Text, 25, 122, 71);
        row("expense: currency", kExpense, u"item5"_s, 135, FieldForm::Text, 26, 123, 72);
        row("expense: amount", kExpense, u"amount"_s, 136, Money, 18, 124, 73);
        row("expense: notes", kExpense, u"notes"_s, 137, Notes, 32, 125, 0);
        row("expense: first flag", kExpense, u"flag1"_s, 138, Flag, 27, 126, 0);
        row("expense: second flag", kExpense, u"flag2"_s, 139, Flag, 28, 127, 0);
        row("expense: third flag is 141", kExpense, u"flag3"_s, 141, Flag, 29, 129, 0);
        row("expense: fourth flag is 142", kExpense, u"flag4"_s, 142, Flag, 30, 130, 0);
        row("expense: fifth flag is 140", kExpense, u"flag5"_s, 140, Flag, 31, 128, 0);
        row("expense: exported", kExpense, u"isExported"_s, 148, Flag, 33, 0, 0);
        row("expense: distance", kExpense, u"distance"_s, 5004, Distance, 23, 0, 69);
        row("expense: rate", kExpense, u"rate"_s, 5007, Money, 24, 0, 70);
        row("expense: a distance entry has no number", kExpense, u"isDistance"_s, 0, Flag, 22, 0, 0);
        row("expense: a reading has no column", kExpense, u"odometerStart"_s, 0, Reading, 600, 0, 0);
        row("expense: nor has the second", kExpense, u"odometerEnd"_s, 0, Reading, 600, 0, 0);
    }
    void numbers() {
        QFETCH(RecordKind, kind);
        QFETCH(QString, name);
        QFETCH(int, number);
        QFETCH(int, column);
        const FieldRow* field = Named(kind, name);
        QVERIFY(field);
        QCOMPARE(NumberOf(field->id), number);
        QTEST(field->form, "form");
        QCOMPARE(field->column.index, column);
        QTEST(field->heading, "heading");
        QTEST(field->list, "list");
        QCOMPARE(KindOf(*field), kind);
        QCOMPARE(FindField(kind, number), number == 0 ? nullptr : field);
        QCOMPARE(FieldOfColumn(column), column == 600 ? nullptr : field);
        if (number != 0) QTEST(HeadingOf(field->id), "heading");
    }

    void everyField() { QCOMPARE(FieldsOf(kTime).size() + FieldsOf(kExpense).size(), 36U); }

    void findWithoutKind_data() {
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("name");
        QTest::newRow("a field of time records") << 112 << u"item4"_s;
        QTest::newRow("a field of expenses") << 138 << u"flag1"_s;
        QTest::newRow("the date") << 5000 << u"date"_s;
        QTest::newRow("the heading of a list is no field") << 102 << QString();
        QTest::newRow("a list of items is no field") << 33 << QString();
        QTest::newRow("nothing") << 0 << QString();
        QTest::newRow("between the numbers") << 147 << QString();
    }
    void findWithoutKind() {
        QFETCH(int, number);
        const FieldRow* field = FindField(number);
        QTEST(field ? QString::fromLatin1(field->name) : QString(), "name");
        QVERIFY(!FindField(kTime, 138));
        QVERIFY(!FindField(kExpense, 112));
    }

    /// Grouping, sums, sorting and listing of reports.
    void reports() {
        QCOMPARE(Used(kTime, ReportUse::Group), QList<int>({109, 110, 111, 112, 113, 114, 117, 118, 5000}));
        QCOMPARE(Used(kTime, ReportUse::Sum), QList<int>({115, 5001, 5002, 5003}));
        QCOMPARE(Used(kTime, ReportUse::Sort), QList<int>({5005, 5006}));
        QCOMPARE(Used(kTime, ReportUse::List), QList<int>({116}));
        QCOMPARE(Used(kExpense, ReportUse::Group),
                 QList<int>({131, 132, 133, 134, 135, 138, 139, 140, 141, 142, 5000, 5007}));
        QCOMPARE(Used(kExpense, ReportUse::Sum), QList<int>({136, 5004}));
        QCOMPARE(Used(kExpense, ReportUse::Sort), QList<int>());
        QCOMPARE(Used(kExpense, ReportUse::List), QList<int>({137}));
    }

    void levels() {
        QList<int> levels;
        for (int column = 0; column < 34; ++column)
            if (FieldOfColumn(column)->column.isLevel) levels << column;
        QCOMPARE(levels, QList<int>({4, 5, 9, 10, 11, 13, 14, 19, 20, 21, 22, 25, 26, 27, 28, 29, 30, 31}));
    }

    void compareForms_data() {
        QTest::addColumn<CompareForm>("form");
        QTest::addColumn<QList<int>>("columns");
        QTest::newRow("day and start") << CompareForm::DateAndStart << QList<int>{0, 17};
        QTest::newRow("spans") << CompareForm::Span << QList<int>{1, 2, 3};
        QTest::newRow("texts, the distance too")
            << CompareForm::Text << QList<int>{4, 5, 9, 10, 11, 19, 20, 21, 23, 25, 26};
        QTest::newRow("times") << CompareForm::TimeOfDay << QList<int>{6, 7};
        QTest::newRow("numbers") << CompareForm::Number << QList<int>{8, 12, 18, 24};
        QTest::newRow("flags and notes")
            << CompareForm::Flag << QList<int>{13, 14, 15, 16, 22, 27, 28, 29, 30, 31, 32, 33};
    }
    void compareForms() {
        QFETCH(CompareForm, form);
        QList<int> columns;
        for (int column = 0; column < 34; ++column)
            if (CompareFormOf(FieldOfColumn(column)->form) == form) columns << column;
        QTEST(columns, "columns");
    }
};

TEST_CLASS(TestFieldTable);
#include "TestFieldTable.moc"
