#pragma once

#include "platform/host/CPrompt.h"

/// The property of a window that goes by itself, at any moment: no box may belong to it, as it would go with
/// it.
inline constexpr char kGoesByItself[] = "goesByItself";

class QWidget;

/// The folder that the user chooses, beginning in another one; nothing when it is called off.
[[nodiscard]] std::optional<QString> ChooseFolder(QWidget* parent, const QString& title,
                                                  const QString& begin);

/// Messages and questions as boxes over the window in front. The one place with boxes and file choosers.
class CBoxPrompt final : public CPrompt {
 public:
    [[nodiscard]] Answer Ask(const MessageBox& box) override;
    void Tell(const MessageBox& box) override;
    [[nodiscard]] std::optional<QString> ChooseFile(const FileChoice& choice) override;
};
