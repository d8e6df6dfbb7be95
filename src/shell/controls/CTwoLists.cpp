#include "shell/controls/CTwoLists.h"

#include "lang/LoadText.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"

#include <QGridLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>

namespace {
constexpr int kAvailableColumn = 0, kButtonColumn = 1, kTakenColumn = 2;
}

CTwoLists::CTwoLists(const Words& words, Moves moves, CMnemonics& mnemonics)
    : m_moves(std::move(moves)), m_grid(new QGridLayout(this)), m_buttons(new QVBoxLayout) {
    m_grid->setSpacing(kFormSpace);
    m_grid->setContentsMargins(0, 0, 0, 0);
    m_buttons->setSpacing(kFormSpace);
    m_available = AddList(words.available, words.availableName, kAvailableColumn, mnemonics);
    AddMoveButtons(words, mnemonics);
    m_taken = AddList(words.taken, words.takenName, kTakenColumn, mnemonics);
    m_grid->setColumnStretch(kAvailableColumn, 1);
    m_grid->setColumnStretch(kTakenColumn, 1);
    setFocusProxy(m_available);
    connect(m_available, &QListWidget::itemDoubleClicked, this, &CTwoLists::Take);
    connect(m_taken, &QListWidget::itemDoubleClicked, this, &CTwoLists::GiveBack);
    ShowUse();
}

QListWidget* CTwoLists::AddList(Text caption, const char* name, int column, CMnemonics& mnemonics) {
    auto* list = new QListWidget;
    auto* label = new QLabel(mnemonics.Give(LoadText(caption)));
    label->setBuddy(list);
    NameWidget(*list, QString::fromLatin1(name), LoadText(caption));
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setTextElideMode(Qt::ElideRight);
    list->installEventFilter(this);
    m_grid->addWidget(label, 0, column);
    m_grid->addWidget(list, 1, column);
    connect(list, &QListWidget::currentRowChanged, this, &CTwoLists::ShowUse);
    return list;
}

void CTwoLists::AddMoveButtons(const Words& words, CMnemonics& mnemonics) {
    m_grid->addLayout(m_buttons, 1, kButtonColumn);
    m_buttons->addStretch();
    m_buttons->addStretch();
    m_take = AddButton(words.take, "go-next", mnemonics);
    m_giveBack = AddButton(words.giveBack, "go-previous", mnemonics);
    m_buttons->insertSpacing(m_buttons->count() - 1, kFormSpace);
    m_up = AddButton(words.up, "go-up", mnemonics);
    m_down = AddButton(words.down, "go-down", mnemonics);
    connect(m_take, &QPushButton::clicked, this, &CTwoLists::Take);
    connect(m_giveBack, &QPushButton::clicked, this, &CTwoLists::GiveBack);
    connect(m_up, &QPushButton::clicked, this, [this] { Move(true); });
    connect(m_down, &QPushButton::clicked, this, [this] { Move(false); });
}

/// Above the stretch that ends the column.
QPushButton* CTwoLists::AddButton(const Button& words, const char* icon, CMnemonics& mnemonics) {
    auto* button = new QPushButton(mnemonics.Give(LoadText(words.caption)));
    button->setIcon(QIcon::fromTheme(QString::fromLatin1(icon)));
    button->setToolTip(LoadText(words.tip));
    button->setAutoDefault(false);
    NameWidget(*button, QString::fromLatin1(words.name), LoadText(words.caption));
    m_buttons->insertWidget(m_buttons->count() - 1, button);
    if (m_taken) {  // Tab goes from button to button, and then to the list
        setTabOrder(m_lastButton, button);
        setTabOrder(button, m_taken);
    }
    m_lastButton = button;
    return button;
}

void CTwoLists::ShowLines(int availableLine, int takenLine) {
    const QSignalBlocker availableBlocked(m_available), takenBlocked(m_taken);
    m_available->clear();
    m_taken->clear();
    m_moves.fill(*m_available, *m_taken);
    m_available->setCurrentRow(qMin(availableLine, m_available->count() - 1));
    m_taken->setCurrentRow(qMin(takenLine, m_taken->count() - 1));
    ShowUse();
}

/// Among the available ones the next line comes under the cursor, so that several can be taken in a row.
void CTwoLists::Take() {
    const int line = m_available->currentRow();
    const int taken = m_moves.take(line);
    if (taken != kNone) ShowLines(line, taken);
}

void CTwoLists::GiveBack() {
    const int line = m_taken->currentRow();
    if (line < 0) return;
    const int given = m_moves.giveBack(line);
    ShowLines(given == kNone ? m_available->currentRow() : given, line);
}

void CTwoLists::Move(bool isUp) {
    const int from = m_taken->currentRow();
    const int line = isUp ? m_moves.up(from) : m_moves.down(from);
    if (line != kNone) ShowLines(m_available->currentRow(), line);
}

void CTwoLists::ShowUse() {
    if (!m_taken) return;
    const int line = m_taken->currentRow();
    m_take->setEnabled(m_available->currentRow() >= 0);
    m_giveBack->setEnabled(line >= 0);
    m_up->setEnabled(line > 0);
    m_down->setEnabled(line >= 0 && line < m_taken->count() - 1);
    Q_EMIT LinesChanged();
}

bool CTwoLists::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    const auto& key = static_cast<QKeyEvent&>(*event);
    const auto modifiers = key.modifiers() & ~Qt::KeypadModifier;
    const bool isTaken = watched == m_taken;
    if (key.key() == Qt::Key_Space && modifiers == Qt::NoModifier) {
        isTaken ? GiveBack() : Take();
        return true;
    }
    const bool isMove = isTaken && modifiers == Qt::AltModifier;
    if (!isMove || (key.key() != Qt::Key_Up && key.key() != Qt::Key_Down))
        return QWidget::eventFilter(watched, event);
    Move(key.key() == Qt::Key_Up);
    return true;
}
