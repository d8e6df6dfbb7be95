#pragma once

#include <QString>

class QWidget;

/// What commands ask of the window itself.
class CFrameControl {
 public:
    virtual ~CFrameControl() = default;
    [[nodiscard]] virtual QWidget& Window() = 0;
    virtual void ToggleBar1() = 0;
    virtual void ToggleBar2() = 0;
    virtual void ToggleStatusBar() = 0;
    /// Reads all records again; commands wait meanwhile.
    virtual void Refresh() = 0;
    /// The list alone anew, by the settings; whoever looks at it keeps the place.
    virtual void RebuildList() = 0;
    /// A calendar under the period button; the day picked is applied.
    virtual void PickDay() = 0;
    virtual void Leave() = 0;
};
