#pragma once

#include "shell/frame/CPanes.h"

#include <functional>
#include <optional>

class CCommandBars;
class CViewHub;
class QToolBar;

/// A report takes the window: the data tree, both bars of the records and the status bar are hidden, and the
/// bar of the report is shown, until it is closed. Then the window is exactly as it was.
class CReportScreen {
 public:
    /// All must outlive it.
    struct Parts {
        CPanes& panes;
        CCommandBars& bars;
        QWidget& statusBar;
        CViewHub& hub;
    };
    explicit CReportScreen(const Parts& parts) : m_parts(parts) {}

    /// The views are told that a report is about to be shown. What is hidden already stays noted as it was
    /// before the first of several reports.
    void Begin();
    void End();
    [[nodiscard]] bool IsShown() const { return m_hidden.has_value(); }

 private:
    /// What was there before.
    struct Hidden {
        CPanes::TreeUse tree;
        bool bar1 = true;
        bool bar2 = true;
        bool statusBar = true;
    };
    void HideAll();

    Parts m_parts;
    std::optional<Hidden> m_hidden;
};
