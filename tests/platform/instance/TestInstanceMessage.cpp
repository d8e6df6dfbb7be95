#include "platform/instance/InstanceMessage.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

#include "support/TestProgram.h"

/// The reply as it goes over the channel; programs of other versions read it too.
class TestInstanceMessage : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void Written_data();
    void Written();
    void Read_data();
    void Read();
};

void TestInstanceMessage::Written_data() {
    QTest::addColumn<InstanceReply>("reply");
    QTest::addColumn<QByteArray>("json");
    QTest::newRow("done") << InstanceReply::Done() << QByteArray(R"({"ok":true})");
    QTest::newRow("done, with what was asked for")
        << InstanceReply::Done({{u"timers"_qs, QJsonArray{1}}}) << QByteArray(R"({"ok":true,"timers":[1]})");
    const auto refused = [](ReplyReason reason) { return InstanceReply::Refused(reason, u"No."_qs); };
    QTest::newRow("failed") << refused(ReplyReason::Failed)
                            << QByteArray(R"({"error":"No.","exit":1,"ok":false})");
    QTest::newRow("not understood") << refused(ReplyReason::NotUnderstood)
                                    << QByteArray(R"({"error":"No.","exit":2,"ok":false})");
    QTest::newRow("the window's own")
        << refused(ReplyReason::WindowOwns) << QByteArray(R"({"error":"No.","exit":3,"ok":false})");
    QTest::newRow("not found") << refused(ReplyReason::NotFound)
                               << QByteArray(R"({"error":"No.","exit":4,"ok":false})");
    QTest::newRow("the window ends") << refused(ReplyReason::WindowEnds)
                                     << QByteArray(R"({"error":"No.","exit":5,"ok":false})");
}

void TestInstanceMessage::Written() {
    QFETCH(InstanceReply, reply);
    QTEST(QJsonDocument(reply.ToJson()).toJson(QJsonDocument::Compact), "json");
}

void TestInstanceMessage::Read_data() {
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<ReplyReason>("reason");
    QTest::addColumn<QString>("words");
    QTest::addColumn<qsizetype>("payload");  // how many values
    const auto row = [](const char* json, ReplyReason reason, const QString& words, qsizetype payload) {
        QTest::newRow(json) << QByteArray(json) << reason << words << payload;
    };
    row(R"({"ok": true})", ReplyReason::Done, {}, 0);
    row(R"({"ok": true, "timers": []})", ReplyReason::Done, {}, 1);
    row(R"({"ok": false, "exit": 1, "error": "A"})", ReplyReason::Failed, u"A"_qs, 0);
    row(R"({"ok": false, "exit": 2, "error": "A"})", ReplyReason::NotUnderstood, u"A"_qs, 0);
    row(R"({"ok": false, "exit": 3, "error": "A"})", ReplyReason::WindowOwns, u"A"_qs, 0);
    row(R"({"ok": false, "exit": 4, "error": "A"})", ReplyReason::NotFound, u"A"_qs, 0);
    row(R"({"ok": false, "exit": 5, "error": "A"})", ReplyReason::WindowEnds, u"A"_qs, 0);
    row(R"({"ok": false, "exit": 9, "error": "A"})", ReplyReason::Failed, u"A"_qs, 0);
    row(R"({"ok": false, "exit": 0, "error": "A"})", ReplyReason::Failed, u"A"_qs, 0);
    row(R"({"ok": false})", ReplyReason::Failed, {}, 0);
    row("{}", ReplyReason::Failed, {}, 0);
}

void TestInstanceMessage::Read() {
    QFETCH(QByteArray, json);
    const InstanceReply reply = InstanceReply::FromJson(QJsonDocument::fromJson(json).object());
    QTEST(reply.reason, "reason");
    QTEST(reply.words, "words");
    QTEST(reply.payload.size(), "payload");
    QCOMPARE(bool(reply), reply.reason == ReplyReason::Done);
}

TEST_CLASS(TestInstanceMessage);
#include "TestInstanceMessage.moc"
