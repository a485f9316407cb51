#pragma once

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "Win/WideText.h"

class CDialog;

// Helpers for driving real windows in the Windows suite (under Wine on Linux): message pumping,
// typing and clicking through messages, reading texts, colours and balloons back, screenshots.
namespace gui {

// Handles the pending messages of this thread, through `dialog`'s pre-translation and dialog
// keyboard handling, for at least `milliseconds`.
void Pump(CDialog& dialog, DWORD milliseconds = 0);

// Types each character with WM_CHAR, as the keyboard would after translation.
inline void Type(HWND window, std::u16string_view characters) {
    for (const char16_t character : characters) SendMessageW(window, WM_CHAR, character, 1);
}
// A key pressed and released (WM_KEYDOWN, WM_KEYUP) without translation to characters.
void PressKey(HWND window, UINT virtualKey);
// Real input through the system's input queue (SendInput), to the foreground window's focus.
void RealType(std::u16string_view characters);
void RealClick(POINT screenPoint);

inline void Click(HWND button) {
    SendMessageW(button, BM_CLICK, 0, 0);
}
// Replaces a window's text (WM_SETTEXT), as pasting or a program would.
inline void SetText(HWND window, std::u16string_view text) {
    SendMessageW(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(Wide(std::u16string(text))));
}
inline std::u16string Text(HWND window) {
    std::vector<wchar_t> buffer(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1);
    GetWindowTextW(window, buffer.data(), static_cast<int>(buffer.size()));
    return FromWide(buffer.data());
}

// The texts of a list view's first column, row by row (also from another thread).
inline std::vector<std::u16string> ListTexts(HWND list) {
    std::vector<std::u16string> texts;
    for (int row = 0; row < ListView_GetItemCount(list); ++row) {
        wchar_t text[64] = {};
        ListView_GetItemText(list, row, 0, text, 64);
        texts.push_back(FromWide(text));
    }
    return texts;
}
// Selects and focuses the row showing `text`, as a click on it does; false when no row shows it.
inline bool SelectRow(HWND list, std::u16string_view text) {
    const std::vector<std::u16string> texts = ListTexts(list);
    const auto row = static_cast<int>(std::find(texts.begin(), texts.end(), text) - texts.begin());
    if (row == static_cast<int>(texts.size())) return false;
    ListView_SetItemState(list, row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    ListView_SetSelectionMark(list, row);
    return true;
}

// What an edit shows, read through the parent's answer to WM_CTLCOLOREDIT.
struct EditColours {
    COLORREF background;
    COLORREF text;
    COLORREF brush;
};
EditColours ReadEditColours(HWND parent, HWND edit);

// The visible balloon tooltips of this thread: text and place. (Their titles cannot be read back
// everywhere: Wine does not answer TTM_GETTITLE.)
struct Balloon {
    bool visible = false;
    std::u16string text;
    RECT rect{};
};
std::vector<Balloon> VisibleBalloons();
// The first visible balloon; `visible` is false when there is none.
inline Balloon FindVisibleBalloon() {
    const std::vector<Balloon> balloons = VisibleBalloons();
    return balloons.empty() ? Balloon{} : balloons.front();
}

// The client area of `window` as `window` paints it for WM_PRINTCLIENT, on white.
struct ClientPicture {
    explicit ClientPicture(HWND window);
    COLORREF Pixel(int x, int y) const { return pixels[static_cast<std::size_t>(y * width + x)]; }

    int width = 0;
    int height = 0;
    std::vector<COLORREF> pixels;
};

// Saves the whole screen as a BMP file when VELMORA_SCREENSHOT_DIR names a folder (a Linux path
// under Wine is fine); returns the file's path, empty when no folder is set or saving failed.
std::wstring SaveScreenshot(const std::wstring& name);

}  // namespace gui
