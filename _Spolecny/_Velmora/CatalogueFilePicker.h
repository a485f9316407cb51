#pragma once

#include <windows.h>

#include <optional>
#include <string>

// Asks the user for a catalogue file to read: the shell's file-open dialog titled "Vyhledej soubor
// pro načtení katalogu potrubí", in the common data folder, showing only "Katalogy potrubí"
// (*.qxp). Where the shell dialog cannot be made, the common file dialog asks the same. None when
// the user cancels or no file-system path can be had.
std::optional<std::u16string> PickCatalogueFile(HWND owner);
