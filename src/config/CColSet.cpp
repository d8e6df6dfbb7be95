#include "config/CColSet.h"

#include "config/CColumnNames.h"
#include "config/Settings.h"
#include "lang/LoadText.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace {

/// At most 16 units, and no half of a character at the end.
QString CutCaption(const QString& caption) {
    QString cut = caption.left(ColumnEntry::kCaptionUnits);
    if (cut.size() < caption.size() && cut.back().isHighSurrogate()) cut.chop(1);
    return cut;
}

QString DefaultCaption(const ColumnRow& row) {
    return CutCaption(LoadText(row.caption));
}

void Append(std::vector<std::int32_t>& breaks, ColumnHalf half) {
    const std::span<const int> defaults = DefaultBreaks(half);
    breaks.insert(breaks.end(), defaults.begin(), defaults.end());
}

}  // namespace

// --- Defaults and the stored form

void CColSet::FillFromTable(int ColumnRow::*position) {
    for (const ColumnRow& row : ColumnTable()) {
        ColumnEntry& entry = Entry(row.index);
        entry.caption = DefaultCaption(row);
        entry.position = row.*position;
        entry.visible = entry.position > 0 ? 1 : 0;
        entry.width = row.width;
        entry.kind = static_cast<std::int32_t>(row.kind);
    }
}

void CColSet::SetDefaults() {
    FillFromTable(&ColumnRow::listPosition);
    Append(m_payload.timeBreaks, ColumnHalf::Time);
    Append(m_payload.expenseBreaks, ColumnHalf::Expense);
    RebuildOrders();
}

bool CColSet::MakeBlob(QByteArray& out) const {
    const std::optional<QByteArray> blob = ColumnBlobOf(m_payload);
    out = blob.value_or(QByteArray());
    return blob.has_value();
}

bool CColSet::LoadBlob(const QByteArray& blob) {
    if (IsEmptyColumnBlob(blob)) return true;
    std::optional<ColumnPayload> payload = ColumnsFromBlob(blob);
    if (!payload) return false;
    m_payload = std::move(*payload);
    RebuildOrders();
    return true;
}

/// Earlier versions had break and net time the other way around. Both change places, with all that the user
/// chose for them.
void CColSet::MendOldOrder() {
    ColumnEntry &net = Entry(Column::kEffective), &pause = Entry(Column::kBreak);
    if (net.caption == LoadText(Text::ColumnCaptionBreak) &&
        pause.caption == LoadText(Text::ColumnCaptionEffective))
        std::swap(net, pause);
}

void CColSet::Repair() {
    MendOldOrder();
    for (const ColumnRow& row : ColumnTable()) {
        ColumnEntry& entry = Entry(row.index);
        entry.kind = static_cast<std::int32_t>(row.kind);
        if (entry.width < 1) entry.width = row.width;
        if (entry.caption.isEmpty()) entry.caption = DefaultCaption(row);
    }
    RebuildOrders();
}

// --- Reading

bool CColSet::IsVisible(int column) const {
    return IsColumn(column) && Entry(column).visible == 1;
}

ColumnEntry CColSet::EntryAt(int column) const {
    return IsColumn(column) ? Entry(column) : ColumnEntry();
}

std::int32_t CColSet::KindOf(int column) const {
    return EntryAt(column).kind;
}

ColumnEntry CColSet::FindByCaption(ColumnHalf half, const QString& caption) const {
    return EntryAt(IndexOfCaption(half, caption));
}

int CColSet::IndexOfCaption(ColumnHalf half, const QString& caption) const {
    for (int column = FirstColumn(half); column < EndOfColumns(half); ++column)
        if (Entry(column).caption == caption) return column;
    return -1;
}

int CColSet::OrderPosition(ColumnHalf half, int column) const {
    const std::vector<int>& order = Order(half);
    const auto found = std::ranges::find(order, column);
    return found == order.end() ? -1 : static_cast<int>(found - order.begin());
}

const std::vector<int>& CColSet::Order(ColumnHalf half) const {
    return half == ColumnHalf::Time ? m_timeOrder : m_expenseOrder;
}

const std::vector<std::int32_t>& CColSet::Breaks(ColumnHalf half) const {
    return half == ColumnHalf::Time ? m_payload.timeBreaks : m_payload.expenseBreaks;
}

void CColSet::SetBreaks(ColumnHalf half, std::vector<std::int32_t> breaks) {
    (half == ColumnHalf::Time ? m_payload.timeBreaks : m_payload.expenseBreaks) = std::move(breaks);
}

int CColSet::AtPosition(ColumnHalf half, std::int32_t position) const {
    for (int column = FirstColumn(half); column < EndOfColumns(half); ++column)
        if (IsVisible(column) && Entry(column).position == position) return column;
    return Column::kNone;
}

int CColSet::CurrentTime() const {
    return AtPosition(ColumnHalf::Time, m_timeCursor);
}

int CColSet::CurrentExpense() const {
    return AtPosition(ColumnHalf::Expense, m_expenseCursor);
}

std::int32_t CColSet::HighestPosition(ColumnHalf half) const {
    std::int32_t highest = 0;
    for (int column = FirstColumn(half); column < EndOfColumns(half); ++column)
        if (IsVisible(column)) highest = std::max(highest, Entry(column).position);
    return highest;
}

// --- Changing

/// An exchange sort, which leaves columns that share a position, as a damaged set may have them, in an order
/// of its own.
std::vector<int> CColSet::OrderOf(ColumnHalf half) const {
    std::vector<int> order;
    for (int column = FirstColumn(half); column < EndOfColumns(half); ++column)
        if (IsVisible(column)) order.push_back(column);
    for (std::size_t i = 0; i < order.size(); ++i)
        for (std::size_t j = i + 1; j < order.size(); ++j)
            if (Entry(order[j]).position < Entry(order[i]).position) std::swap(order[i], order[j]);
    return order;
}

void CColSet::RebuildOrders() {
    m_timeOrder = OrderOf(ColumnHalf::Time);
    m_expenseOrder = OrderOf(ColumnHalf::Expense);
}

void CColSet::Hide(int column) {
    if (!IsVisible(column)) return;
    const std::int32_t gap = Entry(column).position;
    const ColumnHalf half = HalfOf(column);
    for (int other = FirstColumn(half); other < EndOfColumns(half); ++other)
        if (Entry(other).position > gap) --Entry(other).position;
    Entry(column).position = 0;
    Entry(column).visible = 0;
}

void CColSet::Show(int column) {
    const std::int32_t highest = HighestPosition(HalfOf(column));
    Entry(column).position = highest < std::numeric_limits<std::int32_t>::max() ? highest + 1 : highest;
    Entry(column).visible = 1;
}

void CColSet::SetColumn(ColumnHalf half, std::int32_t position, const Change& change) {
    Apply(AtPosition(half, position), change);
}

void CColSet::SetColumn(ColumnHalf half, const QString& caption, const Change& change) {
    Apply(IndexOfCaption(half, caption), change);
}

void CColSet::Apply(int column, const Change& change) {
    if (!IsColumn(column)) return;
    ColumnEntry& entry = Entry(column);
    if (!change.caption.isEmpty()) entry.caption = CutCaption(change.caption);
    SetWidth(column, change.width);
    const bool isShown = change.visible && !IsExcluded(column);
    if (IsVisible(column) == isShown)
        entry.position = change.newPosition;
    else if (isShown)
        Show(column);
    else
        Hide(column);
    RebuildOrders();
}

void CColSet::SetWidth(int column, std::int32_t width) {
    if (IsColumn(column) && width >= 1) Entry(column).width = width;
}

void CColSet::MoveUp(ColumnHalf half, std::int32_t position) {
    if (position > 1) Exchange(half, position, position - 1);
}

void CColSet::MoveDown(ColumnHalf half, std::int32_t position) {
    if (position < HighestPosition(half)) Exchange(half, position, position + 1);
}

void CColSet::Exchange(ColumnHalf half, std::int32_t position, std::int32_t other) {
    const int first = AtPosition(half, position), second = AtPosition(half, other);
    if (first == Column::kNone || second == Column::kNone) return;
    std::swap(Entry(first).position, Entry(second).position);
    RebuildOrders();
}

void CColSet::AssignOrder(ColumnHalf half, const QStringList& hidden, const QStringList& shown) {
    for (int column = FirstColumn(half); column < EndOfColumns(half); ++column) {
        ColumnEntry& entry = Entry(column);
        const qsizetype place = IsExcluded(column) ? -1 : shown.indexOf(entry.caption);
        if (place < 0 && !hidden.contains(entry.caption)) continue;
        entry.visible = place < 0 ? 0 : 1;
        entry.position = static_cast<std::int32_t>(place + 1);
    }
    RebuildOrders();
}

void CColSet::ShowExactly(ColumnHalf half, const std::vector<int>& columns) {
    for (int column = FirstColumn(half); column < EndOfColumns(half); ++column)
        Entry(column).visible = 0, Entry(column).position = 0;
    for (const int column : columns)
        if (IsColumn(column) && HalfOf(column) == half && !IsExcluded(column) && !IsVisible(column))
            Show(column);
    RebuildOrders();
}

bool CColSet::ApplyCaptions(const Settings& settings) {
    if (!m_names) return false;
    for (const ColumnRow& row : ColumnTable())
        if (row.field != 0) Entry(row.index).caption = CutCaption(m_names->ColumnName(row.field));
    Entry(Column::kDistance).caption =
        CutCaption(LoadText(settings.metricUnits ? Text::UnitKilometres : Text::UnitMiles));
    return true;
}
