#include "shell/controls/CColourPopup.h"

#include "lang/LoadText.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"
#include "shell/look/ListColours.h"
#include "viewmodel/list/ColourTable.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

constexpr int kColumns = 8;
constexpr int kRows = kColourCount / kColumns;
static_assert(kColumns * kRows == kColourCount);

/// Draws a colour with an outline, so that one like the ground can be seen, and a frame where the cursor is.
class CSwatchDelegate final : public QStyledItemDelegate {
 public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        constexpr int kFrame = 2;
        const QRect cell = option.rect;
        painter->fillRect(cell, option.palette.base());
        if (option.state & QStyle::State_Selected) painter->fillRect(cell, option.palette.highlight());
        if (option.state & QStyle::State_Selected)
            painter->fillRect(cell.adjusted(kFrame, kFrame, -kFrame, -kFrame), option.palette.base());
        const QRect swatch = cell.adjusted(2 * kFrame, 2 * kFrame, -2 * kFrame, -2 * kFrame);
        painter->fillRect(swatch, index.data(Qt::BackgroundRole).value<QBrush>());
        painter->setPen(option.palette.color(QPalette::PlaceholderText));
        painter->drawRect(swatch.adjusted(0, 0, -1, -1));
    }
};

}  // namespace

CColourPopup::CColourPopup(std::uint32_t colour, const QString& automaticLabel, const QIcon& automaticIcon,
                           QWidget* parent)
    : CPickPopup(parent), m_colour(colour), m_grid(new QTableWidget(kRows, kColumns)) {
    setObjectName(QStringLiteral("colourPopup"));
    CMnemonics mnemonics;
    m_automatic = MakeButton({"automaticButton", automaticLabel, kAutomatic}, mnemonics);
    m_automatic->setIcon(automaticIcon);
    m_cancel = MakeButton({"cancelButton", LoadText(Text::DialogCancel), kPadCancel}, mnemonics);
    Column().addWidget(m_automatic);
    Column().addWidget(m_grid);
    Column().addWidget(m_cancel);
    FillGrid();
    FitGrid();
    m_grid->installEventFilter(this);
    connect(m_grid, &QTableWidget::cellClicked, this, [this] { Run(kPadAccept); });
    const NamedColour* present = FindColour(colour);
    const int place = present ? static_cast<int>(present - ColourTable().data()) : 0;
    m_grid->setCurrentCell(place / kColumns, place % kColumns);
    if (present)
        m_grid->setFocus();
    else
        m_automatic->setFocus();
}

void CColourPopup::FillGrid() {
    NameWidget(*m_grid, QStringLiteral("colourGrid"), LoadText(Text::ColourGrid));
    for (int place = 0; place < kColourCount; ++place) {
        const NamedColour& colour = ColourTable()[static_cast<std::size_t>(place)];
        auto* cell = new QTableWidgetItem;
        cell->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        cell->setBackground(ColourOfSetting(colour.value));
        cell->setToolTip(LoadText(colour.name));
        cell->setData(Qt::AccessibleTextRole, LoadText(colour.name));
        m_grid->setItem(place / kColumns, place % kColumns, cell);
    }
}

void CColourPopup::FitGrid() {
    m_grid->setItemDelegate(new CSwatchDelegate(m_grid));
    m_grid->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grid->setTabKeyNavigation(false);
    m_grid->setShowGrid(false);
    m_grid->setFrameShape(QFrame::NoFrame);
    m_grid->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_grid->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    const int side = m_grid->fontMetrics().height() + 3 * kFormSpace / 2;
    for (QHeaderView* header : {m_grid->horizontalHeader(), m_grid->verticalHeader()}) {
        header->hide();
        header->setMinimumSectionSize(1);
        header->setDefaultSectionSize(side);
    }
    m_grid->setFixedSize(kColumns * side, kRows * side);
}

PadState CColourPopup::Press(int id) {
    if (id == kPadCancel) return PadState::Cancelled;
    const int place = m_grid->currentRow() * kColumns + m_grid->currentColumn();
    m_colour = id == kAutomatic ? kAutomaticColour : ColourTable()[static_cast<std::size_t>(place)].value;
    return PadState::Accepted;
}

/// From the edges of the grid on to the buttons above and below; the buttons lead back by themselves.
bool CColourPopup::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return CPickPopup::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Space) {
        Run(kPadAccept);
        return true;
    }
    const bool isUpAndOut = key == Qt::Key_Up && m_grid->currentRow() == 0;
    const bool isDownAndOut = key == Qt::Key_Down && m_grid->currentRow() == kRows - 1;
    if (!isUpAndOut && !isDownAndOut) return CPickPopup::eventFilter(watched, event);
    (isUpAndOut ? m_automatic : m_cancel)->setFocus();
    return true;
}
