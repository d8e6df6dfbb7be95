#include "viewmodel/lists/CItemModel.h"

#include "lang/FormatText.h"
#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QAbstractItemModelTester>
#include <QElapsedTimer>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestCItemModel : public QObject {
    Q_OBJECT

    static QString Shown(const CItemModel& model, int section = CItemModel::TextSection) {
        QStringList texts;
        for (int row = 0; row < model.rowCount(); ++row) texts += model.index(row, section).data().toString();
        return texts.join(u", "_s);
    }

 private Q_SLOTS:
    void InTheOrderOfTheList();
    void Narrow_data();
    void Narrow();
    void StaysNarrowed();
    void Use();
    void WithoutUse();
    void FiftyThousandItems();
};

void TestCItemModel::InTheOrderOfTheList() {
    CItemModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QCOMPARE(model.rowCount(), 0);
    model.SetItems({u"b"_s, u"A"_s, u"c"_s}, {});
    QCOMPARE(Shown(model), u"b, A, c"_s);
    QCOMPARE(model.IndexOf(u"c"_s).row(), 2);
    QVERIFY(!model.IndexOf(u"C"_s).isValid());
    QCOMPARE(model.headerData(0, Qt::Horizontal).toString(), LoadText(Text::ItemColumn));
    QCOMPARE(model.headerData(1, Qt::Horizontal).toString(), LoadText(Text::ItemUseColumn));
}

void TestCItemModel::Narrow_data() {
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("shown");
    QTest::newRow("no words") << u""_s << u"Acme, Büro, Acme north"_s;
    QTest::newRow("in any case") << u"ACME"_s << u"Acme, Acme north"_s;
    QTest::newRow("all words") << u"north acme"_s << u"Acme north"_s;
    QTest::newRow("letters within") << u"ür"_s << u"Büro"_s;
    QTest::newRow("none has them") << u"zoo"_s << u""_s;
}

void TestCItemModel::Narrow() {
    QFETCH(QString, words);
    CItemModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.SetItems({u"Acme"_s, u"Büro"_s, u"Acme north"_s}, {});
    model.Narrow(words);
    QTEST(Shown(model), "shown");
    QCOMPARE(model.ItemCount(), 3);
}

void TestCItemModel::StaysNarrowed() {
    CItemModel model;
    model.SetItems({u"Acme"_s, u"Zoo"_s}, {});
    model.Narrow(u"a"_s);
    model.SetItems({u"Acme"_s, u"Zoo"_s, u"Alpha"_s}, {});
    QCOMPARE(Shown(model), u"Acme, Alpha"_s);
    QCOMPARE(model.TextAt(1), u"Alpha"_s);
}

void TestCItemModel::Use() {
    TestHome home;
    for (const QString& text : {u"one"_s, u"two"_s, u"two"_s}) {
        CTRecord record;
        record.Reset();
        record.GenUnique();
        record.item1 = text;
        QVERIFY(home.store->InsertRecord(record, Commit::Now));
    }
    CItemModel model;
    model.SetItems({u"none"_s, u"one"_s, u"two"_s}, CItemUse::Count(*home.store, 16));
    QCOMPARE(Shown(model, CItemModel::UseSection),
             QStringList({LoadText(Text::ItemUsedByNone), LoadText(Text::ItemUsedByOne),
                          FormatText<Text::ItemUsedByMany>(2)})
                 .join(u", "_s));
    for (const int section : {0, 1})
        QCOMPARE(model.index(2, section).data(Qt::AccessibleTextRole).toString(),
                 u"two, "_s + FormatText<Text::ItemUsedByMany>(2));
}

void TestCItemModel::WithoutUse() {
    CItemModel model;
    model.SetItems({u"A"_s}, {});
    QCOMPARE(Shown(model, CItemModel::UseSection), QString());
    QCOMPARE(model.index(0, 0).data(Qt::AccessibleTextRole).toString(), u"A"_s);
}

/// A letter typed over 50,000 items is answered before the next one.
void TestCItemModel::FiftyThousandItems() {
    QStringList texts;
    for (int i = 0; i < 50000; ++i) texts += u"Client %1 of the north"_s.arg(i);
    CItemModel model;
    model.SetItems(texts, {});
    QElapsedTimer timer;
    timer.start();
    model.Narrow(u"north 4999"_s);
    QVERIFY2(timer.elapsed() < 500, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(model.rowCount(), 15);
}

TEST_CLASS(TestCItemModel);
#include "TestCItemModel.moc"
