#include "shell/report/CGroupPage.h"

#include "app/CFieldCatalogue.h"
#include "lang/FormatText.h"
#include "reports/definition/ReportFields.h"
#include "reports/definition/ReportPages.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QSignalBlocker>
#include <QTableWidget>
#include <algorithm>

namespace {

constexpr int kMostShown = 5;
constexpr int kFieldRole = Qt::UserRole;
/// A column of the preview is at most so wide, in letters of an average width.
constexpr int kMostLetters = 32;

QTableWidget* MakePreview() {
    auto* table = new QTableWidget;
    NameWidget(*table, QStringLiteral("groupPreview"), LoadText(Text::SheetPreview));
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionMode(QAbstractItemView::NoSelection);
    table->setTabKeyNavigation(false);
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + kFormSpace);
    table->horizontalHeader()->setStretchLastSection(true);
    table->setTextElideMode(Qt::ElideRight);
    return table;
}

QTableWidgetItem* MakeCell(const QString& text, bool isNumber) {
    auto* cell = new QTableWidgetItem(text);
    cell->setTextAlignment((isNumber ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    return cell;
}

QString Number(std::size_t count) {
    return QLocale().toString(static_cast<qulonglong>(count));
}

}  // namespace

CGroupPage::CGroupPage(const ReportSheetContext& context, CMnemonics mnemonics)
    : m_context(context), m_preview(MakePreview()), m_note(new QLabel) {
    setObjectName(QStringLiteral("groupPage"));
    setWindowTitle(LoadText(Text::SheetGroups));
    auto* grid = new QGridLayout(this);
    grid->setSpacing(kFormSpace);
    m_groups = AddList(*grid, 0, Text::SheetGroupBy, "groupFields", mnemonics);
    m_sums = AddList(*grid, 1, Text::SheetSumUp, "sumFields", mnemonics);
    grid->addWidget(new QLabel(LoadText(Text::SheetPreview)), 2, 0, 1, 2);
    grid->addWidget(m_preview, 3, 0, 1, 2);
    m_note->setObjectName(QStringLiteral("previewNote"));
    m_note->setWordWrap(true);
    grid->addWidget(m_note, 4, 0, 1, 2);
    grid->setRowStretch(1, 3);
    grid->setRowStretch(3, 2);
    setFocusProxy(m_groups);
}

QListWidget* CGroupPage::AddList(QGridLayout& grid, int column, Text caption, const char* name,
                                 CMnemonics& mnemonics) {
    auto* list = new QListWidget;
    auto* label = new QLabel(mnemonics.Give(LoadText(caption)));
    label->setBuddy(list);
    NameWidget(*list, QString::fromLatin1(name), LoadText(caption));
    list->setTextElideMode(Qt::ElideRight);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    grid.addWidget(label, 0, column);
    grid.addWidget(list, 1, column);
    connect(list, &QListWidget::itemChanged, this, &CGroupPage::ShowPreview);
    return list;
}

void CGroupPage::ShowReport(const CReportDef& report) {
    m_report = report;
    Fill(*m_groups, ReportUse::Group, report.groupFields);
    Fill(*m_sums, ReportUse::Sum, report.sumFields);
    ShowPreview();
}

void CGroupPage::Fill(QListWidget& list, ReportUse use, const QList<FieldId>& checked) const {
    const QSignalBlocker quiet(list);
    list.clear();
    for (const FieldRow* field : ReportFields(KindOf(m_context.mode), use)) {
        auto* item = new QListWidgetItem(m_context.catalogue.GetFieldTitle(NumberOf(field->id)), &list);
        item->setData(kFieldRole, NumberOf(field->id));
        item->setCheckState(checked.contains(field->id) ? Qt::Checked : Qt::Unchecked);
    }
    list.setCurrentRow(0);
}

QList<FieldId> CGroupPage::CheckedIn(const QListWidget& list) {
    QList<FieldId> checked;
    for (int i = 0; i < list.count(); ++i)
        if (list.item(i)->checkState() == Qt::Checked)
            checked << static_cast<FieldId>(list.item(i)->data(kFieldRole).toInt());
    return checked;
}

void CGroupPage::Leave(CReportDef& report) const {
    const RecordKind kind = KindOf(m_context.mode);
    report.groupFields = CheckedFields(kind, ReportUse::Group, CheckedIn(*m_groups));
    report.sumFields = CheckedFields(kind, ReportUse::Sum, CheckedIn(*m_sums));
}

void CGroupPage::ShowPreview() {
    Leave(m_report);
    const bool canGroup = !GroupProblem(m_report);
    const auto preview = canGroup ? m_context.coverage.groups(m_report) : std::nullopt;
    ShowTable(preview ? preview->table : GroupedTable());
    m_note->setText(NoteOf(preview, m_report));
}

QString CGroupPage::NoteOf(const std::optional<GroupPreview>& preview, const CReportDef& report) const {
    if (GroupProblem(report)) return LoadText(Text::SheetPreviewNone);
    if (!preview) return LoadText(Text::SheetPreviewAsked);
    // Of the first records alone nobody knows how many groups there are in all.
    return preview->isWhole ? FormatText<Text::SheetPreviewMore>(Number(preview->table.rows.size()))
                            : QString();
}

void CGroupPage::ShowTable(const GroupedTable& table) {
    const auto keys = static_cast<int>(table.keys.size());
    const int rows = std::min(kMostShown, static_cast<int>(table.rows.size()));
    m_preview->clear();
    m_preview->setColumnCount(static_cast<int>(table.ColumnCount()));
    m_preview->setRowCount(rows);
    QStringList captions;
    for (const auto* columns : {&table.keys, &table.sums})
        for (const GroupedColumn& column : *columns) captions << column.caption;
    m_preview->setHorizontalHeaderLabels(captions);
    for (int column = keys; column < m_preview->columnCount(); ++column)
        m_preview->horizontalHeaderItem(column)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    for (int row = 0; row < rows; ++row) {
        const ReportRow& group = table.rows[static_cast<std::size_t>(row)];
        for (int key = 0; key < keys; ++key) m_preview->setItem(row, key, MakeCell(group.keys[key], false));
        for (std::size_t sum = 0; sum < table.sums.size(); ++sum)
            m_preview->setItem(row, keys + static_cast<int>(sum),
                               MakeCell(table.SumText(sum, group.sums[sum]), true));
    }
    FitColumns();
}

/// As wide as what stands in it, so that no text is cut while another column has room to spare; a very long
/// one is. The last column takes what is left.
void CGroupPage::FitColumns() {
    const int most = kMostLetters * m_preview->fontMetrics().averageCharWidth();
    m_preview->resizeColumnsToContents();
    for (int column = 0; column < m_preview->columnCount(); ++column)
        if (m_preview->columnWidth(column) > most) m_preview->setColumnWidth(column, most);
    const int last = m_preview->columnCount() - 1;
    const int left = m_preview->viewport()->width() - m_preview->horizontalHeader()->length();
    if (last >= 0 && left > 0) m_preview->setColumnWidth(last, m_preview->columnWidth(last) + left);
}
