#pragma once

#include "records/FieldDef.h"

#include <QString>
#include <QStringView>
#include <array>
#include <cstdint>

/// The bytes of a backup file, little-endian: a digest (MD5) of all that follows it, a format code, a
/// version, the local time, then a stream of records for each table. See docs/backup-file.md.
namespace BackupFormat {

inline constexpr int kDigestBytes = 16;
/// Up to the first stream: digest, format code, version, time.
inline constexpr int kHeadBytes = kDigestBytes + 4 + 4 + 16;

/// How the identities are written; the number is the format code.
enum class TextForm : std::int32_t {
    Bytes = 100,  ///< 8-bit text of the system's code page; only ever read
    Wide = 200,   ///< UTF-16, what is written
};

/// In files of version 1 the data of dependencies are packed.
inline constexpr std::int32_t kPackedVersion = 1;
inline constexpr std::int32_t kVersion = 2;

/// In the place of an identity's length: the stream ends.
inline constexpr std::int32_t kEndMark = -1;

struct TableRow {
    RecordKind kind;
    const char* className;  ///< what the user is told of a record that can't be read
};
/// A stream for each table, in this order.
inline constexpr std::array kTables = {
    TableRow{RecordKind::Time, "CTRecord"}, TableRow{RecordKind::Expense, "CERecord"},
    TableRow{RecordKind::PulldownItem, "CPRecord"}, TableRow{RecordKind::Dependency, "CDRecord"}};

/// One fixed identity was once written a digit too long. Read, it is what it was meant to be.
[[nodiscard]] inline QString MeantIdentity(const QString& id) {
    return id == u"FFFF26110BDC7162F073A5BC94A400011" ? QStringLiteral("FFFF26110BDC7162F073A5BC94A40011")
                                                      : id;
}

}  // namespace BackupFormat
