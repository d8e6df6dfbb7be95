#pragma once

#include "fields/Column.h"
#include "fields/CompareForm.h"
#include "fields/FieldId.h"
#include "fields/ListId.h"
#include "lang/Text.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"

#include <variant>

/// What a field holds. How it is read, compared, aligned and written follows from it.
enum class FieldForm {
    Text,       ///< an item of a list, or whatever the user wrote in its place
    Notes,      ///< a long text, of which a column shows only whether there is one
    Reading,    ///< of an odometer: digits, stored as they were typed
    Flag,       ///< yes or no
    Money,      ///< a rate or an amount; may be none
    Distance,   ///< a number whose text is stored; may be none
    Span,       ///< a length of time; may be unset
    Date,       ///< a day; may be unset
    TimeOfDay,  ///< hour and minute; may be unset
};

/// Fields that one entry changes together, or that mean nothing without one another: of two versions of a
/// record they are taken from the same one.
enum class Bond {
    None,         ///< the field stands alone
    Times,        ///< start, end, duration, break and what is left of them
    Money,        ///< what it costs, and whether and how that is billed
    FirstMarks,   ///< of expenses: the second can't be set without the first
    SecondMarks,  ///< the same of the third and the fourth
};

/// Which of the settings gives the decimal places of a field's number.
enum class Places { None, Duration, Distance, Rate, Amount };

/// Which forms the catalogue gives of a field by its number.
enum class Shown { Nothing, Text, Number, TextAndNumber };

/// What a report can do with a field, the most first: what groups or is added up can be sorted by, and what
/// can be sorted by can be listed.
enum class ReportUse { None, Group, Sum, Sort, List };

/// Where the value of a field lies: a member of its record, a span of a time record, or one of its two times.
using GetTimeOfDay = bool (CTRecord::*)(int& hour, int& minute, bool& isPm) const;
using FieldMember = std::variant<QString CTRecord::*, QString CERecord::*, bool CTRecord::*, bool CERecord::*,
                                 DecimalField CTRecord::*, DecimalField CERecord::*, RecordDate CTRecord::*,
                                 RecordDate CERecord::*, SpanField SpanSet::*, GetTimeOfDay>;

/// The column of a field in the record list and in the data tree, as a fresh installation has it.
struct FieldColumn {
    int index = Column::kNone;
    int width = 0;  ///< pixels
    ColumnKind kind = ColumnKind::Text;
    int listPosition = 0;  ///< from 1 among the visible columns of its half; 0: hidden
    int treePosition = 0;  ///< the same as a level of the tree, before what makes no level is taken out
    bool isLevel = false;  ///< records can be grouped by it in the tree
    Text levelSet{};       ///< what the tree calls a flag that is set; no text: it isn't a flag
    Text levelClear{};
};

/// Everything that is known of a field of one kind of records.
struct FieldRow {
    FieldId id = FieldId::None;
    const char* name;  ///< in JSON and where a script sorts by it
    FieldForm form;
    FieldMember member;
    Bond bond = Bond::None;
    Shown shown = Shown::Nothing;
    Text title{};           ///< of a computed column; the others are called by their label
    Text label{};           ///< the default of the name that the user can give it; none: it can't be named
    Text caption{};         ///< of its column, until the user's name takes its place
    Text consoleCaption{};  ///< where people read it in a terminal; none: as the column
    int heading = 0;        ///< number of the name that heads its list
    int list = ListId::kNone;
    Places places = Places::None;
    ReportUse report = ReportUse::None;
    int reportPlace = 0;    ///< from 1, among the fields of that use in the order in which reports offer them
    bool isListed = false;  ///< stands in the console's lists for people; single records show every field
    FieldColumn column{};
};

/// The kind of records whose member it is.
[[nodiscard]] constexpr RecordKind KindOf(const FieldRow& field) {
    const bool isExpense = std::holds_alternative<QString CERecord::*>(field.member) ||
                           std::holds_alternative<bool CERecord::*>(field.member) ||
                           std::holds_alternative<DecimalField CERecord::*>(field.member) ||
                           std::holds_alternative<RecordDate CERecord::*>(field.member);
    return isExpense ? RecordKind::Expense : RecordKind::Time;
}

/// Numbers and times stand right where people read them in a terminal.
[[nodiscard]] constexpr bool IsNumeric(FieldForm form) {
    switch (form) {
        case FieldForm::Reading:
        case FieldForm::Money:
        case FieldForm::Distance:
        case FieldForm::Span:
        case FieldForm::TimeOfDay:
            return true;
        default:
            return false;
    }
}

/// A distance is compared as the text that it is stored as, so 10 goes before 9; notes by whether there are
/// any.
[[nodiscard]] constexpr CompareForm CompareFormOf(FieldForm form) {
    switch (form) {
        case FieldForm::Date:
            return CompareForm::DateAndStart;
        case FieldForm::Span:
            return CompareForm::Span;
        case FieldForm::TimeOfDay:
            return CompareForm::TimeOfDay;
        case FieldForm::Money:
            return CompareForm::Number;
        case FieldForm::Flag:
        case FieldForm::Notes:
            return CompareForm::Flag;
        case FieldForm::Text:
        case FieldForm::Reading:
        case FieldForm::Distance:
            break;
    }
    return CompareForm::Text;
}
