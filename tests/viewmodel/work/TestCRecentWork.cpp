#include "viewmodel/work/CRecentWork.h"

#include "WorkRecords.h"
#include "support/TestProgram.h"

using namespace Qt::Literals::StringLiterals;

namespace {

struct Fixture : WorkRecords {
    CRecentWork recent{*home.document};

    Fixture() { Load(); }
    /// The works in words, after the views were told of every change.
    [[nodiscard]] QStringList Words() {
        for (const auto& [hint, ids] : std::exchange(home.views.seen, {})) recent.OnHint(hint);
        QStringList words;
        for (const CRecentWork::Entry& entry : recent.Entries()) words << WorkWords(entry.work);
        return words;
    }
};

}  // namespace

class TestCRecentWork final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void eachOnceTheNewestFirst() {
        Fixture fixture;
        fixture.Add(16, {.client = u"A"_s, .project = u"Alpha"_s});
        fixture.Add(18, {.client = u"B"_s});
        fixture.Add(17, {.client = u"A"_s, .project = u"Alpha"_s, .notes = u"other notes"_s});
        fixture.Add(17, {.client = u"A"_s, .project = u"Beta"_s, .start = u"14:00"_s});
        fixture.Add(17, {.client = u"C"_s, .start = u"15:00"_s});
        QCOMPARE(fixture.Words(), (QStringList{u"B"_s, u"C"_s, u"A · Beta"_s, u"A · Alpha"_s}));
    }

    void noonComesAfterMidnight() {
        Fixture fixture;
        fixture.Add(18, {.client = u"midnight"_s, .start = u"00:30"_s});
        fixture.Add(18, {.client = u"noon"_s, .start = u"12:15"_s});
        fixture.Add(18, {.client = u"without a start"_s});
        QCOMPARE(fixture.Words(), (QStringList{u"noon"_s, u"midnight"_s, u"without a start"_s}));
    }

    void ofTheSameMinuteTheOneMadeLater() {
        Fixture fixture;
        for (const auto& client : {u"B"_s, u"C"_s, u"A"_s})
            fixture.Add(18, {.client = client, .start = u"09:00"_s});
        QCOMPARE(fixture.Words(), (QStringList{u"A"_s, u"C"_s, u"B"_s}));
    }

    void notesAloneAreWorkToo() {
        Fixture fixture;
        fixture.Add(18, {.notes = u"Mails\nand calls"_s});
        fixture.Add(17, {});
        QCOMPARE(fixture.Words(), QStringList{u"Mails"_s});
        QCOMPARE(fixture.recent.Entries().front().work.notes, u"Mails\nand calls"_s);
        QVERIFY(fixture.recent.Notes().isEmpty());
        fixture.Add(18, {.client = u"A"_s, .notes = u"a line"_s});
        QCOMPARE(fixture.Words().size(), 2);
        QCOMPARE(fixture.recent.Notes(), QStringList{u"a line"_s});
    }

    /// Today is the last day that counts.
    void plansDontCount() {
        Fixture fixture;
        fixture.Add(19, {.client = u"today"_s, .start = u"23:59"_s});
        fixture.Add(20, {.client = u"tomorrow"_s});
        QCOMPARE(fixture.Words(), QStringList{u"today"_s});
        fixture.home.clock.Advance(24 * 3600);
        QCOMPARE(fixture.Words(), (QStringList{u"tomorrow"_s, u"today"_s}));
    }

    void olderOnesOnlyWhereTheLastWeeksKnowTooLittle() {
        Fixture fixture;
        fixture.Add(2024, 2, 29, {.client = u"long ago"_s});
        fixture.Add(2026, 3, 1, {.client = u"this year"_s});
        for (int day = 1; day <= 8; ++day) fixture.Add(day, {.client = QString::number(day)});
        const QStringList last{u"8"_s, u"7"_s, u"6"_s, u"5"_s, u"4"_s, u"3"_s, u"2"_s, u"1"_s};
        QCOMPARE(fixture.Words(), last + QStringList{u"this year"_s});
        fixture.Add(9, {.client = u"9"_s});
        QCOMPARE(fixture.Words(), QStringList{u"9"_s} + last);
    }

    void changesAreTakenIn() {
        Fixture fixture;
        const QString id = fixture.Add(18, {.client = u"A"_s});
        QCOMPARE(fixture.Words(), QStringList{u"A"_s});
        CTRecord record;
        record.Copy(*fixture.home.document->FindTime(id));
        record.item1 = u"B"_s;
        QVERIFY(fixture.home.document->ModifyRecord(record, id, {Notify::Yes, Commit::Now}));
        QCOMPARE(fixture.Words(), QStringList{u"B"_s});
        QVERIFY(fixture.home.document->DeleteRecord(RecordKind::Time, id, Notify::Yes));
        QVERIFY(fixture.Words().isEmpty());
    }

    void expensesLeaveItAsItWas() {
        Fixture fixture;
        fixture.Add(18, {.client = u"A"_s, .currency = u"EUR"_s, .rate = 80.0F});
        QCOMPARE(fixture.Words(), QStringList{u"A"_s});
        fixture.home.document->SwitchMode(RecordMode::Expense);
        QCOMPARE(fixture.Words(), QStringList{u"A"_s});
        const WorkTerms terms = fixture.recent.TermsFor({.items = {u"A"_s, u"new"_s}, .notes = {}});
        QCOMPARE(terms.rate, std::optional(80.0F));
    }

    void termsOfTheSameWorkBeforeThoseOfTheClient() {
        Fixture fixture;
        fixture.Add(16, {.client = u"A"_s, .project = u"Alpha"_s, .currency = u"EUR"_s, .rate = 80.0F});
        fixture.Add(18, {.client = u"A"_s, .project = u"Beta"_s, .currency = u"USD"_s, .rate = 95.0F});
        fixture.Add(17, {.client = u"B"_s, .rate = 10.0F});
        const WorkTerms alpha = fixture.recent.TermsFor({.items = {u"A"_s, u"Alpha"_s}, .notes = u"x"_s});
        QCOMPARE(alpha, (WorkTerms{.currency = u"EUR"_s, .isBillable = true, .rate = 80.0F}));
        const WorkTerms other = fixture.recent.TermsFor({.items = {u"A"_s, u"Gamma"_s}, .notes = {}});
        QCOMPARE(other, (WorkTerms{.currency = u"USD"_s, .isBillable = true, .rate = 95.0F}));
        QCOMPARE(fixture.recent.TermsFor({.items = {u"nobody"_s}, .notes = {}}), WorkTerms());
        QCOMPARE(fixture.recent.TermsFor({.items = {QString(), u"Alpha"_s}, .notes = {}}), WorkTerms());
    }

    void termsOfAClientOfLongAgo() {
        Fixture fixture;
        fixture.Add(2019, 1, 7, {.client = u"Old"_s, .rate = 50.0F});
        for (int day = 1; day <= 9; ++day) fixture.Add(day, {.client = QString::number(day)});
        QVERIFY(!fixture.Words().contains(u"Old"_s));
        QCOMPARE(fixture.recent.TermsFor({.items = {u"Old"_s}, .notes = {}}).rate, std::optional(50.0F));
    }

    void whatIsNotBillableHasNoRate() {
        Fixture fixture;
        fixture.Add(16, {.client = u"A"_s, .rate = 80.0F});
        fixture.Add(18, {.client = u"A"_s});
        QCOMPARE(fixture.recent.TermsFor({.items = {u"A"_s}, .notes = {}}), WorkTerms());
    }
};

TEST_CLASS(TestCRecentWork);
#include "TestCRecentWork.moc"
