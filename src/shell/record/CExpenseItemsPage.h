#pragma once

#include "entry/ExpenseEntryRules.h"

#include <QWidget>
#include <array>

class CERecord;
class CItemCombo;
class CItemFields;
class CMnemonics;
class QCheckBox;
class QGridLayout;
struct RecordDialogContext;

/// The page with four items of an expense, their codes behind a button, and the flags. "Billed" can be set
/// while "Billable" is, "Reimbursed" while "Reimbursable" is.
class CExpenseItemsPage final : public QWidget {
    Q_OBJECT

 public:
    CExpenseItemsPage(const RecordDialogContext& context, const CItemFields& fields, CMnemonics mnemonics);

    void ShowRecord(const CERecord& record);
    /// What the page holds, for the rule that accepts it.
    [[nodiscard]] ExpenseEntryRules::ItemsPage Page() const;

 private:
    void PlanMnemonics(CMnemonics& mnemonics) const;
    void AddItems(QGridLayout& form, const CItemFields& fields, CMnemonics& mnemonics);
    void AddFlags(QGridLayout& form, CMnemonics& mnemonics);
    void EditCodes();
    void ShowEnabled();

    const RecordDialogContext& m_context;
    std::array<CItemCombo*, 4> m_items{};
    std::array<QCheckBox*, 5> m_flags{};
};
