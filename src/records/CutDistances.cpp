#include "records/CutDistances.h"

#include "lang/FormatText.h"
#include "records/CERecord.h"

#include <tuple>

namespace {

bool IsEarlier(const RecordDate& a, const RecordDate& b) {
    return std::tie(a.year, a.month, a.day) < std::tie(b.year, b.month, b.day);
}

}  // namespace

bool HasCutDistance(const CVORec& record) {
    return record.Kind() == RecordKind::Expense &&
           !static_cast<const CERecord&>(record).IsDistanceReadWhole();
}

void CutDistances::Note(const CVORec& record) {
    ++m_count;
    const RecordDate& date = static_cast<const CERecord&>(record).date;
    if (date.IsSet() && (!m_first.IsSet() || IsEarlier(date, m_first))) m_first = date;
}

QString CutDistances::Words() const {
    if (m_count == 0) return {};
    return FormatText<Text::DistancesCut>(
        m_count, m_first.IsSet() ? m_first.longText : LoadText(Text::DistanceOfNoDay));
}
