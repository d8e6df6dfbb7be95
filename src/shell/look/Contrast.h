#pragma once

class QColor;

/// How far two colours stand apart, from 1 (alike) to 21 (black and white): the contrast ratio of WCAG 2.1.
[[nodiscard]] double Contrast(const QColor& a, const QColor& b);
