#pragma once

#include <QObject>
#include <QStringList>

class CCandidateModel;
class QLabel;
class QLineEdit;
class QListView;

/// The widgets of the items that can go under the selected line: what their list is called, a line that
/// narrows them, and the items, of which several can be selected. The dialog lays them out. The keys up and
/// down move in the list while the line has the focus.
class CCandidatePane final : public QObject {
    Q_OBJECT

 public:
    CCandidatePane(CCandidateModel& items, QObject* parent);

    /// marked: with its mnemonic.
    void ShowHeading(const QString& heading, const QString& marked);
    /// Why there are no items; empty where there are some.
    void ShowNote(const QString& note);
    /// In the order of the list.
    [[nodiscard]] QStringList Selected() const;
    /// The first selected row, -1 for none.
    [[nodiscard]] int FirstSelected() const;
    /// Of the rows there are: the last one for a row behind it.
    void SelectRow(int row);
    /// Shows all items where it isn't among those shown; false when it is none of them.
    bool SelectText(const QString& text);
    [[nodiscard]] QString Typed() const;
    [[nodiscard]] QLabel& Heading() { return *m_heading; }
    [[nodiscard]] QLineEdit& Search() { return *m_search; }
    [[nodiscard]] QListView& List() { return *m_list; }
    [[nodiscard]] QLabel& Note() { return *m_note; }

 Q_SIGNALS:
    void SelectionMoved();

 protected:
    [[nodiscard]] bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void MakeList();
    void Narrow(const QString& words);

    CCandidateModel& m_items;
    QLabel* m_heading;
    QLineEdit* m_search;
    QListView* m_list;
    QLabel* m_note;
};
