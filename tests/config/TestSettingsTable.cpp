#include "config/SettingsTable.h"

#include "lang/LoadText.h"
#include "support/TestProgram.h"

#include <QTest>

class TestSettingsTable : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void Defaults_data();
    void Defaults();
    void BlockStartsWithTheDefaults();
    void EveryNameStandsOnce();
    void AllowedValuesOf_data();
    void AllowedValuesOf();
    void PutAndRead_data();
    void PutAndRead();
};

/// Index, type and default are part of the stored form; the type follows from the member.
void TestSettingsTable::Defaults_data() {
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("name");
    QTest::addColumn<SettingMember>("member");
    QTest::addColumn<int>("preset");
    int rows = 0;
    const auto row = [&rows](int index, const char* name, SettingMember member, int preset) {
        QTest::newRow(name) << index << QString::fromLatin1(name) << member << preset;
        ++rows;
    };
    row(0, "confirmCopy", &Settings::confirmCopy, 1);
    row(1, "confirmDelete", &Settings::confirmDelete, 1);
    row(2, "confirmMark", &Settings::confirmMark, 1);
    row(3, "confirmAddListItem", &Settings::confirmAddListItem, 0);
    row(4, "confirmDeleteListItem", &Settings::confirmDeleteListItem, 1);
    row(5, "reservedFlag5", &Settings::reservedFlag5, 0);
    row(6, "reservedFlag6", &Settings::reservedFlag6, 0);
    row(7, "reservedFlag7", &Settings::reservedFlag7, 1);
    row(8, "lastModeWasTime", &Settings::lastModeWasTime, 1);
    row(9, "odometerSuggestStart", &Settings::odometerSuggestStart, 1);
    row(10, "reservedFlag10", &Settings::reservedFlag10, 1);
    row(11, "reservedFlag11", &Settings::reservedFlag11, 0);
    row(12, "keepTimeList109", &Settings::keepTimeList109, 1);
    row(13, "keepTimeList110", &Settings::keepTimeList110, 1);
    row(14, "keepTimeList111", &Settings::keepTimeList111, 1);
    row(15, "keepTimeList112", &Settings::keepTimeList112, 1);
    row(16, "keepTimeList115", &Settings::keepTimeList115, 0);
    row(17, "keepTimeList113", &Settings::keepTimeList113, 1);
    row(18, "keepTimeList114", &Settings::keepTimeList114, 1);
    row(19, "keepExpenseList131", &Settings::keepExpenseList131, 1);
    row(20, "keepExpenseList132", &Settings::keepExpenseList132, 1);
    row(21, "keepExpenseList133", &Settings::keepExpenseList133, 1);
    row(22, "keepExpenseList134", &Settings::keepExpenseList134, 1);
    row(23, "keepExpenseList136", &Settings::keepExpenseList136, 0);
    row(24, "keepExpenseList135", &Settings::keepExpenseList135, 1);
    row(25, "keepDistance", &Settings::keepDistance, 1);
    row(26, "keepDistanceRate", &Settings::keepDistanceRate, 1);
    row(27, "roundStartType", &Settings::roundStartType, 0);
    row(28, "roundEndType", &Settings::roundEndType, 0);
    row(29, "roundDurationType", &Settings::roundDurationType, 0);
    row(30, "roundStartMinutes", &Settings::roundStartMinutes, 0);
    row(31, "roundEndMinutes", &Settings::roundEndMinutes, 0);
    row(32, "roundDurationMinutes", &Settings::roundDurationMinutes, 0);
    row(33, "odometerLastEnd", &Settings::odometerLastEnd, -1);
    row(34, "firstDayOfWeek", &Settings::firstDayOfWeek, 0);
    row(35, "iconColumnWidth", &Settings::iconColumnWidth, 40);
    row(36, "reservedInt36", &Settings::reservedInt36, -1);
    row(37, "reservedInt37", &Settings::reservedInt37, -1);
    row(38, "sortAscendingTime", &Settings::sortAscendingTime, 0);
    row(39, "sortAscendingExpense", &Settings::sortAscendingExpense, 0);
    row(40, "reservedInt40", &Settings::reservedInt40, 50);
    row(41, "reservedFlag41", &Settings::reservedFlag41, 1);
    row(42, "accumulateOnReentry", &Settings::accumulateOnReentry, 0);
    row(43, "lockDurationOnTimeEdit", &Settings::lockDurationOnTimeEdit, 0);
    row(44, "lockStartOnDurationEdit", &Settings::lockStartOnDurationEdit, 1);
    row(45, "useDependencies", &Settings::useDependencies, 0);
    row(46, "reservedFlag46", &Settings::reservedFlag46, 1);
    row(47, "sortColumnTime", &Settings::sortColumnTime, 0);
    row(48, "sortColumnExpense", &Settings::sortColumnExpense, 17);
    row(49, "spanDisplayFormat", &Settings::spanDisplayFormat, 0);
    row(50, "refreshOnSyncEnd", &Settings::refreshOnSyncEnd, 1);
    row(51, "yearDisplayFormat", &Settings::yearDisplayFormat, 1);
    row(52, "listLayout", &Settings::listLayout, 4);
    row(53, "alternateRows", &Settings::alternateRows, 1);
    row(54, "alternateRowColour", &Settings::alternateRowColour, 0xF8F8F8);
    row(55, "gridLines", &Settings::gridLines, 1);
    row(56, "gridLineColour", &Settings::gridLineColour, 0xE1E9EA);
    row(57, "gridLineStyle", &Settings::gridLineStyle, 0);
    row(58, "gridLineWidth", &Settings::gridLineWidth, 0);
    row(59, "lineColour1", &Settings::lineColour1, 0x000000);
    row(60, "lineColour2", &Settings::lineColour2, 0x916F70);
    row(61, "lineColour3", &Settings::lineColour3, 0xC49797);
    row(62, "lineColour4", &Settings::lineColour4, 0x8C8C8C);
    row(63, "precisionDuration", &Settings::precisionDuration, 4);
    row(64, "precisionDistance", &Settings::precisionDistance, 2);
    row(65, "precisionRate", &Settings::precisionRate, 3);
    row(66, "precisionAmount", &Settings::precisionAmount, 2);
    row(67, "exportPostProcessing", &Settings::exportPostProcessing, 0);
    row(68, "timerOnNewTimer", &Settings::timerOnNewTimer, 0);
    row(69, "timerOnExit", &Settings::timerOnExit, 1);
    row(70, "resortOnChange", &Settings::resortOnChange, 1);
    row(71, "dialogOnQuickEntry", &Settings::dialogOnQuickEntry, 1);
    row(72, "weekNumberType", &Settings::weekNumberType, 1);
    row(73, "showDayWeekNumbers", &Settings::showDayWeekNumbers, 1);
    row(74, "addMinuteOnSuccessive", &Settings::addMinuteOnSuccessive, 1);
    QCOMPARE(rows, 75);
}

void TestSettingsTable::Defaults() {
    QFETCH(int, index);
    QFETCH(QString, name);
    QFETCH(int, preset);
    const SettingRow* row = FindSetting(name);
    QVERIFY(row);
    QCOMPARE(row->index, index);
    QFETCH(SettingMember, member);
    QVERIFY(row->member == member);
    constexpr SettingType kTypes[] = {SettingType::Flag, SettingType::Int, SettingType::Colour};
    QCOMPARE(row->type, kTypes[member.index()]);
    QCOMPARE(row->preset, static_cast<std::int64_t>(preset));
}

void TestSettingsTable::BlockStartsWithTheDefaults() {
    const Settings settings;
    for (const auto& rows : {SettingsTable(), OwnSettingsTable()})
        for (const SettingRow& row : rows) QVERIFY2(SettingValue(settings, row) == row.preset, row.name);
}

void TestSettingsTable::EveryNameStandsOnce() {
    QCOMPARE(SettingsTable().size(), std::size_t(75));
    for (const auto& rows : {SettingsTable(), OwnSettingsTable()})
        for (const SettingRow& row : rows) {
            QCOMPARE(FindSetting(QString::fromLatin1(row.name)), &row);
            QVERIFY2(IsAllowed(row, row.preset), row.name);
        }
    QCOMPARE(FindSetting(QStringLiteral("ConfirmCopy")), nullptr);
    QCOMPARE(FindSetting(QString()), nullptr);
}

void TestSettingsTable::AllowedValuesOf_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QList<int>>("allowed");
    QTest::addColumn<QList<int>>("refused");
    QTest::addColumn<QString>("words");
    QTest::newRow("a flag") << "confirmCopy" << QList<int>{0, 1} << QList<int>{-1, 2} << "0 or 1";
    QTest::newRow("a rounding type is one of three numbers")
        << "roundEndType" << QList<int>{0, 16, 32} << QList<int>{1, 2, 15, 31, 48} << "0, 16 or 32";
    QTest::newRow("minutes") << "roundStartMinutes" << QList<int>{0, 59} << QList<int>{-1, 60} << "0 to 59";
    QTest::newRow("precision") << "precisionRate" << QList<int>{0, 6} << QList<int>{-1, 7} << "0 to 6";
    QTest::newRow("day of week") << "firstDayOfWeek" << QList<int>{0, 6} << QList<int>{-1, 7} << "0 to 6";
    QTest::newRow("layout") << "listLayout" << QList<int>{1, 4} << QList<int>{0, 5} << "1 to 4";
    QTest::newRow("week number type")
        << "weekNumberType" << QList<int>{0, 3} << QList<int>{-1, 4} << "0 to 3";
    QTest::newRow("timer action") << "timerOnExit" << QList<int>{0, 1, 2} << QList<int>{-1, 3} << "0 to 2";
    QTest::newRow("year display") << "yearDisplayFormat" << QList<int>{0, 2} << QList<int>{3} << "0 to 2";
    QTest::newRow("span display") << "spanDisplayFormat" << QList<int>{0, 1} << QList<int>{2} << "0 or 1";
    QTest::newRow("odometer") << "odometerLastEnd" << QList<int>{-1, 123456} << QList<int>{-2}
                              << "-1 to 2147483647";
    QTest::newRow("time column") << "sortColumnTime" << QList<int>{0, 16} << QList<int>{17} << "0 to 16";
    QTest::newRow("expense column") << "sortColumnExpense" << QList<int>{17, 33} << QList<int>{16, 34}
                                    << "17 to 33";
    QTest::newRow("a clock") << "clockFormat" << QList<int>{0, 12, 24} << QList<int>{-1, 1, 13, 25}
                             << "0, 12 or 24";
    QTest::newRow("a colour") << "lineColour1" << QList<int>{0, 16777215} << QList<int>{-1, 16777216}
                              << "0 to 16777215";
}

void TestSettingsTable::AllowedValuesOf() {
    QFETCH(QString, name);
    QFETCH(QList<int>, allowed);
    QFETCH(QList<int>, refused);
    QFETCH(QString, words);
    const SettingRow* row = FindSetting(name);
    QVERIFY(row);
    for (const int value : allowed) QVERIFY2(IsAllowed(*row, value), qPrintable(QString::number(value)));
    for (const int value : refused) QVERIFY2(!IsAllowed(*row, value), qPrintable(QString::number(value)));
    QCOMPARE(AllowedValues(*row), words);
}

void TestSettingsTable::PutAndRead_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("value");
    QTest::newRow("a flag") << "confirmCopy" << 0;
    QTest::newRow("a negative number") << "reservedInt36" << -2147483647;
    QTest::newRow("a colour") << "gridLineColour" << 0xFFFFFF;
}

void TestSettingsTable::PutAndRead() {
    QFETCH(QString, name);
    QFETCH(int, value);
    const SettingRow* row = FindSetting(name);
    QVERIFY(row);
    Settings settings;
    PutSetting(settings, *row, value);
    QCOMPARE(SettingValue(settings, *row), static_cast<std::int64_t>(value));
    for (const SettingRow& other : SettingsTable())
        if (&other != row) QCOMPARE(SettingValue(settings, other), other.preset);
}

TEST_CLASS(TestSettingsTable);
#include "TestSettingsTable.moc"
