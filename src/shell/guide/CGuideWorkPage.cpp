#include "shell/guide/CGuideWorkPage.h"

#include "app/CPulldownCatalogue.h"
#include "config/CCfgStore.h"
#include "fields/ListId.h"
#include "lang/LoadText.h"
#include "shell/controls/CItemCombo.h"
#include "shell/guide/GuideFields.h"
#include "shell/look/FormRows.h"
#include "viewmodel/guide/CGuide.h"
#include "viewmodel/guide/GuideNames.h"

#include <QGridLayout>
#include <QLabel>

using namespace Qt::Literals::StringLiterals;

CGuideWorkPage::CGuideWorkPage(const CGuide& guide, const CMnemonics& mnemonics)
    : m_guide(guide),
      m_mnemonics(mnemonics),
      m_fields(guide.Catalogue(), RecordMode::Time, guide.Settings()),
      m_client(m_fields.Make(ListId::kClient)),
      m_project(m_fields.Make(ListId::kProject)),
      m_clientLabel(MakeFieldLabel(*m_client, u"clientField"_s)),
      m_projectLabel(MakeFieldLabel(*m_project, u"projectField"_s)) {
    setObjectName(u"guideWork"_s);
    auto* form = new QGridLayout(this);
    form->setContentsMargins({});
    form->setSpacing(kFormSpace);
    form->addWidget(m_clientLabel, 0, 0);
    form->addWidget(m_client, 0, 1);
    form->addWidget(m_projectLabel, 1, 0);
    form->addWidget(m_project, 1, 1);
    if (guide.Settings().useDependencies)
        form->addWidget(MakeNote(LoadText(Text::GuideWorkDependent), u"workDependent"_s), 2, 0, 1, 2);
    form->setColumnStretch(1, 1);
    form->setRowStretch(3, 1);
    setFocusProxy(m_client);
}

void CGuideWorkPage::Show(const GuideDraft& draft) {
    const FieldLabels& labels = m_guide.Catalogue().Labels();
    CMnemonics mnemonics = m_mnemonics;
    NameField(*m_clientLabel, *m_client, NameWith(draft, labels, FieldId::TimeItem1), mnemonics);
    NameField(*m_projectLabel, *m_project, NameWith(draft, labels, FieldId::TimeItem2), mnemonics);
    m_client->ShowText(draft.client);
    m_project->ShowText(draft.project);
}

void CGuideWorkPage::Take(GuideDraft& draft) const {
    draft.client = m_client->Text();
    draft.project = m_project->Text();
}
