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
    DecimalField distance;  ///< stored as text, see StoredDistance
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

    /// The distance as the store holds it: its display text, in the decimal form of the machine that set it.
    /// A distance that was read and not set since is the text that was read: "12,75" stays "12,75" where only
    /// its 12 can be read.
    [[nodiscard]] QString StoredDistance() const {
        return distance.isAsRead ? m_distanceRead : distance.text;
    }
    /// Reads a stored text in this machine's form. One that can't be read leaves the number as it is.
    void TakeStoredDistance(const QString& text);
    /// The distance of another record, set or not, with the text that was read of it.
    void CopyDistance(const CERecord& other);
    /// False where the store holds more than this machine reads of it.
    [[nodiscard]] bool IsDistanceReadWhole() const;

    /// The store's column of an item.
    [[nodiscard]] static Text ColumnOf(QString CERecord::*item);

    [[nodiscard]] RecordKind Kind() const override { return RecordKind::Expense; }
    [[nodiscard]] std::span<const FieldDef> GetFieldDefs() const override;
    [[nodiscard]] bool WriteFields(CVORecordset& row) const override;
    [[nodiscard]] bool Load(const RowTable& rows, std::size_t row) override;
    [[nodiscard]] bool ReadFields(CVORecordset& row) override;
    [[nodiscard]] QByteArray ToBytes() const override;
    [[nodiscard]] bool FromBytes(const QByteArray& bytes, bool ansi) override;
    [[nodiscard]] std::unique_ptr<CVORec> Clone() const override;

 private:
    void KeepDistanceRead(const QString& text);

    QString m_distanceRead;  ///< while it isn't what the distance shows
};
