#pragma once

#include "shell/exchange/CDelimiterDialog.h"

#include <optional>

class CDependencyEditor;
class CEnteredItems;
class CGuide;
class CRecordChanges;
class CVORec;
enum class AfterExport : int;
class QWidget;

/// The dialogs in which the user edits records and settings: the program's, or those of a test.
class CFrameDialogs {
 public:
    virtual ~CFrameDialogs() = default;
    /// A record of either kind; true when accepted. untouched: the same record once more, into which goes
    /// what its timer counts meanwhile, and nothing that is entered.
    [[nodiscard]] virtual bool EditRecord(QWidget& parent, CVORec& record, CVORec* untouched = nullptr) = 0;
    /// What was entered for the pick lists with the record accepted last.
    [[nodiscard]] virtual CEnteredItems& Entered() = 0;
    /// True when accepted.
    [[nodiscard]] virtual bool EditSettings(QWidget& parent) = 0;
    /// The names of fields; true when what shows them must be told.
    [[nodiscard]] virtual bool EditLabels(QWidget& parent) = 0;
    /// Fills a record from the stored default that the user chooses; false when none was chosen.
    [[nodiscard]] virtual bool ChooseDefault(QWidget& parent, CVORec& record) = 0;
    /// Delimiters and encoding of a text file; nothing when none was chosen. preview: of an import.
    [[nodiscard]] virtual std::optional<TextFileDraft> ChooseTextFile(
        QWidget& parent, TextFilePurpose purpose, const TextFileDraft& draft,
        const CDelimiterDialog::Preview& preview) = 0;
    /// What becomes of so many records that were written to a file.
    [[nodiscard]] virtual AfterExport ChooseAfterExport(QWidget& parent, int records,
                                                        const QString& path) = 0;
    /// The first steps; true when something may have changed.
    [[nodiscard]] virtual bool RunGuide(QWidget& parent, CGuide& guide) = 0;
    /// The stored defaults themselves. working: the record that the dialog edits them in.
    virtual void EditDefaults(QWidget& parent, CVORec& working) = 0;
    /// The items of the pick lists, which are loaded. changes: what carries a new text into records.
    virtual void EditLists(QWidget& parent, CRecordChanges& changes) = 0;
    /// Which list items hang under which; true when the edited tree is accepted. Items that got another text
    /// take their records along through the changes.
    [[nodiscard]] virtual bool EditDependencies(QWidget& parent, CDependencyEditor& editor,
                                                CRecordChanges& changes) = 0;
};
