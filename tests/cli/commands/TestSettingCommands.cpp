#include "cli/home/ConsoleHome.h"

#include "support/TestProgram.h"

#include <QFile>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestSettingCommands : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init() { m_home = std::make_unique<ConsoleHome>(); }
    void List();
    void OwnSettings();
    void Get();
    void Set_data();
    void Set();
    void Refused_data();
    void Refused();
    void Reset();
    void ReadingWritesNothing();

 private:
    Reply Settings(const QStringList& words) const {
        return m_home->RunJson(QStringList(u"settings"_s) + words);
    }
    std::unique_ptr<ConsoleHome> m_home;
};

void TestSettingCommands::List() {
    const QJsonArray all = Settings({u"list"_s}).Array();
    QCOMPARE(all.size(), 75);
    for (int i = 0; i < 75; ++i) QCOMPARE(all[i][u"index"].toInt(), i);
    QCOMPARE(all[0].toObject(),
             FromText(u"{'index': 0, 'name': 'confirmCopy', 'type': 'flag', 'value': 1, 'default': 1}"_s));
    QCOMPARE(all[54].toObject(), FromText(u"{'index': 54, 'name': 'alternateRowColour', 'type': 'colour', "
                                          "'value': 16316664, 'default': 16316664}"_s));
    QCOMPARE(all[74][u"name"].toString(), u"addMinuteOnSuccessive"_s);
}

/// Beside the 75, read and written like them.
void TestSettingCommands::OwnSettings() {
    const QJsonArray own = Settings({u"own"_s}).Array();
    QCOMPARE(own.size(), 6);
    QCOMPARE(own[0].toObject(),
             FromText(u"{'index': 75, 'name': 'clockFormat', 'type': 'int', 'value': 0, 'default': 0}"_s));
    QCOMPARE(Settings({u"set"_s, u"clockFormat"_s, u"24"_s}).exit, 0);
    QCOMPARE(Settings({u"get"_s, u"clockFormat"_s}).Object()[u"value"].toInt(), 24);
    QCOMPARE(Settings({u"set"_s, u"clockFormat"_s, u"23"_s}).exit, 2);
    QCOMPARE(Settings({u"reset"_s, u"clockFormat"_s}).exit, 0);
    QCOMPARE(Settings({u"get"_s, u"clockFormat"_s}).Object()[u"value"].toInt(), 0);
}

void TestSettingCommands::Get() {
    QCOMPARE(Settings({u"get"_s, u"precisionDuration"_s}).out,
             QByteArray("{\"index\": 63, \"name\": \"precisionDuration\", \"type\": \"int\", \"value\": 4, "
                        "\"default\": 4}\n"));
    QCOMPARE(Settings({u"get"_s, u"nothing"_s}).exit, 4);
}

void TestSettingCommands::Set_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("value");
    QTest::addColumn<qint64>("stored");
    QTest::newRow("a flag as a number") << u"confirmDelete"_s << u"0"_s << qint64{0};
    QTest::newRow("a flag as a word") << u"useDependencies"_s << u"yes"_s << qint64{1};
    QTest::newRow("a number") << u"precisionAmount"_s << u"6"_s << qint64{6};
    QTest::newRow("one of a few") << u"roundEndType"_s << u"32"_s << qint64{32};
    QTest::newRow("below zero where that means none") << u"odometerLastEnd"_s << u"-1"_s << qint64{-1};
    QTest::newRow("a colour as it is written") << u"gridLineColour"_s << u"0x0000FF"_s << qint64{255};
}

void TestSettingCommands::Set() {
    QFETCH(QString, name);
    QFETCH(QString, value);
    QFETCH(qint64, stored);
    const Reply reply = Settings({u"set"_s, name, value});
    QCOMPARE(reply.exit, 0);
    QCOMPARE(reply.Object()[u"value"].toInteger(-99), stored);
    QCOMPARE(Settings({u"get"_s, name}).Object()[u"value"].toInteger(-99), stored);
}

void TestSettingCommands::Refused_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("exit");
    QTest::addColumn<QByteArray>("words");
    QTest::newRow("none of the few") << u"roundStartType"_s << u"1"_s << 2 << QByteArray("0, 16 or 32");
    QTest::newRow("too great") << u"precisionRate"_s << u"7"_s << 2 << QByteArray("0 to 6");
    QTest::newRow("a flag of two") << u"confirmCopy"_s << u"2"_s << 2 << QByteArray("0 or 1");
    QTest::newRow("no number") << u"precisionRate"_s << u"many"_s << 2 << QByteArray("0 to 6");
    QTest::newRow("a fraction") << u"precisionRate"_s << u"2.5"_s << 2 << QByteArray("0 to 6");
    QTest::newRow("far too great") << u"precisionRate"_s << u"99999999999999999999"_s << 2
                                   << QByteArray("0 to 6");
    QTest::newRow("an unknown name") << u"colour"_s << u"1"_s << 4 << QByteArray("\"colour\"");
    QTest::newRow("a name in other letters") << u"CONFIRMCOPY"_s << u"1"_s << 4 << QByteArray("CONFIRMCOPY");
}

void TestSettingCommands::Refused() {
    QFETCH(QString, name);
    QFETCH(QString, value);
    QFETCH(QByteArray, words);
    const QByteArray before = Settings({u"list"_s}).out;
    const Reply reply = Settings({u"set"_s, name, value});
    QTEST(reply.exit, "exit");
    QVERIFY2(reply.err.contains(words), reply.err.constData());
    QCOMPARE(Settings({u"list"_s}).out, before);
}

void TestSettingCommands::Reset() {
    Settings({u"set"_s, u"confirmDelete"_s, u"0"_s});
    Settings({u"set"_s, u"precisionRate"_s, u"0"_s});
    QCOMPARE(Settings({u"reset"_s, u"confirmDelete"_s}).Object()[u"value"].toInt(), 1);
    QCOMPARE(Settings({u"get"_s, u"precisionRate"_s}).Object()[u"value"].toInt(), 0);
    const QJsonArray all = Settings({u"reset"_s}).Array();
    QCOMPARE(all.size(), 75);
    for (const QJsonValue& row : all) QCOMPARE(row[u"value"], row[u"default"]);
    QCOMPARE(Settings({u"reset"_s, u"nothing"_s}).exit, 4);
}

void TestSettingCommands::ReadingWritesNothing() {
    m_home->Add({});
    const auto content = [this] {
        QFile file(m_home->File(u"velmarch.settings"_s));
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    };
    const QByteArray before = content();
    QVERIFY(!before.isEmpty());
    for (const QStringList& words : {QStringList{u"settings"_s, u"list"_s}, QStringList{u"time"_s, u"list"_s},
                                     QStringList{u"time"_s, u"add"_s}, QStringList{u"timer"_s, u"status"_s},
                                     QStringList{u"period"_s, u"show"_s, u"2"_s}, QStringList{u"doctor"_s}})
        QCOMPARE(m_home->Run(words).exit, 0);
    QCOMPARE(content(), before);
}

TEST_CLASS(TestSettingCommands);
#include "TestSettingCommands.moc"
