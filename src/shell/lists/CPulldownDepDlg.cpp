#include "shell/lists/CPulldownDepDlg.h"

#include "config/CCfgStore.h"
#include "lang/FormatText.h"
#include "lists/DependencyChain.h"
#include "platform/host/CPrompt.h"
#include "shell/lists/CCandidatePane.h"
#include "shell/lists/CDependencyTreeView.h"
#include "shell/look/CElidedLabel.h"
#include "shell/look/DialogSize.h"
#include "shell/look/FormRows.h"
#include "viewmodel/lists/CCandidateModel.h"
#include "viewmodel/lists/CDependencyModel.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QIcon>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>

namespace {

QString SizeSection() {
    return QStringLiteral("DependencyDialog");
}
constexpr QSize kUsualSize{760, 500};
constexpr int kNarrowSpace = kFormSpace / 2;  // so that it fits a small screen

QStringList KeysOf(const char* keys) {
    return QString::fromLatin1(keys).split(u' ', Qt::SkipEmptyParts);
}

/// The text with the mnemonic of a marked one, where it has that letter.
QString WithMnemonicOf(const QString& marked, const QString& text) {
    const QString key = QKeySequence::mnemonic(marked).toString().right(1);
    const qsizetype at = key.isEmpty() ? -1 : text.indexOf(key, 0, Qt::CaseInsensitive);
    return at < 0 ? text : text.left(at) + u'&' + text.mid(at);
}

/// Nothing moves when a button changes its words.
void HoldWidth(QPushButton& button, const QString& caption, const QString& otherCaption) {
    int width = 0;
    for (const QString& text : {caption, otherCaption}) {
        button.setText(text);
        width = std::max(width, button.sizeHint().width());
    }
    button.setMinimumWidth(width);
}

}  // namespace

CPulldownDepDlg::CPulldownDepDlg(CDependencyEditor& editor, const DependencyDialogContext& context,
                                 QWidget* parent)
    : QDialog(parent),
      m_editor(editor),
      m_context(context),
      m_tree(new CDependencyModel(
          editor, [this](int list) { return Heading(list); }, this)),
      m_items(new CCandidateModel(
          editor,
          [this](const QStringList& path) {
              Node* node = m_tree->NodeOf(path);
              return node && m_editor.Remove(*node);
          },
          this)),
      m_treeView(new CDependencyTreeView(*m_tree)),
      m_itemPane(new CCandidatePane(*m_items, this)) {
    setObjectName(QStringLiteral("dependencyDialog"));
    setWindowTitle(LoadText(editor.Mode() == RecordMode::Time ? Text::DepTitleTime : Text::DepTitleExpenses));
    Build();
    Connect();
    ShowNode();
    if (!m_context.settings.useDependencies) Say(LoadText(Text::DepNotOffered));
    if (m_editor.Tree().IsEmpty()) Say(LoadText(Text::DepEmptyTree));
    RestoreDialogSize(*this, m_context.settings.Profile(), SizeSection(), kUsualSize);
    m_treeView->setFocus();
}

/// The views go before the models that they look at.
CPulldownDepDlg::~CPulldownDepDlg() {
    delete m_treeView;
    delete &m_itemPane->List();
}

// --- What it is made of

void CPulldownDepDlg::Build() {
    auto* column = new QVBoxLayout(this);
    column->setSpacing(kFormSpace);
    m_level = new CElidedLabel;
    m_level->setObjectName(QStringLiteral("levelNote"));
    column->addLayout(BuildSides(), 1);
    m_said = new CElidedLabel;
    m_said->setObjectName(QStringLiteral("dependencyNote"));
    column->addWidget(m_said);
    column->addWidget(MakeDialogButtons(*this, Text::DialogOk, m_mnemonics));
    AddKeys(*m_treeView, Side::Tree);
    AddMenu(*m_treeView, Side::Tree);
    AddKeys(m_itemPane->List(), Side::Items);
    AddMenu(m_itemPane->List(), Side::Items);
    AddSearchKeys();
    PutInTabOrder();
}

/// What is above the tree and the items, these with the buttons between them, and what is below.
QGridLayout* CPulldownDepDlg::BuildSides() {
    enum Column { OfTree, Between, OfItems };
    auto* grid = new QGridLayout;
    grid->setVerticalSpacing(kFormSpace);
    grid->setHorizontalSpacing(kNarrowSpace);
    grid->setColumnStretch(OfTree, 1);
    grid->setColumnStretch(OfItems, 1);
    // The shortest words have the fewest letters to choose from.
    grid->addLayout(MakeButtons(Side::Middle), 2, Between);
    auto* label = new QLabel(m_mnemonics.Give(LoadText(Text::DepTree)));
    label->setBuddy(m_treeView);
    grid->addWidget(m_level, 0, OfTree);
    grid->addWidget(&m_itemPane->Heading(), 0, OfItems);
    grid->addWidget(label, 1, OfTree);
    grid->addWidget(&m_itemPane->Search(), 1, OfItems);
    auto* items = new QVBoxLayout;
    items->addWidget(&m_itemPane->List(), 1);
    items->addWidget(&m_itemPane->Note());
    grid->addWidget(m_treeView, 2, OfTree);
    grid->addLayout(items, 2, OfItems);
    grid->setRowStretch(2, 1);
    grid->addLayout(MakeButtons(Side::Tree), 3, OfTree);
    grid->addLayout(MakeButtons(Side::Items), 3, OfItems);
    return grid;
}

/// Both sides have a button that renames and one that deletes: those of the tree say so to screen readers.
QBoxLayout* CPulldownDepDlg::MakeButtons(Side place) {
    const bool isBetween = place == Side::Middle;
    auto* layout = new QBoxLayout(isBetween ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    layout->setSpacing(isBetween ? kFormSpace : kNarrowSpace);
    if (isBetween) layout->addStretch();
    for (const ActionRow& row : Actions()) {
        if (row.place != place) continue;
        const QString caption = LoadText(row.words.caption);
        auto* button = new QPushButton;
        if (isBetween) button->setIcon(QIcon::fromTheme(QString::fromLatin1(row.button.icon)));
        button->setToolTip(LoadText(row.words.tip));
        NameWidget(*button, QString::fromLatin1(row.button.name),
                   place == Side::Tree ? FormatText<Text::RecordInWords>(LoadText(Text::DepTree), caption)
                                       : caption);
        layout->addWidget(button);
        connect(button, &QPushButton::clicked, this, [this, &row] { Run(row); });
        const QString marked = m_mnemonics.Give(caption);
        const QString other = row.work.isOther ? LoadText(row.words.otherCaption) : caption;
        m_buttons.push_back({&row, button, marked, WithMnemonicOf(marked, other)});
        HoldWidth(*button, marked, m_buttons.back().otherCaption);
    }
    layout->addStretch();
    return layout;
}

/// As one reads: the rows from the top, in each from the left.
void CPulldownDepDlg::PutInTabOrder() {
    QList<QWidget*> order{&m_itemPane->Search(), m_treeView};
    const auto append = [&](Side place) {
        for (const ActionButton& one : m_buttons)
            if (one.row->place == place) order << one.button;
    };
    append(Side::Middle);
    order << &m_itemPane->List();
    append(Side::Tree);
    append(Side::Items);
    for (const char* name : {"acceptButton", "cancelButton"})
        order << findChild<QPushButton*>(QString::fromLatin1(name));
    for (qsizetype i = 1; i < order.size(); ++i) setTabOrder(order[i - 1], order[i]);
}

void CPulldownDepDlg::AddKeys(QWidget& view, Side side) {
    for (const ActionRow& row : Actions()) {
        if (row.side != side && row.side != Side::Middle) continue;
        for (const QString& keys : KeysOf(row.button.keys)) {
            auto* shortcut = new QShortcut(QKeySequence(keys), &view, nullptr, nullptr, Qt::WidgetShortcut);
            connect(shortcut, &QShortcut::activated, this, [this, &row] { Run(row); });
        }
    }
}

void CPulldownDepDlg::AddSearchKeys() {
    for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* shortcut = new QShortcut(key, &m_itemPane->Search(), nullptr, nullptr, Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, &CPulldownDepDlg::AddOrMake);
    }
}

void CPulldownDepDlg::AddMenu(QWidget& view, Side side) {
    view.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&view, &QWidget::customContextMenuRequested, this, [this, &view, side](const QPoint& at) {
        auto* menu = new QMenu(this);
        menu->setAttribute(Qt::WA_DeleteOnClose);
        for (const ActionButton& one : m_buttons) {
            if (one.row->side != side && one.row->side != Side::Middle) continue;
            const QString key =
                QKeySequence(KeysOf(one.row->button.keys).first()).toString(QKeySequence::NativeText);
            const QIcon icon = QIcon::fromTheme(QString::fromLatin1(one.row->button.icon));
            const QString caption = CMnemonics::Plain(one.button->text());
            QAction* action = menu->addAction(icon, caption + u'\t' + key);
            action->setEnabled(one.button->isEnabled());
            connect(action, &QAction::triggered, this, [this, row = one.row] { Run(*row); });
        }
        menu->popup(static_cast<QAbstractScrollArea&>(view).viewport()->mapToGlobal(at));
    });
}

void CPulldownDepDlg::Connect() {
    connect(m_treeView, &CDependencyTreeView::SelectionMoved, this, &CPulldownDepDlg::ShowNode);
    connect(m_treeView, &CDependencyTreeView::OpenChanged, this, &CPulldownDepDlg::ShowState);
    connect(m_itemPane, &CCandidatePane::SelectionMoved, this, &CPulldownDepDlg::ShowState);
    connect(&m_itemPane->List(), &QListView::doubleClicked, this, &CPulldownDepDlg::AddSelected);
    // Lines come and go by drag and drop, too.
    const auto open = [this](const QModelIndex& parent) { m_treeView->Open(m_tree->NodeAt(parent)); };
    connect(m_tree, &QAbstractItemModel::rowsInserted, this, open);
    connect(m_tree, &QAbstractItemModel::rowsMoved, this,
            [open](const QModelIndex&, int, int, const QModelIndex& to) { open(to); });
    for (const auto change : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(m_tree, change, this, &CPulldownDepDlg::ShowNode);
    connect(m_tree, &QAbstractItemModel::rowsMoved, this, &CPulldownDepDlg::ShowNode);
    connect(m_tree, &QAbstractItemModel::modelReset, this, &CPulldownDepDlg::ShowNode);
}

// --- What it shows

QString CPulldownDepDlg::Heading(int list) const {
    return list < 0 ? QString() : ListHeading(m_context.catalogue, list, m_context.settings);
}

QString CPulldownDepDlg::LevelOf(const Node* node) const {
    const RecordMode mode = m_editor.Mode();
    const auto levels = static_cast<int>(DependencyChain(mode).size());
    if (!node) return LoadText(Text::DepLevelNone);
    const QString next = Heading(m_editor.NextListOf(*node));
    if (!node->Item()) return FormatText<Text::DepLevelTop>(levels, next);
    const QString text = node->Item()->GetText();
    const int depth = ChainDepth(mode, node->Item()->listId);
    if (depth == 0) return FormatText<Text::DepLevelOutside>(text);
    if (next.isEmpty()) return FormatText<Text::DepLevelLast>(depth, text);
    return FormatText<Text::DepLevelUnder>(depth + 1, levels, next, text);
}

/// Why no items are shown.
QString CPulldownDepDlg::NoteOfItems() const {
    if (m_items->List() < 0 || m_items->rowCount() > 0) return {};
    if (m_items->Count() > 0) return LoadText(Text::DepNoMatch);
    const bool hasItems = !m_context.catalogue.Texts(m_items->List()).isEmpty();
    return LoadText(hasItems ? Text::DepNoCandidates : Text::DepNoItems);
}

void CPulldownDepDlg::ShowNode() {
    const Node* node = m_treeView->Selected();
    m_items->Show(node);
    const QString heading = Heading(m_items->List());
    CMnemonics mnemonics = m_mnemonics;
    m_itemPane->ShowHeading(heading, mnemonics.Give(heading));
    m_level->SetFullText(LevelOf(node));
    ShowState();
}

void CPulldownDepDlg::ShowState() {
    m_itemPane->ShowNote(NoteOfItems());
    for (const ActionButton& one : m_buttons) {
        const bool isOther = one.row->work.isOther && (this->*one.row->work.isOther)();
        one.button->setText(isOther ? one.otherCaption : one.caption);
        one.button->setEnabled((this->*one.row->work.isOffered)());
    }
}

void CPulldownDepDlg::Say(const QString& what) {
    m_said->SetFullText(what);
}

// --- Its end

void CPulldownDepDlg::reject() {
    const bool isLost = m_editor.HasUnsaved();
    if (isLost && m_context.prompt.Ask({.textId = static_cast<int>(Text::DepAskDiscard),
                                        .title = windowTitle(),
                                        .text = LoadText(Text::DepAskDiscard),
                                        .icon = BoxIcon::Warning,
                                        .buttons = Buttons::YesNo,
                                        .defaultAnswer = Answer::No,
                                        .actionLabel = LoadText(Text::DepDiscard)}) != Answer::Yes)
        return;
    QDialog::reject();
}

void CPulldownDepDlg::done(int result) {
    PersistDialogSize(*this, m_context.settings.Profile(), SizeSection());
    QDialog::done(result);
}

bool RunDependencyDialog(QWidget* parent, CDependencyEditor& editor, const DependencyDialogContext& context) {
    CPulldownDepDlg dialog(editor, context, parent);
    return dialog.exec() == QDialog::Accepted;
}
