#pragma once

#include "calendar/DateTimeVal.h"
#include "records/CVORec.h"
#include "records/FieldValues.h"

/// One time entry: a day, five list items, start and end, duration, break and money. Start, end, duration,
/// break and money are bound to one another: setting one recalculates the others by fixed rules, so the
/// record is always consistent.
class CTRecord final : public CVORec {
 public:
    CTRecord();

    RecordDate date;
    QString item1, item2, item3, item4, item5;
    DecimalField amount;
    DecimalField rate;        ///< money per hour
    bool isBillable = false;  ///< rate and amount exist only while it is set
    bool isBilled = false;
    bool isExported = false;
    QString notes;
    bool amountIsDerived = false;  ///< amount was computed from rate; not stored
    bool rateIsDerived = false;    ///< rate was computed from amount; not stored
    SpanSet spans;
    int startHour = NoTimeHour;  ///< 1 to 12, NoTimeHour: no start time
    int startMinute = 0;
    bool startIsPm = false;
    int endHour = NoTimeHour;
    int endMinute = 0;
    bool endIsPm = false;

    void Reset();
    void SetStart(int hour, int minute, bool isPm);
    void SetEnd(int hour, int minute, bool isPm);
    void SetStart(const DateTimeVal& time) { SetStart(time.hour12, time.minute, time.isPm != 0); }
    void SetEnd(const DateTimeVal& time) { SetEnd(time.hour12, time.minute, time.isPm != 0); }
    void SetDuration(int hours, int minutes, bool moveStart);
    void SetDurationOnly(int hours, int minutes);
    void SetBreak(int hours, int minutes);
    void ClearStart();
    void ClearEnd();
    [[nodiscard]] bool GetStart(int& hour, int& minute, bool& isPm) const;
    [[nodiscard]] bool GetEnd(int& hour, int& minute, bool& isPm) const;
    [[nodiscard]] bool HasStart() const { return startHour != NoTimeHour; }
    [[nodiscard]] bool HasEnd() const { return endHour != NoTimeHour; }
    void SetBillable(bool flag);
    /// False when the value is negative or no effective time exists; the value is stored all the same.
    bool SetAmount(float value);
    bool SetRate(float value);
    [[nodiscard]] bool GetAmount(float& out) const { return amount.GetMoney(out); }
    [[nodiscard]] bool GetRate(float& out) const { return rate.GetMoney(out); }
    [[nodiscard]] QString GetAmountText() const { return amount.MoneyText(); }
    [[nodiscard]] QString GetRateText() const { return rate.MoneyText(); }
    void RecalcDuration();
    void RecalcMoney();
    /// Assignment: everything, identity included; decimals are rounded to this record's precisions.
    void Copy(const CTRecord& other);

    /// The store's column of an item.
    [[nodiscard]] static Text ColumnOf(QString CTRecord::*item);

    [[nodiscard]] RecordKind Kind() const override { return RecordKind::Time; }
    [[nodiscard]] std::span<const FieldDef> GetFieldDefs() const override;
    [[nodiscard]] bool WriteFields(CVORecordset& row) const override;
    [[nodiscard]] bool Load(const RowTable& rows, std::size_t row) override;
    [[nodiscard]] bool ReadFields(CVORecordset& row) override;
    [[nodiscard]] QByteArray ToBytes() const override;
    [[nodiscard]] bool FromBytes(const QByteArray& bytes, bool ansi) override;
    [[nodiscard]] std::unique_ptr<CVORec> Clone() const override;
};

/// Start or end of a record as text, "--:--" without one. which: 3 start, 4 end.
[[nodiscard]] QString TimeTextOfRecord(const CTRecord& record, int which);
