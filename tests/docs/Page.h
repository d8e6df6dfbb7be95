#pragma once

#include <QByteArray>
#include <QFile>
#include <QRegularExpression>
#include <QString>
#include <QStringList>

/// A page of docs/, taken apart.
class Page {
 public:
    explicit Page(const char* name) {
        QFile file(QStringLiteral(DOCS_FOLDER "/") + QString::fromLatin1(name));
        if (!file.open(QIODevice::ReadOnly)) qFatal("there is no page %s", name);
        m_text = QString::fromUtf8(file.readAll());
    }

    /// What stands under a heading ("## name"), up to the next one.
    [[nodiscard]] QString Under(const QString& heading) const {
        const QString begin = QStringLiteral("\n## ") + heading + u'\n';
        const qsizetype at = m_text.indexOf(begin);
        if (at < 0) qFatal("no heading %s", qPrintable(heading));
        const qsizetype from = at + begin.size();
        return m_text.mid(from, m_text.indexOf(QStringLiteral("\n## "), from) - from);
    }
    /// The blocks of code of a language in a part of a page; an empty language for blocks without one.
    [[nodiscard]] static QStringList Blocks(const QString& part, const QString& language) {
        QStringList blocks;
        const QStringList pieces = part.split(QStringLiteral("```"));
        for (qsizetype i = 1; i < pieces.size(); i += 2) {
            const qsizetype line = pieces.at(i).indexOf(u'\n');
            if (pieces.at(i).left(line) == language) blocks += pieces.at(i).mid(line + 1);
        }
        return blocks;
    }
    /// The rows of the first table of a part: cells without blanks around them, and without ` and *.
    [[nodiscard]] static QList<QStringList> Table(const QString& part) {
        QList<QStringList> rows;
        for (QString line : part.split(u'\n')) {
            if (!line.startsWith(u'|')) {
                if (!rows.isEmpty()) break;
                continue;
            }
            QStringList cells;
            line.remove(u'`').remove(u'*');
            for (const QString& cell : line.mid(1, line.size() - 2).split(u'|')) cells += cell.trimmed();
            rows += cells;
        }
        return rows.mid(2);  // the heads and the line below them
    }
    /// The bytes of an example: on each line hexadecimal digits, then at least three blanks and what they
    /// mean.
    [[nodiscard]] static QByteArray Bytes(const QString& block) {
        QByteArray hex;
        for (const QString& line : block.split(u'\n'))
            hex += line.split(QStringLiteral("   ")).first().toLatin1();
        return QByteArray::fromHex(hex);
    }
    /// Statements, with the comments in front of them.
    [[nodiscard]] static QStringList Statements(const QString& block) {
        return block.split(QRegularExpression(QStringLiteral(";\\s*\\n|;\\s*$")), Qt::SkipEmptyParts);
    }

 private:
    QString m_text;
};
