#include "changes/CRecordSave.h"

#include "ChangesFixture.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/TestProgram.h"

#include <QTest>
#include <functional>

using namespace Qt::Literals::StringLiterals;

namespace {

using End = CRecordSave::End;

/// A record of client A and project X, open in a dialog.
struct OpenDialog : ChangesFixture<> {
    CRecordSave save{{.document = *home.document,
                      .changes = changes,
                      .prompt = home.prompt,
                      .labels = home.catalogue->Labels()}};
    QString id = home.AddTime(2026, 11, 19, u"09:00"_s, u"10:00"_s);
    CTRecord shown;
    std::unique_ptr<DialogRecord> dialog;

    OpenDialog() {
        ChangeOutside([](CTRecord& record) {
            record.item1 = u"A"_s;
            record.item2 = u"X"_s;
        });
        Load();
        const CTRecord& stored = *home.document->FindTime(id);
        shown.Copy(stored);
        dialog = std::make_unique<DialogRecord>(
            DialogRecord{.began = stored.Clone(), .untouched = stored.Clone(), .entered = shown});
    }
    /// What the console does meanwhile.
    void ChangeOutside(const std::function<void(CTRecord& record)>& change) const {
        const TestHome other(home.Path());
        CTRecord record;
        [&] {
            QVERIFY(other.store->ReadRecord(record, id));
            change(record);
            QVERIFY(other.store->ModifyRecord(record, id, Commit::Now));
            QCOMPARE(other.store->m_lastError, 0);
        }();
    }
    void DeleteOutside() const {
        const TestHome other(home.Path());
        [&] { QVERIFY(other.store->DeleteRecord(RecordKind::Time, id)); }();
    }
    [[nodiscard]] End Save() { return save.Save(*dialog); }
    /// "A X notes" as they are stored.
    [[nodiscard]] QString Stored() const {
        const TestHome other(home.Path());
        CTRecord record;
        return other.store->ReadRecord(record, id) ? Words(record) : u"deleted"_s;
    }
    [[nodiscard]] static QString Words(const CTRecord& record) {
        return record.item1 + u' ' + record.item2 + u' ' + record.notes;
    }
};

}  // namespace

/// The end of a dialog, after others were at work on its record.
class TestCRecordSave : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void NobodyElse() {
        OpenDialog t;
        t.shown.notes = u"mine"_s;
        QCOMPARE(t.Save(), End::Stored);
        QCOMPARE(t.Stored(), u"A X mine"_s);
        QCOMPARE(OpenDialog::Words(*t.home.document->FindTime(t.id)), u"A X mine"_s);
    }

    void WhatOthersSetMeanwhileStays() {
        OpenDialog t;
        t.ChangeOutside([](CTRecord& record) {
            record.item1 = u"B"_s;
            record.isExported = true;
        });
        t.shown.notes = u"mine"_s;
        QCOMPARE(t.Save(), End::Stored);
        QCOMPARE(t.Stored(), u"B X mine"_s);
        QVERIFY(t.home.document->FindTime(t.id)->isExported);
        QCOMPARE(OpenDialog::Words(*t.home.document->FindTime(t.id)), u"B X mine"_s);
    }

    void OneFieldOnBothSides_data() {
        QTest::addColumn<int>("answer");
        QTest::addColumn<QString>("stored");
        QTest::newRow("mine") << static_cast<int>(Answer::Yes) << u"C Z mine"_s;
        QTest::newRow("theirs") << static_cast<int>(Answer::No) << u"B Z mine"_s;
    }
    void OneFieldOnBothSides() {
        QFETCH(int, answer);
        OpenDialog t;
        t.ChangeOutside([](CTRecord& record) {
            record.item1 = u"B"_s;
            record.item2 = u"Z"_s;
        });
        t.shown.item1 = u"C"_s;
        t.shown.notes = u"mine"_s;
        t.home.prompt.Expect(Text::AskChangedOnBothSides, static_cast<Answer>(answer));
        QCOMPARE(t.Save(), End::Stored);
        QTEST(t.Stored(), "stored");
        QVERIFY(t.home.prompt.told.last().contains(u"Client: C here, B stored"_s));
    }

    /// The dialog then shows what others did, and saving it once more asks nothing.
    void BackToTheDialog() {
        OpenDialog t;
        t.ChangeOutside([](CTRecord& record) {
            record.item1 = u"B"_s;
            record.item2 = u"Z"_s;
        });
        t.shown.item1 = u"C"_s;
        t.home.prompt.Expect(Text::AskChangedOnBothSides, Answer::Cancel);
        QCOMPARE(t.Save(), End::Back);
        QCOMPARE(t.Stored(), u"B Z "_s);
        QCOMPARE(OpenDialog::Words(t.shown), u"C Z "_s);
        QCOMPARE(OpenDialog::Words(*t.home.document->FindTime(t.id)), u"B Z "_s);
        QCOMPARE(t.Save(), End::Stored);
        QCOMPARE(t.Stored(), u"C Z "_s);
    }

    /// The store isn't held while the user thinks about the question.
    void ChangedOnceMoreWhileTheQuestionStands() {
        OpenDialog t;
        t.ChangeOutside([](CTRecord& record) { record.item1 = u"B"_s; });
        t.shown.item1 = u"C"_s;
        class Slow final : public CPrompt {
         public:
            Answer Ask(const MessageBox& box) override {
                if (asked++ == 0) meanwhile();
                said.append(box.text);
                return Answer::Yes;
            }
            void Tell(const MessageBox&) override {}
            std::optional<QString> ChooseFile(const FileChoice&) override { return {}; }
            std::function<void()> meanwhile;
            QStringList said;
            int asked = 0;
        } prompt;
        prompt.meanwhile = [&t] { t.ChangeOutside([](CTRecord& record) { record.item1 = u"D"_s; }); };
        CRecordSave save({.document = *t.home.document,
                          .changes = t.changes,
                          .prompt = prompt,
                          .labels = t.home.catalogue->Labels()});
        QCOMPARE(save.Save(*t.dialog), End::Stored);
        QCOMPARE(prompt.asked, 2);
        QVERIFY(prompt.said.last().contains(u"Client: C here, D stored"_s));
        QCOMPARE(t.Stored(), u"C X "_s);
    }

    void DeletedMeanwhile() {
        OpenDialog t;
        t.DeleteOutside();
        t.shown.notes = u"mine"_s;
        t.home.prompt.Expect(Text::AskSaveDeletedAsNew, Answer::No);
        QCOMPARE(t.Save(), End::Back);
        QCOMPARE(t.Stored(), u"deleted"_s);
        t.home.prompt.Expect(Text::AskSaveDeletedAsNew, Answer::Yes);
        QCOMPARE(t.Save(), End::Stored);
        QCOMPARE(t.home.document->RecordCount(), 1U);
        QVERIFY(!t.home.document->FindTime(t.id));
        QStringList ids;
        t.home.document->CollectTimeIds(ids);
        QCOMPARE(OpenDialog::Words(*t.home.document->FindTime(ids.value(0))), u"A X mine"_s);
    }
};

TEST_CLASS(TestCRecordSave);
#include "TestCRecordSave.moc"
