// The editor's profile pane and the DN range dialog, driven through the tree-list's messages and
// its in-place editor under Wine.

#include <cstring>
#include <string>
#include <tuple>
#include <utility>

#include "Dialogs/TreeListEditRules.h"
#include "_Velmora/ProfileEditRules.h"
#include "_Velmora/QxDlgGetDN.h"
#include "win/MaterialEditorHarness.h"

namespace {

using namespace material_dialogs;

constexpr int kDn80 = 10, kDn100 = 11, kDn125 = 12;

class ProfilePaneEditor : public MaterialEditor {
protected:
    // The material "PE" with profiles at `dnIndexes`, the editor open on it in the foreground.
    CQvxMaterial& OpenWith(std::initializer_list<int> dnIndexes) {
        CQvxMaterial& material = AddMaterial(catalogue, u"PE");
        for (const int index : dnIndexes) material.AddProfile(index);
        Open();
        SetForegroundWindow(editor.Handle());
        return *editor.WorkingList().Find(u"PE");
    }
    const CTreeListCtrl& Pane() const { return editor.ProfilePane(); }
    HTREEITEM Next(HTREEITEM row) const { return Pane().GetNextItem(row, row ? TVGN_NEXT : TVGN_ROOT); }
    int DnOf(HTREEITEM row) const { return reinterpret_cast<CQvxProfil*>(Pane().GetItemParam(row))->DnIndex(); }
    // The DN indexes of the pane's rows' profiles, from the top.
    std::vector<int> RowDns() const {
        std::vector<int> dns;
        for (HTREEITEM row = Next(nullptr); row; row = Next(row)) dns.push_back(DnOf(row));
        return dns;
    }
    HTREEITEM RowOf(int dnIndex) const {
        HTREEITEM row = Next(nullptr);
        while (row && DnOf(row) != dnIndex) row = Next(row);
        return row;
    }
    // Selects the first material row anew, as a click on it does.
    void ReselectFirstMaterial() {
        editor.MaterialList().SetItemState(0, 0, LVIS_SELECTED);
        editor.MaterialList().SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
        gui::Pump(editor);
    }
    void SelectProfile(int dnIndex) {
        Pane().SelectCell(RowOf(dnIndex), 0);
        gui::Pump(editor);
    }
    RECT RowRect(int dnIndex) const {
        RECT row{};
        const HTREEITEM item = RowOf(dnIndex);
        std::memcpy(&row, &item, sizeof(item));  // the item goes in where the rectangle comes out
        EXPECT_TRUE(Pane().Send(TVM_GETITEMRECT, FALSE, reinterpret_cast<LPARAM>(&row)));
        return row;
    }
    HWND Editor() const { return reinterpret_cast<HWND>(Pane().Send(TVM_GETEDITCONTROL)); }
    // Starts the cell's own editor, notes the text it starts from, gives it `text` and presses Enter.
    HWND TypeIntoCell(int dnIndex, int column, std::u16string_view text) {
        const HWND cellEditor = Pane().EditLabel(RowOf(dnIndex), AutomaticEditArgument(column));
        startText = gui::Text(cellEditor);
        gui::SetText(cellEditor, u"");
        gui::Type(cellEditor, text);
        gui::PressKey(cellEditor, VK_RETURN);
        gui::Pump(editor);
        return cellEditor;
    }

    std::u16string startText;
};

// Emptied and filled in one go, the pane shows a vertical bar only for more rows than fit, never a
// horizontal one its columns do not need, whatever material it showed before; the first row is
// current.
TEST_F(ProfilePaneEditor, ScrollBarsFitEachShownMaterial) {
    AddMaterial(catalogue, u"AA");  // no profiles, listed first
    CQvxMaterial& full = AddMaterial(catalogue, u"PE");
    for (int dnIndex = 0; dnIndex < 28; ++dnIndex) full.AddProfile(dnIndex);
    Open();
    const auto bars = [this] { return GetWindowLongW(Pane().Handle(), GWL_STYLE) & (WS_VSCROLL | WS_HSCROLL); };
    for (const int row : {1, 0, 1}) {
        editor.MaterialList().SetItemState(row, LVIS_SELECTED, LVIS_SELECTED);
        gui::Pump(editor);
        EXPECT_EQ(RowDns().size(), row == 1 ? 28u : 0u);
        EXPECT_EQ(bars(), row == 1 ? WS_VSCROLL : 0) << "row " << row;
    }
    EXPECT_EQ(Pane().GetNextItem(nullptr, TVGN_CARET), Next(nullptr));
}

// What the editor dialog hears of the pane's edits, in order (Begin, Validate, End, Store), and the
// end record's mask.
std::string heard;
UINT endMask = 0;
LRESULT CALLBACK Overhear(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
    const auto* edit = reinterpret_cast<const NMTVEDITW*>(lParam);
    const UINT code = message == WM_NOTIFY ? edit->hdr.code : 0;
    if (code == TVN_ENDLABELEDITW) endMask = edit->item.mask;
    if (message == TVM_VALIDATEEDIT) heard += 'V';
    heard += code == TVN_BEGINLABELEDITW ? "B" : code == TVN_ENDLABELEDITW ? "E" : code == TVN_SETDISPINFOW ? "S" : "";
    return DefSubclassProc(window, message, wParam, lParam);
}

// "+" takes the next free DN from the selected profile's on; with the series full it starts over
// from the first only when asked. The price-list codes are stored, each in its field, when the
// selection moves on; the 10th character is refused with the balloon, never with an exception box.
// Generating replaces every profile. Deleting moves the selection on (back from the last row); a
// used profile stays. Other shapes than the circle take a width.
TEST_F(ProfilePaneEditor, AddGenerateAndDeleteProfilesAndStoreTheirCodes) {
    CQvxMaterial& pe = OpenWith({3, 4});
    SelectProfile(3);
    Click(IDC_PROFILE_ADD);
    EXPECT_EQ(RowDns(), (std::vector<int>{3, 4, 5}));

    SelectProfile(3);
    gui::SetText(Control(IDC_URS_INSTALL), u"M1");
    gui::SetText(Control(IDC_URS_MATERIAL), u"K123");
    EXPECT_EQ(pe.FindProfile(3)->UrsMaterialCode(), u"");
    SelectProfile(4);
    EXPECT_EQ(pe.FindProfile(3)->UrsMaterialCode(), u"K123");
    EXPECT_EQ(pe.FindProfile(3)->UrsInstallCode(), u"M1");
    EXPECT_EQ(Text(IDC_URS_MATERIAL), u"");

    gui::Type(Control(IDC_URS_MATERIAL), u"0123456789");
    EXPECT_EQ(Text(IDC_URS_MATERIAL), u"012345678");
    EXPECT_EQ(gui::FindVisibleBalloon().text, u"Maximální délka je omezena na 9 znaků");
    SelectProfile(3);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(pe.FindProfile(4)->UrsMaterialCode(), u"012345678");
    EXPECT_EQ(Text(IDC_URS_MATERIAL), u"K123");

    ASSERT_TRUE(ClickShowing(IDC_PROFILE_GENERATE, L"Výběr rozsahu DN", [](HWND range) {  // offering every DN
        Sleep(300);  // let it draw for the picture
        gui::SaveScreenshot(L"dn-range");
        PostMessageW(range, WM_COMMAND, IDOK, 0);
    }));
    ASSERT_EQ(RowDns().size(), 28u);
    EXPECT_EQ(pe.FindProfile(3)->UrsMaterialCode(), u"");  // a new profile
    gui::SaveScreenshot(L"profiles-circle");
    SCROLLINFO bar{sizeof(bar), SIF_RANGE, 0, 0, 0, 0, 0};  // set with every row, drawn with the frame
    ASSERT_TRUE(GetScrollInfo(Pane().Handle(), SB_VERT, &bar));
    EXPECT_EQ(bar.nMax, 27);
    EXPECT_EQ(ClickAnswering(IDC_PROFILE_ADD).text, L"Nelze přidat již další DN !!");  // from the first row
    SelectProfile(20);
    {
        MessageBoxWatcher boxes(kCaption, {IDYES, IDOK}, editor.Handle());
        Click(IDC_PROFILE_ADD);
        EXPECT_EQ(boxes.Texts(), (std::vector<std::wstring>{L"Nelze přidat již další DN, přidat od začátku?",
                                                            L"Nelze přidat již další DN !!"}));
    }
    EXPECT_EQ(pe.Profiles().size(), 28u);

    SelectProfile(kDn100);
    Click(IDC_PROFILE_DELETE);
    EXPECT_EQ(DnOf(Pane().GetSelection()), kDn125);
    SelectProfile(kDnCount - 1);
    Click(IDC_PROFILE_DELETE);  // the last row: the selection goes back to the new last one
    EXPECT_EQ(DnOf(Pane().GetSelection()), kDnCount - 2);
    EXPECT_EQ(RowDns().size(), 26u);

    CQvxProfil* user = nullptr;
    pe.FindProfile(kDnCount - 2)->Users().Register(&user);
    EXPECT_EQ(ClickAnswering(IDC_PROFILE_DELETE).text, L"Profil je používán, nelze jej vymazat");
    pe.FindProfile(kDnCount - 2)->Users().Clear();

    EXPECT_EQ(ClickAnswering(IDC_PROFILE_DELETE_ALL, IDYES).text,
              L"Opravdu vymazat všechny profily?\ntento krok je nevratný");
    EXPECT_TRUE(pe.Profiles().empty());
    EXPECT_EQ(Pane().GetCount(), 0);

    // (The working copy does not take the shape over from the caller's list: it is set there.)
    pe.AddProfile(kDn100);
    EditMaterial(pe, [](MaterialExchangeRecord& record) { record.shape = ProfileShape::Rectangle; });
    ReselectFirstMaterial();
    TypeIntoCell(kDn100, kWidthColumn, u"1600.4");
    EXPECT_EQ(pe.FindProfile(kDn100)->Width(), 1600);
    gui::SaveScreenshot(L"profiles-rectangle");
}

// However an edit of a number cell ends, the editor hears of it in order; the end record is marked
// changed only for a text unlike the cell's. Tab goes on to the next control. A text that is no
// number keeps the editor open, focused and coloured, with its balloon, when the focus leaves it.
TEST_F(ProfilePaneEditor, CellEditsReportInOrderStartByTypingLeaveByArrowsOrTabAndKeepTheDnBand) {
    CQvxMaterial& pe = OpenWith({kDn80, kDn100});
    CQvxProfil& dn100 = *pe.FindProfile(kDn100);
    SetWindowSubclass(editor.Handle(), Overhear, 1, 0);
    const std::tuple<std::u16string, UINT, const char*, UINT> endings[] = {
        // typed over the text, key (0: the focus goes to the material list), heard, end mask
        {ProfileCellText(dn100, ProfileShape::Circle, kWallColumn), VK_RETURN, "BVES", 0x10008005},
        {u"", 0, "BVES", 0x00008005},
        {u"6", VK_TAB, "BVES", 0x20008005},
        {u"8", VK_ESCAPE, "BE", 0x20008005},
        {u"2.", 0, "B", 0}};
    HWND cellEditor = nullptr;
    for (const auto& [typed, key, expected, mask] : endings) {
        heard.clear();
        endMask = 0;
        cellEditor = Pane().EditLabel(RowOf(kDn100), AutomaticEditArgument(kWallColumn));
        gui::Type(cellEditor, typed);
        key != 0 ? gui::PressKey(cellEditor, key) : void(SetFocus(Control(IDC_MATERIAL_LIST)));
        gui::Pump(editor);
        EXPECT_EQ(heard, expected) << Wide(typed);
        EXPECT_EQ(endMask, mask) << Wide(typed);
        EXPECT_EQ(GetFocus() == GetNextDlgTabItem(editor.Handle(), Pane().Handle(), FALSE), key == VK_TAB);
    }
    EXPECT_EQ(GetFocus(), cellEditor);  // taken back from the list
    EXPECT_EQ(gui::FindVisibleBalloon().text, u"Zadejte desetinné číslo");
    EXPECT_EQ(CTreeListCtrl::InPlaceEdit().Title(), u"Chybný vstup");
    EXPECT_EQ(gui::ReadEditColours(Pane().Handle(), cellEditor).background, RGB(255, 255, 160));
    gui::Pump(editor, 100);  // the header paints for the picture
    gui::SaveScreenshot(L"profiles-cell-editor");
    gui::PressKey(cellEditor, VK_ESCAPE);
    EXPECT_EQ(heard, "BE");
    EXPECT_FALSE(IsWindowVisible(cellEditor));
    RemoveWindowSubclass(editor.Handle(), Overhear, 1);

    // A digit typed into a selected number cell starts its edit. Left at the start of the text
    // stays in the editor, unless the pane has the style that lets the arrows leave it and the text
    // is taken. The current cell is painted as such.
    Pane().SelectCell(RowOf(kDn80), kOuterColumn);
    SetFocus(Pane().Handle());
    gui::RealType(u"4");
    gui::Pump(editor, 100);
    ASSERT_TRUE(IsWindowVisible(Editor()));
    EXPECT_EQ(gui::Text(Editor()), u"4");  // the typed character replaced the text
    gui::PressKey(Editor(), VK_ESCAPE);

    const std::tuple<bool, const char16_t*, bool> lefts[] = {
        {false, u"", false}, {true, u"2.", false}, {true, u"", true}};
    for (const auto& [arrows, text, leaves] : lefts) {  // the arrow style, a text typed first, whether it leaves
        Pane().SetExtendedStyle(TVS_EX_EDITARROWS, arrows ? TVS_EX_EDITARROWS : 0);
        cellEditor = Pane().EditLabel(RowOf(kDn100), kWallColumn);
        gui::Type(cellEditor, text);                // over the selected text
        SendMessageW(cellEditor, EM_SETSEL, 0, 0);  // the caret at 0
        gui::PressKey(cellEditor, VK_LEFT);
        gui::Pump(editor);
        EXPECT_EQ(IsWindowVisible(cellEditor) != FALSE, !leaves) << arrows;
        EXPECT_EQ(Pane().GetCurrentColumn(), leaves ? kOuterColumn : kWallColumn) << arrows;
    }

    // With the pane not focused the current cell shows in the button face colour, within grid lines.
    Pane().SelectCell(RowOf(kDn100), kWallColumn);
    SetFocus(Control(IDC_MATERIAL_LIST));
    const RECT row = RowRect(kDn100);
    int wallLeft = 0;
    int wallRight = 0;
    for (int column = 0; column <= kWallColumn; ++column) {
        wallLeft = std::exchange(wallRight, wallRight + PaneColumn(column).second);
    }
    const gui::ClientPicture picture(Pane().Handle());
    const int middle = (row.top + row.bottom) / 2;
    const COLORREF face = GetSysColor(COLOR_BTNFACE);
    EXPECT_EQ(picture.Pixel(wallLeft + 2, middle), face);
    EXPECT_EQ(picture.Pixel(wallRight - 3, row.top + 1), face);
    EXPECT_NE(picture.Pixel(wallRight - 1, middle - 4), GetSysColor(COLOR_WINDOW));     // the column's grid line
    EXPECT_NE(picture.Pixel(wallLeft + 8, row.bottom - 1), GetSysColor(COLOR_WINDOW));  // the row's grid line
    EXPECT_NE(picture.Pixel(wallLeft - 5, middle), face);                               // the neighbour is not selected

    // The cell's editor starts from the owner's text and takes a comma as a point; the owner refuses
    // a number outside the DN's band. A click elsewhere commits.
    dn100.SetDimensions(100, 5);
    editor.WorkingList().SetUnchanged(true);
    cellEditor = TypeIntoCell(kDn100, kInnerColumn, u"72");
    EXPECT_EQ(startText, u"100.0");
    EXPECT_TRUE(IsWindowVisible(cellEditor));  // refused: the edit stays open
    EXPECT_EQ(gui::FindVisibleBalloon().text, u"Zadaný průměr neodpovídá zadanému DN, nejprve změňte DN");
    EXPECT_FLOAT_EQ(dn100.InnerDiameter(), 100);
    EXPECT_TRUE(editor.WorkingList().IsUnchanged());
    gui::SetText(cellEditor, u"");
    gui::Type(cellEditor, u"72,5");
    EXPECT_EQ(gui::Text(cellEditor), u"72.5");
    const RECT dn80 = RowRect(kDn80);
    POINT point{(dn80.left + dn80.right) / 2, (dn80.top + dn80.bottom) / 2};
    ClientToScreen(Pane().Handle(), &point);
    gui::RealClick(point);
    gui::Pump(editor, 100);
    EXPECT_FALSE(IsWindowVisible(cellEditor));
    EXPECT_EQ(DnOf(Pane().GetSelection()), kDn80);
    EXPECT_FLOAT_EQ(dn100.InnerDiameter(), 72.5f);
    EXPECT_EQ(Pane().CellText(RowOf(kDn100), kInnerColumn), u"");  // the owner still supplies the text
    EXPECT_FALSE(editor.WorkingList().IsUnchanged());

    // The DN's drop-down list offers every DN and moves the profile only to a free one.
    const auto choose = [&](int dnIndex, int choice) {
        const HWND combo = Pane().EditLabel(RowOf(dnIndex), AutomaticEditArgument(kDnColumn));
        EXPECT_EQ(SendMessageW(combo, CB_GETCOUNT, 0, 0), kDnCount);
        EXPECT_EQ(SendMessageW(combo, CB_GETCURSEL, 0, 0), dnIndex);
        gui::PressKey(combo, VK_DOWN);
        EXPECT_TRUE(SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0));
        SendMessageW(combo, CB_SHOWDROPDOWN, FALSE, 0);
        SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(choice), 0);
        SendMessageW(Pane().Handle(), WM_COMMAND, MAKEWPARAM(kInPlaceEditorId, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(combo));
        gui::PressKey(combo, VK_RETURN);
        gui::Pump(editor);
    };
    choose(kDn80, kDn125);
    EXPECT_EQ(RowDns(), (std::vector<int>{kDn100, kDn125}));
    EXPECT_FLOAT_EQ(pe.FindProfile(kDn125)->InnerDiameter(), 125);

    EXPECT_FALSE(Answering([&] { choose(kDn100, kDn125); }).found);  // taken: nothing changes, nothing is said
    EXPECT_EQ(RowDns(), (std::vector<int>{kDn100, kDn125}));
}

using DnRange = OpenDialog<CQxDlgGetDN>;

TEST_F(DnRange, ChoosesAnOrderedRange) {
    dialog.fromIndex = 0;
    dialog.toIndex = kDnCount - 1;
    Show();
    EXPECT_EQ(Text(IDC_DN_FROM), u"DN 8");
    EXPECT_EQ(Text(IDC_DN_TO), u"DN 1200");

    SendDlgItemMessageW(dialog.Handle(), IDC_DN_FROM, CB_SETCURSEL, kDn100, 0);
    SendDlgItemMessageW(dialog.Handle(), IDC_DN_TO, CB_SETCURSEL, kDn80, 0);
    EXPECT_EQ(ClickAnswering(IDOK).text, L"DN 'od' musí být menší nebo rovno DN 'do'");
    EXPECT_FALSE(dialog.HasEnded());
    EXPECT_EQ(Text(IDC_DN_FROM), u"DN 100");
    EXPECT_EQ(Text(IDC_DN_TO), u"DN 80");

    SendDlgItemMessageW(dialog.Handle(), IDC_DN_TO, CB_SETCURSEL, kDn100, 0);  // one DN is a range
    Click(IDOK);
    EXPECT_TRUE(dialog.HasEnded());
    EXPECT_EQ(dialog.fromIndex, kDn100);
    EXPECT_EQ(dialog.toIndex, kDn100);
}

}  // namespace
