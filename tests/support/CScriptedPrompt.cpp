#include "support/CScriptedPrompt.h"

#include "lang/LoadText.h"
#include "support/BoxTable.h"

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

/// What is wrong with a box, empty for nothing.
QStringList Faults(const MessageBox& box, const BoxRow& row) {
    QStringList faults;
    if (box.title != LoadText(row.title))
        faults.append(QStringLiteral("title \"%1\", not \"%2\"").arg(box.title, LoadText(row.title)));
    // Up to the first place of a format, the text shown is the text of the number.
    if (!box.text.startsWith(LoadText(row.text).section(u'%', 0, 0)) || box.text.isEmpty())
        faults.append(QStringLiteral("text \"%1\"").arg(box.text));
    if (box.icon != row.icon) faults.append(QStringLiteral("another icon"));
    if (box.buttons != row.buttons) faults.append(QStringLiteral("other buttons"));
    if (box.defaultAnswer != row.defaultAnswer) faults.append(QStringLiteral("another default answer"));
    if (box.actionLabel != (row.action ? LoadText(*row.action) : QString()))
        faults.append(QStringLiteral("verb \"%1\"").arg(box.actionLabel));
    return faults;
}

/// What is wrong with a box that was expected under a title; none is needed for a text that has only one.
QStringList Faults(const MessageBox& box, std::optional<Text> title) {
    const std::span<const BoxRow> rows = BoxesOf(box.textId);
    if (rows.empty()) return {QStringLiteral("no row in BoxTable")};
    if (rows.size() > 1 && !title) return {QStringLiteral("several titles, and none was expected")};
    for (const BoxRow& row : rows)
        if (!title || row.title == *title) return Faults(box, row);
    return {QStringLiteral("no row with the expected title in BoxTable")};
}

void CheckLook(const MessageBox& box, std::optional<Text> title) {
    const QStringList faults = Faults(box, title);
    if (!faults.isEmpty())
        FailTest(Called(box.textId) + QStringLiteral(": ") + faults.join(QStringLiteral(", ")));
}

}  // namespace

CScriptedPrompt::~CScriptedPrompt() {
    Finish();
}

void CScriptedPrompt::Expect(Text question, Answer answer, std::optional<Text> title) {
    m_expected.push_back({static_cast<int>(question), true, answer, title});
}

void CScriptedPrompt::ExpectTold(Text message, std::optional<Text> title) {
    m_expected.push_back({static_cast<int>(message), false, Answer::Ok, title});
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
    const auto [textId, isAsked, answer, title] = m_expected.front();
    m_expected.pop_front();
    CheckLook(box, title);
    if (isQuestion && !(Offers(box.buttons, answer) && Offers(box.buttons, box.defaultAnswer)))
        FailTest(QStringLiteral("no button for the scripted or the default answer: ") + Called(box.textId));
    return answer;
}
