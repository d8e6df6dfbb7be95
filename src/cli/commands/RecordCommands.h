#pragma once

#include "app/RecordMode.h"
#include "cli/commands/CommandRow.h"

// The commands of the groups "time" and "expense": the same functions for both kinds of records.

[[nodiscard]] ExitCode AddRecord(RecordKind kind, const CArguments& arguments, Console& console,
                                 RecordContext& context);
[[nodiscard]] ExitCode EditRecord(RecordKind kind, const CArguments& arguments, Console& console,
                                  RecordContext& context);
[[nodiscard]] ExitCode ShowRecord(RecordKind kind, const CArguments& arguments, Console& console,
                                  RecordContext& context);
[[nodiscard]] ExitCode NewRecordFrom(RecordKind kind, const CArguments& arguments, Console& console,
                                     RecordContext& context);
[[nodiscard]] ExitCode DeleteRecords(RecordKind kind, const CArguments& arguments, Console& console,
                                     RecordContext& context);
[[nodiscard]] ExitCode CopyRecords(RecordKind kind, const CArguments& arguments, Console& console,
                                   RecordContext& context);
[[nodiscard]] ExitCode MarkRecords(RecordKind kind, const CArguments& arguments, Console& console,
                                   RecordContext& context);
[[nodiscard]] ExitCode ListRecords(RecordKind kind, const CArguments& arguments, Console& console,
                                   RecordContext& context);

using RunOnKind = ExitCode (*)(RecordKind, const CArguments&, Console&, RecordContext&);

/// One of the functions above for one kind, in the mode of that kind.
template <RecordMode Mode, RunOnKind Run>
[[nodiscard]] ExitCode Of(const CArguments& arguments, Console& console, RecordContext& context) {
    const RecordModeScope mode(Mode);
    return Run(KindOf(Mode), arguments, console, context);
}

[[nodiscard]] std::span<const OptionRow> EditOptions();
[[nodiscard]] std::span<const OptionRow> NewOptions(RecordKind kind);
[[nodiscard]] std::span<const OptionRow> MarkOptions(RecordKind kind);
[[nodiscard]] std::span<const OptionRow> LimitOption();
