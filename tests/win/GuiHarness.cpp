#include "win/GuiHarness.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>

#include "Win/Dialog.h"

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

// A 32-bit picture stored from its top row down.
BITMAPINFOHEADER PictureHeader(int width, int height) {
    return {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
}
// What `paint` draws on a white bitmap of the screen's kind.
std::vector<RGBQUAD> Picture(int width, int height, const std::function<void(HDC)>& paint) {
    const HDC screen = GetDC(nullptr);
    const HDC dc = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
    const HGDIOBJ previous = SelectObject(dc, bitmap);
    PatBlt(dc, 0, 0, width, height, WHITENESS);
    paint(dc);
    SelectObject(dc, previous);
    std::vector<RGBQUAD> pixels(static_cast<std::size_t>(width * height));
    BITMAPINFOHEADER header = PictureHeader(width, height);
    GetDIBits(dc, bitmap, 0, static_cast<UINT>(height), pixels.data(), reinterpret_cast<BITMAPINFO*>(&header),
              DIB_RGB_COLORS);
    DeleteObject(bitmap);
    DeleteDC(dc);
    ReleaseDC(nullptr, screen);
    return pixels;
}

BOOL CALLBACK CollectBalloon(HWND window, LPARAM found) {
    wchar_t className[64] = {};
    GetClassNameW(window, className, 64);
    const bool balloon = (GetWindowLongW(window, GWL_STYLE) & TTS_BALLOON) != 0;
    if (lstrcmpiW(className, TOOLTIPS_CLASSW) != 0 || !IsWindowVisible(window) || !balloon) return TRUE;
    Balloon shown{true, Text(window), {}};
    GetWindowRect(window, &shown.rect);
    reinterpret_cast<std::vector<Balloon>*>(found)->push_back(shown);
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

void PressKey(HWND window, UINT virtualKey) {
    const LPARAM scanCode = static_cast<LPARAM>(MapVirtualKeyW(virtualKey, MAPVK_VK_TO_VSC)) << 16;
    SendMessageW(window, WM_KEYDOWN, virtualKey, scanCode | 1);
    SendMessageW(window, WM_KEYUP, virtualKey, scanCode | 1 | (LPARAM{3} << 30));
}

void RealType(std::u16string_view characters) {
    for (const char16_t character : characters) {
        INPUT keys[2] = {};
        keys[0].type = keys[1].type = INPUT_KEYBOARD;
        keys[0].ki = {0, character, KEYEVENTF_UNICODE, 0, 0};
        keys[1].ki = {0, character, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP, 0, 0};
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

ClientPicture::ClientPicture(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    width = client.right;
    height = client.bottom;
    for (const RGBQUAD pixel : Picture(width, height, [window](HDC dc) {
             SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
         })) {
        pixels.push_back(RGB(pixel.rgbRed, pixel.rgbGreen, pixel.rgbBlue));
    }
}

std::wstring SaveScreenshot(const std::wstring& name) {
    wchar_t folder[MAX_PATH] = {};
    if (GetEnvironmentVariableW(L"VELMORA_SCREENSHOT_DIR", folder, MAX_PATH) == 0) return {};
    // A dialog that a watcher thread has just found may not have painted itself yet: paint every
    // window of the program first (across threads the paint is sent and waited for).
    EnumWindows(
        [](HWND window, LPARAM) {
            DWORD process = 0;
            GetWindowThreadProcessId(window, &process);
            if (process == GetCurrentProcessId() && IsWindowVisible(window)) {
                RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
            }
            return TRUE;
        },
        0);
    const int width = GetSystemMetrics(SM_CXSCREEN);
    const int height = GetSystemMetrics(SM_CYSCREEN);
    std::vector<RGBQUAD> pixels = Picture(width, height, [&](HDC dc) {
        const HDC screen = GetDC(nullptr);
        BitBlt(dc, 0, 0, width, height, screen, 0, 0, SRCCOPY);
        ReleaseDC(nullptr, screen);
    });
    for (RGBQUAD& pixel : pixels) pixel.rgbReserved = 0xFF;  // opaque for viewers that read the fourth byte
    const BITMAPINFOHEADER header = PictureHeader(width, height);
    const auto imageSize = static_cast<DWORD>(pixels.size() * sizeof(RGBQUAD));
    constexpr DWORD kOffset = sizeof(BITMAPFILEHEADER) + sizeof(BITMAPINFOHEADER);
    const BITMAPFILEHEADER file{0x4D42, kOffset + imageSize, 0, 0, kOffset};  // "BM"
    // Under Wine a Linux folder is reached through drive Z:.
    const std::wstring path = (folder[0] == L'/' ? L"Z:" : L"") + std::wstring(folder) + L"\\" + name + L".bmp";
    std::ofstream out(std::filesystem::path(path), std::ios::binary);
    out.write(reinterpret_cast<const char*>(&file), sizeof(file))
        .write(reinterpret_cast<const char*>(&header), sizeof(header));
    return out.write(reinterpret_cast<const char*>(pixels.data()), imageSize) ? path : std::wstring();
}

}  // namespace gui
