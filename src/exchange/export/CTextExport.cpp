#include "exchange/export/CTextExport.h"

#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"

CTextExport::CTextExport(const QString& path, const ExportForm& form)
    : m_encoder(form.encoding),
      m_file(path, FileAudience::UserDefault),
      m_couldBegin(m_file.Error().isEmpty()) {}

bool CTextExport::Put(const QString& lines) {
    return m_file.Write(m_encoder.Encode(lines));
}

ExportEnd CTextExport::Finish() {
    const FileOutcome outcome = m_file.Finish();
    ExportEnd end;
    end.isWritten = outcome.written;
    end.replaced = m_encoder.ReplacedCount();
    if (end.isWritten) return end;
    end.message = m_couldBegin ? Text::ExportWriteFailed : Text::ExportCantCreate;
    end.words = outcome.error;
    return end;
}

void TellNotExported(const ExportEnd& end, CPrompt& prompt) {
    prompt.Tell({.textId = static_cast<int>(end.message),
                 .title = LoadText(Text::ReadWriteTitle),
                 .text = end.words,
                 .icon = BoxIcon::Warning,
                 .actionLabel = {}});
}

std::vector<ExportNote> NotesOn(const ExportEnd& end) {
    std::vector<ExportNote> notes;
    if (!end.isWritten) return notes;
    if (end.replaced > 0)
        notes.push_back({Text::ExportCharsReplaced,
                         FormatText<Text::ExportCharsReplaced>(static_cast<int>(end.replaced))});
    if (end.lost > 0) notes.push_back({Text::ExportNotReadBack, end.lostWords});
    return notes;
}

std::optional<Text> WhyNotDeleted(const ExportEnd& end) {
    if (end.replaced > 0) return Text::ExportNotDeleted;
    return end.lost > 0 ? std::optional(Text::ExportNotDeletedUnread) : std::nullopt;
}
