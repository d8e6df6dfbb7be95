#pragma once

class QKeyEvent;
class QWidget;

/// Shows a popup below the field that it belongs to, or above where there is no room below. It goes when it
/// is closed.
void ShowPopup(QWidget& popup, const QWidget& field);
/// Alt+Down and F4, as with combo boxes.
[[nodiscard]] bool OpensPopup(const QKeyEvent& event);
