#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

class CTRecord;

/// A stop that is being made: the record of the timer, and the duration that it gets. It is saved with the
/// timers before the record is written, and taken away with the timer. Found later on, it says that the
/// program was killed in between: where the record has the duration, the timer has ended, otherwise it goes
/// on.
struct StopNote {
    QString recordId;
    int hours;
    int minutes;

    [[nodiscard]] static StopNote Of(const CTRecord& stopped);
    /// Nothing for an empty value, and for one that can't be read.
    [[nodiscard]] static std::optional<StopNote> FromBytes(const QByteArray& bytes);
    [[nodiscard]] QByteArray ToBytes() const;
    /// Whether the stop is in the record.
    [[nodiscard]] bool IsIn(const CTRecord& record) const;
};
