#pragma once

#include <QString>
#include <optional>

class CERecord;
class CTRecord;
class FieldLabels;
struct Settings;

/// One number names everything that a record shows: its lists, its fields, the columns computed from it.
/// Title, text and number of a field by that number.
class CFieldCatalogue {
 public:
    CFieldCatalogue(const FieldLabels& labels, const Settings& settings)
        : m_labels(labels), m_settings(settings) {}

    /// Empty for a number that names nothing.
    [[nodiscard]] QString GetFieldTitle(int field) const;
    /// Nothing when the field has no text form in such a record.
    [[nodiscard]] std::optional<QString> GetFieldText(const CTRecord& record, int field) const;
    [[nodiscard]] std::optional<QString> GetFieldText(const CERecord& record, int field) const;
    [[nodiscard]] std::optional<double> GetFieldNumber(const CTRecord& record, int field) const;
    [[nodiscard]] std::optional<double> GetFieldNumber(const CERecord& record, int field) const;
    /// The text, or the number with six significant digits.
    [[nodiscard]] std::optional<QString> GetFieldDisplay(const CTRecord& record, int field) const;
    [[nodiscard]] std::optional<QString> GetFieldDisplay(const CERecord& record, int field) const;
    /// Decimal places of a field's number; nothing for one that isn't formatted by a precision.
    [[nodiscard]] std::optional<int> Precision(int field) const;

 private:
    const FieldLabels& m_labels;
    const Settings& m_settings;
};
