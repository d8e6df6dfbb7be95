#pragma once

#include "calendar/DateTimeVal.h"
#include "lang/Text.h"
#include "platform/host/CRegionalInfo.h"

#include <QString>
#include <span>

/// One preset that the user can choose. The numbers are stored as they stand.
struct PeriodPresetRow {
    int preset;
    int command;  ///< number of its menu command
    Text name;    ///< "This week"
    Text token;   ///< by which it is stored
};

/// The 24 presets in the order in which they are offered.
[[nodiscard]] std::span<const PeriodPresetRow> PeriodPresets();
[[nodiscard]] const PeriodPresetRow* FindPeriodPreset(int preset);

/// Preset numbers that are no row of the table.
namespace PeriodCode {
inline constexpr int kNotChosen = 0;
inline constexpr int kToday = 1;
inline constexpr int kThisMonth = 4;
inline constexpr int kSingleDate = 5;
inline constexpr int kAll = 6;
inline constexpr int kRange = 7;
inline constexpr int kYesterday = 16;
}  // namespace PeriodCode

/// What period computations need from outside.
struct PeriodSurroundings {
    const CClock& clock;
    const CRegionalInfo& region;
    int firstDayOfWeek = 0;     ///< 0 Sunday to 6 Saturday
    int yearDisplayFormat = 1;  ///< 0 full year, 1 two digits, 2 no year
};

/// A named period as a pair of dates in the user's form: the base of the record filters.
class PeriodFilter {
 public:
    PeriodFilter();
    virtual ~PeriodFilter() = default;

    bool isEnabled = false;   ///< false: no date test
    bool matchWhole = false;  ///< text criteria must equal the field
    bool matchCase = false;   ///< text criteria compare case-sensitively
    QString displayName;      ///< what the view shows as the period
    int preset = PeriodCode::kAll;
    QString startText;  ///< dates as text with year; the word for any when there are none
    QString endText;

    void EnablePeriod(bool enabled);
    /// No restriction at all: every criterion any.
    virtual void Reset();
    /// False only for a number that is no preset.
    bool ApplyPreset(int id, const PeriodSurroundings& around);
    /// False if the text is no date.
    bool SetSingleDate(const QString& text, const PeriodSurroundings& around);
    void SetRange(const DateTimeVal& start, const DateTimeVal& end, const PeriodSurroundings& around);
    [[nodiscard]] bool CanStep() const;
    bool StepBack(const PeriodSurroundings& around);
    bool StepForward(const PeriodSurroundings& around);
    /// Both dates; false when the period sets none.
    [[nodiscard]] bool Dates(DateTimeVal& start, DateTimeVal& end, const PeriodSurroundings& around) const;
};

/// A date as views show it: 0 long, 1 short, 2 without year.
[[nodiscard]] QString DisplayDate(const CRegionalInfo& region, const DateTimeVal& date,
                                  int yearDisplayFormat);
