#include "Win/Dialog.h"

#include "Win/Application.h"
#include "Win/DataExchange.h"
#include "Win/SubclassedWindow.h"

CDialog::CDialog(UINT templateId, HWND parent) : templateId_(templateId), parent_(parent) {}

CDialog::~CDialog() {
    DestroyWindow();
}

INT_PTR CDialog::DoModal() {
    if (!Create()) return -1;
    modal_ = true;
    const bool parentWasEnabled = parent_ != nullptr && IsWindowEnabled(parent_);
    if (parentWasEnabled) EnableWindow(parent_, FALSE);
    ShowWindow(m_hWnd, SW_SHOW);

    MSG message{};
    while (!ended_ && m_hWnd != nullptr) {
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got == 0) {
            PostQuitMessage(static_cast<int>(message.wParam));  // leave WM_QUIT for the outer loop
            break;
        }
        if (got == -1) break;
        ProcessMessage(message);
    }

    if (parentWasEnabled) {
        EnableWindow(parent_, TRUE);
        SetActiveWindow(parent_);
    }
    DestroyWindow();
    modal_ = false;
    return ended_ ? result_ : IDCANCEL;
}

bool CDialog::Create() {
    ended_ = false;
    result_ = 0;
    const HWND window = CreateDialogParamW(ResourceModule(), MAKEINTRESOURCEW(templateId_), parent_,
                                           DialogProc, reinterpret_cast<LPARAM>(this));
    return window != nullptr;
}

void CDialog::DestroyWindow() {
    if (m_hWnd != nullptr) ::DestroyWindow(m_hWnd);
}

void CDialog::EndDialog(INT_PTR result) {
    ended_ = true;
    result_ = result;
    if (!modal_ && m_hWnd != nullptr) ShowWindow(m_hWnd, SW_HIDE);
}

HWND CDialog::Item(int id) const {
    HWND& control = items_[id];
    // A control destroyed since is looked up again.
    if (control == nullptr || !IsWindow(control)) control = GetDlgItem(m_hWnd, id);
    return control;
}

const std::vector<HWND>& CDialog::RadioGroup(int firstId) const {
    std::vector<HWND>& group = radioGroups_[firstId];
    if (!group.empty() && IsWindow(group.front())) return group;
    group.clear();
    HWND control = Item(firstId);
    while (control != nullptr) {
        if ((SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) != 0) group.push_back(control);
        control = GetWindow(control, GW_HWNDNEXT);
        if (control != nullptr && (GetWindowLongW(control, GWL_STYLE) & WS_GROUP) != 0) break;
    }
    return group;
}

bool CDialog::UpdateData(bool saveAndValidate) {
    CDataExchange exchange(*this, saveAndValidate);
    DoDataExchange(exchange);
    return !exchange.Failed();
}

bool CDialog::PreTranslateMessage(MSG&) {
    return false;
}

void CDialog::ProcessMessage(MSG& message) {
    const bool forThisDialog = m_hWnd != nullptr && (message.hwnd == m_hWnd || IsChild(m_hWnd, message.hwnd));
    if (forThisDialog && PreTranslateMessage(message)) return;
    if (forThisDialog && IsDialogMessageW(m_hWnd, &message)) return;
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

BOOL CDialog::OnInitDialog() {
    UpdateData(false);
    return TRUE;
}

void CDialog::OnOK() {
    if (UpdateData(true)) EndDialog(IDOK);
}

void CDialog::OnCancel() {
    EndDialog(IDCANCEL);
}

bool CDialog::OnCommand(WORD, WORD, HWND) {
    return false;
}

bool CDialog::OnNotify(NMHDR&, LRESULT&) {
    return false;
}

bool CDialog::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_INITDIALOG:
            result = OnInitDialog();
            return true;
        case WM_COMMAND: {
            const WORD id = LOWORD(wParam);
            const WORD code = HIWORD(wParam);
            if (id == IDOK && code == BN_CLICKED) {
                OnOK();
                return true;
            }
            if (id == IDCANCEL && code == BN_CLICKED) {
                OnCancel();
                return true;
            }
            return OnCommand(id, code, reinterpret_cast<HWND>(lParam));
        }
        case WM_NOTIFY:
            return OnNotify(*reinterpret_cast<NMHDR*>(lParam), result);
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLORBTN:
        case WM_CTLCOLORDLG: {
            // The colours the default procedure gives, answered here: left unanswered, each of
            // these asks the theming layer first, at every paint of every label, box and button.
            const auto dc = reinterpret_cast<HDC>(wParam);
            SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
            SetBkColor(dc, GetSysColor(COLOR_3DFACE));
            result = reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_3DFACE));
            return true;
        }
        default:
            return false;
    }
}

INT_PTR CDialog::Answer(UINT message, bool handled, LRESULT result) {
    switch (message) {
        // These answer through the procedure's return value; every other one through
        // DWLP_MSGRESULT, with TRUE saying that the message was handled.
        case WM_INITDIALOG:
        case WM_CTLCOLORMSGBOX:
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORLISTBOX:
        case WM_CTLCOLORBTN:
        case WM_CTLCOLORDLG:
        case WM_CTLCOLORSCROLLBAR:
        case WM_CTLCOLORSTATIC:
        case WM_COMPAREITEM:
        case WM_VKEYTOITEM:
        case WM_CHARTOITEM:
        case WM_QUERYDRAGICON:
            return handled ? static_cast<INT_PTR>(result) : FALSE;
        default:
            if (!handled) return FALSE;
            // Setting the answer is a round trip to the window server under Wine: the list views
            // ask for every cell they paint, and nearly every answer is the same.
            if (GetWindowLongPtrW(m_hWnd, DWLP_MSGRESULT) != result) SetWindowLongPtrW(m_hWnd, DWLP_MSGRESULT, result);
            return TRUE;
    }
}

INT_PTR CALLBACK CDialog::DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        auto* dialog = reinterpret_cast<CDialog*>(lParam);
        SetWindowLongPtrW(window, DWLP_USER, lParam);
        dialog->m_hWnd = window;
        dialog->items_.clear();  // an earlier window's controls
        dialog->radioGroups_.clear();
    }
    auto* self = reinterpret_cast<CDialog*>(GetWindowLongPtrW(window, DWLP_USER));
    if (self == nullptr) return FALSE;  // messages before WM_INITDIALOG

    LRESULT result = 0;
    bool handled = ReflectToChild(message, wParam, lParam, result);
    if (!handled) handled = self->HandleMessage(message, wParam, lParam, result);
    const INT_PTR answer = self->Answer(message, handled, result);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, DWLP_USER, 0);
        self->m_hWnd = nullptr;
        self->items_.clear();
        self->radioGroups_.clear();
    }
    return answer;
}
