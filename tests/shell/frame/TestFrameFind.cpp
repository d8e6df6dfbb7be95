#include "shell/frame/FrameHome.h"
#include "shell/list/CListFindBar.h"
#include "shell/look/IconTheme.h"
#include "support/TestProgram.h"
#include "viewmodel/commands/CPeriodCommands.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QToolButton>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A window over records of a bakery and a harbour, in this month and the one before.
struct Found {
    QTemporaryDir folder;
    Window window{folder.path()};

    Found() {
        Add(11, 3, u"Hollis Bakery"_s);
        Add(11, 4, u"Harbour"_s);
        Add(11, 5, u"Hollis Bakery"_s);
        Add(10, 6, u"Hollis Bakery"_s);
        window.frame->Refresh();
        CPeriodCommands(window.app.Document()).Preset(4);
        window.frame->activateWindow();
        [&] { QVERIFY(QTest::qWaitForWindowActive(window.frame.get())); }();
    }
    void Add(int month, int day, const QString& client) {
        CTRecord record;
        record.Reset();
        record.date.Set(month, day, 2026);
        record.item1 = client;
        record.SetDuration(1, 30, true);
        [&] { QVERIFY(window.app.Document().AddRecord(record, {Notify::No, Commit::Now, Identity::New})); }();
    }
    [[nodiscard]] QLineEdit& Words() const { return *window.Find<QLineEdit>("listFindWords"); }
    [[nodiscard]] CListFindBar& Bar() const { return *window.Find<CListFindBar>("listFindBar"); }
    [[nodiscard]] QString Count() const { return window.Find<QLabel>("listFindCount")->text(); }
    [[nodiscard]] QCheckBox& Everywhere() const { return *window.Find<QCheckBox>("listFindEverywhere"); }
    void Type(const char* words) {
        QTest::keyClick(window.frame.get(), Qt::Key_F, Qt::ControlModifier);
        QTest::keyClicks(&Words(), QString::fromLatin1(words));
    }
};

}  // namespace

class TestFrameFind final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() {
        QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR)));
        ChooseIconTheme();
    }

    void typingNarrows() {
        Found found;
        QVERIFY(found.Bar().isHidden());
        QCOMPARE(found.window.Rows(), 3);
        found.Type("hollis");
        QVERIFY(found.Words().hasFocus());
        QCOMPARE(found.window.Rows(), 2);
        QCOMPARE(found.Count(), u"2 found"_s);
        QTest::keyClick(&found.Words(), Qt::Key_Return);
        QVERIFY(found.window.List().hasFocus());
        QTest::keyClick(found.window.frame.get(), Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(found.Words().selectedText(), u"hollis"_s);
    }

    void escapeGivesAllBack_data() {
        QTest::addColumn<bool>("fromList");
        QTest::newRow("in the field") << false;
        QTest::newRow("in the list") << true;
    }
    void escapeGivesAllBack() {
        QFETCH(bool, fromList);
        Found found;
        found.Type("harb");
        QCOMPARE(found.window.Rows(), 1);
        if (fromList) found.window.List().setFocus();
        QTest::keyClick(fromList ? static_cast<QWidget*>(&found.window.List()) : &found.Words(),
                        Qt::Key_Escape);
        QCOMPARE(found.window.Rows(), 3);
        QVERIFY(found.Bar().isHidden() && found.Words().text().isEmpty());
        QVERIFY(found.window.List().hasFocus());
    }

    /// What the status bar adds up is what stands above it.
    void theSumsFollowTheWords() {
        Found found;
        const auto status = [&] {
            return found.window.Status("statusCount") + u", "_s + found.window.Status("statusSums");
        };
        QCOMPARE(status(), u"3 records, 4.5000 h"_s);
        found.Type("hollis");
        QTRY_COMPARE(status(), u"2 records, 3.0000 h"_s);
        found.window.List().SelectIds({found.window.List().ShownIds().front()});
        QTRY_COMPARE(status(), u"1 of 2 selected, 1.5000 h"_s);
        found.window.List().SelectNone();
        QTest::keyClick(&found.Words(), Qt::Key_Escape);
        QTRY_COMPARE(status(), u"3 records, 4.5000 h"_s);
    }

    void nothingFoundSaysSo() {
        Found found;
        found.Type("taxi");
        QCOMPARE(found.Count(), u"Not found"_s);
        QCOMPARE(found.window.Find<QLabel>("emptySentence")->text(),
                 u"No record of this list has these words: taxi."_s);
        QVERIFY(found.Words().hasFocus());
        auto* button = found.window.Find<QPushButton>("emptyButton");
        QCOMPARE(button->text(), u"Look in all records"_s);
        button->click();
        QVERIFY(found.Everywhere().isChecked());
        QCOMPARE(found.window.Find<QLabel>("emptySentence")->text(),
                 u"No record at all has these words: taxi."_s);
        QVERIFY(!button->isVisible());
    }

    /// Whatever period and conditions say; with the end they are as they were.
    void everywhere() {
        Found found;
        TimeFilter filter = found.window.app.Document().Filter();
        filter.items[0] = u"Hollis Bakery"_s;
        CPeriodCommands(found.window.app.Document()).ApplyFilter(filter);
        found.Type("h");
        QCOMPARE(found.window.Rows(), 2);
        found.Everywhere().click();
        QCOMPARE(found.window.Rows(), 4);
        QCOMPARE(found.Count(), u"4 found"_s);
        QTest::keyClick(&found.Words(), Qt::Key_Escape);
        QVERIFY(found.window.app.Document().Filter() == filter);
        QCOMPARE(found.window.Rows(), 2);
        QVERIFY(!found.Everywhere().isChecked());
    }

    /// A period that is chosen meanwhile is the user's wish, and the search keeps to it.
    void anotherPeriodEndsEverywhere() {
        Found found;
        found.Type("hollis");
        found.Everywhere().click();
        QCOMPARE(found.window.Rows(), 3);
        CPeriodCommands(found.window.app.Document()).Preset(16);
        QVERIFY(!found.Everywhere().isChecked());
        QCOMPARE(found.window.app.Document().CurrentFilter().preset, 16);
        QTest::keyClick(&found.Words(), Qt::Key_Escape);
        QCOMPARE(found.window.app.Document().CurrentFilter().preset, 16);
    }

    void throughTheModes() {
        Found found;
        found.Type("hollis");
        found.Everywhere().click();
        found.window.frame->SwitchMode(RecordMode::Expense);
        QCOMPARE(found.window.Rows(), 0);
        found.window.frame->SwitchMode(RecordMode::Time);
        QCOMPARE(found.window.Rows(), 3);
        QTest::keyClick(&found.Words(), Qt::Key_Escape);
        QCOMPARE(found.window.app.Document().Filter().preset, 4);
        QCOMPARE(found.window.Rows(), 3);
    }

    /// Commands act on what is shown.
    void selectAllTakesWhatIsFound() {
        Found found;
        found.Type("hollis");
        found.window.frame->RunCommand(Command::kSelectAll);
        QCOMPARE(found.window.List().SelectedCount(), 2);
        QCOMPARE(found.window.Status("statusCount"), u"2 of 2 selected"_s);
    }

    /// The period that is kept for the next start is the user's, not everywhere.
    void endOfTheWindowEndsTheSearch() {
        Found found;
        found.Type("hollis");
        found.Everywhere().click();
        found.window.frame->PersistEverything();
        QCOMPARE(found.window.app.Document().Filter().preset, 4);
    }

    void theButtonCloses() {
        Found found;
        found.Type("harb");
        found.window.Find<QToolButton>("listFindClose")->click();
        QCOMPARE(found.window.Rows(), 3);
        QVERIFY(found.Bar().isHidden());
    }
};

TEST_CLASS(TestFrameFind);
#include "TestFrameFind.moc"
