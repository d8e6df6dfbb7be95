#pragma once

#include "reports/definition/CFieldChoice.h"
#include "shell/report/CSheetPage.h"
#include "shell/report/ReportSheetContext.h"

class CMnemonics;
class CTwoLists;
class QListWidget;
class QListWidgetItem;
class QPushButton;

/// The fields that a listing shows, or by which records are sorted: two lists between which fields move. In
/// an order each field has a check mark for descending.
class CFieldListPage final : public CSheetPage {
    Q_OBJECT

 public:
    CFieldListPage(CFieldChoice::Purpose purpose, const ReportSheetContext& context, CMnemonics mnemonics);

    void ShowReport(const CReportDef& report) override;
    void Leave(CReportDef& report) const override;

 protected:
    [[nodiscard]] bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    [[nodiscard]] bool IsOrder() const { return m_purpose == CFieldChoice::Purpose::Order; }
    [[nodiscard]] QString CaptionOf(FieldId field) const;
    [[nodiscard]] int Take(int line);
    [[nodiscard]] int GiveBack(int line);
    void Fill(QListWidget& available, QListWidget& taken) const;
    void PlanLetters(CMnemonics& mnemonics) const;
    void AddDescending(CMnemonics& mnemonics);
    void TakeCheck(QListWidgetItem* item);
    void TurnDirection();
    void ShowDirection();

    CFieldChoice::Purpose m_purpose;
    ReportSheetContext m_context;
    CFieldChoice m_choice;
    CTwoLists* m_lists;
    QPushButton* m_descending = nullptr;
};
