#pragma once

#include "app/Hints.h"

#include <vector>

/// The one path from a change to the screen: the document speaks to the hub, the hub to the views in the
/// order in which they came, the status bar last.
class CViewHub final : public CViewListener {
 public:
    void Attach(CViewListener& view) { m_views.push_back(&view); }
    void Detach(CViewListener& view) { std::erase(m_views, &view); }
    void OnHint(Hint hint, const QStringList& ids) override { NotifyViews(hint, ids); }
    void NotifyViews(Hint hint, const QStringList& ids) {
        const std::vector<CViewListener*> views = m_views;
        for (CViewListener* view : views) view->OnHint(hint, ids);
    }

 private:
    std::vector<CViewListener*> m_views;
};
