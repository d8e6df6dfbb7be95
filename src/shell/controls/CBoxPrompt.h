#pragma once

#include "platform/host/CPrompt.h"

/// Messages and questions as boxes over the window in front. The one place with boxes and file choosers.
class CBoxPrompt final : public CPrompt {
 public:
    [[nodiscard]] Answer Ask(const MessageBox& box) override;
    void Tell(const MessageBox& box) override;
    [[nodiscard]] std::optional<QString> ChooseFile(const FileChoice& choice) override;
};
