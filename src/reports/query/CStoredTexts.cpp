#include "reports/query/CStoredTexts.h"

#include "app/ListTable.h"
#include "config/CCfgStore.h"
#include "config/CarriedChange.h"
#include "entry/NamedDefaults.h"
#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "reports/query/CQueryStore.h"

#include <optional>

namespace {

/// The new text of an item of a list.
struct NewText {
    const ListRow& row;
    const QString& oldText;
    const QString& newText;
};

/// Whether the place of an item in a record, and in a query about such, is that of the list.
bool IsOfList(const ListRow& row, RecordMode mode, std::size_t place) {
    constexpr QString CTRecord::*kTimes[] = {&CTRecord::item1, &CTRecord::item2, &CTRecord::item3,
                                             &CTRecord::item4, &CTRecord::item5};
    constexpr QString CERecord::*kExpenses[] = {&CERecord::item1, &CERecord::item2, &CERecord::item3,
                                                &CERecord::item4, &CERecord::item5};
    if (mode == RecordMode::Time) return row.timeField && row.timeField == kTimes[place];
    return row.expenseField && row.expenseField == kExpenses[place];
}

bool Takes(QueryFields& query, const NewText& text, RecordMode mode) {
    bool isTaken = false;
    const auto sensitivity = query.matchCase ? Qt::CaseSensitive : Qt::CaseInsensitive;
    for (std::size_t place = 0; place < query.items.size(); ++place) {
        QString& item = query.items[place];
        if (!IsOfList(text.row, mode, place) || item.compare(text.oldText, sensitivity) != 0) continue;
        item = text.newText;
        isTaken = true;
    }
    return isTaken;
}

/// How many took the text; nothing when one can't be written.
std::optional<int> CarryIntoQueries(const NewText& text, RecordMode mode, CCfgStore& settings) {
    CQueryStore queries(settings, mode);
    int carried = 0;
    for (const QString& name : queries.Names()) {
        auto query = queries.Load(name);
        if (!query || !std::visit([&](auto& one) { return Takes(one, text, mode); }, *query)) continue;
        if (!queries.Save(name, *query)) return std::nullopt;
        if (!CQueryStore::IsReserved(name)) ++carried;
    }
    return carried;
}

template <class Record>
std::optional<int> CarryIntoDefaults(const NewText& text, QString Record::*field, RecordMode mode,
                                     CCfgStore& settings, const CClock& clock) {
    if (!field) return 0;
    NamedDefaults defaults(settings, clock, mode);
    int carried = 0;
    for (const QString& name : defaults.Names()) {
        Record record;
        if (NamedDefaults::IsReserved(name) || !defaults.Read(name, record) || record.*field != text.oldText)
            continue;
        record.*field = text.newText;
        if (!defaults.Write(name, record)) return std::nullopt;
        ++carried;
    }
    return carried;
}

std::optional<int> CarryIntoAll(const NewText& text, CCfgStore& settings, const CClock& clock) {
    const std::optional<int> parts[] = {
        CarryIntoQueries(text, RecordMode::Time, settings),
        CarryIntoQueries(text, RecordMode::Expense, settings),
        CarryIntoDefaults(text, text.row.timeField, RecordMode::Time, settings, clock),
        CarryIntoDefaults(text, text.row.expenseField, RecordMode::Expense, settings, clock),
    };
    int sum = 0;
    for (const std::optional<int>& part : parts) {
        if (!part) return std::nullopt;
        sum += *part;
    }
    return sum;
}

}  // namespace

std::optional<int> CStoredTexts::Carry(int list, const QString& oldText, const QString& newText) {
    const ListRow* row = FindRecordList(list);
    if (!row || (!row->timeField && !row->expenseField)) return 0;
    const CarriedChange carrying(m_settings);
    std::optional<int> carried;
    const bool isDone = m_settings.Tree().Change([&] {
        carried = CarryIntoAll({*row, oldText, newText}, m_settings, m_clock);
        return carried.has_value();
    });
    if (isDone) return carried;
    const QString error = m_settings.Tree().Error();
    m_prompt.Tell({.textId = static_cast<int>(Text::EntryNotSaved),
                   .title = LoadText(Text::WriteSettingTitle),
                   .text = LoadText(Text::ChangeCarryOne) + QStringLiteral(": ") +
                           FormatText<Text::EntryNotSaved>(error),
                   .icon = BoxIcon::Warning,
                   .actionLabel = {}});
    return std::nullopt;
}
