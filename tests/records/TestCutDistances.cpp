#include "records/CutDistances.h"

#include "lang/LoadText.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

CERecord Trip(const QString& stored, int day = 0) {
    CERecord record;
    record.TakeStoredDistance(stored);
    if (day > 0) record.date.Set(11, day, 2026);
    return record;
}

}  // namespace

class TestCutDistances : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void WhatIsCut_data();
    void WhatIsCut();
    void TimesHaveNone();
    void TheFirstDay_data();
    void TheFirstDay();
    void NoneHasNoWords();
};

void TestCutDistances::WhatIsCut_data() {
    QTest::addColumn<QString>("stored");
    QTest::addColumn<bool>("isCut");
    QTest::newRow("the comma isn't the decimal character") << u"12,35"_s << true;
    QTest::newRow("no number at all") << u"far"_s << true;
    QTest::newRow("a number") << u"12.35"_s << false;
    QTest::newRow("more places than are shown") << u"12.3512"_s << false;
    QTest::newRow("none") << QString() << false;
}
void TestCutDistances::WhatIsCut() {
    QFETCH(QString, stored);
    QTEST(HasCutDistance(Trip(stored)), "isCut");
}

void TestCutDistances::TimesHaveNone() {
    QVERIFY(!HasCutDistance(CTRecord()));
}

void TestCutDistances::TheFirstDay_data() {
    QTest::addColumn<QList<int>>("days");
    QTest::addColumn<QString>("words");
    QTest::newRow("the earliest, not the first to come")
        << QList{19, 12, 15} << u"3, the first of 11/12/2026."_s;
    QTest::newRow("days go before none") << QList{0, 19} << u"2, the first of 11/19/2026."_s;
    QTest::newRow("no day at all") << QList{0} << u"1, the first of a record without a day."_s;
}
void TestCutDistances::TheFirstDay() {
    QFETCH(QList<int>, days);
    QFETCH(QString, words);
    CutDistances cut;
    for (const int day : days) cut.Add(Trip(u"12,35"_s, day));
    cut.Add(Trip(u"12.35"_s, 1));
    QCOMPARE(cut.Count(), days.size());
    QVERIFY2(cut.Words().contains(words), qPrintable(cut.Words()));
}

void TestCutDistances::NoneHasNoWords() {
    QCOMPARE(CutDistances().Words(), QString());
}

TEST_CLASS(TestCutDistances);
#include "TestCutDistances.moc"
