#include "viewmodel/program/RegionalSettings.h"

#include "support/CNotedLauncher.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestRegionalSettings final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void OpensTheProgramOfTheDesktop_data() {
        QTest::addColumn<QStringList>("programs");
        QTest::addColumn<bool>("starts");
        QTest::addColumn<QString>("started");
        QTest::addColumn<bool>("isOpen");
        QTest::newRow("no such program") << QStringList{u"xterm"_s} << true << QString() << false;
        QTest::newRow("at its page") << QStringList{u"gnome-control-center"_s} << true
                                     << u"gnome-control-center region"_s << true;
        QTest::newRow("a program that is a page")
            << QStringList{u"lxqt-config-locale"_s} << true << u"lxqt-config-locale "_s << true;
        QTest::newRow("of two the first of the table")
            << QStringList{u"mintlocale"_s, u"systemsettings"_s} << true
            << u"systemsettings kcm_regionandlang"_s << true;
        QTest::newRow("one that can't be started")
            << QStringList{u"mintlocale"_s} << false << u"mintlocale "_s << false;
    }
    void OpensTheProgramOfTheDesktop() {
        QFETCH(QStringList, programs);
        QFETCH(bool, starts);
        CNotedLauncher launcher;
        launcher.programs = programs;
        launcher.starts = starts;
        QTEST(OpenRegionalSettings(launcher), "isOpen");
        QTEST(launcher.started, "started");
        QFETCH(QString, started);
        QCOMPARE(HasRegionalSettings(launcher), !started.isEmpty());
    }
};

TEST_CLASS(TestRegionalSettings);
#include "TestRegionalSettings.moc"
