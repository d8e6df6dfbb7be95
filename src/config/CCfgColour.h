#pragma once

#include "config/CCfgValue.h"

/// A colour 0x00BBGGRR, stored as the 4 bytes of its value in memory order (red, green, blue, 0). Anything
/// else that is stored loads as the default.
class CCfgColour final : public CCfgTyped<std::uint32_t> {
 public:
    bool Save(CProfile& profile, const QString& section, const QString& entry) const override;
    void Load(const ProfileSection& stored, const QString& entry) override;
};
