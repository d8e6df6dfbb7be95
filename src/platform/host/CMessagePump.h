#pragma once

/// Keeps the screen alive during long work on the one thread.
class CMessagePump {
 public:
    virtual ~CMessagePump() = default;
    /// Serves what is waiting; called once per record in long loops, so it must be cheap when nothing waits.
    /// False when the program was asked to quit: the caller ends its loop after the current record.
    [[nodiscard]] virtual bool Pump() = 0;
};

/// Where there is no screen: nothing to serve, never asked to quit.
class CNoPump final : public CMessagePump {
 public:
    [[nodiscard]] bool Pump() override { return true; }
};
