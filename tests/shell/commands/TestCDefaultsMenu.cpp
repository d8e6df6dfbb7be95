#include "shell/commands/CDefaultsMenu.h"

#include "lang/LoadText.h"
#include "support/TestProgram.h"

#include <QMenu>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// The stored defaults in the menu of new records.
class TestCDefaultsMenu final : public QObject {
    Q_OBJECT

    static QStringList Captions(const QMenu& menu) {
        QStringList captions;
        for (const QAction* action : menu.actions()) captions << action->text();
        return captions;
    }

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void NamesStandAboveTheirCommand() {
        QMenu menu;
        menu.addAction(u"New"_s);
        QAction* choose = menu.addAction(u"From a default..."_s);
        CDefaultsMenu defaults(menu, *choose);
        defaults.Show({u"Acme & Sons"_s, u"Travel"_s});
        QCOMPARE(Captions(menu),
                 QStringList({u"New"_s, u"Acme && Sons"_s, u"Travel"_s, u"From a default..."_s}));
        QSignalSpy chosen(&defaults, &CDefaultsMenu::Chosen);
        menu.actions().at(1)->trigger();
        QCOMPARE(chosen.size(), 1);
        QCOMPARE(chosen.front().front().toString(), u"Acme & Sons"_s);
        defaults.Show({u"Travel"_s});
        QCOMPARE(Captions(menu), QStringList({u"New"_s, u"Travel"_s, u"From a default..."_s}));
    }

    void TheyAreAskedForAsTheMenuOpens() {
        QMenu menu;
        CDefaultsMenu defaults(menu, *menu.addAction(u"From a default..."_s));
        connect(&defaults, &CDefaultsMenu::Wanted, &menu, [&] { defaults.Show({u"Travel"_s}); });
        menu.popup({});
        QCOMPARE(Captions(menu).front(), u"Travel"_s);
        menu.close();
    }

    void AMenuHasRoomForSoMany() {
        QMenu menu;
        CDefaultsMenu defaults(menu, *menu.addAction(u"From a default..."_s));
        QStringList names;
        for (int i = 1; i <= 40; ++i) names << u"Default %1"_s.arg(i);
        defaults.Show(names);
        QCOMPARE(menu.actions().size(), CDefaultsMenu::kMostNames + 1);
        QCOMPARE(Captions(menu).front(), u"Default 1"_s);
    }
};

TEST_CLASS(TestCDefaultsMenu);
#include "TestCDefaultsMenu.moc"
