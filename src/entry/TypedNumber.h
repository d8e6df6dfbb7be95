#pragma once

#include "entry/Typed.h"
#include "platform/host/CRegionalInfo.h"

#include <QString>

/// The greatest number that can be typed, and with a minus sign the least.
inline constexpr double kMostTypedNumber = 999'999'999.0;

/// A number as a user typed it.
struct TypedNumber {
    Typed state = Typed::Nothing;
    double value = 0.0;
    /// The text without what parts its groups of digits: as the records and lists take it. Without a value
    /// the text as typed.
    QString plain;
    /// One full stop before three digits in a region where the full stop parts groups: "1.234" is read as
    /// one and a quarter nearly, as everywhere, but may have been meant as a thousand and more.
    bool isAmbiguous = false;

    [[nodiscard]] bool IsValue() const { return state == Typed::Value; }
};

/// Reads the whole text: digits with a full stop or the region's decimal character, and with groups of three
/// digits parted as in the region ("1,234.50" in English, "1.234,50" in German, "1 234,50" in French; in
/// groups of two above a thousand as well, "12,34,567"). A minus sign may stand in front. Nothing else may
/// stand before or behind it; signs that only direct the writing, as in Arabic, are passed over.
[[nodiscard]] TypedNumber ReadTypedNumber(const QString& text, const CRegionalInfo& region);

/// The plain form of a number; any other text as it is.
[[nodiscard]] QString PlainNumber(const QString& text);

/// Whether a field shows the number that was typed, rounded to the field's decimal places: 1234567.89 is kept
/// as 1234567.88, as single precision holds no more than seven digits or so. False for an ambiguous number,
/// and for one that the field can't hold at all: -1 as an amount is no amount, and its text is empty.
[[nodiscard]] bool ShowsAsTyped(const QString& kept, int precision, const TypedNumber& typed);
