#include "shell/frame/CReportScreen.h"

#include "shell/commands/CCommandBars.h"
#include "viewmodel/program/CViewHub.h"

#include <QToolBar>

void CReportScreen::Begin() {
    if (!m_hidden)
        m_hidden = Hidden{.tree = m_parts.panes.GetTreeUse(),
                          .bar1 = !m_parts.bars.Records().isHidden(),
                          .bar2 = !m_parts.bars.Filters().isHidden(),
                          .statusBar = !m_parts.statusBar.isHidden()};
    HideAll();
    m_parts.bars.Report().show();
    m_parts.hub.NotifyViews(Hint::ReportAboutToShow, {});
}

void CReportScreen::HideAll() {
    m_parts.panes.Show(false);
    m_parts.bars.Records().hide();
    m_parts.bars.Filters().hide();
    m_parts.statusBar.hide();
}

void CReportScreen::End() {
    if (!m_hidden) return;
    m_parts.bars.Report().hide();
    m_parts.bars.Records().setVisible(m_hidden->bar1);
    m_parts.bars.Filters().setVisible(m_hidden->bar2);
    m_parts.statusBar.setVisible(m_hidden->statusBar);
    m_parts.panes.RestoreTreeUse(m_hidden->tree);
    m_hidden.reset();
}
