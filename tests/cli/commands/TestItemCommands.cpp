#include "cli/home/ConsoleHome.h"

#include "support/TestProgram.h"

#include <QFile>
#include <QFileInfo>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// "lists" and "items": the pick lists from the console.
class TestItemCommands : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init() { m_home = std::make_unique<ConsoleHome>(); }

    void Lists();
    void AListByNumberOrTitle_data();
    void AListByNumberOrTitle();
    void Add_data();
    void Add();
    void CapitalsMakeAnotherWhichIsTold();
    void AddAsksNothing();
    void AFailedCommitIsAFailure_data();
    void AFailedCommitIsAFailure();
    void WordsAreTakenAsTheyStand_data();
    void WordsAreTakenAsTheyStand();
    void WordsInBrackets_data();
    void WordsInBrackets();
    void AWordTooMany_data();
    void AWordTooMany();
    void Rename_data();
    void Rename();
    void RenameInRecords();
    void RenameToATextThatIsThereInRecords();
    void WordsBehindTwoDashes();
    void RenameInAListThatNoRecordUses();
    void Merge();
    void MergeThatIsNone_data();
    void MergeThatIsNone();
    void MergeAsks();
    void Delete();
    void DeleteOfANumber();
    void DeleteWithoutAsking();
    void Clear();
    void Unknown_data();
    void Unknown();
    void HostileTexts_data();
    void HostileTexts();
    void AHomeThatCantBeWritten();

 private:
    [[nodiscard]] Reply Items(const QStringList& words) const {
        return m_home->RunJson(QStringList(u"items"_s) + words);
    }
    /// The texts of a list, joined.
    [[nodiscard]] QString Texts(const QString& list) const {
        QStringList texts;
        for (const QJsonValue& text : Items({u"list"_s, list}).Array()) texts.append(text.toString());
        return texts.join(u'|');
    }
    void Fill(const QString& list, const QStringList& texts) const {
        for (const QString& text : texts) QCOMPARE(Items({u"add"_s, list, text}).exit, 0);
    }
    std::unique_ptr<ConsoleHome> m_home;
};

void TestItemCommands::Lists() {
    const Reply reply = m_home->RunJson({u"lists"_s});
    QCOMPARE(reply.exit, 0);
    QList<int> numbers;
    QStringList ofNumbers;
    for (const QJsonValue& list : reply.Array()) {
        numbers.append(list[u"list"].toInt());
        QVERIFY(!list[u"name"].toString().isEmpty());
        if (list[u"kind"].toString() == u"number") ofNumbers.append(QString::number(numbers.last()));
    }
    QCOMPARE(numbers, (QList<int>{16, 17, 34, 32, 33, 68, 69, 70, 71, 72, 73}));
    QCOMPARE(ofNumbers.join(u' '), u"34 70 73"_s);
    QCOMPARE(reply.Array()[0].toObject(), FromText(u"{'list': 16, 'name': 'Client', 'kind': 'text'}"_s));
    QVERIFY(m_home->Run({u"lists"_s}).out.startsWith("16  Client\n17  Project\n"));
}

void TestItemCommands::AListByNumberOrTitle_data() {
    QTest::addColumn<QString>("list");
    QTest::newRow("its number") << u"16"_s;
    QTest::newRow("its title") << u"Client"_s;
    QTest::newRow("its title in other letters") << u"CLIENT"_s;
}

void TestItemCommands::AListByNumberOrTitle() {
    QFETCH(QString, list);
    Fill(u"16"_s, {u"Alpha"_s, u"Beta"_s});
    const Reply reply = Items({u"list"_s, list});
    QCOMPARE(reply.out, QByteArray("[\"Alpha\", \"Beta\"]\n"));
    QCOMPARE(m_home->Run({u"items"_s, u"list"_s, list}).out, QByteArray("Alpha\nBeta\n"));
}

void TestItemCommands::Add_data() {
    QTest::addColumn<QString>("list");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("exit");
    QTest::addColumn<QString>("texts");
    QTest::newRow("a text") << u"17"_s << u"Beta"_s << 0 << u"Alpha|Beta"_s;
    QTest::newRow("one that is there") << u"17"_s << u"Alpha"_s << 1 << u"Alpha"_s;
    QTest::newRow("nothing") << u"17"_s << QString() << 1 << u"Alpha"_s;
    QTest::newRow("what begins like a coded text") << u"17"_s << u"[CA] Cash"_s << 1 << u"Alpha"_s;
    QTest::newRow("a number") << u"70"_s << u"1.50"_s << 0 << u"0.3|1.5"_s;
    QTest::newRow("the same number in other digits") << u"70"_s << u"0.300"_s << 1 << u"0.3"_s;
    QTest::newRow("no number in a list of numbers") << u"70"_s << u"much"_s << 1 << u"0.3"_s;
    for (const char* half : {"5abc", "1,5", "1.5,2", "12.50 EUR", "3%"})
        QTest::addRow("what begins as a number: %s", half)
            << u"70"_s << QString::fromLatin1(half) << 1 << u"0.3"_s;
    QTest::newRow("255 characters") << u"17"_s << QString(255, u'x') << 0 << u"Alpha|"_s + QString(255, u'x');
    QTest::newRow("256 characters") << u"17"_s << QString(256, u'x') << 2 << u"Alpha"_s;
    QTest::newRow("a distance is a text") << u"69"_s << u"12.50"_s << 0 << u"12.50"_s;
}

void TestItemCommands::Add() {
    QFETCH(QString, list);
    QFETCH(QString, text);
    Fill(u"17"_s, {u"Alpha"_s});
    Fill(u"70"_s, {u"0.3"_s});
    const Reply reply = Items({u"add"_s, list, text});
    QTEST(reply.exit, "exit");
    QCOMPARE(reply.err.isEmpty(), reply.exit == 0);
    QCOMPARE(reply.out, reply.exit == 0 ? QByteArray("{\"added\": 1}\n") : QByteArray());
    QTEST(Texts(list), "texts");
}

void TestItemCommands::CapitalsMakeAnotherWhichIsTold() {
    Fill(u"17"_s, {u"Alpha"_s, u"Beta"_s});
    const Reply reply = Items({u"add"_s, u"17"_s, u"ALPHA"_s});
    QCOMPARE(reply.exit, 0);
    QVERIFY2(reply.err.contains("\"Alpha\" as well"), reply.err.constData());
    QCOMPARE(Texts(u"17"_s), u"Alpha|Beta|ALPHA"_s);
}

/// Whatever the setting says: the user has just typed it.
void TestItemCommands::AddAsksNothing() {
    m_home->Run({u"settings"_s, u"set"_s, u"confirmAddListItem"_s, u"1"_s});
    const Reply reply = Items({u"add"_s, u"16"_s, u"Alpha"_s});
    QCOMPARE(reply.exit, 0);
    QCOMPARE(reply.err, QByteArray());
    QCOMPARE(Texts(u"16"_s), u"Alpha"_s);
}

void TestItemCommands::AFailedCommitIsAFailure_data() {
    QTest::addColumn<QString>("words");
    QTest::newRow("add") << u"add 16 Gamma"_s;
    QTest::newRow("rename") << u"rename 16 Alpha Gamma"_s;
    QTest::newRow("delete") << u"--yes delete 16 Alpha"_s;
    QTest::newRow("clear") << u"--yes clear 16"_s;
}

/// The journal still fits below the limit of a file's size, and the page of the item doesn't: the change
/// fails when it is committed.
void TestItemCommands::AFailedCommitIsAFailure() {
    QFETCH(QString, words);
    Fill(u"16"_s, {u"Alpha"_s, u"Beta"_s});
    const Reply reply = m_home->RunShell(u"trap '' XFSZ; ulimit -f 10; $cli --json items "_s + words);
    QCOMPARE(reply.exit, 1);
    QVERIFY(!reply.err.isEmpty());
    QVERIFY2(!reply.out.contains('1'), reply.out.constData());
    QCOMPARE(Texts(u"16"_s), u"Alpha|Beta"_s);
}

void TestItemCommands::WordsAreTakenAsTheyStand_data() {
    QTest::addColumn<QStringList>("words");  // behind "items add 16"
    QTest::addColumn<QString>("text");
    for (const char* text :
         {"]", "a[b]", "{x}", "{}", "++", "%s", "%1", "a,b", "time", "list", "-5", "\x01[x]"}) {
        const QString word = QString::fromLatin1(text);
        QTest::newRow(text) << QStringList{word} << word;
    }
    for (const char* text : {"--yes", "-x", "--", "++", "\x01[x]"}) {
        const QString word = QString::fromLatin1(text);
        QTest::addRow("%s behind two dashes", text) << QStringList{u"--"_s, word} << word;
    }
}

/// As words, and as the new name of an item.
void TestItemCommands::WordsAreTakenAsTheyStand() {
    QFETCH(QStringList, words);
    QFETCH(QString, text);
    QCOMPARE(Items(QStringList{u"add"_s, u"16"_s} + words).exit, 0);
    QCOMPARE(Texts(u"16"_s), text);
    Fill(u"17"_s, {u"Bolt"_s});
    QCOMPARE(Items(QStringList{u"rename"_s, u"17"_s, u"Bolt"_s} + words).exit, 0);
    QCOMPARE(Texts(u"17"_s), text);
}

void TestItemCommands::WordsInBrackets_data() {
    QTest::addColumn<QString>("text");
    for (const char* text : {"[x]", "[a,b]", "[]", "[[a]]", "["})
        QTest::newRow(text) << QString::fromLatin1(text);
}

/// No item may begin like a coded text; a name of a field may.
void TestItemCommands::WordsInBrackets() {
    QFETCH(QString, text);
    Fill(u"16"_s, {u"Bolt"_s});
    for (const QStringList& words :
         {QStringList{u"add"_s, u"16"_s, text}, QStringList{u"rename"_s, u"16"_s, u"Bolt"_s, text}}) {
        const Reply reply = Items(words);
        QCOMPARE(reply.exit, 1);
        QVERIFY2(reply.err.contains('"' + text.toUtf8() + '"'), reply.err.constData());
    }
    QCOMPARE(Texts(u"16"_s), u"Bolt"_s);
    QCOMPARE(m_home->RunJson({u"labels"_s, u"set"_s, u"109"_s, text}).Object()[u"label"].toString(), text);
}

void TestItemCommands::AWordTooMany_data() {
    QTest::addColumn<QString>("word");
    for (const char* word : {"Delta", "[x]", "++"}) QTest::newRow(word) << QString::fromLatin1(word);
}

void TestItemCommands::AWordTooMany() {
    QFETCH(QString, word);
    const Reply reply = Items({u"list"_s, u"16"_s, word});
    QCOMPARE(reply.exit, 2);
    QVERIFY2(reply.err.contains('"' + word.toUtf8() + '"'), reply.err.constData());
}

void TestItemCommands::Rename_data() {
    QTest::addColumn<QString>("list");
    QTest::addColumn<QString>("former");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("exit");
    QTest::addColumn<QString>("texts");
    QTest::newRow("a new text at the old place")
        << u"16"_s << u"Alpha"_s << u"Omega"_s << 0 << u"Omega|Beta"_s;
    QTest::newRow("other letters") << u"16"_s << u"Alpha"_s << u"alpha"_s << 0 << u"alpha|Beta"_s;
    QTest::newRow("a text that is there") << u"16"_s << u"Alpha"_s << u"Beta"_s << 1 << u"Alpha|Beta"_s;
    QTest::newRow("the same text") << u"16"_s << u"Alpha"_s << u"Alpha"_s << 1 << u"Alpha|Beta"_s;
    QTest::newRow("nothing") << u"16"_s << u"Alpha"_s << QString() << 1 << u"Alpha|Beta"_s;
    QTest::newRow("an unknown item") << u"16"_s << u"Gamma"_s << u"Delta"_s << 4 << u"Alpha|Beta"_s;
    QTest::newRow("an item by other letters") << u"16"_s << u"alpha"_s << u"Delta"_s << 4 << u"Alpha|Beta"_s;
    QTest::newRow("too long") << u"16"_s << u"Alpha"_s << QString(256, u'x') << 2 << u"Alpha|Beta"_s;
    QTest::newRow("a number by other digits") << u"34"_s << u"80.00"_s << u"85.50"_s << 0 << u"85.5"_s;
    QTest::newRow("a number becomes no text") << u"34"_s << u"80"_s << u"high"_s << 1 << u"80"_s;
}

void TestItemCommands::Rename() {
    QFETCH(QString, list);
    QFETCH(QString, former);
    QFETCH(QString, text);
    Fill(u"16"_s, {u"Alpha"_s, u"Beta"_s});
    Fill(u"34"_s, {u"80"_s});
    const Reply reply = Items({u"rename"_s, list, former, text});
    QTEST(reply.exit, "exit");
    QCOMPARE(reply.out, reply.exit == 0 ? QByteArray("{\"changed\": 0}\n") : QByteArray());
    QTEST(Texts(list), "texts");
}

/// The list serves both kinds of records; those with other texts stay as they are.
void TestItemCommands::RenameInRecords() {
    const QString time = m_home->Add({u"--item1"_s, u"O'Brien"_s}),
                  other = m_home->Add({u"--item1"_s, u"Beta"_s});
    const QString expense = m_home->AddExpense({u"--item1"_s, u"O'Brien"_s});
    const QString elsewhere = m_home->Add({u"--item2"_s, u"O'Brien"_s});
    const Reply reply =
        Items({u"rename"_s, u"Client"_s, u"O'Brien"_s, u"100 % \"Ü\" 😀"_s, u"--in-records"_s});
    QCOMPARE(reply.out, QByteArray("{\"changed\": 2}\n"));
    QCOMPARE(m_home->Show(time)[u"item1"].toString(), u"100 % \"Ü\" 😀"_s);
    QCOMPARE(m_home->ShowExpense(expense)[u"item1"].toString(), u"100 % \"Ü\" 😀"_s);
    QCOMPARE(m_home->Show(other)[u"item1"].toString(), u"Beta"_s);
    QCOMPARE(m_home->Show(elsewhere)[u"item2"].toString(), u"O'Brien"_s);
    QCOMPARE(Texts(u"16"_s), u"100 % \"Ü\" 😀|Beta"_s);
}

/// Two clients become one in the records; what stands in the list is left to the user.
void TestItemCommands::RenameToATextThatIsThereInRecords() {
    const QString id = m_home->Add({u"--item1"_s, u"ACME"_s}),
                  other = m_home->Add({u"--item1"_s, u"Acme Ltd"_s});
    const Reply reply = Items({u"rename"_s, u"16"_s, u"ACME"_s, u"Acme Ltd"_s, u"--in-records"_s});
    QCOMPARE(reply.out, QByteArray("{\"changed\": 1}\n"));
    QCOMPARE(m_home->Show(id)[u"item1"].toString(), u"Acme Ltd"_s);
    QCOMPARE(m_home->Show(other)[u"item1"].toString(), u"Acme Ltd"_s);
    QCOMPARE(Texts(u"16"_s), u"ACME|Acme Ltd"_s);
}

void TestItemCommands::WordsBehindTwoDashes() {
    QCOMPARE(Items({u"add"_s, u"17"_s, u"--"_s, u"-dash"_s}).exit, 0);
    QCOMPARE(Items({u"add"_s, u"17"_s, u"--"_s, u"--json"_s}).exit, 0);
    QCOMPARE(Items({u"add"_s, u"--"_s, u"17"_s, u"--"_s}).exit, 0);
    QCOMPARE(Texts(u"17"_s), u"-dash|--json|--"_s);
}

void TestItemCommands::RenameInAListThatNoRecordUses() {
    m_home->Add(Words(u"--billable --rate 80"_s));
    QCOMPARE(Items({u"rename"_s, u"34"_s, u"80"_s, u"90"_s, u"--in-records"_s}).out,
             QByteArray("{\"changed\": 0}\n"));
    QCOMPARE(Texts(u"34"_s), u"90"_s);
}

/// Records, the item and its places among the dependencies, as one.
void TestItemCommands::Merge() {
    Fill(u"16"_s, {u"ACME"_s, u"Acme Ltd"_s});
    Fill(u"17"_s, {u"Bolt"_s, u"Nut"_s});
    for (const QString& path : {u"ACME Bolt"_s, u"ACME Nut"_s})
        QCOMPARE(m_home->Run(QStringList{u"tree"_s, u"add"_s, u"time"_s} + path.split(u' ')).exit, 0);
    QCOMPARE(m_home->Run({u"tree"_s, u"add"_s, u"time"_s, u"Acme Ltd"_s, u"Nut"_s}).exit, 0);
    for (const QString& client : {u"ACME"_s, u"Acme Ltd"_s})
        QCOMPARE(m_home->Run({u"time"_s, u"add"_s, u"--item1"_s, client}).exit, 0);
    const Reply reply = Items({u"merge"_s, u"Client"_s, u"ACME"_s, u"Acme Ltd"_s, u"--yes"_s});
    QCOMPARE(reply.exit, 0);
    QCOMPARE(reply.Object(), FromText(u"{'changed': 1}"_s));
    QCOMPARE(Texts(u"16"_s), u"Acme Ltd"_s);
    const QJsonArray tree = m_home->RunJson({u"tree"_s, u"show"_s, u"time"_s}).Array();
    QCOMPARE(tree.size(), 1);
    QCOMPARE(tree[0][u"item"].toString(), u"Acme Ltd"_s);
    QStringList below;
    for (const QJsonValue& child : tree[0][u"children"].toArray()) below += child[u"item"].toString();
    QCOMPARE(below.join(u' '), u"Bolt Nut"_s);
    QCOMPARE(m_home->RunJson({u"time"_s, u"list"_s, u"--item1"_s, u"Acme Ltd"_s}).Object()[u"count"].toInt(),
             2);
}

void TestItemCommands::MergeThatIsNone_data() {
    QTest::addColumn<QString>("gone");
    QTest::addColumn<QString>("kept");
    QTest::addColumn<int>("exit");
    QTest::newRow("the first isn't there") << u"Zoo"_s << u"Acme"_s << 4;
    QTest::newRow("the second isn't there") << u"Acme"_s << u"Zoo"_s << 4;
    QTest::newRow("both are the same") << u"Acme"_s << u"Acme"_s << 2;
}

void TestItemCommands::MergeThatIsNone() {
    QFETCH(QString, gone);
    QFETCH(QString, kept);
    Fill(u"16"_s, {u"Acme"_s});
    QTEST(Items({u"merge"_s, u"16"_s, gone, kept, u"--yes"_s}).exit, "exit");
    QCOMPARE(Texts(u"16"_s), u"Acme"_s);
}

/// Without a terminal the answer is no.
void TestItemCommands::MergeAsks() {
    Fill(u"16"_s, {u"A"_s, u"B"_s});
    QCOMPARE(Items({u"merge"_s, u"16"_s, u"A"_s, u"B"_s}).exit, 1);
    QCOMPARE(Texts(u"16"_s), u"A|B"_s);
}

void TestItemCommands::Delete() {
    Fill(u"16"_s, {u"Alpha"_s, u"Beta"_s});
    const Reply asked = Items({u"delete"_s, u"16"_s, u"Alpha"_s});
    QCOMPARE(asked.exit, 1);
    QCOMPARE(asked.out, QByteArray("{\"deleted\": 0}\n"));
    QVERIFY(asked.err.contains("--yes"));
    QCOMPARE(Items({u"delete"_s, u"16"_s, u"Alpha"_s, u"--yes"_s}).out, QByteArray("{\"deleted\": 1}\n"));
    QCOMPARE(Texts(u"16"_s), u"Beta"_s);
    QCOMPARE(Items({u"delete"_s, u"16"_s, u"Alpha"_s, u"--yes"_s}).exit, 4);
}

void TestItemCommands::DeleteOfANumber() {
    Fill(u"34"_s, {u"80"_s, u"90"_s});
    QCOMPARE(Items({u"delete"_s, u"34"_s, u"80.00"_s, u"--yes"_s}).exit, 0);
    QCOMPARE(Texts(u"34"_s), u"90"_s);
}

void TestItemCommands::DeleteWithoutAsking() {
    Fill(u"16"_s, {u"Alpha"_s});
    m_home->Run({u"settings"_s, u"set"_s, u"confirmDeleteListItem"_s, u"0"_s});
    QCOMPARE(Items({u"delete"_s, u"16"_s, u"Alpha"_s}).exit, 0);
    QCOMPARE(Texts(u"16"_s), QString());
}

void TestItemCommands::Clear() {
    Fill(u"16"_s, {u"Alpha"_s, u"Beta"_s});
    Fill(u"17"_s, {u"Other"_s});
    QCOMPARE(Items({u"clear"_s, u"16"_s}).exit, 1);
    QCOMPARE(Texts(u"16"_s), u"Alpha|Beta"_s);
    QCOMPARE(Items({u"clear"_s, u"Client"_s, u"--yes"_s}).out, QByteArray("{\"deleted\": 2}\n"));
    QCOMPARE(Texts(u"16"_s), QString());
    QCOMPARE(Texts(u"17"_s), u"Other"_s);
    // Nothing to delete is nothing to ask about.
    QCOMPARE(Items({u"clear"_s, u"16"_s}).out, QByteArray("{\"deleted\": 0}\n"));
}

void TestItemCommands::Unknown_data() {
    QTest::addColumn<QString>("list");
    QTest::newRow("a number that is none") << u"18"_s;
    QTest::newRow("a list of field names") << u"109"_s;
    QTest::newRow("a list that is ignored") << u"143"_s;
    QTest::newRow("nothing") << QString();
    QTest::newRow("a title that is none") << u"Clients' friends"_s;
    QTest::newRow("a minus sign") << u"-16"_s;
}

void TestItemCommands::Unknown() {
    QFETCH(QString, list);
    for (const QStringList& words :
         {QStringList{u"list"_s, list}, QStringList{u"add"_s, list, u"A"_s},
          QStringList{u"rename"_s, list, u"A"_s, u"B"_s}, QStringList{u"delete"_s, list, u"A"_s, u"--yes"_s},
          QStringList{u"clear"_s, list, u"--yes"_s}}) {
        const Reply reply = Items(words);
        QVERIFY2(reply.exit == 4, qPrintable(words.join(u' ')));
        QVERIFY(reply.out.isEmpty() && !reply.err.isEmpty());
    }
}

void TestItemCommands::HostileTexts_data() {
    QTest::addColumn<QString>("text");
    QTest::newRow("an apostrophe") << u"O'Brien"_s;
    QTest::newRow("a statement") << u"'); DROP TABLE item_velmarch; --"_s;
    QTest::newRow("a format") << u"%s%n%d%100000d"_s;
    QTest::newRow("quotation marks") << u"\"quoted\" \\ \\n"_s;
    QTest::newRow("line feeds") << u"one\ntwo\t"_s;
    QTest::newRow("umlauts, emoji, other scripts")
        << u"Übergröße 😀👩‍👩‍👧 日本語 العربية"_s;
    QTest::newRow("only blanks") << u"   "_s;
    QTest::newRow("a list's number") << u"17"_s;
}

void TestItemCommands::HostileTexts() {
    QFETCH(QString, text);
    QCOMPARE(Items({u"add"_s, u"16"_s, text}).exit, 0);
    QCOMPARE(Texts(u"16"_s), text);
    QCOMPARE(Items({u"rename"_s, u"16"_s, text, text + u"2"_s}).exit, 0);
    QCOMPARE(Texts(u"16"_s), text + u"2"_s);
    QCOMPARE(Items({u"delete"_s, u"16"_s, text + u"2"_s, u"--yes"_s}).exit, 0);
    QCOMPARE(m_home->Run({u"doctor"_s}).exit, 0);
}

void TestItemCommands::AHomeThatCantBeWritten() {
    Fill(u"16"_s, {u"Alpha"_s});
    for (const QString& name : {u"velmarch.store"_s, u"velmarch.settings"_s})
        QVERIFY(QFile::setPermissions(m_home->File(name), QFile::ReadOwner));
    if (QFileInfo(m_home->File(u"velmarch.store"_s)).isWritable())
        QSKIP("an administrator may write everywhere");
    QCOMPARE(Items({u"add"_s, u"16"_s, u"Beta"_s}).exit, 1);
    QCOMPARE(Items({u"rename"_s, u"16"_s, u"Alpha"_s, u"Beta"_s}).exit, 1);
    QCOMPARE(Items({u"clear"_s, u"16"_s, u"--yes"_s}).exit, 1);
    QCOMPARE(Texts(u"16"_s), u"Alpha"_s);
}

TEST_CLASS(TestItemCommands);
#include "TestItemCommands.moc"
