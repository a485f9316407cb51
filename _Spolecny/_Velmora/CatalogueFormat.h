#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

// Versions and field sizes of the catalogue file (*.qxp): a list record holding material records
// holding profile records, each opened by its own version byte. The writer writes the versions
// below; the reader takes every older layout and refuses newer ones.
namespace CatalogueFormat {

inline constexpr std::uint8_t kListVersion = 3;
inline constexpr std::uint8_t kMaterialVersionWritten = 5;  // no display name: it is the unique name
inline constexpr std::uint8_t kMaterialVersionNewest = 6;   // readable, never written
inline constexpr std::uint8_t kProfileVersion = 7;

// Stands where the next material's or profile's version byte would stand.
inline constexpr std::uint8_t kEndMarker = 0xFF;

// Capacities n of the fixed text fields.
inline constexpr std::size_t kAffixField = 4;
inline constexpr std::size_t kCodeField = 10;
inline constexpr std::size_t kOldLabelField = 10;  // profile versions 0 and 1
inline constexpr std::size_t kLabelField = 14;     // profile versions 2 to 5

inline constexpr std::u16string_view kNewerVersion =
    u"Nelze načíst, soubor byl uložen vyšší verzí programu, aktualizujte program";

}  // namespace CatalogueFormat
