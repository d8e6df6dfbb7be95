#include "exchange/backup/CBackupDigest.h"

#include <utility>

void CBackupDigest::Add(QByteArrayView bytes) {
    m_gathered.append(bytes.data(), bytes.size());
    if (m_gathered.size() >= kPiece) Pass();
}

QByteArray CBackupDigest::Result() {
    Pass();
    m_beside.Wait();
    return m_hash.result();
}

/// What was gathered is hashed while the next is; the room of what was hashed before serves for that.
void CBackupDigest::Pass() {
    m_beside.Wait();
    std::swap(m_passed, m_gathered);
    m_gathered.resize(0);
    m_beside.Start([this] { m_hash.addData(m_passed); });
}
