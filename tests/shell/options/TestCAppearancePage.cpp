#include "shell/options/CAppearancePage.h"

#include "config/SettingsTable.h"
#include "lang/LoadText.h"
#include "shell/controls/CColourPicker.h"
#include "shell/controls/CColourPopup.h"
#include "shell/options/CAppearancePreview.h"
#include "support/TestProgram.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QSpinBox>
#include <QtTest>

/// The page for rows, lines and colours under keys and clicks, and the settings afterwards.
class TestCAppearancePage : public QObject {
    Q_OBJECT

 private:
    template <class Widget>
    static Widget* Find(const QWidget& page, const QString& name) {
        auto* widget = page.findChild<Widget*>(name);
        if (!widget) qFatal("no widget %s", qPrintable(name));
        return widget;
    }
    static CColourPicker* Picker(const QWidget& page, const QString& name) {
        return Find<CColourPicker>(page, name);
    }
    /// Opens the colours and presses a button of theirs.
    static void PressInPopup(CColourPicker& picker, const char* button) {
        QTest::mouseClick(&picker, Qt::LeftButton);
        auto* popup = picker.findChild<CColourPopup*>();
        QTest::mouseClick(Find<QPushButton>(*popup, QString::fromLatin1(button)), Qt::LeftButton);
        delete popup;
    }
    static Settings Coloured() {
        Settings settings;
        settings.alternateRowColour = 0x0000FF;
        settings.gridLineColour = 0x00FF00;
        settings.lineColour1 = 0xFF0000;
        settings.lineColour2 = 0x2068FF;
        settings.lineColour3 = 0x800080;
        settings.lineColour4 = 0x123456;
        return settings;
    }
    static QColor PixelOf(const CAppearancePreview& preview, int row, bool isBottom) {
        const QRect place = preview.visualRect(preview.model()->index(row, 1));
        const QPoint at(place.right() - 2, isBottom ? place.bottom() : place.top() + 2);
        return preview.viewport()->grab().toImage().pixelColor(at);
    }

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void OpensOnTheStoredColours_data() {
        QTest::addColumn<uint>("expected");
        QTest::addColumn<QString>("words");
        QTest::newRow("alternateRowColour") << 0x0000FFU << "Red";
        QTest::newRow("gridLineColour") << 0x00FF00U << "Bright green";
        QTest::newRow("lineColour1") << 0xFF0000U << "Blue";
        QTest::newRow("lineColour2") << 0x2068FFU << "Orange";
        QTest::newRow("lineColour3") << 0x800080U << "Violet";
        QTest::newRow("lineColour4") << 0x123456U << "#563412";
    }
    void OpensOnTheStoredColours() {
        QFETCH(uint, expected);
        CAppearancePage page;
        page.SetDraft(Coloured());
        const CColourPicker* picker = Picker(page, QString::fromLatin1(QTest::currentDataTag()));
        QCOMPARE(picker->Colour(), expected);
        QTEST(picker->text(), "words");
    }

    void DefaultStoresTheDefault_data() {
        QTest::addColumn<int>("index");
        QTest::addColumn<int>("expected");
        QTest::newRow("alternateRowColour") << 54 << 0xF8F8F8;
        QTest::newRow("gridLineColour") << 56 << 0xE1E9EA;
        QTest::newRow("lineColour1") << 59 << 0x000000;
        QTest::newRow("lineColour2") << 60 << 0x916F70;
        QTest::newRow("lineColour3") << 61 << 0xC49797;
        QTest::newRow("lineColour4") << 62 << 0x8C8C8C;
    }
    void DefaultStoresTheDefault() {
        QFETCH(int, index);
        const QString name = QString::fromLatin1(QTest::currentDataTag());
        CAppearancePage page;
        page.SetDraft(Coloured());
        page.show();
        PressInPopup(*Picker(page, name), "automaticButton");
        QCOMPARE(Picker(page, name)->text(), QStringLiteral("Default"));
        Settings settings = Coloured();
        QCOMPARE(page.GetDraft(settings), std::vector<int>{index});
        QTEST(static_cast<int>(SettingValue(settings, *FindSetting(name))), "expected");
    }

    /// What the sample paints can be read as well.
    void TheSampleHasWords() {
        const CAppearancePreview preview;
        for (const int column : {0, 1})
            QVERIFY(!preview.model()->index(2, column).data(Qt::AccessibleTextRole).toString().isEmpty());
    }

    void UntouchedChangesNothing() {
        CAppearancePage page;
        for (const Settings& stored : {Settings(), Coloured()}) {
            page.SetDraft(stored);
            Settings settings = stored;
            QVERIFY(page.GetDraft(settings).empty());
        }
    }

    void DefaultsAreCalledSo() {
        CAppearancePage page;
        page.SetDraft(Settings());
        for (const CColourPicker* picker : page.findChildren<CColourPicker*>())
            QCOMPARE(picker->text(), QStringLiteral("Default"));
        QCOMPARE(page.findChildren<CColourPicker*>().size(), 6);
    }

    void PickAColour() {
        CAppearancePage page;
        page.SetDraft(Coloured());
        page.show();
        CColourPicker* picker = Picker(page, QStringLiteral("alternateRowColour"));
        QTest::keyClick(picker, Qt::Key_Space);
        auto* popup = picker->findChild<CColourPopup*>();
        QTest::keyClick(popup->focusWidget(), Qt::Key_Right);
        QTest::keyClick(popup->focusWidget(), Qt::Key_Return);
        Settings settings = Coloured();
        QCOMPARE(page.GetDraft(settings), std::vector<int>{54});
        QCOMPARE(settings.alternateRowColour, 0x5BADFFU);
    }

    void Switches() {
        CAppearancePage page;
        page.SetDraft(Settings());
        page.show();
        QTest::keyClick(Find<QCheckBox>(page, QStringLiteral("alternateRows")), Qt::Key_Space);
        QVERIFY(!Picker(page, QStringLiteral("alternateRowColour"))->isEnabled());
        QVERIFY(Picker(page, QStringLiteral("gridLineColour"))->isEnabled());
        QTest::keyClick(Find<QCheckBox>(page, QStringLiteral("gridLines")), Qt::Key_Space);
        QVERIFY(!Picker(page, QStringLiteral("gridLineColour"))->isEnabled());
        QVERIFY(!Find<QComboBox>(page, QStringLiteral("gridLineStyle"))->isEnabled());
        QVERIFY(!Find<QSpinBox>(page, QStringLiteral("gridLineWidth"))->isEnabled());
        Settings settings;
        const std::vector<int> changed{53, 55};
        QCOMPARE(page.GetDraft(settings), changed);
        QCOMPARE(settings.alternateRows, 0);
        QCOMPARE(settings.gridLines, 0);
    }

    void StyleAndWidth() {
        CAppearancePage page;
        page.SetDraft(Settings());
        page.show();
        auto* style = Find<QComboBox>(page, QStringLiteral("gridLineStyle"));
        auto* width = Find<QSpinBox>(page, QStringLiteral("gridLineWidth"));
        QCOMPARE(style->count(), 5);
        QTest::keyClick(style, Qt::Key_End);
        QCOMPARE(width->text(), QStringLiteral("Thinnest"));
        for (int i = 0; i < 12; ++i) QTest::keyClick(width, Qt::Key_Up);
        Settings settings;
        page.GetDraft(settings);
        QCOMPARE(settings.gridLineStyle, 4);
        QCOMPARE(settings.gridLineWidth, 10);
    }

    void StoredStyleThatIsNoneStays() {
        Settings settings;
        settings.gridLineStyle = 9;
        CAppearancePage page;
        page.SetDraft(settings);
        QCOMPARE(Find<QComboBox>(page, QStringLiteral("gridLineStyle"))->currentIndex(), -1);
        QVERIFY(page.GetDraft(settings).empty());
        QCOMPARE(settings.gridLineStyle, 9);
    }

    void PreviewFollows() {
        CAppearancePage page;
        Settings settings = Coloured();
        settings.listLayout = 1;
        page.SetDraft(settings);
        page.show();
        auto* preview = Find<CAppearancePreview>(page, QStringLiteral("appearancePreview"));
        QCOMPARE(PixelOf(*preview, 0, false), QColor(Qt::red));
        QCOMPARE(PixelOf(*preview, 1, false), preview->palette().color(QPalette::Base));
        QCOMPARE(PixelOf(*preview, 2, false), QColor(Qt::red));
        QCOMPARE(PixelOf(*preview, 1, true), QColor(Qt::green));
        QTest::keyClick(Find<QCheckBox>(page, QStringLiteral("gridLines")), Qt::Key_Space);
        QCOMPARE(PixelOf(*preview, 1, true), preview->palette().color(QPalette::Base));
        PressInPopup(*Picker(page, QStringLiteral("alternateRowColour")), "automaticButton");
        QCOMPARE(PixelOf(*preview, 0, false), QColor(0xF8, 0xF8, 0xF8));
    }
};

TEST_CLASS(TestCAppearancePage);
#include "TestCAppearancePage.moc"
