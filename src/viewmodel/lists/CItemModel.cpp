#include "viewmodel/lists/CItemModel.h"

#include "lang/FormatText.h"
#include "viewmodel/commands/WordSearch.h"

#include <algorithm>
#include <utility>

void CItemModel::SetItems(QStringList texts, std::optional<CItemUse> use) {
    beginResetModel();
    m_texts = std::move(texts);
    m_use = std::move(use);
    ShowFound();
    endResetModel();
}

void CItemModel::Narrow(const QString& words) {
    beginResetModel();
    m_words = words;
    ShowFound();
    endResetModel();
}

void CItemModel::ShowFound() {
    m_shown = FindByWords(m_texts, m_words);
}

QString CItemModel::TextAt(int row) const {
    return m_texts[m_shown[static_cast<std::size_t>(row)]];
}

QModelIndex CItemModel::IndexOf(const QString& text) const {
    const auto found = std::ranges::find(m_shown, text, [this](int place) { return m_texts[place]; });
    return found == m_shown.end() ? QModelIndex() : index(static_cast<int>(found - m_shown.begin()), 0);
}

int CItemModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_shown.size());
}

int CItemModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : SectionCount;
}

QString CItemModel::UseOf(const QString& text) const {
    if (!m_use) return {};
    const int records = m_use->Of(text);
    if (records == 0) return LoadText(Text::ItemUsedByNone);
    return records == 1 ? LoadText(Text::ItemUsedByOne) : FormatText<Text::ItemUsedByMany>(records);
}

QVariant CItemModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const QString text = TextAt(index.row());
    const bool isText = index.column() == TextSection;
    switch (role) {
        case Qt::DisplayRole:
            return isText ? text : UseOf(text);
        case Qt::AccessibleTextRole: {
            // Each cell tells the whole row, as the cursor is on rows: "Acme, used by 12 records".
            const QString use = UseOf(text);
            return use.isEmpty() ? text : text + QStringLiteral(", ") + use;
        }
        case Qt::TextAlignmentRole:
            return isText ? QVariant() : QVariant(Qt::AlignRight | Qt::AlignVCenter);
        default:
            return {};
    }
}

QVariant CItemModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
    return LoadText(section == TextSection ? Text::ItemColumn : Text::ItemUseColumn);
}
