#include "viewmodel/tree/TreeTexts.h"

#include "config/Settings.h"
#include "lang/LoadText.h"
#include "platform/host/CRegionalInfo.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

CTRecord Time(bool isFull) {
    CTRecord record;
    if (!isFull) return record;
    record.SetStart(9, 0, false);
    record.SetEnd(5, 30, true);
    record.SetBreak(0, 30);
    record.item1 = u"Client A"_s;
    record.item2 = u"Alpha & Söhne"_s;
    record.item3 = u"Design"_s;
    record.item4 = u"CC 4"_s;
    record.item5 = u"EUR"_s;
    record.SetBillable(true);
    record.isBilled = true;
    record.isExported = true;
    record.notes = u"n"_s;
    record.date.Set(11, 19, 2026);
    return record;
}

CERecord Expense(bool isFull) {
    CERecord record;
    if (!isFull) return record;
    record.date.Set(11, 19, 2026);
    record.item1 = u"Client A"_s;
    record.item2 = u"Alpha"_s;
    record.item3 = u"Taxi"_s;
    record.item4 = u"Card"_s;
    record.item5 = u"EUR"_s;
    record.isDistance = record.flag1 = record.flag2 = record.flag3 = record.flag4 = record.flag5 = true;
    record.isExported = true;
    record.distance.Set(5.0F);
    record.amount.Set(7.0F);
    record.notes = u"n"_s;
    return record;
}

}  // namespace

class TestTreeTexts final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void columnText_data() {
        QTest::addColumn<int>("column");
        QTest::addColumn<QString>("full");
        QTest::addColumn<QString>("blank");
        const auto row = [](const char* name, int column, const QString& full, const QString& blank) {
            QTest::newRow(name) << column << full << blank;
        };
        row("client", 4, u"Client A"_s, {});
        row("project", 5, u"Alpha & Söhne"_s, {});
        row("activity", 9, u"Design"_s, {});
        row("cost centre", 10, u"CC 4"_s, {});
        row("currency", 11, u"EUR"_s, {});
        row("billable", 13, u"Billable"_s, u"Not billable"_s);
        row("billed has one text only", 14, u"Billed"_s, u"Billed"_s);
        row("expense: client", 19, u"Client A"_s, {});
        row("expense: project", 20, u"Alpha"_s, {});
        row("expense: description", 21, u"Taxi"_s, {});
        row("expense: trip", 22, u"Distance entry"_s, u"No distance entry"_s);
        row("expense: payment", 25, u"Card"_s, {});
        row("expense: currency", 26, u"EUR"_s, {});
        row("expense: billable", 27, u"Billable"_s, u"Not billable"_s);
        row("expense: billed has two texts", 28, u"Billed"_s, u"Not billed"_s);
        row("expense: third flag", 29, u"Reimbursable"_s, u"Not reimbursable"_s);
        row("expense: fourth flag", 30, u"Reimbursed"_s, u"Not reimbursed"_s);
        row("expense: fifth flag", 31, u"Personal"_s, u"Not personal"_s);
        row("no level: duration", 1, u"8.5000"_s, u"--:--"_s);
        row("no level: break", 3, u"0.5000"_s, u"--:--"_s);
        row("no level: net", 2, u"8.0000"_s, u"--:--"_s);
        row("no level: start", 6, u"09:00 AM"_s, u"--:--"_s);
        row("no level: end", 7, u"05:30 PM"_s, u"--:--"_s);
        row("no level: notes", 15, u"Notes"_s, u"No notes"_s);
        row("no level: expense notes", 32, u"Notes"_s, u"No notes"_s);
        for (const int column : {0, 8, 12, 16, 17, 18, 23, 24, 33})
            QTest::addRow("no level and no text: column %d", column) << column << QString() << QString();
    }
    void columnText() {
        const RegionScope region{CRegionalInfo()};
        QFETCH(int, column);
        const Settings settings;
        const CTRecord fullTime = Time(true), blankTime = Time(false);
        const CERecord fullExpense = Expense(true), blankExpense = Expense(false);
        const bool isTime = column < 17;
        const CVORec& full = isTime ? static_cast<const CVORec&>(fullTime) : fullExpense;
        const CVORec& blank = isTime ? static_cast<const CVORec&>(blankTime) : blankExpense;
        QTEST(ColumnText(full, column, settings), "full");
        QTEST(ColumnText(blank, column, settings), "blank");
        const CVORec& other = isTime ? static_cast<const CVORec&>(fullExpense) : fullTime;
        QCOMPARE(ColumnText(other, column, settings), QString());
    }

    void spansInHoursAndMinutes() {
        const RegionScope region{CRegionalInfo()};
        Settings settings;
        settings.spanDisplayFormat = 1;
        QCOMPARE(ColumnText(Time(true), 1, settings), u"8:30"_s);
        QCOMPARE(ColumnText(Time(true), 2, settings), u"8:00"_s);
    }

    void noColumn() {
        for (const int column : {-1, 34, 600})
            QCOMPARE(ColumnText(Time(true), column, Settings()), QString());
    }

    /// Every column that the tree's set may show, and no other.
    void levels() {
        QString columns;
        for (const TreeLevelRow& level : TreeLevels()) columns += QString::number(level.column) + u' ';
        QCOMPARE(columns, u"4 5 9 10 11 13 14 19 20 21 22 25 26 27 28 29 30 31 "_s);
        for (const int column : ColumnsWithoutLevel()) QVERIFY(!FindTreeLevel(column));
        QCOMPARE(FindTreeLevel(9)->column, 9);
        QVERIFY(!FindTreeLevel(600));
    }
};

TEST_CLASS(TestTreeTexts);
#include "TestTreeTexts.moc"
