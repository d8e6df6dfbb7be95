#include "app/CFieldCatalogue.h"
#include "app/FieldLabels.h"
#include "records/CTRecord.h"
#include "reports/aggregate/CGrouping.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"
#include "viewmodel/report/ReportCharts.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

struct Work {
    const char* client;
    int day;  ///< of November 2026
    const char* end;
    float amount;
};
/// From 9 o'clock on.
constexpr Work kWorks[] = {
    {"Miller & Sons", 2, "12:20", 133.33F}, {"Ω <b>", 3, "17:00", 640.0F}, {"", 3, "09:10", 0.1F},
    {"Miller & Sons", 5, "10:05", 0.7F},    {"ACME", 9, "11:00", -1.0F},
};

/// What the console says of a report over all records.
QJsonArray RowsOf(const TestHome& home, FieldId group) {
    QProcess console;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    console.setProcessEnvironment(environment);
    console.start(QStringLiteral(TEST_BIN_DIR "/velmarch-cli"),
                  {u"--home"_s, home.Path(), u"--json"_s, u"report"_s, u"run"_s, u"--kind"_s, u"grouped"_s,
                   u"--group"_s, QString::number(NumberOf(group)), u"--sum"_s, u"5002,115"_s});
    if (!console.waitForFinished()) return {};
    return QJsonDocument::fromJson(console.readAllStandardOutput())[u"grouped"_s][u"rows"_s].toArray();
}

}  // namespace

/// A chart and the console's account of the same report hold the same numbers and texts.
class TestChartOfConsole final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void SameNumbersAndTexts_data() {
        QTest::addColumn<FieldId>("group");
        QTest::addColumn<qsizetype>("groups");
        QTest::newRow("a bar for each client") << FieldId::TimeItem1 << qsizetype{4};
        QTest::newRow("a point for each day") << FieldId::Date << qsizetype{4};
    }
    void SameNumbersAndTexts() {
        TestHome home;
        const FieldLabels labels;
        const CFieldCatalogue catalogue(labels, *home.settings);
        QFETCH(FieldId, group);
        CGrouping grouping(RecordKind::Time, {group}, {FieldId::Effective, FieldId::TimeAmount}, catalogue);
        for (const Work& work : kWorks) Add(home, work, grouping);
        const QJsonArray rows = RowsOf(home, group);
        QTEST(rows.size(), "groups");
        const CRegionalInfo region;
        const std::vector<ReportChart> charts =
            ChartsOf(grouping.Table(), {.region = region, .firstDayOfWeek = 1});
        for (std::size_t sum = 0; sum < charts.size(); ++sum)
            for (const QJsonValue& row : rows)
                CompareWith(charts[sum].model, row, static_cast<qsizetype>(sum));
    }

 private:
    static void Add(TestHome& home, const Work& work, CGrouping& grouping) {
        CTRecord record;
        record.GenUnique();
        record.date.Set(11, work.day, 2026);
        record.item1 = QString::fromUtf8(work.client);
        DateTimeVal start, end;
        QVERIFY(start.ParseTimeText(u"09:00"_s, true) &&
                end.ParseTimeText(QString::fromLatin1(work.end), true));
        record.SetStart(start);
        record.SetEnd(end);
        record.amount.Set(work.amount);
        QVERIFY(home.document->AddRecord(record, {Notify::Later, Commit::Now}, nullptr));
        grouping.Add(record);
    }
    /// A client without a name is "(empty)" beside its bar, and a cell without a text in the table.
    static void CompareWith(const ChartModel& chart, const QJsonValue& row, qsizetype sum) {
        const QString key = row[u"keys"_s][0].toString();
        const qsizetype label = chart.labels.indexOf(key.isEmpty() ? u"(empty)"_s : key);
        QVERIFY2(label >= 0, qPrintable(key));
        const ChartValue& value = chart.series.front().values[static_cast<std::size_t>(label)];
        QCOMPARE(value.text, row[u"texts"_s][sum].toString());
        // The console writes as many digits as the values of records have.
        QCOMPARE(static_cast<float>(value.number), static_cast<float>(row[u"sums"_s][sum].toDouble()));
    }
};

TEST_CLASS(TestChartOfConsole);
#include "TestChartOfConsole.moc"
