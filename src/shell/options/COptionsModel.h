#pragma once

#include "config/SettingsTable.h"
#include "shell/options/OptionsTable.h"

#include <QStandardItemModel>
#include <optional>
#include <vector>

class CColumnNames;

/// The tree of options with the values as edited, apart from the settings until they are stored. Column 0 has
/// the words and the state of check boxes and radio buttons, column 1 the values that are chosen or typed.
class COptionsModel final : public QStandardItemModel {
    Q_OBJECT

 public:
    /// names: what the fields of records are called; null: as by default.
    explicit COptionsModel(const CColumnNames* names, QObject* parent = nullptr);

    /// What an index of column 0 or 1 stands for.
    enum Role {
        RowRole = Qt::UserRole + 1,  ///< place in OptionRows, absent on groups
        RadioRole,                   ///< the value of a radio leaf, absent elsewhere
        WordsRole,                   ///< all words by which a row is found: its groups' and its own
    };

    /// Shows the values of the settings.
    void Load(const Settings& settings);
    /// Puts the values that differ from those loaded into the settings and answers their indices.
    std::vector<int> Store(Settings& settings) const;

    [[nodiscard]] const OptionRow* RowOf(const QModelIndex& index) const;
    [[nodiscard]] std::int64_t ValueOf(const QModelIndex& index) const;
    void SetValue(const QModelIndex& index, std::int64_t value);
    /// A check box or radio button that is set from outside, as a screen reader does it, changes as by Space.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    /// Space or a click: a check box changes, a radio button is marked. False for all else.
    bool Toggle(const QModelIndex& index);

 private:
    struct Option {
        const OptionRow* row;
        const SettingRow* setting;
        QStandardItem* words;  ///< column 0; the parent of the leaves where the values are radio buttons
        QStandardItem* value;  ///< column 1
        std::int64_t loaded = 0;
        std::int64_t edited = 0;
    };

    QStandardItem* AddRow(QStandardItem& parent, const QString& text, const QString& pathWords);
    void AddOption(const OptionRow& row, QStandardItem& words);
    void Show(const Option& option);
    [[nodiscard]] std::optional<std::size_t> PlaceOf(const QModelIndex& index) const;

    std::vector<Option> m_options;
};
