#include "records/Precisions.h"

namespace {

class UsualPrecisions final : public CPrecisionSource {
 public:
    [[nodiscard]] int DurationPrecision() const override { return 4; }
    [[nodiscard]] int DistancePrecision() const override { return 2; }
    [[nodiscard]] int RatePrecision() const override { return 3; }
    [[nodiscard]] int AmountPrecision() const override { return 2; }
};

const UsualPrecisions kUsual;
const CPrecisionSource* theSource = &kUsual;

}  // namespace

const CPrecisionSource& ThePrecisions() {
    return *theSource;
}

PrecisionScope::PrecisionScope(const CPrecisionSource& source) : m_previous(theSource) {
    theSource = &source;
}

PrecisionScope::~PrecisionScope() {
    theSource = m_previous;
}
