#include "shell/lists/CCandidatePane.h"

#include "lang/LoadText.h"
#include "records/CVORec.h"
#include "shell/look/CPlainTipDelegate.h"
#include "shell/look/FormRows.h"
#include "viewmodel/lists/CCandidateModel.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <algorithm>

namespace {

bool MovesInList(const QKeyEvent& key) {
    switch (key.key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            return (key.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) == Qt::NoModifier;
        default:
            return false;
    }
}

}  // namespace

CCandidatePane::CCandidatePane(CCandidateModel& items, QObject* parent)
    : QObject(parent),
      m_items(items),
      m_heading(new QLabel),
      m_search(new QLineEdit),
      m_list(new QListView),
      m_note(new QLabel) {
    m_heading->setObjectName(QStringLiteral("candidateHeading"));
    m_heading->setBuddy(m_list);
    LimitLength(*m_search, kTextLength);
    m_search->setPlaceholderText(LoadText(Text::DepSearch));
    m_search->setClearButtonEnabled(true);
    m_search->installEventFilter(this);
    NameWidget(*m_search, QStringLiteral("candidateSearch"), LoadText(Text::DepSearch));
    MakeList();
    m_note->setObjectName(QStringLiteral("candidateNote"));
    m_note->setWordWrap(true);
    m_note->hide();
    connect(m_search, &QLineEdit::textChanged, this, &CCandidatePane::Narrow);
}

/// Of one height, so that a list of 50,000 shows as fast as one of ten.
void CCandidatePane::MakeList() {
    NameWidget(*m_list, QStringLiteral("candidates"), LoadText(Text::DepCandidates));
    m_list->setModel(&m_items);
    m_list->setItemDelegate(new CPlainTipDelegate(this));
    m_list->setUniformItemSizes(true);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setTextElideMode(Qt::ElideRight);
    m_list->setDragDropMode(QAbstractItemView::DragDrop);
    m_list->setDefaultDropAction(Qt::MoveAction);
    m_list->setDropIndicatorShown(false);  // its order is that of the list
    connect(m_list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &CCandidatePane::SelectionMoved);
}

void CCandidatePane::ShowHeading(const QString& heading, const QString& marked) {
    m_heading->setText(marked);
    m_list->setAccessibleName(heading.isEmpty() ? LoadText(Text::DepCandidates) : heading);
}

void CCandidatePane::ShowNote(const QString& note) {
    m_note->setText(note);
    m_note->setVisible(!note.isEmpty());
}

QStringList CCandidatePane::Selected() const {
    std::vector<int> rows;
    for (const QModelIndex& index : m_list->selectionModel()->selectedRows()) rows.push_back(index.row());
    std::ranges::sort(rows);
    QStringList texts;
    for (const int row : rows) texts += m_items.TextAt(row);
    return texts;
}

int CCandidatePane::FirstSelected() const {
    int first = -1;
    for (const QItemSelectionRange& range : m_list->selectionModel()->selection())
        if (first < 0 || range.top() < first) first = range.top();
    return first;
}

void CCandidatePane::SelectRow(int row) {
    const int last = m_items.rowCount() - 1;
    if (row < 0 || last < 0) return;
    m_list->setCurrentIndex(m_items.index(std::min(row, last)));
}

bool CCandidatePane::SelectText(const QString& text) {
    if (m_items.RowOf(text) < 0) m_search->clear();
    const int row = m_items.RowOf(text);
    SelectRow(row);
    return row >= 0;
}

QString CCandidatePane::Typed() const {
    return m_search->text();
}

/// The first item found is selected, so that Enter takes it. Without words none is.
void CCandidatePane::Narrow(const QString& words) {
    m_items.Narrow(words);
    if (!words.trimmed().isEmpty()) SelectRow(0);
    Q_EMIT SelectionMoved();
}

bool CCandidatePane::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !MovesInList(static_cast<QKeyEvent&>(*event)))
        return QObject::eventFilter(watched, event);
    QCoreApplication::sendEvent(m_list, event);
    return true;
}
