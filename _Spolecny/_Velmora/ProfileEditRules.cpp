#include "_Velmora/ProfileEditRules.h"

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "TextCodec.h"
#include "_Velmora/CQvxProfil.h"
#include "_Velmora/MaterialTables.h"

namespace {

constexpr int kFirstBandIndex = 2;
constexpr int kLastBandIndex = kDnCount - 2;

std::u16string Formatted(const char* format, double value) {
    char text[64];
    std::snprintf(text, sizeof(text), format, value);
    return FromUtf8(text);
}

std::u16string Formatted(int value) {
    return FromUtf8(std::to_string(value));
}

double DnValue(int index) {
    return DnTable()[static_cast<std::size_t>(index)].value;
}

bool HasBand(int dnIndex) {
    return dnIndex >= kFirstBandIndex && dnIndex <= kLastBandIndex;
}

// Inside the open band (0.9 x the DN below, 1.1 x the DN above).
bool InsideBand(int dnIndex, double diameter) {
    return diameter > 0.9 * DnValue(dnIndex - 1) && diameter < 1.1 * DnValue(dnIndex + 1);
}

ProfileEdit Unchanged(const CQvxProfil& profile) {
    ProfileEdit edit;
    edit.innerDiameter = profile.InnerDiameter();
    edit.wall = profile.Wall();
    edit.width = profile.Width();
    edit.dnIndex = profile.DnIndex();
    return edit;
}

void SetDimensions(ProfileEdit& edit, double innerDiameter, double wall) {
    edit.innerDiameter = static_cast<float>(innerDiameter);
    edit.wall = static_cast<float>(wall);
}

int32_t RoundedWidth(double value) {
    return static_cast<int32_t>(std::lround(value));
}

}  // namespace

std::u16string_view InnerColumnTitle(ProfileShape shape) {
    return shape == ProfileShape::Circle ? u"ID" : u"Výška";
}

std::u16string ProfileCellText(const CQvxProfil& profile, ProfileShape shape, int column) {
    switch (column) {
        case kProfileLabelColumn:
            return std::u16string(profile.Label());
        case kOuterColumn:
            return Formatted("%.0f", profile.OuterDiameter());
        case kWallColumn:
            return Formatted("%.2f", profile.Wall());
        case kInnerColumn:
            return Formatted("%.1f", profile.InnerDiameter());
        case kDnColumn: {
            const DnRow* row = FindDnRow(profile.DnIndex());
            return row != nullptr ? std::u16string(row->label) : std::u16string();
        }
        case kWidthColumn:
            return Formatted(shape == ProfileShape::Circle ? static_cast<int>(std::lround(profile.InnerDiameter()))
                                                           : profile.Width());
        default:
            return {};
    }
}

std::optional<int> FindFreeDnIndex(const CQvxMaterial& material, int start) {
    for (int index = std::max(start, 0); index < kDnCount; ++index) {
        if (material.FindProfile(index) == nullptr) return index;
    }
    return std::nullopt;
}

double ParseCellNumber(std::u16string_view text) {
    std::string narrow;
    for (const char16_t c : text) narrow.push_back(c < 0x80 ? static_cast<char>(c) : '?');
    errno = 0;
    char* end = nullptr;
    const double value = std::strtod(narrow.c_str(), &end);
    if (end == narrow.c_str()) throw std::invalid_argument("invalid stod argument");
    if (errno == ERANGE) throw std::out_of_range("stod argument out of range");
    return value;
}

int DnIndexOfLabel(std::u16string_view label) {
    for (int index = 0; index < kDnCount; ++index) {
        if (DnTable()[static_cast<std::size_t>(index)].label == label) return index;
    }
    return -1;
}

ProfileEdit ValidateProfileEdit(const CQvxProfil& profile, int column, std::u16string_view text) {
    ProfileEdit edit = Unchanged(profile);
    const int i = profile.DnIndex();
    const double oldInner = profile.InnerDiameter();
    const double oldWall = profile.Wall();
    switch (column) {
        case kOuterColumn: {
            const double outer = ParseCellNumber(text);
            double wall = oldWall;
            const double inner = outer - 2 * wall;
            if (HasBand(i) && !InsideBand(i, inner)) {
                const double nearest = inner > DnValue(i - 1) ? DnValue(i + 1) : DnValue(i - 1);
                wall = (outer - nearest) / 2;
            }
            SetDimensions(edit, outer - 2 * wall, wall);
            break;
        }
        case kWallColumn: {
            const double wall = ParseCellNumber(text);
            double outer = oldInner + 2 * oldWall;
            if (outer - 2 * wall <= 0) {
                edit.refusal = u"OD - 2x stěna je menší než 0, trubka nemá díru";
                return edit;
            }
            const double inner = outer - 2 * wall;
            // Here the band is the neighbouring DNs themselves, without the 0.9 and 1.1.
            if (HasBand(i) && inner <= DnValue(i - 1)) outer = 2 * wall + DnValue(i - 1);
            if (HasBand(i) && inner >= DnValue(i + 1)) outer = 2 * wall + DnValue(i + 1);
            SetDimensions(edit, outer - 2 * wall, wall);
            break;
        }
        case kInnerColumn: {
            const double inner = ParseCellNumber(text);
            if (HasBand(i) && !InsideBand(i, inner)) {
                edit.refusal = u"Zadaný průměr neodpovídá zadanému DN, nejprve změňte DN";
                return edit;
            }
            SetDimensions(edit, inner, (2 * oldWall + oldInner - inner) / 2);
            break;
        }
        case kDnColumn: {
            const int index = DnIndexOfLabel(text);
            const CQvxMaterial* material = profile.Owner();
            const CQvxProfil* holder = material != nullptr ? material->FindProfile(index) : nullptr;
            if (holder != nullptr && holder != &profile) {
                edit.refusal = u"DN již existuje, zadejte jiné DN";
                return edit;
            }
            edit.dnIndex = index;
            break;
        }
        case kWidthColumn:
            edit.width = RoundedWidth(ParseCellNumber(text));
            break;
        default:
            break;
    }
    return edit;
}

ProfileEdit StoredProfileEdit(const CQvxProfil& profile, int column, std::u16string_view text) {
    ProfileEdit edit = Unchanged(profile);
    const double oldWall = profile.Wall();
    const double oldOuter = profile.InnerDiameter() + 2 * oldWall;
    switch (column) {
        case kOuterColumn:
            SetDimensions(edit, std::trunc(ParseCellNumber(text)) - 2 * oldWall, oldWall);
            break;
        case kWallColumn: {
            const double wall = ParseCellNumber(text);
            SetDimensions(edit, oldOuter - 2 * wall, wall);
            break;
        }
        case kInnerColumn: {
            const double inner = ParseCellNumber(text);
            SetDimensions(edit, inner, (oldOuter - inner) / 2);
            break;
        }
        case kDnColumn:
            edit.dnIndex = DnIndexOfLabel(text);
            break;
        case kWidthColumn:
            edit.width = RoundedWidth(ParseCellNumber(text));
            break;
        default:
            break;
    }
    return edit;
}

bool StoreProfileCodes(CQvxProfil& profile, std::u16string_view installCode, std::u16string_view materialCode) {
    constexpr std::size_t kMaxLength = CQvxProfil::kCodeCopyBound - 1;
    installCode = installCode.substr(0, kMaxLength);
    materialCode = materialCode.substr(0, kMaxLength);
    bool stored = false;
    if (installCode != profile.UrsInstallCode()) {
        profile.SetUrsInstallCode(installCode);
        stored = true;
    }
    if (materialCode != profile.UrsMaterialCode()) {
        profile.SetUrsMaterialCode(materialCode);
        stored = true;
    }
    return stored;
}
