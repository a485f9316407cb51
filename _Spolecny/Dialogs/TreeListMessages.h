#pragma once

#include <windows.h>
#include <commctrl.h>

// The tree-list control's message set: the tree view's messages and notifications with their own
// codes and records where the meaning is the same, and these additions for columns and editing.

// Messages to the control.
inline constexpr UINT TVM_SETCOLUMNAUTOEDIT = 0x114C;  // packed settings / choice list
inline constexpr UINT TVM_SETCOLUMNCHECK = 0x114D;     // column / input kind and length
inline constexpr UINT TVM_SETITEMPARAM = 0x114F;       // value / item
inline constexpr UINT TVM_GETITEMPARAM = 0x1150;       // 0 / item
inline constexpr UINT TVM_SETCOLUMN = 0x1170;          // column / TVCOLUMNW
inline constexpr UINT TVM_GETCOLUMN = 0x1171;          // column / TVCOLUMNW
inline constexpr UINT TVM_GETCOLUMNCOUNT = 0x1172;     // 0 / 0
inline constexpr UINT TVM_SELECTCELL = 0x117A;         // column / item
inline constexpr UINT TVM_INSERTCOLUMN = 0x117B;       // position / TVCOLUMNW

// Sent by the control to its owner when an edit field's edit is committed: the editor window /
// the NMTVEDITW record. A non-zero answer refuses the value and keeps the editor open.
inline constexpr UINT TVM_VALIDATEEDIT = 0x114C;

// TVM_GETNEXTITEM relation answering the current column instead of an item.
inline constexpr UINT TVGN_CARETCOLUMN = 13;

// Extended styles (TVM_SETEXTENDEDSTYLE).
inline constexpr DWORD TVS_EX_REPORTCOLUMNCHANGES = 0x800;
inline constexpr DWORD TVS_EX_EDITARROWS = 0x4000;
inline constexpr DWORD TVS_EX_GRIDLINES = 0x10000;
inline constexpr DWORD TVS_EX_CELLSELECT = 0x40000;
inline constexpr DWORD TVS_EX_EDITSELECTALL = 0x80000000;

// Notifications beyond the tree view's.
inline constexpr UINT TVN_STARTEDIT = static_cast<UINT>(-435);
inline constexpr UINT TVN_COLUMNCHANGED = static_cast<UINT>(-438);

// Item record for cells: TVITEMW followed by the column, which counts with TVIF_SUBITEM.
inline constexpr UINT TVIF_SUBITEM = 0x8000;
struct TVITEMCW : TVITEMW {
    int column;
};

// Marks of the end-of-edit record's mask.
inline constexpr UINT TVIF_TEXTCHANGED = 0x20000000;  // the text changed during the edit
inline constexpr UINT TVIF_RETURNKEY = 0x10000000;    // the edit ended with Enter

// Column record: begins as LVCOLUMNW (mask, format, width, caption, capacity).
inline constexpr UINT TVCF_FMT = 0x1;
inline constexpr UINT TVCF_WIDTH = 0x2;
inline constexpr UINT TVCF_TEXT = 0x4;
inline constexpr UINT TVCF_FIXED = 0x8;            // keeps its width when the control's width changes
inline constexpr UINT TVCF_MINWIDTH = 0x10000000;  // minWidth counts
inline constexpr UINT TVCF_WEIGHT = 0x80000000;    // weight counts
struct TVCOLUMNW {
    UINT mask;
    int fmt;  // LVCFMT_LEFT, LVCFMT_RIGHT, LVCFMT_CENTER
    int cx;
    LPWSTR pszText;
    int cchTextMax;
    int minWidth;
    int weight;
};

// TVN_GETDISPINFOW, TVN_SETDISPINFOW: as NMTVDISPINFOW, with the column.
struct NMTVDISPINFOCW {
    NMHDR hdr;
    TVITEMCW item;
};

// TVN_BEGINLABELEDITW, TVN_ENDLABELEDITW and TVM_VALIDATEEDIT: item, column and text, and for
// combo boxes the chosen list position (-1: none).
struct NMTVEDITW {
    NMHDR hdr;
    TVITEMCW item;
    int chosenIndex;
};

// TVN_STARTEDIT: the owner may start an edit the column does not start itself. A non-zero answer
// gives the editor (bit 29 a combo box, bit 30 with it a drop-down list, bit 31 the cell's full
// width); for combo boxes the owner lists the choices, ending with a null.
inline constexpr int kMaxStartEditChoices = 255;
struct NMTVSTARTEDITW {
    NMHDR hdr;
    TVITEMCW item;  // item, column, owner value and cell text
    UINT event;     // the typed character, VK_RETURN for Enter, WM_LBUTTONDOWN for the mouse
    LPCWSTR choices[kMaxStartEditChoices + 1];
};

// TVN_COLUMNCHANGED (with TVS_EX_REPORTCOLUMNCHANGES): a column's new width.
struct NMTVCOLUMNW {
    NMHDR hdr;
    int column;
    int width;
};

// The in-place editor is the control's child with this id.
inline constexpr int kInPlaceEditorId = 3;
// Commands of the in-place editor to the control.
inline constexpr WORD kEditorCommit = 0x1001;
inline constexpr WORD kEditorCancel = 0x1002;
inline constexpr WORD kEditorTextSet = 0x1003;
