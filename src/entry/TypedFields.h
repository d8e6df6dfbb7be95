#pragma once

#include <QString>

struct DecimalField;

/// What a page hands over, on its way into the fields of a record.

/// What a text column holds of an entered text: the first 255 characters; a character of two units isn't cut
/// in half.
[[nodiscard]] QString CutItem(const QString& text);

/// The typed number in single precision, as fields hold it; false, and out as it was, for any other text.
[[nodiscard]] bool ReadTypedFloat(const QString& text, float& out);
/// The typed number into its field; a text that is no number leaves none. The text that the field has already
/// leaves it as it stands, with all that it holds beyond its text.
void PutTyped(DecimalField& field, const QString& text);
