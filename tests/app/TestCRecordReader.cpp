#include "app/CRecordReader.h"

#include "DocumentFixture.h"
#include "app/CTimerService.h"
#include "support/TestProgram.h"

using namespace Qt::Literals::StringLiterals;

/// What a list reads of the store without loading it.
class TestCRecordReader : public QObject {
    Q_OBJECT

    std::unique_ptr<DocumentFixture> fixture;
    CVelmarchDoc* document = nullptr;

    /// The first items of what is read, joined; "failed" when it can't be read.
    [[nodiscard]] QString All(CRecordReader::Order order = CRecordReader::Order::OfDays) {
        QStringList items;
        CRecordReader reader(*document, fixture->kind, nullptr);
        const bool isRead = reader.ReadAll(order, [&](std::unique_ptr<CVORec> record) {
            items.append(DocumentFixture::Item1Of(record.get()));
        });
        return isRead ? items.join(u' ') : u"failed"_s;
    }
    [[nodiscard]] QString These(const QStringList& ids) {
        QStringList items;
        CRecordReader reader(*document, fixture->kind, nullptr);
        const bool isRead = reader.Read(ids, [&](std::unique_ptr<CVORec> record) {
            items.append(DocumentFixture::Item1Of(record.get()));
        });
        return isRead ? items.join(u' ') : u"failed"_s;
    }
    /// How many rows the conditions of the filter let through.
    [[nodiscard]] int RowsRead() {
        const PeriodContext context = document->GetPeriodContext();
        const RowConditions conditions = fixture->kind == RecordKind::Time
                                             ? document->Filter().Conditions(context)
                                             : document->FilterOfExpenses().Conditions(context);
        QStringList rows;
        const bool isRead =
            document->Store().QueryTexts(document->Store().Select(fixture->kind, conditions), rows);
        return isRead ? static_cast<int>(rows.size()) : -1;
    }

 private Q_SLOTS:
    void initTestCase_data() { DocumentFixture::AddModes(); }
    void init() {
        QFETCH_GLOBAL(RecordMode, mode);
        fixture = std::make_unique<DocumentFixture>(mode);
        document = fixture->document;
    }
    void cleanup() { fixture.reset(); }

    void OrderOfDays() {
        for (const int day : {7, 2, 30, 1}) fixture->AddOnDay(day, QString::number(day));
        QCOMPARE(All(), u"1 2 7 30"_s);
        QCOMPARE(All(CRecordReader::Order::Any).size(), All().size());
        QCOMPARE(document->RecordCount(), std::size_t{4});  // those that were added, and no more
    }

    void ManyRows() {
        fixture->AddMany(600, fixture->kind);
        QCOMPARE(All().count(u' '), 599);
    }

    void OfDays_data() {
        QTest::addColumn<int>("first");
        QTest::addColumn<int>("last");
        QTest::addColumn<QString>("items");
        QTest::newRow("some days, both ends included") << 2 << 4 << u"2 3 4"_s;
        QTest::newRow("one day") << 5 << 5 << u"5"_s;
        QTest::newRow("days without records") << 20 << 25 << QString();
        QTest::newRow("the last before the first is that last day") << 4 << 2 << u"2"_s;
    }
    void OfDays() {
        QFETCH(int, first);
        QFETCH(int, last);
        for (int day = 1; day <= 6; ++day) fixture->AddOnDay(day, QString::number(day));
        DateTimeVal from, to;
        QVERIFY(from.SetDate(11, first, 2026));
        QVERIFY(to.SetDate(11, last, 2026));
        document->FilterOf(fixture->kind).SetRange(from, to, document->GetPeriodContext());
        QTEST(All(), "items");
        const QString items = All();
        QCOMPARE(RowsRead(), items.isEmpty() ? 0 : static_cast<int>(items.count(u' ')) + 1);
    }

    void ByText_data() {
        QTest::addColumn<QString>("wanted");
        QTest::addColumn<bool>("isWhole");
        QTest::addColumn<bool>("isExact");
        QTest::addColumn<QString>("items");
        QTest::addColumn<int>("read");  // records that had to be looked at
        QTest::newRow("whole, case counts") << u"Kiel"_s << true << true << u"Kiel"_s << 1;
        QTest::newRow("whole") << u"KIEL"_s << true << false << u"Kiel kiel \u212Aiel"_s << 4;
        QTest::newRow("held") << u"ie"_s << false << false << u"Kiel kiel \u212Aiel"_s << 4;
        QTest::newRow("other letters") << u"mÜLL"_s << false << false << u"Müller"_s << 2;
        QTest::newRow("an empty text, whole") << QString() << true << true << QString() << 6;
        QTest::newRow("an empty text")
            << QString() << false << true << u"Kiel kiel \u212Aiel Müller Beta "_s << 6;
    }
    /// The rule decides; the store only leaves out what can't pass.
    void ByText() {
        QFETCH(QString, wanted);
        int day = 0;
        for (const QString& item : {u"Kiel"_s, u"kiel"_s, u"\u212Aiel"_s, u"Müller"_s, u"Beta"_s, QString()})
            fixture->AddOnDay(++day, item);
        PeriodFilter& filter = document->FilterOf(fixture->kind);
        (fixture->kind == RecordKind::Time ? document->Filter().items
                                           : document->FilterOfExpenses().items)[0] = wanted;
        QFETCH(bool, isWhole);
        QFETCH(bool, isExact);
        filter.matchWhole = isWhole;
        filter.matchCase = isExact;
        QTEST(All(), "items");
        QTEST(RowsRead(), "read");
    }

    void ByIdentities() {
        const QString a = fixture->AddOnDay(1, u"a"_s), b = fixture->AddOnDay(2, u"b"_s);
        const QString c = fixture->AddOnDay(3, u"c"_s), none(32, u'0');
        QCOMPARE(These({c, a}), u"c a"_s);
        QCOMPARE(These({c, none, b}), u"c absent b"_s);
        QCOMPARE(These({u"' OR 1=1 --"_s}), u"absent"_s);
        // What another program has changed shows; what doesn't pass any more is absent.
        QVERIFY(fixture->Execute(u"UPDATE %1 SET item1='x', day=4 WHERE identity='"_s + b + u'\''));
        QCOMPARE(These({a, b}), u"a x"_s);
        fixture->ShowOnlyDay(1);
        QCOMPARE(These({a, b}), u"a absent"_s);
    }

    void OthersMayWriteWhileItIsShown() {
        const QString a = fixture->AddOnDay(1, u"a"_s), b = fixture->AddOnDay(2, u"b"_s);
        DocumentFixture other(theRecordMode, fixture->home.Path());
        other.home.manager.m_busySeconds = 0;
        CRecordReader reader(*document, fixture->kind, nullptr);
        int shown = 0;
        QVERIFY(reader.Read({a, b}, [&](const std::unique_ptr<CVORec>&) {
            QCOMPARE(other.AddOnDay(5).size(), 32);
            ++shown;
        }));
        QCOMPARE(shown, 2);
    }

    void ATableWithAnotherColumn() {
        fixture->AddOnDay(2, u"b"_s);
        fixture->AddOnDay(1, u"a"_s);
        fixture->SpoilBulkPath();
        QCOMPARE(All(), u"a b"_s);
    }

    void AStoreThatCantBeRead() {
        fixture->AddOnDay(1, u"a"_s);
        QVERIFY(fixture->Execute(u"DROP TABLE %1"_s));
        fixture->home.prompt.ExpectTold(Text::QueryFailed);
        QCOMPARE(All(), u"failed"_s);
    }
};

TEST_CLASS(TestCRecordReader);
#include "TestCRecordReader.moc"
