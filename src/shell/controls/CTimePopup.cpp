#include "shell/controls/CTimePopup.h"

#include "lang/LoadText.h"
#include "shell/controls/CClockControl.h"
#include "shell/controls/CPickGrid.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"

#include <QHBoxLayout>
#include <QLabel>
#include <algorithm>

namespace {

constexpr int kGridColumns = 6;
const std::vector<int> kHalves{TimePad::kAm, TimePad::kPm};

int PlaceIn(const std::vector<int>& ids, int id) {
    const auto found = std::ranges::find(ids, id);
    return found == ids.end() ? CPickGrid::kNone : static_cast<int>(found - ids.begin());
}

}  // namespace

CTimePopup::CTimePopup(const TimePicking& picking, bool is24Hour, const std::optional<DateTimeVal>& time,
                       QWidget* parent)
    : CPickPopup(parent), m_control(new CClockControl(is24Hour, this)), m_pad(picking, *m_control, is24Hour) {
    CMnemonics mnemonics;
    BuildHead();
    BuildGrids(mnemonics);
    AddButtons({{"nowButton", LoadText(Text::PickNow), TimePad::kNow},
                {"clearButton", LoadText(Text::PickClear), TimePad::kClear},
                {"takeButton", LoadText(Text::DialogOk), TimePad::kAccept}},
               mnemonics);
    m_pad.Open(time);
    ShowPad();
    m_hours->setFocus();
}

/// The title stands in the popup as well, since hardly a desktop shows that of a popup.
void CTimePopup::BuildHead() {
    m_title = new QLabel;
    m_title->setObjectName(QStringLiteral("pickTitle"));
    QFont font = m_title->font();
    font.setBold(true);
    m_title->setFont(font);
    NameWidget(*m_control, QStringLiteral("timeControl"), LoadText(Text::PickTime));
    auto* row = new QHBoxLayout;
    row->setSpacing(kFormSpace);
    row->addWidget(m_title, 1);
    row->addWidget(m_control);
    Column().addLayout(row);
    Column().addSpacing(kFormSpace / 2);
    connect(m_control, &QTimeEdit::timeChanged, this, [this] {
        m_pad.ControlChanged();
        ShowPad();
    });
}

void CTimePopup::BuildGrids(CMnemonics& mnemonics) {
    m_hours = MakeGrid(m_pad.HourIds(), kGridColumns);
    AddGrid(*m_hours, "hourGrid", Text::PickHour, mnemonics);
    if (!m_pad.Is24Hour()) {
        m_halves = MakeGrid(kHalves, static_cast<int>(kHalves.size()));
        NameWidget(*m_halves, QStringLiteral("halfGrid"),
                   m_pad.CaptionOf(TimePad::kAm) + QLatin1Char(' ') + m_pad.CaptionOf(TimePad::kPm));
        Column().addWidget(m_halves);
    }
    m_minutes = MakeGrid(TimePad::MinuteIds(), kGridColumns);
    AddGrid(*m_minutes, "minuteGrid", Text::PickMinute, mnemonics);
}

CPickGrid* CTimePopup::MakeGrid(const std::vector<int>& ids, int columns) {
    QStringList captions;
    for (const int id : ids) captions << m_pad.CaptionOf(id);
    auto* grid = new CPickGrid(captions, columns);
    connect(grid, &CPickGrid::Tapped, this,
            [this, ids](int place) { Run(ids[static_cast<std::size_t>(place)]); });
    connect(grid, &CPickGrid::Taken, this, [this] { Run(TimePad::kAccept); });
    return grid;
}

void CTimePopup::AddGrid(CPickGrid& grid, const char* name, Text caption, CMnemonics& mnemonics) {
    Column().addWidget(MakeLabel(LoadText(caption), grid, QString::fromLatin1(name), mnemonics));
    Column().addWidget(&grid);
}

PadState CTimePopup::Press(int id) {
    const PadState state = m_pad.Press(id);
    ShowPad();
    return state;
}

void CTimePopup::ShowPad() {
    const auto show = [](CPickGrid& grid, const std::vector<int>& ids, int cursorId, int litId) {
        grid.Show(PlaceIn(ids, cursorId), PlaceIn(ids, litId));
    };
    show(*m_hours, m_pad.HourIds(), m_pad.HourIdOfTime(), m_pad.LitHour());
    show(*m_minutes, TimePad::MinuteIds(), m_pad.MinuteIdOfTime(), m_pad.LitMinute());
    if (m_halves) show(*m_halves, kHalves, m_pad.HalfIdOfTime(), m_pad.LitHalf());
    setWindowTitle(m_pad.Title());
    m_title->setText(m_pad.Title());
}
