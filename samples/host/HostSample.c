/* A host program: the user picks a material for water pipes and one of its profiles, and the
   program says what was picked. Built with include/velmora.h and linked with velmora.dll. */
#include <windows.h>
#include <wchar.h>

#include "velmora.h"

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE previous, PWSTR commandLine, int show) {
    (void)instance;
    (void)previous;
    (void)commandLine;
    (void)show;

    VelmoraCatalogue* catalogue = VelmoraOpenCatalogue();
    if (catalogue == NULL) return 2;

    wchar_t name[VELMORA_NAME_SIZE];
    int dnIndex = VELMORA_NO_PROFILE;
    const int result = VelmoraSelectMaterial(catalogue, NULL, VELMORA_PLACEMENT_ALL, VELMORA_MEDIUM_WATER, 1, name,
                                             VELMORA_NAME_SIZE, &dnIndex);
    if (result == VELMORA_OK) {
        wchar_t text[80];
        swprintf(text, 80, L"Materiál: %ls\nIndex DN: %d", name, dnIndex);
        MessageBoxW(NULL, text, L"Vybraný materiál", MB_OK | MB_ICONINFORMATION);
    }
    VelmoraCloseCatalogue(catalogue);
    return result == VELMORA_OK ? 0 : 1;
}
