#pragma once

#include "changes/CRecordChanges.h"
#include "changes/CTimersOfRecords.h"
#include "exchange/export/CTextExport.h"
#include "exchange/import/RecordLine.h"
#include "exchange/text/Delimiters.h"

#include <QString>
#include <QStringList>
#include <optional>

class CRecordExport;
class CRecordImport;
class CStoredContents;
class CTextFile;
enum class TextFilePurpose;
struct ColumnNames;
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
    [[nodiscard]] bool ReadStored(CStoredContents& stored);
    [[nodiscard]] ImportPlan LookAt(CRecordImport& import, const CTextFile& file);
    void Store(CRecordImport& import, const ImportPlan& plan, const CTextFile& file);
    void TellCancelled();
    [[nodiscard]] QString DoneWords(const ImportPlan& plan) const;
    [[nodiscard]] ColumnNames NamesOfColumns() const;
    [[nodiscard]] std::optional<QString> ChooseTarget(Text title, Text suggestedName, ExportForm& form);
    [[nodiscard]] std::optional<ExportEnd> WriteRecords(const QString& path, const ExportForm& form,
                                                        const QStringList& ids);
    [[nodiscard]] std::optional<Text> PutAll(CRecordExport& file, const QStringList& ids);
    void TellNotes(const ExportEnd& end);
    void Process(const QString& path, const QStringList& ids, const ExportEnd& end);
    void Tell(Text id, const QString& words, Text title);

    const FrameContext& m_context;
    COwnTimers m_timers;
    CRecordChanges m_changes;
    Delimiters m_delimiters;  ///< of the last export, for the next one
};
