#pragma once

#include <functional>

class CMainFrame;

/// What other processes and signals do with the window, as long as there is one. While the program ends there
/// may still be a box on the screen that tells what can't be kept: it comes forward in the window's place,
/// and is closed in its place.
class COutsideControl {
 public:
    /// The frame must live until BeginEnd.
    explicit COutsideControl(CMainFrame& frame) : m_frame(&frame) {}

    void Refresh();
    [[nodiscard]] bool IsBusy() const;
    void Raise();
    void Leave();
    /// Does something as soon as nobody is at work in a dialog or a menu; nothing any more once the end has
    /// begun.
    void WhenFree(const std::function<void()>& work);

    /// The window goes.
    void BeginEnd() { m_frame = nullptr; }

 private:
    CMainFrame* m_frame;
};
