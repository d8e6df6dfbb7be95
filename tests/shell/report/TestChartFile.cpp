#include "shell/report/ChartFile.h"

#include "lang/LoadText.h"
#include "platform/host/SafeFile.h"
#include "support/TestProgram.h"
#include "viewmodel/report/ChartModel.h"

#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>
#include <QXmlStreamReader>

using namespace Qt::Literals::StringLiterals;

namespace {

ChartModel Chart(const QString& label, const QString& caption = u"Client"_s) {
    static const CRegionalInfo kRegion;
    return MakeChart({.sumCaption = u"Effective"_s,
                      .keyCaptions = {caption},
                      .dateKey = std::nullopt,
                      .places = 2,
                      .groups = {{{label}, 8.0}, {{u"B"_s}, -4.0}}},
                     {.region = kRegion, .firstDayOfWeek = 1});
}

/// What another program reads of a picture.
struct SvgContent {
    QStringList texts;
    QStringList elements;
    QStringList attributes;
    bool isSound = false;
};

SvgContent Read(const QByteArray& svg) {
    SvgContent content;
    QXmlStreamReader xml(svg);
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement()) {
            content.elements.append(xml.name().toString());
            for (const QXmlStreamAttribute& attribute : xml.attributes())
                content.attributes.append(attribute.name().toString());
        }
        if (xml.isCharacters() && !xml.isWhitespace()) content.texts.append(xml.text().toString().trimmed());
    }
    content.isSound = !xml.hasError();
    return content;
}

QByteArray Bytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

/// A chart by itself, as a file.
class TestChartFile final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void SvgHoldsTheTexts() {
        const SvgContent content = Read(ChartAsSvg(Chart(u"Client A"_s)));
        QVERIFY(content.isSound);
        for (const QString& text : {u"Effective by Client"_s, u"Client A"_s, u"8.00"_s, u"B"_s, u"-4.00"_s})
            QVERIFY2(content.texts.contains(text), qPrintable(content.texts.join(u'|')));
    }

    void SvgOfHostileTexts_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("a script") << u"<script>x</script>"_s;
        QTest::newRow("the end of an element") << u"</text></g>"_s;
        QTest::newRow("signs of XML") << u"a & b < c > \"d\" 'e'"_s;
        QTest::newRow("a section") << u"]]><![CDATA["_s;
        QTest::newRow("codes that XML has no way to write")
            << QString(u"a"_s + QChar(1) + QChar(0x1F) + u"b"_s);
        QTest::newRow("half a letter") << QString(u"a"_s + QChar(0xD83D) + u"b"_s + QChar(0xDE00));
        QTest::newRow("codes that are no letters") << QString(QChar(0xFFFF)) + QChar(0xFFFE);
        QTest::newRow("lines") << u"a\nb\r\nc\u2028d"_s;
        QTest::newRow("a null") << QString(u"a"_s + QChar(0) + u"b"_s);
        QTest::newRow("from right to left") << u"\u202Eabc \u05D0\u05D1"_s;
    }
    void SvgOfHostileTexts() {
        QFETCH(QString, text);
        const SvgContent content = Read(ChartAsSvg(Chart(text, text)));
        QVERIFY(content.isSound);
        for (const QString& element : {u"script"_s, u"image"_s, u"a"_s, u"use"_s, u"foreignObject"_s})
            QVERIFY(!content.elements.contains(element));
        QVERIFY(!content.attributes.contains(u"href"_s));
    }

    void PngIsSharp() {
        const QByteArray svg = ChartAsSvg(Chart(u"A"_s));
        QImage image;
        QVERIFY(image.loadFromData(ChartAsPng(Chart(u"A"_s)), "PNG"));
        QCOMPARE(image.width(), 1600);
        QCOMPARE(image.dotsPerMeterX(), 7559);  // 192 dots per inch
        QCOMPARE(image.pixelColor(0, 0), QColor(Qt::white));
    }

    void Saved_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("start");
        QTest::newRow("as SVG") << u"chart.svg"_s << QByteArray("<?xml");
        QTest::newRow("as PNG") << u"chart.png"_s << QByteArray("\x89PNG");
        QTest::newRow("capitals") << u"CHART.PNG"_s << QByteArray("\x89PNG");
        QTest::newRow("any other name") << u"chart"_s << QByteArray("<?xml");
    }
    void Saved() {
        QFETCH(QString, name);
        QFETCH(QByteArray, start);
        const QTemporaryDir folder;
        const FileOutcome outcome = SaveChart(Chart(u"A"_s), folder.filePath(name));
        QVERIFY2(outcome.written, qPrintable(outcome.error));
        QVERIFY(Bytes(folder.filePath(name)).startsWith(start));
    }

    void NotSavedWhereThereIsNoFolder() {
        const QTemporaryDir folder;
        const FileOutcome outcome = SaveChart(Chart(u"A"_s), folder.filePath(u"no/chart.svg"_s));
        QVERIFY(!outcome.written);
        QVERIFY(!outcome.error.isEmpty());
    }

    void NothingOfAnEmptyChart() {
        QCOMPARE(ChartAsSvg({}), QByteArray());
        QCOMPARE(ChartAsPng({}), QByteArray());
    }
};

TEST_CLASS(TestChartFile);
#include "TestChartFile.moc"
