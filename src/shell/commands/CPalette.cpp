#include "shell/commands/CPalette.h"

#include "lang/LoadText.h"
#include "shell/commands/CommandIcon.h"
#include "shell/controls/CSearchList.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/DialogSize.h"
#include "shell/look/FormRows.h"
#include "viewmodel/commands/WordSearch.h"

#include <QDialogButtonBox>
#include <QKeySequence>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QString SizeSection() {
    return QStringLiteral("Palette");
}
constexpr QSize kUsualSize{560, 420};

QString KeysOf(const CommandRow& row) {
    const QStringList keys = ShortcutsOf(row);
    if (keys.isEmpty()) return {};
    return QKeySequence(keys.front(), QKeySequence::PortableText).toString(QKeySequence::NativeText);
}

}  // namespace

CPalette::CPalette(std::vector<PaletteEntry> entries, CProfile& profile, QWidget* parent)
    : QDialog(parent),
      m_entries(std::move(entries)),
      m_profile(profile),
      m_list(new CSearchList({Text::PaletteSearch, Text::PaletteRows, Text::PaletteNothingFound})) {
    setObjectName(QStringLiteral("palette"));
    setWindowTitle(LoadText(Text::PaletteTitle));
    CMnemonics mnemonics;
    auto* column = new QVBoxLayout(this);
    column->setSpacing(kFormSpace);
    column->addWidget(m_list);
    auto* buttons = MakeDialogButtons(*this, Text::PaletteAccept, mnemonics);
    column->addWidget(buttons);
    connect(m_list, &CSearchList::CurrentChanged, this,
            [buttons](int row) { buttons->button(QDialogButtonBox::Ok)->setEnabled(row >= 0); });
    connect(m_list, &CSearchList::Chosen, this, &CPalette::accept);
    std::vector<SearchRow> rows;
    std::vector<PlacedText> texts;
    for (const PaletteEntry& entry : m_entries) {
        rows.push_back({.text = entry.name,
                        .place = entry.path,
                        .keys = KeysOf(*entry.row),
                        .icon = CommandIcon(*entry.row)});
        texts.push_back({entry.name, entry.path + u' ' + entry.tip});
    }
    m_list->SetRows(std::move(rows), 0,
                    [texts = std::move(texts)](const QString& words) { return FindBest(texts, words); });
    RestoreDialogSize(*this, m_profile, SizeSection(), kUsualSize);
    m_list->setFocus();
}

std::optional<int> CPalette::Chosen() const {
    const int row = m_list->Current();
    if (row < 0) return std::nullopt;
    return m_entries[static_cast<std::size_t>(row)].row->id;
}

void CPalette::done(int result) {
    PersistDialogSize(*this, m_profile, SizeSection());
    QDialog::done(result);
}

std::optional<int> RunPalette(QWidget* parent, std::vector<PaletteEntry> entries, CProfile& profile) {
    CPalette dialog(std::move(entries), profile, parent);
    return dialog.exec() == QDialog::Accepted ? dialog.Chosen() : std::nullopt;
}
