#pragma once

#include <QString>
#include <optional>

class QWidget;

/// A dialog that asks for one line of text.
struct TextQuestion {
    QString title;
    QString label;    ///< of the field
    QString opening;  ///< what stands in it at first, selected
};
/// The line as entered, possibly empty, 255 characters at most; nothing when it was cancelled.
[[nodiscard]] std::optional<QString> AskText(QWidget* parent, const TextQuestion& question);
