#include "shell/record/RecordDialogParts.h"

#include "app/CPulldownCatalogue.h"
#include "calendar/CalendarMath.h"
#include "config/CCfgStore.h"
#include "lang/LoadText.h"
#include "platform/host/CPrompt.h"
#include "records/FieldValues.h"
#include "shell/controls/CDateEdit.h"
#include "shell/look/FormRows.h"

#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <algorithm>

namespace RecordDialogParts {

CRegionalInfo FieldRegion(const CCfgStore& settings) {
    CRegionalInfo region = settings.Region();
    region.is24Hour = settings.clock24;
    return region;
}

std::optional<DateTimeVal> DayOf(const RecordDate& date) {
    DateTimeVal day;
    if (!date.IsSet() || !day.SetDate(date.month, date.day, date.year)) return {};
    return day;
}

QString LabelOf(const CPulldownCatalogue& catalogue, int field) {
    constexpr int kMostCharacters = 32;
    const QString label = catalogue.Labels().GetLabel(field);
    return label.size() <= kMostCharacters ? label : label.left(kMostCharacters - 1) + QChar(0x2026);
}

DateRow AddDateRow(QGridLayout& form, const RecordDialogContext& context, CMnemonics& mnemonics) {
    constexpr int kWeekdayColumn = 3;
    DateRow row;
    row.edit = new CDateEdit(FieldRegion(context.settings), context.clock, context.settings.firstDayOfWeek);
    AddLabel(form, 0, LoadText(Text::LabelDate), *row.edit, QStringLiteral("dateField"), mnemonics);
    form.addWidget(row.edit, 0, 1);
    row.weekday = new QLabel;
    NameWidget(*row.weekday, QStringLiteral("weekday"), LoadText(Text::LabelDate));
    form.addWidget(row.weekday, 0, kWeekdayColumn, 1, 2);
    return row;
}

void ShowWeekday(const DateRow& row, const RecordDate& date) {
    const auto day = DayOf(date);
    ShowValue(*row.weekday, LoadText(Text::LabelDate),
              day ? WeekdayName(DayOfWeek(day->month, day->day, day->year)) : QString());
}

void TellRefused(CPrompt& prompt, int textId, const QString& why) {
    MessageBox box;
    box.textId = textId;
    box.title = LoadText(Text::CheckEntryTitle);
    box.text = why;
    box.icon = BoxIcon::Warning;
    prompt.Tell(box);
}

void AskAgain(QLineEdit& field) {
    field.setFocus();
    field.selectAll();
}

void MarkFinding(QLineEdit& field, const DraftFindings& findings, DraftField place) {
    const auto found = std::ranges::find(findings, place, &DraftFinding::field);
    const bool isFound = found != findings.end();
    MarkUnreadable(field, isFound, isFound ? found->mark : QString());
}

std::optional<DraftField> AskAbout(const DraftFindings& findings, CPrompt& prompt) {
    for (const DraftFinding& finding : findings) {
        if (!finding.isQuestion) {
            TellRefused(prompt, static_cast<int>(finding.text), finding.words);
            return finding.field;
        }
        const MessageBox box{.textId = static_cast<int>(finding.text),
                             .title = LoadText(Text::CheckEntryTitle),
                             .text = finding.words,
                             .icon = BoxIcon::Warning,
                             .buttons = Buttons::YesNo,
                             .defaultAnswer = Answer::No,
                             .actionLabel = LoadText(Text::DialogSave)};
        if (prompt.Ask(box) != Answer::Yes) return finding.field;
    }
    return {};
}

void AcceptByCtrlReturn(QDialog& dialog) {
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter})
        QObject::connect(new QShortcut(QKeySequence(Qt::CTRL | key), &dialog), &QShortcut::activated, &dialog,
                         &QDialog::accept);
}

}  // namespace RecordDialogParts
