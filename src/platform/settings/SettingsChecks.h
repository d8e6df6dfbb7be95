#pragma once

#include <QStringList>
#include <cstdint>
#include <optional>
#include <vector>

#include "platform/sqlite/RowChecks.h"

class CSqliteFile;
class CSettingsTree;

/// A value of the settings file by its place: the number of its key, and its name.
struct EntryPlace {
    std::int64_t key;
    QString name;
};

/// The checksums of the values in a settings file.
[[nodiscard]] const RowChecks& EntryChecks();

/// The values that aren't as they were written, and those that are gone without having been deleted; none in
/// a file without checksums. Nothing when the file can't be read.
[[nodiscard]] std::optional<std::vector<EntryPlace>> DamagedEntries(CSqliteFile& file);

/// The values' names for the user: "ActiveTimers/Content".
[[nodiscard]] QStringList NamesOf(CSqliteFile& file, const std::vector<EntryPlace>& entries);

/// The values that were put out of use; none where that can't be read.
[[nodiscard]] std::vector<EntryPlace> EntriesAside(CSqliteFile& file);

/// Moves values out of use, into the table "put_aside": key, name, type and value as they stood there.
[[nodiscard]] bool PutAside(CSqliteFile& file, const std::vector<EntryPlace>& entries);
