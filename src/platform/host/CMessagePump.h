#pragma once

/// Keeps the screen alive during long work on the one thread.
class CMessagePump {
 public:
    virtual ~CMessagePump() = default;
    /// Serves what is waiting; called once per record in long loops, so it must be cheap when nothing waits.
    /// False when the program was asked to quit: the caller ends its loop after the current record.
    [[nodiscard]] virtual bool Pump() = 0;
    /// Long work begins and ends, which the screen shows by its cursor. It may begin again within itself.
    virtual void BeginWait() = 0;
    virtual void EndWait() = 0;
};

/// Long work for as long as this lives.
class CWaitScope {
 public:
    explicit CWaitScope(CMessagePump& pump) : m_pump(pump) { m_pump.BeginWait(); }
    ~CWaitScope() { m_pump.EndWait(); }
    CWaitScope(const CWaitScope&) = delete;
    CWaitScope& operator=(const CWaitScope&) = delete;

 private:
    CMessagePump& m_pump;
};

/// Where there is no screen: nothing to serve, never asked to quit.
class CNoPump final : public CMessagePump {
 public:
    [[nodiscard]] bool Pump() override { return true; }
    void BeginWait() override {}
    void EndWait() override {}
};
