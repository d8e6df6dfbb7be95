#include "entry/NewListItems.h"

#include "entry/CCatalogueItems.h"
#include "entry/ExpenseEntryRules.h"
#include "entry/TimeEntryRules.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Notes what it is asked to keep, as "16:Acme".
class Notes final : public CListItemService {
 public:
    bool Add(int list, const QString& text) override {
        seen.append(QString::number(list) + u':' + text);
        return true;
    }
    QStringList seen;
};

using Setting = bool Settings::*;
constexpr Setting kNone = nullptr;

Settings AllOn() {
    Settings settings;
    for (const Setting keep :
         {&Settings::keepTimeList109, &Settings::keepTimeList110, &Settings::keepTimeList111,
          &Settings::keepTimeList112, &Settings::keepTimeList113, &Settings::keepTimeList114,
          &Settings::keepTimeList115, &Settings::keepExpenseList131, &Settings::keepExpenseList132,
          &Settings::keepExpenseList133, &Settings::keepExpenseList134, &Settings::keepExpenseList135,
          &Settings::keepExpenseList136, &Settings::keepDistance, &Settings::keepDistanceRate})
        settings.*keep = true;
    return settings;
}

/// All on, or all but one.
Settings Without(Setting off) {
    Settings settings = AllOn();
    if (off) settings.*off = false;
    return settings;
}

TimeEntryRules::EntryPage TypedTime() {
    TimeEntryRules::EntryPage page;
    page.item1 = u"Acme"_s;
    page.item2 = u"Bridge"_s;
    page.item3 = u"Drawing"_s;
    page.item4 = u"4711"_s;
    page.item5 = u"EUR"_s;
    page.rate = u"40"_s;
    page.amount = u"80"_s;
    page.isBillable = true;
    return page;
}

ExpenseEntryRules::MoneyPage TypedMoney(bool isDistance) {
    ExpenseEntryRules::MoneyPage page;
    page.isDistance = isDistance;
    page.distance = isDistance ? u"100"_s : QString();
    page.rate = isDistance ? u"0.3"_s : QString();
    page.amount = u"30.00"_s;
    page.item5 = u"EUR"_s;
    return page;
}

}  // namespace

Q_DECLARE_METATYPE(Setting)

class TestNewListItems : public QObject {
    Q_OBJECT

    TestHome home;

    static void AddColumns() {
        QTest::addColumn<Setting>("off");
        QTest::addColumn<QString>("kept");
    }

 private Q_SLOTS:
    void Defaults();
    void TimeRecord_data();
    void TimeRecord();
    void ComputedMoney_data();
    void ComputedMoney();
    void NoLongerBillable();
    void Distance_data();
    void Distance();
    void Amount_data();
    void Amount();
    void Items_data();
    void Items();
    void TextsAreCut();
    void NothingIsKept();
    void Catalogue_data();
    void Catalogue();
    void CatalogueTakesTheRestAfterARefusal();
};

/// What is typed into money fields isn't kept unless the user wants it, except rates.
void TestNewListItems::Defaults() {
    const Settings settings;
    Notes notes;
    CTRecord time;
    AcceptEntryPage(time, TypedTime(), NewListItems(settings, notes));
    CERecord expense;
    AcceptMoneyPage(expense, TypedMoney(false), NewListItems(settings, notes));
    QCOMPARE(notes.seen.join(u' '), u"16:Acme 17:Bridge 34:40 32:Drawing 33:4711 72:EUR 69: 70: 72:EUR"_s);
}

void TestNewListItems::TimeRecord_data() {
    AddColumns();
    QTest::newRow("all, in their order")
        << kNone << u"16:Acme 17:Bridge 34:40 32:Drawing 33:4711 72:EUR 73:80"_s;
    QTest::newRow("no clients") << &Settings::keepTimeList109
                                << u"17:Bridge 34:40 32:Drawing 33:4711 72:EUR 73:80"_s;
    QTest::newRow("no projects") << &Settings::keepTimeList110
                                 << u"16:Acme 34:40 32:Drawing 33:4711 72:EUR 73:80"_s;
    QTest::newRow("no activities") << &Settings::keepTimeList111
                                   << u"16:Acme 17:Bridge 34:40 33:4711 72:EUR 73:80"_s;
    QTest::newRow("no cost centres") << &Settings::keepTimeList112
                                     << u"16:Acme 17:Bridge 34:40 32:Drawing 72:EUR 73:80"_s;
    QTest::newRow("no rates") << &Settings::keepTimeList113
                              << u"16:Acme 17:Bridge 32:Drawing 33:4711 72:EUR 73:80"_s;
    QTest::newRow("no currencies") << &Settings::keepTimeList114
                                   << u"16:Acme 17:Bridge 34:40 32:Drawing 33:4711 73:80"_s;
    QTest::newRow("no amounts") << &Settings::keepTimeList115
                                << u"16:Acme 17:Bridge 34:40 32:Drawing 33:4711 72:EUR"_s;
    QTest::newRow("the settings of expenses don't count")
        << &Settings::keepExpenseList131 << u"16:Acme 17:Bridge 34:40 32:Drawing 33:4711 72:EUR 73:80"_s;
}

void TestNewListItems::TimeRecord() {
    QFETCH(Setting, off);
    const Settings settings = Without(off);
    Notes notes;
    CTRecord record;
    AcceptEntryPage(record, TypedTime(), NewListItems(settings, notes));
    QTEST(notes.seen.join(u' '), "kept");
}

void TestNewListItems::ComputedMoney_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("kept");
    QTest::newRow("a typed rate gives the amount, which isn't kept") << u"rate"_s << u"34:40"_s;
    QTest::newRow("a typed amount gives the rate, which isn't kept") << u"amount"_s << u"73:80"_s;
    QTest::newRow("without times both were typed") << u"both"_s << u"34:40 73:80"_s;
}

void TestNewListItems::ComputedMoney() {
    QFETCH(QString, typed);
    const Settings settings = AllOn();
    Notes notes;
    CTRecord record;
    record.SetBillable(true);
    if (typed != u"both"_s) record.SetDurationOnly(2, 0);
    if (typed != u"amount"_s) QVERIFY(TimeEntryRules::EnterRate(record, u"40"_s));
    if (typed != u"rate"_s) QVERIFY(TimeEntryRules::EnterAmount(record, u"80"_s));
    TimeEntryRules::EntryPage page;
    page.rate = u"40"_s;
    page.amount = u"80"_s;
    page.isBillable = true;
    AcceptEntryPage(record, page, NewListItems(settings, notes));
    QStringList money;
    for (const QString& one : notes.seen)
        if (one.startsWith(u"34"_s) || one.startsWith(u"73"_s)) money.append(one);
    QTEST(money.join(u' '), "kept");
}

/// The box was taken off just now: what was computed until then still doesn't count as typed.
void TestNewListItems::NoLongerBillable() {
    const Settings settings = AllOn();
    Notes notes;
    CTRecord record;
    record.SetBillable(true);
    record.SetDurationOnly(2, 0);
    record.SetRate(40.0F);
    TimeEntryRules::EntryPage page = TypedTime();
    page.isBillable = false;
    AcceptEntryPage(record, page, NewListItems(settings, notes));
    QVERIFY(notes.seen.contains(u"34:40"_s));
    QVERIFY(!notes.seen.contains(u"73:80"_s));
    QVERIFY(!record.amountIsDerived);
}

void TestNewListItems::Distance_data() {
    AddColumns();
    QTest::newRow("the amount of a distance is computed: not kept") << kNone << u"69:100 70:0.3 72:EUR"_s;
    QTest::newRow("no distances") << &Settings::keepDistance << u"70:0.3 72:EUR"_s;
    QTest::newRow("no distance rates") << &Settings::keepDistanceRate << u"69:100 72:EUR"_s;
    QTest::newRow("no currencies") << &Settings::keepExpenseList135 << u"69:100 70:0.3"_s;
    QTest::newRow("the settings of time records don't count")
        << &Settings::keepTimeList114 << u"69:100 70:0.3 72:EUR"_s;
}

void TestNewListItems::Distance() {
    QFETCH(Setting, off);
    const Settings settings = Without(off);
    Notes notes;
    CERecord record;
    AcceptMoneyPage(record, TypedMoney(true), NewListItems(settings, notes));
    QTEST(notes.seen.join(u' '), "kept");
}

/// The empty texts of distance and rate are for the list to refuse.
void TestNewListItems::Amount_data() {
    AddColumns();
    QTest::newRow("an amount that was typed") << kNone << u"69: 70: 72:EUR 73:30.00"_s;
    QTest::newRow("no amounts") << &Settings::keepExpenseList136 << u"69: 70: 72:EUR"_s;
    QTest::newRow("no currencies") << &Settings::keepExpenseList135 << u"69: 70: 73:30.00"_s;
}

void TestNewListItems::Amount() {
    QFETCH(Setting, off);
    const Settings settings = Without(off);
    Notes notes;
    CERecord record;
    AcceptMoneyPage(record, TypedMoney(false), NewListItems(settings, notes));
    QTEST(notes.seen.join(u' '), "kept");
}

void TestNewListItems::Items_data() {
    AddColumns();
    QTest::newRow("all") << kNone << u"16:Acme 17:Bridge 68:Taxi 71:Cash"_s;
    QTest::newRow("no clients") << &Settings::keepExpenseList131 << u"17:Bridge 68:Taxi 71:Cash"_s;
    QTest::newRow("no projects") << &Settings::keepExpenseList132 << u"16:Acme 68:Taxi 71:Cash"_s;
    QTest::newRow("no descriptions") << &Settings::keepExpenseList133 << u"16:Acme 17:Bridge 71:Cash"_s;
    QTest::newRow("no payments") << &Settings::keepExpenseList134 << u"16:Acme 17:Bridge 68:Taxi"_s;
}

void TestNewListItems::Items() {
    QFETCH(Setting, off);
    const Settings settings = Without(off);
    Notes notes;
    CERecord record;
    ExpenseEntryRules::ItemsPage page;
    page.item1 = u"Acme"_s;
    page.item2 = u"Bridge"_s;
    page.item3 = u"Taxi"_s;
    page.item4 = u"Cash"_s;
    AcceptItemsPage(record, page, NewListItems(settings, notes));
    QTEST(notes.seen.join(u' '), "kept");
}

/// The list gets what the record gets.
void TestNewListItems::TextsAreCut() {
    const Settings settings = AllOn();
    Notes notes;
    CERecord record;
    ExpenseEntryRules::ItemsPage page;
    page.item1 = QString(256, u'ä');
    AcceptItemsPage(record, page, NewListItems(settings, notes));
    QCOMPARE(notes.seen.first(), u"16:"_s + QString(255, u'ä'));
    QCOMPARE(record.item1, QString(255, u'ä'));
}

void TestNewListItems::NothingIsKept() {
    CTRecord record;
    AcceptEntryPage(record, TypedTime(), NewListItems());
    QCOMPARE(record.item1, u"Acme"_s);
    QCOMPARE(home.catalogue->Texts(16), QStringList());
}

void TestNewListItems::Catalogue_data() {
    QTest::addColumn<int>("list");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("added");
    QTest::addColumn<QStringList>("items");
    QTest::newRow("a new text") << 17 << u"Bridge"_s << true << QStringList{u"Tower"_s, u"Bridge"_s};
    QTest::newRow("one that is there") << 17 << u"Tower"_s << false << QStringList{u"Tower"_s};
    QTest::newRow("the same in other letters is another")
        << 17 << u"tower"_s << true << QStringList{u"Tower"_s, u"tower"_s};
    QTest::newRow("an empty text") << 17 << QString() << false << QStringList{u"Tower"_s};
    QTest::newRow("a coded text") << 17 << u"[4711] Bridge"_s << false << QStringList{u"Tower"_s};
    QTest::newRow("a kind of payment") << 71 << u"CA: Cash"_s << false << QStringList();
    QTest::newRow("a number") << 34 << u"40.50"_s << true << QStringList{u"40.5"_s};
    QTest::newRow("no number") << 34 << u"forty"_s << false << QStringList();
    QTest::newRow("a distance is a text") << 69 << u"12.50"_s << true << QStringList{u"12.50"_s};
}

/// Nobody is asked, even where new items are asked about otherwise.
void TestNewListItems::Catalogue() {
    QFETCH(int, list);
    QFETCH(QString, text);
    TestHome own;
    own.settings->confirmAddListItem = true;
    QVERIFY(own.catalogue->AddItem(17, u"Tower"_s, false));
    CCatalogueItems items(*own.catalogue);
    QTEST(items.Add(list, text), "added");
    QTEST(own.catalogue->Texts(list), "items");
    own.prompt.Finish();
}

void TestNewListItems::CatalogueTakesTheRestAfterARefusal() {
    const Settings settings = AllOn();
    CCatalogueItems items(*home.catalogue);
    CTRecord record;
    TimeEntryRules::EntryPage page = TypedTime();
    page.item1 = u"[1] coded"_s;
    AcceptEntryPage(record, page, NewListItems(settings, items));
    QCOMPARE(home.catalogue->Texts(16), QStringList());
    QCOMPARE(home.catalogue->Texts(17), QStringList{u"Bridge"_s});
    QCOMPARE(home.catalogue->Texts(73), QStringList{u"80"_s});
    QCOMPARE(record.item1, u"[1] coded"_s);
}

TEST_CLASS(TestNewListItems);
#include "TestNewListItems.moc"
