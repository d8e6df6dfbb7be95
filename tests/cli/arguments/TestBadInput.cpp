#include "cli/home/ConsoleHome.h"

#include "support/TestProgram.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// What nobody should type, and places that can't be read or written: a sentence, an exit code, nothing lost.
class TestBadInput : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init() { m_home = std::make_unique<ConsoleHome>(); }
    void Usage_data();
    void Usage();
    void HostileTexts_data();
    void HostileTexts();
    void LongTexts_data();
    void LongTexts();
    void ControlsDontReachTheTerminal();
    void ArgumentsThatAreNoText();
    void Home_data();
    void Home();
    void HomeFromTheEnvironment();
    void NotInstalledHere();
    void ReadOnlyHome();
    void AFolderAsFile();
    void ClosedPipe();
    void FullDevice();
    void ClosedDescriptors();

 private:
    std::unique_ptr<ConsoleHome> m_home;
};

void TestBadInput::Usage_data() {
    QTest::addColumn<QString>("line");
    QTest::addColumn<QByteArray>("words");
    QTest::newRow("nothing") << QString() << QByteArray("A command is missing");
    QTest::newRow("a group alone") << u"time"_s << QByteArray("add, edit, show");
    QTest::newRow("an unknown group") << u"tea make"_s << QByteArray("\"tea\" is no command");
    QTest::newRow("an unknown command") << u"time fly"_s << QByteArray("\"fly\" is no command");
    QTest::newRow("what isn't offered") << u"sync all"_s << QByteArray("\"sync\" is no command");
    QTest::newRow("an unknown option") << u"time add --colour red"_s << QByteArray("\"--colour\"");
    QTest::newRow("a shortened option") << u"time add --not x"_s << QByteArray("\"--not\"");
    QTest::newRow("an option without its value")
        << u"time add --notes"_s << QByteArray("--notes needs a value");
    QTest::newRow("an option twice") << u"time add --notes a --notes b"_s
                                     << QByteArray("--notes is given twice");
    QTest::newRow("a flag with a value") << u"time new --timer=5"_s << QByteArray("--timer takes no value");
    QTest::newRow("neither yes nor no") << u"time add --billable perhaps"_s << QByteArray("\"perhaps\"");
    QTest::newRow("an empty text for yes or no")
        << u"time add --billable="_s << QByteArray("--billable needs a value");
    QTest::newRow("a word too many") << u"time list now"_s << QByteArray("\"now\"");
    QTest::newRow("no identity") << u"time show"_s << QByteArray("Something is missing: ID");
    QTest::newRow("no value") << u"settings set confirmCopy"_s
                              << QByteArray("Something is missing: NAME VALUE");
    QTest::newRow("an option of another command")
        << u"time show X --limit 3"_s << QByteArray("can't be understood");
    QTest::newRow("no such base") << u"time new --from tree"_s
                                  << QByteArray("--from blank, defaults:NAME or copy:ID");
    QTest::newRow("stamped and successive")
        << u"time new --timestamp --successive X"_s << QByteArray("not both");
    QTest::newRow("no such mark") << u"time mark X --as third"_s << QByteArray("first, first-second");
    QTest::newRow("no mark") << u"time mark X"_s << QByteArray("first, first-second");
    QTest::newRow("a negative rate") << u"time add --billable --rate -5"_s << QByteArray("\"-5\"");
    QTest::newRow("an absurd amount") << u"time add --billable --amount 1e300"_s << QByteArray("\"1e300\"");
    QTest::newRow("an empty home") << u"--home= day today"_s << QByteArray("--home");
}

void TestBadInput::Usage() {
    QFETCH(QString, line);
    QFETCH(QByteArray, words);
    const Reply reply = m_home->Run(line.split(u' ', Qt::SkipEmptyParts));
    QCOMPARE(reply.exit, 2);
    QVERIFY2(reply.err.contains(words), reply.err.constData());
    QVERIFY(reply.out.isEmpty());
    QVERIFY2(!reply.err.contains("CLI::") && reply.err.startsWith("velmarch-cli: "), reply.err.constData());
}

void TestBadInput::HostileTexts_data() {
    QTest::addColumn<QString>("text");
    QTest::newRow("an apostrophe") << u"O'Brien"_s;
    QTest::newRow("a statement") << u"'); DROP TABLE time_velmarch; --"_s;
    QTest::newRow("a format") << u"%s%n%d%100000d"_s;
    QTest::newRow("quotation marks") << u"\"quoted\" \\ \\n"_s;
    QTest::newRow("line feeds") << u"one\ntwo\r\nthree\t"_s;
    QTest::newRow("an option") << u"--rate"_s;
    QTest::newRow("brackets, as the parser's lists") << u"[a,b]"_s;
    QTest::newRow("one in brackets") << u"[x]"_s;
    QTest::newRow("nothing in brackets") << u"[]"_s;
    QTest::newRow("two plus signs") << u"++"_s;
    QTest::newRow("a control in front of brackets") << u"\x01[x]"_s;
    QTest::newRow("braces") << u"{}"_s;
    QTest::newRow("braces with a word") << u"{x}"_s;
    QTest::newRow("a dash") << u"-x"_s;
    QTest::newRow("umlauts, emoji, other scripts")
        << u"Übergröße 😀👩‍👩‍👧 日本語 العربية"_s;
    QTest::newRow("a terminal's command") << u"\x1b]0;title\x07\x1b[31m"_s;
    QTest::newRow("only blanks") << u"   "_s;
    QTest::newRow("the word for any") << u"(any)"_s;
}

void TestBadInput::HostileTexts() {
    QFETCH(QString, text);
    const QString id = m_home->Add({u"--item1"_s, text, u"--notes"_s, text});
    QCOMPARE(id.size(), 32);
    const QJsonObject stored = m_home->Show(id);
    QCOMPARE(stored[u"item1"].toString(), text);
    QCOMPARE(stored[u"notes"].toString(), text);
    const QJsonObject list =
        m_home->RunJson({u"time"_s, u"list"_s, u"--item1"_s, text, u"--whole"_s}).Object();
    QCOMPARE(list[u"count"].toInt(), 1);
}

void TestBadInput::LongTexts_data() {
    QTest::addColumn<QString>("field");
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("exit");
    QTest::newRow("255 characters") << u"--item3"_s << 255 << 0;
    QTest::newRow("256 characters") << u"--item3"_s << 256 << 2;
    QTest::newRow("notes of 32,000") << u"--notes"_s << 32000 << 0;
    QTest::newRow("notes of 32,001") << u"--notes"_s << 32001 << 2;
}

void TestBadInput::LongTexts() {
    QFETCH(QString, field);
    QFETCH(int, length);
    const QString text(length, u'ä');
    const Reply reply = m_home->RunJson({u"time"_s, u"add"_s, field, text});
    QTEST(reply.exit, "exit");
    if (reply.exit == 0)
        QCOMPARE(m_home->Show(reply.Object()[u"id"].toString())[field.mid(2)].toString(), text);
    const int count = m_home->RunJson({u"time"_s, u"list"_s}).Object()[u"count"].toInt();
    QCOMPARE(count, reply.exit == 0 ? 1 : 0);
}

void TestBadInput::ControlsDontReachTheTerminal() {
    const QString id = m_home->Add({u"--item1"_s, u"a\x1b[31mb\x07\u202Ec"_s, u"--notes"_s, u"one\ntwo"_s});
    for (const QStringList& words :
         {QStringList{u"time"_s, u"list"_s}, QStringList{u"time"_s, u"show"_s, id}}) {
        const QByteArray out = m_home->Run(words).out;
        QVERIFY(!out.contains('\x1b') && !out.contains('\x07') && !out.contains("\u202E"));
    }
    QVERIFY(!m_home->Run({u"time"_s, u"show"_s, u"\x1b[31m"_s}).err.contains('\x1b'));
}

void TestBadInput::ArgumentsThatAreNoText() {
    const Reply reply = m_home->RunShell(u"$cli time add --notes $'\\xff\\xfe'"_s);
    QCOMPARE(reply.exit, 2);
    QVERIFY(reply.err.contains("UTF-8"));
    QCOMPARE(m_home->RunJson({u"time"_s, u"list"_s}).Object()[u"count"].toInt(), 0);
}

void TestBadInput::Home_data() {
    QTest::addColumn<QString>("home");
    QTest::addColumn<int>("exit");
    QTest::newRow("a new folder is made") << u"new"_s << 0;
    QTest::newRow("with the folders above it") << u"a/b/c"_s << 0;
    QTest::newRow("a file") << u"file"_s << 1;
    QTest::newRow("below a file") << u"file/below"_s << 1;
    QTest::newRow("a name with quotes and blanks") << u"it's \"mine\" %s"_s << 0;
}

void TestBadInput::Home() {
    QFETCH(QString, home);
    QFile file(m_home->File(u"file"_s));
    QVERIFY(file.open(QFile::WriteOnly));
    const Reply reply = ConsoleHome::RunBare({u"--home"_s, m_home->File(home), u"time"_s, u"add"_s});
    QTEST(reply.exit, "exit");
    QCOMPARE(reply.err.isEmpty(), reply.exit == 0);
    QCOMPARE(QFileInfo::exists(m_home->File(home) + u"/velmarch.store"_s), reply.exit == 0);
}

void TestBadInput::HomeFromTheEnvironment() {
    m_home->Add({});
    const QString variable = u"VELMARCH_HOME="_s + m_home->Path();
    QCOMPARE(ConsoleHome::RunBare({u"--json"_s, u"time"_s, u"list"_s}, {variable}).Object()[u"count"].toInt(),
             1);
    const ConsoleHome other;
    QCOMPARE(ConsoleHome::RunBare({u"--home"_s, other.Path(), u"--json"_s, u"time"_s, u"list"_s}, {variable})
                 .Object()[u"count"]
                 .toInt(-1),
             0);
}

void TestBadInput::NotInstalledHere() {
    const QStringList nowhere{u"XDG_CONFIG_HOME="_s + m_home->Path(), u"VELMARCH_HOME="_s};
    const Reply reply = ConsoleHome::RunBare({u"time"_s, u"list"_s}, nowhere);
    QCOMPARE(reply.exit, 1);
    QVERIFY2(reply.err.contains("--home"), reply.err.constData());
    const Reply doctor = ConsoleHome::RunBare({u"--json"_s, u"doctor"_s}, nowhere);
    QCOMPARE(doctor.exit, 1);
    QCOMPARE(doctor.Object()[u"checks"][1][u"name"].toString(), u"home"_s);
    QCOMPARE(doctor.Object()[u"checks"][1][u"ok"].toBool(true), false);
    // What needs no home runs anywhere.
    QCOMPARE(ConsoleHome::RunBare({u"day"_s, u"today"_s}, nowhere).exit, 0);
}

void TestBadInput::ReadOnlyHome() {
    m_home->Add({});
    for (const QString& name : {u"velmarch.store"_s, u"velmarch.settings"_s})
        QVERIFY(QFile::setPermissions(m_home->File(name), QFile::ReadOwner));
    if (QFileInfo(m_home->File(u"velmarch.store"_s)).isWritable())
        QSKIP("an administrator may write everywhere");
    QCOMPARE(m_home->RunJson({u"time"_s, u"list"_s}).Object()[u"count"].toInt(), 1);
    const Reply reply = m_home->RunJson({u"time"_s, u"add"_s});
    QCOMPARE(reply.exit, 1);
    QVERIFY(reply.out.isEmpty());
    QCOMPARE(m_home->RunJson({u"settings"_s, u"set"_s, u"confirmCopy"_s, u"0"_s}).exit, 1);
}

void TestBadInput::AFolderAsFile() {
    QVERIFY(QDir(m_home->Path()).mkdir(u"velmarch.store"_s));
    const Reply reply = m_home->Run({u"time"_s, u"list"_s});
    QCOMPARE(reply.exit, 1);
    QVERIFY(!reply.err.isEmpty());
    QVERIFY(QFileInfo(m_home->File(u"velmarch.store"_s)).isDir());
}

void TestBadInput::ClosedPipe() {
    QCOMPARE(m_home->Run({u"demo"_s, u"fill"_s, u"3000"_s}).exit, 0);
    const Reply reply = m_home->RunShell(u"$cli --json time list | head -c 10; echo ${PIPESTATUS[0]}"_s);
    QVERIFY2(reply.out.endsWith("\n1\n") || reply.out.endsWith("1\n"), reply.out.constData());
    QVERIFY2(reply.err.contains("could not be written"), reply.err.constData());
}

void TestBadInput::FullDevice() {
    const Reply reply = m_home->RunShell(u"$cli time add > /dev/full"_s);
    QCOMPARE(reply.exit, 1);
    QVERIFY2(reply.err.contains("could not be written"), reply.err.constData());
    QCOMPARE(m_home->RunJson({u"time"_s, u"list"_s}).Object()[u"count"].toInt(), 1);
}

/// The store must not be opened in the place of the standard output.
void TestBadInput::ClosedDescriptors() {
    QCOMPARE(m_home->RunShell(u"$cli time add >&- 2>&- <&-"_s).exit, 1);
    QCOMPARE(m_home->RunShell(u"$cli time add <&-"_s).exit, 0);
    QCOMPARE(m_home->RunJson({u"time"_s, u"list"_s}).Object()[u"count"].toInt(), 2);
    QCOMPARE(m_home->Run({u"doctor"_s}).exit, 0);
}

TEST_CLASS(TestBadInput);
#include "TestBadInput.moc"
