#include "shell/options/CAppearancePreview.h"

#include "lang/FormatText.h"
#include "shell/list/CRecordDelegate.h"
#include "viewmodel/list/CRecordListModel.h"

#include <QEvent>
#include <QHeaderView>
#include <QPainter>
#include <QStandardItemModel>
#include <algorithm>

namespace {

constexpr int kRecords = 3;
constexpr int kLines = 4;

/// The painter of the list with samples for content, four lines each.
class CSamplePainter final : public CRecordDelegate {
 public:
    using CRecordDelegate::CRecordDelegate;
    [[nodiscard]] int RowHeight(const QFontMetrics& metrics) const override {
        return kLines * std::max(metrics.height(), kImage);
    }

 protected:
    void PaintCell(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex&) const override {
        QRect line = option.rect.adjusted(kMargin, 0, -kMargin, 0);
        line.setHeight(line.height() / kLines);
        for (int number = 1; number <= kLines; ++number) {
            painter.setPen(Ink(option, number));
            PaintText(painter, line, FormatText<Text::AppSampleLine>(number),
                      Qt::AlignLeft | Qt::AlignVCenter, option.font);
            line.translate(0, line.height());
        }
    }
    /// As in the list of several lines: the first record has the second ground.
    [[nodiscard]] bool IsAlternate(int row) const override { return row % 2 == 0; }
};

}  // namespace

CAppearancePreview::CAppearancePreview(QWidget* parent)
    : QTableView(parent), m_painter(new CSamplePainter(m_draft, this)) {
    auto* records = new QStandardItemModel(kRecords, 2, this);
    QStringList lines;
    for (int number = 1; number <= kLines; ++number) lines << FormatText<Text::AppSampleLine>(number);
    for (int cell = 0; cell < 2 * kRecords; ++cell)
        records->setData(records->index(cell / 2, cell % 2), lines.join(QStringLiteral(", ")),
                         Qt::AccessibleTextRole);
    setModel(records);
    setItemDelegate(m_painter);
    setSelectionMode(QAbstractItemView::NoSelection);
    setFocusPolicy(Qt::NoFocus);
    setShowGrid(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    horizontalHeader()->hide();
    verticalHeader()->hide();
    FitRows();
    ShowDraft();
}

void CAppearancePreview::FitRows() {
    verticalHeader()->setDefaultSectionSize(m_painter->RowHeight(fontMetrics()));
    horizontalHeader()->setMinimumSectionSize(1);
    horizontalHeader()->resizeSection(
        0, 2 * CRecordDelegate::kImage + CRecordDelegate::kGap + CRecordDelegate::kMargin);
    horizontalHeader()->setStretchLastSection(true);
}

QSize CAppearancePreview::sizeHint() const {
    const int text = fontMetrics().horizontalAdvance(FormatText<Text::AppSampleLine>(kLines));
    return {horizontalHeader()->sectionSize(0) + text + 4 * CRecordDelegate::kMargin + 2 * frameWidth(),
            verticalHeader()->length() + 2 * frameWidth()};
}

void CAppearancePreview::SetDraft(const Settings& draft) {
    m_draft = draft;
    // Whatever the list looks like at the moment: four lines and small pictures show all of the page.
    m_draft.listLayout = static_cast<int>(ListLayout::Lines);
    ShowDraft();
}

void CAppearancePreview::ShowDraft() {
    m_painter->SetColours(MakeListColours(m_draft, palette()));
    viewport()->update();
}

void CAppearancePreview::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange) FitRows();
    if (event->type() == QEvent::PaletteChange) ShowDraft();
}
