#include "shell/record/CDefaultsDialog.h"

#include "config/CCfgStore.h"
#include "entry/CCatalogueItems.h"
#include "entry/CEnteredItems.h"
#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"
#include "records/CVORec.h"
#include "shell/controls/AskText.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/DialogSize.h"
#include "shell/look/FormRows.h"
#include "shell/record/EditRecord.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

QString SizeSection() {
    return QStringLiteral("DefaultsDialog");
}
constexpr QSize kUsualSize{420, 320};

RecordMode ModeOf(const CVORec& record) {
    return record.Kind() == RecordKind::Time ? RecordMode::Time : RecordMode::Expense;
}

}  // namespace

CDefaultsDialog::CDefaultsDialog(CVORec& working, bool isChoosing, const RecordDialogContext& context,
                                 QWidget* parent)
    : QDialog(parent),
      m_context(context),
      m_working(working),
      m_isChoosing(isChoosing),
      m_defaults(context.settings, context.clock, ModeOf(working)),
      m_scratch(working.Clone()) {
    // A default has no identity, and so no timer.
    m_scratch->SetId({});
    setObjectName(QStringLiteral("defaultsDialog"));
    setWindowTitle(LoadText(ModeOf(working) == RecordMode::Time ? Text::DefaultsTitleTime
                                                                : Text::DefaultsTitleExpenses));
    Build();
    Fill();
    m_list->setCurrentItem(m_list->topLevelItem(0));
    ShowState();
    RestoreDialogSize(*this, m_context.settings.Profile(), SizeSection(), kUsualSize);
}

CDefaultsDialog::~CDefaultsDialog() = default;

void CDefaultsDialog::Build() {
    CMnemonics mnemonics;
    auto* column = new QVBoxLayout(this);
    column->setSpacing(kFormSpace);
    auto* row = new QHBoxLayout;
    row->setSpacing(kFormSpace);
    column->addLayout(row);
    auto* left = new QVBoxLayout;
    BuildList(*left);
    row->addLayout(left, 1);
    row->addLayout(BuildActions(mnemonics));
    BuildEnd(*column, mnemonics);
}

void CDefaultsDialog::BuildList(QVBoxLayout& column) {
    m_list = new QTreeWidget;
    NameWidget(*m_list, QStringLiteral("defaultsList"), windowTitle());
    m_list->setHeaderLabel(LoadText(Text::DefaultsName));
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setTextElideMode(Qt::ElideRight);
    m_note = MakeNote(LoadText(Text::DefaultsNone), QStringLiteral("defaultsNote"));
    column.addWidget(m_list, 1);
    column.addWidget(m_note);
    connect(m_list, &QTreeWidget::itemSelectionChanged, this, &CDefaultsDialog::ShowState);
    connect(m_list, &QTreeWidget::itemDoubleClicked, this, [this] { m_isChoosing ? accept() : Edit(); });
}

QVBoxLayout* CDefaultsDialog::BuildActions(CMnemonics& mnemonics) {
    auto* column = new QVBoxLayout;
    AddAction(*column, Text::DefaultsNew, "newButton", &CDefaultsDialog::New, mnemonics);
    m_edit = AddAction(*column, Text::DefaultsEdit, "editButton", &CDefaultsDialog::Edit, mnemonics);
    QPushButton* remove =
        AddAction(*column, Text::DefaultsDelete, "deleteButton", &CDefaultsDialog::Delete, mnemonics);
    QPushButton* rename =
        AddAction(*column, Text::DefaultsRename, "renameButton", &CDefaultsDialog::Rename, mnemonics);
    column->addStretch();
    m_ofStored = {m_edit, remove, rename};
    connect(new QShortcut(Qt::Key_Delete, m_list), &QShortcut::activated, remove, &QPushButton::click);
    connect(new QShortcut(Qt::Key_F2, m_list), &QShortcut::activated, rename, &QPushButton::click);
    return column;
}

QPushButton* CDefaultsDialog::AddAction(QVBoxLayout& column, Text caption, const char* name,
                                        void (CDefaultsDialog::*action)(), CMnemonics& mnemonics) {
    auto* button = new QPushButton(mnemonics.Take(LoadText(caption)));
    NameWidget(*button, QString::fromLatin1(name), CMnemonics::Plain(LoadText(caption)));
    button->setAutoDefault(false);
    column.addWidget(button);
    connect(button, &QPushButton::clicked, this, action);
    return button;
}

/// To choose, Return takes the row; to manage, it edits it.
void CDefaultsDialog::BuildEnd(QVBoxLayout& column, CMnemonics& mnemonics) {
    column.addSpacing(kFormSpace);
    if (m_isChoosing) {
        QDialogButtonBox* buttons = MakeDialogButtons(*this, Text::DefaultsUse, mnemonics);
        m_ofRow << buttons->button(QDialogButtonBox::Ok);
        column.addWidget(buttons);
        return;
    }
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QPushButton* close = buttons->button(QDialogButtonBox::Close);
    close->setText(mnemonics.Give(LoadText(Text::DialogClose)));
    close->setAutoDefault(false);
    NameWidget(*close, QStringLiteral("closeButton"), LoadText(Text::DialogClose));
    connect(buttons, &QDialogButtonBox::rejected, this, &CDefaultsDialog::reject);
    column.addWidget(buttons);
    m_edit->setDefault(true);
}

/// What was entered goes into the pick lists, too, as with a record.
bool CDefaultsDialog::EditDefault(CVORec& record) {
    if (!EditRecord(this, record, m_context)) return false;
    CCatalogueItems lists(m_context.catalogue);
    m_context.entered.StoreInto(lists);
    return true;
}

NamedDefaultsActions CDefaultsDialog::Actions(const QString& title) {
    NamedDefaultsActions::Screen screen{
        [this](CVORec& record) { return EditDefault(record); },
        [this, title](const QString& opening) {
            return AskText(this, {title, LoadText(Text::DefaultsName), opening});
        },
        m_context.prompt};
    return {m_defaults, *m_scratch, m_context.settings.confirmDelete, std::move(screen)};
}

void CDefaultsDialog::New() {
    const auto name = Actions(LoadText(Text::NewDefaultTitle)).New();
    if (!name) return;
    Fill();
    Select(*name);
}

void CDefaultsDialog::Edit() {
    static_cast<void>(Actions({}).Edit(Selected()));
}

void CDefaultsDialog::Delete() {
    QTreeWidgetItem* row = m_list->currentItem();
    if (!row || !Actions({}).Delete(Selected())) return;
    const int place = m_list->indexOfTopLevelItem(row);
    Fill();
    m_list->setCurrentItem(m_list->topLevelItem(place));
}

void CDefaultsDialog::Rename() {
    const auto name = Actions(LoadText(Text::RenameDefaultTitle)).Rename(Selected());
    if (name) m_list->currentItem()->setText(0, *name);
}

/// In the order in which they are stored, then the empty record.
void CDefaultsDialog::Fill() {
    m_list->clear();
    const QStringList names = m_defaults.Names();
    for (const QString& name : names) (new QTreeWidgetItem(m_list))->setText(0, name);
    QTreeWidgetItem* empty = m_list->topLevelItem(m_list->topLevelItemCount() - 1);
    QFont font = m_list->font();
    font.setItalic(true);
    empty->setFont(0, font);
    m_note->setText(LoadText(names.size() > 1 ? Text::DefaultsHint : Text::DefaultsNone));
}

void CDefaultsDialog::Select(const QString& name) {
    const auto rows = m_list->findItems(name, Qt::MatchFixedString | Qt::MatchCaseSensitive);
    if (!rows.isEmpty()) m_list->setCurrentItem(rows.front());
}

QString CDefaultsDialog::Selected() const {
    const auto rows = m_list->selectedItems();
    return rows.isEmpty() ? QString() : rows.front()->text(0);
}

void CDefaultsDialog::ShowState() {
    const QString name = Selected();
    for (QPushButton* button : m_ofRow) button->setEnabled(!name.isEmpty());
    for (QPushButton* button : m_ofStored)
        button->setEnabled(!name.isEmpty() && !m_defaults.IsReserved(name));
}

void CDefaultsDialog::accept() {
    const QString name = Selected();
    if (name.isEmpty()) return;
    if (m_defaults.Read(name, m_working)) {
        QDialog::accept();
        return;
    }
    MessageBox box;
    box.textId = static_cast<int>(Text::DefaultDamaged);
    box.title = windowTitle();
    box.text = FormatText<Text::DefaultDamaged>(name);
    box.icon = BoxIcon::Warning;
    m_context.prompt.Tell(box);
}

void CDefaultsDialog::done(int result) {
    PersistDialogSize(*this, m_context.settings.Profile(), SizeSection());
    QDialog::done(result);
}

bool RunDefaultsDialog(QWidget* parent, CVORec& working, bool isChoosing,
                       const RecordDialogContext& context) {
    const QScopedValueRollback clock(context.settings.clock24);
    CDefaultsDialog dialog(working, isChoosing, context, parent);
    return dialog.exec() == QDialog::Accepted;
}
