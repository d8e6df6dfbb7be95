#pragma once

class CDependencyEditor;
class CRecordChanges;
struct FrameContext;
enum class DependencySet : int;

/// The command that edits which list items hang under which.
class CFrameDependencies {
 public:
    CFrameDependencies(const FrameContext& context, CRecordChanges& changes)
        : m_context(context), m_changes(changes) {}

    /// Those of the mode's records.
    void Edit();

 private:
    [[nodiscard]] bool AreReadable(DependencySet set);
    [[nodiscard]] bool Store(CDependencyEditor& editor, DependencySet set);

    const FrameContext& m_context;
    CRecordChanges& m_changes;
};
