#include "viewmodel/program/PeriodMemory.h"

#include "lang/LoadText.h"
#include "platform/settings/CProfile.h"

namespace {

void Persist(CProfile& profile, Text entry, const QString& value) {
    const QString& section = LoadText(Text::SectionPeriod);
    if (profile.GetText(section, LoadText(entry)) != value)
        profile.WriteText(section, LoadText(entry), value);
}

QString DateEntry(const CProfile& profile, Text entry) {
    return profile.GetText(LoadText(Text::SectionPeriod), LoadText(entry)).value_or(QString());
}

void RestoreDay(const CProfile& profile, PeriodFilter& filter, const PeriodContext& context) {
    const QString day = DateEntry(profile, Text::EntryFirstDate);
    if (day.isEmpty() || !filter.SetSingleDate(day, context)) filter.ApplyPreset(PeriodCode::kToday, context);
}

void RestoreRange(const CProfile& profile, PeriodFilter& filter, const PeriodContext& context) {
    const QString first = DateEntry(profile, Text::EntryFirstDate);
    const QString second = DateEntry(profile, Text::EntrySecondDate);
    DateTimeVal start, end;
    if (first.isEmpty() || second.isEmpty() || !start.ParseDateText(first, context.region, context.clock) ||
        !end.ParseDateText(second, context.region, context.clock))
        filter.ApplyPreset(PeriodCode::kToday, context);
    else
        filter.SetRange(start, end, context);
}

int PresetOfToken(const QString& token) {
    for (const PeriodPresetRow& row : PeriodPresets())
        if (LoadText(row.token) == token) return row.preset;
    return PeriodCode::kThisMonth;
}

/// Empty for a period that isn't kept.
QString TokenOf(const PeriodFilter& filter) {
    switch (filter.preset) {
        case PeriodCode::kAll:
            return LoadText(Text::TokenAll);
        case PeriodCode::kSingleDate:
            return LoadText(Text::TokenSingleDay);
        case PeriodCode::kRange:
            return LoadText(Text::TokenRange);
        default:
            const PeriodPresetRow* row = FindPeriodPreset(filter.preset);
            return row ? LoadText(row->token) : QString();
    }
}

}  // namespace

void StorePeriod(CProfile& profile, const PeriodFilter& filter) {
    const QString token = TokenOf(filter);
    if (token.isEmpty()) return;
    Persist(profile, Text::EntryVisible, token);
    if (filter.preset == PeriodCode::kSingleDate || filter.preset == PeriodCode::kRange)
        Persist(profile, Text::EntryFirstDate, filter.startText);
    if (filter.preset == PeriodCode::kRange) Persist(profile, Text::EntrySecondDate, filter.endText);
}

void RestorePeriod(const CProfile& profile, PeriodFilter& filter, const PeriodContext& context) {
    const QString token = profile.GetText(LoadText(Text::SectionPeriod), LoadText(Text::EntryVisible))
                              .value_or(LoadText(Text::TokenDefaultPeriod));
    if (token == LoadText(Text::TokenAll))
        filter.EnablePeriod(false);
    else if (token == LoadText(Text::TokenSingleDay))
        RestoreDay(profile, filter, context);
    else if (token == LoadText(Text::TokenRange))
        RestoreRange(profile, filter, context);
    else
        filter.ApplyPreset(PresetOfToken(token), context);
}
