#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>
#include <QTemporaryDir>

/// How a run of the console program ended and what it said.
struct Reply {
    int exit = -1;  ///< -1: it crashed or didn't end
    QByteArray out;
    QByteArray err;

    [[nodiscard]] QJsonDocument Json() const { return QJsonDocument::fromJson(out); }
    [[nodiscard]] QJsonObject Object() const { return Json().object(); }
    [[nodiscard]] QJsonArray Array() const { return Json().array(); }
};

/// A scratch home and the real console program on it. The event loop runs meanwhile, so a test may stand in
/// for the window.
class ConsoleHome {
 public:
    [[nodiscard]] QString Path() const { return m_folder.path(); }
    [[nodiscard]] QString File(const QString& name) const { return m_folder.filePath(name); }

    /// Runs with --home; there is no terminal on standard input.
    Reply Run(const QStringList& arguments) const;
    /// The same with --json.
    Reply RunJson(const QStringList& arguments) const {
        return Run(QStringList(QStringLiteral("--json")) + arguments);
    }
    /// Runs with these arguments alone, and variables of the environment as "NAME=value".
    static Reply RunBare(const QStringList& arguments, const QStringList& environment = {});
    /// Runs through the shell, "$cli" being the program with this home: for pipes and devices.
    Reply RunShell(const QString& line) const;
    /// What another program does to a file of the home.
    [[nodiscard]] bool Execute(const QString& file, const QByteArray& sql) const;

    /// Adds a record; its identity.
    QString Add(const QStringList& fields, const QString& group = QStringLiteral("time")) const;
    QString AddExpense(const QStringList& fields) const { return Add(fields, QStringLiteral("expense")); }
    /// The record as it is stored.
    QJsonObject Show(const QString& id, const QString& group = QStringLiteral("time")) const;
    QJsonObject ShowExpense(const QString& id) const { return Show(id, QStringLiteral("expense")); }

 private:
    QTemporaryDir m_folder;
};

/// The object with only these fields: what a test row speaks of.
[[nodiscard]] QJsonObject Only(const QJsonObject& object, const QStringList& names);
/// A JSON text with apostrophes in place of quotation marks: "{'a': 1}".
[[nodiscard]] QJsonObject FromText(const QString& text);
/// "--start 09:00 --notes two_words": split at blanks.
[[nodiscard]] QStringList Words(const QString& line);
