#pragma once

#include "viewmodel/commands/CommandPalette.h"

#include <QDialog>
#include <optional>

class CProfile;
class CSearchList;

/// Finds a command by words of its caption and its menu.
class CPalette final : public QDialog {
    Q_OBJECT

 public:
    /// The profile keeps its size.
    CPalette(std::vector<PaletteEntry> entries, CProfile& profile, QWidget* parent = nullptr);

    /// The number of the command that is selected; nothing without one.
    [[nodiscard]] std::optional<int> Chosen() const;
    void done(int result) override;

 private:
    std::vector<PaletteEntry> m_entries;
    CProfile& m_profile;
    CSearchList* m_list;
};

/// The command chosen; nothing when the user cancelled.
[[nodiscard]] std::optional<int> RunPalette(QWidget* parent, std::vector<PaletteEntry> entries,
                                            CProfile& profile);
