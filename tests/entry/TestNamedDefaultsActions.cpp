#include "config/CCfgStore.h"
#include "entry/NamedDefaults.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>
#include <deque>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kEmptyRecord = u"(empty record)"_s;
/// What the user types when asked for a name: nothing is Cancel.
using Typed = std::optional<QString>;
const Typed kCancel;

QString DateOf(const RecordDate& date) {
    return QString::asprintf("%d-%02d-%02d", date.year, date.month, date.day);
}

/// The dialog of the defaults of time records with a user in front of it. There are two defaults, "one" and
/// "two".
struct Fixture {
    TestHome home;
    NamedDefaults defaults;
    CTRecord working;
    bool acceptsRecord = true;
    QString notes;  ///< what the user writes into the record
    std::deque<Typed> typed;
    QStringList openings;    ///< on which each question for a name opened
    QString seenId;          ///< of the record that was to be edited
    QString seenDate, seen;  ///< its date and notes
    int edited = 0;

    Fixture() : defaults(*home.settings, home.clock, RecordMode::Time) {
        home.clock.Set(2026, 11, 19, 9, 5);
        Store(u"one"_s);
        Store(u"two"_s);
        working.GenUnique();
        working.notes = u"of somebody else"_s;
    }
    ~Fixture() {
        if (!typed.empty()) QTest::qFail("a name was never asked for", __FILE__, __LINE__);
    }
    Fixture(const Fixture&) = delete;
    Fixture& operator=(const Fixture&) = delete;

    void Store(const QString& name) {
        CTRecord record;
        record.date.Set(3, 2, 2020);
        record.notes = name;
        if (!defaults.Write(name, record)) qFatal("a default could not be stored");
    }
    NamedDefaultsActions Actions(bool confirmDelete = true) {
        return {defaults,
                working,
                confirmDelete,
                {[this](CVORec& record) { return Edit(static_cast<CTRecord&>(record)); },
                 [this](const QString& opening) { return Ask(opening); }, home.prompt}};
    }
    bool Edit(CTRecord& record) {
        ++edited;
        seenId = record.GetId();
        seenDate = DateOf(record.date);
        seen = record.notes;
        record.notes = notes;
        return acceptsRecord;
    }
    Typed Ask(const QString& opening) {
        openings += opening;
        if (typed.empty()) {
            QTest::qFail("a name was asked for", __FILE__, __LINE__);
            return {};
        }
        const Typed name = typed.front();
        typed.pop_front();
        return name;
    }
    /// The notes of a stored default; nothing when there is none.
    [[nodiscard]] Typed Stored(const QString& name) {
        CTRecord record;
        return defaults.Read(name, record) ? Typed(record.notes) : Typed();
    }
    [[nodiscard]] QStringList Names() const {
        QStringList names = defaults.Names();
        names.removeLast();
        return names;
    }
};

}  // namespace

class TestNamedDefaultsActions : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void NewStartsEmpty();
    void NewExpense();
    void NewCancelledRecord();
    void NewCancelledName();
    void NewWithoutAName();
    void NewWithoutANameCancelled();
    void NewTaken_data();
    void NewTaken();
    void NewTakesTheReservedName();
    void NewThatCannotBeStored();
    void Edit();
    void EditCancelled();
    void EditReserved();
    void EditDamaged();
    void Delete();
    void DeleteDeclined();
    void DeleteWithoutAsking();
    void DeleteReserved();
    void NothingSelected();
    void Rename_data();
    void Rename();
    void RenameReservedRow();
    void RenameAsksAgain();
};

/// The record is empty and of today, whatever the working record held before.
void TestNamedDefaultsActions::NewStartsEmpty() {
    Fixture fixture;
    fixture.notes = u"mine"_s;
    fixture.typed = {u"three"_s};
    QCOMPARE(fixture.Actions().New(), Typed(u"three"_s));
    QCOMPARE(fixture.seenId, QString());
    QCOMPARE(fixture.seenDate, u"2026-11-19"_s);
    QCOMPARE(fixture.seen, QString());
    QCOMPARE(fixture.openings, QStringList{QString()});
    QCOMPARE(fixture.Stored(u"three"_s), Typed(u"mine"_s));
    QCOMPARE(fixture.Names(), QStringList({u"one"_s, u"two"_s, u"three"_s}));
}

void TestNamedDefaultsActions::NewExpense() {
    Fixture fixture;
    NamedDefaults expenses(*fixture.home.settings, fixture.home.clock, RecordMode::Expense);
    CERecord working;
    working.item1 = u"left over"_s;
    NamedDefaultsActions actions(expenses, working, true,
                                 {[](CVORec& record) {
                                      static_cast<CERecord&>(record).item2 = u"Hotel"_s;
                                      return true;
                                  },
                                  [](const QString&) { return Typed(u"one"_s); }, fixture.home.prompt});
    QCOMPARE(actions.New(), Typed(u"one"_s));
    CERecord record;
    QVERIFY(expenses.Read(u"one"_s, record));
    QCOMPARE(record.item1, QString());
    QCOMPARE(record.item2, u"Hotel"_s);
    QCOMPARE(DateOf(record.date), u"2026-11-19"_s);
}

void TestNamedDefaultsActions::NewCancelledRecord() {
    Fixture fixture;
    fixture.acceptsRecord = false;
    QCOMPARE(fixture.Actions().New(), Typed());
    QCOMPARE(fixture.edited, 1);
    QCOMPARE(fixture.Names(), QStringList({u"one"_s, u"two"_s}));
}

void TestNamedDefaultsActions::NewCancelledName() {
    Fixture fixture;
    fixture.typed = {kCancel};
    QCOMPARE(fixture.Actions().New(), Typed());
    QCOMPARE(fixture.Names(), QStringList({u"one"_s, u"two"_s}));
}

void TestNamedDefaultsActions::NewWithoutAName() {
    Fixture fixture;
    fixture.typed = {QString(), QString(), u"three"_s};
    fixture.home.prompt.Expect(Text::AskNameAgain, Answer::Ok, Text::DefaultsName);
    fixture.home.prompt.Expect(Text::AskNameAgain, Answer::Ok, Text::DefaultsName);
    QCOMPARE(fixture.Actions().New(), Typed(u"three"_s));
    QCOMPARE(fixture.edited, 1);
}

void TestNamedDefaultsActions::NewWithoutANameCancelled() {
    Fixture fixture;
    fixture.typed = {QString()};
    fixture.home.prompt.Expect(Text::AskNameAgain, Answer::Cancel, Text::DefaultsName);
    QCOMPARE(fixture.Actions().New(), Typed());
    QCOMPARE(fixture.Names(), QStringList({u"one"_s, u"two"_s}));
}

void TestNamedDefaultsActions::NewTaken_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QList<int>>("answers");
    QTest::addColumn<QString>("result");
    QTest::addColumn<QString>("notesOfOne");
    const auto yes = static_cast<int>(Answer::Yes), no = static_cast<int>(Answer::No),
               cancel = static_cast<int>(Answer::Cancel);
    QTest::newRow("yes replaces it") << u"one"_s << QList{yes} << u"one"_s << u"new"_s;
    QTest::newRow("one that differs only in case is replaced under its own name")
        << u"ONE"_s << QList{yes} << u"one"_s << u"new"_s;
    QTest::newRow("no asks again") << u"one|three"_s << QList{no} << u"three"_s << u"one"_s;
    QTest::newRow("no asks again, until yes") << u"one|one"_s << QList{no, yes} << u"one"_s << u"new"_s;
    QTest::newRow("cancel ends it") << u"one"_s << QList{cancel} << QString() << u"one"_s;
}

void TestNamedDefaultsActions::NewTaken() {
    QFETCH(QString, typed);
    QFETCH(QList<int>, answers);
    QFETCH(QString, result);
    QFETCH(QString, notesOfOne);
    Fixture fixture;
    fixture.notes = u"new"_s;
    for (const QString& name : typed.split(u'|')) fixture.typed.emplace_back(name);
    for (const int answer : answers)
        fixture.home.prompt.Expect(Text::AskReplaceDefault, static_cast<Answer>(answer));
    QCOMPARE(fixture.Actions().New(), result.isEmpty() ? Typed() : Typed(result));
    QCOMPARE(fixture.Stored(u"one"_s), Typed(notesOfOne));
    QCOMPARE(fixture.edited, 1);
    QVERIFY(!fixture.Names().contains(u"ONE"_s));
}

/// Wanted: only a rename refuses that name.
void TestNamedDefaultsActions::NewTakesTheReservedName() {
    Fixture fixture;
    fixture.typed = {kEmptyRecord};
    QCOMPARE(fixture.Actions().New(), Typed(kEmptyRecord));
    QCOMPARE(fixture.Names(), QStringList({u"one"_s, u"two"_s, kEmptyRecord}));
}

void TestNamedDefaultsActions::NewThatCannotBeStored() {
    Fixture fixture;
    fixture.notes = QString(2000, u'n');
    fixture.typed = {u"three"_s};
    fixture.home.prompt.ExpectTold(Text::ValueRefusedLarge);
    QCOMPARE(fixture.Actions().New(), Typed());
    QCOMPARE(fixture.Names(), QStringList({u"one"_s, u"two"_s}));
}

void TestNamedDefaultsActions::Edit() {
    Fixture fixture;
    fixture.notes = u"changed"_s;
    QVERIFY(fixture.Actions().Edit(u"one"_s));
    QCOMPARE(fixture.seen, u"one"_s);
    QCOMPARE(fixture.seenDate, u"2020-03-02"_s);
    QCOMPARE(fixture.Stored(u"one"_s), Typed(u"changed"_s));
    QCOMPARE(fixture.Stored(u"two"_s), Typed(u"two"_s));
    QCOMPARE(fixture.Names(), QStringList({u"one"_s, u"two"_s}));
}

void TestNamedDefaultsActions::EditCancelled() {
    Fixture fixture;
    fixture.notes = u"changed"_s;
    fixture.acceptsRecord = false;
    QVERIFY(!fixture.Actions().Edit(u"one"_s));
    QCOMPARE(fixture.Stored(u"one"_s), Typed(u"one"_s));
}

void TestNamedDefaultsActions::EditReserved() {
    Fixture fixture;
    fixture.home.prompt.ExpectTold(Text::EditRefused);
    QVERIFY(!fixture.Actions().Edit(kEmptyRecord));
    QCOMPARE(fixture.edited, 0);
    QCOMPARE(fixture.home.prompt.told.last(),
             u"This can't be edited: \"(empty record)\" stands for an empty record and is always there."_s);
}

void TestNamedDefaultsActions::EditDamaged() {
    Fixture fixture;
    QVERIFY(fixture.home.settings->WriteEntry(u"TimeDefaults"_s, u"damaged"_s, QByteArray("?")));
    fixture.home.prompt.ExpectTold(Text::DefaultDamaged, Text::EditDefaultTitle);
    QVERIFY(!fixture.Actions().Edit(u"damaged"_s));
    QCOMPARE(fixture.edited, 0);
}

void TestNamedDefaultsActions::Delete() {
    Fixture fixture;
    fixture.home.prompt.Expect(Text::AskDeleteDefault, Answer::Yes, Text::DeleteDefaultTitle);
    QVERIFY(fixture.Actions().Delete(u"one"_s));
    QCOMPARE(fixture.home.prompt.told.last(), u"Delete \"one\" from the stored defaults?"_s);
    QCOMPARE(fixture.Names(), QStringList{u"two"_s});
}

void TestNamedDefaultsActions::DeleteDeclined() {
    Fixture fixture;
    fixture.home.prompt.Expect(Text::AskDeleteDefault, Answer::No, Text::DeleteDefaultTitle);
    QVERIFY(!fixture.Actions().Delete(u"one"_s));
    QCOMPARE(fixture.Names(), QStringList({u"one"_s, u"two"_s}));
}

void TestNamedDefaultsActions::DeleteWithoutAsking() {
    Fixture fixture;
    QVERIFY(fixture.Actions(false).Delete(u"one"_s));
    QCOMPARE(fixture.Names(), QStringList{u"two"_s});
}

void TestNamedDefaultsActions::DeleteReserved() {
    Fixture fixture;
    fixture.home.prompt.ExpectTold(Text::DeleteRefused, Text::DeleteDefaultTitle);
    QVERIFY(!fixture.Actions().Delete(kEmptyRecord));
}

void TestNamedDefaultsActions::NothingSelected() {
    Fixture fixture;
    QVERIFY(!fixture.Actions().Edit(QString()));
    QVERIFY(!fixture.Actions().Delete(QString()));
    QCOMPARE(fixture.Actions().Rename(QString()), Typed());
    QCOMPARE(fixture.Names(), QStringList({u"one"_s, u"two"_s}));
}

void TestNamedDefaultsActions::Rename_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("boxes");
    QTest::addColumn<QString>("result");
    QTest::newRow("another name") << u"three"_s << QString() << u"three"_s;
    QTest::newRow("the same name: nothing is done") << u"one"_s << QString() << QString();
    QTest::newRow("the same name in other case") << u"One"_s << QString() << u"One"_s;
    QTest::newRow("no name, given up") << u""_s << u"empty:cancel"_s << QString();
    QTest::newRow("no name, then one") << u"|three"_s << u"empty:ok"_s << u"three"_s;
    QTest::newRow("the empty record, then a name")
        << u"(empty record)|three"_s << u"reserved"_s << u"three"_s;
    QTest::newRow("the empty record in other case")
        << u"(EMPTY record)|three"_s << u"reserved"_s << u"three"_s;
    QTest::newRow("a name that is taken, given up") << u"two"_s << u"taken:cancel"_s << QString();
    QTest::newRow("a name that is taken, then one") << u"two|three"_s << u"taken:ok"_s << u"three"_s;
    QTest::newRow("a name that is taken in other case") << u"TWO|three"_s << u"taken:ok"_s << u"three"_s;
    QTest::newRow("one thing after the other")
        << u"|(empty record)|two|four"_s << u"empty:ok reserved taken:ok"_s << u"four"_s;
}

void TestNamedDefaultsActions::Rename() {
    QFETCH(QString, typed);
    QFETCH(QString, boxes);
    QFETCH(QString, result);
    Fixture fixture;
    for (const QString& name : typed.split(u'|')) fixture.typed.emplace_back(name);
    for (const QString& box : boxes.split(u' ', Qt::SkipEmptyParts)) {
        const Answer answer = box.endsWith(u"ok") ? Answer::Ok : Answer::Cancel;
        if (box.startsWith(u"empty"))
            fixture.home.prompt.Expect(Text::AskNameAgain, answer, Text::RenameDefaultTitle);
        if (box.startsWith(u"taken")) fixture.home.prompt.Expect(Text::AskOtherName, answer);
        if (box == u"reserved") fixture.home.prompt.ExpectTold(Text::RenameRefused);
    }
    QCOMPARE(fixture.Actions().Rename(u"one"_s), result.isEmpty() ? Typed() : Typed(result));
    QCOMPARE(fixture.Stored(result.isEmpty() ? u"one"_s : result), Typed(u"one"_s));
    QCOMPARE(fixture.Stored(u"two"_s), Typed(u"two"_s));
    QCOMPARE(fixture.Names().size(), 2);
}

void TestNamedDefaultsActions::RenameReservedRow() {
    Fixture fixture;
    fixture.home.prompt.ExpectTold(Text::RenameRefused);
    QCOMPARE(fixture.Actions().Rename(kEmptyRecord), Typed());
    QVERIFY(fixture.openings.isEmpty());
}

/// The question opens on the present name, then on what was typed last.
void TestNamedDefaultsActions::RenameAsksAgain() {
    Fixture fixture;
    fixture.typed = {u"two"_s, kCancel};
    fixture.home.prompt.Expect(Text::AskOtherName, Answer::Ok);
    QCOMPARE(fixture.Actions().Rename(u"one"_s), Typed());
    QCOMPARE(fixture.openings, QStringList({u"one"_s, u"two"_s}));
    QCOMPARE(fixture.Names(), QStringList({u"one"_s, u"two"_s}));
}

TEST_CLASS(TestNamedDefaultsActions);
#include "TestNamedDefaultsActions.moc"
