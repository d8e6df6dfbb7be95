#include "shell/controls/CItemCombo.h"

#include "records/CVORec.h"
#include "shell/look/FormRows.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QStringListModel>
#include <QToolTip>
#include <QWheelEvent>

namespace {

/// A field is this wide at least, however long the items are.
constexpr int kLeastCharacters = 12;
constexpr int kMostProposals = 8;

/// Whether a word of the text, or of several, begins with what was typed.
bool BeginsWordOf(const QString& text, const QString& typed) {
    for (qsizetype at = text.indexOf(typed, 0, Qt::CaseInsensitive); at >= 0;
         at = text.indexOf(typed, at + 1, Qt::CaseInsensitive))
        if (at == 0 || !text[at - 1].isLetterOrNumber()) return true;
    return false;
}

}  // namespace

CItemCombo::CItemCombo(Offer offer, WhyEmpty whyEmpty, QWidget* parent)
    : QComboBox(parent),
      m_offer(std::move(offer)),
      m_whyEmpty(std::move(whyEmpty)),
      m_offered(new QStringListModel(this)),
      m_completer(new QCompleter(m_offered, this)) {
    setModel(m_offered);
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(kLeastCharacters);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    view()->setTextElideMode(Qt::ElideRight);
    LimitLength(*lineEdit(), kTextLength);
    BuildProposals();
    connect(lineEdit(), &QLineEdit::textChanged, this, [this] {
        if (!m_isShowing) Q_EMIT Edited();
    });
}

void CItemCombo::BuildProposals() {
    // The box's own completion would put an item's spelling in place of what was typed.
    setCompleter(nullptr);
    m_completer->setWidget(this);
    m_completer->setCaseSensitivity(Qt::CaseInsensitive);
    m_completer->setFilterMode(Qt::MatchContains);
    m_completer->setMaxVisibleItems(kMostProposals);
    m_completer->popup()->installEventFilter(this);
    connect(lineEdit(), &QLineEdit::textEdited, this, &CItemCombo::Propose);
    connect(m_completer, qOverload<const QString&>(&QCompleter::activated), this, &CItemCombo::TakeProposal);
}

void CItemCombo::ShowText(const QString& text) {
    const QScopedValueRollback showing(m_isShowing, true);
    setCurrentIndex(-1);
    setEditText(text);
}

/// The text stays whatever is offered; where it is offered, it is the current entry.
void CItemCombo::Fill() {
    const QScopedValueRollback showing(m_isShowing, true);
    const QString held = currentText();
    const QStringList texts = m_offer();
    const auto index = static_cast<int>(texts.indexOf(held));
    if (texts == m_offered->stringList() && index == currentIndex()) return;
    const int cursor = lineEdit()->cursorPosition();
    const int start = lineEdit()->selectionStart();
    const int length = lineEdit()->selectionLength();
    m_offered->setStringList(texts);
    setCurrentIndex(index);
    setEditText(held);
    lineEdit()->setCursorPosition(cursor);
    if (start >= 0) lineEdit()->setSelection(start, length);
}

void CItemCombo::showPopup() {
    Fill();
    m_completer->popup()->hide();
    if (count() > 0)
        QComboBox::showPopup();
    else if (m_whyEmpty)
        QToolTip::showText(mapToGlobal(QPoint(0, height() / 2)), m_whyEmpty(), this);
}

void CItemCombo::focusInEvent(QFocusEvent* event) {
    // Not when a popup of this field closes.
    if (event->reason() != Qt::PopupFocusReason) Fill();
    QComboBox::focusInEvent(event);
}

void CItemCombo::keyPressEvent(QKeyEvent* event) {
    // These go from entry to entry, without the list being open.
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) Fill();
    QComboBox::keyPressEvent(event);
}

void CItemCombo::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

void CItemCombo::Propose() {
    const QString text = currentText();
    m_completer->setCompletionPrefix(text);
    const bool isEntered = m_completer->completionCount() == 1 && m_completer->currentCompletion() == text;
    if (text.isEmpty() || isEntered)
        m_completer->popup()->hide();
    else
        m_completer->complete();
}

void CItemCombo::TakeProposal(const QString& text) {
    lineEdit()->setText(text);
    lineEdit()->selectAll();
}

/// The chosen proposal, or the only one; empty where what was typed stays.
QString CItemCombo::ProposalForTab() const {
    const QModelIndex chosen = m_completer->popup()->currentIndex();
    if (chosen.isValid()) return chosen.data().toString();
    if (m_completer->completionCount() != 1) return {};
    const QString typed = currentText();
    const QString only = m_completer->currentCompletion();
    return only.compare(typed, Qt::CaseInsensitive) != 0 && BeginsWordOf(only, typed) ? only : QString();
}

/// Keys in the list of proposals: Return without a chosen one is Return in the field, and Tab takes one
/// along.
bool CItemCombo::eventFilter(QObject* watched, QEvent* event) {
    QAbstractItemView* popup = m_completer->popup();
    if (watched != popup || event->type() != QEvent::KeyPress) return QComboBox::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    const QModelIndex chosen = popup->currentIndex();
    if (key == Qt::Key_Tab) {
        if (const QString proposal = ProposalForTab(); !proposal.isEmpty()) TakeProposal(proposal);
    }
    if ((key != Qt::Key_Return && key != Qt::Key_Enter) || chosen.isValid()) return false;
    popup->hide();
    QApplication::sendEvent(this, event);
    return true;
}
