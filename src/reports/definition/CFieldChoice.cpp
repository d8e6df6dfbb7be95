#include "reports/definition/CFieldChoice.h"

#include "reports/definition/ReportFields.h"

#include <algorithm>

namespace {

constexpr int kAscending = 1;
constexpr int kDescending = -1;
constexpr int kColumn = 0;

}  // namespace

QList<FieldId> CFieldChoice::Available() const {
    QList<FieldId> available;
    const ReportUse use = m_purpose == Purpose::Order ? ReportUse::Sort : ReportUse::List;
    for (const FieldRow* field : ReportFields(m_kind, use))
        if (std::ranges::find(m_chosen, field->id, &SortKey::fieldId) == m_chosen.end())
            available.append(field->id);
    return available;
}

bool CFieldChoice::IsDescending(qsizetype place) const {
    return m_purpose == Purpose::Order && IsPlace(place) && m_chosen[place].direction == kDescending;
}

bool CFieldChoice::Choose(FieldId field) {
    if (!Available().contains(field)) return false;
    m_chosen.append({field, kAscending});
    return true;
}

bool CFieldChoice::GiveBack(qsizetype place) {
    if (!IsPlace(place)) return false;
    m_chosen.removeAt(place);
    return true;
}

bool CFieldChoice::MoveUp(qsizetype place) {
    if (!IsPlace(place) || !IsPlace(place - 1)) return false;
    m_chosen.swapItemsAt(place, place - 1);
    return true;
}

bool CFieldChoice::MoveDown(qsizetype place) {
    return MoveUp(place + 1);
}

bool CFieldChoice::SetDescending(qsizetype place, bool isDescending) {
    if (!IsPlace(place) || m_purpose != Purpose::Order) return false;
    m_chosen[place].direction = isDescending ? kDescending : kAscending;
    return true;
}

QList<SortKey> CFieldChoice::Result() const {
    QList<SortKey> result = m_chosen;
    for (qsizetype place = 0; place < result.size(); ++place)
        result[place].direction = m_purpose == Purpose::Columns ? kColumn
                                  : IsDescending(place)         ? kDescending
                                                                : kAscending;
    return result;
}
