#include "cli/output/CJsonText.h"
#include "cli/output/COutput.h"
#include "support/TestProgram.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryFile>
#include <QTest>
#include <cmath>
#include <functional>

using namespace Qt::Literals::StringLiterals;

namespace {

/// What the work writes.
QByteArray Written(const std::function<void(CJsonText&)>& work) {
    QTemporaryFile file;
    if (!file.open()) return {};
    COutput out(file.handle(), file.handle());
    CJsonText json(out);
    work(json);
    if (!out.Finish()) return {};
    file.seek(0);
    return file.readAll();
}

}  // namespace

class TestCJsonText : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void Number_data();
    void Number();
    void Text_data();
    void Text();
    void KeepsTheOrderOfItsFields();
};

void TestCJsonText::Number_data() {
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("precision");
    QTest::addColumn<QByteArray>("written");
    QTest::newRow("a whole value keeps one place") << 80.0 << 3 << QByteArray("80.0");
    QTest::newRow("zeros at the end go") << 0.25 << 4 << QByteArray("0.25");
    QTest::newRow("a float that lies beside its decimal") << double{80.1F} << 2 << QByteArray("80.1");
    QTest::newRow("no places") << 640.0 << 0 << QByteArray("640.0");
    QTest::newRow("no exponent") << 999999999.0 << 2 << QByteArray("999999999.0");
    QTest::newRow("no number") << std::nan("") << 2 << QByteArray("null");
    QTest::newRow("infinity") << HUGE_VAL << 2 << QByteArray("null");
}

void TestCJsonText::Number() {
    QFETCH(double, value);
    QFETCH(int, precision);
    QTEST(Written([&](CJsonText& json) { json.Number(value, precision); }), "written");
}

void TestCJsonText::Text_data() {
    QTest::addColumn<QString>("text");
    QTest::newRow("plain") << u"Client A"_s;
    QTest::newRow("quotation marks and strokes") << u"a \"b\" \\ 'c' / 100 %"_s;
    QTest::newRow("line feeds and tabs") << u"a\nb\tc\r"_s;
    QTest::newRow("controls") << u"\x01\x1b[31m\x7f"_s;
    QTest::newRow("umlauts and emoji") << u"äöü ß 日本 😀"_s;
    QTest::newRow("a line separator") << QString(QChar(0x2028));
    QTest::newRow("a C1 control, a terminal's short form of escape [") << u"a\u009B31m"_s;
    QTest::newRow("marks of direction") << u"\u202Egpj.exe\u2066\u200F"_s;
    QTest::newRow("a byte order mark") << u"\uFEFFa"_s;
    QTest::newRow("an invisible character above the first plane") << u"a\U000E0041b"_s;
    QTest::newRow("nothing") << u""_s;
}

void TestCJsonText::Text() {
    QFETCH(QString, text);
    const QByteArray written = Written([&](CJsonText& json) {
        json.BeginObject();
        json.Key("text");
        json.Text(text);
        json.EndObject();
    });
    QCOMPARE(QJsonDocument::fromJson(written).object()[u"text"].toString(), text);
    for (const char32_t c : QString::fromUtf8(written).toUcs4())
        QVERIFY2(QChar::isPrint(c), "a character that can't be seen");
}

void TestCJsonText::KeepsTheOrderOfItsFields() {
    const QByteArray written = Written([](CJsonText& json) {
        json.BeginObject();
        json.Key("z");
        json.Integer(1);
        json.Key("a");
        json.BeginArray();
        json.Null();
        json.Flag(true);
        json.BeginArray();
        json.EndArray();
        json.EndArray();
        json.Key("m");
        json.BeginObject();
        json.EndObject();
        json.EndObject();
    });
    QCOMPARE(written, QByteArray(R"({"z": 1, "a": [null, true, []], "m": {}})"));
}

TEST_CLASS(TestCJsonText);
#include "TestCJsonText.moc"
