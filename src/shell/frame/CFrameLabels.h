#pragma once

struct FrameContext;

/// The command that names fields.
class CFrameLabels {
 public:
    explicit CFrameLabels(const FrameContext& context) : m_context(context) {}

    /// Lets the user name the fields; everything that shows their names follows at once.
    void EditNames();

 private:
    const FrameContext& m_context;
};
