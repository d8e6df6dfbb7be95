#pragma once

#include "shell/frame/CFrameFilters.h"
#include "shell/frame/CFrameRecords.h"
#include "shell/frame/CFrameViews.h"
#include "shell/frame/FrameContext.h"
#include "viewmodel/commands/CommandTable.h"

/// Carries out the commands of the window: a table from what a command runs to the operation that does it.
class CFrameCommands {
 public:
    using Context = FrameContext;
    /// The bars take the buttons that the user has chosen.
    explicit CFrameCommands(Context context);
    CFrameCommands(const CFrameCommands&) = delete;
    CFrameCommands& operator=(const CFrameCommands&) = delete;

    void Run(const CommandRow& row);
    /// Edits one record through the dialog and stores it.
    void EditRecord(const QString& id) { m_records.Edit(id); }
    /// After the user has changed the width of a column.
    void PersistLayout() { m_views.PersistLayout(); }
    [[nodiscard]] CPeriodCommands& Period() { return m_filters.Period(); }
    /// The part of the state that commands know: mode, period, conditions, tree, and what the window has.
    void Describe(CommandState& state) const;

    /// Whether something can carry it out; for the test over the command table.
    [[nodiscard]] static bool HasHandler(::Run run);

 private:
    using Handler = void (*)(CFrameCommands& commands, int argument);
    [[nodiscard]] static Handler HandlerOf(::Run run);
    void DescribeTree(CommandState& state) const;

    Context m_context;
    CFrameRecords m_records;
    CFrameViews m_views;
    CFrameFilters m_filters;
};
