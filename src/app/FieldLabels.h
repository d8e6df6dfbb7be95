#pragma once

#include "config/CColumnNames.h"

#include <QHash>
#include <QString>

/// What the fields of records are called: the user's own names, with the default names behind them. Numbers
/// are those of the lists that keep the names, 99 to 142, and 146 and 148, which have a default only.
class FieldLabels final : public CColumnNames {
 public:
    void Clear();
    void Set(int field, const QString& label) { m_labels.insert(field, label); }
    void MarkFilled() { m_isFilled = true; }
    /// Whether the names were read since the last Clear.
    [[nodiscard]] bool IsFilled() const { return m_isFilled; }

    /// The user's own name; empty when there is none.
    [[nodiscard]] QString Own(int field) const { return m_labels.value(field); }
    /// The user's own name unless empty, else the default, else an empty text.
    [[nodiscard]] QString GetLabel(int field) const;
    /// The default name; empty for a number that has none.
    [[nodiscard]] static QString Default(int field);

    [[nodiscard]] QString ColumnName(int field) const override { return GetLabel(field); }

 private:
    QHash<int, QString> m_labels;
    bool m_isFilled = false;
};
