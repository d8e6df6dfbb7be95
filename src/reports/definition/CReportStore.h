#pragma once

#include "app/RecordMode.h"
#include "config/CNamedEntries.h"
#include "reports/definition/CReportDef.h"

/// The stored definitions of one kind of report in one mode, each under its name. The kind is that of the key
/// in which they lie: a definition says of itself what kind it is, and a damaged one may say another.
class CReportStore final : public CNamedEntries {
 public:
    CReportStore(CCfgStore& settings, RecordMode mode, ReportKind kind)
        : CNamedEntries(settings, StoreKey(mode, kind)) {}

    /// The key of the settings in which the definitions lie.
    [[nodiscard]] static QString StoreKey(RecordMode mode, ReportKind kind);
    /// False, and the report as it was, when its kind can't be read. A text that isn't stored keeps what the
    /// report held; a list that isn't is empty; a kind that is unknown is a listing.
    [[nodiscard]] bool Load(const QString& name, CReportDef& report) const;
    /// All values or, on failure, none: the definition of that name is then as it was. Only of a text that is
    /// too long the user is told.
    [[nodiscard]] bool Save(const QString& name, const CReportDef& report);
    /// Deletes a definition and saves the report under the new name, both or neither.
    [[nodiscard]] bool Rename(const QString& name, const QString& newName, const CReportDef& report);

    // The same as changes of the settings, for a program that may have to ask a window for them.
    [[nodiscard]] EntryRequest SaveRequest(const QString& name, const CReportDef& report) const;
    [[nodiscard]] EntryRequest RenameRequest(const QString& name, const QString& newName,
                                             const CReportDef& report) const;
};
