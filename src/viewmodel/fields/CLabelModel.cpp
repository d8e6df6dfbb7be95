#include "viewmodel/fields/CLabelModel.h"

#include "app/FieldLabels.h"
#include "lang/FormatText.h"
#include "lists/LabelChanges.h"
#include "lists/LabelSets.h"

CLabelModel::CLabelModel(RecordMode mode, const FieldLabels& labels, CLabelEditor& editor, QObject* parent)
    : QAbstractTableModel(parent), m_mode(mode), m_labels(labels), m_editor(editor) {}

int CLabelModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(LabelRows(m_mode).size());
}

int CLabelModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumns;
}

const LabelRow& CLabelModel::RowOf(const QModelIndex& index) const {
    return LabelRows(m_mode)[static_cast<std::size_t>(index.row())];
}

int CLabelModel::FieldOf(const QModelIndex& index) const {
    return index.column() == kHeading ? RowOf(index).first : RowOf(index).second;
}

Qt::ItemFlags CLabelModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.isValid() && index.column() != kField ? flags | Qt::ItemIsEditable : flags;
}

QString CLabelModel::NameIn(const QModelIndex& index) const {
    return index.column() == kField ? LoadText(RowOf(index).title) : ShownLabel(m_labels, FieldOf(index));
}

/// Grey is nothing that can be heard.
QString CLabelModel::InWords(const QModelIndex& index) const {
    QString name = NameIn(index);
    if (index.column() == kField) return name;
    return m_labels.Own(FieldOf(index)).isEmpty() ? FormatText<Text::NamesCellDefault>(name)
                                                  : FormatText<Text::NamesCellOwn>(name);
}

QVariant CLabelModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    switch (role) {
        case Qt::DisplayRole:
            return NameIn(index);
        case Qt::EditRole:
            return index.column() == kField ? NameIn(index) : m_labels.Own(FieldOf(index));
        case Qt::AccessibleTextRole:
            return InWords(index);
        case kIsDefaultRole:
            return index.column() != kField && m_labels.Own(FieldOf(index)).isEmpty();
        default:
            return {};
    }
}

QVariant CLabelModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    switch (section) {
        case kField:
            return LoadText(m_mode == RecordMode::Time ? Text::HeaderTimeField : Text::HeaderExpenseField);
        case kHeading:
            return LoadText(Text::HeaderFirstLabel);
        case kName:
            return LoadText(Text::HeaderSecondLabel);
        default:
            return {};
    }
}

bool CLabelModel::setData(const QModelIndex& index, const QVariant& text, int role) {
    if (role != Qt::EditRole || !checkIndex(index, CheckIndexOption::IndexIsValid)) return false;
    if (index.column() == kField) return false;
    if (text.toString() == m_labels.Own(FieldOf(index))) return true;
    const bool isStored = m_editor.SetLabel(FieldOf(index), text.toString());
    Q_EMIT dataChanged(index, index);
    return isStored;
}

void CLabelModel::ShowAll() {
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, kColumns - 1));
}
