#include "shell/controls/CSpanPopup.h"

#include "lang/LoadText.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QSignalBlocker>

namespace {

constexpr int kLinesInSight = 8;

void Fill(QListWidget& list, const QStringList& lines, int chosen) {
    const QSignalBlocker blocked(&list);
    list.addItems(lines);
    list.setCurrentRow(chosen);
    const int frame = 2 * list.frameWidth();
    list.setFixedHeight(kLinesInSight * list.sizeHintForRow(0) + frame);
    // Room for the widest line, and a third more.
    list.setFixedWidth(list.sizeHintForColumn(0) * 4 / 3 + list.verticalScrollBar()->sizeHint().width() +
                       frame);
}

}  // namespace

CSpanPopup::CSpanPopup(CTRecord& entry, int step, const std::optional<EnteredSpan>& span, QWidget* parent)
    : CPickPopup(parent), m_pad(entry, step) {
    const EnteredSpan start = span.value_or(EnteredSpan{-1, -1});
    m_pad.Open(start.hours, start.minutes);
    CMnemonics mnemonics;
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(kFormSpace);
    grid->setVerticalSpacing(kFormSpace / 2);
    m_hours = AddPart(*grid, Text::PickHours, "hour", mnemonics);
    m_minutes = AddPart(*grid, Text::PickMinutes, "minute", mnemonics);
    Column().addLayout(grid);
    // By rows: who types the hours types the minutes next.
    QWidget::setTabOrder(m_hours.field, m_minutes.field);
    Fill(*m_hours.list, m_pad.HourTexts(), m_pad.ChosenHour());
    Fill(*m_minutes.list, m_pad.MinuteTexts(), m_pad.ChosenMinute());
    ShowFields();
    Connect(m_hours, &SpanPad::ChooseHour, &SpanPad::TypeHours);
    Connect(m_minutes, &SpanPad::ChooseMinute, &SpanPad::TypeMinutes);
    AddButtons({{"clearButton", LoadText(Text::PickClear), SpanPad::kClear},
                {"takeButton", LoadText(Text::DialogOk), SpanPad::kAccept}},
               mnemonics);
    m_hours.field->setFocus();
    m_hours.field->selectAll();
}

CSpanPopup::Part CSpanPopup::AddPart(QGridLayout& grid, Text caption, const char* name,
                                     CMnemonics& mnemonics) {
    const Part part{new QLineEdit, new QListWidget};
    const QString prefix = QString::fromLatin1(name);
    const int column = grid.count() / 3;
    grid.addWidget(MakeLabel(LoadText(caption), *part.field, prefix + QStringLiteral("Field"), mnemonics), 0,
                   column);
    grid.addWidget(part.field, 1, column);
    grid.addWidget(part.list, 2, column);
    NameWidget(*part.list, prefix + QStringLiteral("List"), LoadText(caption));
    part.list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // As narrow as the list below it.
    part.field->setMinimumWidth(1);
    part.field->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    return part;
}

void CSpanPopup::Connect(const Part& part, Choose choose, Type type) {
    const auto take = [this, choose, list = part.list] {
        (m_pad.*choose)(list->currentRow());
        ShowFields();
    };
    connect(part.list, &QListWidget::currentRowChanged, this, take);
    // A click on the line that is chosen already writes its number again.
    connect(part.list, &QListWidget::itemPressed, this, take);
    connect(part.list, &QListWidget::itemDoubleClicked, this, [this] { Run(SpanPad::kAccept); });
    connect(part.field, &QLineEdit::textEdited, this,
            [this, type](const QString& text) { (m_pad.*type)(text); });
}

void CSpanPopup::ShowFields() {
    m_hours.field->setText(m_pad.TypedHours());
    m_minutes.field->setText(m_pad.TypedMinutes());
}
