#include "Dialogs/TreeListResources.h"

#include <atomic>

namespace {

std::atomic<int> users{-1};
HPEN dottedPen = nullptr;
// Kept after it is freed, deliberately: it is then not made again for later controls.
HBRUSH patternBrush = nullptr;
HCURSOR arrowCursor = nullptr;
HCURSOR handCursor = nullptr;
HCURSOR noEntryCursor = nullptr;
ThemeFunctions theme;
bool themeLoaded = false;

template <typename Function>
void Take(HMODULE library, const char* name, Function& function) {
    // Through the generic function pointer type, which converts to any other without warnings.
    function = reinterpret_cast<Function>(reinterpret_cast<void (*)()>(GetProcAddress(library, name)));
}

void LoadTheme() {
    if (themeLoaded) return;
    themeLoaded = true;
    const HMODULE library = LoadLibraryW(L"UxTheme.dll");  // stays loaded for the process
    if (library == nullptr) return;
    Take(library, "SetWindowTheme", theme.setWindowTheme);
    Take(library, "EndBufferedPaint", theme.endBufferedPaint);
    Take(library, "BeginBufferedPaint", theme.beginBufferedPaint);
    Take(library, "BufferedPaintInit", theme.bufferedPaintInit);
    Take(library, "BufferedPaintUnInit", theme.bufferedPaintUnInit);
    Take(library, "OpenThemeData", theme.openThemeData);
    Take(library, "CloseThemeData", theme.closeThemeData);
    Take(library, "DrawThemeBackground", theme.drawThemeBackground);
    Take(library, "GetThemePartSize", theme.getThemePartSize);
    Take(library, "GetThemeBackgroundContentRect", theme.getThemeBackgroundContentRect);
}

void CreateSet() {
    LOGBRUSH shadow{BS_SOLID, GetSysColor(COLOR_BTNSHADOW), 0};
    dottedPen = ExtCreatePen(PS_COSMETIC | PS_ALTERNATE, 1, &shadow, 0, nullptr);
    if (dottedPen == nullptr) dottedPen = CreatePen(PS_DOT, 1, RGB(0, 0, 0));
    arrowCursor = LoadCursorW(nullptr, IDC_ARROW);
    handCursor = LoadCursorW(nullptr, IDC_HAND);
    noEntryCursor = LoadCursorW(nullptr, IDC_NO);
    if (patternBrush == nullptr) {
        static const WORD rows[8] = {0x55, 0xAA, 0x55, 0xAA, 0x55, 0xAA, 0x55, 0xAA};
        const HBITMAP pattern = CreateBitmap(8, 8, 1, 1, rows);
        patternBrush = CreatePatternBrush(pattern);
        DeleteObject(pattern);
    }
    LoadTheme();
    if (theme.bufferedPaintInit != nullptr) theme.bufferedPaintInit();
}

void FreeSet() {
    DeleteObject(dottedPen);
    dottedPen = nullptr;
    DeleteObject(patternBrush);
    if (theme.bufferedPaintUnInit != nullptr) theme.bufferedPaintUnInit();
}

}  // namespace

void TreeListResources::Acquire() {
    if (++users == 0) CreateSet();
}

void TreeListResources::Release() {
    if (--users < 0) FreeSet();
}

HPEN TreeListResources::DottedPen() {
    return dottedPen;
}
HBRUSH TreeListResources::PatternBrush() {
    return patternBrush;
}
HCURSOR TreeListResources::ArrowCursor() {
    return arrowCursor;
}
HCURSOR TreeListResources::HandCursor() {
    return handCursor;
}
HCURSOR TreeListResources::NoEntryCursor() {
    return noEntryCursor;
}
const ThemeFunctions& TreeListResources::Theme() {
    return theme;
}
int TreeListResources::Users() {
    return users;
}
