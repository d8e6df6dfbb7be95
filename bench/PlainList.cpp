#include "PlainList.h"

#include "Painted.h"
#include "WindowHome.h"
#include "config/CCfgStore.h"
#include "shell/look/Glyphs.h"
#include "viewmodel/list/LineLayout.h"

#include <QHeaderView>
#include <algorithm>

namespace {

constexpr int kReady = 10000;

/// A row of several lines as one text of as many lines.
QString LinesOf(const CRecordListModel& model, int row, const std::vector<ListLine>& lines) {
    QStringList texts;
    for (const ListLine& line : lines) {
        QStringList cells;
        for (const int column : line.columns) cells.append(model.TextOf(row, column));
        texts.append(cells.join(QStringLiteral("    ")));
    }
    return texts.join(QChar(QChar::LineSeparator));
}

QVariant CellOf(const CRecordListModel& model, int row, int column, const std::vector<ListLine>& lines) {
    const QModelIndex index = model.index(row, column);
    if (index.data(CRecordListModel::ImageRole).isValid())
        return Glyphs::Picture(Glyph::Record, 16, 1, Qt::black, Qt::white);
    return model.Layout() == ListLayout::Lines ? LinesOf(model, row, lines) : index.data();
}

void Resemble(QTableView& view, const CRecordListView& list) {
    view.setFont(list.font());
    view.setSelectionBehavior(QTableView::SelectRows);
    view.setShowGrid(false);
    view.setWordWrap(false);
    view.setVerticalScrollMode(QTableView::ScrollPerItem);
    view.setHorizontalScrollBarPolicy(list.horizontalScrollBarPolicy());
    view.verticalHeader()->hide();
    view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view.verticalHeader()->setMinimumSectionSize(1);
    view.verticalHeader()->setDefaultSectionSize(list.verticalHeader()->defaultSectionSize());
    view.horizontalHeader()->setVisible(list.horizontalHeader()->isVisible());
    view.horizontalHeader()->setStretchLastSection(true);
    for (int section = 0; section < list.horizontalHeader()->count(); ++section)
        view.horizontalHeader()->resizeSection(section, list.horizontalHeader()->sectionSize(section));
    view.setFixedSize(list.size());
}

}  // namespace

PlainRows::PlainRows(WindowHome& home, QObject* parent) : QAbstractTableModel(parent) {
    const CRecordListModel& model = home.Model();
    const std::vector<ListLine> lines =
        BuildLines(model.VisibleColumns(),
                   home.app.Document().GetSettings().ListColumns().Breaks(HalfOf(KindOf(theRecordMode))));
    m_rows = model.rowCount();
    for (int row = 0; row < std::min(m_rows, kReady); ++row) {
        std::vector<QVariant>& cells = m_cells.emplace_back();
        for (int column = 0; column < model.columnCount(); ++column)
            cells.push_back(CellOf(model, row, column, lines));
    }
}

int PlainRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_rows;
}

int PlainRows::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_cells.front().size());
}

QVariant PlainRows::data(const QModelIndex& index, int role) const {
    const QVariant& cell = m_cells[static_cast<std::size_t>(index.row()) % m_cells.size()]
                                  [static_cast<std::size_t>(index.column())];
    const bool isPicture = cell.userType() == QMetaType::QPixmap;
    return role == (isPicture ? Qt::DecorationRole : Qt::DisplayRole) ? cell : QVariant();
}

PlainList::PlainList(WindowHome& home) : m_view(new QTableView(&m_window)) {
    m_view->setModel(new PlainRows(home, m_view));
    Resemble(*m_view, home.List());
    m_window.setCentralWidget(m_view);
    m_window.resize(home.frame->size());
    WaitForPaint(*m_view->viewport(), [this] { m_window.show(); });
}
