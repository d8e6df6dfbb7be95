#pragma once

#include "reports/definition/CReportDef.h"

#include <QStringList>
#include <functional>
#include <optional>

class CPrompt;
class CReportStore;

/// The page of the stored definitions without its widgets: the rows of its combo box, what can be done with
/// the selected one, and all that its buttons ask.
class CDefinitionsPage {
 public:
    struct Screen {
        /// Asks for a name, opening on one; nothing: cancelled.
        std::function<std::optional<QString>(const QString& opening)> askName;
        CPrompt& prompt;
    };
    /// The report is the one that all pages edit. Opening the page takes its name away.
    CDefinitionsPage(CReportStore& store, CReportDef& report, bool confirmDelete, Screen screen);

    /// The rows of the combo box; a name that is saved anew stands there once more.
    [[nodiscard]] const QStringList& Names() const { return m_names; }
    /// Empty when no row is selected.
    [[nodiscard]] const QString& Selected() const { return m_selected; }
    /// Whether Save, Rename and Delete are enabled; Save as always is.
    [[nodiscard]] bool CanChangeSelected() const;

    // Each is true when all pages must be shown anew.

    /// Loads it at once. One that can't be loaded is selected all the same, and the report stays as it was.
    bool Choose(const QString& name);
    bool Save();
    bool SaveAs();
    /// The new name is compared with nothing: a definition of that name is replaced without a question.
    bool Rename();
    bool Delete();

 private:
    [[nodiscard]] bool IsRefused(const QString& name);
    [[nodiscard]] bool MayReplace(const QString& name);
    void Select(const QString& name);

    CReportStore& m_store;
    CReportDef& m_report;
    bool m_confirmDelete;
    Screen m_screen;
    QStringList m_names;
    QString m_selected;
};
