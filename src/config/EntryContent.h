#pragma once

#include "platform/settings/SettingsValue.h"

#include <cstdint>
#include <utility>
#include <vector>

/// The values of one entry of the settings, in the order in which they are written or, as they are read, in
/// that of their names.
class EntryContent {
 public:
    using Value = std::pair<QString, SettingsValue>;

    EntryContent() = default;
    explicit EntryContent(std::vector<Value> values) : m_values(std::move(values)) {}

    void Add(const QString& name, const SettingsValue& value) { m_values.emplace_back(name, value); }
    [[nodiscard]] const std::vector<Value>& Values() const { return m_values; }
    /// Null when there is no such value, or it is of another type or empty, which none is that was written.
    [[nodiscard]] const QString* FindText(const QString& name) const { return Find<QString>(name); }
    [[nodiscard]] const QByteArray* FindBytes(const QString& name) const { return Find<QByteArray>(name); }

    bool operator==(const EntryContent&) const = default;

 private:
    template <class T>
    [[nodiscard]] const T* Find(const QString& name) const {
        for (const Value& value : m_values)
            if (value.first == name) {
                const T* content = std::get_if<T>(&value.second);
                return content && !content->isEmpty() ? content : nullptr;
            }
        return nullptr;
    }

    std::vector<Value> m_values;
};

/// An entry as it stands in the settings.
struct StoredEntry {
    EntryContent content;
    std::int64_t place = 0;  ///< in the order of making
};
