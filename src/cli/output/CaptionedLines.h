#pragma once

#include <QString>
#include <vector>

class COutput;

/// One value as people read it below one another.
struct CaptionedLine {
    QString caption;
    QString text;
};

/// The texts in one column, behind their captions. Empty ones are left out.
void PutLines(COutput& out, const std::vector<CaptionedLine>& lines);
