#include "viewmodel/guide/GuideNames.h"

#include "app/CPulldownCatalogue.h"
#include "fields/Headings.h"
#include "fields/ListId.h"
#include "lists/LabelSets.h"

namespace {

constexpr int kLawOffice = 1;
constexpr int kFieldService = 2;

/// The ready-made set of names; 0 for words that are none.
int PresetOf(GuideWords words) {
    if (words == GuideWords::Law) return kLawOffice;
    return words == GuideWords::Service ? kFieldService : 0;
}

/// Each word names the field of both kinds of records, and heads its list.
struct WordRow {
    QString GuideDraft::*word;
    FieldId fields[2];
};
constexpr WordRow kWords[] = {
    {&GuideDraft::person, {FieldId::TimeItem1, FieldId::ExpenseItem1}},
    {&GuideDraft::work, {FieldId::TimeItem2, FieldId::ExpenseItem2}},
};

std::map<int, QString> OwnWords(const GuideDraft& draft) {
    std::map<int, QString> names;
    for (const WordRow& row : kWords) {
        const QString word = (draft.*row.word).trimmed();
        if (word.isEmpty()) continue;
        for (const FieldId field : row.fields) names[HeadingOf(field)] = names[NumberOf(field)] = word;
    }
    return names;
}

/// Empty where the words give the field no name.
QString GivenName(const GuideDraft& draft, int field) {
    const std::map<int, QString> names =
        draft.words == GuideWords::Own ? OwnWords(draft) : PresetNames(PresetOf(draft.words));
    const auto found = names.find(field);
    return found == names.end() ? QString() : found->second;
}

}  // namespace

QString NameWith(const GuideDraft& draft, const FieldLabels& labels, FieldId field) {
    const int number = NumberOf(field);
    QString given = GivenName(draft, number);
    if (!given.isEmpty()) return given;
    const bool staysAsNow = draft.words == GuideWords::AsNow || draft.words == GuideWords::Own;
    return staysAsNow ? labels.GetLabel(number) : FieldLabels::Default(number);
}

bool HasOwnNames(const FieldLabels& labels) {
    for (int field = kFirstLabel; field <= kLastLabel; ++field)
        if (!labels.Own(field).isEmpty()) return true;
    return false;
}

bool StoreNames(const GuideDraft& draft, CPulldownCatalogue& catalogue) {
    CLabelEditor editor(catalogue);
    switch (draft.words) {
        case GuideWords::AsNow:
            return true;
        case GuideWords::Plain:
            return !HasOwnNames(catalogue.Labels()) || editor.Reset();
        case GuideWords::Own: {
            const std::map<int, QString> names = OwnWords(draft);
            return names.empty() || catalogue.SetNames(names);
        }
        default:
            return editor.ApplyPreset(PresetOf(draft.words));
    }
}
