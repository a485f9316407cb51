#pragma once

#include <windows.h>
#include <commctrl.h>

#include <string>
#include <string_view>

#include "Win/SubclassedWindow.h"

// Thin wrappers of the standard controls the dialogs use. Each one either subclasses a dialog's
// control (Subclass) or merely names it (the constructor from a handle); none owns the control.

class CEdit : public CSubclassedWindow {
public:
    using CSubclassedWindow::CSubclassedWindow;
    void SetLimitText(int characters) const { Send(EM_SETLIMITTEXT, static_cast<WPARAM>(characters)); }
    // The selection as character positions, start first.
    void GetSel(int& start, int& end) const;
    void SetSel(int start, int end) const { Send(EM_SETSEL, static_cast<WPARAM>(start), end); }
    // The edit control's own balloon; false where the window system does not draw it.
    bool ShowBalloonTip(std::u16string_view title, std::u16string_view text, INT icon) const;
};

class CButton : public CSubclassedWindow {
public:
    using CSubclassedWindow::CSubclassedWindow;
    int GetCheck() const { return static_cast<int>(Send(BM_GETCHECK)); }
    void SetCheck(int state) const { Send(BM_SETCHECK, static_cast<WPARAM>(state)); }
    void SetIcon(HICON icon) const { Send(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon)); }
};

// BM_SETCHECK only where it would change something. A radio button rewrites its style on every
// set, even an unchanged one (the tab stop goes to the checked button of a group), at a price.
// An automatic radio button is checked alone, as a plain one: the caller sets every button of its
// group. (Checked as itself, it unchecks its group, which under Wine searches the dialog's windows
// one round trip to the window server at a time, over a hundred for one check.)
void SetButtonCheck(HWND button, int state);

class CComboBox : public CSubclassedWindow {
public:
    using CSubclassedWindow::CSubclassedWindow;
    int AddString(std::u16string_view text) const;
    void ResetContent() const { Send(CB_RESETCONTENT); }
    int GetCount() const { return static_cast<int>(Send(CB_GETCOUNT)); }
    int GetCurSel() const { return static_cast<int>(Send(CB_GETCURSEL)); }
    void SetCurSel(int index) const { Send(CB_SETCURSEL, static_cast<WPARAM>(index)); }
    std::u16string GetLBText(int index) const;
};

// A list view in report mode.
class CListView : public CSubclassedWindow {
public:
    using CSubclassedWindow::CSubclassedWindow;
    void SetExtendedStyle(DWORD style) const { Send(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, static_cast<LPARAM>(style)); }
    int InsertColumn(int index, std::u16string_view caption, int width, int format = LVCFMT_LEFT) const;
    int GetItemCount() const { return static_cast<int>(Send(LVM_GETITEMCOUNT)); }
    int GetNextItem(int start, UINT flags) const;
    void SetItemState(int index, UINT state, UINT mask) const;
    // No row selected or focused. Row by row: the list's own "every row" visits each of its rows,
    // even in a virtual list.
    void ClearSelection() const;
};

// A tooltip window; unlike the other wrappers it creates and owns its window.
class CToolTipCtrl : public CWindow {
public:
    CToolTipCtrl() = default;
    ~CToolTipCtrl() override;
    CToolTipCtrl(const CToolTipCtrl&) = delete;
    CToolTipCtrl& operator=(const CToolTipCtrl&) = delete;

    bool Create(HWND owner, DWORD style);
    void Destroy();
    // A tool for the whole of `tool`, a child of the owner, showing `text`.
    bool AddTool(HWND tool, std::u16string_view text) const;
    // A tool shown only on request, at a position of our choosing (tracking).
    bool AddTrackingTool(std::u16string_view text) const;
    void UpdateTrackingText(std::u16string_view text) const;
    void TrackActivate(bool show) const;
    void TrackPosition(POINT screenPoint) const;
    void Activate(bool active) const { Send(TTM_ACTIVATE, active ? TRUE : FALSE); }
    void SetMaxTipWidth(int width) const { Send(TTM_SETMAXTIPWIDTH, 0, width); }
    // `icon`: a TTI_ constant or an icon handle.
    void SetTitle(WPARAM icon, std::u16string_view title) const;
    void RelayEvent(const MSG& message) const { Send(TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&message)); }

private:
    HWND owner_ = nullptr;
};
