#pragma once

#include "app/RecordMode.h"
#include "viewmodel/commands/CommandState.h"

class QString;
class QWidget;

/// What commands ask of the window itself.
class CFrameControl {
 public:
    virtual ~CFrameControl() = default;
    [[nodiscard]] virtual QWidget& Window() = 0;
    virtual void ToggleWorkBar() = 0;
    virtual void ToggleBar1() = 0;
    virtual void ToggleBar2() = 0;
    virtual void ToggleStatusBar() = 0;
    /// Shows the records of a mode; those of the mode in use are read again.
    virtual void SwitchMode(RecordMode mode) = 0;
    /// Reads all records again; commands wait meanwhile.
    virtual void Refresh() = 0;
    /// Reads pick lists, dependencies and names of fields again.
    virtual void ReadLists() = 0;
    /// The list alone anew, by the settings; its place and selection stay.
    virtual void RebuildList() = 0;
    /// Other rows of the list are shown: it or the note of an empty list comes in front, and commands are
    /// offered anew.
    virtual void FollowList() = 0;
    /// A calendar under the period button; the day picked is applied.
    virtual void PickDay() = 0;
    /// What decides whether commands are offered, at this moment.
    [[nodiscard]] virtual CommandState State() const = 0;
    /// Carries a command out as a menu would.
    virtual void RunCommand(int command) = 0;
    /// The report that was made takes the place of the list, and the window hides what belongs to that.
    virtual void ShowReport() = 0;
    /// The list comes back, and with it all that was hidden.
    virtual void CloseReport() = 0;
    /// The window comes in front of others, wherever it was.
    virtual void ComeForward() = 0;
    /// Says something for a while that needs no answer.
    virtual void Say(const QString& what) = 0;
    virtual void Leave() = 0;
};
