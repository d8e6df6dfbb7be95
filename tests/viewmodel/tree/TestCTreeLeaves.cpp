#include "viewmodel/tree/CTreeLeaves.h"

#include "support/TestProgram.h"

#include <QTest>
#include <array>
#include <map>
#include <random>

/// Counting rows of numbers.
class TestCTreeLeaves final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void few() {
        CTreeLeaves leaves(2);
        const auto count = [&leaves](std::uint32_t a, std::uint32_t b) {
            return leaves.Count(std::array{a, b});
        };
        QCOMPARE(leaves.Kinds(), 0U);
        QVERIFY(count(1, 2));
        QVERIFY(count(2, 1));
        QVERIFY(!count(1, 2));
        QVERIFY(count(0, 0));
        QVERIFY(count(0xFFFFFFFF, 0xFFFFFFFF));
        QVERIFY(!count(1, 2));
        QCOMPARE(leaves.Kinds(), 4U);
        QCOMPARE(leaves.CountOf(0), 3);
        QCOMPARE(leaves.CountOf(1), 1);
    }

    void many_data() {
        QTest::addColumn<int>("levels");
        QTest::addColumn<unsigned>("bound");
        QTest::newRow("one level, few texts") << 1 << 7U;
        QTest::newRow("one level, each text another") << 1 << 0xFFFFFFFFU;
        QTest::newRow("four levels") << 4 << 9U;
        QTest::newRow("eleven levels, mostly alike") << 11 << 2U;
    }
    /// As a map counts them, in the order of their coming.
    void many() {
        QFETCH(int, levels);
        QFETCH(unsigned, bound);
        std::mt19937 random(1);
        CTreeLeaves leaves(static_cast<std::size_t>(levels));
        std::map<std::vector<std::uint32_t>, std::pair<std::size_t, int>> expected;
        for (int i = 0; i < 20000; ++i) {
            std::vector<std::uint32_t> row;
            for (int level = 0; level < levels; ++level)
                row.push_back(static_cast<std::uint32_t>(random()) % bound);
            const auto [place, isNew] = expected.try_emplace(row, expected.size(), 0);
            ++place->second.second;
            QCOMPARE(leaves.Count(row), isNew);
        }
        QCOMPARE(leaves.Kinds(), expected.size());
        for (const auto& [row, kind] : expected) QCOMPARE(leaves.CountOf(kind.first), kind.second);
    }
};

TEST_CLASS(TestCTreeLeaves);
#include "TestCTreeLeaves.moc"
