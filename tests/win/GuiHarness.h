#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

class CDialog;

// Helpers for driving real windows in the Windows suite (under Wine on Linux): message pumping,
// typing and clicking through messages, reading texts, colours and balloons back, screenshots.
namespace gui {

// Handles the pending messages of this thread, through `dialog`'s pre-translation and dialog
// keyboard handling, for at least `milliseconds`.
void Pump(CDialog& dialog, DWORD milliseconds = 0);

// Types each character with WM_CHAR, as the keyboard would after translation.
void Type(HWND window, std::u16string_view characters);
// A key pressed and released (WM_KEYDOWN, WM_KEYUP) without translation to characters.
void PressKey(HWND window, UINT virtualKey);
// Real input through the system's input queue (SendInput), to the foreground window's focus.
void RealKey(UINT virtualKey);
void RealType(std::u16string_view characters);
void RealClick(POINT screenPoint);

// Clicks a button (BM_CLICK).
void Click(HWND button);
// Replaces a window's text (WM_SETTEXT), as pasting or a program would.
void SetText(HWND window, std::u16string_view text);
std::u16string Text(HWND window);

// What an edit shows, read through the parent's answer to WM_CTLCOLOREDIT.
struct EditColours {
    COLORREF background;
    COLORREF text;
    COLORREF brush;
};
EditColours ReadEditColours(HWND parent, HWND edit);

// A visible balloon tooltip of this thread: its text and place. (Its title cannot be read back
// everywhere: Wine does not answer TTM_GETTITLE.)
struct Balloon {
    bool visible = false;
    std::u16string text;
    RECT rect{};
};
std::vector<Balloon> VisibleBalloons();
// The first visible balloon; `visible` is false when there is none.
Balloon FindVisibleBalloon();

// The client area of `window` as `window` paints it for WM_PRINTCLIENT, on white.
class ClientPicture {
public:
    explicit ClientPicture(HWND window);
    ~ClientPicture();
    ClientPicture(const ClientPicture&) = delete;
    ClientPicture& operator=(const ClientPicture&) = delete;

    COLORREF Pixel(int x, int y) const { return GetPixel(dc_, x, y); }
    int Width() const { return width_; }
    int Height() const { return height_; }

private:
    int width_;
    int height_;
    HDC dc_;
    HBITMAP bitmap_;
    HGDIOBJ previous_;
};

// Saves the whole screen as a 24-bit BMP when VELMORA_SCREENSHOT_DIR names a folder (a Linux path
// under Wine is fine); returns the file's path, empty when no folder is set or saving failed.
std::wstring SaveScreenshot(const std::wstring& name);

}  // namespace gui
