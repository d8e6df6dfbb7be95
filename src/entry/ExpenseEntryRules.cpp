#include "entry/ExpenseEntryRules.h"

#include "app/ListTable.h"
#include "calendar/NumberText.h"
#include "calendar/ScanText.h"
#include "config/Settings.h"
#include "entry/NewListItems.h"
#include "entry/NumberFinding.h"
#include "entry/TypedFields.h"
#include "entry/TypedNumber.h"
#include "lang/FormatText.h"
#include "records/CERecord.h"
#include "records/Precisions.h"

namespace {

/// What odometerLastEnd says where no reading is known.
constexpr int kNoReading = -1;

float NumberOf(const QString& text) {
    float value = 0.0F;
    (void)ReadTypedFloat(text, value);
    return value;
}

double ReadingOf(const QString& text) {
    return ReadTypedNumber(text, TheRegion()).value;
}

/// What can't be read, and the text that the field has already, leaves the field as it is.
void PutReadable(DecimalField& field, const QString& text) {
    float value = 0.0F;
    if (text != field.text && ReadTypedFloat(text, value)) field.Set(value);
}

/// Computed in single precision; whatever isn't above 0 is 0, a negative zero too.
void PutDistanceAmount(DecimalField& amount, const QString& distance, const QString& rate) {
    const float product = NumberOf(distance) * NumberOf(rate);
    amount.Set(product > 0.0F ? product : 0.0F);
}

using ExpenseEntryRules::ItemsPage;
using ExpenseEntryRules::MoneyPage;

/// Typed texts and their lists, in the order in which the lists take them.
constexpr ListItemRow<MoneyPage> kTypedMoney[] = {
    {&Settings::keepDistance, ListId::kDistance, &MoneyPage::distance},
    {&Settings::keepDistanceRate, ListId::kDistanceRate, &MoneyPage::rate},
    {&Settings::keepExpenseList135, ListId::kItem5, &MoneyPage::item5},
};
constexpr ListItemRow<MoneyPage> kTypedAmount = {&Settings::keepExpenseList136, ListId::kAmount,
                                                 &MoneyPage::amount};
constexpr ListItemRow<ItemsPage> kTypedItems[] = {
    {&Settings::keepExpenseList131, ListId::kClient, &ItemsPage::item1},
    {&Settings::keepExpenseList132, ListId::kProject, &ItemsPage::item2},
    {&Settings::keepExpenseList133, ListId::kExpenseItem3, &ItemsPage::item3},
    {&Settings::keepExpenseList134, ListId::kExpenseItem4, &ItemsPage::item4},
};

constexpr ExpenseEntryRules::PageItem kItems[] = {
    {&CERecord::item1, &ItemsPage::item1},
    {&CERecord::item2, &ItemsPage::item2},
    {&CERecord::item3, &ItemsPage::item3},
    {&CERecord::item4, &ItemsPage::item4},
};

}  // namespace

namespace ExpenseEntryRules {

std::span<const PageItem> PageItems() {
    return kItems;
}

QString UpdateDistanceAmount(const QString& distance, const QString& rate) {
    DecimalField amount;
    amount.precision = ThePrecisions().AmountPrecision();
    PutDistanceAmount(amount, distance, rate);
    return amount.text;
}

void TakeDistance(CERecord& record, const QString& distance, const QString& rate) {
    // What still stands there isn't set anew: the store may hold more of it than this machine can read.
    if (distance != record.distance.text) {
        record.distance.Reset();
        PutReadable(record.distance, distance);
    }
    PutTyped(record.rate, rate);
}

void AcceptMoneyPage(CERecord& record, const MoneyPage& page, const NewListItems& lists) {
    record.date.Set(page.month, page.day, page.year);
    record.isDistance = page.isDistance;
    if (page.isDistance) TakeDistance(record, page.distance, page.rate);
    record.item5 = CutItem(page.item5);
    PutTyped(record.amount, page.amount);
    for (const ListItemRow<MoneyPage>& row : kTypedMoney) lists.Add(row, page);
    if (!page.isDistance) lists.Add(kTypedAmount, page);
}

void AcceptItemsPage(CERecord& record, const ItemsPage& page, const NewListItems& lists) {
    for (const PageItem& row : kItems) record.*row.item = CutItem(page.*row.text);
    record.flag1 = page.flag1;
    record.flag2 = page.flag1 && page.flag2;
    record.flag3 = page.flag3;
    record.flag4 = page.flag3 && page.flag4;
    record.flag5 = page.flag5;
    for (const ListItemRow<ItemsPage>& row : kTypedItems) lists.Add(row, page);
}

Odometer OpenOdometer(const CERecord& record, const Settings& settings) {
    const bool hasReadings = !record.odometerStart.isEmpty() || !record.odometerEnd.isEmpty();
    const bool isSuggested =
        settings.odometerSuggestStart && !hasReadings && settings.odometerLastEnd != kNoReading;
    return {isSuggested ? FormatText<Text::PlainInteger>(settings.odometerLastEnd) : record.odometerStart,
            record.odometerEnd, record.GetRateText(), record.distance.text};
}

/// 1000 to 1120.5: 120.5.
void ReadingsChanged(Odometer& odometer) {
    const double driven = ReadingOf(odometer.end) - ReadingOf(odometer.start);
    if (driven <= 0.0) return;
    const auto distance = static_cast<float>(driven);
    odometer.distance = FormatNumber(TheRegion(), static_cast<double>(distance), -1);
}

void DistanceChosen(Odometer& odometer, const QString& distance) {
    odometer.distance = distance;
    odometer.start.clear();
    odometer.end.clear();
}

DraftFindings FindIn(const Odometer& odometer) {
    struct Row {
        DraftField field;
        QString Odometer::*text;
    };
    static constexpr Row kRows[] = {
        {DraftField::OdometerStart, &Odometer::start},
        {DraftField::OdometerEnd, &Odometer::end},
        {DraftField::Distance, &Odometer::distance},
        {DraftField::Rate, &Odometer::rate},
    };
    DraftFindings findings;
    for (const Row& row : kRows)
        if (const auto found = FindUnreadable(row.field, odometer.*row.text)) findings.push_back(*found);
    return findings;
}

void AcceptOdometer(CERecord& record, const Odometer& odometer, Settings& settings) {
    if (!odometer.end.isEmpty()) {
        settings.odometerLastEnd = kNoReading;
        (void)ScanText(LoadText(Text::PlainInteger), PlainNumber(odometer.end), {&settings.odometerLastEnd});
    }
    record.odometerStart = CutItem(PlainNumber(odometer.start));
    record.odometerEnd = CutItem(PlainNumber(odometer.end));
    PutReadable(record.rate, odometer.rate);
    if (odometer.distance != record.distance.text) PutReadable(record.distance, odometer.distance);
    PutDistanceAmount(record.amount, record.distance.text, record.GetRateText());
}

}  // namespace ExpenseEntryRules
