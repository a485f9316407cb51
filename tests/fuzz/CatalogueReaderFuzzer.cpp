// libFuzzer target: any byte sequence given as a catalogue must end in a clean refusal or in a
// list whose written form reads back and writes again to the very same bytes.

#include <cstdint>
#include <cstdlib>
#include <exception>

#include "support/CatalogueBuilding.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CQvxSezMaterialu list;
    try {
        ReadCatalogue(list, Bytes(data, data + size));
    } catch (const CArchiveException&) {
        return 0;
    } catch (const std::exception&) {
        return 0;
    }

    // The first rewrite may normalise what only an old layout can hold (a DN index of 32767 below
    // profile version 3 is shifted past the 16 bits the newest layout stores); from then on the
    // newest layout must read and write back unchanged.
    CQvxSezMaterialu rewritten;
    ReadCatalogue(rewritten, WriteCatalogue(list));
    const Bytes written = WriteCatalogue(rewritten);
    CQvxSezMaterialu again;
    ReadCatalogue(again, written);
    if (WriteCatalogue(again) != written) std::abort();
    return 0;
}
