#pragma once

#include "support/CTestClock.h"
#include "torture/ConsoleRun.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// A home with something of everything that a command may change, made once by the console's own commands,
/// and the copies of it in which commands are made to fail. It is half past nine; one timer runs since nine,
/// another one has counted ten minutes and is paused.
class FaultHome {
 public:
    FaultHome();

    /// What a test asks for by name in its commands: "{t1}" is the first time record.
    [[nodiscard]] QStringList Words(const QString& command) const;
    enum class State { Filled, New /** no files yet */ };
    /// Begins anew from the home as it was made, after these commands, parted by semicolons. False when one
    /// of them failed.
    [[nodiscard]] bool Prepare(const QString& commands, State state = State::Filled);
    /// Back to what was prepared.
    [[nodiscard]] bool Renew() const;

    [[nodiscard]] ConsoleRun Run(const QString& command) const;
    [[nodiscard]] QStringList Content() const;
    [[nodiscard]] QString Path() const { return m_work.path(); }
    [[nodiscard]] CTestClock& Clock() { return m_clock; }
    [[nodiscard]] bool IsMade() const { return m_isMade; }

 private:
    [[nodiscard]] bool Make();
    [[nodiscard]] bool IsDone(const QString& command) const;
    [[nodiscard]] bool WriteFile(const QString& name, const QByteArray& content);
    [[nodiscard]] bool Note(const QString& name, const QString& command);

    QTemporaryDir m_new, m_made, m_prepared, m_work, m_files;
    CTestClock m_clock;
    QHash<QString, QString> m_names;
    QSet<QString> m_known;
    mutable QHash<QStringList, QStringList> m_contents;  ///< by the rows of the files
    bool m_isMade;
};
