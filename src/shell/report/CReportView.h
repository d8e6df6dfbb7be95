#pragma once

#include "shell/report/CFontMeasure.h"
#include "viewmodel/report/CPageLayout.h"
#include "viewmodel/report/CPageMeasures.h"
#include "viewmodel/report/CReportReader.h"
#include "viewmodel/report/TextSearch.h"

#include <QAbstractScrollArea>
#include <QElapsedTimer>
#include <QString>
#include <QTimer>
#include <cstdint>
#include <memory>
#include <optional>

class CReportPicture;

/// What is needed to print the page of a view.
struct PrintablePage {
    std::shared_ptr<const ReportPage> page;
    std::shared_ptr<const CPageMeasures> measures;
    CFontMeasure* measure = nullptr;
    const CReportPicture* picture = nullptr;
};

/// The page of a report on screen, black on white paper whatever the palette. Reading, measuring and laying
/// out is done in parts of some milliseconds, so that a page of any length never stops the window. Nothing
/// that the page names is fetched or opened. Its text can be selected by mouse and keys, copied and found.
class CReportView final : public QAbstractScrollArea {
    Q_OBJECT

 public:
    explicit CReportView(QWidget* parent = nullptr);
    ~CReportView() override;

    /// Whether pages can be shown here: there is a font.
    [[nodiscard]] static bool CanShow();

    /// Shows another page, from its top; Prepared follows.
    void SetPage(const QString& html);
    void Clear() { SetPage(QString()); }
    /// Whether the page is laid out and shown.
    [[nodiscard]] bool IsPrepared() const { return m_layout != nullptr; }
    /// Whether it is laid out for the size and zoom that the view has now.
    [[nodiscard]] bool IsSettled() const { return m_layout && !m_nextLayout; }
    /// The page as text: tabs between cells, a line feed behind each row. Empty until it is read.
    [[nodiscard]] QString Text() const;
    /// The page for printing; waits until it is read and measured. It stays usable until the next SetPage.
    [[nodiscard]] PrintablePage Printable();

    /// A picture above the first table with lines, or none. The view doesn't own it.
    void SetPicture(const CReportPicture* picture);
    /// The picture has changed.
    void UpdatePicture();

    /// On: the columns are fitted to the width of the view, and the page is made smaller where that isn't
    /// enough. Off: each column is as wide as its texts, and the page can be scrolled sideways.
    void SetShrinkToFit(bool shrink);
    [[nodiscard]] bool ShrinksToFit() const { return m_shrinks; }

    void ZoomIn();
    void ZoomOut();
    void ZoomNormal();
    [[nodiscard]] int ZoomPercent() const { return m_zoom; }

    void Copy();
    void SelectAll();
    [[nodiscard]] bool HasSelection() const { return m_anchor != m_cursor; }
    [[nodiscard]] QString SelectedText() const;
    /// Positions in Text(). The end is where the selection goes on by keys.
    void Select(std::uint32_t begin, std::uint32_t end);
    [[nodiscard]] std::uint32_t Anchor() const { return m_anchor; }
    [[nodiscard]] std::uint32_t Cursor() const { return m_cursor; }

    /// Marks all places of a text and selects the next one: a new text from the selection on, the same again
    /// behind it; at the end of the page it goes on at its beginning.
    FoundText Find(const QString& text, const FindWay& way);
    void ClearFind();

    /// Where a position of the text is in the viewport; an empty place before the page is prepared.
    [[nodiscard]] QRect PlaceOf(std::uint32_t position);
    [[nodiscard]] std::uint32_t PositionUnder(const QPoint& viewportPoint);
    void ScrollTo(std::uint32_t position);
    /// What a picture says of itself, and how long the page is.
    [[nodiscard]] QString Description() const;

 Q_SIGNALS:
    void Prepared();
    void SelectionChanged();
    void ZoomChanged(int percent);

 protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

 private:
    void Work();
    [[nodiscard]] bool Advance(int milliseconds);
    [[nodiscard]] bool AdvanceReading(QDeadlineTimer deadline);
    void BeginLayout();
    void ShowLayout();
    [[nodiscard]] double Progress() const;
    /// Pixels for a unit at the zoom that is set, before the page is made smaller to fit.
    [[nodiscard]] double BaseScale() const;
    [[nodiscard]] QPointF ToPage(const QPointF& viewportPoint) const;
    [[nodiscard]] QPointF Origin() const;
    [[nodiscard]] double PictureHeight(double width) const;
    [[nodiscard]] QString TipUnder(const QPoint& viewportPoint) const;
    void SetZoom(int percent);
    void UpdateScrollBars();
    void MoveCursor(std::uint32_t position, bool extend);
    [[nodiscard]] bool ScrollByKey(const QKeyEvent& event);
    [[nodiscard]] bool SelectByKey(const QKeyEvent& event);
    [[nodiscard]] bool CommandByKey(const QKeyEvent& event);
    [[nodiscard]] std::optional<std::uint32_t> PositionByKey(const QKeyEvent& event);
    void DragTo(const QPoint& viewportPoint);
    void PaintPage(QPainter& painter, const QRect& part);
    void PaintProgress(QPainter& painter);

    QElapsedTimer m_begun;  ///< the page that is being prepared
    QTimer m_worker;
    QTimer m_dragger;  ///< scrolls while the mouse is held outside
    std::unique_ptr<CReportReader> m_reader;
    std::shared_ptr<const ReportPage> m_page;
    std::unique_ptr<CFontMeasure> m_measure;
    std::shared_ptr<CPageMeasures> m_measures;
    bool m_isMeasured = false;
    std::unique_ptr<CPageLayout> m_layout;      ///< what is shown
    std::unique_ptr<CPageLayout> m_nextLayout;  ///< being made, for another width
    double m_scale = 1;                         ///< pixels for a unit of what is shown
    double m_nextScale = 1;
    const CReportPicture* m_picture = nullptr;
    bool m_shrinks = true;
    int m_zoom = 100;
    int m_wheel = 0;  ///< turned so far, below a step
    std::uint32_t m_anchor = 0;
    std::uint32_t m_cursor = 0;
    bool m_isShowing = false;  ///< a layout takes the place of the one before
    bool m_isDragging = false;
    std::optional<std::uint32_t> m_scrollTo;  ///< once there is a layout that is seen
    TextSearch m_search;
};
