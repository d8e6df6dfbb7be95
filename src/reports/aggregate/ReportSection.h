#pragma once

#include "reports/aggregate/ReportColumn.h"

#include <QString>
#include <memory>
#include <vector>

class CFieldCatalogue;
class CVORec;
struct Settings;
enum class RecordKind : int;

/// A part of a summary: its caption and what it counts and adds up.
class ReportSection {
 public:
    explicit ReportSection(const QString& sectionCaption) : caption(sectionCaption) {}

    QString caption;
    std::vector<std::unique_ptr<ReportColumn>> columns;

    /// The same caption and columns that have counted nothing.
    [[nodiscard]] std::unique_ptr<ReportSection> Clone() const;
    void Add(const CVORec* record);
};

/// The sections of a summary, in their order: of times the billable ones, the others, all; of expenses those
/// with the first flag, those with the third, the others, all. An expense with both flags counts in both, so
/// the sections needn't add up to the total.
class ReportSectionList {
 public:
    ReportSectionList(RecordKind kind, const CFieldCatalogue& catalogue, const Settings& settings);

    std::vector<std::unique_ptr<ReportSection>> sections;

    void Add(const CVORec& record);

 private:
    void AppendClone(const ReportSection& section, const QString& caption);
};

/// The caption of a summary's column without the blanks that stand in front of it on the page.
[[nodiscard]] QString PlainCaption(const ReportColumn& column);
