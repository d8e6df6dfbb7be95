#include "cli/commands/CalendarCommands.h"

#include "calendar/CalendarMath.h"
#include "calendar/PeriodFilter.h"
#include "cli/arguments/CArguments.h"
#include "cli/arguments/EnteredValues.h"
#include "cli/commands/RecordSteps.h"
#include "cli/output/CJsonText.h"
#include "cli/output/COutput.h"
#include "cli/output/FieldOutput.h"
#include "cli/output/PeriodOutput.h"
#include "config/CCfgStore.h"
#include "lang/FormatText.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype kCaptionWidth = 40;

QString IsoText(const DateTimeVal& day) {
    return IsoDate(day.year, day.month, day.day);
}

struct WeekRow {
    const char* name;
    Text caption;
    int (*week)(int dayNumber);
};
constexpr WeekRow kWeeks[] = {
    {"iso", Text::CliWeekIso, WeekIso},
    {"simple", Text::CliWeekSimple, WeekSimple},
    {"firstSunday", Text::CliWeekFirstSunday, WeekFirstSunday},
    {"firstMonday", Text::CliWeekFirstMonday, WeekFirstMonday},
};

void WriteDayJson(COutput& out, const DateTimeVal& day, int dayNumber) {
    CJsonText json(out);
    json.BeginObject();
    json.Key("date");
    json.Text(IsoText(day));
    json.Key("dayNumber");
    json.Integer(dayNumber);
    json.Key("dayOfYear");
    json.Integer(DayOfYear(dayNumber));
    json.Key("weekday");
    json.Text(WeekdayName(DayOfWeek(day.month, day.day, day.year)));
    json.Key("weeks");
    json.BeginObject();
    for (const WeekRow& row : kWeeks) {
        json.Key(row.name);
        json.Integer(row.week(dayNumber));
    }
    json.EndObject();
    json.EndObject();
    out.Put("\n");
}

void WriteDayLines(COutput& out, const DateTimeVal& day, int dayNumber) {
    out.PutLine(FormatText<Text::CliDayLine>(WeekdayName(DayOfWeek(day.month, day.day, day.year)),
                                             IsoText(day), DayOfYear(dayNumber), dayNumber));
    for (const WeekRow& row : kWeeks)
        out.PutLine(LoadText(row.caption).leftJustified(kCaptionWidth) +
                    QString::number(row.week(dayNumber)));
}

}  // namespace

bool SetsDays(const PeriodFilter& period) {
    return period.isEnabled && period.startText != LoadText(Text::AnyWord);
}

void WritePeriodOf(CJsonText& json, const PeriodFilter& filter, const PeriodContext& context) {
    if (!filter.isEnabled) return json.Null();
    DateTimeVal start, end;
    const bool hasDates = SetsDays(filter) && filter.Dates(start, end, context);
    json.BeginObject();
    json.Key("preset");
    json.Integer(filter.preset);
    json.Key("name");
    json.Text(filter.displayName);
    json.Key("start");
    hasDates ? json.Text(IsoText(start)) : json.Null();
    json.Key("end");
    hasDates ? json.Text(IsoText(end)) : json.Null();
    json.EndObject();
}

ExitCode ShowDay(const CArguments& arguments, Console& console) {
    const QString typed = arguments.Words().first();
    const auto day = EnteredValues::ReadDate(typed, TheRegion(), console.clock);
    if (!day) return Refuse(ExitCode::Usage, FormatText<Text::CliNoDate>(typed), console);
    const int dayNumber = DayNumber(day->month, day->day, day->year);
    if (console.out.isJson)
        WriteDayJson(console.out, *day, dayNumber);
    else
        WriteDayLines(console.out, *day, dayNumber);
    return ExitCode::Done;
}

ExitCode ListPeriods(const CArguments&, Console& console) {
    COutput& out = console.out;
    if (!out.isJson) {
        for (const PeriodPresetRow& row : PeriodPresets())
            out.PutLine(u"%1  %2"_s.arg(row.preset, 2).arg(LoadText(row.name)));
        return ExitCode::Done;
    }
    CJsonText json(out);
    json.BeginArray();
    for (const PeriodPresetRow& row : PeriodPresets()) {
        json.BeginObject();
        json.Key("preset");
        json.Integer(row.preset);
        json.Key("name");
        json.Text(LoadText(row.name));
        json.EndObject();
    }
    json.EndArray();
    out.Put("\n");
    return ExitCode::Done;
}

ExitCode ShowPeriod(const CArguments& arguments, Console& console, const CCfgStore& settings) {
    const QString typed = arguments.Words().first();
    const PeriodContext context{console.clock, settings.Region(), settings.firstDayOfWeek,
                                settings.yearDisplayFormat};
    PeriodFilter period;
    const auto preset = EnteredValues::ReadCount(typed);
    if (!preset || !period.ApplyPreset(*preset, context))
        return Refuse(ExitCode::NotFound, FormatText<Text::CliNoSuchPeriod>(typed), console);
    if (console.out.isJson) {
        CJsonText json(console.out);
        WritePeriodOf(json, period, context);
        console.out.Put("\n");
        return ExitCode::Done;
    }
    DateTimeVal start, end;
    const bool hasDates = SetsDays(period) && period.Dates(start, end, context);
    console.out.PutLine(
        hasDates ? FormatText<Text::CliPeriodLine>(period.displayName, IsoText(start), IsoText(end))
                 : FormatText<Text::CliPeriodWithoutDays>(period.displayName));
    return ExitCode::Done;
}
