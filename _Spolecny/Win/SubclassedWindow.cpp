#include "Win/SubclassedWindow.h"

#include <commctrl.h>

#include <unordered_map>

namespace {

constexpr UINT_PTR kSubclassId = 0x5645;  // one subclass of ours per window

// The object that subclasses each window, for reflected notifications. Kept in the process rather
// than as a window property: every control colour and notification a dialog gets asks for it, and
// a property is a round trip to the window server under Wine. Never destroyed, so that static
// control objects may still unsubclass as the process ends.
std::unordered_map<HWND, CSubclassedWindow*>& Subclassed() {
    static auto* const objects = new std::unordered_map<HWND, CSubclassedWindow*>;
    return *objects;
}

HWND NotifyingChild(UINT message, WPARAM, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLORBTN:
        case WM_CTLCOLORLISTBOX:
            return reinterpret_cast<HWND>(lParam);
        case WM_NOTIFY:
            return reinterpret_cast<const NMHDR*>(lParam)->hwndFrom;
        default:
            return nullptr;
    }
}

}  // namespace

CSubclassedWindow::~CSubclassedWindow() {
    Unsubclass();
}

bool CSubclassedWindow::Subclass(HWND window) {
    Unsubclass();
    if (window == nullptr || !SetWindowSubclass(window, SubclassProc, kSubclassId, reinterpret_cast<DWORD_PTR>(this))) {
        return false;
    }
    Subclassed()[window] = this;
    m_hWnd = window;
    subclassed_ = true;
    return true;
}

void CSubclassedWindow::Unsubclass() {
    if (subclassed_) {
        Subclassed().erase(m_hWnd);
        RemoveWindowSubclass(m_hWnd, SubclassProc, kSubclassId);
    }
    subclassed_ = false;
    m_hWnd = nullptr;
}

CSubclassedWindow* CSubclassedWindow::FromHandle(HWND window) {
    if (window == nullptr) return nullptr;
    const auto found = Subclassed().find(window);
    return found != Subclassed().end() ? found->second : nullptr;
}

bool CSubclassedWindow::OnReflected(UINT, WPARAM, LPARAM, LRESULT&) {
    return false;
}

LRESULT CSubclassedWindow::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    return DefaultProc(message, wParam, lParam);
}

LRESULT CSubclassedWindow::DefaultProc(UINT message, WPARAM wParam, LPARAM lParam) {
    return DefSubclassProc(m_hWnd, message, wParam, lParam);
}

LRESULT CALLBACK CSubclassedWindow::SubclassProc(HWND, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                                 DWORD_PTR object) {
    auto* self = reinterpret_cast<CSubclassedWindow*>(object);
    const LRESULT result = self->WindowProc(message, wParam, lParam);
    if (message == WM_NCDESTROY) self->Unsubclass();
    return result;
}

bool ReflectToChild(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    CSubclassedWindow* control = CSubclassedWindow::FromHandle(NotifyingChild(message, wParam, lParam));
    return control != nullptr && control->OnReflected(message, wParam, lParam, result);
}
