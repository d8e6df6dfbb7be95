#include "entry/NamedDefaults.h"

#include "calendar/DateTimeVal.h"
#include "config/CCfgStore.h"
#include "lang/LoadText.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"

#include <algorithm>

namespace {

/// The key below which the defaults of a mode lie, one entry each.
const QString& KeyOf(RecordMode mode) {
    return LoadText(mode == RecordMode::Time ? Text::KeyTimeDefaults : Text::KeyExpenseDefaults);
}

bool IsAlike(const QString& one, const QString& other) {
    return one.compare(other, Qt::CaseInsensitive) == 0;
}

/// An empty record of today, without an identity.
template <class Record>
void ResetToday(Record& record, const CClock& clock) {
    DateTimeVal today;
    today.SetToday(clock);
    record.Reset();
    record.date.Set(today.month, today.day, today.year);
}

/// All but the identity, which no default has. From a new record, so that nothing of the former content
/// shines through where the bytes say nothing: a distance without a text, for one.
template <class Record>
bool TakeBytes(Record& record, const QByteArray& bytes) {
    Record read;
    if (!read.FromBytes(bytes, false)) return false;
    read.SetId(record.GetId());
    record.Copy(read);
    return true;
}

}  // namespace

NamedDefaults::NamedDefaults(CCfgStore& settings, const CClock& clock, RecordMode mode)
    : m_settings(settings), m_clock(clock), m_mode(mode) {}

QString NamedDefaults::EmptyRecordName() {
    return LoadText(Text::DefaultsEmptyRecord);
}

/// Exactly: "(Empty Record)" is a name as any other.
bool NamedDefaults::IsReserved(const QString& name) {
    return name == EmptyRecordName();
}

QStringList NamedDefaults::Stored() const {
    QStringList names;
    static_cast<void>(m_settings.EnumKeys(KeyOf(m_mode), names));
    return names;
}

QStringList NamedDefaults::Names() const {
    return Stored() << EmptyRecordName();
}

std::optional<QString> NamedDefaults::FindName(const QString& name) const {
    const QStringList names = Stored();
    if (names.contains(name)) return name;
    const auto at = std::ranges::find_if(names, [&](const QString& stored) { return IsAlike(stored, name); });
    return at == names.end() ? std::nullopt : std::optional(*at);
}

bool NamedDefaults::Read(const QString& name, CVORec& record) const {
    if (record.Kind() != KindOf(m_mode)) return false;
    const bool isTime = m_mode == RecordMode::Time;
    auto* time = isTime ? static_cast<CTRecord*>(&record) : nullptr;
    auto* expense = isTime ? nullptr : static_cast<CERecord*>(&record);
    if (IsReserved(name)) {
        if (time) ResetToday(*time, m_clock);
        if (expense) ResetToday(*expense, m_clock);
        return true;
    }
    // Looked for first, as reading an entry makes one.
    QByteArray bytes;
    if (!m_settings.HasEntry(KeyOf(m_mode), name) || !m_settings.ReadEntry(bytes, KeyOf(m_mode), name))
        return false;
    return time ? TakeBytes(*time, bytes) : TakeBytes(*expense, bytes);
}

bool NamedDefaults::Write(const QString& name, const CVORec& record) {
    return !name.isEmpty() && record.Kind() == KindOf(m_mode) &&
           m_settings.WriteEntry(KeyOf(m_mode), name, record.ToBytes());
}

bool NamedDefaults::Delete(const QString& name) {
    return !IsReserved(name) && m_settings.DeleteEntry(KeyOf(m_mode), name);
}

bool NamedDefaults::IsTaken(const QString& name, const QString& except) const {
    const QStringList names = Stored();
    return std::ranges::any_of(
        names, [&](const QString& stored) { return stored != except && IsAlike(stored, name); });
}

bool NamedDefaults::Rename(const QString& oldName, const QString& newName) {
    if (IsReserved(oldName) || newName.isEmpty() || LooksReserved(newName) || IsTaken(newName, oldName))
        return false;
    if (!m_settings.HasEntry(KeyOf(m_mode), oldName)) return false;
    return oldName == newName || m_settings.RenameEntry(KeyOf(m_mode), oldName, newName);
}

bool NamedDefaults::LooksReserved(const QString& name) {
    return IsAlike(name, EmptyRecordName());
}
