#include "shell/commands/CButtonChooser.h"

#include "app/FieldLabels.h"
#include "lang/LoadText.h"
#include "shell/frame/ModalUser.h"
#include "shell/look/IconTheme.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QListWidget>
#include <QPushButton>

using namespace Qt::Literals::StringLiterals;

/// The dialog of a bar's buttons, under keys and clicks.
class TestCButtonChooser final : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;
    FieldLabels labels;

    template <class Widget>
    static Widget* Find(const QDialog& dialog, const char* name) {
        return dialog.findChild<Widget*>(QString::fromLatin1(name));
    }
    static QListWidget* Available(const QDialog& dialog) {
        return Find<QListWidget>(dialog, "availableButtons");
    }
    static QListWidget* OnBar(const QDialog& dialog) { return Find<QListWidget>(dialog, "barButtons"); }
    /// All lines of a list, the selected one in brackets.
    static QString Lines(const QListWidget& list) {
        QStringList lines;
        for (int i = 0; i < list.count(); ++i) {
            const QString text = list.item(i)->text();
            lines << (list.currentRow() == i ? u"[%1]"_s.arg(text) : text);
        }
        return lines.join(u", "_s);
    }
    static void Press(const QDialog& dialog, const char* button) {
        QTest::mouseClick(Find<QPushButton>(dialog, button), Qt::LeftButton);
    }
    [[nodiscard]] std::unique_ptr<CButtonChooser> Open(Bar bar, const QList<int>& buttons) const {
        auto dialog = std::make_unique<CButtonChooser>(bar, buttons, CButtonChooser::Names{true, labels},
                                                       *home->profile);
        dialog->show();
        [&] { QVERIFY(QTest::qWaitForWindowActive(dialog.get())); }();
        return dialog;
    }

 private Q_SLOTS:
    void initTestCase() {
        home = std::make_unique<TestHome>();
        ChooseIconTheme();
        labels.Set(109, u"Customer & Co"_s);
    }

    void Opens() {
        const auto dialog = Open(Bar::Filters, {32804, kDivider, 32810});
        QCOMPARE(dialog->windowTitle(), u"Buttons of the filter bar"_s);
        QCOMPARE(Lines(*OnBar(*dialog)), u"[Customer & Co], Dividing line, Clear filter"_s);
        QVERIFY(Lines(*Available(*dialog))
                    .startsWith(u"[Dividing line], Find in the list, Back, Forward, All, Today"_s));
        QVERIFY(!Lines(*Available(*dialog)).contains(u"Clear filter"_s));
        for (int i = 1; i < Available(*dialog)->count(); ++i)
            QVERIFY2(!Available(*dialog)->item(i)->icon().isNull(),
                     qPrintable(Available(*dialog)->item(i)->text()));
    }
    void MoveOver_data() {
        QTest::addColumn<bool>("isTake");
        QTest::addColumn<int>("line");
        QTest::addColumn<QString>("expected");
        QTest::newRow("a button comes") << true << 1 << "Edit, Copy, [New record]";
        QTest::newRow("a dividing line comes") << true << 0 << "Edit, Copy, [Dividing line]";
        QTest::newRow("a button goes") << false << 0 << "[Copy]";
        QTest::newRow("the last button goes") << false << 1 << "[Edit]";
    }
    void MoveOver() {
        QFETCH(bool, isTake);
        QFETCH(int, line);
        const auto prepare = [&] {
            auto dialog = Open(Bar::Records, {103, 101});
            (isTake ? Available(*dialog) : OnBar(*dialog))->setCurrentRow(line);
            return dialog;
        };
        const auto byButton = prepare();
        Press(*byButton, isTake ? "takeButton" : "giveBackButton");
        QTEST(Lines(*OnBar(*byButton)), "expected");
        const auto byKey = prepare();
        QTest::keyClick(isTake ? Available(*byKey) : OnBar(*byKey), Qt::Key_Space);
        QTEST(Lines(*OnBar(*byKey)), "expected");
        const auto byDoubleClick = prepare();
        QListWidget* list = isTake ? Available(*byDoubleClick) : OnBar(*byDoubleClick);
        const QPoint place = list->visualItemRect(list->item(line)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place);
        QTEST(Lines(*OnBar(*byDoubleClick)), "expected");
    }
    void UpAndDown() {
        const auto dialog = Open(Bar::Records, {101, 103, 102});
        OnBar(*dialog)->setCurrentRow(2);
        QVERIFY(!Find<QPushButton>(*dialog, "buttonDown")->isEnabled());
        Press(*dialog, "buttonUp");
        QCOMPARE(Lines(*OnBar(*dialog)), u"Copy, [Delete], Edit"_s);
        QTest::keyClick(OnBar(*dialog), Qt::Key_Up, Qt::AltModifier);
        QCOMPARE(Lines(*OnBar(*dialog)), u"[Delete], Copy, Edit"_s);
        QVERIFY(!Find<QPushButton>(*dialog, "buttonUp")->isEnabled());
        QTest::keyClick(OnBar(*dialog), Qt::Key_Down, Qt::AltModifier);
        Press(*dialog, "buttonDown");
        QCOMPARE(Lines(*OnBar(*dialog)), u"Copy, Edit, [Delete]"_s);
        QCOMPARE(dialog->Buttons(), (QList<int>{101, 103, 102}));
    }
    void Restore() {
        const auto dialog = Open(Bar::Filters, {});
        QVERIFY(!Find<QPushButton>(*dialog, "giveBackButton")->isEnabled());
        Press(*dialog, "giveBackButton");
        QTest::keyClick(OnBar(*dialog), Qt::Key_Space);
        Press(*dialog, "resetButtons");
        QCOMPARE(dialog->Buttons(), FactoryButtons(Bar::Filters));
        QVERIFY(Find<QPushButton>(*dialog, "giveBackButton")->isEnabled());
        Press(*dialog, "fewButtons");
        QCOMPARE(dialog->Buttons(), FewButtons(Bar::Filters));
    }
    void RunGivesTheButtons() {
        const CButtonChooser::Names names{true, labels};
        const ModalUser accepts([](QDialog& dialog) {
            QTest::keyClick(OnBar(dialog), Qt::Key_Space);
            dialog.accept();
        });
        QCOMPARE(RunButtonChooser(nullptr, Bar::Records, {101, 103}, names, *home->profile),
                 std::optional(QList<int>{103}));
        QVERIFY(accepts.Met());
        const ModalUser cancels([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
        QCOMPARE(RunButtonChooser(nullptr, Bar::Records, {101}, names, *home->profile), std::nullopt);
        QVERIFY(cancels.Met());
    }
    void MnemonicsComeOnce() {
        const auto dialog = Open(Bar::Records, {});
        QStringList letters;
        for (const auto* button : dialog->findChildren<QPushButton*>()) {
            const qsizetype mark = button->text().indexOf(u'&');
            if (mark >= 0) letters << button->text()[mark + 1].toUpper();
        }
        QCOMPARE(letters.size(), 8);
        QCOMPARE(letters.removeDuplicates(), 0);
    }
};

TEST_CLASS(TestCButtonChooser);
#include "TestCButtonChooser.moc"
