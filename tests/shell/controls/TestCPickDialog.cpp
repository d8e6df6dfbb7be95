#include "shell/controls/CPickDialog.h"

#include "lang/LoadText.h"
#include "shell/frame/ModalUser.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QAbstractItemModelTester>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTreeView>

using namespace Qt::Literals::StringLiterals;

/// The dialog in which a text is picked, under keys and clicks.
class TestCPickDialog final : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;

    template <class Widget>
    static Widget* Find(const QDialog& dialog, const char* name) {
        return dialog.findChild<Widget*>(QString::fromLatin1(name));
    }
    static QTreeView* List(const QDialog& dialog) { return Find<QTreeView>(dialog, "searchRows"); }
    static QLineEdit* Search(const QDialog& dialog) { return Find<QLineEdit>(dialog, "searchLine"); }
    static QPushButton* Accept(const QDialog& dialog) { return Find<QPushButton>(dialog, "acceptButton"); }
    static QString Rows(const QDialog& dialog) {
        const QAbstractItemModel& model = *List(dialog)->model();
        QStringList rows;
        for (int row = 0; row < model.rowCount(); ++row) rows << model.index(row, 0).data().toString();
        return rows.join(u", "_s);
    }
    [[nodiscard]] std::unique_ptr<CPickDialog> Open(int present, const QStringList& rows) const {
        auto dialog = std::make_unique<CPickDialog>(
            CPickDialog::Choice{.title = u"Filter: Client"_s, .rows = rows, .present = present},
            *home->profile);
        dialog->show();
        [&] { QVERIFY(QTest::qWaitForWindowActive(dialog.get())); }();
        return dialog;
    }
    [[nodiscard]] std::unique_ptr<CPickDialog> Open(int present = 0) const {
        return Open(present, {u"(any)"_s, u"Client A"_s, u"Client B"_s, u"R & D <b>"_s});
    }

 private Q_SLOTS:
    void initTestCase() { home = std::make_unique<TestHome>(); }

    void OpensOnThePresentRow() {
        const auto dialog = Open(2);
        QCOMPARE(dialog->windowTitle(), u"Filter: Client"_s);
        QCOMPARE(Rows(*dialog), u"(any), Client A, Client B, R & D <b>"_s);
        QCOMPARE(dialog->Picked(), 2);
        QVERIFY(Search(*dialog)->hasFocus());
        QTest::keyClick(Search(*dialog), Qt::Key_Return);
        QCOMPARE(dialog->result(), static_cast<int>(QDialog::Accepted));
    }
    void WithoutAPresentRowNothingIsPicked() {
        const auto dialog = Open(-1);
        QCOMPARE(dialog->Picked(), -1);
        QVERIFY(!Accept(*dialog)->isEnabled());
        QTest::keyClick(Search(*dialog), Qt::Key_Down);
        QCOMPARE(dialog->Picked(), 0);
        QVERIFY(Accept(*dialog)->isEnabled());
    }
    void KeysMoveWhileOneTypes() {
        const auto dialog = Open(0);
        QTest::keyClick(Search(*dialog), Qt::Key_Down);
        QTest::keyClick(Search(*dialog), Qt::Key_Down);
        QTest::keyClick(Search(*dialog), Qt::Key_Up);
        QCOMPARE(dialog->Picked(), 1);
        QTest::keyClick(Search(*dialog), Qt::Key_PageDown);
        QCOMPARE(dialog->Picked(), 3);
        QVERIFY(Search(*dialog)->hasFocus());
    }
    void TypingNarrowsAndTakesTheFirst() {
        const auto dialog = Open(0);
        QTest::keyClicks(Search(*dialog), u"b client"_s);
        QCOMPARE(Rows(*dialog), u"Client B"_s);
        QCOMPARE(dialog->Picked(), 2);
        Search(*dialog)->clear();
        QCOMPARE(Rows(*dialog), u"(any), Client A, Client B, R & D <b>"_s);
        QCOMPARE(dialog->Picked(), 2);
    }
    void NothingFound() {
        const auto dialog = Open(1);
        auto* nothing = Find<QLabel>(*dialog, "searchNothing");
        QVERIFY(!nothing->isVisible());
        QTest::keyClicks(Search(*dialog), u"zebra"_s);
        QVERIFY(nothing->isVisible());
        QCOMPARE(dialog->Picked(), -1);
        QVERIFY(!Accept(*dialog)->isEnabled());
        QTest::keyClick(Search(*dialog), Qt::Key_Return);
        QVERIFY(dialog->isVisible());
        QTest::keyClick(Search(*dialog), Qt::Key_Escape);
        QCOMPARE(dialog->result(), static_cast<int>(QDialog::Rejected));
    }
    void DoubleClickPicks() {
        const auto dialog = Open(0);
        const QPoint place = List(*dialog)->visualRect(List(*dialog)->model()->index(3, 0)).center();
        QTest::mouseClick(List(*dialog)->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(List(*dialog)->viewport(), Qt::LeftButton, {}, place);
        QCOMPARE(dialog->result(), static_cast<int>(QDialog::Accepted));
        QCOMPARE(dialog->Picked(), 3);
    }
    void MarkupIsShownAsItStands() {
        const auto dialog = Open(0);
        QCOMPARE(List(*dialog)->model()->index(3, 0).data(Qt::ToolTipRole).toString(),
                 u"<span>R &amp; D &lt;b&gt;</span>"_s);
        QCOMPARE(List(*dialog)->model()->index(1, 0).data(Qt::ToolTipRole).toString(), u"Client A"_s);
    }
    void ShortListWithoutSearchAndWithNote() {
        CPickDialog dialog({.title = u"T"_s,
                            .rows = {u"(any)"_s, u"Yes"_s, u"No"_s},
                            .present = 1,
                            .hasSearch = false,
                            .note = u"A note <b>"_s},
                           *home->profile);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QVERIFY(!Search(dialog)->isVisible());
        QVERIFY(List(dialog)->hasFocus());
        QCOMPARE(Find<QLabel>(dialog, "pickNote")->text(), u"A note <b>"_s);
        QTest::keyClick(List(dialog), Qt::Key_Down);
        QTest::keyClick(List(dialog), Qt::Key_Return);
        QCOMPARE(dialog.Picked(), 2);
        QCOMPARE(dialog.result(), static_cast<int>(QDialog::Accepted));
    }
    void ManyRows() {
        QStringList rows;
        for (int i = 0; i < 20000; ++i) rows << u"Item %1"_s.arg(i);
        const auto dialog = Open(0, rows);
        QTest::keyClicks(Search(*dialog), u"19999"_s);
        QCOMPARE(Rows(*dialog), u"Item 19999"_s);
        QCOMPARE(dialog->Picked(), 19999);
    }
    void SoundModel() {
        const auto dialog = Open(0);
        const QAbstractItemModelTester tester(List(*dialog)->model(),
                                              QAbstractItemModelTester::FailureReportingMode::QtTest);
        QTest::keyClicks(Search(*dialog), u"client"_s);
        Search(*dialog)->clear();
        QCOMPARE(List(*dialog)->model()->rowCount(), 4);
    }
    void SizeIsKept() {
        {
            const auto dialog = Open();
            dialog->resize(410, 330);
            dialog->reject();
        }
        QCOMPARE(Open()->size(), QSize(410, 330));
    }

    void RunGivesWhatWasPicked() {
        const CPickDialog::Choice choice{.title = u"T"_s, .rows = {u"(any)"_s, u"Alpha"_s}, .present = 0};
        const ModalUser accepts([](QDialog& dialog) {
            QTest::keyClick(Search(dialog), Qt::Key_Down);
            QTest::keyClick(Search(dialog), Qt::Key_Return);
        });
        QCOMPARE(RunPickDialog(nullptr, choice, *home->profile), std::optional<int>(1));
        QVERIFY(accepts.Met());
        const ModalUser cancels([](QDialog& dialog) {
            QTest::keyClick(Search(dialog), Qt::Key_Down);
            QTest::keyClick(Search(dialog), Qt::Key_Escape);
        });
        QCOMPARE(RunPickDialog(nullptr, choice, *home->profile), std::nullopt);
        QVERIFY(cancels.Met());
    }
};

TEST_CLASS(TestCPickDialog);
#include "TestCPickDialog.moc"
