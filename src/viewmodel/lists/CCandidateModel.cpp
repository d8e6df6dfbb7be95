#include "viewmodel/lists/CCandidateModel.h"

#include "viewmodel/commands/WordSearch.h"
#include "viewmodel/lists/DraggedItems.h"

#include <QMimeData>
#include <algorithm>
#include <utility>

CCandidateModel::CCandidateModel(CDependencyEditor& editor, TakeOff takeOff, QObject* parent)
    : QAbstractListModel(parent), m_editor(editor), m_takeOff(std::move(takeOff)) {}

void CCandidateModel::Show(const Node* node) {
    beginResetModel();
    m_list = node ? m_editor.NextListOf(*node) : -1;
    m_texts = node ? m_editor.Candidates(*node) : QStringList();
    m_shown = FindByWords(m_texts, m_words);
    endResetModel();
}

void CCandidateModel::Narrow(const QString& words) {
    beginResetModel();
    m_words = words;
    m_shown = FindByWords(m_texts, m_words);
    endResetModel();
}

bool CCandidateModel::IsNarrowed() const {
    return std::ssize(m_shown) < m_texts.size();
}

const QString& CCandidateModel::TextAt(int row) const {
    return m_texts[m_shown[static_cast<std::size_t>(row)]];
}

QStringList CCandidateModel::Shown() const {
    QStringList texts;
    for (const int place : m_shown) texts += m_texts[place];
    return texts;
}

int CCandidateModel::RowOf(const QString& text) const {
    const auto shown = std::ranges::find_if(m_shown, [&](int place) { return m_texts[place] == text; });
    return shown == m_shown.end() ? -1 : static_cast<int>(shown - m_shown.begin());
}

int CCandidateModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_shown.size());
}

QVariant CCandidateModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    switch (role) {
        case Qt::DisplayRole:
            // A line break inside a text would make its line higher than the others.
            return TextAt(index.row()).simplified();
        case Qt::ToolTipRole:
        case Qt::AccessibleTextRole:
            return TextAt(index.row());
        default:
            return {};
    }
}

Qt::ItemFlags CCandidateModel::flags(const QModelIndex& index) const {
    return QAbstractListModel::flags(index) | Qt::ItemIsDropEnabled |
           (index.isValid() ? Qt::ItemIsDragEnabled : Qt::NoItemFlags);
}

QStringList CCandidateModel::mimeTypes() const {
    return {DraggedLine::Type()};
}

QMimeData* CCandidateModel::mimeData(const QModelIndexList& indexes) const {
    QStringList texts;
    for (const QModelIndex& index : indexes) texts += TextAt(index.row());
    return DraggedCandidates{m_list, texts}.ToMime();
}

bool CCandidateModel::canDropMimeData(const QMimeData* data, Qt::DropAction, int, int,
                                      const QModelIndex&) const {
    return data->hasFormat(DraggedLine::Type());
}

bool CCandidateModel::dropMimeData(const QMimeData* data, Qt::DropAction, int, int, const QModelIndex&) {
    const auto line = DraggedLine::FromMime(*data);
    return line && m_takeOff(line->path);
}
