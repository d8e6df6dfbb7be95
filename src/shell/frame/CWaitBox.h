#pragma once

#include "platform/host/CWaitBudget.h"

#include <QTimer>
#include <memory>

class QProgressDialog;

/// Says what the program waits for when another one has the store or the settings in use, with Cancel, once
/// the wait takes longer than a moment. While the box stands the window goes on being drawn, and nothing else
/// can be done in it.
class CWaitBox final : public CWaitListener {
 public:
    /// The budget must outlive the box, which is asked by it as long as it lives.
    explicit CWaitBox(CWaitBudget& budget);
    ~CWaitBox() override;
    CWaitBox(const CWaitBox&) = delete;
    CWaitBox& operator=(const CWaitBox&) = delete;

    [[nodiscard]] Choice OnWaiting(const QString& what, std::chrono::milliseconds waited) override;

 private:
    void Show(const QString& what);
    void CloseWhenOver();

    CWaitBudget& m_budget;
    std::unique_ptr<QProgressDialog> m_box;
    QTimer m_over;  ///< looks whether the wait is over
};
