#pragma once

/// Tells screen readers what the parts of a window are for which Qt has no role or no fitting one: handles
/// between panes and dividing lines are separators, the corner that resizes the window is nothing to read,
/// the rows of the options are check boxes and so on. Once, behind the application object.
void InstallAccessibleRoles();
