#include "records/KindNames.h"

#include "records/FieldDef.h"

namespace {
constexpr QLatin1String kTime("time");
constexpr QLatin1String kExpense("expense");
}  // namespace

QString KindName(RecordKind kind) {
    return kind == RecordKind::Expense ? kExpense : kTime;
}

std::optional<RecordKind> KindNamed(QStringView name) {
    if (name == kTime) return RecordKind::Time;
    if (name == kExpense) return RecordKind::Expense;
    return std::nullopt;
}
