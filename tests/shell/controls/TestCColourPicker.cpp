#include "shell/controls/CColourPicker.h"

#include "lang/LoadText.h"
#include "shell/controls/CColourPopup.h"
#include "support/TestProgram.h"
#include "viewmodel/list/ColourTable.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QtTest>

/// The button for a colour and its grid, under keys and clicks.
class TestCColourPicker : public QObject {
    Q_OBJECT

 private:
    static CColourPopup* Popup(CColourPicker& picker) {
        picker.show();
        QTest::keyClick(&picker, Qt::Key_Space);
        return picker.findChild<CColourPopup*>();
    }
    static QTableWidget* Grid(const CColourPopup& popup) {
        return popup.findChild<QTableWidget*>(QStringLiteral("colourGrid"));
    }
    static QPushButton* Button(const CColourPopup& popup, const char* name) {
        return popup.findChild<QPushButton*>(QString::fromLatin1(name));
    }

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void ShowsItsColourInWords_data() {
        QTest::addColumn<uint>("colour");
        QTest::addColumn<QString>("expected");
        QTest::newRow("of the grid") << 0x2068FFU << "Orange";
        QTest::newRow("a name with a blank at its end") << 0x98FB98U << "Pale green";
        QTest::newRow("none of the grid: red, green, blue") << 0x916F70U << "#706F91";
        QTest::newRow("automatic") << 0xFF000000U << "Automatic";
    }
    void ShowsItsColourInWords() {
        QFETCH(uint, colour);
        CColourPicker picker;
        picker.SetPurpose(QStringLiteral("Sky"));
        picker.SetColour(colour);
        QTEST(picker.text(), "expected");
        QCOMPARE(picker.accessibleName(), QStringLiteral("Sky: ") + picker.text());
        QCOMPARE(picker.Colour(), colour);
    }

    void ShowsTheColourItself() {
        CColourPicker picker;
        picker.SetColour(0x2068FF);
        const QSize size = picker.iconSize();
        const QImage picture = picker.icon().pixmap(size).toImage();
        QCOMPARE(picture.pixelColor(picture.rect().center()), QColor(0xFF, 0x68, 0x20));
    }

    void AutomaticHasItsOwnWords() {
        CColourPicker picker;
        picker.SetAutomatic(QStringLiteral("Default"), 0x8C8C8C, QColor(0xA0, 0xA0, 0xA0));
        picker.SetColour(kAutomaticColour);
        QCOMPARE(picker.text(), QStringLiteral("Default"));
        // A colour that is the default is shown as that and stays the colour.
        picker.SetColour(0x8C8C8C);
        QCOMPARE(picker.text(), QStringLiteral("Default"));
        QCOMPARE(picker.Colour(), 0x8C8C8CU);
        QCOMPARE(picker.icon().pixmap(picker.iconSize()).toImage().pixelColor(4, 4),
                 QColor(0xA0, 0xA0, 0xA0));
        CColourPopup* popup = Popup(picker);
        QCOMPARE(Button(*popup, "automaticButton")->accessibleName(), QStringLiteral("Default"));
        QVERIFY(Button(*popup, "automaticButton")->hasFocus());
    }

    void GridHasFortyNames() {
        CColourPicker picker;
        const CColourPopup* popup = Popup(picker);
        QStringList tips, names;
        for (int row = 0; row < Grid(*popup)->rowCount(); ++row) {
            for (int column = 0; column < Grid(*popup)->columnCount(); ++column) {
                const QTableWidgetItem* cell = Grid(*popup)->item(row, column);
                tips << cell->toolTip();
                names << cell->data(Qt::AccessibleTextRole).toString();
            }
        }
        QCOMPARE(tips.size(), 40);
        QCOMPARE(tips.first(), QStringLiteral("Black"));
        QCOMPARE(tips[9], QStringLiteral("Orange"));
        QCOMPARE(tips.last(), QStringLiteral("White"));
        QCOMPARE(names, tips);
    }

    void Keys_data() {
        QTest::addColumn<uint>("before");
        QTest::addColumn<QString>("keys");
        QTest::addColumn<uint>("expected");
        // > < ^ v arrows, R Return, _ Space, E Escape
        QTest::newRow("one to the right of black") << 0U << ">R" << 0x002AA5U;
        QTest::newRow("below black") << 0U << "vR" << 0x00008BU;
        QTest::newRow("to the left of white") << 0xFFFFFFU << "<R" << 0xFAE6E6U;
        QTest::newRow("above white") << 0xFFFFFFU << "^R" << 0xC0C0C0U;
        QTest::newRow("Space picks too") << 0U << ">>_" << 0x404000U;
        QTest::newRow("Escape") << 0U << ">>E" << 0U;
        QTest::newRow("up from the first row is automatic") << 0U << ">^R" << 0xFF000000U;
        QTest::newRow("and down again") << 0U << "^v>R" << 0x002AA5U;
        QTest::newRow("down from the last row is Cancel") << 0xFFFFFFU << "vR" << 0xFFFFFFU;
        QTest::newRow("and up again") << 0xFFFFFFU << "v^<R" << 0xFAE6E6U;
        QTest::newRow("automatic has the focus when it is what is shown")
            << 0xFF000000U << "R" << 0xFF000000U;
        QTest::newRow("from a colour that isn't in the grid") << 0x916F70U << "vR" << 0U;
    }
    void Keys() {
        QFETCH(uint, before);
        QFETCH(QString, keys);
        QFETCH(uint, expected);
        CColourPicker picker;
        picker.SetColour(before);
        QSignalSpy changed(&picker, &CColourPicker::ColourChanged);
        CColourPopup* popup = Popup(picker);
        QVERIFY(popup);
        static const QHash<QChar, Qt::Key> kKeys{
            {u'R', Qt::Key_Return}, {u'E', Qt::Key_Escape}, {u'_', Qt::Key_Space}, {u'>', Qt::Key_Right},
            {u'<', Qt::Key_Left},   {u'^', Qt::Key_Up},     {u'v', Qt::Key_Down}};
        for (const QChar key : keys) QTest::keyClick(popup->focusWidget(), kKeys[key]);
        QVERIFY(!popup->isVisible());
        QCOMPARE(picker.Colour(), expected);
        QCOMPARE(changed.count(), before == expected ? 0 : 1);
    }

    void OpensLikeAComboBox() {
        CColourPicker picker;
        picker.show();
        QTest::keyClick(&picker, Qt::Key_Down, Qt::AltModifier);
        QVERIFY(picker.findChild<CColourPopup*>());
    }

    void ClickPicks() {
        CColourPicker picker;
        picker.show();
        QSignalSpy changed(&picker, &CColourPicker::ColourChanged);
        QTest::mouseClick(&picker, Qt::LeftButton);
        auto* popup = picker.findChild<CColourPopup*>();
        QVERIFY(popup);
        const QTableWidget* grid = Grid(*popup);
        const QPoint place = grid->visualItemRect(grid->item(1, 1)).center();
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, place);
        QCOMPARE(picker.Colour(), 0x2068FFU);
        QVERIFY(!popup->isVisible());
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.front().front().toUInt(), 0x2068FFU);
    }

    void Buttons_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<uint>("expected");
        QTest::newRow("automatic") << "automaticButton" << 0xFF000000U;
        QTest::newRow("cancel") << "cancelButton" << 0x0000FFU;
    }
    void Buttons() {
        QFETCH(QString, name);
        CColourPicker picker;
        picker.SetColour(0x0000FF);
        CColourPopup* popup = Popup(picker);
        QTest::mouseClick(popup->findChild<QPushButton*>(name), Qt::LeftButton);
        QTEST(picker.Colour(), "expected");
        QVERIFY(!popup->isVisible());
    }
};

TEST_CLASS(TestCColourPicker);
#include "TestCColourPicker.moc"
