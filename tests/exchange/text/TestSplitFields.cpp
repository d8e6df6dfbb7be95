#include "exchange/text/SplitFields.h"

#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestSplitFields final : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;

 private Q_SLOTS:
    void initTestCase() { home = std::make_unique<TestHome>(); }

    void fields_data() {
        QTest::addColumn<QString>("qualifier");
        QTest::addColumn<QString>("separator");
        QTest::addColumn<int>("most");
        QTest::addColumn<QString>("line");
        QTest::addColumn<QStringList>("fields");
        QTest::addColumn<LineCode>("code");
        const QString q = u"\""_s, s = u","_s, none;
        const LineCode good = LineCode::Parsed, bad = LineCode::NoSeparator;
        QTest::newRow("qualified") << q << s << 0 << u"\"a\",\"b\""_s << QStringList{u"a"_s, u"b"_s} << good;
        QTest::newRow("plain") << q << s << 0 << u"a,b"_s << QStringList{u"a"_s, u"b"_s} << good;
        QTest::newRow("mixed") << q << s << 0 << u"a,\"b,c\",d"_s << QStringList{u"a"_s, u"b,c"_s, u"d"_s}
                               << good;
        QTest::newRow("nothing") << q << s << 0 << QString() << QStringList() << good;
        QTest::newRow("empty fields")
            << q << s << 0 << u",\"\",a"_s << QStringList{none, none, u"a"_s} << good;
        QTest::newRow("behind the last separator there is no field")
            << q << s << 0 << u"\"a\",\"b\","_s << QStringList{u"a"_s, u"b"_s} << good;
        QTest::newRow("a qualifier closes where a separator or the end follows")
            << q << s << 0 << u"\"a\"b\",\"c\""_s << QStringList{u"a\"b"_s, u"c"_s} << good;
        QTest::newRow("a doubled one means nothing special")
            << q << s << 0 << u"\"a\"\"b\",\"c\""_s << QStringList{u"a\"\"b"_s, u"c"_s} << good;
        QTest::newRow("nobody closes it")
            << q << s << 0 << u"a,\"b,c"_s << QStringList{u"a"_s, u"b,c"_s} << good;
        QTest::newRow("a qualifier within a plain field is text")
            << q << s << 0 << u"a\"b,c"_s << QStringList{u"a\"b"_s, u"c"_s} << good;
        QTest::newRow("no qualifier")
            << none << s << 0 << u"\"a\",b"_s << QStringList{u"\"a\""_s, u"b"_s} << good;
        QTest::newRow("no separator")
            << q << none << 0 << u"\"a\"\"b\""_s << QStringList{u"a"_s, u"b"_s} << good;
        QTest::newRow("no separator, a plain field ends at the qualifier")
            << q << none << 0 << u"a\"b\"c"_s << QStringList{u"a"_s, u"b"_s, u"c"_s} << good;
        QTest::newRow("one sign for both: a qualified field closes at the next")
            << q << q << 0 << u"\"a\"\"b\""_s << QStringList{u"a"_s, u"b"_s} << good;
        QTest::newRow("and then a separator has to come")
            << q << q << 0 << u"\"a\"b"_s << QStringList{u"a"_s} << bad;
        QTest::newRow("the last of so many takes the rest")
            << q << s << 2 << u"\"a\",\"b\",\"c\""_s << QStringList{u"a"_s, u"b\",\"c"_s} << good;
        QTest::newRow("less a separator behind it")
            << q << s << 2 << u"\"a\",\"b\","_s << QStringList{u"a"_s, u"b"_s} << good;
        QTest::newRow("one separator only")
            << q << s << 2 << u"\"a\",\"b\",,"_s << QStringList{u"a"_s, u"b\","_s} << good;
        QTest::newRow("a plain rest") << q << s << 2 << u"a,b,c"_s << QStringList{u"a"_s, u"b,c"_s} << good;
        QTest::newRow("fewer than so many")
            << q << s << 5 << u"\"a\",\"b\","_s << QStringList{u"a"_s, u"b"_s} << good;
        QTest::newRow("the rest of one is the line")
            << q << s << 1 << u"\"a\",\"b\""_s << QStringList{u"a\",\"b"_s} << good;
        QTest::newRow("an empty qualified rest")
            << q << s << 2 << u"\"a\",\"\","_s << QStringList{u"a"_s, none} << good;
        QTest::newRow("tabs") << none << u"\t"_s << 0 << u"a\t\tb"_s << QStringList{u"a"_s, none, u"b"_s}
                              << good;
        QTest::newRow("without any delimiter the line is the field")
            << none << none << 0 << u"a,b"_s << QStringList{u"a,b"_s} << good;
    }
    void fields() {
        QFETCH(QString, qualifier);
        QFETCH(QString, separator);
        QFETCH(int, most);
        QFETCH(QString, line);
        QStringList fields;
        QTEST(SplitFields(line, most, {qualifier, separator, u"\n"_s}, fields), "code");
        QTEST(fields, "fields");
    }

    void withoutFirstField_data() {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("rest");
        QTest::newRow("qualified") << u"\"1\",\"a\",\"b\""_s << u"\"a\",\"b\""_s;
        QTest::newRow("plain") << u"1,a"_s << u"a"_s;
        QTest::newRow("with a separator in it") << u"\"1,2\",a"_s << u"a"_s;
        QTest::newRow("the only one") << u"1"_s << QString();
    }
    void withoutFirstField() {
        QFETCH(QString, line);
        QTEST(WithoutFirstField(line, PresetDelimiters()), "rest");
    }

    void codesHaveTexts_data() {
        QTest::addColumn<int>("code");
        QTest::addColumn<Text>("text");
        QTest::newRow("too few fields") << 6 << Text::LineTooFewFields;
        QTest::newRow("the date") << 7 << Text::LineBadDate;
        QTest::newRow("an unknown list") << 20 << Text::LineUnknownList;
        QTest::newRow("one that nothing gives") << 17 << Text::LineReserved17;
        QTest::newRow("one that isn't in the table") << 12 << Text::LineUnknownReason;
        QTest::newRow("read, and refused all the same") << 0 << Text::LineNotStored;
    }
    void codesHaveTexts() {
        QFETCH(int, code);
        QFETCH(Text, text);
        QCOMPARE(TextOf(static_cast<LineCode>(code)), LoadText(text));
    }

    void delimiters() {
        QCOMPARE(PresetDelimiters(), (Delimiters{u"\""_s, u","_s, u"\n"_s}));
        QVERIFY(!ObjectionTo(PresetDelimiters()));
        QVERIFY(!ObjectionTo({u"\""_s, {}, u"\n"_s}));
        QVERIFY(!ObjectionTo({{}, u","_s, u"\n"_s}));
        QVERIFY(ObjectionTo({{}, {}, u"\n"_s}) == Text::DelimitersBothEmpty);
        QVERIFY(ObjectionTo({u"\""_s, u","_s, {}}) == Text::DelimiterNoLineEnd);
        // both: the first objection is the one that is told
        QVERIFY(ObjectionTo({}) == Text::DelimitersBothEmpty);
    }

    void whatAUserEnters() {
        QCOMPARE(DelimiterEntered(u";;"_s), u";"_s);
        QCOMPARE(DelimiterEntered(QString()), QString());
        QCOMPARE(DelimiterEntered(LoadText(Text::DelimiterTabName)), u"\t"_s);
        QCOMPARE(DelimiterEntered(LoadText(Text::DelimiterLineFeedName)), u"\n"_s);
        QCOMPARE(ShownDelimiter(u"\t"_s), LoadText(Text::DelimiterTabName));
        QCOMPARE(ShownDelimiter(u";"_s), u";"_s);
        QCOMPARE(SampleOf({u"'"_s, u";"_s, u"\n"_s}), u"'Date';'Start'; ... "_s);
    }
};

TEST_CLASS(TestSplitFields);
#include "TestSplitFields.moc"
