#include "_Velmora/MaterialFilter.h"

#include <algorithm>
#include <bit>

#include "_Velmora/CQvxMaterial.h"
#include "_Velmora/CQvxSezMaterialu.h"

bool IsListed(const CQvxMaterial& material, UsageFilter filter) {
    return (material.Medium() & filter.medium) != 0 && (material.Placement() & filter.placement) != 0;
}

std::vector<CQvxMaterial*> ListedMaterials(const CQvxSezMaterialu& list, UsageFilter filter) {
    std::vector<CQvxMaterial*> listed;
    listed.reserve(list.Count());
    for (const auto& [name, material] : list.Materials()) {
        if (IsListed(*material, filter)) listed.push_back(material.get());
    }
    return listed;
}

int32_t MediumMaskForRadio(int position) {
    if (position < 0 || position >= static_cast<int>(kMediumRadioMasks.size())) return kMediumAll;
    return kMediumRadioMasks[static_cast<std::size_t>(position)];
}

int32_t PlacementMaskForRadio(int position) {
    if (position < 0 || position >= static_cast<int>(kPlacementRadioMasks.size())) return kPlacementAll;
    return kPlacementRadioMasks[static_cast<std::size_t>(position)];
}

int MediumRadioForMask(int32_t mask) {
    const int allRadio = static_cast<int>(kMediumRadioMasks.size()) - 1;
    if (mask == kMediumAll || (mask & kMediumAll) == 0) return allRadio;
    return std::countr_zero(static_cast<uint32_t>(mask));
}

int PlacementRadioForMask(int32_t mask) {
    if (mask == kPlacementIndoor) return 0;
    if (mask == kPlacementNetworks) return 1;
    return 2;
}

char16_t CzechLower(char16_t c) {
    const auto shifted = [c](int by) { return static_cast<char16_t>(c + by); };
    if (c >= u'A' && c <= u'Z') return shifted(32);
    if (c < 0x00C0) return c;
    // Latin-1: À..Þ except the multiplication sign.
    if (c <= 0x00DE) return c == 0x00D7 ? c : shifted(32);
    if (c < 0x0100) return c;
    // Latin Extended-A: pairs of capital and small letter, the capital on an even code in
    // 0100-0137 and 014A-0177, on an odd one in 0139-0148 and 0179-017E.
    if (c <= 0x017F) {
        if (c == 0x0130) return u'i';
        if (c == 0x0178) return 0x00FF;
        const bool evenCapitals = (c <= 0x0137 && c != 0x0131) || (c >= 0x014A && c <= 0x0177);
        const bool oddCapitals = (c >= 0x0139 && c <= 0x0148) || (c >= 0x0179 && c <= 0x017E);
        if ((evenCapitals && c % 2 == 0) || (oddCapitals && c % 2 == 1)) return shifted(1);
        return c;
    }
    // Greek and Cyrillic capitals.
    if (c >= 0x0391 && c <= 0x03A9 && c != 0x03A2) return shifted(32);
    if (c >= 0x0400 && c <= 0x040F) return shifted(80);
    if (c >= 0x0410 && c <= 0x042F) return shifted(32);
    return c;
}

std::u16string CzechLowered(std::u16string_view text) {
    std::u16string lowered(text);
    std::transform(lowered.begin(), lowered.end(), lowered.begin(), CzechLower);
    return lowered;
}

bool DisplayOrderLess(std::u16string_view left, std::u16string_view right) {
    const auto lowerLess = [](char16_t a, char16_t b) { return CzechLower(a) < CzechLower(b); };
    if (std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end(), lowerLess)) return true;
    if (std::lexicographical_compare(right.begin(), right.end(), left.begin(), left.end(), lowerLess)) return false;
    return left < right;
}

void SortForDisplay(std::vector<CQvxMaterial*>& materials) {
    struct Keyed {
        std::u16string key;
        CQvxMaterial* material;
    };
    std::vector<Keyed> keyed;
    keyed.reserve(materials.size());
    for (CQvxMaterial* material : materials) keyed.push_back({CzechLowered(material->UniqueName()), material});
    std::sort(keyed.begin(), keyed.end(), [](const Keyed& a, const Keyed& b) {
        if (a.key != b.key) return a.key < b.key;
        return a.material->UniqueName() < b.material->UniqueName();
    });
    for (std::size_t i = 0; i < keyed.size(); ++i) materials[i] = keyed[i].material;
}

int FindRowStartingWith(const std::vector<CQvxMaterial*>& rows, std::u16string_view prefix, int start, bool wrap) {
    const int count = static_cast<int>(rows.size());
    if (count == 0) return -1;
    const std::u16string lowered = CzechLowered(prefix);
    const auto begins = [&](const CQvxMaterial* material) {
        const std::u16string_view name = material->UniqueName();
        return name.size() >= lowered.size() && CzechLowered(name.substr(0, lowered.size())) == lowered;
    };
    start = std::clamp(start, 0, count);
    const int steps = wrap ? count : count - start;
    for (int step = 0; step < steps; ++step) {
        const int row = (start + step) % count;
        if (begins(rows[static_cast<std::size_t>(row)])) return row;
    }
    return -1;
}
