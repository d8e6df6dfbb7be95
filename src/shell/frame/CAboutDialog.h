#pragma once

#include <QDialog>
#include <QStringList>

/// Version, where the records lie, and memory.
class CAboutDialog final : public QDialog {
    Q_OBJECT

 public:
    explicit CAboutDialog(const QString& home, const QString& lastBackup, QWidget* parent = nullptr);
};

/// "8.03.0105 PPC2000".
[[nodiscard]] QString VersionLine();

/// Memory figures in bytes; a total of 0 is unknown.
struct MemoryGroup {
    std::uint64_t total = 0;
    std::uint64_t free = 0;
};
struct MemoryFigures {
    MemoryGroup physical;
    MemoryGroup swap;
    MemoryGroup addresses;
};
[[nodiscard]] MemoryFigures ReadMemoryFigures();
/// One sentence for each figure; without a total the free memory has no percentage.
[[nodiscard]] QStringList MemoryLines(const MemoryFigures& figures);
