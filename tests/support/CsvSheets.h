#pragma once

#include <string>
#include <string_view>

#include "_Velmora/CatalogueCsv.h"

// The catalogue's two CSV sheets as the tool writes them, for the sheet and tool tests.
namespace CsvSheets {

inline constexpr std::string_view kBom = "\xEF\xBB\xBF";
inline constexpr std::string_view kMaterialsHeader =
    "Název;Podrobný popis;Výrobce;Uložení;Médium;Drsnost [mm];Tl. třída;SDr;Způsob popisu;Prefix;Suffix;"
    "Průměr v popisu;Tvar\n";
inline constexpr std::string_view kProfilesHeader =
    "Materiál;DN;OD [mm];Stěna [mm];ID / výška [mm];Šířka [mm];Kód URS materiál;Kód URS montáž\n";
inline constexpr std::string_view kEgg =
    "Beton vejčitý;\"Vejčité stoky; š/v = 2/3\";;Inženýrské sítě;Kanalizace;0.3;;;Jiný;\"V \";;"
    "Vnitřní průměr;Vejce\n";
inline constexpr std::string_view kPe =
    "PE100 SDR11;Voda, ČSN EN 12201-2;Generic;ZTI+Inženýrské sítě;Voda+Plyn;0.01;PN 16;SDr 11;D x t;;;"
    "Vnější průměr;Kruh\n";
inline constexpr std::string_view kEggProfile = "Beton vejčitý;DN 450;450;0;450;300;;\n";
inline constexpr std::string_view kPeProfiles =
    "PE100 SDR11;DN 15;20;2;16;;;\n"
    "PE100 SDR11;DN 100;110;10;90;;801234567;ABC\n"
    "PE100 SDR11;DN 600;630;57.2;515.6;;;\n";

inline std::string Materials(std::string_view rows) { return std::string(kMaterialsHeader) + std::string(rows); }
inline std::string Profiles(std::string_view rows) { return std::string(kProfilesHeader) + std::string(rows); }

// Both sheets with the egg section and PE, materials in name order, profiles in DN order.
inline CatalogueCsvSheets Canonical() {
    return {std::string(kBom) + Materials(std::string(kEgg) + std::string(kPe)),
            std::string(kBom) + Profiles(std::string(kEggProfile) + std::string(kPeProfiles))};
}

}  // namespace CsvSheets
