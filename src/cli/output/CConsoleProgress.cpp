#include "cli/output/CConsoleProgress.h"

#include "cli/output/COutput.h"

#include <unistd.h>
#include <algorithm>

CConsoleProgress::CConsoleProgress(COutput& out)
    : m_out(out), m_isShown(!out.isQuiet && ::isatty(STDERR_FILENO) != 0) {}

void CConsoleProgress::Begin(const QString& what, int steps) {
    m_what = what;
    m_steps = std::max(steps, 1);
    m_done = m_percent = 0;
    Show();
}

bool CConsoleProgress::Advance() {
    ++m_done;
    const int percent = static_cast<int>(qint64{std::min(m_done, m_steps)} * 100 / m_steps);
    if (percent != m_percent) {
        m_percent = percent;
        Show();
    }
    return true;
}

void CConsoleProgress::End() {
    if (m_isShown) m_out.NoteBare(QStringLiteral("\n"));
}

void CConsoleProgress::Show() {
    if (m_isShown) m_out.Progress(m_what + u' ' + QString::number(m_percent) + QStringLiteral(" %"));
}
