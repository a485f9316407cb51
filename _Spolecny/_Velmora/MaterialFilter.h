#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "_Velmora/MaterialTables.h"

class CQvxMaterial;
class CQvxSezMaterialu;

// The usage filter of the material dialogs: a placement mask and a medium mask. A material is
// listed when it shares a bit with each of them.
struct UsageFilter {
    int32_t placement = kPlacementAll;
    int32_t medium = kMediumAll;

    bool operator==(const UsageFilter&) const = default;
};

bool IsListed(const CQvxMaterial& material, UsageFilter filter);

// The listed materials of `list`, in the list's key order.
std::vector<CQvxMaterial*> ListedMaterials(const CQvxSezMaterialu& list, UsageFilter filter);

// The filter radios. Medium radios in order: "Kanalizace", "Tlak. kan.", "Voda", "Plyn", "Tpl.",
// "Vše"; placement radios: "ZTI", "Inženýrské sítě", "Vše". A position of -1 means none checked.
inline constexpr std::array<int32_t, 6> kMediumRadioMasks = {1, 2, 4, 8, 16, kMediumAll};
inline constexpr std::array<int32_t, 3> kPlacementRadioMasks = {1, 2, kPlacementAll};

// The mask of the checked radio; none checked (or an unknown position) means every medium.
int32_t MediumMaskForRadio(int position);
// "ZTI" 1, "Inženýrské sítě" 2, anything else 3.
int32_t PlacementMaskForRadio(int position);
// The radio that shows a mask: "Vše" for all media, otherwise the radio of the lowest set bit.
int MediumRadioForMask(int32_t mask);
// "ZTI" for 1, "Inženýrské sítě" for 2, "Vše" otherwise.
int PlacementRadioForMask(int32_t mask);

// The dialogs' display order of names: case is ignored the Czech way (each character lowered,
// then the character codes compared, so "Č" follows "z"); names equal but for case keep their
// code-unit order, so the order is total.
char16_t CzechLower(char16_t character);
std::u16string CzechLowered(std::u16string_view text);
bool DisplayOrderLess(std::u16string_view left, std::u16string_view right);

// Sorts materials by their unique names in the display order. Each name is lowered once.
void SortForDisplay(std::vector<CQvxMaterial*>& materials);

// The list's incremental search: the first of `rows` (in display order) from `start` on whose
// unique name begins with `prefix`, case ignored as in the display order; with `wrap` the search
// goes round to the first row. -1 when none does.
int FindRowStartingWith(const std::vector<CQvxMaterial*>& rows, std::u16string_view prefix, int start, bool wrap);
