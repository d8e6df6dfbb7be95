#include "shell/lists/CPulldownDepDlg.h"

#include "config/CCfgStore.h"
#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"
#include "shell/controls/AskText.h"
#include "shell/lists/CCandidatePane.h"
#include "shell/lists/CDependencyTreeView.h"
#include "viewmodel/lists/CCandidateModel.h"
#include "viewmodel/lists/CDependencyModel.h"

#include <QLineEdit>
#include <QListView>
#include <optional>

std::span<const CPulldownDepDlg::ActionRow> CPulldownDepDlg::Actions() {
    using Self = CPulldownDepDlg;
    using enum Side;
    static constexpr ActionRow kActions[] = {
        {Middle,
         Items,
         {Text::DepAdd, Text::TipDepAdd},
         {"addButton", "go-previous", "Return Enter"},
         {&Self::AddSelected, &Self::HasSelected}},
        {Middle,
         Items,
         {Text::DepAddAll, Text::TipDepAddAll, Text::DepAddShown},
         {"addAllButton", "go-first", "Ctrl+Return Ctrl+Enter"},
         {&Self::AddAll, &Self::HasItems, &Self::IsNarrowed}},
        {Middle,
         Tree,
         {Text::DepRemove, Text::TipDepRemove},
         {"removeButton", "go-next", "Del"},
         {&Self::Remove, &Self::HasLine}},
        {Tree,
         Tree,
         {Text::DepExpand, Text::TipDepExpand, Text::DepCollapse},
         {"expandButton", "view-list-tree", "Return Enter"},
         {&Self::ToggleBelow, &Self::HasBranch, &Self::IsOpen}},
        {Tree,
         Tree,
         {Text::DepRename, Text::TipDepRenameLine},
         {"renameLineButton", "edit-rename", "F2"},
         {&Self::RenameLine, &Self::HasLine}},
        {Tree,
         Tree,
         {Text::DepDelete, Text::TipDepDeleteLine},
         {"deleteLineButton", "edit-delete", "Shift+Del"},
         {&Self::DeleteLine, &Self::HasLine}},
        {Items,
         Middle,
         {Text::DepNewItem, Text::TipDepNewItem},
         {"newItemButton", "list-add", "Ins"},
         {&Self::MakeItem, &Self::HasNextList}},
        {Items,
         Items,
         {Text::DepRename, Text::TipDepRename},
         {"renameItemButton", "edit-rename", "F2"},
         {&Self::RenameSelected, &Self::HasOneSelected}},
        {Items,
         Items,
         {Text::DepDelete, Text::TipDepDelete},
         {"deleteItemButton", "edit-delete", "Del"},
         {&Self::DeleteSelected, &Self::HasSelected}},
    };
    return kActions;
}

void CPulldownDepDlg::Run(const ActionRow& row) {
    if (!(this->*row.work.isOffered)()) return;
    Say({});
    (this->*row.work.run)();
}

// --- When they are offered

bool CPulldownDepDlg::HasNextList() const {
    return m_items->List() >= 0;
}

bool CPulldownDepDlg::HasSelected() const {
    return HasNextList() && m_itemPane->FirstSelected() >= 0;
}

bool CPulldownDepDlg::HasOneSelected() const {
    return HasNextList() && m_itemPane->Selected().size() == 1;
}

bool CPulldownDepDlg::HasItems() const {
    return HasNextList() && m_items->rowCount() > 0;
}

bool CPulldownDepDlg::HasLine() const {
    const Node* node = m_treeView->Selected();
    return node && node->Item();
}

bool CPulldownDepDlg::HasBranch() const {
    const Node* node = m_treeView->Selected();
    return node && node->FirstChild();
}

bool CPulldownDepDlg::IsNarrowed() const {
    return m_items->IsNarrowed();
}

bool CPulldownDepDlg::IsOpen() const {
    return m_treeView->IsOpen();
}

// --- The tree

void CPulldownDepDlg::AddSelected() {
    Add(m_itemPane->Selected());
}

void CPulldownDepDlg::AddAll() {
    Add(m_items->Shown());
}

/// The items leave the list; the one that takes the place of the first can be added next.
void CPulldownDepDlg::Add(const QStringList& texts) {
    Node* node = m_treeView->Selected();
    if (!node || texts.isEmpty()) return;
    const int row = m_itemPane->FirstSelected();
    m_editor.Add(*node, texts);
    m_itemPane->SelectRow(row);
    if (m_itemPane->Search().hasFocus()) m_itemPane->Search().selectAll();
}

/// Enter behind what was typed: the item found, else one of that text.
void CPulldownDepDlg::AddOrMake() {
    Say({});
    if (HasSelected())
        AddSelected();
    else if (HasNextList())
        MakeItem();
}

void CPulldownDepDlg::Remove() {
    if (Node* node = m_treeView->Selected()) m_editor.Remove(*node);
}

void CPulldownDepDlg::ToggleBelow() {
    m_treeView->ToggleBelow();
}

// --- Items

/// Another program may have changed lists and trees meanwhile.
bool CPulldownDepDlg::TakeUp() {
    if (m_editor.TakeUp()) return true;
    m_context.prompt.Tell({.textId = static_cast<int>(Text::DepListsNotRead),
                           .title = windowTitle(),
                           .text = LoadText(Text::DepListsNotRead),
                           .icon = BoxIcon::Warning,
                           .actionLabel = {}});
    QDialog::reject();
    return false;
}

void CPulldownDepDlg::TellRefused(const QString& text) {
    Say(FormatText<Text::DepItemRefused>(text));
}

void CPulldownDepDlg::MakeItem() {
    const int list = m_items->List();
    const std::optional<QString> text = AskText(
        this,
        {LoadText(Text::DepNewTitle), LoadText(Text::PromptNewItem) + Heading(list), m_itemPane->Typed()});
    if (!text || text->isEmpty() || !TakeUp()) return;
    const bool isNew = m_context.catalogue.CheckNewItem(list, *text) == NewItem::Acceptable;
    if (!isNew) TellRefused(*text);
    if (isNew && !m_editor.NewItem(list, *text)) return;
    ShowNode();
    m_itemPane->SelectText(isNew ? m_context.catalogue.GetList(list)->back()->GetText() : *text);
    m_itemPane->List().setFocus();
}

void CPulldownDepDlg::RenameSelected() {
    Rename({m_items->List(), m_itemPane->Selected().first()});
}

void CPulldownDepDlg::RenameLine() {
    const CPRecord* item = m_treeView->Selected()->Item();
    Rename({item->listId, item->GetText()});
}

void CPulldownDepDlg::Rename(const Item& item) {
    const std::optional<QString> text = AskText(
        this,
        {LoadText(Text::AskReplaceTitle), LoadText(Text::PromptRenameItem) + Heading(item.list), item.text});
    if (!text || text->isEmpty() || !TakeUp()) return;
    switch (m_editor.RenameItem(item.list, item.text, *text)) {
        case CDependencyEditor::Renamed::Kept:
            if (*text != item.text) TellRefused(*text);
            break;
        case CDependencyEditor::Renamed::Failed:
            break;
        case CDependencyEditor::Renamed::Done:
            m_context.renamed(item.list, item.text, *text);
            ShowNode();
            m_itemPane->SelectRow(m_items->RowOf(*text));
    }
}

void CPulldownDepDlg::DeleteSelected() {
    std::vector<Item> items;
    for (const QString& text : m_itemPane->Selected()) items.push_back({m_items->List(), text});
    Delete(items);
}

void CPulldownDepDlg::DeleteLine() {
    const CPRecord* item = m_treeView->Selected()->Item();
    Delete({{item->listId, item->GetText()}});
}

/// Stops at the first that stays, of which the user was told.
void CPulldownDepDlg::Delete(const std::vector<Item>& items) {
    if (!MayDelete(items) || !TakeUp()) return;
    const int row = m_itemPane->FirstSelected();
    for (const Item& item : items)
        if (!m_editor.DeleteItem(item.list, item.text)) break;
    ShowNode();
    m_itemPane->SelectRow(row);
}

bool CPulldownDepDlg::MayDelete(const std::vector<Item>& items) {
    if (!m_context.settings.confirmDeleteListItem) return true;
    const bool isOne = items.size() == 1;
    const Text question = isOne ? Text::DepAskDelete : Text::DepAskDeleteSeveral;
    return m_context.prompt.Ask(
               {.textId = static_cast<int>(question),
                .title = LoadText(Text::AskDeleteTitle),
                .text = isOne ? FormatText<Text::DepAskDelete>(items.front().text)
                              : FormatText<Text::DepAskDeleteSeveral>(static_cast<int>(items.size())),
                .icon = BoxIcon::Warning,
                .buttons = Buttons::YesNo,
                .defaultAnswer = Answer::No,
                .actionLabel = LoadText(Text::AskDeleteTitle)}) == Answer::Yes;
}
