#include "shell/guide/CGuideDialog.h"

#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"
#include "shell/guide/CGuideHoursPage.h"
#include "shell/guide/CGuideTimerPage.h"
#include "shell/guide/CGuideWordsPage.h"
#include "shell/guide/CGuideWorkPage.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/DialogSize.h"
#include "shell/look/FormRows.h"
#include "shell/options/SettingSwitch.h"
#include "viewmodel/guide/CGuide.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QStackedWidget>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QSize kUsualSize{560, 440};

QString SizeSection() {
    return u"GuideDialog"_s;
}

MessageBox EndQuestion() {
    return {.textId = static_cast<int>(Text::GuideAskEnd),
            .title = LoadText(Text::GuideTitle),
            .text = LoadText(Text::GuideAskEnd),
            .icon = BoxIcon::Question,
            .buttons = Buttons::YesNoCancel,
            .defaultAnswer = Answer::Cancel,
            .actionLabel = LoadText(Text::GuideStoreAction),
            .otherLabel = LoadText(Text::GuideDropAction)};
}

}  // namespace

CGuideDialog::CGuideDialog(CGuide& guide, CPrompt& prompt, CProfile& profile, QWidget* parent)
    : QDialog(parent),
      m_guide(guide),
      m_prompt(prompt),
      m_profile(profile),
      m_proposal(guide.Proposal()),
      m_draft(m_proposal),
      m_title(new QLabel),
      m_hint(MakeNote({}, u"guideHint"_s)),
      m_count(new QLabel),
      m_scroll(new QScrollArea),
      m_stack(new QStackedWidget) {
    setObjectName(u"guideDialog"_s);
    setWindowTitle(LoadText(Text::GuideTitle));
    auto* column = new QVBoxLayout(this);
    column->setSpacing(kFormSpace);
    AddHead(*column);
    AddPages();
    column->addWidget(m_scroll, 1);
    AddButtons(*column);
    RestoreDialogSize(*this, m_profile, SizeSection(), kUsualSize);
    Open(0);
}

void CGuideDialog::AddHead(QVBoxLayout& column) {
    constexpr double kLarger = 1.3;
    QFont font = m_title->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * kLarger);
    m_title->setFont(font);
    m_title->setWordWrap(true);
    m_title->setObjectName(u"guideTitle"_s);
    m_count->setObjectName(u"guideCount"_s);
    auto* head = new QHBoxLayout;
    head->addWidget(m_title, 1);
    head->addWidget(m_count, 0, Qt::AlignTop);
    column.addLayout(head);
    column.addWidget(m_hint);
    column.addSpacing(kFormSpace);
}

QPushButton* CGuideDialog::AddButton(QHBoxLayout& row, Text text, const QString& objectName) {
    auto* button = new QPushButton(LoadText(text));
    NameWidget(*button, objectName, CMnemonics::Plain(LoadText(text)));
    row.addWidget(button);
    return button;
}

/// After the pages, and so behind them with Tab as well.
void CGuideDialog::AddButtons(QVBoxLayout& column) {
    auto* row = new QHBoxLayout;
    m_skip = AddButton(*row, Text::GuideSkip, u"guideSkip"_s);
    row->addStretch();
    m_back = AddButton(*row, Text::GuideBack, u"guideBack"_s);
    m_next = AddButton(*row, Text::GuideNext, u"guideNext"_s);
    m_next->setDefault(true);
    m_skip->setAutoDefault(false);
    m_back->setAutoDefault(false);
    column.addSpacing(kFormSpace);
    column.addLayout(row);
    connect(m_skip, &QPushButton::clicked, this, &CGuideDialog::reject);
    connect(m_back, &QPushButton::clicked, this, &CGuideDialog::Back);
    connect(m_next, &QPushButton::clicked, this, &CGuideDialog::accept);
}

/// On a small screen a page scrolls.
void CGuideDialog::AddPages() {
    CMnemonics mnemonics;
    for (const Text button : {Text::GuideSkip, Text::GuideBack, Text::GuideNext, Text::GuideFinish})
        static_cast<void>(mnemonics.Take(LoadText(button)));
    m_pages = {new CGuideWordsPage(m_guide, mnemonics), new CGuideWorkPage(m_guide, mnemonics),
               new CGuideHoursPage(m_guide, mnemonics), new CGuideTimerPage(m_guide, mnemonics)};
    for (CGuidePage* page : m_pages) {
        page->setAccessibleName(LoadText(page->Title()));
        page->Show(m_draft);  // its fields have names before it is in front
        m_stack->addWidget(page);
    }
    NameWidget(*m_stack, u"guidePages"_s, LoadText(Text::GuidePages));
    m_scroll->setObjectName(u"guideScroll"_s);
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setFocusPolicy(Qt::NoFocus);
    m_scroll->setWidgetResizable(true);
    m_scroll->setWidget(m_stack);
}

void CGuideDialog::Open(std::size_t place) {
    m_place = place;
    if (IsLast() && !m_wasTimerProposed) {
        m_wasTimerProposed = true;
        m_draft.startsTimer = !m_draft.client.trimmed().isEmpty();
    }
    Page().Show(m_draft);
    m_stack->setCurrentWidget(&Page());
    m_title->setText(LoadText(Page().Title()));
    const QString hint = LoadText(Page().Hint());
    m_hint->setText(hint);
    m_hint->setAccessibleName(hint);
    m_count->setText(
        FormatText<Text::GuidePageOf>(static_cast<int>(m_place) + 1, static_cast<int>(m_pages.size())));
    m_back->setEnabled(m_place > 0);
    const QString& next = LoadText(IsLast() ? Text::GuideFinish : Text::GuideNext);
    m_next->setText(next);
    m_next->setAccessibleName(CMnemonics::Plain(next));
    m_scroll->ensureVisible(0, 0);
    Page().setFocus();
}

void CGuideDialog::Back() {
    if (m_place == 0) return;
    Page().Take(m_draft);
    Open(m_place - 1);
}

void CGuideDialog::accept() {
    if (QWidget* wrong = Page().WrongField()) return wrong->setFocus();
    Page().Take(m_draft);
    IsLast() ? Finish(m_draft) : Open(m_place + 1);
}

void CGuideDialog::Finish(const GuideDraft& draft) {
    if (m_guide.Store(draft)) {
        m_left = Left::Stored;
        return QDialog::accept();
    }
    m_prompt.Tell({.textId = static_cast<int>(Text::GuideNotAll),
                   .title = LoadText(Text::GuideTitle),
                   .text = LoadText(Text::GuideNotAll),
                   .icon = BoxIcon::Warning,
                   .actionLabel = {}});
}

GuideDraft CGuideDialog::Entered() const {
    GuideDraft draft = m_draft;
    Page().Take(draft);
    return draft;
}

/// A timer counts as entered only once its page was accepted. At the end of the program all windows are
/// closed, this one behind the one that it belongs to: nobody has decided anything then.
void CGuideDialog::reject() {
    if (parentWidget() && !parentWidget()->isVisible()) return QDialog::reject();
    GuideDraft draft = Entered();
    draft.startsTimer = false;
    if (draft == m_proposal) return Leave();
    const Answer answer = m_prompt.Ask(EndQuestion());
    if (answer == Answer::No) return Leave();
    if (answer != Answer::Yes) return;
    if (QWidget* wrong = Page().WrongField()) return wrong->setFocus();
    Finish(draft);
}

void CGuideDialog::Leave() {
    if (!m_guide.Skip()) TellNotSaved(m_prompt);
    m_left = Left::Skipped;
    QDialog::reject();
}

void CGuideDialog::done(int result) {
    PersistDialogSize(*this, m_profile, SizeSection());
    QDialog::done(result);
}

bool RunGuideDialog(QWidget* parent, CGuide& guide, CPrompt& prompt, CProfile& profile) {
    CGuideDialog dialog(guide, prompt, profile, parent);
    dialog.exec();
    return dialog.HowLeft() != CGuideDialog::Left::NotByUser;
}
