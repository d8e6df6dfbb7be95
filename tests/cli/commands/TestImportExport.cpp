#include "cli/home/ConsoleHome.h"

#include "support/TestProgram.h"

#include <QFile>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// "import" and "export": text files from the console.
class TestImportExport final : public QObject {
    Q_OBJECT

    std::unique_ptr<ConsoleHome> m_home;

    [[nodiscard]] QString Path() const { return m_home->File(u"file.csv"_s); }
    QString Write(const QByteArray& content) const {
        QFile file(Path());
        [&] { QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size()); }();
        return file.fileName();
    }
    [[nodiscard]] QByteArray Content() const {
        QFile file(Path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("absent");
    }
    [[nodiscard]] Reply Import(const QByteArray& content, const QStringList& options = {}) const {
        return m_home->RunJson(QStringList{u"import"_s, u"records"_s, Write(content)} + options);
    }
    [[nodiscard]] Reply Export(const QStringList& options) const {
        return m_home->RunJson(QStringList{u"export"_s, u"records"_s, Path()} + options);
    }
    [[nodiscard]] int Stored(const QString& group = u"time"_s) const {
        return m_home->RunJson({group, u"list"_s}).Object()[u"count"].toInt();
    }
    static QByteArray Line(int day, const QByteArray& item) {
        return "11/" + QByteArray::number(day) + "/2026,09:00,10:00,1,," + item + ",,,,,,,No,No,\n";
    }

 private Q_SLOTS:
    void init() { m_home = std::make_unique<ConsoleHome>(); }

    void importsAFile() {
        const Reply reply =
            Import(Line(1, "A") + Line(32, "bad") + Line(2, "B"), {u"--on-error"_s, u"ignore"_s});
        QCOMPARE(reply.exit, 0);
        const QJsonObject account = reply.Object();
        QCOMPARE(account[u"added"].toInt(), 2);
        QCOMPARE(account[u"ids"].toArray().size(), 2);
        QCOMPARE(account[u"listItems"].toInt(), 2);
        QCOMPARE(account[u"duplicates"].toInt(), 0);
        QCOMPARE(account[u"encoding"].toString(), u"utf-8"_s);
        QCOMPARE(account[u"refused"].toArray().size(), 1);
        const QJsonObject refused = account[u"refused"].toArray().first().toObject();
        QCOMPARE(refused[u"number"].toInt(), 2);
        QCOMPARE(refused[u"code"].toInt(), 7);
        QCOMPARE(refused[u"line"].toString(), u"11/32/2026,09:00,10:00,1,,bad,"_s);
        QCOMPARE(m_home->Show(account[u"ids"].toArray()[0].toString())[u"item1"].toString(), u"A"_s);
        QCOMPARE(m_home->RunJson({u"items"_s, u"list"_s, u"16"_s}).Array().size(), 2);
    }

    void withoutATerminalARefusedLineEndsIt() {
        const Reply reply = Import(Line(1, "A") + "x\n" + Line(2, "B"));
        QCOMPARE(reply.exit, 1);
        QCOMPARE(reply.Object()[u"added"].toInt(), 1);
        QVERIFY(reply.err.contains("Line 2: x"));
        // something was done, and no answer was asked for
        QVERIFY(!reply.err.contains("nothing was done"));
        QVERIFY(!reply.err.contains("--yes"));
        QVERIFY(reply.err.contains("--on-error ignore"));
        QCOMPARE(Stored(), 1);
    }

    void valuesThatAreNotReadAsTheyAreWritten() {
        const QByteArray line = Line(1, "A").replace(",,,No,No", ",,\"1,234.50\",Yes,No");
        for (const QStringList& options : {QStringList{u"--dry-run"_s}, QStringList{}}) {
            const QJsonObject account = Import(Line(2, "B") + line, options).Object();
            QCOMPARE(account[u"misreadCount"].toInt(), 1);
            QCOMPARE(account[u"misread"].toArray().first().toObject(),
                     FromText(u"{'number': 2, 'field': 'amount', 'text': '1,234.50', 'read': '1'}"_s));
        }
        const Reply shown = m_home->Run({u"import"_s, u"records"_s, Path(), u"--dry-run"_s});
        QVERIFY(shown.out.contains("Line 2, amount: \"1,234.50\" was read as 1."));
        QVERIFY(!Import(Line(2, "B")).Object().contains(u"misread"));
    }

    void aDayThatTheMonthDoesntHave() {
        const Reply reply = Import("2/30/2026,09:00,10:00,1,,A,,,,,,,No,No,\n",
                                   {u"--on-error"_s, u"ignore"_s, u"--dry-run"_s});
        QCOMPARE(reply.Object()[u"added"].toInt(), 0);
        QCOMPARE(reply.Object()[u"refused"].toArray().first().toObject()[u"code"].toInt(), 7);
    }

    void aDryRunChangesNothing() {
        const Reply reply = Import(Line(1, "A") + Line(2, "A"), {u"--dry-run"_s});
        QCOMPARE(reply.exit, 0);
        const QJsonObject account = reply.Object();
        QCOMPARE(account[u"added"].toInt(), 2);
        QCOMPARE(account[u"listItems"].toInt(), 1);
        QVERIFY(!account.contains(u"ids"));
        const QJsonObject first = account[u"records"].toArray().first().toObject();
        QVERIFY(first[u"id"].isNull());
        QCOMPARE(first[u"start"].toString(), u"09:00"_s);
        QCOMPARE(Stored(), 0);
        QVERIFY(m_home->RunJson({u"items"_s, u"list"_s, u"16"_s}).Array().isEmpty());
    }

    void duplicates() {
        QCOMPARE(Import(Line(1, "A")).exit, 0);
        const Reply reply =
            Import(Line(1, "A") + Line(2, "B"), {u"--skip-duplicates"_s, u"--no-list-items"_s});
        QCOMPARE(reply.Object()[u"duplicates"].toInt(), 1);
        QCOMPARE(reply.Object()[u"added"].toInt(), 1);
        QCOMPARE(reply.Object()[u"listItems"].toInt(), 0);
        QCOMPARE(Stored(), 2);
    }

    void encodings() {
        const Reply fallback = Import(Line(1, "M\xFCller"));
        QCOMPARE(fallback.exit, 0);
        QVERIFY(fallback.err.contains("Windows-1252"));
        QCOMPARE(fallback.Object()[u"encoding"].toString(), u"windows-1252"_s);
        QCOMPARE(m_home->Show(fallback.Object()[u"ids"].toArray()[0].toString())[u"item1"].toString(),
                 u"Müller"_s);
        const Reply strict = Import(Line(1, "A") + Line(2, "M\xFCller"), {u"--encoding"_s, u"UTF-8"_s});
        QCOMPARE(strict.exit, 1);
        QVERIFY(strict.err.contains("2"));
        QCOMPARE(Stored(), 1);
    }

    void usage_data() {
        QTest::addColumn<QStringList>("options");
        QTest::newRow("a delimiter of two characters") << QStringList{u"--separator"_s, u";;"_s};
        QTest::newRow("an empty one") << QStringList{u"--separator"_s, QString()};
        QTest::newRow("one of two bytes") << QStringList{u"--separator"_s, u"§"_s};
        QTest::newRow("neither qualifier nor separator")
            << QStringList{u"--separator"_s, u"none"_s, u"--qualifier"_s, u"none"_s};
        QTest::newRow("no line end") << QStringList{u"--terminator"_s, u"none"_s};
        QTest::newRow("an unknown encoding") << QStringList{u"--encoding"_s, u"klingon"_s};
        QTest::newRow("an unknown mode") << QStringList{u"--mode"_s, u"money"_s};
        QTest::newRow("an unknown form") << QStringList{u"--form"_s, u"3"_s};
        QTest::newRow("an unknown way to go on") << QStringList{u"--on-error"_s, u"panic"_s};
    }
    /// Before the file is looked at: it needn't even be there.
    void usage() {
        QFETCH(QStringList, options);
        const QStringList absent{u"import"_s, u"records"_s, m_home->File(u"absent"_s)};
        QCOMPARE(m_home->RunJson(absent + options).exit, 2);
        QCOMPARE(m_home->RunJson(absent).exit, 4);
    }

    void delimitersAndForms() {
        QCOMPARE(Import("19.11.2026\t9:00\t10:00\t1\tA\t\t\t\t\t\t\tNo\tNo\tn\n",
                        {u"--form"_s, u"2"_s, u"--separator"_s, u"tab"_s, u"--qualifier"_s, u"none"_s})
                     .Object()[u"added"]
                     .toInt(),
                 1);
        // a section sign is one byte in the encoding that is chosen
        const Reply expense =
            Import(QByteArray("11/19/2026;A;;;12;;;0.5;;;6;No;No;No;No;No;n\n").replace(';', '\xA7'),
                   {u"--mode"_s, u"expense"_s, u"--separator"_s, u"§"_s, u"--encoding"_s, u"iso-8859-1"_s,
                    u"--terminator"_s, u"lf"_s});
        QCOMPARE(expense.Object()[u"added"].toInt(), 1);
        QCOMPARE(Stored(u"expense"_s), 1);
    }

    void items() {
        const QString path = Write("Client,A\nclient,B\nProject\nClient,A\n");
        const Reply dry = m_home->RunJson({u"import"_s, u"items"_s, path, u"--dry-run"_s});
        QCOMPARE(dry.exit, 0);
        QCOMPARE(dry.Object()[u"added"].toInt(), 1);
        QVERIFY(m_home->RunJson({u"items"_s, u"list"_s, u"16"_s}).Array().isEmpty());
        const Reply reply = m_home->RunJson({u"import"_s, u"items"_s, path});
        QCOMPARE(reply.exit, 0);
        QCOMPARE(reply.Object()[u"added"].toInt(), 1);
        QCOMPARE(reply.Object()[u"skipped"].toInt(), 1);
        QCOMPARE(reply.Object()[u"refused"].toArray().size(), 1);
        QCOMPARE(m_home->RunJson({u"export"_s, u"items"_s, Path()}).Object()[u"written"].toInt(), 1);
        QCOMPARE(Content(), QByteArray("\"Client\",\"A\"\n"));
    }

    // --- Export

    void exportsAndImportsAgain() {
        m_home->Add({u"--date"_s, u"2026-11-19"_s, u"--start"_s, u"09:00"_s, u"--end"_s, u"17:30"_s,
                     u"--break"_s, u"0:30"_s, u"--item1"_s, u"A"_s, u"--billable"_s, u"--rate"_s,
                     u"33.333"_s});
        QCOMPARE(Export({}).Object(), FromText(u"{'written': 1}"_s));
        QCOMPARE(Content().count('\n'), 2);
        const ConsoleHome other;
        const QStringList import{u"import"_s, u"records"_s, Path()};
        QCOMPARE(other.RunJson(import).Object()[u"added"].toInt(), 1);
        QJsonObject one =
            m_home->RunJson({u"time"_s, u"list"_s}).Object()[u"records"].toArray()[0].toObject();
        QJsonObject two = other.RunJson({u"time"_s, u"list"_s}).Object()[u"records"].toArray()[0].toObject();
        one.remove(u"id");
        two.remove(u"id");
        QCOMPARE(two, one);
        // and everything of it is there already now
        QCOMPARE(other.RunJson(import + QStringList{u"--dry-run"_s}).Object()[u"duplicates"].toInt(), 1);
    }

    void byIdentityOrByFilter() {
        const QString a = m_home->Add({u"--date"_s, u"2026-11-19"_s, u"--item1"_s, u"A"_s});
        const QString b = m_home->Add({u"--date"_s, u"2026-11-18"_s, u"--item1"_s, u"B"_s});
        QCOMPARE(Export({b, a}).Object()[u"written"].toInt(), 2);
        QVERIFY(Content().indexOf("\"B\"") < Content().indexOf("\"A\""));
        QCOMPARE(Export({u"--item1"_s, u"A"_s}).Object()[u"written"].toInt(), 1);
        QCOMPARE(Export({u"--sort"_s, u"item1:desc"_s}).Object()[u"written"].toInt(), 2);
        QVERIFY(Content().indexOf("\"B\"") < Content().indexOf("\"A\""));
        QCOMPARE(Export({a, u"--item1"_s, u"A"_s}).exit, 2);
        QCOMPARE(Export({u"--flag1"_s}).exit, 2);
        const QByteArray before = Content();
        QCOMPARE(Export({QString(32, u'0')}).exit, 4);
        QCOMPARE(Content(), before);
    }

    void nothingSelected() {
        const Reply reply = Export({u"--post"_s, u"delete"_s});
        QCOMPARE(reply.exit, 0);
        QCOMPARE(reply.Object(), FromText(u"{'written': 0}"_s));
        QCOMPARE(Content(), QByteArray("absent"));
    }

    void afterwards() {
        m_home->Add({u"--item1"_s, u"A"_s});
        const QString b = m_home->Add({u"--item1"_s, u"B"_s});
        QCOMPARE(Export({b, u"--post"_s, u"mark"_s}).Object(), FromText(u"{'written': 1, 'marked': 1}"_s));
        QCOMPARE(Export({u"--post"_s, u"mark"_s}).Object(), FromText(u"{'written': 2, 'marked': 1}"_s));
        QCOMPARE(Export({b, u"--post"_s, u"delete"_s}).Object(), FromText(u"{'written': 1, 'deleted': 1}"_s));
        QCOMPARE(Stored(), 1);
        // the setting acts where nothing is said
        QCOMPARE(m_home->RunJson({u"settings"_s, u"set"_s, u"exportPostProcessing"_s, u"2"_s}).exit, 0);
        QCOMPARE(Export({u"--post"_s, u"nothing"_s}).Object(), FromText(u"{'written': 1}"_s));
        QCOMPARE(Export({}).Object(), FromText(u"{'written': 1, 'deleted': 1}"_s));
        QCOMPARE(Stored(), 0);
    }

    void whatTheEncodingLacksIsntDeleted() {
        m_home->Add({u"--item1"_s, u"5 €"_s});
        const Reply reply = Export({u"--encoding"_s, u"iso-8859-1"_s, u"--post"_s, u"delete"_s});
        QCOMPARE(reply.exit, 0);
        QCOMPARE(reply.Object(), FromText(u"{'written': 1, 'deleted': 0, 'replaced': 1}"_s));
        QVERIFY(Content().contains("\"5 ?\""));
        QCOMPARE(Stored(), 1);
    }

    /// Nothing in the file marks that a text holds a qualifier: what follows would be read as something else.
    void whatDoesNotComeBackIsntDeleted() {
        m_home->Add({u"--item1"_s, u"5\" pipe"_s});
        const Reply reply = Export({u"--post"_s, u"delete"_s});
        QCOMPARE(reply.exit, 0);
        QCOMPARE(reply.Object(), FromText(u"{'written': 1, 'deleted': 0, 'notReadBack': 1}"_s));
        QVERIFY(reply.err.contains("line 2"));
        QVERIFY(reply.err.contains("not deleted"));
        QCOMPARE(Stored(), 1);
        // with delimiters that no text holds it can go
        QCOMPARE(Export({u"--qualifier"_s, u"none"_s, u"--separator"_s, u"tab"_s, u"--post"_s, u"delete"_s})
                     .Object(),
                 FromText(u"{'written': 1, 'deleted': 1}"_s));
        QCOMPARE(Stored(), 0);
    }

    void itemsThatDoNotComeBack() {
        m_home->Add({u"--item1"_s, u"5\" pipe"_s});
        const Reply reply = m_home->RunJson({u"export"_s, u"items"_s, Path()});
        QCOMPARE(reply.exit, 0);
        QVERIFY(reply.err.contains("line 1: \"Client\",\"5\" pipe\""));
    }

    void aFileThatCantBeWritten() {
        m_home->Add({u"--item1"_s, u"A"_s});
        const QStringList words{u"export"_s, u"records"_s};
        const QStringList post{u"--post"_s, u"delete"_s};
        QCOMPARE(m_home->RunJson(words + QStringList{m_home->File(u"absent/file"_s)} + post).exit, 1);
        QCOMPARE(m_home->RunJson(words + QStringList{m_home->Path()} + post).exit, 1);
        QCOMPARE(m_home->RunJson(words + QStringList{m_home->File(u"velmarch.store"_s)} + post).exit, 2);
        QCOMPARE(Stored(), 1);
    }
};

TEST_CLASS(TestImportExport);
#include "TestImportExport.moc"
