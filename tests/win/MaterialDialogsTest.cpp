// The selection dialog, the material editor and the description dialog, driven through their
// controls under Wine.

#include <iterator>
#include <utility>

#include "Dialogs/TreeListResources.h"
#include "_Velmora/ProfileEditRules.h"
#include "support/FakeRegistryValues.h"
#include "support/TempFolder.h"
#include "support/ThrownText.h"
#include "win/MaterialEditorHarness.h"

namespace {

using namespace material_dialogs;

// Opening lists every material, sorted without regard to case ("kanál" before "Plynovod"), with the
// radios showing the caller's filter; a radio lists by both masks, row 0 current even when it lists
// none. With no material current (a filter listing none, "+" or "%" cancelled, every row deleted)
// the fields show a new material's defaults, the profile pane is empty, its commands and code edits
// are disabled, and a command sent anyway shows nothing. Cancelling the file dialog changes nothing.
// A new material starts with every usage box checked; the last box of a group cannot be cleared,
// and the balloon saying so stands on "Název:".
TEST_F(MaterialEditor, FilterRadiosListByBothMasksAndNoMaterialCurrentShowsANewMaterialsDefaults) {
    AddUsedFor(catalogue, u"kanál a voda", 3, kMediumSewage | kMediumWater);
    AddUsedFor(catalogue, u"Plynovod", 2, kMediumGas);
    filter = {kPlacementAll, kMediumWater};
    Open();
    EXPECT_EQ(ShownNames(editor), (Names{u"kanál a voda", u"Plynovod"}));
    EXPECT_TRUE(Checked(IDC_FILTER_WATER));
    EXPECT_TRUE(Checked(IDC_SCOPE_ALL));
    EXPECT_TRUE(ClickShowing(IDC_LOAD_FILE, L"Vyhledej soubor pro načtení katalogu potrubí", [](HWND picker) {
        Sleep(500);  // let it draw for the picture
        gui::SaveScreenshot(L"file-open");
        PostMessageW(picker, WM_COMMAND, IDCANCEL, 0);
    }));
    EXPECT_EQ(editor.WorkingList().Count(), 2u);
    Click(IDC_SCOPE_ZTI);
    EXPECT_EQ(ShownNames(editor), (Names{u"kanál a voda"}));

    const auto expectNothingShown = [&](const char* when) {
        editor.Send(WM_COMMAND, MAKEWPARAM(IDC_PROFILE_ADD, BN_CLICKED), 0);
        EXPECT_EQ(Text(IDC_NAME) + SelectedName(), u"") << when;
        EXPECT_EQ(Text(IDC_ROUGHNESS), u"0.01") << when;
        EXPECT_EQ(editor.ProfilePane().GetCount(), 0) << when;
        EXPECT_TRUE(messages.shown.empty()) << when;
        for (const int id : {IDC_PROFILE_ADD, IDC_PROFILE_DELETE_ALL, IDC_URS_MATERIAL, CTreeListCtrl::kControlId}) {
            EXPECT_FALSE(IsWindowEnabled(Control(id))) << when << id;
        }
    };
    Click(IDC_FILTER_HEATING);
    expectNothingShown("a filter listing none");
    EXPECT_EQ(editor.CurrentIndex(), 0);
    Click(IDC_FILTER_ALL);
    Click(IDC_MATERIAL_ADD);
    gui::SetText(Control(IDC_NAME), u"Kamenina");
    Click(IDC_MATERIAL_REVERT);
    expectNothingShown("\"+\" cancelled");
    EXPECT_EQ(GetFocus(), editor.MaterialList().Handle());
    SelectRowOf(u"kanál a voda");
    Click(IDC_MATERIAL_COPY);
    PressKey(Control(IDC_NAME), VK_ESCAPE);
    expectNothingShown("\"%\" cancelled");
    EXPECT_EQ(editor.WorkingList().Count(), 2u);
    SelectRowOf(u"kanál a voda");
    Click(IDC_MATERIAL_DELETE);
    expectNothingShown("every row deleted");
    for (const int id : {IDC_MATERIAL_DELETE, IDC_MATERIAL_COPY, IDC_MATERIAL_EDIT}) Click(id);
    EXPECT_EQ(editor.Mode(), EditMode::Browse);

    Click(IDC_MATERIAL_ADD);
    EXPECT_EQ(editor.Mode(), EditMode::Add);
    EXPECT_TRUE(IsWindowVisible(Control(IDC_MATERIAL_APPLY)));
    EXPECT_TRUE(IsWindowEnabled(Control(IDC_NAME)));
    for (const int id :
         {IDC_MATERIAL_LIST, IDC_FILTER_ALL, IDC_LOAD_FILE, IDC_URS_MATERIAL, CTreeListCtrl::kControlId}) {
        EXPECT_FALSE(IsWindowEnabled(Control(id))) << id;
    }
    EXPECT_TRUE(Checked(IDC_LABEL_DXT));
    for (int id = IDC_USE_ZTI; id <= IDC_USE_HEATING; ++id) EXPECT_TRUE(Checked(id)) << id;
    Click(IDC_USE_ZTI);
    EXPECT_FALSE(Checked(IDC_USE_ZTI));
    Click(IDC_USE_NETWORKS);
    EXPECT_TRUE(Checked(IDC_USE_NETWORKS));
    EXPECT_EQ(gui::FindVisibleBalloon().text, u"Pro něco ten materiál určen být musí");

    // A drop-down left without a choice refuses the new material with the exception box.
    gui::SetText(Control(IDC_NAME), u"Kamenina");
    SendDlgItemMessageW(editor.Handle(), IDC_PN, CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    Click(IDC_MATERIAL_APPLY);
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].text, MaterialError(u"SDR nebo PN nenalezeno v seznamu ", 224));
    EXPECT_EQ(editor.WorkingList().Find(u"Kamenina"), nullptr);
    SendDlgItemMessageW(editor.Handle(), IDC_PN, CB_SETCURSEL, 0, 0);
    Click(IDC_MATERIAL_APPLY);
    EXPECT_EQ(MaterialNamed(editor.WorkingList(), u"Kamenina").Placement(), kPlacementNetworks);
}

// Screen readers name each field by the label standing directly before it (which makes the tab
// order read as the dialog does), and the icon buttons by their captions.
TEST_F(MaterialEditor, LabelsComeDirectlyBeforeTheirControlsAndIconButtonsHaveCaptions) {
    Open();
    const int labelsAndControls[] = {IDC_NAME_LABEL,         IDC_NAME,         IDC_DISPLAY_NAME_LABEL, IDC_DISPLAY_NAME,
                                     IDC_MANUFACTURER_LABEL, IDC_MANUFACTURER, IDC_DESCRIPTION_LABEL,  IDC_DESCRIPTION,
                                     IDC_PN_LABEL,           IDC_PN,           IDC_SDR_LABEL,          IDC_SDR,
                                     IDC_ROUGHNESS_LABEL,    IDC_ROUGHNESS,    IDC_LABEL_MODE_LABEL,   IDC_LABEL_DN,
                                     IDC_URS_INSTALL_LABEL,  IDC_URS_INSTALL,  IDC_URS_MATERIAL_LABEL, IDC_URS_MATERIAL,
                                     IDC_MATERIALS_HEADING,  IDC_MATERIAL_LIST};
    for (std::size_t i = 0; i < std::size(labelsAndControls); i += 2) {
        EXPECT_EQ(GetWindow(Control(labelsAndControls[i]), GW_HWNDNEXT), Control(labelsAndControls[i + 1])) << i;
    }
    EXPECT_EQ(GetWindow(Control(IDC_PROFILE_PLACE), GW_HWNDNEXT), editor.ProfilePane().Handle());
    const std::pair<int, const char16_t*> captions[] = {{IDC_MATERIAL_ADD, u"+"},  {IDC_MATERIAL_DELETE, u"X"},
                                                        {IDC_MATERIAL_COPY, u"%"}, {IDC_MATERIAL_EDIT, u"..."},
                                                        {IDC_PROFILE_ADD, u"+"},   {IDC_PROFILE_DELETE, u"X"}};
    for (const auto& [id, caption] : captions) EXPECT_EQ(Text(id), caption);
}

// A copy needs a new name and takes the profiles as its own; a rename needs one of no other
// material and of at most 20 characters, its own name is accepted as a change. Refusals leave the
// list as it was. A used material is not deleted, and nothing is said.
TEST_F(MaterialEditor, CopyNeedsANewNameRenamesAreCheckedAndAUsedMaterialStays) {
    AddUsedFor(catalogue, u"PE", 3, 31).AddProfile(11);
    AddUsedFor(catalogue, u"PVC", 3, 31);
    Open();
    SelectRowOf(u"PE");

    Click(IDC_MATERIAL_COPY);
    ASSERT_EQ(editor.Mode(), EditMode::Copy);
    EXPECT_EQ(Text(IDC_NAME), u"PE");
    gui::SaveScreenshot(L"editor-copy");
    editor.WorkingList().SetUnchanged(true);
    MessageBoxWatcher::Seen seen = ClickAnswering(IDC_MATERIAL_APPLY);
    EXPECT_EQ(seen.text, L"Tento název již existuje u jiného materiálu, možná jen není zobrazen\n(přepněte filtry)");
    EXPECT_NE(seen.icon, nullptr);
    EXPECT_EQ(editor.Mode(), EditMode::Copy);
    EXPECT_EQ(editor.WorkingList().Count(), 2u);
    EXPECT_TRUE(editor.WorkingList().IsUnchanged());

    gui::SetText(Control(IDC_NAME), u"PE kopie");
    Click(IDC_MATERIAL_APPLY);
    EXPECT_EQ(editor.Mode(), EditMode::Browse);
    const CQvxMaterial& copy = MaterialNamed(editor.WorkingList(), u"PE kopie");
    EXPECT_EQ(copy.Profiles().size(), 1u);
    EXPECT_NE(copy.FindProfile(11), editor.WorkingList().Find(u"PE")->FindProfile(11));
    EXPECT_EQ(ShownNames(editor), (Names{u"PE", u"PE kopie", u"PVC"}));
    EXPECT_EQ(catalogue.Count(), 2u);  // the caller's list waits for OK

    SelectRowOf(u"PE");
    Click(IDC_MATERIAL_EDIT);
    gui::SetText(Control(IDC_NAME), u"PVC");
    seen = ClickAnswering(IDC_MATERIAL_APPLY);
    EXPECT_EQ(seen.text, L"Tento název již existuje u jiného materiálu");
    EXPECT_EQ(seen.icon, nullptr);
    EXPECT_EQ(editor.Mode(), EditMode::Edit);
    gui::SetText(Control(IDC_NAME), u"123456789012345678901");  // pasted past the limit
    Click(IDC_MATERIAL_APPLY);
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].text, MaterialError(u"Příliš dlouhý název", 202));

    gui::SetText(Control(IDC_NAME), u"PE");  // its own name
    editor.WorkingList().SetUnchanged(true);
    Click(IDC_MATERIAL_APPLY);
    EXPECT_EQ(editor.Mode(), EditMode::Browse);
    EXPECT_FALSE(editor.WorkingList().IsUnchanged());
    EXPECT_FALSE(IsWindowVisible(Control(IDC_MATERIAL_APPLY)));

    CQvxMaterial* user = nullptr;
    editor.WorkingList().Find(u"PE")->Users().Register(&user);
    EXPECT_FALSE(ClickAnswering(IDC_MATERIAL_DELETE).found);
    EXPECT_EQ(ShownNames(editor), (Names{u"PE", u"PE kopie", u"PVC"}));
    SelectRowOf(u"PE");
    editor.WorkingList().Find(u"PE")->Users().Clear();
    Click(IDC_MATERIAL_DELETE);
    EXPECT_EQ(ShownNames(editor), (Names{u"PE kopie", u"PVC"}));
    EXPECT_EQ(editor.WorkingList().Find(u"PE"), nullptr);
    EXPECT_EQ(Text(IDC_NAME), u"PE kopie");  // the row that took the deleted one's place is shown
}

// What a material holds shows in the fields, and what the fields show after an edit goes back
// into it: "..." renaming "Alfa" to "Zeta…" of 20 characters (the most a name may have), with other
// fields and a rectangle. "Jiný" shows the description dialog; cancelled, it leaves "Jiný" checked
// and the affixes as they were. The selection follows the applied material: its fields, profiles
// and the columns of its new shape show it, the profile "+" adds to it, and the code typed before
// "..." was stored. The list has the focus, and typing there finds a material by its beginning.
// Growing the dialog widens the list, the pane and the long texts by half the growth, the last
// column of each list taking it.
TEST_F(MaterialEditor, FieldsShowTheMaterialAnEditStoresThemTheSelectionFollowsAndGrowingWidensTheLists) {
    AddEveryShape(catalogue);
    EditMaterial(*catalogue.Find(u"Alfa"), [](MaterialExchangeRecord& record) {
        record.prefix = u"d";
        record.suffix = u"mm";
        record.manufacturer = u"Plasty";
        record.pnIndex = 2;
        record.sdrIndex = 3;
        record.placement = kPlacementIndoor;
        record.medium = kMediumWater | kMediumGas;
        record.descriptionMode = DescriptionMode::Dn;
    });
    Open();
    EXPECT_EQ(Text(IDC_MANUFACTURER), u"Plasty");
    EXPECT_EQ(Text(IDC_PN), u"PN 10");
    EXPECT_EQ(SendDlgItemMessageW(editor.Handle(), IDC_SDR, CB_GETCURSEL, 0, 0), 3);
    EXPECT_TRUE(Checked(IDC_LABEL_DN));
    const std::pair<int, bool> boxes[] = {{IDC_USE_ZTI, true},   {IDC_USE_NETWORKS, false}, {IDC_USE_SEWAGE, false},
                                          {IDC_USE_WATER, true}, {IDC_USE_GAS, true},       {IDC_USE_HEATING, false}};
    for (const auto& [id, checked] : boxes) EXPECT_EQ(Checked(id), checked) << id;

    gui::SetText(Control(IDC_URS_MATERIAL), u"M-Zeta");
    Click(IDC_MATERIAL_EDIT);
    const std::u16string zetaName = u"Zeta s dvaceti znaky";
    gui::SetText(Control(IDC_NAME), zetaName);
    gui::SetText(Control(IDC_MANUFACTURER), u"Litina");
    SendDlgItemMessageW(editor.Handle(), IDC_PN, CB_SETCURSEL, 0, 0);
    for (const int id : {IDC_USE_NETWORKS, IDC_USE_GAS, IDC_SHAPE_RECTANGLE}) Click(id);
    Names affixes;
    ASSERT_TRUE(ClickShowing(IDC_LABEL_CUSTOM, L"Zadej formát popisu", [&](HWND description) {
        affixes = {gui::Text(GetDlgItem(description, IDC_PREFIX)), gui::Text(GetDlgItem(description, IDC_SUFFIX))};
        gui::SaveScreenshot(L"description");
        PostMessageW(description, WM_COMMAND, IDCANCEL, 0);
    }));
    EXPECT_EQ(affixes, (Names{u"d", u"mm"}));
    EXPECT_TRUE(Checked(IDC_LABEL_CUSTOM));
    Click(IDC_MATERIAL_APPLY);
    ASSERT_EQ(editor.Mode(), EditMode::Browse);
    const CQvxMaterial& zeta = MaterialNamed(editor.WorkingList(), zetaName);
    EXPECT_EQ(editor.WorkingList().Find(u"Alfa"), nullptr);
    const MaterialExchangeRecord stored = FieldsOf(zeta);
    EXPECT_EQ(stored.manufacturer, u"Litina");
    EXPECT_EQ(stored.pnIndex, 0);
    EXPECT_EQ(stored.sdrIndex, 3);
    EXPECT_EQ(stored.placement, kPlacementAll);
    EXPECT_EQ(stored.medium, kMediumWater);
    EXPECT_EQ(stored.shape, ProfileShape::Rectangle);
    EXPECT_EQ(stored.descriptionMode, DescriptionMode::Custom);
    EXPECT_EQ(stored.prefix + stored.suffix, u"dmm");
    EXPECT_EQ(ProfileAt(zeta, 10).UrsMaterialCode(), u"M-Zeta");
    EXPECT_EQ(ShownNames(editor).back(), zetaName);
    EXPECT_EQ(SelectedName(), zetaName);
    EXPECT_EQ(Text(IDC_NAME), zetaName);
    EXPECT_EQ(PaneColumn(kInnerColumn).first, u"Výška");
    Click(IDC_PROFILE_ADD);
    EXPECT_EQ(zeta.Profiles().size(), 3u);
    EXPECT_EQ(MaterialNamed(editor.WorkingList(), u"Beta").Profiles().size(), 2u);

    Click(IDC_MATERIAL_EDIT);
    Click(IDC_MATERIAL_APPLY);
    ASSERT_EQ(GetFocus(), editor.MaterialList().Handle());
    gui::Type(editor.MaterialList().Handle(), u"Pr");
    gui::Pump(editor);
    EXPECT_EQ(SelectedName(), u"Praha");
    EXPECT_EQ(Text(IDC_NAME), u"Praha");

    const auto widths = [&] {
        const RECT place = CWindow(Control(IDC_DESCRIPTION)).WindowRect();
        return std::vector<int>{ListView_GetColumnWidth(editor.MaterialList().Handle(), 2),
                                PaneColumn(kWidthColumn).second, static_cast<int>(place.right - place.left)};
    };
    const std::vector<int> before = widths();
    const RECT window = editor.WindowRect();
    SetWindowPos(editor.Handle(), nullptr, 0, 0, window.right - window.left + 200, window.bottom - window.top,
                 SWP_NOMOVE | SWP_NOZORDER);
    const std::vector<int> after = widths();
    for (std::size_t i = 0; i < before.size(); ++i) EXPECT_EQ(after[i] - before[i], 100) << i;
}

TEST_F(MaterialSelection, ProfileIsRequiredWhenAskedFor) {
    AddUsedFor(catalogue, u"Beton", 3, kMediumSewage);
    AddUsedFor(catalogue, u"PE", 3, kMediumWater).AddProfile(11);
    Open(true);
    EXPECT_EQ(Text(IDC_PROFILES_HEADING), u"Vyber profil potrubí");
    EXPECT_EQ(Text(IDC_MATERIALS_HEADING), u"Materiály potrubí");
    EXPECT_TRUE(Checked(IDC_FILTER_GAS));
    EXPECT_EQ(ShownNames(dialog), (Names{u"Beton", u"PE"}));  // every material at first
    EXPECT_FALSE(IsWindowEnabled(Control(IDC_NAME)));
    gui::SaveScreenshot(L"selection");

    EXPECT_EQ(ClickAnswering(IDOK).text, L"Není vybrána žádný profil");  // Beton has no profile
    EXPECT_FALSE(dialog.HasEnded());
    NMITEMACTIVATE click{};
    click.hdr = {dialog.MaterialList().Handle(), IDC_MATERIAL_LIST, static_cast<UINT>(NM_DBLCLK)};
    EXPECT_EQ(Answering([&] { dialog.Send(WM_NOTIFY, IDC_MATERIAL_LIST, reinterpret_cast<LPARAM>(&click)); }).text,
              L"Je třeba vybrat profil z vedlejšího seznamu");
    EXPECT_FALSE(dialog.HasEnded());
}

// An empty filter result cannot be chosen. The editor runs modal over the selection dialog, whose
// window waits disabled meanwhile; Enter in the editor's fields goes through its own message
// handling (it applies the new material) and is not taken by the dialog manager as OK.
TEST_F(MaterialSelection, EmptyResultIsRefusedAndTheEditorOpenedFromItListsEveryMaterialAfterOk) {
    AddUsedFor(catalogue, u"Beton", 3, kMediumSewage);
    AddUsedFor(catalogue, u"Plynovod", 3, kMediumGas);
    Open(false);
    EXPECT_EQ(Text(IDC_MATERIALS_HEADING), u"Vyber materiál potrubí");
    Click(IDC_FILTER_HEATING);
    EXPECT_EQ(ClickAnswering(IDOK).text, L"Není vybrána žádný materiál");
    EXPECT_FALSE(dialog.HasEnded());
    Click(IDC_FILTER_GAS);
    ASSERT_EQ(ShownNames(dialog), (Names{u"Plynovod"}));

    TempFolder data;  // the editor's OK saves the catalogue here; a failed save would keep it open
    FakeRegistryValues folders;
    folders.Set(CRegistryValues::Hive::LocalMachine, u"CommonDataPath", data.Path().u16string());
    CRegistryValuesScope installedRegistry{folders};
    bool ownerEnabled = true;
    int paneUsers = 0;
    ASSERT_TRUE(ClickShowing(IDC_EDIT_MATERIALS, kCaption, [&](HWND editor) {
        ownerEnabled = IsWindowEnabled(dialog.Handle()) != FALSE;
        paneUsers = TreeListResources::Users();  // both profile panes share the drawing resources
        PostMessageW(GetDlgItem(editor, IDC_MATERIAL_ADD), BM_CLICK, 0, 0);
        Sleep(200);
        SendDlgItemMessageW(editor, IDC_NAME, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"Ocel"));
        PostMessageW(GetDlgItem(editor, IDC_NAME), WM_KEYDOWN, VK_RETURN, 0);
        Sleep(200);
        PostMessageW(editor, WM_COMMAND, IDOK, 0);
    }));
    EXPECT_FALSE(ownerEnabled);
    EXPECT_TRUE(IsWindowEnabled(dialog.Handle()));
    EXPECT_EQ(paneUsers, 1);
    EXPECT_EQ(TreeListResources::Users(), 0);
    EXPECT_EQ(ShownNames(dialog), (Names{u"Beton", u"Ocel", u"Plynovod"}));
    EXPECT_TRUE(Checked(IDC_FILTER_GAS));
}

}  // namespace
