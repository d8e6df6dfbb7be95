#pragma once

#include "calendar/DateTimeVal.h"
#include "viewmodel/fields/PadState.h"

#include <QString>
#include <optional>
#include <vector>

class CPrompt;
class CTRecord;

/// Which time of a record is picked. The numbers are fixed.
enum class TimeField : int { Start = 3, End = 4 };

/// The field beside the buttons of a pad, in which the time can be spun and typed.
class CTimeControl {
 public:
    virtual ~CTimeControl() = default;
    /// Shows a time of the clock without announcing a change: 0, or the number of the error when it refuses.
    [[nodiscard]] virtual int SetTime(const SYSTEMTIME& time) = 0;
    /// False when it has no time.
    [[nodiscard]] virtual bool GetTime(SYSTEMTIME& out) const = 0;
};

/// What a field with a time pad needs from outside. All must outlive it.
struct TimePicking {
    TimeField field;
    CTRecord& entry;  ///< the scratch record that the pad works on
    const CClock& clock;
    CPrompt& prompt;
};

/// The pad on which a time of day is picked, without its widgets: buttons by number, on a scratch record, so
/// that calling it off leaves everything as it was.
class TimePad {
 public:
    // Commands that are the same in both layouts.
    static constexpr int kAccept = kPadAccept, kCancel = kPadCancel, kAm = 3, kPm = 4, kNow = 5, kClear = 6;
    /// The time control's number; it has no command.
    static constexpr int kTimeControl = 1064;

    TimePad(const TimePicking& picking, CTimeControl& control, bool is24Hour);

    /// Starts with the time of the field, or without one; the control shows 12:00 AM then.
    void Open(const std::optional<DateTimeVal>& time);
    /// A button. Numbers that the layout doesn't have do nothing.
    PadState Press(int id);
    /// The user changed the time in the control: no button is lit any more.
    void ControlChanged();

    /// "Start: 09:30 AM", "End: 21:30".
    [[nodiscard]] QString Title() const;
    /// The time of the scratch record, or none.
    [[nodiscard]] std::optional<DateTimeVal> Time() const;
    [[nodiscard]] bool Is24Hour() const { return m_is24Hour; }

    /// The buttons of the layout from top left to bottom right.
    [[nodiscard]] std::vector<int> HourIds() const;
    [[nodiscard]] static std::vector<int> MinuteIds();
    [[nodiscard]] QString CaptionOf(int id) const;
    /// The lit button of each group, 0: none. AM and PM are a group of their own.
    [[nodiscard]] int LitHour() const { return m_litHour; }
    [[nodiscard]] int LitMinute() const { return m_litMinute; }
    [[nodiscard]] int LitHalf() const { return m_litHalf; }
    /// The buttons where the time is, lit or not; for the minute the last one that isn't after it: 9:07 gives
    /// :05.
    [[nodiscard]] int HourIdOfTime() const;
    [[nodiscard]] int MinuteIdOfTime() const;
    [[nodiscard]] int HalfIdOfTime() const;

 private:
    struct Parts {
        int hour = NoTimeHour;
        int minute = 0;
        bool isPm = false;
    };
    using Tap = void (TimePad::*)(int place);
    struct ButtonRow;

    [[nodiscard]] static std::vector<ButtonRow> ButtonRows(bool is24Hour);
    [[nodiscard]] Parts EntryParts() const;
    [[nodiscard]] DateTimeVal ShownTime() const;
    void Put(const Parts& parts);
    void TapHour12(int place);
    void TapMorningHour(int place);
    void TapEveningHour(int place);
    void TapMinute(int place);
    void TapHalf(int place);
    void ShowInControl();
    [[nodiscard]] bool ReadControl();
    PadState TakeNow();
    void Tell(int textId, const QString& text);

    TimePicking m_picking;
    CTimeControl& m_control;
    bool m_is24Hour;
    int m_litHour = 0;
    int m_litMinute = 0;
    int m_litHalf = 0;
};
