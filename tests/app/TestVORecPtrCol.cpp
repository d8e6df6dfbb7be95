#include "app/VORecPtrCol.h"

#include "support/TestProgram.h"

#include <QHash>
#include <QTest>
#include <random>
#include <set>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The smallest record: an identity, a mark to tell objects apart, and a count of living objects.
class Mark final : public CVORec {
 public:
    explicit Mark(const QString& id, int newNumber = 0) : number(newNumber) {
        SetId(id);
        ++living;
    }
    ~Mark() override { --living; }
    Mark(const Mark&) = delete;
    Mark& operator=(const Mark&) = delete;

    int number;
    static inline int living = 0;

    RecordKind Kind() const override { return RecordKind::Time; }
    std::span<const FieldDef> GetFieldDefs() const override { return {}; }
    bool WriteFields(CVORecordset&) const override { return false; }
    bool ReadFields(CVORecordset&) override { return false; }
    [[nodiscard]] QByteArray ToBytes() const override { return {}; }
    bool FromBytes(const QByteArray&, bool) override { return false; }
    std::unique_ptr<CVORec> Clone() const override { return nullptr; }
};

std::unique_ptr<CVORec> NewMark(const QString& id, int number = 0) {
    return std::make_unique<Mark>(id, number);
}

int NumberOf(const CVORec* record) {
    return record ? static_cast<const Mark*>(record)->number : -1;
}

QString IdOf(int number) {
    return u"%1"_s.arg(number, 32, 16, QChar(u'0')).toUpper();
}

}  // namespace

class TestVORecPtrCol : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void cleanup() { QCOMPARE(Mark::living, 0); }

    void Find_data() {
        QTest::addColumn<QString>("id");
        QTest::newRow("an identity") << u"0192A4B8C7D6E5F40011223344556677"_s;
        QTest::newRow("an empty text") << QString();
        QTest::newRow("one letter") << u"a"_s;
        QTest::newRow("a text with a null character") << u"ab"_s + QChar(0) + u"cd"_s;
        QTest::newRow("umlauts and an emoji") << u"Grüße 🕒"_s;
        QTest::newRow("ten thousand characters") << QString(10000, u'x');
        QTest::newRow("a lone surrogate") << QString(QChar(0xD83D));
    }
    void Find() {
        QFETCH(QString, id);
        VORecPtrCol records;
        QVERIFY(!records.Find(id));
        QVERIFY(!records.Contains(id));
        records.Add(NewMark(u"another"_s, 1));
        records.Add(NewMark(id, 2));
        QCOMPARE(NumberOf(records.Find(id)), 2);
        QVERIFY(!records.Find(id + u'-'));
        QVERIFY(records.Remove(id));
        QVERIFY(!records.Find(id));
        QCOMPARE(records.Count(), std::size_t{1});
    }

    void FindDistinguishesCase() {
        VORecPtrCol records;
        records.Add(NewMark(u"abc"_s, 1));
        records.Add(NewMark(u"ABC"_s, 2));
        QCOMPARE(NumberOf(records.Find(u"abc"_s)), 1);
        QCOMPARE(NumberOf(records.Find(u"ABC"_s)), 2);
        QVERIFY(!records.Find(u"Abc"_s));
    }

    void AddOverAPresentIdentityHandsTheFormerObjectBack() {
        VORecPtrCol records;
        QVERIFY(!records.Add(NewMark(u"A"_s, 1)));
        records.SetPlace(u"A"_s, 5);
        const std::unique_ptr<CVORec> former = records.Add(NewMark(u"A"_s, 2));
        QCOMPARE(NumberOf(former.get()), 1);
        QCOMPARE(NumberOf(records.Find(u"A"_s)), 2);
        QCOMPARE(records.Count(), std::size_t{1});
        QCOMPARE(records.PlaceOf(u"A"_s), VORecPtrCol::kNoPlace);
    }

    void Replace_data() {
        QTest::addColumn<QString>("id");
        QTest::addColumn<bool>("replaced");
        QTest::addColumn<int>("handedBack");
        QTest::addColumn<int>("count");
        QTest::newRow("a present identity takes the new object, the old one comes back")
            << u"A"_s << true << 1 << 1;
        QTest::newRow("an absent identity leaves everything as it was") << u"B"_s << false << 2 << 1;
    }
    void Replace() {
        QFETCH(QString, id);
        VORecPtrCol records;
        records.Add(NewMark(u"A"_s, 1));
        records.SetPlace(u"A"_s, 7);
        std::unique_ptr<CVORec> record = NewMark(id, 2);
        QTEST(records.Replace(record), "replaced");
        QTEST(NumberOf(record.get()), "handedBack");
        QTEST(static_cast<int>(records.Count()), "count");
        QCOMPARE(NumberOf(records.Find(id)), id == u"A"_s ? 2 : -1);
        QCOMPARE(records.PlaceOf(u"A"_s), 7U);
    }

    void Remove_data() {
        QTest::addColumn<QString>("id");
        QTest::addColumn<bool>("removed");
        QTest::addColumn<int>("living");
        QTest::newRow("a present identity destroys the object") << u"A"_s << true << 1;
        QTest::newRow("an absent identity changes nothing") << u"C"_s << false << 2;
    }
    void Remove() {
        QFETCH(QString, id);
        VORecPtrCol records;
        records.Add(NewMark(u"A"_s));
        records.Add(NewMark(u"B"_s));
        QTEST(records.Remove(id), "removed");
        QTEST(Mark::living, "living");
        QCOMPARE(records.Count(), static_cast<std::size_t>(Mark::living));
        QVERIFY(!records.Remove(u"C"_s));
    }

    void RemoveFromAnEmptyCollection() {
        VORecPtrCol records;
        QVERIFY(!records.Remove(u"A"_s));
        records.RemoveAll();
        QCOMPARE(records.Count(), std::size_t{0});
        QVERIFY(!records.GetFirst());
    }

    void TakeHandsTheObjectOver() {
        VORecPtrCol records;
        records.Add(NewMark(u"A"_s, 3));
        const std::unique_ptr<CVORec> taken = records.Take(u"A"_s);
        QCOMPARE(NumberOf(taken.get()), 3);
        QVERIFY(!records.Take(u"A"_s));
        QVERIFY(!records.GetFirst());
    }

    void Walk_data() {
        QTest::addColumn<int>("added");
        QTest::addColumn<int>("removed");
        QTest::newRow("nothing") << 0 << 0;
        QTest::newRow("one record") << 1 << 0;
        QTest::newRow("a few") << 17 << 0;
        QTest::newRow("a thousand, every second removed") << 1000 << 500;
        QTest::newRow("all removed") << 100 << 100;
    }
    void Walk() {
        QFETCH(int, added);
        QFETCH(int, removed);
        VORecPtrCol records;
        std::set<QString> expected;
        for (int i = 0; i < added; ++i) {
            records.Add(NewMark(IdOf(i)));
            expected.insert(IdOf(i));
        }
        for (int i = 0; i < removed; ++i) {
            const QString id = IdOf(added / removed * i);
            QVERIFY(records.Remove(id));
            expected.erase(id);
        }
        std::set<QString> seen;
        for (CVORec* record = records.GetFirst(); record; record = records.GetNext())
            QVERIFY(seen.insert(record->GetId()).second);
        QCOMPARE(seen, expected);
    }

    void PlacesSurviveGrowth() {
        VORecPtrCol records;
        for (int i = 0; i < 5000; ++i) {
            records.Add(NewMark(IdOf(i)));
            QCOMPARE(records.PlaceOf(IdOf(i)), VORecPtrCol::kNoPlace);
            records.SetPlace(IdOf(i), static_cast<std::uint32_t>(i));
        }
        for (int i = 0; i < 5000; ++i) QCOMPARE(records.PlaceOf(IdOf(i)), static_cast<std::uint32_t>(i));
        QCOMPARE(records.PlaceOf(u"absent"_s), VORecPtrCol::kNoPlace);
        records.SetPlace(u"absent"_s, 1);
        QCOMPARE(records.PlaceOf(u"absent"_s), VORecPtrCol::kNoPlace);
    }

    void PlacesSetOnTheWalkBelongToTheRecordAtHand() {
        VORecPtrCol records;
        for (int i = 0; i < 100; ++i) records.Add(NewMark(IdOf(i), i));
        for (CVORec* record = records.GetFirst(); record; record = records.GetNext())
            records.SetPlaceHere(static_cast<std::uint32_t>(NumberOf(record) * 2));
        for (int i = 0; i < 100; ++i) QCOMPARE(records.PlaceOf(IdOf(i)), static_cast<std::uint32_t>(i * 2));
    }

    /// The same changes to the collection and to a map of Qt's, then both are compared.
    void ManyChangesInAnyOrder() {
        VORecPtrCol records;
        QHash<QString, int> truth;
        std::mt19937 random(4711);
        for (int step = 0; step < 200000; ++step) {
            const QString id = IdOf(static_cast<int>(random() % 3000));
            switch (random() % 4) {
                case 0:
                    QCOMPARE(records.Remove(id), truth.remove(id));
                    break;
                case 1: {
                    std::unique_ptr<CVORec> record = NewMark(id, step);
                    QCOMPARE(records.Replace(record), truth.contains(id));
                    if (truth.contains(id)) truth[id] = step;
                    break;
                }
                default:
                    records.Add(NewMark(id, step));
                    truth[id] = step;
            }
        }
        QCOMPARE(records.Count(), static_cast<std::size_t>(truth.size()));
        for (int i = 0; i < 3000; ++i) QCOMPARE(NumberOf(records.Find(IdOf(i))), truth.value(IdOf(i), -1));
    }

    /// Removed records leave graves. Were they never cleared, this loop would fill the table, and a search
    /// for an absent identity would have no end.
    void AddingAndRemovingForever() {
        VORecPtrCol records;
        for (int i = 0; i < 1000000; ++i) {
            records.Add(NewMark(QString::number(i)));
            QVERIFY(records.Remove(QString::number(i)));
        }
        QVERIFY(!records.Find(u"absent"_s));
        QCOMPARE(records.Count(), std::size_t{0});
    }

    void AMillionRecords() {
        constexpr int kMany = 1000000;
        VORecPtrCol records;
        records.Reserve(kMany);
        for (int i = 0; i < kMany; ++i) records.Add(NewMark(IdOf(i), i));
        QCOMPARE(records.Count(), std::size_t{kMany});
        for (int i = 0; i < kMany; i += 7) QCOMPARE(NumberOf(records.Find(IdOf(i))), i);
        QVERIFY(!records.Find(IdOf(kMany)));
        for (int i = 0; i < kMany; i += 2) QVERIFY(records.Remove(IdOf(i)));
        QCOMPARE(records.Count(), std::size_t{kMany / 2});
        QCOMPARE(NumberOf(records.Find(IdOf(999999))), 999999);
        QVERIFY(!records.Find(IdOf(999998)));
    }
};

TEST_CLASS(TestVORecPtrCol);
#include "TestVORecPtrCol.moc"
