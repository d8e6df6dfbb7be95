#pragma once

#include "calendar/PeriodPresets.h"
#include "platform/host/CRegionalInfo.h"

#include <QString>

/// What period computations need from outside.
struct PeriodContext {
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
    bool operator==(const PeriodFilter&) const = default;

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
    bool ApplyPreset(int id, const PeriodContext& context);
    /// False if the text is no date.
    bool SetSingleDate(const QString& text, const PeriodContext& context);
    void SetRange(const DateTimeVal& start, const DateTimeVal& end, const PeriodContext& context);
    [[nodiscard]] bool CanStep() const;
    bool StepBack(const PeriodContext& context);
    bool StepForward(const PeriodContext& context);
    /// Both dates; false when the period sets none.
    [[nodiscard]] bool Dates(DateTimeVal& start, DateTimeVal& end, const PeriodContext& context) const;
};

/// What must be said of two dates as a range: of a start after the end the day of the end is taken. Empty
/// where they stand in their order.
[[nodiscard]] QString NoteOnRange(const DateTimeVal& start, const DateTimeVal& end,
                                  const PeriodContext& context);

/// A date as views show it: 0 long, 1 short, 2 without year.
[[nodiscard]] QString DisplayDate(const CRegionalInfo& region, const DateTimeVal& date,
                                  int yearDisplayFormat);
