#pragma once

#include "cli/commands/CommandRow.h"
#include "entry/SettingsRequest.h"

#include <QString>
#include <QStringList>
#include <optional>

class CVORec;
struct FilterProblem;
enum class RecordKind : int;
enum class RecordMode : int;

// Steps that commands about records share. Kinds are time and expense.

/// The stored record that was asked for; null after telling that there is none.
[[nodiscard]] const CVORec* FindRecord(RecordKind kind, const QString& typed, Console& console,
                                       RecordContext& context);
/// The identities that were asked for, each once; nothing, after telling which, when one isn't stored.
[[nodiscard]] std::optional<QStringList> FindRecords(RecordKind kind, const QStringList& typed,
                                                     Console& console, RecordContext& context);
/// How a command ends that didn't find its record: not found, or failed where the store can't be read.
[[nodiscard]] ExitCode LookupFailed(const RecordContext& context);
/// Tells the window, and the user when the window can't be told. listsToo: pick lists changed with the
/// records.
void Announce(RecordKind kind, const QStringList& ids, Console& console, RecordContext& context,
              bool listsToo = false);
/// Whether records can be deleted, told where they can't. A window that owns timers of them has to be there
/// for us before. Without one they have to be known: a timer that stayed behind would have no record.
[[nodiscard]] ExitCode CheckTimers(RecordKind kind, const QStringList& ids, Console& console,
                                   RecordContext& context);
/// Who has changed a record that is to be shown.
enum class ChangedBy { ThisProgram, Window };
/// Prints a stored record with its timer. What this program has stored itself is shown from memory where the
/// store can't be read any more: it is done, and its result is wanted.
void PrintRecord(RecordKind kind, const QString& id, Console& console, RecordContext& context,
                 ChangedBy by = ChangedBy::ThisProgram);
/// Asks a yes-or-no question with no as the default.
[[nodiscard]] bool Confirm(Text question, Text title, Text verb, Console& console);
/// The same with a text made from the question.
[[nodiscard]] bool Confirm(Text question, const QString& text, Text title, Text verb, Console& console);
/// Tells why a command stopped.
[[nodiscard]] ExitCode Refuse(ExitCode exit, const QString& words, Console& console);
/// The same of something that is stored in the settings: where these couldn't be read, it isn't said that
/// there is none.
[[nodiscard]] ExitCode RefuseStored(const FilterProblem& problem, Console& console,
                                    const CSettingsOwner& owner);
/// How a command ends that asked the owner of timers or settings; tells why when it wasn't done.
[[nodiscard]] ExitCode ExitOf(const InstanceReply& reply, Console& console);
/// Has a change of the settings carried out by their owner; tells why when it wasn't.
[[nodiscard]] ExitCode ChangeSettings(const SettingsRequest& request, Console& console,
                                      CSettingsOwner& owner);
/// "time" or "expense"; nothing, after telling, for anything else.
[[nodiscard]] std::optional<RecordMode> ReadMode(const QString& typed, Console& console);
/// --mode, time without it; nothing after telling that it can't be read.
[[nodiscard]] std::optional<RecordMode> ReadModeOption(const CArguments& arguments, Console& console);
/// The sentence that refuses a name under which something is to be stored; empty when it can be one.
[[nodiscard]] QString CheckName(const QString& name);
/// {"added": 2}; nothing for people, who see it by the lack of a complaint.
void PrintDone(COutput& out, const char* key, qsizetype count);
/// {"deleted": 2}, or a sentence with the number.
void PrintCount(COutput& out, const char* key, Text sentence, qsizetype count);
/// An array of texts, or one on each line.
void PrintTexts(COutput& out, const QStringList& texts);
