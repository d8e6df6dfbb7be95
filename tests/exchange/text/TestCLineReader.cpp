#include "exchange/text/CLineReader.h"

#include "TextPieces.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestCLineReader final : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;

    /// The lines with "|" behind each, and "!" where the text breaks off.
    static QString LinesOf(CTextSource& source, const Delimiters& delimiters) {
        CLineReader reader(source, delimiters);
        QString lines, line;
        auto next = reader.ReadLine(line);
        for (; next == CLineReader::Next::Line; next = reader.ReadLine(line)) lines += line + u'|';
        return next == CLineReader::Next::End ? lines : lines + u'!';
    }

 private Q_SLOTS:
    void initTestCase() { home = std::make_unique<TestHome>(); }

    void lines_data() {
        QTest::addColumn<QString>("qualifier");
        QTest::addColumn<QString>("lineEnd");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("lines");
        const QString q = u"\""_s, lf = u"\n"_s;
        QTest::newRow("line feeds") << q << lf << u"a\nb\n"_s << u"a|b|"_s;
        QTest::newRow("the end of the text ends the last line") << q << lf << u"a\nb"_s << u"a|b|"_s;
        QTest::newRow("CR and LF") << q << lf << u"a\r\nb\r\n"_s << u"a|b|"_s;
        QTest::newRow("a CR swallows whatever stands behind it") << q << lf << u"a\rbc\r"_s << u"a|c|"_s;
        QTest::newRow("and an LF doesn't") << q << lf << u"a\n\rb"_s << u"a||"_s;
        QTest::newRow("a line end in quotes is text") << q << lf << u"\"a\nb\",c\nd"_s << u"\"a\nb\",c|d|"_s;
        QTest::newRow("each qualifier counts, wherever it stands")
            << q << lf << u"a\"b\nc\"d\ne"_s << u"a\"b\nc\"d|e|"_s;
        QTest::newRow("a quote that nobody closes") << q << lf << u"a\n\"b\nc\n"_s << u"a|\"b\nc\n|"_s;
        QTest::newRow("no qualifier") << QString() << lf << u"\"a\nb\""_s << u"\"a|b\"|"_s;
        QTest::newRow("another line end") << q << u";"_s << u"a\nb;\"c;d\";e"_s << u"a\nb|\"c;d\"|e|"_s;
        QTest::newRow("CR as line end swallows nothing") << q << u"\r"_s << u"a\r\nb"_s << u"a|\nb|"_s;
        QTest::newRow("empty lines") << q << lf << u"\n\na"_s << u"||a|"_s;
        QTest::newRow("nothing") << q << lf << QString() << QString();
        QTest::newRow("a zero is a character")
            << q << lf << (u"a"_s + QChar(0) + u"b\n"_s) << (u"a"_s + QChar(0) + u"b|"_s);
    }
    void lines() {
        QFETCH(QString, qualifier);
        QFETCH(QString, lineEnd);
        QFETCH(QString, text);
        QFETCH(QString, lines);
        for (const qsizetype piece : {1, 2, 3, 1000}) {
            CTextPieces source(text, piece);
            QCOMPARE(LinesOf(source, {qualifier, u","_s, lineEnd}), lines);
        }
    }

    void aLineThatIsCutOffIsNotGiven() {
        CTextPieces failing(u"a\nbc"_s, 1, CTextSource::Next::Failed);
        QCOMPARE(LinesOf(failing, PresetDelimiters()), u"a|!"_s);
        CTextPieces undecodable(u"a\nbc"_s, 1000, CTextSource::Next::Undecodable);
        QCOMPARE(LinesOf(undecodable, PresetDelimiters()), u"a|!"_s);
    }

    void numbersCountFromOne() {
        CTextPieces source(u"a\n\nb"_s);
        CLineReader reader(source, PresetDelimiters());
        QString line;
        for (int number = 1; number <= 3; ++number) {
            QVERIFY(reader.ReadLine(line) == CLineReader::Next::Line);
            QCOMPARE(reader.Number(), number);
        }
    }

    void aLineBeyondTheLongestIsPassedOver() {
        const QString longest(CLineReader::kLongestLine, u'x');
        CTextPieces source(longest + u'\n' + longest + u"x\nshort"_s, 65536);
        CLineReader reader(source, PresetDelimiters());
        QString line;
        QVERIFY(reader.ReadLine(line) == CLineReader::Next::Line);
        QVERIFY(!reader.IsTooLong());
        QCOMPARE(line.size(), CLineReader::kLongestLine);
        QVERIFY(reader.ReadLine(line) == CLineReader::Next::Line);
        QVERIFY(reader.IsTooLong());
        QVERIFY(line.size() <= 100);
        QVERIFY(reader.ReadLine(line) == CLineReader::Next::Line);
        QVERIFY(!reader.IsTooLong());
        QCOMPARE(line, u"short"_s);
    }
};

TEST_CLASS(TestCLineReader);
#include "TestCLineReader.moc"
