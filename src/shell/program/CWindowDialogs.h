#pragma once

#include "shell/frame/CFrameDialogs.h"
#include "shell/record/RecordDialogParts.h"

/// The dialogs of the program.
class CWindowDialogs final : public CFrameDialogs {
 public:
    explicit CWindowDialogs(const RecordDialogContext& context) : m_context(context) {}

    [[nodiscard]] bool EditRecord(QWidget& parent, CVORec& record, CVORec* untouched) override;
    [[nodiscard]] CEnteredItems& Entered() override;
    [[nodiscard]] bool EditSettings(QWidget& parent) override;
    [[nodiscard]] bool EditLabels(QWidget& parent) override;
    [[nodiscard]] bool ChooseDefault(QWidget& parent, CVORec& record) override;
    void EditDefaults(QWidget& parent, CVORec& working) override;
    [[nodiscard]] bool EditDependencies(QWidget& parent, CDependencyEditor& editor,
                                        CRecordChanges& changes) override;
    [[nodiscard]] std::optional<TextFileDraft> ChooseTextFile(
        QWidget& parent, TextFilePurpose purpose, const TextFileDraft& draft,
        const CDelimiterDialog::Preview& preview) override;
    [[nodiscard]] AfterExport ChooseAfterExport(QWidget& parent, int records, const QString& path) override;
    void EditLists(QWidget& parent, CRecordChanges& changes) override;

    [[nodiscard]] bool RunGuide(QWidget& parent, CGuide& guide) override;

 private:
    const RecordDialogContext& m_context;
};
