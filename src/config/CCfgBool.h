#pragma once

#include "config/CCfgValue.h"

/// A flag, stored as the integer 1 or 0. Any other integer loads as the default.
class CCfgBool final : public CCfgTyped<bool> {
 public:
    bool Save(CProfile& profile, const QString& section, const QString& entry) const override;
    void Load(const ProfileSection& stored, const QString& entry) override;
};
