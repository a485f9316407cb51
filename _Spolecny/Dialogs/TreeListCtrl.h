#pragma once

#include <windows.h>

#include <cstdint>
#include <string_view>

#include "Dialogs/TreeListMessages.h"
#include "Win/Window.h"

class CCheckedEdit;

// A tree view with columns, the window class "TreeList". Everything is done with its messages
// (TreeListMessages.h); this class creates the window over a dialog's placeholder and offers the
// messages the dialogs use as functions.
class CTreeListCtrl : public CWindow {
public:
    static constexpr int kPlaceholderId = 11049;
    static constexpr int kControlId = 4100;

    // Registers the window class (once); throws CQvxException when the system refuses.
    static void RegisterWindowClass();

    // The checked edit that every in-place edit field of the process is attached to; an owner
    // refusing a value (TVM_VALIDATEEDIT) shows its balloon with it.
    static CCheckedEdit& InPlaceEdit();

    // Creates the control exactly over the dialog's placeholder control 11049, as control 4100,
    // with `style` plus child, visible and both scroll bars. False when it could not be made.
    bool Create(DWORD style, HWND dialog);

    int InsertColumn(int position, std::u16string_view caption, int width, int format = LVCFMT_LEFT) const;
    HTREEITEM InsertItem(const wchar_t* text, LPARAM param, HTREEITEM parent = TVI_ROOT,
                         HTREEITEM after = TVI_LAST) const;
    // A cell's text; a null text means the owner supplies it (TVN_GETDISPINFOW).
    bool SetCellText(HTREEITEM item, int column, const wchar_t* text) const;
    std::u16string CellText(HTREEITEM item, int column) const;
    bool DeleteItem(HTREEITEM item) const;
    int GetCount() const;
    HTREEITEM GetNextItem(HTREEITEM item, UINT relation) const;
    HTREEITEM GetSelection() const { return GetNextItem(nullptr, TVGN_CARET); }
    int GetCurrentColumn() const;
    bool SelectCell(HTREEITEM item, int column) const;
    LPARAM GetItemParam(HTREEITEM item) const;
    bool SetItemParam(HTREEITEM item, LPARAM value) const;
    DWORD SetExtendedStyle(DWORD mask, DWORD style) const;
    bool SetColumnAutoEdit(int column, int mode, int flags = 0, const wchar_t* const* choices = nullptr) const;
    bool SetColumnCheck(int column, int inputKind, int maxLength = -1) const;
    HWND EditLabel(HTREEITEM item, std::uint32_t argument) const;
    bool EndEditLabelNow(bool cancel) const;
};
