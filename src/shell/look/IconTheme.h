#pragma once

/// Makes sure that no button is blank: where the desktop's icon theme lacks an icon, Breeze's stands in, dark
/// or light as the palette is. Before the first icon is asked for, and after the palette changed.
void ChooseIconTheme();
