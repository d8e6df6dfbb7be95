#include "config/SettingCommand.h"

#include "SettingsHome.h"
#include "support/TestProgram.h"

#include <QJsonDocument>
#include <QTemporaryDir>

/// A change of a setting as console and window hand it over.
class TestSettingCommand : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void Run_data();
    void Run();
    void ResetOfOneLeavesTheOthers();
    void ResetOfAll();
    void FailedSaveChangesNothing();
    void RequestsAsTheyTravel_data();
    void RequestsAsTheyTravel();

 private:
    /// A request that has come as this JSON.
    [[nodiscard]] static SettingRequest Request(const char* json) {
        return *SettingRequest::FromJson(QJsonDocument::fromJson(json).object());
    }
};

void TestSettingCommand::Run_data() {
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<int>("exitCode");  // 0: done
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("value");
    const auto row = [](const char* situation, const char* command, int exitCode, const char* words,
                        const char* name, int value) {
        QTest::newRow(situation) << QByteArray(command) << exitCode << QString::fromUtf8(words)
                                 << QString::fromLatin1(name) << value;
    };
    row("an allowed number", R"({"name": "precisionRate", "value": 5})", 0, "", "precisionRate", 5);
    row("a flag", R"({"name": "confirmDelete", "value": 0})", 0, "", "confirmDelete", 0);
    row("a colour", R"({"name": "lineColour1", "value": 16777215})", 0, "", "lineColour1", 0xFFFFFF);
    row("a rounding type that is none of the three", R"({"name": "roundEndType", "value": 1})", 2,
        "0, 16 or 32", "roundEndType", 0);
    row("a number out of range", R"({"name": "precisionRate", "value": 7})", 2, "0 to 6", "precisionRate", 3);
    row("a number beyond all", R"({"name": "reservedInt40", "value": 1e300})", 2, "-2147483648 to 2147483647",
        "reservedInt40", 50);
    row("a fraction", R"({"name": "precisionRate", "value": 2.5})", 2, "0 to 6", "precisionRate", 3);
    row("a text", R"({"name": "precisionRate", "value": "2"})", 2, "0 to 6", "precisionRate", 3);
    row("no value", R"({"name": "precisionRate"})", 2, "0 to 6", "precisionRate", 3);
    row("an unknown name", R"({"name": "precisionrate", "value": 2})", 4, "precisionrate", "precisionRate",
        3);
    row("a name with per cent signs", R"({"name": "%s%n", "value": 2})", 4, "%s%n", "precisionRate", 3);
    row("no name", R"({"value": 2})", 2, "", "precisionRate", 3);
    row("nothing", "{}", 2, "", "precisionRate", 3);
    row("reset of an unknown name", R"({"reset": true, "name": "nothing"})", 4, "nothing", "precisionRate",
        3);
}

void TestSettingCommand::Run() {
    QFETCH(QByteArray, command);
    QFETCH(int, exitCode);
    QFETCH(QString, words);
    QFETCH(QString, name);
    QFETCH(int, value);
    const QTemporaryDir folder;
    SettingsHome home(folder.path());
    const InstanceReply reply = RunSettingRequest(Request(command.constData()), home.Start());
    QCOMPARE(static_cast<int>(reply.reason), exitCode);
    QCOMPARE(reply.words.isEmpty(), exitCode == 0);
    QVERIFY2(reply.words.contains(words), qPrintable(reply.words));
    home.settings->KeepStoreUntouched();  // what counts was stored at once
    QCOMPARE(SettingValue(home.Start(), *FindSetting(name)), static_cast<std::int64_t>(value));
}

void TestSettingCommand::ResetOfOneLeavesTheOthers() {
    const QTemporaryDir folder;
    SettingsHome home(folder.path());
    CCfgStore& settings = home.Start();
    settings.precisionRate = 6;
    settings.precisionAmount = 6;
    QVERIFY(RunSettingRequest(Request(R"({"reset": true, "name": "precisionRate"})"), settings));
    QCOMPARE(settings.precisionRate, 3);
    QCOMPARE(settings.precisionAmount, 6);
}

void TestSettingCommand::ResetOfAll() {
    const QTemporaryDir folder;
    SettingsHome home(folder.path());
    CCfgStore& settings = home.Start();
    settings.precisionRate = 6;
    settings.lineColour4 = 5;
    QVERIFY(settings.SaveAll());
    QVERIFY(RunSettingRequest(Request(R"({"reset": true})"), settings));
    settings.KeepStoreUntouched();
    const CCfgStore& later = home.Start();
    for (const SettingRow& row : SettingsTable()) QCOMPARE(SettingValue(later, row), row.preset);
}

void TestSettingCommand::FailedSaveChangesNothing() {
    const QTemporaryDir folder;
    SettingsHome home(folder.path());
    CCfgStore& settings = home.Start();
    QVERIFY(home.tree.File().Execute("PRAGMA query_only=ON"));
    const InstanceReply reply =
        RunSettingRequest(Request(R"({"name": "precisionRate", "value": 5})"), settings);
    QVERIFY(home.tree.File().Execute("PRAGMA query_only=OFF"));
    QCOMPARE(reply.reason, ReplyReason::Failed);
    QCOMPARE(settings.precisionRate, 3);
}

void TestSettingCommand::RequestsAsTheyTravel_data() {
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<bool>("isRead");
    for (const char* json :
         {R"({"name":"confirmCopy","value":0})", R"({"name":"lineColour1","value":16777215})",
          R"({"reset":true})", R"({"name":"confirmCopy","reset":true})"})
        QTest::newRow(json) << QByteArray(json) << true;
    QTest::newRow("a name that is no text") << QByteArray(R"({"name":5,"reset":true})") << false;
}

/// What is read is written in the same way.
void TestSettingCommand::RequestsAsTheyTravel() {
    QFETCH(QByteArray, json);
    const auto request = SettingRequest::FromJson(QJsonDocument::fromJson(json).object());
    QTEST(request.has_value(), "isRead");
    if (request) QCOMPARE(QJsonDocument(request->ToJson()).toJson(QJsonDocument::Compact), json);
}

TEST_CLASS(TestSettingCommand);
#include "TestSettingCommand.moc"
