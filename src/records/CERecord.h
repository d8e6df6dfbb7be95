#pragma once

#include "records/CVORec.h"
#include "records/FieldValues.h"

/// One expense: a day, five list items, an amount, and for a distance entry the distance with rate and
/// odometer readings. Keeps the fields; the arithmetic between distance, rate and amount belongs to the entry
/// rules.
class CERecord final : public CVORec {
 public:
    CERecord();

    RecordDate date;
    QString item1, item2, item3, item4, item5;
    bool isDistance = false;
    DecimalField distance;  ///< stored as its display text, in the decimal form of the machine that saves it
    DecimalField amount;
    DecimalField rate;  ///< money per distance
    QString odometerStart;
    QString odometerEnd;
    bool flag1 = false, flag2 = false, flag3 = false, flag4 = false, flag5 = false;
    bool isExported = false;
    QString notes;

    void Reset();
    /// The distance, 0 when not set.
    [[nodiscard]] float GetDistance() const;
    [[nodiscard]] bool GetAmount(float& out) const { return amount.GetMoney(out); }
    [[nodiscard]] bool GetRate(float& out) const { return rate.GetMoney(out); }
    [[nodiscard]] QString GetAmountText() const { return amount.MoneyText(); }
    [[nodiscard]] QString GetRateText() const { return rate.MoneyText(); }
    void Copy(const CERecord& other);

    [[nodiscard]] RecordKind Kind() const override { return RecordKind::Expense; }
    [[nodiscard]] std::span<const FieldDef> GetFieldDefs() const override;
    [[nodiscard]] bool WriteFields(CVORecordset& row) const override;
    [[nodiscard]] bool Load(const RowTable& rows, std::size_t row) override;
    [[nodiscard]] bool ReadFields(CVORecordset& row) override;
    [[nodiscard]] bool ToBytes(QByteArray& out) const override;
    [[nodiscard]] bool FromBytes(const QByteArray& bytes, bool ansi) override;
    [[nodiscard]] std::unique_ptr<CVORec> Clone() const override;
};
