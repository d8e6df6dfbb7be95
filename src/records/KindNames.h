#pragma once

#include <QString>
#include <optional>

enum class RecordKind : int;

/// "time" and "expense": the kinds of records that the user sees, as other programs name them.
[[nodiscard]] QString KindName(RecordKind kind);
[[nodiscard]] std::optional<RecordKind> KindNamed(QStringView name);
