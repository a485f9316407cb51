#pragma once

#include <windows.h>

#include <string>
#include <string_view>

// A window handle with the few operations the dialogs use. It does not own the window.
class CWindow {
public:
    CWindow() = default;
    explicit CWindow(HWND window) : m_hWnd(window) {}
    virtual ~CWindow() = default;

    HWND Handle() const { return m_hWnd; }
    explicit operator bool() const { return m_hWnd != nullptr; }

    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    bool Post(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

    std::u16string Text() const;
    void SetText(std::u16string_view text) const;

    HWND Item(int id) const { return GetDlgItem(m_hWnd, id); }
    HWND Parent() const { return GetParent(m_hWnd); }
    int Id() const { return GetDlgCtrlID(m_hWnd); }
    RECT ClientRect() const;
    RECT WindowRect() const;

    bool IsEnabled() const { return IsWindowEnabled(m_hWnd) != FALSE; }
    void Enable(bool enable) const { EnableWindow(m_hWnd, enable); }
    bool IsVisible() const { return IsWindowVisible(m_hWnd) != FALSE; }
    void Show(int command) const { ShowWindow(m_hWnd, command); }
    // Enable or disable, show or hide, leaving a window that already is so untouched: no message,
    // no repaint.
    void SetEnabled(bool enabled) const;
    void SetShown(bool shown) const;
    void Focus() const { SetFocus(m_hWnd); }
    void SetFont(HFONT font, bool redraw = true) const;
    // Invalidates the whole window, background included, for the next paint.
    void Redraw() const;

protected:
    HWND m_hWnd = nullptr;
};
