#include "shell/work/CWorkLine.h"

#include "lang/LoadText.h"
#include "shell/look/FormRows.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QStringListModel>

namespace {

constexpr int kMostCharacters = 1000;
constexpr int kMostRows = 12;

bool IsReturn(int key) {
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

}  // namespace

CWorkLine::CWorkLine(QWidget* parent)
    : QLineEdit(parent), m_model(new QStringListModel(this)), m_completer(new QCompleter(m_model, this)) {
    NameWidget(*this, QStringLiteral("workLine"), LoadText(Text::WorkLineName));
    setPlaceholderText(LoadText(Text::WorkLineHint));
    setToolTip(LoadText(Text::WorkLineHelp));
    LimitLength(*this, kMostCharacters);
    m_completer->setWidget(this);
    // Without a prefix all that is offered is shown, and nothing is chosen beforehand.
    m_completer->setCompletionMode(QCompleter::PopupCompletion);
    m_completer->setMaxVisibleItems(kMostRows);
    m_completer->popup()->installEventFilter(this);
    connect(this, &QLineEdit::textEdited, this, &CWorkLine::Offer);
    connect(m_completer, qOverload<const QModelIndex&>(&QCompleter::activated), this,
            [this](const QModelIndex& index) { Choose(index.row()); });
}

void CWorkLine::Offer() {
    m_offered = m_propose ? m_propose(text()) : std::vector<WorkProposal>();
    QStringList lines;
    for (const WorkProposal& proposal : m_offered) lines << proposal.line;
    m_model->setStringList(lines);
    if (lines.isEmpty())
        m_completer->popup()->hide();
    else
        m_completer->complete();
}

/// Into the line, for more to be typed behind it.
void CWorkLine::Take(int proposal) {
    setText(m_offered[static_cast<std::size_t>(proposal)].line);
    m_completer->popup()->hide();
}

/// A work that was done before says all there is to say.
void CWorkLine::Choose(int proposal) {
    if (proposal < 0 || proposal >= static_cast<int>(m_offered.size())) return;
    const bool isWhole = m_offered[static_cast<std::size_t>(proposal)].isWhole;
    Take(proposal);
    if (isWhole) Start();
}

void CWorkLine::Start() {
    m_completer->popup()->hide();
    const QString line = text().trimmed();
    if (!line.isEmpty()) Q_EMIT StartWanted(line);
}

int CWorkLine::Chosen() const {
    const QAbstractItemView& popup = *m_completer->popup();
    return popup.isVisible() && popup.currentIndex().isValid() ? popup.currentIndex().row() : -1;
}

/// False where Tab has nothing to take and goes on to the next widget.
bool CWorkLine::Complete() {
    if (!m_completer->popup()->isVisible()) return false;
    const int chosen = Chosen() < 0 && m_offered.size() == 1 ? 0 : Chosen();
    if (chosen < 0) return false;
    Take(chosen);
    return true;
}

/// Keys in the list of proposals.
bool CWorkLine::TakeKey(int key) {
    if (key == Qt::Key_Tab) return Complete();
    if (!IsReturn(key)) return false;
    Chosen() < 0 ? Start() : Choose(Chosen());
    return true;
}

bool CWorkLine::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_completer->popup() && event->type() == QEvent::KeyPress &&
        TakeKey(static_cast<QKeyEvent*>(event)->key()))
        return true;
    return QLineEdit::eventFilter(watched, event);
}

/// Return and Escape are this line's, whatever they are a shortcut of elsewhere.
bool CWorkLine::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Escape || IsReturn(key)) {
            event->accept();
            return true;
        }
    }
    return QLineEdit::event(event);
}

void CWorkLine::keyPressEvent(QKeyEvent* event) {
    if (IsReturn(event->key())) return Start();
    if (event->key() == Qt::Key_Down && !m_completer->popup()->isVisible()) return Offer();
    if (event->key() != Qt::Key_Escape) return QLineEdit::keyPressEvent(event);
    clear();
    Q_EMIT Left();
}

void CWorkLine::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    const bool goesElsewhere =
        event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason;
    if (goesElsewhere && text().trimmed().isEmpty()) Q_EMIT Left();
}
