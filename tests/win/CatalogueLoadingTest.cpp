// The editor's commands on the whole working list: reading other catalogues, OK and leaving.

#include <filesystem>

#include "Win/CWin32FileSystem.h"
#include "support/FakeRegistryValues.h"
#include "support/RecordSummary.h"
#include "support/TempFolder.h"
#include "win/MaterialEditorHarness.h"

namespace {

using namespace material_dialogs;

// An installation in a temporary folder: the user's catalogue goes to data/Velmora, the standard
// one comes from install/Velmora; the file picker picks `picked`.
class EditorOnFiles : public MaterialEditor {
protected:
    EditorOnFiles() {
        registry.Set(CRegistryValues::Hive::LocalMachine, u"CommonDataPath", root / u"data");
        registry.Set(CRegistryValues::Hive::LocalMachine, u"CommonInstallPath", root / u"install");
        std::filesystem::create_directories(root.Path() / "data");
        std::filesystem::create_directories(root.Path() / "install" / "Velmora");
        editor.SetFilePicker([this](HWND) { return picked; });
    }
    std::filesystem::path UserFile() const { return root.Path() / "data" / "Velmora" / "Potrubi.qxp"; }
    // Writes a catalogue of `list` at `path` below the folder and lets the picker pick it.
    void PickCatalogueOf(CQvxSezMaterialu& list, std::u16string_view path = u"picked.qxp") {
        picked = root / path;
        WriteFileBytes(std::filesystem::path(*picked), WriteCatalogue(list));
    }

    TempFolder root;
    FakeRegistryValues registry;
    CRegistryValuesScope installedRegistry{registry};
    std::optional<std::u16string> picked;
};

// The standard catalogue joins or replaces the materials without a word. A picked one: No adds it
// and lists every material while the radios stay; Yes clears the list first, even when the picked
// file then fails to open. Only OK or a Yes on leaving writes the user's catalogue.
TEST_F(EditorOnFiles, LoadingTheStandardOrAPickedCatalogueJoinsOrClearsAndListsEveryMaterial) {
    AddUsedFor(catalogue, u"Plynovod", 3, kMediumGas);
    CQvxSezMaterialu standard;
    AddUsedFor(standard, u"PE 100", 3, kMediumGas);
    PickCatalogueOf(standard, u"install/Velmora/Potrubi_std.qxp");
    CQvxSezMaterialu other;
    AddUsedFor(other, u"Vodovod", 3, kMediumWater);
    AddUsedFor(other, u"Kanál", 3, kMediumSewage);
    PickCatalogueOf(other);
    Open();

    EXPECT_TRUE(ClickAnswering(IDC_LOAD_STANDARD, CQxDlgMatEdituj::kAddMaterialsButton, true)
                    .Shows(L"Vymazat stávající materiály?"));
    EXPECT_EQ(ShownNames(editor), (Names{u"PE 100", u"Plynovod"}));
    ClickAnswering(IDC_LOAD_STANDARD, CQxDlgMatEdituj::kClearAndLoadButton, true);
    EXPECT_EQ(ShownNames(editor), (Names{u"PE 100"}));
    ClickAnswering(IDC_LOAD_STANDARD, CQxDlgMatEdituj::kCancelLoadingButton, true);
    EXPECT_EQ(editor.WorkingList().Count(), 1u);
    EXPECT_FALSE(editor.WorkingList().IsUnchanged());
    EXPECT_TRUE(messages.shown.empty());

    Click(IDC_FILTER_WATER);
    EXPECT_EQ(ShownNames(editor), Names{});
    EXPECT_TRUE(ClickAnswering(IDC_LOAD_FILE, IDNO, true)
                    .Shows(L"Vymazat před načtením všechny materiály? (používané materiály vymazat nelze)"));
    EXPECT_EQ(ShownNames(editor), (Names{u"Kanál", u"PE 100", u"Vodovod"}));
    EXPECT_TRUE(Checked(IDC_FILTER_WATER));

    picked = root / u"zmizelý.qxp";
    ClickAnswering(IDC_LOAD_FILE, IDYES, true);
    EXPECT_EQ(editor.WorkingList().Count(), 0u);
    EXPECT_EQ(editor.MaterialList().GetItemCount(), 0);
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].caption, u"Neočekávaná výjimka");
    EXPECT_EQ(messages.shown[0].text, u"Nelze otevřít soubor" + *picked);
    EXPECT_EQ(Text(IDC_NAME), u"");  // no deleted material is shown
    EXPECT_FALSE(IsWindowEnabled(Control(IDC_PROFILE_ADD)));
    EXPECT_EQ(catalogue.Count(), 1u);
    EXPECT_FALSE(std::filesystem::exists(UserFile()));
}

// Every field of every material survives the editor: its working copy, the file it saves and the
// list it hands back. Opening and OK without a change writes nothing. Enter applies an edit (an
// empty name is refused) and does not close the editor; OK drops an edit still open, saves the
// changed catalogue and hands it back: read back and written without the added material, the file
// is the original, byte for byte.
TEST_F(EditorOnFiles, EveryFieldSurvivesTheWorkingCopyTheSaveAndTheHandBackAndEnterApplies) {
    CQvxSezMaterialu source;
    AddEveryShape(source);
    const Bytes original = WriteCatalogue(source);
    ReadCatalogue(catalogue, original);  // with file indexes
    const std::string fields = Summary(catalogue);
    Open();
    Click(IDOK);
    EXPECT_FALSE(std::filesystem::exists(UserFile()));

    editor.DestroyWindow();
    Open();
    Click(IDC_MATERIAL_ADD);
    ASSERT_EQ(GetFocus(), Control(IDC_NAME));
    EXPECT_EQ(Answering([&] { PressKey(Control(IDC_NAME), VK_RETURN); }).text, L"Název nesmí být prázdný");
    EXPECT_EQ(editor.Mode(), EditMode::Add);
    gui::SetText(Control(IDC_NAME), u"Nový");
    PressKey(Control(IDC_NAME), VK_RETURN);
    EXPECT_EQ(editor.Mode(), EditMode::Browse);
    EXPECT_FALSE(editor.HasEnded());
    Click(IDC_MATERIAL_ADD);
    gui::SetText(Control(IDC_NAME), u"Otevřený");
    Click(IDOK);
    EXPECT_EQ(editor.Result(), IDOK);
    CQvxSezMaterialu saved;
    ReadCatalogue(saved, FileBytes(UserFile()));
    ASSERT_TRUE(saved.RemoveMaterial(u"Nový"));
    EXPECT_EQ(WriteCatalogue(saved), original);
    ASSERT_TRUE(catalogue.RemoveMaterial(u"Nový"));
    EXPECT_EQ(Summary(catalogue), fields);
}

// OK while another program holds the catalogue open, without sharing or for reading only: the
// message says why, the editor stays open and the caller's list as it was. Once the file is let go
// OK saves, and the backup keeps the previous catalogue. After a change leaving asks: Cancel stays,
// Yes saves without handing the list back. Escape without a change leaves at once.
TEST_F(EditorOnFiles, OkWhileTheCatalogueIsHeldOpenWaitsUntilItIsLetGoAndLeavingAsksOnlyAfterAChange) {
    CWin32FileSystem files;
    CFileSystemScope installedFiles(files);
    AddMaterial(catalogue, u"PE");
    ASSERT_TRUE(catalogue.SaveCatalogue());
    const Bytes before = FileBytes(UserFile());
    Open();
    Click(IDC_MATERIAL_ADD);
    gui::SetText(Control(IDC_NAME), u"PVC");
    Click(IDC_MATERIAL_APPLY);

    for (const DWORD sharing : {DWORD{0}, DWORD{FILE_SHARE_READ}}) {
        const HANDLE held =
            CreateFileW(UserFile().c_str(), GENERIC_READ, sharing, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
        ASSERT_NE(held, INVALID_HANDLE_VALUE);
        Click(IDOK);
        CloseHandle(held);
        ASSERT_EQ(messages.shown.size(), 1u) << "sharing " << sharing;
        EXPECT_EQ(messages.shown[0].content, u"Nelze uložit provedené změny\nSoubor používá jiný program.");
        EXPECT_FALSE(editor.HasEnded());
        EXPECT_EQ(catalogue.Find(u"PVC"), nullptr);
        EXPECT_EQ(FileBytes(UserFile()), before);
        EXPECT_FALSE(std::filesystem::exists(std::filesystem::path(UserFile()) += ".new"));
        messages.shown.clear();
    }

    Click(IDOK);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_TRUE(editor.HasEnded());
    EXPECT_NE(catalogue.Find(u"PVC"), nullptr);
    EXPECT_EQ(FileBytes(UserFile()), WriteCatalogue(catalogue));
    EXPECT_EQ(FileBytes(std::filesystem::path(UserFile()) += ".bak"), before);

    editor.DestroyWindow();
    Open();
    EditMaterial(*editor.WorkingList().Find(u"PE"),
                 [](MaterialExchangeRecord& record) { record.manufacturer = u"Plasty"; });
    EXPECT_EQ(ClickAnswering(IDCANCEL, IDCANCEL).text, L"Uložit provedené změny do souboru?");
    EXPECT_FALSE(editor.HasEnded());
    EXPECT_EQ(ClickAnswering(IDCANCEL, IDYES).text, L"Uložit provedené změny do souboru?");
    EXPECT_TRUE(editor.HasEnded());
    EXPECT_EQ(FileBytes(UserFile()), WriteCatalogue(editor.WorkingList()));
    EXPECT_EQ(catalogue.Find(u"PE")->Manufacturer(), u"");  // the caller's list is as it was

    editor.DestroyWindow();
    Open();
    MessageBoxWatcher none(kCaption, {IDCANCEL}, editor.Handle());
    PressKey(editor.MaterialList().Handle(), VK_ESCAPE);
    EXPECT_FALSE(none.Stop().found);
    EXPECT_EQ(editor.Result(), IDCANCEL);
    EXPECT_FALSE(editor.IsVisible());
}

}  // namespace
