#include "entry/TimeDraft.h"

#include "entry/NumberFinding.h"
#include "entry/RecordMerge.h"
#include "entry/TypedFields.h"
#include "entry/TypedNumber.h"
#include "lang/LoadText.h"

namespace {

using Page = TimeEntryRules::EntryPage;

using TimeEntryRules::EntryItem;

}  // namespace

void TimeDraft::Begin(const CTRecord& record, const CTRecord* untouched) {
    Settle();
    m_record.Copy(record);
    m_untouched.Copy(untouched ? *untouched : record);
    m_page = {};
    m_entered = {};
    m_page.rate = m_record.GetRateText();
    m_page.amount = m_record.GetAmountText();
}

bool TimeDraft::HasEntries() const {
    return !HaveSameContent(m_record, m_untouched) || m_page.rate != m_record.GetRateText() ||
           m_page.amount != m_record.GetAmountText();
}

// --- Times

void TimeDraft::StartFrom(Field field) {
    if (m_field == field)
        m_record.Copy(m_start);
    else
        m_start.Copy(m_record);
    m_field = field;
}

void TimeDraft::Try(Field field, const Rule& rule) {
    StartFrom(field);
    rule(m_record);
    ShowComputed();
}

void TimeDraft::Undo(Field field) {
    StartFrom(field);
    ShowComputed();
}

void TimeDraft::Change(const Rule& rule) {
    rule(m_record);
    if (m_field != Field::None) rule(m_start);
}

void TimeDraft::EnterDate(const std::optional<DateTimeVal>& day) {
    Try(Field::Date, [&day](CTRecord& record) {
        record.date.Reset();
        if (day) record.date.Set(day->month, day->day, day->year);
    });
}

void TimeDraft::EnterStart(const std::optional<DateTimeVal>& time) {
    Try(Field::Start, [&](CTRecord& record) { TimeEntryRules::EnterStart(record, time, *m_settings); });
}

void TimeDraft::EnterEnd(const std::optional<DateTimeVal>& time) {
    Try(Field::End, [&](CTRecord& record) { TimeEntryRules::EnterEnd(record, time, *m_settings); });
}

void TimeDraft::EnterDuration(const std::optional<EnteredSpan>& span, SpanSource source) {
    Try(Field::Duration,
        [&](CTRecord& record) { TimeEntryRules::EnterDuration(record, span, *m_settings, source); });
}

void TimeDraft::EnterBreak(const std::optional<EnteredSpan>& span, SpanSource source) {
    Try(Field::Break,
        [&](CTRecord& record) { TimeEntryRules::EnterBreak(record, span, *m_settings, source); });
}

void TimeDraft::StampStart(const DateTimeVal& now) {
    const bool isToday =
        m_record.date.month == now.month && m_record.date.day == now.day && m_record.date.year == now.year;
    if (!isToday || m_record.HasStart() || m_record.HasEnd() || m_record.spans.duration.IsSet()) return;
    Change([&now](CTRecord& record) { record.SetStart(now); });
}

void TimeDraft::SetFromTimer(int hours, int minutes, bool fromTimer) {
    const auto count = [&](CTRecord& record) {
        TimeEntryRules::SetFromTimer(record, hours, minutes, fromTimer, *m_settings);
    };
    Change(count);
    // A live count comes by itself; a stop is the user's.
    if (fromTimer) count(m_untouched);
    ShowComputed();
}

// --- Items, notes, flags

void TimeDraft::EnterItem(QString CTRecord::*item, const QString& text) {
    Change([&](CTRecord& record) { record.*item = CutItem(text); });
    for (const EntryItem& row : TimeEntryRules::EntryItems())
        if (row.item == item) m_entered.*row.text = text;
}

void TimeDraft::EnterNotes(const QString& notes) {
    Change([&notes](CTRecord& record) { record.notes = notes; });
}

void TimeDraft::SwitchBillable(bool isOn) {
    Change([isOn](CTRecord& record) { record.SetBillable(isOn); });
    m_page.rate = m_record.GetRateText();
    m_page.amount = m_record.GetAmountText();
}

void TimeDraft::SwitchBilled(bool isOn) {
    Change([isOn](CTRecord& record) { record.isBilled = isOn && record.isBillable; });
}

// --- Money

/// The partner follows, unless this text is none or can't be read.
Typed TimeDraft::EnterNumber(QString Page::*text, const QString& typed, EnterMoney rule) {
    const TypedNumber number = ReadTypedNumber(typed, TheRegion());
    if (number.IsValue()) {
        bool isTaken = false;
        Change([&](CTRecord& record) { isTaken = rule(record, number.plain); });
        if (!isTaken) return Typed::Unreadable;
        m_page.rate = m_record.GetRateText();
        m_page.amount = m_record.GetAmountText();
    }
    m_page.*text = m_entered.*text = number.plain;
    return number.state;
}

Typed TimeDraft::EnterRate(const QString& text) {
    return EnterNumber(&Page::rate, text, &TimeEntryRules::EnterRate);
}

Typed TimeDraft::EnterAmount(const QString& text) {
    return EnterNumber(&Page::amount, text, &TimeEntryRules::EnterAmount);
}

/// By the setter: a value below zero is none, and its partner stays as it is. What it returns tells of the
/// partner.
void TimeDraft::ClearRate() {
    Change([](CTRecord& record) { static_cast<void>(record.SetRate(-1.0F)); });
    m_page.rate = m_entered.rate = QString();
}

void TimeDraft::ClearAmount() {
    Change([](CTRecord& record) { static_cast<void>(record.SetAmount(-1.0F)); });
    m_page.amount = m_entered.amount = QString();
}

/// What was typed stays as typed, what was computed from it follows the times.
void TimeDraft::ShowComputed() {
    if (m_record.amountIsDerived) m_page.amount = m_record.GetAmountText();
    if (m_record.rateIsDerived) m_page.rate = m_record.GetRateText();
}

// --- The end

DraftFindings TimeDraft::Findings() const {
    DraftFindings findings;
    if (!m_record.date.IsSet())
        findings.push_back({.field = DraftField::Date,
                            .text = Text::DateMissing,
                            .words = LoadText(Text::DateMissing),
                            .mark = {},
                            .isQuestion = false});
    const auto look = [&](DraftField field, const QString& shown, const DecimalField& kept) {
        if (shown == kept.MoneyText()) return;
        if (const auto found = FindInNumber(field, shown, kept.MoneyText(), kept.precision))
            findings.push_back(*found);
    };
    look(DraftField::Rate, m_page.rate, m_record.rate);
    look(DraftField::Amount, m_page.amount, m_record.amount);
    return findings;
}

Page TimeDraft::FullPage() const {
    Page page = m_page;
    for (const EntryItem& row : TimeEntryRules::EntryItems()) page.*row.text = m_record.*row.item;
    page.isBillable = m_record.isBillable;
    page.isBilled = m_record.isBilled;
    return page;
}

void TimeDraft::Accept(const NewListItems& lists) {
    Settle();
    TimeEntryRules::AcceptEntryPage(m_record, FullPage(), lists);
}

void TimeDraft::AddEntered(const NewListItems& lists) const {
    CTRecord scratch;
    scratch.Copy(m_record);
    TimeEntryRules::AcceptEntryPage(scratch, m_entered, lists);
}
