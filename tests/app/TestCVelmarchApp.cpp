#include "app/CVelmarchApp.h"

#include "lang/LoadText.h"
#include "platform/host/CInstallLocation.h"
#include "records/RecordFactory.h"
#include "support/AppStart.h"
#include "support/TestProgram.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

Q_DECLARE_METATYPE(std::optional<Verb>)

namespace {

using Start = AppStart;

bool WriteFile(const QString& path, const QByteArray& content) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

}  // namespace

class TestCVelmarchApp : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder;
    QString Path(const QString& name) const { return folder->filePath(name); }

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void init() {
        folder = std::make_unique<QTemporaryDir>();
        qunsetenv("VELMARCH_HOME");
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(Path(u"config"_s)));
    }
    void cleanup() {
        qunsetenv("VELMARCH_HOME");
        qunsetenv("XDG_CONFIG_HOME");
    }

    void FindVerb_data() {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<std::optional<Verb>>("verb");
        const auto row = [](const char* situation, const QStringList& arguments, std::optional<Verb> verb) {
            QTest::newRow(situation) << arguments << verb;
        };
        row("none", {u"velmarch"_s}, std::nullopt);
        row("with a hyphen", {u"velmarch"_s, u"-shutdown"_s}, Verb::Shutdown);
        row("with a stroke", {u"velmarch"_s, u"/shutdown"_s}, Verb::Shutdown);
        row("another case is no verb", {u"velmarch"_s, u"-Shutdown"_s}, std::nullopt);
        row("the end of a synchronisation", {u"velmarch"_s, u"-syncend"_s}, Verb::SyncEnd);
        row("the registration", {u"velmarch"_s, u"/regadosync"_s}, Verb::RegisterSync);
        row("both: shutdown is tried first", {u"velmarch"_s, u"-syncend"_s, u"/shutdown"_s}, Verb::Shutdown);
        row("the registration comes after the end of a synchronisation", {u"-regadosync"_s, u"-syncend"_s},
            Verb::SyncEnd);
        row("without a leading character", {u"velmarch"_s, u"shutdown"_s}, std::nullopt);
        row("two hyphens", {u"velmarch"_s, u"--shutdown"_s}, std::nullopt);
        row("more behind the verb", {u"velmarch"_s, u"-shutdown=1"_s}, std::nullopt);
        row("an empty argument", {QString(), u"-"_s, u"-syncend"_s}, Verb::SyncEnd);
    }
    void FindVerb() {
        QFETCH(QStringList, arguments);
        const std::optional<Verb> found = ::FindVerb(arguments);
        QTEST(found, "verb");
    }

    // --- Home

    void ResolveHome_data() {
        QTest::addColumn<QString>("option");
        QTest::addColumn<QString>("environment");
        QTest::addColumn<QString>("home");
        QTest::newRow("a folder that is created") << u"new"_s << QString() << u"new"_s;
        QTest::newRow("with the folders above it") << u"a/b/c"_s << QString() << u"a/b/c"_s;
        QTest::newRow("written in a roundabout way") << u"x/../new/./"_s << QString() << u"new"_s;
        QTest::newRow("from the environment") << QString() << u"env"_s << u"env"_s;
        QTest::newRow("the option goes before the environment") << u"new"_s << u"env"_s << u"new"_s;
        QTest::newRow("blanks and an umlaut") << u" Bücher \"1\" "_s << QString() << u" Bücher \"1\" "_s;
    }
    void ResolveHome() {
        QFETCH(QString, option);
        QFETCH(QString, environment);
        QFETCH(QString, home);
        if (!environment.isEmpty()) qputenv("VELMARCH_HOME", Path(environment).toUtf8());
        Start start;
        QVERIFY(start.app.ResolveHome(option.isEmpty() ? option : Path(option)));
        QCOMPARE(start.app.Home(), QDir(folder->path()).canonicalPath() + u'/' + home);
        const QFile::Permissions others = QFile::ReadGroup | QFile::ReadOther | QFile::ExeOther;
        QCOMPARE(QFile::permissions(start.app.Home()) & others, QFile::Permissions());
    }

    void ResolveHomeToOneFolderUnderTwoNames() {
        QVERIFY(QDir(folder->path()).mkdir(u"real"_s));
        QVERIFY(QFile::link(Path(u"real"_s), Path(u"link"_s)));
        Start first, second;
        QVERIFY(first.app.ResolveHome(Path(u"real"_s)));
        QVERIFY(second.app.ResolveHome(Path(u"link"_s)));
        QCOMPARE(first.app.Home(), second.app.Home());
    }

    void ResolveHomeThatCanNotBe_data() {
        QTest::addColumn<QString>("home");
        QTest::addColumn<Text>("told");
        QTest::newRow("a file stands there") << u"file"_s << Text::HomeIsNoFolder;
        QTest::newRow("a file stands above it") << u"file/home"_s << Text::HomeCantBeMade;
        QTest::newRow("a name that is too long") << QString(300, u'x') << Text::HomeCantBeMade;
    }
    void ResolveHomeThatCanNotBe() {
        QFETCH(QString, home);
        QFETCH(Text, told);
        QVERIFY(WriteFile(Path(u"file"_s), "content"));
        Start start;
        start.prompt.ExpectTold(told);
        QVERIFY(!start.app.ResolveHome(Path(home)));
        QVERIFY(start.prompt.told.first().contains(Path(home)));
    }

    void CheckInstallLocation_data() {
        QTest::addColumn<QString>("note");
        QTest::addColumn<QString>("message");  // empty: the check passes
        const QString here = FolderOf(ModulePath());
        const QString advice = LoadText(Text::NotInstalledHere);
        const auto noteOf = [](const QString& place) { return u"InstallLocation="_s + place + u'\n'; };
        QTest::newRow("the program's own folder") << noteOf(here) << QString();
        QTest::newRow("the same folder in capitals") << noteOf(here.toUpper()) << QString();
        QTest::newRow("another folder: both are told")
            << noteOf(u"/opt/elsewhere"_s) << advice + u"\n\n\"/opt/elsewhere\"\n\""_s + here + u"\""_s;
        QTest::newRow("an empty value: no reason part") << noteOf(QString()) << advice;
        QTest::newRow("no such value")
            << u"Other=1\n"_s << advice + u"\n\nRegQueryValueEx\n\nNo such file or directory"_s;
        QTest::newRow("no such key") << QString()
                                     << advice + u"\n\nRegOpenKeyEx\n\nNo such file or directory"_s;
    }
    void CheckInstallLocation() {
        QFETCH(QString, note);
        QFETCH(QString, message);
        QVERIFY(QDir(folder->path()).mkpath(u"config/velmarch"_s));
        if (!note.isEmpty()) QVERIFY(WriteFile(Path(u"config/velmarch/DvVelSetup"_s), note.toUtf8()));
        Start start;
        if (!message.isEmpty()) start.prompt.ExpectTold(Text::NotInstalledHere);
        QCOMPARE(start.app.ResolveHome({}), message.isEmpty());
        if (message.isEmpty())
            QCOMPARE(start.app.Home().toLower(), FolderOf(ModulePath()).toLower());
        else
            QCOMPARE(start.prompt.told, QStringList{message});
    }

    // --- Settings

    void OpenSettingsSetsTheMode_data() {
        QTest::addColumn<RecordMode>("mode");
        QTest::newRow("time at the last exit") << RecordMode::Time;
        QTest::newRow("expenses at the last exit") << RecordMode::Expense;
    }
    void OpenSettingsSetsTheMode() {
        QFETCH(RecordMode, mode);
        {
            Start start;
            QVERIFY(start.app.ResolveHome(Path(u"home"_s)));
            QVERIFY(start.app.OpenSettings());
            theRecordMode = mode;
            NoteMode(start.app.Settings());
        }
        Start start;
        QVERIFY(start.app.ResolveHome(Path(u"home"_s)));
        QVERIFY(start.app.OpenSettings());
        QCOMPARE(theRecordMode, mode);
    }

    void OpenSettingsMakesTheWorkingRecords() {
        {
            Start start;
            QVERIFY(start.app.ResolveHome(Path(u"home"_s)));
            QVERIFY(start.app.OpenSettings());
            QVERIFY(theTimeEntry && theClockEntry && theSpanEntry && theExpenseEntry);
            QVERIFY(theTimeEntry != theClockEntry && theClockEntry != theSpanEntry);
        }
        QVERIFY(!theTimeEntry && !theClockEntry && !theSpanEntry && !theExpenseEntry);
    }

    void OpenSettingsThatCanNotBeRead() {
        QVERIFY(QDir(folder->path()).mkdir(u"home"_s));
        QVERIFY(WriteFile(Path(u"home/velmarch.settings"_s), QByteArray(4096, 'x')));
        {
            Start start;
            start.prompt.ExpectTold(Text::SettingsKeptAside);
            QVERIFY(start.app.ResolveHome(Path(u"home"_s)));
            QVERIFY(start.app.OpenSettings());
            QCOMPARE(start.app.Settings().precisionAmount, 2);
        }
        Start again;  // nothing more to tell
        QVERIFY(again.app.ResolveHome(Path(u"home"_s)));
        QVERIFY(again.app.OpenSettings());
    }

    void OpenSettingsThatAreGone() {
        {
            Start start;
            QVERIFY(start.OpenAll(Path(u"home"_s)));
        }
        QVERIFY(QFile::resize(Path(u"home/velmarch.settings"_s), 0));
        Start start;  // never in silence: timers may have run
        start.prompt.ExpectTold(Text::SettingsMissing);
        QVERIFY(start.app.ResolveHome(Path(u"home"_s)));
        QVERIFY(start.app.OpenSettings());
    }

    // --- Store

    void OpenStoreTwice() {
        QString id;
        {
            Start start;
            QVERIFY(start.OpenAll(Path(u"home"_s)));
            QVERIFY(
                start.app.Document().AddRecord(CTRecord(), {Notify::Yes, Commit::Now, Identity::New}, &id));
        }
        Start start;
        QVERIFY(start.OpenAll(Path(u"home"_s)));
        QVERIFY(start.app.LoadStep());
        QVERIFY(start.app.Document().FindTime(id));
    }

    void OpenStoreMakesAllFourTables() {
        Start start;
        QVERIFY(start.OpenAll(Path(u"home"_s)));
        for (const char* table :
             {"time_velmarch", "expense_velmarch", "item_velmarch", "dependency_velmarch"})
            QVERIFY(start.app.Manager().File().Execute(QByteArray("DELETE FROM ") + table));
    }

    void OpenStoreThatIsMissing_data() {
        QTest::addColumn<Answer>("answer");
        QTest::addColumn<bool>("started");
        QTest::newRow("the user puts it back first") << Answer::No << false;
        QTest::newRow("the user starts with no records") << Answer::Yes << true;
    }
    void OpenStoreThatIsMissing() {
        QFETCH(Answer, answer);
        {
            Start start;
            QVERIFY(start.OpenAll(Path(u"home"_s)));
        }
        QVERIFY(QFile::remove(Path(u"home/velmarch.store"_s)));
        Start start;
        start.prompt.Expect(Text::StoreMissing, answer);
        QTEST(start.OpenAll(Path(u"home"_s)), "started");
        QCOMPARE(QFile::exists(Path(u"home/velmarch.store"_s)), answer == Answer::Yes);
        QVERIFY(start.prompt.told.first().contains(u"velmarch.store"_s));
    }

    void OpenStoreWhoseTablesAreGone() {
        {
            Start start;
            QVERIFY(start.OpenAll(Path(u"home"_s)));
            QVERIFY(start.app.Manager().File().Execute("DROP TABLE time_velmarch"));
        }
        Start start;
        start.prompt.Expect(Text::StoreMissing, Answer::No);
        QVERIFY(!start.OpenAll(Path(u"home"_s)));
    }

    void OpenStoreThatCanNotBeOpened_data() {
        QTest::addColumn<QString>("trouble");
        QTest::newRow("damaged") << u"damaged"_s;
        QTest::newRow("not a store") << u"foreign"_s;
        QTest::newRow("made by a newer program") << u"newer"_s;
        QTest::newRow("a folder in its place") << u"folder"_s;
    }
    void OpenStoreThatCanNotBeOpened() {
        QFETCH(QString, trouble);
        const QString path = Path(u"home/velmarch.store"_s);
        {
            Start start;
            QVERIFY(start.OpenAll(Path(u"home"_s)));
            if (trouble == u"newer"_s) QVERIFY(start.app.Manager().File().Execute("PRAGMA user_version=999"));
            if (trouble == u"foreign"_s)
                QVERIFY(start.app.Manager().File().Execute("PRAGMA application_id=1"));
        }
        if (trouble == u"damaged"_s) QVERIFY(WriteFile(path, QByteArray(8192, 'x')));
        if (trouble == u"folder"_s) {
            QVERIFY(QFile::remove(path));
            QVERIFY(QDir().mkdir(path));
            QVERIFY(WriteFile(path + u"/file"_s, "content"));
        }
        Start start;
        start.prompt.ExpectTold(Text::StoreCantOpen);
        QVERIFY(!start.OpenAll(Path(u"home"_s)));
        QVERIFY(start.prompt.told.first().contains(path));
    }

    // --- Load step

    void LoadStep_data() {
        QTest::addColumn<RecordMode>("mode");
        QTest::addColumn<int>("records");
        QTest::newRow("an empty store: the views are told all the same") << RecordMode::Time << 0;
        QTest::newRow("two time records") << RecordMode::Time << 2;
        QTest::newRow("no expenses") << RecordMode::Expense << 0;
        QTest::newRow("two expenses") << RecordMode::Expense << 2;
    }
    void LoadStep() {
        QFETCH(RecordMode, mode);
        QFETCH(int, records);
        Start start;
        QVERIFY(start.OpenAll(Path(u"home"_s)));
        theRecordMode = mode;
        for (int i = 0; i < records; ++i)
            QVERIFY(start.app.Document().AddRecord(*NewRecord(KindOf(mode)),
                                                   {Notify::Later, Commit::Now, Identity::New}));
        QVERIFY(start.app.LoadStep());
        const QList<std::pair<Hint, QStringList>> expected{{Hint::Clear, {}}, {Hint::Rebuild, {}}};
        QCOMPARE(start.views.seen, expected);
        QCOMPARE(start.app.Document().VisibleCount(), static_cast<std::size_t>(records));
    }

    // --- The catalogue

    void LoadStepLoadsTheCatalogue() {
        {
            Start start;
            QVERIFY(start.OpenAll(Path(u"home"_s)));
            QVERIFY(start.app.Catalogue().AddItem(16, u"a client"_s, false));
            QVERIFY(start.app.Catalogue().AddItem(109, u"Customer"_s, false));
        }
        Start start;
        QVERIFY(start.OpenAll(Path(u"home"_s)));
        QCOMPARE(thePulldownCatalogue, &start.app.Catalogue());
        QVERIFY(start.app.Catalogue().Texts(16).isEmpty());  // a console command may not need it
        QVERIFY(start.app.LoadStep());
        QCOMPARE(start.app.Catalogue().Texts(16), QStringList{u"a client"_s});
        QCOMPARE(start.app.Catalogue().Labels().GetLabel(109), u"Customer"_s);
        start.app.CloseSettings();
        QVERIFY(!thePulldownCatalogue);
    }

    void LoadStepGoesOnWithoutTheCatalogue() {
        Start start;
        QVERIFY(start.OpenAll(Path(u"home"_s)));
        QVERIFY(start.app.Document().AddRecord(CTRecord(), {Notify::Later, Commit::Now, Identity::New}));
        QVERIFY(start.app.Manager().File().Execute("DROP TABLE dependency_velmarch"));
        start.prompt.ExpectTold(Text::ReadQueryFailed);
        QVERIFY(start.app.LoadStep());
        QCOMPARE(start.app.Document().VisibleCount(), std::size_t{1});
        const QList<std::pair<Hint, QStringList>> expected{{Hint::Clear, {}}, {Hint::Rebuild, {}}};
        QCOMPARE(start.views.seen, expected);
    }

    void CloseSettingsSavesThem() {
        {
            Start start;
            QVERIFY(start.OpenAll(Path(u"home"_s)));
            start.app.Settings().precisionAmount = 4;
            start.app.CloseSettings();
        }
        Start start;
        QVERIFY(start.OpenAll(Path(u"home"_s)));
        QCOMPARE(start.app.Settings().precisionAmount, 4);
    }
};

TEST_CLASS(TestCVelmarchApp);
#include "TestCVelmarchApp.moc"
