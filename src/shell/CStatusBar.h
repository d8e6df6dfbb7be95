#pragma once

#include "app/Hints.h"
#include "shell/core/StatusSums.h"

#include <QStatusBar>
#include <functional>

class CElidedLabel;
class CVelmarchDoc;
class QLabel;

/// What is shown, in one row: the mode; the period with day and week; number and sums of the selected
/// records, or of all listed ones without a selection.
class CStatusBar final : public QStatusBar, public CViewNotifier {
    Q_OBJECT

 public:
    /// selection: identities of the selected records.
    CStatusBar(const CVelmarchDoc& document, std::function<QStringList()> selection,
               QWidget* parent = nullptr);

    void NotifyViews(Hint hint, const QStringList& ids) override;

 protected:
    void changeEvent(QEvent* event) override;

 private:
    void ShowMode();
    void ShowModePicture();
    void ShowPeriod();
    void ShowSums();
    void ClearAll();
    void ApplyLook();

    const CVelmarchDoc& m_document;
    std::function<QStringList()> m_selection;
    StatusSums
        m_listSums;  ///< of all listed records; kept, so that a new selection doesn't add them up again
    bool m_listSumsKnown = false;
    QLabel* m_modePicture;
    CElidedLabel* m_mode;
    CElidedLabel* m_period;
    CElidedLabel* m_sums;
};
