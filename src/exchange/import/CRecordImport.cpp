#include "exchange/import/CRecordImport.h"

#include "app/CVelmarchDoc.h"
#include "calendar/NumberText.h"
#include "exchange/text/TextColumns.h"
#include "fields/FieldValue.h"
#include "fields/ListId.h"
#include "lang/FormatText.h"
#include "platform/host/CRegionalInfo.h"
#include "records/FieldDef.h"

namespace {

using End = ImportPlan::End;

End EndOf(CRecordLines::Next next) {
    switch (next) {
        case CRecordLines::Next::Failed:
            return End::Failed;
        case CRecordLines::Next::Undecodable:
            return End::Undecodable;
        default:
            return End::Complete;
    }
}

}  // namespace

// --- The look

ImportPlan CRecordImport::Look(const LookContext& context) {
    ImportPlan plan;
    m_file.Begin(m_request.encoding);
    CRecordLines lines(m_file, m_request.kind, m_request.form);
    CListTexts texts(m_request.distances);
    while (context.mostLines == 0 || lines.Number() < context.mostLines) {
        const CRecordLines::Next next = lines.Read();
        plan.lastLine = lines.Number();
        const bool isLine = next == CRecordLines::Next::Record || next == CRecordLines::Next::Refused;
        plan.end = isLine && context.advance && !context.advance() ? End::Cancelled : EndOf(next);
        if (!isLine || plan.end == End::Cancelled) break;
        if (m_request.addListItems && lines.Code() == LineCode::Parsed && !IsLeftOut(lines.Record()))
            texts.Add(lines.Record());
        if (next == CRecordLines::Next::Record) {
            Account(lines, plan);
            continue;
        }
        plan.refused.push_back(lines.AsRefused());
        if (context.goesOn(plan.refused.back())) continue;
        plan.end = End::Aborted;
        break;
    }
    plan.listTexts = texts.Take();
    return plan;
}

bool CRecordImport::IsLeftOut(const CVORec& record) const {
    return m_request.skipDuplicates && m_stored.Holds(record);
}

void CRecordImport::Account(const CRecordLines& lines, ImportPlan& plan) const {
    if (m_stored.Holds(lines.Record())) {
        ++plan.duplicates;
        if (m_request.skipDuplicates) return;
    }
    ++plan.records;
    AccountMisread(lines, plan);
    if (plan.samples.size() < kSamples) plan.samples.push_back(lines.Record().Clone());
}

void CRecordImport::AccountMisread(const CRecordLines& lines, ImportPlan& plan) {
    for (const Misreading& value : lines.Misread()) {
        ++plan.misreadCount;
        if (plan.misread.size() < kMisread) plan.misread.push_back({lines.Number(), value});
    }
}

CRecordImport::CListTexts::CListTexts(const QStringList& distances) {
    for (const QString& text : distances) static_cast<void>(IsKnownDistance(text));
}

/// It is known from now on.
bool CRecordImport::CListTexts::IsKnownDistance(const QString& text) {
    float number = 0.0F;
    if (!ParseFloat(TheRegion(), text, number)) return false;
    const bool isKnown = m_distances.contains(number);
    m_distances.insert(number);
    return isKnown;
}

/// In the order of the columns. A text that no list can hold is left out, like any that a list refuses.
void CRecordImport::CListTexts::Add(const CVORec& record) {
    for (const TextColumn& column : TextColumnsOf(record.Kind())) {
        const int list = column.field->list;
        if (list == ListId::kNone) continue;
        const QString text = TextOf(record, *column.field);
        static_cast<void>(m_met[list].Get(text, [&] {
            AddText(list, text);
            return true;
        }));
    }
}

void CRecordImport::CListTexts::AddText(int list, const QString& text) {
    if (text.isEmpty() || text.size() > kTextLength || m_known.contains({list, text})) return;
    m_known.insert({list, text});
    if (list != ListId::kDistance || !IsKnownDistance(text)) m_texts.push_back({list, text});
}

// --- Storing

/// The file once more, of which the records of the plan are given.
class CRecordImport::CSource final : public CRecordSource {
 public:
    CSource(CRecordImport& import, const ImportPlan& plan,
            const std::function<void(const QString& id)>& added)
        : m_import(import),
          m_plan(plan),
          m_added(added),
          m_lines(import.m_file, import.m_request.kind, import.m_request.form) {}

    [[nodiscard]] Next Read() override {
        while (m_given < m_plan.records) {
            const CRecordLines::Next next = m_lines.Read();
            if (next == CRecordLines::Next::Refused) continue;
            if (next != CRecordLines::Next::Record) return Changed();
            if (m_import.IsLeftOut(m_lines.Record())) continue;
            ++m_given;
            return Next::Record;
        }
        return m_import.m_file.HasChanged() ? Changed() : Next::End;
    }
    [[nodiscard]] std::unique_ptr<CVORec> TakeRecord() override { return m_lines.TakeRecord(); }
    void NoteAdded(const QString& id) override {
        if (m_added) m_added(id);
    }
    [[nodiscard]] std::vector<ListText> ListTexts() const override { return m_plan.listTexts; }
    [[nodiscard]] int Count() const override { return m_plan.records; }
    [[nodiscard]] QString Progress() const override {
        return FormatText<Text::ProgressImport>(m_plan.records);
    }

 private:
    [[nodiscard]] Next Changed() {
        m_import.m_fileChanged = true;
        return Next::Failed;
    }

    CRecordImport& m_import;
    const ImportPlan& m_plan;
    const std::function<void(const QString& id)>& m_added;
    CRecordLines m_lines;
    int m_given = 0;
};

Outcome CRecordImport::Run(const ImportPlan& plan, CRecordChanges& changes, Hold hold,
                           const std::function<void(const QString& id)>& added) {
    m_fileChanged = false;
    m_file.Rewind();
    CSource source(*this, plan, added);
    return changes.AddAll(source, hold);
}
