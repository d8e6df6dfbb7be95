#include "TableLines.h"

#include <cmath>
#include <cstdio>

namespace TableLines {

namespace {
const char* theVerdict = "MISSED";
}

void JudgeAs(const char* verdict) {
    theVerdict = verdict;
}

void Head(const std::string& title) {
    std::printf("\n%s\n%-46s %12s %12s %8s %8s\n", title.c_str(), "", "ours", "floor", "ratio", "goal");
}

void Line(const char* name, double ours, double floor, double goal, const char* unit) {
    const double ratio = ours / floor;
    std::printf("%-46s %9.2f %-2s %9.2f %-2s %8.2f", name, ours, unit, floor, unit, ratio);
    if (goal > 0) std::printf(" %8.2f  %s", goal, ratio > goal ? theVerdict : "");
    std::printf("\n");
    std::fflush(stdout);
}

void Limit(const char* name, double ours, double floor, double limit, const char* unit) {
    std::printf("%-46s %9.2f %-2s %9.2f %-2s %8.2f %5.0f %-2s  %s\n", name, ours, unit, floor, unit,
                ours / floor, limit, unit, ours > limit ? theVerdict : "");
    std::fflush(stdout);
}

void Alone(const char* name, double ours, double limit, const char* unit) {
    std::printf("%-46s %9.2f %-2s %12s %8s %5.0f %-2s  %s\n", name, ours, unit, "", "", limit, unit,
                ours > limit ? theVerdict : "");
    std::fflush(stdout);
}

void Growth(const char* name, double small, double large, int factor) {
    const double exponent = std::log(large / small) / std::log(factor);
    std::printf("%-46s %12s %12s %8.2f %8.2f%s\n", name, "", "", exponent, 1.1,
                exponent > 1.1 ? "  MISSED" : "");
}

}  // namespace TableLines
