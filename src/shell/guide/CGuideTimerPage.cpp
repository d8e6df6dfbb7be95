#include "shell/guide/CGuideTimerPage.h"

#include "app/CPulldownCatalogue.h"
#include "config/CCfgStore.h"
#include "fields/ListId.h"
#include "lang/FormatText.h"
#include "shell/controls/CItemCombo.h"
#include "shell/guide/GuideFields.h"
#include "shell/look/FormRows.h"
#include "viewmodel/commands/CommandTable.h"
#include "viewmodel/guide/CGuide.h"
#include "viewmodel/guide/GuideNames.h"

#include <QGridLayout>
#include <QKeySequence>
#include <QLabel>
#include <QRadioButton>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The first key of a command, as the desktop writes it.
QString KeyOf(int command) {
    const QString keys = QString::fromLatin1(FindCommand(command)->keys);
    return QKeySequence(keys.section(u' ', 0, 0), QKeySequence::PortableText)
        .toString(QKeySequence::NativeText);
}

QString WorkOf(const GuideDraft& draft) {
    const QString client = draft.client.trimmed();
    const QString project = draft.project.trimmed();
    if (client.isEmpty() && project.isEmpty()) return LoadText(Text::GuideTimerForNobody);
    if (client.isEmpty() || project.isEmpty()) return client + project;
    return FormatText<Text::GuideWorkJoin>(client, project);
}

}  // namespace

CGuideTimerPage::CGuideTimerPage(const CGuide& guide, CMnemonics mnemonics)
    : m_guide(guide),
      m_mnemonics(std::move(mnemonics)),
      m_fields(guide.Catalogue(), RecordMode::Time, guide.Settings()),
      m_now(MakeChoice(Text::GuideTimerNow, u"timerNow"_s)),
      m_later(MakeChoice(Text::GuideTimerLater, u"timerLater"_s)),
      m_work(new QLabel),
      m_activity(m_fields.Make(ListId::kTimeItem3)),
      m_activityLabel(MakeFieldLabel(*m_activity, u"activityField"_s)) {
    setObjectName(u"guideTimer"_s);
    m_work->setObjectName(u"timerWork"_s);
    m_work->setTextFormat(Qt::PlainText);
    m_work->setWordWrap(true);
    auto* form = new QGridLayout(this);
    form->setContentsMargins({});
    form->setSpacing(kFormSpace);
    form->addWidget(m_now, 0, 0, 1, 2);
    auto* caption = new QLabel(LoadText(Text::GuideTimerFor));
    caption->setObjectName(u"timerWorkCaption"_s);
    form->addWidget(caption, 1, 0);
    form->addWidget(m_work, 1, 1);
    form->addWidget(m_activityLabel, 2, 0);
    form->addWidget(m_activity, 2, 1);
    form->addWidget(m_later, 3, 0, 1, 2);
    const QString hint = FormatText<Text::GuideTimerHint>(KeyOf(Command::kNewStampTimer),
                                                          KeyOf(Command::kNew), KeyOf(Command::kFindCommand));
    form->addWidget(MakeNote(hint, u"timerHint"_s), 4, 0, 1, 2);
    form->setColumnStretch(1, 1);
    form->setRowStretch(5, 1);
    connect(m_now, &QRadioButton::toggled, m_activity, &QWidget::setEnabled);
}

QRadioButton* CGuideTimerPage::MakeChoice(Text text, const QString& objectName) {
    auto* choice = new QRadioButton(m_mnemonics.Give(LoadText(text)));
    NameWidget(*choice, objectName, LoadText(text));
    return choice;
}

void CGuideTimerPage::Show(const GuideDraft& draft) {
    CMnemonics mnemonics = m_mnemonics;
    NameField(*m_activityLabel, *m_activity,
              NameWith(draft, m_guide.Catalogue().Labels(), FieldId::TimeItem3), mnemonics);
    ShowValue(*m_work, LoadText(Text::GuideTimerFor), WorkOf(draft));
    // What is offered depends on what stands above it.
    m_fields.SetText(ListId::kClient, draft.client);
    m_fields.SetText(ListId::kProject, draft.project);
    m_activity->ShowText(draft.activity);
    m_activity->setEnabled(draft.startsTimer);
    QRadioButton* chosen = draft.startsTimer ? m_now : m_later;
    chosen->setChecked(true);
    setFocusProxy(chosen);
}

void CGuideTimerPage::Take(GuideDraft& draft) const {
    draft.startsTimer = m_now->isChecked();
    draft.activity = m_activity->Text();
}
