#include "platform/settings/SettingsColumns.h"

#include <sqlite3.h>

#include <limits>
#include <utility>

#include "platform/host/Utf8Text.h"

namespace {

constexpr char kTypeInteger[] = "integer";
constexpr char kTypeText[] = "text";
constexpr char kTypeBinary[] = "binary";

QByteArray ColumnBytes(sqlite3_stmt* statement, int index) {
    const void* bytes = sqlite3_column_blob(statement, index);
    return {static_cast<const char*>(bytes), sqlite3_column_bytes(statement, index)};
}

}  // namespace

void BindText(sqlite3_stmt* statement, int index, const QString& text) {
    const QByteArray bytes = text.toUtf8();
    sqlite3_bind_text64(statement, index, bytes.constData(), static_cast<sqlite3_uint64>(bytes.size()),
                        SQLITE_TRANSIENT, SQLITE_UTF8);
}

QString ColumnText(sqlite3_stmt* statement, int index) {
    return TextOfUtf8(ColumnBytes(statement, index));
}

void BindValue(sqlite3_stmt* statement, int index, const SettingsValue& value) {
    const auto bindType = [&](const char* type) {
        sqlite3_bind_text(statement, index, type, -1, SQLITE_STATIC);
    };
    if (const auto* number = std::get_if<std::int32_t>(&value)) {
        bindType(kTypeInteger);
        sqlite3_bind_int(statement, index + 1, *number);
    } else if (const auto* text = std::get_if<QString>(&value)) {
        bindType(kTypeText);
        BindText(statement, index + 1, *text);
    } else {
        const auto& bytes = std::get<QByteArray>(value);
        bindType(kTypeBinary);
        // Never a null pointer, which would bind a null: a binary value of no bytes is a value.
        sqlite3_bind_blob64(statement, index + 1, bytes.isEmpty() ? "" : bytes.constData(),
                            static_cast<sqlite3_uint64>(bytes.size()), SQLITE_TRANSIENT);
    }
}

std::optional<SettingsValue> ColumnValue(sqlite3_stmt* statement, int index) {
    const QByteArray type = ColumnBytes(statement, index);
    const int stored = sqlite3_column_type(statement, index + 1);
    std::optional<SettingsValue> value;
    if (type == kTypeInteger && stored == SQLITE_INTEGER) {
        const sqlite3_int64 number = sqlite3_column_int64(statement, index + 1);
        using Limits = std::numeric_limits<std::int32_t>;
        if (number >= Limits::min() && number <= Limits::max()) {
            value.emplace(std::in_place_type<std::int32_t>, static_cast<std::int32_t>(number));
        }
    } else if (type == kTypeText && stored == SQLITE_TEXT) {
        value.emplace(std::in_place_type<QString>, ColumnText(statement, index + 1));
    } else if (type == kTypeBinary && stored == SQLITE_BLOB) {
        value.emplace(std::in_place_type<QByteArray>, ColumnBytes(statement, index + 1));
    }
    return value;
}
