// The editor's profile pane and the DN range dialog, driven through the tree-list's messages and
// its in-place editor under Wine.

#include <gtest/gtest.h>

#include <vector>

#include "Dialogs/CCheckedEdit.h"
#include "Dialogs/TreeListEditRules.h"
#include "_Velmora/ProfileEditRules.h"
#include "_Velmora/QxDlgGetDN.h"
#include "win/DialogWatcher.h"
#include "win/MaterialEditorHarness.h"

namespace {

using namespace material_dialogs;

constexpr int kDn80 = 10, kDn100 = 11, kDn125 = 12;

class ProfilePaneEditor : public MaterialEditor {
protected:
    // The material "PE" with profiles at `dnIndexes`, the editor open on it.
    CQvxMaterial& OpenWith(std::initializer_list<int> dnIndexes) {
        CQvxMaterial& material = AddMaterial(catalogue, u"PE");
        for (const int index : dnIndexes) material.AddProfile(index);
        Open();
        return *editor.WorkingList().Find(u"PE");
    }
    const CTreeListCtrl& Pane() const { return editor.ProfilePane(); }
    HTREEITEM RowOf(int dnIndex) const {
        for (HTREEITEM row = Pane().GetNextItem(nullptr, TVGN_ROOT); row != nullptr;
             row = Pane().GetNextItem(row, TVGN_NEXT)) {
            if (reinterpret_cast<CQvxProfil*>(Pane().GetItemParam(row))->DnIndex() == dnIndex) return row;
        }
        return nullptr;
    }
    std::vector<int> RowDns() const {
        std::vector<int> dns;
        for (HTREEITEM row = Pane().GetNextItem(nullptr, TVGN_ROOT); row != nullptr;
             row = Pane().GetNextItem(row, TVGN_NEXT)) {
            dns.push_back(reinterpret_cast<CQvxProfil*>(Pane().GetItemParam(row))->DnIndex());
        }
        return dns;
    }
    void SelectProfile(int dnIndex) {
        Pane().SelectCell(RowOf(dnIndex), 0);
        gui::Pump(editor);
    }
    // Starts the cell's own editor, gives it `text` and presses Enter.
    HWND TypeIntoCell(int dnIndex, int column, std::u16string_view text) {
        const HWND cellEditor = Pane().EditLabel(RowOf(dnIndex), AutomaticEditArgument(column));
        gui::SetText(cellEditor, u"");
        gui::Type(cellEditor, text);
        gui::PressKey(cellEditor, VK_RETURN);
        gui::Pump(editor);
        return cellEditor;
    }
};

TEST_F(ProfilePaneEditor, AddTakesTheNextFreeDnAndStartsOverOnlyWhenAsked) {
    CQvxMaterial& pe = OpenWith({3, 4});
    EXPECT_EQ(Pane().CellText(RowOf(4), kDnColumn), u"");  // the owner supplies every cell
    SelectProfile(3);
    Click(IDC_PROFILE_ADD);
    EXPECT_EQ(RowDns(), (std::vector<int>{3, 4, 5}));
    EXPECT_NE(pe.FindProfile(5), nullptr);

    // Selecting the row again refills the pane before the old rows could be drawn.
    pe.GenerateSeries(0, kDnCount - 1);
    editor.MaterialList().SetItemState(0, 0, LVIS_SELECTED);
    editor.MaterialList().SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
    gui::Pump(editor);
    ASSERT_EQ(RowDns().size(), 28u);
    {
        MessageBoxSequence boxes(kCaption, {IDOK}, editor.Handle());
        Click(IDC_PROFILE_ADD);  // from the first row
        EXPECT_EQ(boxes.Wait(), (std::vector<std::wstring>{L"Nelze přidat již další DN !!"}));
    }
    SelectProfile(20);
    {
        MessageBoxSequence boxes(kCaption, {IDYES, IDOK}, editor.Handle());
        Click(IDC_PROFILE_ADD);
        EXPECT_EQ(boxes.Wait(), (std::vector<std::wstring>{L"Nelze přidat již další DN, přidat od začátku?",
                                                           L"Nelze přidat již další DN !!"}));
    }
    EXPECT_EQ(pe.Profiles().size(), 28u);
}

TEST_F(ProfilePaneEditor, PriceListCodeIsStoredWhenTheSelectionMoves) {
    CQvxMaterial& pe = OpenWith({3, 4});
    SelectProfile(3);
    gui::SetText(Control(IDC_URS_INSTALL), u"M1");
    gui::SetText(Control(IDC_URS_MATERIAL), u"K123");
    EXPECT_EQ(pe.FindProfile(3)->UrsMaterialCode(), u"");
    SelectProfile(4);
    // Both edits go to the material code, the second last.
    EXPECT_EQ(pe.FindProfile(3)->UrsMaterialCode(), u"K123");
    EXPECT_EQ(pe.FindProfile(3)->UrsInstallCode(), u"");
    EXPECT_EQ(Text(IDC_URS_MATERIAL), u"");

    gui::SetText(Control(IDC_URS_MATERIAL), u"0123456789");  // ten characters: the profile refuses
    SelectProfile(3);
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].caption, u"Program vyvolal výjimku");
    EXPECT_EQ(Text(IDC_URS_MATERIAL), u"K123");
}

TEST_F(ProfilePaneEditor, CellEditsKeepTheDnBand) {
    CQvxMaterial& pe = OpenWith({kDn80, kDn100});
    CQvxProfil& dn100 = *pe.FindProfile(kDn100);
    dn100.SetDimensions(100, 5);
    editor.WorkingList().SetUnchanged(true);

    const HWND cellEditor = TypeIntoCell(kDn100, kInnerColumn, u"72");
    EXPECT_TRUE(IsWindowVisible(cellEditor));  // refused: the edit stays open
    EXPECT_EQ(gui::FindVisibleBalloon().text, u"Zadaný průměr neodpovídá zadanému DN, nejprve změňte DN");
    EXPECT_FLOAT_EQ(dn100.InnerDiameter(), 100);
    EXPECT_TRUE(editor.WorkingList().IsUnchanged());

    gui::SetText(cellEditor, u"72.5");
    gui::PressKey(cellEditor, VK_RETURN);
    gui::Pump(editor);
    EXPECT_FALSE(IsWindowVisible(cellEditor));
    EXPECT_FLOAT_EQ(dn100.InnerDiameter(), 72.5f);
    EXPECT_FLOAT_EQ(dn100.OuterDiameter(), 110);
    EXPECT_EQ(Pane().CellText(RowOf(kDn100), kInnerColumn), u"");  // still the owner's
    EXPECT_FALSE(editor.WorkingList().IsUnchanged());

    TypeIntoCell(kDn100, kWallColumn, u"55");
    EXPECT_EQ(gui::FindVisibleBalloon().text, u"OD - 2x stěna je menší než 0, trubka nemá díru");
    Pane().EndEditLabelNow(true);
    EXPECT_FLOAT_EQ(dn100.Wall(), 18.75f);
}

TEST_F(ProfilePaneEditor, DnChoiceMovesAProfileOnlyToAFreeDn) {
    CQvxMaterial& pe = OpenWith({kDn80, kDn100});
    const auto choose = [&](int dnIndex, int choice) {
        const HWND combo = Pane().EditLabel(RowOf(dnIndex), AutomaticEditArgument(kDnColumn));
        SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(choice), 0);
        SendMessageW(Pane().Handle(), WM_COMMAND, MAKEWPARAM(kInPlaceEditorId, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(combo));
        gui::PressKey(combo, VK_RETURN);
        gui::Pump(editor);
    };
    choose(kDn80, kDn125);
    EXPECT_EQ(RowDns(), (std::vector<int>{kDn100, kDn125}));
    EXPECT_FLOAT_EQ(pe.FindProfile(kDn125)->InnerDiameter(), 125);

    MessageBoxWatcher silence(kCaption, IDOK, editor.Handle());
    choose(kDn100, kDn125);  // taken: nothing changes, nothing is said
    EXPECT_FALSE(silence.Stop().found);
    EXPECT_EQ(RowDns(), (std::vector<int>{kDn100, kDn125}));
    EXPECT_NE(pe.FindProfile(kDn100), nullptr);
}

TEST_F(ProfilePaneEditor, GenerateReplacesEveryProfileAndDeleteMovesTheSelection) {
    CQvxMaterial& pe = OpenWith({3, 4, 20});
    DialogWatcher range(L"Výběr rozsahu DN", [](HWND dialog) {
        SendDlgItemMessageW(dialog, IDC_DN_FROM, CB_SETCURSEL, kDn80, 0);
        SendDlgItemMessageW(dialog, IDC_DN_TO, CB_SETCURSEL, kDn125, 0);
        Sleep(300);  // let it draw for the picture
        gui::SaveScreenshot(L"dn-range");
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    });
    Click(IDC_PROFILE_GENERATE);
    ASSERT_TRUE(range.Stop());
    EXPECT_EQ(RowDns(), (std::vector<int>{kDn80, kDn100, kDn125}));
    EXPECT_EQ(pe.Profiles().size(), 3u);
    gui::SaveScreenshot(L"profiles-circle");

    SelectProfile(kDn100);
    Click(IDC_PROFILE_DELETE);
    EXPECT_EQ(RowDns(), (std::vector<int>{kDn80, kDn125}));
    EXPECT_EQ(Pane().GetSelection(), RowOf(kDn125));
    Click(IDC_PROFILE_DELETE);  // the last row: the selection goes back to the new last one
    EXPECT_EQ(Pane().GetSelection(), RowOf(kDn80));

    CQvxProfil* user = nullptr;
    pe.FindProfile(kDn80)->Users().Register(&user);
    MessageBoxSequence used(kCaption, {IDOK}, editor.Handle());
    Click(IDC_PROFILE_DELETE);
    EXPECT_EQ(used.Wait(), (std::vector<std::wstring>{L"Profil je používán, nelze jej vymazat"}));
    pe.FindProfile(kDn80)->Users().Clear();

    MessageBoxSequence question(kCaption, {IDYES}, editor.Handle());
    Click(IDC_PROFILE_DELETE_ALL);
    EXPECT_EQ(question.Wait(), (std::vector<std::wstring>{L"Opravdu vymazat všechny profily?\ntento krok je nevratný"}));
    EXPECT_TRUE(pe.Profiles().empty());
    EXPECT_EQ(Pane().GetCount(), 0);
}

TEST_F(ProfilePaneEditor, OtherShapesShowHeightAndWidth) {
    AddMaterial(catalogue, u"Kolektor").AddProfile(kDn100);
    Open();
    // The working copy does not take the shape over from the caller's list: set it there.
    EditMaterial(*editor.WorkingList().Find(u"Kolektor"),
                 [](MaterialExchangeRecord& record) { record.shape = ProfileShape::Rectangle; });
    editor.MaterialList().SetItemState(0, 0, LVIS_SELECTED);
    editor.MaterialList().SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
    gui::Pump(editor);
    TVCOLUMNW column{};
    wchar_t title[32] = {};
    column.mask = TVCF_TEXT;
    column.pszText = title;
    column.cchTextMax = 32;
    Pane().Send(TVM_GETCOLUMN, kInnerColumn, reinterpret_cast<LPARAM>(&column));
    EXPECT_STREQ(title, L"Výška");
    TypeIntoCell(kDn100, kWidthColumn, u"1600.4");
    EXPECT_EQ(editor.WorkingList().Find(u"Kolektor")->FindProfile(kDn100)->Width(), 1600);
    gui::SaveScreenshot(L"profiles-rectangle");
}

TEST(DnRange, ChoosesAnOrderedRange) {
    CQxDlgGetDN dialog(nullptr);
    dialog.fromIndex = 0;
    dialog.toIndex = kDnCount - 1;
    ASSERT_TRUE(dialog.Create());
    gui::Pump(dialog);
    EXPECT_EQ(gui::Text(dialog.Item(IDC_DN_FROM)), u"DN 8");
    EXPECT_EQ(gui::Text(dialog.Item(IDC_DN_TO)), u"DN 1200");

    SendDlgItemMessageW(dialog.Handle(), IDC_DN_FROM, CB_SETCURSEL, kDn100, 0);
    SendDlgItemMessageW(dialog.Handle(), IDC_DN_TO, CB_SETCURSEL, kDn80, 0);
    MessageBoxSequence refusal(kCaption, {IDOK}, dialog.Handle());
    gui::Click(dialog.Item(IDOK));
    gui::Pump(dialog);
    EXPECT_EQ(refusal.Wait(), (std::vector<std::wstring>{L"DN 'od' musí být menší nebo rovno DN 'do'"}));
    EXPECT_FALSE(dialog.HasEnded());
    EXPECT_EQ(gui::Text(dialog.Item(IDC_DN_FROM)), u"DN 100");
    EXPECT_EQ(gui::Text(dialog.Item(IDC_DN_TO)), u"DN 80");

    SendDlgItemMessageW(dialog.Handle(), IDC_DN_TO, CB_SETCURSEL, kDn100, 0);  // one DN is a range
    gui::Click(dialog.Item(IDOK));
    gui::Pump(dialog);
    EXPECT_TRUE(dialog.HasEnded());
    EXPECT_EQ(dialog.fromIndex, kDn100);
    EXPECT_EQ(dialog.toIndex, kDn100);
}

}  // namespace
