#include "shell/CButtonChooser.h"

#include "lang/LoadText.h"
#include "shell/CMnemonics.h"
#include "shell/DialogSize.h"
#include "shell/FormRows.h"
#include "shell/PlainTip.h"
#include "shell/core/CommandWords.h"

#include <QDialogButtonBox>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyle>
#include <QVBoxLayout>

namespace {

QString SizeSection() {
    return QStringLiteral("ButtonChooser");
}
constexpr QSize kUsualSize{680, 460};

QPushButton* AddButton(QVBoxLayout& buttons, Text caption, Text tip, const char* name, const char* icon,
                       CMnemonics& mnemonics) {
    auto* button = new QPushButton(mnemonics.Give(LoadText(caption)));
    button->setIcon(QIcon::fromTheme(QString::fromLatin1(icon)));
    button->setToolTip(LoadText(tip));
    button->setAutoDefault(false);
    NameWidget(*button, QString::fromLatin1(name), LoadText(caption));
    buttons.addWidget(button);
    return button;
}

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
    auto* lists = new QHBoxLayout;
    lists->setSpacing(kFormSpace);
    m_available = AddList(*lists, Text::ChooserAvailable, "availableButtons", mnemonics);
    AddButtons(*lists, mnemonics);
    m_onBar = AddList(*lists, Text::ChooserOnBar, "barButtons", mnemonics);
    column->addLayout(lists);
    column->addWidget(MakeDialogButtons(*this, Text::DialogOk, mnemonics));
    connect(m_available, &QListWidget::itemDoubleClicked, this, &CButtonChooser::Take);
    connect(m_onBar, &QListWidget::itemDoubleClicked, this, &CButtonChooser::GiveBack);
    ShowLists(0, 0);
    RestoreDialogSize(*this, m_profile, SizeSection(), kUsualSize);
    m_available->setFocus();
}

QListWidget* CButtonChooser::AddList(QHBoxLayout& lists, Text caption, const char* name,
                                     CMnemonics& mnemonics) {
    auto* list = new QListWidget;
    auto* label = new QLabel(mnemonics.Give(LoadText(caption)));
    label->setBuddy(list);
    NameWidget(*list, QString::fromLatin1(name), LoadText(caption));
    const int icon = style()->pixelMetric(QStyle::PM_SmallIconSize);
    list->setIconSize({icon, icon});
    list->setTextElideMode(Qt::ElideRight);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->installEventFilter(this);
    auto* column = new QVBoxLayout;
    column->setSpacing(kFormSpace);
    column->addWidget(label);
    column->addWidget(list);
    lists.addLayout(column, 1);
    connect(list, &QListWidget::currentRowChanged, this, &CButtonChooser::ShowUse);
    return list;
}

void CButtonChooser::AddButtons(QHBoxLayout& lists, CMnemonics& mnemonics) {
    auto* column = new QVBoxLayout;
    column->setSpacing(kFormSpace);
    lists.addLayout(column);
    column->addStretch();
    m_take = AddButton(*column, Text::ChooserAdd, Text::TipChooserAdd, "takeButton", "go-next", mnemonics);
    m_giveBack = AddButton(*column, Text::ChooserRemove, Text::TipChooserRemove, "giveBackButton",
                           "go-previous", mnemonics);
    column->addSpacing(kFormSpace);
    m_up = AddButton(*column, Text::ColumnUp, Text::TipChooserUp, "buttonUp", "go-up", mnemonics);
    m_down = AddButton(*column, Text::ColumnDown, Text::TipChooserDown, "buttonDown", "go-down", mnemonics);
    column->addSpacing(kFormSpace);
    auto* reset = AddButton(*column, Text::ChooserReset, Text::TipChooserReset, "resetButtons", "edit-reset",
                            mnemonics);
    column->addStretch();
    connect(m_take, &QPushButton::clicked, this, &CButtonChooser::Take);
    connect(m_giveBack, &QPushButton::clicked, this, &CButtonChooser::GiveBack);
    connect(m_up, &QPushButton::clicked, this, [this] { Move(&ButtonChoice::MoveUp); });
    connect(m_down, &QPushButton::clicked, this, [this] { Move(&ButtonChoice::MoveDown); });
    connect(reset, &QPushButton::clicked, this, [this] {
        m_choice.Reset();
        ShowLists(0, 0);
    });
}

void CButtonChooser::Fill(QListWidget& list, const QList<int>& buttons, int current) {
    const QSignalBlocker blocked(&list);
    list.clear();
    for (const int button : buttons) {
        const CommandRow* row = FindCommand(button);
        if (!row) {
            new QListWidgetItem(Blank(list.iconSize()), LoadText(Text::ChooserSeparator), &list);
            continue;
        }
        const CommandWords words = WordsOf(*row, m_names.timeMode, m_names.labels);
        const QIcon icon = QIcon::fromTheme(QString::fromLatin1(row->icon));
        (new QListWidgetItem(icon, words.tip, &list))->setToolTip(PlainTip(words.status));
    }
    list.setCurrentRow(qMin(current, list.count() - 1));
}

void CButtonChooser::ShowLists(int availableLine, int onBarLine) {
    Fill(*m_available, m_choice.Available(), availableLine);
    Fill(*m_onBar, m_choice.OnBar(), onBarLine);
    ShowUse();
}

void CButtonChooser::ShowUse() {
    if (!m_down) return;
    const int line = m_onBar->currentRow();
    m_take->setEnabled(m_available->currentRow() >= 0);
    m_giveBack->setEnabled(line >= 0);
    m_up->setEnabled(line > 0);
    m_down->setEnabled(line >= 0 && line < m_onBar->count() - 1);
}

/// Among the available ones the next line comes under the cursor, so that several can be taken in a row.
void CButtonChooser::Take() {
    const int line = m_available->currentRow();
    const int taken = m_choice.Take(line);
    if (taken != ButtonChoice::kNone) ShowLists(line, taken);
}

void CButtonChooser::GiveBack() {
    const int line = m_onBar->currentRow();
    if (line < 0) return;
    const int given = m_choice.GiveBack(line);
    ShowLists(given == ButtonChoice::kNone ? m_available->currentRow() : given, line);
}

void CButtonChooser::Move(int (ButtonChoice::*move)(int line)) {
    const int line = (m_choice.*move)(m_onBar->currentRow());
    if (line != ButtonChoice::kNone) ShowLists(m_available->currentRow(), line);
}

bool CButtonChooser::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
    const auto& key = static_cast<QKeyEvent&>(*event);
    const auto modifiers = key.modifiers() & ~Qt::KeypadModifier;
    const bool isOnBar = watched == m_onBar;
    if (key.key() == Qt::Key_Space && modifiers == Qt::NoModifier) {
        isOnBar ? GiveBack() : Take();
        return true;
    }
    const bool isMove = isOnBar && modifiers == Qt::AltModifier;
    if (!isMove || (key.key() != Qt::Key_Up && key.key() != Qt::Key_Down))
        return QDialog::eventFilter(watched, event);
    Move(key.key() == Qt::Key_Up ? &ButtonChoice::MoveUp : &ButtonChoice::MoveDown);
    return true;
}

void CButtonChooser::done(int result) {
    KeepDialogSize(*this, m_profile, SizeSection());
    QDialog::done(result);
}

std::optional<QList<int>> RunButtonChooser(QWidget* parent, Bar bar, const QList<int>& buttons,
                                           const CButtonChooser::Names& names, CProfile& profile) {
    CButtonChooser dialog(bar, buttons, names, profile, parent);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.Buttons();
}
