#pragma once

#include <QWidget>
#include <array>

class CItemCombo;
class CItemFields;
class CMnemonics;
class ExpenseDraft;
class QCheckBox;
class QGridLayout;
struct RecordDialogContext;

/// The page with four items of an expense, their codes behind a button, and the flags. "Billed" can be set
/// while "Billable" is, "Reimbursed" while "Reimbursable" is.
class CExpenseItemsPage final : public QWidget {
    Q_OBJECT

 public:
    CExpenseItemsPage(ExpenseDraft& draft, const RecordDialogContext& context, const CItemFields& fields,
                      CMnemonics mnemonics);

    /// Shows all of a draft that has just come.
    void ShowRecord();

 private:
    void PlanMnemonics(CMnemonics& mnemonics) const;
    void AddItems(QGridLayout& form, const CItemFields& fields, CMnemonics& mnemonics);
    void AddFlags(QGridLayout& form, CMnemonics& mnemonics);
    void EditCodes();
    void ShowFlags();

    ExpenseDraft& m_draft;
    const RecordDialogContext& m_context;
    std::array<CItemCombo*, 4> m_items{};
    std::array<QCheckBox*, 5> m_flags{};
};
