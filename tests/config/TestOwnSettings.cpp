#include "SettingsHome.h"
#include "support/TestProgram.h"

#include <QTemporaryDir>

/// The settings beside the numbered ones: how they are stored, and what they decide.
class TestOwnSettings : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void StoredByTheirNames();
    void TheUsersChoiceComesBeforeTheRegion_data();
    void TheUsersChoiceComesBeforeTheRegion();
};

void TestOwnSettings::StoredByTheirNames() {
    const QTemporaryDir folder;
    SettingsHome home(folder.path());
    home.Start().clockFormat = 24;
    QVERIFY(home.Start().SaveAll());
    const auto stored = home.profile->Section(QStringLiteral("Own"));
    QCOMPARE(stored.size(), OwnSettingsTable().size());
    QCOMPARE(home.profile->GetInt(QStringLiteral("Own"), QStringLiteral("clockFormat"), -1), 24);
    QCOMPARE(home.profile->GetInt(QStringLiteral("Own"), QStringLiteral("distanceUnit"), -1), 0);
}

void TestOwnSettings::TheUsersChoiceComesBeforeTheRegion_data() {
    QTest::addColumn<bool>("region24");
    QTest::addColumn<bool>("regionMetric");
    QTest::addColumn<int>("clock");
    QTest::addColumn<int>("unit");
    QTest::addColumn<bool>("is24");
    QTest::addColumn<bool>("isMetric");
    QTest::newRow("as the region has it: 24 hours, metric") << true << true << 0 << 0 << true << true;
    QTest::newRow("as the region has it: 12 hours, miles") << false << false << 0 << 0 << false << false;
    QTest::newRow("24 hours in a region of 12") << false << false << 24 << 0 << true << false;
    QTest::newRow("12 hours in a region of 24") << true << true << 12 << 0 << false << true;
    QTest::newRow("kilometres in a region of miles") << false << false << 0 << 1 << false << true;
    QTest::newRow("miles in a metric region") << true << true << 0 << 2 << true << false;
}

/// At once when it is saved, and at the next start; times are shown by the region in use.
void TestOwnSettings::TheUsersChoiceComesBeforeTheRegion() {
    QFETCH(bool, region24);
    QFETCH(bool, regionMetric);
    QFETCH(int, clock);
    QFETCH(int, unit);
    CRegionalInfo region;
    region.is24Hour = region24;
    region.isMetric = regionMetric;
    const RegionScope scope(region);
    const QTemporaryDir folder;
    {
        SettingsHome home(folder.path(), region);
        CCfgStore& settings = home.Start();
        settings.clockFormat = clock;
        settings.distanceUnit = unit;
        for (const char* name : {"clockFormat", "distanceUnit"})
            QVERIFY(settings.SaveValue(FindSetting(QString::fromLatin1(name))->index));
        QTEST(settings.clock24, "is24");
        QTEST(settings.metricUnits, "isMetric");
        QTEST(TheRegion().is24Hour, "is24");
    }
    QCOMPARE(TheRegion().is24Hour, region24);
    SettingsHome later(folder.path(), region);
    QTEST(later.Start().clock24, "is24");
    QTEST(later.settings->metricUnits, "isMetric");
    QTEST(TheRegion().is24Hour, "is24");
}

TEST_CLASS(TestOwnSettings);
#include "TestOwnSettings.moc"
