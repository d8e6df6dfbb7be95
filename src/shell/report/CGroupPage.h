#pragma once

#include "fields/FieldRow.h"
#include "shell/report/CSheetPage.h"
#include "shell/report/ReportSheetContext.h"

class CMnemonics;
class QGridLayout;
class QLabel;
class QListWidget;
class QTableWidget;

/// The fields that records are grouped by and those that are added up, with the first groups below them as
/// they would be now.
class CGroupPage final : public CSheetPage {
    Q_OBJECT

 public:
    CGroupPage(const ReportSheetContext& context, CMnemonics mnemonics);

    void ShowReport(const CReportDef& report) override;
    void Leave(CReportDef& report) const override;

 private:
    [[nodiscard]] QListWidget* AddList(QGridLayout& grid, int column, Text caption, const char* name,
                                       CMnemonics& mnemonics);
    void Fill(QListWidget& list, ReportUse use, const QList<FieldId>& checked) const;
    [[nodiscard]] static QList<FieldId> CheckedIn(const QListWidget& list);
    void ShowPreview();
    void ShowTable(const GroupedTable& table);
    void FitColumns();
    [[nodiscard]] QString NoteOf(const std::optional<GroupPreview>& preview, const CReportDef& report) const;

    ReportSheetContext m_context;
    CReportDef m_report;  ///< as the other pages left it
    QListWidget* m_groups;
    QListWidget* m_sums;
    QTableWidget* m_preview;
    QLabel* m_note;
};
