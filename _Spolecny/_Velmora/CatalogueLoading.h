#pragma once

#include <string>
#include <string_view>

class CArchiveException;
class CQvxSezMaterialu;

// Reading catalogue files into a list where the user asked for it, each failure told to the user.

// Reads the catalogue when the program starts: the user's catalogue, or on first run the standard
// one, which then becomes the user's (CQvxSezMaterialu::LoadCatalogue). A malformed file does not
// end the program: the user is told which file breaks and at which byte, and the list keeps the
// materials read before the fault, marked unchanged, so the file is replaced only when the user
// saves a change.
void LoadCatalogueAtStartup(CQvxSezMaterialu& list);

// Merges the catalogue file at `path` into `list` (the overwrite questions are the list's). A file
// that does not open is told as "Nelze otevřít soubor" and its path; a malformed one with the byte
// where it breaks; a newer one with the list's own failure. What was read before a failure stays.
// True when the whole file was read.
bool MergeCatalogueFile(CQvxSezMaterialu& list, std::u16string_view path);

// Merges the standard catalogue into `list` (CQvxSezMaterialu::LoadCatalogue(true)), a malformed
// one told as above. True when it was read.
bool MergeStandardCatalogue(CQvxSezMaterialu& list);

// The first lines of the malformed-file message: what is wrong, the file, the byte.
std::u16string DamagedCatalogueText(std::u16string_view path, const CArchiveException& failure);
