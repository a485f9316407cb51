#pragma once

#include <windows.h>
#include <commctrl.h>
#include <uxtheme.h>

#include <string>
#include <vector>

#include "Dialogs/IncrementalSearch.h"
#include "Dialogs/TreeListEditRules.h"
#include "Dialogs/TreeListMessages.h"
#include "Dialogs/TreeListModel.h"

class CCheckedEdit;

// One tree-list window: its data, its message handling, painting and in-place editing. The window
// class "TreeList" keeps a pointer to it in the window's extra bytes.
//
// Every message handler holds the control's critical section while it reads or changes the data
// and leaves it around every message it sends to the owner, so the owner may call back in.
class TreeListWindow {
public:
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    // The one checked edit every in-place edit field of the process is attached to.
    static CCheckedEdit& SharedEdit();

private:
    class Lock;
    struct RowPaint;

    explicit TreeListWindow(HWND window);
    ~TreeListWindow();
    TreeListWindow(const TreeListWindow&) = delete;
    TreeListWindow& operator=(const TreeListWindow&) = delete;

    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT HandleTreeMessage(UINT message, WPARAM wParam, LPARAM lParam, bool& handled);

    // Talking to the owner, with the critical section left meanwhile.
    LRESULT SendToOwner(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Notify(NMHDR& header, UINT code);
    LRESULT NotifyTree(UINT code, UINT action, TreeItem oldItem, TreeItem newItem, POINT point = {});
    std::u16string CellText(TreeItem item, int column);  // asks the owner for supplied texts
    // A cell for a record to the owner: item, owner value, column and `text` (which must outlive it).
    TVITEMCW DescribeCell(TreeItem item, int column, std::u16string& text) const;

    // Items and columns.
    LRESULT InsertItem(const TVINSERTSTRUCTW& insert);
    LRESULT SetItem(const TVITEMW& record);
    LRESULT GetItem(TVITEMW& record);
    LRESULT DeleteItem(HTREEITEM item);
    LRESULT InsertColumn(int position, const TVCOLUMNW& record);
    LRESULT SetColumn(int column, const TVCOLUMNW& record);
    LRESULT GetColumn(int column, TVCOLUMNW& record);
    LRESULT SetColumnAutoEdit(WPARAM packed, LPARAM choices);
    LRESULT SetColumnCheck(WPARAM column, LPARAM packed);
    void ApplyColumnRecord(TreeListColumn& column, const TVCOLUMNW& record);

    // Selection, expansion, scrolling.
    bool Select(TreeItem item, int column, UINT action);
    bool Expand(TreeItem item, UINT action);
    void EnsureVisible(TreeItem item, int column);
    void Scroll(int bar, int request, int position);

    // Layout and painting (TreeListPaint.cpp).
    // Off, the control neither lays itself out nor sets its header: emptied and filled row by row,
    // its scroll bars would come and go, each time a new frame painted at once. On, it does both once.
    void SetRedraw(bool redraw);
    void Layout();
    // True when the bar changed.
    bool SetScrollBar(int bar, const SCROLLINFO& info);
    void UpdateHeader();
    bool HeaderShows(int column, const HDITEMW& wanted) const;
    void UpdateFont(HFONT font);
    int Scaled(int pixels) const;
    int HeaderHeight() const;
    int VisibleRowCount() const;
    RECT RowRect(int visibleIndex) const;
    RECT CellRect(int visibleIndex, int column) const;
    int ColumnLeft(int column) const;
    int TextIndent(TreeItem item) const;
    RECT ButtonRect(TreeItem item, const RECT& row) const;
    void Paint(HDC target, const RECT& area);
    std::vector<RowPaint> CollectRows();
    void PaintRow(HDC dc, const RowPaint& row, bool focused);
    void PaintButton(HDC dc, const RECT& box, bool expanded);
    void OpenTheme();

    // Mouse and keyboard.
    struct Hit {
        TreeItem item = 0;
        int column = -1;
        bool onButton = false;
        int textOffset = 0;  // pixels from the cell's text start
    };
    Hit HitTest(POINT point);
    void OnButtonDown(POINT point, bool doubleClick);
    void OnMouseMove(POINT point, WPARAM keys);
    bool OnKeyDown(UINT key);
    void OnChar(wchar_t character);
    UINT DialogCode(const MSG* message);
    void SearchFor(wchar_t character);
    void OnHeaderNotify(NMHEADERW& header, LRESULT& result);
    void OnSize(int width);
    void ReportColumnChanges(const std::vector<int>& columns);

    // In-place editing (TreeListEdit.cpp).
    HWND StartEdit(TreeItem item, std::uint32_t packed);
    HWND StartAutomaticEdit(TreeItem item, int column, UINT event, int textOffset);
    void DestroyEditor();
    void ConfigureSharedEdit(const TreeListColumn& column);
    void PlaceCaret(const EditArgument& argument, const std::u16string& text, HFONT font);
    void FillChoices(const LPCWSTR* choices, const std::u16string& text);
    void OnEditorCommand(WORD code);
    enum class EndMode { Cancel, Commit, CommitByEnter, CommitOnFocusLoss };
    void EndEdit(EndMode mode);
    static LRESULT CALLBACK EditorProc(HWND editor, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                       DWORD_PTR self);
    LRESULT OnEditorMessage(HWND editor, UINT message, WPARAM wParam, LPARAM lParam);
    bool CaretAtStart(HWND editor) const;
    bool CaretAtEnd(HWND editor) const;
    void CommitAndMove(UINT key);
    void CommitAndTab(bool backwards);
    // Posted to the control when a refused commit keeps the editor open while the focus moves on.
    static constexpr UINT kReturnFocusToEditor = WM_USER + 0x300;
    void ReturnFocusToEditor();

    HWND window_;
    HWND owner_;
    int id_;
    CRITICAL_SECTION lock_;
    TreeListModel model_;
    HWND header_ = nullptr;
    HFONT font_ = nullptr;
    HTHEME treeTheme_ = nullptr;
    int dpi_ = 96;
    int rowHeight_ = 18;
    int topRow_ = 0;
    int scrollX_ = 0;
    // As Layout last set them.
    RECT headerPlace_{};
    SCROLLINFO verticalBar_{};
    SCROLLINFO horizontalBar_{};
    bool redraw_ = true;
    bool paintPending_ = false;  // Layout invalidated the whole control, not painted since
    bool framePending_ = false;  // Layout invalidated the frame, not painted since
    int clientWidth_ = 0;
    IncrementalSearch search_;

    // Mouse press for drag detection.
    POINT pressPoint_{};
    TreeItem pressItem_ = 0;
    bool dragReported_ = false;

    // The edit in progress.
    HWND editor_ = nullptr;
    EditorKind editorKind_ = EditorKind::EditField;
    TreeItem editItem_ = 0;  // 0: no edit in progress
    int editColumn_ = 0;
    bool textFromOwner_ = false;
    bool edited_ = false;
    std::u16string startText_;  // the cell's text when the edit started
    bool ending_ = false;
};
