#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QCryptographicHash>

#include "platform/host/CBeside.h"

/// The digest (MD5) of the bytes of a backup, taken beside the work that makes or reads them: it costs as
/// much as that work, and nobody has to wait for both. Where the system has no thread left it is taken when
/// it is needed.
class CBackupDigest {
 public:
    /// The bytes are copied.
    void Add(QByteArrayView bytes);
    /// 16 bytes: of all that was added. Nothing more can be added then.
    [[nodiscard]] QByteArray Result();

 private:
    void Pass();

    static constexpr qsizetype kPiece = 1 << 20;

    QCryptographicHash m_hash{QCryptographicHash::Md5};
    QByteArray m_gathered;
    QByteArray m_passed;  ///< what is hashed now
    CBeside m_beside;     ///< has m_hash and m_passed; it ends before them
};
