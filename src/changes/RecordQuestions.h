#pragma once

#include "lang/Text.h"
#include "platform/host/CPrompt.h"

class FieldLabels;
enum class RecordKind : int;
enum class RecordMark : int;

/// A question before records are changed, which names what is done and to how many of them.
struct RecordQuestion {
    Text text;      ///< which question it is, whatever the number of records
    Text title;     ///< the verb of the button that says yes
    QString words;  ///< "Delete 3 records?"
    Answer onReturn = Answer::No;
};

[[nodiscard]] RecordQuestion DeleteQuestion(int records);
/// Copying takes nothing away, so Return copies.
[[nodiscard]] RecordQuestion CopyQuestion(int records);
/// A field that the user has named is called so.
[[nodiscard]] RecordQuestion MarkQuestion(int records, RecordKind kind, RecordMark mark,
                                          const FieldLabels& labels);
