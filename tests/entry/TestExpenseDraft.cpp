#include "entry/ExpenseDraft.h"

#include "config/Settings.h"
#include "entry/CListItemService.h"
#include "entry/NewListItems.h"
#include "lang/LoadText.h"
#include "platform/host/CRegionalInfo.h"
#include "support/TestProgram.h"

#include <QTest>
#include <functional>

using namespace Qt::Literals::StringLiterals;

Q_DECLARE_METATYPE(std::function<void(ExpenseDraft&)>)

namespace {

class Offered final : public CListItemService {
 public:
    bool Add(int list, const QString& text) override {
        if (!text.isEmpty()) seen.append(QString::number(list) + u':' + text);
        return true;
    }
    QStringList seen;
};

CERecord Distance() {
    CERecord record;
    record.date.Set(11, 19, 2026);
    record.isDistance = true;
    record.distance.Set(10.0F);
    record.rate.Set(0.5F);
    record.amount.Set(5.0F);
    return record;
}

ExpenseDraft DraftOf(const CERecord& record) {
    ExpenseDraft draft;
    draft.Begin(record);
    return draft;
}

/// As the fields show it.
QString Shown(const ExpenseDraft& draft) {
    return draft.DistanceText() + u" x "_s + draft.RateText() + u" = "_s + draft.AmountText();
}
/// As the record holds it.
QString Stored(const ExpenseDraft& draft) {
    const CERecord& record = draft.Record();
    return record.distance.text + u" x "_s + record.GetRateText() + u" = "_s + record.GetAmountText();
}

}  // namespace

/// An expense while it is entered.
class TestExpenseDraft : public QObject {
    Q_OBJECT

    const RegionScope m_region{CRegionalInfo()};

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void WhatIsEntered_data() {
        using Entry = std::function<void(ExpenseDraft&)>;
        QTest::addColumn<Entry>("entry");
        QTest::addColumn<bool>("isEntered");
        const auto row = [](const char* name, const Entry& entry, bool isEntered) {
            QTest::newRow(name) << entry << isEntered;
        };
        row(
            "nothing", [](ExpenseDraft&) {}, false);
        row(
            "a distance", [](ExpenseDraft& draft) { draft.EnterDistance(u"12"_s); }, true);
        row(
            "a distance that can't be read", [](ExpenseDraft& draft) { draft.EnterDistance(u"far"_s); },
            true);
        row(
            "no distance entry any more", [](ExpenseDraft& draft) { draft.SwitchDistance(false); }, true);
        row(
            "an item", [](ExpenseDraft& draft) { draft.EnterItem(&CERecord::item1, u"Acme"_s); }, true);
        row(
            "a flag", [](ExpenseDraft& draft) { draft.SwitchFlag(&CERecord::flag1, true); }, true);
        row(
            "notes", [](ExpenseDraft& draft) { draft.EnterNotes(u"a"_s); }, true);
    }
    void WhatIsEntered() {
        using Entry = std::function<void(ExpenseDraft&)>;
        QFETCH(Entry, entry);
        ExpenseDraft draft = DraftOf(Distance());
        entry(draft);
        QTEST(draft.HasEntries(), "isEntered");
    }

    void TheAmountFollows() {
        ExpenseDraft draft = DraftOf(Distance());
        QVERIFY(draft.EnterDistance(u"1,200"_s) == Typed::Value);
        QCOMPARE(Shown(draft), u"1200 x 0.500 = 600.00"_s);
        QVERIFY(draft.EnterRate(u"half"_s) == Typed::Unreadable);
        QCOMPARE(Shown(draft), u"1200 x half = 0.00"_s);
        QCOMPARE(Stored(draft), u"10.00 x 0.500 = 5.00"_s);
        static_cast<void>(draft.EnterRate(u"2"_s));
        draft.Accept(NewListItems());
        QCOMPARE(Stored(draft), u"1200.00 x 2.000 = 2400.00"_s);
    }

    void TurnedOffTheRecordKeepsItsDistance() {
        ExpenseDraft draft = DraftOf(Distance());
        draft.SwitchDistance(false);
        QCOMPARE(Shown(draft), u" x  = "_s);
        static_cast<void>(draft.EnterAmount(u"7"_s));
        draft.Accept(NewListItems());
        QCOMPARE(Stored(draft), u"10.00 x 0.500 = 7.00"_s);
        QVERIFY(!draft.Record().isDistance);
    }

    void TurnedOnItSaysThatTheAmountIsComputed() {
        CERecord plain = Distance();
        plain.isDistance = false;
        ExpenseDraft draft = DraftOf(plain);
        QCOMPARE(Shown(draft), u" x  = 5.00"_s);
        draft.SwitchDistance(true);
        QCOMPARE(Shown(draft), u"10.00 x 0.500 = --"_s);
        draft.Accept(NewListItems());
        QCOMPARE(Stored(draft), u"10.00 x 0.500 = 5.00"_s);
        // What is cleared here doesn't come back.
        draft.Begin(plain);
        draft.SwitchDistance(true);
        draft.SwitchDistance(false);
        draft.SwitchDistance(true);
        QCOMPARE(Shown(draft), u" x  = --"_s);
        draft.Accept(NewListItems());
        QCOMPARE(Stored(draft), u" x  = "_s);
    }

    void WhatWasNotTouchedStaysAsItStands() {
        ExpenseDraft draft = DraftOf(Distance());
        draft.Accept(NewListItems());
        QCOMPARE(Stored(draft), u"10.00 x 0.500 = 5.00"_s);
    }

    void Clearing() {
        ExpenseDraft draft = DraftOf(Distance());
        draft.ClearDistance();
        draft.Accept(NewListItems());
        QCOMPARE(Stored(draft), u" x 0.500 = 0.00"_s);
        draft.Begin(Distance());
        draft.ClearRate();
        draft.Accept(NewListItems());
        QCOMPARE(Stored(draft), u"10.00 x  = 5.00"_s);
        CERecord plain = Distance();
        plain.isDistance = false;
        draft.Begin(plain);
        draft.ClearRate();
        draft.ClearDistance();
        draft.Accept(NewListItems());
        QCOMPARE(Stored(draft), u" x  = 5.00"_s);
    }

    void Readings() {
        Settings settings;
        CERecord record = Distance();
        record.distance.Reset();
        ExpenseDraft draft = DraftOf(record);
        ExpenseDraft::Odometer odometer = draft.OpenOdometer(settings);
        odometer.start = u"1,000"_s;
        odometer.end = u"1,120.5"_s;
        ExpenseEntryRules::ReadingsChanged(odometer);
        draft.AcceptOdometer(odometer, settings);
        QCOMPARE(Shown(draft), u"120.50 x 0.500 = 60.25"_s);
        draft.Accept(NewListItems());
        QCOMPARE(Stored(draft), u"120.50 x 0.500 = 60.25"_s);
        QCOMPARE(draft.Record().odometerStart + u'-' + draft.Record().odometerEnd, u"1000-1120.5"_s);
        QCOMPARE(settings.odometerLastEnd, 1120);
    }

    void ReadingsOneByOne_data() {
        QTest::addColumn<QStringList>("entered");  // of start and end
        QTest::addColumn<bool>("isStartCleared");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("readings");
        QTest::newRow("both") << QStringList{u"1000"_s, u"1120.5"_s} << false << u"120.50 x 0.500 = 60.25"_s
                              << u"1000-1120.5"_s;
        QTest::newRow("the end alone goes on from the last one")
            << QStringList{{}, u"950"_s} << false << u"50.00 x 0.500 = 25.00"_s << u"900-950"_s;
        QTest::newRow("no start is suggested for one that was cleared")
            << QStringList{{}, u"950"_s} << true << u"950.00 x 0.500 = 475.00"_s << u"-950"_s;
    }
    void ReadingsOneByOne() {
        QFETCH(QStringList, entered);
        QFETCH(bool, isStartCleared);
        Settings settings;
        settings.odometerSuggestStart = true;
        settings.odometerLastEnd = 900;
        CERecord record = Distance();
        record.distance.Reset();
        ExpenseDraft draft = DraftOf(record);
        if (isStartCleared) draft.ClearReading(&CERecord::odometerStart);
        if (!entered[0].isEmpty()) draft.EnterReading(&ExpenseDraft::Odometer::start, entered[0], settings);
        draft.EnterReading(&ExpenseDraft::Odometer::end, entered[1], settings);
        draft.EndReadings(settings);
        QTEST(Shown(draft), "shown");
        QTEST(draft.Record().odometerStart + u'-' + draft.Record().odometerEnd, "readings");
        draft.DropReadings();
        QCOMPARE(draft.Record().odometerStart + draft.Record().odometerEnd, QString());
    }

    void Flags() {
        ExpenseDraft draft = DraftOf(Distance());
        QVERIFY(!draft.MaySetFlag(&CERecord::flag2));
        QVERIFY(!draft.MaySetFlag(&CERecord::flag4));
        QVERIFY(draft.MaySetFlag(&CERecord::flag5));
        draft.SwitchFlag(&CERecord::flag1, true);
        QVERIFY(draft.MaySetFlag(&CERecord::flag2));
        QVERIFY(!draft.MaySetFlag(&CERecord::flag4));
        draft.SwitchFlag(&CERecord::flag2, true);
        QVERIFY(draft.Record().flag1 && draft.Record().flag2);
        draft.SwitchFlag(&CERecord::flag1, false);
        QVERIFY(!draft.Record().flag1 && !draft.Record().flag2);
    }

    void Findings_data() {
        QTest::addColumn<bool>("isDistance");
        QTest::addColumn<QString>("distance");
        QTest::addColumn<QString>("rate");
        QTest::addColumn<QString>("amount");
        QTest::addColumn<QString>("found");  // d, r, a: refused; D, R, A: asked about
        const QString none;
        QTest::newRow("nothing") << true << u"12"_s << u"0.3"_s << none << none;
        QTest::newRow("a distance and a rate") << true << u"far"_s << u"1 EUR"_s << none << u"dr"_s;
        QTest::newRow("an amount") << false << none << none << u"1,5"_s << u"a"_s;
        QTest::newRow("many digits") << true << u"16777217"_s << u"0.3"_s << none << u"D"_s;
        QTest::newRow("money that came back") << false << none << none << u"-20"_s << none;
        QTest::newRow("minus one is no amount") << false << none << none << u"-1"_s << u"A"_s;
        QTest::newRow("a computed amount isn't typed") << true << u"16777216"_s << u"1"_s << none << none;
    }
    void Findings() {
        QFETCH(bool, isDistance);
        QFETCH(QString, distance);
        QFETCH(QString, rate);
        QFETCH(QString, amount);
        CERecord record = Distance();
        record.isDistance = isDistance;
        ExpenseDraft draft = DraftOf(record);
        if (!distance.isEmpty()) static_cast<void>(draft.EnterDistance(distance));
        if (!rate.isEmpty()) static_cast<void>(draft.EnterRate(rate));
        if (!amount.isEmpty()) static_cast<void>(draft.EnterAmount(amount));
        QString found;
        for (const DraftFinding& finding : draft.Findings()) {
            const QString sign = finding.field == DraftField::Distance ? u"d"_s
                                 : finding.field == DraftField::Rate   ? u"r"_s
                                                                       : u"a"_s;
            found += finding.isQuestion ? sign.toUpper() : sign;
        }
        QTEST(found, "found");
    }

    void AMissingDate() {
        ExpenseDraft draft = DraftOf(Distance());
        QVERIFY(draft.Findings().empty());
        draft.EnterDate(std::nullopt);
        QCOMPARE(draft.Findings().size(), std::size_t{1});
        QVERIFY(draft.Findings().front().text == Text::DateMissing);
    }

    /// An acceptance offers everything to the lists, a command line what it gave.
    void TextsForTheLists() {
        const Settings settings;
        CERecord record = Distance();
        record.item1 = u"Acme"_s;
        ExpenseDraft draft = DraftOf(record);
        draft.EnterItem(&CERecord::item3, u"Trip"_s);
        draft.EnterItem(&CERecord::item5, u"EUR"_s);
        static_cast<void>(draft.EnterDistance(u"1,200"_s));
        Offered given, all;
        draft.AddEntered(NewListItems(settings, given));
        QCOMPARE(given.seen.join(u' '), u"69:1200 72:EUR 68:Trip"_s);
        draft.Accept(NewListItems(settings, all));
        QCOMPARE(all.seen.join(u' '), u"69:1200 70:0.500 72:EUR 16:Acme 68:Trip"_s);
    }
};

TEST_CLASS(TestExpenseDraft);
#include "TestExpenseDraft.moc"
