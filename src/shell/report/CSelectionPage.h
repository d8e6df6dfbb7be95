#pragma once

#include "shell/report/CSheetPage.h"
#include "shell/report/ReportSheetContext.h"

class CMnemonics;
class QCheckBox;
class QComboBox;
class QLabel;
class QRadioButton;

/// Which records the report covers, and how many these are now.
class CSelectionPage final : public CSheetPage {
    Q_OBJECT

 public:
    CSelectionPage(const ReportSheetContext& context, CMnemonics mnemonics);

    void ShowReport(const CReportDef& report) override;
    void Leave(CReportDef& report) const override;

 private:
    void AddChoices(CMnemonics& mnemonics);
    void AddQueries(CMnemonics& mnemonics);
    void FillQueries(const QString& chosen);
    [[nodiscard]] ReportSelection Chosen() const;
    [[nodiscard]] QString CountText(ReportSelection selection) const;
    void ShowCounts();
    void Follow();

    ReportSheetContext m_context;
    QRadioButton* m_selected = nullptr;
    QRadioButton* m_listed = nullptr;
    QRadioButton* m_query = nullptr;
    QCheckBox* m_isStored = nullptr;
    QComboBox* m_names = nullptr;
    QLabel* m_note = nullptr;
};
