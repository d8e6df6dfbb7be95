#include "timers/StopNote.h"

#include "records/ByteStream.h"
#include "records/CTRecord.h"
#include "records/CVOId.h"

StopNote StopNote::Of(const CTRecord& stopped) {
    const SpanField& duration = stopped.spans.duration;
    return {stopped.GetId(), duration.hours, duration.minutes};
}

std::optional<StopNote> StopNote::FromBytes(const QByteArray& bytes) {
    if (bytes.isEmpty()) return std::nullopt;
    ByteStream stream;
    stream.Attach(bytes);
    StopNote note{};
    note.recordId = stream.GetString();
    note.hours = stream.GetInt();
    note.minutes = stream.GetInt();
    return stream.IsBroken() || !IsIdentity(note.recordId) ? std::nullopt : std::optional(note);
}

QByteArray StopNote::ToBytes() const {
    ByteStream stream;
    stream.PutString(recordId);
    stream.PutInt(hours);
    stream.PutInt(minutes);
    return stream.Release();
}

bool StopNote::IsIn(const CTRecord& record) const {
    const SpanField& duration = record.spans.duration;
    return duration.IsSet() && duration.hours == hours && duration.minutes == minutes;
}
