#include "ColumnBytes.h"
#include "SettingsHome.h"
#include "support/TestProgram.h"
#include "torture/CFaultInjector.h"

#include <sqlite3.h>
#include <QFile>
#include <QMap>
#include <QTemporaryDir>

using Created = CSettingsTree::Created;

/// What is stored of the settings, and how it is loaded.
class TestCCfgStore : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void FirstRunWritesEverything();
    void SecondStartLoadsUnchanged();
    void StoredForm_data();
    void StoredForm();
    void Load_data();
    void Load();
    void EmptyKeyGivesDefaults();
    void EmptyKeyIsFilledAtTheNextSave();
    void OnlyChangesAreWritten();
    void TwoProgramsLoseNothing_data();
    void TwoProgramsLoseNothing();
    void ConsoleThatOnlyReadsWritesNothing();
    void SaveValueWritesAtOnce();
    void SaveValueRefusesUnknownIndex();
    void Font_data();
    void Font();
    void FontOfAnotherProgramStays();
    void UnreachableBaseKey();
    void UnreadableSettingsStay();
    void RegionalFlags_data();
    void RegionalFlags();
    void PrecisionsStayInRange();
    void ResetAllGivesDefaults();
    void FirstRunWritesBothColumnSets();
    void ColumnsComeBack();
    void UnreadableColumns_data();
    void UnreadableColumns();
    void ListColumnsAreRepaired();
    void ColumnsOfAnotherProgramStay();
    void ColumnsThatCanNotBeMade_data();
    void ColumnsThatCanNotBeMade();
    void ColumnsTooLargeForTheKey();
    void SavingEndsAtTheFirstFailure_data();
    void SavingEndsAtTheFirstFailure();

 private:
    [[nodiscard]] static QString Entry(int index) {
        return QStringLiteral("VirtualCfgObj%1").arg(index, 4, 10, QLatin1Char('0'));
    }
    [[nodiscard]] static QByteArray FontBytes(SettingsHome& home) { return Bytes(home, "ListFont"); }
    [[nodiscard]] static QByteArray Bytes(SettingsHome& home, const char* name) {
        const auto value = home.tree.ReadValue(home.BaseKey(), QString::fromLatin1(name));
        return value && std::holds_alternative<QByteArray>(*value) ? std::get<QByteArray>(*value)
                                                                   : QByteArray();
    }
    /// All values below the base key and all settings, by name.
    [[nodiscard]] static QMap<QString, SettingsValue> Everything(SettingsHome& home) {
        QMap<QString, SettingsValue> all;
        const auto base = home.tree.ReadValues(home.BaseKey());
        if (!base) return all;
        for (const auto& [name, value] : *base) all.insert(name, value);
        for (const auto& [name, value] : home.profile->Section(SettingsHome::Section()))
            all.insert(name, value);
        return all;
    }
    /// The file refuses to take a value of this name from now on; of no name: it takes all again.
    static void RefuseWrites(const QString& folder, const QString& name) {
        sqlite3* file = nullptr;
        const QByteArray path = QFile::encodeName(folder + QStringLiteral("/velmarch.settings"));
        QCOMPARE(sqlite3_open(path.constData(), &file), SQLITE_OK);
        const QString trigger = QStringLiteral(
            "CREATE TRIGGER refuse BEFORE INSERT ON entries WHEN NEW.name = '%1' "
            "BEGIN SELECT RAISE(ABORT, 'refused'); END");
        const QByteArray change =
            name.isEmpty() ? QByteArray("DROP TRIGGER refuse") : trigger.arg(name).toUtf8();
        QCOMPARE(sqlite3_exec(file, change.constData(), nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(file);
    }
};

void TestCCfgStore::FirstRunWritesEverything() {
    const QTemporaryDir folder;
    SettingsHome home(folder.path());
    QVERIFY(home.isOpen);
    home.Start();
    const auto stored = home.profile->Section(QStringLiteral("CoreRuntime"));
    QCOMPARE(stored.size(), std::size_t(75));
    for (int i = 0; i < 75; ++i) QCOMPARE(stored[static_cast<std::size_t>(i)].first, Entry(i));
    QCOMPARE(FontBytes(home).size(), 92);
}

void TestCCfgStore::SecondStartLoadsUnchanged() {
    const QTemporaryDir folder;
    SettingsHome home(folder.path());
    CCfgStore& first = home.Start();
    first.confirmDelete = false;
    first.roundStartType = 32;
    first.lineColour2 = 0x123456;
    first.odometerLastEnd = 98765;
    CCfgStore& second = home.Start();
    QCOMPARE(second.confirmDelete, false);
    QCOMPARE(second.roundStartType, 32);
    QCOMPARE(second.lineColour2, 0x123456U);
    QCOMPARE(second.odometerLastEnd, 98765);
    QCOMPARE(second.precisionDuration, 4);
    QCOMPARE(second.timerOnExit, 1);
    QCOMPARE(second.listLayout, 4);
}

void TestCCfgStore::StoredForm_data() {
    QTest::addColumn<QString>("entry");
    QTest::addColumn<bool>("isNumber");
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("a flag is an integer") << "VirtualCfgObj0000" << true << 1 << QByteArray();
    QTest::newRow("a number is an integer") << "VirtualCfgObj0033" << true << -1 << QByteArray();
    QTest::newRow("a colour is 4 bytes: red, green, blue, 0")
        << "VirtualCfgObj0056" << false << 0 << QByteArray::fromHex("eae9e100");
    QTest::newRow("the last one") << "VirtualCfgObj0074" << true << 1 << QByteArray();
}

void TestCCfgStore::StoredForm() {
    QFETCH(QString, entry);
    QFETCH(bool, isNumber);
    QFETCH(int, number);
    QFETCH(QByteArray, bytes);
    const QTemporaryDir folder;
    SettingsHome home(folder.path());
    home.Start();
    const auto stored = home.profile->Section(QStringLiteral("CoreRuntime"));
    for (const auto& [name, value] : stored) {
        if (name != entry) continue;
        QCOMPARE(value, isNumber ? SettingsValue(number) : SettingsValue(bytes));
        return;
    }
    QFAIL("the entry isn't stored");
}

void TestCCfgStore::Load_data() {
    QTest::addColumn<QString>("setting");
    QTest::addColumn<QByteArray>("bytes");  // stored as bytes, or
    QTest::addColumn<int>("number");        // as this number when there are none
    QTest::addColumn<int>("loaded");
    QTest::newRow("a flag stored as 0") << "confirmCopy" << QByteArray() << 0 << 0;
    QTest::newRow("a flag stored as 2 loads as its default, here 1")
        << "confirmCopy" << QByteArray() << 2 << 1;
    QTest::newRow("a flag stored as 2 loads as its default, here 0")
        << "confirmAddListItem" << QByteArray() << 2 << 0;
    QTest::newRow("a flag stored as -1") << "confirmCopy" << QByteArray() << -1 << 1;
    QTest::newRow("a flag stored as bytes") << "confirmCopy" << QByteArray("\0\0\0\0", 4) << 0 << 1;
    QTest::newRow("a rounding type of 1 stays 1") << "roundStartType" << QByteArray() << 1 << 1;
    QTest::newRow("a list layout of 0 stays 0 until the view is laid out")
        << "listLayout" << QByteArray() << 0 << 0;
    QTest::newRow("a number stored as bytes") << "listLayout" << QByteArray("\1\0\0\0", 4) << 0 << 4;
    QTest::newRow("a colour of 4 bytes") << "lineColour4" << QByteArray::fromHex("01020300") << 0 << 0x030201;
    QTest::newRow("a colour of 3 bytes") << "lineColour4" << QByteArray::fromHex("010203") << 0 << 0x8C8C8C;
    QTest::newRow("a colour of 5 bytes")
        << "lineColour4" << QByteArray::fromHex("0102030405") << 0 << 0x8C8C8C;
    QTest::newRow("a colour stored as a number") << "lineColour4" << QByteArray() << 7 << 0x8C8C8C;
}

void TestCCfgStore::Load() {
    QFETCH(QString, setting);
    QFETCH(QByteArray, bytes);
    QFETCH(int, number);
    QFETCH(int, loaded);
    const QTemporaryDir folder;
    SettingsHome home(folder.path());
    home.Start();
    home.settings.reset();
    const SettingRow* row = FindSetting(setting);
    QVERIFY(row);
    if (bytes.isEmpty())
        QVERIFY(home.profile->WriteInt(SettingsHome::Section(), Entry(row->index), number));
    else
        QVERIFY(home.profile->WriteBinary(SettingsHome::Section(), Entry(row->index), bytes));
    QCOMPARE(SettingValue(home.Start(), *row), static_cast<std::int64_t>(loaded));
}

void TestCCfgStore::EmptyKeyGivesDefaults() {
    const QTemporaryDir folder;
    SettingsHome home(folder.path());
    QVERIFY(home.tree.CreateKey(home.tree.Root(), LoadText(Text::BaseKeyPath)).IsOpen());
    home.prompt.ExpectTold(Text::TreeColumnsReadFailed);  // of the list's columns nothing is told
    const CCfgStore& settings = home.Start();
    home.prompt.Finish();
    QCOMPARE(settings.ListColumns().Order(ColumnHalf::Time), (std::vector{0, 6, 1, 13, 14, 4, 5, 9, 10}));
    QCOMPARE(settings.TreeColumns().Order(ColumnHalf::Time), (std::vector{4, 5, 9, 10}));
    for (const SettingRow& row : SettingsTable()) QCOMPARE(SettingValue(settings, row), row.preset);
    QCOMPARE(settings.ListFont().face, LoadText(Text::DefaultFontFace));
    QCOMPARE(settings.ListFont().tenthsOfPoint, 85);
    QCOMPARE(home.profile->Section(SettingsHome::Section()).size(), std::size_t(0));
}

void TestCCfgStore::EmptyKeyIsFilledAtTheNextSave() {
    const QTemporaryDir folder;
    SettingsHome home(folder.path());
    QVERIFY(home.tree.CreateKey(home.tree.Root(), LoadText(Text::BaseKeyPath)).IsOpen());
    home.prompt.ExpectTold(Text::TreeColumnsReadFailed);
    QVERIFY(home.Start().SaveAll());
    QCOMPARE(home.profile->Section(SettingsHome::Section()).size(), std::size_t(75));
    QCOMPARE(FontBytes(home).size(), 92);
    QCOMPARE(Bytes(home, "ListColumns"), ColumnBytes::Default("list"));
    QCOMPARE(Bytes(home, "TreeColumns"), ColumnBytes::Default("tree"));
    home.Start();  // and nothing is told any more
}

void TestCCfgStore::OnlyChangesAreWritten() {
    const QTemporaryDir folder;
    SettingsHome home(folder.path());
    CCfgStore& settings = home.Start();
    // Marks beside the stored values: writing all of them would take the marks away.
    QVERIFY(home.profile->WriteInt(SettingsHome::Section(), Entry(40), 4711));
    QVERIFY(home.tree.WriteValue(home.BaseKey(), QStringLiteral("ListFont"), QByteArray("mark")));
    settings.weekNumberType = 0;
    QVERIFY(settings.SaveAll());
    QCOMPARE(home.profile->GetInt(SettingsHome::Section(), Entry(72), -5), 0);
    QCOMPARE(home.profile->GetInt(SettingsHome::Section(), Entry(40), -5), 4711);
    QCOMPARE(FontBytes(home), QByteArray("mark"));
    settings.weekNumberType = 1;  // back again is a change as well
    home.settings.reset();
    QCOMPARE(home.profile->GetInt(SettingsHome::Section(), Entry(72), -5), 1);
    QCOMPARE(home.profile->GetInt(SettingsHome::Section(), Entry(40), -5), 4711);
}

void TestCCfgStore::TwoProgramsLoseNothing_data() {
    QTest::addColumn<bool>("isFirstRun");
    QTest::newRow("on stored settings") << false;
    QTest::newRow("on a key that holds nothing yet") << true;
}

void TestCCfgStore::TwoProgramsLoseNothing() {
    QFETCH(bool, isFirstRun);
    const QTemporaryDir folder;
    SettingsHome window(folder.path());
    SettingsHome console(folder.path());
    if (isFirstRun) QVERIFY(window.tree.CreateKey(window.tree.Root(), LoadText(Text::BaseKeyPath)).IsOpen());
    if (isFirstRun)
        for (SettingsHome* home : {&window, &console}) home->prompt.ExpectTold(Text::TreeColumnsReadFailed);
    window.Start().confirmCopy = false;
    console.Start().firstDayOfWeek = 1;
    console.settings->lineColour1 = 0x0000FF;
    console.settings.reset();
    window.settings.reset();
    SettingsHome later(folder.path());
    const CCfgStore& settings = later.Start();
    QCOMPARE(settings.confirmCopy, false);
    QCOMPARE(settings.firstDayOfWeek, 1);
    QCOMPARE(settings.lineColour1, 0x0000FFU);
}

void TestCCfgStore::ConsoleThatOnlyReadsWritesNothing() {
    const QTemporaryDir folder;
    SettingsHome home(folder.path());
    home.Start();
    CCfgStore& console = home.Start();
    console.KeepStoreUntouched();
    console.confirmCopy = false;
    QCOMPARE(home.Start().confirmCopy, true);
}

void TestCCfgStore::SaveValueWritesAtOnce() {
    const QTemporaryDir folder;
    SettingsHome home(folder.path());
    CCfgStore& settings = home.Start();
    settings.timerOnExit = 2;
    settings.confirmCopy = false;
    QVERIFY(settings.SaveValue(69));
    QCOMPARE(home.profile->GetInt(SettingsHome::Section(), Entry(69), -5), 2);
    QCOMPARE(home.profile->GetInt(SettingsHome::Section(), Entry(0), -5), 1);
}

void TestCCfgStore::SaveValueRefusesUnknownIndex() {
    const QTemporaryDir folder;
    SettingsHome home(folder.path());
    QVERIFY(!home.Start().SaveValue(-1));
    const std::size_t count = SettingsTable().size() + OwnSettingsTable().size();
    QVERIFY(!home.settings->SaveValue(static_cast<int>(count)));
}

void TestCCfgStore::Font_data() {
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<QString>("face");
    QTest::addColumn<int>("tenthsOfPoint");
    QTest::newRow("92 bytes") << FontRecord{140, 700, true, QStringLiteral("Serif")}.ToBytes() << "Serif"
                              << 140;
    QTest::newRow("91 bytes give the default font") << QByteArray(91, '\1') << "Sans Serif" << 85;
    QTest::newRow("93 bytes give the default font") << QByteArray(93, '\1') << "Sans Serif" << 85;
}

void TestCCfgStore::Font() {
    QFETCH(QByteArray, stored);
    QFETCH(QString, face);
    QFETCH(int, tenthsOfPoint);
    const QTemporaryDir folder;
    SettingsHome home(folder.path());
    home.Start();
    home.settings.reset();
    QVERIFY(home.tree.WriteValue(home.BaseKey(), QStringLiteral("ListFont"), stored));
    const CCfgStore& settings = home.Start();
    QCOMPARE(settings.ListFont().face, face);
    QCOMPARE(settings.ListFont().tenthsOfPoint, tenthsOfPoint);
}

void TestCCfgStore::FontOfAnotherProgramStays() {
    const QTemporaryDir folder;
    SettingsHome window(folder.path());
    SettingsHome other(folder.path());
    window.Start();
    const FontRecord chosen{200, 400, false, QStringLiteral("Mono")};
    other.Start().SetListFont(chosen);
    other.settings.reset();
    window.settings.reset();
    QCOMPARE(FontBytes(window), chosen.ToBytes());
}

void TestCCfgStore::UnreachableBaseKey() {
    const QTemporaryDir folder;
    SettingsHome home(folder.path());
    QVERIFY(home.tree.File().Execute("PRAGMA query_only=ON"));
    home.prompt.ExpectTold(Text::BaseKeyFailed);
    CCfgStore& settings = home.Start();
    QVERIFY(home.prompt.told.first().contains(QStringLiteral("Software\\Velmarch\\Settings")));
    QCOMPARE(settings.precisionRate, 3);
    QCOMPARE(settings.ListColumns().Order(ColumnHalf::Expense),
             (std::vector{17, 18, 27, 28, 19, 20, 21, 25}));
    QCOMPARE(settings.ListColumns().Breaks(ColumnHalf::Time), (std::vector<std::int32_t>{5, 7, 9}));
    QCOMPARE(settings.TreeColumns().Order(ColumnHalf::Expense), (std::vector{19, 20, 25, 21}));
    settings.precisionRate = 5;
    QCOMPARE(settings.precisionRate, 5);
    QVERIFY(!settings.SaveAll());
    // A value that could be stored would be lost all the same: the next start is a first one.
    QVERIFY(home.tree.File().Execute("PRAGMA query_only=OFF"));
    QVERIFY(!settings.SaveValue(65));
    QCOMPARE(home.Start().precisionRate, 3);
}

/// What a broken disk didn't give isn't taken for the default, and nothing is saved in its place.
void TestCCfgStore::UnreadableSettingsStay() {
    CFaultInjector disk;
    const QTemporaryDir folder;
    SettingsHome home(folder.path());
    home.Start().precisionRate = 5;
    QVERIFY(home.settings->SaveAll());
    disk.Arm(Fault::Unreadable, Lasting::FromThenOn, 1);
    home.prompt.ExpectTold(Text::TreeColumnsReadFailed);
    home.prompt.ExpectTold(Text::BaseKeyFailed);
    home.settings->LoadAll();
    QVERIFY(!home.settings->AreKept());
    QCOMPARE(home.settings->precisionRate, 3);
    disk.Disarm();
    QVERIFY(!home.settings->SaveAll());
    QVERIFY(!home.settings->SaveValue(65));
    QCOMPARE(home.Start().precisionRate, 5);
    QVERIFY(home.settings->AreKept());
}

void TestCCfgStore::RegionalFlags_data() {
    QTest::addColumn<bool>("is24Hour");
    QTest::addColumn<bool>("isMetric");
    QTest::newRow("12 hours, miles") << false << false;
    QTest::newRow("24 hours, kilometres") << true << true;
    QTest::newRow("24 hours, miles") << true << false;
}

void TestCCfgStore::RegionalFlags() {
    QFETCH(bool, is24Hour);
    QFETCH(bool, isMetric);
    const QTemporaryDir folder;
    CRegionalInfo region;
    region.is24Hour = is24Hour;
    region.isMetric = isMetric;
    {
        SettingsHome before(folder.path());
        before.Start().clock24 = !is24Hour;  // not stored
    }
    SettingsHome home(folder.path(), region);
    const CCfgStore& settings = home.Start();
    QCOMPARE(settings.clock24, is24Hour);
    QCOMPARE(settings.metricUnits, isMetric);
    for (const SettingRow& row : SettingsTable()) QCOMPARE(SettingValue(settings, row), row.preset);
}

void TestCCfgStore::PrecisionsStayInRange() {
    const QTemporaryDir folder;
    SettingsHome home(folder.path());
    CCfgStore& settings = home.Start();
    settings.precisionDuration = 1000000;
    settings.precisionDistance = -3;
    settings.precisionRate = 6;
    settings.precisionAmount = 0;
    QCOMPARE(settings.DurationPrecision(), 6);
    QCOMPARE(settings.DistancePrecision(), 0);
    QCOMPARE(settings.RatePrecision(), 6);
    QCOMPARE(settings.AmountPrecision(), 0);
}

void TestCCfgStore::ResetAllGivesDefaults() {
    const QTemporaryDir folder;
    SettingsHome home(folder.path());
    CCfgStore& settings = home.Start();
    settings.confirmCopy = false;
    settings.gridLineColour = 1;
    settings.SetListFont({300, 900, true, QStringLiteral("Big")});
    settings.ResetAll();
    QCOMPARE(settings.confirmCopy, true);
    QCOMPARE(settings.gridLineColour, 0xE1E9EAU);
    QCOMPARE(settings.ListFont(), (FontRecord{85, 400, false, QStringLiteral("Sans Serif")}));
}

void TestCCfgStore::FirstRunWritesBothColumnSets() {
    const QTemporaryDir folder;
    SettingsHome home(folder.path());
    home.Start();
    QCOMPARE(Bytes(home, "ListColumns"), ColumnBytes::Default("list"));
    QCOMPARE(Bytes(home, "TreeColumns"), ColumnBytes::Default("tree"));
}

void TestCCfgStore::ColumnsComeBack() {
    const QTemporaryDir folder;
    SettingsHome home(folder.path());
    CCfgStore& first = home.Start();
    first.ListColumns().MoveUp(ColumnHalf::Time, 2);
    first.ListColumns().SetWidth(4, 321);
    first.ListColumns().SetBreaks(ColumnHalf::Expense, {2});
    first.TreeColumns().MoveDown(ColumnHalf::Expense, 1);
    const CCfgStore& second = home.Start();
    QCOMPARE(second.ListColumns().Order(ColumnHalf::Time), (std::vector{6, 0, 1, 13, 14, 4, 5, 9, 10}));
    QCOMPARE(second.ListColumns().EntryAt(4).width, 321);
    QCOMPARE(second.ListColumns().Breaks(ColumnHalf::Expense), (std::vector<std::int32_t>{2}));
    QCOMPARE(second.TreeColumns().Order(ColumnHalf::Expense), (std::vector{20, 19, 25, 21}));
}

void TestCCfgStore::UnreadableColumns_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");  // stored instead; nothing at all where there are none
    QTest::addColumn<int>("told");
    const QByteArray cut = ColumnBytes::Default("list").chopped(3);
    QTest::newRow("the list's are missing: silence") << "ListColumns" << QByteArray() << 0;
    QTest::newRow("the list's are damaged: silence") << "ListColumns" << cut << 0;
    QTest::newRow("the tree's are missing")
        << "TreeColumns" << QByteArray() << static_cast<int>(Text::TreeColumnsReadFailed);
    QTest::newRow("the tree's are damaged")
        << "TreeColumns" << cut << static_cast<int>(Text::TreeColumnsBlobBad);
}

void TestCCfgStore::UnreadableColumns() {
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(int, told);
    const QTemporaryDir folder;
    SettingsHome home(folder.path());
    home.Start();
    home.settings.reset();
    const CSettingsKey key = home.BaseKey();
    QVERIFY(bytes.isEmpty() ? home.tree.DeleteValue(key, name) : home.tree.WriteValue(key, name, bytes));
    if (told != 0) home.prompt.ExpectTold(static_cast<Text>(told));
    CCfgStore& settings = home.Start();
    home.prompt.Finish();
    QCOMPARE(settings.ListColumns().Order(ColumnHalf::Time), (std::vector{0, 6, 1, 13, 14, 4, 5, 9, 10}));
    QCOMPARE(settings.TreeColumns().Order(ColumnHalf::Time), (std::vector{4, 5, 9, 10}));
    // What was bad is overwritten at the next save.
    QVERIFY(settings.SaveAll());
    QCOMPARE(Bytes(home, "ListColumns"), ColumnBytes::Default("list"));
    QCOMPARE(Bytes(home, "TreeColumns"), ColumnBytes::Default("tree"));
}

/// A kind that doesn't belong to its column and a width below 1 are put right in the list's columns alone.
void TestCCfgStore::ListColumnsAreRepaired() {
    const QTemporaryDir folder;
    SettingsHome home(folder.path());
    home.Start();
    home.settings.reset();
    QByteArray rows = ColumnBytes::Rows();
    ColumnBytes::PutRow(rows, 13, ColumnBytes::Row('B', 1, -1, 1, 9));
    const QByteArray blob = ColumnBytes::Blob(rows + ColumnBytes::NoBreaks());
    for (const char* name : {"ListColumns", "TreeColumns"})
        QVERIFY(home.tree.WriteValue(home.BaseKey(), QString::fromLatin1(name), blob));
    const CCfgStore& settings = home.Start();
    QVERIFY((settings.ListColumns().EntryAt(13) == ColumnEntry{QStringLiteral("B"), 1, 30, 1, 3}));
    QVERIFY((settings.TreeColumns().EntryAt(13) == ColumnEntry{QStringLiteral("B"), 1, -1, 1, 9}));
}

/// A program that didn't change the columns doesn't write them.
void TestCCfgStore::ColumnsOfAnotherProgramStay() {
    const QTemporaryDir folder;
    SettingsHome window(folder.path());
    SettingsHome other(folder.path());
    window.Start().TreeColumns().MoveUp(ColumnHalf::Time, 2);
    other.Start().ListColumns().SetWidth(0, 99);
    other.settings.reset();
    window.settings.reset();
    SettingsHome later(folder.path());
    const CCfgStore& settings = later.Start();
    QCOMPARE(settings.ListColumns().EntryAt(0).width, 99);
    QCOMPARE(settings.TreeColumns().Order(ColumnHalf::Time), (std::vector{5, 4, 9, 10}));
}

void TestCCfgStore::ColumnsThatCanNotBeMade_data() {
    QTest::addColumn<bool>("isTree");
    QTest::addColumn<int>("told");
    QTest::newRow("the list's") << false << static_cast<int>(Text::ListColumnsBlobFailed);
    QTest::newRow("the tree's") << true << static_cast<int>(Text::TreeColumnsBlobFailed);
}

/// The first failure ends the saving: the settings behind the columns stay unsaved.
void TestCCfgStore::ColumnsThatCanNotBeMade() {
    QFETCH(bool, isTree);
    QFETCH(int, told);
    const QTemporaryDir folder;
    SettingsHome home(folder.path());
    CCfgStore& settings = home.Start();
    CColSet& columns = isTree ? settings.TreeColumns() : settings.ListColumns();
    columns.SetBreaks(ColumnHalf::Time, std::vector<std::int32_t>(20000, 1));
    settings.timerOnExit = 2;
    home.prompt.ExpectTold(static_cast<Text>(told));
    QVERIFY(!settings.SaveAll());
    home.prompt.Finish();
    QCOMPARE(home.profile->GetInt(SettingsHome::Section(), Entry(69), -5), 1);
    columns.SetBreaks(ColumnHalf::Time, {});
    QVERIFY(settings.SaveAll());
    QCOMPARE(home.profile->GetInt(SettingsHome::Section(), Entry(69), -5), 2);
}

/// A set that can be made may still be too long for a value of the key.
void TestCCfgStore::ColumnsTooLargeForTheKey() {
    const QTemporaryDir folder;
    SettingsHome home(folder.path());
    CCfgStore& settings = home.Start();
    std::vector<std::int32_t> breaks;
    for (int i = 0; i < 2000; ++i) breaks.push_back(i * 77777);
    settings.ListColumns().SetBreaks(ColumnHalf::Time, breaks);
    home.prompt.ExpectTold(Text::ValueRefusedLarge);
    QVERIFY(!settings.SaveAll());
    home.prompt.Finish();
    QCOMPARE(Bytes(home, "ListColumns"), ColumnBytes::Default("list"));
    settings.ListColumns().SetBreaks(ColumnHalf::Time, {5, 7, 9});
}

void TestCCfgStore::SavingEndsAtTheFirstFailure_data() {
    QTest::addColumn<QString>("refused");
    QTest::addColumn<bool>("isTold");
    QTest::addColumn<QStringList>("saved");
    const QString list = QStringLiteral("ListColumns"), tree = QStringLiteral("TreeColumns"),
                  font = QStringLiteral("ListFont");
    QTest::newRow("the columns of the list come first") << list << true << QStringList();
    QTest::newRow("the levels of the tree second") << tree << true << QStringList{list};
    QTest::newRow("the font third") << font << true << QStringList{list, tree};
    for (const int index : {0, 28, 74})
        QTest::addRow("the settings last, all or none: %d", index)
            << Entry(index) << false << QStringList{list, tree, font};
}

/// What stands before the failure is saved, what stands behind it isn't.
void TestCCfgStore::SavingEndsAtTheFirstFailure() {
    QFETCH(QString, refused);
    QFETCH(bool, isTold);
    const QTemporaryDir folder;
    SettingsHome home(folder.path());
    CCfgStore& settings = home.Start();
    settings.ListColumns().SetWidth(0, 123);
    settings.TreeColumns().SetBreaks(ColumnHalf::Time, {1});
    settings.SetListFont({.face = QStringLiteral("Serif")});
    settings.confirmCopy = false;
    settings.roundEndType = 16;
    settings.addMinuteOnSuccessive = false;
    const QMap<QString, SettingsValue> before = Everything(home);
    RefuseWrites(folder.path(), refused);
    if (isTold) home.prompt.ExpectTold(Text::ValueWriteFailed);
    QVERIFY(!settings.SaveAll());
    home.prompt.Finish();
    QStringList changed;
    const QMap<QString, SettingsValue> after = Everything(home);
    for (auto value = after.cbegin(); value != after.cend(); ++value)
        if (before.value(value.key()) != value.value()) changed.append(value.key());
    QFETCH(QStringList, saved);
    saved.sort();
    QCOMPARE(changed, saved);
    RefuseWrites(folder.path(), {});
    QVERIFY(settings.SaveAll());
    QCOMPARE(home.profile->GetInt(SettingsHome::Section(), Entry(74), -5), 0);
}

TEST_CLASS(TestCCfgStore);
#include "TestCCfgStore.moc"
