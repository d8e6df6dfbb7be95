#include "shell/options/COptionsDialog.h"

#include "config/CCfgStore.h"
#include "lang/LoadText.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/DialogSize.h"
#include "shell/look/FormRows.h"
#include "shell/options/COptionsDelegate.h"
#include "shell/options/COptionsModel.h"
#include "shell/options/COptionsTree.h"
#include "shell/options/SettingSwitch.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QSortFilterProxyModel>
#include <QVBoxLayout>

namespace {

QString SizeSection() {
    return QStringLiteral("OptionsDialog");
}
constexpr QSize kUsualSize{560, 440};

/// A text that has all words, in any order and any case.
QRegularExpression AllWords(const QString& words) {
    QString pattern;
    for (const QString& word : words.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        pattern += QStringLiteral("(?=.*%1)").arg(QRegularExpression::escape(word));
    return QRegularExpression(pattern, QRegularExpression::CaseInsensitiveOption);
}

}  // namespace

COptionsDialog::COptionsDialog(CCfgStore& settings, const CColumnNames* names, QWidget* parent)
    : QDialog(parent),
      m_settings(settings),
      m_model(new COptionsModel(names, this)),
      m_proxy(new QSortFilterProxyModel(this)) {
    setObjectName(QStringLiteral("optionsDialog"));
    setWindowTitle(LoadText(Text::OptionsTitle));
    CMnemonics mnemonics;
    auto* column = new QVBoxLayout(this);
    column->setSpacing(kFormSpace);
    m_search = new QLineEdit;
    m_search->setPlaceholderText(LoadText(Text::OptionsSearch));
    m_search->setClearButtonEnabled(true);
    NameWidget(*m_search, QStringLiteral("optionsSearch"), LoadText(Text::OptionsSearch));
    column->addWidget(m_search);
    BuildTree();
    column->addWidget(m_tree);
    m_nothing = new QLabel(LoadText(Text::OptionsNothingFound));
    m_nothing->setObjectName(QStringLiteral("optionsNothing"));
    m_nothing->hide();
    column->addWidget(m_nothing);
    column->addWidget(MakeDialogButtons(*this, Text::DialogOk, mnemonics));
    connect(m_search, &QLineEdit::textChanged, this, &COptionsDialog::Narrow);
    RestoreDialogSize(*this, m_settings.Profile(), SizeSection(), kUsualSize);
    m_search->setFocus();
}

COptionsDialog::~COptionsDialog() = default;

void COptionsDialog::BuildTree() {
    m_model->Load(m_settings);
    m_proxy->setSourceModel(m_model);
    m_proxy->setRecursiveFilteringEnabled(true);
    m_proxy->setFilterRole(COptionsModel::WordsRole);
    auto* delegate = new COptionsDelegate(*m_model, this);
    m_tree = new COptionsTree;
    NameWidget(*m_tree, QStringLiteral("optionsTree"), LoadText(Text::OptionsTree));
    m_tree->setModel(m_proxy);
    m_tree->setItemDelegate(delegate);
    m_tree->setHeaderHidden(true);
    m_tree->setAllColumnsShowFocus(true);
    m_tree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_tree->header()->setStretchLastSection(false);
    m_tree->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_tree->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    ShowAll();
    // Once the key or click that asks for the editor is done with, or it would go on to leave it.
    connect(delegate, &COptionsDelegate::EditWanted, m_tree, &COptionsTree::EnterEditor,
            Qt::QueuedConnection);
}

/// Opens all groups; words without a value beside them have the whole row.
void COptionsDialog::ShowAll() {
    m_tree->expandAll();
    for (QModelIndex index = m_proxy->index(0, 0); index.isValid(); index = m_tree->indexBelow(index)) {
        const bool hasValue = index.siblingAtColumn(1).flags() & Qt::ItemIsEditable;
        m_tree->setFirstColumnSpanned(index.row(), index.parent(), !hasValue);
    }
    m_tree->setCurrentIndex(m_proxy->index(0, 0));
}

void COptionsDialog::Narrow(const QString& words) {
    m_tree->CloseEditor();
    m_proxy->setFilterRegularExpression(AllWords(words));
    ShowAll();
    m_nothing->setVisible(m_proxy->rowCount() == 0);
}

/// From the search straight into what it found.
void COptionsDialog::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Down && m_search->hasFocus())
        m_tree->setFocus();
    else
        QDialog::keyPressEvent(event);
}

void COptionsDialog::accept() {
    // A number that is still being typed counts.
    m_tree->CloseEditor();
    m_changed = m_model->Store(m_settings);
    QDialog::accept();
}

void COptionsDialog::done(int result) {
    PersistDialogSize(*this, m_settings.Profile(), SizeSection());
    QDialog::done(result);
}

bool RunOptionsDialog(QWidget* parent, CCfgStore& settings, CPrompt& prompt, const CColumnNames* names) {
    COptionsDialog dialog(settings, names, parent);
    if (dialog.exec() != QDialog::Accepted) return false;
    bool isSaved = true;
    for (const int index : dialog.Changed()) isSaved = settings.SaveValue(index) && isSaved;
    if (!isSaved) TellNotSaved(prompt);
    return true;
}
