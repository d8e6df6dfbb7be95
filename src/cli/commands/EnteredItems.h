#pragma once

struct EnteredFields;
struct RecordContext;

/// Puts the texts of a command line into their pick lists, as the dialog of such a record does with what was
/// typed, under the same settings; never what was computed. Loads no more than the lists that it needs. True
/// when a list got a new item.
[[nodiscard]] bool AddEnteredItems(const EnteredFields& fields, RecordContext& context);
