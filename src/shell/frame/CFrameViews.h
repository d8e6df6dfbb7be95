#pragma once

struct FrameContext;
enum class Bar;

/// The commands that change how the window looks, and its dialogs.
class CFrameViews {
 public:
    explicit CFrameViews(const FrameContext& context) : m_context(context) {}

    void SelectAll();
    void SelectNone();
    void Layout(int layout);
    void GroupList(int groups);
    /// Folds all groups of the list, or unfolds them when all are folded.
    void FoldGroups();
    void RebuildViews();
    void ListFont();
    void ToggleTree();
    void TreeColumns();
    void CustomizeBar(Bar bar);
    void FindCommand();
    void Options();
    /// The settings were changed: everything that shows values by them is read anew.
    void TakeUpSettings();
    /// The desktop's program for them.
    void RegionalSettings();
    void About();
    /// The settings are saved, with the widths that the columns have on screen.
    void PersistLayout();

 private:
    const FrameContext& m_context;
};
