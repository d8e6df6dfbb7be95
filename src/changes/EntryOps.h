#pragma once

#include "config/EntryContent.h"
#include "records/RowOps.h"
#include "records/RowReverter.h"

#include <QString>
#include <optional>

class CCfgStore;

/// A named entry of the settings by its place.
struct EntryName {
    QString key;
    QString entry;
    bool operator==(const EntryName&) const = default;
};

/// The change of an entry as the history keeps it, beside those of rows: the key is a JSON array of key and
/// name, what it was a JSON object of its place and its values. Nothing where both are the same.
[[nodiscard]] std::optional<RowOp> EntryOpOf(const EntryName& name, const std::optional<StoredEntry>& before,
                                             const std::optional<StoredEntry>& after);
/// Nothing for a change that isn't one of an entry.
[[nodiscard]] std::optional<EntryName> EntryNameOf(const RowOp& op);

/// Whether an entry is as the change left it.
[[nodiscard]] RowReverter::End CheckEntry(const RowOp& op, CCfgStore& settings);
/// Takes the change back, within one of the settings: an entry that isn't as the change left it isn't
/// touched.
[[nodiscard]] RowReverter::End RevertEntry(const RowOp& op, CCfgStore& settings);
