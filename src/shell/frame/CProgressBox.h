#pragma once

#include "changes/CProgress.h"

#include <QElapsedTimer>
#include <memory>

class QProgressDialog;
class QWidget;

/// Progress in a box with Cancel, which appears only when the work takes longer than a moment.
class CProgressBox final : public CProgress {
 public:
    explicit CProgressBox(QWidget& parent);
    ~CProgressBox() override;

    void Begin(const QString& what, int steps) override;
    [[nodiscard]] bool Advance() override;
    void End() override;

 private:
    QWidget& m_parent;
    std::unique_ptr<QProgressDialog> m_box;
    QElapsedTimer m_begun;
};
