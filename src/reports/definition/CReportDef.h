#pragma once

#include "fields/FieldId.h"

#include <QList>
#include <QString>
#include <QStringList>

/// The kinds of reports. The numbers are part of what other programs know of a definition.
enum class ReportKind : int {
    Grouped = 0,   ///< a table of groups with sums and a total
    Listing = 1,   ///< a table with a row per record
    Compound = 4,  ///< the listing, then the groups
    Summary = 5,   ///< fixed sections of counts and sums; never stored, never edited
};

/// Which records a report covers.
enum class ReportSelection : int {
    Selected = 0,  ///< those selected in the record list
    Listed = 1,    ///< those that the record list shows
    Query = 2,     ///< those that a query matches
};

/// A field that records are sorted by, or a column of a listing.
struct SortKey {
    FieldId fieldId = FieldId::None;
    int direction = 0;  ///< 1 ascending, -1 descending, 0 for a column; other numbers stay as they are stored

    friend bool operator==(const SortKey&, const SortKey&) = default;
};

/// What a report says of itself: which records, in which order, with which fields, between which texts.
struct CReportDef {
    ReportKind kind = ReportKind::Listing;
    ReportSelection selection = ReportSelection::Listed;
    bool useStoredQuery = false;  ///< with a query: the stored one named in queryName, instead of asking
    QString queryName{};
    QStringList recordIds{};  ///< of this run; never stored
    QList<FieldId> groupFields{};
    QList<FieldId> sumFields{};
    QList<SortKey> sortKeys{};    ///< most significant first
    QList<SortKey> listFields{};  ///< the columns of a listing, in order
    QString title{};
    QString header{};
    QString footer{};
    QString name{};  ///< under which it was loaded or saved last

    void Reset() { *this = CReportDef(); }
};
