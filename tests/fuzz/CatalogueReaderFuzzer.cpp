// libFuzzer target: any byte sequence given as a catalogue must end in a clean refusal or in a
// list that writes and reads back to the very same bytes.

#include <cstdint>
#include <cstdlib>
#include <exception>
#include <vector>

#include "Framework/CArchive.h"
#include "Framework/CFile.h"
#include "_Velmora/CQvxSezMaterialu.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

void Read(CQvxSezMaterialu& list, Bytes bytes) {
    CMemFile file(std::move(bytes));
    CArchive archive(file, CArchive::load);
    list.Serialize(archive, false);
}

Bytes Write(CQvxSezMaterialu& list) {
    CMemFile file;
    CArchive archive(file, CArchive::store);
    list.Serialize(archive, false);
    archive.Close();
    return file.Bytes();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CQvxSezMaterialu list;
    try {
        Read(list, Bytes(data, data + size));
    } catch (const CArchiveException&) {
        return 0;
    } catch (const std::exception&) {
        return 0;
    }

    // Whatever was accepted is a catalogue of the newest layout once written.
    const Bytes written = Write(list);
    CQvxSezMaterialu again;
    Read(again, written);
    if (Write(again) != written) std::abort();
    return 0;
}
