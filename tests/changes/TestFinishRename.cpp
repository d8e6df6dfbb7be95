#include "changes/FinishRename.h"

#include "changes/ChangesFixture.h"
#include "changes/OfferReplace.h"
#include "lang/FormatText.h"
#include "support/TestProgram.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// Keeps the question and answers it as Escape would.
class NotedPrompt final : public CPrompt {
 public:
    Answer Ask(const MessageBox& box) override {
        asked = box;
        return box.defaultAnswer;
    }
    void Tell(const MessageBox&) override {}
    std::optional<QString> ChooseFile(const FileChoice&) override { return std::nullopt; }

    MessageBox asked;
};

}  // namespace

/// Renaming an item to the end: the item, the records that use it, and two items that become one.
class TestFinishRename : public QObject {
    Q_OBJECT

    std::unique_ptr<ChangesFixture<>> t;
    std::unique_ptr<CListEditor> editor;

    void AddTime(const QString& client) {
        CTRecord record;
        record.Reset();
        record.date.Set(11, 19, 2026);
        record.item1 = client;
        QVERIFY(t->changes.Add(record, Identity::New));
    }
    bool Rename(const QString& from, const QString& to) {
        const ItemRename rename{16, from, to};
        return FinishRename(editor->Rename(rename), rename, *editor, t->changes, t->home.prompt);
    }
    [[nodiscard]] QString Clients() const {
        QStringList texts;
        if (!t->home.store->QueryTexts(u"SELECT item1 FROM time_velmarch ORDER BY item1"_s, texts))
            qFatal("can't read");
        return texts.join(u' ');
    }
    [[nodiscard]] QString Items() const { return t->home.catalogue->Texts(16).join(u' '); }

 private Q_SLOTS:
    void init() {
        t = std::make_unique<ChangesFixture<>>();
        t->Load();
        editor = std::make_unique<CListEditor>(CListEditor::Context{.catalogue = *t->home.catalogue,
                                                                    .store = *t->home.store,
                                                                    .settings = *t->home.settings,
                                                                    .prompt = t->home.prompt});
        for (const QString& text : {u"A"_s, u"B"_s}) QVERIFY(t->home.catalogue->AddItem(16, text, false));
        AddTime(u"A"_s);
        AddTime(u"A"_s);
        AddTime(u"B"_s);
    }
    void cleanup() {
        t->home.prompt.Finish();
        editor.reset();
        t.reset();
    }

    void IntoTheRecords() {
        t->home.prompt.Expect(Text::AskReplaceInRecords, Answer::Yes);
        t->home.prompt.ExpectTold(Text::RecordsReplaced);
        QVERIFY(!Rename(u"A"_s, u"E"_s));
        QCOMPARE(Items(), u"E B"_s);
        QCOMPARE(Clients(), u"B E E"_s);
        QCOMPARE(t->home.prompt.told.back(), FormatText<Text::RecordsReplaced>(2));
    }

    /// The item bears its new text by then: there is nothing left that could be cancelled.
    void TheQuestionForTheRecordsHasNoCancel() {
        NotedPrompt prompt;
        QVERIFY(!OfferReplaceInRecords(16, u"A"_s, u"E"_s, t->changes, prompt));
        QCOMPARE(prompt.asked.otherLabel, LoadText(Text::NoWord));
    }

    void NotIntoTheRecords() {
        t->home.prompt.Expect(Text::AskReplaceInRecords, Answer::No);
        QVERIFY(!Rename(u"A"_s, u"E"_s));
        QCOMPARE(Items(), u"E B"_s);
        QCOMPARE(Clients(), u"A A B"_s);
    }

    void NothingFollowsWhereNothingWasRenamed() {
        QVERIFY(!Rename(u"A"_s, u"A"_s));
        t->home.prompt.ExpectTold(Text::ItemStaysAsItWas);
        QVERIFY(!Rename(u"Z"_s, u"E"_s));
    }

    void ToATextThatTheListHas_data() {
        QTest::addColumn<Answer>("records");
        QTest::addColumn<Answer>("merge");
        QTest::addColumn<QString>("items");
        QTest::addColumn<QString>("clients");
        QTest::newRow("the records, and one item") << Answer::Yes << Answer::Yes << u"B"_s << u"B B B"_s;
        QTest::newRow("the records alone") << Answer::Yes << Answer::No << u"A B"_s << u"B B B"_s;
        QTest::newRow("one item alone") << Answer::No << Answer::Yes << u"B"_s << u"A A B"_s;
        QTest::newRow("neither: Escape twice") << Answer::No << Answer::No << u"A B"_s << u"A A B"_s;
    }
    void ToATextThatTheListHas() {
        QFETCH(Answer, records);
        QFETCH(Answer, merge);
        t->home.prompt.Expect(Text::AskMergeItems, merge);
        t->home.prompt.Expect(Text::AskReplaceInRecords, records);
        if (records == Answer::Yes) t->home.prompt.ExpectTold(Text::RecordsReplaced);
        QCOMPARE(Rename(u"A"_s, u"B"_s), merge == Answer::Yes);
        QTEST(Items(), "items");
        QTEST(Clients(), "clients");
    }

    /// Records that could not take the text are told of.
    void RecordsThatRefuse() {
        t->Run("CREATE TRIGGER refuse BEFORE UPDATE ON time_velmarch BEGIN SELECT RAISE(ABORT,'no'); END");
        t->home.prompt.Expect(Text::AskMergeItems, Answer::No);
        t->home.prompt.Expect(Text::AskReplaceInRecords, Answer::Yes);
        t->home.prompt.ExpectTold(Text::ModifyFailed);
        t->home.prompt.ExpectTold(Text::RecordsNotReplaced);
        QVERIFY(!Rename(u"A"_s, u"B"_s));
        QCOMPARE(Clients(), u"A A B"_s);
    }

    // --- Records, dependencies and item as one change

    void MergeItems() {
        QVERIFY(t->changes.MergeItems(16, u"A"_s, u"B"_s).ids.size() == 2);
        QCOMPARE(Items(), u"B"_s);
        QCOMPARE(Clients(), u"B B B"_s);
    }

    void MergeItemsOfAListThatRecordsDoNotUse() {
        for (const QString& text : {u"1.5"_s, u"2"_s}) QVERIFY(t->home.catalogue->AddItem(34, text, false));
        QVERIFY(t->changes.MergeItems(34, u"1.5"_s, u"2"_s));
        QCOMPARE(t->home.catalogue->Texts(34), QStringList{u"2"_s});
    }

    void MergeItemsThatFails_data() {
        QTest::addColumn<QByteArray>("refused");
        QTest::addColumn<QList<Text>>("told");
        QTest::newRow("a record") << QByteArray("UPDATE ON time_velmarch") << QList<Text>{Text::ModifyFailed};
        QTest::newRow("the item") << QByteArray("DELETE ON item_velmarch")
                                  << QList<Text>{Text::DeleteFailed, Text::ItemsNotMerged};
    }
    void MergeItemsThatFails() {
        QFETCH(QByteArray, refused);
        QFETCH(QList<Text>, told);
        t->Run("CREATE TRIGGER refuse BEFORE " + refused + " BEGIN SELECT RAISE(ABORT,'no'); END");
        for (const Text text : told) t->home.prompt.ExpectTold(text);
        QVERIFY(!t->changes.MergeItems(16, u"A"_s, u"B"_s));
        QCOMPARE(Items(), u"A B"_s);
        QCOMPARE(Clients(), u"A A B"_s);
        QCOMPARE(TestHome(t->home.Path()).catalogue->Texts(16).join(u' '), u"A B"_s);
    }
};

TEST_CLASS(TestFinishRename);
#include "TestFinishRename.moc"
