#include "shell/controls/CPickEdit.h"

#include "lang/LoadText.h"
#include "shell/look/FormRows.h"
#include "shell/look/PopupPlace.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QToolButton>

namespace {

struct StepKey {
    int key;
    int steps;
    bool isLarge;
};
constexpr StepKey kStepKeys[] = {
    {Qt::Key_Up, 1, false},
    {Qt::Key_Down, -1, false},
    {Qt::Key_PageUp, 1, true},
    {Qt::Key_PageDown, -1, true},
};

const StepKey* FindStep(const QKeyEvent& event) {
    if (event.modifiers() & ~Qt::KeypadModifier) return nullptr;
    for (const StepKey& row : kStepKeys)
        if (row.key == event.key()) return &row;
    return nullptr;
}

/// Whether a key would change the text.
bool Changes(const QKeyEvent& event) {
    if (event.matches(QKeySequence::Paste) || event.matches(QKeySequence::Cut)) return true;
    if (event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete) return true;
    const bool isCommand = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return !isCommand && !event.text().isEmpty() && event.text().front().isPrint();
}

}  // namespace

CPickEdit::CPickEdit(const QString& forms, QWidget* parent)
    : QLineEdit(parent), m_button(new QToolButton(this)), m_forms(forms) {
    m_button->setArrowType(Qt::DownArrow);
    m_button->setAutoRaise(true);
    m_button->setFocusPolicy(Qt::NoFocus);
    m_button->setCursor(Qt::ArrowCursor);
    m_button->setToolTip(LoadText(Text::OpenPicker));
    NameWidget(*m_button, QStringLiteral("pickButton"), LoadText(Text::OpenPicker));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addStretch();
    row->addWidget(m_button);
    setTextMargins(0, 0, m_button->sizeHint().width(), 0);
    setToolTip(m_forms);
    connect(m_button, &QToolButton::clicked, this, &CPickEdit::OpenPopup);
    connect(this, &QLineEdit::textChanged, this, &CPickEdit::TakeText);
    connect(this, &QLineEdit::editingFinished, this, [this] {
        if (m_isTouched) Q_EMIT Settled();
    });
}

void CPickEdit::Lock(const QString& reason) {
    setReadOnly(!reason.isEmpty());
    setToolTip(reason.isEmpty() ? m_forms : reason);
    setAccessibleDescription(reason);
    QPalette look;
    if (IsLocked()) look.setBrush(QPalette::Base, look.window());
    setPalette(IsLocked() ? look : QPalette());
}

void CPickEdit::OpenPopup() {
    if (IsLocked()) {
        Q_EMIT EntryTried();
        return;
    }
    setFocus(Qt::PopupFocusReason);
    ShowPopup(*MakePopup(), *this);
}

void CPickEdit::keyPressEvent(QKeyEvent* event) {
    if (IsLocked() && (Changes(*event) || FindStep(*event) || OpensPopup(*event))) {
        event->accept();
        Q_EMIT EntryTried();
        return;
    }
    if (TryPickKeys(*event))
        event->accept();
    else
        QLineEdit::keyPressEvent(event);
}

bool CPickEdit::TryPickKeys(const QKeyEvent& event) {
    if (OpensPopup(event)) {
        OpenPopup();
        return true;
    }
    const StepKey* step = FindStep(event);
    if (step) StepBy(step->steps, step->isLarge);
    return step != nullptr;
}

void CPickEdit::ShowText(const QString& text) {
    m_isTouched = false;
    m_isStepped = false;
    m_isReadable = true;
    m_shownText = text;
    // An equal text isn't set again, which would lose the cursor and what is selected.
    if (text != this->text()) {
        const QScopedValueRollback showing(m_isShowing, true);
        setText(text);
    }
    MarkUnreadable(*this, false, {});
}

void CPickEdit::PutText(const QString& text) {
    const QScopedValueRollback showing(m_isShowing, true);
    setText(text);
    selectAll();
}

void CPickEdit::EnterText(const QString& text) {
    PutText(text);
    Reread();
}

void CPickEdit::EnterStep(const QString& text) {
    PutText(text);
    m_isTouched = m_isStepped = m_isReadable = true;
    MarkUnreadable(*this, false, {});
    Q_EMIT Entered();
}

/// Typed, or put in by a screen reader, which asks no key handler whether the field is locked.
void CPickEdit::TakeText() {
    if (m_isShowing) return;
    if (!IsLocked()) return Reread();
    ShowText(m_shownText);
    Q_EMIT EntryTried();
}

void CPickEdit::Reread() {
    m_isTouched = true;
    m_isStepped = false;
    m_isReadable = ReadText();
    MarkUnreadable(*this, !m_isReadable, m_isReadable ? QString() : WhyUnreadable());
    Q_EMIT Entered();
}
