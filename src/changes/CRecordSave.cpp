#include "changes/CRecordSave.h"

#include "app/CVelmarchDoc.h"
#include "app/FieldLabels.h"
#include "changes/CRecordChanges.h"
#include "entry/RecordMerge.h"
#include "fields/FieldValue.h"
#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"
#include "records/RecordFactory.h"
#include "records/StoreTransaction.h"

#include <utility>

namespace {

using Side = MergedRecord::Side;

/// So much of a long text is enough to know it by.
constexpr qsizetype kMostCharacters = 60;

QString NameOf(const FieldRow& field, const FieldLabels& labels) {
    QString own = labels.GetLabel(NumberOf(field.id));
    if (!own.isEmpty()) return own;
    if (field.title != Text{}) return LoadText(field.title);
    return LoadText(field.consoleCaption != Text{} ? field.consoleCaption : field.caption);
}

QString WordsOf(const CVORec& record, const FieldRow& field) {
    switch (field.form) {
        case FieldForm::Flag:
            return LoadText(FlagOf(record, field) ? Text::FieldYes : Text::FieldNo);
        case FieldForm::Date:
            return ValueOf<RecordDate>(record, field).shortText;
        case FieldForm::Span:
            return SpanOf(record, field).clockText;
        case FieldForm::TimeOfDay:
            return TimeTextOf(record, field);
        default:
            return TextOf(record, field).simplified();
    }
}

QString ShortWordsOf(const CVORec& record, const FieldRow& field) {
    const QString words = WordsOf(record, field);
    if (words.isEmpty()) return LoadText(Text::NothingEntered);
    return words.size() <= kMostCharacters ? words : words.left(kMostCharacters - 1) + QChar(0x2026);
}

/// The net time only follows.
QString RowsOf(const std::vector<const FieldRow*>& fields, const CVORec& entered, const CVORec& stored,
               const FieldLabels& labels) {
    QStringList rows;
    for (const FieldRow* field : fields)
        if (field->id != FieldId::Effective)
            rows.append(FormatText<Text::ChangedOnBothSides>(
                NameOf(*field, labels), ShortWordsOf(entered, *field), ShortWordsOf(stored, *field)));
    return rows.join(u'\n');
}

void Assign(CVORec& to, const CVORec& from) {
    if (to.Kind() == RecordKind::Time)
        static_cast<CTRecord&>(to).Copy(static_cast<const CTRecord&>(from));
    else
        static_cast<CERecord&>(to).Copy(static_cast<const CERecord&>(from));
}

/// From here on the record counts as opened with what is stored now.
void StartFrom(DialogRecord& edited, std::unique_ptr<CVORec> stored, const CVORec& shown) {
    Assign(edited.entered, shown);
    edited.untouched = stored->Clone();
    edited.began = std::move(stored);
}

}  // namespace

CRecordSave::End CRecordSave::Save(DialogRecord& edited) {
    Decision decision = Decision::Again;
    // Each round starts from what the store held in the one before; it ends as soon as nobody is quicker.
    while (decision == Decision::Again) decision = SaveOnce(edited);
    if (decision == Decision::Stored) return End::Stored;
    return decision == Decision::Back ? End::Back : End::Failed;
}

/// One transaction from the look at the store to the commit: nobody changes the record in between. It is over
/// before the user is asked, so that nobody waits for the answer.
CRecordSave::Decision CRecordSave::SaveOnce(DialogRecord& edited) {
    std::unique_ptr<CVORec> stored = NewRecord(edited.began->Kind());
    {
        CRecordStore& store = m_context.document.Store();
        const StoreTransaction transaction(store);
        if (!transaction.IsOpen()) return Decision::Failed;
        const QString id = edited.began->GetId();
        const bool isThere = store.ReadRecord(*stored, id);
        if (!isThere && store.m_lastError != 0) return Decision::Failed;
        if (!isThere) stored.reset();
        if (stored && HaveSameContent(*edited.began, *stored))
            return m_context.changes.Edit(edited.entered, id) ? Decision::Stored : Decision::Failed;
    }
    return stored ? Meet(edited, std::move(stored)) : OfferAsNew(edited.entered);
}

/// The next round finds the record as it was found here, or asks anew.
CRecordSave::Decision CRecordSave::Meet(DialogRecord& edited, std::unique_ptr<CVORec> stored) {
    const EditedRecord sides{*edited.began, *edited.untouched, edited.entered};
    MergedRecord merged = MergeRecords(sides, *stored, Side::Entered);
    Decision decision = Decision::Again;
    if (!merged.clashes.empty()) {
        switch (AskAbout(merged, edited.entered, *stored)) {
            case Answer::Yes:
                break;
            case Answer::No:
                merged = MergeRecords(sides, *stored, Side::Stored);
                break;
            default:
                decision = Decision::Back;
        }
    }
    // What others have made of it is shown at once, whatever the user does with it now.
    if (decision == Decision::Back)
        static_cast<void>(m_context.document.RefreshRecords(stored->Kind(), {stored->GetId()}));
    StartFrom(edited, std::move(stored), *merged.record);
    return decision;
}

Answer CRecordSave::AskAbout(const MergedRecord& merged, const CVORec& entered, const CVORec& stored) {
    return m_context.prompt.Ask({.textId = static_cast<int>(Text::AskChangedOnBothSides),
                                 .title = LoadText(Text::ChangedElsewhereTitle),
                                 .text = FormatText<Text::AskChangedOnBothSides>(
                                     RowsOf(merged.clashes, entered, stored, m_context.labels)),
                                 .icon = BoxIcon::Warning,
                                 .buttons = Buttons::YesNoCancel,
                                 .defaultAnswer = Answer::Cancel,
                                 .actionLabel = LoadText(Text::SaveEntered),
                                 .otherLabel = LoadText(Text::KeepStored)});
}

/// Back in the dialog nothing is lost, and nothing is in the store that somebody wanted gone.
CRecordSave::Decision CRecordSave::OfferAsNew(const CVORec& entered) {
    static_cast<void>(m_context.document.RefreshRecords(entered.Kind(), {entered.GetId()}));
    const Answer answer = m_context.prompt.Ask({.textId = static_cast<int>(Text::AskSaveDeletedAsNew),
                                                .title = LoadText(Text::ChangedElsewhereTitle),
                                                .text = LoadText(Text::AskSaveDeletedAsNew),
                                                .icon = BoxIcon::Warning,
                                                .buttons = Buttons::YesNo,
                                                .defaultAnswer = Answer::No,
                                                .actionLabel = LoadText(Text::SaveAsNew)});
    if (answer != Answer::Yes) return Decision::Back;
    return m_context.changes.Add(entered, Identity::New) ? Decision::Stored : Decision::Failed;
}
