#pragma once

/// Tells screen readers what the parts of a window are for which Qt has no role: handles between panes and
/// dividing lines are separators, the corner that resizes the window is nothing to read. Once, behind the
/// application object.
void InstallAccessibleRoles();
