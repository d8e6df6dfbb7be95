#include "fields/RecordWords.h"

#include "fields/ExpenseFields.h"
#include "fields/ItemMembers.h"
#include "fields/TimeFields.h"

namespace {

/// The member that holds the notes of a kind of records.
template <class Record, std::size_t Count>
constexpr QString Record::*NotesMember(const FieldRow (&fields)[Count]) {
    for (const FieldRow& field : fields)
        if (field.form == FieldForm::Notes) return std::get<QString Record::*>(field.member);
    return nullptr;
}

template <class Record>
struct TextMembers {
    std::array<QString Record::*, kItemCount> items;
    QString Record::*notes;
};
constexpr TextMembers<CTRecord> TextsOf(const CTRecord*) {
    return {ItemMembers<CTRecord>(kTimeFields), NotesMember<CTRecord>(kTimeFields)};
}
constexpr TextMembers<CERecord> TextsOf(const CERecord*) {
    return {ItemMembers<CERecord>(kExpenseFields), NotesMember<CERecord>(kExpenseFields)};
}

template <class Record>
void AnnounceTextsOf(const Record& record) {
    constexpr TextMembers<Record> kMembers = TextsOf(static_cast<const Record*>(nullptr));
    for (QString Record::*item : kMembers.items) __builtin_prefetch(&(record.*item));
    __builtin_prefetch(&(record.*kMembers.notes));
}

}  // namespace

/// Notes are read anew each time: hardly two are the same.
template <class Record>
bool RecordWords::MatchesTextsOf(const Record& record) const {
    constexpr TextMembers<Record> kMembers = TextsOf(static_cast<const Record*>(nullptr));
    WordMatcher::Words found = 0;
    for (QString Record::*item : kMembers.items) {
        const QString& text = record.*item;
        if (!text.isEmpty()) found |= m_known.Get(text, [&] { return m_matcher.In(text); });
    }
    return found == m_matcher.All() || (found | m_matcher.In(record.*kMembers.notes)) == m_matcher.All();
}

bool RecordWords::Matches(const CVORec& record) const {
    if (record.Kind() == RecordKind::Time) return MatchesTextsOf(static_cast<const CTRecord&>(record));
    return MatchesTextsOf(static_cast<const CERecord&>(record));
}

/// By the kind that the walk is of, without a look into the record, which would wait for it.
void RecordWords::Announce(RecordKind kind, const CVORec& record) {
    if (kind == RecordKind::Time)
        AnnounceTextsOf(static_cast<const CTRecord&>(record));
    else
        AnnounceTextsOf(static_cast<const CERecord&>(record));
}
