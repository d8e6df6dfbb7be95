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

void TestSettingsTable::Defaults_data() {
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("preset");
    const auto row = [](int index, const char* name, int preset) {
        QTest::newRow(name) << index << QString::fromLatin1(name) << preset;
    };
    row(0, "confirmCopy", 1);
    row(3, "confirmAddListItem", 0);
    row(5, "reservedFlag5", 0);
    row(7, "reservedFlag7", 1);
    row(8, "lastModeWasTime", 1);
    row(10, "reservedFlag10", 1);
    row(11, "reservedFlag11", 0);
    row(16, "keepTimeList115", 0);
    row(17, "keepTimeList113", 1);
    row(18, "keepTimeList114", 1);
    row(23, "keepExpenseList136", 0);
    row(24, "keepExpenseList135", 1);
    row(27, "roundStartType", 0);
    row(29, "roundDurationType", 0);
    row(32, "roundDurationMinutes", 0);
    row(33, "odometerLastEnd", -1);
    row(34, "firstDayOfWeek", 0);
    row(35, "iconColumnWidth", 40);
    row(36, "reservedInt36", -1);
    row(37, "reservedInt37", -1);
    row(40, "reservedInt40", 50);
    row(41, "reservedFlag41", 1);
    row(44, "lockStartOnDurationEdit", 1);
    row(46, "reservedFlag46", 1);
    row(47, "sortColumnTime", 0);
    row(48, "sortColumnExpense", 17);
    row(49, "spanDisplayFormat", 0);
    row(51, "yearDisplayFormat", 1);
    row(52, "listLayout", 4);
    row(54, "alternateRowColour", 16316664);  // F8 F8 F8
    row(56, "gridLineColour", 14805482);      // E1 E9 EA
    row(59, "lineColour1", 0);
    row(60, "lineColour2", 9531248);   // 91 6F 70
    row(61, "lineColour3", 12883863);  // C4 97 97
    row(62, "lineColour4", 9211020);   // 8C 8C 8C
    row(63, "precisionDuration", 4);
    row(64, "precisionDistance", 2);
    row(65, "precisionRate", 3);
    row(66, "precisionAmount", 2);
    row(67, "exportPostProcessing", 0);
    row(68, "timerOnNewTimer", 0);
    row(69, "timerOnExit", 1);
    row(71, "dialogOnQuickEntry", 1);
    row(72, "weekNumberType", 1);
    row(74, "addMinuteOnSuccessive", 1);
}

void TestSettingsTable::Defaults() {
    QFETCH(int, index);
    QFETCH(QString, name);
    QFETCH(int, preset);
    const SettingRow* row = FindSetting(name);
    QVERIFY(row);
    QCOMPARE(row->index, index);
    QCOMPARE(row->preset, static_cast<std::int64_t>(preset));
}

void TestSettingsTable::BlockStartsWithTheDefaults() {
    const Settings settings;
    for (const SettingRow& row : SettingsTable())
        QVERIFY2(SettingValue(settings, row) == row.preset, row.name);
}

void TestSettingsTable::EveryNameStandsOnce() {
    QCOMPARE(SettingsTable().size(), std::size_t(75));
    for (const SettingRow& row : SettingsTable()) {
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
