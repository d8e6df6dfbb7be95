#pragma once

#include "reports/definition/CReportDef.h"
#include "viewmodel/commands/CommandRowMaker.h"

/// The commands of the menu of reports: those that make one, and those on the one that is shown. A listing
/// with totals and the summary are always offered, the others only with the record list in front; that
/// difference is wanted.
namespace ReportRows {

using Row = CommandRowMaker;

inline bool ListInFront(const CommandState& s) {
    return s.listIsActive;
}
inline bool InFront(const CommandState& s) {
    return s.reportIsActive;
}
inline bool CanRunAgain(const CommandState& s) {
    return s.reportIsActive && s.canRunAgain;
}
inline bool TextSelected(const CommandState& s) {
    return s.reportIsActive && s.reportHasSelection;
}
inline bool Shrinks(const CommandState& s) {
    return s.reportShrinks;
}
inline bool HasTable(const CommandState& s) {
    return s.reportIsActive && s.reportHasTable;
}
inline bool HasChart(const CommandState& s) {
    return s.reportIsActive && s.reportHasChart;
}
inline bool ShowsChart(const CommandState& s) {
    return s.reportIsActive && s.chartShown;
}
inline bool HasNextSum(const CommandState& s) {
    return ShowsChart(s) && s.chartHasNextSum;
}

template <ReportKind Kind>
inline constexpr int kKind = static_cast<int>(Kind);
inline constexpr int kTotals = kKind<ReportKind::Grouped>;
inline constexpr int kListing = kKind<ReportKind::Listing>;
inline constexpr int kCompound = kKind<ReportKind::Compound>;

inline constexpr CommandRow kRows[] = {
    Row(32818, "CmdQuickTotals", {Text::CmdReportTotals, Text::TipQuickTotals, "view-statistics", "Ctrl+R"},
        Menu::Report, {Run::QuickReport, kTotals})
        .When(ListInFront),
    Row(32821, "CmdQuickListing", {Text::CmdReportListing, Text::TipQuickListing, "table"}, Menu::Report,
        {Run::QuickReport, kListing})
        .When(ListInFront),
    Row(32785, "CmdQuickCompound", {Text::CmdReportCompound, Text::TipQuickCompound, "office-report"},
        Menu::Report, {Run::QuickReport, kCompound}),
    Row(Command::kSummary, "CmdSummary", {Text::CmdReportSummary, Text::TipReportSummary, "view-list-text"},
        Menu::Report, {Run::SummaryReport}),
    Row(32846, "CmdRunTotals", {Text::CmdReportTotals, Text::TipStoredTotals, "view-statistics"},
        Menu::ReportStored, {Run::StoredReport, kTotals})
        .When(ListInFront),
    Row(32816, "CmdRunListing", {Text::CmdReportListing, Text::TipStoredListing, "table"}, Menu::ReportStored,
        {Run::StoredReport, kListing})
        .When(ListInFront),
    Row(32787, "CmdRunCompound", {Text::CmdReportCompound, Text::TipStoredCompound, "office-report"},
        Menu::ReportStored, {Run::StoredReport, kCompound}),
    Row(32881, "CmdDefineTotals", {Text::CmdReportTotals, Text::TipDefineTotals, "view-statistics"},
        Menu::ReportDefine, {Run::DefineReport, kTotals})
        .When(ListInFront),
    Row(32884, "CmdDefineListing", {Text::CmdReportListing, Text::TipDefineListing, "table"},
        Menu::ReportDefine, {Run::DefineReport, kListing})
        .When(ListInFront),
    Row(32786, "CmdDefineCompound", {Text::CmdReportCompound, Text::TipDefineCompound, "office-report"},
        Menu::ReportDefine, {Run::DefineReport, kCompound}),
    Row(Command::kReportAgain, "CmdReportAgain",
        {Text::CmdReportAgain, Text::TipReportAgain, "view-refresh", "Ctrl+Shift+R"}, Menu::Report,
        {Run::ReportAgain})
        .BeginsGroup()
        .When(CanRunAgain),
    Row(Command::kReportFind, "CmdReportFind",
        {Text::CmdReportFind, Text::TipReportFind, "edit-find", "Ctrl+F"}, Menu::Report, {Run::ReportFind})
        .When(InFront),
    Row(Command::kReportCopy, "CmdReportCopy",
        {Text::CmdReportCopy, Text::TipReportCopy, "edit-copy", "Ctrl+C"}, Menu::Report, {Run::ReportCopy})
        .When(TextSelected),
    Row(Command::kReportZoomIn, "CmdReportZoom",
        {Text::CmdReportZoomIn, Text::TipReportZoomIn, "zoom-in", "Ctrl++ Ctrl+="}, Menu::ReportZoom,
        {Run::ReportZoom, 1})
        .When(InFront),
    Row(Command::kReportZoomOut, "CmdReportZoom",
        {Text::CmdReportZoomOut, Text::TipReportZoomOut, "zoom-out", "Ctrl+-"}, Menu::ReportZoom,
        {Run::ReportZoom, -1})
        .When(InFront),
    Row(Command::kReportZoomNormal, "CmdReportZoom",
        {Text::CmdReportZoomNormal, Text::TipReportZoomNormal, "zoom-original", "Ctrl+0"}, Menu::ReportZoom,
        {Run::ReportZoom, 0})
        .When(InFront),
    Row(Command::kReportShrink, "CmdReportToggle",
        {Text::CmdReportShrink, Text::TipReportShrink, "zoom-fit-width"}, Menu::Report, {Run::ReportShrink})
        .When(InFront)
        .Toggle(Shrinks),
    Row(Command::kReportChart, "CmdReportChart", {Text::ChartCommand, Text::TipChart, "office-chart-bar"},
        Menu::ReportChart, {Run::ReportChart})
        .When(HasChart)
        .Toggle(ShowsChart),
    Row(Command::kReportNextSum, "CmdReportNextSum",
        {Text::ChartNextSum, Text::TipChartNextSum, "go-next-view"}, Menu::ReportChart, {Run::ReportNextSum})
        .When(HasNextSum),
    Row(Command::kReportChartSave, "CmdReportChartSave",
        {Text::ChartSaveCommand, Text::TipChartSave, "image-x-generic"}, Menu::ReportChart,
        {Run::ReportChartSave})
        .When(ShowsChart),
    Row(Command::kReportSave, "CmdReportCommand",
        {Text::CmdReportSave, Text::TipReportSave, "document-save", "Ctrl+S"}, Menu::Report,
        {Run::ReportSave})
        .BeginsGroup()
        .When(InFront),
    Row(Command::kReportPdf, "CmdReportPdf", {Text::CmdReportPdf, Text::TipReportPdf, "viewpdf"},
        Menu::Report, {Run::ReportPdf})
        .When(InFront),
    Row(Command::kReportCsv, "CmdReportCsv", {Text::CmdReportCsv, Text::TipReportCsv, "document-export"},
        Menu::Report, {Run::ReportCsv})
        .When(HasTable),
    Row(Command::kReportBrowser, "CmdReportBrowser",
        {Text::CmdReportBrowser, Text::TipReportBrowser, "globe"}, Menu::Report, {Run::ReportBrowser})
        .When(InFront),
    Row(Command::kReportPreview, "CmdReportPreview",
        {Text::CmdReportPreview, Text::TipReportPreview, "document-print-preview", "Ctrl+Shift+P"},
        Menu::Report, {Run::ReportPreview})
        .BeginsGroup()
        .When(InFront),
    Row(Command::kReportPrint, "CmdReportPrint",
        {Text::CmdReportPrint, Text::TipReportPrint, "document-print", "Ctrl+P"}, Menu::Report,
        {Run::ReportPrint})
        .When(InFront),
    Row(Command::kReportClose, "CmdCloseReport",
        {Text::CmdReportClose, Text::TipReportClose, "window-close", "Esc Ctrl+W"}, Menu::Report,
        {Run::ReportClose})
        .BeginsGroup()
        .When(InFront),
};

}  // namespace ReportRows
