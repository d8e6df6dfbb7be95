#pragma once

#include "calendar/DateTimeVal.h"
#include "cli/arguments/CArguments.h"
#include "cli/arguments/EnteredValues.h"
#include "cli/arguments/FieldEntry.h"
#include "entry/DraftFinding.h"
#include "entry/UnlikelyValues.h"
#include "lang/FormatText.h"
#include "records/CVORec.h"

#include <array>
#include <span>

/// What the fields of both kinds of records are made of. They turn words into values; a draft is the record
/// that is being entered, with its rules.
namespace FieldParts {

/// One field. The order of a table is the order in which its fields are entered.
template <class Draft>
struct RecordField {
    OptionRow option;
    bool canBeCleared = true;
    /// Enters the value; the sentence that refuses it, empty when it was taken.
    QString (*enter)(Draft& draft, const Entered& entered, const FieldContext& context);
    /// Whether the field may be entered at all now; null: always.
    FieldProblem (*mayEnter)(const Draft& draft, const Entered& entered,
                             const FieldContext& context) = nullptr;
};

/// The options of a table of fields.
template <class Draft, std::size_t N>
[[nodiscard]] constexpr std::array<OptionRow, N> OptionsOf(const RecordField<Draft> (&fields)[N]) {
    std::array<OptionRow, N> options{};
    for (std::size_t i = 0; i < N; ++i) options[i] = fields[i].option;
    return options;
}

/// A name that --clear can't take, or a field that is set and cleared at once.
[[nodiscard]] FieldProblem CheckCleared(const CArguments& arguments, const QStringList& clearable);
/// "--rate: The record isn't billable."
[[nodiscard]] FieldProblem Refused(const OptionRow& option, const FieldProblem& problem);

template <class Draft>
[[nodiscard]] FieldProblem EnterOne(const RecordField<Draft>& field, Draft& draft, const Entered& entered,
                                    const FieldContext& context) {
    if (field.mayEnter)
        if (const FieldProblem problem = field.mayEnter(draft, entered, context);
            problem.exit != ExitCode::Done)
            return Refused(field.option, problem);
    const QString words = field.enter(draft, entered, context);
    return words.isEmpty() ? FieldProblem{} : Refused(field.option, {ExitCode::Usage, words});
}

/// Enters what was given, in the order of the table.
template <class Draft>
[[nodiscard]] FieldProblem EnterAll(std::span<const RecordField<Draft>> fields, Draft& draft,
                                    const CArguments& arguments, const FieldContext& context) {
    QStringList clearable;
    for (const auto& field : fields)
        if (field.canBeCleared) clearable.append(QString::fromLatin1(field.option.name));
    if (FieldProblem problem = CheckCleared(arguments, clearable); problem.exit != ExitCode::Done)
        return problem;
    const QStringList cleared = arguments.Values("clear");
    for (const auto& field : fields) {
        const Entered entered = arguments.Value(field.option.name);
        if (!entered && !cleared.contains(QLatin1String(field.option.name))) continue;
        if (FieldProblem problem = EnterOne(field, draft, entered, context); problem.exit != ExitCode::Done)
            return problem;
    }
    return {};
}

template <class Draft>
QString EnterDate(Draft& draft, const Entered& entered, const FieldContext& context) {
    const auto date = EnteredValues::ReadDate(entered.value_or(QString()), context.region, context.clock);
    if (!date) return FormatText<Text::CliNoDate>(entered.value_or(QString()));
    draft.EnterDate(date);
    return {};
}

/// The sentence that refuses a text that is too long, empty for one that fits.
[[nodiscard]] QString CheckLength(const QString& text, int longest);

template <class Draft, auto Field>
QString EnterText(Draft& draft, const Entered& entered, const FieldContext&) {
    const QString text = entered.value_or(QString());
    QString words = CheckLength(text, kTextLength);
    if (words.isEmpty()) draft.EnterItem(Field, text);
    return words;
}

template <class Draft>
QString EnterNotes(Draft& draft, const Entered& entered, const FieldContext&) {
    const QString text = entered.value_or(QString());
    QString words = CheckLength(text, kLongTextLength);
    if (words.isEmpty()) draft.EnterNotes(text);
    return words;
}

/// The sentences about numbers that are stored as others.
[[nodiscard]] QStringList NotesOf(const DraftFindings& findings);

/// What looks like a slip now and didn't before the fields were entered.
template <class Record>
[[nodiscard]] QStringList NewlyUnlikely(const Record& before, const Record& record) {
    QStringList words = UnlikelyIn(record);
    for (const QString& known : UnlikelyIn(before)) words.removeAll(known);
    return words;
}

[[nodiscard]] bool IsYes(const Entered& entered);

}  // namespace FieldParts
