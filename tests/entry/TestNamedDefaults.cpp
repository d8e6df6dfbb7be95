#include "entry/NamedDefaults.h"

#include "config/CCfgStore.h"
#include "lang/LoadText.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QRandomGenerator>
#include <QSet>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kEmptyRecord = u"(empty record)"_s;

/// Named defaults of a home whose clock stands at 19 November 2026.
struct Fixture {
    TestHome home;
    NamedDefaults time;
    NamedDefaults expense;

    explicit Fixture(const CRegionalInfo& region = {})
        : home(region),
          time(*home.settings, home.clock, RecordMode::Time),
          expense(*home.settings, home.clock, RecordMode::Expense) {
        home.clock.Set(2026, 11, 19, 9, 5);
    }
};

CTRecord Meeting() {
    CTRecord record;
    record.date.Set(3, 2, 2020);
    record.SetStart(9, 0, false);
    record.SetEnd(10, 30, false);
    record.item1 = u"Client \"A\""_s;
    record.item5 = u"EUR"_s;
    record.notes = u"weekly"_s;
    record.SetBillable(true);
    record.SetRate(80.0F);
    return record;
}

CERecord Trip() {
    CERecord record;
    record.date.Set(3, 2, 2020);
    record.item3 = u"Trip"_s;
    record.isDistance = true;
    record.distance.Set(12.5F);
    record.rate.Set(0.3F);
    record.amount.Set(3.75F);
    record.odometerStart = u"100"_s;
    record.flag1 = true;
    return record;
}

QString DateOf(const RecordDate& date) {
    return date.IsSet() ? QString::asprintf("%d-%02d-%02d", date.year, date.month, date.day) : u"-"_s;
}

/// Any characters that a text can hold: of all planes, controls and slashes included.
QString RandomName(QRandomGenerator& random) {
    QString name;
    const int length = 1 + random.bounded(40);
    while (name.size() < length) {
        const char32_t code = random.bounded(4) == 0 ? random.bounded(0x110000U) : random.bounded(1U, 0x180U);
        if (code == 0 || (code >= 0xD800 && code <= 0xDFFF)) continue;
        name += QString::fromUcs4(&code, 1);
    }
    return name;
}

QStringList DistinctNames(int count, quint32 seed) {
    QRandomGenerator random(seed);
    QSet<QString> seen;
    QStringList names;
    while (names.size() < count) {
        const QString name = RandomName(random);
        if (seen.contains(name)) continue;
        seen.insert(name);
        names += name;
    }
    return names;
}

}  // namespace

class TestNamedDefaults : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void NoDefaults();
    void EmptyRecordOfToday();
    void TimeDefault();
    void ExpenseDefault();
    void FormerContentDoesNotShineThrough();
    void KindsAreApart();
    void OtherKindIsRefused();
    void Names_data();
    void Names();
    void RefusedNames();
    void ReservedNameIsStoredButNeverChosen();
    void FindName_data();
    void FindName();
    void Delete();
    void Rename_data();
    void Rename();
    void RenameOfADamagedDefault();
    void DamagedValue_data();
    void DamagedValue();
    void MissingDefaultIsNotMade();
    void TooLargeRecordLeavesNothing();
    void TooLargeRecordKeepsTheFormerOne();
    void TenThousandNames_data();
    void TenThousandNames();
};

void TestNamedDefaults::NoDefaults() {
    Fixture fixture;
    QCOMPARE(fixture.time.Names(), QStringList{kEmptyRecord});
    QCOMPARE(fixture.expense.Names(), QStringList{kEmptyRecord});
    QCOMPARE(NamedDefaults::EmptyRecordName(), kEmptyRecord);
}

void TestNamedDefaults::EmptyRecordOfToday() {
    Fixture fixture;
    CTRecord time = Meeting();
    time.GenUnique();
    QVERIFY(fixture.time.Read(kEmptyRecord, time));
    QCOMPARE(DateOf(time.date), u"2026-11-19"_s);
    QCOMPARE(time.item1, QString());
    QVERIFY(!time.HasStart());
    QCOMPARE(time.GetId(), QString());
    CERecord expense = Trip();
    QVERIFY(fixture.expense.Read(kEmptyRecord, expense));
    QCOMPARE(DateOf(expense.date), u"2026-11-19"_s);
    QCOMPARE(expense.GetDistance(), 0.0F);
    QVERIFY(!expense.flag1);
}

/// Times, items, money and the date are those that were stored; the identity isn't part of a default.
void TestNamedDefaults::TimeDefault() {
    Fixture fixture;
    CTRecord stored = Meeting();
    stored.GenUnique();
    QVERIFY(fixture.time.Write(u"Meeting"_s, stored));
    CTRecord record;
    record.GenUnique();
    const QString id = record.GetId();
    QVERIFY(fixture.time.Read(u"Meeting"_s, record));
    QCOMPARE(record.GetId(), id);
    QCOMPARE(DateOf(record.date), u"2020-03-02"_s);
    QCOMPARE(record.startHour, 9);
    QCOMPARE(record.endHour, 10);
    QCOMPARE(record.endMinute, 30);
    QCOMPARE(record.spans.duration.clockText, u"1:30"_s);
    QCOMPARE(record.item1, u"Client \"A\""_s);
    QCOMPARE(record.item5, u"EUR"_s);
    QCOMPARE(record.notes, u"weekly"_s);
    QVERIFY(record.isBillable);
    QCOMPARE(record.rate.value, 80.0F);
    QCOMPARE(record.amount.value, 120.0F);
}

void TestNamedDefaults::ExpenseDefault() {
    Fixture fixture;
    QVERIFY(fixture.expense.Write(u"Trip"_s, Trip()));
    CERecord record;
    QVERIFY(fixture.expense.Read(u"Trip"_s, record));
    QCOMPARE(DateOf(record.date), u"2020-03-02"_s);
    QCOMPARE(record.item3, u"Trip"_s);
    QVERIFY(record.isDistance);
    QCOMPARE(record.GetDistance(), 12.5F);
    QCOMPARE(record.GetRateText(), u"0.300"_s);
    QCOMPARE(record.GetAmountText(), u"3.75"_s);
    QCOMPARE(record.odometerStart, u"100"_s);
    QVERIFY(record.flag1);
    QVERIFY(!record.flag2);
}

void TestNamedDefaults::FormerContentDoesNotShineThrough() {
    Fixture fixture;
    CERecord plain;
    plain.item1 = u"Hotel"_s;
    QVERIFY(fixture.expense.Write(u"Hotel"_s, plain));
    CERecord record = Trip();
    QVERIFY(fixture.expense.Read(u"Hotel"_s, record));
    QVERIFY(!record.isDistance);
    QCOMPARE(record.GetDistance(), 0.0F);
    QCOMPARE(record.GetAmountText(), QString());
    QCOMPARE(record.odometerStart, QString());
}

void TestNamedDefaults::KindsAreApart() {
    Fixture fixture;
    QVERIFY(fixture.time.Write(u"Same"_s, Meeting()));
    QVERIFY(fixture.expense.Write(u"Same"_s, Trip()));
    QVERIFY(fixture.expense.Write(u"Other"_s, Trip()));
    QCOMPARE(fixture.time.Names(), QStringList({u"Same"_s, kEmptyRecord}));
    QCOMPARE(fixture.expense.Names(), QStringList({u"Same"_s, u"Other"_s, kEmptyRecord}));
    QVERIFY(fixture.expense.Delete(u"Same"_s));
    CTRecord record;
    QVERIFY(fixture.time.Read(u"Same"_s, record));
}

void TestNamedDefaults::OtherKindIsRefused() {
    Fixture fixture;
    QVERIFY(!fixture.time.Write(u"Trip"_s, Trip()));
    QCOMPARE(fixture.time.Names(), QStringList{kEmptyRecord});
    CERecord expense = Trip();
    QVERIFY(!fixture.time.Read(kEmptyRecord, expense));
    QCOMPARE(DateOf(expense.date), u"2020-03-02"_s);
}

void TestNamedDefaults::Names_data() {
    QTest::addColumn<QString>("name");
    QTest::newRow("quotation marks") << u"the \"usual\" 'one'"_s;
    QTest::newRow("backslashes") << u"C:\\back\\\\slash\\"_s;
    QTest::newRow("slashes, as a path would have them") << u"../a/b//"_s;
    QTest::newRow("emoji") << u"\U0001F4C8 \U0001F469\u200D\U0001F4BB"_s;
    QTest::newRow("percent signs") << u"100%s %d%%"_s;
    QTest::newRow("umlauts, composed") << u"\u00C4\u00D6\u00DC\u00DF"_s;
    QTest::newRow("umlauts, with marks of their own") << u"A\u0308O\u0308U\u0308"_s;
    QTest::newRow("a statement") << u"'); DROP TABLE keys; --"_s;
    QTest::newRow("a line feed and a tab") << u"one\n\ttwo"_s;
    QTest::newRow("a blank") << u" "_s;
    QTest::newRow("blanks around") << u" a "_s;
    QTest::newRow("255 characters") << QString(255, u'x');
    QTest::newRow("256 characters") << QString(256, u'x');
    QTest::newRow("10,000 characters") << QString(10000, u'\u00E4');
    QTest::newRow("from right to left") << u"\u05E9\u05DC\u05D5\u05DD"_s;
}

/// Exactly as it was given, also at the next start.
void TestNamedDefaults::Names() {
    QFETCH(QString, name);
    Fixture fixture;
    QVERIFY(fixture.time.Write(u"before"_s, Meeting()));
    CTRecord stored = Meeting();
    stored.notes = u"this one"_s;
    QVERIFY(fixture.time.Write(name, stored));
    QVERIFY(fixture.time.Write(u"behind"_s, Meeting()));

    TestHome next(fixture.home.Path());
    NamedDefaults defaults(*next.settings, next.clock, RecordMode::Time);
    QCOMPARE(defaults.Names(), QStringList({u"before"_s, name, u"behind"_s, kEmptyRecord}));
    CTRecord record;
    QVERIFY(defaults.Read(name, record));
    QCOMPARE(record.notes, u"this one"_s);
    QVERIFY(defaults.Rename(name, name + u"2"_s));
    QVERIFY(defaults.Read(name + u"2"_s, record));
    QVERIFY(defaults.Delete(name + u"2"_s));
    QCOMPARE(defaults.Names(), QStringList({u"before"_s, u"behind"_s, kEmptyRecord}));
}

void TestNamedDefaults::RefusedNames() {
    Fixture fixture;
    QVERIFY(!fixture.time.Write(QString(), Meeting()));
    QCOMPARE(fixture.time.Names(), QStringList{kEmptyRecord});
    CTRecord record;
    QVERIFY(!fixture.time.Read(QString(), record));
    QVERIFY(!fixture.time.Delete(QString()));
    QVERIFY(!fixture.time.Delete(kEmptyRecord));
    QVERIFY(!fixture.time.Rename(kEmptyRecord, u"a"_s));
}

void TestNamedDefaults::ReservedNameIsStoredButNeverChosen() {
    Fixture fixture;
    QVERIFY(fixture.time.Write(kEmptyRecord, Meeting()));
    QCOMPARE(fixture.time.Names(), QStringList({kEmptyRecord, kEmptyRecord}));
    CTRecord record;
    QVERIFY(fixture.time.Read(kEmptyRecord, record));
    QCOMPARE(record.notes, QString());
    QCOMPARE(DateOf(record.date), u"2026-11-19"_s);
}

void TestNamedDefaults::FindName_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("found");
    QTest::newRow("as it stands") << u"Standard"_s << u"Standard"_s;
    QTest::newRow("in other case") << u"sTANDARD"_s << u"Standard"_s;
    QTest::newRow("umlauts in other case") << u"\u00FCBUNG"_s << u"\u00DCbung"_s;
    QTest::newRow("of two that differ in case the one that was meant") << u"a"_s << u"a"_s;
    QTest::newRow("of two that differ in case the one that was meant, capital") << u"A"_s << u"A"_s;
    QTest::newRow("a part") << u"Stand"_s << QString();
    QTest::newRow("the empty record isn't stored") << kEmptyRecord << QString();
    QTest::newRow("empty") << QString() << QString();
}

void TestNamedDefaults::FindName() {
    QFETCH(QString, name);
    QFETCH(QString, found);
    Fixture fixture;
    for (const QString& stored : {u"Standard"_s, u"\u00DCbung"_s, u"A"_s, u"a"_s})
        QVERIFY(fixture.time.Write(stored, Meeting()));
    QCOMPARE(fixture.time.FindName(name), found.isEmpty() ? std::nullopt : std::optional(found));
}

void TestNamedDefaults::Delete() {
    Fixture fixture;
    QVERIFY(fixture.time.Write(u"a"_s, Meeting()));
    QVERIFY(fixture.time.Write(u"A"_s, Meeting()));
    QVERIFY(fixture.time.Delete(u"a"_s));
    QCOMPARE(fixture.time.Names(), QStringList({u"A"_s, kEmptyRecord}));
    QVERIFY(!fixture.time.Delete(u"a"_s));
}

void TestNamedDefaults::Rename_data() {
    QTest::addColumn<QString>("newName");
    QTest::addColumn<bool>("done");
    QTest::newRow("another name") << u"three"_s << true;
    QTest::newRow("the same name") << u"one"_s << true;
    QTest::newRow("the same name in other case") << u"ONE"_s << true;
    QTest::newRow("a name that is taken") << u"two"_s << false;
    QTest::newRow("a name that is taken in other case") << u"TWO"_s << false;
    QTest::newRow("the empty record") << kEmptyRecord << false;
    QTest::newRow("the empty record in other case") << u"(Empty Record)"_s << false;
    QTest::newRow("no name") << QString() << false;
}

void TestNamedDefaults::Rename() {
    QFETCH(QString, newName);
    QFETCH(bool, done);
    Fixture fixture;
    QVERIFY(fixture.time.Write(u"one"_s, Meeting()));
    QVERIFY(fixture.time.Write(u"two"_s, CTRecord()));
    QCOMPARE(fixture.time.Rename(u"one"_s, newName), done);
    QSet<QString> expected{u"two"_s, kEmptyRecord, done ? newName : u"one"_s};
    const QStringList names = fixture.time.Names();
    QCOMPARE(QSet<QString>(names.begin(), names.end()), expected);
    CTRecord record;
    QVERIFY(fixture.time.Read(done ? newName : u"one"_s, record));
    QCOMPARE(record.notes, u"weekly"_s);
    QVERIFY(!fixture.time.Rename(u"missing"_s, u"four"_s));
}

/// An entry without a value stays where it is.
void TestNamedDefaults::RenameOfADamagedDefault() {
    Fixture fixture;
    QByteArray bytes;
    QVERIFY(!fixture.home.settings->ReadEntry(bytes, u"TimeDefaults"_s, u"hollow"_s));
    QCOMPARE(fixture.time.Names(), QStringList({u"hollow"_s, kEmptyRecord}));
    QVERIFY(!fixture.time.Rename(u"hollow"_s, u"new"_s));
    QCOMPARE(fixture.time.Names(), QStringList({u"hollow"_s, kEmptyRecord}));
    QVERIFY(fixture.time.Delete(u"hollow"_s));
    QCOMPARE(fixture.time.Names(), QStringList{kEmptyRecord});
}

void TestNamedDefaults::DamagedValue_data() {
    QTest::addColumn<int>("kept");
    QTest::newRow("the first byte alone") << 1;
    QTest::newRow("cut in the times") << 100;
    QTest::newRow("its last byte is gone") << -1;
}

void TestNamedDefaults::DamagedValue() {
    QFETCH(int, kept);
    Fixture fixture;
    QByteArray bytes = Meeting().ToBytes();
    bytes.truncate(kept < 0 ? bytes.size() + kept : kept);
    QVERIFY(fixture.home.settings->WriteEntry(u"TimeDefaults"_s, u"damaged"_s, bytes));
    CTRecord record = Meeting();
    record.notes = u"mine"_s;
    QVERIFY(!fixture.time.Read(u"damaged"_s, record));
    QCOMPARE(record.notes, u"mine"_s);
    QCOMPARE(record.startHour, 9);
    QVERIFY(fixture.time.Write(u"damaged"_s, Meeting()));
    QVERIFY(fixture.time.Read(u"damaged"_s, record));
    QCOMPARE(record.notes, u"weekly"_s);
}

void TestNamedDefaults::MissingDefaultIsNotMade() {
    Fixture fixture;
    CTRecord record;
    QVERIFY(!fixture.time.Read(u"missing"_s, record));
    QCOMPARE(fixture.time.Names(), QStringList{kEmptyRecord});
}

/// A value of the settings has at most 4096 bytes.
void TestNamedDefaults::TooLargeRecordLeavesNothing() {
    Fixture fixture;
    CTRecord record = Meeting();
    record.notes = QString(2000, u'n');
    fixture.home.prompt.ExpectTold(Text::ValueRefusedLarge);
    QVERIFY(!fixture.time.Write(u"long"_s, record));
    QCOMPARE(fixture.time.Names(), QStringList{kEmptyRecord});
}

void TestNamedDefaults::TooLargeRecordKeepsTheFormerOne() {
    Fixture fixture;
    CTRecord record = Meeting();
    QVERIFY(fixture.time.Write(u"long"_s, record));
    record.notes = QString(2000, u'n');
    fixture.home.prompt.ExpectTold(Text::ValueRefusedLarge);
    QVERIFY(!fixture.time.Write(u"long"_s, record));
    QVERIFY(fixture.time.Read(u"long"_s, record));
    QCOMPARE(record.notes, u"weekly"_s);
}

void TestNamedDefaults::TenThousandNames_data() {
    QTest::addColumn<QString>("prefix");
    QTest::newRow("defaults of time records") << u"TimeDefaults"_s;
    QTest::newRow("a key of somebody else") << u"Reports \\ by / somebody \"else\""_s;
}

/// Any texts are names of entries: all are there after a restart, in order, exact, each with its own value.
void TestNamedDefaults::TenThousandNames() {
    QFETCH(QString, prefix);
    constexpr int kCount = 10000;
    const QStringList names = DistinctNames(kCount, 20261119);
    Fixture fixture;
    QVERIFY(fixture.home.tree.Change([&] {
        for (int i = 0; i < kCount; ++i)
            if (!fixture.home.settings->WriteEntry(prefix, names.at(i), QByteArray::number(i))) return false;
        return true;
    }));

    TestHome next(fixture.home.Path());
    QStringList found;
    QVERIFY(next.settings->EnumKeys(prefix, found));
    QCOMPARE(found.size(), qsizetype(kCount));
    QVERIFY(found == names);
    QByteArray value;
    for (int i = 0; i < kCount; ++i) {
        QVERIFY2(next.settings->ReadEntry(value, prefix, names.at(i)), qPrintable(names.at(i)));
        QCOMPARE(value, QByteArray::number(i));
    }
    QVERIFY(next.settings->EnumKeys(prefix, found));
    QVERIFY(found == names);
}

TEST_CLASS(TestNamedDefaults);
#include "TestNamedDefaults.moc"
