#include "platform/host/CRegionalInfo.h"

#include "support/TestProgram.h"

#include <QTest>
#include <map>

namespace {

/// Answers from a table.
class TableSource final : public CLocaleSource {
 public:
    std::map<LocaleType, QString> answers;
    [[nodiscard]] std::optional<QString> GetLocaleInfo(LocaleType type) const override {
        const auto found = answers.find(type);
        return found == answers.end() ? std::nullopt : std::optional(found->second);
    }
};

using Environment = std::map<QByteArray, QByteArray>;

}  // namespace

class TestCRegionalInfo : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init();
    void cleanup();
    void read_data();
    void read();
    void locales_data();
    void locales();
    void habits_data();
    void habits();
    void scope();

 private:
    Environment m_before;
};

void TestCRegionalInfo::init() {
    for (const char* name : {"LC_ALL", "LC_NUMERIC", "LC_TIME", "LC_MEASUREMENT", "LC_MONETARY", "LANG"}) {
        m_before[name] = qgetenv(name);
        qunsetenv(name);
    }
}

void TestCRegionalInfo::cleanup() {
    for (const auto& [name, value] : m_before) qputenv(name.constData(), value);
}

void TestCRegionalInfo::read_data() {
    QTest::addColumn<LocaleType>("type");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<CRegionalInfo>("expected");
    const auto row = [](const char* name, LocaleType type, const QString& answer, auto change) {
        CRegionalInfo region;
        change(region);
        QTest::newRow(name) << type << answer << region;
    };
    const auto same = [](CRegionalInfo&) {};
    using enum LocaleType;
    row("a comma", DecimalSeparator, u","_qs,
        [](auto& r) { r.decimalChar = u',', r.usesDotDecimal = false; });
    row("the first of two signs", DecimalSeparator, u".,"_qs, same);
    row("no decimal sign", DecimalSeparator, QString(), same);
    row("24 hours", TimeFormat, u"1"_qs, [](auto& r) { r.is24Hour = true; });
    row("12 hours", TimeFormat, u"0"_qs, same);
    row("any other time format", TimeFormat, u"2"_qs, same);
    row("day first", DateOrder, u"1"_qs, [](auto& r) { r.dateOrder = 1; });
    row("year first", DateOrder, u"2"_qs, [](auto& r) { r.dateOrder = 2; });
    row("any other date order", DateOrder, u"3"_qs, same);
    row("a letter as date order", DateOrder, u"d"_qs, same);
    row("a full stop in dates", DateSeparator, u". "_qs, [](auto& r) { r.dateSeparator = u'.'; });
    row("a mark that directs the writing before the separator", DateSeparator, u"\u200F-"_qs,
        [](auto& r) { r.dateSeparator = u'-'; });
    row("such a mark alone", DateSeparator, u"\u200F"_qs, same);
    row("no date separator", DateSeparator, QString(), same);
    row("no fraction digits", FractionDigits, u"0"_qs, [](auto& r) { r.fractionDigits = 0; });
    row("six fraction digits", FractionDigits, u"6"_qs, [](auto& r) { r.fractionDigits = 6; });
    row("more than six become six", FractionDigits, u"7"_qs, [](auto& r) { r.fractionDigits = 6; });
    row("fewer than none become two", FractionDigits, u"-1"_qs, same);
    row("fraction digits that are no number", FractionDigits, u"many"_qs, same);
    row("a narrow blank between groups", GroupSeparator, u"\u202f"_qs,
        [](auto& r) { r.groupChar = u'\u202f'; });
    row("no sign between groups", GroupSeparator, QString(), same);
    row("metric", Measure, u"0"_qs, [](auto& r) { r.isMetric = true; });
    row("not metric", Measure, u"1"_qs, same);
}

void TestCRegionalInfo::read() {
    QFETCH(LocaleType, type);
    QFETCH(QString, answer);
    QFETCH(CRegionalInfo, expected);
    TableSource source;
    QVERIFY(ReadRegionalInfo(source) == CRegionalInfo());
    source.answers[type] = answer;
    QVERIFY(ReadRegionalInfo(source) == expected);
}

void TestCRegionalInfo::locales_data() {
    QTest::addColumn<Environment>("environment");
    QTest::addColumn<QString>("decimal");
    QTest::addColumn<bool>("is24Hour");
    QTest::addColumn<int>("dateOrder");
    QTest::addColumn<QString>("dateSeparator");
    QTest::addColumn<bool>("isMetric");
    const auto all = [](const char* name) { return Environment{{"LC_ALL", name}}; };
    QTest::newRow("German") << all("de_DE.UTF-8") << u","_qs << true << 1 << u"."_qs << true;
    QTest::newRow("American") << all("en_US.UTF-8") << u"."_qs << false << 0 << u"/"_qs << false;
    QTest::newRow("British") << all("en_GB.UTF-8") << u"."_qs << true << 1 << u"/"_qs << true;
    QTest::newRow("Swedish") << all("sv_SE.UTF-8") << u","_qs << true << 2 << u"-"_qs << true;
    QTest::newRow("Japanese") << all("ja_JP.UTF-8") << u"."_qs << true << 2 << u"/"_qs << true;
    QTest::newRow("Czech, with blanks between the parts")
        << all("cs_CZ.UTF-8") << u","_qs << true << 1 << u"."_qs << true;
    QTest::newRow("Dutch") << all("nl_NL.UTF-8") << u","_qs << true << 1 << u"-"_qs << true;
    QTest::newRow("German with a modifier") << all("de_DE@euro") << u","_qs << true << 1 << u"."_qs << true;
    QTest::newRow("the language alone") << all("de") << u","_qs << true << 1 << u"."_qs << true;
    QTest::newRow("C") << all("C") << u"."_qs << false << 0 << u"/"_qs << false;
    QTest::newRow("C in UTF-8") << all("C.UTF-8") << u"."_qs << false << 0 << u"/"_qs << false;
    QTest::newRow("POSIX") << all("POSIX") << u"."_qs << false << 0 << u"/"_qs << false;
    QTest::newRow("nothing said") << Environment() << u"."_qs << false << 0 << u"/"_qs << false;
    QTest::newRow("a name nobody knows") << all("qx_QX.UTF-8") << u"."_qs << false << 0 << u"/"_qs << false;
    QTest::newRow("rubbish") << all("\xFF/../\n") << u"."_qs << false << 0 << u"/"_qs << false;
    QTest::newRow("each category by itself") << Environment{{"LC_NUMERIC", "de_DE.UTF-8"},
                                                            {"LC_TIME", "sv_SE.UTF-8"},
                                                            {"LC_MEASUREMENT", "en_US.UTF-8"}}
                                             << u","_qs << true << 2 << u"-"_qs << false;
    QTest::newRow("what no category says comes from LANG")
        << Environment{{"LANG", "de_DE.UTF-8"}, {"LC_TIME", "en_US.UTF-8"}} << u","_qs << false << 0
        << u"/"_qs << true;
    QTest::newRow("LC_ALL is above all")
        << Environment{{"LANG", "de_DE.UTF-8"}, {"LC_TIME", "de_DE.UTF-8"}, {"LC_ALL", "en_US.UTF-8"}}
        << u"."_qs << false << 0 << u"/"_qs << false;
    QTest::newRow("an empty LC_ALL says nothing")
        << Environment{{"LC_ALL", ""}, {"LANG", "de_DE.UTF-8"}} << u","_qs << true << 1 << u"."_qs << true;
}

void TestCRegionalInfo::locales() {
    QFETCH(Environment, environment);
    QFETCH(QString, decimal);
    QFETCH(bool, is24Hour);
    QFETCH(int, dateOrder);
    QFETCH(QString, dateSeparator);
    QFETCH(bool, isMetric);
    for (const auto& [name, value] : environment) qputenv(name.constData(), value);
    const CRegionalInfo region = ReadRegionalInfo(CUserLocale());
    QCOMPARE(QString(QChar(region.decimalChar)), decimal);
    QCOMPARE(region.usesDotDecimal, decimal == u"."_qs);
    QCOMPARE(region.is24Hour, is24Hour);
    QCOMPARE(region.dateOrder, dateOrder);
    QCOMPARE(QString(QChar(region.dateSeparator)), dateSeparator);
    QCOMPARE(region.isMetric, isMetric);
    QCOMPARE(region.fractionDigits, 2);
}

void TestCRegionalInfo::habits_data() {
    QTest::addColumn<Environment>("environment");
    QTest::addColumn<int>("firstDay");  // -1: not known
    QTest::addColumn<QString>("currency");
    const auto all = [](const char* name) { return Environment{{"LC_ALL", name}}; };
    QTest::newRow("German") << all("de_DE.UTF-8") << 1 << u"EUR"_qs;
    QTest::newRow("American") << all("en_US.UTF-8") << 0 << u"USD"_qs;
    QTest::newRow("Swedish") << all("sv_SE.UTF-8") << 1 << u"SEK"_qs;
    QTest::newRow("Egyptian, from Saturday on") << all("ar_EG.UTF-8") << 6 << u"EGP"_qs;
    QTest::newRow("C") << all("C.UTF-8") << -1 << QString();
    QTest::newRow("nothing said") << Environment() << -1 << QString();
    QTest::newRow("each category by itself")
        << Environment{{"LC_TIME", "en_US.UTF-8"}, {"LC_MONETARY", "sv_SE.UTF-8"}} << 0 << u"SEK"_qs;
}

void TestCRegionalInfo::habits() {
    QFETCH(Environment, environment);
    for (const auto& [name, value] : environment) qputenv(name.constData(), value);
    const RegionalHabits read = ReadRegionalHabits(CUserLocale());
    QTEST(read.firstDayOfWeek.value_or(-1), "firstDay");
    QTEST(read.currency, "currency");
}

void TestCRegionalInfo::scope() {
    qputenv("LC_ALL", "de_DE.UTF-8");
    QCOMPARE(TheRegion().decimalChar, u',');
    qputenv("LC_ALL", "en_US.UTF-8");
    QCOMPARE(TheRegion().decimalChar, u',');  // kept for the life of the process
    CRegionalInfo outer;
    outer.decimalChar = u'#';
    CRegionalInfo inner;
    inner.decimalChar = u'!';
    {
        const RegionScope one(outer);
        QCOMPARE(TheRegion().decimalChar, u'#');
        {
            const RegionScope two(inner);
            QCOMPARE(TheRegion().decimalChar, u'!');
        }
        QCOMPARE(TheRegion().decimalChar, u'#');
    }
    QCOMPARE(TheRegion().decimalChar, u',');
}

TEST_CLASS(TestCRegionalInfo);
#include "TestCRegionalInfo.moc"
