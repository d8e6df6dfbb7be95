#pragma once

#include "config/CColSet.h"

/// The levels of the data tree. Sixteen columns make no level and are never shown here: dates, times, spans,
/// numbers, notes and the export mark.
class CTreeColSet final : public CColSet {
 public:
    void SetDefaults() override;
    [[nodiscard]] bool LoadBlob(const QByteArray& blob) override;
    [[nodiscard]] bool IsExcluded(int column) const override;

 private:
    void RemoveExcluded();
};
