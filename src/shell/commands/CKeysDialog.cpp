#include "shell/commands/CKeysDialog.h"

#include "lang/FormatText.h"
#include "shell/controls/CSearchList.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/DialogSize.h"
#include "shell/look/FormRows.h"
#include "viewmodel/commands/CommandTable.h"
#include "viewmodel/commands/WordSearch.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QKeySequence>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;

namespace {

QString SizeSection() {
    return u"KeysDialog"_s;
}
constexpr QSize kUsualSize{560, 520};

QString NativeKey(const QString& key) {
    return QKeySequence(key, QKeySequence::PortableText).toString(QKeySequence::NativeText);
}

/// "Return, Enter or F2".
QString KeysInWords(const QStringList& keys) {
    QStringList native;
    for (const QString& key : keys) native << NativeKey(key);
    const QString last = native.takeLast();
    return native.isEmpty() ? last : FormatText<Text::KeysOr>(native.join(u", "_s), last);
}

CSearchList* MakeList(const std::vector<KeyedCommand>& commands) {
    auto* list = new CSearchList({Text::KeysFind, Text::KeysTitle, Text::KeysNone});
    std::vector<SearchRow> rows;
    QStringList texts;
    for (const KeyedCommand& command : commands) {
        const QString keys = KeysInWords(command.keys);
        rows.push_back({.text = command.name,
                        .place = command.path,
                        .keys = keys,
                        .icon = QIcon::fromTheme(QString::fromLatin1(command.row->icon))});
        texts << command.name + u' ' + command.path + u' ' + command.tip + u' ' + keys;
    }
    list->SetRows(std::move(rows), 0, [texts](const QString& words) { return FindByWords(texts, words); });
    return list;
}

}  // namespace

CKeysDialog::CKeysDialog(const std::vector<KeyedCommand>& commands, CProfile& profile, QWidget* parent)
    : QDialog(parent), m_profile(profile) {
    setObjectName(u"keysDialog"_s);
    setWindowTitle(LoadText(Text::KeysTitle));
    auto* column = new QVBoxLayout(this);
    column->setSpacing(kFormSpace);
    CSearchList* list = MakeList(commands);
    column->addWidget(list);
    const QStringList palette = ShortcutsOf(*FindCommand(Command::kFindCommand));
    column->addWidget(MakeNote(FormatText<Text::KeysOthers>(NativeKey(palette.front())), u"keysNote"_s));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QPushButton* close = buttons->button(QDialogButtonBox::Close);
    CMnemonics mnemonics;
    close->setText(mnemonics.Give(LoadText(Text::DialogClose)));
    NameWidget(*close, u"closeButton"_s, LoadText(Text::DialogClose));
    connect(buttons, &QDialogButtonBox::rejected, this, &CKeysDialog::reject);
    column->addWidget(buttons);
    RestoreDialogSize(*this, m_profile, SizeSection(), kUsualSize);
    if (parent) parent->installEventFilter(this);
    list->setFocus();
}

/// The program ends with its last window.
bool CKeysDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parent() && event->type() == QEvent::Hide) reject();
    return QDialog::eventFilter(watched, event);
}

void CKeysDialog::done(int result) {
    PersistDialogSize(*this, m_profile, SizeSection());
    QDialog::done(result);
}
