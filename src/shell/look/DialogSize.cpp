#include "shell/look/DialogSize.h"

#include "platform/settings/CProfile.h"

#include <QScreen>
#include <QWidget>

namespace {

QString WidthEntry() {
    return QStringLiteral("Width");
}
QString HeightEntry() {
    return QStringLiteral("Height");
}

QSize KeptSize(const CProfile& profile, const QString& section) {
    return {profile.GetInt(section, WidthEntry(), 0), profile.GetInt(section, HeightEntry(), 0)};
}

}  // namespace

void RestoreDialogSize(QWidget& dialog, const CProfile& profile, const QString& section,
                       const QSize& suggested) {
    const QSize kept = KeptSize(profile, section);
    const QSize wanted = kept.width() > 0 && kept.height() > 0 ? kept : suggested;
    dialog.resize(wanted.boundedTo(dialog.screen()->availableSize()));
}

void PersistDialogSize(const QWidget& dialog, CProfile& profile, const QString& section) {
    const QSize size = dialog.size();
    if (size == KeptSize(profile, section)) return;
    // A size that can't be kept is no reason to bother anybody: the dialog then opens as it did before.
    profile.WriteInt(section, WidthEntry(), size.width());
    profile.WriteInt(section, HeightEntry(), size.height());
}
