#include "Win/Controls.h"

#include <vector>

#include "Win/WideText.h"

namespace {

constexpr UINT_PTR kTrackingToolId = 1;

TTTOOLINFOW TrackingTool(HWND owner, std::u16string& text) {
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof(tool);
    tool.uFlags = TTF_TRACK | TTF_ABSOLUTE;
    tool.hwnd = owner;
    tool.uId = kTrackingToolId;
    tool.lpszText = const_cast<wchar_t*>(Wide(text));
    return tool;
}

}  // namespace

void CEdit::GetSel(int& start, int& end) const {
    DWORD first = 0;
    DWORD last = 0;
    Send(EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&last));
    start = static_cast<int>(first);
    end = static_cast<int>(last);
}

bool CEdit::ShowBalloonTip(std::u16string_view title, std::u16string_view text, INT icon) const {
    const std::u16string titleText(title);
    const std::u16string bodyText(text);
    EDITBALLOONTIP balloon{};
    balloon.cbStruct = sizeof(balloon);
    balloon.pszTitle = Wide(titleText);
    balloon.pszText = Wide(bodyText);
    balloon.ttiIcon = icon;
    return Send(EM_SHOWBALLOONTIP, 0, reinterpret_cast<LPARAM>(&balloon)) != 0;
}

void SetButtonCheck(HWND button, int state) {
    const auto style = static_cast<DWORD>(GetWindowLongW(button, GWL_STYLE));
    const DWORD kind = style & BS_TYPEMASK;
    const bool radio = kind == BS_RADIOBUTTON || kind == BS_AUTORADIOBUTTON;
    const bool tabStopRight = !radio || ((style & WS_TABSTOP) != 0) == (state != BST_UNCHECKED);
    if (SendMessageW(button, BM_GETCHECK, 0, 0) == state && tabStopRight) return;
    const bool alone = kind == BS_AUTORADIOBUTTON && state == BST_CHECKED;
    if (alone) SendMessageW(button, BM_SETSTYLE, (style & 0xFFFF & ~BS_TYPEMASK) | BS_RADIOBUTTON, FALSE);
    SendMessageW(button, BM_SETCHECK, static_cast<WPARAM>(state), 0);
    if (alone) SendMessageW(button, BM_SETSTYLE, (style & 0xFFFF & ~BS_TYPEMASK) | BS_AUTORADIOBUTTON, FALSE);
}

int CComboBox::AddString(std::u16string_view text) const {
    const std::u16string item(text);
    return static_cast<int>(Send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(item))));
}

std::u16string CComboBox::GetLBText(int index) const {
    const LRESULT length = Send(CB_GETLBTEXTLEN, static_cast<WPARAM>(index));
    if (length == CB_ERR) return {};
    std::vector<wchar_t> buffer(static_cast<std::size_t>(length) + 1);
    Send(CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(buffer.data()));
    return FromWide(buffer.data());
}

int CListView::InsertColumn(int index, std::u16string_view caption, int width, int format) const {
    std::u16string text(caption);
    LVCOLUMNW column{};
    column.mask = LVCF_FMT | LVCF_WIDTH | LVCF_TEXT;
    column.fmt = format;
    column.cx = width;
    column.pszText = const_cast<wchar_t*>(Wide(text));
    return static_cast<int>(Send(LVM_INSERTCOLUMNW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&column)));
}

int CListView::GetNextItem(int start, UINT flags) const {
    return static_cast<int>(Send(LVM_GETNEXTITEM, static_cast<WPARAM>(start), MAKELPARAM(flags, 0)));
}

void CListView::SetItemState(int index, UINT state, UINT mask) const {
    LVITEMW item{};
    item.state = state;
    item.stateMask = mask;
    Send(LVM_SETITEMSTATE, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
}

void CListView::ClearSelection() const {
    for (int row = GetNextItem(-1, LVNI_SELECTED); row >= 0; row = GetNextItem(row, LVNI_SELECTED)) {
        SetItemState(row, 0, LVIS_SELECTED);
    }
    const int focused = GetNextItem(-1, LVNI_FOCUSED);
    if (focused >= 0) SetItemState(focused, 0, LVIS_FOCUSED);
}

CToolTipCtrl::~CToolTipCtrl() {
    Destroy();
}

bool CToolTipCtrl::Create(HWND owner, DWORD style) {
    Destroy();
    owner_ = owner;
    m_hWnd = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | style, CW_USEDEFAULT, CW_USEDEFAULT,
                             CW_USEDEFAULT, CW_USEDEFAULT, owner, nullptr, GetModuleHandleW(nullptr), nullptr);
    return m_hWnd != nullptr;
}

void CToolTipCtrl::Destroy() {
    if (m_hWnd != nullptr && IsWindow(m_hWnd)) DestroyWindow(m_hWnd);
    m_hWnd = nullptr;
}

bool CToolTipCtrl::AddTool(HWND tool, std::u16string_view text) const {
    std::u16string tipText(text);
    TTTOOLINFOW info{};
    info.cbSize = sizeof(info);
    info.uFlags = TTF_IDISHWND;
    info.hwnd = GetParent(tool);
    info.uId = reinterpret_cast<UINT_PTR>(tool);
    info.lpszText = const_cast<wchar_t*>(Wide(tipText));
    return Send(TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&info)) != 0;
}

bool CToolTipCtrl::AddTrackingTool(std::u16string_view text) const {
    std::u16string tipText(text);
    TTTOOLINFOW tool = TrackingTool(owner_, tipText);
    return Send(TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool)) != 0;
}

void CToolTipCtrl::UpdateTrackingText(std::u16string_view text) const {
    std::u16string tipText(text);
    TTTOOLINFOW tool = TrackingTool(owner_, tipText);
    Send(TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
}

void CToolTipCtrl::TrackActivate(bool show) const {
    std::u16string none;
    TTTOOLINFOW tool = TrackingTool(owner_, none);
    Send(TTM_TRACKACTIVATE, show ? TRUE : FALSE, reinterpret_cast<LPARAM>(&tool));
}

void CToolTipCtrl::TrackPosition(POINT screenPoint) const {
    Send(TTM_TRACKPOSITION, 0, MAKELPARAM(screenPoint.x, screenPoint.y));
}

void CToolTipCtrl::SetTitle(WPARAM icon, std::u16string_view title) const {
    const std::u16string titleText(title);
    Send(TTM_SETTITLEW, icon, reinterpret_cast<LPARAM>(Wide(titleText)));
}
