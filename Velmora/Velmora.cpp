// The program: the material editor on the user's catalogue. It has no window of its own; the
// process ends when the editor closes.

#include <windows.h>
#include <commctrl.h>

#include "Win/CWin32FileSystem.h"
#include "Win/CWin32RegistryValues.h"
#include "Win/CWin32UserMessages.h"
#include "_Velmora/CQvxSezMaterialu.h"
#include "_Velmora/CatalogueLoading.h"
#include "_Velmora/QxDlgMatEdituj.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    // Every class of the common-controls group that 0xFF names: list and tree views among them.
    INITCOMMONCONTROLSEX controls{sizeof(controls), 0xFF};
    InitCommonControlsEx(&controls);

    CWin32UserMessages messages;
    CUserMessagesScope installedMessages(messages);
    CWin32RegistryValues registry;
    CRegistryValuesScope installedRegistry(registry);
    CWin32FileSystem files;
    CFileSystemScope installedFiles(files);

    CQxDlgMatEdituj editor(nullptr);
    CQvxSezMaterialu list;
    LoadCatalogueAtStartup(list);
    // Every installation kind and every medium; saving happens inside the editor.
    editor.EditMaterials(list, {kPlacementAll, kMediumAll});
    return 0;
}
