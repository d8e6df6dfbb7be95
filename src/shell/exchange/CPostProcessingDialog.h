#pragma once

#include "exchange/export/PostProcessing.h"

#include <QDialog>

class CProfile;
class QButtonGroup;

/// What shall become of records that were exported. Each choice is noted at once and offered the next time,
/// but for deleting; the choice that is marked stands however the dialog is left.
class CPostProcessingDialog final : public QDialog {
    Q_OBJECT

 public:
    CPostProcessingDialog(int records, const QString& path, CProfile& profile, QWidget* parent = nullptr);
    [[nodiscard]] AfterExport Choice() const;

 private:
    QButtonGroup* m_choices;
};
