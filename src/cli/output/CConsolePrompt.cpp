#include "cli/output/CConsolePrompt.h"

#include "cli/output/COutput.h"
#include "lang/FormatText.h"

#include <unistd.h>
#include <array>

using namespace Qt::Literals::StringLiterals;

namespace {

/// One line from the terminal, without its line feed; what doesn't fit is no answer to anything.
QString ReadLine() {
    std::array<char, 256> buffer{};
    const ssize_t count = ::read(STDIN_FILENO, buffer.data(), buffer.size());
    return count > 0 ? QString::fromLocal8Bit(buffer.data(), count).trimmed() : QString();
}

bool IsYes(const QString& line) {
    return line.compare(LoadText(Text::CliYes), Qt::CaseInsensitive) == 0 ||
           line.compare(LoadText(Text::CliYesShort), Qt::CaseInsensitive) == 0;
}

/// Paragraphs of a box stand apart by an empty line; on a terminal a line feed is enough.
QString OnLines(QString text) {
    return text.replace(u"\n\n"_s, u"\n"_s).trimmed();
}

}  // namespace

QString WordsOf(const MessageBox& box) {
    QString text = box.text;
    for (const QString& operation : {u"RegOpenKeyEx\n\n"_s, u"RegQueryValueEx\n\n"_s})
        if (const qsizetype at = text.indexOf(operation); at >= 0)
            text = text.left(at) + FormatText<Text::CliInstallNote>(text.mid(at + operation.size()));
    return OnLines(text);
}

void CConsolePrompt::Tell(const MessageBox& box) {
    const QString words = WordsOf(box);
    if (words == m_told) return;
    m_told = words;
    if (box.icon == BoxIcon::Information)
        m_out.Note(words);
    else
        m_out.Complain(words);
}

/// By the letters that the question names.
Answer CConsolePrompt::AskHowToGoOn(const MessageBox& box) {
    m_out.NoteBare(FormatText<Text::CliAskLine>(box.title, OnLines(box.text)));
    const QString line = ReadLine().toLower();
    return line == u"r" ? Answer::Retry : line == u"i" ? Answer::Ignore : Answer::Abort;
}

/// Every answer that can't be asked for is the box's harmless one. A question with OK and Cancel is answered
/// with yes or no, too.
Answer CConsolePrompt::Ask(const MessageBox& box) {
    if (box.buttons == Buttons::AbortRetryIgnore && ::isatty(STDIN_FILENO) != 0) return AskHowToGoOn(box);
    const bool isOkCancel = box.buttons == Buttons::OkCancel;
    const bool takesYes = isOkCancel || box.buttons == Buttons::YesNo || box.buttons == Buttons::YesNoCancel;
    const Answer yes = isOkCancel ? Answer::Ok : Answer::Yes;
    const Answer no = isOkCancel ? Answer::Cancel : Answer::No;
    // "--yes" confirms what the command does, not the loss of what was found damaged on the way.
    const bool isOfCommand = box.textId != static_cast<int>(Text::AskResetTree);
    if (takesYes && m_sayYes && isOfCommand) return yes;
    if (!takesYes || ::isatty(STDIN_FILENO) == 0) {
        m_out.Complain(FormatText<Text::CliNotConfirmed>(OnLines(box.text)));
        return takesYes ? no : box.defaultAnswer;
    }
    m_out.NoteBare(FormatText<Text::CliQuestion>(OnLines(box.text)));
    return IsYes(ReadLine()) ? yes : no;
}
