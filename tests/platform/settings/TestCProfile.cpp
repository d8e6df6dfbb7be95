#include "platform/settings/CProfile.h"

#include "support/TestProgram.h"

#include <QTemporaryDir>
#include <QTest>

class TestCProfile : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init();
    void getInt_data();
    void getInt();
    void binaryAndText();
    void readingMakesNoKeys();
    void section();
    void areasStayApart();

 private:
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<CSettingsTree> m_tree;
};

void TestCProfile::init() {
    m_tree.reset();
    m_folder = std::make_unique<QTemporaryDir>();
    m_tree = std::make_unique<CSettingsTree>();
    QVERIFY(m_tree->Open(m_folder->filePath(u"velmarch.settings"_qs)));
}

void TestCProfile::getInt_data() {
    QTest::addColumn<std::optional<SettingsValue>>("stored");
    QTest::addColumn<int>("expected");
    QTest::newRow("a missing value is the fallback") << std::optional<SettingsValue>() << -5;
    QTest::newRow("a stored zero is no fallback") << std::optional<SettingsValue>(0) << 0;
    QTest::newRow("a negative integer") << std::optional<SettingsValue>(-1) << -1;
    QTest::newRow("a text of digits is no integer") << std::optional<SettingsValue>(u"7"_qs) << -5;
    QTest::newRow("four bytes are no integer")
        << std::optional<SettingsValue>(QByteArray("\7\0\0\0", 4)) << -5;
}

void TestCProfile::getInt() {
    QFETCH(std::optional<SettingsValue>, stored);
    QFETCH(int, expected);
    CProfile profile(*m_tree, u"Velmarch"_qs);
    QVERIFY(profile.WriteInt(u"CoreRuntime"_qs, u"another"_qs, 1));
    if (stored) {
        const CSettingsKey root = m_tree->OpenKey(m_tree->Root(), u"Velmarch"_qs);
        QVERIFY(m_tree->WriteValue(m_tree->OpenKey(root, u"CoreRuntime"_qs), u"entry"_qs, *stored));
    }
    QCOMPARE(profile.GetInt(u"CoreRuntime"_qs, u"entry"_qs, -5), expected);
}

void TestCProfile::binaryAndText() {
    CProfile profile(*m_tree, u"Velmarch"_qs);
    QVERIFY(!profile.GetBinary(u"ActiveTimers"_qs, u"Content"_qs));
    QVERIFY(profile.WriteBinary(u"ActiveTimers"_qs, u"Content"_qs, QByteArray()));
    QCOMPARE(profile.GetBinary(u"ActiveTimers"_qs, u"Content"_qs), std::optional(QByteArray()));
    QVERIFY(!profile.GetText(u"ActiveTimers"_qs, u"Content"_qs));
    const QByteArray large(100'000, '\0');  // no limit of 4096 here
    QVERIFY(profile.WriteBinary(u"ActiveTimers"_qs, u"Content"_qs, large));
    QCOMPARE(profile.GetBinary(u"ActiveTimers"_qs, u"Content"_qs), std::optional(large));
    QVERIFY(profile.WriteText(u"ActiveTimers"_qs, u"Content"_qs, QString()));
    QCOMPARE(profile.GetText(u"ActiveTimers"_qs, u"Content"_qs), std::optional(QString()));
    QVERIFY(!profile.GetBinary(u"ActiveTimers"_qs, u"Content"_qs));
}

void TestCProfile::readingMakesNoKeys() {
    const CProfile profile(*m_tree, u"Velmarch"_qs);
    QCOMPARE(profile.GetInt(u"s"_qs, u"e"_qs, 1), 1);
    QVERIFY(!profile.GetBinary(u"s"_qs, u"e"_qs));
    QVERIFY(!profile.GetText(u"s"_qs, u"e"_qs));
    QVERIFY(profile.Section(u"s"_qs).empty());
    QCOMPARE(m_tree->EnumKeys(m_tree->Root()), std::optional(QStringList()));
}

void TestCProfile::section() {
    CProfile profile(*m_tree, u"Velmarch"_qs);
    QVERIFY(profile.Change([&] {
        return profile.WriteInt(u"s"_qs, u"b"_qs, 2) && profile.WriteBinary(u"s"_qs, u"a"_qs, "x") &&
               profile.WriteInt(u"other"_qs, u"c"_qs, 3);
    }));
    const std::vector<std::pair<QString, SettingsValue>> expected = {{u"a"_qs, QByteArray("x")},
                                                                     {u"b"_qs, 2}};
    QCOMPARE(profile.Section(u"s"_qs), expected);
    QVERIFY(!profile.Change([&] { return profile.WriteInt(u"s"_qs, u"b"_qs, 9) && false; }));
    QCOMPARE(profile.Section(u"s"_qs), expected);
}

void TestCProfile::areasStayApart() {
    CProfile profile(*m_tree, u"Velmarch"_qs);
    CProfile other(*m_tree, u"Software\\Velmarch"_qs);
    QVERIFY(profile.WriteInt(u"s"_qs, u"e"_qs, 1));
    QVERIFY(other.WriteInt(u"s"_qs, u"e"_qs, 2));
    QCOMPARE(profile.GetInt(u"s"_qs, u"e"_qs, 0), 1);
    QCOMPARE(other.GetInt(u"s"_qs, u"e"_qs, 0), 2);
}

TEST_CLASS(TestCProfile);
#include "TestCProfile.moc"
