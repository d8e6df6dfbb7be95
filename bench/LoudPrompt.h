#pragma once

#include "platform/host/CPrompt.h"

/// Nothing is expected to be asked or told; what is, ends the run.
class LoudPrompt final : public CPrompt {
 public:
    Answer Ask(const MessageBox& box) override {
        Tell(box);
        return box.defaultAnswer;
    }
    void Tell(const MessageBox& box) override { qFatal("%s", qPrintable(box.text)); }
    std::optional<QString> ChooseFile(const FileChoice&) override { return std::nullopt; }
};
