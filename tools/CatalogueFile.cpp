#include "CatalogueFile.h"

#include <cstdio>
#include <vector>

#include "CQvxException.h"
#include "Framework/CArchive.h"
#include "Framework/CFile.h"
#include "TextCodec.h"
#include "ToolError.h"
#include "ToolFiles.h"
#include "_Velmora/CQvxSezMaterialu.h"

namespace {

std::string ByteText(std::uint64_t offset) {
    char hex[32];
    std::snprintf(hex, sizeof hex, "0x%llX", static_cast<unsigned long long>(offset));
    return "bajt " + std::to_string(offset) + ", " + hex;
}

ToolError Unreadable(const std::filesystem::path& path, const std::string& reason, std::uint64_t offset) {
    return ToolError("Soubor „" + PathText(path) + "“ nelze načíst: " + reason + " (" + ByteText(offset) + ").");
}

}  // namespace

std::uint64_t ReadCatalogueFile(const std::filesystem::path& path, CQvxSezMaterialu& list) {
    const std::string bytes = ReadWholeFile(path);
    CMemFile file(std::vector<std::uint8_t>(bytes.begin(), bytes.end()));
    CArchive archive(file, CArchive::load);
    try {
        list.Serialize(archive, false);
    } catch (const CArchiveException& failure) {
        const std::string reason = failure.GetCause() == CArchiveException::Cause::EndOfFile
                                       ? "soubor končí uprostřed záznamu"
                                       : "chybný formát dat";
        throw Unreadable(path, reason, failure.Offset());
    } catch (const CQvxException& failure) {
        // Noticed on the last byte read.
        const std::uint64_t position = archive.Position();
        throw Unreadable(path, FailureText(failure), position == 0 ? 0 : position - 1);
    }
    return archive.Position();
}

std::string CatalogueFileBytes(CQvxSezMaterialu& list) {
    CMemFile file;
    {
        CArchive archive(file, CArchive::store);
        list.Serialize(archive, false);
        archive.Close();
    }
    const std::vector<std::uint8_t>& bytes = file.Bytes();
    return std::string(bytes.begin(), bytes.end());
}
