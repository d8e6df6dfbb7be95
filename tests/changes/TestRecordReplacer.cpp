#include "changes/CProgress.h"
#include "changes/CRecordChanges.h"
#include "changes/CTimersOfRecords.h"
#include "entry/CEnteredItems.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>

// Through the changes of records, which decide what is replaced at all.

using namespace Qt::Literals::StringLiterals;

namespace {

CTRecord TimeWith(QString CTRecord::*field, const QString& text) {
    CTRecord record;
    record.*field = text;
    return record;
}

CERecord ExpenseWith(QString CERecord::*field, const QString& text) {
    CERecord record;
    record.*field = text;
    return record;
}

/// Replacing asks nothing of the timers.
class NoTimers final : public CTimersOfRecords {
 public:
    [[nodiscard]] QStringList Timed(const QStringList&) override { return {}; }
    [[nodiscard]] QHash<QString, QByteArray> Images(const QStringList&) override { return {}; }
    [[nodiscard]] bool Drop(const QStringList&) override { return true; }
    [[nodiscard]] bool PutBack(const QString&, const QByteArray&) override { return true; }
};

/// Whether the item of the list is renamed with the records.
enum class With { RecordsOnly, Item };

Outcome ReplaceIn(TestHome& home, int list, const QString& oldText, const QString& newText,
                  With with = With::RecordsOnly) {
    NoTimers timers;
    CNoProgress progress;
    CEnteredItems entered;
    CRecordChanges changes({.document = *home.document,
                            .timers = timers,
                            .catalogue = *home.catalogue,
                            .entered = entered,
                            .settings = *home.settings,
                            .prompt = home.prompt,
                            .progress = progress,
                            .partial = CRecordChanges::Partial::Undone});
    return with == With::Item ? changes.RenameInRecords(list, oldText, newText)
                              : changes.ReplaceInRecords(list, oldText, newText);
}

}  // namespace

class TestRecordReplacer : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;
    CVelmarchDoc* document = nullptr;

    void Run(const QString& sql) { QVERIFY2(home->manager.File().Execute(sql.toUtf8()), qPrintable(sql)); }
    QString Add(const CVORec& record) {
        QString id;
        if (!document->AddRecord(record, {Notify::Later, Commit::Now, Identity::New}, &id))
            qFatal("a record can't be added");
        document->FlushPending(Hint::Added);
        home->views.seen.clear();
        return id;
    }
    QString AddTime(const QString& client) { return Add(TimeWith(&CTRecord::item1, client)); }
    QString AddExpense(const QString& client) { return Add(ExpenseWith(&CERecord::item1, client)); }
    /// How many took the new text; -1 when it failed.
    qsizetype Replace(int list, const QString& oldText, const QString& newText) {
        const Outcome outcome = ReplaceIn(*home, list, oldText, newText);
        return outcome ? outcome.ids.size() : -1;
    }
    QString StoredTime(const QString& id, QString CTRecord::*field = &CTRecord::item1) {
        CTRecord record;
        return home->store->ReadRecord(record, id) ? record.*field : u"absent"_s;
    }
    QString StoredExpense(const QString& id, QString CERecord::*field = &CERecord::item1) {
        CERecord record;
        return home->store->ReadRecord(record, id) ? record.*field : u"absent"_s;
    }
    QString Loaded(const QString& id) {
        const CTRecord* record = document->FindTime(id);
        return record ? record->item1 : u"absent"_s;
    }
    QString Shown(const QString& id) {
        QString shown = u"not shown"_s;
        document->ForEachVisible([&](const CVORec& record) {
            if (record.GetId() == id) shown = static_cast<const CTRecord&>(record).item1;
        });
        return shown;
    }

 private Q_SLOTS:
    void init() {
        home = std::make_unique<TestHome>();
        document = home->document.get();
    }
    void cleanup() {
        home->prompt.Finish();
        home.reset();
    }

    void TimeFields_data() {
        QTest::addColumn<int>("list");
        QTest::addColumn<QString CTRecord::*>("field");
        QTest::newRow("16") << 16 << &CTRecord::item1;
        QTest::newRow("17") << 17 << &CTRecord::item2;
        QTest::newRow("72") << 72 << &CTRecord::item5;
        QTest::newRow("32") << 32 << &CTRecord::item3;
        QTest::newRow("33") << 33 << &CTRecord::item4;
    }
    void TimeFields() {
        QFETCH(int, list);
        QFETCH(QString CTRecord::*, field);
        const QString id = Add(TimeWith(field, u"old"_s));
        QCOMPARE(Replace(list, u"old"_s, u"new"_s), qsizetype{1});
        QCOMPARE(StoredTime(id, field), u"new"_s);
    }

    void ExpenseFields_data() {
        QTest::addColumn<int>("list");
        QTest::addColumn<QString CERecord::*>("field");
        QTest::newRow("16") << 16 << &CERecord::item1;
        QTest::newRow("17") << 17 << &CERecord::item2;
        QTest::newRow("72") << 72 << &CERecord::item5;
        QTest::newRow("68") << 68 << &CERecord::item3;
        QTest::newRow("71") << 71 << &CERecord::item4;
    }
    void ExpenseFields() {
        QFETCH(int, list);
        QFETCH(QString CERecord::*, field);
        const QString id = Add(ExpenseWith(field, u"old"_s));
        QCOMPARE(Replace(list, u"old"_s, u"new"_s), qsizetype{1});
        QCOMPARE(StoredExpense(id, field), u"new"_s);
        QVERIFY(home->views.seen.isEmpty());  // expenses aren't shown
    }

    void OtherFieldsStay() {
        CTRecord time = TimeWith(&CTRecord::item2, u"old"_s);
        time.item1 = u"keep"_s;
        time.notes = u"old"_s;
        time.date.Set(11, 3, 2026);
        const QString id = Add(time);
        QCOMPARE(Replace(16, u"old"_s, u"new"_s), qsizetype{0});
        QCOMPARE(Replace(17, u"old"_s, u"new"_s), qsizetype{1});
        CTRecord stored;
        QVERIFY(home->store->ReadRecord(stored, id));
        QCOMPARE(stored.item1, u"keep"_s);
        QCOMPARE(stored.item2, u"new"_s);
        QCOMPARE(stored.notes, u"old"_s);
        QCOMPARE(stored.date.day, 3);
    }

    void Nothing_data() {
        QTest::addColumn<int>("list");
        QTest::addColumn<QString>("oldText");
        QTest::addColumn<QString>("newText");
        QTest::newRow("from an empty text") << 16 << u""_s << u"new"_s;
        QTest::newRow("to an empty text") << 16 << u"old"_s << u""_s;
        QTest::newRow("to the same text") << 16 << u"old"_s << u"old"_s;
        QTest::newRow("a text that no record has") << 16 << u"other"_s << u"new"_s;
        QTest::newRow("another case of letters") << 16 << u"Old"_s << u"new"_s;
        QTest::newRow("a part of the text") << 16 << u"ol"_s << u"new"_s;
        QTest::newRow("a list of rates") << 34 << u"1"_s << u"2"_s;
        QTest::newRow("a list of distances") << 69 << u"old"_s << u"new"_s;
        QTest::newRow("names of a field") << 109 << u"old"_s << u"new"_s;
        QTest::newRow("an unknown list") << 200 << u"old"_s << u"new"_s;
    }
    void Nothing() {
        QFETCH(int, list);
        QFETCH(QString, oldText);
        QFETCH(QString, newText);
        const QString id = AddTime(u"old"_s), empty = AddTime(u""_s);
        QCOMPARE(Replace(list, oldText, newText), qsizetype{0});
        QCOMPARE(StoredTime(id), u"old"_s);
        QCOMPARE(StoredTime(empty), u""_s);
        QVERIFY(home->views.seen.isEmpty());
        QVERIFY(!home->manager.HasOpenChanges());
    }

    void TextsAreData_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("an apostrophe") << u"O'Neil"_s;
        QTest::newRow("the end of a statement") << u"'; DELETE FROM time_velmarch; --"_s;
        QTest::newRow("percent signs") << u"100 %s %d %n %%"_s;
        QTest::newRow("a wildcard matches itself alone") << u"o_d%"_s;
        QTest::newRow("umlauts and quotation marks") << u"Müller & Söhne \"Köln\""_s;
        QTest::newRow("an emoji") << u"😀 fun"_s;
        QTest::newRow("255 characters") << QString(255, u'ü');
    }
    void TextsAreData() {
        QFETCH(QString, text);
        const QString id = AddTime(text), other = AddTime(u"old"_s);
        QCOMPARE(Replace(16, text, u"between"_s), qsizetype{1});
        QCOMPARE(StoredTime(id), u"between"_s);
        QCOMPARE(Replace(16, u"between"_s, text), qsizetype{1});
        QCOMPARE(StoredTime(id), text);
        QCOMPARE(StoredTime(other), u"old"_s);
    }

    void BothKindsInBothModes_data() {
        QTest::addColumn<RecordMode>("mode");
        QTest::newRow("times are shown") << RecordMode::Time;
        QTest::newRow("expenses are shown") << RecordMode::Expense;
    }
    void BothKindsInBothModes() {
        QFETCH(RecordMode, mode);
        const QString time = AddTime(u"old"_s), expense = AddExpense(u"old"_s);
        const RecordModeScope scope(mode);
        document->LoadCurrentMode();
        document->BuildVisible();
        home->views.seen.clear();
        QCOMPARE(Replace(16, u"old"_s, u"new"_s), qsizetype{2});
        QCOMPARE(StoredTime(time), u"new"_s);
        QCOMPARE(StoredExpense(expense), u"new"_s);
        const QString shown = mode == RecordMode::Time ? time : expense;
        const QList<std::pair<Hint, QStringList>> hints{{Hint::AboutToChange, {shown}},
                                                        {Hint::Changed, {shown}}};
        QCOMPARE(home->views.seen, hints);
        const CVORec* record = document->FindRecord(shown);
        QVERIFY(record);
        QCOMPARE(mode == RecordMode::Time ? static_cast<const CTRecord*>(record)->item1
                                          : static_cast<const CERecord*>(record)->item1,
                 u"new"_s);
    }

    void ManyRecordsAreOneNoticeBeforeAndOneAfter() {
        QStringList ids;
        for (int i = 0; i < 50; ++i) {
            ids.append(AddTime(u"old"_s));
            AddTime(u"other"_s);
        }
        QCOMPARE(Replace(16, u"old"_s, u"new"_s), qsizetype{50});
        const QList<std::pair<Hint, QStringList>> hints{{Hint::AboutToChange, ids}, {Hint::Changed, ids}};
        QCOMPARE(home->views.seen, hints);
        for (const QString& id : ids) {
            QCOMPARE(Loaded(id), u"new"_s);
            QCOMPARE(Shown(id), u"new"_s);
        }
    }

    /// A console command changes records that the document never loaded.
    void RecordsThatAreNotLoaded() {
        const QString fetched = AddTime(u"old"_s), untouched = AddTime(u"old"_s);
        const QString expense = AddExpense(u"old"_s);
        TestHome console(home->Path());
        QVERIFY(console.document->FetchRecord(RecordKind::Time, fetched));
        QVERIFY(console.document->FetchRecord(RecordKind::Expense, expense));
        const Outcome outcome = ReplaceIn(console, 16, u"old"_s, u"new"_s);
        QVERIFY(outcome);
        QCOMPARE(outcome.ids.size(), qsizetype{3});
        QCOMPARE(console.document->FindTime(fetched)->item1, u"new"_s);
        const CVORec* kept = console.document->FindRecord(expense);
        QCOMPARE(static_cast<const CERecord*>(kept)->item1, u"new"_s);
        QCOMPARE(console.document->RecordCount(), std::size_t{0});
        QCOMPARE(StoredTime(untouched), u"new"_s);
    }

    /// Each record is changed as it is stored, not as it was when it was loaded.
    void WhatAnotherProgramWroteStays() {
        const QString id = AddTime(u"old"_s);
        Run(u"UPDATE time_velmarch SET notes='from elsewhere'"_s);
        QCOMPARE(Replace(16, u"old"_s, u"new"_s), qsizetype{1});
        CTRecord stored;
        QVERIFY(home->store->ReadRecord(stored, id));
        QCOMPARE(stored.notes, u"from elsewhere"_s);
    }

    void PendingIdentitiesOfOthersKeepTheirHint() {
        const QString changed = AddTime(u"old"_s);
        QString added;
        QVERIFY(document->AddRecord(TimeWith(&CTRecord::item1, u"x"_s),
                                    {Notify::Later, Commit::Now, Identity::New}, &added));
        QCOMPARE(Replace(16, u"old"_s, u"new"_s), qsizetype{1});
        document->FlushPending(Hint::Added);
        const QList<std::pair<Hint, QStringList>> hints{
            {Hint::AboutToChange, {changed}}, {Hint::Changed, {changed}}, {Hint::Added, {added}}};
        QCOMPARE(home->views.seen, hints);
    }

    void FailureInBetweenChangesNothing_data() {
        QTest::addColumn<QString>("trigger");
        QTest::addColumn<Text>("message");
        QTest::newRow("at the third record shown")
            << u"BEFORE UPDATE ON time_velmarch WHEN new.notes='bad'"_s << Text::ModifyFailed;
        QTest::newRow("at a record that isn't shown")
            << u"BEFORE UPDATE ON expense_velmarch"_s << Text::ModifyFailed;
    }
    void FailureInBetweenChangesNothing() {
        QFETCH(QString, trigger);
        QFETCH(Text, message);
        CTRecord bad = TimeWith(&CTRecord::item1, u"old"_s);
        bad.notes = u"bad"_s;
        const QStringList times{AddTime(u"old"_s), AddTime(u"old"_s), Add(bad), AddTime(u"old"_s)};
        const QString expense = AddExpense(u"old"_s);
        Run(u"CREATE TRIGGER refuse %1 BEGIN SELECT RAISE(ABORT,'no'); END"_s.arg(trigger));
        home->prompt.ExpectTold(message);
        QCOMPARE(Replace(16, u"old"_s, u"new"_s), qsizetype{-1});
        for (const QString& id : times) {
            QCOMPARE(StoredTime(id), u"old"_s);
            QCOMPARE(Loaded(id), u"old"_s);
            QCOMPARE(Shown(id), u"old"_s);
        }
        QCOMPARE(StoredExpense(expense), u"old"_s);
        QVERIFY(!home->manager.HasOpenChanges());
        // every record that was announced is announced again, and nothing is left pending
        QCOMPARE(home->views.seen.at(0), std::pair(Hint::AboutToChange, times));
        QCOMPARE(home->views.seen.at(1), std::pair(Hint::Changed, times));
        QCOMPARE(document->PendingCount(), qsizetype{0});
        Run(u"DROP TRIGGER refuse"_s);
        QCOMPARE(Replace(16, u"old"_s, u"new"_s), qsizetype{5});
    }

    /// Item and records are one change, so that the same rename can be made again.
    void ItemAndRecordsAreOneChange_data() {
        QTest::addColumn<QString>("trigger");
        QTest::addColumn<QList<Text>>("messages");
        QTest::newRow("the item can't be written") << u"BEFORE UPDATE ON pulldown_velmarch"_s
                                                   << QList<Text>{Text::ModifyFailed, Text::ItemNotRenamed};
        QTest::newRow("a record can't be written")
            << u"BEFORE UPDATE ON time_velmarch"_s << QList<Text>{Text::ModifyFailed};
    }
    void ItemAndRecordsAreOneChange() {
        QFETCH(QString, trigger);
        QFETCH(QList<Text>, messages);
        const CPulldownCatalogue& catalogue = *home->catalogue;
        QVERIFY(home->catalogue->AddItem(16, u"old"_s, false));
        const QString id = AddTime(u"old"_s);
        trigger.replace(u"pulldown_velmarch"_s, home->store->TableName(RecordKind::PulldownItem));
        Run(u"CREATE TRIGGER refuse %1 BEGIN SELECT RAISE(ABORT,'no'); END"_s.arg(trigger));
        for (const Text message : messages) home->prompt.ExpectTold(message);
        QVERIFY(!ReplaceIn(*home, 16, u"old"_s, u"new"_s, With::Item));
        home->prompt.Finish();
        QCOMPARE(StoredTime(id), u"old"_s);
        QCOMPARE(Loaded(id), u"old"_s);
        QCOMPARE(catalogue.Texts(16), QStringList{u"old"_s});
        QVERIFY(home->catalogue->Load());
        QCOMPARE(catalogue.Texts(16), QStringList{u"old"_s});
        Run(u"DROP TRIGGER refuse"_s);
        const Outcome renamed = ReplaceIn(*home, 16, u"old"_s, u"new"_s, With::Item);
        QCOMPARE(renamed.ids, QStringList{id});
        QCOMPARE(StoredTime(id), u"new"_s);
        QCOMPARE(catalogue.Texts(16), QStringList{u"new"_s});
        QVERIFY(home->catalogue->Load());
        QCOMPARE(catalogue.Texts(16), QStringList{u"new"_s});
    }

    void AnItemWithoutRecords() {
        QVERIFY(home->catalogue->AddItem(16, u"old"_s, false));
        const Outcome renamed = ReplaceIn(*home, 16, u"old"_s, u"new"_s, With::Item);
        QVERIFY(renamed && renamed.ids.isEmpty());
        QVERIFY(home->catalogue->Load());
        QCOMPARE(home->catalogue->Texts(16), QStringList{u"new"_s});
    }

    void FailureKeepsWhatWasOpenBefore() {
        AddTime(u"old"_s);
        QString waiting;
        QVERIFY(document->AddRecord(TimeWith(&CTRecord::item1, u"waiting"_s),
                                    {Notify::Yes, Commit::Later, Identity::New}, &waiting));
        Run(u"CREATE TRIGGER refuse BEFORE UPDATE ON time_velmarch BEGIN SELECT RAISE(ABORT,'no'); END"_s);
        home->prompt.ExpectTold(Text::ModifyFailed);
        QCOMPARE(Replace(16, u"old"_s, u"new"_s), qsizetype{-1});
        QCOMPARE(StoredTime(waiting), u"waiting"_s);
    }

    void StoreThatIsBusy() {
        const QString id = AddTime(u"old"_s);
        CVOSrcMgr other;
        other.m_directory = home->Path();
        other.m_fileName = home->manager.m_fileName;
        eActionDisposition source, second;
        QVERIFY(other.InitDataSrc(source, second));
        QVERIFY(other.BeginBatch());
        home->manager.Close();
        home->manager.m_busySeconds = 0;
        QVERIFY(home->manager.InitDataSrc(source, second));
        home->prompt.ExpectTold(Text::CommitFailed);
        QCOMPARE(Replace(16, u"old"_s, u"new"_s), qsizetype{-1});
        QVERIFY(home->views.seen.isEmpty());
        other.Discard();
        QCOMPARE(StoredTime(id), u"old"_s);
    }
};

TEST_CLASS(TestRecordReplacer);
#include "TestRecordReplacer.moc"
