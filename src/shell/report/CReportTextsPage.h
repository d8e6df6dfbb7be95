#pragma once

#include "shell/report/CSheetPage.h"

class CMnemonics;
class QGridLayout;
class QLineEdit;
class QPlainTextEdit;

/// The texts that stand above and below the tables of a report.
class CReportTextsPage final : public CSheetPage {
    Q_OBJECT

 public:
    explicit CReportTextsPage(CMnemonics mnemonics);

    void ShowReport(const CReportDef& report) override;
    void Leave(CReportDef& report) const override;

 private:
    QLineEdit* m_title;
    QPlainTextEdit* m_header;
    QPlainTextEdit* m_footer;
};
