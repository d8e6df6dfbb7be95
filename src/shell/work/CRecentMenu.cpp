#include "shell/work/CRecentMenu.h"

#include "lang/FormatText.h"

#include <QAction>
#include <QKeyEvent>
#include <optional>

namespace {

/// As many as there are digits.
constexpr std::size_t kMost = 9;
constexpr int kMostWidth = 480;

std::optional<int> DigitOf(const QKeyEvent& event) {
    const bool isPlain = (event.modifiers() & ~(Qt::ControlModifier | Qt::KeypadModifier)) == 0;
    if (!isPlain || event.key() < Qt::Key_1 || event.key() > Qt::Key_9) return std::nullopt;
    return event.key() - Qt::Key_1;
}

QString CaptionOf(const QMenu& menu, const Work& work, int number) {
    QString words = menu.fontMetrics().elidedText(WorkWords(work), Qt::ElideRight, kMostWidth);
    words.replace(u'&', QStringLiteral("&&"));
    const QString key = FormatText<Text::WorkRecentKey>(number);
    return words + u'\t' + QKeySequence(key, QKeySequence::PortableText).toString(QKeySequence::NativeText);
}

}  // namespace

CRecentMenu::CRecentMenu(QWidget* parent) : QMenu(parent) {
    setObjectName(QStringLiteral("recentMenu"));
    connect(this, &QMenu::aboutToShow, this, &CRecentMenu::Fill);
}

void CRecentMenu::Fill() {
    clear();
    std::vector<Work> works = m_recent ? m_recent() : std::vector<Work>();
    if (works.size() > kMost) works.resize(kMost);
    for (const Work& work : works) {
        QAction* action = addAction(CaptionOf(*this, work, static_cast<int>(actions().size()) + 1));
        connect(action, &QAction::triggered, this, [this, work] { Q_EMIT Chosen(work); });
    }
    if (works.empty()) addAction(LoadText(Text::WorkRecentEmpty))->setEnabled(false);
}

/// The digits are this menu's while it is open, whatever they are a shortcut of in the window.
bool CRecentMenu::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && DigitOf(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    return QMenu::event(event);
}

void CRecentMenu::keyPressEvent(QKeyEvent* event) {
    const std::optional<int> digit = DigitOf(*event);
    if (!digit || *digit >= actions().size() || !actions()[*digit]->isEnabled())
        return QMenu::keyPressEvent(event);
    QAction* action = actions()[*digit];
    close();
    action->trigger();
}
