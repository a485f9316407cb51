#include <windows.h>
#include <commctrl.h>

#include "Win/CWin32UserMessages.h"

// The material editor is not built yet: the program introduces itself and ends.
int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_WIN95_CLASSES};
    InitCommonControlsEx(&controls);

    CWin32UserMessages messages;
    CUserMessagesScope installed(messages);
    MessageBoxW(nullptr, L"Editor katalogu materiálů potrubí se připravuje.\nKatalog zatím zpracujte nástrojem velmora-katalog.",
                L"Materiály potrubí", MB_OK | MB_ICONINFORMATION);
    return 0;
}
