#include "shell/commands/CPalette.h"

#include "app/FieldLabels.h"
#include "shell/frame/ModalUser.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>

using namespace Qt::Literals::StringLiterals;

namespace {

CommandState Everything() {
    CommandState state;
    state.selected = 1;
    state.listed = 3;
    return state;
}

/// "Record > Mark: Billable".
QStringList Listed(const CommandState& state, const FieldLabels& labels = {}) {
    QStringList lines;
    for (const PaletteEntry& entry : PaletteEntries(state, labels))
        lines << entry.path + u": "_s + entry.name;
    return lines;
}

}  // namespace

/// Finding a command by its words.
class TestCPalette final : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;

    static QLineEdit* Search(const QDialog& dialog) { return dialog.findChild<QLineEdit*>(u"searchLine"_s); }
    static QAbstractItemModel& Rows(const QDialog& dialog) {
        return *dialog.findChild<QTreeView*>(u"searchRows"_s)->model();
    }
    [[nodiscard]] std::unique_ptr<CPalette> Open() const {
        auto palette =
            std::make_unique<CPalette>(PaletteEntries(Everything(), FieldLabels()), *home->profile);
        palette->show();
        [&] { QVERIFY(QTest::qWaitForWindowActive(palette.get())); }();
        return palette;
    }

 private Q_SLOTS:
    void initTestCase() { home = std::make_unique<TestHome>(); }

    void OnlyWhatIsOffered() {
        CommandState state = Everything();
        QVERIFY(Listed(state).contains(u"Record: Edit"_s));
        QVERIFY(Listed(state).contains(u"View > Tool bars: Status bar"_s));
        QVERIFY(!Listed(state).contains(u"Timer: Stop all timers"_s));
        state.selected = 2;
        state.anyTimer = true;
        QVERIFY(!Listed(state).contains(u"Record: Edit"_s));
        QVERIFY(Listed(state).contains(u"Timer: Stop all timers"_s));
        state.busy = true;
        QCOMPARE(Listed(state), QStringList{u"Record: Exit"_s});
    }
    void NotItself() {
        for (const PaletteEntry& entry : PaletteEntries(Everything(), FieldLabels()))
            QVERIFY(entry.row->id != 40200);
    }
    /// 32823 is the layout with the list in front, else the period: only what would happen is offered.
    void TheNumberThatStandsTwice() {
        CommandState state = Everything();
        QVERIFY(Listed(state).contains(u"View: Large icons"_s));
        QVERIFY(!Listed(state).contains(u"Period > Years: Last year"_s));
        state.listIsActive = false;
        QVERIFY(!Listed(state).contains(u"View: Large icons"_s));
        QVERIFY(Listed(state).contains(u"Period > Years: Last year"_s));
    }
    void FieldsByTheNamesOfTheUser() {
        FieldLabels labels;
        labels.Set(109, u"Customer"_s);
        QVERIFY(Listed(Everything(), labels).contains(u"Filter: Customer"_s));
        QVERIFY(Listed(Everything(), labels).contains(u"Record > Mark: Billed"_s));
    }

    void ShortcutsAreShown() {
        const auto palette = Open();
        for (int row = 0; row < Rows(*palette).rowCount(); ++row)
            if (Rows(*palette).index(row, 0).data().toString() == u"Delete"_s) {
                QCOMPARE(Rows(*palette).index(row, 1).data().toString(), u"Record"_s);
                QCOMPARE(Rows(*palette).index(row, 2).data().toString(), u"Del"_s);
                // Each cell tells the row, also one that shows nothing.
                for (const int column : {0, 1, 2})
                    QCOMPARE(Rows(*palette).index(row, column).data(Qt::AccessibleTextRole).toString(),
                             u"Delete, Record, Del"_s);
                return;
            }
        QFAIL("Delete isn't listed");
    }
    void FindsByCaptionAndMenu_data() {
        QTest::addColumn<QString>("words");
        QTest::addColumn<int>("command");
        QTest::newRow("the caption") << "columns and look" << 40052;
        QTest::newRow("parts of it") << "colu look" << 40052;
        QTest::newRow("with its menu") << "record mark billed" << 40055;
        QTest::newRow("any case") << "EDIT" << 103;
        QTest::newRow("the best first") << "copy" << 101;
    }
    void FindsByCaptionAndMenu() {
        QFETCH(QString, words);
        const auto palette = Open();
        QTest::keyClicks(Search(*palette), words);
        QTEST(palette->Chosen().value_or(0), "command");
        QTest::keyClick(Search(*palette), Qt::Key_Return);
        QCOMPARE(palette->result(), static_cast<int>(QDialog::Accepted));
    }
    void NothingFoundRunsNothing() {
        const auto palette = Open();
        QTest::keyClicks(Search(*palette), u"xyzzy"_s);
        QCOMPARE(palette->Chosen(), std::nullopt);
        QVERIFY(!palette->findChild<QPushButton*>(u"acceptButton"_s)->isEnabled());
        QTest::keyClick(Search(*palette), Qt::Key_Return);
        QVERIFY(palette->isVisible());
    }
    void RunAndCancel() {
        const ModalUser accepts([](QDialog& dialog) {
            QTest::keyClicks(Search(dialog), u"refresh"_s);
            QTest::keyClick(Search(dialog), Qt::Key_Return);
        });
        QCOMPARE(RunPalette(nullptr, PaletteEntries(Everything(), FieldLabels()), *home->profile),
                 std::optional<int>(32780));
        QVERIFY(accepts.Met());
        const ModalUser cancels([](QDialog& dialog) { QTest::keyClick(Search(dialog), Qt::Key_Escape); });
        QCOMPARE(RunPalette(nullptr, PaletteEntries(Everything(), FieldLabels()), *home->profile),
                 std::nullopt);
        QVERIFY(cancels.Met());
    }
};

TEST_CLASS(TestCPalette);
#include "TestCPalette.moc"
