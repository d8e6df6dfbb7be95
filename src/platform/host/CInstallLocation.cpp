#include "platform/host/CInstallLocation.h"

#include <QDir>
#include <QFile>
#include <cerrno>

#include "platform/host/ErrorText.h"

namespace {

/// Where the installer writes: one line InstallLocation=FOLDER in UTF-8. Double quotes around the folder keep
/// blanks at its ends; within them \" and \\ stand for the quote and the backslash.
QString NotePath() {
    QString base = qEnvironmentVariable("XDG_CONFIG_HOME");
    if (!QDir::isAbsolutePath(base)) base = QDir::homePath() + QStringLiteral("/.config");
    return base + QStringLiteral("/velmarch/DvVelSetup");
}

QString Unquoted(const QString& text) {
    if (text.size() < 2 || text.front() != u'"' || text.back() != u'"') return text;
    QString plain;
    for (qsizetype i = 1; i < text.size() - 1; ++i) {
        if (text[i] == u'\\' && i + 1 < text.size() - 1) ++i;
        plain += text[i];
    }
    return plain;
}

QString Reason(const char* operation, int error) {
    const QString message = ErrorText(error);
    return QString::fromLatin1(operation) + QStringLiteral("\n\n") + message;
}

}  // namespace

InstalledPlace ReadInstallLocation() {
    QFile note(NotePath());
    errno = 0;
    if (!note.open(QIODevice::ReadOnly)) return {false, {}, Reason("RegOpenKeyEx", errno)};
    while (!note.atEnd()) {
        const QString line = QString::fromUtf8(note.readLine(65536)).trimmed();
        const qsizetype equals = line.indexOf(u'=');
        if (equals < 0 || QStringView(line).left(equals).trimmed() != u"InstallLocation") continue;
        return {true, Unquoted(line.mid(equals + 1).trimmed()), {}};
    }
    if (note.error() != QFileDevice::NoError) return {false, {}, Reason("RegQueryValueEx", EIO)};
    return {false, {}, Reason("RegQueryValueEx", ENOENT)};
}

QString ModulePath() {
    QString path = QFile::symLinkTarget(QStringLiteral("/proc/self/exe"));
    // While an update has replaced the program's file, the kernel says "/path/velmarch (deleted)".
    const QString deleted = QStringLiteral(" (deleted)");
    if (path.endsWith(deleted) && !QFile::exists(path)) path.chop(deleted.size());
    return path;
}

QString FolderOf(const QString& path) {
    const qsizetype separator = path.lastIndexOf(u'/');
    return separator > 0 ? path.left(separator) : QString();
}
