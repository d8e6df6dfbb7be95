#pragma once

#include "platform/host/CClock.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

class TestHome;

// Backups as bytes, made apart from the code under test.

/// The time that stands in the golden files.
class CGoldenClock final : public CClock {
 public:
    [[nodiscard]] SYSTEMTIME GetLocalTime() const override { return {2026, 11, 5, 20, 12, 34, 56, 789}; }
};

/// A file of the folder "golden".
[[nodiscard]] QString GoldenPath(const QString& name);
[[nodiscard]] QByteArray GoldenFile(const QString& name);
[[nodiscard]] QByteArray BytesOf(const QString& path);
bool PutBytes(const QString& path, const QByteArray& bytes);
/// Little-endian.
[[nodiscard]] QByteArray Int32(qint32 number);
/// With the digest of what follows it in front.
[[nodiscard]] QByteArray WithDigest(const QByteArray& rest);
/// Format code, version and a time.
[[nodiscard]] QByteArray Head(qint32 form = 200, qint32 version = 2);

/// All rows of the four tables, as SQLite's own words say them.
[[nodiscard]] QStringList StoreRows(TestHome& home);
/// The records of golden/current.vbk, put into an empty store.
[[nodiscard]] bool FillLikeGolden(TestHome& home);
