#include "cli/home/ConsoleHome.h"

#include "support/TestProgram.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// "doctor": what it finds, what it advises, and that it changes nothing.
class TestDoctor : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init() { m_home = std::make_unique<ConsoleHome>(); }
    void ASoundHome();
    void AnEmptyHome();
    void AHomeWithoutColumns();
    void AMissingStore();
    void ADamagedFile_data();
    void ADamagedFile();
    void UnreadableSettingsDontHideTheRest();
    void AnUnreadableStoreIsNamed();
    void WithoutTheRightToRead_data();
    void WithoutTheRightToRead();
    void BadRecords_data();
    void BadRecords();
    void ADistanceOfAnotherLocale();
    void ListItemsWithoutAList();
    void DamagedDependencies_data();
    void DamagedDependencies();
    void DependenciesOfGoneItems();
    void DamagedColumns_data();
    void DamagedColumns();
    void ADamagedDefault();
    void ADamagedDefinition();
    void ADamagedQuery();
    void AnOrphanTimer();

 private:
    /// The check of the doctor's report by its name.
    static QJsonObject Check(const QJsonObject& report, const QString& name);
    void Overwrite(const QString& file, qint64 from) const;
    std::unique_ptr<ConsoleHome> m_home;
};

QJsonObject TestDoctor::Check(const QJsonObject& report, const QString& name) {
    for (const QJsonValue& check : report[u"checks"].toArray())
        if (check[u"name"].toString() == name) return check.toObject();
    return {};
}

void TestDoctor::ASoundHome() {
    const QString id = m_home->Add({u"--date"_s, u"2026-11-19"_s});
    m_home->Run({u"timer"_s, u"start"_s, id});
    const Reply reply = m_home->RunJson({u"doctor"_s});
    QCOMPARE(reply.exit, 0);
    QCOMPARE(reply.Object()[u"ok"].toBool(), true);
    QCOMPARE(Check(reply.Object(), u"time records"_s),
             FromText(u"{'name': 'time records', 'ok': true, 'detail': '1 records', 'advice': null}"_s));
    QCOMPARE(Check(reply.Object(), u"timers"_s)[u"detail"].toString(), u"1 timers"_s);
    QVERIFY(m_home->Run({u"doctor"_s}).out.endsWith("All is well.\n"));
}

/// A home of an earlier version has no columns stored: that is told, and everything works.
void TestDoctor::AHomeWithoutColumns() {
    m_home->Add({u"--date"_s, u"2026-11-19"_s});
    QVERIFY(m_home->Execute(u"velmarch.settings"_s, "DELETE FROM entries WHERE name LIKE '%Columns'"));
    const Reply list = m_home->RunJson({u"time"_s, u"list"_s});
    QCOMPARE(list.exit, 0);
    QCOMPARE(list.Object()[u"count"].toInt(), 1);
    QVERIFY(list.err.contains("The levels of the data tree could not be read."));
    QCOMPARE(m_home->RunJson({u"doctor"_s}).Object()[u"ok"].toBool(), true);
}

void TestDoctor::AnEmptyHome() {
    QCOMPARE(m_home->RunJson({u"doctor"_s}).exit, 0);
    QVERIFY2(QDir(m_home->Path()).isEmpty(), "the doctor has made files");
}

void TestDoctor::AMissingStore() {
    m_home->Add({});
    QVERIFY(QFile::remove(m_home->File(u"velmarch.store"_s)));
    const Reply reply = m_home->RunJson({u"doctor"_s});
    QCOMPARE(reply.exit, 1);
    const QJsonObject check = Check(reply.Object(), u"store"_s);
    QCOMPARE(check[u"ok"].toBool(true), false);
    QVERIFY(!check[u"advice"].toString().isEmpty());
    QVERIFY(!QFile::exists(m_home->File(u"velmarch.store"_s)));
    // Nobody agreed to begin anew, so no command does.
    QCOMPARE(m_home->Run({u"time"_s, u"list"_s}).exit, 1);
    QCOMPARE(m_home->Run({u"--yes"_s, u"time"_s, u"list"_s}).exit, 0);
}

void TestDoctor::ADamagedFile_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("check");
    QTest::addColumn<bool>("isWhole");  ///< false: only its middle is overwritten
    QTest::newRow("no store at all") << u"velmarch.store"_s << u"store"_s << true;
    QTest::newRow("a damaged store") << u"velmarch.store"_s << u"store"_s << false;
    QTest::newRow("no settings file at all") << u"velmarch.settings"_s << u"settings"_s << true;
    QTest::newRow("damaged settings") << u"velmarch.settings"_s << u"settings"_s << false;
    QTest::newRow("no history at all") << u"velmarch.history"_s << u"history"_s << true;
    QTest::newRow("a damaged history") << u"velmarch.history"_s << u"history"_s << false;
}

void TestDoctor::ADamagedFile() {
    QFETCH(QString, file);
    QFETCH(QString, check);
    QFETCH(bool, isWhole);
    for (int i = 0; i < 3; ++i) m_home->Add({u"--notes"_s, QString(3000, u'n')});
    Overwrite(file, isWhole ? 0 : 4096);
    QFile victim(m_home->File(file));
    QVERIFY(victim.open(QFile::ReadOnly));
    const QByteArray before = victim.readAll();
    victim.close();

    const Reply reply = m_home->RunJson({u"doctor"_s});
    QCOMPARE(reply.exit, 1);
    QCOMPARE(Check(reply.Object(), check)[u"ok"].toBool(true), false);
    QVERIFY(victim.open(QFile::ReadOnly));
    QCOMPARE(victim.readAll(), before);
    QCOMPARE(QDir(m_home->Path()).entryList(QDir::Files).filter(u"unreadable"_s), QStringList());
}

void TestDoctor::Overwrite(const QString& file, qint64 from) const {
    QFile victim(m_home->File(file));
    QVERIFY(victim.open(QFile::ReadWrite) && victim.seek(from));
    victim.write(QByteArray(4096, '\x5a'));
}

void TestDoctor::UnreadableSettingsDontHideTheRest() {
    m_home->Add({u"--date"_s, u"2026-11-19"_s});
    Overwrite(u"velmarch.settings"_s, 0);
    const Reply reply = m_home->RunJson({u"doctor"_s});
    QCOMPARE(reply.exit, 1);
    QCOMPARE(Check(reply.Object(), u"settings"_s)[u"ok"].toBool(true), false);
    QCOMPARE(Check(reply.Object(), u"time records"_s)[u"detail"].toString(), u"1 records"_s);
    QVERIFY(Check(reply.Object(), u"timers"_s)[u"ok"].isNull());
    QVERIFY(Check(reply.Object(), u"timers"_s)[u"detail"].toString().contains(u"not checked"));
    const QByteArray lines = m_home->Run({u"doctor"_s}).out;
    QVERIFY2(lines.contains("-      timers: not checked"), lines.constData());
}

void TestDoctor::AnUnreadableStoreIsNamed() {
    m_home->Add({});
    Overwrite(u"velmarch.store"_s, 0);
    const QJsonObject report = m_home->RunJson({u"doctor"_s}).Object();
    QCOMPARE(Check(report, u"settings"_s)[u"ok"].toBool(false), true);
    for (const QString& name : {u"time records"_s, u"timers"_s, u"expense records"_s, u"list items"_s})
        QVERIFY2(Check(report, name)[u"ok"].isNull(), qPrintable(name));
}

void TestDoctor::WithoutTheRightToRead_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("check");
    QTest::newRow("the settings") << u"velmarch.settings"_s << u"settings"_s;
    QTest::newRow("the store") << u"velmarch.store"_s << u"store"_s;
}

/// The advice is not that for a damaged file: nothing is wrong with it.
void TestDoctor::WithoutTheRightToRead() {
    QFETCH(QString, file);
    QFETCH(QString, check);
    m_home->Add({});
    QVERIFY(QFile::setPermissions(m_home->File(file), QFile::WriteOwner));
    if (QFileInfo(m_home->File(file)).isReadable()) QSKIP("an administrator may read everything");
    const QJsonObject finding = Check(m_home->RunJson({u"doctor"_s}).Object(), check);
    QCOMPARE(finding[u"ok"].toBool(true), false);
    QVERIFY2(finding[u"advice"].toString().contains(u"right to read"),
             qPrintable(finding[u"advice"].toString()));
}

void TestDoctor::BadRecords_data() {
    QTest::addColumn<QByteArray>("sql");
    QTest::addColumn<QByteArray>("words");
    QTest::newRow("a month 13") << QByteArray("UPDATE time_velmarch SET month=13") << QByteArray("dates");
    QTest::newRow("a 31 April") << QByteArray("UPDATE time_velmarch SET month=4, day=31")
                                << QByteArray("dates");
    QTest::newRow("a year 26") << QByteArray("UPDATE time_velmarch SET year=26") << QByteArray("dates");
    QTest::newRow("an identity that is none")
        << QByteArray("UPDATE time_velmarch SET identity='xyz'") << QByteArray("identities");
    QTest::newRow("an expense of a month 13")
        << QByteArray("UPDATE expense_velmarch SET month=13") << QByteArray("dates");
    QTest::newRow("an expense of a 29 February that isn't")
        << QByteArray("UPDATE expense_velmarch SET month=2, day=29, year=2026") << QByteArray("dates");
    QTest::newRow("an expense's identity that is none")
        << QByteArray("UPDATE expense_velmarch SET identity='xyz'") << QByteArray("identities");
}

void TestDoctor::BadRecords() {
    QFETCH(QByteArray, sql);
    QFETCH(QByteArray, words);
    m_home->Add({u"--date"_s, u"2026-11-19"_s});
    m_home->AddExpense({u"--date"_s, u"2026-11-19"_s});
    QVERIFY(m_home->Execute(u"velmarch.store"_s, sql));
    const Reply reply = m_home->RunJson({u"doctor"_s});
    QCOMPARE(reply.exit, 1);
    const QString kind = sql.contains("expense") ? u"expense"_s : u"time"_s;
    const QJsonObject check = Check(reply.Object(), kind + u" records"_s);
    if (words == "dates") QVERIFY(check[u"advice"].toString().contains(kind + u" edit"_s));
    QCOMPARE(check[u"ok"].toBool(true), false);
    QVERIFY2(check[u"detail"].toString().toUtf8().contains(words), reply.out.constData());
}

/// Run without the user's locale, the console reads 12 of "12,75". Editing the record leaves the text as it
/// is.
void TestDoctor::ADistanceOfAnotherLocale() {
    const QString id = m_home->AddExpense({u"--date"_s, u"2026-11-19"_s, u"--distance"_s, u"12.75"_s});
    QVERIFY(m_home->Execute(u"velmarch.store"_s, "UPDATE expense_velmarch SET distance='12,75'"));
    QCOMPARE(m_home->Run({u"expense"_s, u"edit"_s, id, u"--notes"_s, u"there and back"_s}).exit, 0);
    const Reply reply = m_home->RunJson({u"doctor"_s});
    QCOMPARE(reply.exit, 1);
    const QJsonObject check = Check(reply.Object(), u"expense records"_s);
    QVERIFY2(check[u"detail"].toString().contains(u"distances") && check[u"detail"].toString().contains(id),
             reply.out.constData());
    QVERIFY(check[u"advice"].toString().contains(u"LC_NUMERIC"));
    QCOMPARE(m_home->Run({u"expense"_s, u"edit"_s, id, u"--distance"_s, u"12"_s}).exit, 0);
    QCOMPARE(m_home->RunJson({u"doctor"_s}).exit, 0);
}

void TestDoctor::ListItemsWithoutAList() {
    m_home->Add({});
    QVERIFY(
        m_home->Execute(u"velmarch.store"_s,
                        "INSERT INTO item_velmarch VALUES(16,1,'Alpha',0,'01A1FF61AFB900007EA38CC3ECE08EF6'),"
                        "(98,1,'Stray',0,'01A1FF61AFB900007EA38CC3ECE08EF7'),"
                        "(143,1,'Left out',0,'01A1FF61AFB900007EA38CC3ECE08EF8')"));
    const Reply reply = m_home->RunJson({u"doctor"_s});
    QCOMPARE(reply.exit, 1);
    const QJsonObject check = Check(reply.Object(), u"list items"_s);
    QCOMPARE(check[u"ok"].toBool(true), false);
    QVERIFY2(check[u"detail"].toString().contains(u"Stray (98)"), reply.out.constData());
    QVERIFY(!check[u"detail"].toString().contains(u"Left out"));
    QVERIFY(m_home->Execute(u"velmarch.store"_s, "DELETE FROM item_velmarch WHERE list=98"));
    QCOMPARE(Check(m_home->RunJson({u"doctor"_s}).Object(), u"list items"_s)[u"detail"].toString(),
             u"2 list items"_s);
}

void TestDoctor::DamagedDependencies_data() {
    QTest::addColumn<QByteArray>("sql");
    QTest::newRow("a block that doesn't fit its digest")
        << QByteArray("UPDATE dependency_velmarch SET block='00'||substr(block,3) WHERE length(block)>64");
    QTest::newRow("no block") << QByteArray("UPDATE dependency_velmarch SET block='xyz' WHERE number=55");
    QTest::newRow("a chunk that is gone")
        << QByteArray("DELETE FROM dependency_velmarch WHERE identity NOT LIKE 'FFFF%'");
}

void TestDoctor::DamagedDependencies() {
    QFETCH(QByteArray, sql);
    QCOMPARE(m_home->Run({u"items"_s, u"add"_s, u"16"_s, u"Alpha"_s}).exit, 0);
    QCOMPARE(m_home->Run({u"tree"_s, u"add"_s, u"time"_s, u"Alpha"_s}).exit, 0);
    QCOMPARE(Check(m_home->RunJson({u"doctor"_s}).Object(), u"time dependencies"_s)[u"detail"].toString(),
             u"1 entries"_s);
    QVERIFY(m_home->Execute(u"velmarch.store"_s, sql));
    const Reply reply = m_home->RunJson({u"doctor"_s});
    QCOMPARE(reply.exit, 1);
    const QJsonObject check = Check(reply.Object(), u"time dependencies"_s);
    QCOMPARE(check[u"ok"].toBool(true), false);
    QVERIFY(!check[u"advice"].toString().isEmpty());
    QCOMPARE(Check(reply.Object(), u"expense dependencies"_s)[u"ok"].toBool(false), true);
    // "tree show" doesn't show them as none either.
    const Reply shown = m_home->RunJson({u"tree"_s, u"show"_s, u"time"_s});
    QCOMPARE(shown.exit, 1);
    QVERIFY(shown.out.isEmpty());
    QVERIFY2(shown.err.contains("What is stored of them is damaged."), shown.err.constData());
}

void TestDoctor::DependenciesOfGoneItems() {
    QCOMPARE(m_home->Run({u"items"_s, u"add"_s, u"16"_s, u"Alpha"_s}).exit, 0);
    QCOMPARE(m_home->Run({u"tree"_s, u"add"_s, u"expense"_s, u"Alpha"_s}).exit, 0);
    QVERIFY(m_home->Execute(u"velmarch.store"_s, "DELETE FROM item_velmarch"));
    const QJsonObject report = m_home->RunJson({u"doctor"_s}).Object();
    QCOMPARE(Check(report, u"expense dependencies"_s)[u"ok"].toBool(true), false);
    QCOMPARE(Check(report, u"time dependencies"_s)[u"ok"].toBool(false), true);
}

void TestDoctor::DamagedColumns_data() {
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("check");
    QTest::newRow("of the list") << u"ListColumns"_s << u"columns"_s;
    QTest::newRow("of the tree") << u"TreeColumns"_s << u"tree levels"_s;
}

void TestDoctor::DamagedColumns() {
    QFETCH(QString, value);
    QFETCH(QString, check);
    m_home->Add({});
    QVERIFY(m_home->Execute(
        u"velmarch.settings"_s,
        "UPDATE entries SET value=x'0600000001000000FF' WHERE name='" + value.toLatin1() + "'"));
    const Reply reply = m_home->RunJson({u"doctor"_s});
    QCOMPARE(reply.exit, 1);
    const QJsonObject finding = Check(reply.Object(), check);
    QCOMPARE(finding[u"ok"].toBool(true), false);
    QVERIFY2(finding[u"advice"].toString().contains(u"columns reset"), reply.out.constData());
    for (const QString& mode : {u"time"_s, u"expense"_s}) {
        QStringList reset{u"columns"_s, u"reset"_s, mode};
        if (value == u"TreeColumns") reset.append(u"--tree"_s);
        QCOMPARE(m_home->Run(reset).exit, 0);
    }
    QCOMPARE(m_home->Run({u"doctor"_s}).exit, 0);
}

void TestDoctor::ADamagedDefault() {
    for (const QString& name : {u"Mine"_s, u"Yours"_s})
        QCOMPARE(m_home->Run({u"defaults"_s, u"save"_s, name}).exit, 0);
    QVERIFY(
        m_home->Execute(u"velmarch.settings"_s,
                        "UPDATE entries SET value=x'00' WHERE key=(SELECT id FROM keys WHERE name='Mine')"));
    const QJsonObject check = Check(m_home->RunJson({u"doctor"_s}).Object(), u"time defaults"_s);
    QCOMPARE(check[u"ok"].toBool(true), false);
    QVERIFY2(check[u"detail"].toString().contains(u"Mine"), qPrintable(check[u"detail"].toString()));
    QVERIFY(!check[u"detail"].toString().contains(u"Yours"));
    QCOMPARE(m_home->Run({u"defaults"_s, u"show"_s, u"Mine"_s}).exit, 1);
    QCOMPARE(m_home->Run({u"time"_s, u"new"_s, u"--from"_s, u"defaults:Mine"_s}).exit, 1);
    QCOMPARE(m_home->Run({u"--yes"_s, u"defaults"_s, u"delete"_s, u"Mine"_s}).exit, 0);
    QCOMPARE(m_home->Run({u"doctor"_s}).exit, 0);
}

void TestDoctor::ADamagedDefinition() {
    for (const QString& name : {u"Mine"_s, u"Yours"_s})
        QCOMPARE(m_home->Run({u"report"_s, u"save"_s, name, u"--kind"_s, u"listing"_s}).exit, 0);
    QCOMPARE(Check(m_home->RunJson({u"doctor"_s}).Object(), u"time reports"_s)[u"ok"].toBool(), true);
    QVERIFY(m_home->Execute(
        u"velmarch.settings"_s,
        "DELETE FROM entries WHERE name='ReportType' AND key=(SELECT id FROM keys WHERE name='Mine')"));
    const QJsonObject check = Check(m_home->RunJson({u"doctor"_s}).Object(), u"time reports"_s);
    QCOMPARE(check[u"ok"].toBool(true), false);
    QVERIFY2(check[u"detail"].toString().contains(u"Mine"), qPrintable(check[u"detail"].toString()));
    QVERIFY(!check[u"detail"].toString().contains(u"Yours"));
    QCOMPARE(m_home->Run({u"--yes"_s, u"report"_s, u"delete"_s, u"Mine"_s}).exit, 0);
    QCOMPARE(m_home->Run({u"doctor"_s}).exit, 0);
}

void TestDoctor::ADamagedQuery() {
    for (const QString& name : {u"Mine"_s, u"Yours"_s})
        QCOMPARE(m_home->Run({u"query"_s, u"save"_s, name, u"--mode"_s, u"expense"_s}).exit, 0);
    QCOMPARE(Check(m_home->RunJson({u"doctor"_s}).Object(), u"expense queries"_s)[u"ok"].toBool(), true);
    QVERIFY(m_home->Execute(
        u"velmarch.settings"_s,
        "UPDATE entries SET value=x'00' WHERE name='Amount' AND key=(SELECT id FROM keys WHERE "
        "name='Mine')"));
    const QJsonObject check = Check(m_home->RunJson({u"doctor"_s}).Object(), u"expense queries"_s);
    QCOMPARE(check[u"ok"].toBool(true), false);
    QVERIFY2(check[u"detail"].toString().contains(u"Mine"), qPrintable(check[u"detail"].toString()));
    QVERIFY(!check[u"detail"].toString().contains(u"Yours"));
    QCOMPARE(m_home->Run({u"--yes"_s, u"query"_s, u"delete"_s, u"Mine"_s, u"--mode"_s, u"expense"_s}).exit,
             0);
    QCOMPARE(m_home->Run({u"doctor"_s}).exit, 0);
}

void TestDoctor::AnOrphanTimer() {
    const QString id = m_home->Add({});
    m_home->Run({u"timer"_s, u"start"_s, id});
    QVERIFY(m_home->Execute(u"velmarch.store"_s, "DELETE FROM time_velmarch"));
    const Reply reply = m_home->RunJson({u"doctor"_s});
    QCOMPARE(reply.exit, 1);
    QVERIFY(Check(reply.Object(), u"timers"_s)[u"detail"].toString().contains(id));
    QCOMPARE(m_home->Run({u"timer"_s, u"drop"_s, id}).exit, 0);
    QCOMPARE(m_home->Run({u"doctor"_s}).exit, 0);
}

TEST_CLASS(TestDoctor);
#include "TestDoctor.moc"
