#include "Dialogs/TreeListWindow.h"

#include <windowsx.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <vector>

#include "Dialogs/CCheckedEdit.h"
#include "Dialogs/TreeListResources.h"
#include "Win/SubclassedWindow.h"
#include "Win/WideText.h"

namespace {

TreeItem ToItem(HTREEITEM handle) {
    return static_cast<TreeItem>(reinterpret_cast<ULONG_PTR>(handle));
}
HTREEITEM ToHandle(TreeItem item) {
    return reinterpret_cast<HTREEITEM>(static_cast<ULONG_PTR>(item));
}

bool IsRoot(HTREEITEM handle) {
    return handle == TVI_ROOT || handle == nullptr;
}

std::u16string CopyText(LPCWSTR text, int capacity = -1) {
    if (text == nullptr || text == LPSTR_TEXTCALLBACKW) return {};
    std::wstring_view view(text);
    if (capacity > 0 && view.size() > static_cast<std::size_t>(capacity)) view = view.substr(0, capacity);
    return FromWide(view);
}

void CopyOut(const std::u16string& text, LPWSTR buffer, int capacity) {
    if (buffer == nullptr || buffer == LPSTR_TEXTCALLBACKW || capacity <= 0) return;
    const std::size_t length = std::min(text.size(), static_cast<std::size_t>(capacity - 1));
    std::copy_n(Wide(text), length, buffer);
    buffer[length] = L'\0';
}

}  // namespace

// Holds the control's critical section for a scope.
class TreeListWindow::Lock {
public:
    explicit Lock(CRITICAL_SECTION& section) : section_(section) { EnterCriticalSection(&section_); }
    ~Lock() { LeaveCriticalSection(&section_); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

private:
    CRITICAL_SECTION& section_;
};

CCheckedEdit& TreeListWindow::SharedEdit() {
    static CCheckedEdit edit;  // no checks, empty message, title "Chybný vstup", no limit
    return edit;
}

TreeListWindow::TreeListWindow(HWND window) : window_(window), owner_(GetParent(window)), id_(GetDlgCtrlID(window)) {
    InitializeCriticalSection(&lock_);
    TreeListResources::Acquire();
    header_ = CreateWindowExW(0, WC_HEADERW, nullptr, WS_CHILD | WS_VISIBLE | HDS_HORZ | HDS_FULLDRAG, 0, 0, 0, 0,
                              window_, nullptr, GetModuleHandleW(nullptr), nullptr);
    const HDC screen = GetDC(window_);
    dpi_ = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(window_, screen);
    OpenTheme();
    UpdateFont(reinterpret_cast<HFONT>(SendMessageW(owner_, WM_GETFONT, 0, 0)));
    RECT client{};
    GetClientRect(window_, &client);
    clientWidth_ = client.right;
}

TreeListWindow::~TreeListWindow() {
    DestroyEditor();
    if (treeTheme_ != nullptr && TreeListResources::Theme().closeThemeData != nullptr) {
        TreeListResources::Theme().closeThemeData(treeTheme_);
    }
    TreeListResources::Release();
    DeleteCriticalSection(&lock_);
}

LRESULT CALLBACK TreeListWindow::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* self = reinterpret_cast<TreeListWindow*>(GetWindowLongPtrW(window, 0));
    if (message == WM_NCCREATE) {
        self = new TreeListWindow(window);
        SetWindowLongPtrW(window, 0, reinterpret_cast<LONG_PTR>(self));
    }
    if (self == nullptr) return DefWindowProcW(window, message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, 0, 0);
        delete self;
        return DefWindowProcW(window, message, wParam, lParam);
    }
    return self->Handle(message, wParam, lParam);
}

LRESULT TreeListWindow::SendToOwner(UINT message, WPARAM wParam, LPARAM lParam) {
    LeaveCriticalSection(&lock_);
    const LRESULT result = SendMessageW(owner_, message, wParam, lParam);
    EnterCriticalSection(&lock_);
    return result;
}

LRESULT TreeListWindow::Notify(NMHDR& header, UINT code) {
    header.hwndFrom = window_;
    header.idFrom = static_cast<UINT_PTR>(id_);
    header.code = code;
    return SendToOwner(WM_NOTIFY, static_cast<WPARAM>(id_), reinterpret_cast<LPARAM>(&header));
}

LRESULT TreeListWindow::NotifyTree(UINT code, UINT action, TreeItem oldItem, TreeItem newItem, POINT point) {
    NMTREEVIEWW record{};
    record.action = action;
    auto describe = [this](TVITEMW& item, TreeItem number) {
        item.mask = TVIF_HANDLE | TVIF_PARAM | TVIF_STATE;
        item.hItem = ToHandle(number);
        item.lParam = static_cast<LPARAM>(model_.Param(number));
        item.state = model_.State(number);
    };
    describe(record.itemOld, oldItem);
    describe(record.itemNew, newItem);
    record.ptDrag = point;
    return Notify(record.hdr, code);
}

TVITEMCW TreeListWindow::DescribeCell(TreeItem item, int column, std::u16string& text) const {
    TVITEMCW record{};
    record.mask = TVIF_TEXT | TVIF_PARAM | TVIF_SUBITEM;
    record.hItem = ToHandle(item);
    record.lParam = static_cast<LPARAM>(model_.Param(item));
    record.pszText = const_cast<wchar_t*>(Wide(text));
    record.cchTextMax = static_cast<int>(text.size()) + 1;
    record.column = column;
    return record;
}

std::u16string TreeListWindow::CellText(TreeItem item, int column) {
    const TreeListText* stored = model_.Text(item, column);
    if (stored == nullptr) return {};
    if (!stored->fromOwner) return stored->text;

    std::u16string buffer(259, u'\0');  // 260 characters with the terminator
    NMTVDISPINFOCW request{};
    request.item = DescribeCell(item, column, buffer);
    Notify(request.hdr, TVN_GETDISPINFOW);
    // The owner writes into the buffer or points at a text of its own.
    const LPCWSTR answer = request.item.pszText != nullptr ? request.item.pszText : Wide(buffer);
    return answer == Wide(buffer) ? CopyText(Wide(buffer)) : CopyText(answer, 259);
}

LRESULT TreeListWindow::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    Lock lock(lock_);
    LRESULT reflected = 0;
    if (ReflectToChild(message, wParam, lParam, reflected)) return reflected;

    bool handled = true;
    const LRESULT result = HandleTreeMessage(message, wParam, lParam, handled);
    if (handled) return result;

    switch (message) {
        case WM_PAINT: {
            paintPending_ = false;
            PAINTSTRUCT paint{};
            const HDC dc = BeginPaint(window_, &paint);
            Paint(dc, paint.rcPaint);
            EndPaint(window_, &paint);
            return 0;
        }
        case WM_NCPAINT:
            framePending_ = false;
            return DefWindowProcW(window_, message, wParam, lParam);
        case WM_PRINTCLIENT: {
            RECT client{};
            GetClientRect(window_, &client);
            Paint(reinterpret_cast<HDC>(wParam), client);
            return 0;
        }
        case WM_ERASEBKGND:
            return 1;  // painting covers everything
        case WM_SIZE:
            OnSize(LOWORD(lParam));
            return 0;
        case WM_SETFONT:
            UpdateFont(reinterpret_cast<HFONT>(wParam));
            if (LOWORD(lParam)) InvalidateRect(window_, nullptr, TRUE);
            return 0;
        case WM_GETFONT:
            return reinterpret_cast<LRESULT>(font_);
        case WM_THEMECHANGED:
            OpenTheme();
            Layout();
            return 0;
        case WM_STYLECHANGED:
        case WM_ENABLE:
            Layout();
            return 0;
        case WM_SETREDRAW:
            SetRedraw(wParam != FALSE);
            return 0;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            InvalidateRect(window_, nullptr, FALSE);
            return 0;
        case WM_GETDLGCODE:
            return DialogCode(reinterpret_cast<const MSG*>(lParam));
        case WM_KEYDOWN:
            if (OnKeyDown(static_cast<UINT>(wParam))) return 0;
            break;
        case WM_CHAR:
            OnChar(static_cast<wchar_t>(wParam));
            return 0;
        case WM_LBUTTONDOWN:
            OnButtonDown({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}, false);
            return 0;
        case WM_LBUTTONDBLCLK:
            OnButtonDown({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}, true);
            return 0;
        case WM_LBUTTONUP:
            pressItem_ = 0;
            return 0;
        case WM_MOUSEMOVE:
            OnMouseMove({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}, wParam);
            return 0;
        case WM_MOUSEWHEEL: {
            UINT lines = 3;
            SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
            const int notches = GET_WHEEL_DELTA_WPARAM(wParam) / WHEEL_DELTA;
            Scroll(SB_VERT, SB_THUMBPOSITION, topRow_ - notches * static_cast<int>(lines));
            return 0;
        }
        case WM_VSCROLL:
            Scroll(SB_VERT, LOWORD(wParam), HIWORD(wParam));
            return 0;
        case WM_HSCROLL:
            Scroll(SB_HORZ, LOWORD(wParam), HIWORD(wParam));
            return 0;
        case WM_SETCURSOR:
            if (LOWORD(lParam) == HTCLIENT) {
                SetCursor(TreeListResources::ArrowCursor());
                return TRUE;
            }
            break;
        case WM_NOTIFY: {
            auto& header = *reinterpret_cast<NMHDR*>(lParam);
            if (header.hwndFrom == header_) {
                LRESULT answer = 0;
                OnHeaderNotify(reinterpret_cast<NMHEADERW&>(header), answer);
                return answer;
            }
            return SendToOwner(message, wParam, lParam);
        }
        case WM_COMMAND: {
            const auto from = reinterpret_cast<HWND>(lParam);
            if (LOWORD(wParam) == kInPlaceEditorId && from != nullptr && GetParent(from) == window_) {
                if (from == editor_) OnEditorCommand(HIWORD(wParam));  // an editor on its way out says nothing
                return 0;
            }
            return SendToOwner(message, wParam, lParam);
        }
        case kReturnFocusToEditor:
            ReturnFocusToEditor();
            return 0;
        case WM_DESTROY:
            DestroyEditor();
            break;
        default:
            break;
    }
    return DefWindowProcW(window_, message, wParam, lParam);
}

LRESULT TreeListWindow::HandleTreeMessage(UINT message, WPARAM wParam, LPARAM lParam, bool& handled) {
    switch (message) {
        case TVM_INSERTITEMW:
        case TVM_SETITEMW:
        case TVM_GETITEMW:
        case TVM_SORTCHILDRENCB:
        case TVM_INSERTCOLUMN:
        case TVM_SETCOLUMN:
        case TVM_GETCOLUMN:
        case TVM_GETITEMRECT:
            if (lParam == 0) return 0;  // these need their record
            break;
        default:
            break;
    }
    switch (message) {
        case TVM_INSERTITEMW:
            return InsertItem(*reinterpret_cast<const TVINSERTSTRUCTW*>(lParam));
        case TVM_DELETEITEM:
            return DeleteItem(reinterpret_cast<HTREEITEM>(lParam));
        case TVM_GETCOUNT:
            return static_cast<LRESULT>(model_.Count());
        case TVM_SETITEMW:
            return SetItem(*reinterpret_cast<const TVITEMW*>(lParam));
        case TVM_GETITEMW:
            return GetItem(*reinterpret_cast<TVITEMW*>(lParam));
        case TVM_GETNEXTITEM:
            if (wParam == TVGN_CARETCOLUMN) return model_.CurrentColumn();
            return reinterpret_cast<LRESULT>(
                ToHandle(model_.Next(static_cast<TreeRelation>(wParam), ToItem(reinterpret_cast<HTREEITEM>(lParam)))));
        case TVM_SELECTITEM:
            if (wParam != TVGN_CARET) return FALSE;
            return Select(ToItem(reinterpret_cast<HTREEITEM>(lParam)), model_.CurrentColumn(), TVC_UNKNOWN);
        case TVM_SELECTCELL: {
            const TreeItem item = ToItem(reinterpret_cast<HTREEITEM>(lParam));
            if (!model_.Exists(item)) return FALSE;
            return Select(item, static_cast<int>(wParam), TVC_UNKNOWN) && model_.Current() == item;
        }
        case TVM_EXPAND:
            return Expand(ToItem(reinterpret_cast<HTREEITEM>(lParam)), static_cast<UINT>(wParam));
        case TVM_ENSUREVISIBLE:
            EnsureVisible(ToItem(reinterpret_cast<HTREEITEM>(lParam)), model_.CurrentColumn());
            return TRUE;
        case TVM_SORTCHILDRENCB: {
            const auto& sort = *reinterpret_cast<const TVSORTCB*>(lParam);
            if (sort.lpfnCompare == nullptr) return FALSE;
            const TreeItem parent = IsRoot(sort.hParent) ? 0 : ToItem(sort.hParent);
            if (parent != 0 && !model_.Exists(parent)) return FALSE;
            model_.SortChildren(parent, [&sort](std::int64_t a, std::int64_t b) {
                return sort.lpfnCompare(static_cast<LPARAM>(a), static_cast<LPARAM>(b), sort.lParam);
            });
            Layout();
            return TRUE;
        }
        case TVM_SETEXTENDEDSTYLE: {
            const DWORD previous = model_.SetExtendedStyle(static_cast<DWORD>(wParam), static_cast<DWORD>(lParam));
            Layout();
            return static_cast<LRESULT>(previous);
        }
        case TVM_GETEXTENDEDSTYLE:
            return static_cast<LRESULT>(model_.ExtendedStyle());
        case TVM_SETITEMPARAM:
            if (!model_.SetParam(ToItem(reinterpret_cast<HTREEITEM>(lParam)), static_cast<std::int64_t>(wParam)))
                return 0;
            return 1;
        case TVM_GETITEMPARAM:
            return static_cast<LRESULT>(model_.Param(ToItem(reinterpret_cast<HTREEITEM>(lParam))));
        case TVM_INSERTCOLUMN:
            return InsertColumn(static_cast<int>(wParam), *reinterpret_cast<const TVCOLUMNW*>(lParam));
        case TVM_SETCOLUMN:
            return SetColumn(static_cast<int>(wParam), *reinterpret_cast<const TVCOLUMNW*>(lParam));
        case TVM_GETCOLUMN:
            return GetColumn(static_cast<int>(wParam), *reinterpret_cast<TVCOLUMNW*>(lParam));
        case TVM_GETCOLUMNCOUNT:
            return model_.ColumnCount();
        case TVM_SETCOLUMNAUTOEDIT:
            return SetColumnAutoEdit(wParam, lParam);
        case TVM_SETCOLUMNCHECK:
            return SetColumnCheck(wParam, lParam);
        case TVM_EDITLABELW:
            return reinterpret_cast<LRESULT>(
                StartEdit(ToItem(reinterpret_cast<HTREEITEM>(lParam)), static_cast<std::uint32_t>(wParam)));
        case TVM_ENDEDITLABELNOW:
            EndEdit(wParam == 0 ? EndMode::Commit : EndMode::Cancel);
            return TRUE;
        case TVM_GETEDITCONTROL:
            return reinterpret_cast<LRESULT>(editItem_ != 0 ? editor_ : nullptr);
        case TVM_GETITEMRECT: {
            // The item comes in the same memory as the rectangle goes out.
            HTREEITEM handle = nullptr;
            std::memcpy(&handle, reinterpret_cast<const void*>(lParam), sizeof(handle));
            const TreeItem item = ToItem(handle);
            const int index = model_.VisibleIndex(item);
            if (index < 0) return FALSE;
            auto* rect = reinterpret_cast<RECT*>(lParam);
            *rect = RowRect(index);
            if (wParam != FALSE) rect->left += TextIndent(item);
            return TRUE;
        }
        default:
            handled = false;
            return 0;
    }
}

LRESULT TreeListWindow::InsertItem(const TVINSERTSTRUCTW& insert) {
    const TreeItem parent = IsRoot(insert.hParent) ? 0 : ToItem(insert.hParent);
    InsertPlace place = InsertPlace::After;
    if (insert.hInsertAfter == TVI_FIRST) {
        place = InsertPlace::First;
    } else if (insert.hInsertAfter == TVI_LAST || insert.hInsertAfter == TVI_ROOT || insert.hInsertAfter == nullptr) {
        place = InsertPlace::Last;
    } else if (insert.hInsertAfter == TVI_SORT) {
        place = InsertPlace::Sorted;
    }
    const TVITEMEXW& record = insert.itemex;
    TreeListText text;
    if ((record.mask & TVIF_TEXT) != 0) {
        text.fromOwner = record.pszText == LPSTR_TEXTCALLBACKW;
        text.text = CopyText(record.pszText);
    }
    const std::int64_t param = (record.mask & TVIF_PARAM) != 0 ? record.lParam : 0;
    const bool children = (record.mask & TVIF_CHILDREN) != 0 && record.cChildren != 0;
    const TreeItem item =
        model_.InsertItem(parent, place, ToItem(insert.hInsertAfter), std::move(text), param, children);
    if (item != 0 && (record.mask & TVIF_STATE) != 0) {
        model_.SetState(item, record.state & ~TVIS_SELECTED, record.stateMask & ~TVIS_SELECTED);
    }
    Layout();
    return reinterpret_cast<LRESULT>(ToHandle(item));
}

LRESULT TreeListWindow::SetItem(const TVITEMW& record) {
    const TreeItem item = ToItem(record.hItem);
    const int column = (record.mask & TVIF_SUBITEM) != 0 ? static_cast<const TVITEMCW&>(record).column : 0;
    TreeListText* text = model_.Text(item, column);
    if (text == nullptr) return FALSE;
    if ((record.mask & TVIF_TEXT) != 0) {
        text->fromOwner = record.pszText == LPSTR_TEXTCALLBACKW;
        text->text = CopyText(record.pszText);
    }
    if (column == 0) {
        if ((record.mask & TVIF_PARAM) != 0) model_.SetParam(item, record.lParam);
        if ((record.mask & TVIF_CHILDREN) != 0) model_.SetHasChildren(item, record.cChildren != 0);
        if ((record.mask & TVIF_STATE) != 0) {
            model_.SetState(item, record.state, record.stateMask & ~TVIS_SELECTED);
            if ((record.stateMask & record.state & TVIS_SELECTED) != 0)
                Select(item, model_.CurrentColumn(), TVC_UNKNOWN);
        }
    } else if ((record.mask & TVIF_STATE) != 0) {
        text->state = (text->state & ~record.stateMask) | (record.state & record.stateMask);
    }
    Layout();
    return TRUE;
}

LRESULT TreeListWindow::GetItem(TVITEMW& record) {
    const TreeItem item = ToItem(record.hItem);
    const int column = (record.mask & TVIF_SUBITEM) != 0 ? static_cast<TVITEMCW&>(record).column : 0;
    const TreeListText* text = model_.Text(item, column);
    if (text == nullptr) return FALSE;
    if ((record.mask & TVIF_TEXT) != 0) {
        if (text->fromOwner) {
            record.pszText = LPSTR_TEXTCALLBACKW;
        } else {
            CopyOut(text->text, record.pszText, record.cchTextMax);
        }
    }
    if ((record.mask & TVIF_PARAM) != 0) record.lParam = static_cast<LPARAM>(model_.Param(item));
    if ((record.mask & TVIF_STATE) != 0)
        record.state = (column == 0 ? model_.State(item) : text->state) & record.stateMask;
    if ((record.mask & TVIF_CHILDREN) != 0) record.cChildren = model_.HasChildren(item) ? 1 : 0;
    return TRUE;
}

LRESULT TreeListWindow::DeleteItem(HTREEITEM handle) {
    if (editItem_ != 0) EndEdit(EndMode::Cancel);
    std::vector<TreeItem> going;
    if (handle == TVI_ROOT) {
        for (const TreeItem top : model_.Children(0)) {
            const std::vector<TreeItem> subtree = model_.Subtree(top);
            going.insert(going.end(), subtree.begin(), subtree.end());
        }
    } else {
        going = model_.Subtree(ToItem(handle));
        if (going.empty()) return FALSE;
    }
    std::vector<std::int64_t> params;
    for (const TreeItem item : going) params.push_back(model_.Param(item));
    if (handle == TVI_ROOT) {
        model_.DeleteAll();
    } else {
        model_.DeleteItem(ToItem(handle));
    }
    topRow_ = std::min(topRow_, std::max(static_cast<int>(model_.VisibleItems().size()) - VisibleRowCount(), 0));
    Layout();

    // The owner hears of each item, children first, after the control has let it go.
    for (std::size_t i = 0; i < going.size(); ++i) {
        NMTREEVIEWW record{};
        record.itemOld.mask = TVIF_HANDLE | TVIF_PARAM;
        record.itemOld.hItem = ToHandle(going[i]);
        record.itemOld.lParam = static_cast<LPARAM>(params[i]);
        Notify(record.hdr, TVN_DELETEITEMW);
    }
    return TRUE;
}

void TreeListWindow::ApplyColumnRecord(TreeListColumn& column, const TVCOLUMNW& record) {
    if ((record.mask & TVCF_FMT) != 0) column.format = record.fmt & LVCFMT_JUSTIFYMASK;
    if ((record.mask & TVCF_WIDTH) != 0) column.width = std::max(record.cx, 0);
    if ((record.mask & TVCF_TEXT) != 0) column.caption = CopyText(record.pszText);
    if ((record.mask & TVCF_FIXED) != 0) column.weight = 0;
    if ((record.mask & TVCF_MINWIDTH) != 0) column.minWidth = std::max(record.minWidth, 0);
    if ((record.mask & TVCF_WEIGHT) != 0) column.weight = std::max(record.weight, 0);
}

LRESULT TreeListWindow::InsertColumn(int position, const TVCOLUMNW& record) {
    TreeListColumn column;
    ApplyColumnRecord(column, record);
    column.minWidth = std::min(column.minWidth, column.width);
    const int index = model_.InsertColumn(position, std::move(column));
    HDITEMW item{};
    item.mask = HDI_WIDTH;
    SendMessageW(header_, HDM_INSERTITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    UpdateHeader();
    Layout();
    return index;
}

LRESULT TreeListWindow::SetColumn(int column, const TVCOLUMNW& record) {
    if (!model_.HasColumn(column)) return FALSE;
    ApplyColumnRecord(model_.Column(column), record);
    UpdateHeader();
    Layout();
    return TRUE;
}

LRESULT TreeListWindow::GetColumn(int column, TVCOLUMNW& record) {
    if (!model_.HasColumn(column)) return FALSE;
    const TreeListColumn& stored = model_.Column(column);
    if ((record.mask & TVCF_FMT) != 0) record.fmt = stored.format;
    if ((record.mask & TVCF_WIDTH) != 0) record.cx = stored.width;
    if ((record.mask & TVCF_TEXT) != 0) CopyOut(stored.caption, record.pszText, record.cchTextMax);
    if ((record.mask & TVCF_MINWIDTH) != 0) record.minWidth = stored.minWidth;
    if ((record.mask & TVCF_WEIGHT) != 0) record.weight = stored.weight;
    return TRUE;
}

LRESULT TreeListWindow::SetColumnAutoEdit(WPARAM packed, LPARAM choices) {
    const ColumnAutoEdit settings = DecodeColumnAutoEdit(static_cast<std::uint32_t>(packed));
    if (!model_.HasColumn(settings.column)) return 0;
    if (settings.column == 0 && settings.mode >= 6) return 0;
    TreeListColumn& column = model_.Column(settings.column);
    const std::uint32_t before = (column.editMode << 8) | column.editFlags;
    column.editMode = settings.mode;
    column.editFlags = settings.flags;
    column.editParam1 = settings.param1;
    column.editParam2 = settings.param2;
    column.choices = reinterpret_cast<const void*>(choices);
    column.cachedValue = -1;
    const std::uint32_t after = (column.editMode << 8) | column.editFlags;
    if (settings.mode >= 6 || ((before ^ after) & 0x620) != 0) Layout();
    return 1;
}

LRESULT TreeListWindow::SetColumnCheck(WPARAM column, LPARAM packed) {
    if (!model_.HasColumn(static_cast<int>(column))) return 0;
    const ColumnCheck check = DecodeColumnCheck(static_cast<std::uint32_t>(packed));
    model_.Column(static_cast<int>(column)).inputKind = check.inputKind;
    model_.Column(static_cast<int>(column)).maxLength = check.maxLength;
    return 1;
}

bool TreeListWindow::Select(TreeItem item, int column, UINT action) {
    if (item != 0 && !model_.Exists(item)) return false;
    const TreeItem previous = model_.Current();
    if (item != previous) {
        if (NotifyTree(TVN_SELCHANGINGW, action, previous, item) != 0) return false;
        if (item != 0 && !model_.Exists(item)) return false;  // the owner deleted it meanwhile
        // Make sure the item shows: its parents open.
        for (TreeItem parent = model_.Parent(item); parent != 0; parent = model_.Parent(parent)) {
            model_.SetState(parent, kItemExpanded, kItemExpanded);
        }
        model_.SetCurrent(item, column);
        NotifyTree(TVN_SELCHANGEDW, action, previous, item);
    } else {
        model_.SetCurrent(item, column);
    }
    Layout();
    EnsureVisible(model_.Current(), model_.CurrentColumn());
    return true;
}

bool TreeListWindow::Expand(TreeItem item, UINT action) {
    if (!model_.Exists(item)) return false;
    const bool expanded = model_.IsExpanded(item);
    bool expand = expanded;
    switch (action & 0x3) {
        case TVE_COLLAPSE:
            expand = false;
            break;
        case TVE_EXPAND:
            expand = true;
            break;
        case TVE_TOGGLE:
            expand = !expanded;
            break;
        default:
            return false;
    }
    if (expand == expanded) return true;
    const UINT notifyAction = expand ? TVE_EXPAND : TVE_COLLAPSE;
    if (NotifyTree(TVN_ITEMEXPANDINGW, notifyAction, 0, item) != 0) return false;
    if (!model_.Exists(item)) return false;
    model_.SetState(item, expand ? kItemExpanded : 0, kItemExpanded);
    // A current item that no longer shows gives way to the item collapsed above it.
    if (!expand && model_.Current() != 0 && model_.VisibleIndex(model_.Current()) < 0) {
        Select(item, model_.CurrentColumn(), TVC_UNKNOWN);
    }
    NotifyTree(TVN_ITEMEXPANDEDW, notifyAction, 0, item);
    Layout();
    return true;
}

void TreeListWindow::EnsureVisible(TreeItem item, int column) {
    const int index = model_.VisibleIndex(item);
    if (index < 0) return;
    const int rows = std::max(VisibleRowCount(), 1);
    if (index < topRow_) {
        Scroll(SB_VERT, SB_THUMBPOSITION, index);
    } else if (index >= topRow_ + rows) {
        Scroll(SB_VERT, SB_THUMBPOSITION, index - rows + 1);
    }
    if (model_.HasColumn(column) && column > 0) {
        RECT client{};
        GetClientRect(window_, &client);
        const int left = ColumnLeft(column);
        const int right = left + model_.Column(column).width;
        if (left < scrollX_) {
            Scroll(SB_HORZ, SB_THUMBPOSITION, left);
        } else if (right > scrollX_ + client.right) {
            Scroll(SB_HORZ, SB_THUMBPOSITION, std::min(left, right - static_cast<int>(client.right)));
        }
    }
}

void TreeListWindow::Scroll(int bar, int request, int position) {
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = SIF_ALL;
    GetScrollInfo(window_, bar, &info);
    const int line = bar == SB_VERT ? 1 : Scaled(20);
    const int page = std::max(static_cast<int>(info.nPage), 1);
    int target = bar == SB_VERT ? topRow_ : scrollX_;
    switch (request) {
        case SB_LINEUP:
            target -= line;
            break;
        case SB_LINEDOWN:
            target += line;
            break;
        case SB_PAGEUP:
            target -= page;
            break;
        case SB_PAGEDOWN:
            target += page;
            break;
        case SB_THUMBTRACK:
            target = info.nTrackPos;
            break;
        case SB_THUMBPOSITION:
            target = position;
            break;
        case SB_TOP:
            target = 0;
            break;
        case SB_BOTTOM:
            target = info.nMax;
            break;
        default:
            return;
    }
    // With drawing off the bars wait for the layout that ends it, which clamps the position.
    const int highest = redraw_ ? std::max(info.nMax - page + 1, 0) : std::numeric_limits<int>::max();
    target = std::clamp(target, 0, highest);
    if (bar == SB_VERT) {
        topRow_ = target;
    } else {
        scrollX_ = target;
    }
    Layout();
}

TreeListWindow::Hit TreeListWindow::HitTest(POINT point) {
    Hit hit;
    if (point.y < HeaderHeight()) return hit;
    const int index = topRow_ + (point.y - HeaderHeight()) / rowHeight_;
    const std::vector<TreeItem>& visible = model_.VisibleItems();
    if (index < 0 || static_cast<std::size_t>(index) >= visible.size()) return hit;
    hit.item = visible[static_cast<std::size_t>(index)];
    const int x = point.x + scrollX_;
    for (int column = 0, left = 0; column < std::max(model_.ColumnCount(), 1); ++column) {
        const int width = model_.HasColumn(column) ? model_.Column(column).width : x + 1;
        if (x >= left && x < left + width) {
            hit.column = column;
            hit.textOffset = x - left - (column == 0 ? TextIndent(hit.item) : Scaled(4));
            break;
        }
        left += width;
    }
    const RECT button = ButtonRect(hit.item, RowRect(index));
    hit.onButton = hit.column == 0 && PtInRect(&button, point);
    return hit;
}

void TreeListWindow::OnButtonDown(POINT point, bool doubleClick) {
    const bool hadFocus = GetFocus() == window_;
    if (!hadFocus) SetFocus(window_);  // an open edit commits as its editor loses the focus
    if (editItem_ != 0) return;        // a refused commit keeps its editor and its cell
    const Hit hit = HitTest(point);
    if (hit.item == 0) return;

    if (doubleClick) {
        NMHDR header{};
        if (Notify(header, NM_DBLCLK) == 0 && model_.HasChildren(hit.item)) Expand(hit.item, TVE_TOGGLE);
        return;
    }
    if (hit.onButton) {
        Expand(hit.item, TVE_TOGGLE);
        return;
    }
    const int column = std::max(hit.column, 0);
    const bool cellSelection = (model_.ExtendedStyle() & kCellSelection) != 0;
    const bool alreadyCurrent = hit.item == model_.Current() && (!cellSelection || column == model_.CurrentColumn());
    if (alreadyCurrent && hadFocus && (GetWindowLongW(window_, GWL_STYLE) & TVS_EDITLABELS) != 0) {
        StartAutomaticEdit(hit.item, cellSelection ? column : model_.CurrentColumn(), WM_LBUTTONDOWN, hit.textOffset);
        return;
    }
    Select(hit.item, column, TVC_BYMOUSE);
    if ((GetWindowLongW(window_, GWL_STYLE) & TVS_SINGLEEXPAND) != 0 && model_.Current() == hit.item) {
        if (NotifyTree(TVN_SINGLEEXPAND, TVE_TOGGLE, 0, hit.item) == 0) Expand(hit.item, TVE_TOGGLE);
    }
    pressPoint_ = point;
    pressItem_ = hit.item;
    dragReported_ = false;
}

void TreeListWindow::OnMouseMove(POINT point, WPARAM keys) {
    if ((keys & MK_LBUTTON) == 0 || pressItem_ == 0 || dragReported_) return;
    if (std::abs(point.x - pressPoint_.x) < GetSystemMetrics(SM_CXDRAG) &&
        std::abs(point.y - pressPoint_.y) < GetSystemMetrics(SM_CYDRAG)) {
        return;
    }
    dragReported_ = true;
    if (model_.Exists(pressItem_)) NotifyTree(TVN_BEGINDRAGW, 0, 0, pressItem_, pressPoint_);
}

UINT TreeListWindow::DialogCode(const MSG* message) {
    UINT code = DLGC_WANTARROWS | DLGC_WANTCHARS;
    if (message != nullptr && message->message == WM_KEYDOWN && message->wParam == VK_RETURN) {
        // Enter starts an edit of an editable current cell instead of pressing the default button.
        const TreeItem item = model_.Current();
        const int column = model_.CurrentColumn();
        if (item != 0 && model_.HasColumn(column) && model_.Column(column).editMode != 0 &&
            (GetWindowLongW(window_, GWL_STYLE) & TVS_EDITLABELS) != 0) {
            code |= DLGC_WANTMESSAGE;
        }
    }
    return code;
}

bool TreeListWindow::OnKeyDown(UINT key) {
    NMTVKEYDOWN record{};
    record.wVKey = static_cast<WORD>(key);
    Notify(record.hdr, TVN_KEYDOWN);

    const std::vector<TreeItem>& visible = model_.VisibleItems();
    if (visible.empty()) return false;
    const TreeItem current = model_.Current();
    const int index = model_.VisibleIndex(current);
    const int column = model_.CurrentColumn();
    const bool cellSelection = (model_.ExtendedStyle() & kCellSelection) != 0;
    const int last = static_cast<int>(visible.size()) - 1;
    auto selectRow = [&](int row) {
        Select(visible[static_cast<std::size_t>(std::clamp(row, 0, last))], column, TVC_BYKEYBOARD);
    };

    switch (key) {
        case VK_UP:
            selectRow(index < 0 ? 0 : index - 1);
            return true;
        case VK_DOWN:
            selectRow(index < 0 ? 0 : index + 1);
            return true;
        case VK_HOME:
            selectRow(0);
            return true;
        case VK_END:
            selectRow(last);
            return true;
        case VK_PRIOR:
            selectRow(index - std::max(VisibleRowCount() - 1, 1));
            return true;
        case VK_NEXT:
            selectRow(index + std::max(VisibleRowCount() - 1, 1));
            return true;
        case VK_LEFT:
            if (cellSelection) {
                if (current != 0 && column > 0) Select(current, column - 1, TVC_BYKEYBOARD);
            } else if (current != 0 && model_.IsExpanded(current)) {
                Expand(current, TVE_COLLAPSE);
            } else if (model_.Parent(current) != 0) {
                Select(model_.Parent(current), column, TVC_BYKEYBOARD);
            }
            return true;
        case VK_RIGHT:
            if (cellSelection) {
                if (current != 0 && column + 1 < model_.ColumnCount()) Select(current, column + 1, TVC_BYKEYBOARD);
            } else if (current != 0 && model_.HasChildren(current)) {
                if (!model_.IsExpanded(current)) {
                    Expand(current, TVE_EXPAND);
                } else if (!model_.Children(current).empty()) {
                    Select(model_.Children(current).front(), column, TVC_BYKEYBOARD);
                }
            }
            return true;
        case VK_ADD:
            Expand(current, TVE_EXPAND);
            return true;
        case VK_SUBTRACT:
            Expand(current, TVE_COLLAPSE);
            return true;
        case VK_RETURN:
        case VK_F2:
            if (current != 0 && (GetWindowLongW(window_, GWL_STYLE) & TVS_EDITLABELS) != 0) {
                StartAutomaticEdit(current, column, VK_RETURN, 0);
            }
            return true;
        default:
            return false;
    }
}

void TreeListWindow::OnChar(wchar_t character) {
    if (!iswprint(static_cast<wint_t>(character))) return;  // Enter and the like come as keys
    const TreeItem current = model_.Current();
    if (current != 0 && (GetWindowLongW(window_, GWL_STYLE) & TVS_EDITLABELS) != 0) {
        if (StartAutomaticEdit(current, model_.CurrentColumn(), character, 0) != nullptr) return;
    }
    SearchFor(character);
}

void TreeListWindow::SearchFor(wchar_t character) {
    const std::u16string& prefix = search_.Type(static_cast<char16_t>(character), GetTickCount());
    const std::vector<TreeItem> visible = model_.VisibleItems();
    const TreeItem found =
        FindItemStartingWith(visible, model_.Current(), prefix, [this](TreeItem item, const std::u16string& wanted) {
            const std::u16string text = CellText(item, 0);
            return text.size() >= wanted.size() &&
                   CompareStringOrdinal(Wide(text), static_cast<int>(wanted.size()), Wide(wanted),
                                        static_cast<int>(wanted.size()), TRUE) == CSTR_EQUAL;
        });
    if (found != 0) Select(found, model_.CurrentColumn(), TVC_BYKEYBOARD);
}

void TreeListWindow::OnHeaderNotify(NMHEADERW& header, LRESULT& result) {
    const int column = header.iItem;
    if (!model_.HasColumn(column)) return;
    if ((header.hdr.code == HDN_ITEMCHANGINGW) && header.pitem != nullptr && (header.pitem->mask & HDI_WIDTH) != 0) {
        header.pitem->cxy = std::max(header.pitem->cxy, model_.Column(column).minWidth);
        result = FALSE;
        return;
    }
    if (header.hdr.code == HDN_ITEMCHANGEDW && header.pitem != nullptr && (header.pitem->mask & HDI_WIDTH) != 0) {
        const int width = std::max(header.pitem->cxy, model_.Column(column).minWidth);
        if (width == model_.Column(column).width) return;
        model_.Column(column).width = width;
        Layout();
        ReportColumnChanges({column});
    }
}

void TreeListWindow::OnSize(int width) {
    if (clientWidth_ > 0 && width > 0 && width != clientWidth_) {
        const std::vector<int> changed = model_.ResizeColumns(width - clientWidth_);
        clientWidth_ = width;
        UpdateHeader();
        Layout();
        ReportColumnChanges(changed);
        return;
    }
    if (width > 0) clientWidth_ = width;
    Layout();
}

void TreeListWindow::ReportColumnChanges(const std::vector<int>& columns) {
    if ((model_.ExtendedStyle() & kReportColumnChanges) == 0) return;
    for (const int column : columns) {
        if (!model_.HasColumn(column)) continue;
        NMTVCOLUMNW record{};
        record.column = column;
        record.width = model_.Column(column).width;
        Notify(record.hdr, TVN_COLUMNCHANGED);
    }
}
