#include "shell/options/COptionsModel.h"

#include "app/FieldLabels.h"
#include "lang/FormatText.h"

#include <QStringList>

namespace {

/// A field that its names leave without one has its default name.
QString LabelOf(const OptionRow& row, const CColumnNames* names) {
    if (row.field == FieldId::None) return LoadText(row.text);
    const int field = NumberOf(row.field);
    const QString own = names ? names->ColumnName(field) : QString();
    return own.isEmpty() ? FieldLabels::Default(field) : own;
}

QString ValueText(const OptionRow& row, std::int64_t value) {
    return row.kind == OptionKind::Number ? QString::number(value) : TextOf(row.choices, value);
}

QString ChoiceWords(const OptionRow& row) {
    QStringList words;
    for (const ValueChoice& choice : row.choices) words << LoadText(choice.text);
    return words.join(QLatin1Char(' '));
}

}  // namespace

COptionsModel::COptionsModel(const CColumnNames* names, QObject* parent) : QStandardItemModel(0, 2, parent) {
    std::vector<QStandardItem*> parents{invisibleRootItem()};
    std::vector<QString> words{QString()};
    for (const OptionRow& row : OptionRows()) {
        const auto depth = static_cast<std::size_t>(row.depth);
        parents.resize(depth + 1);
        words.resize(depth + 1);
        const QString label = LabelOf(row, names);
        // A row is found by its words, those of its groups and those of its choices.
        const bool isGroup = row.kind == OptionKind::Group;
        const QString own = QStringList{words.back(), label, ChoiceWords(row)}.join(QLatin1Char(' '));
        QStandardItem* item = AddRow(*parents.back(), label, own);
        if (!isGroup) AddOption(row, *item);
        parents.push_back(item);
        words.push_back(own);
    }
}

QStandardItem* COptionsModel::AddRow(QStandardItem& parent, const QString& text, const QString& pathWords) {
    auto* words = new QStandardItem(text);
    words->setData(pathWords, WordsRole);
    words->setEditable(false);
    auto* value = new QStandardItem;
    value->setEditable(false);
    value->setAccessibleText(text);
    parent.appendRow({words, value});
    return words;
}

void COptionsModel::AddOption(const OptionRow& row, QStandardItem& words) {
    const auto place = static_cast<int>(m_options.size());
    QStandardItem* value = itemFromIndex(words.index().siblingAtColumn(1));
    const auto mark = [place](QStandardItem& item) { item.setData(place, RowRole); };
    mark(words);
    mark(*value);
    words.setCheckable(row.kind == OptionKind::Check);
    value->setEditable(row.kind == OptionKind::Choice || row.kind == OptionKind::Number);
    if (row.kind == OptionKind::Radios) {
        for (const ValueChoice& choice : row.choices) {
            QStandardItem* leaf = AddRow(words, LoadText(choice.text), words.data(WordsRole).toString());
            mark(*leaf);
            leaf->setData(choice.value, RadioRole);
            leaf->setCheckable(true);
        }
    }
    m_options.push_back({&row, FindSetting(QString::fromLatin1(row.setting)), &words, value});
}

void COptionsModel::Load(const Settings& settings) {
    for (Option& option : m_options) {
        option.loaded = option.edited = SettingValue(settings, *option.setting);
        Show(option);
    }
}

std::vector<int> COptionsModel::Store(Settings& settings) const {
    std::vector<int> changed;
    for (const Option& option : m_options) {
        if (option.edited == option.loaded) continue;
        PutSetting(settings, *option.setting, option.edited);
        changed.push_back(option.setting->index);
    }
    return changed;
}

void COptionsModel::Show(const Option& option) {
    const auto stateOf = [](bool isOn) { return isOn ? Qt::Checked : Qt::Unchecked; };
    if (option.row->kind == OptionKind::Check) option.words->setCheckState(stateOf(option.edited != 0));
    for (int i = 0; i < option.words->rowCount(); ++i) {
        QStandardItem* leaf = option.words->child(i);
        leaf->setCheckState(stateOf(leaf->data(RadioRole).toLongLong() == option.edited));
    }
    if (!option.value->isEditable()) return;
    const QString value = ValueText(*option.row, option.edited);
    option.value->setText(value);
    option.value->setAccessibleText(FormatText<Text::RecordInWords>(option.words->text(), value));
}

std::optional<std::size_t> COptionsModel::PlaceOf(const QModelIndex& index) const {
    const QVariant place = index.data(RowRole);
    if (!place.isValid()) return {};
    return static_cast<std::size_t>(place.toInt());
}

const OptionRow* COptionsModel::RowOf(const QModelIndex& index) const {
    const auto place = PlaceOf(index);
    return place ? m_options[*place].row : nullptr;
}

std::int64_t COptionsModel::ValueOf(const QModelIndex& index) const {
    const auto place = PlaceOf(index);
    return place ? m_options[*place].edited : 0;
}

void COptionsModel::SetValue(const QModelIndex& index, std::int64_t value) {
    const auto place = PlaceOf(index);
    if (!place || !IsAllowed(*m_options[*place].setting, value)) return;
    m_options[*place].edited = value;
    Show(m_options[*place]);
}

bool COptionsModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::CheckStateRole) return QStandardItemModel::setData(index, value, role);
    return index.data(role) == value || Toggle(index);
}

bool COptionsModel::Toggle(const QModelIndex& index) {
    const OptionRow* row = RowOf(index);
    if (!row) return false;
    const QVariant radio = index.siblingAtColumn(0).data(RadioRole);
    if (radio.isValid())
        SetValue(index.siblingAtColumn(0), radio.toLongLong());
    else if (row->kind == OptionKind::Check)
        SetValue(index, ValueOf(index) == 0 ? 1 : 0);
    else
        return false;
    return true;
}
