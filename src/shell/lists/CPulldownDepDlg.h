#pragma once

#include "lang/Text.h"
#include "lists/CDependencyEditor.h"
#include "shell/look/CMnemonics.h"

#include <QDialog>
#include <functional>
#include <span>
#include <vector>

class CCandidateModel;
class CCandidatePane;
class CCfgStore;
class CDependencyModel;
class CDependencyTreeView;
class CElidedLabel;
class CPrompt;
class QBoxLayout;
class QGridLayout;
class QPushButton;

/// What the dialog of dependencies needs from outside. All must outlive it.
struct DependencyDialogContext {
    CPulldownCatalogue& catalogue;
    CCfgStore& settings;
    CPrompt& prompt;
    /// An item has got another text: carries it further where the user wants that.
    std::function<void(int list, const QString& oldText, const QString& newText)> renamed;
};

/// Which list items hang under which: on the left the tree, on the right the items that can go under the
/// selected line, those of the next list. Items change at once; the tree is the editor's until the caller
/// accepts and saves it.
class CPulldownDepDlg final : public QDialog {
    Q_OBJECT

 public:
    CPulldownDepDlg(CDependencyEditor& editor, const DependencyDialogContext& context,
                    QWidget* parent = nullptr);
    ~CPulldownDepDlg() override;

    /// Asks first when changes of the tree would be lost.
    void reject() override;
    void done(int result) override;

 private:
    using Node = DependencyTree::Node;
    /// Where the button of an action stands; whose keys and menu have it, Middle: both.
    enum class Side { Tree, Middle, Items };
    /// One action of the dialog: a button, an entry of menus, and keys.
    struct ActionRow {
        struct Words {
            Text caption;
            Text tip;
            Text otherCaption = Text{};  ///< while isOther holds
        };
        struct Button {
            const char* name;
            const char* icon;  ///< freedesktop name
            const char* keys;  ///< in portable form, separated by blanks
        };
        struct Work {
            void (CPulldownDepDlg::*run)();
            bool (CPulldownDepDlg::*isOffered)() const;
            bool (CPulldownDepDlg::*isOther)() const = nullptr;
        };
        Side place;  ///< of the button
        Side side;   ///< whose menu and keys
        Words words;
        Button button;
        Work work;
    };
    struct ActionButton {
        const ActionRow* row;
        QPushButton* button;
        QString caption, otherCaption;  ///< with their mnemonics
    };
    /// An item by its text: nodes and items may be other ones after a look into the store.
    struct Item {
        int list;
        QString text;
    };

    [[nodiscard]] static std::span<const ActionRow> Actions();
    void Build();
    [[nodiscard]] QGridLayout* BuildSides();
    [[nodiscard]] QBoxLayout* MakeButtons(Side place);
    void PutInTabOrder();
    void AddKeys(QWidget& view, Side side);
    void AddSearchKeys();
    void AddMenu(QWidget& view, Side side);
    void Connect();
    void Run(const ActionRow& row);

    [[nodiscard]] bool HasSelected() const;
    [[nodiscard]] bool HasOneSelected() const;
    [[nodiscard]] bool HasItems() const;
    [[nodiscard]] bool HasNextList() const;
    [[nodiscard]] bool HasLine() const;
    [[nodiscard]] bool HasBranch() const;
    [[nodiscard]] bool IsNarrowed() const;
    [[nodiscard]] bool IsOpen() const;

    void AddSelected();
    void AddAll();
    void Remove();
    void ToggleBelow();
    void MakeItem();
    void RenameSelected();
    void RenameLine();
    void DeleteSelected();
    void DeleteLine();
    void AddOrMake();

    void Add(const QStringList& texts);
    void Rename(const Item& item);
    void Delete(const std::vector<Item>& items);
    [[nodiscard]] bool MayDelete(const std::vector<Item>& items);
    [[nodiscard]] bool TakeUp();
    void TellRefused(const QString& text);

    [[nodiscard]] QString Heading(int list) const;
    [[nodiscard]] QString LevelOf(const Node* node) const;
    [[nodiscard]] QString NoteOfItems() const;
    void ShowNode();
    void ShowState();
    void Say(const QString& what);

    CDependencyEditor& m_editor;
    DependencyDialogContext m_context;
    CDependencyModel* m_tree;
    CCandidateModel* m_items;
    CDependencyTreeView* m_treeView;
    CCandidatePane* m_itemPane;
    CElidedLabel* m_level = nullptr;
    CElidedLabel* m_said = nullptr;
    std::vector<ActionButton> m_buttons;
    CMnemonics m_mnemonics;  ///< all but that of the heading
};

/// Lets the user edit the tree; true when the changes are accepted.
[[nodiscard]] bool RunDependencyDialog(QWidget* parent, CDependencyEditor& editor,
                                       const DependencyDialogContext& context);
