#include "shell/guide/CGuideHoursPage.h"

#include "app/CPulldownCatalogue.h"
#include "calendar/NumberText.h"
#include "config/CCfgStore.h"
#include "fields/ListId.h"
#include "lang/FormatText.h"
#include "shell/controls/CItemCombo.h"
#include "shell/guide/GuideFields.h"
#include "shell/look/FormRows.h"
#include "viewmodel/guide/CGuide.h"
#include "viewmodel/guide/GuideNames.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Rows of the choice of durations, in their order.
constexpr int kClockRow = 0;
constexpr int kDecimalRow = 1;
constexpr int kUsualPlaces = 2;

/// What the user chooses here, the region doesn't decide any more.
constexpr std::span<const ValueChoice> WithoutRegion(std::span<const ValueChoice> choices) {
    return choices.subspan(1);
}

void Select(QComboBox& box, int value) {
    box.setCurrentIndex(box.findData(value));
}

/// A stored value that no row stands for stays what it is.
int Selected(const QComboBox& box, int otherwise) {
    return box.currentIndex() < 0 ? otherwise : box.currentData().toInt();
}

QString SampleOfDecimals(int places) {
    constexpr double kSample = 3.25;
    return FormatText<Text::GuideSpansDecimal>(FormatNumber(TheRegion(), kSample, places));
}

}  // namespace

CGuideHoursPage::CGuideHoursPage(const CGuide& guide, const CMnemonics& mnemonics)
    : m_guide(guide),
      m_mnemonics(mnemonics),
      m_fields(guide.Catalogue(), RecordMode::Time, guide.Settings()),
      m_rate(m_fields.Make(ListId::kTimeRate)),
      m_currency(m_fields.Make(ListId::kItem5)),
      m_rateLabel(MakeFieldLabel(*m_rate, u"rateField"_s)),
      m_currencyLabel(MakeFieldLabel(*m_currency, u"currencyField"_s)),
      m_defaultHint(MakeNote({}, u"defaultHint"_s)) {
    setObjectName(u"guideHours"_s);
    auto* form = new QGridLayout(this);
    form->setContentsMargins({});
    form->setSpacing(kFormSpace);
    AddMoney(*form);
    constexpr ValueChoice kSpans[] = {{kClockRow, Text::GuideSpansClock}, {kDecimalRow, Text::SpanAsDecimal}};
    m_spans = AddChoice(*form, Text::GuideSpans, kSpans, u"spansBox"_s, m_mnemonics);
    m_clock = AddChoice(*form, Text::OptClockFormat, WithoutRegion(ValueChoices::kClockFormats),
                        u"clockBox"_s, m_mnemonics);
    m_week = AddChoice(*form, Text::GuideWeek, ValueChoices::kDaysOfWeek, u"weekBox"_s, m_mnemonics);
    m_distances = AddChoice(*form, Text::OptDistanceUnit, WithoutRegion(ValueChoices::kDistanceUnits),
                            u"distancesBox"_s, m_mnemonics);
    form->setColumnStretch(1, 1);
    form->setRowStretch(form->rowCount(), 1);
    setFocusProxy(m_rate);
    connect(m_rate, &CItemCombo::Edited, this, &CGuideHoursPage::FollowRate);
}

void CGuideHoursPage::AddMoney(QGridLayout& form) {
    form.addWidget(m_rateLabel, 0, 0);
    form.addWidget(m_rate, 0, 1);
    form.addWidget(m_currencyLabel, 1, 0);
    form.addWidget(m_currency, 1, 1);
    form.addWidget(m_defaultHint, 2, 0, 1, 2);
}

QComboBox* CGuideHoursPage::AddChoice(QGridLayout& form, Text label, std::span<const ValueChoice> choices,
                                      const QString& objectName, CMnemonics& mnemonics) {
    auto* box = new QComboBox;
    for (const ValueChoice& choice : choices) box->addItem(LoadText(choice.text), choice.value);
    const int row = form.rowCount();
    AddLabel(form, row, LoadText(label), *box, objectName, mnemonics);
    form.addWidget(box, row, 1);
    return box;
}

void CGuideHoursPage::Show(const GuideDraft& draft) {
    m_draft = draft;
    const FieldLabels& labels = m_guide.Catalogue().Labels();
    CMnemonics mnemonics = m_mnemonics;
    NameField(*m_rateLabel, *m_rate, FormatText<Text::GuideRate>(NameWith(draft, labels, FieldId::TimeRate)),
              mnemonics);
    NameField(*m_currencyLabel, *m_currency, NameWith(draft, labels, FieldId::TimeItem5), mnemonics);
    m_rate->ShowText(draft.rate);
    m_currency->ShowText(draft.currency);
    const bool isClock = draft.spanFormat != 0;
    m_spans->setItemText(kDecimalRow, SampleOfDecimals(PlacesOfDecimals()));
    Select(*m_spans, isClock ? kClockRow : kDecimalRow);
    Select(*m_clock, draft.clockFormat);
    Select(*m_week, draft.firstDayOfWeek);
    Select(*m_distances, draft.distanceUnit);
    FollowRate();
}

/// Who has had decimals keeps their number; who takes to them gets the usual one.
int CGuideHoursPage::PlacesOfDecimals() const {
    const GuideDraft proposal = m_guide.Proposal();
    return proposal.spanFormat == 0 ? proposal.durationPlaces : kUsualPlaces;
}

void CGuideHoursPage::Take(GuideDraft& draft) const {
    draft.rate = m_rate->Text();
    draft.currency = m_currency->Text();
    const bool isClock = Selected(*m_spans, kClockRow) == kClockRow;
    // The places round what is billed, so hours and minutes leave them alone.
    draft.durationPlaces = isClock ? m_guide.Proposal().durationPlaces : PlacesOfDecimals();
    if (isClock != (draft.spanFormat != 0)) draft.spanFormat = isClock ? 1 : 0;
    draft.clockFormat = Selected(*m_clock, draft.clockFormat);
    draft.firstDayOfWeek = Selected(*m_week, draft.firstDayOfWeek);
    draft.distanceUnit = Selected(*m_distances, draft.distanceUnit);
}

QWidget* CGuideHoursPage::WrongField() const {
    return IsGuideRate(m_rate->Text()) ? nullptr : m_rate;
}

void CGuideHoursPage::FollowRate() {
    MarkUnreadable(*m_rate->lineEdit(), WrongField() != nullptr, LoadText(Text::GuideRateUnreadable));
    GuideDraft draft = m_draft;
    draft.rate = m_rate->Text();
    const QString name = m_guide.DefaultName(draft);
    const QString hint = name.isEmpty() ? QString() : FormatText<Text::GuideDefaultHint>(name);
    m_defaultHint->setText(hint);
    m_defaultHint->setAccessibleName(hint);
    m_defaultHint->setVisible(!hint.isEmpty());
}
