#pragma once

#include "records/CVORec.h"

/// One item of a pulldown list: a text or a number that belongs to a list.
class CPRecord final : public CVORec {
 public:
    enum class ValueType : int { None = 0, Text = 1, Number = 2 };

    CPRecord() = default;
    explicit CPRecord(const QString& value);
    explicit CPRecord(float value);

    ValueType valueType = ValueType::None;
    int listId = 0;
    QString text;
    float number = 0.0F;

    /// On a number item the text is read as a number; one that can't be read changes nothing.
    void SetText(const QString& value);
    /// On a text item the number becomes its text with six significant digits.
    void SetNumber(float value);
    [[nodiscard]] QString GetText() const;

    [[nodiscard]] RecordKind Kind() const override { return RecordKind::PulldownItem; }
    [[nodiscard]] std::span<const FieldDef> GetFieldDefs() const override;
    [[nodiscard]] bool WriteFields(CVORecordset& row) const override;
    [[nodiscard]] bool Load(const RowTable& rows, std::size_t row) override;
    [[nodiscard]] bool ReadFields(CVORecordset& row) override;
    [[nodiscard]] QByteArray ToBytes() const override;
    [[nodiscard]] bool FromBytes(const QByteArray& bytes, bool ansi) override;
    [[nodiscard]] std::unique_ptr<CVORec> Clone() const override;
};
