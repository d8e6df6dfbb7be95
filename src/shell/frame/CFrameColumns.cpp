#include "shell/frame/CFrameColumns.h"

#include "app/CVelmarchDoc.h"
#include "app/RecordMode.h"
#include "config/CCfgStore.h"
#include "config/ColumnCommand.h"
#include "lang/LoadText.h"
#include "shell/commands/CActions.h"
#include "shell/frame/CFrameControl.h"
#include "shell/frame/FrameContext.h"
#include "shell/list/CHeaderMenu.h"
#include "shell/list/CRecordListView.h"
#include "shell/list/CSortDialog.h"
#include "shell/options/CColumnsDialog.h"
#include "shell/options/SettingSwitch.h"
#include "viewmodel/list/CRecordListModel.h"
#include "viewmodel/list/ColumnDraft.h"

#include <QAction>

namespace {

ColumnHalf HalfInUse() {
    return HalfOf(KindOf(theRecordMode));
}

}  // namespace

CFrameColumns::CFrameColumns(const FrameContext& context) : m_context(context) {
    CRecordListView& view = m_context.view;
    QObject::connect(&view, &CRecordListView::HeaderMenuWanted, &view,
                     [this](const QPoint& at, int column) { ShowMenu(at, column); });
    QObject::connect(&view, &CRecordListView::FitWanted, &view, [this](int column) { Fit(column); });
    QObject::connect(&view, &CRecordListView::ColumnsMoved, &view,
                     [this](const std::vector<int>& columns) { Move(columns); });
}

void CFrameColumns::Sort() {
    CRecordListModel& model = m_context.model;
    CSortDialog::Choice choice{.columns = {}, .isAscendingByHeader = [&model](int column) {
                                   return model.IsAscendingByHeader(column + 1);
                               }};
    for (const int column : model.VisibleColumns()) {
        if (column == model.SortColumn()) choice.present = static_cast<int>(choice.columns.size());
        choice.columns.append(model.CaptionOf(column));
    }
    CSortDialog dialog(std::move(choice), m_context.settings.Profile(), &m_context.control.Window());
    if (dialog.exec() != QDialog::Accepted) return;
    model.SortBy(dialog.Picked() + 1, dialog.IsAscending());
    m_context.view.ApplyLayout();
}

/// The widths on screen come first, or the columns chosen would take those of the last start.
void CFrameColumns::EditColumns() {
    m_context.view.CaptureWidths();
    if (RunColumnsDialog(&m_context.control.Window(), CColumnsDialog::Of::List, HalfInUse(),
                         m_context.settings, m_context.prompt))
        m_context.document.NotifyViews(Hint::Rebuild);
}

template <class Change>
void CFrameColumns::Apply(Change change) {
    m_context.view.CaptureWidths();
    change(m_context.settings.ListColumns());
    if (!m_context.settings.SaveAll()) TellNotSaved(m_context.prompt);
    m_context.control.RebuildList();
}

void CFrameColumns::FitAll() {
    Apply([](CColSet& columns) {
        for (const int column : std::vector<int>(columns.Order(HalfInUse()))) FreeWidth(columns, column);
    });
    m_context.view.FitColumns();
}

void CFrameColumns::Fit(int column) {
    Apply([column](CColSet& columns) { FreeWidth(columns, column); });
    m_context.view.FitColumns();
}

void CFrameColumns::Restore() {
    const ColumnRequest request{.kind = KindOf(theRecordMode), .isReset = true};
    if (!RunColumnRequest(request, m_context.settings)) TellNotSaved(m_context.prompt);
    m_context.control.RebuildList();
}

void CFrameColumns::Show(int column, bool isShown) {
    Apply([column, isShown](CColSet& columns) {
        std::vector<int> shown = columns.Order(HalfInUse());
        std::erase(shown, column);
        if (isShown) shown.push_back(column);
        columns.ShowExactly(HalfInUse(), shown);
    });
}

void CFrameColumns::Move(const std::vector<int>& columns) {
    Apply([&columns](CColSet& set) { set.ShowExactly(HalfInUse(), columns); });
}

void CFrameColumns::ShowMenu(const QPoint& at, int column) {
    const CActions& actions = m_context.actions;
    auto* menu =
        new CHeaderMenu(m_context.settings.ListColumns(), HalfInUse(), column,
                        {actions.Action(Command::kFitColumns), actions.Action(Command::kRestoreColumns),
                         actions.Action(Command::kListColumns)},
                        &m_context.view);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(menu, &CHeaderMenu::FitWanted, menu, [this](int fitted) { Fit(fitted); });
    QObject::connect(menu, &CHeaderMenu::ShowWanted, menu,
                     [this](int shown, bool isShown) { Show(shown, isShown); });
    menu->popup(at);
}
