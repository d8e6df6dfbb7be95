#pragma once

#include "platform/host/CRegionalInfo.h"
#include "shell/controls/CPickEdit.h"
#include "viewmodel/fields/TimePad.h"

#include <optional>

/// A field for a time of day, or none.
class CTimeEdit final : public CPickEdit {
    Q_OBJECT

 public:
    /// step: minutes from one step to the next.
    CTimeEdit(const CRegionalInfo& region, const TimePicking& picking, int step, QWidget* parent = nullptr);

    void SetTime(const std::optional<DateTimeVal>& time);
    /// The time as entered; the last one that could be read while the text can't be.
    [[nodiscard]] const std::optional<DateTimeVal>& GetTime() const { return m_time; }
    [[nodiscard]] QString WhyUnreadable() const override;
    [[nodiscard]] int UnreadableTextId() const override;

 protected:
    [[nodiscard]] bool ReadText() override;
    void StepBy(int steps, bool isLarge) override;
    [[nodiscard]] QWidget* MakePopup() override;

 private:
    [[nodiscard]] QString TextOf(const DateTimeVal& time) const;
    [[nodiscard]] DateTimeVal TimeOrNow() const;
    void EnterMinutes(int minutesOfDay);

    CRegionalInfo m_region;
    TimePicking m_picking;
    int m_step;
    std::optional<DateTimeVal> m_time;
};
