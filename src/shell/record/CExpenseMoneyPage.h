#pragma once

#include "shell/record/RecordDialogParts.h"

#include <QWidget>

enum class Typed;
class CItemCombo;
class CItemFields;
class ExpenseDraft;
class QCheckBox;
class QPushButton;

/// The page with the day and the money of an expense: a plain amount, or a distance and its rate, from which
/// the amount follows while typing.
class CExpenseMoneyPage final : public QWidget {
    Q_OBJECT

 public:
    CExpenseMoneyPage(ExpenseDraft& draft, const RecordDialogContext& context, const CItemFields& fields,
                      CMnemonics mnemonics);
    ~CExpenseMoneyPage() override;

    /// Shows all of a draft that has just come.
    void ShowRecord();
    /// Shows distance, rate and amount as the draft has them.
    void ShowMoney();
    [[nodiscard]] CDateEdit* DateField() const { return m_day.edit; }
    /// The field of a finding.
    [[nodiscard]] QLineEdit* LineOf(DraftField place) const;

 Q_SIGNALS:
    void OdometerWanted();

 protected:
    void changeEvent(QEvent* event) override;

 private:
    void AddDistance(QGridLayout& form, const CItemFields& fields, CMnemonics& mnemonics);
    void AddAmount(QGridLayout& form, const CItemFields& fields, CMnemonics& mnemonics);
    void AddOdometer(QGridLayout& form, CMnemonics& mnemonics);
    [[nodiscard]] QString Unit() const;
    void Wire();
    void ShowDay();
    void Enter(CItemCombo& typed, Typed (ExpenseDraft::*enter)(const QString& text));
    void ShowMoneyBeside(const CItemCombo* typed);
    void ShowEnabled();

    ExpenseDraft& m_draft;
    const RecordDialogContext& m_context;
    RecordDialogParts::DateRow m_day;
    QCheckBox* m_isDistance = nullptr;
    CItemCombo* m_distance = nullptr;
    CItemCombo* m_rate = nullptr;
    QPushButton* m_odometer = nullptr;
    CItemCombo* m_amount = nullptr;
    CItemCombo* m_item5 = nullptr;
    QList<QWidget*> m_ofDistance;  ///< what is of use for a distance entry only
};
