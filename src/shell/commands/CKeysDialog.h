#pragma once

#include "viewmodel/commands/KeyedCommands.h"

#include <QDialog>
#include <vector>

class CProfile;

/// The sheet of all keys: every command that has one. It stays open beside the work.
class CKeysDialog final : public QDialog {
    Q_OBJECT

 public:
    /// The profile keeps its size.
    CKeysDialog(const std::vector<KeyedCommand>& commands, CProfile& profile, QWidget* parent = nullptr);
    void done(int result) override;
    /// It goes with the window that it belongs to.
    [[nodiscard]] bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    CProfile& m_profile;
};
