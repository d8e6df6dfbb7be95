#pragma once

#include "app/RecordMode.h"
#include "config/CNamedEntries.h"
#include "reports/query/StoredQuery.h"

#include <optional>

/// The stored queries of a mode, each under its name.
class CQueryStore final : public CNamedEntries {
 public:
    CQueryStore(CCfgStore& settings, RecordMode mode);

    /// Of the kind of the mode; nothing when one of its values can't be read.
    [[nodiscard]] std::optional<StoredQuery> Load(const QString& name) const;
    /// All values or, on failure, none: the query of that name is then as it was. Only of a text that is
    /// empty or too long the user is told.
    [[nodiscard]] bool Save(const QString& name, const StoredQuery& query);

    // Changes of the settings, for a program that may have to ask a window for them.
    [[nodiscard]] EntryRequest SaveRequest(const QString& name, const StoredQuery& query) const;
    /// All values of the query move, whatever they mean; nothing when they can't be read, as the query would
    /// be empty under its new name.
    [[nodiscard]] std::optional<EntryRequest> RenameRequest(const QString& name,
                                                            const QString& newName) const;

 private:
    RecordMode m_mode;
};
