#include "reports/definition/CReportStore.h"

#include "reports/ReportFixture.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

CReportDef Compound() {
    return {.kind = ReportKind::Compound,
            .selection = ReportSelection::Query,
            .useStoredQuery = true,
            .queryName = u"This week"_s,
            .recordIds = {u"0123456789ABCDEF0123456789ABCDEF"_s},
            .groupFields = {FieldId::TimeItem1, FieldId::Date},
            .sumFields = {FieldId::Effective},
            .sortKeys = {{FieldId::Start, -1}, {FieldId::Date, 1}},
            .listFields = {{FieldId::TimeNotes, 0}},
            .title = u"Hours & \"more\" 😀"_s,
            .header = u"above\nin two lines"_s,
            .footer = {},
            .name = {}};
}

/// All of it but the records of a run, which are never stored, and the name, which is that of the entry.
bool HasSameContent(const CReportDef& one, const CReportDef& other) {
    return one.kind == other.kind && one.selection == other.selection &&
           one.useStoredQuery == other.useStoredQuery && one.queryName == other.queryName &&
           one.groupFields == other.groupFields && one.sumFields == other.sumFields &&
           one.sortKeys == other.sortKeys && one.listFields == other.listFields && one.title == other.title &&
           one.header == other.header && one.footer == other.footer;
}

constexpr auto kTime = RecordMode::Time;
const QString kKey = u"GroupedReportsTime"_s;

}  // namespace

class TestCReportStore final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void theKeyOfAKindAndMode_data() {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("time");
        QTest::addColumn<QString>("expense");
        QTest::newRow("grouped") << 0 << u"GroupedReportsTime"_s << u"GroupedReportsExp"_s;
        QTest::newRow("listing") << 1 << u"ListReportsTime"_s << u"ListReportsExp"_s;
        QTest::newRow("compound") << 4 << u"CompReportsTime"_s << u"CompReportsExp"_s;
        QTest::newRow("summary, which is never stored") << 5 << u"OtherReportsTime"_s << u"OtherReportsExp"_s;
        QTest::newRow("unknown") << 3 << u"OtherReportsTime"_s << u"OtherReportsExp"_s;
    }
    void theKeyOfAKindAndMode() {
        QFETCH(int, kind);
        const ReportFixture fixture;
        QTEST(CReportStore::StoreKey(RecordMode::Time, ReportKind(kind)), "time");
        QTEST(CReportStore::StoreKey(RecordMode::Expense, ReportKind(kind)), "expense");
    }

    void whatIsSavedIsLoaded() {
        const ReportFixture fixture;
        CReportStore store(fixture.Settings(), kTime, ReportKind::Compound);
        QVERIFY(store.Save(u"Büro 😀"_s, Compound()));
        CReportDef report;
        QVERIFY(store.Load(u"Büro 😀"_s, report));
        QVERIFY(HasSameContent(report, Compound()));
        QCOMPARE(report.name, u"Büro 😀"_s);
        QVERIFY(report.recordIds.isEmpty());
        QCOMPARE(store.Names(), QStringList{u"Büro 😀"_s});
        // Neither the other mode nor another kind has it.
        QVERIFY(
            CReportStore(fixture.Settings(), RecordMode::Expense, ReportKind::Compound).Names().isEmpty());
        QVERIFY(CReportStore(fixture.Settings(), kTime, ReportKind::Grouped).Names().isEmpty());
    }

    /// Worked out by hand, as scripts outside the program read it.
    void theStoredForm() {
        const ReportFixture fixture;
        CReportStore store(fixture.Settings(), kTime, ReportKind::Compound);
        QVERIFY(store.Save(u"one"_s, Compound()));
        const EntryContent content = fixture.Content(u"CompReportsTime"_s, u"one"_s);
        QCOMPARE(content.Values().size(), std::size_t{11});
        QCOMPARE(*content.FindText(u"ReportType"_s), u"ReportType_Compound"_s);
        QCOMPARE(*content.FindText(u"Selection"_s), u"Selection_Query"_s);
        QCOMPARE(*content.FindText(u"UseStoredQuery"_s), u"On"_s);
        QCOMPARE(*content.FindText(u"QueryName"_s), u"This week"_s);
        QCOMPARE(*content.FindBytes(u"GroupFieldIds"_s), QByteArray::fromHex("02000000 6d000000 88130000"));
        QCOMPARE(*content.FindBytes(u"SumFieldIds"_s), QByteArray::fromHex("01000000 8a130000"));
        QCOMPARE(*content.FindText(u"Title"_s), u"Hours & \"more\" 😀"_s);
        QCOMPARE(*content.FindText(u"Footer"_s), u"<empty text>"_s);
        QCOMPARE(*content.FindBytes(u"SortFieldIds"_s),
                 QByteArray::fromHex("02000000 8d130000 ffffffff 88130000 01000000"));
        QCOMPARE(*content.FindBytes(u"FieldIds"_s), QByteArray::fromHex("01000000 74000000 00000000"));
    }

    void emptyListsHoldTheirCountAlone() {
        const ReportFixture fixture;
        CReportStore store(fixture.Settings(), kTime, ReportKind::Listing);
        QVERIFY(store.Save(u"one"_s, CReportDef()));
        const EntryContent content = fixture.Content(u"ListReportsTime"_s, u"one"_s);
        QCOMPARE(*content.FindBytes(u"GroupFieldIds"_s), QByteArray(4, '\0'));
        QCOMPARE(*content.FindBytes(u"FieldIds"_s), QByteArray(4, '\0'));
        CReportDef report;
        QVERIFY(store.Load(u"one"_s, report));
        QVERIFY(HasSameContent(report, CReportDef()));
    }

    void aSummaryHasNoTypeAndCantBeLoaded() {
        const ReportFixture fixture;
        CReportStore store(fixture.Settings(), kTime, ReportKind::Summary);
        CReportDef report;
        report.kind = ReportKind::Summary;
        QVERIFY(store.Save(u"one"_s, report));
        QVERIFY(!fixture.Content(u"OtherReportsTime"_s, u"one"_s).FindText(u"ReportType"_s));
        report.title = u"kept"_s;
        QVERIFY(!store.Load(u"one"_s, report));
        QCOMPARE(report.title, u"kept"_s);
        QCOMPARE(report.kind, ReportKind::Summary);
    }

    void aDefinitionOfTypeAlone() {
        const ReportFixture fixture;
        fixture.PutText(kKey, u"bare"_s, u"ReportType"_s, u"ReportType_Grouped"_s);
        CReportDef report;
        QVERIFY(CReportStore(fixture.Settings(), kTime, ReportKind::Grouped).Load(u"bare"_s, report));
        CReportDef expected;
        expected.kind = ReportKind::Grouped;
        QVERIFY(HasSameContent(report, expected));
    }

    void whatIsntThereIsntLoadedNorMade() {
        const ReportFixture fixture;
        CReportStore store(fixture.Settings(), kTime, ReportKind::Grouped);
        CReportDef report = Compound();
        QVERIFY(!store.Load(u"nothing"_s, report));
        QVERIFY(HasSameContent(report, Compound()));
        QVERIFY(store.Names().isEmpty());
    }

    void typeAndSelection_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("selection");
        QTest::addColumn<bool>("useStoredQuery");
        const QString type = u"ReportType"_s, selection = u"Selection"_s, use = u"UseStoredQuery"_s;
        QTest::newRow("grouped") << type << u"ReportType_Grouped"_s << 0 << 0 << true;
        QTest::newRow("listing") << type << u"ReportType_Listing"_s << 1 << 0 << true;
        QTest::newRow("compound") << type << u"ReportType_Compound"_s << 4 << 0 << true;
        QTest::newRow("an unknown type is a listing") << type << u"reporttype_grouped"_s << 1 << 0 << true;
        QTest::newRow("selected") << selection << u"Selection_Selected"_s << 0 << 0 << true;
        QTest::newRow("listed") << selection << u"Selection_Listed"_s << 0 << 1 << true;
        QTest::newRow("query") << selection << u"Selection_Query"_s << 0 << 2 << true;
        QTest::newRow("an unknown selection is the list") << selection << u"x"_s << 0 << 1 << true;
        QTest::newRow("a missing selection is the list") << selection << QString() << 0 << 1 << true;
        QTest::newRow("off") << use << u"Off"_s << 0 << 0 << false;
        QTest::newRow("another word is off") << use << u"on"_s << 0 << 0 << false;
        QTest::newRow("a missing word is off") << use << QString() << 0 << 0 << false;
    }
    void typeAndSelection() {
        QFETCH(QString, name);
        QFETCH(QString, text);
        const ReportFixture fixture;
        fixture.PutText(kKey, u"one"_s, u"ReportType"_s, u"ReportType_Grouped"_s);
        fixture.PutText(kKey, u"one"_s, u"Selection"_s, u"Selection_Selected"_s);
        fixture.PutText(kKey, u"one"_s, u"UseStoredQuery"_s, u"On"_s);
        if (text.isEmpty())
            fixture.DropValue(kKey, u"one"_s, name);
        else
            fixture.PutText(kKey, u"one"_s, name, text);
        CReportDef report;
        QVERIFY(CReportStore(fixture.Settings(), kTime, ReportKind::Grouped).Load(u"one"_s, report));
        QTEST(static_cast<int>(report.kind), "kind");
        QTEST(static_cast<int>(report.selection), "selection");
        QTEST(report.useStoredQuery, "useStoredQuery");
    }

    void aTextThatIsntStoredKeepsWhatTheReportHeld() {
        const ReportFixture fixture;
        CReportStore store(fixture.Settings(), kTime, ReportKind::Compound);
        QVERIFY(store.Save(u"one"_s, Compound()));
        fixture.DropValue(u"CompReportsTime"_s, u"one"_s, u"Title"_s);
        fixture.DropValue(u"CompReportsTime"_s, u"one"_s, u"QueryName"_s);
        CReportDef report;
        report.title = u"held"_s;
        report.queryName = u"held too"_s;
        report.footer = u"gone"_s;
        QVERIFY(store.Load(u"one"_s, report));
        QCOMPARE(report.title, u"held"_s);
        QCOMPARE(report.queryName, u"held too"_s);
        QCOMPARE(report.footer, QString());
    }

    void idLists_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QList<int>>("numbers");
        QTest::newRow("two") << Words32({2, 5000, 109}) << QList<int>{5000, 109};
        QTest::newRow("in their order, twice too")
            << Words32({3, 118, 109, 118}) << QList<int>{118, 109, 118};
        QTest::newRow("count 0") << Words32({0}) << QList<int>();
        QTest::newRow("count 0 with a field behind it") << Words32({0, 109}) << QList<int>();
        QTest::newRow("fewer than counted") << Words32({3, 5000, 109}) << QList<int>();
        QTest::newRow("more than counted") << Words32({1, 5000, 109}) << QList<int>();
        QTest::newRow("half a number at the end") << Words32({1, 5000}) + "ab" << QList<int>();
        QTest::newRow("half a count") << QByteArray("\1\0", 2) << QList<int>();
        QTest::newRow("a count below 0") << Words32({-1}) << QList<int>();
        // 4 times 2 to the 30 is 0 in 32 bits.
        QTest::newRow("a count that wraps") << Words32({0x40000000}) << QList<int>();
        QTest::newRow("a count that wraps to one field") << Words32({0x40000001, 109}) << QList<int>();
        QTest::newRow("an unknown field is left out")
            << Words32({3, 5000, 9999, 109}) << QList<int>{5000, 109};
        QTest::newRow("only unknown ones") << Words32({3, 0, -109, 146}) << QList<int>();
        QTest::newRow("a field of the other kind of records stays") << Words32({1, 131}) << QList<int>{131};
        QTest::newRow("a field that groups nothing stays") << Words32({1, 116}) << QList<int>{116};
    }
    void idLists() {
        QFETCH(QByteArray, bytes);
        const ReportFixture fixture;
        fixture.PutText(kKey, u"one"_s, u"ReportType"_s, u"ReportType_Grouped"_s);
        fixture.PutBytes(kKey, u"one"_s, u"GroupFieldIds"_s, bytes);
        CReportStore store(fixture.Settings(), kTime, ReportKind::Grouped);
        CReportDef report;
        report.groupFields = {FieldId::Billed};
        QVERIFY(store.Load(u"one"_s, report));
        QList<int> numbers;
        for (const FieldId field : report.groupFields) numbers << NumberOf(field);
        QTEST(numbers, "numbers");
        // By the next save what was left out is gone from the settings, too.
        QVERIFY(store.Save(u"one"_s, report));
        const QByteArray stored = *fixture.Content(kKey, u"one"_s).FindBytes(u"GroupFieldIds"_s);
        QCOMPARE(stored.size(), 4 * (numbers.size() + 1));
    }

    void pairLists_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QList<int>>("numbers");
        QTest::newRow("two") << Words32({2, 5000, -1, 109, 1}) << QList<int>{5000, -1, 109, 1};
        QTest::newRow("other directions stay")
            << Words32({2, 5000, 0, 109, 7}) << QList<int>{5000, 0, 109, 7};
        QTest::newRow("half a pair") << Words32({2, 5000, -1, 109}) << QList<int>();
        QTest::newRow("a count as of single fields") << Words32({2, 5000, 109}) << QList<int>();
        // 8 times 2 to the 29 is 0 in 32 bits.
        QTest::newRow("a count that wraps") << Words32({0x20000000}) << QList<int>();
        QTest::newRow("an unknown field goes with its direction")
            << Words32({2, 9999, -1, 109, 1}) << QList<int>{109, 1};
    }
    void pairLists() {
        QFETCH(QByteArray, bytes);
        const ReportFixture fixture;
        fixture.PutText(kKey, u"one"_s, u"ReportType"_s, u"ReportType_Grouped"_s);
        fixture.PutBytes(kKey, u"one"_s, u"SortFieldIds"_s, bytes);
        CReportDef report;
        report.sortKeys = {{FieldId::Billed, 1}};
        QVERIFY(CReportStore(fixture.Settings(), kTime, ReportKind::Grouped).Load(u"one"_s, report));
        QList<int> numbers;
        for (const SortKey& key : report.sortKeys) numbers << NumberOf(key.fieldId) << key.direction;
        QTEST(numbers, "numbers");
    }

    /// The kind that it says of itself goes into the store, the key stays.
    void anUnknownTypeIsWrittenBackAsAListing() {
        const ReportFixture fixture;
        fixture.PutText(kKey, u"one"_s, u"ReportType"_s, u"something"_s);
        CReportStore store(fixture.Settings(), kTime, ReportKind::Grouped);
        CReportDef report;
        QVERIFY(store.Load(u"one"_s, report));
        QCOMPARE(report.kind, ReportKind::Listing);
        QVERIFY(store.Save(u"one"_s, report));
        QCOMPARE(*fixture.Content(kKey, u"one"_s).FindText(u"ReportType"_s), u"ReportType_Listing"_s);
    }

    void textsUpToTheLongestThatAreStored_data() {
        QTest::addColumn<int>("length");
        QTest::addColumn<bool>("isSaved");
        QTest::newRow("4096 characters") << 4096 << true;
        QTest::newRow("4097 characters") << 4097 << false;
    }
    /// The footer is written last of the texts: before the first value of the definition it is refused.
    void textsUpToTheLongestThatAreStored() {
        QFETCH(int, length);
        QFETCH(bool, isSaved);
        ReportFixture fixture;
        CReportStore store(fixture.Settings(), kTime, ReportKind::Compound);
        QVERIFY(store.Save(u"one"_s, Compound()));
        CReportDef report = Compound();
        report.title = u"other"_s;
        report.footer = QString(length, u'ä');
        if (!isSaved) fixture.home.prompt.ExpectTold(Text::ValueRefusedLarge);
        QCOMPARE(store.Save(u"one"_s, report), isSaved);
        fixture.home.prompt.Finish();
        CReportDef stored;
        QVERIFY(store.Load(u"one"_s, stored));
        QVERIFY(HasSameContent(stored, isSaved ? report : Compound()));
    }

    /// No box: the caller goes on with what it holds in memory.
    void aSaveThatFailsKeepsTheFormerDefinition() {
        ReportFixture fixture;
        CReportStore store(fixture.Settings(), kTime, ReportKind::Compound);
        QVERIFY(store.Save(u"one"_s, Compound()));
        CReportDef report = Compound();
        report.title = u"other"_s;
        QVERIFY(
            fixture.home.tree.File().Execute("CREATE TRIGGER no BEFORE INSERT ON entries WHEN NEW.name = "
                                             "'FieldIds' BEGIN SELECT RAISE(FAIL, 'no'); END"));
        QVERIFY(!store.Save(u"one"_s, report));
        QVERIFY(!store.Rename(u"one"_s, u"two"_s, report));
        QCOMPARE(store.Names(), QStringList{u"one"_s});
        fixture.home.prompt.Finish();
        CReportDef stored;
        QVERIFY(store.Load(u"one"_s, stored));
        QVERIFY(HasSameContent(stored, Compound()));
    }

    void renameReplacesWithoutAQuestion() {
        const ReportFixture fixture;
        CReportStore store(fixture.Settings(), kTime, ReportKind::Compound);
        QVERIFY(store.Save(u"one"_s, CReportDef()));
        QVERIFY(store.Save(u"two"_s, CReportDef()));
        QVERIFY(store.Rename(u"one"_s, u"two"_s, Compound()));
        QCOMPARE(store.Names(), QStringList{u"two"_s});
        CReportDef stored;
        QVERIFY(store.Load(u"two"_s, stored));
        QVERIFY(HasSameContent(stored, Compound()));
        QVERIFY(!store.Rename(u"one"_s, u"three"_s, Compound()));
        QCOMPARE(store.Names(), QStringList{u"two"_s});
    }

    void names() {
        const ReportFixture fixture;
        CReportStore store(fixture.Settings(), kTime, ReportKind::Compound);
        for (const QString& name : {u"b/\\%1"_s, u"(last used)"_s, u"a"_s, u"A"_s})
            QVERIFY(store.Save(name, Compound()));
        QCOMPARE(store.Names(), (QStringList{u"b/\\%1"_s, u"(last used)"_s, u"a"_s, u"A"_s}));
        QCOMPARE(store.Alike(u"A"_s), (QStringList{u"a"_s, u"A"_s}));
        QCOMPARE(store.Find(u"A"_s), u"A"_s);
        QCOMPARE(store.Find(u"B/\\%1"_s), u"b/\\%1"_s);
        QVERIFY(!store.Find(u"c"_s));
        QVERIFY(store.Delete(u"a"_s));
        QVERIFY(!store.Delete(u"a"_s));
        QCOMPARE(store.Find(u"a"_s), u"A"_s);
        QVERIFY(CReportStore::IsReserved(u"(LAST Used)"_s));
        QVERIFY(!CReportStore::IsReserved(u"last used"_s));
    }
};

TEST_CLASS(TestCReportStore);
#include "TestCReportStore.moc"
