#pragma once

#include <QString>
#include <QStringList>
#include <optional>

/// The window program from its command line to its end: texts, verbs, home, the one instance, settings,
/// records, window.
class CWindowProgram {
 public:
    CWindowProgram(int& argc, char** argv);
    /// The exit code of the process.
    [[nodiscard]] int Run();

 private:
    [[nodiscard]] bool ReadOptions(const QStringList& arguments);
    [[nodiscard]] int RunConsolePart();
    [[nodiscard]] int RunVerb(const QStringList& arguments) const;
    struct Opened;
    [[nodiscard]] int RunWindow();
    /// The window from its first moment to its last; the exit code. Nothing when damage of the store was met
    /// while its records were read, of which the user has to decide first.
    [[nodiscard]] static std::optional<int> RunFrame(const Opened& opened);

    int& m_argc;
    char** m_argv;
    QString m_home;       ///< --home
    QString m_complaint;  ///< why the command line can't be followed
    bool m_wantsHelp = false;
    bool m_wantsVersion = false;
};
