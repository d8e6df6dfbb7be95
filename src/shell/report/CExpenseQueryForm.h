#pragma once

#include "shell/report/CQueryForm.h"

class QComboBox;
class QLabel;

/// What the filter dialog asks of expenses. A mark that comes only with another one can be asked for only
/// with that.
class CExpenseQueryForm final : public CQueryForm {
    Q_OBJECT

 public:
    CExpenseQueryForm(const FilterDialogContext& context, CMnemonics& mnemonics);

    void ShowQuery(const StoredQuery& query) override;
    void ReadQuery(StoredQuery& query) const override;

 private:
    void AddAmount(CMnemonics& mnemonics);
    void ShowAmountNote();
    void AddMarks(CMnemonics& mnemonics);
    [[nodiscard]] ExpenseQuery MarksAsShown() const;
    void ShowMarks(const ExpenseQuery& query);
    void FollowMarks();

    QComboBox* m_comparison = nullptr;
    CItemCombo* m_amount = nullptr;
    QLabel* m_amountNote = nullptr;
    QCheckBox* m_distance = nullptr;
    std::array<QCheckBox*, 5> m_flags{};
};
