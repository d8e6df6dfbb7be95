#include "shell/report/CReportSheet.h"

#include "config/CCfgStore.h"
#include "lang/LoadText.h"
#include "reports/definition/ReportPages.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/DialogSize.h"
#include "shell/look/FormRows.h"
#include "shell/report/CFieldListPage.h"
#include "shell/report/CGroupPage.h"
#include "shell/report/CReportTextsPage.h"
#include "shell/report/CSelectionPage.h"
#include "shell/report/CStoredReportsPage.h"

#include <QDialogButtonBox>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

constexpr QSize kUsualSize{560, 440};
QString SizeSection() {
    return QStringLiteral("ReportSheet");
}

Text CaptionOf(SheetPage page) {
    switch (page) {
        case SheetPage::Selection:
            return Text::SheetRecords;
        case SheetPage::Columns:
            return Text::SheetColumns;
        case SheetPage::Groups:
            return Text::SheetGroups;
        case SheetPage::Order:
            return Text::SheetOrder;
        case SheetPage::Texts:
            return Text::SheetTexts;
        default:
            return Text::SheetDefinitions;
    }
}

}  // namespace

CReportSheet::CReportSheet(const CReportDef& report, const ReportSheetContext& context, QWidget* parent)
    : QDialog(parent), m_report(report), m_context(context) {
    setObjectName(QStringLiteral("reportSheet"));
    setWindowTitle(LoadText(Text::ReportSheetTitle));
    Build();
    ShowAll();
    connect(m_pages, &QTabWidget::currentChanged, this, &CReportSheet::Turn);
    RestoreDialogSize(*this, m_context.settings.Profile(), SizeSection(), kUsualSize);
    m_pages->currentWidget()->setFocus();
}

void CReportSheet::Build() {
    CMnemonics mnemonics;
    QDialogButtonBox* buttons = MakeDialogButtons(*this, Text::DialogOk, mnemonics);
    QStringList captions;
    for (const SheetPage page : PagesOf(m_report.kind)) captions << mnemonics.Give(LoadText(CaptionOf(page)));
    m_pages = new QTabWidget;
    NameWidget(*m_pages, QStringLiteral("pages"), LoadText(Text::ReportSheetTitle));
    AddPages(mnemonics, captions);
    auto* column = new QVBoxLayout(this);
    column->setSpacing(kFormSpace);
    column->addWidget(m_pages);
    column->addWidget(buttons);
}

/// The pages share the letters of the sheet, and each has the others for itself.
void CReportSheet::AddPages(const CMnemonics& mnemonics, const QStringList& captions) {
    qsizetype next = 0;
    for (const SheetPage page : PagesOf(m_report.kind))
        m_pages->addTab(MakePage(page, mnemonics), captions[next++]);
}

CSheetPage* CReportSheet::MakePage(SheetPage page, const CMnemonics& mnemonics) {
    switch (page) {
        case SheetPage::Selection:
            return new CSelectionPage(m_context, mnemonics);
        case SheetPage::Columns:
            return new CFieldListPage(CFieldChoice::Purpose::Columns, m_context, mnemonics);
        case SheetPage::Groups:
            return m_groups = new CGroupPage(m_context, mnemonics);
        case SheetPage::Order:
            return new CFieldListPage(CFieldChoice::Purpose::Order, m_context, mnemonics);
        case SheetPage::Texts:
            return new CReportTextsPage(mnemonics);
        default:
            break;
    }
    auto* stored = new CStoredReportsPage(m_report, m_context, mnemonics);
    connect(stored, &CStoredReportsPage::ReportChanged, this, &CReportSheet::ShowAll);
    return stored;
}

void CReportSheet::ShowAll() {
    for (int i = 0; i < m_pages->count(); ++i)
        static_cast<CSheetPage*>(m_pages->widget(i))->ShowReport(m_report);
}

bool CReportSheet::LeavePage(CSheetPage& page) {
    page.Leave(m_report);
    return &page != m_groups || CanLeaveGroupPage(m_report, m_context.prompt);
}

void CReportSheet::Turn(int index) {
    auto& left = static_cast<CSheetPage&>(*m_pages->widget(m_current));
    if (!LeavePage(left)) {
        const QSignalBlocker quiet(m_pages);
        m_pages->setCurrentIndex(m_current);
        left.setFocus();
        return;
    }
    m_current = index;
    auto& shown = static_cast<CSheetPage&>(*m_pages->widget(index));
    shown.ShowReport(m_report);
    shown.setFocus();
}

void CReportSheet::accept() {
    if (!LeavePage(static_cast<CSheetPage&>(*m_pages->widget(m_current)))) return;
    if (!m_groups || !GroupProblem(m_report)) return QDialog::accept();
    // What is told next is mended on this page.
    m_pages->setCurrentWidget(m_groups);
    static_cast<void>(CanLeaveGroupPage(m_report, m_context.prompt));
    m_groups->setFocus();
}

void CReportSheet::done(int result) {
    PersistDialogSize(*this, m_context.settings.Profile(), SizeSection());
    QDialog::done(result);
}

bool RunReportSheet(QWidget* parent, CReportDef& report, const ReportSheetContext& context) {
    CReportSheet sheet(report, context, parent);
    if (sheet.exec() != QDialog::Accepted) return false;
    report = sheet.GetReport();
    return true;
}
