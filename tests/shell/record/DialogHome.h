#pragma once

#include "app/CVelmarchApp.h"
#include "entry/CCatalogueItems.h"
#include "entry/CEnteredItems.h"
#include "shell/record/DialogUser.h"
#include "shell/record/RecordDialogParts.h"
#include "support/TestHome.h"
#include "timers/CRecordTimers.h"

#include <QtTest>
#include <utility>

/// A scratch home with all that the dialogs of records need.
class DialogHome : public DialogUser {
 public:
    explicit DialogHome(const CRegionalInfo& region = {})
        : home(region), timers(set, *home.document, *home.settings) {
        home.document->SetTimers(&timers);
        std::swap(theClockEntry, m_clockEntry);
        std::swap(theSpanEntry, m_spanEntry);
    }
    ~DialogHome() {
        std::swap(theClockEntry, m_clockEntry);
        std::swap(theSpanEntry, m_spanEntry);
    }
    DialogHome(const DialogHome&) = delete;
    DialogHome& operator=(const DialogHome&) = delete;

    [[nodiscard]] RecordDialogContext Context() {
        return {*home.document, timers, *home.settings, home.prompt, home.clock, *home.catalogue, entered};
    }
    /// Shows a dialog in front and with the focus.
    void Show(QDialog& opened) {
        Look(opened);
        opened.show();
        QVERIFY(QTest::qWaitForWindowActive(&opened));
    }
    /// The items of a list when what was entered in the dialog is stored.
    [[nodiscard]] QStringList ItemsOf(int list) {
        CCatalogueItems lists(*home.catalogue);
        entered.StoreInto(lists);
        return home.catalogue->Texts(list);
    }
    void AddItems(int list, const QStringList& texts) {
        for (const QString& text : texts) QVERIFY(home.catalogue->AddItem(list, text, false));
    }
    /// Hangs items of lists under one another; an item that isn't in its list yet is put there.
    void Hang(DependencySet set, const QList<std::pair<int, QString>>& path) {
        DependencyTree& tree = home.catalogue->Tree(set);
        DependencyTree::Node* node = &tree.Root();
        for (const auto& [list, text] : path) {
            if (!home.catalogue->HasItem(list, text)) AddItems(list, {text});
            auto* child = node->FindChild(text);
            node = child ? child : &tree.Append(*node, *home.catalogue->FindItem(list, text));
        }
    }
    /// Gives a field a name of the user's own.
    void NameField(int field, const QString& name) {
        AddItems(field, {name});
        home.catalogue->FillLabels();
    }

    TestHome home;
    ActiveTimerSet set{home.clock};
    CRecordTimers timers;
    CEnteredItems entered;
    CTRecord clockEntry, spanEntry;  ///< the scratch records of the pads

 private:
    // What is installed: these two meanwhile, those from before at the end.
    CTRecord* m_clockEntry = &clockEntry;
    CTRecord* m_spanEntry = &spanEntry;
};
