#pragma once

#include <QByteArray>
#include <QCryptographicHash>
#include <QFile>
#include <QtEndian>

/// Stored sets of columns made by hand, with a packer that knows literal groups only.
namespace ColumnBytes {

inline QByteArray Number(qint32 value) {
    QByteArray bytes(4, '\0');
    qToLittleEndian(value, bytes.data());
    return bytes;
}

/// A row with one letter as its caption.
inline QByteArray Row(char caption, char visible, qint32 width, qint32 position, qint32 kind) {
    QByteArray row(33, '\0');
    row[0] = caption;
    row[32] = visible;
    return row + Number(width) + Number(position) + Number(kind);
}

/// 34 hidden rows "A", 50 wide, of texts.
inline QByteArray Rows() {
    QByteArray rows;
    for (int i = 0; i < 34; ++i) rows += Row('A', 0, 50, 0, 5);
    return rows;
}

inline void PutRow(QByteArray& rows, int column, const QByteArray& row) {
    rows.replace(column * 45, 45, row);
}

inline QByteArray NoBreaks() {
    return Number(0) + Number(0);
}

inline QByteArray Literal(const QByteArray& plain) {
    QByteArray packed;
    for (qsizetype at = 0; at < plain.size(); at += 128) {
        const QByteArray group = plain.mid(at, 128);
        packed += static_cast<char>(group.size() - 1);
        packed += group;
    }
    return packed;
}

/// Packed bytes with their digest, as the one item of a stream.
inline QByteArray Guard(const QByteArray& packed) {
    const QByteArray content = QCryptographicHash::hash(packed, QCryptographicHash::Md5) + packed;
    return Number(6) + Number(static_cast<qint32>(content.size())) + content;
}

inline QByteArray Blob(const QByteArray& plain) {
    return Guard(Literal(plain));
}

/// What data/make_default_blobs.py has written: "list" or "tree".
inline QByteArray Default(const char* which) {
    QFile file(QStringLiteral(TEST_SOURCE_DIR "/data/") + QString::fromLatin1(which) +
               QStringLiteral("-columns.blob"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace ColumnBytes
