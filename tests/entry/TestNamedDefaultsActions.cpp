#include "config/CCfgStore.h"
#include "entry/NamedDefaults.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/TestHome.h"

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
struct Scene {
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

    Scene() : defaults(*home.settings, home.clock, RecordMode::Time) {
        home.clock.Set(2026, 11, 19, 9, 5);
        Store(u"one"_s);
        Store(u"two"_s);
        working.GenUnique();
        working.notes = u"of somebody else"_s;
    }
    ~Scene() {
        if (!typed.empty()) QTest::qFail("a name was never asked for", __FILE__, __LINE__);
    }
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

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
    Scene scene;
    scene.notes = u"mine"_s;
    scene.typed = {u"three"_s};
    QCOMPARE(scene.Actions().New(), Typed(u"three"_s));
    QCOMPARE(scene.seenId, QString());
    QCOMPARE(scene.seenDate, u"2026-11-19"_s);
    QCOMPARE(scene.seen, QString());
    QCOMPARE(scene.openings, QStringList{QString()});
    QCOMPARE(scene.Stored(u"three"_s), Typed(u"mine"_s));
    QCOMPARE(scene.Names(), QStringList({u"one"_s, u"two"_s, u"three"_s}));
}

void TestNamedDefaultsActions::NewExpense() {
    Scene scene;
    NamedDefaults expenses(*scene.home.settings, scene.home.clock, RecordMode::Expense);
    CERecord working;
    working.item1 = u"left over"_s;
    NamedDefaultsActions actions(expenses, working, true,
                                 {[](CVORec& record) {
                                      static_cast<CERecord&>(record).item2 = u"Hotel"_s;
                                      return true;
                                  },
                                  [](const QString&) { return Typed(u"one"_s); }, scene.home.prompt});
    QCOMPARE(actions.New(), Typed(u"one"_s));
    CERecord record;
    QVERIFY(expenses.Read(u"one"_s, record));
    QCOMPARE(record.item1, QString());
    QCOMPARE(record.item2, u"Hotel"_s);
    QCOMPARE(DateOf(record.date), u"2026-11-19"_s);
}

void TestNamedDefaultsActions::NewCancelledRecord() {
    Scene scene;
    scene.acceptsRecord = false;
    QCOMPARE(scene.Actions().New(), Typed());
    QCOMPARE(scene.edited, 1);
    QCOMPARE(scene.Names(), QStringList({u"one"_s, u"two"_s}));
}

void TestNamedDefaultsActions::NewCancelledName() {
    Scene scene;
    scene.typed = {kCancel};
    QCOMPARE(scene.Actions().New(), Typed());
    QCOMPARE(scene.Names(), QStringList({u"one"_s, u"two"_s}));
}

void TestNamedDefaultsActions::NewWithoutAName() {
    Scene scene;
    scene.typed = {QString(), QString(), u"three"_s};
    scene.home.prompt.Expect(Text::AskNameAgain, Answer::Ok);
    scene.home.prompt.Expect(Text::AskNameAgain, Answer::Ok);
    QCOMPARE(scene.Actions().New(), Typed(u"three"_s));
    QCOMPARE(scene.edited, 1);
}

void TestNamedDefaultsActions::NewWithoutANameCancelled() {
    Scene scene;
    scene.typed = {QString()};
    scene.home.prompt.Expect(Text::AskNameAgain, Answer::Cancel);
    QCOMPARE(scene.Actions().New(), Typed());
    QCOMPARE(scene.Names(), QStringList({u"one"_s, u"two"_s}));
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
    Scene scene;
    scene.notes = u"new"_s;
    for (const QString& name : typed.split(u'|')) scene.typed.emplace_back(name);
    for (const int answer : answers)
        scene.home.prompt.Expect(Text::AskReplaceDefault, static_cast<Answer>(answer));
    QCOMPARE(scene.Actions().New(), result.isEmpty() ? Typed() : Typed(result));
    QCOMPARE(scene.Stored(u"one"_s), Typed(notesOfOne));
    QCOMPARE(scene.edited, 1);
    QVERIFY(!scene.Names().contains(u"ONE"_s));
}

/// Wanted: only a rename refuses that name.
void TestNamedDefaultsActions::NewTakesTheReservedName() {
    Scene scene;
    scene.typed = {kEmptyRecord};
    QCOMPARE(scene.Actions().New(), Typed(kEmptyRecord));
    QCOMPARE(scene.Names(), QStringList({u"one"_s, u"two"_s, kEmptyRecord}));
}

void TestNamedDefaultsActions::NewThatCannotBeStored() {
    Scene scene;
    scene.notes = QString(2000, u'n');
    scene.typed = {u"three"_s};
    scene.home.prompt.ExpectTold(Text::ValueRefusedLarge);
    QCOMPARE(scene.Actions().New(), Typed());
    QCOMPARE(scene.Names(), QStringList({u"one"_s, u"two"_s}));
}

void TestNamedDefaultsActions::Edit() {
    Scene scene;
    scene.notes = u"changed"_s;
    QVERIFY(scene.Actions().Edit(u"one"_s));
    QCOMPARE(scene.seen, u"one"_s);
    QCOMPARE(scene.seenDate, u"2020-03-02"_s);
    QCOMPARE(scene.Stored(u"one"_s), Typed(u"changed"_s));
    QCOMPARE(scene.Stored(u"two"_s), Typed(u"two"_s));
    QCOMPARE(scene.Names(), QStringList({u"one"_s, u"two"_s}));
}

void TestNamedDefaultsActions::EditCancelled() {
    Scene scene;
    scene.notes = u"changed"_s;
    scene.acceptsRecord = false;
    QVERIFY(!scene.Actions().Edit(u"one"_s));
    QCOMPARE(scene.Stored(u"one"_s), Typed(u"one"_s));
}

void TestNamedDefaultsActions::EditReserved() {
    Scene scene;
    scene.home.prompt.ExpectTold(Text::EditRefused);
    QVERIFY(!scene.Actions().Edit(kEmptyRecord));
    QCOMPARE(scene.edited, 0);
    QCOMPARE(scene.home.prompt.told.last(),
             u"This can't be edited: \"(empty record)\" stands for an empty record and is always there."_s);
}

void TestNamedDefaultsActions::EditDamaged() {
    Scene scene;
    QVERIFY(scene.home.settings->WriteEntry(u"TimeDefaults"_s, u"damaged"_s, QByteArray("?")));
    scene.home.prompt.ExpectTold(Text::DefaultDamaged);
    QVERIFY(!scene.Actions().Edit(u"damaged"_s));
    QCOMPARE(scene.edited, 0);
}

void TestNamedDefaultsActions::Delete() {
    Scene scene;
    scene.home.prompt.Expect(Text::AskDeleteDefault, Answer::Yes);
    QVERIFY(scene.Actions().Delete(u"one"_s));
    QCOMPARE(scene.home.prompt.told.last(), u"Delete the default \"one\"?"_s);
    QCOMPARE(scene.Names(), QStringList{u"two"_s});
}

void TestNamedDefaultsActions::DeleteDeclined() {
    Scene scene;
    scene.home.prompt.Expect(Text::AskDeleteDefault, Answer::No);
    QVERIFY(!scene.Actions().Delete(u"one"_s));
    QCOMPARE(scene.Names(), QStringList({u"one"_s, u"two"_s}));
}

void TestNamedDefaultsActions::DeleteWithoutAsking() {
    Scene scene;
    QVERIFY(scene.Actions(false).Delete(u"one"_s));
    QCOMPARE(scene.Names(), QStringList{u"two"_s});
}

void TestNamedDefaultsActions::DeleteReserved() {
    Scene scene;
    scene.home.prompt.ExpectTold(Text::DeleteRefused);
    QVERIFY(!scene.Actions().Delete(kEmptyRecord));
}

void TestNamedDefaultsActions::NothingSelected() {
    Scene scene;
    QVERIFY(!scene.Actions().Edit(QString()));
    QVERIFY(!scene.Actions().Delete(QString()));
    QCOMPARE(scene.Actions().Rename(QString()), Typed());
    QCOMPARE(scene.Names(), QStringList({u"one"_s, u"two"_s}));
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
    Scene scene;
    for (const QString& name : typed.split(u'|')) scene.typed.emplace_back(name);
    for (const QString& box : boxes.split(u' ', Qt::SkipEmptyParts)) {
        const Answer answer = box.endsWith(u"ok") ? Answer::Ok : Answer::Cancel;
        if (box.startsWith(u"empty")) scene.home.prompt.Expect(Text::AskNameAgain, answer);
        if (box.startsWith(u"taken")) scene.home.prompt.Expect(Text::AskOtherName, answer);
        if (box == u"reserved") scene.home.prompt.ExpectTold(Text::RenameRefused);
    }
    QCOMPARE(scene.Actions().Rename(u"one"_s), result.isEmpty() ? Typed() : Typed(result));
    QCOMPARE(scene.Stored(result.isEmpty() ? u"one"_s : result), Typed(u"one"_s));
    QCOMPARE(scene.Stored(u"two"_s), Typed(u"two"_s));
    QCOMPARE(scene.Names().size(), 2);
}

void TestNamedDefaultsActions::RenameReservedRow() {
    Scene scene;
    scene.home.prompt.ExpectTold(Text::RenameRefused);
    QCOMPARE(scene.Actions().Rename(kEmptyRecord), Typed());
    QVERIFY(scene.openings.isEmpty());
}

/// The question opens on the present name, then on what was typed last.
void TestNamedDefaultsActions::RenameAsksAgain() {
    Scene scene;
    scene.typed = {u"two"_s, kCancel};
    scene.home.prompt.Expect(Text::AskOtherName, Answer::Ok);
    QCOMPARE(scene.Actions().Rename(u"one"_s), Typed());
    QCOMPARE(scene.openings, QStringList({u"one"_s, u"two"_s}));
    QCOMPARE(scene.Names(), QStringList({u"one"_s, u"two"_s}));
}

QTEST_GUILESS_MAIN(TestNamedDefaultsActions)
#include "TestNamedDefaultsActions.moc"
