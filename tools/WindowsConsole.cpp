#include "WindowsConsole.h"

#include <windows.h>

void UseUtf8Console() {
    SetConsoleOutputCP(CP_UTF8);
}
