// libFuzzer target for the CSV sheets: the materials sheet, a byte 0x01, the profiles sheet. Any
// input must end in a list of problems or in sheets that survive the whole trip unchanged:
// sheets -> catalogue file -> sheets.

#include <cstdint>
#include <cstdlib>
#include <exception>
#include <string>

#include "_Velmora/CatalogueCsv.h"
#include "_Velmora/CatalogueCsvList.h"
#include "support/CatalogueBuilding.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    const std::size_t split = input.find('\x01');
    const CatalogueCsvSheets sheets{input.substr(0, split),
                                    split == std::string::npos ? std::string() : input.substr(split + 1)};
    const CatalogueCsvContent content = ReadCatalogueCsv(sheets);
    if (!content.problems.empty()) return 0;

    CQvxSezMaterialu list;
    try {
        for (const CsvMaterialRecord& material : content.materials) AddMaterial(material, list);
    } catch (const std::exception&) {
        return 0;  // a value no label can be built for
    }
    CQvxSezMaterialu reread;
    ReadCatalogue(reread, WriteCatalogue(list));

    const CatalogueCsvSheets expected = WriteCatalogueCsv(MaterialRecords(list));
    const CatalogueCsvSheets written = WriteCatalogueCsv(MaterialRecords(reread));
    if (written.materials != expected.materials || written.profiles != expected.profiles) std::abort();
    const CatalogueCsvContent again = ReadCatalogueCsv(written);
    if (!again.problems.empty() || WriteCatalogueCsv(again.materials).profiles != written.profiles) std::abort();
    return 0;
}
