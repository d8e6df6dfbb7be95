#include "shell/report/CReportTextsPage.h"

#include "lang/LoadText.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

CReportTextsPage::CReportTextsPage(CMnemonics mnemonics)
    : m_title(new QLineEdit), m_header(new QPlainTextEdit), m_footer(new QPlainTextEdit) {
    setObjectName(QStringLiteral("textsPage"));
    setWindowTitle(LoadText(Text::SheetTexts));
    auto* form = new QGridLayout(this);
    form->setSpacing(kFormSpace);
    AddLabel(*form, 0, LoadText(Text::SheetTitle), *m_title, QStringLiteral("titleField"), mnemonics);
    form->addWidget(m_title, 0, 1);
    const auto add = [&](int row, Text label, QPlainTextEdit* field, const QString& name) {
        QLabel* caption = AddLabel(*form, row, LoadText(label), *field, name, mnemonics);
        caption->setAlignment(Qt::AlignTop | Qt::AlignLeft);
        field->setTabChangesFocus(true);
        form->addWidget(field, row, 1);
        form->setRowStretch(row, 1);
    };
    add(1, Text::SheetHeader, m_header, QStringLiteral("headerField"));
    add(2, Text::SheetFooter, m_footer, QStringLiteral("footerField"));
    setFocusProxy(m_title);
}

void CReportTextsPage::ShowReport(const CReportDef& report) {
    m_title->setText(report.title);
    m_header->setPlainText(report.header);
    m_footer->setPlainText(report.footer);
}

void CReportTextsPage::Leave(CReportDef& report) const {
    report.title = m_title->text();
    report.header = m_header->toPlainText();
    report.footer = m_footer->toPlainText();
}
