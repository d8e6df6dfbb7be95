#include "app/PulldownLists.h"

#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestPulldownLists : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;
    std::unique_ptr<PulldownLists> lists;

    CPRecord* Add(int list, const QString& text) {
        auto item = std::make_unique<CPRecord>(text);
        item->listId = list;
        item->GenUnique();
        CPRecord* added = item.get();
        return lists->Add(std::move(item)) ? added : nullptr;
    }
    QString Texts(int list) {
        QStringList texts;
        for (const CPRecord* item : *lists->Get(list)) texts.append(item->GetText());
        return texts.join(u' ');
    }

 private Q_SLOTS:
    void initTestCase() { home = std::make_unique<TestHome>(); }
    void init() { lists = std::make_unique<PulldownLists>(); }

    void NewListsAreEmpty() {
        for (const int list : {16, 73, 99, 128, 140, 142}) {
            QVERIFY(lists->Get(list));
            QVERIFY(lists->Get(list)->empty());
        }
        QVERIFY(!lists->Get(143));
        QVERIFY(!lists->Get(0));
    }

    void AddKeepsTheOrder() {
        Add(16, u"b"_s);
        Add(16, u"c"_s);
        Add(16, u"a"_s);
        Add(17, u"x"_s);
        QCOMPARE(Texts(16), u"b c a"_s);
        QCOMPARE(Texts(17), u"x"_s);
    }

    void AddToListsThatStandTwice() {
        Add(128, u"a"_s);
        Add(140, u"b"_s);
        QCOMPARE(Texts(128), u"a"_s);
        QCOMPARE(Texts(140), u"b"_s);
    }

    void AddOfTheSameIdentityTwice() {
        const CPRecord* first = Add(16, u"a"_s);
        auto again = std::make_unique<CPRecord>(u"other"_s);
        again->listId = 16;
        again->SetId(first->GetId());
        QVERIFY(lists->Add(std::move(again)));
        QCOMPARE(Texts(16), u"a"_s);
    }

    void AddWithoutList() {
        QVERIFY(!Add(145, u"a"_s));
        auto ignored = std::make_unique<CPRecord>(u"a"_s);
        ignored->listId = 143;
        ignored->GenUnique();
        const QString id = ignored->GetId();
        QVERIFY(lists->Add(std::move(ignored)));
        QVERIFY(!lists->FindById(id));
    }

    void FindTakesTheFirstOfSeveral() {
        CPRecord* first = Add(16, u"twin"_s);
        CPRecord* second = Add(16, u"twin"_s);
        CPRecord* third = Add(16, u"twin"_s);
        Add(17, u"twin"_s);
        QCOMPARE(lists->Find(16, u"twin"_s), first);
        lists->Remove(*first);
        QCOMPARE(lists->Find(16, u"twin"_s), second);
        lists->Remove(*third);
        QCOMPARE(lists->Find(16, u"twin"_s), second);
        lists->Remove(*second);
        QVERIFY(!lists->Find(16, u"twin"_s));
        QVERIFY(lists->Find(17, u"twin"_s));
    }

    void RemoveOfASecondOneKeepsTheFirst() {
        CPRecord* first = Add(16, u"twin"_s);
        CPRecord* second = Add(16, u"twin"_s);
        lists->Remove(*second);
        QCOMPARE(lists->Find(16, u"twin"_s), first);
        QCOMPARE(Texts(16), u"twin"_s);
    }

    void SetValue() {
        CPRecord* a = Add(16, u"a"_s);
        CPRecord* b = Add(16, u"b"_s);
        lists->SetValue(*a, CPRecord(u"A"_s));
        QVERIFY(!lists->Find(16, u"a"_s));
        QCOMPARE(lists->Find(16, u"A"_s), a);
        QCOMPARE(lists->Find(16, u"b"_s), b);
        QCOMPARE(Texts(16), u"A b"_s);
    }

    void SetValueToATextThatIsThere() {
        CPRecord* a = Add(16, u"a"_s);
        CPRecord* b = Add(16, u"b"_s);
        CPRecord* c = Add(16, u"c"_s);
        lists->SetValue(*a, CPRecord(u"b"_s));
        QCOMPARE(lists->Find(16, u"b"_s), a);  // it stands in front
        lists->SetValue(*c, CPRecord(u"b"_s));
        QCOMPARE(lists->Find(16, u"b"_s), a);
        lists->SetValue(*a, CPRecord(u"a"_s));
        QCOMPARE(lists->Find(16, u"b"_s), b);
    }

    void RemovedItemsStayUntilTheyAreCleared() {
        CPRecord* gone = Add(16, u"gone"_s);
        lists->Remove(*gone);
        QCOMPARE(gone->text, u"gone"_s);
        QVERIFY(!lists->FindById(gone->GetId()));
        lists->Clear();
        QVERIFY(lists->Get(16)->empty());
    }

    void RemoveAll() {
        Add(16, u"a"_s);
        CPRecord* b = Add(16, u"b"_s);
        Add(17, u"c"_s);
        const QString id = b->GetId();
        lists->RemoveAll(16);
        lists->RemoveAll(145);  // no such list
        QCOMPARE(Texts(16), u""_s);
        QVERIFY(!lists->Find(16, u"a"_s));
        QVERIFY(!lists->FindById(id));
        QCOMPARE(Texts(17), u"c"_s);
    }

    /// A hundred thousand look-ups in a list of as many: seconds if it were walked.
    void ManyItems() {
        constexpr int kItems = 100000;
        for (int i = 0; i < kItems; ++i) Add(16, QString::number(i));
        for (int i = 0; i < kItems; ++i) QVERIFY(lists->Find(16, QString::number(i)));
        QVERIFY(!lists->Find(16, QString::number(kItems)));
    }
};

TEST_CLASS(TestPulldownLists);
#include "TestPulldownLists.moc"
