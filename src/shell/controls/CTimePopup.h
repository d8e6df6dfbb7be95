#pragma once

#include "lang/Text.h"
#include "shell/controls/CPickPopup.h"
#include "viewmodel/fields/TimePad.h"

class CClockControl;
class CPickGrid;
class QLabel;

/// The time pad as a popup: hours, AM and PM, minutes as buttons, and a field that shows the same time. A
/// double click on an hour or a minute accepts.
class CTimePopup final : public CPickPopup {
    Q_OBJECT

 public:
    CTimePopup(const TimePicking& picking, bool is24Hour, const std::optional<DateTimeVal>& time,
               QWidget* parent);

    [[nodiscard]] std::optional<DateTimeVal> Time() const { return m_pad.Time(); }

 protected:
    PadState Press(int id) override;

 private:
    void BuildHead();
    void BuildGrids(CMnemonics& mnemonics);
    [[nodiscard]] CPickGrid* MakeGrid(const std::vector<int>& ids, int columns);
    void AddGrid(CPickGrid& grid, const char* name, Text caption, CMnemonics& mnemonics);
    void ShowPad();

    CClockControl* m_control;
    TimePad m_pad;
    QLabel* m_title = nullptr;
    CPickGrid* m_hours = nullptr;
    CPickGrid* m_minutes = nullptr;
    CPickGrid* m_halves = nullptr;  ///< AM and PM; null in 24 hours
};
