#include "shell/report/CPrintPreview.h"

#include "lang/FormatText.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace {

constexpr double kUnitsPerInch = 96;
constexpr double kGap = 16;  ///< between sheets and beside them, in pixels
constexpr double kZoomStep = 1.25;
constexpr double kLeastZoom = 0.2, kMostZoom = 5;
constexpr QSize kUsualSize{720, 760};

QSizeF InUnits(const QSizeF& inches) {
    return inches * kUnitsPerInch;
}

}  // namespace

CSheetsView::CSheetsView(const PrintablePage& page, const QPageLayout& paper, QWidget* parent)
    : QAbstractScrollArea(parent), m_page(page) {
    NameWidget(*this, QStringLiteral("printSheets"), LoadText(Text::ReportPreviewTitle));
    viewport()->setBackgroundRole(QPalette::Mid);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    SetPaper(paper);
}

void CSheetsView::SetPaper(const QPageLayout& paper) {
    m_sheets.emplace(m_page, InUnits(paper.paintRect(QPageLayout::Inch).size()));
    m_whole = InUnits(paper.fullRect(QPageLayout::Inch).size());
    m_corner = paper.paintRect(QPageLayout::Inch).topLeft() * kUnitsPerInch;
    FitBars();
    verticalScrollBar()->setValue(0);
    viewport()->update();
    Q_EMIT SheetChanged(SheetInSight());
}

/// Pixels for a unit.
double CSheetsView::Scale() const {
    return std::max(1.0, viewport()->width() - 2 * kGap) / m_whole.width() * m_zoom;
}

/// From one sheet to the next.
double CSheetsView::Pitch() const {
    return m_whole.height() * Scale() + kGap;
}

QRectF CSheetsView::PlaceOf(int number) const {
    const QSizeF size = m_whole * Scale();
    const double left = std::max(kGap, (viewport()->width() - size.width()) / 2);
    return {QPointF(left - horizontalScrollBar()->value(),
                    kGap + (number - 1) * Pitch() - verticalScrollBar()->value()),
            size};
}

int CSheetsView::SheetInSight() const {
    const double middle = verticalScrollBar()->value() + viewport()->height() / 2.0 - kGap;
    return std::clamp(static_cast<int>(middle / Pitch()) + 1, 1, Count());
}

/// The sheet that is looked at stays in sight.
void CSheetsView::Zoom(int steps) {
    const double place = (verticalScrollBar()->value() + viewport()->height() / 2.0) / Pitch();
    m_zoom = steps == 0 ? 1 : std::clamp(m_zoom * std::pow(kZoomStep, steps), kLeastZoom, kMostZoom);
    FitBars();
    verticalScrollBar()->setValue(qRound(place * Pitch() - viewport()->height() / 2.0));
    viewport()->update();
}

void CSheetsView::FitBars() {
    const auto fit = [](QScrollBar& bar, double whole, int seen) {
        bar.setRange(0, std::max(0, static_cast<int>(std::ceil(whole)) - seen));
        bar.setPageStep(seen);
        bar.setSingleStep(std::max(1, seen / 20));
    };
    fit(*verticalScrollBar(), kGap + Count() * Pitch(), viewport()->height());
    fit(*horizontalScrollBar(), m_whole.width() * Scale() + 2 * kGap, viewport()->width());
}

void CSheetsView::resizeEvent(QResizeEvent*) {
    FitBars();
    Q_EMIT SheetChanged(SheetInSight());
}

void CSheetsView::scrollContentsBy(int, int) {
    viewport()->update();
    Q_EMIT SheetChanged(SheetInSight());
}

void CSheetsView::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    const double top = verticalScrollBar()->value() - kGap;
    const int first = std::clamp(static_cast<int>(top / Pitch()) + 1, 1, Count());
    for (int number = first; number <= Count() && PlaceOf(number).top() < viewport()->height(); ++number)
        PaintSheet(painter, number);
}

/// Paper is white whatever the palette.
void CSheetsView::PaintSheet(QPainter& painter, int number) {
    ++m_painted;
    const QRectF place = PlaceOf(number);
    painter.fillRect(place, Qt::white);
    painter.save();
    painter.setClipRect(place);
    painter.translate(place.topLeft());
    painter.scale(Scale(), Scale());
    painter.translate(m_corner);
    m_sheets->Paint(painter, number);
    painter.restore();
}

bool CSheetsView::ZoomBy(const QKeyEvent& event) {
    if (!event.modifiers().testFlag(Qt::ControlModifier)) return false;
    switch (event.key()) {
        case Qt::Key_Plus:
        case Qt::Key_Equal:  // "+" without Shift, on many keyboards
            Zoom(1);
            return true;
        case Qt::Key_Minus:
            Zoom(-1);
            return true;
        case Qt::Key_0:
            Zoom(0);
            return true;
        default:
            return false;
    }
}

void CSheetsView::keyPressEvent(QKeyEvent* event) {
    QScrollBar& bar = *verticalScrollBar();
    if (ZoomBy(*event)) return;
    if (event->key() == Qt::Key_Home)
        bar.setValue(bar.minimum());
    else if (event->key() == Qt::Key_End)
        bar.setValue(bar.maximum());
    else
        QAbstractScrollArea::keyPressEvent(event);
}

void CSheetsView::wheelEvent(QWheelEvent* event) {
    if (event->modifiers().testFlag(Qt::ControlModifier))
        Zoom(event->angleDelta().y() > 0 ? 1 : -1);
    else
        QAbstractScrollArea::wheelEvent(event);
}

CPrintPreview::CPrintPreview(const PrintablePage& page, const QPageLayout& paper, QWidget* parent)
    : QDialog(parent), m_paper(paper), m_row(new QHBoxLayout), m_view(new CSheetsView(page, paper)) {
    setObjectName(QStringLiteral("reportPreviewDialog"));
    setWindowTitle(LoadText(Text::ReportPreviewTitle));
    // A window has a frame and shares the screen with a bar.
    resize(kUsualSize.boundedTo(screen()->availableSize() * 9 / 10));
    CMnemonics mnemonics;
    connect(AddButton(Text::CmdReportZoomIn, "zoomInButton", mnemonics), &QPushButton::clicked, this,
            [this] { m_view->Zoom(1); });
    connect(AddButton(Text::CmdReportZoomOut, "zoomOutButton", mnemonics), &QPushButton::clicked, this,
            [this] { m_view->Zoom(-1); });
    AddLandscape(mnemonics);
    AddSheetNumber();
    auto* print = AddButton(Text::CmdReportPrint, "printButton", mnemonics);
    print->setDefault(true);
    connect(print, &QPushButton::clicked, this, &CPrintPreview::PrintWanted);
    connect(AddButton(Text::DialogClose, "closeButton", mnemonics), &QPushButton::clicked, this,
            &CPrintPreview::reject);
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_view, 1);
    column->addLayout(m_row);
    m_view->setFocus();
}

QPushButton* CPrintPreview::AddButton(Text caption, const char* name, CMnemonics& mnemonics) {
    const QString words = CMnemonics::Plain(LoadText(caption));
    auto* button = new QPushButton(mnemonics.Give(words));
    NameWidget(*button, QString::fromLatin1(name), words);
    button->setAutoDefault(false);
    m_row->addWidget(button);
    return button;
}

void CPrintPreview::AddLandscape(CMnemonics& mnemonics) {
    QCheckBox* landscape = MakeCheckBox(CMnemonics::Plain(LoadText(Text::PreviewLandscape)),
                                        QStringLiteral("landscape"), mnemonics);
    landscape->setToolTip(LoadText(Text::TipPreviewLandscape));
    landscape->setChecked(m_paper.orientation() == QPageLayout::Landscape);
    connect(landscape, &QCheckBox::toggled, this, [this](bool isOn) {
        m_paper.setOrientation(isOn ? QPageLayout::Landscape : QPageLayout::Portrait);
        m_view->SetPaper(m_paper);
    });
    m_row->addWidget(landscape);
}

void CPrintPreview::AddSheetNumber() {
    auto* number = new QLabel;
    number->setObjectName(QStringLiteral("sheetNumber"));
    connect(m_view, &CSheetsView::SheetChanged, this, [this, number](int sheet) {
        number->setText(FormatText<Text::ReportPageOf>(sheet, m_view->Count()));
    });
    m_row->addWidget(number, 1, Qt::AlignCenter);
}
