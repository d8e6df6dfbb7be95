#include "app/FieldLabels.h"

#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestFieldLabels : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;

 private Q_SLOTS:
    void initTestCase() { home = std::make_unique<TestHome>(); }

    void Default_data() {
        QTest::addColumn<int>("field");
        QTest::addColumn<QString>("label");
        QTest::newRow("client of a time") << 109 << u"Client"_s;
        QTest::newRow("project of a time") << 110 << u"Project"_s;
        QTest::newRow("third item of a time") << 111 << u"Activity"_s;
        QTest::newRow("fourth item of a time") << 112 << u"Cost centre"_s;
        QTest::newRow("rate of a time") << 113 << u"Rate"_s;
        QTest::newRow("fifth item of a time") << 114 << u"Currency"_s;
        QTest::newRow("amount of a time") << 115 << u"Amount"_s;
        QTest::newRow("notes of a time") << 116 << u"Notes"_s;
        QTest::newRow("first mark of a time") << 117 << u"Billable"_s;
        QTest::newRow("second mark of a time") << 118 << u"Billed"_s;
        QTest::newRow("client of an expense") << 131 << u"Client"_s;
        QTest::newRow("project of an expense") << 132 << u"Project"_s;
        QTest::newRow("third item of an expense") << 133 << u"Description"_s;
        QTest::newRow("fourth item of an expense") << 134 << u"Payment"_s;
        QTest::newRow("fifth item of an expense") << 135 << u"Currency"_s;
        QTest::newRow("amount of an expense") << 136 << u"Amount"_s;
        QTest::newRow("notes of an expense") << 137 << u"Notes"_s;
        QTest::newRow("first mark of an expense") << 138 << u"Billable"_s;
        QTest::newRow("second mark of an expense") << 139 << u"Billed"_s;
        QTest::newRow("fifth mark of an expense") << 140 << u"Personal"_s;
        QTest::newRow("third mark of an expense") << 141 << u"Reimbursable"_s;
        QTest::newRow("fourth mark of an expense") << 142 << u"Reimbursed"_s;
        QTest::newRow("the mark exported of times") << 146 << u"Exported"_s;
        QTest::newRow("the mark exported of expenses") << 148 << u"Exported"_s;
        QTest::newRow("a heading of a list has none") << 99 << QString();
        QTest::newRow("a heading of an expense list has none") << 130 << QString();
        QTest::newRow("a list of items has none") << 16 << QString();
        QTest::newRow("an unknown number has none") << 145 << QString();
    }
    void Default() {
        QFETCH(int, field);
        QTEST(FieldLabels::Default(field), "label");
        QTEST(FieldLabels().GetLabel(field), "label");
    }

    void OwnName_data() {
        QTest::addColumn<QString>("own");
        QTest::addColumn<QString>("label");
        QTest::newRow("a name of the user") << u"Customer"_s << u"Customer"_s;
        QTest::newRow("an empty name falls back to the default") << u""_s << u"Client"_s;
        QTest::newRow("a percent sign is data") << u"100 %s & more"_s << u"100 %s & more"_s;
    }
    void OwnName() {
        QFETCH(QString, own);
        FieldLabels labels;
        labels.Set(109, own);
        QTEST(labels.GetLabel(109), "label");
        QTEST(labels.ColumnName(109), "label");
        QCOMPARE(labels.Own(109), own);
        QCOMPARE(labels.GetLabel(131), u"Client"_s);  // the same field of the other kind has its own name
    }

    void ClearForgets() {
        FieldLabels labels;
        QVERIFY(!labels.IsFilled());
        labels.Set(109, u"Customer"_s);
        labels.MarkFilled();
        QVERIFY(labels.IsFilled());
        labels.Clear();
        QVERIFY(!labels.IsFilled());
        QCOMPARE(labels.GetLabel(109), u"Client"_s);
    }
};

TEST_CLASS(TestFieldLabels);
#include "TestFieldLabels.moc"
