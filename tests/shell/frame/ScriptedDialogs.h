#pragma once

#include "entry/CEnteredItems.h"
#include "exchange/export/PostProcessing.h"
#include "records/CTRecord.h"
#include "shell/frame/CFrameDialogs.h"

#include <QStringList>
#include <functional>

/// The dialogs of the window as a test answers them; notes which were shown.
class ScriptedDialogs final : public CFrameDialogs {
 public:
    std::function<bool(CVORec& record)> edit = [](CVORec&) { return true; };
    std::function<bool(CGuide& guide)> guide = [](CGuide&) { return true; };
    bool defaultsAreChosen = true;
    int edited = 0;
    QStringList called;
    CEnteredItems entered;
    bool isFileWanted = true;
    std::function<bool()> labels = [] { return false; };
    std::function<bool(CDependencyEditor& editor)> editDependencies = [](CDependencyEditor&) { return true; };
    ImportPreview previewed;
    AfterExport afterExport = AfterExport::Nothing;

    bool EditRecord(QWidget&, CVORec& record, CVORec*) override {
        ++edited;
        return edit(record);
    }
    CEnteredItems& Entered() override { return entered; }
    bool EditSettings(QWidget&) override { return true; }
    bool EditLabels(QWidget&) override {
        called << QStringLiteral("names of fields");
        return labels();
    }
    bool ChooseDefault(QWidget&, CVORec& record) override {
        called << QStringLiteral("defaults");
        if (record.Kind() == RecordKind::Time)
            static_cast<CTRecord&>(record).item2 = QStringLiteral("A default");
        return defaultsAreChosen;
    }
    std::optional<TextFileDraft> ChooseTextFile(QWidget&, TextFilePurpose, const TextFileDraft& draft,
                                                const CDelimiterDialog::Preview& preview) override {
        called << QStringLiteral("delimiters");
        if (preview) previewed = preview(draft);
        return isFileWanted ? std::optional(draft) : std::nullopt;
    }
    AfterExport ChooseAfterExport(QWidget&, int, const QString&) override {
        called << QStringLiteral("after the export");
        return afterExport;
    }
    bool RunGuide(QWidget&, CGuide& offered) override {
        called << QStringLiteral("guide");
        return guide(offered);
    }
    bool EditDependencies(QWidget&, CDependencyEditor& editor, CRecordChanges&) override {
        called << QStringLiteral("dependencies");
        return editDependencies(editor);
    }
    void EditDefaults(QWidget&, CVORec&) override { called << QStringLiteral("dialog of defaults"); }
    void EditLists(QWidget&, CRecordChanges&) override { called << QStringLiteral("lists"); }
};
