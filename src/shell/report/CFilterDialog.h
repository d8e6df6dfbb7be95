#pragma once

#include "app/RecordMode.h"
#include "reports/query/CQueryActions.h"
#include "reports/query/CQueryStore.h"
#include "shell/report/FilterDialogContext.h"

#include <QDialog>

class CMnemonics;
class CPeriodBox;
class CQueryForm;
class QComboBox;
class QHBoxLayout;
class QPushButton;

/// All conditions of the filter of a mode at once. They can be stored under a name; what is accepted is
/// stored under the reserved name, with which the dialog opens the next time.
class CFilterDialog final : public QDialog {
    Q_OBJECT

 public:
    /// What the conditions are for: it stands on the button.
    enum class Use { List, Report };
    CFilterDialog(RecordMode mode, Use use, const FilterDialogContext& context, QWidget* parent = nullptr);

    [[nodiscard]] StoredQuery GetQuery() const;
    void accept() override;
    void done(int result) override;

 private:
    void Build(Use use);
    void PlanLetters(CMnemonics& mnemonics, Text acceptText) const;
    [[nodiscard]] QHBoxLayout* BuildStored(CMnemonics& mnemonics);
    QPushButton* AddButton(Text caption, const char* name, CMnemonics& mnemonics,
                           void (CFilterDialog::*action)());
    void ShowLast();
    void ShowQuery(const StoredQuery& query);
    void ShowNames(const QString& selected);
    [[nodiscard]] bool Load(const QString& name);
    void Choose(const QString& name);
    void SaveAs();
    void Delete();
    void Reset();
    void TellIfDatesUnread(const QString& name, const QueryFields& query);
    void Tell(int textId, const QString& text);
    [[nodiscard]] CQueryActions Actions();

    RecordMode m_mode;
    FilterDialogContext m_context;
    CQueryStore m_queries;
    CQueryForm* m_form = nullptr;
    CPeriodBox* m_period = nullptr;
    QComboBox* m_names = nullptr;
};

/// Lets the user fill a filter; it holds the conditions then and nothing else. False, and the filter as it
/// was, when cancelled.
[[nodiscard]] bool RunFilterDialog(QWidget* parent, TimeFilter& filter, CFilterDialog::Use use,
                                   const FilterDialogContext& context);
[[nodiscard]] bool RunFilterDialog(QWidget* parent, ExpenseFilter& filter, CFilterDialog::Use use,
                                   const FilterDialogContext& context);
