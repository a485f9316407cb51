#pragma once

#include <cstddef>
#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

class CQvxSezMaterialu;

// What reading a second catalogue into a list did to it.
struct MergeReport {
    std::size_t added = 0;                    // materials new to the list
    std::vector<std::u16string> overwritten;  // differing materials that took the incoming fields
    std::vector<std::u16string> kept;         // differing materials that kept their own fields
};

// Reads the catalogue file into the list as the program merges a file: a material already in the
// list that differs gets the incoming material's missing profiles, and its fields when `overwrite`
// is set. The program's questions are answered without asking; messages it would show go to `err`.
// Throws ToolError on a malformed file.
MergeReport MergeCatalogueFile(const std::filesystem::path& path, CQvxSezMaterialu& list, bool overwrite,
                               std::ostream& err);
