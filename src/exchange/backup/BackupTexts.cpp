#include "exchange/backup/BackupTexts.h"

#include "exchange/backup/BackupOutcome.h"
#include "lang/FormatText.h"

namespace {

QString Reason(Text before, const QString& reason, Text after) {
    return reason.isEmpty() ? QString() : LoadText(before) + reason + LoadText(after);
}

}  // namespace

QString BackupDateText(const SYSTEMTIME& time) {
    return FormatText<Text::BackupDate>(time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute);
}

QString BackupCountsText(const BackupContent& content) {
    const auto& counts = content.counts;
    return FormatText<Text::BackupCounts>(content.Total(), counts[0], counts[1], counts[2], counts[3]);
}

/// "A record can't be stored [13], and why."
QString InsertFailure(std::int32_t code, const QString& words) {
    const QString hex = QString::number(static_cast<std::uint32_t>(code), 16).toUpper();
    const QString failure = LoadText(Text::RestoreInsertFailed) + QStringLiteral(" [%1]").arg(hex);
    return words.isEmpty() ? failure : failure + QStringLiteral(", ") + words;
}

QString RestoreRefusal(const QString& path, const QString& reason) {
    return LoadText(Text::BackupRefused) + path + LoadText(Text::BackupRefusedEnd) +
           Reason(Text::BackupReason, reason, Text::BackupReasonEnd) + LoadText(Text::RestoreNothingChanged);
}

QString RestoreFailure(const QString& path, const QString& reason) {
    return LoadText(Text::RestoreFailed) + path + LoadText(Text::RestoreFailedEnd) +
           Reason(Text::RestoreReason, reason, Text::RestoreReasonEnd) + LoadText(Text::RestoreUndone);
}
