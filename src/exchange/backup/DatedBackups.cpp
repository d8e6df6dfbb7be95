#include "exchange/backup/DatedBackups.h"

#include "lang/LoadText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>
#include <utility>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

QString Extension() {
    return u'.' + LoadText(Text::BackupExtension);
}

struct Dated {
    QString time;
    int number;  ///< of several in one second
    QString path;
    friend bool operator<(const Dated& one, const Dated& other) {
        return std::pair(one.time, one.number) < std::pair(other.time, other.number);
    }
};

/// The oldest first. A file of the user's own that begins alike isn't among them.
std::vector<Dated> DatedIn(const QString& folder, const QString& beginning) {
    const QRegularExpression name(u'^' + QRegularExpression::escape(beginning) +
                                  u"(\\d{8}-\\d{6})(?:-(\\d+))?"_s + QRegularExpression::escape(Extension()) +
                                  u'$');
    std::vector<Dated> found;
    for (const QFileInfo& file : QDir(folder).entryInfoList(QDir::Files)) {
        const auto match = name.match(file.fileName());
        if (match.hasMatch())
            found.push_back({match.captured(1), match.captured(2).toInt(), file.absoluteFilePath()});
    }
    std::sort(found.begin(), found.end());
    return found;
}

}  // namespace

QString NewDatedBackup(const QString& folder, const QString& name) {
    const QString path = folder + u'/' + name;
    QString free = path + Extension();
    for (int number = 2; QFileInfo(free).isSymLink() || QFileInfo::exists(free); ++number)
        free = path + u'-' + QString::number(number) + Extension();
    return free;
}

/// A clock that was set back makes names that look older than they are.
void KeepNewestBackups(const QString& folder, const QString& beginning, int most, const QString& made) {
    std::vector<Dated> others = DatedIn(folder, beginning);
    std::erase_if(others,
                  [path = QFileInfo(made).absoluteFilePath()](const Dated& one) { return one.path == path; });
    const auto tooMany = std::max<std::ptrdiff_t>(std::ssize(others) - (most - 1), 0);
    std::for_each(others.begin(), others.begin() + tooMany,
                  [](const Dated& one) { QFile::remove(one.path); });
}
