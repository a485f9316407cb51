#include "Win/SubclassedWindow.h"

#include <unordered_map>

namespace {

// Each window subclassed here: the object that handles its messages, and the procedure that was
// the window's before ours. Kept in the process: the common controls' subclassing asks a window
// property for every message, and reflected notifications ask for the object at every control
// colour and notification, each a round trip to the window server under Wine. Never destroyed, so
// that static control objects may still unsubclass as the process ends.
struct Attachment {
    CSubclassedWindow* object;  // none once it let go while another procedure lay over ours
    WNDPROC previous;
};

std::unordered_map<HWND, Attachment>& Subclassed() {
    static auto* const attachments = new std::unordered_map<HWND, Attachment>;
    return *attachments;
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
    if (window == nullptr) return false;
    auto found = Subclassed().find(window);
    if (found == Subclassed().end()) {
        const auto previous = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&CSubclassedWindow::Procedure)));
        if (previous == nullptr) return false;
        found = Subclassed().emplace(window, Attachment{nullptr, previous}).first;
    }
    found->second.object = this;
    m_hWnd = window;
    subclassed_ = true;
    return true;
}

void CSubclassedWindow::Unsubclass() {
    if (subclassed_) {
        const auto found = Subclassed().find(m_hWnd);
        if (found != Subclassed().end()) {
            if (GetWindowLongPtrW(m_hWnd, GWLP_WNDPROC) == reinterpret_cast<LONG_PTR>(&CSubclassedWindow::Procedure)) {
                SetWindowLongPtrW(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(found->second.previous));
                Subclassed().erase(found);
            } else {
                found->second.object = nullptr;  // ours stays under the later one, passing messages on
            }
        }
    }
    subclassed_ = false;
    m_hWnd = nullptr;
}

CSubclassedWindow* CSubclassedWindow::FromHandle(HWND window) {
    if (window == nullptr) return nullptr;
    const auto found = Subclassed().find(window);
    return found != Subclassed().end() ? found->second.object : nullptr;
}

bool CSubclassedWindow::OnReflected(UINT, WPARAM, LPARAM, LRESULT&) {
    return false;
}

LRESULT CSubclassedWindow::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    return DefaultProc(message, wParam, lParam);
}

LRESULT CSubclassedWindow::DefaultProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto found = Subclassed().find(m_hWnd);
    if (found == Subclassed().end()) return DefWindowProcW(m_hWnd, message, wParam, lParam);
    return CallWindowProcW(found->second.previous, m_hWnd, message, wParam, lParam);
}

LRESULT CALLBACK CSubclassedWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto found = Subclassed().find(window);
    if (found == Subclassed().end()) return DefWindowProcW(window, message, wParam, lParam);
    CSubclassedWindow* const self = found->second.object;
    if (self == nullptr) {
        const WNDPROC previous = found->second.previous;
        if (message == WM_NCDESTROY) Subclassed().erase(found);
        return CallWindowProcW(previous, window, message, wParam, lParam);
    }
    const LRESULT result = self->WindowProc(message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        self->Unsubclass();
        Subclassed().erase(window);
    }
    return result;
}

bool ReflectToChild(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    CSubclassedWindow* control = CSubclassedWindow::FromHandle(NotifyingChild(message, wParam, lParam));
    return control != nullptr && control->OnReflected(message, wParam, lParam, result);
}
