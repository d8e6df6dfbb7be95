#pragma once

/// Decimal places of a record's numbers, 0 to 6. The configuration provides them; records read them when they
/// are reset.
class CPrecisionSource {
 public:
    virtual ~CPrecisionSource() = default;
    [[nodiscard]] virtual int DurationPrecision() const = 0;
    [[nodiscard]] virtual int DistancePrecision() const = 0;
    [[nodiscard]] virtual int RatePrecision() const = 0;
    [[nodiscard]] virtual int AmountPrecision() const = 0;
};

/// The source in use; without one installed: durations 4, distances 2, rates 3, amounts 2.
[[nodiscard]] const CPrecisionSource& ThePrecisions();

/// Puts a source in use for a scope and the former one back at its end.
class PrecisionScope {
 public:
    explicit PrecisionScope(const CPrecisionSource& source);
    ~PrecisionScope();
    PrecisionScope(const PrecisionScope&) = delete;
    PrecisionScope& operator=(const PrecisionScope&) = delete;

 private:
    const CPrecisionSource* m_previous;
};
