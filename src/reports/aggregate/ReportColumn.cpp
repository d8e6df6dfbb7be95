#include "reports/aggregate/ReportColumn.h"

#include "calendar/NumberText.h"
#include "platform/host/CRegionalInfo.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"

namespace {

const CTRecord* TimeOf(const CVORec* record) {
    return record && record->Kind() == RecordKind::Time ? static_cast<const CTRecord*>(record) : nullptr;
}

const CERecord* ExpenseOf(const CVORec* record) {
    return record && record->Kind() == RecordKind::Expense ? static_cast<const CERecord*>(record) : nullptr;
}

/// 0 where there is none.
double HoursOf(const SpanField& span) {
    float hours = 0.0F;
    (void)span.GetDecimal(hours);
    return double{hours};
}

double AmountOf(const DecimalField& amount) {
    float money = 0.0F;
    (void)amount.GetMoney(money);
    return double{money};
}

template <class Column>
std::unique_ptr<ReportColumn> Fresh(const Column& column) {
    return std::make_unique<Column>(column.caption);
}

template <class Column>
std::unique_ptr<ReportColumn> FreshSum(const Column& column) {
    return std::make_unique<Column>(column.caption, column.Places());
}

}  // namespace

std::unique_ptr<ReportColumn> ColEntries::Clone() const {
    return Fresh(*this);
}

void ColEntries::Add(const CVORec* record) {
    if (record) ++count;
}

QString ColEntries::Text() const {
    return QString::number(count);
}

std::unique_ptr<ReportColumn> ColEntriesExpense::Clone() const {
    return Fresh(*this);
}

void ColEntriesExpense::Add(const CVORec* record) {
    if (const CERecord* expense = ExpenseOf(record); expense && !expense->isDistance) ++count;
}

std::unique_ptr<ReportColumn> ColEntriesMileage::Clone() const {
    return Fresh(*this);
}

void ColEntriesMileage::Add(const CVORec* record) {
    if (const CERecord* expense = ExpenseOf(record); expense && expense->isDistance) ++count;
}

QString ColSum::Text() const {
    return FormatNumber(TheRegion(), total, m_places);
}

std::unique_ptr<ReportColumn> ColDuration::Clone() const {
    return FreshSum(*this);
}

void ColDuration::Add(const CVORec* record) {
    if (const CTRecord* time = TimeOf(record)) total += HoursOf(time->spans.duration);
}

std::unique_ptr<ReportColumn> ColBreak::Clone() const {
    return FreshSum(*this);
}

void ColBreak::Add(const CVORec* record) {
    if (const CTRecord* time = TimeOf(record)) total += HoursOf(time->spans.breakTime);
}

std::unique_ptr<ReportColumn> ColEffective::Clone() const {
    return FreshSum(*this);
}

void ColEffective::Add(const CVORec* record) {
    const CTRecord* time = TimeOf(record);
    if (time && time->spans.duration.IsSet()) total += HoursOf(time->spans.effective);
}

std::unique_ptr<ReportColumn> ColAmount::Clone() const {
    return FreshSum(*this);
}

void ColAmount::Add(const CVORec* record) {
    if (const CTRecord* time = TimeOf(record)) total += AmountOf(time->amount);
    if (const CERecord* expense = ExpenseOf(record)) total += AmountOf(expense->amount);
}

std::unique_ptr<ReportColumn> ColAmountExpense::Clone() const {
    return FreshSum(*this);
}

void ColAmountExpense::Add(const CVORec* record) {
    if (const CERecord* expense = ExpenseOf(record); expense && !expense->isDistance) ColAmount::Add(record);
}

std::unique_ptr<ReportColumn> ColAmountMileage::Clone() const {
    return FreshSum(*this);
}

void ColAmountMileage::Add(const CVORec* record) {
    if (const CERecord* expense = ExpenseOf(record); expense && expense->isDistance) ColAmount::Add(record);
}
