#pragma once

#include "app/Hints.h"
#include "viewmodel/tree/NodeFilter.h"

#include <QHash>
#include <QString>
#include <optional>
#include <vector>

class CVORec;

/// Which records the data tree has counted: the visible ones or, while the list shows those of one node, all
/// that the filter lets pass without that node; and what the hints have said of single ones since.
class CCountedRecords {
 public:
    explicit CCountedRecords(CVelmarchDoc& document) : m_document(document) {}

    /// No record is counted.
    void Clear();
    /// The visible records are counted, and nothing else.
    void TakeVisible();
    /// Those that a filter lets pass are counted, and the visible ones that it would keep out: a new record
    /// is visible whatever the filter says.
    [[nodiscard]] std::vector<const CVORec*> TakePassing(const NodeFilter& filter);
    /// The visible records were chosen anew, among those that are counted. before: the filter that was in
    /// force.
    void OnNarrowed(const NodeFilter& before);
    /// Whether other records are visible than OnNarrowed and the Take functions have seen.
    [[nodiscard]] bool IsOutdated() const;

    /// The record as views show it, or as it is loaded; null for one that isn't.
    [[nodiscard]] const CVORec* Find(const QString& id) const;
    /// Whether a record with its present values is one to be counted.
    [[nodiscard]] bool Wants(const CVORec& record) const;
    /// Whether a record is counted, asked before it changes or goes.
    [[nodiscard]] bool Has(const CVORec& record) const;
    /// The same, asked after a hint: a record that changed without a hint before may be.
    [[nodiscard]] bool MayHave(const QString& id, Hint hint) const;
    void Note(const QString& id, bool isCounted) { m_noted.insert(id, isCounted); }

 private:
    [[nodiscard]] bool IsOfVisible(const QString& id) const;
    [[nodiscard]] bool PassesFilter(const CVORec& record) const;
    void TakePlaces();

    CVelmarchDoc& m_document;
    std::optional<NodeFilter> m_filter;  ///< nothing while the visible records are those that are counted
    unsigned m_edition = 0;              ///< of the document's places
    std::size_t m_places = 0;            ///< of this edition: the records there are counted
    QHash<QString, bool> m_noted;        ///< whether a single record is counted, by the hints
};
