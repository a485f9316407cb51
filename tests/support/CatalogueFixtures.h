#pragma once

#include <string>

// Catalogue streams as hexadecimal dumps: the worked example of the format and hand-made files of
// older versions. Tests read them; the fuzzer's seed corpus is made from them.
namespace CatalogueFixtures {

// The material record of the worked example: "PE", D x t, roughness 0.01, PN row 3, SDR row 4,
// one profile DN 100 (row 11) of inner diameter 90 and wall 10.
inline constexpr const char* kPeHeader =
    "05 01 00 00 00 00 00"
    " FF FE FF 02 50 00 45 00"
    " FF FE FF 00 FF FE FF 00"
    " 0A D7 23 3C"
    " 1F 00 03 00 03 00 04 00"
    " 00 ";
inline constexpr const char* kPeProfile = " 07 0B 00 00 00 B4 42 00 00 20 41 00 00 00 00 00 00 00 00 ";
inline const std::string kPeMaterial = std::string(kPeHeader) + kPeProfile + "FF ";
inline const std::string kWorkedExample = "03 " + kPeMaterial + "FF";

// List version 0 counting two materials: version 1 (counted profiles, one of profile version 1)
// and version 0; then the trailer.
inline constexpr const char* kListVersion0 =
    "00  02 00 00 00 00 00 00 00"
    // material version 1, old DN flag set, narrow "Litina", narrow "Šedá", empty manufacturer
    "  01 01  06 4C 69 74 69 6E 61  04 8A 65 64 E1  00"
    "  00 00 80 3F  00 00 00 00  02 00 FF FF"  // roughness 1, zero masks, PN 2, SDR none
    "  01 00 00 00 00 00 00 00"                // one profile
    // profile version 1: DN row 15 of the old table, 250 x 5, obsolete word, code "K1" in
    // 11 units, obsolete label in 11 units
    "    01 0F 00  00 00 7A 43  00 00 A0 40  DE AD BE EF"
    "    4B 00 31 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00"
    "    44 00 4E 00 20 00 32 00 35 00 30 00 00 00 00 00 00 00 00 00 00 00"
    // material version 0, D x t, wide "PE", no profiles
    "  00 00  FF FE FF 02 50 00 45 00  00  00"
    "  0A D7 23 3C  04 00 02 00 00 00 04 00"
    "  00 00 00 00 00 00 00 00"
    "  01 00 00 00 02 00 00 00 03 00 00 00";  // trailer

// List version 2 with a material of version 2 and profiles of versions 2 and 3; then the trailer.
inline constexpr const char* kMaterialVersion2 =
    "02  02 00  FF FE FF 03 50 00 56 00 43 00  00 00"
    "  00 00 80 3F  01 00 01 00 03 00 02 00"
    // DN index 20 of the old table is row 21; code "KG" then garbage in 11 units; label 15 units
    "  02 14 00  00 00 C8 42  00 00 20 40  00 00 00 00"
    "    4B 00 47 00 00 00 58 00 58 00 58 00 58 00 58 00 58 00 58 00 58 00"
    "    31 00 30 00 35 00 78 00 32 00 2E 00 35 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00"
    // version 3 knows the inserted row: DN index 15 stays
    "  03 0F 00  00 00 48 43  00 00 A0 40  00 00 00 00"
    "    00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00"
    "    00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00"
    "  FF  FF  00 00 00 00 00 00 00 00 00 00 00 00";

// A material of version 3 (affixes in the fixed form) with a profile of version 4.
inline constexpr const char* kMaterialVersion3 =
    "03  03 02 01"
    "  44 00 4E 00 00 00 51 00 51 00"  // prefix "DN", terminator, garbage
    "  61 00 62 00 63 00 64 00 65 00"  // suffix of 5 units without terminator: "abcd"
    "  FF FE FF 05 42 00 65 00 74 00 6F 00 6E 00  FF FE FF 00  FF FE FF 00"
    "  00 00 80 3F  1F 00 03 00 00 00 00 00"
    // version 4: terminated code and label; DN index 15 is "DN 225" again
    "  04 0F 00  00 00 61 43  00 00 A0 40  00 00 00 00  58 00 31 00 00 00"
    "    44 00 4E 00 20 00 32 00 32 00 35 00 00 00"
    "  FF  FF";

// A material of version 4 (terminated affixes, no shape) with a profile of version 6 (no label).
inline constexpr const char* kMaterialVersion4 =
    "03  04 02 01  44 00 4E 00 00 00  00 00"  // Custom labels on the inner diameter, prefix "DN"
    "  FF FE FF 04 53 00 6B 00 6C 00 6F 00  FF FE FF 00  FF FE FF 00"
    "  00 00 80 3F  01 00 02 00 00 00 00 00"
    // DN index 11, 90 x 10, obsolete word, width 640, codes "C" and "D"
    "  06 0B 00  00 00 B4 42  00 00 20 41  00 00 00 00  80 02 00 00  43 00 00 00  44 00 00 00"
    "  FF  FF";

// A material of version 6 (display name stored) with a profile of version 5.
inline constexpr const char* kMaterialVersion6 =
    "03  06 00 00 00 00 00 00"
    "  FF FE FF 04 4F 00 63 00 65 00 6C 00  FF FE FF 00  FF FE FF 00"
    "  00 00 80 3F  1F 00 03 00 00 00 00 00  04"
    // version 5: obsolete word, width 1000, both codes, terminated obsolete label
    "  05 0A 00  00 00 A0 42  00 00 40 40  00 00 00 00  E8 03 00 00  41 00 00 00  42 00 00 00  78 00 00 00"
    "  FF"
    "  FF FE FF 08 4F 00 63 00 65 00 6C 00 20 00 0C 01 53 00 4E 00"
    "  FF";

}  // namespace CatalogueFixtures
