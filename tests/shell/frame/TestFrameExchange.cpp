#include "lang/FormatText.h"
#include "shell/frame/FrameCommandsHome.h"
#include "support/TestProgram.h"

#include <QFile>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// Import and export from the window.
class TestFrameExchange final : public QObject {
    Q_OBJECT

    std::unique_ptr<Fixture> fixture;

    [[nodiscard]] QString Path() const { return fixture->home.Path() + u"/file.csv"_s; }
    void Write(const QByteArray& content) const {
        QFile file(Path());
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    }
    [[nodiscard]] QByteArray Content() const {
        QFile file(Path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("absent");
    }
    void AddAndSelect(int records) const {
        for (int day = 1; day <= records; ++day) fixture->home.AddTime(2026, 11, day, u"09:00"_s, u"10:00"_s);
        fixture->home.document->LoadCurrentMode();
        fixture->home.document->BuildVisible();
        fixture->SelectAll();
    }

 private Q_SLOTS:
    void init() { fixture = std::make_unique<Fixture>(); }
    void cleanup() { fixture.reset(); }

    void records() {
        Write("11/19/2026,09:00,10:00,1,,A,,,,,,,No,No,n\nbad\n11/20/2026,,,2,,B,,,,,,,No,No,\n");
        fixture->home.prompt.ExpectFile(Path());
        fixture->home.prompt.Expect(Text::LineRefused, Answer::Ignore);
        fixture->home.prompt.ExpectTold(Text::ImportDone);
        fixture->Run(Command::kImport);
        fixture->home.prompt.Finish();
        QCOMPARE(fixture->dialogs.called, QStringList{u"delimiters"_s});
        QCOMPARE(fixture->dialogs.previewed.rows.size(), 2);
        QCOMPARE(fixture->home.document->RecordCount(), std::size_t{2});
        QVERIFY(fixture->home.catalogue->HasItem(16, u"A"_s));
    }

    void anAbsentFile() {
        fixture->home.prompt.ExpectFile(Path());
        fixture->home.prompt.ExpectTold(Text::ImportCantOpen);
        fixture->Run(Command::kImport);
        QVERIFY(fixture->dialogs.called.isEmpty());
    }

    void calledOff() {
        fixture->home.prompt.ExpectFile(std::nullopt);
        fixture->Run(Command::kImport);
        Write("11/19/2026,,,2,,B,,,,,,,No,No,\n");
        fixture->dialogs.isFileWanted = false;
        fixture->home.prompt.ExpectFile(Path());
        fixture->Run(Command::kImportOlderForm);
        QCOMPARE(fixture->home.document->RecordCount(), std::size_t{0});
    }

    /// Whatever is being done when the user cancels, no record is stored.
    void cancelledImport_data() {
        QTest::addColumn<int>("cancelIn");
        QTest::addColumn<QString>("work");
        QTest::addColumn<bool>("isTold");
        const auto row = [](int cancelIn, Text work, bool isTold) {
            QTest::addRow("%d", cancelIn) << cancelIn << LoadText(work) << isTold;
        };
        row(1, Text::ProgressStoredLook, false);
        row(2, Text::ProgressStoredLook, false);
        row(3, Text::ProgressLook, true);
        QTest::newRow("4") << 4 << FormatText<Text::ProgressImport>(2000) << true;
    }
    void cancelledImport() {
        QFETCH(int, cancelIn);
        QFETCH(bool, isTold);
        Write(QByteArray("11/19/2026,09:00,10:00,1,,A,,,,,,,No,No,n\n").repeated(2000));
        fixture->progress.cancelIn = cancelIn;
        fixture->home.prompt.ExpectFile(Path());
        if (isTold) fixture->home.prompt.ExpectTold(Text::ImportCancelled);
        fixture->Run(Command::kImport);
        fixture->home.prompt.Finish();
        QTEST(fixture->progress.begun.last(), "work");
        QCOMPARE(fixture->progress.ended, qsizetype{cancelIn});
        QCOMPARE(fixture->home.document->RecordCount(), std::size_t{0});
        fixture->home.document->LoadCurrentMode();
        QCOMPARE(fixture->home.document->RecordCount(), std::size_t{0});
        QVERIFY(!fixture->home.catalogue->HasItem(16, u"A"_s));
    }

    /// The former file stays, and nothing is marked or deleted.
    void cancelledExport() {
        AddAndSelect(3);
        Write("of last month\n");
        fixture->home.settings->exportPostProcessing = 2;
        fixture->progress.cancelIn = 1;
        fixture->home.prompt.ExpectFile(Path());
        fixture->home.prompt.ExpectTold(Text::ExportCancelled);
        fixture->Run(Command::kExport);
        fixture->home.prompt.Finish();
        QCOMPARE(fixture->progress.begun, QStringList{FormatText<Text::ProgressExport>(3)});
        QCOMPARE(Content(), QByteArray("of last month\n"));
        QCOMPARE(fixture->home.document->RecordCount(), std::size_t{3});
    }

    void items() {
        Write("Client,A\nTime field Client,Matter\nbad\n");
        fixture->home.prompt.ExpectFile(Path());
        fixture->home.prompt.ExpectTold(Text::ItemLineRefused);
        fixture->home.prompt.ExpectTold(Text::ImportItemsDone);
        fixture->Run(Command::kImportItems);
        fixture->home.prompt.Finish();
        QCOMPARE(fixture->home.catalogue->Labels().GetLabel(109), u"Matter"_s);
    }

    void exportOfNothing() {
        fixture->home.prompt.ExpectTold(Text::ExportNothingSelected);
        fixture->Run(Command::kExport);
        QVERIFY(fixture->dialogs.called.isEmpty());
    }

    void exportAndMark() {
        AddAndSelect(2);
        fixture->dialogs.afterExport = AfterExport::Mark;
        fixture->home.prompt.ExpectFile(Path());
        fixture->Run(Command::kExport);
        QCOMPARE(fixture->dialogs.called, (QStringList{u"delimiters"_s, u"after the export"_s}));
        QCOMPARE(Content().count('\n'), 3);
        fixture->home.document->ForEachVisible(
            [](const CVORec& record) { QVERIFY(static_cast<const CTRecord&>(record).isExported); });
    }

    void exportAndDeleteBySetting() {
        AddAndSelect(2);
        fixture->home.settings->exportPostProcessing = 2;
        fixture->home.prompt.ExpectFile(Path());
        fixture->Run(Command::kExport);
        QCOMPARE(fixture->dialogs.called, QStringList{u"delimiters"_s});
        QCOMPARE(fixture->home.document->RecordCount(), std::size_t{0});
    }

    void whatDoesNotComeBackIsntDeleted() {
        CTRecord record;
        record.date.Set(11, 1, 2026);
        record.item1 = u"5\" pipe"_s;
        QVERIFY(fixture->home.document->AddRecord(record, {Notify::No, Commit::Now, Identity::New}));
        AddAndSelect(1);
        fixture->home.settings->exportPostProcessing = 2;
        fixture->home.prompt.ExpectFile(Path());
        fixture->home.prompt.ExpectTold(Text::ExportNotReadBack);
        fixture->home.prompt.ExpectTold(Text::ExportNotDeletedUnread);
        fixture->Run(Command::kExport);
        fixture->home.prompt.Finish();
        QCOMPARE(fixture->home.document->RecordCount(), std::size_t{2});
    }

    void valuesThatAreNotReadAsTheyAreWritten() {
        Write("11/19/2026,09:00,10:00,8:30,,A,,,,,,,No,No,n\n");
        fixture->home.prompt.ExpectFile(Path());
        fixture->home.prompt.ExpectTold(Text::ImportDone);
        fixture->Run(Command::kImport);
        fixture->home.prompt.Finish();
        QVERIFY(fixture->home.prompt.told.last().contains(u"Line 1, Duration: \"8:30\" was read as 8."_s));
        QCOMPARE(fixture->dialogs.previewed.misread.size(), 1);
    }

    void nothingIsDeletedWhereNothingIsWritten() {
        AddAndSelect(1);
        fixture->home.settings->exportPostProcessing = 2;
        fixture->home.prompt.ExpectFile(fixture->home.Path() + u"/absent/file.csv"_s);
        fixture->home.prompt.ExpectTold(Text::ExportCantCreate);
        fixture->Run(Command::kExport);
        fixture->home.prompt.Finish();
        QCOMPARE(fixture->home.document->RecordCount(), std::size_t{1});
    }

    void exportOfItems() {
        QVERIFY(fixture->home.catalogue->AddItem(16, u"A"_s, false));
        fixture->home.prompt.ExpectFile(Path());
        fixture->home.prompt.ExpectTold(Text::ExportItemsDone);
        fixture->Run(Command::kExportItems);
        QCOMPARE(Content(), QByteArray("\"Client\",\"A\"\n"));
    }
};

TEST_CLASS(TestFrameExchange);
#include "TestFrameExchange.moc"
