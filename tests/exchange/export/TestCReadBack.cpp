#include "exchange/export/CReadBack.h"

#include "exchange/export/RecordText.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

const Delimiters kQuotes{u"\""_s, u","_s, u"\n"_s};
const Delimiters kBare{{}, u";"_s, u"\n"_s};

}  // namespace

/// Which lines of an export can't be imported again as they are.
class TestCReadBack final : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;

 private Q_SLOTS:
    void init() { home = std::make_unique<TestHome>(); }
    void cleanup() { home.reset(); }

    void records_data() {
        QTest::addColumn<RecordKind>("kind");
        QTest::addColumn<Delimiters>("delimiters");
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("notes");
        QTest::addColumn<int>("lost");
        const auto time = RecordKind::Time, expense = RecordKind::Expense;
        const QString none;
        QTest::newRow("plain texts") << time << kQuotes << u"A, B"_s << u"two\nlines"_s << 0;
        QTest::newRow("a qualifier in an item") << time << kQuotes << u"5\" pipe"_s << none << 1;
        QTest::newRow("two of them cancel out") << time << kQuotes << u"a \"b\" c"_s << none << 0;
        QTest::newRow("what looks like the end of a field") << time << kQuotes << u"a\",\"b"_s << none << 1;
        QTest::newRow("the notes of a time take the rest") << time << kQuotes << none << u"a\",\"b"_s << 0;
        QTest::newRow("but not an odd qualifier") << time << kQuotes << none << u"5\""_s << 1;
        QTest::newRow("the notes of an expense don't") << expense << kQuotes << none << u"a\",\"b"_s << 1;
        QTest::newRow("a separator without qualifiers") << time << kBare << u"a;b"_s << none << 1;
        QTest::newRow("in the notes of a time") << time << kBare << none << u"a;b"_s << 0;
        QTest::newRow("in those of an expense") << expense << kBare << none << u"a;b"_s << 0;
        QTest::newRow("a line break without qualifiers") << time << kBare << none << u"a\nb"_s << 1;
        QTest::newRow("a CR, which ends a line as well") << expense << kBare << u"a\rb"_s << none << 1;
        QTest::newRow("a qualifier where there are none") << time << kBare << u"5\" pipe"_s << none << 0;
        QTest::newRow("separators that are qualifiers")
            << time << Delimiters{u"'"_s, u"'"_s, u"\n"_s} << u"A"_s << none << 1;
    }
    void records() {
        QFETCH(RecordKind, kind);
        QFETCH(Delimiters, delimiters);
        QFETCH(QString, item);
        QFETCH(QString, notes);
        CTRecord time;
        CERecord expense;
        time.item1 = expense.item1 = item;
        time.notes = expense.notes = notes;
        time.date.Set(11, 19, 2026);
        expense.date.Set(11, 19, 2026);
        const CVORec& record = kind == RecordKind::Time ? static_cast<const CVORec&>(time) : expense;
        CReadBack readBack(delimiters);
        const QStringList fields = FieldsIn(record);
        readBack.TakeRecord(kind, fields, LineOf(kind, fields, delimiters));
        QTEST(readBack.LostCount(), "lost");
        QCOMPARE(readBack.Words().isEmpty(), readBack.LostCount() == 0);
    }

    /// Lines are counted with the head, as an import counts them.
    void theFirstIsNamed() {
        CReadBack readBack(kQuotes);
        readBack.TakeHead(u"\"Date\",\"Start\"\n"_s);
        readBack.TakeItem({u"Client"_s, u"A"_s}, u"\"Client\",\"A\"\n"_s);
        readBack.TakeItem({u"Client"_s, u"5\""_s}, u"\"Client\",\"5\"\"\n"_s);
        readBack.TakeItem({u"Client"_s, u"6\""_s}, u"\"Client\",\"6\"\"\n"_s);
        QCOMPARE(readBack.LostCount(), 2);
        QVERIFY(readBack.Words().contains(u"line 3: \"Client\",\"5\""_s));
    }

    /// The user's own name of a field may hold one, too.
    void aHeadLine() {
        CReadBack readBack(kQuotes);
        readBack.TakeHead(u"\"Date\",\"Size in \"\"\n"_s);
        QCOMPARE(readBack.LostCount(), 1);
    }
};

TEST_CLASS(TestCReadBack);
#include "TestCReadBack.moc"
