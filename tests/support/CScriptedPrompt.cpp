#include "support/CScriptedPrompt.h"

#include "lang/LoadText.h"

#include <QTest>

namespace {

QString Called(int textId) {
    return QStringLiteral("%1 %2").arg(textId).arg(TextName(textId));
}

/// Fails the running test function, as QFAIL does, but from a place that isn't the function itself.
void FailTest(const QString& why) {
    QTest::qFail(qPrintable(why), __FILE__, __LINE__);
}

bool Offers(Buttons buttons, Answer answer) {
    using enum Answer;
    switch (buttons) {
        case Buttons::Ok:
            return answer == Ok;
        case Buttons::OkCancel:
            return answer == Ok || answer == Cancel;
        case Buttons::YesNo:
            return answer == Yes || answer == No;
        case Buttons::YesNoCancel:
            return answer == Yes || answer == No || answer == Cancel;
        case Buttons::AbortRetryIgnore:
            return answer == Abort || answer == Retry || answer == Ignore;
    }
    return false;
}

}  // namespace

CScriptedPrompt::~CScriptedPrompt() {
    Finish();
}

void CScriptedPrompt::Expect(Text question, Answer answer) {
    m_expected.push_back({static_cast<int>(question), true, answer});
}

void CScriptedPrompt::ExpectTold(Text message) {
    m_expected.push_back({static_cast<int>(message), false, Answer::Ok});
}

void CScriptedPrompt::ExpectFile(const std::optional<QString>& chosen) {
    m_files.push_back(chosen);
}

void CScriptedPrompt::Finish() {
    QStringList missing;
    for (const Expected& one : m_expected) missing.append(Called(one.textId));
    for (const auto& file : m_files)
        missing.append(QStringLiteral("choice of file ") + file.value_or(QString()));
    m_expected.clear();
    m_files.clear();
    if (!missing.isEmpty()) FailTest(QStringLiteral("never came: ") + missing.join(QStringLiteral(", ")));
}

Answer CScriptedPrompt::Ask(const MessageBox& box) {
    return Meet(box, true);
}

void CScriptedPrompt::Tell(const MessageBox& box) {
    Meet(box, false);
}

std::optional<QString> CScriptedPrompt::ChooseFile(const FileChoice& choice) {
    if (m_files.empty()) {
        FailTest(QStringLiteral("unexpected choice of a file: ") + choice.title);
        return std::nullopt;
    }
    const auto chosen = m_files.front();
    m_files.pop_front();
    return chosen;
}

Answer CScriptedPrompt::Meet(const MessageBox& box, bool isQuestion) {
    told.append(box.text);
    if (m_expected.empty() || m_expected.front().textId != box.textId ||
        m_expected.front().isQuestion != isQuestion) {
        FailTest(QStringLiteral("unexpected %1 (%2): %3")
                     .arg(isQuestion ? QStringLiteral("question") : QStringLiteral("message"),
                          Called(box.textId), box.text));
        return box.defaultAnswer;
    }
    const Answer answer = m_expected.front().answer;
    m_expected.pop_front();
    if (isQuestion && !(Offers(box.buttons, answer) && Offers(box.buttons, box.defaultAnswer)))
        FailTest(QStringLiteral("no button for the scripted or the default answer: ") + Called(box.textId));
    return answer;
}
