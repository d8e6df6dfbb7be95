#include "entry/ExpenseDraft.h"

#include "entry/NewListItems.h"
#include "entry/NumberFinding.h"
#include "entry/RecordMerge.h"
#include "entry/TypedFields.h"
#include "entry/TypedNumber.h"
#include "lang/LoadText.h"

#include <algorithm>

namespace {

using ExpenseEntryRules::ItemsPage;

using ExpenseEntryRules::PageItem;
using ExpenseEntryRules::PageItems;

/// A flag and its place in the page.
struct FlagRow {
    bool CERecord::*flag;
    bool ItemsPage::*box;
    bool CERecord::*needs;  ///< the flag without which it can't be on; null for none
};
constexpr FlagRow kFlags[] = {
    {&CERecord::flag1, &ItemsPage::flag1, nullptr}, {&CERecord::flag2, &ItemsPage::flag2, &CERecord::flag1},
    {&CERecord::flag3, &ItemsPage::flag3, nullptr}, {&CERecord::flag4, &ItemsPage::flag4, &CERecord::flag3},
    {&CERecord::flag5, &ItemsPage::flag5, nullptr},
};

/// What a field would hold of a typed number, as it shows it.
QString TextOf(DecimalField field, const QString& typed) {
    PutTyped(field, typed);
    return field.MoneyText();
}

/// What the first page shows of a record.
ExpenseEntryRules::MoneyPage MoneyShownOf(const CERecord& record) {
    ExpenseEntryRules::MoneyPage page;
    page.isDistance = record.isDistance;
    if (record.isDistance) {
        page.distance = record.distance.text;
        page.rate = record.GetRateText();
    }
    page.amount = record.GetAmountText();
    return page;
}

}  // namespace

void ExpenseDraft::Begin(const CERecord& record, const CERecord* untouched) {
    m_record.Copy(record);
    m_untouched.Copy(untouched ? *untouched : record);
    m_money = MoneyShownOf(record);
    m_enteredMoney = {};
    m_enteredItems = {};
    const bool hasNumbers = m_record.GetDistance() != 0.0F || !m_record.GetRateText().isEmpty();
    m_hasKeptDistance = !record.isDistance && hasNumbers;
    m_odometer.reset();
    m_isStartCleared = false;
}

/// Money and distance go into the record only when it is accepted, so their texts tell.
bool ExpenseDraft::HasEntries() const {
    return !HaveSameContent(m_record, m_untouched) || m_money != MoneyShownOf(m_untouched);
}

void ExpenseDraft::EnterDate(const std::optional<DateTimeVal>& day) {
    m_record.date.Reset();
    if (day) m_record.date.Set(day->month, day->day, day->year);
}

void ExpenseDraft::EnterItem(QString CERecord::*item, const QString& text) {
    m_record.*item = CutItem(text);
    if (item == &CERecord::item5) m_enteredMoney.item5 = text;
    for (const PageItem& row : PageItems())
        if (row.item == item) m_enteredItems.*row.text = text;
}

void ExpenseDraft::SwitchFlag(bool CERecord::*flag, bool isOn) {
    ItemsPage page = FullItems();
    for (const FlagRow& row : kFlags)
        if (row.flag == flag) page.*row.box = isOn;
    ExpenseEntryRules::AcceptItemsPage(m_record, page, NewListItems());
}

bool ExpenseDraft::MaySetFlag(bool CERecord::*flag) const {
    return std::ranges::all_of(kFlags, [this, flag](const FlagRow& row) {
        return row.flag != flag || !row.needs || m_record.*row.needs;
    });
}

// --- Money

void ExpenseDraft::SwitchDistance(bool isOn) {
    if (isOn == m_money.isDistance) return;
    const bool isTakenUp = isOn && m_hasKeptDistance;
    m_hasKeptDistance = false;
    m_money.isDistance = isOn;
    m_money.distance = isTakenUp ? m_record.distance.text : QString();
    m_money.rate = isTakenUp ? m_record.GetRateText() : QString();
    m_money.amount = isOn ? LoadText(Text::AmountIsComputed) : QString();
}

void ExpenseDraft::ComputeAmount() {
    if (m_money.isDistance)
        m_money.amount = ExpenseEntryRules::UpdateDistanceAmount(m_money.distance, m_money.rate);
}

Typed ExpenseDraft::EnterNumber(QString MoneyPage::*text, const QString& typed) {
    const TypedNumber number = ReadTypedNumber(typed, TheRegion());
    m_money.*text = m_enteredMoney.*text = number.plain;
    return number.state;
}

Typed ExpenseDraft::EnterDistance(const QString& text) {
    const Typed read = EnterNumber(&MoneyPage::distance, text);
    ComputeAmount();
    return read;
}

Typed ExpenseDraft::EnterRate(const QString& text) {
    const Typed read = EnterNumber(&MoneyPage::rate, text);
    ComputeAmount();
    return read;
}

Typed ExpenseDraft::EnterAmount(const QString& text) {
    return EnterNumber(&MoneyPage::amount, text);
}

void ExpenseDraft::ClearDistance() {
    m_money.distance = m_enteredMoney.distance = QString();
    if (!m_money.isDistance) m_record.distance.Reset();
    ComputeAmount();
}

void ExpenseDraft::ClearRate() {
    m_money.rate = m_enteredMoney.rate = QString();
    if (!m_money.isDistance) m_record.rate.SetNone();
}

// --- Readings

ExpenseDraft::Odometer ExpenseDraft::OpenOdometer(const Settings& settings) const {
    CERecord record;
    record.Copy(m_record);
    ExpenseEntryRules::TakeDistance(record, m_money.distance, m_money.rate);
    return ExpenseEntryRules::OpenOdometer(record, settings);
}

void ExpenseDraft::AcceptOdometer(const Odometer& odometer, Settings& settings) {
    ExpenseEntryRules::TakeDistance(m_record, m_money.distance, m_money.rate);
    ExpenseEntryRules::AcceptOdometer(m_record, odometer, settings);
    m_money.isDistance = true;
    m_money.distance = m_record.distance.text;
    m_money.rate = m_record.GetRateText();
    ComputeAmount();
}

void ExpenseDraft::EnterReading(QString Odometer::*reading, const QString& typed, const Settings& settings) {
    if (!m_odometer) {
        SwitchDistance(true);
        m_odometer = OpenOdometer(settings);
        if (m_isStartCleared) m_odometer->start.clear();
    }
    *m_odometer.*reading = typed;
    ExpenseEntryRules::ReadingsChanged(*m_odometer);
}

void ExpenseDraft::EndReadings(Settings& settings) {
    if (!m_odometer) return;
    AcceptOdometer(*m_odometer, settings);
    m_odometer.reset();
}

void ExpenseDraft::ClearReading(QString CERecord::*reading) {
    (m_record.*reading).clear();
    if (reading == &CERecord::odometerStart) m_isStartCleared = true;
}

void ExpenseDraft::DropReadings() {
    m_record.odometerStart.clear();
    m_record.odometerEnd.clear();
}

// --- The end

DraftFindings ExpenseDraft::Findings() const {
    DraftFindings findings;
    if (!m_record.date.IsSet())
        findings.push_back({.field = DraftField::Date,
                            .text = Text::DateMissing,
                            .words = LoadText(Text::DateMissing),
                            .mark = {},
                            .isQuestion = false});
    const auto look = [&](DraftField field, const QString& shown, const DecimalField& kept) {
        if (shown == kept.text) return;
        if (const auto found = FindInNumber(field, shown, TextOf(kept, shown), kept.precision))
            findings.push_back(*found);
    };
    if (!m_money.isDistance) {
        look(DraftField::Amount, m_money.amount, m_record.amount);
        return findings;
    }
    look(DraftField::Distance, m_money.distance, m_record.distance);
    look(DraftField::Rate, m_money.rate, m_record.rate);
    return findings;
}

ExpenseDraft::MoneyPage ExpenseDraft::FullMoney() const {
    MoneyPage page = m_money;
    page.month = m_record.date.month;
    page.day = m_record.date.day;
    page.year = m_record.date.year;
    page.item5 = m_record.item5;
    // Turned on, and distance and rate left as the record had kept them.
    const bool isComputed = page.amount != LoadText(Text::AmountIsComputed);
    if (page.isDistance && !isComputed && !(page.distance.isEmpty() && page.rate.isEmpty()))
        page.amount = ExpenseEntryRules::UpdateDistanceAmount(page.distance, page.rate);
    return page;
}

ExpenseDraft::ItemsPage ExpenseDraft::FullItems() const {
    ItemsPage page;
    for (const PageItem& row : PageItems()) page.*row.text = m_record.*row.item;
    for (const FlagRow& row : kFlags) page.*row.box = m_record.*row.flag;
    return page;
}

void ExpenseDraft::Accept(const NewListItems& lists) {
    ExpenseEntryRules::AcceptMoneyPage(m_record, FullMoney(), lists);
    ExpenseEntryRules::AcceptItemsPage(m_record, FullItems(), lists);
}

void ExpenseDraft::AddEntered(const NewListItems& lists) const {
    CERecord scratch;
    MoneyPage money = m_enteredMoney;
    money.isDistance = m_money.isDistance;
    ExpenseEntryRules::AcceptMoneyPage(scratch, money, lists);
    ExpenseEntryRules::AcceptItemsPage(scratch, m_enteredItems, lists);
}
