#pragma once

#include "lang/Text.h"

#include <QIcon>
#include <QWidget>
#include <functional>
#include <vector>

class QLabel;
class QLineEdit;
class QTreeView;

/// One line of the list: what it is called, where it belongs, and the keys for it.
struct SearchRow {
    QString text;
    QString place = {};
    QString keys = {};
    QIcon icon = {};
};

/// A list with a search line above it that narrows it. The keys up and down, and by pages, move in the list
/// while the search has the focus.
class CSearchList final : public QWidget {
    Q_OBJECT

 public:
    /// The rows that words find, in the order in which they are shown.
    using Find = std::function<std::vector<int>(const QString& words)>;
    struct Texts {
        Text search;   ///< in the search line while it is empty
        Text rows;     ///< name of the list for readers
        Text nothing;  ///< in place of rows
    };
    CSearchList(const Texts& texts, QWidget* parent = nullptr);
    ~CSearchList() override;

    /// current: the row that is selected at first, -1 for none.
    void SetRows(std::vector<SearchRow> rows, int current, Find find);
    /// For a list so short that nobody searches it.
    void HideSearch();
    /// The row selected, -1 for none.
    [[nodiscard]] int Current() const;

 Q_SIGNALS:
    void CurrentChanged(int row);
    /// A row was double-clicked.
    void Chosen();

 protected:
    [[nodiscard]] bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    class Rows;
    void Narrow(const QString& words);
    void Select(int row);

    Rows* m_rows;
    Find m_find;
    QLineEdit* m_search;
    QTreeView* m_list;
    QLabel* m_nothing;
};
