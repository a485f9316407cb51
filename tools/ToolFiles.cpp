#include "ToolFiles.h"

#include <fstream>
#include <sstream>
#include <system_error>

#include "Framework/FileSystem.h"
#include "TextCodec.h"
#include "ToolError.h"

std::filesystem::path ToPath(std::u16string_view path) {
#ifdef _WIN32
    return std::filesystem::path(std::wstring(path.begin(), path.end()));
#else
    return std::filesystem::path(ToUtf8(path));
#endif
}

std::string PathText(const std::filesystem::path& path) {
    return ToUtf8(path.u16string());
}

std::string ReadWholeFile(const std::filesystem::path& path) {
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) throw ToolError("„" + PathText(path) + "“ je složka, ne soubor.");
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    if (file) bytes << file.rdbuf();
    if (!file || file.bad()) throw ToolError("Soubor „" + PathText(path) + "“ nelze přečíst.");
    return bytes.str();
}

void WriteWholeFile(const std::filesystem::path& path, std::string_view bytes) {
    try {
        WriteFileAtomically(path.u16string(),
                            std::span(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()));
    } catch (const CFileException& failure) {
        throw ToolError("Soubor „" + PathText(path) + "“ nelze zapsat: " + ToUtf8(FileFailureCause(failure)));
    }
}

CatalogueCsvSheets ReadCsvFolder(const std::filesystem::path& folder) {
    std::error_code error;
    if (!std::filesystem::is_directory(folder, error)) {
        throw ToolError("Složka „" + PathText(folder) + "“ neexistuje (čekám v ní " + std::string(kMaterialsSheetName) +
                        " a " + std::string(kProfilesSheetName) + ").");
    }
    return {ReadWholeFile(folder / std::string(kMaterialsSheetName)),
            ReadWholeFile(folder / std::string(kProfilesSheetName))};
}

void WriteCsvFolder(const std::filesystem::path& folder, const CatalogueCsvSheets& sheets) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) throw ToolError("Složku „" + PathText(folder) + "“ nelze založit.");
    WriteWholeFile(folder / std::string(kMaterialsSheetName), sheets.materials);
    WriteWholeFile(folder / std::string(kProfilesSheetName), sheets.profiles);
}
