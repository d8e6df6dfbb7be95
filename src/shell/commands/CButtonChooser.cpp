#include "shell/commands/CButtonChooser.h"

#include "lang/LoadText.h"
#include "shell/commands/CommandIcon.h"
#include "shell/controls/CTwoLists.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/DialogSize.h"
#include "shell/look/FormRows.h"
#include "shell/look/PlainTip.h"
#include "viewmodel/commands/CommandWords.h"

#include <QDialogButtonBox>
#include <QIcon>
#include <QListWidget>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace {

QString SizeSection() {
    return QStringLiteral("ButtonChooser");
}
constexpr QSize kUsualSize{680, 460};

constexpr CTwoLists::Words kWords{
    .available = Text::ChooserAvailable,
    .availableName = "availableButtons",
    .taken = Text::ChooserOnBar,
    .takenName = "barButtons",
    .take = {Text::ChooserAdd, Text::TipChooserAdd, "takeButton"},
    .giveBack = {Text::ChooserRemove, Text::TipChooserRemove, "giveBackButton"},
    .up = {Text::ColumnUp, Text::TipChooserUp, "buttonUp"},
    .down = {Text::ColumnDown, Text::TipChooserDown, "buttonDown"},
};
constexpr CTwoLists::Button kReset{Text::ChooserReset, Text::TipChooserReset, "resetButtons"};
constexpr CTwoLists::Button kFew{Text::ChooserFew, Text::TipChooserFew, "fewButtons"};

/// In place of an icon, so that the words beside it stand in line.
QIcon Blank(const QSize& size) {
    QPixmap blank(size);
    blank.fill(Qt::transparent);
    return blank;
}

}  // namespace

CButtonChooser::CButtonChooser(Bar bar, const QList<int>& buttons, const Names& names, CProfile& profile,
                               QWidget* parent)
    : QDialog(parent), m_choice(bar, buttons), m_names(names), m_profile(profile) {
    setObjectName(QStringLiteral("buttonChooser"));
    setWindowTitle(LoadText(bar == Bar::Records ? Text::ChooserTitleRecords : Text::ChooserTitleFilters));
    CMnemonics mnemonics;
    auto* column = new QVBoxLayout(this);
    column->setSpacing(kFormSpace);
    m_lists = new CTwoLists(kWords,
                            {.take = [this](int line) { return m_choice.Take(line); },
                             .giveBack = [this](int line) { return m_choice.GiveBack(line); },
                             .up = [this](int line) { return m_choice.MoveUp(line); },
                             .down = [this](int line) { return m_choice.MoveDown(line); },
                             .fill =
                                 [this](QListWidget& available, QListWidget& onBar) {
                                     Fill(available, m_choice.Available());
                                     Fill(onBar, m_choice.OnBar());
                                 }},
                            mnemonics);
    const int icon = style()->pixelMetric(QStyle::PM_SmallIconSize);
    for (QListWidget* list : {&m_lists->Available(), &m_lists->Taken()}) list->setIconSize({icon, icon});
    connect(m_lists->AddButton(kReset, "edit-reset", mnemonics), &QPushButton::clicked, this, [this] {
        m_choice.Reset();
        m_lists->ShowLines(0, 0);
    });
    connect(m_lists->AddButton(kFew, "edit-clear-all", mnemonics), &QPushButton::clicked, this, [this] {
        m_choice.TakeFew();
        m_lists->ShowLines(0, 0);
    });
    column->addWidget(m_lists);
    column->addWidget(MakeDialogButtons(*this, Text::DialogOk, mnemonics));
    m_lists->ShowLines(0, 0);
    RestoreDialogSize(*this, m_profile, SizeSection(), kUsualSize);
    m_lists->setFocus();
}

void CButtonChooser::Fill(QListWidget& list, const QList<int>& buttons) const {
    for (const int button : buttons) {
        const CommandRow* row = FindCommand(button);
        if (!row) {
            new QListWidgetItem(Blank(list.iconSize()), LoadText(Text::ChooserSeparator), &list);
            continue;
        }
        const CommandWords words = WordsOf(*row, m_names.timeMode, m_names.labels);
        const QIcon icon = CommandIcon(*row);
        (new QListWidgetItem(icon, words.tip, &list))->setToolTip(PlainTip(words.status));
    }
}

void CButtonChooser::done(int result) {
    PersistDialogSize(*this, m_profile, SizeSection());
    QDialog::done(result);
}

std::optional<QList<int>> RunButtonChooser(QWidget* parent, Bar bar, const QList<int>& buttons,
                                           const CButtonChooser::Names& names, CProfile& profile) {
    CButtonChooser dialog(bar, buttons, names, profile, parent);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.Buttons();
}
