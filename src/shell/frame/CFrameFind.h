#pragma once

#include "app/ExpenseFilter.h"
#include "app/TimeFilter.h"
#include "shell/frame/FrameContext.h"
#include "viewmodel/commands/CPeriodCommands.h"

#include <QObject>
#include <optional>

/// The search in the record list: the words narrow what the filter lets pass, or all records while it is
/// everywhere. Its end gives back the list as it was.
class CFrameFind final : public QObject {
    Q_OBJECT

 public:
    explicit CFrameFind(const FrameContext& context);

    void Open();
    void End();
    void ToggleEverywhere();
    /// The list was built anew. Where its filter is another one than the search set, the user wants that one.
    void OnRebuilt();
    /// Records came or went.
    void ShowFound();
    /// A report takes the place of the list and gives it back.
    void Hide(bool isHidden);

 private:
    /// The filters of both kinds, as they were before the search went beyond them.
    struct Filters {
        TimeFilter time;
        ExpenseFilter expenses;
    };
    void Narrow();
    void SetEverywhere(bool isEverywhere);
    void Apply(const Filters& filters);

    FrameContext m_context;
    CPeriodCommands m_period;
    std::optional<Filters> m_before;  ///< none while it keeps to the filter
};
