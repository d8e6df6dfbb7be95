#include "cli/output/UnseenCharacters.h"

#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestUnseenCharacters : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void Marks_data();
    void Marks();
    void LineFeedsStayInTextsOfLines();
};

void TestUnseenCharacters::Marks_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    QTest::newRow("plain") << u"Client A"_s << u"Client A"_s;
    QTest::newRow("umlauts and emoji") << u"äöü 😀"_s << u"äöü 😀"_s;
    QTest::newRow("a line feed") << u"a\nb"_s << u"a\u240Ab"_s;
    QTest::newRow("an escape sequence") << u"\x1b[31m"_s << u"\u241B[31m"_s;
    QTest::newRow("delete") << u"a\x7f"_s << u"a\u2421"_s;
    QTest::newRow("a C1 control") << u"a\u009Bb"_s << u"a<U+009B>b"_s;
    QTest::newRow("a direction turned round") << u"\u202Egpj.exe"_s << u"<U+202E>gpj.exe"_s;
    QTest::newRow("a byte order mark") << u"\uFEFFa"_s << u"<U+FEFF>a"_s;
    QTest::newRow("half of a character") << QString(QChar(0xD800)) + u'a' << u"\uFFFDa"_s;
    QTest::newRow("a line separator") << u"a\u2028b"_s << u"a<U+2028>b"_s;
    QTest::newRow("an invisible tag above the first plane") << u"a\U000E0041"_s << u"a<U+E0041>"_s;
    QTest::newRow("the joiner of an emoji") << u"👩\u200D💻"_s << u"👩\u200D💻"_s;
    QTest::newRow("the sign of an Arabic number") << u"\u0600"_s << u"<U+0600>"_s;
    QTest::newRow("a Syriac abbreviation mark") << u"\u070F"_s << u"<U+070F>"_s;
}

void TestUnseenCharacters::Marks() {
    QFETCH(QString, text);
    QTEST(WithMarks(text, false), "shown");
}

void TestUnseenCharacters::LineFeedsStayInTextsOfLines() {
    QCOMPARE(WithMarks(u"a\nb\x1b"_s, true), u"a\nb\u241B"_s);
}

TEST_CLASS(TestUnseenCharacters);
#include "TestUnseenCharacters.moc"
