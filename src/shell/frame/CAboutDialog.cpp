#include "shell/frame/CAboutDialog.h"

#include "lang/FormatText.h"
#include "shell/look/Glyphs.h"

#include <sys/resource.h>
#include <QDialogButtonBox>
#include <QFile>
#include <QGridLayout>
#include <QLabel>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kMajor = 8;
constexpr int kMinor = 3;
constexpr int kBuild = 105;
constexpr int kPicture = 64;

int Megabytes(std::uint64_t bytes) {
    return static_cast<int>(bytes >> 20);
}

int Percentage(const MemoryGroup& group) {
    return static_cast<int>(static_cast<double>(group.free) / static_cast<double>(group.total) * 100.0);
}

/// A line of /proc/meminfo or /proc/self/status in bytes: "MemTotal:  16316412 kB". 0 when it isn't there.
std::uint64_t KernelFigure(const QList<QByteArray>& lines, const QByteArray& name) {
    for (const QByteArray& line : lines)
        if (line.startsWith(name + ':'))
            return line.mid(name.size() + 1).simplified().split(' ').front().toULongLong() << 10;
    return 0;
}

QList<QByteArray> LinesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().split('\n') : QList<QByteArray>();
}

/// What the process may still take of the addresses it is allowed: all that the processor has for programs
/// where no limit is set.
MemoryGroup AddressSpace() {
    constexpr std::uint64_t kAllAddresses = std::uint64_t{1} << 47;
    rlimit limit{};
    if (getrlimit(RLIMIT_AS, &limit) != 0) return {};
    const std::uint64_t total = std::min<std::uint64_t>(limit.rlim_cur, kAllAddresses);
    const std::uint64_t used = KernelFigure(LinesOf(u"/proc/self/status"_s), "VmSize");
    return {total, total > used ? total - used : 0};
}

}  // namespace

QString VersionLine() {
    return FormatText<Text::VersionNumber>(kMajor, kMinor, kBuild) + u' ' + LoadText(Text::AboutPlatform);
}

MemoryFigures ReadMemoryFigures() {
    const QList<QByteArray> lines = LinesOf(u"/proc/meminfo"_s);
    return {{KernelFigure(lines, "MemTotal"), KernelFigure(lines, "MemAvailable")},
            {KernelFigure(lines, "SwapTotal"), KernelFigure(lines, "SwapFree")},
            AddressSpace()};
}

QStringList MemoryLines(const MemoryFigures& figures) {
    QStringList lines;
    const MemoryGroup& physical = figures.physical;
    if (physical.total > 0) lines.append(FormatText<Text::MemoryLoad>(100 - Percentage(physical)));
    lines.append(FormatText<Text::MemoryTotal>(Megabytes(physical.total)));
    lines.append(physical.total > 0
                     ? FormatText<Text::MemoryFree>(Megabytes(physical.free), Percentage(physical))
                     : FormatText<Text::MemoryFreeOnly>(Megabytes(physical.free)));
    lines.append(FormatText<Text::PageTotal>(Megabytes(figures.swap.total)));
    lines.append(figures.swap.total > 0
                     ? FormatText<Text::PageFree>(Megabytes(figures.swap.free), Percentage(figures.swap))
                     : FormatText<Text::PageFreeOnly>(Megabytes(figures.swap.free)));
    const MemoryGroup& addresses = figures.addresses;
    lines.append(FormatText<Text::VirtualTotal>(Megabytes(addresses.total)));
    lines.append(addresses.total > 0
                     ? FormatText<Text::VirtualFree>(Megabytes(addresses.free), Percentage(addresses))
                     : FormatText<Text::VirtualFreeOnly>(Megabytes(addresses.free)));
    return lines;
}

CAboutDialog::CAboutDialog(const QString& home, const QString& lastBackup, QWidget* parent)
    : QDialog(parent) {
    setObjectName(u"aboutDialog"_s);
    setWindowTitle(LoadText(Text::AboutTitle));
    auto* layout = new QGridLayout(this);
    layout->setSpacing(8);
    auto* picture = new QLabel(this);
    picture->setPixmap(Glyphs::ProgramIcon().pixmap(kPicture, kPicture));
    layout->addWidget(picture, 0, 0, 4, 1, Qt::AlignTop);
    auto add = [&, row = 0](const QString& text, const QString& name) mutable {
        auto* label = new QLabel(text, this);
        label->setObjectName(name);
        label->setTextFormat(Qt::PlainText);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        label->setWordWrap(true);
        layout->addWidget(label, row++, 1);
        return label;
    };
    QLabel* name = add(LoadText(Text::ProgramTitle) + u' ' + VersionLine(), u"aboutVersion"_s);
    QFont bold = name->font();
    bold.setBold(true);
    name->setFont(bold);
    add(LoadText(Text::AboutPurpose), u"aboutPurpose"_s);
    add(FormatText<Text::AboutRecords>(home), u"aboutHome"_s);
    add(lastBackup, u"aboutBackup"_s);
    add(MemoryLines(ReadMemoryFigures()).join(u'\n'), u"aboutMemory"_s);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons, 5, 0, 1, 2);
    layout->setColumnStretch(1, 1);
    setMinimumWidth(420);
}
