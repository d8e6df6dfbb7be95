#pragma once

#include "reports/definition/CDefinitionsPage.h"
#include "reports/definition/CReportStore.h"
#include "shell/report/CSheetPage.h"
#include "shell/report/ReportSheetContext.h"

class CMnemonics;
class QComboBox;
class QPushButton;

/// The stored definitions of the kind: choosing one fills all pages; the present ones can be saved under its
/// name or a new one.
class CStoredReportsPage final : public CSheetPage {
    Q_OBJECT

 public:
    /// The report is the one that all pages edit.
    CStoredReportsPage(CReportDef& report, const ReportSheetContext& context, CMnemonics mnemonics);

    void ShowReport(const CReportDef& report) override;
    /// Nothing stands here that belongs to the report.
    void Leave(CReportDef&) const override {}

 Q_SIGNALS:
    /// The report is another one: all pages show it anew.
    void ReportChanged();

 private:
    QPushButton* AddButton(Text caption, const char* name, bool (CDefinitionsPage::*action)(),
                           CMnemonics& mnemonics);
    [[nodiscard]] std::optional<QString> AskName(const QString& opening);
    void Choose(int row);
    void Act(bool (CDefinitionsPage::*action)());
    void ShowState();

    ReportSheetContext m_context;
    CReportStore m_store;
    CDefinitionsPage m_page;
    QComboBox* m_names;
    QList<QPushButton*> m_ofSelected;
};
