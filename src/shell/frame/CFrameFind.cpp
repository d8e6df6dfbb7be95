#include "shell/frame/CFrameFind.h"

#include "app/CVelmarchDoc.h"
#include "shell/frame/CFrameControl.h"
#include "shell/list/CListFindBar.h"
#include "shell/list/CRecordListView.h"

CFrameFind::CFrameFind(const FrameContext& context) : m_context(context), m_period(context.document) {
    CListFindBar& bar = m_context.findBar;
    connect(&bar, &CListFindBar::WordsChanged, this, &CFrameFind::Narrow);
    connect(&bar, &CListFindBar::EverywhereChanged, this, &CFrameFind::SetEverywhere);
    connect(&bar, &CListFindBar::CloseWanted, this, &CFrameFind::End);
    connect(&bar, &CListFindBar::ListWanted, &context.view, [this] { m_context.view.setFocus(); });
    connect(&context.view, &CRecordListView::FindEndWanted, this, &CFrameFind::End);
}

void CFrameFind::Open() {
    m_context.findBar.Open();
    ShowFound();
}

/// First the rows of all words, then those of the filter: the selection of the list finds its rows there.
void CFrameFind::End() {
    if (m_context.findBar.isHidden()) return;
    m_context.findBar.Close();
    m_context.view.setFocus();
}

void CFrameFind::Narrow() {
    m_context.view.Find(m_context.findBar.Words());
    m_context.control.FollowList();
    ShowFound();
}

void CFrameFind::ShowFound() {
    m_context.findBar.ShowFound(m_context.view.ShownCount());
}

void CFrameFind::ToggleEverywhere() {
    m_context.findBar.SetEverywhere(!m_context.findBar.IsEverywhere());
}

void CFrameFind::SetEverywhere(bool isEverywhere) {
    if (isEverywhere == m_before.has_value()) return;
    if (isEverywhere) {
        m_before = {m_context.document.Filter(), m_context.document.FilterOfExpenses()};
        return Apply({});
    }
    const Filters before = *m_before;
    m_before.reset();
    Apply(before);
}

void CFrameFind::Apply(const Filters& filters) {
    m_context.document.Filter() = filters.time;
    m_context.document.FilterOfExpenses() = filters.expenses;
    if (theRecordMode == RecordMode::Time)
        m_period.ApplyFilter(filters.time);
    else
        m_period.ApplyFilter(filters.expenses);
}

void CFrameFind::OnRebuilt() {
    const bool isUnfiltered = m_context.document.Filter() == TimeFilter() &&
                              m_context.document.FilterOfExpenses() == ExpenseFilter();
    if (m_before && !isUnfiltered) {
        if (m_context.document.Filter() == TimeFilter()) m_context.document.Filter() = m_before->time;
        if (m_context.document.FilterOfExpenses() == ExpenseFilter())
            m_context.document.FilterOfExpenses() = m_before->expenses;
        m_before.reset();
        m_context.findBar.SetEverywhere(false);
    }
    ShowFound();
}

void CFrameFind::Hide(bool isHidden) {
    if (isHidden)
        m_context.findBar.hide();
    else
        m_context.findBar.setVisible(!m_context.findBar.Words().isEmpty() || m_before);
}
