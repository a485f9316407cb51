#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "_Velmora/CQvxMaterial.h"

// The editor's profile pane without windows: its columns and cell texts, the search for a free DN,
// and the rules by which an edited cell changes a profile.

enum ProfileColumn : int {
    kProfileLabelColumn = 0,  // "Profil"
    kOuterColumn = 1,         // "OD"
    kWallColumn = 2,          // "Stěna"
    kInnerColumn = 3,         // "ID", or "Výška" for shapes other than the circle
    kDnColumn = 4,            // "DN"
    kWidthColumn = 5,         // "Sirka"
};

// The title of column 3 for a shape.
std::u16string_view InnerColumnTitle(ProfileShape shape);

// What a cell shows: the label; OD "%.0f"; wall "%.2f"; inner diameter (height) "%.1f"; the DN
// label; the width "%i", which for a circle is the rounded inner diameter.
std::u16string ProfileCellText(const CQvxProfil& profile, ProfileShape shape, int column);

// The first DN index from `start` up to the last row of the DN table that has no profile.
std::optional<int> FindFreeDnIndex(const CQvxMaterial& material, int start);

// A cell's text read as a number, as the standard string-to-double conversion reads it (leading
// blanks, the longest number at the start). Throws std::invalid_argument "invalid stod argument"
// when there is none and std::out_of_range "stod argument out of range" when it does not fit.
double ParseCellNumber(std::u16string_view text);

// The DN index of a label ("DN 100"), -1 when no label is equal.
int DnIndexOfLabel(std::u16string_view label);

// The dimensions an edit gives a profile, or the refusal to show on the edit.
struct ProfileEdit {
    std::u16string refusal;  // empty: accepted
    float innerDiameter = 0.0f;
    float wall = 0.0f;
    int32_t width = 0;
    int dnIndex = -1;  // the DN column: the index chosen
};

// End of an in-place edit of `column` with `text`: the values within the bands of the neighbouring
// DNs (checked for DN indexes 2 to 26), or a refusal. Throws as ParseCellNumber does.
ProfileEdit ValidateProfileEdit(const CQvxProfil& profile, int column, std::u16string_view text);

// The cell-changed store after an accepted edit: the same columns without the bands (OD read as a
// whole number). Throws as ParseCellNumber does.
ProfileEdit StoredProfileEdit(const CQvxProfil& profile, int column, std::u16string_view text);

// The price-list codes typed for `profile` ("Kód URS montáž:" and "Kód URS materiál:"), each cut to
// the 9 characters a profile keeps, stored where they differ from the profile's. True when one was
// stored (and so the catalogue changed).
bool StoreProfileCodes(CQvxProfil& profile, std::u16string_view installCode, std::u16string_view materialCode);
