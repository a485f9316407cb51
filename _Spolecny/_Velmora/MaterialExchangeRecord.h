#pragma once

#include <cstdint>
#include <string>

#include "_Velmora/MaterialTables.h"

// The editor's buffer for the fields of one material, applied to it in one step
// (CQvxMaterial::ApplyExchangeRecord).
struct MaterialExchangeRecord {
    // Roughness value meaning "take the roughness from roughnessText".
    static constexpr double kRoughnessFromText = -1000.0;

    std::u16string uniqueName;
    std::u16string manufacturer;
    std::u16string description;
    std::u16string displayName;
    int32_t pnIndex = -1;
    int32_t sdrIndex = -1;
    ProfileShape shape = ProfileShape::Circle;
    int32_t placement = kPlacementAll;
    int32_t medium = kMediumAll;
    DescriptionMode descriptionMode = DescriptionMode::DxT;
    bool onInnerDiameter = false;
    std::u16string prefix;
    std::u16string suffix;
    double roughness = 0.0;
    std::u16string roughnessText;
};
