#include "reports/definition/ReportPages.h"

#include "reports/ReportFixture.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestReportPages final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void thePagesOfAKind_data() {
        using enum SheetPage;
        QTest::addColumn<ReportKind>("kind");
        QTest::addColumn<QList<SheetPage>>("pages");
        QTest::newRow("grouped") << ReportKind::Grouped
                                 << QList<SheetPage>{Selection, Groups, Order, Texts, Definitions};
        QTest::newRow("listing") << ReportKind::Listing
                                 << QList<SheetPage>{Selection, Columns, Order, Texts, Definitions};
        QTest::newRow("compound") << ReportKind::Compound
                                  << QList<SheetPage>{Selection, Columns, Groups, Order, Texts, Definitions};
    }
    void thePagesOfAKind() {
        QFETCH(ReportKind, kind);
        const auto pages = PagesOf(kind);
        QTEST(QList<SheetPage>(pages.begin(), pages.end()), "pages");
    }

    void leavingTheSelectionPage_data() {
        QTest::addColumn<int>("selection");
        QTest::addColumn<bool>("isStoredQuery");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("useStoredQuery");
        QTest::addColumn<QString>("queryName");
        QTest::newRow("a stored query") << 2 << true << u"Week"_s << true << u"Week"_s;
        QTest::newRow("no name") << 2 << true << QString() << false << u"held"_s;
        QTest::newRow("box not checked") << 2 << false << u"Week"_s << false << u"held"_s;
        QTest::newRow("the list") << 1 << true << u"Week"_s << false << u"held"_s;
        QTest::newRow("the selection") << 0 << true << u"Week"_s << false << u"held"_s;
    }
    void leavingTheSelectionPage() {
        QFETCH(int, selection);
        QFETCH(bool, isStoredQuery);
        QFETCH(QString, text);
        CReportDef report;
        report.queryName = u"held"_s;
        report.useStoredQuery = true;
        const SelectionPage page{ReportSelection(selection), isStoredQuery, text};
        page.Leave(report);
        QCOMPARE(static_cast<int>(report.selection), selection);
        QTEST(report.useStoredQuery, "useStoredQuery");
        QTEST(report.queryName, "queryName");
    }

    void whatTheSelectionPageEnables() {
        CReportDef report;
        report.selection = ReportSelection::Query;
        SelectionPage page = SelectionPage::Of(report);
        QVERIFY(page.CanUseStoredQuery() && !page.CanChooseQuery());
        page.isStoredQuery = true;
        QVERIFY(page.CanChooseQuery());
        page.selection = ReportSelection::Listed;
        QVERIFY(!page.CanUseStoredQuery() && !page.CanChooseQuery());
    }

    void checkedFieldsStandInTheOrderOfTheOffer() {
        const QList<FieldId> checked{FieldId::Billed, FieldId::TimeItem5, FieldId::TimeRate,
                                     FieldId::Effective};
        QCOMPARE(CheckedFields(RecordKind::Time, ReportUse::Group, checked),
                 (QList<FieldId>{FieldId::TimeRate, FieldId::TimeItem5, FieldId::Billed}));
        QCOMPARE(CheckedFields(RecordKind::Time, ReportUse::Sum, checked),
                 QList<FieldId>{FieldId::Effective});
    }

    void leavingTheGroupPage_data() {
        QTest::addColumn<ReportKind>("kind");
        QTest::addColumn<bool>("hasGroup");
        QTest::addColumn<bool>("hasSum");
        QTest::addColumn<int>("told");
        for (const auto& [name, kind] :
             {std::pair{"grouped", ReportKind::Grouped}, std::pair{"compound", ReportKind::Compound}}) {
            QTest::addRow("%s, nothing: the groups are missed first", name)
                << kind << false << false << 26016;
            QTest::addRow("%s, no group", name) << kind << false << true << 26016;
            QTest::addRow("%s, no sum", name) << kind << true << false << 26017;
            QTest::addRow("%s, both", name) << kind << true << true << 0;
        }
        QTest::newRow("a listing has no such page") << ReportKind::Listing << false << false << 0;
    }
    void leavingTheGroupPage() {
        QFETCH(ReportKind, kind);
        QFETCH(bool, hasGroup);
        QFETCH(bool, hasSum);
        QFETCH(int, told);
        ReportFixture fixture;
        CReportDef report;
        report.kind = kind;
        if (hasGroup) report.groupFields = {FieldId::Date};
        if (hasSum) report.sumFields = {FieldId::Duration};
        if (told != 0) fixture.home.prompt.ExpectTold(Text(told), Text(25986));
        QCOMPARE(CanLeaveGroupPage(report, fixture.home.prompt), told == 0);
        fixture.home.prompt.Finish();
    }
};

TEST_CLASS(TestReportPages);
#include "TestReportPages.moc"
