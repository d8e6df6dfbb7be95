#include "reports/definition/CDefinitionsPage.h"

#include "reports/ReportFixture.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kReserved = u"(last used)"_s;

/// The page of listings over a scratch home with the definitions "one", "(last used)" and "Two", whose titles
/// are their names. The report is titled "mine".
struct Page {
    ReportFixture fixture;
    CReportStore store{fixture.Settings(), RecordMode::Time, ReportKind::Listing};
    CReportDef report;
    std::optional<QString> typed;  ///< what the user answers to the question for a name
    QString offered{};             ///< on which that question opened
    bool confirmDelete = true;
    std::optional<CDefinitionsPage> page;

    Page() {
        for (const QString& name : {u"one"_s, kReserved, u"Two"_s}) {
            CReportDef stored;
            stored.title = name;
            (void)store.Save(name, stored);
        }
        report.title = u"mine"_s;
        report.name = u"before"_s;
    }
    CDefinitionsPage& Open() {
        const auto askName = [this](const QString& opening) {
            offered = opening;
            return typed;
        };
        return page.emplace(store, report, confirmDelete,
                            CDefinitionsPage::Screen{askName, fixture.home.prompt});
    }
    [[nodiscard]] QString Stored(const QString& name) const {
        CReportDef stored;
        return store.Load(name, stored) ? stored.title : u"(none)"_s;
    }
};

}  // namespace

class TestCDefinitionsPage final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void opening() {
        Page t;
        CDefinitionsPage& page = t.Open();
        QCOMPARE(page.Names(), (QStringList{u"one"_s, kReserved, u"Two"_s}));
        QCOMPARE(page.Selected(), QString());
        QCOMPARE(t.report.name, QString());
        QCOMPARE(t.report.title, u"mine"_s);
        QVERIFY(!page.CanChangeSelected());
    }

    void choosingLoadsAtOnce() {
        Page t;
        CDefinitionsPage& page = t.Open();
        QVERIFY(page.Choose(u"Two"_s));
        QCOMPARE(t.report.title, u"Two"_s);
        QCOMPARE(t.report.name, u"Two"_s);
        QVERIFY(page.CanChangeSelected());
        QVERIFY(page.Choose(kReserved));
        QCOMPARE(t.report.title, kReserved);
        QVERIFY(!page.CanChangeSelected());
        t.fixture.PutText(u"ListReportsTime"_s, u"bad"_s, u"Title"_s, u"x"_s);
        QVERIFY(!page.Choose(u"bad"_s));
        QCOMPARE(t.report.title, kReserved);
    }

    void save() {
        Page t;
        CDefinitionsPage& page = t.Open();
        QVERIFY(!page.Save());
        (void)page.Choose(u"Two"_s);
        t.report.title = u"new"_s;
        t.report.name = QString();
        (void)page.Save();
        QCOMPARE(t.Stored(u"Two"_s), u"new"_s);
        QCOMPARE(t.report.name, u"Two"_s);
    }

    void theReservedNameIsRefused_data() {
        QTest::addColumn<QString>("button");
        for (const char* button : {"save", "rename", "delete"})
            QTest::newRow(button) << QString::fromLatin1(button);
    }
    void theReservedNameIsRefused() {
        QFETCH(QString, button);
        Page t;
        (void)t.store.Save(u"(LAST used)"_s, t.report);
        for (const QString& name : {kReserved, u"(LAST used)"_s}) {
            CDefinitionsPage& page = t.Open();
            (void)page.Choose(name);
            t.report.title = u"new"_s;
            t.typed = u"other"_s;
            t.fixture.home.prompt.ExpectTold(Text::ReportNameReserved);
            QVERIFY(!(button == u"save" ? page.Save() : button == u"rename" ? page.Rename() : page.Delete()));
            t.fixture.home.prompt.Finish();
            QVERIFY(t.Stored(name) != u"new" && t.Stored(name) != u"(none)");
        }
    }

    void saveAs_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QList<Answer>>("answers");
        QTest::addColumn<bool>("isSaved");
        QTest::addColumn<QStringList>("rows");
        const QStringList before{u"one"_s, kReserved, u"Two"_s, u"TWO"_s};
        using Answers = QList<Answer>;
        QTest::newRow("a new name") << u"new"_s << Answers() << true << (QStringList(before) << u"new"_s);
        QTest::newRow("an empty name") << QString() << Answers() << false << before;
        QTest::newRow("one that is there stands there twice")
            << u"one"_s << Answers{Answer::Yes} << true << (QStringList(before) << u"one"_s);
        QTest::newRow("no") << u"one"_s << Answers{Answer::No} << false << before;
        QTest::newRow("each that differs in its capitals asks")
            << u"two"_s << Answers{Answer::Yes, Answer::Yes} << true << (QStringList(before) << u"two"_s);
        QTest::newRow("no to the second") << u"two"_s << Answers{Answer::Yes, Answer::No} << false << before;
    }
    void saveAs() {
        QFETCH(QString, typed);
        QFETCH(QList<Answer>, answers);
        QFETCH(bool, isSaved);
        Page t;
        (void)t.store.Save(u"TWO"_s, CReportDef());
        CDefinitionsPage& page = t.Open();
        t.typed = typed;
        for (const Answer answer : answers) t.fixture.home.prompt.Expect(Text::AskReplaceReport, answer);
        QCOMPARE(page.SaveAs(), isSaved);
        t.fixture.home.prompt.Finish();
        QTEST(page.Names(), "rows");
        QCOMPARE(page.Selected(), isSaved ? typed : QString());
        QCOMPARE(t.report.name, isSaved ? typed : QString());
        QCOMPARE(t.Stored(typed) == u"mine", isSaved);
        QCOMPARE(t.Stored(u"Two"_s), u"Two"_s);
    }

    void saveAsUnderTheReservedName() {
        Page t;
        CDefinitionsPage& page = t.Open();
        t.typed = u"(Last Used)"_s;
        t.fixture.home.prompt.ExpectTold(Text::ReportNameReserved);
        QVERIFY(!page.SaveAs());
        t.fixture.home.prompt.Finish();
        QCOMPARE(t.Stored(u"(Last Used)"_s), u"(none)"_s);
        t.typed.reset();
        QVERIFY(!page.SaveAs());
    }

    void theQuestionForANameOpensOnTheSelectedOne() {
        Page t;
        CDefinitionsPage& page = t.Open();
        (void)page.Choose(u"one"_s);
        (void)page.SaveAs();
        QCOMPARE(t.offered, u"one"_s);
        (void)page.Rename();
        QCOMPARE(t.offered, u"one"_s);
        (void)page.Choose(kReserved);
        (void)page.SaveAs();
        QCOMPARE(t.offered, QString());
    }

    void rename_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("isDone");
        QTest::addColumn<QStringList>("rows");
        const QStringList before{u"one"_s, kReserved, u"Two"_s};
        QTest::newRow("a new name") << u"new"_s << true << QStringList{kReserved, u"Two"_s, u"new"_s};
        QTest::newRow("empty") << QString() << false << before;
        QTest::newRow("the same") << u"one"_s << false << before;
        QTest::newRow("other capitals") << u"ONE"_s << true << QStringList{kReserved, u"Two"_s, u"ONE"_s};
        QTest::newRow("one that is there, without a question")
            << u"Two"_s << true << QStringList{kReserved, u"Two"_s, u"Two"_s};
        QTest::newRow("the reserved name, without a word")
            << kReserved << true << QStringList{kReserved, u"Two"_s, kReserved};
    }
    /// What is stored under the new name is the report that the pages hold.
    void rename() {
        QFETCH(QString, typed);
        QFETCH(bool, isDone);
        Page t;
        CDefinitionsPage& page = t.Open();
        (void)page.Choose(u"one"_s);
        t.report.title = u"edited"_s;
        t.typed = typed;
        QCOMPARE(page.Rename(), isDone);
        t.fixture.home.prompt.Finish();
        QTEST(page.Names(), "rows");
        QCOMPARE(page.Selected(), isDone ? typed : u"one"_s);
        QCOMPARE(t.report.name, isDone ? typed : u"one"_s);
        QCOMPARE(t.Stored(u"one"_s), isDone ? u"(none)"_s : u"one"_s);
        if (isDone) QCOMPARE(t.Stored(typed), u"edited"_s);
    }

    void remove_data() {
        QTest::addColumn<bool>("confirmDelete");
        QTest::addColumn<Answer>("answer");
        QTest::addColumn<bool>("isDone");
        QTest::newRow("yes") << true << Answer::Yes << true;
        QTest::newRow("no") << true << Answer::No << false;
        QTest::newRow("without a question") << false << Answer::No << true;
    }
    void remove() {
        QFETCH(bool, confirmDelete);
        QFETCH(Answer, answer);
        QFETCH(bool, isDone);
        Page t;
        t.confirmDelete = confirmDelete;
        CDefinitionsPage& page = t.Open();
        QVERIFY(!page.Delete());
        (void)page.Choose(u"one"_s);
        if (confirmDelete) t.fixture.home.prompt.Expect(Text::AskDeleteReport, answer);
        QCOMPARE(page.Delete(), isDone);
        t.fixture.home.prompt.Finish();
        QCOMPARE(page.Names().contains(u"one"_s), !isDone);
        QCOMPARE(page.Selected(), isDone ? QString() : u"one"_s);
        QCOMPARE(t.report.name, isDone ? QString() : u"one"_s);
        QCOMPARE(t.Stored(u"one"_s), isDone ? u"(none)"_s : u"one"_s);
    }
};

TEST_CLASS(TestCDefinitionsPage);
#include "TestCDefinitionsPage.moc"
