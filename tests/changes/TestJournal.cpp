#include "ChangesFixture.h"
#include "app/CChangeJournal.h"
#include "changes/DemoData.h"
#include "entry/RecordMarks.h"
#include "records/CTRecord.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

/// "client/duration/exported" of a time record, "-" where there is none.
QString Summary(const CVORec* record) {
    if (!record) return u"-"_s;
    const auto& time = static_cast<const CTRecord&>(*record);
    return time.item1 + u'/' + time.spans.duration.clockText + u'/' +
           (time.isExported ? u"exported"_s : QString());
}

/// Writes down what it hears: "ID before > after", and how each change ended.
class Journal final : public CChangeJournal {
 public:
    void NoteChange(const RecordChange& change) override {
        ids.append(change.id);
        heard.append(Summary(change.before) + u" > "_s + Summary(change.after));
    }
    void NoteEnd(CommitEnd end) override {
        const char* const names[] = {"durable", "undone"};
        heard.append(QString::fromLatin1(names[static_cast<int>(end)]));
    }
    [[nodiscard]] QStringList Take() { return std::exchange(heard, {}); }

    QStringList heard;
    QStringList ids;
};

struct Fixture : ChangesFixture<> {
    Journal journal;
    QString id;

    Fixture() : ChangesFixture(CRecordChanges::Partial::Undone) {
        home.settings->confirmCopy = false;
        CTRecord record;
        record.item1 = u"Acorn"_s;
        id = changes.Add(record, Identity::New).ids.value(0);
        Load();
        home.document->SetJournal(&journal);
    }
};

}  // namespace

/// The journal hears of every change what it replaced and what became of it.
class TestJournal final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void add() {
        Fixture fixture;
        CTRecord record;
        record.item1 = u"Birch"_s;
        const Outcome outcome = fixture.changes.Add(record, Identity::New);
        QVERIFY(outcome);
        QCOMPARE(fixture.journal.Take(), (QStringList{u"- > Birch/--:--/"_s, u"durable"_s}));
        QCOMPARE(fixture.journal.ids, outcome.ids);
    }

    void edit() {
        Fixture fixture;
        CTRecord record;
        record.Copy(*fixture.home.document->FindTime(fixture.id));
        record.SetId(fixture.id);
        record.item1 = u"Birch"_s;
        QVERIFY(fixture.changes.Edit(record, fixture.id));
        QCOMPARE(fixture.journal.Take(), (QStringList{u"Acorn/--:--/ > Birch/--:--/"_s, u"durable"_s}));
        QCOMPARE(fixture.journal.ids, QStringList{fixture.id});
    }

    void deleteCopyAndMark() {
        Fixture fixture;
        const Outcome copied = fixture.changes.Copy(RecordKind::Time, {fixture.id});
        QCOMPARE(fixture.journal.Take(), (QStringList{u"- > Acorn/--:--/"_s, u"durable"_s}));
        const QStringList both{fixture.id, copied.ids.value(0)};
        QVERIFY(fixture.changes.SetMark(RecordKind::Time, RecordMark::Exported, both, Ask::No));
        const QString marked = u"Acorn/--:--/ > Acorn/--:--/exported"_s;
        QCOMPARE(fixture.journal.Take(), (QStringList{marked, marked, u"durable"_s}));
        QVERIFY(fixture.changes.Delete(RecordKind::Time, both, Ask::No));
        const QString gone = u"Acorn/--:--/exported > -"_s;
        QCOMPARE(fixture.journal.Take(), (QStringList{gone, gone, u"durable"_s}));
    }

    void replace() {
        Fixture fixture;
        QVERIFY(fixture.changes.ReplaceInRecords(16, u"Acorn"_s, u"Birch"_s));
        QCOMPARE(fixture.journal.Take(), (QStringList{u"Acorn/--:--/ > Birch/--:--/"_s, u"durable"_s}));
    }

    void timerThatStops() {
        Fixture fixture;
        QVERIFY(fixture.timers.StartRecordTimer(fixture.id));
        QVERIFY(fixture.journal.Take().isEmpty());
        fixture.home.clock.Advance(90 * 60);
        fixture.timers.FoldAndStore();
        QVERIFY(fixture.timers.StopRecordTimer(fixture.id));
        QCOMPARE(fixture.journal.Take(), (QStringList{u"Acorn/--:--/ > Acorn/1:30/"_s, u"durable"_s}));
    }

    void demoData() {
        const TestHome home;
        Journal journal;
        home.document->SetJournal(&journal);
        QCOMPARE(FillWithDemoData(*home.document, home.clock, {3, 0}, 1), DemoOutcome::Filled);
        QCOMPARE(journal.ids.size(), 3);
        QCOMPARE(journal.heard.last(), u"durable"_s);
    }

    /// What another program has written since is what is replaced.
    void whatIsStoredIsWhatIsReplaced() {
        Fixture fixture;
        {
            const TestHome other(fixture.home.Path());
            CTRecord record;
            record.item1 = u"Cedar"_s;
            record.SetId(fixture.id);
            QVERIFY(other.document->ModifyRecord(record, fixture.id, {Notify::Later, Commit::Now}));
        }
        QVERIFY(fixture.changes.Delete(RecordKind::Time, {fixture.id}, Ask::No));
        QCOMPARE(fixture.journal.Take(), (QStringList{u"Cedar/--:--/ > -"_s, u"durable"_s}));
    }

    void undone() {
        Fixture fixture;
        QVERIFY(!fixture.changes.Delete(RecordKind::Time, {fixture.id, u"no identity"_s}, Ask::No));
        QCOMPARE(fixture.journal.Take(), (QStringList{u"Acorn/--:--/ > -"_s, u"undone"_s}));
    }
};

TEST_CLASS(TestJournal);
#include "TestJournal.moc"
