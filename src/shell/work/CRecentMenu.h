#pragma once

#include "viewmodel/work/Work.h"

#include <QMenu>
#include <functional>
#include <vector>

/// What was worked on last, to begin it anew. While it is open, a digit chooses, with Ctrl or without.
class CRecentMenu final : public QMenu {
    Q_OBJECT

 public:
    /// The newest first; asked for each time that the menu opens.
    using Recent = std::function<std::vector<Work>()>;

    explicit CRecentMenu(QWidget* parent = nullptr);
    void SetRecent(Recent recent) { m_recent = std::move(recent); }
    void Fill();

 Q_SIGNALS:
    void Chosen(const Work& work);

 protected:
    [[nodiscard]] bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    Recent m_recent;
};
