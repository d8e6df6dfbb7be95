#pragma once

#include "config/CCfgValue.h"

/// A whole number, stored as it is. Where no integer is stored, the default.
class CCfgInt final : public CCfgTyped<std::int32_t> {
 public:
    bool Save(CProfile& profile, const QString& section, const QString& entry) const override;
    void Load(const ProfileSection& stored, const QString& entry) override;
};
