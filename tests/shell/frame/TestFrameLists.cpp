#include "shell/frame/FrameCommandsHome.h"
#include "support/TestProgram.h"

using namespace Qt::Literals::StringLiterals;

/// The commands that edit the pick lists, as a menu runs them.
class TestFrameLists : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void EditListsRebuildsTheViews() {
        Fixture fixture;
        fixture.Run(40009);
        QCOMPARE(fixture.dialogs.called, QStringList{u"lists"_s});
        QCOMPARE(fixture.Hints(), QList<int>{6});
    }

    /// The window shows what another program has added meanwhile.
    void EditListsAsTheyAreStored() {
        Fixture fixture;
        QVERIFY(TestHome(fixture.home.Path()).catalogue->AddItem(16, u"Acme"_s, false));
        QVERIFY(!fixture.home.catalogue->HasItem(16, u"Acme"_s));
        fixture.Run(40009);
        QVERIFY(fixture.home.catalogue->HasItem(16, u"Acme"_s));
    }

    void EditListsThatCanNotBeRead() {
        Fixture fixture;
        // An item of a list that doesn't exist, which another program has written, ends the load.
        {
            TestHome other(fixture.home.Path());
            QVERIFY(
                other.manager.File().Execute("INSERT INTO item_velmarch(list,value_type,text,value,identity) "
                                             "VALUES(500,1,'lost',0,printf('%032X',1))"));
        }
        fixture.home.prompt.ExpectTold(Text::StoredItemWithoutList);
        fixture.home.prompt.ExpectTold(Text::ItemListsNotShown);
        fixture.Run(40009);
        QVERIFY(fixture.dialogs.called.isEmpty());
        QVERIFY(fixture.Hints().isEmpty());
        fixture.home.prompt.Finish();
    }
};

TEST_CLASS(TestFrameLists);
#include "TestFrameLists.moc"
