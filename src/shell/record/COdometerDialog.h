#pragma once

#include "entry/ExpenseEntryRules.h"
#include "shell/controls/CItemFields.h"
#include "shell/record/RecordDialogParts.h"

#include <QDialog>

class CItemCombo;

/// The readings of an odometer, and distance and rate of a trip. The distance follows from the readings while
/// they are typed; one that is typed or picked itself empties them. Which end is suggested next is the
/// caller's affair.
class COdometerDialog final : public QDialog {
    Q_OBJECT

 public:
    /// itemPath: the first three items of the expense, on which the rates and distances offered depend.
    COdometerDialog(const RecordDialogContext& context, const QStringList& itemPath,
                    QWidget* parent = nullptr);

    void SetDraft(const ExpenseEntryRules::Odometer& odometer);
    [[nodiscard]] ExpenseEntryRules::Odometer GetDraft() const;

    /// Refused in words, and the dialog stays open, while a number can't be read.
    void accept() override;
    void done(int result) override;

 private:
    [[nodiscard]] QLineEdit* AddReading(QGridLayout& form, Text label, const QString& name,
                                        CMnemonics& mnemonics);
    void AddDistance(QGridLayout& form, CMnemonics& mnemonics);
    void EnterReading();
    void EnterDistance();
    void ShowReadings(const ExpenseEntryRules::Odometer& odometer);
    void MarkNumbers();
    [[nodiscard]] QLineEdit* LineOf(DraftField place) const;

    RecordDialogContext m_context;
    CItemFields m_fields;
    QLineEdit* m_start = nullptr;
    QLineEdit* m_end = nullptr;
    CItemCombo* m_distance = nullptr;
    CItemCombo* m_rate = nullptr;
    bool m_isShowing = false;  ///< the readings are being set from here
};

/// Lets the user edit the readings; true when accepted, and only then they are changed.
[[nodiscard]] bool RunOdometerDialog(QWidget* parent, ExpenseEntryRules::Odometer& odometer,
                                     const QStringList& itemPath, const RecordDialogContext& context);
