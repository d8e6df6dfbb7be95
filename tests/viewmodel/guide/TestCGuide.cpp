#include "viewmodel/guide/CGuide.h"

#include "changes/ChangesFixture.h"
#include "entry/NamedDefaults.h"
#include "fields/ListId.h"
#include "lang/LoadText.h"
#include "records/CTRecord.h"
#include "support/TestProgram.h"
#include "viewmodel/guide/GuideNames.h"

#include <QTest>
#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The region of a German user.
const RegionalHabits kGerman{.firstDayOfWeek = 1, .currency = u"EUR"_s};

/// What a carpenter in Germany enters.
GuideDraft Entered(GuideDraft draft) {
    draft.client = u" Harbour Ltd "_s;
    draft.project = u"Pier 7"_s;
    draft.rate = u"62.5"_s;
    return draft;
}

}  // namespace

class TestCGuide final : public QObject {
    Q_OBJECT

    std::unique_ptr<ChangesFixture<>> m_fixture;

    [[nodiscard]] TestHome& Home() { return m_fixture->home; }
    [[nodiscard]] CGuide Guide(const RegionalHabits& habits = kGerman) {
        return CGuide({.document = *Home().document,
                       .timers = m_fixture->timers,
                       .settings = *Home().settings,
                       .catalogue = *Home().catalogue,
                       .changes = m_fixture->changes,
                       .clock = Home().clock,
                       .habits = habits});
    }
    [[nodiscard]] QString Label(FieldId field) {
        return Home().catalogue->Labels().GetLabel(NumberOf(field));
    }
    [[nodiscard]] QStringList Items(int list) { return Home().catalogue->Texts(list); }
    /// Inserting such a row fails from here on.
    void Refuse(const char* table) {
        m_fixture->Run(QByteArray("CREATE TRIGGER refuse BEFORE INSERT ON ") + table +
                       " BEGIN SELECT RAISE(FAIL, 'refused'); END");
    }

 private Q_SLOTS:
    void init() {
        m_fixture = std::make_unique<ChangesFixture<>>();
        m_fixture->Load();
    }
    void cleanup() { m_fixture.reset(); }

    // --- What the pages propose

    void TheFirstTimeTheRegionSpeaks() {
        QVERIFY(WantGuide(*Home().settings));
        const GuideDraft draft = Guide().Proposal();
        QCOMPARE(draft.words, GuideWords::Plain);
        QCOMPARE(draft.currency, u"EUR"_s);
        QCOMPARE(draft.firstDayOfWeek, 1);
        QCOMPARE(draft.spanFormat, 1);
        QCOMPARE(draft.durationPlaces, 4);
        QCOMPARE(draft.clockFormat, 12);
        QCOMPARE(draft.distanceUnit, 2);
        QVERIFY(draft.client.isEmpty() && draft.project.isEmpty() && draft.rate.isEmpty());
        QVERIFY(!draft.startsTimer);
    }
    void ARegionThatSaysNothingLeavesTheDefaults() {
        QVERIFY(WantGuide(*Home().settings));
        const GuideDraft draft = Guide({}).Proposal();
        QCOMPARE(draft.currency, QString());
        QCOMPARE(draft.firstDayOfWeek, 0);
    }
    void LaterWhatIsSetSpeaks() {
        Home().settings->firstDayOfWeek = 6;
        Home().settings->precisionDuration = 4;
        const GuideDraft draft = Guide().Proposal();
        QCOMPARE(draft.firstDayOfWeek, 6);
        QCOMPARE(draft.spanFormat, 0);
        QCOMPARE(draft.durationPlaces, 4);
        QCOMPARE(draft.currency, QString());
    }
    void OwnNamesStayUnlessOthersAreChosen() {
        QVERIFY(Home().catalogue->SetNames({{109, u"Patient"_s}}));
        const GuideDraft draft = Guide().Proposal();
        QCOMPARE(draft.words, GuideWords::AsNow);
        QVERIFY(Guide().Store(draft));
        QCOMPARE(Label(FieldId::TimeItem1), u"Patient"_s);
    }

    // --- Names

    void Names_data() {
        QTest::addColumn<int>("words");
        QTest::addColumn<QString>("person");
        QTest::addColumn<QString>("work");
        QTest::addColumn<QStringList>("time");     // client, project, activity
        QTest::addColumn<QStringList>("expense");  // client, project
        QTest::addColumn<QString>("heading");      // of the list of clients
        const auto row = [](const char* name, GuideWords words, const QString& person, const QString& work,
                            const QStringList& time, const QStringList& expense, const QString& heading) {
            QTest::newRow(name) << static_cast<int>(words) << person << work << time << expense << heading;
        };
        row("a law office", GuideWords::Law, {}, {}, {u"Client"_s, u"Matter"_s, u"Activity"_s},
            {u"Client"_s, u"Matter"_s}, u"Client"_s);
        row("a field service", GuideWords::Service, {}, {}, {u"Customer"_s, u"Site"_s, u"Job"_s},
            {u"Customer"_s, u"Job"_s}, u"Customer"_s);
        row("the plain names take own ones away", GuideWords::Plain, u"not chosen"_s, {},
            {u"Client"_s, u"Project"_s, u"Activity"_s}, {u"Client"_s, u"Project"_s}, {});
        row("two own words name both kinds of records", GuideWords::Own, u" Patient "_s, u"Therapy"_s,
            {u"Patient"_s, u"Therapy"_s, u"Task"_s}, {u"Patient"_s, u"Therapy"_s}, u"Patient"_s);
        row("one own word leaves the other", GuideWords::Own, u"Pupil"_s, u" "_s,
            {u"Pupil"_s, u"Project"_s, u"Task"_s}, {u"Pupil"_s, u"Project"_s}, u"Pupil"_s);
        row("no word at all changes nothing", GuideWords::Own, {}, {}, {u"Client"_s, u"Project"_s, u"Task"_s},
            {u"Client"_s, u"Project"_s}, {});
    }
    void Names() {
        QFETCH(int, words);
        QFETCH(QString, person);
        QFETCH(QString, work);
        QVERIFY(Home().catalogue->SetNames({{111, u"Task"_s}}));
        GuideDraft draft = Guide().Proposal();
        draft.words = static_cast<GuideWords>(words);
        draft.person = person;
        draft.work = work;
        const FieldLabels& labels = Home().catalogue->Labels();
        QStringList foretold;
        for (const FieldId field : {FieldId::TimeItem1, FieldId::TimeItem2, FieldId::TimeItem3})
            foretold << NameWith(draft, labels, field);
        QTEST(foretold, "time");
        QVERIFY(Guide().Store(draft));
        QTEST((QStringList{Label(FieldId::TimeItem1), Label(FieldId::TimeItem2), Label(FieldId::TimeItem3)}),
              "time");
        QTEST((QStringList{Label(FieldId::ExpenseItem1), Label(FieldId::ExpenseItem2)}), "expense");
        QTEST(labels.Own(99), "heading");
    }

    // --- What is stored

    void StoresItemsSettingsAndADefault() {
        QVERIFY(WantGuide(*Home().settings));
        CGuide guide = Guide();
        const GuideDraft draft = Entered(guide.Proposal());
        QCOMPARE(guide.DefaultName(draft), u"Harbour Ltd, Pier 7"_s);
        QVERIFY(guide.Store(draft));
        QCOMPARE(Items(ListId::kClient), QStringList(u"Harbour Ltd"_s));
        QCOMPARE(Items(ListId::kProject), QStringList(u"Pier 7"_s));
        QCOMPARE(Items(ListId::kTimeRate), QStringList(u"62.5"_s));
        QCOMPARE(Items(ListId::kItem5), QStringList(u"EUR"_s));
        CTRecord record;
        QVERIFY(NamedDefaults(*Home().settings, Home().clock, RecordMode::Time)
                    .Read(u"Harbour Ltd, Pier 7"_s, record));
        QCOMPARE(record.item1, u"Harbour Ltd"_s);
        QCOMPARE(record.item2, u"Pier 7"_s);
        QCOMPARE(record.item5, u"EUR"_s);
        QVERIFY(record.isBillable);
        float rate = 0.0F;
        QVERIFY(record.GetRate(rate));
        QCOMPARE(rate, 62.5F);
        QCOMPARE(Home().document->RecordCount(), std::size_t(0));
        // And at the next start.
        const TestHome next(Home().Path());
        QCOMPARE(next.settings->firstDayOfWeek, 1);
        QCOMPARE(next.settings->spanDisplayFormat, 1);
        QCOMPARE(next.settings->precisionDuration, 4);
        QCOMPARE(next.settings->clockFormat, 12);
        QCOMPARE(next.settings->distanceUnit, 2);
        QCOMPARE(next.settings->firstSteps, 2);
    }
    void NothingEnteredStoresNoItems() {
        QVERIFY(WantGuide(*Home().settings));
        CGuide guide = Guide();
        QVERIFY(guide.Store(guide.Proposal()));
        for (const int list : {ListId::kClient, ListId::kProject, ListId::kTimeRate, ListId::kItem5})
            QVERIFY(Items(list).isEmpty());
        QCOMPARE(NamedDefaults(*Home().settings, Home().clock, RecordMode::Time).Names().size(), 1);
    }
    void TheSameAgainDoesNoHarm() {
        CGuide guide = Guide();
        GuideDraft draft = Entered(guide.Proposal());
        draft.startsTimer = true;
        QVERIFY(guide.Store(draft));
        QVERIFY(guide.Store(draft));
        QCOMPARE(Items(ListId::kClient).size(), 1);
        QCOMPARE(Home().document->RecordCount(), std::size_t(1));
    }
    void ADefaultOfThatNameStays() {
        NamedDefaults defaults(*Home().settings, Home().clock, RecordMode::Time);
        CTRecord own;
        own.Reset();
        own.notes = u"mine"_s;
        QVERIFY(defaults.Write(u"harbour ltd, pier 7"_s, own));
        CGuide guide = Guide();
        QVERIFY(guide.Store(Entered(guide.Proposal())));
        QCOMPARE(defaults.Names().size(), 2);
        CTRecord kept;
        QVERIFY(defaults.Read(u"harbour ltd, pier 7"_s, kept));
        QCOMPARE(kept.notes, u"mine"_s);
    }
    void DependenciesOnlyWhereTheyAreInUse_data() {
        QTest::addColumn<bool>("inUse");
        QTest::newRow("in use") << true;
        QTest::newRow("not in use") << false;
    }
    void DependenciesOnlyWhereTheyAreInUse() {
        QFETCH(bool, inUse);
        Home().settings->useDependencies = inUse;
        CGuide guide = Guide();
        QVERIFY(guide.Store(Entered(guide.Proposal())));
        QVERIFY(Home().catalogue->Load());
        for (const DependencySet set : {DependencySet::Time, DependencySet::Expense})
            QCOMPARE(Home().catalogue->Tree(set).Walk({u"Harbour Ltd"_s, u"Pier 7"_s}) != nullptr, inUse);
    }
    void AClientThatNoListTakesGoesNowhere() {
        Home().settings->useDependencies = true;
        CGuide guide = Guide();
        GuideDraft draft = Entered(guide.Proposal());
        draft.client = LoadText(Text::CodedPrefix) + u"x"_s;
        QVERIFY(guide.Store(draft));
        QVERIFY(Items(ListId::kClient).isEmpty());
        QVERIFY(Home().catalogue->Tree(DependencySet::Time).IsEmpty());
    }

    // --- The timer

    void TheFirstTimerRunsFromNow() {
        Home().clock.Set(2026, 11, 19, 9, 30);
        CGuide guide = Guide();
        GuideDraft draft = Entered(guide.Proposal());
        draft.currency = u"EUR"_s;
        draft.startsTimer = true;
        draft.activity = u"Measuring"_s;
        QVERIFY(guide.Store(draft));
        const CTRecord* record = Home().document->FindTime(guide.StartedId());
        QVERIFY(record);
        QCOMPARE(record->item1, u"Harbour Ltd"_s);
        QCOMPARE(record->item3, u"Measuring"_s);
        QCOMPARE(record->item5, u"EUR"_s);
        QCOMPARE(TimeTextOfRecord(*record, 3), u"09:30 AM"_s);
        QVERIFY(m_fixture->set.AnyRunning());
        QCOMPARE(Items(ListId::kTimeItem3), QStringList(u"Measuring"_s));
    }
    void WithoutTheTimerThereIsNoActivity() {
        CGuide guide = Guide();
        GuideDraft draft = Entered(guide.Proposal());
        draft.activity = u"Measuring"_s;
        QVERIFY(guide.Store(draft));
        QVERIFY(guide.StartedId().isEmpty());
        QVERIFY(Items(ListId::kTimeItem3).isEmpty());
        QVERIFY(!m_fixture->set.AnyActive());
    }

    // --- What can't be stored

    void AListThatRefusesLeavesTheGuideWanted() {
        QVERIFY(WantGuide(*Home().settings));
        CGuide guide = Guide();
        const GuideDraft draft = Entered(guide.Proposal());
        Refuse("item_velmarch");
        Home().prompt.ExpectTold(Text::InsertFailed);
        QVERIFY(!guide.Store(draft));
        QCOMPARE(Home().settings->firstSteps, 1);
        m_fixture->Run("DROP TRIGGER refuse");
        QVERIFY(guide.Store(draft));
        QCOMPARE(Items(ListId::kClient), QStringList(u"Harbour Ltd"_s));
    }

    // --- Doing without

    void SkippingTakesTheWeekOfTheRegionAndHoursAsOnAClock() {
        QVERIFY(WantGuide(*Home().settings));
        QVERIFY(Guide().Skip());
        const TestHome next(Home().Path());
        QCOMPARE(next.settings->firstSteps, 2);
        QCOMPARE(next.settings->firstDayOfWeek, 1);
        QCOMPARE(next.settings->spanDisplayFormat, 1);
        QCOMPARE(next.settings->clockFormat, 0);
    }
    void SkippingLaterChangesNothing() {
        Home().settings->firstDayOfWeek = 6;
        QVERIFY(Guide().Skip());
        QCOMPARE(Home().settings->firstDayOfWeek, 6);
    }

    // --- When it comes by itself

    void WantedUntilThereIsSomething_data() {
        QTest::addColumn<bool>("wanted");
        QTest::addColumn<QString>("client");
        QTest::addColumn<bool>("hasRecord");
        QTest::addColumn<bool>("comes");
        QTest::newRow("a home that was just made") << true << QString() << false << true;
        QTest::newRow("a home that was made otherwise") << false << QString() << false << false;
        QTest::newRow("a client is there") << true << u"Harbour Ltd"_s << false << false;
        QTest::newRow("a record is there") << true << QString() << true << false;
    }
    void WantedUntilThereIsSomething() {
        QFETCH(bool, wanted);
        QFETCH(QString, client);
        QFETCH(bool, hasRecord);
        if (wanted) QVERIFY(WantGuide(*Home().settings));
        if (!client.isEmpty()) QVERIFY(Home().catalogue->AddItem(ListId::kClient, client, false));
        if (hasRecord) Home().AddTime(2026, 11, 19, u"09:00"_s);
        QTEST(IsGuideWanted(*Home().settings, *Home().document, *Home().catalogue), "comes");
    }

    void Rates_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("isRate");
        QTest::newRow("none") << QString() << true;
        QTest::newRow("a number") << u"62.50"_s << true;
        QTest::newRow("groups of digits") << u"1,250"_s << true;
        QTest::newRow("a word") << u"much"_s << false;
        QTest::newRow("below zero") << u"-1"_s << false;
    }
    void Rates() {
        QFETCH(QString, typed);
        QTEST(IsGuideRate(typed), "isRate");
    }
};

TEST_CLASS(TestCGuide);
#include "TestCGuide.moc"
