#include "shell/controls/CSearchList.h"

#include "lang/LoadText.h"
#include "shell/look/FormRows.h"
#include "shell/look/PlainTip.h"

#include <QAbstractTableModel>
#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>
#include <numeric>

namespace {

constexpr int kTextColumn = 0, kPlaceColumn = 1, kKeysColumn = 2;
constexpr int kNoRow = -1;

bool MovesInList(const QKeyEvent& key) {
    switch (key.key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            return (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
        default:
            return false;
    }
}

}  // namespace

/// All rows, and which of them are shown.
class CSearchList::Rows final : public QAbstractTableModel {
 public:
    explicit Rows(CSearchList& list) : QAbstractTableModel(&list), m_list(list) {}

    void Set(std::vector<SearchRow> rows) {
        beginResetModel();
        m_all = std::move(rows);
        m_shown.resize(m_all.size());
        std::iota(m_shown.begin(), m_shown.end(), 0);
        const auto isSaid = [this](QString SearchRow::*words) {
            return std::ranges::any_of(m_all,
                                       [words](const SearchRow& row) { return !(row.*words).isEmpty(); });
        };
        m_columns = isSaid(&SearchRow::keys)    ? kKeysColumn + 1
                    : isSaid(&SearchRow::place) ? kPlaceColumn + 1
                                                : kTextColumn + 1;
        endResetModel();
    }
    void Show(std::vector<int> shown) {
        beginResetModel();
        m_shown = std::move(shown);
        endResetModel();
    }
    [[nodiscard]] int RowAt(const QModelIndex& index) const {
        return index.isValid() ? m_shown[static_cast<std::size_t>(index.row())] : kNoRow;
    }
    [[nodiscard]] QModelIndex IndexOf(int row) const {
        const auto place = std::ranges::find(m_shown, row);
        return place == m_shown.end() ? QModelIndex() : index(static_cast<int>(place - m_shown.begin()), 0);
    }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(m_shown.size());
    }
    [[nodiscard]] int columnCount(const QModelIndex& = {}) const override { return m_columns; }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        const SearchRow& row = m_all[static_cast<std::size_t>(RowAt(index))];
        const int column = index.column();
        switch (role) {
            case Qt::DisplayRole:
                return column == kTextColumn ? row.text : column == kPlaceColumn ? row.place : row.keys;
            case Qt::AccessibleTextRole:
                return InWords(row);
            case Qt::ToolTipRole:
                return column == kTextColumn ? PlainTip(row.text) : QVariant();
            case Qt::DecorationRole:
                return column == kTextColumn && !row.icon.isNull() ? row.icon : QVariant();
            case Qt::ForegroundRole:
                return column == kTextColumn ? QVariant() : m_list.palette().brush(QPalette::PlaceholderText);
            case Qt::TextAlignmentRole:
                return column == kKeysColumn ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
            default:
                return {};
        }
    }

 private:
    /// Each cell tells the whole row, as the cursor is on rows: "Options, Tools, Ctrl+,".
    [[nodiscard]] static QString InWords(const SearchRow& row) {
        QStringList words{row.text, row.place, row.keys};
        words.removeAll(QString());
        return words.join(QStringLiteral(", "));
    }

    CSearchList& m_list;
    std::vector<SearchRow> m_all;
    std::vector<int> m_shown;
    int m_columns = 1;
};

CSearchList::CSearchList(const Texts& texts, QWidget* parent)
    : QWidget(parent),
      m_rows(new Rows(*this)),
      m_search(new QLineEdit),
      m_list(new QTreeView),
      m_nothing(new QLabel(LoadText(texts.nothing))) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kFormSpace);
    m_search->setPlaceholderText(LoadText(texts.search));
    m_search->setClearButtonEnabled(true);
    m_search->installEventFilter(this);
    NameWidget(*m_search, QStringLiteral("searchLine"), LoadText(texts.search));
    column->addWidget(m_search);
    NameWidget(*m_list, QStringLiteral("searchRows"), LoadText(texts.rows));
    m_list->setModel(m_rows);
    m_list->setHeaderHidden(true);
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setAllColumnsShowFocus(true);
    m_list->header()->setStretchLastSection(false);
    m_list->header()->setMinimumSectionSize(1);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    column->addWidget(m_list);
    m_nothing->setObjectName(QStringLiteral("searchNothing"));
    m_nothing->setWordWrap(true);
    m_nothing->hide();
    column->addWidget(m_nothing);
    setFocusProxy(m_search);
    connect(m_search, &QLineEdit::textChanged, this, &CSearchList::Narrow);
    connect(m_list, &QTreeView::doubleClicked, this, &CSearchList::Chosen);
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this] { Q_EMIT CurrentChanged(Current()); });
}

CSearchList::~CSearchList() = default;

void CSearchList::SetRows(std::vector<SearchRow> rows, int current, Find find) {
    m_find = std::move(find);
    m_rows->Set(std::move(rows));
    // Where there is little room, the place is what can be cut.
    const bool hasPlace = m_rows->columnCount() > kPlaceColumn;
    m_list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_list->header()->setSectionResizeMode(hasPlace ? kPlaceColumn : kTextColumn, QHeaderView::Stretch);
    Select(current);
}

void CSearchList::HideSearch() {
    m_search->hide();
    setFocusProxy(m_list);
}

int CSearchList::Current() const {
    return m_rows->RowAt(m_list->currentIndex());
}

void CSearchList::Select(int row) {
    m_list->setCurrentIndex(m_rows->IndexOf(row));
    Q_EMIT CurrentChanged(Current());
}

/// The best row found is selected, so that Enter takes it. Without words the selection stays.
void CSearchList::Narrow(const QString& words) {
    const int selected = Current();
    std::vector<int> found = m_find(words);
    const int best = found.empty() ? kNoRow : found.front();
    m_nothing->setVisible(found.empty());
    m_rows->Show(std::move(found));
    Select(words.trimmed().isEmpty() ? selected : best);
}

bool CSearchList::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !MovesInList(static_cast<QKeyEvent&>(*event)))
        return QWidget::eventFilter(watched, event);
    QCoreApplication::sendEvent(m_list, event);
    return true;
}
