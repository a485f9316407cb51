#include "Win/LateBound.h"

FARPROC LateBoundAddress(const wchar_t* library, const char* name) {
    // From the system folder only, never from the program's or the current folder. A library once
    // loaded stays for the life of the process.
    const HMODULE module = LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    return module != nullptr ? GetProcAddress(module, name) : nullptr;
}
