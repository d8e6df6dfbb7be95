#pragma once

#include "records/CVORec.h"

/// A block of binary data in a text column, guarded by an MD5 digest (RFC 1321) and optionally run-length
/// packed.
class CDRecord final : public CVORec {
 public:
    static constexpr int kMaxData = 15984;  ///< bytes of payload that one row carries

    bool isPacked = true;
    int number = 0;  ///< the dependency set, 55 or 66
    QByteArray data;

    void SetPacked(bool flag) { isPacked = flag; }

    [[nodiscard]] RecordKind Kind() const override { return RecordKind::Dependency; }
    [[nodiscard]] std::span<const FieldDef> GetFieldDefs() const override;
    [[nodiscard]] bool WriteFields(CVORecordset& row) const override;
    [[nodiscard]] bool ReadFields(CVORecordset& row) override;
    [[nodiscard]] QByteArray ToBytes() const override;
    [[nodiscard]] bool FromBytes(const QByteArray& bytes, bool ansi) override;
    [[nodiscard]] std::unique_ptr<CVORec> Clone() const override;
};
