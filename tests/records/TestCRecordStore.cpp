#include "records/CRecordStore.h"

#include "RecordsFixture.h"
#include "platform/host/CPrompt.h"
#include "records/CDRecord.h"
#include "records/CERecord.h"
#include "records/CPRecord.h"
#include "records/QuoteText.h"
#include "records/RecordFactory.h"
#include "records/RowConditions.h"
#include "support/TestProgram.h"

namespace {

/// Texts that a statement tells apart, or leaves to the rule. The Kelvin sign is a capital of "k".
const QStringList kTexts = {u"Kiel"_qs,   u"kiel"_qs, u"die Kieler"_qs, u"K\u0131el"_qs, u"\u212Aiel"_qs,
                            u"Müller"_qs, u"İ"_qs,    u"O'Hara"_qs,     u"100%"_qs,      QString()};

/// The texts without these.
QStringList Except(std::initializer_list<const char*> read) {
    QStringList left = kTexts;
    for (const char* text : read) left.removeOne(QString::fromUtf8(text));
    return left;
}

}  // namespace

class TestCRecordStore : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void TableName_data();
    void TableName();
    void SelectDays_data();
    void SelectDays();
    void SelectDaysUsesTheIndex();
    void SelectTexts_data();
    void SelectTexts();
    void EmptyTable();
    void AbsentIdentity_data();
    void AbsentIdentity();
    void InsertAndRead_data();
    void InsertAndRead();
    void NextRecord();
    void QueryTexts();
    void BeginBatch();
    void KindsInTurns();
    void StandsAt();
    void ModifyRecord();
    void ModifyCurrentRow();
    void DeleteRecord();
    void NoCommit();
    void Messages_data();
    void Messages();
    void MessageOfAFileInUse();
    void MessageOfAFailedRow();
    void UnknownKind();
    void QuoteText_data();
    void QuoteText();
};

namespace {

/// Keeps every box as it came.
class BoxKeeper final : public CPrompt {
 public:
    [[nodiscard]] Answer Ask(const MessageBox& box) override {
        boxes.push_back(box);
        return Answer::No;
    }
    void Tell(const MessageBox& box) override { boxes.push_back(box); }
    [[nodiscard]] std::optional<QString> ChooseFile(const FileChoice&) override { return std::nullopt; }
    std::vector<MessageBox> boxes;
};

const QString kAbsent = QStringLiteral("0123456789ABCDEF0123456789ABCDEF");

std::unique_ptr<CVORec> Sample(RecordKind kind) {
    std::unique_ptr<CVORec> record = NewRecord(kind);
    record->GenUnique();
    return record;
}

}  // namespace

void TestCRecordStore::TableName_data() {
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("name");
    QTest::newRow("time") << 0 << QStringLiteral("time_velmarch");
    QTest::newRow("expense") << 1 << QStringLiteral("expense_velmarch");
    QTest::newRow("list item") << 4 << QStringLiteral("item_velmarch");
    QTest::newRow("dependency") << 6 << QStringLiteral("dependency_velmarch");
    for (const int kind : {-1, 2, 3, 5, 7, 1000})
        QTest::addRow("unknown kind %d", kind) << kind << LoadText(Text::UnknownTable);
}

void TestCRecordStore::TableName() {
    QFETCH(int, kind);
    CVOSrcMgr manager;
    CScriptedPrompt prompt;
    QTEST(CRecordStore(manager, prompt, QStringLiteral("Velmarch")).TableName(static_cast<RecordKind>(kind)),
          "name");
}

void TestCRecordStore::SelectDays_data() {
    QTest::addColumn<QList<int>>("first");
    QTest::addColumn<QList<int>>("last");
    QTest::addColumn<int>("found");
    QTest::newRow("one day") << QList<int>{11, 19, 2026} << QList<int>{11, 19, 2026} << 1;
    QTest::newRow("a month") << QList<int>{11, 1, 2026} << QList<int>{11, 30, 2026} << 2;
    QTest::newRow("over the end of a year") << QList<int>{11, 20, 2026} << QList<int>{1, 5, 2027} << 3;
    QTest::newRow("a whole year") << QList<int>{1, 1, 2026} << QList<int>{12, 31, 2026} << 3;
    QTest::newRow("no record") << QList<int>{1, 6, 2027} << QList<int>{12, 31, 2027} << 0;
    QTest::newRow("last before first") << QList<int>{12, 31, 2027} << QList<int>{1, 1, 2026} << 0;
}

void TestCRecordStore::SelectDays() {
    QFETCH(QList<int>, first);
    QFETCH(QList<int>, last);
    QFETCH(int, found);
    RecordsFixture home;
    const int days[][3] = {{11, 19, 2026}, {11, 30, 2026}, {12, 31, 2026}, {1, 5, 2027}, {-1, -1, -1}};
    for (const auto& day : days) {
        CTRecord record = NewTime();
        record.date.Set(day[0], day[1], day[2]);
        QVERIFY(home.store.InsertRecord(record, Commit::Later));
    }
    QVERIFY(home.store.Commit());
    RowConditions conditions;
    conditions.days = {{first[2], first[0], first[1]}, {last[2], last[0], last[1]}};
    QCOMPARE(home.Rows(home.store.Select(RecordKind::Time, conditions)), found);
}

void TestCRecordStore::SelectDaysUsesTheIndex() {
    RecordsFixture home;
    for (const RecordKind kind : {RecordKind::Time, RecordKind::Expense}) {
        RowConditions conditions;
        conditions.days = {{2026, 11, 1}, {2026, 11, 30}};
        conditions.texts = {
            {.column = Text::ColumnItem1, .wanted = QStringLiteral("A"), .isWhole = true, .isExact = false}};
        const QString statement = home.store.Select(kind, conditions);
        QVERIFY(home.store.Query(QStringLiteral("EXPLAIN QUERY PLAN ") + statement));
        const QString plan = home.manager.m_recordset->GetFieldValueString(3);
        QVERIFY2(plan.startsWith(QStringLiteral("SEARCH")) && plan.contains(QStringLiteral("_days")),
                 qPrintable(plan));
    }
}

void TestCRecordStore::SelectTexts_data() {
    QTest::addColumn<QString>("wanted");
    QTest::addColumn<bool>("isWhole");
    QTest::addColumn<bool>("isExact");
    QTest::addColumn<QStringList>("left");  // of the texts below those that aren't read
    const auto row = [](const char* situation, const char* wanted, bool isWhole, bool isExact,
                        const QStringList& left) {
        QTest::newRow(situation) << QString::fromUtf8(wanted) << isWhole << isExact << left;
    };
    const QStringList none;
    row("whole, case counts", "Kiel", true, true, Except({"Kiel"}));
    row("held, case counts", "ie", false, true, Except({"Kiel", "kiel", "die Kieler", "\u212Aiel"}));
    row("whole, any case: what has other letters comes too", "KIEL", true, false,
        Except({"Kiel", "kiel", "Kıel", "\u212Aiel", "Müller", "İ"}));
    row("held, any case", "KIEL", false, false,
        Except({"Kiel", "kiel", "die Kieler", "Kıel", "\u212Aiel", "Müller", "İ"}));
    row("other letters, case counts", "Müller", true, true, Except({"Müller"}));
    row("other letters, any case", "MÜLLER", false, false, Except({"Kıel", "\u212Aiel", "Müller", "İ"}));
    row("an apostrophe", "O'Hara", true, true, Except({"O'Hara"}));
    row("a per cent sign", "%", false, false, Except({"100%", "Kıel", "\u212Aiel", "Müller", "İ"}));
    row("an empty text: all", "", true, true, none);
    row("what no character is: all", "\uFFFD", false, true, none);
}

void TestCRecordStore::SelectTexts() {
    QFETCH(QString, wanted);
    QFETCH(bool, isWhole);
    QFETCH(bool, isExact);
    RecordsFixture home;
    for (const QString& text : kTexts) {
        CTRecord record = NewTime();
        record.item4 = text;
        QVERIFY(home.store.InsertRecord(record, Commit::Later));
    }
    QVERIFY(home.store.Commit());
    RowConditions conditions;
    conditions.texts = {
        {.column = Text::ColumnTimeItem4, .wanted = wanted, .isWhole = isWhole, .isExact = isExact}};
    QVERIFY(home.store.Query(home.store.Select(RecordKind::Time, conditions)));
    QStringList left = kTexts;
    CTRecord record;
    for (QString id; home.store.NextRecord(record, id, true);) left.removeOne(record.item4);
    QTEST(left, "left");
}

void TestCRecordStore::EmptyTable() {
    RecordsFixture home;
    for (const RecordKind kind :
         {RecordKind::Time, RecordKind::Expense, RecordKind::PulldownItem, RecordKind::Dependency}) {
        QVERIFY(home.store.Query(home.store.SelectAll(kind)));
        QVERIFY(home.store.IsEOF());
        RowTable rows;
        QVERIFY(home.manager.m_recordset->GetRows(rows));
        QCOMPARE(rows.RowCount(), std::size_t{0});
        QString id;
        QVERIFY(!home.store.NextRecord(*NewRecord(kind), id, true));
        QCOMPARE(home.store.m_lastError, 0);
    }
}

void TestCRecordStore::AbsentIdentity_data() {
    QTest::addColumn<QString>("id");
    QTest::newRow("not in the table") << kAbsent;
    QTest::newRow("empty") << QString();
    QTest::newRow("lower case") << kAbsent.toLower();
    QTest::newRow("a statement in it") << QStringLiteral("' OR 1=1 --");
    QTest::newRow("as long as one, with an apostrophe") << QStringLiteral("' OR 1=1 OR identity LIKE '%AB%%");
}

void TestCRecordStore::AbsentIdentity() {
    QFETCH(QString, id);
    RecordsFixture home;
    const CTRecord stored = NewTime(QStringLiteral("stays"));
    QVERIFY(home.store.InsertRecord(stored, Commit::Now));
    CTRecord record = NewTime();
    QVERIFY(!home.store.ReadRecord(record, id));
    QCOMPARE(home.store.m_lastError, 0);
    QVERIFY(home.store.DeleteRecord(RecordKind::Time, id));
    QCOMPARE(home.store.m_lastError, 0);
    QVERIFY(home.prompt.told.isEmpty());
    home.prompt.ExpectTold(Text::ModifyFailed);
    QVERIFY(!home.store.ModifyRecord(record, id, Commit::Now));
    QVERIFY(home.store.m_lastError != 0);
    QCOMPARE(home.Rows(QStringLiteral("SELECT * FROM time_velmarch WHERE item1='stays'")), 1);
    QCOMPARE(home.TimeRows(), 1);
}

void TestCRecordStore::InsertAndRead_data() {
    QTest::addColumn<int>("kind");
    for (const int kind : {0, 1, 4, 6}) QTest::addRow("kind %d", kind) << kind;
}

void TestCRecordStore::InsertAndRead() {
    QFETCH(int, kind);
    RecordsFixture home;
    const auto record = Sample(static_cast<RecordKind>(kind));
    QVERIFY(home.store.InsertRecord(*record, Commit::Now));
    const auto read = NewRecord(static_cast<RecordKind>(kind));
    QVERIFY(home.store.ReadRecord(*read, record->GetId()));
    QCOMPARE(read->GetId(), record->GetId());
    QCOMPARE(static_cast<int>(read->Kind()), kind);
    QVERIFY(home.store.DeleteRecord(static_cast<RecordKind>(kind), record->GetId()));
    QVERIFY(!home.store.ReadRecord(*read, record->GetId()));
    QCOMPARE(home.store.m_lastError, 0);
}

void TestCRecordStore::NextRecord() {
    RecordsFixture home;
    QStringList ids;
    for (int i = 0; i < 3; ++i) {
        const CTRecord record = NewTime();
        ids += record.GetId();
        QVERIFY(home.store.InsertRecord(record, Commit::Now));
    }
    QVERIFY(home.store.Query(home.store.SelectAll(RecordKind::Time)));
    QStringList seen;
    QString id;
    CTRecord record;
    while (home.store.NextRecord(record, id, true)) seen += id;
    QCOMPARE(home.store.m_lastError, 0);
    // Identities ascend with time, so the key's order is the order of making.
    QCOMPARE(seen, ids);
    QVERIFY(home.store.Query(home.store.SelectAll(RecordKind::Time)));
    QVERIFY(home.store.MoveNext());
    QVERIFY(home.store.NextRecord(record, id, false));
    QCOMPARE(id, ids[1]);
    QVERIFY(!home.store.IsEOF());
    QVERIFY(home.store.NextRecord(record, id, true));
    QCOMPARE(id, ids[1]);
}

void TestCRecordStore::QueryTexts() {
    RecordsFixture home;
    const QStringList items{QStringLiteral("b"), QStringLiteral("O'Neil 50 %"), QStringLiteral("a")};
    for (const QString& item : items) QVERIFY(home.store.InsertRecord(NewTime(item), Commit::Now));
    QStringList texts{QStringLiteral("former")};
    QVERIFY(home.store.QueryTexts(QStringLiteral("SELECT item1, identity FROM time_velmarch"), texts));
    QCOMPARE(texts, items);
    QVERIFY(home.store.QueryTexts(QStringLiteral("SELECT item1 FROM time_velmarch WHERE 0"), texts));
    QCOMPARE(texts, QStringList());
    home.prompt.ExpectTold(Text::QueryFailed);
    QVERIFY(!home.store.QueryTexts(QStringLiteral("SELECT item1 FROM nowhere"), texts));
}

void TestCRecordStore::BeginBatch() {
    RecordsFixture home;
    QVERIFY(home.store.BeginBatch());
    const CTRecord record = NewTime();
    QVERIFY(home.store.InsertRecord(record, Commit::Later));
    QVERIFY(home.store.DeleteRecord(RecordKind::Time, record.GetId()));
    home.manager.Discard();
    QCOMPARE(home.TimeRows(), 0);
    home.manager.Close();
    home.prompt.ExpectTold(Text::CommitFailed);
    QVERIFY(!home.store.BeginBatch());
    QVERIFY(home.store.m_lastError != 0);
}

/// Each record goes into its own table, whatever was done before it.
void TestCRecordStore::KindsInTurns() {
    RecordsFixture home;
    const CTRecord gone = NewTime();
    CERecord expense;
    QVERIFY(home.store.BeginBatch());
    QVERIFY(home.store.InsertRecord(gone, Commit::Later));
    QVERIFY(home.store.InsertRecord(NewTime(), Commit::Later));
    expense.GenUnique();
    QVERIFY(home.store.InsertRecord(expense, Commit::Later));
    QVERIFY(home.store.InsertRecord(NewTime(), Commit::Later));
    QVERIFY(home.store.DeleteRecord(RecordKind::Time, gone.GetId()));
    QVERIFY(home.store.InsertRecord(NewTime(), Commit::Later));
    CTRecord read;
    QVERIFY(!home.store.ReadRecord(read, gone.GetId()));
    expense.GenUnique();
    QVERIFY(home.store.InsertRecord(expense, Commit::Later));
    QVERIFY(home.store.Commit());
    QCOMPARE(home.TimeRows(), 3);
    QCOMPARE(home.Rows(home.store.SelectAll(RecordKind::Expense)), 2);
}

/// Only in the batch in which it was asked: before that others may have changed the tables.
void TestCRecordStore::StandsAt() {
    RecordsFixture home;
    CVOSrcMgr& manager = home.manager;
    const QString place = QStringLiteral("SELECT * FROM time_velmarch WHERE 0");
    const QString all = QStringLiteral("SELECT * FROM time_velmarch");
    QVERIFY(manager.Query(place, true));
    QVERIFY(!manager.StandsAt(place));
    QVERIFY(manager.BeginBatch());
    QVERIFY(!manager.StandsAt(place));
    QVERIFY(manager.Query(place, true));
    QVERIFY(manager.StandsAt(place));
    QVERIFY(!manager.StandsAt(all));
    QVERIFY(manager.Insert(NewTime()));
    QVERIFY(manager.StandsAt(place));
    QVERIFY(!manager.Query(QStringLiteral("nonsense"), true));
    QVERIFY(!manager.StandsAt(place));
    QVERIFY(manager.Query(place, true));
    manager.CloseQuery();
    QVERIFY(!manager.StandsAt(place));
    QVERIFY(manager.Query(place, true) && manager.Update());
    QVERIFY(!manager.StandsAt(place));
    QVERIFY(manager.BeginBatch());
    QVERIFY(!manager.StandsAt(place));
}

void TestCRecordStore::ModifyRecord() {
    RecordsFixture home;
    CTRecord record = NewTime(QStringLiteral("before"));
    QVERIFY(home.store.InsertRecord(record, Commit::Now));
    record.item1 = QStringLiteral("after");
    QVERIFY(home.store.ModifyRecord(record, record.GetId(), Commit::Now));
    QCOMPARE(home.Rows(QStringLiteral("SELECT * FROM time_velmarch WHERE item1='after'")), 1);
    QCOMPARE(home.store.m_lastError, 0);
}

void TestCRecordStore::ModifyCurrentRow() {
    RecordsFixture home;
    CTRecord record = NewTime(QStringLiteral("before"));
    QVERIFY(home.store.InsertRecord(record, Commit::Now));
    QVERIFY(home.manager.Query(home.store.SelectAll(RecordKind::Time), true));
    QString id;
    QVERIFY(home.store.NextRecord(record, id, false));
    record.item1 = QStringLiteral("after");
    QVERIFY(home.store.ModifyRecord(record, id, Commit::Now, Seek::No));
    QCOMPARE(home.Rows(QStringLiteral("SELECT * FROM time_velmarch WHERE item1='after'")), 1);
}

void TestCRecordStore::DeleteRecord() {
    RecordsFixture home;
    const CTRecord record = NewTime();
    QVERIFY(home.store.InsertRecord(record, Commit::Now));
    QVERIFY(home.store.DeleteRecord(RecordKind::Time, record.GetId()));
    QCOMPARE(home.TimeRows(), 0);
    QVERIFY(home.store.DeleteRecord(RecordKind::Time, record.GetId()));
}

void TestCRecordStore::NoCommit() {
    RecordsFixture home;
    CTRecord record = NewTime();
    QVERIFY(home.store.InsertRecord(record, Commit::Later));
    QVERIFY(home.store.ModifyRecord(record, record.GetId(), Commit::Later));
    QCOMPARE(home.TimeRows(), 0);
    QVERIFY(home.store.Commit());
    QCOMPARE(home.TimeRows(), 1);
}

void TestCRecordStore::Messages_data() {
    QTest::addColumn<QString>("operation");
    QTest::addColumn<int>("textId");
    QTest::addColumn<QString>("statement");
    const QString byId = QStringLiteral("SELECT * FROM time_nowhere WHERE identity='%1'").arg(kAbsent);
    QTest::newRow("query") << QStringLiteral("query") << 23557
                           << QStringLiteral("SELECT * FROM time_nowhere");
    QTest::newRow("read") << QStringLiteral("read") << 23221 << byId;
    QTest::newRow("seek") << QStringLiteral("seek") << 23301 << byId;
    QTest::newRow("modify") << QStringLiteral("modify") << 23458 << QString();
    QTest::newRow("insert") << QStringLiteral("insert") << 23300
                            << QStringLiteral("SELECT * FROM time_nowhere WHERE 0");
    QTest::newRow("delete") << QStringLiteral("delete") << 23115
                            << QStringLiteral("DELETE FROM time_nowhere WHERE identity='%1'").arg(kAbsent);
}

void TestCRecordStore::Messages() {
    QFETCH(QString, operation);
    QFETCH(int, textId);
    QFETCH(QString, statement);
    RecordsFixture home;
    BoxKeeper boxes;
    // The tables of this name aren't there.
    CRecordStore store(home.manager, boxes, QStringLiteral("nowhere"));
    CTRecord record = NewTime();
    bool isDone = true;
    if (operation == QStringLiteral("query")) isDone = store.Query(store.SelectAll(RecordKind::Time));
    if (operation == QStringLiteral("read")) isDone = store.ReadRecord(record, kAbsent);
    if (operation == QStringLiteral("seek")) isDone = store.ModifyRecord(record, kAbsent, Commit::Now);
    if (operation == QStringLiteral("modify"))
        isDone = store.ModifyRecord(record, kAbsent, Commit::Now, Seek::No);
    if (operation == QStringLiteral("insert")) isDone = store.InsertRecord(record, Commit::Now);
    if (operation == QStringLiteral("delete")) isDone = store.DeleteRecord(RecordKind::Time, kAbsent);
    QVERIFY(!isDone);
    QCOMPARE(boxes.boxes.size(), std::size_t{1});
    const MessageBox& box = boxes.boxes[0];
    QCOMPARE(box.textId, textId);
    QCOMPARE(box.title, LoadText(23338));
    QCOMPARE(box.icon, BoxIcon::Stop);
    QCOMPARE(box.buttons, Buttons::Ok);
    const QString between = statement.isEmpty() ? QString() : statement + LoadText(23556);
    QCOMPARE(box.text, LoadText(textId) + between + home.manager.m_error);
    QVERIFY(!home.manager.m_error.isEmpty());
    QCOMPARE(store.m_lastError, home.manager.m_errorCode);
    QVERIFY(store.m_lastError != 0);
    // The next operation that succeeds takes the code back.
    CRecordStore good(home.manager, boxes, QStringLiteral("velmarch"));
    good.m_lastError = store.m_lastError;
    QVERIFY(good.Query(good.SelectAll(RecordKind::Time)));
    QCOMPARE(good.m_lastError, 0);
}

/// Where it is the file that refuses, nobody has to read a statement.
void TestCRecordStore::MessageOfAFileInUse() {
    RecordsFixture home;
    CVOSrcMgr other;
    QVERIFY(home.Open(other));
    QVERIFY(other.BeginBatch());
    BoxKeeper boxes;
    CRecordStore store(home.manager, boxes, QStringLiteral("velmarch"));
    QVERIFY(!store.DeleteRecord(RecordKind::Time, kAbsent));
    QCOMPARE(boxes.boxes.size(), std::size_t{1});
    QCOMPARE(boxes.boxes[0].text, LoadText(23115) + home.manager.m_error);
}

void TestCRecordStore::MessageOfAFailedRow() {
    RecordsFixture home;
    CDRecord record;
    record.GenUnique();
    QVERIFY(home.store.InsertRecord(record, Commit::Now));
    QVERIFY(home.manager.Query(QStringLiteral("UPDATE dependency_velmarch SET block='xyz!'"), true));
    BoxKeeper boxes;
    CRecordStore store(home.manager, boxes, QStringLiteral("velmarch"));
    QVERIFY(store.Query(store.SelectAll(RecordKind::Dependency)));
    QString id;
    QVERIFY(!store.NextRecord(record, id, true));
    QCOMPARE(store.m_lastError, -1);
    QCOMPARE(boxes.boxes.size(), std::size_t{1});
    QCOMPARE(boxes.boxes[0].textId, 23151);
    QCOMPARE(boxes.boxes[0].text, LoadText(23151) + home.manager.m_error);
}

void TestCRecordStore::UnknownKind() {
    RecordsFixture home;
    const auto kind = static_cast<RecordKind>(3);
    home.prompt.ExpectTold(Text::QueryFailed);
    QVERIFY(!home.store.Query(home.store.SelectAll(kind)));
    QVERIFY(home.prompt.told.constLast().contains(QStringLiteral("SELECT * FROM unknown_table")));
    home.prompt.ExpectTold(Text::DeleteFailed);
    QVERIFY(!home.store.DeleteRecord(kind, kAbsent));
    QVERIFY(NewRecord(kind) == nullptr);
    QVERIFY(FieldDefsOf(kind).empty());
    QCOMPARE(FieldDefsOf(RecordKind::Expense).size(), std::size_t{22});
}

void TestCRecordStore::QuoteText_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("literal");
    QTest::newRow("plain") << QStringLiteral("abc") << QStringLiteral("'abc'");
    QTest::newRow("nothing") << QString() << QStringLiteral("''");
    QTest::newRow("an apostrophe") << QStringLiteral("it's") << QStringLiteral("'it''s'");
    QTest::newRow("apostrophes alone") << QStringLiteral("''") << QStringLiteral("''''''");
    QTest::newRow("a percent sign and a quotation mark")
        << QStringLiteral("5 %\"") << QStringLiteral("'5 %\"'");
    QTest::newRow("a null character")
        << QStringLiteral("a") + QChar(0) + QStringLiteral("'b") << QStringLiteral("('a'||char(0)||'''b')");
}

void TestCRecordStore::QuoteText() {
    QFETCH(QString, text);
    QTEST(::QuoteText(text), "literal");
    RecordsFixture home;
    QVERIFY(home.manager.Query(QStringLiteral("SELECT ") + ::QuoteText(text), false));
    QCOMPARE(home.manager.m_recordset->GetFieldValueString(0), text);
}

TEST_CLASS(TestCRecordStore);
#include "TestCRecordStore.moc"
