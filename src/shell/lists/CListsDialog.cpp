#include "shell/lists/CListsDialog.h"

#include "app/CPulldownCatalogue.h"
#include "app/ListTable.h"
#include "changes/FinishRename.h"
#include "config/CCfgStore.h"
#include "lang/FormatText.h"
#include "lists/ListPages.h"
#include "platform/settings/CProfile.h"
#include "records/FieldDef.h"
#include "shell/controls/AskText.h"
#include "shell/lists/CItemView.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/DialogSize.h"
#include "shell/look/FormRows.h"
#include "shell/look/PlainTip.h"

#include <QAction>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

constexpr QSize kUsualSize{640, 460};
constexpr int kListsShare = 1, kItemsShare = 2;
constexpr int kListRole = Qt::UserRole;

QString Section() {
    return QStringLiteral("ItemLists");
}
QString ListEntry() {
    return QStringLiteral("List");
}

}  // namespace

struct CListsDialog::ButtonRow {
    Text caption;
    Text tip;
    const char* icon;
    const char* name;
    void (CListsDialog::*action)();
};

CListsDialog::CListsDialog(const Context& context, QWidget* parent)
    : QDialog(parent),
      m_context(context),
      m_editor({.catalogue = context.catalogue,
                .store = context.store,
                .settings = context.settings,
                .prompt = context.prompt}),
      m_lists(new QTreeWidget),
      m_line(new QLineEdit),
      m_items(new CItemView(m_model)),
      m_note(new QLabel) {
    setObjectName(QStringLiteral("listsDialog"));
    setWindowTitle(LoadText(Text::ItemListsTitle));
    CMnemonics mnemonics;
    auto* column = new QVBoxLayout(this);
    column->setSpacing(kFormSpace);
    auto* panes = new QSplitter;
    panes->setChildrenCollapsible(false);
    FillLists();
    panes->addWidget(m_lists);
    panes->addWidget(MakeItems(mnemonics));
    panes->setStretchFactor(0, kListsShare);
    panes->setStretchFactor(1, kItemsShare);
    panes->setSizes({kUsualSize.width() * kListsShare, kUsualSize.width() * kItemsShare});
    column->addWidget(panes, 1);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    auto* close = buttons->button(QDialogButtonBox::Close);
    close->setText(mnemonics.Give(LoadText(Text::DialogClose)));
    close->setAutoDefault(false);
    NameWidget(*close, QStringLiteral("closeButton"), LoadText(Text::DialogClose));
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);
    RestoreDialogSize(*this, m_context.settings.Profile(), Section(), kUsualSize);
    ShowList();
    m_line->setFocus();
}

void CListsDialog::done(int result) {
    CProfile& profile = m_context.settings.Profile();
    PersistDialogSize(*this, profile, Section());
    // A place that can't be noted is only not found again.
    static_cast<void>(profile.WriteInt(Section(), ListEntry(), List()));
    QDialog::done(result);
}

// --- Building

void CListsDialog::FillLists() {
    NameWidget(*m_lists, QStringLiteral("lists"), LoadText(Text::ItemLists));
    m_lists->setColumnCount(2);
    m_lists->setHeaderHidden(true);
    m_lists->setRootIsDecorated(false);
    m_lists->setUniformRowHeights(true);
    m_lists->setAllColumnsShowFocus(true);
    m_lists->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_lists->header()->setStretchLastSection(false);
    m_lists->header()->setMinimumSectionSize(1);
    m_lists->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_lists->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    const int last = m_context.settings.Profile().GetInt(Section(), ListEntry(), ListPages().front());
    for (const int list : ListPages()) {
        auto* row = new QTreeWidgetItem(m_lists, {Caption(list), QString()});
        row->setData(0, kListRole, list);
        row->setToolTip(0, PlainTip(Caption(list)));
        row->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        if (list == last || list == ListPages().front()) m_lists->setCurrentItem(row);
    }
    connect(m_lists, &QTreeWidget::currentItemChanged, this, &CListsDialog::ShowList);
}

QWidget* CListsDialog::MakeItems(CMnemonics& mnemonics) {
    auto* pane = new QWidget;
    auto* column = new QVBoxLayout(pane);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kFormSpace);
    NameWidget(*m_line, QStringLiteral("itemLine"), LoadText(Text::ItemSearch));
    m_line->setPlaceholderText(LoadText(Text::ItemSearch));
    m_line->setClearButtonEnabled(true);
    LimitLength(*m_line, kTextLength);
    m_line->installEventFilter(this);
    m_add = MakeButton({Text::ButtonItemAdd, Text::TipItemAdd, "list-add", "addButton", &CListsDialog::Add},
                       mnemonics);
    auto* typed = new QHBoxLayout;
    typed->addWidget(m_line, 1);
    typed->addWidget(m_add);
    m_note->setObjectName(QStringLiteral("itemNote"));
    m_note->setTextFormat(Qt::PlainText);
    m_note->setWordWrap(true);
    auto* actions = new QHBoxLayout;
    AddItemButtons(*actions, mnemonics);
    column->addLayout(typed);
    column->addWidget(m_items, 1);
    column->addWidget(m_note);
    column->addLayout(actions);
    connect(m_line, &QLineEdit::textChanged, this, &CListsDialog::Narrow);
    connect(m_items, &CItemView::AddWanted, m_line, [this] { m_line->setFocus(); });
    connect(m_items, &CItemView::DeleteWanted, this, &CListsDialog::Delete);
    connect(m_items, &CItemView::RenameWanted, this, &CListsDialog::Rename);
    connect(m_items->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { ShowNote({}); });
    return pane;
}

/// Deleting all stands apart from the others.
void CListsDialog::AddItemButtons(QBoxLayout& row, CMnemonics& mnemonics) {
    m_rename = MakeButton(
        {Text::ButtonItemRename, Text::TipItemRename, "document-edit", "renameButton", &CListsDialog::Rename},
        mnemonics);
    m_delete = MakeButton(
        {Text::ButtonItemDelete, Text::TipItemDelete, "edit-delete", "deleteButton", &CListsDialog::Delete},
        mnemonics);
    m_deleteAll = MakeButton({Text::ButtonItemsDeleteAll, Text::TipItemsDeleteAll, "edit-clear-all",
                              "deleteAllButton", &CListsDialog::DeleteAll},
                             mnemonics);
    row.addWidget(m_rename);
    row.addWidget(m_delete);
    row.addStretch();
    row.addWidget(m_deleteAll);
    m_renameAction = AddToMenu(*m_rename);
    m_deleteAction = AddToMenu(*m_delete);
}

/// What a button does, in the menu of the items.
QAction* CListsDialog::AddToMenu(QPushButton& button) {
    auto* action = new QAction(button.icon(), button.text(), m_items);
    action->setObjectName(button.objectName() + QStringLiteral("Action"));
    connect(action, &QAction::triggered, &button, &QPushButton::click);
    m_items->addAction(action);
    return action;
}

QPushButton* CListsDialog::MakeButton(const ButtonRow& row, CMnemonics& mnemonics) {
    auto* button = new QPushButton(mnemonics.Take(LoadText(row.caption)));
    button->setIcon(QIcon::fromTheme(QString::fromLatin1(row.icon)));
    button->setToolTip(LoadText(row.tip));
    button->setAutoDefault(false);
    NameWidget(*button, QString::fromLatin1(row.name), CMnemonics::Plain(LoadText(row.caption)));
    connect(button, &QPushButton::clicked, this, row.action);
    return button;
}

// --- Showing

int CListsDialog::List() const {
    return m_lists->currentItem()->data(0, kListRole).toInt();
}

QString CListsDialog::Caption(int list) const {
    return ListPageCaption(m_context.catalogue, list, m_context.settings);
}

/// Another list begins without words: what narrowed the one before says nothing about this one.
void CListsDialog::ShowList() {
    m_line->clear();
    m_items->setAccessibleName(FormatText<Text::ItemsOf>(Caption(List())));
    if (m_editor.Open(List())) ShowItems();
}

/// As they are stored now. selected: the item that the cursor is on then; empty: the one before.
void CListsDialog::ShowItems(const QString& selected) {
    const QString former = selected.isEmpty() ? m_items->Current() : selected;
    m_model.SetItems(m_context.catalogue.Texts(List()), UseOf(List()));
    m_items->Select(former.isEmpty() ? QModelIndex() : m_model.IndexOf(former));
    ShowCounts();
    ShowNote({});
}

void CListsDialog::ShowCounts() {
    for (int i = 0; i < m_lists->topLevelItemCount(); ++i) {
        QTreeWidgetItem& row = *m_lists->topLevelItem(i);
        const auto* items = m_context.catalogue.GetList(row.data(0, kListRole).toInt());
        const int count = items ? static_cast<int>(items->size()) : 0;
        row.setText(1, QString::number(count));
        const QString words = FormatText<Text::ListWithCount>(row.text(0), count);
        for (const int section : {0, 1}) row.setData(section, Qt::AccessibleTextRole, words);
    }
}

const std::optional<CItemUse>& CListsDialog::UseOf(int list) {
    const auto counted = m_uses.constFind(list);
    return counted != m_uses.constEnd() ? *counted
                                        : *m_uses.insert(list, CItemUse::Count(m_context.store, list));
}

/// A sentence about what was just done, or in its place the state of the list; and what can be done now.
void CListsDialog::ShowNote(const QString& note) {
    const qsizetype selected = m_items->selectionModel()->selectedRows().size();
    const QString words = note.isEmpty() ? StateInWords() : note;
    m_note->setText(words);
    m_note->setAccessibleName(words);
    m_add->setEnabled(!m_line->text().isEmpty());
    m_rename->setEnabled(selected == 1);
    m_delete->setEnabled(selected > 0);
    m_deleteAll->setEnabled(m_model.ItemCount() > 0);
    m_renameAction->setEnabled(selected == 1);
    m_deleteAction->setEnabled(selected > 0);
}

QString CListsDialog::StateInWords() const {
    const int all = m_model.ItemCount(), shown = m_model.rowCount();
    if (all == 0) return LoadText(Text::ListHasNoItems);
    if (shown == 0) return LoadText(Text::NoItemHasLetters);
    const QString items = shown < all ? FormatText<Text::ItemsShown>(shown, all)
                          : all == 1  ? LoadText(Text::ItemOne)
                                      : FormatText<Text::ItemsAll>(all);
    const auto selected = static_cast<int>(m_items->selectionModel()->selectedRows().size());
    return selected > 1 ? FormatText<Text::ItemsSelected>(items, selected) : items;
}

void CListsDialog::Narrow(const QString& words) {
    const QString current = m_items->Current();
    m_model.Narrow(words);
    m_items->Select(current.isEmpty() ? QModelIndex() : m_model.IndexOf(current));
    ShowNote({});
}

bool CListsDialog::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
    const auto& key = static_cast<QKeyEvent&>(*event);
    if ((key.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return QDialog::eventFilter(watched, event);
    switch (key.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Insert:
            Add();
            return true;
        case Qt::Key_F2:
            Rename();
            return true;
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            QCoreApplication::sendEvent(m_items, event);
            return true;
        default:
            return QDialog::eventFilter(watched, event);
    }
}

// --- Changing

void CListsDialog::Add() {
    const QString typed = m_line->text();
    const CListEditor::Added added = m_editor.Add(List(), typed);
    if (added == CListEditor::Added::Refused) {
        ShowItems(typed);
        return ShowNote(m_editor.WhyRefused(List(), typed));
    }
    if (added == CListEditor::Added::Done) m_line->clear();
    ShowItems(ItemShown(List(), typed));
    m_line->setFocus();
}

void CListsDialog::Delete() {
    const int row = m_items->currentIndex().row();
    const bool isDone = m_editor.Delete(List(), m_items->Selected());
    ShowItems();
    // The neighbour comes under the cursor, so that one after the other can go.
    if (isDone && m_model.rowCount() > 0)
        m_items->Select(m_model.index(qMin(row, m_model.rowCount() - 1), 0));
}

void CListsDialog::Rename() {
    const QString former = m_items->Current();
    if (former.isNull()) return m_editor.TellNothingSelected(Text::NoItemToRename);
    const std::optional<QString> text = AskText(this, {.title = FormatText<Text::RenameItemTitle>(former),
                                                       .label = LoadText(Text::PromptRenameItem).trimmed(),
                                                       .opening = former});
    if (!text) return;
    const ItemRename rename{.list = List(), .oldText = former, .newText = *text};
    const CListEditor::Renamed renamed = m_editor.Rename(rename);
    const QString shown = ItemShown(List(), *text);
    ShowItems(renamed == CListEditor::Renamed::Done ? shown : former);
    if (renamed == CListEditor::Renamed::Kept) ShowNote(m_editor.WhyRefused(List(), *text));
    if (renamed == CListEditor::Renamed::No || renamed == CListEditor::Renamed::Failed) return;
    const bool isMerged = FinishRename(renamed, rename, m_editor, m_context.changes, m_context.prompt);
    m_uses.clear();
    ShowItems(isMerged ? shown : QString());
    if (renamed == CListEditor::Renamed::Kept && !isMerged) ShowNote(m_editor.WhyRefused(List(), *text));
}

void CListsDialog::DeleteAll() {
    m_editor.DeleteAll(List(), Caption(List()));
    ShowItems();
}
