#pragma once

#include <windows.h>
#include <uxtheme.h>

// What every tree-list control of the process shares: a dotted pen, three cursors and an 8 by 8
// pattern brush, made by the first control and freed by the last, and the theme functions of
// UxTheme.dll, loaded once by name. Each theme function may be missing: test before use.
struct ThemeFunctions {
    HRESULT(WINAPI* setWindowTheme)(HWND, LPCWSTR, LPCWSTR) = nullptr;
    HRESULT(WINAPI* endBufferedPaint)(HPAINTBUFFER, BOOL) = nullptr;
    HPAINTBUFFER(WINAPI* beginBufferedPaint)(HDC, const RECT*, BP_BUFFERFORMAT, BP_PAINTPARAMS*, HDC*) = nullptr;
    HRESULT(WINAPI* bufferedPaintInit)() = nullptr;
    HRESULT(WINAPI* bufferedPaintUnInit)() = nullptr;
    HTHEME(WINAPI* openThemeData)(HWND, LPCWSTR) = nullptr;
    HRESULT(WINAPI* closeThemeData)(HTHEME) = nullptr;
    HRESULT(WINAPI* drawThemeBackground)(HTHEME, HDC, int, int, const RECT*, const RECT*) = nullptr;
    HRESULT(WINAPI* getThemePartSize)(HTHEME, HDC, int, int, const RECT*, THEMESIZE, SIZE*) = nullptr;
    HRESULT(WINAPI* getThemeBackgroundContentRect)(HTHEME, HDC, int, int, const RECT*, RECT*) = nullptr;
};

class TreeListResources {
public:
    // A control is made or destroyed: the first one creates the set, the last one frees it.
    static void Acquire();
    static void Release();

    static HPEN DottedPen();
    static HBRUSH PatternBrush();
    static HCURSOR ArrowCursor();
    static HCURSOR HandCursor();
    static HCURSOR NoEntryCursor();
    static const ThemeFunctions& Theme();
    // How many controls share the set now (the counter starts at -1 with none).
    static int Users();
};
