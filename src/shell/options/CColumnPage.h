#pragma once

#include "viewmodel/list/ColumnChoice.h"

#include <QWidget>

class CTwoLists;

/// Which columns are shown and in which order, chosen in two lists.
class CColumnPage final : public QWidget {
    Q_OBJECT

 public:
    explicit CColumnPage(QWidget* parent = nullptr);

    /// hasSeparators: line breaks can be set.
    void SetDraft(const ChosenColumns& columns, bool hasSeparators);
    [[nodiscard]] ChosenColumns GetDraft() const { return m_choice.Close(); }

 private:
    ColumnChoice m_choice;
    CTwoLists* m_lists;
};
