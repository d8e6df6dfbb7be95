#include "shell/guide/CGuideWordsPage.h"

#include "app/CPulldownCatalogue.h"
#include "lang/FormatText.h"
#include "records/CVORec.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"
#include "viewmodel/guide/CGuide.h"
#include "viewmodel/guide/GuideNames.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QStyle>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;

namespace {

struct ChoiceRow {
    GuideWords words;
    Text text;
    const char* objectName;
};
constexpr ChoiceRow kChoices[] = {
    {GuideWords::AsNow, Text::GuideWordsNow, "wordsNow"},
    {GuideWords::Plain, Text::GuideWordsPlain, "wordsPlain"},
    {GuideWords::Law, Text::GuideWordsLaw, "wordsLaw"},
    {GuideWords::Service, Text::GuideWordsService, "wordsService"},
};

/// The fields that say most about a set of names.
constexpr FieldId kShown[] = {FieldId::TimeItem1, FieldId::TimeItem2, FieldId::TimeItem3, FieldId::TimeItem4};

QString Pair(Text text, const QString& person, const QString& work) {
    switch (text) {
        case Text::GuideWordsNow:
            return FormatText<Text::GuideWordsNow>(person, work);
        case Text::GuideWordsLaw:
            return FormatText<Text::GuideWordsLaw>(person, work);
        case Text::GuideWordsService:
            return FormatText<Text::GuideWordsService>(person, work);
        default:
            return FormatText<Text::GuideWordsPlain>(person, work);
    }
}

}  // namespace

CGuideWordsPage::CGuideWordsPage(const CGuide& guide, CMnemonics mnemonics)
    : m_guide(guide), m_choices(new QButtonGroup(this)), m_shown(MakeNote({}, u"wordsShown"_s)) {
    setObjectName(u"guideWords"_s);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(kFormSpace);
    const FieldLabels& labels = guide.Catalogue().Labels();
    for (const ChoiceRow& row : kChoices) {
        // Without own names the names of now are the plain ones.
        if (row.words == GuideWords::AsNow && !HasOwnNames(labels)) continue;
        const GuideDraft draft{.words = row.words};
        AddChoice(*column, row.words,
                  Pair(row.text, NameWith(draft, labels, FieldId::TimeItem1),
                       NameWith(draft, labels, FieldId::TimeItem2)),
                  QString::fromLatin1(row.objectName), mnemonics);
    }
    AddChoice(*column, GuideWords::Own, LoadText(Text::GuideWordsOwn), u"wordsOwn"_s, mnemonics);
    AddOwnWords(*column, mnemonics);
    column->addSpacing(kFormSpace);
    column->addWidget(m_shown);
    column->addStretch();
    setFocusProxy(m_choices->buttons().front());
    connect(m_choices, &QButtonGroup::idToggled, this, [this] { Follow(); });
}

void CGuideWordsPage::AddChoice(QVBoxLayout& column, GuideWords words, const QString& text,
                                const QString& objectName, CMnemonics& mnemonics) {
    auto* choice = new QRadioButton(mnemonics.Give(text));
    NameWidget(*choice, objectName, text);
    m_choices->addButton(choice, static_cast<int>(words));
    column.addWidget(choice);
}

/// Below their choice, as far in as its text.
void CGuideWordsPage::AddOwnWords(QVBoxLayout& column, CMnemonics& mnemonics) {
    auto* form = new QGridLayout;
    form->setSpacing(kFormSpace);
    const int mark = style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth) +
                     style()->pixelMetric(QStyle::PM_RadioButtonLabelSpacing);
    form->setContentsMargins(mark, 0, 0, 0);
    m_person =
        AddWord(*form, Text::GuideWordPerson, Text::GuideWordPersonSample, u"personField"_s, mnemonics);
    m_work = AddWord(*form, Text::GuideWordWork, Text::GuideWordWorkSample, u"workField"_s, mnemonics);
    column.addLayout(form);
}

QLineEdit* CGuideWordsPage::AddWord(QGridLayout& form, Text label, Text sample, const QString& objectName,
                                    CMnemonics& mnemonics) {
    auto* field = new QLineEdit;
    field->setPlaceholderText(LoadText(sample));
    LimitLength(*field, kTextLength);
    const int row = form.rowCount();
    AddLabel(form, row, LoadText(label), *field, objectName, mnemonics);
    form.addWidget(field, row, 1);
    // Who types a word of their own has chosen that.
    connect(field, &QLineEdit::textEdited, this, [this] {
        m_choices->button(static_cast<int>(GuideWords::Own))->setChecked(true);
        Follow();
    });
    return field;
}

void CGuideWordsPage::Show(const GuideDraft& draft) {
    m_person->setText(draft.person);
    m_work->setText(draft.work);
    if (auto* choice = m_choices->button(static_cast<int>(draft.words))) {
        choice->setChecked(true);
        setFocusProxy(choice);
    }
    Follow();
}

void CGuideWordsPage::Take(GuideDraft& draft) const {
    if (m_choices->checkedId() >= 0) draft.words = static_cast<GuideWords>(m_choices->checkedId());
    draft.person = m_person->text();
    draft.work = m_work->text();
}

void CGuideWordsPage::Follow() {
    GuideDraft draft;
    Take(draft);
    QStringList names;
    for (const FieldId field : kShown) names << NameWith(draft, m_guide.Catalogue().Labels(), field);
    const QString shown = FormatText<Text::GuideWordsShown>(names.join(LoadText(Text::GuideWordsComma)));
    m_shown->setText(shown);
    m_shown->setAccessibleName(shown);
}
