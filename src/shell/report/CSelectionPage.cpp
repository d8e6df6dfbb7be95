#include "shell/report/CSelectionPage.h"

#include "lang/FormatText.h"
#include "reports/definition/ReportPages.h"
#include "reports/query/CQueryStore.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QRadioButton>
#include <QStyle>

namespace {

QString CountOf(std::optional<std::size_t> count) {
    return count ? QLocale().toString(static_cast<qulonglong>(*count)) : QString();
}

QRadioButton* MakeRadio(const QString& name) {
    auto* button = new QRadioButton;
    button->setObjectName(name);
    return button;
}

/// The words without their number, so that a mnemonic stays where it is.
QString WithoutCount(Text text) {
    return LoadText(text).left(LoadText(text).indexOf(QStringLiteral(" (%s")));
}

}  // namespace

CSelectionPage::CSelectionPage(const ReportSheetContext& context, CMnemonics mnemonics) : m_context(context) {
    setObjectName(QStringLiteral("selectionPage"));
    setWindowTitle(LoadText(Text::SheetRecords));
    auto* column = new QVBoxLayout(this);
    column->setSpacing(kFormSpace);
    AddChoices(mnemonics);
    AddQueries(mnemonics);
    column->addStretch();
    for (QRadioButton* button : {m_selected, m_listed, m_query})
        connect(button, &QRadioButton::toggled, this, &CSelectionPage::Follow);
    connect(m_isStored, &QCheckBox::toggled, this, &CSelectionPage::Follow);
    connect(m_names, &QComboBox::currentIndexChanged, this, &CSelectionPage::Follow);
}

void CSelectionPage::AddChoices(CMnemonics& mnemonics) {
    m_selected = MakeRadio(QStringLiteral("selectedRecords"));
    m_listed = MakeRadio(QStringLiteral("listedRecords"));
    m_query = MakeRadio(QStringLiteral("queryRecords"));
    m_selected->setText(mnemonics.Give(WithoutCount(Text::SheetSelected)));
    m_listed->setText(mnemonics.Give(WithoutCount(Text::SheetListed)));
    m_query->setText(mnemonics.Give(LoadText(Text::SheetQuery)));
    for (QRadioButton* button : {m_selected, m_listed, m_query}) layout()->addWidget(button);
}

/// Below the third choice, indented to its words.
void CSelectionPage::AddQueries(CMnemonics& mnemonics) {
    m_isStored = MakeCheckBox(LoadText(Text::SheetStoredQuery), QStringLiteral("isStoredQuery"), mnemonics);
    m_names = new QComboBox;
    m_names->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    NameWidget(*m_names, QStringLiteral("queryNames"), LoadText(Text::SheetStoredQueries));
    auto* row = new QHBoxLayout;
    row->setSpacing(kFormSpace);
    row->addSpacing(style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth) + kFormSpace);
    row->addWidget(m_isStored);
    row->addWidget(m_names, 1);
    m_note = MakeNote(LoadText(Text::SheetAskQuery), QStringLiteral("selectionNote"));
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
    layout()->addWidget(m_note);
}

/// The query that was used last isn't offered: it changes with every use of the filter dialog.
void CSelectionPage::FillQueries(const QString& chosen) {
    QStringList names = CQueryStore(m_context.settings, m_context.mode).Names();
    names.removeIf([](const QString& name) { return CQueryStore::IsReserved(name); });
    m_names->clear();
    m_names->addItems(names);
    m_names->setCurrentIndex(static_cast<int>(names.indexOf(chosen)));
}

void CSelectionPage::ShowReport(const CReportDef& report) {
    const SelectionPage page = SelectionPage::Of(report);
    FillQueries(page.queryName);
    m_isStored->setChecked(page.isStoredQuery);
    QRadioButton* chosen = page.selection == ReportSelection::Selected ? m_selected
                           : page.selection == ReportSelection::Query  ? m_query
                                                                       : m_listed;
    chosen->setChecked(true);
    setFocusProxy(chosen);
    ShowCounts();
    Follow();
}

ReportSelection CSelectionPage::Chosen() const {
    return m_selected->isChecked() ? ReportSelection::Selected
           : m_query->isChecked()  ? ReportSelection::Query
                                   : ReportSelection::Listed;
}

void CSelectionPage::Leave(CReportDef& report) const {
    const SelectionPage page{
        .selection = Chosen(), .isStoredQuery = m_isStored->isChecked(), .queryName = m_names->currentText()};
    page.Leave(report);
}

QString CSelectionPage::CountText(ReportSelection selection) const {
    CReportDef report;
    report.selection = selection;
    report.useStoredQuery = m_isStored->isChecked();
    report.queryName = m_names->currentText();
    return CountOf(m_context.coverage.count(report));
}

void CSelectionPage::ShowCounts() {
    const auto show = [](QRadioButton& button, const QString& words, const QString& count) {
        const qsizetype end = button.text().indexOf(QStringLiteral(" ("));
        const QString text = end < 0 ? button.text() : button.text().left(end);
        button.setText(count.isEmpty() ? text : text + QStringLiteral(" (%1)").arg(count));
        button.setAccessibleName(count.isEmpty() ? words : words + QStringLiteral(" (%1)").arg(count));
    };
    show(*m_selected, WithoutCount(Text::SheetSelected), CountText(ReportSelection::Selected));
    show(*m_listed, WithoutCount(Text::SheetListed), CountText(ReportSelection::Listed));
    show(*m_query, LoadText(Text::SheetQuery),
         m_isStored->isChecked() && m_query->isChecked() ? CountText(ReportSelection::Query) : QString());
}

void CSelectionPage::Follow() {
    const SelectionPage page{
        .selection = Chosen(), .isStoredQuery = m_isStored->isChecked(), .queryName = m_names->currentText()};
    m_isStored->setEnabled(page.CanUseStoredQuery());
    m_names->setEnabled(page.CanChooseQuery());
    if (page.CanChooseQuery() && m_names->currentIndex() < 0 && m_names->count() > 0)
        m_names->setCurrentIndex(0);
    const Text note =
        m_names->count() == 0 && page.CanChooseQuery() ? Text::SheetNoQueries : Text::SheetAskQuery;
    m_note->setText(page.CanUseStoredQuery() && (!page.isStoredQuery || m_names->count() == 0)
                        ? LoadText(note)
                        : QString());
    ShowCounts();
}
