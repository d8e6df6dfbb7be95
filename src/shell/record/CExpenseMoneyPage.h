#pragma once

#include "entry/ExpenseEntryRules.h"
#include "shell/record/RecordDialogParts.h"

#include <QWidget>

class CERecord;
class CItemCombo;
class CItemFields;
class QCheckBox;
class QPushButton;

/// The page with the day and the money of an expense: a plain amount, or a distance and its rate, from which
/// the amount follows while typing.
class CExpenseMoneyPage final : public QWidget {
    Q_OBJECT

 public:
    CExpenseMoneyPage(const RecordDialogContext& context, const CItemFields& fields, CMnemonics mnemonics);
    ~CExpenseMoneyPage() override;

    void ShowRecord(const CERecord& record);
    /// Distance and rate of a record, and the amount that follows from them.
    void ShowDistance(const CERecord& record);
    /// What the page holds, for the rule that accepts it.
    [[nodiscard]] ExpenseEntryRules::MoneyPage Page() const;
    [[nodiscard]] CDateEdit* DateField() const { return m_day.edit; }

 Q_SIGNALS:
    void OdometerWanted();

 private:
    void AddDistance(QGridLayout& form, const CItemFields& fields, CMnemonics& mnemonics);
    void AddAmount(QGridLayout& form, const CItemFields& fields, CMnemonics& mnemonics);
    void AddOdometer(QGridLayout& form, CMnemonics& mnemonics);
    [[nodiscard]] QString Unit() const;
    void Wire();
    void ShowDay();
    void SwitchDistance(bool isDistance);
    void EnterDistance();
    void ShowEnabled();

    const RecordDialogContext& m_context;
    RecordDialogParts::DateRow m_day;
    QCheckBox* m_isDistance = nullptr;
    CItemCombo* m_distance = nullptr;
    CItemCombo* m_rate = nullptr;
    QPushButton* m_odometer = nullptr;
    CItemCombo* m_amount = nullptr;
    CItemCombo* m_item5 = nullptr;
    QList<QWidget*> m_ofDistance;  ///< what is of use for a distance entry only
    QString m_keptDistance, m_keptRate;
};
