#include "exchange/import/ImportPreview.h"

#include "ImportHome.h"
#include "exchange/text/GuessDelimiters.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestImportPreview final : public QObject {
    Q_OBJECT

    std::unique_ptr<ImportHome> fixture;

    [[nodiscard]] ImportPreview Preview() const {
        fixture->ReadStored(ImportHome::Request());
        return PreviewRecords(fixture->file, ImportHome::Request(), fixture->stored,
                              {fixture->home.catalogue->Labels(), *fixture->home.settings});
    }

 private Q_SLOTS:
    void init() { fixture = std::make_unique<ImportHome>(); }
    void cleanup() { fixture.reset(); }

    void guesses_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("separator");
        QTest::addColumn<QString>("qualifier");
        const QString quote = u"\""_s, apostrophe = u"'"_s;
        const QByteArray line = "\"11/19/2026\",\"A\",\"b,c\",\"x\"\n";
        QTest::newRow("the presets") << line << u","_s << quote;
        QTest::newRow("semicolons") << QByteArray(line).replace("\",\"", "\";\"") << u";"_s << quote;
        QTest::newRow("tabs") << QByteArray(line).replace("\",\"", "\"\t\"") << u"\t"_s << quote;
        QTest::newRow("nothing fits") << QByteArray("one\ntwo\n") << u","_s << quote;
        QTest::newRow("nothing at all") << QByteArray() << u","_s << quote;
        QTest::newRow("one odd line among many")
            << "no fields\n" + QByteArray(line).replace("\",\"", "\";\"").repeated(5) << u";"_s << quote;
    }
    void guesses() {
        QFETCH(QByteArray, content);
        fixture->Open(content);
        fixture->file.Begin({});
        const Delimiters guessed = GuessDelimiters(fixture->file, 4);
        QTEST(guessed.separator, "separator");
        QTEST(guessed.qualifier, "qualifier");
        QCOMPARE(guessed.lineEnd, u"\n"_s);
    }

    void records() {
        fixture->Open(
            "11/19/2026,09:00,10:00,1,,Client,,,,,,,No,No,n\nbad\n11/20/2026,,,2,,B,,,,,,,No,No,\n");
        const ImportPreview preview = Preview();
        QCOMPARE(preview.heads.size(), 15);
        QCOMPARE(preview.heads.mid(0, 6).join(u'|'), u"Date|Start|End|Duration|Break|Client"_s);
        QCOMPARE(preview.rows.size(), 2);
        QCOMPARE(preview.rows[0].mid(0, 3).join(u'|'), u"11/19/2026|09:00 AM|10:00 AM"_s);
        QCOMPARE(preview.refused.size(), 1);
        QVERIFY(preview.refused[0].contains(u'2') &&
                preview.refused[0].contains(LoadText(Text::LineTooFewFields)));
        QCOMPARE(preview.counts, u"Records: 2, lines that can't be imported: 1, here already: 0"_s);
        QCOMPARE(preview.encoding, QByteArray("utf-8"));
    }

    /// The column is called as the user calls it.
    void valuesThatAreNotReadAsTheyAreWritten() {
        fixture->Open("11/19/2026,9:00 noon,10:00,1,,A,,\"1,234.50\",,,,,Yes,No,n\n");
        const ImportPreview preview = Preview();
        QCOMPARE(preview.misread,
                 (QStringList{u"Line 1, Start: \"9:00 noon\" can't be read, so it is left out."_s,
                              u"Line 1, Rate: \"1,234.50\" was read as 1."_s}));
        QCOMPARE(preview.counts,
                 u"Records: 1, lines that can't be imported: 0, here already: 0, values not read as they are "
                 u"written: 2"_s);
        QCOMPARE(preview.rows[0][7], u"1.000"_s);
    }

    void theBeginningOfALongFile() {
        fixture->Open(QByteArray("bad\n").repeated(kPreviewedLines + 10));
        const ImportPreview preview = Preview();
        QCOMPARE(preview.refused.size(), kPreviewedLines);
        QVERIFY(preview.counts.startsWith(u"Of the first 1000 lines"_s));
    }

    void items() {
        QVERIFY(fixture->home.catalogue->AddItem(ListId::kClient, u"A"_s, false));
        fixture->Open("Client,A\nClient,B\nProject\n");
        const ImportPreview preview =
            PreviewItems(fixture->file, PresetDelimiters(), {}, *fixture->home.catalogue);
        QCOMPARE(preview.rows, QList<QStringList>{(QStringList{u"Client"_s, u"B"_s})});
        QCOMPARE(preview.counts, u"New list items: 1, lines that can't be imported: 1"_s);
    }
};

TEST_CLASS(TestImportPreview);
#include "TestImportPreview.moc"
