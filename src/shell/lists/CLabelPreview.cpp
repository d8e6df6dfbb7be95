#include "shell/lists/CLabelPreview.h"

#include "lang/FormatText.h"
#include "lists/LabelChanges.h"
#include "platform/settings/CProfile.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/DialogSize.h"
#include "shell/look/FormRows.h"
#include "shell/look/PlainTip.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

QString SizeSection() {
    return QStringLiteral("FieldNamesPreview");
}
constexpr QSize kUsualSize{560, 420};

/// "Time: Client, list heading".
QString FieldOf(const LabelChange& change) {
    const QString mode = LoadText(change.mode == RecordMode::Time ? Text::ModeTime : Text::ModeExpense);
    const QString title = LoadText(change.title);
    return change.isHeading ? FormatText<Text::NamesPreviewHeading>(mode, title)
                            : FormatText<Text::NamesPreviewName>(mode, title);
}

QTreeWidget* MakeList(const std::vector<LabelChange>& changes, const QString& name) {
    auto* list = new QTreeWidget;
    NameWidget(*list, QStringLiteral("changesList"), name);
    list->setHeaderLabels({LoadText(Text::NamesPreviewField), LoadText(Text::NamesPreviewNow),
                           LoadText(Text::NamesPreviewThen)});
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAllColumnsShowFocus(true);
    for (const LabelChange& change : changes) {
        auto* line = new QTreeWidgetItem(list, {FieldOf(change), change.now, change.then});
        for (const int column : {1, 2}) line->setToolTip(column, PlainTip(line->text(column)));
    }
    list->header()->setStretchLastSection(false);
    list->header()->setSectionResizeMode(QHeaderView::Stretch);
    list->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    return list;
}

}  // namespace

CLabelPreview::CLabelPreview(const LabelQuestion& question, const std::vector<LabelChange>& changes,
                             CProfile& profile, QWidget* parent)
    : QDialog(parent), m_profile(profile) {
    setObjectName(QStringLiteral("labelPreview"));
    setWindowTitle(LoadText(question.title));
    const QString count = changes.empty()
                              ? LoadText(Text::NamesPreviewNothing)
                              : FormatText<Text::NamesPreviewCount>(static_cast<int>(changes.size()));
    auto* column = new QVBoxLayout(this);
    column->setSpacing(kFormSpace);
    column->addWidget(MakeNote(LoadText(question.text), QStringLiteral("question")));
    QTreeWidget* list = MakeList(changes, count);
    column->addWidget(list, 1);
    column->addWidget(MakeNote(count, QStringLiteral("changesCount")));
    column->addWidget(MakeButtons(question.accept));
    RestoreDialogSize(*this, m_profile, SizeSection(), kUsualSize);
}

/// Unlike in dialogs of fields, Enter does the harmless thing wherever the keyboard is.
QDialogButtonBox* CLabelPreview::MakeButtons(Text accept) {
    CMnemonics mnemonics;
    auto* box = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    const auto dress = [&](QDialogButtonBox::StandardButton which, Text text, const QString& name) {
        QPushButton* button = box->button(which);
        button->setText(mnemonics.Give(LoadText(text)));
        button->setAutoDefault(false);
        NameWidget(*button, name, LoadText(text));
    };
    dress(QDialogButtonBox::Ok, accept, QStringLiteral("acceptButton"));
    dress(QDialogButtonBox::Cancel, Text::DialogCancel, QStringLiteral("cancelButton"));
    box->button(QDialogButtonBox::Cancel)->setDefault(true);
    box->button(QDialogButtonBox::Cancel)->setFocus();
    connect(box, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return box;
}

void CLabelPreview::done(int result) {
    PersistDialogSize(*this, m_profile, SizeSection());
    QDialog::done(result);
}

bool AskAboutLabels(QWidget* parent, const LabelQuestion& question, const std::vector<LabelChange>& changes,
                    CProfile& profile) {
    return CLabelPreview(question, changes, profile, parent).exec() == QDialog::Accepted;
}
