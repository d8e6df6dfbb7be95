#include "lists/ListPages.h"

#include "app/CPulldownCatalogue.h"
#include "app/ListTable.h"
#include "config/CCfgStore.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestListPages : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void Order();
    void Caption_data();
    void Caption();
    void OwnName_data();
    void OwnName();
};

void TestListPages::Order() {
    const std::vector<int> pages(ListPages().begin(), ListPages().end());
    QCOMPARE(pages, (std::vector<int>{16, 17, 32, 33, 34, 68, 69, 70, 71, 72, 73}));
    for (const int list : pages) QVERIFY(FindRecordList(list));
}

void TestListPages::Caption_data() {
    QTest::addColumn<int>("list");
    QTest::addColumn<Text>("text");
    QTest::newRow("16") << 16 << Text::FieldClient;
    QTest::newRow("17") << 17 << Text::FieldProject;
    QTest::newRow("32") << 32 << Text::FieldActivity;
    QTest::newRow("33") << 33 << Text::FieldCostCentre;
    QTest::newRow("34") << 34 << Text::FieldRate;
    QTest::newRow("68") << 68 << Text::HeadingDescriptions;
    QTest::newRow("70") << 70 << Text::ListDistanceRates;
    QTest::newRow("71") << 71 << Text::FieldExpenseItem4;
    QTest::newRow("72") << 72 << Text::FieldExpenseCurrency;
    QTest::newRow("73") << 73 << Text::FieldAmount;
}

void TestListPages::Caption() {
    QFETCH(int, list);
    QFETCH(Text, text);
    const TestHome home;
    QCOMPARE(ListPageCaption(*home.catalogue, list, *home.settings), LoadText(text));
    QCOMPARE(ListPageCaption(*home.catalogue, 99, *home.settings), QString());
    home.settings->metricUnits = true;
    QCOMPARE(ListPageCaption(*home.catalogue, 69, *home.settings), LoadText(Text::UnitKilometres));
    home.settings->metricUnits = false;
    QCOMPARE(ListPageCaption(*home.catalogue, 69, *home.settings), LoadText(Text::UnitMiles));
}

/// Of all lists but those of distances and their rates, by the user's name of one field each.
void TestListPages::OwnName_data() {
    QTest::addColumn<int>("field");
    QTest::addColumn<int>("list");
    const QList<std::pair<int, int>> pages{{109, 16}, {110, 17}, {111, 32}, {112, 33}, {113, 34},
                                           {133, 68}, {134, 71}, {114, 72}, {115, 73}};
    for (const auto& [field, list] : pages)
        QTest::newRow(qPrintable(QString::number(field))) << field << list;
}

void TestListPages::OwnName() {
    QFETCH(int, field);
    QFETCH(int, list);
    const TestHome home;
    QVERIFY(home.catalogue->SetNames({{field, u"Mine"_s}}));
    QStringList named;
    for (const int page : ListPages())
        if (ListPageCaption(*home.catalogue, page, *home.settings) == u"Mine"_s)
            named += QString::number(page);
    QCOMPARE(named, QStringList{QString::number(list)});
}

TEST_CLASS(TestListPages);
#include "TestListPages.moc"
