#include "viewmodel/program/NewWindow.h"

#include "config/CCfgStore.h"
#include "lang/LoadText.h"
#include "platform/settings/CSettingsTree.h"
#include "platform/sqlite/CSqliteFile.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"
#include "viewmodel/commands/BarButtons.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// What a window is like that comes up for the first time.
class TestNewWindow final : public QObject {
    Q_OBJECT

    static QString ShownColumns(const CCfgStore& settings) {
        QStringList captions;
        for (const int column : settings.ListColumns().Order(ColumnHalf::Time))
            captions << settings.ListColumns().EntryAt(column).caption;
        return captions.join(u", "_s);
    }

 private Q_SLOTS:
    void InColumnsWithFewButtons() {
        QTemporaryDir folder;
        {
            TestHome home(folder.path());
            QVERIFY(SetUpNewWindow(*home.settings));
            home.settings->KeepStoreUntouched();
        }
        const TestHome next(folder.path());
        QCOMPARE(next.settings->listLayout, 3);
        QCOMPARE(next.settings->listGroups, 1);
        QVERIFY(next.settings->linesOnGrid);
        QVERIFY(!next.settings->confirmDelete);
        // What rounds hours and money is no matter of looks.
        QCOMPARE(next.settings->precisionDuration, 4);
        QCOMPARE(next.settings->precisionRate, 3);
        QCOMPARE(ShownColumns(*next.settings),
                 u"Date, Start, End, Client, Project, Activity, Hours, Amount, Billable, Billed"_s);
        QCOMPARE(next.settings->ListColumns().Breaks(ColumnHalf::Time), (std::vector<std::int32_t>{3, 6}));
        for (const Bar bar : {Bar::Records, Bar::Filters})
            QCOMPARE(LoadButtons(*next.profile, bar), FewButtons(bar));
    }

    /// The second start finds what the user has made of it meanwhile, also where the first was cut off.
    void OnceOnly() {
        TestHome home;
        QVERIFY(SetUpNewWindow(*home.settings));
        home.settings->listLayout = 4;
        QVERIFY(PersistButtons(*home.profile, Bar::Records, {Command::kNew}));
        QVERIFY(SetUpNewWindow(*home.settings));
        QCOMPARE(home.settings->listLayout, 4);
        QCOMPARE(LoadButtons(*home.profile, Bar::Records), QList<int>{Command::kNew});
    }

    /// Of a home that was in use before there was such a thing, everything stays.
    void AnOlderWindowStaysAsItIs() {
        TestHome home;
        QVERIFY(home.profile->WriteBinary(LoadText(Text::SectionWindow), LoadText(Text::EntryGeometry), "x"));
        QVERIFY(SetUpNewWindow(*home.settings));
        QCOMPARE(home.settings->listLayout, 4);
        QVERIFY(home.settings->confirmDelete);
        QCOMPARE(LoadButtons(*home.profile, Bar::Records), FactoryButtons(Bar::Records));
    }

    void WhereNothingCanBeStoredItComesUpSo() {
        TestHome home;
        CSqliteFile file;
        QCOMPARE(file.Open(home.Path() + u"/velmarch.settings"_s, CSettingsTree::kFileKind, false),
                 OpenOutcome::Existed);
        for (const char* change : {"INSERT", "UPDATE"})
            QVERIFY(file.Execute(QByteArray("CREATE TRIGGER no_") + change + " BEFORE " + change +
                                 " ON entries BEGIN SELECT RAISE(FAIL, 'refused'); END"));
        QVERIFY(!SetUpNewWindow(*home.settings));
        QCOMPARE(home.settings->listLayout, 3);
        QVERIFY(ShownColumns(*home.settings).startsWith(u"Date, Start, End, Client"_s));
        QVERIFY(home.prompt.told.isEmpty());
        home.settings->KeepStoreUntouched();
    }

    /// What was chosen on the console before counts.
    void AChoiceStays() {
        TestHome home;
        home.settings->listLayout = 2;
        QVERIFY(SetUpNewWindow(*home.settings));
        QCOMPARE(home.settings->listLayout, 2);
    }
};

TEST_CLASS(TestNewWindow);
#include "TestNewWindow.moc"
