#pragma once

#include <QStringList>

class CERecord;
class CTRecord;

// What looks like a slip in the values of a record, in sentences for the user. The rules of entry take it all
// the same: a distance below zero takes one back, and a duration that was added up may be longer than a day.

[[nodiscard]] QStringList UnlikelyIn(const CTRecord& record);
/// Of a distance entry; what a plain expense has kept of one means nothing.
[[nodiscard]] QStringList UnlikelyIn(const CERecord& record);
