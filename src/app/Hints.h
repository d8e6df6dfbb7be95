#pragma once

#include <QStringList>

/// What a notice to the views says. The numbers are fixed.
enum class Hint : int {
    Added = 0,
    Changed = 1,
    Deleted = 2,
    TimerStarted = 3,
    TimerPaused = 4,
    TimerStopped = 5,
    Rebuild = 6,  ///< views reload from the visible records
    ReportAboutToShow = 7,
    Clear = 9,  ///< the record set is being replaced: views drop their pointers
    SelectionChanged = 11,
    AboutToGo = 12,     ///< before a record is deleted
    AboutToChange = 14  ///< before a record is modified; carries the old identity
};

/// Hears of each change of the records. The document tells its one listener, the hub passes on to the
/// views, the status bar last.
class CViewListener {
 public:
    virtual ~CViewListener() = default;
    virtual void OnHint(Hint hint, const QStringList& ids) = 0;
};

/// For programs without views.
class CNoViews final : public CViewListener {
 public:
    void OnHint(Hint, const QStringList&) override {}
};
