#include "exchange/backup/SafetyCopies.h"

#include "lang/FormatText.h"
#include "platform/host/SYSTEMTIME.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>
#include <utility>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr std::size_t kMost = 5;

QString Extension() {
    return u'.' + LoadText(Text::BackupExtension);
}

struct Copy {
    QString stamp;
    int number;  ///< of several in one second
    QString path;
    friend bool operator<(const Copy& one, const Copy& other) {
        return std::pair(one.stamp, one.number) < std::pair(other.stamp, other.number);
    }
};

std::vector<Copy> Copies(const QString& home) {
    static const QRegularExpression kName(u"^before-restore-(\\d{8}-\\d{6})(?:-(\\d+))?\\."_s);
    std::vector<Copy> copies;
    for (const QFileInfo& file :
         QDir(home).entryInfoList({u"before-restore-*"_s + Extension()}, QDir::Files)) {
        const auto match = kName.match(file.fileName());
        if (match.hasMatch())
            copies.push_back({match.captured(1), match.captured(2).toInt(), file.absoluteFilePath()});
    }
    std::ranges::sort(copies, std::less<>());
    return copies;
}

}  // namespace

QString NewSafetyCopy(const QString& home, const SYSTEMTIME& time) {
    const QString name = home + u'/' +
                         FormatText<Text::SafetyCopyName>(time.wYear, time.wMonth, time.wDay, time.wHour,
                                                          time.wMinute, time.wSecond);
    QString free = name + Extension();
    for (int number = 2; QFileInfo(free).isSymLink() || QFileInfo::exists(free); ++number)
        free = name + u'-' + QString::number(number) + Extension();
    return free;
}

/// A clock that was set back makes names that look older than they are.
void KeepNewestSafetyCopies(const QString& home, const QString& made) {
    std::vector<Copy> copies = Copies(home);
    std::erase_if(copies, [&](const Copy& copy) { return copy.path == QFileInfo(made).absoluteFilePath(); });
    while (copies.size() > kMost - 1) {
        QFile::remove(copies.front().path);
        copies.erase(copies.begin());
    }
}
