#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "_Velmora/CatalogueCsv.h"

// Files of the command-line tool. Paths come as the user typed them (UTF-16). Output is complete or
// absent: it is written as the program saves its catalogue (WriteFileAtomically), without a
// backup. Failures throw ToolError.

std::filesystem::path ToPath(std::u16string_view path);
// The path for messages, in UTF-8.
std::string PathText(const std::filesystem::path& path);

std::string ReadWholeFile(const std::filesystem::path& path);
void WriteWholeFile(const std::filesystem::path& path, std::string_view bytes);

// The two sheets of a CSV folder (materialy.csv, profily.csv).
CatalogueCsvSheets ReadCsvFolder(const std::filesystem::path& folder);
// Writes both sheets into the folder, which is made when missing.
void WriteCsvFolder(const std::filesystem::path& folder, const CatalogueCsvSheets& sheets);
