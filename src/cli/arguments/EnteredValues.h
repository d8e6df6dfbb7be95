#pragma once

#include "calendar/DateTimeVal.h"
#include "entry/TimeEntryRules.h"
#include "platform/host/CRegionalInfo.h"

#include <QString>
#include <optional>

/// What a user typed on a command line, as values. Nothing where a text is no such value: nothing is guessed,
/// and what follows a value isn't overlooked. The region is the user's.
namespace EnteredValues {

inline constexpr int kFirstYear = 1000;   ///< earlier years would be taken for two- and three-digit ones
inline constexpr int kMostHours = 32767;  ///< what a stored span holds

/// "2026-11-19", "today", "yesterday", or the regional form ("11/19/26"). A day that its month lacks is none.
[[nodiscard]] std::optional<DateTimeVal> ReadDate(const QString& text, const CRegionalInfo& region,
                                                  const CClock& clock);
/// "9:05" and "17:30" in 24 hours, "5:30 PM" in 12.
[[nodiscard]] std::optional<DateTimeVal> ReadTime(const QString& text);
/// "1:30", or hours with decimals ("1.5"), rounded to minutes. From 0:00 to 32767:59.
[[nodiscard]] std::optional<EnteredSpan> ReadSpan(const QString& text, const CRegionalInfo& region);
/// A number as the fields of the dialogs take it (TypedNumber.h), from 0 to 999,999,999; no sign.
[[nodiscard]] std::optional<double> ReadNumber(const QString& text, const CRegionalInfo& region);
/// The same with a minus sign in front, if wanted: money that came back.
[[nodiscard]] std::optional<double> ReadSignedNumber(const QString& text, const CRegionalInfo& region);
[[nodiscard]] std::optional<bool> ReadYesNo(const QString& text);
/// The 32 digits of an identity, in capitals.
[[nodiscard]] std::optional<QString> ReadIdentity(const QString& text);
/// Digits only, at most nine.
[[nodiscard]] std::optional<int> ReadCount(const QString& text);

}  // namespace EnteredValues
