#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// Identities of records in little room: a million of them take 32 MB.
class CIdList {
 public:
    void Append(const QString& id) { m_digits.append(id.toLatin1().leftJustified(kLength, '0', true)); }
    [[nodiscard]] qsizetype Count() const { return m_digits.size() / kLength; }
    [[nodiscard]] QString At(qsizetype place) const {
        return QString::fromLatin1(m_digits.constData() + place * kLength, kLength);
    }
    [[nodiscard]] QStringList All() const {
        QStringList ids;
        ids.reserve(Count());
        for (qsizetype place = 0; place < Count(); ++place) ids.append(At(place));
        return ids;
    }

 private:
    static constexpr qsizetype kLength = 32;
    QByteArray m_digits;
};
