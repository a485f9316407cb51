#pragma once

#include <ostream>
#include <string_view>

class CQvxSezMaterialu;

// The catalogue in a readable form: every material with its fields and a table of its profiles,
// with the labels the editor shows.
void PrintCatalogue(const CQvxSezMaterialu& list, std::string_view title, std::ostream& out);
