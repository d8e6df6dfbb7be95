#pragma once

#include <QSize>
#include <QString>

class CProfile;
class QWidget;

/// Gives a dialog the size it had when it was last closed, else the suggested one, and never more than its
/// screen has. Sizes are kept in the profile below the section's name, in pixels at 100 %.
void RestoreDialogSize(QWidget& dialog, const CProfile& profile, const QString& section,
                       const QSize& suggested);
/// Keeps the size; nothing is written when it is the one already kept.
void PersistDialogSize(const QWidget& dialog, CProfile& profile, const QString& section);
