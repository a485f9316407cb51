#pragma once

#include <cstdint>
#include <span>
#include <string_view>

// Fixed tables of the catalogue. Files store row indexes, so rows are never reordered.

struct DnRow {
    std::u16string_view label;  // "DN 100"
    float value;                // nominal size
    int outerDiameter;          // standard outer diameter in mm
};

struct PnRow {
    std::u16string_view label;  // "PN 16"
    int value;
};

struct SdrRow {
    std::u16string_view label;  // "SDr 11"
    float value;
};

inline constexpr int kDnCount = 28;
inline constexpr int kPnCount = 7;
inline constexpr int kSdrCount = 8;

// DnTable()[15] ("DN 225") was inserted later; older files are shifted when they are read.
std::span<const DnRow, kDnCount> DnTable();
std::span<const PnRow, kPnCount> PnTable();
// Row 2 is labelled "SDr 7.4" but carries 7.2: the pairing is intended.
std::span<const SdrRow, kSdrCount> SdrTable();

// The row for an index, or nullptr outside the table (files and callers may hold any number).
const DnRow* FindDnRow(int index);
const SdrRow* FindSdrRow(int index);

// How the labels of a material's profiles are built. Any value other than Dn and DxT is custom.
enum class DescriptionMode : int32_t {
    Dn = 0,      // "DN 100"
    DxT = 1,     // "110x6.6" (outer diameter x wall)
    Custom = 2,  // prefix, a diameter, suffix
};

// Installation kinds a material suits (bit mask).
enum PlacementFlags : int32_t {
    kPlacementIndoor = 1,    // "ZTI"
    kPlacementNetworks = 2,  // "Inženýrské sítě"
    kPlacementAll = 3,
};

// Media a material suits (bit mask).
enum MediumFlags : int32_t {
    kMediumSewage = 1,          // "Kanalizace"
    kMediumPressureSewage = 2,  // "Kan. tlaková"
    kMediumWater = 4,           // "Voda"
    kMediumGas = 8,             // "Plyn"
    kMediumHeating = 16,        // "Teplovody/UT"
    kMediumAll = 31,
};

enum class ProfileShape : uint8_t {
    Circle = 0,     // "Kruh"
    EggVienna = 1,  // "Vejce"
    EggPrague = 2,  // "Vejce - Praha"
    Mouth = 3,      // "Tlama"
    Rectangle = 4,  // "Obdélník"
};

// A zero mask is never kept: it stands for "all".
inline int32_t NormalisedPlacement(int32_t mask) { return mask == 0 ? kPlacementAll : mask; }
inline int32_t NormalisedMedium(int32_t mask) { return mask == 0 ? kMediumAll : mask; }
