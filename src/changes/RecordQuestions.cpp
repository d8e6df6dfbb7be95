#include "changes/RecordQuestions.h"

#include "app/FieldLabels.h"
#include "entry/RecordMarks.h"
#include "fields/FieldId.h"
#include "lang/FormatText.h"

#include <algorithm>
#include <iterator>

namespace {

/// Which field a mark sets; of a pair the second, which needs the first.
struct MarkRow {
    RecordKind kind;
    RecordMark mark;
    FieldId field;
};
constexpr MarkRow kMarks[] = {
    {RecordKind::Time, RecordMark::First, FieldId::Billable},
    {RecordKind::Time, RecordMark::FirstAndSecond, FieldId::Billed},
    {RecordKind::Expense, RecordMark::First, FieldId::Flag1},
    {RecordKind::Expense, RecordMark::FirstAndSecond, FieldId::Flag2},
    {RecordKind::Expense, RecordMark::Third, FieldId::Flag3},
    {RecordKind::Expense, RecordMark::ThirdAndFourth, FieldId::Flag4},
    {RecordKind::Expense, RecordMark::Fifth, FieldId::Flag5},
};

/// In the middle of a sentence: "billed", but a name of the user's own as it is.
QString WordsOf(FieldId field, const FieldLabels& labels) {
    const int number = NumberOf(field);
    const QString own = labels.Own(number);
    return own.isEmpty() ? FieldLabels::Default(number).toLower() : FormatText<Text::MarkOwnName>(own);
}

QString WordsOf(RecordKind kind, RecordMark mark, const FieldLabels& labels) {
    if (mark == RecordMark::Exported) return LoadText(Text::MarkExported);
    if (mark == RecordMark::NotExported) return LoadText(Text::MarkNotExported);
    const auto* row = std::ranges::find_if(
        kMarks, [&](const MarkRow& each) { return each.kind == kind && each.mark == mark; });
    return row == std::end(kMarks) ? QString() : WordsOf(row->field, labels);
}

}  // namespace

RecordQuestion DeleteQuestion(int records) {
    return {.text = Text::AskDeleteRecords,
            .title = Text::AskDeleteTitle,
            .words =
                records == 1 ? LoadText(Text::AskDeleteRecord) : FormatText<Text::AskDeleteRecords>(records)};
}

RecordQuestion CopyQuestion(int records) {
    return {.text = Text::AskCopyRecords,
            .title = Text::AskCopyTitle,
            .words = records == 1 ? LoadText(Text::AskCopyRecord) : FormatText<Text::AskCopyRecords>(records),
            .onReturn = Answer::Yes};
}

RecordQuestion MarkQuestion(int records, RecordKind kind, RecordMark mark, const FieldLabels& labels) {
    const QString as = WordsOf(kind, mark, labels);
    return {.text = Text::AskMarkRecords,
            .title = Text::AskMarkTitle,
            .words = records == 1 ? FormatText<Text::AskMarkRecord>(as)
                                  : FormatText<Text::AskMarkRecords>(records, as)};
}
