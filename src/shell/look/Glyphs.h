#pragma once

#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QRect>

class QPainter;

/// The program's own small pictures.
enum class Glyph {
    CheckClear,
    CheckSet,
    Record,
    Expense,
    DistanceEntry,
    TimerRunning,
    TimerPaused,
    FlagClear,
    Billable,
    Billed,
    Reimbursable,
    Reimbursed,
    Personal,
    Exported,
    Notes,
    ModeTime,
    ModeExpense,
    SumOfList,
    SumOfSelection
};

/// Draws the program's own pictures sharp at any size and scale, in the colours of where they stand.
namespace Glyphs {

/// ink: what "currentColor" stands for; paper: what lies behind, for marks cut out of ink.
void Paint(QPainter& painter, const QRect& place, Glyph glyph, const QColor& ink, const QColor& paper);
/// size in device-independent pixels.
[[nodiscard]] QPixmap Picture(Glyph glyph, int size, qreal devicePixelRatio, const QColor& ink,
                              const QColor& paper);

[[nodiscard]] QIcon ProgramIcon();

}  // namespace Glyphs
