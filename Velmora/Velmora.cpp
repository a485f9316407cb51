// The program: the material editor on the user's catalogue. It has no window of its own; the
// process ends when the editor closes.

#include <windows.h>

#include "Win/Win32Services.h"
#include "_Velmora/CQvxSezMaterialu.h"
#include "_Velmora/CatalogueLoading.h"
#include "_Velmora/QxDlgMatEdituj.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    CWin32Services services;
    CQxDlgMatEdituj editor(nullptr);
    CQvxSezMaterialu list;
    LoadCatalogueAtStartup(list);
    // Every installation kind and every medium; saving happens inside the editor.
    editor.EditMaterials(list, {kPlacementAll, kMediumAll});
    return 0;
}
