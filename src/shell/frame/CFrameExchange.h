#pragma once

#include "changes/CRecordChanges.h"
#include "changes/CTimersOfRecords.h"
#include "exchange/export/CTextExport.h"
#include "exchange/import/RecordLine.h"
#include "exchange/text/Delimiters.h"

#include <QString>
#include <QStringList>
#include <optional>

class CRecordImport;
class CTextFile;
enum class TextFilePurpose;
struct FrameContext;
struct ImportPlan;
struct TextFileDraft;

/// The commands that import and export text files.
class CFrameExchange {
 public:
    explicit CFrameExchange(const FrameContext& context);

    /// Records of the mode.
    void ImportRecords(RecordForm form);
    void ImportItems();
    /// The selected records.
    void ExportRecords();
    void ExportItems();

 private:
    [[nodiscard]] bool OpenFile(CTextFile& file, Text title, Text failure);
    void Store(CRecordImport& import, const ImportPlan& plan, const CTextFile& file);
    [[nodiscard]] std::optional<QString> ChooseTarget(Text title, Text suggestedName, ExportForm& form);
    [[nodiscard]] bool WriteRecords(const QString& path, const ExportForm& form, const QStringList& ids,
                                    bool& mayDelete);
    void Process(const QString& path, const QStringList& ids, bool mayDelete);
    void Tell(Text id, const QString& words, Text title);

    const FrameContext& m_context;
    COwnTimers m_timers;
    CRecordChanges m_changes;
    Delimiters m_delimiters;  ///< of the last export, for the next one
};
