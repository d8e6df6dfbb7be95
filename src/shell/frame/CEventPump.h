#pragma once

#include "platform/host/CMessagePump.h"

#include <QElapsedTimer>

/// Keeps the window alive during long work: looks for what is waiting twenty times a second at most, so that
/// being called once for each record costs nearly nothing.
class CEventPump final : public CMessagePump {
 public:
    [[nodiscard]] bool Pump() override;
    /// The wait cursor, over all windows.
    void BeginWait() override;
    void EndWait() override;
    /// The user wants to leave: the work that pumps ends after its present record.
    void AskToQuit() { m_quit = true; }

 private:
    QElapsedTimer m_since;
    bool m_quit = false;
};
