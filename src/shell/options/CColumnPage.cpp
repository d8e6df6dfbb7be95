#include "shell/options/CColumnPage.h"

#include "lang/LoadText.h"
#include "shell/controls/CTwoLists.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"

#include <QListWidget>
#include <QScrollBar>
#include <QVBoxLayout>

namespace {

constexpr CTwoLists::Words kWords{
    .available = Text::ColumnsAvailable,
    .availableName = "availableColumns",
    .taken = Text::ColumnsShown,
    .takenName = "shownColumns",
    .take = {Text::ColumnTake, Text::TipColumnTake, "takeColumn"},
    .giveBack = {Text::ColumnGiveBack, Text::TipColumnGiveBack, "giveBackColumn"},
    .up = {Text::ColumnUp, Text::TipColumnUp, "columnUp"},
    .down = {Text::ColumnDown, Text::TipColumnDown, "columnDown"},
};

/// Captions have at most 16 signs, as many as the separator has.
int WidthOfLines(const QListWidget& list) {
    const int widest = list.fontMetrics().horizontalAdvance(LoadText(Text::ColumnSeparator));
    return widest + list.verticalScrollBar()->sizeHint().width() + 3 * kFormSpace;
}

}  // namespace

CColumnPage::CColumnPage(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("columnPage"));
    setWindowTitle(LoadText(Text::ColumnPageTitle));
    CMnemonics mnemonics;
    m_lists = new CTwoLists(kWords,
                            {.take = [this](int line) { return m_choice.Take(line); },
                             .giveBack = [this](int line) { return m_choice.GiveBack(line); },
                             .up = [this](int line) { return m_choice.MoveUp(line); },
                             .down = [this](int line) { return m_choice.MoveDown(line); },
                             .fill =
                                 [this](QListWidget& available, QListWidget& shown) {
                                     available.addItems(m_choice.Available());
                                     shown.addItems(m_choice.Shown());
                                 }},
                            mnemonics);
    for (QListWidget* list : {&m_lists->Available(), &m_lists->Taken()})
        list->setMinimumWidth(WidthOfLines(*list));
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_lists);
    setFocusProxy(m_lists);
}

void CColumnPage::SetDraft(const ChosenColumns& columns, bool hasSeparators) {
    m_choice.Open(columns, hasSeparators);
    m_lists->ShowLines(0, 0);
}
