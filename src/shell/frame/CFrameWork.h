#pragma once

#include "app/Hints.h"
#include "viewmodel/work/CRecentWork.h"
#include "viewmodel/work/WorkLine.h"
#include "viewmodel/work/WorkShown.h"

#include <QObject>
#include <optional>
#include <vector>

class CFrameRecords;
struct FrameContext;

/// What is worked on now and what next: the work bar with its commands, and the title of the window.
class CFrameWork final : public QObject {
    Q_OBJECT

 public:
    CFrameWork(const FrameContext& context, CFrameRecords& records, CRecentWork& recent);

    void OpenLine();
    void OpenRecent();
    /// A new record of today with what the selected one says, notes included.
    void ContinueSelected();
    void PauseOrGoOn();
    void Stop();
    void Open();

    void OnHint(Hint hint);
    /// A second has passed.
    void Tick();
    /// Timers may have come or gone.
    void Follow();

    [[nodiscard]] const std::vector<TimedWork>& Works() const { return m_works; }
    [[nodiscard]] std::vector<Work> RecentWorks();
    void Start(const Work& work);

 Q_SIGNALS:
    /// What runs, or its time.
    void Shown();

 private:
    void Connect();
    void Show();
    void ShowBar();
    [[nodiscard]] const CKnownWork& Known();
    void StartLine(const QString& line);
    void EndLine();
    void LeaveLine();
    void OpenRecord(const QString& id);

    const FrameContext& m_context;
    CFrameRecords& m_records;
    CRecentWork& m_recent;
    std::optional<CKnownWork> m_known;  ///< while a line is typed
    std::vector<TimedWork> m_works;
};
