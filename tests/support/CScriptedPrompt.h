#pragma once

#include "lang/Text.h"
#include "platform/host/CPrompt.h"

#include <QStringList>
#include <deque>
#include <optional>

/// A script of expected messages and questions, in the order in which they come. One that wasn't expected, or
/// an expected one that never came, fails the test; an unexpected question is answered by its default. An
/// answer that the question has no button for fails the test, and so does a box whose title, icon, buttons,
/// default answer or verb isn't what BoxTable states.
class CScriptedPrompt final : public CPrompt {
 public:
    ~CScriptedPrompt() override;
    /// The title has to be given for a text that comes under several.
    void Expect(Text question, Answer answer, std::optional<Text> title = {});
    void ExpectTold(Text message, std::optional<Text> title = {});
    /// The next choice of a file ends with this one; nothing: it is called off.
    void ExpectFile(const std::optional<QString>& chosen);
    /// Fails the test when something expected hasn't come.
    void Finish();

    [[nodiscard]] Answer Ask(const MessageBox& box) override;
    void Tell(const MessageBox& box) override;
    [[nodiscard]] std::optional<QString> ChooseFile(const FileChoice& choice) override;

    QStringList told;  ///< all texts shown, in order

 private:
    struct Expected {
        int textId;
        bool isQuestion;
        Answer answer;
        std::optional<Text> title;
    };
    Answer Meet(const MessageBox& box, bool isQuestion);
    std::deque<Expected> m_expected;
    std::deque<std::optional<QString>> m_files;
};
