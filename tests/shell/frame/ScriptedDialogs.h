#pragma once

#include "entry/CEnteredItems.h"
#include "records/CTRecord.h"
#include "shell/frame/CFrameDialogs.h"

#include <QStringList>
#include <functional>

/// The dialogs of the window as a test answers them; notes which were shown.
class ScriptedDialogs final : public CFrameDialogs {
 public:
    std::function<bool(CVORec& record)> edit = [](CVORec&) { return true; };
    bool defaultsAreChosen = true;
    int edited = 0;
    QStringList called;
    CEnteredItems entered;

    bool EditRecord(QWidget&, CVORec& record, CVORec*) override {
        ++edited;
        return edit(record);
    }
    CEnteredItems& Entered() override { return entered; }
    bool EditSettings(QWidget&) override { return true; }
    bool ChooseDefault(QWidget&, CVORec& record) override {
        called << QStringLiteral("defaults");
        if (record.Kind() == RecordKind::Time)
            static_cast<CTRecord&>(record).item2 = QStringLiteral("A default");
        return defaultsAreChosen;
    }
    void EditDefaults(QWidget&, CVORec&) override { called << QStringLiteral("dialog of defaults"); }
};
