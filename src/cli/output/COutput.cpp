#include "cli/output/COutput.h"

#include "cli/output/UnseenCharacters.h"
#include "lang/FormatText.h"

#include <unistd.h>
#include <cerrno>
#include <cstring>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr std::size_t kPiece = 65536;

/// Writes everything; the errno of the failure, 0 when all went out.
int WriteAll(int descriptor, QByteArrayView bytes) {
    while (!bytes.isEmpty()) {
        const ssize_t count = ::write(descriptor, bytes.data(), static_cast<std::size_t>(bytes.size()));
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return errno;
        bytes = bytes.sliced(count);
    }
    return 0;
}

}  // namespace

COutput::COutput(int results, int notes) : m_results(results), m_notes(notes) {}

void COutput::Put(QByteArrayView utf8) {
    if (m_error != 0) return;
    m_gathered.append(utf8.data(), static_cast<std::size_t>(utf8.size()));
    if (m_gathered.size() >= kPiece) Flush();
}

void COutput::PutLine(const QString& line) {
    Put(WithMarks(line, false).toUtf8());
    Put("\n");
}

void COutput::Flush() {
    if (m_error == 0) m_error = WriteAll(m_results, m_gathered);
    m_gathered.clear();
}

bool COutput::Finish() {
    Flush();
    if (m_error != 0 && !m_told) {
        m_told = true;
        Complain(FormatText<Text::CliOutputFailed>(QString::fromLocal8Bit(std::strerror(m_error))));
    }
    return m_error == 0;
}

void COutput::NoteBare(const QString& text) {
    // When even this can't be written there is nobody left to tell.
    (void)WriteAll(m_notes, WithMarks(text, true).toUtf8());
}

void COutput::Progress(const QString& text) {
    (void)WriteAll(m_notes, "\r");
    NoteBare(text);
}

void COutput::Note(const QString& text) {
    if (!isQuiet) NoteBare(text + u'\n');
}

void COutput::Complain(const QString& text) {
    NoteBare(u"velmarch-cli: "_s + text + u'\n');
}
