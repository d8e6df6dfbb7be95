#pragma once

#include "app/Hints.h"

#include <vector>

/// The one path from a change to the screen: the document speaks to the hub, the hub to the views in the
/// order in which they came, the status bar last.
class CViewHub final : public CViewNotifier {
 public:
    void Attach(CViewNotifier& view) { m_views.push_back(&view); }
    void Detach(CViewNotifier& view) { std::erase(m_views, &view); }
    void NotifyViews(Hint hint, const QStringList& ids) override {
        const std::vector<CViewNotifier*> views = m_views;
        for (CViewNotifier* view : views) view->NotifyViews(hint, ids);
    }

 private:
    std::vector<CViewNotifier*> m_views;
};
