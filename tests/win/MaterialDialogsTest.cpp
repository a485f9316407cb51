// The selection dialog, the material editor and the description dialog, driven through their
// controls under Wine.

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include "Win/WideText.h"
#include "_Velmora/CQvxMaterial.h"
#include "_Velmora/CQvxSezMaterialu.h"
#include "_Velmora/MaterialDialogResources.h"
#include "_Velmora/QxDlgMatEdituj.h"
#include "win/DialogWatcher.h"
#include "win/GuiHarness.h"
#include "win/MaterialEditorHarness.h"
#include "win/MessageBoxWatcher.h"
#include "win/RefusalBeeps.h"

namespace {

using namespace material_dialogs;

TEST_F(MaterialEditor, EmptyCatalogueOffersOnlyAdding) {
    Open();
    EXPECT_EQ(editor.MaterialList().GetItemCount(), 0);
    EXPECT_EQ(editor.CurrentIndex(), -1);
    for (const int id : {IDC_MATERIAL_DELETE, IDC_MATERIAL_COPY, IDC_MATERIAL_EDIT}) {
        Click(id);
        EXPECT_EQ(editor.Mode(), EditMode::Browse) << id;
    }
    EXPECT_FALSE(IsWindowVisible(Control(IDC_MATERIAL_APPLY)));
    EXPECT_FALSE(IsWindowEnabled(Control(IDC_NAME)));

    Click(IDC_MATERIAL_ADD);
    EXPECT_EQ(editor.Mode(), EditMode::Add);
    EXPECT_TRUE(IsWindowVisible(Control(IDC_MATERIAL_APPLY)));
    EXPECT_TRUE(IsWindowEnabled(Control(IDC_NAME)));
    EXPECT_FALSE(IsWindowEnabled(Control(IDC_MATERIAL_LIST)));
    EXPECT_FALSE(IsWindowEnabled(Control(IDC_FILTER_ALL)));
    EXPECT_FALSE(IsWindowEnabled(Control(IDC_LOAD_FILE)));
    EXPECT_FALSE(IsWindowEnabled(Control(IDC_URS_MATERIAL)));
    EXPECT_FALSE(editor.ProfilePane().IsEnabled());

    // Screen readers name the icon buttons by their captions.
    const std::pair<int, const char16_t*> captions[] = {{IDC_MATERIAL_ADD, u"+"},  {IDC_MATERIAL_DELETE, u"X"},
                                                        {IDC_MATERIAL_COPY, u"%"}, {IDC_MATERIAL_EDIT, u"..."},
                                                        {IDC_PROFILE_ADD, u"+"},   {IDC_PROFILE_DELETE, u"X"}};
    for (const auto& [id, caption] : captions) EXPECT_EQ(Text(id), caption);
    EXPECT_EQ(editor.Text(), u"Materiály potrubí");
}

TEST_F(MaterialEditor, FilterRadiosListByBothMasks) {
    AddUsedFor(catalogue, u"Kanál a voda", 3, kMediumSewage | kMediumWater);
    AddUsedFor(catalogue, u"Plynovod", 2, kMediumGas);
    filter = {kPlacementAll, kMediumWater};
    Open();
    // Opening lists everything; the radios show the caller's filter.
    EXPECT_EQ(ShownNames(editor), (std::vector<std::u16string>{u"Kanál a voda", u"Plynovod"}));
    EXPECT_TRUE(Checked(IDC_FILTER_WATER));
    EXPECT_TRUE(Checked(IDC_SCOPE_ALL));

    const std::pair<int, std::vector<std::u16string>> cases[] = {
        {IDC_FILTER_SEWAGE, {u"Kanál a voda"}},
        {IDC_FILTER_WATER, {u"Kanál a voda"}},
        {IDC_FILTER_GAS, {u"Plynovod"}},
        {IDC_FILTER_ALL, {u"Kanál a voda", u"Plynovod"}},
        {IDC_SCOPE_ZTI, {u"Kanál a voda"}},
    };
    for (const auto& [radio, shown] : cases) {
        Click(radio);
        EXPECT_EQ(ShownNames(editor), shown) << radio;
        EXPECT_EQ(editor.CurrentIndex(), 0);
    }
    Click(IDC_FILTER_HEATING);  // nothing for heating: the pane is empty, the current row still 0
    EXPECT_EQ(editor.MaterialList().GetItemCount(), 0);
    EXPECT_EQ(editor.CurrentIndex(), 0);
}

TEST_F(MaterialEditor, ListShowsNamesCaseBlindWhileTheCatalogueKeepsItsOrder) {
    for (const char16_t* name : {u"Dno", u"Čep", u"abc", u"Abd"}) AddMaterial(catalogue, name);
    Open();
    EXPECT_EQ(ShownNames(editor), (std::vector<std::u16string>{u"abc", u"Abd", u"Dno", u"Čep"}));
    std::vector<std::u16string> kept;
    for (const auto& [name, material] : editor.WorkingList().Materials()) kept.push_back(name);
    EXPECT_EQ(kept, (std::vector<std::u16string>{u"Abd", u"Dno", u"abc", u"Čep"}));
    // The first row is shown in the fields.
    EXPECT_EQ(Text(IDC_NAME), u"abc");
}

TEST_F(MaterialEditor, CopyNeedsANewNameAndRenamesAreChecked) {
    AddUsedFor(catalogue, u"PE", 3, 31).AddProfile(11);
    AddUsedFor(catalogue, u"PVC", 3, 31);
    Open();
    SelectRowOf(u"PE");

    Click(IDC_MATERIAL_COPY);
    ASSERT_EQ(editor.Mode(), EditMode::Copy);
    EXPECT_EQ(Text(IDC_NAME), u"PE");
    gui::SaveScreenshot(L"editor-copy");
    MessageBoxWatcher::Seen seen = ClickAnswering(IDC_MATERIAL_APPLY);
    EXPECT_EQ(seen.text, L"Tento název již existuje u jiného materiálu, možná jen není zobrazen\n(přepněte filtry)");
    EXPECT_NE(seen.icon, nullptr);
    EXPECT_EQ(editor.Mode(), EditMode::Copy);

    gui::SetText(Control(IDC_NAME), u"PE kopie");
    Click(IDC_MATERIAL_APPLY);
    EXPECT_EQ(editor.Mode(), EditMode::Browse);
    ASSERT_NE(editor.WorkingList().Find(u"PE kopie"), nullptr);
    EXPECT_EQ(editor.WorkingList().Find(u"PE kopie")->Profiles().size(), 1u);
    EXPECT_EQ(ShownNames(editor), (std::vector<std::u16string>{u"PE", u"PE kopie", u"PVC"}));
    EXPECT_EQ(catalogue.Count(), 2u);  // the caller's list waits for OK

    SelectRowOf(u"PE");
    Click(IDC_MATERIAL_EDIT);
    gui::SetText(Control(IDC_NAME), u"PVC");
    seen = ClickAnswering(IDC_MATERIAL_APPLY);
    EXPECT_EQ(seen.text, L"Tento název již existuje u jiného materiálu");
    EXPECT_EQ(seen.icon, nullptr);
    EXPECT_EQ(editor.Mode(), EditMode::Edit);

    gui::SetText(Control(IDC_NAME), u"PE");  // its own name
    editor.WorkingList().SetUnchanged(true);
    Click(IDC_MATERIAL_APPLY);
    EXPECT_EQ(editor.Mode(), EditMode::Browse);
    EXPECT_FALSE(editor.WorkingList().IsUnchanged());
    EXPECT_FALSE(IsWindowVisible(Control(IDC_MATERIAL_APPLY)));
}

TEST_F(MaterialEditor, UsedMaterialIsNotDeletedAndNothingIsSaid) {
    AddMaterial(catalogue, u"A");
    AddMaterial(catalogue, u"B");
    Open();
    CQvxMaterial* user = nullptr;
    editor.WorkingList().Find(u"A")->Users().Register(&user);
    SelectRowOf(u"A");
    MessageBoxWatcher watcher(kCaption, IDOK, editor.Handle());
    Click(IDC_MATERIAL_DELETE);
    EXPECT_FALSE(watcher.Stop().found);
    EXPECT_EQ(ShownNames(editor), (std::vector<std::u16string>{u"A", u"B"}));

    SelectRowOf(u"A");
    editor.WorkingList().Find(u"A")->Users().Clear();
    Click(IDC_MATERIAL_DELETE);
    EXPECT_EQ(ShownNames(editor), (std::vector<std::u16string>{u"B"}));
    EXPECT_EQ(editor.WorkingList().Find(u"A"), nullptr);
    EXPECT_EQ(Text(IDC_NAME), u"B");  // the row that took the deleted one's place is shown
}

TEST_F(MaterialEditor, NewMaterialFieldsTheirLimitsAndUsageBoxes) {
    AddMaterial(catalogue, u"PE");
    Open();
    Click(IDC_MATERIAL_ADD);
    for (const int id : {IDC_NAME, IDC_DISPLAY_NAME, IDC_MANUFACTURER, IDC_DESCRIPTION}) EXPECT_EQ(Text(id), u"") << id;
    EXPECT_EQ(Text(IDC_ROUGHNESS), u"0.01");
    EXPECT_TRUE(Checked(IDC_LABEL_DXT));
    EXPECT_TRUE(Checked(IDC_SHAPE_CIRCLE));
    EXPECT_EQ(gui::Text(GetDlgItem(editor.Handle(), IDC_PN)), u"---");
    for (const int id : {IDC_USE_ZTI, IDC_USE_NETWORKS, IDC_USE_SEWAGE, IDC_USE_PRESSURE_SEWAGE, IDC_USE_WATER,
                         IDC_USE_GAS, IDC_USE_HEATING}) {
        EXPECT_TRUE(Checked(id)) << id;
    }

    RefusalBeeps beeps;
    gui::Type(Control(IDC_NAME), u"123456789012345678901");
    EXPECT_EQ(Text(IDC_NAME), u"12345678901234567890");
    gui::Type(Control(IDC_MANUFACTURER), u"12345678901234567890123456");
    EXPECT_EQ(Text(IDC_MANUFACTURER), u"1234567890123456789012345");
    EXPECT_EQ(beeps.Heard(), 2);

    // Leaving "Název:" names an empty "Popis:" after it.
    SetFocus(Control(IDC_NAME));
    gui::Pump(editor);
    SetFocus(Control(IDC_MANUFACTURER));
    gui::Pump(editor);
    EXPECT_EQ(Text(IDC_DISPLAY_NAME), u"12345678901234567890");

    // The last box of a group cannot be cleared; the balloon stands on "Název:".
    Click(IDC_USE_ZTI);
    EXPECT_FALSE(Checked(IDC_USE_ZTI));
    Click(IDC_USE_NETWORKS);
    EXPECT_TRUE(Checked(IDC_USE_NETWORKS));
    const gui::Balloon balloon = gui::FindVisibleBalloon();
    EXPECT_TRUE(balloon.visible);
    EXPECT_EQ(balloon.text, u"Pro něco ten materiál určen být musí");

    Click(IDC_MATERIAL_REVERT);
    EXPECT_EQ(editor.Mode(), EditMode::Browse);
    for (const int id : {IDC_NAME, IDC_DISPLAY_NAME, IDC_MANUFACTURER}) EXPECT_EQ(Text(id), u"") << id;
    EXPECT_EQ(Text(IDC_ROUGHNESS), u"0.01");
    EXPECT_TRUE(Checked(IDC_LABEL_DXT));
    EXPECT_EQ(editor.WorkingList().Count(), 1u);
}

TEST_F(MaterialEditor, CancelledDescriptionDialogKeepsTheAffixes) {
    CQvxMaterial& pe = AddMaterial(catalogue, u"PE");
    EditMaterial(pe, [](MaterialExchangeRecord& record) {
        record.prefix = u"d";
        record.suffix = u"mm";
    });
    Open();
    Click(IDC_MATERIAL_EDIT);
    std::vector<std::u16string> shown;
    DialogWatcher cancel(L"Zadej formát popisu", [&](HWND dialog) {
        shown = {gui::Text(GetDlgItem(dialog, IDC_PREFIX)), gui::Text(GetDlgItem(dialog, IDC_SUFFIX))};
        gui::SaveScreenshot(L"description");
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    Click(IDC_LABEL_CUSTOM);
    ASSERT_TRUE(cancel.Stop());
    EXPECT_EQ(shown, (std::vector<std::u16string>{u"d", u"mm"}));
    EXPECT_TRUE(Checked(IDC_LABEL_CUSTOM));

    Click(IDC_MATERIAL_APPLY);
    const CQvxMaterial& applied = *editor.WorkingList().Find(u"PE");
    EXPECT_EQ(applied.GetDescriptionMode(), DescriptionMode::Custom);
    EXPECT_EQ(applied.Prefix(), u"d");
    EXPECT_EQ(applied.Suffix(), u"mm");
}

TEST_F(MaterialEditor, EnterAppliesAnEditAndOkHandsTheCopyBack) {
    AddMaterial(catalogue, u"PE");
    Open();
    SetForegroundWindow(editor.Handle());
    Click(IDC_MATERIAL_ADD);
    ASSERT_EQ(GetFocus(), Control(IDC_NAME));
    gui::RealType(u"PVC");
    gui::Pump(editor, 200);
    gui::RealKey(VK_RETURN);  // applies, and does not close the editor
    gui::Pump(editor, 200);
    EXPECT_EQ(editor.Mode(), EditMode::Browse);
    EXPECT_FALSE(editor.HasEnded());
    ASSERT_NE(editor.WorkingList().Find(u"PVC"), nullptr);

    editor.WorkingList().SetUnchanged(true);  // nothing to save: no file is written here
    Click(IDOK);
    EXPECT_TRUE(editor.HasEnded());
    EXPECT_EQ(editor.Result(), IDOK);
    EXPECT_NE(catalogue.Find(u"PVC"), nullptr);
}

TEST_F(MaterialEditor, TenThousandMaterialsOpenAndFilterWithoutAPause) {
    for (int i = 0; i < 10000; ++i) {
        char name[21];
        std::snprintf(name, sizeof(name), "Mat %05d", (i * 7919) % 10000);
        AddUsedFor(catalogue, std::u16string(name, name + std::char_traits<char>::length(name)), 3, 1 << (i % 5));
    }
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    editor.PrepareEditing(catalogue, filter);
    const auto copied = Clock::now();
    ASSERT_TRUE(editor.Create());
    editor.Show(SW_SHOW);
    gui::Pump(editor);
    const auto opened = Clock::now();
    Click(IDC_FILTER_ALL);
    const auto filled = Clock::now();
    const auto ms = [](Clock::duration d) { return std::chrono::duration<double, std::milli>(d).count(); };
    std::printf("[ figures  ] 10,000 materials: working copy %.0f ms, opening %.0f ms, FillList with its sort %.0f ms\n",
                ms(copied - start), ms(opened - copied), ms(filled - opened));
    EXPECT_EQ(editor.MaterialList().GetItemCount(), 10000);
    EXPECT_EQ(ShownNames(editor).front(), u"Mat 00000");
}

// Every label stands directly before its control, so that the tab order reads as the dialog does
// and screen readers name each field by its label.
TEST_F(MaterialEditor, LabelsComeDirectlyBeforeTheirControls) {
    Open();
    const std::pair<int, int> pairs[] = {
        {IDC_NAME_LABEL, IDC_NAME},       {IDC_DISPLAY_NAME_LABEL, IDC_DISPLAY_NAME},
        {IDC_MANUFACTURER_LABEL, IDC_MANUFACTURER}, {IDC_DESCRIPTION_LABEL, IDC_DESCRIPTION},
        {IDC_PN_LABEL, IDC_PN},           {IDC_SDR_LABEL, IDC_SDR},
        {IDC_ROUGHNESS_LABEL, IDC_ROUGHNESS},       {IDC_LABEL_MODE_LABEL, IDC_LABEL_DN},
        {IDC_URS_INSTALL_LABEL, IDC_URS_INSTALL},   {IDC_URS_MATERIAL_LABEL, IDC_URS_MATERIAL},
        {IDC_MATERIALS_HEADING, IDC_MATERIAL_LIST}};
    for (const auto& [label, control] : pairs) {
        EXPECT_EQ(GetWindow(Control(label), GW_HWNDNEXT), Control(control)) << label;
    }
    EXPECT_EQ(GetWindow(Control(IDC_PROFILE_PLACE), GW_HWNDNEXT), editor.ProfilePane().Handle());
}

class MaterialSelection : public ::testing::Test {
protected:
    void Open(bool selectProfile) {
        dialog.Prepare(catalogue, {kPlacementAll, kMediumGas}, selectProfile);
        ASSERT_TRUE(dialog.Create());
        dialog.Show(SW_SHOW);
        gui::Pump(dialog);
    }
    void TearDown() override { dialog.DestroyWindow(); }

    ScriptedUserMessages messages;
    CUserMessagesScope installedMessages{messages};
    CQvxSezMaterialu catalogue;
    CQxDlgMatVyber dialog{nullptr};
};

TEST_F(MaterialSelection, ProfileIsRequiredWhenAskedFor) {
    AddUsedFor(catalogue, u"Beton", 3, kMediumSewage);
    AddUsedFor(catalogue, u"PE", 3, kMediumWater).AddProfile(11);
    Open(true);
    EXPECT_EQ(gui::Text(dialog.Item(IDC_PROFILES_HEADING)), u"Vyber profil potrubí");
    EXPECT_EQ(gui::Text(dialog.Item(IDC_MATERIALS_HEADING)), u"Materiály potrubí");
    EXPECT_TRUE(IsDlgButtonChecked(dialog.Handle(), IDC_FILTER_GAS));
    EXPECT_EQ(ShownNames(dialog), (std::vector<std::u16string>{u"Beton", u"PE"}));  // every material at first
    EXPECT_FALSE(IsWindowEnabled(dialog.Item(IDC_NAME)));
    gui::SaveScreenshot(L"selection");

    {  // Beton has no profile
        MessageBoxWatcher watcher(kCaption, IDOK, dialog.Handle());
        gui::Click(dialog.Item(IDOK));
        gui::Pump(dialog);
        EXPECT_EQ(watcher.Stop().text, L"Není vybrána žádný profil");
        EXPECT_FALSE(dialog.HasEnded());
    }
    {
        MessageBoxWatcher watcher(kCaption, IDOK, dialog.Handle());
        NMITEMACTIVATE click{};
        click.hdr = {dialog.MaterialList().Handle(), IDC_MATERIAL_LIST, static_cast<UINT>(NM_DBLCLK)};
        click.iItem = 0;
        SendMessageW(dialog.Handle(), WM_NOTIFY, IDC_MATERIAL_LIST, reinterpret_cast<LPARAM>(&click));
        EXPECT_EQ(watcher.Stop().text, L"Je třeba vybrat profil z vedlejšího seznamu");
    }
    dialog.MaterialList().SetItemState(1, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    gui::Pump(dialog);
    gui::Click(dialog.Item(IDOK));
    gui::Pump(dialog);
    EXPECT_TRUE(dialog.HasEnded());
    EXPECT_EQ(dialog.ChosenMaterial(), catalogue.Find(u"PE"));
    EXPECT_EQ(dialog.ChosenProfile(), catalogue.Find(u"PE")->FindProfile(11));
}

TEST_F(MaterialSelection, EditorOpenedFromItListsEveryMaterialAfterOk) {
    AddUsedFor(catalogue, u"Beton", 3, kMediumSewage);
    AddUsedFor(catalogue, u"Plynovod", 3, kMediumGas);
    Open(false);
    gui::Click(dialog.Item(IDC_FILTER_GAS));
    gui::Pump(dialog);
    ASSERT_EQ(ShownNames(dialog), (std::vector<std::u16string>{u"Plynovod"}));

    bool editorShown = false;
    DialogWatcher editorWatcher(
        kCaption,
        [&](HWND editor) {
            editorShown = GetDlgItem(editor, IDC_MATERIAL_ADD) != nullptr;
            PostMessageW(editor, WM_COMMAND, IDOK, 0);
        },
        dialog.Handle());
    gui::Click(dialog.Item(IDC_EDIT_MATERIALS));
    gui::Pump(dialog);
    ASSERT_TRUE(editorWatcher.Stop());
    EXPECT_TRUE(editorShown);
    EXPECT_EQ(ShownNames(dialog), (std::vector<std::u16string>{u"Beton", u"Plynovod"}));
    EXPECT_TRUE(IsDlgButtonChecked(dialog.Handle(), IDC_FILTER_GAS));
}

TEST_F(MaterialSelection, EmptyFilterResultCannotBeChosen) {
    AddUsedFor(catalogue, u"Beton", 3, kMediumSewage);
    Open(false);
    EXPECT_EQ(gui::Text(dialog.Item(IDC_MATERIALS_HEADING)), u"Vyber materiál potrubí");
    gui::Click(dialog.Item(IDC_FILTER_GAS));
    gui::Pump(dialog);
    EXPECT_EQ(dialog.MaterialList().GetItemCount(), 0);
    MessageBoxWatcher watcher(kCaption, IDOK, dialog.Handle());
    gui::Click(dialog.Item(IDOK));
    gui::Pump(dialog);
    EXPECT_EQ(watcher.Stop().text, L"Není vybrána žádný materiál");
    EXPECT_FALSE(dialog.HasEnded());
}

}  // namespace
