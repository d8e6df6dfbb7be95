#pragma once

#include <QString>

class ActiveTimer;
class CTRecord;
class QTimeZone;

/// What the clock hides of a time record, in words: its timer counts another time than has truly passed, it
/// goes past midnight, or the clocks are changed between its start and its end. Empty when there is nothing
/// to say. timer: null without one.
[[nodiscard]] QString TimeNote(const CTRecord& record, const ActiveTimer* timer, const QTimeZone& zone);
