#pragma once

#include <QByteArray>
#include <QString>
#include <functional>

class CLauncher;
class CPrompt;

/// The look over the records and settings after each start. The console program's doctor does it in a process
/// of its own, so that nobody waits for it; the user hears only of what is wrong, and what can be done.
class CStartCheck {
 public:
    /// All must outlive the check.
    struct Context {
        CLauncher& launcher;
        CPrompt& prompt;
        /// Carries out what is handed in as soon as no dialog is open: what is being typed is no answer.
        std::function<void(std::function<void()> work)> whenFree;
        /// Called at once when the store is found damaged: nothing more may be written to it.
        std::function<void()> storeIsDamaged = {};
    };
    explicit CStartCheck(const Context& context) : m_context(context) {}

    /// `console` is the console program's file; without it there is no check.
    void Begin(const QString& console, const QString& home);

 private:
    void Report(const QByteArray& output);
    Context m_context;
};

/// What the doctor's JSON has found wrong, ready for reading, a paragraph each; empty when all is sound.
[[nodiscard]] QString WrongFindings(const QByteArray& json);
/// Whether it has found the store's file damaged.
[[nodiscard]] bool IsStoreDamaged(const QByteArray& json);
