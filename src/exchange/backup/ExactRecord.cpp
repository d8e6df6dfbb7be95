#include "exchange/backup/ExactRecord.h"

#include "records/CDRecord.h"
#include "records/Precisions.h"
#include "records/RecordFactory.h"

namespace {

/// The greatest number of places that a setting allows: what was rounded to any of them stays as it is.
class MostPlaces final : public CPrecisionSource {
 public:
    [[nodiscard]] int DurationPrecision() const override { return kPlaces; }
    [[nodiscard]] int DistancePrecision() const override { return kPlaces; }
    [[nodiscard]] int RatePrecision() const override { return kPlaces; }
    [[nodiscard]] int AmountPrecision() const override { return kPlaces; }

 private:
    static constexpr int kPlaces = 6;
};

}  // namespace

std::unique_ptr<CVORec> NewExactRecord(RecordKind kind, bool isPacked) {
    if (kind == RecordKind::Dependency) {
        auto record = std::make_unique<CDRecord>();
        record->SetPacked(isPacked);
        return record;
    }
    static const MostPlaces kMostPlaces;
    const PrecisionScope precisions(kMostPlaces);
    return NewRecord(kind);
}
