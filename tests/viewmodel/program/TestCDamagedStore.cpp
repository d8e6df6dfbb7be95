#include "viewmodel/program/CDamagedStore.h"

#include "app/HomeFiles.h"
#include "lang/LoadText.h"
#include "records/RecordFactory.h"
#include "support/AppStart.h"
#include "support/TestProgram.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kRecords = 300;

/// A start of the window up to its store.
struct Start : AppStart {
    [[nodiscard]] bool Resolve(bool isOpen) { return CDamagedStore({app, prompt, clock}).Resolve(isOpen); }
    [[nodiscard]] bool AddRecord() {
        CTRecord record;
        record.GenUnique();
        return app.Store().InsertRecord(record, Commit::Now) && app.Store().m_lastError == 0;
    }
    [[nodiscard]] int Records() {
        app.Document().LoadRecords(RecordKind::Time);
        return static_cast<int>(app.Document().RecordCount());
    }
};

void Overwrite(const QString& path, qint64 from, int bytes) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite) && file.seek(from));
    QVERIFY(file.write(QByteArray(bytes, '\x5A')) == bytes);
}

}  // namespace

/// The window's start over damaged records.
class TestCDamagedStore : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_folder;
    [[nodiscard]] QString Home() const { return m_folder->filePath(u"home"_s); }
    [[nodiscard]] QStringList Beside(const QString& pattern) const {
        return QDir(m_folder->path()).entryList({pattern}, QDir::Dirs);
    }
    [[nodiscard]] QStringList AsideInHome() const {
        return QDir(Home()).entryList({u"*.unreadable-*"_s}, QDir::Files);
    }
    /// The header, without which no store can be opened.
    void DamageHeader() const { Overwrite(StorePath(Home()), 0, 100); }

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void init() {
        m_folder = std::make_unique<QTemporaryDir>();
        Start start;
        QVERIFY(start.OpenAll(Home()));
        for (int i = 0; i < kRecords; ++i) {
            CTRecord record;
            record.GenUnique();
            record.notes = QString(100, u'n');
            QVERIFY(start.app.Store().InsertRecord(record, Commit::Later));
        }
        QVERIFY(start.app.Store().Commit());
    }

    void ASoundStoreAsksNothing() {
        Start start;
        QVERIFY(start.OpenAll(Home()));
        QVERIFY(start.Resolve(true));
        QVERIFY(!start.Resolve(false));
        start.prompt.Finish();
    }

    void WhatCanBeReadIsSavedAndUsed() {
        DamageHeader();
        Start start;
        start.prompt.ExpectTold(Text::StoreCantOpen);
        QVERIFY(!start.OpenAll(Home()));
        start.prompt.Expect(Text::AskSalvage, Answer::Yes);
        start.prompt.Expect(Text::AskUseSalvaged, Answer::Yes);
        QVERIFY(start.Resolve(false));
        QCOMPARE(start.Records(), kRecords);
        QVERIFY(start.AddRecord());
        QCOMPARE(Beside(u"home-saved-*"_s).size(), 1);
        QCOMPARE(AsideInHome().size(), 1);
        start.prompt.Finish();
    }

    void SavedRecordsNeedNotBeUsed() {
        DamageHeader();
        Start start;
        start.prompt.ExpectTold(Text::StoreCantOpen);
        QVERIFY(!start.OpenAll(Home()));
        start.prompt.Expect(Text::AskSalvage, Answer::Yes);
        start.prompt.Expect(Text::AskUseSalvaged, Answer::No);
        QVERIFY(!start.Resolve(false));
        QCOMPARE(Beside(u"home-saved-*"_s).size(), 1);
        QVERIFY(AsideInHome().isEmpty());
        start.prompt.Finish();
    }

    void TheDamagedFileIsPutAside() {
        DamageHeader();
        Start start;
        start.prompt.ExpectTold(Text::StoreCantOpen);
        QVERIFY(!start.OpenAll(Home()));
        start.prompt.Expect(Text::AskSalvage, Answer::No);
        start.prompt.Expect(Text::AskPutStoreAside, Answer::Yes);
        QVERIFY(start.Resolve(false));
        QCOMPARE(start.Records(), 0);
        QVERIFY(start.AddRecord());
        QCOMPARE(AsideInHome().size(), 1);
        start.prompt.Finish();
    }

    void NobodyAgreesToAnything() {
        DamageHeader();
        Start start;
        start.prompt.ExpectTold(Text::StoreCantOpen);
        QVERIFY(!start.OpenAll(Home()));
        start.prompt.Expect(Text::AskSalvage, Answer::No);
        start.prompt.Expect(Text::AskPutStoreAside, Answer::No);
        QVERIFY(!start.Resolve(false));
        QVERIFY(Beside(u"home-saved-*"_s).isEmpty());
        QVERIFY(AsideInHome().isEmpty());
        start.prompt.Finish();
    }

    /// A page within, met by one run: the next one asks, and until then nothing is written.
    void DamageThatIsKnownIsAskedAbout() {
        {
            Start start;
            QVERIFY(start.OpenAll(Home()));
            start.app.NoteStoreDamage();
            start.prompt.ExpectTold(Text::InsertFailed);
            QVERIFY(!start.AddRecord());
            start.prompt.Finish();
        }
        Overwrite(StorePath(Home()), 4096, 4096);
        Start start;
        QVERIFY(start.OpenAll(Home()));
        start.prompt.Expect(Text::AskSalvage, Answer::No);
        start.prompt.Expect(Text::AskPutStoreAside, Answer::No);
        start.prompt.ExpectTold(Text::DamagedStoreStays);
        QVERIFY(start.Resolve(true));
        start.prompt.ExpectTold(Text::InsertFailed);
        QVERIFY(!start.AddRecord());
        start.prompt.Finish();
    }

    /// What was taken for damage and is none, or was mended: the mark goes by itself.
    void AStoreThatIsSoundAgainIsUsed() {
        {
            Start start;
            QVERIFY(start.OpenAll(Home()));
            start.app.NoteStoreDamage();
        }
        Start start;
        QVERIFY(start.OpenAll(Home()));
        QVERIFY(start.Resolve(true));
        QVERIFY(start.AddRecord());
        QVERIFY(!IsStoreDamaged(start.app.Profile()));
        start.prompt.Finish();
    }
};

TEST_CLASS(TestCDamagedStore);
#include "TestCDamagedStore.moc"
