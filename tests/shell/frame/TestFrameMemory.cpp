#include "config/CCfgStore.h"
#include "lang/LoadText.h"
#include "shell/frame/FrameHome.h"
#include "shell/look/IconTheme.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"
#include "viewmodel/program/PeriodMemory.h"

#include <QSplitter>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

namespace {

/// What another program reads in the home while the window is open, as it would after the window was killed.
struct Stored {
    TestHome home;

    explicit Stored(const QString& folder) : home(folder) { home.settings->KeepStoreUntouched(); }
    [[nodiscard]] int Preset() const {
        TimeFilter filter;
        RestorePeriod(*home.profile, filter, home.document->GetPeriodContext());
        return filter.preset;
    }
    [[nodiscard]] int Shown(Text section) const {
        return home.profile->GetInt(LoadText(section), LoadText(Text::EntryVisible), -1);
    }
};

int StoredPreset(const QString& folder) {
    return Stored(folder).Preset();
}
int StoredLayout(const QString& folder) {
    return Stored(folder).home.settings->listLayout;
}

}  // namespace

/// What the window keeps of itself while it is open.
class TestFrameMemory final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() {
        QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR)));
        ChooseIconTheme();
    }

    /// Nothing waits for the end of the program.
    void KeptWhenItChanges() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        CPeriodCommands(window.app.Document()).Preset(2);
        QTRY_COMPARE(StoredPreset(folder.path()), 2);
        window.frame->RunCommand(Command::kLayoutColumns);
        QTRY_COMPARE(StoredLayout(folder.path()), 3);
        window.frame->RunCommand(Command::kToggleStatusBar);
        QTRY_COMPARE(Stored(folder.path()).Shown(Text::SectionStatusBar), 0);
        window.frame->RunCommand(Command::kExpenseMode);
        QTRY_VERIFY(!Stored(folder.path()).home.settings->lastModeWasTime);
        const auto geometry = [&folder] {
            return Stored(folder.path())
                .home.profile->GetBinary(LoadText(Text::SectionWindow), LoadText(Text::EntryGeometry));
        };
        QTRY_VERIFY(geometry());
        const auto before = geometry();
        window.frame->resize(777, 555);
        QTRY_VERIFY(geometry() != before);
    }

    /// The timers of all days are shown for the moment: the next start comes back to the period before.
    void ThePeriodBeforeTheTimers() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        QVERIFY(window.timers->StartRecordTimer(window.Add(19)));
        CPeriodCommands(window.app.Document()).Preset(2);
        QTRY_COMPARE(StoredPreset(folder.path()), 2);
        window.frame->RunCommand(Command::kFilterTimers);
        QCOMPARE(window.app.Document().Filter().preset, 6);
        window.frame->PersistEverything();
        QCOMPARE(StoredPreset(folder.path()), 2);
    }

    /// So is what is looked for beyond the period, and what a report hides.
    void WhatIsThereForTheMoment() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.Add(19);
        window.frame->RunCommand(Command::kFind);
        window.frame->RunCommand(Command::kFindEverywhere);
        QCOMPARE(window.app.Document().Filter().preset, 6);
        window.frame->RunCommand(Command::kToggleStatusBar);
        QTRY_COMPARE(Stored(folder.path()).Shown(Text::SectionStatusBar), 0);
        QCOMPARE(StoredPreset(folder.path()), 4);
    }
};

TEST_CLASS(TestFrameMemory);
#include "TestFrameMemory.moc"
