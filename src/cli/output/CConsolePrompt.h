#pragma once

#include "platform/host/CPrompt.h"

#include <QString>

class COutput;

/// Messages and questions as lines on standard error. A question is put on a terminal only; elsewhere its
/// answer is no, unless yes was given on the command line for all.
class CConsolePrompt final : public CPrompt {
 public:
    explicit CConsolePrompt(COutput& out) : m_out(out) {}
    void SayYesToAll() { m_sayYes = true; }

    [[nodiscard]] Answer Ask(const MessageBox& box) override;
    void Tell(const MessageBox& box) override;
    [[nodiscard]] std::optional<QString> ChooseFile(const FileChoice&) override { return std::nullopt; }

 private:
    [[nodiscard]] Answer AskHowToGoOn(const MessageBox& box);

    COutput& m_out;
    bool m_sayYes = false;
    QString m_told;  ///< a failure that two ways of reading met is told once
};

/// What a box says, as lines for a terminal: names of operations that mean nothing to its reader become
/// words.
[[nodiscard]] QString WordsOf(const MessageBox& box);
