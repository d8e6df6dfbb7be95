#pragma once

#include <QString>
#include <chrono>

/// How long an operation waits for other programs in all.
inline constexpr int kMostWaitSeconds = 30;

/// Is asked again and again while the program waits for another one.
class CWaitListener {
 public:
    enum class Choice { GoOn, GiveUp };

    virtual ~CWaitListener() = default;
    /// what: the file that another program has in use; waited: for how long it has been waited for. Called
    /// after each short sleep (20 milliseconds at most), in the middle of a statement: nothing may be read
    /// from the files of the home or written to them here. The end of a wait isn't told: it is over once
    /// the event loop runs while CWaitBudget::IsWaiting is false.
    [[nodiscard]] virtual Choice OnWaiting(const QString& what, std::chrono::milliseconds waited) = 0;
};

/// The time that one operation may spend waiting for other programs, shared by all that it waits for: the
/// store, the settings, their folder, the running window. Settings that took 10 seconds leave 20 for the
/// store. For the one thread of the program.
class CWaitBudget {
 public:
    explicit CWaitBudget(std::chrono::milliseconds limit = std::chrono::seconds(kMostWaitSeconds))
        : m_limit(limit) {}

    [[nodiscard]] std::chrono::milliseconds Left() const;
    /// Sleeps and asks the listener. False when the time is used up or the listener gave up; then every
    /// further wait of the operation is refused at once.
    [[nodiscard]] bool Wait(const QString& what, std::chrono::milliseconds waited,
                            std::chrono::milliseconds sleep);
    /// Takes time off that was spent waiting in another way.
    void Spend(std::chrono::milliseconds time) { m_used += time; }
    /// The next operation begins, with all of the time. Nothing happens within a wait: messages that are
    /// served meanwhile are no operation of their own.
    void Renew();

    /// Null: nobody is asked.
    void SetListener(CWaitListener* listener) { m_listener = listener; }
    [[nodiscard]] bool IsWaiting() const { return m_isWaiting; }

 private:
    std::chrono::milliseconds m_limit;
    std::chrono::steady_clock::duration m_used{0};
    CWaitListener* m_listener = nullptr;
    bool m_isWaiting = false;
};

/// The budget of the present operation; null where none is in force, and each lock is waited for by its own
/// limit. Process-wide name for the one in use.
extern CWaitBudget* theWaitBudget;

/// Puts a budget in force for as long as it lives.
class WaitBudgetScope {
 public:
    explicit WaitBudgetScope(CWaitBudget& budget) : m_former(theWaitBudget) { theWaitBudget = &budget; }
    ~WaitBudgetScope() { theWaitBudget = m_former; }
    WaitBudgetScope(const WaitBudgetScope&) = delete;
    WaitBudgetScope& operator=(const WaitBudgetScope&) = delete;

 private:
    CWaitBudget* m_former;
};
