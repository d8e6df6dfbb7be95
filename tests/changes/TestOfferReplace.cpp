#include "changes/OfferReplace.h"

#include "ChangesFixture.h"
#include "records/CTRecord.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// What follows the rename of an item.
class TestOfferReplace final : public QObject {
    Q_OBJECT

    std::unique_ptr<ChangesFixture<>> m_fixture;
    CScriptedPrompt* m_prompt = nullptr;

    void AddTimes(int count) {
        for (int i = 0; i < count; ++i) {
            CTRecord record;
            record.Reset();
            record.date.Set(11, 19, 2026);
            record.item1 = u"Old"_s;
            QVERIFY(m_fixture->home.document->AddRecord(record, {Notify::No, Commit::Now, Identity::New}));
        }
        m_fixture->Load();
    }
    [[nodiscard]] bool Offer(int list) {
        return OfferReplaceInRecords(list, u"Old"_s, u"New"_s, m_fixture->changes, *m_prompt);
    }
    [[nodiscard]] int Held(const QString& text) {
        int count = 0;
        m_fixture->home.document->LoadRecords(RecordKind::Time);
        m_fixture->home.document->BuildVisible();
        m_fixture->home.document->ForEachVisible([&](const CVORec& record) {
            if (static_cast<const CTRecord&>(record).item1 == text) ++count;
        });
        return count;
    }

 private Q_SLOTS:
    void init() {
        m_fixture = std::make_unique<ChangesFixture<>>();
        m_prompt = &m_fixture->home.prompt;
    }
    void cleanup() { m_fixture.reset(); }

    void TheCountIsTold() {
        AddTimes(3);
        m_prompt->Expect(Text::AskReplaceInRecords, Answer::Yes);
        m_prompt->ExpectTold(Text::RecordsReplaced);
        QVERIFY(Offer(16));
        QCOMPARE(m_prompt->told.last(), u"Records changed: 3"_s);
        QCOMPARE(Held(u"New"_s), 3);
    }
    void NoRecordHasIt() {
        m_prompt->Expect(Text::AskReplaceInRecords, Answer::Yes);
        m_prompt->ExpectTold(Text::RecordsReplaced);
        QVERIFY(Offer(16));
        QCOMPARE(m_prompt->told.last(), u"Records changed: 0"_s);
    }
    void Declined() {
        AddTimes(1);
        m_prompt->Expect(Text::AskReplaceInRecords, Answer::No);
        QVERIFY(!Offer(16));
        QCOMPARE(Held(u"Old"_s), 1);
    }
    /// Records store no rate as an item.
    void AListThatRecordsDoNotUse() { QVERIFY(!Offer(34)); }
    void Failing() {
        AddTimes(1);
        m_fixture->Run(
            "CREATE TRIGGER refuse BEFORE UPDATE ON time_velmarch BEGIN SELECT RAISE(ABORT,'no'); END");
        m_prompt->Expect(Text::AskReplaceInRecords, Answer::Yes);
        m_prompt->ExpectTold(Text::ModifyFailed);
        m_prompt->ExpectTold(Text::RecordsNotReplaced);
        QVERIFY(!Offer(16));
        m_fixture->Run("DROP TRIGGER refuse");
        QCOMPARE(Held(u"Old"_s), 1);
    }
};

TEST_CLASS(TestOfferReplace);
#include "TestOfferReplace.moc"
