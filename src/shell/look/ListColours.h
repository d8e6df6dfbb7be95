#pragma once

#include <QColor>
#include <array>
#include <cstdint>

class QPalette;
struct Settings;

/// The colours of the record list.
struct ListColours {
    QColor window;
    QColor alternate;
    QColor grid;
    QColor head;  ///< of a group
    QColor headText;
    QColor found;                 ///< behind a word that was looked for
    std::array<QColor, 4> lines;  ///< text of line 1 to 4
    QColor highlight;
    QColor highlightText;
    QColor highlightNoFocus;
    QColor highlightTextNoFocus;
};

/// From the user's settings and the desktop's palette. On a dark palette each setting that still has its
/// default, which is made for white paper, gives way to a dark match. A default is drawn as much stronger as
/// it takes to be read: against each ground of the list texts have a contrast of 4.5 or more. A colour that
/// the user chose stays.
[[nodiscard]] ListColours MakeListColours(const Settings& settings, const QPalette& palette);
/// A colour as the settings hold it, 0x00BBGGRR.
[[nodiscard]] QColor ColourOfSetting(std::uint32_t value);
[[nodiscard]] bool IsDark(const QPalette& palette);
