#pragma once

#include "app/Hints.h"
#include "viewmodel/list/CWorkedTotals.h"
#include "viewmodel/list/StatusSums.h"

#include <QStatusBar>
#include <functional>
#include <optional>

class CElidedLabel;
class CVelmarchDoc;
class CVORec;
class QLabel;

/// What is shown, in one row: the mode; the period with day and week; number and sums of the selected
/// records, or of all listed ones without a selection; of time records the hours of today and this week.
class CStatusBar final : public QStatusBar, public CViewListener {
    Q_OBJECT

 public:
    /// The selection of the list; a list that isn't in front has none. The number costs nothing, so that with
    /// no record or every one selected the sums of all listed ones serve, which are known already.
    struct Selection {
        std::function<int()> count;
        std::function<void(const std::function<void(const CVORec&)>& visit)> each;
    };
    CStatusBar(CVelmarchDoc& document, Selection selection, QWidget* parent = nullptr);

    void OnHint(Hint hint, const QStringList& ids) override;
    /// The hours worked today, as a text; of the time records in memory.
    [[nodiscard]] QString HoursToday() const;

 protected:
    void changeEvent(QEvent* event) override;

 private:
    void ShowMode();
    void ShowModePicture();
    void ShowPeriod();
    void ShowSums();
    void ShowSumsOf(const StatusSums& sums, bool isSelection);
    [[nodiscard]] const StatusSums& ListSums();
    void SayOfCutDistances();
    [[nodiscard]] StatusSums SelectionSums() const;
    void ShowWorked();
    void ClearAll();
    void ApplyLook();

    CVelmarchDoc& m_document;
    Selection m_selection;
    CWorkedTotals m_worked;
    /// Of all listed records; kept, so that a new selection doesn't add them up again.
    std::optional<StatusSums> m_listSums;
    bool m_hasSaidOfCut = false;
    QLabel* m_modePicture;
    CElidedLabel* m_mode;
    CElidedLabel* m_period;
    CElidedLabel* m_count;
    QLabel* m_sumsPicture;
    CElidedLabel* m_sums;
    CElidedLabel* m_today;
    CElidedLabel* m_week;
};
