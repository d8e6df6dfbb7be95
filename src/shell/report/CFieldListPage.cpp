#include "shell/report/CFieldListPage.h"

#include "app/CFieldCatalogue.h"
#include "lang/FormatText.h"
#include "shell/controls/CTwoLists.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"

#include <QKeyEvent>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr CTwoLists::Words WordsOf(CFieldChoice::Purpose purpose) {
    return {
        .available = Text::SheetAvailable,
        .availableName = "availableFields",
        .taken = purpose == CFieldChoice::Purpose::Order ? Text::SheetChosenOrder : Text::SheetChosenColumns,
        .takenName = "chosenFields",
        .take = {Text::SheetTake, Text::TipSheetTake, "takeButton"},
        .giveBack = {Text::SheetGiveBack, Text::TipSheetGiveBack, "giveBackButton"},
        .up = {Text::ColumnUp, Text::TipSheetUp, "fieldUp"},
        .down = {Text::ColumnDown, Text::TipSheetDown, "fieldDown"}};
}
constexpr CTwoLists::Button kDescending{Text::SheetDescending, Text::TipSheetDescending, "descendingButton"};

}  // namespace

CFieldListPage::CFieldListPage(CFieldChoice::Purpose purpose, const ReportSheetContext& context,
                               CMnemonics mnemonics)
    : m_purpose(purpose), m_context(context), m_choice(KindOf(context.mode), purpose, {}) {
    setObjectName(IsOrder() ? QStringLiteral("orderPage") : QStringLiteral("columnsPage"));
    setWindowTitle(LoadText(IsOrder() ? Text::SheetOrder : Text::SheetColumns));
    CTwoLists::Moves moves{
        .take = [this](int line) { return Take(line); },
        .giveBack = [this](int line) { return GiveBack(line); },
        .up = [this](int line) { return m_choice.MoveUp(line) ? line - 1 : line; },
        .down = [this](int line) { return m_choice.MoveDown(line) ? line + 1 : line; },
        .fill = [this](QListWidget& available, QListWidget& taken) { Fill(available, taken); }};
    PlanLetters(mnemonics);
    m_lists = new CTwoLists(WordsOf(purpose), std::move(moves), mnemonics);
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_lists);
    setFocusProxy(m_lists);
    if (IsOrder()) AddDescending(mnemonics);
}

/// The short words of the buttons have few letters to choose from.
void CFieldListPage::PlanLetters(CMnemonics& mnemonics) const {
    const CTwoLists::Words words = WordsOf(m_purpose);
    QStringList texts;
    for (const Text text : {words.take.caption, words.giveBack.caption, words.up.caption, words.down.caption,
                            words.available, words.taken, kDescending.caption})
        texts << LoadText(text);
    mnemonics.Plan(texts);
}

void CFieldListPage::AddDescending(CMnemonics& mnemonics) {
    m_descending = m_lists->AddButton(kDescending, "view-sort-descending", mnemonics);
    m_descending->setCheckable(true);
    connect(m_descending, &QPushButton::clicked, this, &CFieldListPage::TurnDirection);
    connect(&m_lists->Taken(), &QListWidget::itemChanged, this, &CFieldListPage::TakeCheck);
    connect(m_lists, &CTwoLists::LinesChanged, this, &CFieldListPage::ShowDirection);
    m_lists->Taken().installEventFilter(this);
}

QString CFieldListPage::CaptionOf(FieldId field) const {
    return m_context.catalogue.GetFieldTitle(NumberOf(field));
}

void CFieldListPage::ShowReport(const CReportDef& report) {
    m_choice =
        CFieldChoice(KindOf(m_context.mode), m_purpose, IsOrder() ? report.sortKeys : report.listFields);
    m_lists->ShowLines(0, 0);
}

void CFieldListPage::Leave(CReportDef& report) const {
    (IsOrder() ? report.sortKeys : report.listFields) = m_choice.Result();
}

int CFieldListPage::Take(int line) {
    const QList<FieldId> available = m_choice.Available();
    const bool isTaken = line >= 0 && line < available.size() && m_choice.Choose(available[line]);
    return isTaken ? static_cast<int>(m_choice.Count()) - 1 : CTwoLists::kNone;
}

int CFieldListPage::GiveBack(int line) {
    const FieldId field = m_choice.FieldAt(line);
    return m_choice.GiveBack(line) ? static_cast<int>(m_choice.Available().indexOf(field)) : CTwoLists::kNone;
}

/// The mark has words beside it.
void CFieldListPage::Fill(QListWidget& available, QListWidget& taken) const {
    for (const FieldId field : m_choice.Available()) available.addItem(CaptionOf(field));
    for (qsizetype i = 0; i < m_choice.Count(); ++i) {
        const QString caption = CaptionOf(m_choice.FieldAt(i));
        const bool isDescending = m_choice.IsDescending(i);
        auto* item = new QListWidgetItem(
            isDescending ? FormatText<Text::SheetFieldDescending>(caption) : caption, &taken);
        if (IsOrder()) item->setCheckState(isDescending ? Qt::Checked : Qt::Unchecked);
    }
}

void CFieldListPage::TakeCheck(QListWidgetItem* item) {
    const int line = m_lists->Taken().row(item);
    if (!m_choice.SetDescending(line, item->checkState() == Qt::Checked)) return;
    // The list is in the middle of telling of this item: it is filled anew afterwards.
    QMetaObject::invokeMethod(
        this, [this, line] { m_lists->ShowLines(m_lists->Available().currentRow(), line); },
        Qt::QueuedConnection);
}

void CFieldListPage::TurnDirection() {
    const int line = m_lists->Taken().currentRow();
    if (line < 0 || !m_choice.SetDescending(line, !m_choice.IsDescending(line))) return;
    m_lists->ShowLines(m_lists->Available().currentRow(), line);
}

void CFieldListPage::ShowDirection() {
    const int line = m_lists->Taken().currentRow();
    m_descending->setEnabled(line >= 0);
    m_descending->setChecked(line >= 0 && m_choice.IsDescending(line));
}

bool CFieldListPage::eventFilter(QObject* watched, QEvent* event) {
    const auto* key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event) : nullptr;
    if (!key || key->key() != Qt::Key_D || key->modifiers() != Qt::NoModifier)
        return CSheetPage::eventFilter(watched, event);
    TurnDirection();
    return true;
}
