#include "records/KnownRows.h"

#include "records/CVOId.h"

namespace {

constexpr std::size_t kCheckColumns = 2;  ///< identity, sum
constexpr std::size_t kIndexColumns = 4;  ///< year, month, day, identity
constexpr int kLastYear = 9999;

/// Empty where there is no identity.
QByteArray IdOf(const RawValue& value) {
    const auto* text = std::get_if<RawText>(&value);
    return text != nullptr && IsIdentity(QString::fromUtf8(text->utf8)) ? text->utf8 : QByteArray();
}

int PartOfDay(const RawValue& value) {
    const auto* number = std::get_if<std::int64_t>(&value);
    return number != nullptr && *number > 0 && *number <= kLastYear ? static_cast<int>(*number) : 0;
}

}  // namespace

/// Trees come first, so what is known already stays.
void KnownRows::Note(const CPageWalk::Found& found) {
    const RawRow& row = found.row;
    if (row.size() == kCheckColumns) {
        const auto* sum = std::get_if<std::int64_t>(&row[1]);
        const QByteArray id = IdOf(row[0]);
        if (sum != nullptr && !id.isEmpty() && !m_checks.contains(id)) m_checks.insert(id, *sum);
    } else if (row.size() == kIndexColumns) {
        const QByteArray id = IdOf(row[3]);
        if (!id.isEmpty() && !m_days.contains(id))
            m_days.insert(id, {PartOfDay(row[0]), PartOfDay(row[1]), PartOfDay(row[2])});
    }
}

KnownRows::Match KnownRows::Compare(const QByteArray& id, std::int64_t sum) const {
    const auto check = m_checks.constFind(id);
    if (check == m_checks.constEnd()) return Match::Unknown;
    return *check == sum ? Match::Same : Match::Other;
}

KnownRows::Lost KnownRows::LostBeside(const QSet<QByteArray>& found) const {
    Lost lost;
    for (auto day = m_days.begin(); day != m_days.end(); ++day) {
        if (found.contains(day.key())) continue;
        ++lost.count;
        ++lost.days[day.value()];
    }
    for (auto check = m_checks.begin(); check != m_checks.end(); ++check)
        if (!found.contains(check.key()) && !m_days.contains(check.key())) ++lost.count;
    return lost;
}
