#pragma once

#include "entry/TimeDraft.h"
#include "shell/controls/CItemFields.h"

#include <QWidget>
#include <array>

class CItemCombo;
class CMnemonics;
class QCheckBox;
class QGridLayout;
class QLineEdit;
struct RecordDialogContext;

/// The page with the five items, the money and the flags, called as the user calls them. Rate and amount
/// follow one another while typing.
class CRecordDialogEntry final : public QWidget {
    Q_OBJECT

 public:
    CRecordDialogEntry(TimeDraft& draft, const RecordDialogContext& context, CMnemonics mnemonics);

    /// Shows all of a record that has just come.
    void ShowRecord();
    /// After a change of the times: shows which of rate and amount was computed; what was typed stays as
    /// typed.
    void ShowComputed();
    /// Shows items that were entered elsewhere.
    void ShowItems();
    /// The field of a finding.
    [[nodiscard]] QLineEdit* LineOf(DraftField place) const;

 Q_SIGNALS:
    void Changed();      ///< the record's money changed
    void Entered();      ///< anything was entered
    void ItemEntered();  ///< one of the items was

 private:
    using EnterMoney = Typed (TimeDraft::*)(const QString& text);

    void AddItems(QGridLayout& form, CMnemonics& mnemonics);
    void AddMoney(QGridLayout& form, CMnemonics& mnemonics);
    [[nodiscard]] QString LabelOf(int field) const;
    void PlanMnemonics(CMnemonics& mnemonics) const;
    void Wire();
    void Enter(CItemCombo& typed, EnterMoney enter);
    void SwitchBillable(bool isBillable);
    void ShowMoney(const CItemCombo* typed);
    void MarkMoney();
    void ShowEnabled();

    TimeDraft& m_draft;
    const RecordDialogContext& m_context;
    CItemFields m_fields;
    std::array<CItemCombo*, 5> m_items{};
    QCheckBox* m_billable = nullptr;
    CItemCombo* m_rate = nullptr;
    CItemCombo* m_amount = nullptr;
    QCheckBox* m_billed = nullptr;
};
