#pragma once

#include "viewmodel/report/CTextMeasure.h"

#include <algorithm>
#include <cmath>

/// Each character is ten units wide, a pair of surrogates as well, and each line is twenty units high.
class CEvenMeasure final : public CTextMeasure {
 public:
    [[nodiscard]] double WidthOf(QStringView text, std::uint32_t) override {
        return 10.0 * static_cast<double>(text.size() - std::ranges::count_if(text, [](QChar sign) {
                                              return sign.isLowSurrogate();
                                          }));
    }
    [[nodiscard]] LineSize SizeOf(std::uint32_t) override { return {15, 20}; }
    [[nodiscard]] qsizetype Fitting(QStringView text, std::uint32_t style, double width) override {
        qsizetype fitting = 0;
        while (fitting < text.size()) {
            const qsizetype next = fitting + (text[fitting].isHighSurrogate() ? 2 : 1);
            if (WidthOf(text.left(next), style) > width) break;
            fitting = next;
        }
        return fitting;
    }
};
