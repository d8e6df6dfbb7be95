#include "viewmodel/tree/CCountedRecords.h"

#include "app/CVelmarchDoc.h"

void CCountedRecords::TakePlaces() {
    m_edition = m_document.PlacesEdition();
    m_places = m_document.VisiblePlaces();
}

void CCountedRecords::Clear() {
    m_filter.reset();
    m_noted.clear();
    m_edition = m_document.PlacesEdition();
    m_places = 0;
}

/// What was noted of records that came after the visible ones were chosen holds on: the filter may keep them
/// out, which OnNarrowed couldn't tell otherwise.
void CCountedRecords::TakeVisible() {
    if (m_filter || IsOutdated())
        m_noted.clear();
    else
        m_noted.removeIf([](const auto& noted) { return !noted.value(); });
    m_filter.reset();
    TakePlaces();
}

std::vector<const CVORec*> CCountedRecords::TakePassing(const NodeFilter& filter) {
    m_noted.clear();
    m_filter = filter;
    TakePlaces();
    std::vector<const CVORec*> counted =
        std::visit([this](const auto& present) { return m_document.CollectPassing(present); }, filter);
    m_document.ForEachVisible([this, &counted](const CVORec& record) {
        if (!PassesFilter(record)) counted.push_back(&record);
    });
    return counted;
}

void CCountedRecords::OnNarrowed(const NodeFilter& before) {
    if (!m_filter) m_filter = before;
    TakePlaces();
}

bool CCountedRecords::IsOutdated() const {
    return m_edition != m_document.PlacesEdition();
}

const CVORec* CCountedRecords::Find(const QString& id) const {
    const CVORec* visible = m_document.VisibleAt(m_document.VisiblePlaceOf(id));
    return visible ? visible : m_document.FindLoaded(id);
}

bool CCountedRecords::PassesFilter(const CVORec& record) const {
    return m_filter &&
           std::visit([&](const auto& filter) { return m_document.Passes(record, filter); }, *m_filter);
}

bool CCountedRecords::IsOfVisible(const QString& id) const {
    return m_document.VisiblePlaceOf(id) < m_places;
}

bool CCountedRecords::Wants(const CVORec& record) const {
    return m_document.IsVisible(record.GetId()) || PassesFilter(record);
}

bool CCountedRecords::Has(const CVORec& record) const {
    const auto noted = m_noted.constFind(record.GetId());
    if (noted != m_noted.cend()) return *noted;
    return IsOfVisible(record.GetId()) || PassesFilter(record);
}

bool CCountedRecords::MayHave(const QString& id, Hint hint) const {
    const auto noted = m_noted.constFind(id);
    if (noted != m_noted.cend()) return *noted;
    return IsOfVisible(id) || (m_filter && hint != Hint::Added);
}
