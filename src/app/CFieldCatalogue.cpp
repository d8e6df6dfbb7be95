#include "app/CFieldCatalogue.h"

#include "app/FieldLabels.h"
#include "calendar/NumberText.h"
#include "config/Settings.h"
#include "lang/LoadText.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "records/FieldTexts.h"

#include <algorithm>
#include <iterator>

namespace {

// --- Titles of computed columns

struct TitleRow {
    int field;
    Text title;
};
constexpr TitleRow kTitles[] = {
    {5000, Text::TitleDate},  {5001, Text::TitleDuration}, {5002, Text::TitleEffective},
    {5003, Text::TitleBreak}, {5005, Text::TitleStart},    {5006, Text::TitleEnd},
    {5007, Text::FieldRate},
};
/// Its title is the unit of distances.
constexpr int kDistance = 5004;

// --- Texts

template <class Record>
struct TextRow {
    int field;
    QString (*text)(const Record& record);
};

template <auto Member>
constexpr auto kItem = [](const auto& record) { return record.*Member; };

template <auto Flag>
constexpr auto kYesOrNo =
    [](const auto& record) { return LoadText(record.*Flag ? Text::FieldYes : Text::FieldNo); };

template <SpanField SpanSet::*Span>
QString HoursText(const CTRecord& record) {
    const SpanField& span = record.spans.*Span;
    return span.IsSet() ? span.decimal.text : NoTimeText();
}

constexpr int kStart = 3;
constexpr int kEnd = 4;
template <int Which>
QString ClockText(const CTRecord& record) {
    return TimeTextOfRecord(record, Which);
}

constexpr TextRow<CTRecord> kTimeTexts[] = {
    {109, kItem<&CTRecord::item1>},
    {110, kItem<&CTRecord::item2>},
    {111, kItem<&CTRecord::item3>},
    {112, kItem<&CTRecord::item4>},
    {113, [](const CTRecord& record) { return record.GetRateText(); }},
    {114, kItem<&CTRecord::item5>},
    {115, [](const CTRecord& record) { return record.GetAmountText(); }},
    {116, kItem<&CTRecord::notes>},
    {117, kYesOrNo<&CTRecord::isBillable>},
    {118, kYesOrNo<&CTRecord::isBilled>},
    {5000, [](const CTRecord& record) { return record.date.longText; }},
    {5001, HoursText<&SpanSet::duration>},
    {5002, HoursText<&SpanSet::effective>},
    {5003, HoursText<&SpanSet::breakTime>},
    {5005, ClockText<kStart>},
    {5006, ClockText<kEnd>},
};

/// An expense that is no distance entry has none, even where one was kept from before.
float DistanceOf(const CERecord& record) {
    return record.isDistance ? record.GetDistance() : 0.0F;
}

/// The amount, 136, and the distance have a number alone.
constexpr TextRow<CERecord> kExpenseTexts[] = {
    {131, kItem<&CERecord::item1>},
    {132, kItem<&CERecord::item2>},
    {133, kItem<&CERecord::item3>},
    {134, kItem<&CERecord::item4>},
    {135, kItem<&CERecord::item5>},
    {137, kItem<&CERecord::notes>},
    {138, kYesOrNo<&CERecord::flag1>},
    {139, kYesOrNo<&CERecord::flag2>},
    {140, kYesOrNo<&CERecord::flag5>},
    {141, kYesOrNo<&CERecord::flag3>},
    {142, kYesOrNo<&CERecord::flag4>},
    {5000, [](const CERecord& record) { return record.date.longText; }},
    {5007,
     [](const CERecord& record) { return DistanceOf(record) != 0.0F ? record.GetRateText() : QString(); }},
};

// --- Numbers

template <class Record>
struct NumberRow {
    int field;
    float (*number)(const Record& record);
};

template <SpanField SpanSet::*Span>
float Hours(const CTRecord& record) {
    float hours = 0.0F;
    return (record.spans.*Span).GetDecimal(hours) ? hours : 0.0F;
}

float TimeAmount(const CTRecord& record) {
    float amount = 0.0F;
    return record.GetAmount(amount) ? amount : 0.0F;
}

constexpr NumberRow<CTRecord> kTimeNumbers[] = {
    {115, TimeAmount},
    {5001, Hours<&SpanSet::duration>},
    {5002, Hours<&SpanSet::effective>},
    {5003, Hours<&SpanSet::breakTime>},
};

constexpr NumberRow<CERecord> kExpenseNumbers[] = {
    {136, [](const CERecord& record) { return std::max(record.amount.value, 0.0F); }},
    {kDistance, DistanceOf},
};

// --- Decimal places

struct PrecisionRow {
    int field;
    std::int32_t Settings::*places;
};
constexpr PrecisionRow kPrecisions[] = {
    {5001, &Settings::precisionDuration}, {5002, &Settings::precisionDuration},
    {5003, &Settings::precisionDuration}, {kDistance, &Settings::precisionDistance},
    {113, &Settings::precisionRate},      {5007, &Settings::precisionRate},
    {115, &Settings::precisionAmount},    {136, &Settings::precisionAmount},
};

// --- Looking up

template <class Row, std::size_t Count>
const Row* Find(const Row (&rows)[Count], int field) {
    const Row* const row = std::ranges::find(rows, field, &Row::field);
    return row == std::end(rows) ? nullptr : row;
}

template <class Record, std::size_t Count>
std::optional<QString> TextIn(const TextRow<Record> (&rows)[Count], const Record& record, int field) {
    const auto* row = Find(rows, field);
    return row ? std::optional(row->text(record)) : std::nullopt;
}

template <class Record, std::size_t Count>
std::optional<double> NumberIn(const NumberRow<Record> (&rows)[Count], const Record& record, int field) {
    const auto* row = Find(rows, field);
    return row ? std::optional(static_cast<double>(row->number(record))) : std::nullopt;
}

template <class Record>
std::optional<QString> Display(const CFieldCatalogue& catalogue, const Record& record, int field) {
    if (auto text = catalogue.GetFieldText(record, field)) return text;
    const std::optional<double> number = catalogue.GetFieldNumber(record, field);
    return number ? std::optional(FormatNumber(TheRegion(), *number, -1)) : std::nullopt;
}

}  // namespace

QString CFieldCatalogue::GetFieldTitle(int field) const {
    if (field == kDistance) return LoadText(m_settings.metricUnits ? Text::UnitKilometres : Text::UnitMiles);
    const TitleRow* row = Find(kTitles, field);
    return row ? LoadText(row->title) : m_labels.GetLabel(field);
}

std::optional<QString> CFieldCatalogue::GetFieldText(const CTRecord& record, int field) const {
    return TextIn(kTimeTexts, record, field);
}

std::optional<QString> CFieldCatalogue::GetFieldText(const CERecord& record, int field) const {
    return TextIn(kExpenseTexts, record, field);
}

std::optional<double> CFieldCatalogue::GetFieldNumber(const CTRecord& record, int field) const {
    return NumberIn(kTimeNumbers, record, field);
}

std::optional<double> CFieldCatalogue::GetFieldNumber(const CERecord& record, int field) const {
    return NumberIn(kExpenseNumbers, record, field);
}

std::optional<QString> CFieldCatalogue::GetFieldDisplay(const CTRecord& record, int field) const {
    return Display(*this, record, field);
}

std::optional<QString> CFieldCatalogue::GetFieldDisplay(const CERecord& record, int field) const {
    return Display(*this, record, field);
}

std::optional<int> CFieldCatalogue::Precision(int field) const {
    const PrecisionRow* row = Find(kPrecisions, field);
    return row ? std::optional(m_settings.*row->places) : std::nullopt;
}
