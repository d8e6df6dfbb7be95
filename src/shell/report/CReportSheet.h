#pragma once

#include "shell/report/CSheetPage.h"
#include "shell/report/ReportSheetContext.h"

#include <QDialog>
#include <vector>

enum class SheetPage;
class CGroupPage;
class CMnemonics;
class QTabWidget;

/// The pages on which a report of one kind is defined.
class CReportSheet final : public QDialog {
    Q_OBJECT

 public:
    CReportSheet(const CReportDef& report, const ReportSheetContext& context, QWidget* parent = nullptr);

    [[nodiscard]] const CReportDef& GetReport() const { return m_report; }
    /// What is missing on the page of groups keeps the sheet open, with that page in front.
    void accept() override;
    void done(int result) override;

 private:
    void Build();
    [[nodiscard]] CSheetPage* MakePage(SheetPage page, const CMnemonics& mnemonics);
    void AddPages(const CMnemonics& mnemonics, const QStringList& captions);
    void Turn(int index);
    [[nodiscard]] bool LeavePage(CSheetPage& page);
    void ShowAll();

    CReportDef m_report;
    ReportSheetContext m_context;
    QTabWidget* m_pages = nullptr;
    CGroupPage* m_groups = nullptr;
    int m_current = 0;  ///< the page that was turned to last
};

/// Lets the user define the report; false, and the report as it was, when cancelled.
[[nodiscard]] bool RunReportSheet(QWidget* parent, CReportDef& report, const ReportSheetContext& context);
