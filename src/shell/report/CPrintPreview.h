#pragma once

#include "lang/LoadText.h"
#include "shell/report/CPrintSheets.h"

#include <QAbstractScrollArea>
#include <QDialog>
#include <QPageLayout>
#include <optional>

class CMnemonics;
class QHBoxLayout;
class QPushButton;

/// Sheets of paper below one another. Only those in sight are painted, so that a report of any length takes
/// no more memory here than on the screen.
class CSheetsView final : public QAbstractScrollArea {
    Q_OBJECT

 public:
    CSheetsView(const PrintablePage& page, const QPageLayout& paper, QWidget* parent = nullptr);

    /// The sheets anew, on other paper; the first one is in sight.
    void SetPaper(const QPageLayout& paper);
    /// Larger or smaller by a step each; 0: a sheet is as wide as the view.
    void Zoom(int steps);
    /// The sheet in the middle of the view, from 1.
    [[nodiscard]] int SheetInSight() const;
    [[nodiscard]] int Count() const { return m_sheets->Count(); }
    /// How many sheets have been painted so far.
    [[nodiscard]] int PaintedCount() const { return m_painted; }

 Q_SIGNALS:
    void SheetChanged(int number);

 protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

 private:
    [[nodiscard]] double Scale() const;
    [[nodiscard]] double Pitch() const;
    [[nodiscard]] QRectF PlaceOf(int number) const;
    void FitBars();
    [[nodiscard]] bool ZoomBy(const QKeyEvent& event);
    void PaintSheet(QPainter& painter, int number);

    PrintablePage m_page;
    std::optional<CPrintSheets> m_sheets;
    QSizeF m_whole;    ///< of a sheet, in units of 1/96 inch
    QPointF m_corner;  ///< of what can be printed on
    double m_zoom = 1;
    int m_painted = 0;
};

/// Shows the sheets of a report before they are printed.
class CPrintPreview final : public QDialog {
    Q_OBJECT

 public:
    CPrintPreview(const PrintablePage& page, const QPageLayout& paper, QWidget* parent = nullptr);

    /// How the paper lies that is shown.
    [[nodiscard]] const QPageLayout& Paper() const { return m_paper; }

 Q_SIGNALS:
    void PrintWanted();

 private:
    [[nodiscard]] QPushButton* AddButton(Text caption, const char* name, CMnemonics& mnemonics);
    void AddLandscape(CMnemonics& mnemonics);
    void AddSheetNumber();

    QPageLayout m_paper;
    QHBoxLayout* m_row;
    CSheetsView* m_view;
};
