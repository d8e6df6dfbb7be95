#include "shell/CPickPopup.h"

#include "lang/FormatText.h"
#include "shell/CMnemonics.h"
#include "shell/FormRows.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

constexpr int kGridColumns = 6;

QTableWidget* MakeGrid(const QStringList& cells) {
    const int count = static_cast<int>(cells.size());
    auto* grid = new QTableWidget((count + kGridColumns - 1) / kGridColumns, kGridColumns);
    for (int i = 0; i < grid->rowCount() * kGridColumns; ++i) {
        auto* cell = new QTableWidgetItem(i < count ? cells[i] : QString());
        cell->setTextAlignment(Qt::AlignCenter);
        cell->setFlags(i < count ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags);
        grid->setItem(i / kGridColumns, i % kGridColumns, cell);
    }
    grid->setSelectionMode(QAbstractItemView::SingleSelection);
    grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid->setTabKeyNavigation(false);
    grid->setShowGrid(false);
    grid->setFrameShape(QFrame::NoFrame);
    grid->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    grid->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    grid->horizontalHeader()->hide();
    grid->verticalHeader()->hide();
    return grid;
}

int WidestCell(const QTableWidget& grid) {
    int width = 0;
    for (int row = 0; row < grid.rowCount(); ++row)
        for (int column = 0; column < grid.columnCount(); ++column)
            width = qMax(width, grid.fontMetrics().horizontalAdvance(grid.item(row, column)->text()));
    return width + 2 * kFormSpace;
}

/// As large as its cells.
void FitGrid(QTableWidget& grid, int cellWidth) {
    grid.horizontalHeader()->setMinimumSectionSize(1);
    grid.horizontalHeader()->setDefaultSectionSize(cellWidth);
    grid.verticalHeader()->setDefaultSectionSize(grid.fontMetrics().height() + kFormSpace);
    grid.setFixedSize(grid.horizontalHeader()->length(), grid.verticalHeader()->length());
}

int IndexOf(const QTableWidget& grid) {
    return grid.currentRow() * grid.columnCount() + grid.currentColumn();
}

void SetIndex(QTableWidget& grid, int index) {
    grid.setCurrentCell(index / grid.columnCount(), index % grid.columnCount());
}

QStringList MinuteCells(int step) {
    QStringList cells;
    for (int minute = 0; minute < 60; minute += step) cells << FormatText<Text::PickedMinute>(minute);
    return cells;
}

}  // namespace

CPickPopup::CPickPopup(const Choice& choice, QWidget* parent)
    : QFrame(parent, Qt::Popup), m_step(choice.step), m_hour(choice.hour), m_minute(choice.minute) {
    setObjectName(QStringLiteral("pickPopup"));
    setFrameStyle(QFrame::StyledPanel);
    auto* column = new QVBoxLayout(this);
    column->setSpacing(kFormSpace / 2);
    column->setContentsMargins(kFormSpace, kFormSpace, kFormSpace, kFormSpace);
    CMnemonics mnemonics;
    BuildGrids(choice, mnemonics);
    auto* buttons = new QHBoxLayout;
    column->addSpacing(kFormSpace / 2);
    column->addLayout(buttons);
    BuildButtons(*buttons, choice.hasNow, mnemonics);
    m_hours->setFocus();
}

void CPickPopup::BuildGrids(const Choice& choice, CMnemonics& mnemonics) {
    m_hours = AddGrid(QStringLiteral("hourGrid"), LoadText(Text::PickHour), choice.hours, mnemonics);
    m_minutes =
        AddGrid(QStringLiteral("minuteGrid"), LoadText(Text::PickMinute), MinuteCells(m_step), mnemonics);
    const int cellWidth = qMax(WidestCell(*m_hours), WidestCell(*m_minutes));
    FitGrid(*m_hours, cellWidth);
    FitGrid(*m_minutes, cellWidth);
    SetIndex(*m_hours, m_hour);
    if (m_minute % m_step == 0) SetIndex(*m_minutes, m_minute / m_step);
    connect(m_hours, &QTableWidget::currentCellChanged, this, [this] { m_hour = IndexOf(*m_hours); });
    connect(m_minutes, &QTableWidget::currentCellChanged, this,
            [this] { m_minute = IndexOf(*m_minutes) * m_step; });
    connect(m_hours, &QTableWidget::cellDoubleClicked, this, &CPickPopup::Finish);
    connect(m_minutes, &QTableWidget::cellClicked, this, &CPickPopup::Finish);
}

QTableWidget* CPickPopup::AddGrid(const QString& name, const QString& caption, const QStringList& cells,
                                  CMnemonics& mnemonics) {
    QTableWidget* grid = MakeGrid(cells);
    auto* label = new QLabel(mnemonics.Give(caption));
    label->setBuddy(grid);
    NameWidget(*grid, name, caption);
    layout()->addWidget(label);
    layout()->addWidget(grid);
    grid->installEventFilter(this);
    return grid;
}

QPushButton* CPickPopup::AddButton(QHBoxLayout& row, const QString& name, const QString& caption,
                                   CMnemonics& mnemonics) {
    auto* button = new QPushButton(mnemonics.Give(caption));
    button->setAutoDefault(false);
    NameWidget(*button, name, caption);
    row.addWidget(button);
    return button;
}

void CPickPopup::BuildButtons(QHBoxLayout& row, bool hasNow, CMnemonics& mnemonics) {
    const auto offer = [&](const QString& name, Text caption, void (CPickPopup::*signal)()) {
        connect(AddButton(row, name, LoadText(caption), mnemonics), &QPushButton::clicked, this,
                [this, signal] {
                    Q_EMIT(this->*signal)();
                    close();
                });
    };
    if (hasNow) offer(QStringLiteral("nowButton"), Text::PickNow, &CPickPopup::NowWanted);
    offer(QStringLiteral("clearButton"), Text::PickClear, &CPickPopup::Cleared);
    row.addStretch();
    QPushButton* take = AddButton(row, QStringLiteral("takeButton"), LoadText(Text::DialogOk), mnemonics);
    connect(take, &QPushButton::clicked, this, &CPickPopup::Finish);
}

void CPickPopup::Finish() {
    Q_EMIT Picked(m_hour, m_minute);
    close();
}

/// A grid would keep Return for itself.
bool CPickPopup::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QFrame::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter && key != Qt::Key_Space)
        return QFrame::eventFilter(watched, event);
    Finish();
    return true;
}

void CPickPopup::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QFrame::keyPressEvent(event);
}
