#pragma once

#include "exchange/backup/BackupPlan.h"

#include <QDialog>

class QComboBox;
class QLineEdit;
class QSpinBox;

/// When backups are made by themselves, in which folder, and how many are kept.
class CBackupPlanDialog final : public QDialog {
    Q_OBJECT

 public:
    /// last: what is said of the last good backup.
    CBackupPlanDialog(const BackupPlan& plan, const QString& last, CPrompt& prompt, QWidget* parent);

    [[nodiscard]] BackupPlan GetPlan() const;
    /// A folder that isn't there can't be accepted.
    void accept() override;

 private:
    void ChooseFolder();
    void EnableFields();

    CPrompt& m_prompt;
    QComboBox* m_every;
    QLineEdit* m_folder;
    QSpinBox* m_keep;
};
