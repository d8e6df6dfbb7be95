#pragma once

#include "app/RecordMode.h"
#include "reports/query/StoredQuery.h"

#include <QString>
#include <functional>
#include <optional>

class CPrompt;
class CQueryStore;

/// Saving under a name and deleting as the filter dialog does them, with all that they ask.
class CQueryActions {
 public:
    struct Screen {
        /// Asks for a name, opening on one; nothing: cancelled.
        std::function<std::optional<QString>(const QString& opening)> askName;
        CPrompt& prompt;
    };
    CQueryActions(CQueryStore& store, RecordMode mode, bool confirmDelete, Screen screen);

    /// selected: the row of the list, empty for none. The name under which it was saved; nothing when it
    /// wasn't.
    [[nodiscard]] std::optional<QString> SaveAs(const QString& selected, const StoredQuery& query);
    [[nodiscard]] bool Delete(const QString& selected);

 private:
    CQueryStore& m_store;
    RecordMode m_mode;
    bool m_confirmDelete;
    Screen m_screen;
};

// What is asked and refused, for window and console alike.

/// The title of all messages about the stored queries of a mode.
[[nodiscard]] Text QueryTitle(RecordMode mode);
[[nodiscard]] QString DeleteQueryQuestion(const QString& name);
[[nodiscard]] QString ReservedQueryRefusal(const QString& name);
