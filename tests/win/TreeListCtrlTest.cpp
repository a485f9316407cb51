#include "Dialogs/TreeListCtrl.h"

#include <gtest/gtest.h>

#include <cstring>

#include "Dialogs/CCheckedEdit.h"
#include "Dialogs/TreeListEditRules.h"
#include "Dialogs/TreeListResources.h"
#include "win/GuiHarness.h"
#include "win/RefusalBeeps.h"
#include "win/TreeListDialog.h"

namespace {

class TreeListControl : public ::testing::Test {
protected:
    void SetUp() override {
        // The in-place edit is shared by the process: start every test from its first state.
        CCheckedEdit& shared = CTreeListCtrl::InPlaceEdit();
        shared.Rules() = CheckedTextRules{};
        shared.SetMessage(u"");
    }
    void TearDown() override {
        if (dialog_) dialog_->DestroyWindow();
    }

    TreeListDialog& Open(DWORD extendedStyle = 0x400F0000, DWORD style = 0) {
        if (dialog_) dialog_->DestroyWindow();
        dialog_ = std::make_unique<TreeListDialog>(extendedStyle, style);
        EXPECT_TRUE(dialog_->Create());
        dialog_->Show(SW_SHOW);
        SetForegroundWindow(dialog_->Handle());
        first = dialog_->AddProfile(L"DN 50", L"63", L"5.8", L"51.4", L"DN 50", 50);
        second = dialog_->AddProfile(L"DN 65", L"75", L"6.8", L"61.4", L"DN 65", 65);
        third = dialog_->AddProfile(L"DN 80", L"90", L"8.2", L"73.6", L"DN 80", 80);
        gui::Pump(*dialog_);
        return *dialog_;
    }

    const CTreeListCtrl& Tree() const { return dialog_->tree; }
    TreeListDialog& dialog() const { return *dialog_; }
    HWND Editor() const { return reinterpret_cast<HWND>(Tree().Send(TVM_GETEDITCONTROL)); }
    HWND Edit(HTREEITEM item, int column, std::uint32_t placement = 0) const {
        return Tree().EditLabel(item, static_cast<std::uint32_t>(column) | placement);
    }
    bool EditorShows() const { return Editor() != nullptr && IsWindowVisible(Editor()); }
    void Pump(DWORD milliseconds = 0) { gui::Pump(*dialog_, milliseconds); }
    RECT RowRect(HTREEITEM item) const {
        RECT row{};
        std::memcpy(&row, &item, sizeof(item));  // the item goes in where the rectangle comes out
        EXPECT_TRUE(Tree().Send(TVM_GETITEMRECT, FALSE, reinterpret_cast<LPARAM>(&row)));
        return row;
    }
    int ColumnWidth(int column) const {
        TVCOLUMNW record{};
        record.mask = TVCF_WIDTH;
        Tree().Send(TVM_GETCOLUMN, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&record));
        return record.cx;
    }

    RefusalBeeps beeps;
    HTREEITEM first = nullptr;
    HTREEITEM second = nullptr;
    HTREEITEM third = nullptr;

private:
    std::unique_ptr<TreeListDialog> dialog_;
};

TEST_F(TreeListControl, CreatedOverThePlaceholderAsControl4100) {
    TreeListDialog& dialog = Open();
    wchar_t className[32] = {};
    GetClassNameW(Tree().Handle(), className, 32);
    EXPECT_STREQ(className, L"TreeList");
    EXPECT_EQ(Tree().Id(), 4100);
    const RECT placeholder = CWindow(dialog.Item(11049)).WindowRect();
    const RECT control = Tree().WindowRect();
    EXPECT_TRUE(EqualRect(&placeholder, &control));
    const LONG style = GetWindowLongW(Tree().Handle(), GWL_STYLE);
    EXPECT_EQ(style & (WS_CHILD | WS_VISIBLE | TVS_EDITLABELS), WS_CHILD | WS_VISIBLE | TVS_EDITLABELS);
    EXPECT_EQ(Tree().Send(TVM_GETCOLUMNCOUNT), 6);
}

TEST_F(TreeListControl, ItemsAreNumberedFromOneAndDeletedOrUnknownOnesReadZero) {
    TreeListDialog& dialog = Open();
    EXPECT_EQ(reinterpret_cast<ULONG_PTR>(first), 1u);
    EXPECT_EQ(reinterpret_cast<ULONG_PTR>(third), 3u);
    ASSERT_TRUE(Tree().SelectCell(second, 0));
    EXPECT_EQ(Tree().GetSelection(), second);
    EXPECT_EQ(dialog.selectionChanges, 1);
    EXPECT_TRUE(Tree().SetItemParam(second, 650));
    EXPECT_EQ(Tree().GetItemParam(second), 650);
    EXPECT_EQ(Tree().GetItemParam(reinterpret_cast<HTREEITEM>(ULONG_PTR{99})), 0);
    EXPECT_EQ(Tree().GetItemParam(nullptr), 0);

    EXPECT_TRUE(Tree().DeleteItem(first));
    EXPECT_EQ(Tree().GetCount(), 2);
    EXPECT_EQ(Tree().GetItemParam(first), 0);
    EXPECT_FALSE(Tree().SetItemParam(first, 1));
    EXPECT_TRUE(Tree().DeleteItem(TVI_ROOT));
    EXPECT_EQ(Tree().GetCount(), 0);
    EXPECT_EQ(Tree().Send(TVM_GETNEXTITEM, TVGN_CARET, 0), 0);
    EXPECT_EQ(dialog.deleted, (std::vector<LPARAM>{50, 650, 80}));
    EXPECT_EQ(reinterpret_cast<ULONG_PTR>(Tree().InsertItem(L"DN 100", 100)), 1u);
}

TEST_F(TreeListControl, SelectCellUsesTheColumnOnlyWithCellSelection) {
    Open(0x400B0000);  // as the selection dialog: no cell selection
    EXPECT_TRUE(Tree().SelectCell(third, 2));
    EXPECT_EQ(Tree().GetSelection(), third);
    EXPECT_EQ(Tree().GetCurrentColumn(), 0);

    Tree().SetExtendedStyle(TVS_EX_CELLSELECT, TVS_EX_CELLSELECT);
    EXPECT_TRUE(Tree().SelectCell(first, 2));
    EXPECT_EQ(Tree().GetCurrentColumn(), 2);
    EXPECT_FALSE(Tree().SelectCell(reinterpret_cast<HTREEITEM>(ULONG_PTR{42}), 1));
    EXPECT_EQ(Tree().GetSelection(), first);
}

TEST_F(TreeListControl, CellTextsAndOwnerSuppliedTexts) {
    TreeListDialog& dialog = Open();
    EXPECT_EQ(Tree().CellText(second, TreeListDialog::kOuter), u"75");
    EXPECT_EQ(Tree().CellText(second, TreeListDialog::kProfile), u"DN 65");
    EXPECT_EQ(Tree().CellText(second, TreeListDialog::kInner), u"");  // the owner's, not stored
    EXPECT_EQ(Tree().CellText(second, 9), u"");

    // An edit of an owner's cell starts from the owner's text and hands the result back to it.
    const HWND editor = Edit(second, TreeListDialog::kInner);
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(gui::Text(editor), u"61.4");
    gui::Type(editor, u"62");
    gui::PressKey(editor, VK_RETURN);
    ASSERT_EQ(dialog.storedByOwner.size(), 1u);
    EXPECT_EQ(dialog.storedByOwner[0], std::make_pair(int{TreeListDialog::kInner}, std::u16string(u"62")));
}

TEST_F(TreeListControl, WholeNumberColumnRefusesTheSixthDigitWithItsLimitInTheBalloon) {
    TreeListDialog& dialog = Open();
    const HWND editor = Edit(first, TreeListDialog::kOuter);
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(GetDlgCtrlID(editor), 3);
    gui::Type(editor, u"123456");
    EXPECT_EQ(gui::Text(editor), u"12345");
    EXPECT_EQ(beeps.Heard(), 1);
    const gui::Balloon balloon = gui::FindVisibleBalloon();
    ASSERT_TRUE(balloon.visible);
    EXPECT_EQ(balloon.text, u"Zadejte celé číslo\nmax. 5 znaků");
    EXPECT_EQ(CTreeListCtrl::InPlaceEdit().Title(), u"Chybný vstup");

    gui::PressKey(editor, VK_RETURN);
    ASSERT_EQ(dialog.ended.size(), 1u);
    EXPECT_EQ(dialog.ended[0].text, u"12345");
    EXPECT_EQ(Tree().CellText(first, TreeListDialog::kOuter), u"12345");
}

TEST_F(TreeListControl, DecimalColumnTakesACommaAndKeepsTheEditorOnATrailingPoint) {
    TreeListDialog& dialog = Open();
    HWND editor = Edit(first, TreeListDialog::kWall);
    gui::Type(editor, u"2,5");
    EXPECT_EQ(gui::Text(editor), u"2.5");
    gui::PressKey(editor, VK_RETURN);
    ASSERT_EQ(dialog.ended.size(), 1u);
    EXPECT_EQ(Tree().CellText(first, TreeListDialog::kWall), u"2.5");

    editor = Edit(first, TreeListDialog::kWall);
    gui::Type(editor, u"2.");
    gui::PressKey(editor, VK_RETURN);
    EXPECT_EQ(dialog.ended.size(), 1u);  // no end: the editor stays
    EXPECT_TRUE(EditorShows());
    EXPECT_EQ(gui::FindVisibleBalloon().text, u"Zadejte desetinné číslo");
    EXPECT_EQ(dialog.validated.size(), 1u);  // the owner never saw "2."
    gui::Type(editor, u"75");
    gui::PressKey(editor, VK_RETURN);
    EXPECT_EQ(Tree().CellText(first, TreeListDialog::kWall), u"2.75");
}

TEST_F(TreeListControl, EscapeDiscardsAndUnchangedCommitsHaveNoChangedMark) {
    TreeListDialog& dialog = Open();
    HWND editor = Edit(second, TreeListDialog::kOuter);
    gui::Type(editor, u"99");
    gui::PressKey(editor, VK_ESCAPE);
    EXPECT_FALSE(EditorShows());
    ASSERT_EQ(dialog.ended.size(), 1u);
    EXPECT_TRUE(dialog.ended[0].cancelled);
    EXPECT_EQ(Tree().CellText(second, TreeListDialog::kOuter), u"75");

    editor = Edit(second, TreeListDialog::kOuter);
    gui::PressKey(editor, VK_RETURN);
    ASSERT_EQ(dialog.ended.size(), 2u);
    EXPECT_EQ(dialog.ended[1].mask & TVIF_TEXTCHANGED, 0u);
    EXPECT_EQ(dialog.ended[1].mask & TVIF_RETURNKEY, TVIF_RETURNKEY);
    EXPECT_EQ(dialog.ended[1].text, u"75");

    editor = Edit(second, TreeListDialog::kOuter);
    gui::Type(editor, u"76");
    Tree().EndEditLabelNow(false);  // a commit, but not by Enter
    ASSERT_EQ(dialog.ended.size(), 3u);
    EXPECT_EQ(dialog.ended[2].mask & (TVIF_TEXTCHANGED | TVIF_RETURNKEY), TVIF_TEXTCHANGED);
    EXPECT_EQ(Tree().CellText(second, TreeListDialog::kOuter), u"76");
}

TEST_F(TreeListControl, ClickingElsewhereCommits) {
    TreeListDialog& dialog = Open();
    const HWND editor = Edit(first, TreeListDialog::kOuter);
    ASSERT_NE(editor, nullptr);
    Pump();
    gui::RealType(u"70");
    Pump(100);
    EXPECT_EQ(gui::Text(editor), u"70");

    const RECT row = RowRect(third);
    POINT point{(row.left + row.right) / 2, (row.top + row.bottom) / 2};
    ClientToScreen(Tree().Handle(), &point);
    gui::RealClick(point);
    Pump(100);

    EXPECT_FALSE(EditorShows());
    ASSERT_EQ(dialog.ended.size(), 1u);
    EXPECT_EQ(dialog.ended[0].text, u"70");
    EXPECT_EQ(dialog.ended[0].mask & (TVIF_TEXTCHANGED | TVIF_RETURNKEY), TVIF_TEXTCHANGED);
    EXPECT_EQ(Tree().CellText(first, TreeListDialog::kOuter), u"70");
    EXPECT_EQ(Tree().GetSelection(), third);
}

TEST_F(TreeListControl, EmptyStaysAllowedAfterOneEditOfAnEmptyAllowedColumn) {
    TreeListDialog& dialog = Open();
    HWND editor = Edit(first, TreeListDialog::kOuter);
    SetWindowTextW(editor, L"");
    gui::PressKey(editor, VK_RETURN);
    EXPECT_TRUE(EditorShows());  // an empty whole number is not a number
    Tree().EndEditLabelNow(true);

    editor = Edit(first, TreeListDialog::kNote);
    gui::PressKey(editor, VK_RETURN);

    editor = Edit(first, TreeListDialog::kOuter);
    SetWindowTextW(editor, L"  ");
    gui::PressKey(editor, VK_RETURN);
    EXPECT_FALSE(EditorShows());
    EXPECT_EQ(dialog.ended.back().column, TreeListDialog::kOuter);
    EXPECT_FALSE(dialog.ended.back().cancelled);
}

TEST_F(TreeListControl, LeftAtTheStartMovesToTheLeftCellOnlyWithTheArrowStyle) {
    for (const bool arrows : {false, true}) {
        SCOPED_TRACE(arrows ? "arrow style" : "no arrow style");
        TreeListDialog& dialog = Open(0x400F0000 | (arrows ? TVS_EX_EDITARROWS : 0));
        const HWND editor = Edit(second, TreeListDialog::kWall, 2u << 26);  // caret before the first character
        ASSERT_NE(editor, nullptr);
        gui::PressKey(editor, VK_LEFT);
        Pump();
        EXPECT_EQ(EditorShows(), !arrows);
        EXPECT_EQ(dialog.ended.size(), arrows ? 1u : 0u);
        EXPECT_EQ(Tree().GetCurrentColumn(), arrows ? TreeListDialog::kOuter : TreeListDialog::kWall);
    }

    // With the caret further in, Left only moves the caret.
    const HWND editor = Edit(second, TreeListDialog::kWall, (2u << 26) | (1u << 8));
    gui::PressKey(editor, VK_LEFT);
    Pump();
    EXPECT_TRUE(EditorShows());
    EXPECT_EQ(Tree().GetCurrentColumn(), TreeListDialog::kWall);
}

TEST_F(TreeListControl, OwnerRefusalKeepsTheEditorOpen) {
    TreeListDialog& dialog = Open();
    dialog.refusedValue = u"999";
    const HWND editor = Edit(third, TreeListDialog::kOuter);
    gui::Type(editor, u"999");
    gui::PressKey(editor, VK_RETURN);
    EXPECT_TRUE(EditorShows());
    EXPECT_TRUE(dialog.ended.empty());
    EXPECT_EQ(dialog.validated, std::vector<std::u16string>{u"999"});
    EXPECT_EQ(gui::FindVisibleBalloon().text, u"Hodnota nesouhlasí s DN");
    EXPECT_EQ(Tree().CellText(third, TreeListDialog::kOuter), u"90");

    gui::Type(editor, u"\b\b\b110");
    gui::PressKey(editor, VK_RETURN);
    EXPECT_FALSE(EditorShows());
    EXPECT_EQ(Tree().CellText(third, TreeListDialog::kOuter), u"110");
}

TEST_F(TreeListControl, ComboColumnReportsTheChosenIndex) {
    TreeListDialog& dialog = Open();
    const HWND combo = Tree().EditLabel(second, AutomaticEditArgument(TreeListDialog::kDn));
    ASSERT_NE(combo, nullptr);
    wchar_t className[32] = {};
    GetClassNameW(combo, className, 32);
    EXPECT_STREQ(className, L"ComboBox");
    EXPECT_EQ(SendMessageW(combo, CB_GETCOUNT, 0, 0), 28);
    EXPECT_EQ(SendMessageW(combo, CB_GETCURSEL, 0, 0), 9);  // "DN 65"

    gui::PressKey(combo, VK_DOWN);  // opens the list
    EXPECT_TRUE(SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0));
    SendMessageW(combo, CB_SHOWDROPDOWN, FALSE, 0);
    SendMessageW(combo, CB_SETCURSEL, 11, 0);
    SendMessageW(Tree().Handle(), WM_COMMAND, MAKEWPARAM(3, CBN_SELCHANGE), reinterpret_cast<LPARAM>(combo));
    gui::PressKey(combo, VK_RETURN);

    ASSERT_EQ(dialog.ended.size(), 1u);
    EXPECT_EQ(dialog.ended[0].chosenIndex, 11);
    EXPECT_EQ(dialog.ended[0].text, u"DN 100");
    EXPECT_EQ(dialog.ended[0].mask & TVIF_TEXTCHANGED, TVIF_TEXTCHANGED);
    EXPECT_TRUE(dialog.validated.empty());  // combo boxes are not validated
    EXPECT_EQ(Tree().CellText(second, TreeListDialog::kDn), u"DN 100");
    EXPECT_EQ(GetFocus(), Tree().Handle());
}

TEST_F(TreeListControl, TypingStartsTheColumnsEditOrAsksTheOwner) {
    TreeListDialog& dialog = Open();
    Tree().SelectCell(first, TreeListDialog::kOuter);
    SetFocus(Tree().Handle());
    gui::RealType(u"4");
    Pump(100);
    ASSERT_TRUE(EditorShows());
    EXPECT_EQ(gui::Text(Editor()), u"4");  // the typed character replaced the text
    gui::RealKey(VK_RETURN);
    Pump(100);
    EXPECT_EQ(Tree().CellText(first, TreeListDialog::kOuter), u"4");

    // The drop-down column does not start on typing: the owner is asked, and its 0 means search.
    Tree().SelectCell(first, TreeListDialog::kDn);
    SetFocus(Tree().Handle());
    SendMessageW(Tree().Handle(), WM_CHAR, L'D', 1);
    EXPECT_EQ(dialog.startEditEvents, std::vector<UINT>{L'D'});
    EXPECT_FALSE(EditorShows());
    EXPECT_EQ(Tree().GetSelection(), second);  // "DN 65", the next item beginning with D

    // The owner may answer with a combo box of its own choices.
    static const wchar_t* const choices[] = {L"PE", L"PVC", nullptr};
    dialog.startEditAnswer = 0x20000000;
    dialog.startEditChoices.assign(std::begin(choices), std::end(choices));
    Tree().Send(TVM_EDITLABELW, AutomaticEditArgument(TreeListDialog::kProfile), reinterpret_cast<LPARAM>(second));
    ASSERT_TRUE(EditorShows());
    EXPECT_EQ(SendMessageW(Editor(), CB_GETCOUNT, 0, 0), 2);
}

TEST_F(TreeListControl, WidthChangesAreSharedOutAndReported) {
    TreeListDialog& dialog = Open(0x400F0000 | TVS_EX_REPORTCOLUMNCHANGES);
    TVCOLUMNW fixed{};
    fixed.mask = TVCF_FIXED;
    Tree().Send(TVM_SETCOLUMN, TreeListDialog::kProfile, reinterpret_cast<LPARAM>(&fixed));
    std::vector<int> before;
    for (int column = 0; column < 6; ++column) before.push_back(ColumnWidth(column));
    const RECT window = Tree().WindowRect();
    SetWindowPos(Tree().Handle(), nullptr, 0, 0, window.right - window.left + 50, window.bottom - window.top,
                 SWP_NOMOVE | SWP_NOZORDER);

    ASSERT_EQ(dialog.columnChanges.size(), 5u);  // every column but the fixed one
    int added = 0;
    for (const auto& [column, width] : dialog.columnChanges) {
        EXPECT_NE(column, TreeListDialog::kProfile);
        added += width - before[static_cast<std::size_t>(column)];
    }
    EXPECT_EQ(added, 50);
}

TEST_F(TreeListControl, DrawingResourcesAreSharedByAllControls) {
    Open();
    EXPECT_EQ(TreeListResources::Users(), 0);
    TreeListDialog another;
    ASSERT_TRUE(another.Create());
    EXPECT_EQ(TreeListResources::Users(), 1);
    EXPECT_NE(TreeListResources::DottedPen(), nullptr);
    another.DestroyWindow();
    EXPECT_EQ(TreeListResources::Users(), 0);
}

TEST_F(TreeListControl, ExpandButtonsOpenChildren) {
    TreeListDialog& dialog = Open(0x400B0000, TVS_LINESATROOT);
    const HTREEITEM child = dialog.tree.InsertItem(L"PN 10", 510, first);
    EXPECT_EQ(Tree().GetNextItem(first, TVGN_CHILD), child);
    EXPECT_EQ(Tree().GetNextItem(first, TVGN_NEXTVISIBLE), second);
    Tree().Send(TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(first));
    EXPECT_EQ(Tree().GetNextItem(first, TVGN_NEXTVISIBLE), child);
    Tree().SelectCell(child, 0);
    Tree().Send(TVM_EXPAND, TVE_COLLAPSE, reinterpret_cast<LPARAM>(first));
    EXPECT_EQ(Tree().GetSelection(), first);  // the hidden child gave way to its parent
}

TEST_F(TreeListControl, PaintsGridLinesAndTheCurrentCell) {
    Open(0x400F0000);  // grid lines and cell selection, as the material editor has them
    Tree().SelectCell(second, TreeListDialog::kWall);
    const RECT row = RowRect(second);
    int wallLeft = 0;
    for (int column = 0; column < TreeListDialog::kWall; ++column) wallLeft += ColumnWidth(column);
    const int wallRight = wallLeft + ColumnWidth(TreeListDialog::kWall);
    SetFocus(dialog().Item(IDOK));  // not focused: the selection shows in the button face colour

    const gui::ClientPicture picture(Tree().Handle());
    const int middle = (row.top + row.bottom) / 2;
    EXPECT_EQ(picture.Pixel(wallLeft + 2, middle), GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(picture.Pixel(wallRight - 3, row.top + 1), GetSysColor(COLOR_BTNFACE));
    const COLORREF window = GetSysColor(COLOR_WINDOW);
    EXPECT_NE(picture.Pixel(wallRight - 1, middle - 4), window);                 // the column's grid line
    EXPECT_NE(picture.Pixel(wallLeft + 8, row.bottom - 1), window);              // the row's grid line
    EXPECT_NE(picture.Pixel(wallLeft - 5, middle), GetSysColor(COLOR_BTNFACE));  // the neighbour is not selected
}

// Pictures for people: set VELMORA_SCREENSHOT_DIR to keep them. The test checks what they show.
TEST_F(TreeListControl, ScreenshotsOfTheGridAndAnEdit) {
    TreeListDialog& dialog = Open(0x400F0000, TVS_LINESATROOT);
    SetWindowPos(dialog.Handle(), nullptr, 40, 40, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    const HTREEITEM pressure = dialog.tree.InsertItem(L"PN 10", 510, first);
    dialog.tree.SetCellText(pressure, TreeListDialog::kOuter, L"63");
    dialog.tree.SetCellText(pressure, TreeListDialog::kWall, L"3.8");
    dialog.tree.SetCellText(pressure, TreeListDialog::kNote, L"tlaková řada");
    dialog.tree.InsertItem(L"PN 16", 516, first);
    dialog.tree.InsertItem(L"PN 6", 506, second);
    Tree().Send(TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(first));
    dialog.AddProfile(L"DN 100", L"110", L"10", L"90", L"DN 100", 100);
    Tree().SelectCell(pressure, TreeListDialog::kWall);
    SetFocus(Tree().Handle());
    Pump(200);
    EXPECT_EQ(Tree().GetNextItem(first, TVGN_NEXTVISIBLE), pressure);
    gui::SaveScreenshot(L"treelist-grid");

    const HWND editor = Edit(third, TreeListDialog::kOuter);
    gui::Type(editor, u"90x");
    Pump(200);
    EXPECT_TRUE(gui::FindVisibleBalloon().visible);
    gui::SaveScreenshot(L"treelist-edit");
}

}  // namespace
