#include "reports/definition/CReportDef.h"
#include "support/TestProgram.h"

#include <QTest>

class TestCReportDef : public QObject {
    Q_OBJECT
 private Q_SLOTS:
    void ResetGivesAListingOfWhatIsListed();
};

void TestCReportDef::ResetGivesAListingOfWhatIsListed() {
    CReportDef report{.kind = ReportKind::Grouped,
                      .selection = ReportSelection::Query,
                      .useStoredQuery = true,
                      .queryName = QStringLiteral("this week"),
                      .recordIds = {QStringLiteral("0123456789ABCDEF0123456789ABCDEF")},
                      .groupFields = {FieldId::TimeItem1},
                      .sumFields = {FieldId::Duration},
                      .sortKeys = {{FieldId::Date, 1}},
                      .listFields = {{FieldId::Date, 0}},
                      .title = QStringLiteral("Hours"),
                      .header = QStringLiteral("above"),
                      .footer = QStringLiteral("below"),
                      .name = QStringLiteral("By client")};
    report.Reset();

    QCOMPARE(report.kind, ReportKind::Listing);
    QCOMPARE(report.selection, ReportSelection::Listed);
    QVERIFY(!report.useStoredQuery);
    QVERIFY(report.groupFields.isEmpty() && report.sumFields.isEmpty() && report.recordIds.isEmpty());
    QVERIFY(report.sortKeys.isEmpty() && report.listFields.isEmpty());
    for (const QString& text : {report.queryName, report.title, report.header, report.footer, report.name}) {
        QCOMPARE(text, QString());
    }
}

TEST_CLASS(TestCReportDef);
#include "TestCReportDef.moc"
