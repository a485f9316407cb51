#pragma once

#include <string>
#include <string_view>

class CArchiveException;
class CQvxSezMaterialu;

// Reads the catalogue when the program starts: the user's catalogue, or on first run the standard
// one, which then becomes the user's (CQvxSezMaterialu::LoadCatalogue). A malformed file does not
// end the program: the user is told which file breaks and at which byte, and the list keeps the
// materials read before the fault, marked unchanged, so the file is replaced only when the user
// saves a change.
void LoadCatalogueAtStartup(CQvxSezMaterialu& list);

// The text of that message.
std::u16string DamagedCatalogueText(std::u16string_view path, const CArchiveException& failure);
