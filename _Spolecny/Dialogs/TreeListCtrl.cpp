#include "Dialogs/TreeListCtrl.h"

#include "CQvxException.h"
#include "Dialogs/TreeListEditRules.h"
#include "Dialogs/TreeListWindow.h"
#include "Win/WideText.h"

namespace {

constexpr wchar_t kClassName[] = L"TreeList";
constexpr std::u16string_view kSourceModule = u"_Spolecny\\Dialogs\\TreeListCtrl";

}  // namespace

void CTreeListCtrl::RegisterWindowClass() {
    WNDCLASSEXW existing{};
    existing.cbSize = sizeof(existing);
    if (GetClassInfoExW(GetModuleHandleW(nullptr), kClassName, &existing)) return;
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.style = CS_DBLCLKS;
    windowClass.lpfnWndProc = TreeListWindow::WindowProc;
    windowClass.cbWndExtra = sizeof(void*);  // the control's data
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.lpszClassName = kClassName;
    if (RegisterClassExW(&windowClass) == 0) {
        throw CQvxException(u"Nepodařilo se zaregistovat třídu TreeList", 62, kSourceModule);
    }
}

CCheckedEdit& CTreeListCtrl::InPlaceEdit() {
    return TreeListWindow::SharedEdit();
}

bool CTreeListCtrl::Create(DWORD style, HWND dialog) {
    RegisterWindowClass();
    const HWND placeholder = GetDlgItem(dialog, kPlaceholderId);
    RECT place{};
    if (placeholder != nullptr) {
        GetWindowRect(placeholder, &place);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
    }
    m_hWnd = CreateWindowExW(
        0, kClassName, nullptr, style | WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_VSCROLL | WS_HSCROLL, place.left,
        place.top, place.right - place.left, place.bottom - place.top, dialog,
        reinterpret_cast<HMENU>(static_cast<INT_PTR>(kControlId)), GetModuleHandleW(nullptr), nullptr);
    if (m_hWnd != nullptr && placeholder != nullptr) {
        SetWindowPos(m_hWnd, placeholder, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);  // tab order
    }
    return m_hWnd != nullptr;
}

int CTreeListCtrl::InsertColumn(int position, std::u16string_view caption, int width, int format) const {
    std::u16string text(caption);
    TVCOLUMNW column{};
    column.mask = TVCF_FMT | TVCF_WIDTH | TVCF_TEXT;
    column.fmt = format;
    column.cx = width;
    column.pszText = const_cast<wchar_t*>(Wide(text));
    column.cchTextMax = 256;
    return static_cast<int>(Send(TVM_INSERTCOLUMN, static_cast<WPARAM>(position), reinterpret_cast<LPARAM>(&column)));
}

HTREEITEM CTreeListCtrl::InsertItem(const wchar_t* text, LPARAM param, HTREEITEM parent, HTREEITEM after) const {
    TVINSERTSTRUCTW insert{};
    insert.hParent = parent;
    insert.hInsertAfter = after;
    insert.itemex.mask = TVIF_TEXT | TVIF_PARAM;
    insert.itemex.pszText = text != nullptr ? const_cast<wchar_t*>(text) : LPSTR_TEXTCALLBACKW;
    insert.itemex.lParam = param;
    return reinterpret_cast<HTREEITEM>(Send(TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert)));
}

bool CTreeListCtrl::SetCellText(HTREEITEM item, int column, const wchar_t* text) const {
    TVITEMCW record{};
    record.mask = TVIF_TEXT | TVIF_SUBITEM;
    record.hItem = item;
    record.pszText = text != nullptr ? const_cast<wchar_t*>(text) : LPSTR_TEXTCALLBACKW;
    record.column = column;
    return Send(TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&record)) != 0;
}

std::u16string CTreeListCtrl::CellText(HTREEITEM item, int column) const {
    wchar_t buffer[2052] = {};
    TVITEMCW record{};
    record.mask = TVIF_TEXT | TVIF_SUBITEM;
    record.hItem = item;
    record.pszText = buffer;
    record.cchTextMax = 2052;
    record.column = column;
    if (Send(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&record)) == 0 || record.pszText == LPSTR_TEXTCALLBACKW)
        return {};
    return FromWide(buffer);
}

bool CTreeListCtrl::DeleteItem(HTREEITEM item) const {
    return Send(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(item)) != 0;
}

int CTreeListCtrl::GetCount() const {
    return static_cast<int>(Send(TVM_GETCOUNT));
}

HTREEITEM CTreeListCtrl::GetNextItem(HTREEITEM item, UINT relation) const {
    return reinterpret_cast<HTREEITEM>(Send(TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
}

int CTreeListCtrl::GetCurrentColumn() const {
    return static_cast<int>(Send(TVM_GETNEXTITEM, TVGN_CARETCOLUMN, 0));
}

bool CTreeListCtrl::SelectCell(HTREEITEM item, int column) const {
    return Send(TVM_SELECTCELL, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(item)) != 0;
}

LPARAM CTreeListCtrl::GetItemParam(HTREEITEM item) const {
    return Send(TVM_GETITEMPARAM, 0, reinterpret_cast<LPARAM>(item));
}

bool CTreeListCtrl::SetItemParam(HTREEITEM item, LPARAM value) const {
    return Send(TVM_SETITEMPARAM, static_cast<WPARAM>(value), reinterpret_cast<LPARAM>(item)) != 0;
}

DWORD CTreeListCtrl::SetExtendedStyle(DWORD mask, DWORD style) const {
    return static_cast<DWORD>(Send(TVM_SETEXTENDEDSTYLE, mask, static_cast<LPARAM>(style)));
}

bool CTreeListCtrl::SetColumnAutoEdit(int column, int mode, int flags, const wchar_t* const* choices) const {
    const ColumnAutoEdit settings{static_cast<std::uint8_t>(flags), static_cast<std::uint8_t>(mode), column, 0, 0};
    return Send(TVM_SETCOLUMNAUTOEDIT, EncodeColumnAutoEdit(settings), reinterpret_cast<LPARAM>(choices)) != 0;
}

bool CTreeListCtrl::SetColumnCheck(int column, int inputKind, int maxLength) const {
    const auto packed = static_cast<LPARAM>((inputKind & 0xFF) | ((maxLength & 0xFFFF) << 8));
    return Send(TVM_SETCOLUMNCHECK, static_cast<WPARAM>(column), packed) != 0;
}

HWND CTreeListCtrl::EditLabel(HTREEITEM item, std::uint32_t argument) const {
    return reinterpret_cast<HWND>(Send(TVM_EDITLABELW, argument, reinterpret_cast<LPARAM>(item)));
}

bool CTreeListCtrl::EndEditLabelNow(bool cancel) const {
    return Send(TVM_ENDEDITLABELNOW, cancel ? 1 : 0) != 0;
}
