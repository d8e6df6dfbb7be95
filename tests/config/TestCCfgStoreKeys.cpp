#include "SettingsHome.h"
#include "support/RandomTexts.h"
#include "support/TestProgram.h"

#include <QTemporaryDir>

/// Values and keys of the base key, as other parts of the program use them.
class TestCCfgStoreKeys : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init();
    void cleanup();
    void WriteBinary_data();
    void WriteBinary();
    void WriteText_data();
    void WriteText();
    void FailedReads_data();
    void FailedReads();
    void ReadInt_data();
    void ReadInt();
    void WriteInt();
    void SubForms();
    void SubReadMakesTheKey();
    void NamesAreData_data();
    void NamesAreData();
    void ManyNamesAfterARestart();
    void EnumKeys();
    void DeleteValueAndKey();
    void Entries();
    void RenameEntry();
    void RenameOfAMissingValueKeepsTheKey();
    void RenameOverAnother();
    void FailedWriteIsReported();

 private:
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<SettingsHome> m_home;
    CCfgStore* m_settings = nullptr;
};

namespace {
const QString kName = QStringLiteral("Value");
}

void TestCCfgStoreKeys::init() {
    m_folder = std::make_unique<QTemporaryDir>();
    m_home = std::make_unique<SettingsHome>(m_folder->path());
    QVERIFY(m_home->isOpen);
    m_settings = &m_home->Start();
}

void TestCCfgStoreKeys::cleanup() {
    m_home.reset();
    m_folder.reset();
}

void TestCCfgStoreKeys::WriteBinary_data() {
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("report");
    QTest::addColumn<int>("told");
    QTest::newRow("one byte") << 1 << true << 0;
    QTest::newRow("4096 bytes") << 4096 << true << 0;
    QTest::newRow("4097 bytes") << 4097 << true << static_cast<int>(Text::ValueRefusedLarge);
    QTest::newRow("4097 bytes, without report") << 4097 << false << static_cast<int>(Text::ValueRefusedLarge);
    QTest::newRow("nothing") << 0 << true << static_cast<int>(Text::ValueRefusedEmpty);
    QTest::newRow("nothing, without report") << 0 << false << static_cast<int>(Text::ValueRefusedEmpty);
}

void TestCCfgStoreKeys::WriteBinary() {
    QFETCH(int, size);
    QFETCH(bool, report);
    QFETCH(int, told);
    const QByteArray data(size, '\x7f');
    if (told != 0) m_home->prompt.ExpectTold(static_cast<Text>(told));
    QCOMPARE(m_settings->WriteBinary(kName, data, report), told == 0);
    m_home->prompt.Finish();
    QByteArray read;
    QCOMPARE(m_settings->ReadBinary(kName, read, false), told == 0);
    QCOMPARE(read, told == 0 ? data : QByteArray());
}

void TestCCfgStoreKeys::WriteText_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("told");
    QTest::newRow("quotes, umlauts, emoji") << QStringLiteral("O'Brien \"ä\" 100% \U0001F600") << 0;
    QTest::newRow("4096 characters") << QString(4096, u'ß') << 0;
    QTest::newRow("4097 characters") << QString(4097, u'x') << static_cast<int>(Text::ValueRefusedLarge);
    QTest::newRow("an empty text") << QString() << static_cast<int>(Text::ValueRefusedEmpty);
}

void TestCCfgStoreKeys::WriteText() {
    QFETCH(QString, text);
    QFETCH(int, told);
    if (told != 0) m_home->prompt.ExpectTold(static_cast<Text>(told));
    QCOMPARE(m_settings->WriteText(kName, text, true), told == 0);
    m_home->prompt.Finish();
    QString read = QStringLiteral("before");
    QCOMPARE(m_settings->ReadText(kName, read, false), told == 0);
    QCOMPARE(read, told == 0 ? text : QString());
}

void TestCCfgStoreKeys::FailedReads_data() {
    QTest::addColumn<int>("stored");  // 0 nothing, 1 an empty blob, 2 a text
    QTest::addColumn<bool>("report");
    QTest::addColumn<int>("told");
    QTest::newRow("missing, reported") << 0 << true << static_cast<int>(Text::ValueSizeUnknown);
    QTest::newRow("missing, silent") << 0 << false << 0;
    QTest::newRow("empty, reported") << 1 << true << static_cast<int>(Text::ValueEmpty);
    QTest::newRow("empty, silent") << 1 << false << 0;
    QTest::newRow("of another kind, reported") << 2 << true << static_cast<int>(Text::ValueReadFailed);
    QTest::newRow("of another kind, silent") << 2 << false << 0;
}

void TestCCfgStoreKeys::FailedReads() {
    QFETCH(int, stored);
    QFETCH(bool, report);
    QFETCH(int, told);
    if (stored == 1) QVERIFY(m_home->tree.WriteValue(m_home->BaseKey(), kName, QByteArray("")));
    if (stored == 2) QVERIFY(m_home->tree.WriteValue(m_home->BaseKey(), kName, QStringLiteral("text")));
    if (told != 0) m_home->prompt.ExpectTold(static_cast<Text>(told));
    QByteArray read("before");
    QVERIFY(!m_settings->ReadBinary(kName, read, report));
    QCOMPARE(read, QByteArray());
    m_home->prompt.Finish();
}

void TestCCfgStoreKeys::ReadInt_data() {
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<int>("number");
    QTest::newRow("4 bytes") << QByteArray::fromHex("d2040000") << 1234;
    QTest::newRow("4 bytes of a negative number") << QByteArray::fromHex("feffffff") << -2;
    QTest::newRow("2 bytes count as followed by zeros") << QByteArray::fromHex("d204") << 1234;
    QTest::newRow("of 6 bytes the first 4") << QByteArray::fromHex("d2040000ffff") << 1234;
}

void TestCCfgStoreKeys::ReadInt() {
    QFETCH(QByteArray, stored);
    QFETCH(int, number);
    QVERIFY(m_settings->WriteBinary(kName, stored, true));
    std::int32_t read = 77;
    QVERIFY(m_settings->ReadInt(kName, read, true));
    QCOMPARE(read, number);
}

void TestCCfgStoreKeys::WriteInt() {
    QVERIFY(m_settings->WriteInt(kName, -305419896));
    const auto value = m_home->tree.ReadValue(m_home->BaseKey(), kName);
    QVERIFY(value);
    QCOMPARE(*value, SettingsValue(QByteArray::fromHex("88a9cbed")));
    std::int32_t read = 0;
    QVERIFY(m_settings->ReadInt(kName, read, true));
    QCOMPARE(read, -305419896);
    QVERIFY(!m_settings->ReadInt(QStringLiteral("none"), read, false));
    QCOMPARE(read, 0);
}

void TestCCfgStoreKeys::SubForms() {
    const QString prefix = QStringLiteral("Reports");
    const QString entry = QStringLiteral("Weekly");
    QVERIFY(m_settings->WriteSubText(prefix, entry, QStringLiteral("title"), QStringLiteral("Hours"), true));
    QVERIFY(m_settings->WriteSubBinary(prefix, entry, QStringLiteral("blob"), QByteArray("abc"), true));
    QVERIFY(m_settings->WriteSubInt(prefix, entry, QStringLiteral("kind"), 3));
    QString title;
    QByteArray blob;
    std::int32_t kind = 0;
    QVERIFY(m_settings->ReadSubText(prefix, entry, QStringLiteral("title"), title, true));
    QVERIFY(m_settings->ReadSubBinary(prefix, entry, QStringLiteral("blob"), blob, true));
    QVERIFY(m_settings->ReadSubInt(prefix, entry, QStringLiteral("kind"), kind, true));
    QCOMPARE(title, QStringLiteral("Hours"));
    QCOMPARE(blob, QByteArray("abc"));
    QCOMPARE(kind, 3);
    // The base key is the open one again.
    QVERIFY(!m_settings->ReadText(QStringLiteral("title"), title, false));
    QVERIFY(m_settings->ReadBinary(QStringLiteral("ListFont"), blob, true));
}

void TestCCfgStoreKeys::SubReadMakesTheKey() {
    QByteArray read;
    QVERIFY(!m_settings->ReadEntry(read, QStringLiteral("Reports"), QStringLiteral("Never saved")));
    QStringList names;
    QVERIFY(m_settings->EnumKeys(QStringLiteral("Reports"), names));
    QCOMPARE(names, QStringList{QStringLiteral("Never saved")});
}

void TestCCfgStoreKeys::NamesAreData_data() {
    QTest::addColumn<QString>("entry");
    QTest::newRow("a backslash") << "a\\b";
    QTest::newRow("a slash") << "a/b";
    QTest::newRow("quotes and per cent") << "it's \"50%\"";
    QTest::newRow("dots") << "..";
    QTest::newRow("emoji") << QStringLiteral("\U0001F4C5 plan");
    QTest::newRow("256 characters") << QString(256, u'n');
}

void TestCCfgStoreKeys::NamesAreData() {
    QFETCH(QString, entry);
    const QString prefix = QStringLiteral("Queries");
    QVERIFY(m_settings->WriteEntry(prefix, entry, QByteArray("content")));
    QVERIFY(m_settings->WriteEntry(prefix, QStringLiteral("a"), QByteArray("other")));
    QStringList names;
    QVERIFY(m_settings->EnumKeys(prefix, names));
    QCOMPARE(names, (QStringList{entry, QStringLiteral("a")}));
    QByteArray read;
    QVERIFY(m_settings->ReadEntry(read, prefix, entry));
    QCOMPARE(read, QByteArray("content"));
    QVERIFY(m_settings->DeleteEntry(prefix, entry));
    QVERIFY(m_settings->EnumKeys(prefix, names));
    QCOMPARE(names, QStringList{QStringLiteral("a")});
}

/// 5,000 names of entries in each of two places, each with a value of its own.
void TestCCfgStoreKeys::ManyNamesAfterARestart() {
    const QStringList prefixes{QStringLiteral("Defaults"), QStringLiteral("Reports")};
    const QStringList names = RandomTexts(10000, 11);
    QVERIFY(m_home->profile->Change([&] {
        for (qsizetype i = 0; i < names.size(); ++i)
            if (!m_settings->WriteEntry(prefixes[i % 2], names[i], names[i].toUtf8())) return false;
        return true;
    }));
    m_home = std::make_unique<SettingsHome>(m_folder->path());
    m_settings = &m_home->Start();
    for (qsizetype place = 0; place < 2; ++place) {
        QStringList stored, expected;
        QVERIFY(m_settings->EnumKeys(prefixes[place], stored));
        for (qsizetype i = place; i < names.size(); i += 2) expected.append(names[i]);
        stored.sort();
        expected.sort();
        QCOMPARE(stored, expected);
    }
    for (qsizetype i = 0; i < names.size(); i += 97) {
        QByteArray value;
        QVERIFY(m_settings->ReadEntry(value, prefixes[i % 2], names[i]));
        QCOMPARE(value, names[i].toUtf8());
    }
}

void TestCCfgStoreKeys::EnumKeys() {
    QStringList names{QStringLiteral("before")};
    QVERIFY(!m_settings->EnumKeys(QStringLiteral("No such key"), names));
    QCOMPARE(names, QStringList());
}

void TestCCfgStoreKeys::DeleteValueAndKey() {
    QVERIFY(m_settings->WriteText(kName, QStringLiteral("x"), true));
    QVERIFY(m_settings->DeleteValue(kName));
    QVERIFY(!m_settings->DeleteValue(kName));
    QVERIFY(m_settings->WriteEntry(QStringLiteral("Reports"), QStringLiteral("One"), QByteArray("1")));
    QVERIFY(m_settings->DeleteKey(QStringLiteral("Reports")));
    QVERIFY(!m_settings->DeleteKey(QStringLiteral("Reports")));
}

void TestCCfgStoreKeys::Entries() {
    const QString prefix = QStringLiteral("Defaults");
    QVERIFY(m_settings->WriteEntry(prefix, QStringLiteral("Customer A"), QByteArray("record")));
    const auto key =
        m_home->tree.OpenKey(m_home->tree.OpenKey(m_home->BaseKey(), prefix), QStringLiteral("Customer A"));
    const auto value = m_home->tree.ReadValue(key, QStringLiteral("Entry"));
    QVERIFY(value);
    QCOMPARE(*value, SettingsValue(QByteArray("record")));
    QVERIFY(!m_settings->DeleteEntry(prefix, QStringLiteral("Customer B")));
    m_home->prompt.ExpectTold(Text::ValueRefusedEmpty);
    QVERIFY(!m_settings->WriteEntry(prefix, QStringLiteral("Customer B"), QByteArray()));
}

void TestCCfgStoreKeys::RenameEntry() {
    const QString prefix = QStringLiteral("Defaults");
    QVERIFY(m_settings->WriteEntry(prefix, QStringLiteral("Old"), QByteArray("record")));
    QVERIFY(m_settings->RenameEntry(prefix, QStringLiteral("Old"), QStringLiteral("New")));
    QStringList names;
    QVERIFY(m_settings->EnumKeys(prefix, names));
    QCOMPARE(names, QStringList{QStringLiteral("New")});
    QByteArray read;
    QVERIFY(m_settings->ReadEntry(read, prefix, QStringLiteral("New")));
    QCOMPARE(read, QByteArray("record"));
}

void TestCCfgStoreKeys::RenameOfAMissingValueKeepsTheKey() {
    const QString prefix = QStringLiteral("Defaults");
    QVERIFY(m_settings->WriteSubText(prefix, QStringLiteral("Old"), QStringLiteral("note"),
                                     QStringLiteral("kept"), true));
    QVERIFY(!m_settings->RenameEntry(prefix, QStringLiteral("Old"), QStringLiteral("New")));
    QStringList names;
    QVERIFY(m_settings->EnumKeys(prefix, names));
    QCOMPARE(names, QStringList{QStringLiteral("Old")});
    QString note;
    QVERIFY(m_settings->ReadSubText(prefix, QStringLiteral("Old"), QStringLiteral("note"), note, true));
    QCOMPARE(note, QStringLiteral("kept"));
}

void TestCCfgStoreKeys::RenameOverAnother() {
    const QString prefix = QStringLiteral("Defaults");
    QVERIFY(m_settings->WriteEntry(prefix, QStringLiteral("A"), QByteArray("a")));
    QVERIFY(m_settings->WriteEntry(prefix, QStringLiteral("B"), QByteArray("b")));
    QVERIFY(m_settings->RenameEntry(prefix, QStringLiteral("A"), QStringLiteral("B")));
    QByteArray read;
    QVERIFY(m_settings->ReadEntry(read, prefix, QStringLiteral("B")));
    QCOMPARE(read, QByteArray("a"));
}

void TestCCfgStoreKeys::FailedWriteIsReported() {
    QVERIFY(m_home->tree.File().Execute("PRAGMA query_only=ON"));
    m_home->prompt.ExpectTold(Text::ValueWriteFailed);
    QVERIFY(!m_settings->WriteText(kName, QStringLiteral("x"), true));
    m_home->prompt.Finish();
    QVERIFY(!m_settings->WriteText(kName, QStringLiteral("x"), false));
    QVERIFY(m_home->tree.File().Execute("PRAGMA query_only=OFF"));
}

TEST_CLASS(TestCCfgStoreKeys);
#include "TestCCfgStoreKeys.moc"
