#pragma once

#include "calendar/DateTimeVal.h"
#include "platform/host/CRegionalInfo.h"
#include "shell/controls/CPickEdit.h"

#include <optional>

/// A field for a day of the calendar, or none.
class CDateEdit final : public CPickEdit {
    Q_OBJECT

 public:
    /// firstDayOfWeek: 0 Sunday to 6 Saturday, for the calendar.
    CDateEdit(const CRegionalInfo& region, const CClock& clock, int firstDayOfWeek,
              QWidget* parent = nullptr);

    void SetDate(const std::optional<DateTimeVal>& date);
    /// The day as entered; the last one that could be read while the text can't be.
    [[nodiscard]] const std::optional<DateTimeVal>& GetDate() const { return m_date; }
    [[nodiscard]] QString WhyUnreadable() const override;
    [[nodiscard]] int UnreadableTextId() const override;

 protected:
    [[nodiscard]] bool ReadText() override;
    /// A day, or a month.
    void StepBy(int steps, bool isLarge) override;
    [[nodiscard]] QWidget* MakePopup() override;

 private:
    [[nodiscard]] DateTimeVal DateOrToday() const;
    [[nodiscard]] QString TextOf(const DateTimeVal& date) const;

    CRegionalInfo m_region;
    const CClock& m_clock;
    int m_firstDayOfWeek;
    std::optional<DateTimeVal> m_date;
};
