#pragma once

#include "changes/CProgress.h"

#include <QString>

class COutput;

/// How far long work is, in percent on the terminal's line; nothing where standard error is no terminal.
class CConsoleProgress final : public CProgress {
 public:
    explicit CConsoleProgress(COutput& out);

    void Begin(const QString& what, int steps) override;
    [[nodiscard]] bool Advance() override;
    void End() override;

 private:
    void Show();

    COutput& m_out;
    bool m_isShown;
    QString m_what;
    int m_steps = 1;
    int m_done = 0;
    int m_percent = 0;
};
