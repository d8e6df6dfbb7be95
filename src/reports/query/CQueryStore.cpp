#include "reports/query/CQueryStore.h"

#include "config/CCfgStore.h"
#include "lang/LoadText.h"
#include "reports/query/QueryContent.h"

CQueryStore::CQueryStore(CCfgStore& settings, RecordMode mode)
    : CNamedEntries(settings,
                    LoadText(mode == RecordMode::Time ? Text::KeyTimeQueries : Text::KeyExpenseQueries)),
      m_mode(mode) {}

std::optional<StoredQuery> CQueryStore::Load(const QString& name) const {
    const auto content = Settings().ReadEntryContent(Key(), name);
    if (!content) return std::nullopt;
    if (m_mode == RecordMode::Time) return TimeQueryOf(*content);
    return ExpenseQueryOf(*content);
}

bool CQueryStore::Save(const QString& name, const StoredQuery& query) {
    return ChangeEntry(SaveRequest(name, query), Settings());
}

EntryRequest CQueryStore::SaveRequest(const QString& name, const StoredQuery& query) const {
    return {.key = Key(),
            .entry = name,
            .values = std::visit([](const auto& one) { return ContentOf(one); }, query)};
}

std::optional<EntryRequest> CQueryStore::RenameRequest(const QString& name, const QString& newName) const {
    const auto content = Settings().ReadEntryContent(Key(), name);
    if (!content) return std::nullopt;
    return EntryRequest{.key = Key(), .entry = newName, .values = *content, .former = name};
}
