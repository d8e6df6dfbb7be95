#include "entry/TimeDraft.h"

#include "config/Settings.h"
#include "entry/CListItemService.h"
#include "entry/NewListItems.h"
#include "lang/LoadText.h"
#include "platform/host/CRegionalInfo.h"
#include "support/TestProgram.h"

#include <QTest>
#include <functional>

using namespace Qt::Literals::StringLiterals;

Q_DECLARE_METATYPE(std::function<void(TimeDraft&)>)

namespace {

DateTimeVal Time(int hour24, int minute) {
    DateTimeVal time;
    if (!time.SetTime24(hour24, minute)) qFatal("no time");
    return time;
}

/// "9:00 17:00 8:00", a dash for what isn't set.
QString Times(const TimeDraft& draft) {
    const CTRecord& record = draft.Record();
    const auto time = [](bool isSet, int hour, int minute, bool isPm) {
        DateTimeVal value;
        if (!isSet || !value.SetTime(hour, minute, isPm)) return u"-"_s;
        return QString::asprintf("%d:%02d", value.Hour24(), value.minute);
    };
    const SpanField& span = record.spans.duration;
    return time(record.HasStart(), record.startHour, record.startMinute, record.startIsPm) + u' ' +
           time(record.HasEnd(), record.endHour, record.endMinute, record.endIsPm) + u' ' +
           (span.IsSet() ? QString::asprintf("%d:%02d", span.hours, span.minutes) : u"-"_s);
}

/// Notes what is offered to the lists, as "16:Acme".
class Offered final : public CListItemService {
 public:
    bool Add(int list, const QString& text) override {
        if (!text.isEmpty()) seen.append(QString::number(list) + u':' + text);
        return true;
    }
    QStringList seen;
};

}  // namespace

/// A time record while it is entered.
class TestTimeDraft : public QObject {
    Q_OBJECT

    const RegionScope m_region{CRegionalInfo()};
    Settings m_settings;

    /// Billable, 8:00 to 10:00 on a day.
    [[nodiscard]] TimeDraft Draft() const {
        CTRecord record;
        record.date.Set(11, 19, 2026);
        record.SetStart(Time(8, 0));
        record.SetEnd(Time(10, 0));
        record.SetBillable(true);
        TimeDraft draft(m_settings);
        draft.Begin(record);
        return draft;
    }
    static QString Money(const TimeDraft& draft) {
        return draft.RateText() + u" gives "_s + draft.AmountText();
    }

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void init() { m_settings = Settings(); }

    void WhatIsEntered_data() {
        using Entry = std::function<void(TimeDraft&)>;
        QTest::addColumn<Entry>("entry");
        QTest::addColumn<bool>("isEntered");
        const auto row = [](const char* name, const Entry& entry, bool isEntered) {
            QTest::newRow(name) << entry << isEntered;
        };
        row(
            "nothing", [](TimeDraft&) {}, false);
        row(
            "a start", [](TimeDraft& draft) { draft.EnterStart(Time(9, 0)); }, true);
        row(
            "a start, taken back",
            [](TimeDraft& draft) {
                draft.EnterStart(Time(9, 0));
                draft.Undo(TimeDraft::Field::Start);
            },
            false);
        row(
            "notes", [](TimeDraft& draft) { draft.EnterNotes(u"a"_s); }, true);
        row(
            "an item", [](TimeDraft& draft) { draft.EnterItem(&CTRecord::item1, u"Acme"_s); }, true);
        row(
            "a rate", [](TimeDraft& draft) { draft.EnterRate(u"10"_s); }, true);
        row(
            "a rate that can't be read", [](TimeDraft& draft) { draft.EnterRate(u"ten"_s); }, true);
        row(
            "what a timer counts", [](TimeDraft& draft) { draft.SetFromTimer(3, 0, true); }, false);
        row(
            "a timer that was stopped", [](TimeDraft& draft) { draft.SetFromTimer(3, 0, false); }, true);
    }
    void WhatIsEntered() {
        using Entry = std::function<void(TimeDraft&)>;
        QFETCH(Entry, entry);
        TimeDraft draft = Draft();
        entry(draft);
        QTEST(draft.HasEntries(), "isEntered");
    }

    /// After a failure to store it.
    void ARecordThatComesBackHasItsEntriesStill() {
        TimeDraft draft = Draft();
        const CTRecord began = draft.Record();
        draft.EnterItem(&CTRecord::item1, u"Acme"_s);
        TimeDraft again(m_settings);
        again.Begin(draft.Record(), &began);
        QVERIFY(again.HasEntries());
        again.Begin(draft.Record());
        QVERIFY(!again.HasEntries());
    }

    void AStampIsNotRounded() {
        CTRecord record;
        record.date.Set(11, 19, 2026);
        TimeDraft draft(m_settings);
        m_settings.roundStartType = 16;
        m_settings.roundStartMinutes = 15;
        draft.Begin(record);
        DateTimeVal now;
        QVERIFY(now.SetDate(11, 19, 2026) && now.SetTime24(9, 7));
        draft.StampStart(now);
        QCOMPARE(Times(draft), u"9:07 - -"_s);
        draft.StampStart(Time(10, 0));
        QCOMPARE(Times(draft), u"9:07 - -"_s);
    }

    void EachEntryIntoAFieldStartsFromTheSamePoint() {
        TimeDraft draft = Draft();
        draft.EnterDuration(EnteredSpan{1, 0});
        draft.EnterDuration(EnteredSpan{13, 0});
        QCOMPARE(Times(draft), u"8:00 21:00 13:00"_s);
        draft.Undo(TimeDraft::Field::Duration);
        QCOMPARE(Times(draft), u"8:00 10:00 2:00"_s);
    }

    void AnEntryIntoAnotherFieldSettlesTheFirst() {
        TimeDraft draft = Draft();
        draft.EnterDuration(EnteredSpan{1, 0});
        draft.EnterStart(Time(9, 0));
        draft.Undo(TimeDraft::Field::Start);
        QCOMPARE(Times(draft), u"8:00 9:00 1:00"_s);
    }

    void ASettledEntryIsAddedTo() {
        m_settings.accumulateOnReentry = true;
        TimeDraft draft = Draft();
        draft.EnterDuration(EnteredSpan{0, 30});
        draft.EnterDuration(EnteredSpan{0, 45});
        QCOMPARE(Times(draft), u"8:00 10:45 2:45"_s);
        draft.Settle();
        draft.EnterDuration(EnteredSpan{0, 15});
        QCOMPARE(Times(draft), u"8:00 11:00 3:00"_s);
    }

    void SteppingAddsNothingUp() {
        m_settings.accumulateOnReentry = true;
        TimeDraft draft = Draft();
        draft.EnterDuration(EnteredSpan{2, 5}, SpanSource::Stepped);
        QCOMPARE(Times(draft), u"8:00 10:05 2:05"_s);
        draft.EnterBreak(EnteredSpan{0, 30});
        draft.Settle();
        draft.EnterBreak(EnteredSpan{0, 35}, SpanSource::Stepped);
        QCOMPARE(draft.Record().spans.breakTime.minutes, 35);
    }

    void ATimerCountsOnWhileSomethingIsTyped() {
        TimeDraft draft = Draft();
        draft.EnterDate(std::nullopt);
        draft.SetFromTimer(3, 0, true);
        draft.Undo(TimeDraft::Field::Date);
        QCOMPARE(Times(draft), u"8:00 11:00 3:00"_s);
        QVERIFY(draft.Record().date.IsSet());
    }

    /// A live count isn't entered, and what the timer is stopped with is.
    void UntouchedIsTheBeginningWithTheLiveCount() {
        TimeDraft draft = Draft();
        draft.EnterItem(&CTRecord::item1, u"Acme"_s);
        draft.SetFromTimer(3, 0, true);
        QCOMPARE(draft.Untouched().spans.duration.hours, 3);
        QVERIFY(draft.Untouched().item1.isEmpty());
        draft.SetFromTimer(4, 0, false);
        QCOMPARE(draft.Untouched().spans.duration.hours, 3);
        QCOMPARE(draft.Record().spans.duration.hours, 4);
    }

    void Money_data() {
        QTest::addColumn<QString>("rate");
        QTest::addColumn<QString>("amount");
        QTest::addColumn<QString>("shown");
        QTest::newRow("a rate gives the amount") << u"10"_s << QString() << u"10 gives 20.00"_s;
        QTest::newRow("an amount gives the rate") << QString() << u"30"_s << u"15.000 gives 30"_s;
        QTest::newRow("the second one typed gives the first") << u"10"_s << u"30"_s << u"15.000 gives 30"_s;
        QTest::newRow("digits in groups") << u"1,234.50"_s << QString() << u"1234.50 gives 2469.00"_s;
        QTest::newRow("what can't be read changes nothing") << u"10 EUR"_s << QString() << u"10 EUR gives "_s;
    }
    void Money() {
        QFETCH(QString, rate);
        QFETCH(QString, amount);
        TimeDraft draft = Draft();
        if (!rate.isEmpty()) static_cast<void>(draft.EnterRate(rate));
        if (!amount.isEmpty()) static_cast<void>(draft.EnterAmount(amount));
        QTEST(Money(draft), "shown");
    }

    void WhatWasTypedStaysAsTypedWhenTheTimesChange() {
        TimeDraft draft = Draft();
        QVERIFY(draft.EnterRate(u"10"_s) == Typed::Value);
        draft.EnterDuration(EnteredSpan{3, 0});
        QCOMPARE(Money(draft), u"10 gives 30.00"_s);
        QVERIFY(draft.EnterAmount(u"60"_s) == Typed::Value);
        draft.EnterDuration(EnteredSpan{4, 0});
        QCOMPARE(Money(draft), u"15.000 gives 60"_s);
    }

    void AnEmptyTextIsNoValueOnceItIsAccepted() {
        TimeDraft draft = Draft();
        static_cast<void>(draft.EnterRate(u"10"_s));
        QVERIFY(draft.EnterRate(QString()) == Typed::Nothing);
        QCOMPARE(draft.Record().GetRateText(), u"10.000"_s);
        draft.Accept(NewListItems());
        QCOMPARE(draft.Record().GetRateText(), QString());
        QCOMPARE(draft.Record().GetAmountText(), u"20.00"_s);
    }

    void ClearingLeavesThePartner() {
        TimeDraft draft = Draft();
        static_cast<void>(draft.EnterRate(u"10"_s));
        draft.ClearRate();
        QCOMPARE(draft.Record().GetRateText() + u'|' + draft.Record().GetAmountText(), u"|20.00"_s);
        draft.ClearAmount();
        QCOMPARE(Money(draft), u" gives "_s);
    }

    void NoLongerBillable() {
        TimeDraft draft = Draft();
        static_cast<void>(draft.EnterRate(u"10"_s));
        draft.SwitchBilled(true);
        QVERIFY(draft.Record().isBilled);
        draft.SwitchBillable(false);
        QCOMPARE(Money(draft), u" gives "_s);
        QVERIFY(!draft.Record().isBilled);
        draft.SwitchBilled(true);
        QVERIFY(!draft.Record().isBilled);
        QVERIFY(draft.EnterRate(u"10"_s) == Typed::Unreadable);
    }

    void Findings_data() {
        QTest::addColumn<QString>("rate");
        QTest::addColumn<QString>("amount");
        QTest::addColumn<bool>("hasDate");
        QTest::addColumn<QString>("found");
        QTest::newRow("nothing") << u"10"_s << QString() << true << QString();
        QTest::newRow("no date") << QString() << QString() << false << u"DateMissing"_s;
        QTest::newRow("a rate that can't be read") << u"x"_s << QString() << true << u"NumberRefused"_s;
        QTest::newRow("both") << u"x"_s << u"1,5"_s << true << u"NumberRefused NumberRefused"_s;
        QTest::newRow("kept as another") << QString() << u"16777217"_s << true << u"AskNumberKept"_s;
        QTest::newRow("a rate below zero is kept as none")
            << u"-5"_s << QString() << true << u"AskNumberKept"_s;
        QTest::newRow("rounded is no other") << u"10.0004"_s << QString() << true << QString();
    }
    void Findings() {
        QFETCH(QString, rate);
        QFETCH(QString, amount);
        QFETCH(bool, hasDate);
        TimeDraft draft = Draft();
        if (!rate.isEmpty()) static_cast<void>(draft.EnterRate(rate));
        if (!amount.isEmpty()) static_cast<void>(draft.EnterAmount(amount));
        if (!hasDate) draft.EnterDate(std::nullopt);
        QStringList found;
        for (const DraftFinding& finding : draft.Findings()) {
            const bool isAsked = finding.text == Text::AskNumberKept;
            QCOMPARE(finding.isQuestion, isAsked);
            found.append(isAsked                               ? u"AskNumberKept"_s
                         : finding.text == Text::NumberRefused ? u"NumberRefused"_s
                                                               : u"DateMissing"_s);
        }
        QTEST(found.join(u' '), "found");
    }

    void ItemsAreCut() {
        TimeDraft draft = Draft();
        draft.EnterItem(&CTRecord::item3, QString(300, u'x'));
        draft.EnterNotes(u"one\ntwo"_s);
        QCOMPARE(draft.Record().item3.size(), 255);
        QCOMPARE(draft.Record().notes, u"one\ntwo"_s);
    }

    /// An acceptance offers everything to the lists, a command line what it gave.
    void TextsForTheLists() {
        CTRecord record;
        record.item1 = u"Acme"_s;
        record.SetBillable(true);
        TimeDraft draft(m_settings);
        draft.Begin(record);
        draft.EnterItem(&CTRecord::item2, u"Bridge"_s);
        static_cast<void>(draft.EnterRate(u"1,040"_s));
        Offered given, all;
        draft.AddEntered(NewListItems(m_settings, given));
        QCOMPARE(given.seen.join(u' '), u"17:Bridge 34:1040"_s);
        draft.Accept(NewListItems(m_settings, all));
        QCOMPARE(all.seen.join(u' '), u"16:Acme 17:Bridge 34:1040"_s);
    }
};

TEST_CLASS(TestTimeDraft);
#include "TestTimeDraft.moc"
