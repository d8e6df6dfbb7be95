#pragma once

struct FrameContext;

/// The commands that show the user guide and the sheet of keys. Both stay open beside the work; called again,
/// the same one comes forward.
class CFrameHelp {
 public:
    explicit CFrameHelp(const FrameContext& context) : m_context(context) {}

    void UserGuide();
    void AllKeys();

 private:
    const FrameContext& m_context;
};
