// Writes the fuzzer's seed corpus: small valid catalogues of several versions.
//   catalogue_seed_corpus <folder>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "support/CatalogueBuilding.h"
#include "support/CatalogueFixtures.h"
#include "RandomCatalogue.h"

namespace {

void WriteFile(const std::filesystem::path& path, const Bytes& bytes) {
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s <folder>\n", argv[0]);
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    std::filesystem::create_directories(folder);

    using namespace CatalogueFixtures;
    WriteFile(folder / "worked-example.qxp", Hex(kWorkedExample));
    WriteFile(folder / "list-version-0.qxp", Hex(kListVersion0));
    WriteFile(folder / "material-version-2.qxp", Hex(kMaterialVersion2));
    WriteFile(folder / "material-version-3.qxp", Hex(kMaterialVersion3));
    WriteFile(folder / "material-version-4.qxp", Hex(kMaterialVersion4));
    WriteFile(folder / "material-version-6.qxp", Hex(kMaterialVersion6));

    CQvxSezMaterialu empty;
    WriteFile(folder / "empty.qxp", WriteCatalogue(empty));
    CQvxSezMaterialu random;
    RandomCatalogue(7).Fill(random, 4, 3);
    WriteFile(folder / "random.qxp", WriteCatalogue(random));
    return 0;
}
