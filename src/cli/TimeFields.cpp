#include "cli/TimeFields.h"

#include "app/CTimerDesk.h"
#include "cli/CArguments.h"
#include "cli/EnteredValues.h"
#include "lang/FormatText.h"
#include "records/CTRecord.h"

#include <algorithm>
#include <iterator>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype kLongestText = 255;
constexpr qsizetype kLongestNotes = 32000;

/// What is entered: a text, or nothing to clear the field.
using Entered = std::optional<QString>;

/// One field. The order of the table is the order in which fields are entered.
struct TimeField {
    OptionRow option;
    bool isTime;  ///< driven by the record's timer while it has one
    bool needsBillable;
    bool canBeCleared;
    /// Enters the value; the sentence that refuses it, empty when it was taken.
    QString (*enter)(CTRecord& record, const Entered& entered, const FieldNeeds& needs);
};

QString EnterDate(CTRecord& record, const Entered& entered, const FieldNeeds& needs) {
    const auto date = EnteredValues::ReadDate(entered.value_or(QString()), needs.region, needs.clock);
    if (!date) return FormatText<Text::CliNoDate>(entered.value_or(QString()));
    record.date.Set(date->month, date->day, date->year);
    return {};
}

template <QString CTRecord::*Field, qsizetype Longest = kLongestText>
QString EnterText(CTRecord& record, const Entered& entered, const FieldNeeds&) {
    const QString text = entered.value_or(QString());
    if (text.size() > Longest)
        return FormatText<Text::CliTooLong>(static_cast<int>(text.size()), static_cast<int>(Longest));
    record.*Field = text;
    return {};
}

QString EnterBillable(CTRecord& record, const Entered& entered, const FieldNeeds&) {
    record.SetBillable(EnteredValues::ReadYesNo(entered.value_or(QString())).value_or(false));
    return {};
}

QString EnterBilled(CTRecord& record, const Entered& entered, const FieldNeeds&) {
    record.isBilled = EnteredValues::ReadYesNo(entered.value_or(QString())).value_or(false);
    return {};
}

using TimeRule = void (*)(CTRecord&, const std::optional<DateTimeVal>&, const Settings&);

template <TimeRule Rule>
QString EnterTime(CTRecord& record, const Entered& entered, const FieldNeeds& needs) {
    const auto time = entered ? EnteredValues::ReadTime(*entered) : std::nullopt;
    if (entered && !time) return FormatText<Text::CliNoTime>(*entered);
    Rule(record, time, needs.settings);
    return {};
}

void DurationRule(CTRecord& record, const std::optional<EnteredSpan>& span, const Settings& settings) {
    TimeEntryRules::EnterDuration(record, span, settings);
}

using SpanRule = void (*)(CTRecord&, const std::optional<EnteredSpan>&, const Settings&);

template <SpanRule Rule>
QString EnterSpan(CTRecord& record, const Entered& entered, const FieldNeeds& needs) {
    const auto span = entered ? EnteredValues::ReadSpan(*entered, needs.region) : std::nullopt;
    if (entered && !span) return FormatText<Text::CliNoSpan>(*entered);
    Rule(record, span, needs.settings);
    return {};
}

using MoneyRule = bool (*)(CTRecord&, const QString&);
using MoneySetter = bool (CTRecord::*)(float);

/// Clearing goes by the setter: a value below zero is none, and its partner stays as it is.
template <MoneyRule Rule, MoneySetter Set>
QString EnterMoney(CTRecord& record, const Entered& entered, const FieldNeeds& needs) {
    if (!entered) {
        (void)(record.*Set)(-1.0F);  // false says that there is no value now, and that is what was wanted
        return {};
    }
    const bool isNumber = EnteredValues::ReadNumber(*entered, needs.region).has_value();
    if (isNumber && Rule(record, entered->trimmed())) return {};
    return FormatText<Text::CliNoNumber>(*entered);
}

using namespace TimeEntryRules;

constexpr TimeField kFields[] = {
    {{"date", "DATE", OptionShape::Value, Text::CliOptDate}, false, false, false, EnterDate},
    {{"item1", "TEXT", OptionShape::Value, Text::CliOptItem1},
     false,
     false,
     true,
     EnterText<&CTRecord::item1>},
    {{"item2", "TEXT", OptionShape::Value, Text::CliOptItem2},
     false,
     false,
     true,
     EnterText<&CTRecord::item2>},
    {{"item3", "TEXT", OptionShape::Value, Text::CliOptItem3},
     false,
     false,
     true,
     EnterText<&CTRecord::item3>},
    {{"item4", "TEXT", OptionShape::Value, Text::CliOptItem4},
     false,
     false,
     true,
     EnterText<&CTRecord::item4>},
    {{"item5", "TEXT", OptionShape::Value, Text::CliOptItem5},
     false,
     false,
     true,
     EnterText<&CTRecord::item5>},
    {{"notes", "TEXT", OptionShape::Value, Text::CliOptNotes},
     false,
     false,
     true,
     EnterText<&CTRecord::notes, kLongestNotes>},
    {{"billable", "", OptionShape::YesNo, Text::CliOptBillable}, false, false, true, EnterBillable},
    {{"start", "TIME", OptionShape::Value, Text::CliOptStart}, true, false, true, EnterTime<EnterStart>},
    {{"end", "TIME", OptionShape::Value, Text::CliOptEnd}, true, false, true, EnterTime<EnterEnd>},
    {{"duration", "SPAN", OptionShape::Value, Text::CliOptDuration},
     true,
     false,
     true,
     EnterSpan<DurationRule>},
    {{"break", "SPAN", OptionShape::Value, Text::CliOptBreak}, true, false, true, EnterSpan<EnterBreak>},
    {{"rate", "NUMBER", OptionShape::Value, Text::CliOptRate},
     false,
     true,
     true,
     EnterMoney<EnterRate, &CTRecord::SetRate>},
    {{"amount", "NUMBER", OptionShape::Value, Text::CliOptAmount},
     false,
     true,
     true,
     EnterMoney<EnterAmount, &CTRecord::SetAmount>},
    {{"billed", "", OptionShape::YesNo, Text::CliOptBilled}, false, true, true, EnterBilled},
};

constexpr auto kOptions = [] {
    std::array<OptionRow, std::size(kFields)> options{};
    std::transform(std::begin(kFields), std::end(kFields), options.begin(),
                   [](const TimeField& field) { return field.option; });
    return options;
}();

FieldProblem Usage(const TimeField& field, const QString& words) {
    return {ExitCode::Usage,
            FormatText<Text::CliOptionRefused>(QString::fromLatin1(field.option.name), words)};
}

/// A name that --clear can't take, or a field that is set and cleared at once.
FieldProblem CheckCleared(const CArguments& arguments, const QStringList& cleared) {
    QStringList names;
    for (const TimeField& field : kFields)
        if (field.canBeCleared) names.append(QString::fromLatin1(field.option.name));
    for (const QString& name : cleared)
        if (!names.contains(name))
            return {ExitCode::Usage, FormatText<Text::CliCantClear>(name, names.join(u", "_s))};
    for (const TimeField& field : kFields)
        if (arguments.Has(field.option.name) && cleared.contains(QLatin1String(field.option.name)))
            return {ExitCode::Usage,
                    FormatText<Text::CliSetAndCleared>(QString::fromLatin1(field.option.name))};
    return {};
}

}  // namespace

std::span<const OptionRow> TimeFieldOptions() {
    return kOptions;
}

FieldProblem EnterTimeFields(CTRecord& record, const CArguments& arguments, const FieldNeeds& needs) {
    const QStringList cleared = arguments.Values("clear");
    if (FieldProblem problem = CheckCleared(arguments, cleared); problem.exit != ExitCode::Done)
        return problem;
    for (const TimeField& field : kFields) {
        const Entered entered = arguments.Value(field.option.name);
        const bool isCleared = cleared.contains(QLatin1String(field.option.name));
        if (!entered && !isCleared) continue;
        if (field.isTime && needs.timers && !MayEnterTimes(*needs.timers, record.GetId(), nullptr))
            return {ExitCode::Failed, LoadText(Text::TimesDrivenByTimer)};
        if (entered && field.needsBillable && !record.isBillable)
            return Usage(field, LoadText(Text::CliNotBillable));
        if (const QString words = field.enter(record, entered, needs); !words.isEmpty())
            return Usage(field, words);
    }
    return {};
}
