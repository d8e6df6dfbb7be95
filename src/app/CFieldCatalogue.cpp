#include "app/CFieldCatalogue.h"

#include "app/FieldLabels.h"
#include "app/ShownFields.h"
#include "config/Settings.h"
#include "fields/FieldTable.h"
#include "lang/LoadText.h"

namespace {

const FieldRow* FieldOf(const CVORec& record, int number) {
    return FindField(record.Kind(), number);
}

}  // namespace

QString CFieldCatalogue::GetFieldTitle(int field) const {
    if (field == NumberOf(FieldId::Distance))
        return LoadText(m_settings.metricUnits ? Text::UnitKilometres : Text::UnitMiles);
    const FieldRow* row = FindField(field);
    return row && row->title != Text{} ? LoadText(row->title) : m_labels.GetLabel(field);
}

std::optional<QString> CFieldCatalogue::GetFieldText(const CTRecord& record, int field) const {
    const FieldRow* row = FieldOf(record, field);
    return row ? ShownText(record, *row) : std::nullopt;
}

std::optional<QString> CFieldCatalogue::GetFieldText(const CERecord& record, int field) const {
    const FieldRow* row = FieldOf(record, field);
    return row ? ShownText(record, *row) : std::nullopt;
}

std::optional<double> CFieldCatalogue::GetFieldNumber(const CTRecord& record, int field) const {
    const FieldRow* row = FieldOf(record, field);
    return row ? ShownNumber(record, *row) : std::nullopt;
}

std::optional<double> CFieldCatalogue::GetFieldNumber(const CERecord& record, int field) const {
    const FieldRow* row = FieldOf(record, field);
    return row ? ShownNumber(record, *row) : std::nullopt;
}

std::optional<QString> CFieldCatalogue::GetFieldDisplay(const CTRecord& record, int field) const {
    const FieldRow* row = FieldOf(record, field);
    return row ? ShownDisplay(record, *row) : std::nullopt;
}

std::optional<QString> CFieldCatalogue::GetFieldDisplay(const CERecord& record, int field) const {
    const FieldRow* row = FieldOf(record, field);
    return row ? ShownDisplay(record, *row) : std::nullopt;
}

std::optional<int> CFieldCatalogue::Precision(int field) const {
    const FieldRow* row = FindField(field);
    switch (row ? row->places : Places::None) {
        case Places::Duration:
            return m_settings.precisionDuration;
        case Places::Distance:
            return m_settings.precisionDistance;
        case Places::Rate:
            return m_settings.precisionRate;
        case Places::Amount:
            return m_settings.precisionAmount;
        case Places::None:
            break;
    }
    return std::nullopt;
}
