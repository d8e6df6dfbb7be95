#include "shell/exchange/CDelimiterDialog.h"

#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"
#include "platform/host/TextCoder.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/DialogSize.h"
#include "shell/look/FormRows.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace {

constexpr qsizetype kMostRefused = 200;
constexpr const char* kEncodings[] = {"utf-8", "windows-1252", "iso-8859-1", "iso-8859-15", "utf-16le"};

QString SizeSection(TextFilePurpose purpose) {
    return purpose == TextFilePurpose::Export ? QStringLiteral("ExportDialog")
                                              : QStringLiteral("ImportDialog");
}

QSize UsualSize(TextFilePurpose purpose) {
    return purpose == TextFilePurpose::Export ? QSize{420, 260} : QSize{760, 620};
}

Text TitleOf(TextFilePurpose purpose) {
    return purpose == TextFilePurpose::Export          ? Text::DelimitersExportTitle
           : purpose == TextFilePurpose::ImportRecords ? Text::ImportTitle
                                                       : Text::ImportItemsTitle;
}

QString DelimiterOf(const QComboBox& combo) {
    const QString entry = combo.currentText();
    return entry == LoadText(Text::DelimiterNone) ? QString() : DelimiterEntered(entry);
}

}  // namespace

CDelimiterDialog::CDelimiterDialog(const Context& context, const TextFileDraft& draft, QWidget* parent)
    : QDialog(parent), m_context(context) {
    setObjectName(QStringLiteral("delimiterDialog"));
    setWindowTitle(LoadText(TitleOf(context.purpose)));
    const bool isExport = context.purpose == TextFilePurpose::Export;
    CMnemonics mnemonics;
    QDialogButtonBox* buttons =
        MakeDialogButtons(*this, isExport ? Text::ExportAccept : Text::ImportAccept, mnemonics);
    auto* column = new QVBoxLayout(this);
    auto* form = new QGridLayout;
    form->setSpacing(kFormSpace);
    const auto& [qualifier, separator, lineEnd] = draft.delimiters;
    m_qualifier = AddDelimiter(*form, Text::DelimiterQualifier, QStringLiteral("qualifier"),
                               QualifierChoices(), qualifier, mnemonics);
    m_separator = AddDelimiter(*form, Text::DelimiterSeparator, QStringLiteral("separator"),
                               SeparatorChoices(), separator, mnemonics);
    m_lineEnd = AddDelimiter(*form, Text::DelimiterLineEnd, QStringLiteral("lineEnd"), LineEndChoices(),
                             lineEnd, mnemonics);
    AddEncoding(*form, draft.encoding, mnemonics);
    form->addWidget(new QLabel(LoadText(Text::DelimiterSampleLabel)), form->rowCount(), 0);
    m_sample = new QLabel;
    NameWidget(*m_sample, QStringLiteral("sample"), LoadText(Text::DelimiterSampleLabel));
    form->addWidget(m_sample, form->rowCount() - 1, 1);
    form->setColumnStretch(1, 1);
    column->addLayout(form);
    if (context.purpose == TextFilePurpose::ImportRecords) AddChecks(*column, draft, mnemonics);
    if (context.preview) AddPreview(*column);
    column->addSpacing(kFormSpace);
    column->addWidget(buttons);
    RestoreDialogSize(*this, context.profile, SizeSection(context.purpose), UsualSize(context.purpose));
    Show();
}

QComboBox* CDelimiterDialog::AddCombo(QGridLayout& form, Text label, const QString& name,
                                      CMnemonics& mnemonics) {
    auto* combo = new QComboBox;
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    const int row = form.rowCount();
    const QString caption = CMnemonics::Plain(LoadText(label));
    AddLabel(form, row, caption, *combo, name, mnemonics);
    NameWidget(*combo->lineEdit(), name + QStringLiteral("Text"), caption);
    form.addWidget(combo, row, 1);
    return combo;
}

QComboBox* CDelimiterDialog::AddDelimiter(QGridLayout& form, Text label, const QString& name,
                                          std::span<const DelimiterChoice> choices, const QString& chosen,
                                          CMnemonics& mnemonics) {
    QComboBox* combo = AddCombo(form, label, name, mnemonics);
    combo->addItem(LoadText(Text::DelimiterNone));
    for (const DelimiterChoice& choice : choices) combo->addItem(LoadText(choice.name));
    combo->setCurrentText(chosen.isEmpty() ? LoadText(Text::DelimiterNone) : ShownDelimiter(chosen));
    connect(combo, &QComboBox::currentTextChanged, this, &CDelimiterDialog::Show);
    return combo;
}

void CDelimiterDialog::AddEncoding(QGridLayout& form, const QByteArray& chosen, CMnemonics& mnemonics) {
    m_encoding = AddCombo(form, Text::DelimiterEncoding, QStringLiteral("encoding"), mnemonics);
    if (m_context.preview)
        m_encoding->addItem(FormatText<Text::EncodingAsFound>(
            QString::fromLatin1(m_context.preview(TextFileDraft{PresetDelimiters()}).encoding)));
    for (const char* name : kEncodings) m_encoding->addItem(QString::fromLatin1(name));
    if (!chosen.isEmpty()) m_encoding->setCurrentText(QString::fromLatin1(chosen));
    connect(m_encoding, &QComboBox::currentTextChanged, this, &CDelimiterDialog::Show);
}

void CDelimiterDialog::AddChecks(QVBoxLayout& column, const TextFileDraft& draft, CMnemonics& mnemonics) {
    m_addListItems = MakeCheckBox(CMnemonics::Plain(LoadText(Text::ImportAddListItems)),
                                  QStringLiteral("addListItems"), mnemonics);
    m_addListItems->setChecked(draft.addListItems);
    m_skipDuplicates = MakeCheckBox(CMnemonics::Plain(LoadText(Text::ImportSkipDuplicates)),
                                    QStringLiteral("skipDuplicates"), mnemonics);
    m_skipDuplicates->setChecked(draft.skipDuplicates);
    connect(m_skipDuplicates, &QCheckBox::toggled, this, &CDelimiterDialog::Show);
    column.addWidget(m_addListItems);
    column.addWidget(m_skipDuplicates);
}

void CDelimiterDialog::AddPreview(QVBoxLayout& column) {
    m_counts = MakeNote({}, QStringLiteral("counts"));
    m_table = new QTableWidget;
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->verticalHeader()->hide();
    NameWidget(*m_table, QStringLiteral("preview"), LoadText(Text::ImportPreview));
    m_refused = new QListWidget;
    const Text refusals = m_context.purpose == TextFilePurpose::ImportRecords ? Text::ImportRefusalsAndNotes
                                                                              : Text::ImportRefusals;
    NameWidget(*m_refused, QStringLiteral("refused"), LoadText(refusals));
    column.addSpacing(kFormSpace);
    column.addWidget(m_counts);
    column.addWidget(m_table, 3);
    column.addWidget(new QLabel(LoadText(refusals)));
    column.addWidget(m_refused, 1);
}

TextFileDraft CDelimiterDialog::GetDraft() const {
    TextFileDraft draft{
        .delimiters = {DelimiterOf(*m_qualifier), DelimiterOf(*m_separator), DelimiterOf(*m_lineEnd)}};
    const bool isAsFound = m_context.preview && m_encoding->currentText() == m_encoding->itemText(0);
    if (!isAsFound) draft.encoding = m_encoding->currentText().trimmed().toLatin1().toLower();
    if (m_addListItems) draft.addListItems = m_addListItems->isChecked();
    if (m_skipDuplicates) draft.skipDuplicates = m_skipDuplicates->isChecked();
    return draft;
}

/// With each choice; what can't be a file's delimiters or its encoding leaves the preview as it is.
void CDelimiterDialog::Show() {
    if (!m_sample) return;
    const TextFileDraft draft = GetDraft();
    m_sample->setText(SampleOf(draft.delimiters));
    const bool isKnown = draft.encoding.isEmpty() || IsEncoding(draft.encoding);
    if (m_table && !ObjectionTo(draft.delimiters) && isKnown) ShowPreview(m_context.preview(draft));
}

void CDelimiterDialog::ShowPreview(const ImportPreview& preview) {
    m_counts->setText(preview.counts);
    m_table->clear();
    m_table->setColumnCount(preview.rows.isEmpty() ? static_cast<int>(preview.heads.size())
                                                   : static_cast<int>(preview.rows.front().size()));
    m_table->setRowCount(static_cast<int>(preview.rows.size()));
    m_table->setHorizontalHeaderLabels(preview.heads);
    m_table->horizontalHeader()->setVisible(!preview.heads.isEmpty());
    for (int row = 0; row < m_table->rowCount(); ++row)
        for (int column = 0; column < m_table->columnCount(); ++column)
            m_table->setItem(row, column, new QTableWidgetItem(preview.rows[row].value(column)));
    m_refused->clear();
    m_refused->addItems((preview.refused + preview.misread).mid(0, kMostRefused));
}

bool CDelimiterDialog::IsGood(const TextFileDraft& draft) const {
    const auto refuse = [this](Text id, const QString& words) {
        m_context.prompt.Tell({.textId = static_cast<int>(id),
                               .title = LoadText(Text::DelimitersTitle),
                               .text = words,
                               .icon = BoxIcon::Warning,
                               .actionLabel = {}});
        return false;
    };
    if (const auto objection = ObjectionTo(draft.delimiters)) return refuse(*objection, LoadText(*objection));
    const QByteArray encoding = draft.encoding.isEmpty() ? QByteArray("utf-8") : draft.encoding;
    if (!IsEncoding(encoding))
        return refuse(Text::EncodingUnknown,
                      FormatText<Text::EncodingUnknown>(QString::fromLatin1(encoding)));
    const auto& [qualifier, separator, lineEnd] = draft.delimiters;
    for (const QString& delimiter : {qualifier, separator, lineEnd})
        if (!delimiter.isEmpty() && !IsOneByte(delimiter.front().unicode(), encoding))
            return refuse(Text::DelimiterTooWide, FormatText<Text::DelimiterTooWide>(delimiter));
    return true;
}

void CDelimiterDialog::accept() {
    if (IsGood(GetDraft())) QDialog::accept();
}

void CDelimiterDialog::done(int result) {
    PersistDialogSize(*this, m_context.profile, SizeSection(m_context.purpose));
    QDialog::done(result);
}
