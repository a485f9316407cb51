#include "win/GuiHarness.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <vector>

#include "Win/Dialog.h"
#include "Win/WideText.h"

namespace gui {

namespace {

// The common controls (tooltips, list views) are registered once for the whole suite.
class CommonControls : public ::testing::Environment {
public:
    void SetUp() override {
        INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
        ASSERT_TRUE(InitCommonControlsEx(&controls));
    }
};
[[maybe_unused]] ::testing::Environment* const commonControls = ::testing::AddGlobalTestEnvironment(new CommonControls);

BOOL CALLBACK CollectBalloon(HWND window, LPARAM found) {
    wchar_t className[64] = {};
    GetClassNameW(window, className, 64);
    if (lstrcmpiW(className, TOOLTIPS_CLASSW) != 0 || !IsWindowVisible(window)) return TRUE;
    if ((GetWindowLongW(window, GWL_STYLE) & TTS_BALLOON) == 0) return TRUE;

    Balloon balloon{true, Text(window), {}};
    GetWindowRect(window, &balloon.rect);
    reinterpret_cast<std::vector<Balloon>*>(found)->push_back(balloon);
    return TRUE;
}

}  // namespace

void Pump(CDialog& dialog, DWORD milliseconds) {
    const DWORD start = GetTickCount();
    do {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) dialog.ProcessMessage(message);
        if (milliseconds > 0) Sleep(10);
    } while (GetTickCount() - start < milliseconds);
}

void Type(HWND window, std::u16string_view characters) {
    for (const char16_t character : characters) SendMessageW(window, WM_CHAR, character, 1);
}

void PressKey(HWND window, UINT virtualKey) {
    const LPARAM scanCode = static_cast<LPARAM>(MapVirtualKeyW(virtualKey, MAPVK_VK_TO_VSC)) << 16;
    SendMessageW(window, WM_KEYDOWN, virtualKey, scanCode | 1);
    SendMessageW(window, WM_KEYUP, virtualKey, scanCode | 1 | (LPARAM{3} << 30));
}

void RealKey(UINT virtualKey) {
    INPUT keys[2] = {};
    keys[0].type = keys[1].type = INPUT_KEYBOARD;
    keys[0].ki.wVk = keys[1].ki.wVk = static_cast<WORD>(virtualKey);
    keys[1].ki.dwFlags = KEYEVENTF_KEYUP;
    SendInput(2, keys, sizeof(INPUT));
}

void RealType(std::u16string_view characters) {
    for (const char16_t character : characters) {
        INPUT keys[2] = {};
        keys[0].type = keys[1].type = INPUT_KEYBOARD;
        keys[0].ki.wScan = keys[1].ki.wScan = character;
        keys[0].ki.dwFlags = KEYEVENTF_UNICODE;
        keys[1].ki.dwFlags = KEYEVENTF_UNICODE | KEYEVENTF_KEYUP;
        SendInput(2, keys, sizeof(INPUT));
    }
}

void RealClick(POINT screenPoint) {
    SetCursorPos(screenPoint.x, screenPoint.y);
    INPUT clicks[2] = {};
    clicks[0].type = clicks[1].type = INPUT_MOUSE;
    clicks[0].mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
    clicks[1].mi.dwFlags = MOUSEEVENTF_LEFTUP;
    SendInput(2, clicks, sizeof(INPUT));
}

void Click(HWND button) {
    SendMessageW(button, BM_CLICK, 0, 0);
}

void SetText(HWND window, std::u16string_view text) {
    const std::u16string copy(text);
    SendMessageW(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(Wide(copy)));
}

std::u16string Text(HWND window) {
    std::vector<wchar_t> buffer(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1);
    GetWindowTextW(window, buffer.data(), static_cast<int>(buffer.size()));
    return FromWide(buffer.data());
}

EditColours ReadEditColours(HWND parent, HWND edit) {
    const HDC dc = CreateCompatibleDC(nullptr);
    constexpr COLORREF kUntouched = RGB(1, 2, 3);
    SetBkColor(dc, kUntouched);
    SetTextColor(dc, kUntouched);
    const auto brush = reinterpret_cast<HBRUSH>(
        SendMessageW(parent, WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(dc), reinterpret_cast<LPARAM>(edit)));
    LOGBRUSH description{};
    const bool hasBrush = brush != nullptr && GetObjectW(brush, sizeof(description), &description) != 0;
    EditColours colours{GetBkColor(dc), GetTextColor(dc), hasBrush ? description.lbColor : CLR_INVALID};
    DeleteDC(dc);
    return colours;
}

std::vector<Balloon> VisibleBalloons() {
    std::vector<Balloon> balloons;
    EnumThreadWindows(GetCurrentThreadId(), CollectBalloon, reinterpret_cast<LPARAM>(&balloons));
    return balloons;
}

Balloon FindVisibleBalloon() {
    const std::vector<Balloon> balloons = VisibleBalloons();
    return balloons.empty() ? Balloon{} : balloons.front();
}

ClientPicture::ClientPicture(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    width_ = client.right;
    height_ = client.bottom;
    const HDC screen = GetDC(nullptr);
    dc_ = CreateCompatibleDC(screen);
    bitmap_ = CreateCompatibleBitmap(screen, width_, height_);
    ReleaseDC(nullptr, screen);
    previous_ = SelectObject(dc_, bitmap_);
    PatBlt(dc_, 0, 0, width_, height_, WHITENESS);
    SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc_), PRF_CLIENT);
}

ClientPicture::~ClientPicture() {
    SelectObject(dc_, previous_);
    DeleteObject(bitmap_);
    DeleteDC(dc_);
}

std::wstring SaveScreenshot(const std::wstring& name) {
    wchar_t folder[MAX_PATH] = {};
    if (GetEnvironmentVariableW(L"VELMORA_SCREENSHOT_DIR", folder, MAX_PATH) == 0) return {};

    const int width = GetSystemMetrics(SM_CXSCREEN);
    const int height = GetSystemMetrics(SM_CYSCREEN);
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, height, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ previous = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, width, height, screen, 0, 0, SRCCOPY);
    GdiFlush();

    const DWORD stride = static_cast<DWORD>((width * 3 + 3) & ~3);
    const DWORD imageSize = stride * static_cast<DWORD>(height);
    BITMAPFILEHEADER file{};
    file.bfType = 0x4D42;  // "BM"
    file.bfOffBits = sizeof(BITMAPFILEHEADER) + sizeof(BITMAPINFOHEADER);
    file.bfSize = file.bfOffBits + imageSize;

    // Under Wine a Linux folder is reached through drive Z:.
    const std::wstring base = folder[0] == L'/' ? L"Z:" + std::wstring(folder) : std::wstring(folder);
    const std::wstring path = base + L"\\" + name + L".bmp";
    bool saved = false;
    if (FILE* out = _wfopen(path.c_str(), L"wb")) {
        saved = fwrite(&file, sizeof(file), 1, out) == 1 &&
                fwrite(&info.bmiHeader, sizeof(BITMAPINFOHEADER), 1, out) == 1 && fwrite(bits, imageSize, 1, out) == 1;
        fclose(out);
    }
    SelectObject(memory, previous);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return saved ? path : std::wstring();
}

}  // namespace gui
