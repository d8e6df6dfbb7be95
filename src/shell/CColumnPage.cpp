#include "shell/CColumnPage.h"

#include "lang/LoadText.h"
#include "shell/CMnemonics.h"
#include "shell/FormRows.h"

#include <QGridLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>

namespace {

constexpr int kAvailableColumn = 0, kButtonColumn = 1, kShownColumn = 2;

/// Captions have at most 16 signs, as many as the separator has.
int WidthOfLines(const QListWidget& list) {
    const int widest = list.fontMetrics().horizontalAdvance(LoadText(Text::ColumnSeparator));
    return widest + list.verticalScrollBar()->sizeHint().width() + 3 * kFormSpace;
}

/// The line, or the last one where there are fewer.
void Fill(QListWidget& list, const QStringList& lines, int current) {
    const QSignalBlocker blocked(&list);
    list.clear();
    list.addItems(lines);
    list.setCurrentRow(qMin(current, list.count() - 1));
}

}  // namespace

CColumnPage::CColumnPage(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("columnPage"));
    setWindowTitle(LoadText(Text::ColumnPageTitle));
    CMnemonics mnemonics;
    auto* grid = new QGridLayout(this);
    grid->setSpacing(kFormSpace);
    m_available = AddList(Text::ColumnsAvailable, "availableColumns", kAvailableColumn, mnemonics);
    AddButtons(mnemonics);
    m_shown = AddList(Text::ColumnsShown, "shownColumns", kShownColumn, mnemonics);
    grid->setColumnStretch(kAvailableColumn, 1);
    grid->setColumnStretch(kShownColumn, 1);
    setFocusProxy(m_available);
    connect(m_available, &QListWidget::itemDoubleClicked, this, &CColumnPage::Take);
    connect(m_shown, &QListWidget::itemDoubleClicked, this, &CColumnPage::GiveBack);
    ShowUse();
}

QListWidget* CColumnPage::AddList(Text caption, const char* name, int column, CMnemonics& mnemonics) {
    auto* list = new QListWidget;
    auto* label = new QLabel(mnemonics.Give(LoadText(caption)));
    label->setBuddy(list);
    NameWidget(*list, QString::fromLatin1(name), LoadText(caption));
    list->setMinimumWidth(WidthOfLines(*list));
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->installEventFilter(this);
    auto& grid = static_cast<QGridLayout&>(*layout());
    grid.addWidget(label, 0, column);
    grid.addWidget(list, 1, column);
    connect(list, &QListWidget::currentRowChanged, this, &CColumnPage::ShowUse);
    return list;
}

QPushButton* CColumnPage::AddButton(QVBoxLayout& buttons, Text caption, Text tip, const char* name,
                                    const char* icon, CMnemonics& mnemonics) {
    auto* button = new QPushButton(mnemonics.Give(LoadText(caption)));
    button->setIcon(QIcon::fromTheme(QString::fromLatin1(icon)));
    button->setToolTip(LoadText(tip));
    button->setAutoDefault(false);
    NameWidget(*button, QString::fromLatin1(name), LoadText(caption));
    buttons.addWidget(button);
    return button;
}

void CColumnPage::AddButtons(CMnemonics& mnemonics) {
    auto* buttons = new QVBoxLayout;
    buttons->setSpacing(kFormSpace);
    static_cast<QGridLayout&>(*layout()).addLayout(buttons, 1, kButtonColumn);
    buttons->addStretch();
    m_take = AddButton(*buttons, Text::ColumnTake, Text::TipColumnTake, "takeColumn", "go-next", mnemonics);
    m_giveBack = AddButton(*buttons, Text::ColumnGiveBack, Text::TipColumnGiveBack, "giveBackColumn",
                           "go-previous", mnemonics);
    buttons->addSpacing(kFormSpace);
    m_up = AddButton(*buttons, Text::ColumnUp, Text::TipColumnUp, "columnUp", "go-up", mnemonics);
    m_down = AddButton(*buttons, Text::ColumnDown, Text::TipColumnDown, "columnDown", "go-down", mnemonics);
    buttons->addStretch();
    connect(m_take, &QPushButton::clicked, this, &CColumnPage::Take);
    connect(m_giveBack, &QPushButton::clicked, this, &CColumnPage::GiveBack);
    connect(m_up, &QPushButton::clicked, this, [this] { Move(&ColumnChoice::MoveUp); });
    connect(m_down, &QPushButton::clicked, this, [this] { Move(&ColumnChoice::MoveDown); });
}

void CColumnPage::SetDraft(const ChosenColumns& columns, bool hasSeparators) {
    m_choice.Open(columns, hasSeparators);
    ShowLists(0, 0);
}

/// Among the available ones the next line comes under the cursor, so that several can be taken in a row.
void CColumnPage::Take() {
    const int line = m_available->currentRow();
    const int taken = m_choice.Take(line);
    if (taken != ColumnChoice::kNone) ShowLists(line, taken);
}

void CColumnPage::GiveBack() {
    const int line = m_shown->currentRow();
    const int given = m_choice.GiveBack(line);
    ShowLists(given == ColumnChoice::kNone ? m_available->currentRow() : given, line);
}

void CColumnPage::Move(int (ColumnChoice::*move)(int line)) {
    const int line = (m_choice.*move)(m_shown->currentRow());
    if (line != ColumnChoice::kNone) ShowLists(m_available->currentRow(), line);
}

void CColumnPage::ShowLists(int availableLine, int shownLine) {
    Fill(*m_available, m_choice.Available(), availableLine);
    Fill(*m_shown, m_choice.Shown(), shownLine);
    ShowUse();
}

void CColumnPage::ShowUse() {
    const int shownLine = m_shown->currentRow();
    m_take->setEnabled(m_available->currentRow() >= 0);
    m_giveBack->setEnabled(shownLine >= 0);
    m_up->setEnabled(shownLine > 0);
    m_down->setEnabled(shownLine >= 0 && shownLine < m_shown->count() - 1);
}

bool CColumnPage::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    const auto& key = static_cast<QKeyEvent&>(*event);
    const auto modifiers = key.modifiers() & ~Qt::KeypadModifier;
    const bool isShown = watched == m_shown;
    if (key.key() == Qt::Key_Space && modifiers == Qt::NoModifier) {
        isShown ? GiveBack() : Take();
        return true;
    }
    const bool isMove = isShown && modifiers == Qt::AltModifier;
    if (!isMove || (key.key() != Qt::Key_Up && key.key() != Qt::Key_Down))
        return QWidget::eventFilter(watched, event);
    Move(key.key() == Qt::Key_Up ? &ColumnChoice::MoveUp : &ColumnChoice::MoveDown);
    return true;
}
