#include "cli/commands/CListedRecords.h"

#include "app/CVelmarchDoc.h"
#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

/// More than a list holds in memory; ten records a day.
constexpr int kDays = 330;
constexpr int kADay = 10;

}  // namespace

/// A list that is longer than what it holds in memory, and a store that changes while it is shown.
class TestCListedRecords : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init();
    void cleanup() { m_home.reset(); }
    void TheOrderIsThatOfDays();
    void ALimit_data();
    void ALimit();
    void OtherOrders_data();
    void OtherOrders();
    void ALimitIsTheBeginningOfAll_data();
    void ALimitIsTheBeginningOfAll();
    void TheSumsAreOfAll();
    void AChangeMeanwhile_data();
    void AChangeMeanwhile();
    void TheShowingMayEnd();
    void NothingIsHeldWhileItIsShown();

 private:
    /// Notes of the shown records, and what went missing: "0001 0002 -1". then: done when so many were shown.
    QString Shown(CListedRecords& list, int after = -1, const std::function<void()>& then = {});
    QString Shown(const ListOrder& order, int after = -1, const std::function<void()>& then = {});
    /// The notes of all records from one on, in the order of their days.
    static QStringList Expected();
    bool Execute(const QString& statement) {
        return m_home->manager.File().Execute(
            statement.arg(m_home->store->TableName(RecordKind::Time)).toUtf8());
    }
    std::unique_ptr<TestHome> m_home;
};

/// The later of a day starts earlier; the days are added from the last to the first.
void TestCListedRecords::init() {
    m_home = std::make_unique<TestHome>();
    for (int day = kDays - 1; day >= 0; --day) {
        for (int i = 0; i < kADay; ++i) {
            CTRecord record;
            record.GenUnique();
            record.date.Set(1 + day / 28 % 12, 1 + day % 28, 2020 + day / 336);
            const int hour = 20 - i;
            record.SetStart(hour > 12 ? hour - 12 : hour, 0, hour >= 12);
            record.notes = QString::asprintf("%04d", day * kADay + (kADay - 1 - i));
            record.item1 = QString::number(record.notes.toInt() * 7919 % 3301);  // in no order
            QVERIFY(m_home->store->InsertRecord(record, Commit::Later));
        }
    }
    QVERIFY(m_home->store->Commit());
}

QStringList TestCListedRecords::Expected() {
    QStringList notes;
    for (int i = 0; i < kDays * kADay; ++i) notes.append(QString::asprintf("%04d", i));
    return notes;
}

QString TestCListedRecords::Shown(CListedRecords& list, int after, const std::function<void()>& then) {
    QStringList notes;
    const bool isRead = list.ForEachShown([&](const CVORec& record) {
        notes.append(static_cast<const CTRecord&>(record).notes);
        if (notes.size() == after) then();
        return true;
    });
    if (!isRead) return u"failed"_s;
    if (list.MissingCount() > 0) notes.append(u"-%1"_s.arg(list.MissingCount()));
    return notes.join(u' ');
}

QString TestCListedRecords::Shown(const ListOrder& order, int after, const std::function<void()>& then) {
    CRecordReader reader(*m_home->document, RecordKind::Time, nullptr);
    CListedRecords list(reader, order);
    if (!list.Find([](const CVORec&) {})) return u"failed"_s;
    return Shown(list, after, then);
}

void TestCListedRecords::TheOrderIsThatOfDays() {
    QCOMPARE(Shown(ListOrder{}), Expected().join(u' '));
}

void TestCListedRecords::ALimit_data() {
    QTest::addColumn<int>("limit");
    for (const int limit : {1, 5, 10, 11, 1999, 2000, 2001, 2505, 3299, 3300, 5000})
        QTest::addRow("%d", limit) << limit;
}

void TestCListedRecords::ALimit() {
    QFETCH(int, limit);
    CRecordReader reader(*m_home->document, RecordKind::Time, nullptr);
    CListedRecords list(reader, {.limit = static_cast<std::size_t>(limit)});
    int measured = 0;
    QVERIFY(list.Find([&](const CVORec&) { ++measured; }));
    QCOMPARE(list.Count(), std::size_t{kDays * kADay});
    QCOMPARE(Shown(list), Expected().mid(0, limit).join(u' '));
    QCOMPARE(measured, std::min(limit, kDays * kADay));
}

void TestCListedRecords::OtherOrders_data() {
    QTest::addColumn<bool>("isDescending");
    QTest::addColumn<int>("limit");
    QTest::addColumn<QString>("first");
    QTest::addColumn<int>("count");
    QTest::newRow("from the end") << true << 0 << u"3299 3298 3297"_s << 3300;
    QTest::newRow("the last three") << true << 3 << u"3299 3298 3297"_s << 3;
    QTest::newRow("the first three") << false << 3 << u"0000 0001 0002"_s << 3;
    QTest::newRow("a limit of one") << true << 1 << u"3299"_s << 1;
    QTest::newRow("a limit beyond all") << false << 4000 << u"0000 0001 0002"_s << 3300;
}

void TestCListedRecords::OtherOrders() {
    QFETCH(bool, isDescending);
    QFETCH(int, limit);
    QFETCH(int, count);
    const RecordColumn* notes = FindRecordColumn(RecordKind::Time, u"notes"_s);
    const QString shown = Shown(ListOrder{notes, isDescending, static_cast<std::size_t>(limit)});
    QCOMPARE(shown.count(u' ') + 1, count);
    QFETCH(QString, first);
    QCOMPARE(shown.left(first.size()), first);
}

void TestCListedRecords::ALimitIsTheBeginningOfAll_data() {
    QTest::addColumn<QString>("column");
    QTest::addColumn<bool>("isDescending");
    for (const char* column : {"notes", "start", "date", "id", "item1"}) {
        QTest::addRow("%s", column) << QString::fromLatin1(column) << false;
        QTest::addRow("%s, descending", column) << QString::fromLatin1(column) << true;
    }
}

void TestCListedRecords::ALimitIsTheBeginningOfAll() {
    QFETCH(QString, column);
    QFETCH(bool, isDescending);
    const RecordColumn* order = FindRecordColumn(RecordKind::Time, column);
    const QStringList all = Shown(ListOrder{order, isDescending}).split(u' ');
    QCOMPARE(all.size(), kDays * kADay);
    for (const int limit : {1, 2, 7, 100}) {
        const QString shown = Shown(ListOrder{order, isDescending, static_cast<std::size_t>(limit)});
        QCOMPARE(shown, all.mid(0, limit).join(u' '));
    }
}

void TestCListedRecords::TheSumsAreOfAll() {
    QVERIFY(Execute(u"UPDATE %1 SET item5='EUR', amount=2.5, billable=1"_s));
    CRecordReader reader(*m_home->document, RecordKind::Time, nullptr);
    CListedRecords list(reader, {.limit = 3});
    QVERIFY(list.Find([](const CVORec&) {}));
    QCOMPARE(list.Sums().size(), 1);
    QCOMPARE(list.Sums()[u"EUR"_s].amount, 8250.0);
}

void TestCListedRecords::AChangeMeanwhile_data() {
    QTest::addColumn<QString>("statement");
    QTest::addColumn<QString>("gone");     // notes that aren't shown
    QTest::addColumn<QString>("instead");  // what is shown in their place
    QTest::newRow("nothing") << u"UPDATE %1 SET notes=notes"_s << QString() << QString();
    QTest::newRow("a record is deleted") << u"DELETE FROM %1 WHERE notes='3000'"_s << u"3000"_s << QString();
    QTest::newRow("a record changes")
        << u"UPDATE %1 SET notes='new' WHERE notes='3000'"_s << u"3000"_s << u"new"_s;
    QTest::newRow("a record moves, and is shown once, in its place")
        << u"UPDATE %1 SET notes='new', year=2019 WHERE notes='3000'"_s << u"3000"_s << u"new"_s;
    QTest::newRow("one moves to the front of its day")
        << u"UPDATE %1 SET notes='new', start_hour=1 WHERE notes='3009'"_s << u"3009"_s << u"new"_s;
    QTest::newRow("one is added")
        << u"INSERT INTO %1 SELECT start_hour, start_minute, start_pm, end_hour, end_minute, end_pm, item1, "
           "item2, item3, item4, rate, item5, amount, billable, billed, exported, duration_hours, "
           "duration_minutes, break_hours, break_minutes, month, day, year, 'new', "
           "'000000000000000000000000000000AB' FROM %1 WHERE notes='3000'"_s
        << QString() << QString();
}

/// After 2,100 records, of which 2,000 are held.
void TestCListedRecords::AChangeMeanwhile() {
    QFETCH(QString, statement);
    QFETCH(QString, gone);
    QFETCH(QString, instead);
    QStringList expected = Expected();
    if (!gone.isEmpty() && !instead.isEmpty()) expected.replace(expected.indexOf(gone), instead);
    if (!gone.isEmpty() && instead.isEmpty()) {
        expected.removeOne(gone);
        expected.append(u"-1"_s);
    }
    TestHome other(m_home->Path());
    const QString shown = Shown(ListOrder{}, 2100, [&] {
        QVERIFY(other.manager.File().Execute(
            QString(statement).replace(u"%1"_s, other.store->TableName(RecordKind::Time)).toUtf8()));
    });
    QCOMPARE(shown, expected.join(u' '));
}

void TestCListedRecords::TheShowingMayEnd() {
    CRecordReader reader(*m_home->document, RecordKind::Time, nullptr);
    for (const int last : {1, 1500, 2300}) {
        CListedRecords list(reader, {});
        QVERIFY(list.Find([](const CVORec&) {}));
        int shown = 0;
        QVERIFY(list.ForEachShown([&](const CVORec&) { return ++shown < last; }));
        QCOMPARE(shown, last);
    }
}

/// A pager may stand still for hours.
void TestCListedRecords::NothingIsHeldWhileItIsShown() {
    TestHome other(m_home->Path());
    other.manager.m_busySeconds = 0;
    CRecordReader reader(*m_home->document, RecordKind::Time, nullptr);
    CListedRecords list(reader, {});
    QVERIFY(list.Find([](const CVORec&) {}));
    int shown = 0;
    QVERIFY(list.ForEachShown([&](const CVORec&) {
        const bool isLooked = ++shown % 250 == 0;
        return !isLooked ||
               (other.manager.File().Execute("BEGIN EXCLUSIVE") && other.manager.File().Execute("COMMIT"));
    }));
    QCOMPARE(shown, kDays * kADay);
}

TEST_CLASS(TestCListedRecords);
#include "TestCListedRecords.moc"
