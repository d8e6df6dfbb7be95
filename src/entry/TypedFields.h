#pragma once

#include <QString>

struct DecimalField;

/// What a page hands over, on its way into the fields of a record.

/// What a text column holds of an entered text: the first 255 characters; a character of two units isn't cut
/// in half.
[[nodiscard]] QString CutItem(const QString& text);

/// The typed number into its field; a text that is no number leaves none.
void PutTyped(DecimalField& field, const QString& text);
