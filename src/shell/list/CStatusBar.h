#pragma once

#include "app/Hints.h"
#include "viewmodel/list/CWorkedTotals.h"
#include "viewmodel/list/StatusSums.h"

#include <QStatusBar>
#include <QTimer>
#include <functional>
#include <optional>

class CElidedLabel;
class CVelmarchDoc;
class CVORec;
class QLabel;

/// What is shown, in one row: the mode; the period with day and week; number and sums of the selected
/// records, or without a selection of all that the list shows, be it narrowed by words; of time records the
/// hours of today and this week.
class CStatusBar final : public QStatusBar, public CViewListener {
    Q_OBJECT

 public:
    struct Records {
        std::function<int()> count;  ///< costs nothing
        std::function<void(const std::function<void(const CVORec&)>& visit)> each;
    };
    /// Those of the list, and which of them are selected; in a list that isn't in front none is. With no
    /// record or every one selected the sums of all listed ones serve, which are known already.
    struct List {
        Records listed;
        Records selected;
    };
    CStatusBar(CVelmarchDoc& document, List list, QWidget* parent = nullptr);

    void OnHint(Hint hint, const QStringList& ids) override;
    /// The list shows other records. They are added up once it stands still: not at each key of who types.
    void FollowList();
    /// The hours worked today, as a text; of the time records in memory.
    [[nodiscard]] QString HoursToday() const;

 protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

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
    List m_list;
    QTimer m_listStands;
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
