#pragma once

#include "entry/TimeEntryRules.h"

#include <QWidget>
#include <array>

class CMnemonics;
class CRecordDraft;
class QCheckBox;
class QGridLayout;
class QLineEdit;

/// The page with the five items, the money and the flags. Rate and amount follow one another while typing.
class CRecordDialogEntry final : public QWidget {
    Q_OBJECT

 public:
    CRecordDialogEntry(CRecordDraft& draft, CMnemonics mnemonics);

    /// Shows all of a record that has just come.
    void ShowRecord();
    /// After a change of the times: shows which of rate and amount was computed; what was typed stays as
    /// typed.
    void ShowComputed();
    /// What the page holds, for the rule that accepts it.
    [[nodiscard]] TimeEntryRules::EntryPage Page() const;

 Q_SIGNALS:
    void Changed();  ///< the record's money changed

 private:
    using EnterMoney = bool (*)(CTRecord& record, const QString& text);

    void AddItems(QGridLayout& form, CMnemonics& mnemonics);
    void AddMoney(QGridLayout& form, CMnemonics& mnemonics);
    void Wire();
    void Enter(QLineEdit& typed, EnterMoney rule);
    void SwitchBillable(bool isBillable);
    void ShowMoney(const QLineEdit* typed);
    void ShowEnabled();

    CRecordDraft& m_draft;
    std::array<QLineEdit*, 5> m_items{};
    QCheckBox* m_billable = nullptr;
    QLineEdit* m_rate = nullptr;
    QLineEdit* m_amount = nullptr;
    QCheckBox* m_billed = nullptr;
};
