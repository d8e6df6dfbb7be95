#include "exchange/export/CTextExport.h"

#include "../import/ImportHome.h"
#include "exchange/export/ItemExport.h"
#include "exchange/export/PostProcessing.h"
#include "support/TestProgram.h"

#include <QDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestCTextExport final : public QObject {
    Q_OBJECT

    std::unique_ptr<ImportHome> fixture;

    [[nodiscard]] QByteArray Content() const {
        QFile file(fixture->Path());
        [&] { QVERIFY(file.open(QIODevice::ReadOnly)); }();
        return file.readAll();
    }
    [[nodiscard]] QStringList Ids() const {
        QStringList ids;
        for (int day = 1; day <= 3; ++day) ids.append(fixture->home.AddTime(2026, 11, day, u"09:00"_s));
        fixture->home.document->LoadRecords(RecordKind::Time);
        fixture->home.document->BuildVisible();
        fixture->home.views.seen.clear();
        return ids;
    }

 private Q_SLOTS:
    void init() { fixture = std::make_unique<ImportHome>(); }
    void cleanup() { fixture.reset(); }

    void aWholeFile() {
        CTextExport file(fixture->Path(), {.delimiters = PresetDelimiters()});
        QVERIFY(file.Put(u"ü €\n"_s) && file.Put(u"b\n"_s));
        QVERIFY(!QFile::exists(fixture->Path()));
        const ExportEnd end = file.Finish();
        QVERIFY(end.isWritten);
        QCOMPARE(end.replaced, 0);
        QCOMPARE(Content(), QByteArray("ü €\nb\n"));
    }

    void anotherEncoding() {
        CTextExport file(fixture->Path(), {.delimiters = PresetDelimiters(), .encoding = "iso-8859-1"});
        QVERIFY(file.Put(u"ü €\n"_s));
        const ExportEnd end = file.Finish();
        QVERIFY(end.isWritten);
        QCOMPARE(end.replaced, 1);
        QCOMPARE(Content(), QByteArray("\xFC ?\n"));
    }

    void withoutAnEndTheFormerFileStays() {
        fixture->Write("former");
        {
            CTextExport file(fixture->Path(), {.delimiters = PresetDelimiters()});
            QVERIFY(file.Put(QString(100'000, u'x')));
        }
        QCOMPARE(Content(), QByteArray("former"));
        QCOMPARE(QDir(fixture->home.Path()).entryList({u".velmarch-*"_s}, QDir::Files | QDir::Hidden).size(),
                 0);
    }

    void aFolderThatIsntThere() {
        CTextExport file(fixture->home.Path() + u"/absent/file"_s, {.delimiters = PresetDelimiters()});
        QVERIFY(!file.Put(u"x"_s));
        const ExportEnd end = file.Finish();
        QVERIFY(!end.isWritten);
        QVERIFY(end.message == Text::ExportCantCreate);
        fixture->home.prompt.ExpectTold(Text::ExportCantCreate);
        TellNotExported(end, fixture->home.prompt);
        QVERIFY(fixture->home.prompt.told.last().contains(u"folder"_s));
    }

    void items() {
        QVERIFY(fixture->home.catalogue->AddItem(ListId::kClient, u"A, \"B\""_s, false));
        QVERIFY(fixture->home.catalogue->AddItem(ListId::kTimeRate, u"1.50"_s, false));
        QVERIFY(fixture->home.catalogue->SetNames({{109, u"Matter"_s}}));
        // One of a list without a name is left out.
        CPRecord other(u"hidden"_s);
        other.listId = 143;
        other.GenUnique();
        QVERIFY(fixture->home.store->InsertRecord(other, Commit::Now));
        const ItemExportEnd end =
            ExportItems(fixture->Path(), {.delimiters = PresetDelimiters()}, *fixture->home.store);
        QVERIFY(end.areItemsRead && end.file.isWritten);
        QCOMPARE(end.items, 3);
        QCOMPARE(Content(), QByteArray("\"Client\",\"A, \"B\"\"\n\"Hourly rate\",\"1.5\"\n\"Time field "
                                       "Client\",\"Matter\"\n"));
    }

    void nothing() {
        const QStringList ids = Ids();
        QVERIFY(PostProcess(AfterExport::Nothing, RecordKind::Time, ids, fixture->changes).ids.isEmpty());
        QCOMPARE(fixture->Stored(), std::size_t{3});
    }

    void deleted() {
        const QStringList ids = Ids();
        QCOMPARE(PostProcess(AfterExport::Delete, RecordKind::Time, ids.mid(0, 2), fixture->changes).ids,
                 ids.mid(0, 2));
        QCOMPARE(fixture->Stored(), std::size_t{1});
    }

    /// One that bears the mark stays as it is, and no view is told of it.
    void marked() {
        const QStringList ids = Ids();
        QCOMPARE(PostProcess(AfterExport::Mark, RecordKind::Time, {ids[1]}, fixture->changes).ids,
                 QStringList{ids[1]});
        fixture->home.views.seen.clear();
        const Outcome outcome = PostProcess(AfterExport::Mark, RecordKind::Time, ids, fixture->changes);
        QVERIFY(outcome);
        QCOMPARE(outcome.ids, (QStringList{ids[0], ids[2]}));
        for (const auto& [hint, told] : fixture->home.views.seen) QVERIFY(!told.contains(ids[1]));
        QVERIFY(fixture->home.document->FindTime(ids[0])->isExported);
        QVERIFY(PostProcess(AfterExport::Mark, RecordKind::Time, ids, fixture->changes).ids.isEmpty());
    }
};

TEST_CLASS(TestCTextExport);
#include "TestCTextExport.moc"
