#include "config/EntryCommand.h"

#include "config/CCfgStore.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kKey = u"TimeQueries"_s;

EntryContent Content(const QString& text) {
    return EntryContent({{u"Name"_s, text}, {u"Row"_s, QByteArray::fromHex("02000000")}});
}

QJsonObject Json(const char* text) {
    return QJsonDocument::fromJson(QByteArray(text).replace('\'', '"')).object();
}

}  // namespace

/// A change of an entry as console and window hand it over.
class TestEntryCommand final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init() { m_home = std::make_unique<TestHome>(); }
    void cleanup() { m_home.reset(); }

    void theFormOnTheWay() {
        const EntryRequest request{
            .key = kKey, .entry = u"ä"_s, .values = Content(u"\"x\" 😀"_s), .former = u"b"_s};
        QCOMPARE(
            request.ToJson(),
            (QJsonObject{
                {u"key"_s, kKey},
                {u"entry"_s, u"ä"_s},
                {u"former"_s, u"b"_s},
                {u"values"_s, QJsonArray{QJsonObject{{u"name"_s, u"Name"_s}, {u"text"_s, u"\"x\" 😀"_s}},
                                         QJsonObject{{u"name"_s, u"Row"_s}, {u"bytes"_s, u"AgAAAA=="_s}}}}}));
        const auto read = EntryRequest::FromJson(request.ToJson());
        QVERIFY(read && read->key == kKey && read->entry == u"ä" && read->former == u"b");
        QVERIFY(read->values == request.values);
        QVERIFY(EntryRequest::IsIn(request.ToJson()));
        QVERIFY(!EntryRequest::IsIn(Json("{'name': 'confirmCopy', 'value': 1}")));
    }

    void writeReplaceAndDelete() {
        QVERIFY(bool(Run({.key = kKey, .entry = u"one"_s, .values = Content(u"a"_s)})));
        QCOMPARE(Stored(u"one"_s), u"a"_s);
        QVERIFY(bool(Run({.key = kKey, .entry = u"one"_s, .values = Content(u"b"_s)})));
        QCOMPARE(Stored(u"one"_s), u"b"_s);
        QVERIFY(bool(Run({.key = kKey, .entry = u"two"_s, .values = Content(u"c"_s), .former = u"one"_s})));
        QCOMPARE(Names(), QStringList{u"two"_s});
        QVERIFY(bool(Run({.key = kKey, .former = u"two"_s})));
        QCOMPARE(Names(), QStringList());
    }

    void anEntryWithoutValuesMoves() {
        QVERIFY(bool(Run({.key = kKey, .entry = u"one"_s})));
        QVERIFY(bool(Run({.key = kKey, .entry = u"two"_s, .former = u"one"_s})));
        QCOMPARE(Names(), QStringList{u"two"_s});
    }

    void refused_data() {
        QTest::addColumn<QString>("former");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("reason");
        QTest::newRow("the former one isn't there") << u"none"_s << u"x"_s << 4;
        QTest::newRow("an empty text") << u"one"_s << QString() << 1;
        QTest::newRow("a text that is too long") << u"one"_s << QString(4097, u'x') << 1;
        QTest::newRow("the longest") << u"one"_s << QString(4096, u'x') << 0;
    }
    /// In words, never by a box: the window may be asked by the console.
    void refused() {
        QFETCH(QString, former);
        QFETCH(QString, text);
        QFETCH(int, reason);
        QVERIFY(bool(Run({.key = kKey, .entry = u"one"_s, .values = Content(u"a"_s)})));
        const InstanceReply reply =
            Run({.key = kKey, .entry = u"two"_s, .values = Content(text), .former = former});
        QCOMPARE(static_cast<int>(reply.reason), reason);
        QCOMPARE(reply.words.isEmpty(), reason == 0);
        QCOMPARE(Names(), QStringList{reason == 0 ? u"two"_s : u"one"_s});
        m_home->prompt.Finish();
    }

    void aFailedWriteChangesNothing() {
        QVERIFY(bool(Run({.key = kKey, .entry = u"one"_s, .values = Content(u"a"_s)})));
        QVERIFY(
            m_home->tree.File().Execute("CREATE TRIGGER no BEFORE INSERT ON entries WHEN NEW.name = 'Row' "
                                        "BEGIN SELECT RAISE(FAIL, 'no'); END"));
        for (const QString& former : {QString(), u"one"_s}) {
            const InstanceReply reply =
                Run({.key = kKey, .entry = u"two"_s, .values = Content(u"b"_s), .former = former});
            QCOMPARE(static_cast<int>(reply.reason), 1);
            QVERIFY(reply.words.startsWith(u"It could not be stored"));
            QCOMPARE(Names(), QStringList{u"one"_s});
        }
        QVERIFY(!bool(Run({.key = kKey, .entry = u"one"_s, .values = Content(u"b"_s)})));
        QCOMPARE(Stored(u"one"_s), u"a"_s);
    }

    void unreadable_data() {
        QTest::addColumn<QJsonObject>("json");
        QTest::newRow("no key") << Json("{'entry': 'one'}");
        QTest::newRow("values without an entry")
            << Json("{'key': 'k', 'entry': '', 'values': [{'name': 'n', 'text': 't'}]}");
        QTest::newRow("a value without a name")
            << Json("{'key': 'k', 'entry': 'e', 'values': [{'text': 't'}]}");
        QTest::newRow("a value without content")
            << Json("{'key': 'k', 'entry': 'e', 'values': [{'name': 'n'}]}");
        QTest::newRow("a number") << Json("{'key': 'k', 'entry': 'e', 'values': [{'name': 'n', 'text': 5}]}");
    }
    void unreadable() {
        QFETCH(QJsonObject, json);
        QVERIFY(!EntryRequest::FromJson(json));
    }

 private:
    InstanceReply Run(const EntryRequest& request) {
        // As it comes from another program.
        return RunEntryRequest(*EntryRequest::FromJson(request.ToJson()), *m_home->settings);
    }
    [[nodiscard]] QStringList Names() const {
        QStringList names;
        (void)m_home->settings->EnumKeys(kKey, names);
        return names;
    }
    [[nodiscard]] QString Stored(const QString& entry) const {
        const auto content = m_home->settings->ReadEntryContent(kKey, entry);
        const QString* text = content ? content->FindText(u"Name"_s) : nullptr;
        return text ? *text : QString();
    }
    std::unique_ptr<TestHome> m_home;
};

TEST_CLASS(TestEntryCommand);
#include "TestEntryCommand.moc"
