#pragma once

#include "reports/definition/CReportDef.h"

#include <QWidget>

/// A page of the sheet on which a report is defined.
class CSheetPage : public QWidget {
    Q_OBJECT

 public:
    /// Shows the report as it is now: when the page is turned to, and when another one was loaded.
    virtual void ShowReport(const CReportDef& report) = 0;
    /// Writes what stands on the page into the report.
    virtual void Leave(CReportDef& report) const = 0;
};
