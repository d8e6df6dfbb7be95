#pragma once

#include "fields/WordMatcher.h"
#include "shell/look/Glyphs.h"
#include "shell/look/ListColours.h"

#include <QStyledItemDelegate>

struct Settings;

/// Draws the rows of the record list: ground, state of the row, grid line. This one draws one cell for each
/// column (or one text for each row); the layout of several lines is CRecordLineDelegate's.
class CRecordDelegate : public QStyledItemDelegate {
    Q_OBJECT

 public:
    CRecordDelegate(const Settings& settings, QObject* parent = nullptr);

    /// The words that are marked wherever they stand.
    void SetWords(const QString& words) { m_words = WordMatcher(words); }
    void SetColours(const ListColours& colours) { m_colours = colours; }
    [[nodiscard]] const ListColours& Colours() const { return m_colours; }
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    /// A text that doesn't fit is shown in full as a tip.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
    /// Height of a row in a font.
    [[nodiscard]] virtual int RowHeight(const QFontMetrics& metrics) const;

    /// Pictures are 16 pixels wide; so is the check box at the left edge of a row.
    static constexpr int kImage = 16;
    static constexpr int kLargeImage = 32;
    static constexpr int kGap = 2;
    /// What check box and large icon need side by side.
    static constexpr int kLargeStateWidth = kImage + kLargeImage + 3 * kGap;
    /// Left and right of a text in a cell.
    static constexpr int kMargin = 4;

 protected:
    /// The content of a cell behind the state column.
    virtual void PaintCell(QPainter& painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const;
    /// The tip at a place of a cell, empty for none.
    [[nodiscard]] virtual QString TipAt(const QPoint& at, const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const;
    /// Whether the row has the second ground. The parity differs between the layouts, and that is wanted.
    [[nodiscard]] virtual bool IsAlternate(int row) const { return row % 2 == 1; }

    /// The row's number among the records, heads of groups not counted; -1 for a head.
    [[nodiscard]] static int OrderOf(const QModelIndex& index);
    [[nodiscard]] QColor Ink(const QStyleOptionViewItem& option, int lineColour) const;
    [[nodiscard]] QColor Ground(const QStyleOptionViewItem& option, int row) const;
    void PaintFlag(QPainter& painter, const QRect& place, int column, bool isSet,
                   const QStyleOptionViewItem& option, int row) const;
    /// One line, centred upright, elided at its end. Counts are drawn in figures of one width.
    void PaintText(QPainter& painter, const QRect& place, const QString& text, Qt::Alignment alignment,
                   const QFont& font) const;
    /// The same of a text in which words are looked for; those that stand in it are marked.
    void PaintSearched(QPainter& painter, const QRect& place, const QString& text, Qt::Alignment alignment,
                       const QStyleOptionViewItem& option) const;

    const Settings& m_settings;
    ListColours m_colours;
    WordMatcher m_words{QString()};

 private:
    [[nodiscard]] bool HasWord(const QModelIndex& index) const;
    void PaintState(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    void PaintGridLine(QPainter& painter, const QRect& row) const;
    /// Large icons and the plain list look as the desktop draws a list: no second ground, no grid line, no
    /// colour of the lines.
    [[nodiscard]] bool IsPlain() const;
};
