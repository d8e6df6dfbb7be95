#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

class QProcess;

/// Starts other programs, and hears what they write.
class CLauncher {
 public:
    /// What a program wrote to its standard output until it ended by itself.
    using Heard = std::function<void(const QByteArray& output)>;

    virtual ~CLauncher() = default;
    /// Starts a program that works while others sleep: lowest priority for processor and disk, nothing to
    /// read. `heard` is called once, by the event loop; never when the program can't be started, is killed or
    /// crashes, nor once the launcher is gone.
    virtual void RunInBackground(const QString& program, const QStringList& arguments,
                                 const Heard& heard) = 0;
    /// Whether there is a program of this name on the search path.
    [[nodiscard]] virtual bool IsThere(const QString& program) const = 0;
    /// Starts a program of its own, which outlives this one; false when it can't be started.
    [[nodiscard]] virtual bool Start(const QString& program, const QStringList& arguments) = 0;
};

/// Real processes. What still runs in the background when the launcher goes is ended.
class CProcessLauncher final : public CLauncher {
 public:
    CProcessLauncher();
    ~CProcessLauncher() override;
    void RunInBackground(const QString& program, const QStringList& arguments, const Heard& heard) override;
    [[nodiscard]] bool IsThere(const QString& program) const override;
    [[nodiscard]] bool Start(const QString& program, const QStringList& arguments) override;

 private:
    std::vector<std::unique_ptr<QProcess>> m_processes;
};
