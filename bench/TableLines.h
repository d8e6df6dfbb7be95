#pragma once

#include <string>

/// The lines of the table of figures.
namespace TableLines {

/// What a missed goal is called from here on. The goals hold for a lifetime of records; below, where the
/// start of a process outweighs its work, they only give an idea.
void JudgeAs(const char* verdict);
void Head(const std::string& title);
/// One line: two figures, their ratio, and the goal that the ratio is to keep (0: none).
void Line(const char* name, double ours, double floor, double goal, const char* unit);
/// One line against a limit of its own.
void Limit(const char* name, double ours, double floor, double limit, const char* unit);
/// One figure against a limit, without a floor.
void Alone(const char* name, double ours, double limit, const char* unit);
/// How a figure grew between two sizes: 1 is linear.
void Growth(const char* name, double small, double large, int factor);

}  // namespace TableLines
