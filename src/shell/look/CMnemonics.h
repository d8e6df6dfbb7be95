#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

/// Gives each text of a dialog page a mnemonic of its own, so that labels which users name themselves get one
/// too and none comes twice: "Client", "Cost centre" become "&Client", "C&ost centre".
class CMnemonics {
 public:
    /// Shares letters out among texts that Give is asked for later, so that as many as possible get one:
    /// "Rate" leaves its first letter to "RR".
    void Plan(const QStringList& texts);
    /// The text with its mnemonic; without one when all its letters are taken.
    [[nodiscard]] QString Give(const QString& text);
    /// A text of the language library with its mnemonic marked, "Entr&y".
    [[nodiscard]] QString Take(const QString& markedText);

    /// A marked text without its mark.
    [[nodiscard]] static QString Plain(QString markedText);

 private:
    using Owners = QHash<QChar, QString>;  ///< capital letter to text

    [[nodiscard]] QList<QChar> FreeLetters(const QString& text) const;
    bool GiveLetter(const QString& text, Owners& owners, QString& tried) const;

    QHash<QString, QString> m_planned;
    QString m_taken;  ///< capital letters and digits
};
