#pragma once

#include "lists/CListEditor.h"
#include "viewmodel/lists/CItemModel.h"

#include <QDialog>
#include <QHash>

class CCfgStore;
class CItemView;
class CMnemonics;
class CRecordChanges;
class QAction;
class QBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;

/// The window of the eleven pick lists: the lists at the side, the items of one of them beside it, and a line
/// that narrows them and is what Add adds. Every change is stored at once, so there is nothing to cancel.
class CListsDialog final : public QDialog {
    Q_OBJECT

 public:
    struct Context {
        CPulldownCatalogue& catalogue;
        CRecordStore& store;
        CRecordChanges& changes;
        CCfgStore& settings;  ///< their profile keeps the size and the list that was shown last
        CPrompt& prompt;
    };
    explicit CListsDialog(const Context& context, QWidget* parent = nullptr);
    void done(int result) override;

 protected:
    [[nodiscard]] bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    struct ButtonRow;
    void FillLists();
    [[nodiscard]] QWidget* MakeItems(CMnemonics& mnemonics);
    void AddItemButtons(QBoxLayout& row, CMnemonics& mnemonics);
    QPushButton* MakeButton(const ButtonRow& row, CMnemonics& mnemonics);
    [[nodiscard]] QAction* AddToMenu(QPushButton& button);
    [[nodiscard]] int List() const;
    [[nodiscard]] QString Caption(int list) const;

    void ShowList();
    void ShowItems(const QString& selected = {});
    void ShowCounts();
    void ShowUse();
    void ShowNote(const QString& note);
    [[nodiscard]] QString StateInWords() const;
    [[nodiscard]] const std::optional<CItemUse>& UseOf(int list);
    void Narrow(const QString& words);

    void Add();
    void Delete();
    void Rename();
    void DeleteAll();

    Context m_context;
    CListEditor m_editor;
    CItemModel m_model;
    QHash<int, std::optional<CItemUse>> m_uses;  ///< those counted since records changed
    QTreeWidget* m_lists;
    QLineEdit* m_line;
    CItemView* m_items;
    QLabel* m_note;
    QPushButton* m_add = nullptr;
    QPushButton* m_rename = nullptr;
    QPushButton* m_delete = nullptr;
    QPushButton* m_deleteAll = nullptr;
    QAction* m_renameAction = nullptr;
    QAction* m_deleteAction = nullptr;
};
