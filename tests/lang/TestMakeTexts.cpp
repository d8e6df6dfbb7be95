#include "support/TestProgram.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// The generator of the language library, run on small lists.
class TestMakeTexts final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void Run_data();
    void Run();
    void MissingList();
    void UnwritableTarget();

 private:
    /// Runs the generator over a list; 0 is success, its words come in m_said.
    int Make(const QByteArray& list, const QString& header);
    [[nodiscard]] QByteArray Made(const QString& name) const;

    QTemporaryDir m_folder;
    QString m_said;
};

int TestMakeTexts::Make(const QByteArray& list, const QString& header) {
    QFile file(m_folder.filePath(u"list.txt"_s));
    if (!file.open(QIODevice::WriteOnly)) return -1;
    file.write(list);
    file.close();
    QProcess generator;
    generator.start(QStringLiteral(MAKETEXTS), {file.fileName(), header, m_folder.filePath(u"made.cpp"_s)});
    if (!generator.waitForFinished()) return -1;
    m_said = QString::fromUtf8(generator.readAllStandardError());
    return generator.exitCode();
}

QByteArray TestMakeTexts::Made(const QString& name) const {
    QFile file(m_folder.filePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TestMakeTexts::Run_data() {
    QTest::addColumn<QByteArray>("list");
    QTest::addColumn<int>("exit");
    QTest::addColumn<QString>("said");
    QTest::addColumn<QByteArray>("inSource");
    const auto good = [](const char* name, const char* list, const char* inSource) {
        QTest::newRow(name) << QByteArray(list) << 0 << QString() << QByteArray(inSource);
    };
    const auto bad = [](const char* name, const char* list, const char* said) {
        QTest::newRow(name) << QByteArray(list) << 1 << QString::fromLatin1(said) << QByteArray();
    };
    good("comments and empty lines are no rows", "# a comment\n\n5 Five five\n", R"({5, "Five", "five"},)");
    good("rows come in order of their numbers", "7 Seven b\n5 Five a\n",
         "{5, \"Five\", \"a\"},\n        {7, \"Seven\", \"b\"},");
    good("quotes keep blanks", "5 Five \" a \"\n", R"({5, "Five", " a "},)");
    good("escapes in quotes", R"(5 Five "a\"b\\c\nd")", R"({5, "Five", "a\"b\\c\nd"},)");
    good("a line end in a plain text", "5 Five a\\nb\n", R"({5, "Five", "a\nb"},)");
    good("a backslash in a plain text", "5 Five a\\b\n", R"({5, "Five", "a\\b"},)");
    good("umlauts",
         "5 Five Stra\xc3\x9f"
         "e\n",
         "{5, \"Five\", \"Stra\xc3\x9f"
         "e\"},");
    bad("a number that comes twice", "5 Five a\n6 Six b\n5 Other c\n", ":3: the number 5 comes twice");
    bad("a name that comes twice", "5 Five a\n6 Five b\n", ":2: the name Five comes twice");
    bad("a row without a number", "Five a\n", ":1: expected: number Name text");
    bad("a number alone", "5\n", ":1: expected: number Name text");
    bad("a number with letters", "5a Five a\n", ":1: expected: number Name text");
    bad("zero as a number", "0 Five a\n", ":1: expected: number Name text");
    bad("a name that is no word", "5 Fi-ve a\n", ":1: expected: number Name text");
    bad("a name in small letters", "5 five a\n", ":1: expected: number Name text");
    bad("an unknown escape", "5 Five \"a\\x\"\n", ":1: unknown escape");
    bad("a quote that isn't closed", "5 Five \"a\n", ":1: the closing quote is missing");
    bad("a closing quote that is escaped", "5 Five \"a\\\"\n", ":1: the closing quote is escaped");
    bad("a blank at the end", "5 Five a \n", ":1: a text with a blank at its end needs quotes");
    bad("a lone percent sign", "5 Five 100 %\n", ":1: a percent sign that starts no known form");
}

void TestMakeTexts::Run() {
    QFETCH(QByteArray, list);
    QTEST(Make(list, m_folder.filePath(u"made.h"_s)), "exit");
    QFETCH(QString, said);
    QVERIFY2(m_said.contains(said) && m_said.isEmpty() == said.isEmpty(), qPrintable(m_said));
    QFETCH(QByteArray, inSource);
    if (inSource.isEmpty()) return;
    QVERIFY2(Made(u"made.cpp"_s).contains(inSource), Made(u"made.cpp"_s).constData());
    QVERIFY2(Made(u"made.h"_s).contains("    Five = 5,\n"), Made(u"made.h"_s).constData());
}

void TestMakeTexts::MissingList() {
    QProcess generator;
    generator.start(QStringLiteral(MAKETEXTS), {u"/no/such/list"_s, u"a.h"_s, u"a.cpp"_s});
    QVERIFY(generator.waitForFinished());
    QCOMPARE(generator.exitCode(), 1);
    QVERIFY(generator.readAllStandardError().contains("can't be read"));
}

void TestMakeTexts::UnwritableTarget() {
    QCOMPARE(Make("5 Five five\n", u"/no/such/folder/made.h"_s), 1);
    QVERIFY2(m_said.contains(u"can't be written"_s), qPrintable(m_said));
}

TEST_CLASS(TestMakeTexts);
#include "TestMakeTexts.moc"
