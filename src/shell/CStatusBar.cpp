#include "shell/CStatusBar.h"

#include "app/CVelmarchDoc.h"
#include "calendar/CalendarMath.h"
#include "config/CCfgStore.h"
#include "lang/FormatText.h"
#include "records/CVORec.h"
#include "shell/CElidedLabel.h"
#include "shell/Glyphs.h"
#include "shell/ListColours.h"

#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kPicture = 16;
constexpr QRgb kSumsOnLight = 0xFF215DC6;
constexpr QRgb kSumsOnDark = 0xFF8FB8FF;

QFrame* Divider(QWidget* parent) {
    auto* line = new QFrame(parent);
    line->setFrameShape(QFrame::VLine);
    line->setFrameShadow(QFrame::Sunken);
    return line;
}

}  // namespace

CStatusBar::CStatusBar(const CVelmarchDoc& document, std::function<QStringList()> selection, QWidget* parent)
    : QStatusBar(parent), m_document(document), m_selection(std::move(selection)) {
    setObjectName(u"statusBar"_s);
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
    m_modePicture->setObjectName(u"statusModePicture"_s);
    layout->addWidget(m_modePicture);
    layout->addWidget(m_mode);
    layout->addWidget(Divider(row));
    layout->addWidget(m_period);
    layout->addWidget(Divider(row));
    layout->addWidget(m_sums, 1);
    addWidget(row, 1);
    ApplyLook();
}

void CStatusBar::ApplyLook() {
    QFont bold = font();
    bold.setWeight(QFont::Bold);
    m_mode->setFont(bold);
    const bool dark = IsDark(palette());
    QPalette sums = palette();
    sums.setColor(QPalette::WindowText, QColor(dark ? kSumsOnDark : kSumsOnLight));
    m_sums->setPalette(sums);
    ShowModePicture();
}

void CStatusBar::changeEvent(QEvent* event) {
    QStatusBar::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) ApplyLook();
}

void CStatusBar::NotifyViews(Hint hint, const QStringList&) {
    switch (hint) {
        case Hint::Added:
        case Hint::Changed:
        case Hint::Deleted:
        case Hint::Rebuild:
            m_listSumsKnown = false;
            ShowMode();
            ShowPeriod();
            ShowSums();
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
    m_listSumsKnown = false;
    m_mode->SetFullText({});
    m_period->SetFullText({});
    m_sums->SetFullText({});
}

void CStatusBar::ShowMode() {
    m_mode->SetFullText(LoadText(theRecordMode == RecordMode::Time ? Text::ModeTime : Text::ModeExpense));
    ShowModePicture();
}

void CStatusBar::ShowModePicture() {
    const Glyph glyph = theRecordMode == RecordMode::Time ? Glyph::ModeTime : Glyph::ModeExpense;
    m_modePicture->setPixmap(Glyphs::Picture(glyph, kPicture, devicePixelRatioF(),
                                             palette().color(QPalette::WindowText),
                                             palette().color(QPalette::Window)));
}

/// Single days bear day and week, weeks their week, other periods nothing.
void CStatusBar::ShowPeriod() {
    const PeriodFilter& filter = m_document.CurrentFilter();
    QString text = filter.displayName;
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

void CStatusBar::ShowSums() {
    const QStringList selected = m_selection();
    StatusSums ofSelection;
    for (const QString& id : selected)
        if (const CVORec* record = m_document.FindRecord(id)) ofSelection.Add(*record);
    if (selected.isEmpty() && !m_listSumsKnown) {
        m_listSums = {};
        m_document.ForEachVisible([this](const CVORec& record) { m_listSums.Add(record); });
        m_listSumsKnown = true;
    }
    const StatusSums& sums = selected.isEmpty() ? m_listSums : ofSelection;
    const CCfgStore& settings = m_document.GetSettings();
    const QString sumsText = sums.SumsText(settings.precisionAmount, settings.precisionDuration);
    const QString text = sumsText.isEmpty() ? sums.CountText() : sums.CountText() + u"  "_s + sumsText;
    if (text.isEmpty()) return m_sums->SetFullText({});
    m_sums->SetFullText(
        text, selected.isEmpty() ? FormatText<Text::ListTip>(text) : FormatText<Text::SelectionTip>(text));
}
