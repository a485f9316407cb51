#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "_Velmora/MaterialExchangeRecord.h"

// The catalogue as two CSV sheets that a spreadsheet opens: the materials, one row each, and
// the profiles, one row each, naming their material. Column order is free; every column is
// required except "OD [mm]", which is only checked (ID + 2 x wall) when it is filled in.

inline constexpr std::string_view kMaterialsSheetName = "materialy.csv";
inline constexpr std::string_view kProfilesSheetName = "profily.csv";

struct CatalogueCsvSheets {
    std::string materials;  // UTF-8 text of the materials sheet
    std::string profiles;
};

// One profile as its row holds it.
struct CsvProfileRecord {
    int dnIndex = 0;
    float innerDiameter = 0.0f;  // the height for shapes other than the circle
    float wall = 0.0f;
    int32_t width = 0;
    std::u16string ursMaterialCode;
    std::u16string ursInstallCode;

    friend bool operator==(const CsvProfileRecord&, const CsvProfileRecord&) = default;
};

// One material and its profiles. Catalogue files do not keep a display name, so the sheets have
// none: it is the unique name.
struct CsvMaterialRecord {
    MaterialExchangeRecord fields;           // roughness as a number; PN and SDR -1 when none is chosen
    std::vector<CsvProfileRecord> profiles;  // ascending DN index
};

struct CatalogueCsvProblem {
    std::string_view sheet;
    std::size_t line = 0;
    std::string message;  // Czech, UTF-8

    // "profily.csv, řádek 12: Neznámé DN „DN 110“."
    std::string Describe() const;
};

struct CatalogueCsvContent {
    std::vector<CsvMaterialRecord> materials;   // in the order of the materials sheet
    std::vector<CatalogueCsvProblem> problems;  // every problem found; none when the sheets are valid
};

CatalogueCsvContent ReadCatalogueCsv(const CatalogueCsvSheets& sheets);

// A value that the sheets have no text for (a table row or flag the program does not know).
class CatalogueCsvExportError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;  // Czech, UTF-8
};

// Writes the materials in the given order, each with its profiles. Throws CatalogueCsvExportError.
CatalogueCsvSheets WriteCatalogueCsv(const std::vector<CsvMaterialRecord>& materials);
