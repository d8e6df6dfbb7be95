#pragma once

#include <functional>

class QWidget;

/// Does something that has this widget painted, and returns when that is done. Whatever comes with it, as the
/// rest of the window does, is painted as well.
void WaitForPaint(QWidget& widget, const std::function<void()>& work);
/// Serves what waits, so that it isn't counted to what comes next.
void Settle();
/// The processor's time from the start of the work to the end of the painting, in microseconds.
[[nodiscard]] double TookToPaint(QWidget& widget, const std::function<void()>& work);
