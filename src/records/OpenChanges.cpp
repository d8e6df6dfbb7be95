#include "records/OpenChanges.h"

#include "platform/sqlite/CSqliteFile.h"
#include "records/CStoreTable.h"

#include <algorithm>
#include <utility>

void OpenChanges::NoteInsert(const Table& table, const QString& key, const std::vector<VARIANT>& values) {
    Note({Kind::Insert, table, key, values, {}});
}

void OpenChanges::NoteModify(const Table& table, const QString& key, const std::vector<VARIANT>& values) {
    Note({Kind::Modify, table, key, values, {}});
}

void OpenChanges::NoteStatement(const QByteArray& sql) {
    Note({Kind::Statement, nullptr, {}, {}, sql});
}

void OpenChanges::Note(Change change) {
    if (m_changes.size() >= kMost) {
        m_isTooLong = true;
        m_changes = {};
    }
    if (!m_isTooLong) m_changes.push_back(std::move(change));
}

void OpenChanges::Clear() {
    m_changes = {};
    m_isTooLong = false;
}

bool OpenChanges::Repeat(CSqliteFile& file) const {
    return std::all_of(m_changes.begin(), m_changes.end(),
                       [&](const Change& change) { return Repeat(file, change); });
}

/// A change of a row that was deleted elsewhere since is dropped.
bool OpenChanges::Repeat(CSqliteFile& file, const Change& change) {
    bool found = false;
    switch (change.kind) {
        case Kind::Insert:
            return change.table->Contains(file, change.key, found) &&
                   (found || change.table->Insert(file, change.values));
        case Kind::Modify:
            return change.table->Modify(file, change.key, change.values, found);
        case Kind::Statement:
            break;
    }
    return file.Execute(change.sql);
}
