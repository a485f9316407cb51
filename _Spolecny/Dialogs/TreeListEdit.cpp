// In-place editing of the tree-list's cells: an edit field (checked by the shared checked edit)
// or a combo box laid over the cell, the keys that end it, and the result sent to the owner.
#include <algorithm>
#include <memory>
#include <vector>

#include "Dialogs/CCheckedEdit.h"
#include "Dialogs/TreeListResources.h"
#include "Dialogs/TreeListWindow.h"
#include "Win/WideText.h"

namespace {

constexpr UINT_PTR kEditorSubclassId = 0x544C;  // "TL"
constexpr int kEditorTextLimit = 2048;
constexpr int kEndTextCapacity = 2051;
constexpr int kComboTextCapacity = 1024;

std::u16string WindowText(HWND window, int capacity) {
    std::vector<wchar_t> buffer(static_cast<std::size_t>(capacity) + 1, L'\0');
    GetWindowTextW(window, buffer.data(), capacity + 1);
    return FromWide(buffer.data());
}

bool KeyIsDown(int key) {
    return (GetAsyncKeyState(key) & 0x8000) != 0;
}

}  // namespace

void TreeListWindow::DestroyEditor() {
    if (editor_ == nullptr) return;
    const HWND editor = editor_;
    editor_ = nullptr;
    editItem_ = 0;
    DestroyWindow(editor);  // the subclasses go with WM_NCDESTROY
}

void TreeListWindow::ConfigureSharedEdit(const TreeListColumn& column) {
    CCheckedEdit& edit = SharedEdit();
    edit.SetTitle(u"Chybný vstup");
    std::u16string message = edit.Message();
    ConfigureForInputKind(edit.Rules(), message, column.inputKind, column.maxLength);
    edit.SetMessage(std::move(message));
}

HWND TreeListWindow::StartEdit(TreeItem item, std::uint32_t packed) {
    if ((GetWindowLongW(window_, GWL_STYLE) & TVS_EDITLABELS) == 0) return nullptr;
    if (IsAutomaticEdit(packed)) return StartAutomaticEdit(item, static_cast<int>(packed & 0xFF), VK_RETURN, 0);

    // 1. Only an existing cell.
    const EditArgument argument = DecodeEditArgument(packed);
    const int column = argument.column;
    if ((column != 0 && !model_.HasColumn(column)) || item == 0 || item > model_.HighestItem() ||
        !model_.Exists(item)) {
        return nullptr;
    }

    // 2. The cell becomes current and shows; an editor left from before goes.
    if (model_.Current() != item || model_.CurrentColumn() != column) Select(item, column, TVC_UNKNOWN);
    if (!model_.Exists(item)) return nullptr;
    EnsureVisible(item, column);
    DestroyEditor();

    // 3. The editor, hidden for now.
    const TreeListColumn* settings = model_.HasColumn(column) ? &model_.Column(column) : nullptr;
    const int format = settings != nullptr ? settings->format : LVCFMT_LEFT;
    editorKind_ = argument.kind;
    if (editorKind_ == EditorKind::EditField) {
        DWORD style = WS_CHILD | WS_BORDER | ES_AUTOHSCROLL;
        if (format == LVCFMT_CENTER) style |= ES_CENTER;
        if (format == LVCFMT_RIGHT) style |= ES_RIGHT;
        editor_ = CreateWindowExW(0, L"EDIT", nullptr, style, 0, 0, 0, 0, window_,
                                  reinterpret_cast<HMENU>(static_cast<INT_PTR>(kInPlaceEditorId)),
                                  GetModuleHandleW(nullptr), nullptr);
        SendMessageW(editor_, EM_LIMITTEXT, kEditorTextLimit, 0);
    } else {
        const DWORD style = WS_CHILD | WS_VSCROLL | CBS_AUTOHSCROLL |
                            (editorKind_ == EditorKind::EditableCombo ? CBS_DROPDOWN : CBS_DROPDOWNLIST);
        editor_ = CreateWindowExW(0, L"COMBOBOX", nullptr, style, 0, 0, 0, Scaled(200), window_,
                                  reinterpret_cast<HMENU>(static_cast<INT_PTR>(kInPlaceEditorId)),
                                  GetModuleHandleW(nullptr), nullptr);
        SendMessageW(editor_, CB_LIMITTEXT, kEditorTextLimit, 0);
    }
    if (editor_ == nullptr) return nullptr;

    // 4. An edit field checks what is typed by the column's input kind.
    if (editorKind_ == EditorKind::EditField) {
        SharedEdit().Subclass(editor_);
        if (settings != nullptr) ConfigureSharedEdit(*settings);
    }

    // 5. Plain look, our procedure on the editor and its children.
    const ThemeFunctions& theme = TreeListResources::Theme();
    if (theme.setWindowTheme != nullptr) theme.setWindowTheme(editor_, L"", L"");
    SetWindowSubclass(editor_, EditorProc, kEditorSubclassId, reinterpret_cast<DWORD_PTR>(this));
    for (HWND child = GetWindow(editor_, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        SetWindowSubclass(child, EditorProc, kEditorSubclassId, reinterpret_cast<DWORD_PTR>(this));
    }
    edited_ = false;
    if (editorKind_ != EditorKind::EditField) SendMessageW(editor_, CB_RESETCONTENT, 0, 0);

    // 6. The cell's text, from the owner when it supplies it.
    const TreeListText* stored = model_.Text(item, column);
    textFromOwner_ = stored != nullptr && stored->fromOwner;
    const std::u16string text = CellText(item, column);
    if (!model_.Exists(item) || editor_ == nullptr) return nullptr;

    // 7. Where the editor goes.
    const int index = model_.VisibleIndex(item);
    RECT cell = CellRect(index, column);
    if (column == 0) cell.left += TextIndent(item) - Scaled(4);
    RECT client{};
    GetClientRect(window_, &client);
    const HDC dc = GetDC(window_);
    const HGDIOBJ previous = SelectObject(dc, font_);
    RECT measured{0, 0, 0, 0};
    DrawTextW(dc, Wide(text), -1, &measured, DT_SINGLELINE | DT_NOPREFIX | DT_CALCRECT);
    SelectObject(dc, previous);
    ReleaseDC(window_, dc);
    const EditorSpan span =
        PlaceEditor({static_cast<int>(cell.left), static_cast<int>(cell.right - cell.left),
                     static_cast<int>(client.right), static_cast<int>(measured.right), static_cast<int>(text.size()),
                     editorKind_, format, argument.fullWidth, GetSystemMetrics(SM_CXVSCROLL), dpi_});

    // 8. The owner may still refuse.
    NMTVEDITW begin{};
    std::u16string beginText = text;
    begin.item = DescribeCell(item, column, beginText);
    begin.chosenIndex = -1;
    if (Notify(begin.hdr, TVN_BEGINLABELEDITW) != 0 || editor_ == nullptr) return nullptr;

    // 9. Show it with the text and the caret where asked.
    SetFocus(editor_);
    const int height =
        editorKind_ == EditorKind::EditField ? static_cast<int>(cell.bottom - cell.top) - 1 : Scaled(200);
    SetWindowPos(editor_, HWND_TOP, span.left + 2, cell.top + 1, span.width, height, SWP_SHOWWINDOW);
    SendMessageW(editor_, WM_SETFONT, reinterpret_cast<WPARAM>(font_), TRUE);
    if (editorKind_ == EditorKind::EditField) {
        SetWindowTextW(editor_, Wide(text));
        SharedEdit().CheckWholeText();
        PlaceCaret(argument, text, font_);
    } else if (editorKind_ == EditorKind::EditableCombo) {
        SetWindowTextW(editor_, Wide(text));
        PlaceCaret(argument, text, font_);
    } else {
        RedrawWindow(editor_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE);
    }
    startText_ = text;
    editItem_ = item;
    editColumn_ = column;
    return editor_;
}

void TreeListWindow::PlaceCaret(const EditArgument& argument, const std::u16string& text, HFONT font) {
    int start = 0;
    int end = -1;
    if (argument.placementMode == 1) {
        const HDC dc = GetDC(editor_);
        const HGDIOBJ previous = SelectObject(dc, font);
        std::vector<int> extents(text.size());
        SIZE size{};
        int fitted = 0;
        GetTextExtentExPointW(dc, Wide(text), static_cast<int>(text.size()), 0x7FFFFFFF, &fitted, extents.data(),
                              &size);
        SelectObject(dc, previous);
        ReleaseDC(editor_, dc);
        start = end = CaretAtOffset(extents, argument.placementData);
    } else if (argument.placementMode >= 2) {
        start = argument.SelectionStart();
        end = argument.SelectionEnd();
    }
    if (editorKind_ == EditorKind::EditField) {
        SendMessageW(editor_, EM_SETSEL, static_cast<WPARAM>(start), end);
    } else {
        SendMessageW(editor_, CB_SETEDITSEL, 0, MAKELPARAM(start, end));
    }
}

void TreeListWindow::FillChoices(const LPCWSTR* choices, const std::u16string& text) {
    if (editor_ == nullptr || editorKind_ == EditorKind::EditField || choices == nullptr) return;
    int chosen = -1;
    for (int index = 0; choices[index] != nullptr && index < kMaxStartEditChoices; ++index) {
        SendMessageW(editor_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(choices[index]));
        if (chosen < 0 && FromWide(choices[index]) == text) chosen = index;
    }
    if (chosen >= 0) SendMessageW(editor_, CB_SETCURSEL, static_cast<WPARAM>(chosen), 0);
}

HWND TreeListWindow::StartAutomaticEdit(TreeItem item, int column, UINT event, int textOffset) {
    if (!model_.Exists(item) || (column != 0 && !model_.HasColumn(column))) return nullptr;
    const bool typed = event != VK_RETURN && event != WM_LBUTTONDOWN;
    EditArgument argument;
    argument.column = column;
    if (event == WM_LBUTTONDOWN && (model_.ExtendedStyle() & kMouseEditSelectsAll) == 0) {
        argument.placementMode = 1;
        argument.placementData = std::max(textOffset, 0);
    }

    const TreeListColumn* settings = model_.HasColumn(column) ? &model_.Column(column) : nullptr;
    EditorKind kind = EditorKind::EditField;
    const bool columnEdits = settings != nullptr && EditorKindForMode(settings->editMode, kind) &&
                             (!typed || TypingStartsEdit(settings->editMode, settings->editFlags));
    std::vector<LPCWSTR> ownerChoices;
    const LPCWSTR* choices = settings != nullptr ? static_cast<const LPCWSTR*>(settings->choices) : nullptr;
    if (columnEdits) {
        argument.kind = kind;
    } else {
        // The column does not edit itself here: the owner may start an edit.
        auto request = std::make_unique<NMTVSTARTEDITW>();
        const std::u16string text = CellText(item, column);
        std::u16string copy = text;
        request->item = DescribeCell(item, column, copy);
        request->event = event;
        const auto answer = static_cast<std::uint32_t>(Notify(request->hdr, TVN_STARTEDIT));
        if (answer == 0 || !model_.Exists(item)) return nullptr;
        const EditArgument given = DecodeEditArgument(answer);
        argument.kind = (answer & 0x20000000u) == 0   ? EditorKind::EditField
                        : (answer & 0x40000000u) != 0 ? EditorKind::DropDownList
                                                      : EditorKind::EditableCombo;
        argument.fullWidth = given.fullWidth;
        for (int index = 0; index < kMaxStartEditChoices && request->choices[index] != nullptr; ++index) {
            ownerChoices.push_back(request->choices[index]);
        }
        ownerChoices.push_back(nullptr);
        choices = ownerChoices.data();
    }

    const HWND editor = StartEdit(item, EncodeEditArgument(argument));
    if (editor == nullptr) return nullptr;
    if (argument.kind != EditorKind::EditField) {
        FillChoices(choices, CellText(item, column));
        edited_ = false;
    }
    if (typed) SendMessageW(editor, WM_CHAR, event, 1);  // the first character of the new text
    return editor;
}

void TreeListWindow::OnEditorCommand(WORD code) {
    const bool combo = editorKind_ != EditorKind::EditField;
    switch (code) {
        case kEditorCommit:
            EndEdit(EndMode::CommitByEnter);
            if (combo) SetFocus(window_);
            return;
        case kEditorCancel:
            EndEdit(EndMode::Cancel);
            if (combo) SetFocus(window_);
            return;
        case EN_KILLFOCUS:
            if (!combo) EndEdit(EndMode::CommitOnFocusLoss);
            return;
        case CBN_KILLFOCUS:
            if (combo) {
                EndEdit(EndMode::Commit);
                SetFocus(window_);
            }
            return;
        case EN_CHANGE:
        case CBN_EDITCHANGE:
        case CBN_SELCHANGE:
        case kEditorTextSet:
            if (editItem_ != 0) edited_ = true;
            return;
        default:
            SendToOwner(WM_COMMAND, MAKEWPARAM(kInPlaceEditorId, code), reinterpret_cast<LPARAM>(editor_));
            return;
    }
}

void TreeListWindow::EndEdit(EndMode mode) {
    if (ending_ || editItem_ == 0 || editor_ == nullptr) return;
    const TreeItem item = editItem_;
    const int column = editColumn_;
    editItem_ = 0;
    editColumn_ = 0;
    if (!model_.Exists(item) || (column != 0 && !model_.HasColumn(column))) return;
    ending_ = true;

    const bool commit = mode != EndMode::Cancel;
    const bool combo = editorKind_ != EditorKind::EditField;
    int capacity = kEndTextCapacity;
    if (combo && model_.HasColumn(column)) {
        capacity = model_.Column(column).editParam2 != 0 ? model_.Column(column).editParam2 : kComboTextCapacity;
    }
    const std::u16string typed = WindowText(editor_, capacity);
    std::u16string text = commit ? typed : std::u16string();
    const int chosen = combo ? static_cast<int>(SendMessageW(editor_, CB_GETCURSEL, 0, 0)) : -1;
    const bool changed = TextChangedDuringEdit(edited_, startText_, typed);

    NMTVEDITW record{};
    auto fill = [&] {
        record.item = DescribeCell(item, column, text);
        record.item.mask |= (changed ? TVIF_TEXTCHANGED : 0) | (mode == EndMode::CommitByEnter ? TVIF_RETURNKEY : 0);
        if (!commit) record.item.pszText = nullptr;
        record.item.cchTextMax = kEndTextCapacity;
        record.chosenIndex = chosen;
    };
    auto keepOpen = [&] {
        editItem_ = item;
        editColumn_ = column;
        ending_ = false;
    };

    if (commit && !combo) {
        CCheckedEdit& edit = SharedEdit();
        edit.CheckWholeText();
        if (!edit.IsValid()) {
            // A window shown while the focus moves may never appear: leaving by the focus, the
            // balloon waits until the editor has the focus back (ReturnFocusToEditor).
            if (mode != EndMode::CommitOnFocusLoss) edit.ShowErrorBalloon();
            keepOpen();
            return;
        }
        fill();
        const HWND editor = editor_;
        if (SendToOwner(TVM_VALIDATEEDIT, reinterpret_cast<WPARAM>(editor), reinterpret_cast<LPARAM>(&record)) != 0) {
            if (editor_ == editor && model_.Exists(item)) keepOpen();
            ending_ = false;
            return;
        }
    }

    ShowWindow(editor_, SW_HIDE);
    fill();
    const LRESULT handled = Notify(record.hdr, TVN_ENDLABELEDITW);
    ending_ = false;
    if (handled != 0 || !commit || !model_.Exists(item)) {
        InvalidateRect(window_, nullptr, FALSE);
        return;
    }
    if (textFromOwner_) {
        NMTVDISPINFOCW store{};
        store.item = DescribeCell(item, column, text);
        Notify(store.hdr, TVN_SETDISPINFOW);
    } else if (TreeListText* cell = model_.Text(item, column)) {
        cell->text = text;
        if (combo) cell->chosenIndex = chosen;
    }
    InvalidateRect(window_, nullptr, FALSE);
}

bool TreeListWindow::CaretAtStart(HWND editor) const {
    DWORD start = 0;
    DWORD end = 0;
    SendMessageW(editor, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    return start == 0 && end == 0;
}

bool TreeListWindow::CaretAtEnd(HWND editor) const {
    DWORD start = 0;
    DWORD end = 0;
    SendMessageW(editor, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    const auto length = static_cast<DWORD>(GetWindowTextLengthW(editor));
    return start == length && end == length;
}

void TreeListWindow::CommitAndMove(UINT key) {
    SendMessageW(window_, WM_COMMAND, MAKEWPARAM(kInPlaceEditorId, kEditorCommit), reinterpret_cast<LPARAM>(editor_));
    if (editItem_ != 0) return;  // refused: the current cell stays under its open editor
    PostMessageW(window_, WM_KEYDOWN, key, 1);
    PostMessageW(window_, WM_KEYUP, key, 1 | (LPARAM{3} << 30));
}

void TreeListWindow::CommitAndTab(bool backwards) {
    SendMessageW(window_, TVM_ENDEDITLABELNOW, 0, 0);
    if (editItem_ != 0) return;  // refused: the editor stays with its balloon
    // From the control, the dialog's tab order goes on as if the control had had the focus.
    SetFocus(window_);
    SendMessageW(GetAncestor(window_, GA_ROOT), WM_NEXTDLGCTL, backwards ? 1 : 0, FALSE);
}

void TreeListWindow::ReturnFocusToEditor() {
    if (editItem_ == 0 || editor_ == nullptr || !IsWindowVisible(editor_)) return;
    SetFocus(editor_);
    if (!SharedEdit().IsValid()) SharedEdit().ShowErrorBalloon();
}

LRESULT CALLBACK TreeListWindow::EditorProc(HWND editor, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                            DWORD_PTR self) {
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(editor, EditorProc, kEditorSubclassId);
        return DefSubclassProc(editor, message, wParam, lParam);
    }
    return reinterpret_cast<TreeListWindow*>(self)->OnEditorMessage(editor, message, wParam, lParam);
}

LRESULT TreeListWindow::OnEditorMessage(HWND editor, UINT message, WPARAM wParam, LPARAM lParam) {
    const bool combo = editorKind_ != EditorKind::EditField;
    // Keys come to the editor itself or, in an editable combo box, to its inner edit.
    const HWND box = combo ? editor_ : nullptr;
    const bool arrowsLeave = (model_.ExtendedStyle() & kArrowsLeaveEditor) != 0 && !KeyIsDown(VK_SHIFT);
    switch (message) {
        case WM_GETDLGCODE:
            return DefSubclassProc(editor, message, wParam, lParam) | DLGC_WANTALLKEYS;
        case WM_CHAR:
            if (wParam == VK_RETURN || wParam == VK_ESCAPE || wParam == VK_TAB) return 0;  // their keys did the work
            break;
        case WM_KEYDOWN:
            switch (wParam) {
                case VK_RETURN:
                    SendMessageW(window_, WM_COMMAND, MAKEWPARAM(kInPlaceEditorId, kEditorCommit),
                                 reinterpret_cast<LPARAM>(editor_));
                    return 0;
                case VK_ESCAPE:
                    SendMessageW(window_, WM_COMMAND, MAKEWPARAM(kInPlaceEditorId, kEditorCancel),
                                 reinterpret_cast<LPARAM>(editor_));
                    return 0;
                case VK_TAB:
                    CommitAndTab(GetKeyState(VK_SHIFT) < 0);
                    return 0;
                case VK_LEFT:
                    if (arrowsLeave && editor != box && CaretAtStart(editor)) {
                        CommitAndMove(VK_LEFT);
                        return 0;
                    }
                    break;
                case VK_RIGHT:
                    if (arrowsLeave && editor != box && CaretAtEnd(editor)) {
                        CommitAndMove(VK_RIGHT);
                        return 0;
                    }
                    break;
                case VK_UP:
                    if (arrowsLeave && !combo) {
                        CommitAndMove(VK_UP);
                        return 0;
                    }
                    break;
                case VK_DOWN:
                    if (arrowsLeave && !combo) {
                        CommitAndMove(VK_DOWN);
                        return 0;
                    }
                    if (combo && SendMessageW(editor_, CB_GETDROPPEDSTATE, 0, 0) == FALSE) {
                        SendMessageW(editor_, CB_SHOWDROPDOWN, TRUE, 0);
                        return 0;
                    }
                    break;
                default:
                    break;
            }
            break;
        case WM_MOUSEWHEEL:
            if (combo && SendMessageW(editor_, CB_GETDROPPEDSTATE, 0, 0) != FALSE) {
                const int notches = GET_WHEEL_DELTA_WPARAM(wParam) / WHEEL_DELTA;
                const int top = static_cast<int>(SendMessageW(editor_, CB_GETTOPINDEX, 0, 0));
                SendMessageW(editor_, CB_SETTOPINDEX, static_cast<WPARAM>(std::max(top - notches, 0)), 0);
                return 0;
            }
            break;
        case WM_SETTEXT: {
            const LRESULT result = DefSubclassProc(editor, message, wParam, lParam);
            SendMessageW(window_, WM_COMMAND, MAKEWPARAM(kInPlaceEditorId, kEditorTextSet),
                         reinterpret_cast<LPARAM>(editor_));
            return result;
        }
        case WM_KILLFOCUS: {
            // The default handling commits (the edit field's focus-lost notification).
            const LRESULT result = DefSubclassProc(editor, message, wParam, lParam);
            if (editor_ == nullptr || !IsWindowVisible(editor_)) return result;
            if (editItem_ != 0) {
                // Refused: the edit stays open, and takes the focus back from the window of the
                // same dialog that took it, once that window has it.
                const auto to = reinterpret_cast<HWND>(wParam);
                if (to != nullptr && GetAncestor(to, GA_ROOT) == GetAncestor(window_, GA_ROOT)) {
                    PostMessageW(window_, kReturnFocusToEditor, 0, 0);
                }
            } else if (!ending_) {
                ShowWindow(editor_, SW_HIDE);  // the end of an edit that said nothing
            }
            return result;
        }
        default:
            break;
    }
    return DefSubclassProc(editor, message, wParam, lParam);
}
