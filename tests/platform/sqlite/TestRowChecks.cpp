#include "platform/sqlite/RowChecks.h"

#include "platform/sqlite/CCheckSum.h"
#include "platform/sqlite/CSqliteFile.h"
#include "support/TestProgram.h"

#include <sqlite3.h>

#include <QTest>
#include <set>

namespace {

constexpr SqliteFileKind kKind{.applicationId = 0x54455354, .version = 1, .busySeconds = 0};

QByteArrayList ColumnOf(CSqliteFile& file, const QByteArray& sql) {
    QByteArrayList values;
    sqlite3_stmt* statement = file.Prepare(sql);
    while (statement != nullptr && sqlite3_step(statement) == SQLITE_ROW)
        values += QByteArray(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)));
    sqlite3_reset(statement);
    return values;
}

}  // namespace

/// The checksums of rows, over a table of things.
class TestRowChecks : public QObject {
    Q_OBJECT

    CSqliteFile m_file;
    const RowChecks m_checks{"thing", {{"id", "TEXT"}}, {"id", "count", "price", "name"}};

    /// What lies on the disk changes, and no trigger hears of it.
    void Damage(const QByteArray& sql) {
        QVERIFY(m_file.Execute("DROP TRIGGER thing_checks_update; DROP TRIGGER thing_checks_delete"));
        QVERIFY(m_file.Execute(sql));
        QVERIFY(m_checks.Make(m_file));
    }

 private Q_SLOTS:
    void init() {
        QCOMPARE(m_file.Open(QStringLiteral(":memory:"), kKind, true), OpenOutcome::Created);
        QVERIFY(
            m_file.Execute("CREATE TABLE thing(id TEXT PRIMARY KEY, count INTEGER, price REAL, name TEXT) "
                           "WITHOUT ROWID; INSERT INTO thing VALUES('a', 1, 0.5, 'one'), "
                           "('b', -1, 3.0, ''), ('c', NULL, -0.0, 'Ü''s')"));
        QVERIFY(m_checks.Make(m_file));
    }

    void RowsAsTheyWereWrittenFit() {
        QCOMPARE(ColumnOf(m_file, "SELECT id FROM thing_checks"), QByteArrayList({"a", "b", "c"}));
        QCOMPARE(ColumnOf(m_file, m_checks.FaultsSql()), QByteArrayList());
    }

    void DamageIsFound_data() {
        QTest::addColumn<QByteArray>("sql");
        QTest::addColumn<QByteArrayList>("faults");
        QTest::newRow("a number") << QByteArray("UPDATE thing SET count=3 WHERE id='a'")
                                  << QByteArrayList({"a"});
        QTest::newRow("a fraction") << QByteArray("UPDATE thing SET price=0.50000001 WHERE id='a'")
                                    << QByteArrayList({"a"});
        QTest::newRow("a text") << QByteArray("UPDATE thing SET name='ome' WHERE id='a'")
                                << QByteArrayList({"a"});
        QTest::newRow("no value any more")
            << QByteArray("UPDATE thing SET name=NULL WHERE id='b'") << QByteArrayList({"b"});
        QTest::newRow("a key: the row isn't known, the old one is gone")
            << QByteArray("UPDATE thing SET id='d' WHERE id='b'") << QByteArrayList({"b"});
        QTest::newRow("a row that is gone")
            << QByteArray("DELETE FROM thing WHERE id='c'") << QByteArrayList({"c"});
        QTest::newRow("the checksum itself")
            << QByteArray("UPDATE thing_checks SET sum=sum+1 WHERE id='a'") << QByteArrayList({"a"});
    }
    void DamageIsFound() {
        QFETCH(QByteArray, sql);
        Damage(sql);
        QTEST(ColumnOf(m_file, m_checks.FaultsSql()), "faults");
    }

    /// A row that another program writes has no checksum until the program writes it again.
    void OtherProgramsMayWrite() {
        QVERIFY(
            m_file.Execute("UPDATE thing SET name='eins' WHERE id='a'; DELETE FROM thing WHERE id='b'; "
                           "INSERT INTO thing VALUES('d', 0, 0, '')"));
        QCOMPARE(ColumnOf(m_file, "SELECT id FROM thing_checks"), QByteArrayList({"c"}));
        QCOMPARE(ColumnOf(m_file, m_checks.FaultsSql()), QByteArrayList());
        QCOMPARE(m_checks.AreMissing(m_file), std::optional(true));
        QVERIFY(m_checks.Fill(m_file));
        QCOMPARE(ColumnOf(m_file, "SELECT id FROM thing_checks"), QByteArrayList({"a", "c", "d"}));
        QCOMPARE(m_checks.AreMissing(m_file), std::optional(false));
    }

    void TheyAreThereOnceMade() {
        QCOMPARE(m_checks.AreThere(m_file), std::optional(true));
        QVERIFY(m_file.Execute("DROP TABLE thing_checks"));
        QCOMPARE(m_checks.AreThere(m_file), std::optional(false));
    }

    /// Every bit of a value counts.
    void EveryBitCounts() {
        std::set<std::int64_t> sums;
        const QByteArray text("09:00 \xC3\x9C");
        for (qsizetype bit = -1; bit < text.size() * 8; ++bit) {
            QByteArray changed = text;
            if (bit >= 0) changed[bit / 8] = static_cast<char>(changed[bit / 8] ^ (1 << bit % 8));
            CCheckSum sum;
            sum.AddText(changed);
            sum.AddInteger(7);
            sums.insert(sum.Value());
        }
        QCOMPARE(sums.size(), static_cast<std::size_t>(text.size() * 8 + 1));
    }

    /// Where one value ends and the next begins counts as well.
    void BordersOfValuesCount() {
        CCheckSum one, other;
        one.AddText("ab");
        one.AddText("c");
        other.AddText("a");
        other.AddText("bc");
        QVERIFY(one.Value() != other.Value());
    }
};

TEST_CLASS(TestRowChecks);
#include "TestRowChecks.moc"
