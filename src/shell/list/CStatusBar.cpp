#include "shell/list/CStatusBar.h"

#include "app/CVelmarchDoc.h"
#include "calendar/CalendarMath.h"
#include "config/CCfgStore.h"
#include "lang/FormatText.h"
#include "records/CVORec.h"
#include "shell/look/CElidedLabel.h"
#include "shell/look/Glyphs.h"
#include "shell/look/ListColours.h"
#include "viewmodel/list/TotalsText.h"

#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <chrono>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kPicture = 16;
constexpr std::chrono::milliseconds kListStands{150};
constexpr std::chrono::milliseconds kLateMessage{3000};
constexpr QRgb kSumsOnLight = 0xFF215DC6;
constexpr QRgb kSumsOnDark = 0xFF8FB8FF;

void ShowPicture(QLabel& label, Glyph glyph) {
    label.setPixmap(Glyphs::Picture(glyph, kPicture, label.devicePixelRatioF(),
                                    label.palette().color(QPalette::WindowText),
                                    label.palette().color(QPalette::Window)));
}

QFrame* Divider(QWidget* parent) {
    auto* line = new QFrame(parent);
    line->setFrameShape(QFrame::VLine);
    line->setFrameShadow(QFrame::Sunken);
    return line;
}

}  // namespace

CStatusBar::CStatusBar(CVelmarchDoc& document, List list, QWidget* parent)
    : QStatusBar(parent), m_document(document), m_list(std::move(list)), m_worked(document) {
    setObjectName(u"statusBar"_s);
    m_listStands.setSingleShot(true);
    m_listStands.setInterval(kListStands);
    connect(&m_listStands, &QTimer::timeout, this, &CStatusBar::ShowSums);
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(6, 0, 6, 0);
    layout->setSpacing(6);
    m_modePicture = new QLabel(row);
    const auto label = [&](const QString& name, Text caption) {
        auto* made = new CElidedLabel(row);
        made->setObjectName(name);
        made->SetCaption(LoadText(caption));
        return made;
    };
    m_mode = label(u"statusMode"_s, Text::StatusMode);
    m_period = label(u"statusPeriod"_s, Text::StatusPeriod);
    m_sums = label(u"statusSums"_s, Text::StatusSums);
    m_count = label(u"statusCount"_s, Text::StatusSums);
    m_today = label(u"statusToday"_s, Text::TotalTodayName);
    m_week = label(u"statusWeek"_s, Text::TotalWeekName);
    m_sumsPicture = new QLabel(row);
    m_modePicture->setObjectName(u"statusModePicture"_s);
    m_sumsPicture->setObjectName(u"statusSumsPicture"_s);
    layout->addWidget(m_modePicture);
    layout->addWidget(m_mode);
    layout->addWidget(Divider(row));
    layout->addWidget(m_period);
    layout->addWidget(Divider(row));
    layout->addWidget(m_count);
    layout->addWidget(m_sumsPicture);
    layout->addWidget(m_sums, 1);
    layout->addWidget(m_today);
    layout->addWidget(m_week);
    addWidget(row, 1);
    ApplyLook();
}

/// The words are in the font of the list.
void CStatusBar::ApplyLook() {
    QFont bold = font();
    bold.setWeight(QFont::Bold);
    m_mode->setFont(bold);
    const bool dark = IsDark(palette());
    QPalette sums = palette();
    sums.setColor(QPalette::WindowText, QColor(dark ? kSumsOnDark : kSumsOnLight));
    for (QWidget* widget : {static_cast<QWidget*>(m_count), static_cast<QWidget*>(m_sums)})
        widget->setPalette(sums);
    if (!m_mode->FullText().isEmpty()) ShowModePicture();
}

void CStatusBar::changeEvent(QEvent* event) {
    QStatusBar::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) ApplyLook();
}

/// A message that came while the bar was hidden would be painted over what the bar shows: Qt makes room for
/// it as it comes alone.
void CStatusBar::showEvent(QShowEvent* event) {
    QStatusBar::showEvent(event);
    const QString message = currentMessage();
    if (message.isEmpty()) return;
    clearMessage();
    showMessage(message, static_cast<int>(kLateMessage.count()));
}

void CStatusBar::OnHint(Hint hint, const QStringList& ids) {
    m_worked.OnHint(hint, ids);
    switch (hint) {
        case Hint::Added:
        case Hint::Changed:
        case Hint::Deleted:
        case Hint::Rebuild:
            m_listSums.reset();
            ShowMode();
            ShowPeriod();
            ShowSums();
            ShowWorked();
            break;
        case Hint::Clear:
            ClearAll();
            break;
        case Hint::SelectionChanged:
            ShowSums();
            break;
        default:
            break;
    }
}

void CStatusBar::ClearAll() {
    m_listStands.stop();
    m_listSums.reset();
    for (CElidedLabel* label : {m_mode, m_period, m_count, m_sums, m_today, m_week}) label->SetFullText({});
    for (QLabel* picture : {m_modePicture, m_sumsPicture}) picture->clear();
}

void CStatusBar::FollowList() {
    m_listSums.reset();
    m_listStands.start();
}

void CStatusBar::ShowMode() {
    m_mode->SetFullText(LoadText(theRecordMode == RecordMode::Time ? Text::ModeTime : Text::ModeExpense));
    ShowModePicture();
}

void CStatusBar::ShowModePicture() {
    ShowPicture(*m_modePicture, theRecordMode == RecordMode::Time ? Glyph::ModeTime : Glyph::ModeExpense);
}

/// Single days bear day and week, weeks their week, other periods nothing.
void CStatusBar::ShowPeriod() {
    const PeriodFilter& filter = m_document.CurrentFilter();
    QString text = filter.displayName;
    if (text.isEmpty()) return m_period->SetFullText({});
    const bool isDay = filter.preset == PeriodCode::kToday || filter.preset == PeriodCode::kYesterday ||
                       filter.preset == PeriodCode::kSingleDate;
    const bool isWeek =
        filter.preset == 2 || filter.preset == 10 || filter.preset == 17 || filter.preset == 25;
    const CCfgStore& settings = m_document.GetSettings();
    DateTimeVal start;
    if (settings.showDayWeekNumbers && (isDay || isWeek) &&
        start.ParseDateText(filter.startText, TheRegion(), m_document.Clock()))
        text += u' ' + DayWeekLabel(start.month, start.day, start.year, isDay, settings.weekNumberType);
    m_period->SetFullText(text);
}

const StatusSums& CStatusBar::ListSums() {
    if (!m_listSums) {
        m_listSums.emplace();
        m_list.listed.each([this](const CVORec& record) { m_listSums->Add(record); });
        SayOfCutDistances();
    }
    return *m_listSums;
}

/// Once while the program runs: afterwards the tip of the sums says it.
void CStatusBar::SayOfCutDistances() {
    constexpr int kShown = 20000;  // milliseconds
    if (m_hasSaidOfCut || m_listSums->CutOfThem().Count() == 0) return;
    m_hasSaidOfCut = true;
    showMessage(m_listSums->CutOfThem().Words(), kShown);
}

StatusSums CStatusBar::SelectionSums() const {
    StatusSums sums;
    m_list.selected.each([&sums](const CVORec& record) { sums.Add(record); });
    return sums;
}

void CStatusBar::ShowSums() {
    const int selected = m_list.selected.count();
    const bool isEachListed = selected == m_list.listed.count();
    if (selected == 0 || isEachListed)
        ShowSumsOf(ListSums(), selected > 0);
    else
        ShowSumsOf(SelectionSums(), true);
}

/// The picture, which stands where there are sums, and the tip say of which records they are. The tip has
/// them in the short form, too, in which each currency bears its own hours.
void CStatusBar::ShowSumsOf(const StatusSums& sums, bool isSelection) {
    const CCfgStore& settings = m_document.GetSettings();
    const QString text = sums.SumsText(settings.precisionAmount, settings.precisionDuration);
    const QString whole = text.isEmpty() ? sums.CountText() : sums.CountText() + u"  "_s + text;
    QString tip = isSelection ? FormatText<Text::SelectionTip>(whole) : FormatText<Text::ListTip>(whole);
    if (sums.CutOfThem().Count() > 0) tip += u'\n' + sums.CutOfThem().Words();
    const QString count =
        isSelection ? SelectedCount(sums.Count(), m_list.listed.count()) : TotalsCount(sums);
    const QString totals = TotalsText(sums, settings);
    m_count->SetFullText(count, count.isEmpty() ? QString() : tip);
    m_sums->SetFullText(totals, totals.isEmpty() ? QString() : tip);
    m_sumsPicture->clear();
    if (!totals.isEmpty())
        ShowPicture(*m_sumsPicture, isSelection ? Glyph::SumOfSelection : Glyph::SumOfList);
}

QString CStatusBar::HoursToday() const {
    return HoursText(m_worked.Today(), m_document.GetSettings());
}

/// Expenses have no hours.
void CStatusBar::ShowWorked() {
    const bool isTime = theRecordMode == RecordMode::Time;
    const CCfgStore& settings = m_document.GetSettings();
    const auto show = [isTime](CElidedLabel& label, const QString& text) {
        label.SetFullText(isTime ? text : QString());
    };
    show(*m_today, FormatText<Text::TotalToday>(HoursText(m_worked.Today(), settings)));
    show(*m_week, FormatText<Text::TotalWeek>(HoursText(m_worked.ThisWeek(), settings)));
}
