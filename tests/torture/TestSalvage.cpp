#include "support/TestProgram.h"
#include "torture/DamagedStore.h"

#include <QTest>
#include <QtEndian>

/// Destroys pages of a store, any of them, and saves what can be read. The long form (VELMARCH_LONG_TESTS)
/// makes 2,000 trials of each kind.
class TestSalvage : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void ASoundStoreIsSavedWhole_data();
    void ASoundStoreIsSavedWhole();
    void DestroyedPages_data();
    void DestroyedPages();
    void EachOfTheFirstPages();
    void TheListOfUnusedPages();
};

void TestSalvage::ASoundStoreIsSavedWhole_data() {
    QTest::addColumn<bool>("hasChecks");
    QTest::newRow("with checksums") << true;
    QTest::newRow("of an earlier version, without") << false;
}

void TestSalvage::ASoundStoreIsSavedWhole() {
    QFETCH(bool, hasChecks);
    const DamagedStore store(3000, hasChecks);
    const Trial trial = SalvageAndCompare(store, store.bytes);
    QCOMPARE(trial.right, static_cast<int>(store.content.size()));
    QCOMPARE(trial.wrong, 0);
    QCOMPARE(trial.returned, 0);
    QVERIFY(trial.isSaid);
}

void TestSalvage::DestroyedPages_data() {
    QTest::addColumn<bool>("hasChecks");
    QTest::addColumn<int>("pages");
    QTest::addColumn<int>("percent");  ///< of the records, in 95 of 100 trials
    QTest::newRow("one page") << true << 1 << 99;
    QTest::newRow("ten pages") << true << 10 << 95;
    QTest::newRow("one page of an earlier version") << false << 1 << 99;
    QTest::newRow("ten pages of an earlier version") << false << 10 << 95;
}

void TestSalvage::DestroyedPages() {
    QFETCH(bool, hasChecks);
    QFETCH(int, pages);
    QFETCH(int, percent);
    const int trials = qEnvironmentVariableIntValue("VELMARCH_LONG_TESTS") > 0 ? 2000 : 20;
    const DamagedStore store(10000, hasChecks);
    const auto all = static_cast<int>(store.content.size());
    int good = 0, wrong = 0, returned = 0, unsaid = 0, least = all;
    qint64 right = 0;
    for (int number = 0; number < trials; ++number) {
        // Its number is the trial's seed: one that fails can be made again.
        std::mt19937 random(static_cast<std::uint32_t>(number));
        const Trial trial = SalvageAndCompare(store, store.WithPagesDestroyed(pages, random));
        good += trial.right * 100 >= all * percent ? 1 : 0;
        right += trial.right;
        least = std::min(least, trial.right);
        wrong += trial.wrong;
        returned += hasChecks ? trial.returned : 0;
        unsaid += trial.isSaid || !hasChecks ? 0 : 1;
    }
    qInfo(
        "%d trials: %d with %d %% of %d records or more; %.3f %% on average, %d at worst; wrong: %d, deleted "
        "and back: %d",
        trials, good, percent, all, 100.0 * static_cast<double>(right) / (double(all) * trials), least, wrong,
        returned);
    QVERIFY2(good * 100 >= trials * 95, qPrintable(QString::number(good)));
    QCOMPARE(wrong, 0);
    QCOMPARE(returned, 0);
    QCOMPARE(unsaid, 0);
}

/// The file's header and the roots of the tables, each by itself: without the first page no root is known.
void TestSalvage::EachOfTheFirstPages() {
    const DamagedStore store(3000, true);
    for (qsizetype page = 0; page < 12; ++page) {
        QByteArray damaged = store.bytes;
        damaged.replace(page * DamagedStore::kPage, DamagedStore::kPage,
                        QByteArray(DamagedStore::kPage, '\x5A'));
        const Trial trial = SalvageAndCompare(store, damaged);
        QVERIFY2(trial.right >= static_cast<int>(store.content.size()) * 99 / 100,
                 qPrintable(QString::number(page)));
        QCOMPARE(trial.wrong, 0);
        QCOMPARE(trial.returned, 0);
    }
}

/// Without it unused pages can't be told from lost ones, but no tree lacks a page: what was deleted stays
/// deleted, and isn't taken for lost.
void TestSalvage::TheListOfUnusedPages() {
    for (const bool hasChecks : {true, false}) {
        const DamagedStore store(3000, hasChecks);
        QByteArray damaged = store.bytes;
        constexpr qsizetype kFirstUnusedAt = 32;
        const qsizetype page =
            qFromBigEndian<quint32>(store.bytes.constData() + kFirstUnusedAt) - qsizetype{1};
        QVERIFY(page > 0);
        damaged.replace(page * DamagedStore::kPage, DamagedStore::kPage,
                        QByteArray(DamagedStore::kPage, '\x5A'));
        const Trial trial = SalvageAndCompare(store, damaged);
        QCOMPARE(trial.right, static_cast<int>(store.content.size()));
        QCOMPARE(trial.returned, 0);
        QVERIFY(trial.isSaid);
    }
}

TEST_CLASS(TestSalvage);
#include "TestSalvage.moc"
