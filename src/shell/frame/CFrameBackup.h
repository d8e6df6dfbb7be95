#pragma once

#include "exchange/backup/CBackupCommands.h"

struct FrameContext;

/// The commands of backups.
class CFrameBackup {
 public:
    explicit CFrameBackup(const FrameContext& context);

    void Backup() { m_commands.Backup(); }
    void Restore() { m_commands.Restore(); }
    /// When backups are made by themselves.
    void EditPlan();

 private:
    [[nodiscard]] int DropGone();

    const FrameContext& m_context;
    CBackupCommands m_commands;
};
