#pragma once

#include <QString>
#include <vector>

/// What the lists are called in text files. A value, made where it is needed: the names are those of the
/// language library at that time.
class ListNameMap {
 public:
    /// A list and its name.
    struct Entry {
        QString name;
        int list;
    };

    ListNameMap();

    /// The lists of field names, 99 to 142, then those of records: 55 in all.
    [[nodiscard]] const std::vector<Entry>& Entries() const { return m_entries; }
    /// Null for a list that has no name.
    [[nodiscard]] const QString* ListName(int list) const;
    /// Upper and lower case count. False, and list untouched, for a name that no list has.
    [[nodiscard]] bool ListIdByName(const QString& name, int& list) const;

 private:
    std::vector<Entry> m_entries;
};
