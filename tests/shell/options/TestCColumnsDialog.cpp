#include "shell/options/CColumnsDialog.h"

#include "lang/LoadText.h"
#include "shell/frame/ModalUser.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QCheckBox>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>

using namespace Qt::Literals::StringLiterals;

/// The columns of the list with their look, and the levels of the tree.
class TestCColumnsDialog final : public QObject {
    Q_OBJECT

    using Of = CColumnsDialog::Of;
    std::unique_ptr<TestHome> home;

    template <class Widget>
    static Widget* Find(const QDialog& dialog, const char* name) {
        return dialog.findChild<Widget*>(QString::fromLatin1(name));
    }
    static QStringList Lines(const QDialog& dialog, const char* list) {
        QStringList lines;
        const auto* widget = Find<QListWidget>(dialog, list);
        for (int i = 0; i < widget->count(); ++i)
            lines << widget->item(i)->text().replace(u"------ Separator"_s, u"-"_s);
        return lines;
    }
    static QString Shown(const QDialog& dialog) { return Lines(dialog, "shownColumns").join(u", "_s); }
    static void Press(const QDialog& dialog, const char* button) {
        QTest::mouseClick(Find<QPushButton>(dialog, button), Qt::LeftButton);
    }
    /// Moves the line with this caption over.
    static void Move(const QDialog& dialog, const char* list, const QString& caption) {
        auto* widget = Find<QListWidget>(dialog, list);
        widget->setCurrentItem(widget->findItems(caption, Qt::MatchExactly).value(0));
        QTest::keyClick(widget, Qt::Key_Space);
    }

 private Q_SLOTS:
    void init() { home = std::make_unique<TestHome>(); }

    void OpensOnTheColumnsOfTheList() {
        const CColumnsDialog time(Of::List, ColumnHalf::Time, *home->settings);
        QCOMPARE(time.windowTitle(), u"Columns and look"_s);
        // the breaks 5 and 7, and one at the end
        QCOMPARE(Shown(time),
                 u"Date, Start, Hours, Billable, Billed, -, Client, Project, -, Activity, "
                 "Cost centre, -"_s);
        QCOMPARE(Lines(time, "availableColumns").first(), u"-"_s);
        QCOMPARE(Lines(time, "availableColumns").size(), 9);
        const CColumnsDialog expenses(Of::List, ColumnHalf::Expense, *home->settings);
        QCOMPARE(Lines(expenses, "shownColumns").size(), 11);
        QVERIFY(Lines(expenses, "shownColumns").contains(u"Payment"_s));
    }
    /// Two fields whose names share the 16 letters that a caption has: each is the column that it is.
    void ColumnsThatAreCalledAlike() {
        CColSet& columns = home->settings->ListColumns();
        columns.ShowExactly(ColumnHalf::Time, {Column::kDate, Column::kItem2, Column::kItem1});
        for (const int column : {Column::kItem1, Column::kItem2})
            columns.SetColumn(ColumnHalf::Time, columns.EntryAt(column).caption,
                              {.caption = u"Administration"_s,
                               .width = 80,
                               .newPosition = columns.EntryAt(column).position,
                               .visible = true});
        CColumnsDialog dialog(Of::List, ColumnHalf::Time, *home->settings);
        dialog.accept();
        QCOMPARE(columns.Order(ColumnHalf::Time),
                 (std::vector{Column::kDate, Column::kItem2, Column::kItem1}));
        CColumnsDialog again(Of::List, ColumnHalf::Time, *home->settings);
        Find<QListWidget>(again, "shownColumns")
            ->setCurrentRow(static_cast<int>(Lines(again, "shownColumns").lastIndexOf(u"Administration"_s)));
        Press(again, "giveBackColumn");
        again.accept();
        QCOMPARE(columns.Order(ColumnHalf::Time), (std::vector{Column::kDate, Column::kItem2}));
    }
    void SeparatorsInTheLayoutOfSeveralLinesAlone() {
        home->settings->listLayout = 3;
        CColumnsDialog dialog(Of::List, ColumnHalf::Time, *home->settings);
        QVERIFY(!Lines(dialog, "shownColumns").contains(u"-"_s));
        QVERIFY(!Lines(dialog, "availableColumns").contains(u"-"_s));
        Move(dialog, "shownColumns", u"Client"_s);
        dialog.accept();
        // they wait for that layout as they were
        QCOMPARE(home->settings->ListColumns().Breaks(ColumnHalf::Time),
                 (std::vector<std::int32_t>{5, 7, 9}));
        QCOMPARE(home->settings->ListColumns().Order(ColumnHalf::Time),
                 (std::vector{0, 6, 1, 13, 14, 5, 9, 10}));
    }

    void AcceptedColumns() {
        CColumnsDialog dialog(Of::List, ColumnHalf::Time, *home->settings);
        Move(dialog, "shownColumns", u"Billable"_s);
        Move(dialog, "availableColumns", u"Rate"_s);
        Press(dialog, "columnUp");
        const auto expensesBefore = home->settings->ListColumns().Order(ColumnHalf::Expense);
        const int width = home->settings->ListColumns().EntryAt(Column::kBillable).width;
        dialog.accept();
        const CColSet& columns = home->settings->ListColumns();
        QCOMPARE(columns.Order(ColumnHalf::Time), (std::vector{0, 6, 1, 14, 4, 5, 9, 10, 8}));
        QCOMPARE(columns.Breaks(ColumnHalf::Time), (std::vector<std::int32_t>{4, 6, 9}));
        QCOMPARE(columns.Order(ColumnHalf::Expense), expensesBefore);
        QCOMPARE(columns.EntryAt(Column::kBillable).width, width);
    }
    void CancelledColumns() {
        CColumnsDialog dialog(Of::List, ColumnHalf::Time, *home->settings);
        Move(dialog, "shownColumns", u"Date"_s);
        Find<QCheckBox>(dialog, "alternateRows")->toggle();
        const int alternate = home->settings->alternateRows;
        dialog.reject();
        QCOMPARE(home->settings->ListColumns().Order(ColumnHalf::Time).front(), 0);
        QCOMPARE(home->settings->alternateRows, alternate);
    }
    void NoColumnAtAll() {
        CColumnsDialog dialog(Of::List, ColumnHalf::Time, *home->settings);
        auto* shown = Find<QListWidget>(dialog, "shownColumns");
        while (shown->count() > 0) {
            shown->setCurrentRow(0);
            QTest::keyClick(shown, Qt::Key_Space);
        }
        dialog.accept();
        QVERIFY(home->settings->ListColumns().Order(ColumnHalf::Time).empty());
        CColumnsDialog again(Of::List, ColumnHalf::Time, *home->settings);
        Move(again, "availableColumns", u"Notes"_s);
        again.accept();
        QCOMPARE(home->settings->ListColumns().Order(ColumnHalf::Time), (std::vector{15}));
        QCOMPARE(home->settings->ListColumns().EntryAt(15).position, 1);
    }

    void LookOnItsPage() {
        CColumnsDialog dialog(Of::List, ColumnHalf::Time, *home->settings);
        QCOMPARE(Find<QTabWidget>(dialog, "columnsPages")->count(), 2);
        const int grid = home->settings->gridLines;
        Find<QCheckBox>(dialog, "gridLines")->toggle();
        dialog.accept();
        QCOMPARE(home->settings->gridLines, 1 - grid);
    }

    void LevelsOfTheTree() {
        CColumnsDialog dialog(Of::Tree, ColumnHalf::Time, *home->settings);
        QCOMPARE(dialog.windowTitle(), u"Tree levels"_s);
        QCOMPARE(Find<QTabWidget>(dialog, "columnsPages"), nullptr);
        QCOMPARE(Shown(dialog), u"Client, Project, Activity, Cost centre"_s);
        // dates, times, spans, numbers, notes and the export mark make no level
        QCOMPARE(Lines(dialog, "availableColumns"), (QStringList{u"Currency"_s, u"Billable"_s, u"Billed"_s}));
        Move(dialog, "shownColumns", u"Client"_s);
        Move(dialog, "availableColumns", u"Billed"_s);
        dialog.accept();
        QCOMPARE(home->settings->TreeColumns().Order(ColumnHalf::Time), (std::vector{5, 9, 10, 14}));
        // the list is another matter
        QVERIFY(home->settings->ListColumns().IsVisible(Column::kItem1));
    }

    void SavedAtOnce() {
        QTemporaryDir folder;
        {
            TestHome first(folder.path());
            const ModalUser user([](QDialog& dialog) {
                Move(dialog, "shownColumns", u"Date"_s);
                dialog.accept();
            });
            QVERIFY(RunColumnsDialog(nullptr, Of::List, ColumnHalf::Time, *first.settings, first.prompt));
            QVERIFY(user.Met());
            first.settings->KeepStoreUntouched();
        }
        const TestHome second(folder.path());
        QVERIFY(!second.settings->ListColumns().IsVisible(Column::kDate));
    }
    void CancelledIsNotSaved() {
        const ModalUser user([](QDialog& dialog) {
            Move(dialog, "shownColumns", u"Date"_s);
            dialog.reject();
        });
        QVERIFY(!RunColumnsDialog(nullptr, Of::List, ColumnHalf::Time, *home->settings, home->prompt));
        QVERIFY(user.Met());
        QVERIFY(home->settings->ListColumns().IsVisible(Column::kDate));
    }
};

TEST_CLASS(TestCColumnsDialog);
#include "TestCColumnsDialog.moc"
