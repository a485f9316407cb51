#pragma once

#include <windows.h>

// Functions of system libraries that only a command needs (the file picker, the help): the
// library is loaded on the command's first use rather than with the program, which would pay for
// it, and for the libraries it brings, at every start.

// The address of `name` in the system library `library`; null when either cannot be had.
FARPROC LateBoundAddress(const wchar_t* library, const char* name);

// The same address typed as the function, e.g. LateBound<decltype(ShellExecuteW)>(L"shell32.dll",
// "ShellExecuteW").
template <typename Function>
Function* LateBound(const wchar_t* library, const char* name) {
    // Through the generic function pointer type, which converts to any other without a warning.
    return reinterpret_cast<Function*>(reinterpret_cast<void (*)()>(LateBoundAddress(library, name)));
}
