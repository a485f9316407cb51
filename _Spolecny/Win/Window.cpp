#include "Win/Window.h"

#include <vector>

#include "Win/WideText.h"

LRESULT CWindow::Send(UINT message, WPARAM wParam, LPARAM lParam) const {
    return SendMessageW(m_hWnd, message, wParam, lParam);
}

bool CWindow::Post(UINT message, WPARAM wParam, LPARAM lParam) const {
    return PostMessageW(m_hWnd, message, wParam, lParam) != FALSE;
}

std::u16string CWindow::Text() const {
    const int length = GetWindowTextLengthW(m_hWnd);
    if (length <= 0) return {};
    std::vector<wchar_t> buffer(static_cast<std::size_t>(length) + 1);
    const int copied = GetWindowTextW(m_hWnd, buffer.data(), static_cast<int>(buffer.size()));
    return FromWide(std::wstring_view(buffer.data(), static_cast<std::size_t>(copied > 0 ? copied : 0)));
}

void CWindow::SetText(std::u16string_view text) const {
    SetWindowTextW(m_hWnd, Wide(std::u16string(text)));
}

RECT CWindow::ClientRect() const {
    RECT rect{};
    GetClientRect(m_hWnd, &rect);
    return rect;
}

RECT CWindow::WindowRect() const {
    RECT rect{};
    GetWindowRect(m_hWnd, &rect);
    return rect;
}

void CWindow::SetEnabled(bool enabled) const {
    if (IsEnabled() != enabled) Enable(enabled);
}

void CWindow::SetShown(bool shown) const {
    // The window's own style: IsWindowVisible also asks its parents.
    const bool visible = (GetWindowLongW(m_hWnd, GWL_STYLE) & WS_VISIBLE) != 0;
    if (visible != shown) Show(shown ? SW_SHOW : SW_HIDE);
}

void CWindow::SetFont(HFONT font, bool redraw) const {
    Send(WM_SETFONT, reinterpret_cast<WPARAM>(font), MAKELPARAM(redraw ? TRUE : FALSE, 0));
}

void CWindow::Redraw() const {
    RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE);
}
