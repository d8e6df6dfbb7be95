#pragma once

#include "config/Settings.h"

#include <QTableView>

class CRecordDelegate;

/// Three records of four lines each as the list would draw them.
class CAppearancePreview final : public QTableView {
    Q_OBJECT

 public:
    explicit CAppearancePreview(QWidget* parent = nullptr);

    void SetDraft(const Settings& draft);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
    void changeEvent(QEvent* event) override;

 private:
    void ShowDraft();
    void FitRows();

    Settings m_draft;
    CRecordDelegate* m_painter;
};
