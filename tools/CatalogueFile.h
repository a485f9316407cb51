#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

class CQvxSezMaterialu;

// Catalogue files (*.qxp) for the tool: read whole into memory, read through the program's own
// reader, written whole in memory before the file is touched.

// Reads the file into the list (adding to what it holds, as the program reads). A malformed file
// throws ToolError with the byte at which reading stopped. Returns the bytes the catalogue took,
// which is less than the file's size when something follows its end marker.
std::uint64_t ReadCatalogueFile(const std::filesystem::path& path, CQvxSezMaterialu& list);

// The catalogue file of a list, as the program writes it.
std::string CatalogueFileBytes(CQvxSezMaterialu& list);
