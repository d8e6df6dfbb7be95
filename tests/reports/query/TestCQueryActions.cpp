#include "reports/query/CQueryActions.h"

#include "reports/ReportFixture.h"
#include "reports/query/CQueryStore.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kReserved = u"(last used)"_s;

/// The queries "one" and "(last used)" of a mode.
struct Actions {
    ReportFixture fixture;
    RecordMode mode;
    CQueryStore store{fixture.Settings(), mode};
    std::optional<QString> typed;
    QString offered{};
    bool confirmDelete = true;

    explicit Actions(RecordMode of = RecordMode::Time) : mode(of) {
        (void)store.Save(u"one"_s, Query(u"before"_s));
        (void)store.Save(kReserved, Query(u"before"_s));
    }
    [[nodiscard]] StoredQuery Query(const QString& item) const {
        if (mode == RecordMode::Expense) {
            ExpenseQuery query;
            query.Reset(fixture.Periods());
            query.items[0] = item;
            return query;
        }
        TimeQuery query;
        query.Reset(fixture.Periods());
        query.items[0] = item;
        return query;
    }
    CQueryActions Open() {
        const auto askName = [this](const QString& opening) {
            offered = opening;
            return typed;
        };
        return {store, mode, confirmDelete, {askName, fixture.home.prompt}};
    }
    /// The text of the first item.
    [[nodiscard]] QString Stored(const QString& name) const {
        const auto query = store.Load(name);
        return query ? std::visit([](const auto& one) { return one.items[0]; }, *query) : QString();
    }
};

}  // namespace

class TestCQueryActions final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void theQuestionForANameOpensOnTheSelectedOne() {
        Actions t;
        QVERIFY(!t.Open().SaveAs(u"one"_s, t.Query(u"x"_s)));
        QCOMPARE(t.offered, u"one"_s);
        QVERIFY(!t.Open().SaveAs(kReserved, t.Query(u"x"_s)));
        QCOMPARE(t.offered, QString());
    }

    void saveAs_data() {
        QTest::addColumn<RecordMode>("mode");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QList<Answer>>("answers");
        QTest::addColumn<bool>("isSaved");
        for (const auto& [name, mode] :
             {std::pair{"time", RecordMode::Time}, std::pair{"expense", RecordMode::Expense}}) {
            QTest::addRow("%s: a new name", name) << mode << u"new"_s << QList<Answer>() << true;
            QTest::addRow("%s: no name", name) << mode << QString() << QList<Answer>() << false;
            QTest::addRow("%s: yes", name) << mode << u"one"_s << QList{Answer::Yes} << true;
            QTest::addRow("%s: no", name) << mode << u"one"_s << QList{Answer::No} << false;
            QTest::addRow("%s: other capitals", name) << mode << u"ONE"_s << QList{Answer::Yes} << true;
            QTest::addRow("%s: the reserved name", name) << mode << kReserved << QList{Answer::Yes} << true;
        }
    }
    void saveAs() {
        QFETCH(RecordMode, mode);
        QFETCH(QString, typed);
        QFETCH(QList<Answer>, answers);
        QFETCH(bool, isSaved);
        Actions t(mode);
        t.typed = typed;
        const auto title = static_cast<Text>(mode == RecordMode::Time ? 23223 : 23262);
        for (const Answer answer : answers) t.fixture.home.prompt.Expect(Text(23258), answer, title);
        QCOMPARE(t.Open().SaveAs({}, t.Query(u"after"_s)), isSaved ? std::optional(typed) : std::nullopt);
        t.fixture.home.prompt.Finish();
        QCOMPARE(t.Stored(typed) == u"after", isSaved);
        QCOMPARE(t.store.Names().size(),
                 t.store.Names().contains(typed) && typed != u"one" && typed != kReserved ? 3 : 2);
    }

    void remove_data() {
        QTest::addColumn<RecordMode>("mode");
        QTest::addColumn<bool>("confirmDelete");
        QTest::addColumn<Answer>("answer");
        QTest::addColumn<bool>("isDone");
        QTest::newRow("yes") << RecordMode::Time << true << Answer::Yes << true;
        QTest::newRow("yes, of expenses") << RecordMode::Expense << true << Answer::Yes << true;
        QTest::newRow("no") << RecordMode::Time << true << Answer::No << false;
        QTest::newRow("without a question") << RecordMode::Time << false << Answer::No << true;
    }
    void remove() {
        QFETCH(RecordMode, mode);
        QFETCH(bool, confirmDelete);
        QFETCH(Answer, answer);
        QFETCH(bool, isDone);
        Actions t(mode);
        t.confirmDelete = confirmDelete;
        const auto title = static_cast<Text>(mode == RecordMode::Time ? 23223 : 23262);
        if (confirmDelete) t.fixture.home.prompt.Expect(Text(23050), answer, title);
        QVERIFY(!t.Open().Delete({}));
        QCOMPARE(t.Open().Delete(u"one"_s), isDone);
        t.fixture.home.prompt.Finish();
        if (confirmDelete)
            QVERIFY(t.fixture.home.prompt.told.last().contains(u"\"one\" from the stored queries?"));
        QCOMPARE(t.store.Names().contains(u"one"_s), !isDone);
    }

    void theReservedOneIsRefused() {
        for (const RecordMode mode : {RecordMode::Time, RecordMode::Expense}) {
            Actions t(mode);
            t.fixture.home.prompt.ExpectTold(Text(23340), Text(mode == RecordMode::Time ? 23223 : 23262));
            QVERIFY(!t.Open().Delete(kReserved));
            t.fixture.home.prompt.Finish();
            QCOMPARE(t.fixture.home.prompt.told.last(),
                     u"This can't be deleted: \"(last used)\" holds the filter that was used last."_s);
            QVERIFY(t.store.Names().contains(kReserved));
        }
    }
};

TEST_CLASS(TestCQueryActions);
#include "TestCQueryActions.moc"
