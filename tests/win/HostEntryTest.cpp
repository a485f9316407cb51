// velmora.dll as a host program uses it: through the C interface only, on the user's catalogue that
// the machine's folder values of the test prefix point at. A second thread plays the user. This
// program has no manifest: version 6 of the common controls comes with the library's own.

#include "velmora.h"

#include <commctrl.h>
#include <psapi.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "Dialogs/TreeListCtrl.h"
#include "_Velmora/MaterialDialogResources.h"
#include "support/CatalogueBuilding.h"
#include "support/TempFolder.h"
#include "win/DialogWatcher.h"
#include "win/GuiHarness.h"

namespace {

constexpr const wchar_t* kFolderValues[] = {L"CommonInstallPath", L"CommonDataPath"};

void Press(HWND dialog, int button) {
    PostMessageW(GetDlgItem(dialog, button), BM_CLICK, 0, 0);
}

// Selects the row showing `name`, as a click on it would, and presses `button` (none: 0). A
// missing row fails the test and cancels, so that the dialog does not wait for a user who is not
// there.
void Choose(HWND dialog, std::u16string_view name, int button = IDOK) {
    const bool shown = gui::SelectRow(GetDlgItem(dialog, IDC_MATERIAL_LIST), name);
    EXPECT_TRUE(shown) << "no row shows the material";
    if (!shown || button != 0) Press(dialog, shown ? button : IDCANCEL);
}

// Whether version 6 of the common controls (a side-by-side assembly) is loaded in this process:
// only the library's manifest asks for it here.
bool CommonControls6Loaded() {
    HMODULE modules[512];
    DWORD bytes = 0;
    K32EnumProcessModules(GetCurrentProcess(), modules, sizeof(modules), &bytes);
    for (DWORD i = 0; i < bytes / sizeof(HMODULE); ++i) {
        wchar_t path[MAX_PATH] = {};
        GetModuleFileNameW(modules[i], path, MAX_PATH);
        if (std::wstring(path).find(L"common-controls_6595b64144ccf1df_6.") != std::wstring::npos) return true;
    }
    return false;
}

// A catalogue of three materials as the user's, in a folder that the machine's folder values name,
// opened through the library.
class HostEntry : public ::testing::Test {
protected:
    HostEntry() {
        CQvxSezMaterialu list;
        AddMaterial(list, u"Beton");
        CQvxMaterial& polyethylene = AddMaterial(list, u"PE 100");
        polyethylene.AddProfile(11);
        polyethylene.AddProfile(14);
        AddMaterial(list, u"PVC").AddProfile(5);
        WriteFileBytes(folder.Path() / "Velmora" / "Potrubi.qxp", WriteCatalogue(list));

        const std::wstring path = folder.Path().wstring();
        for (const wchar_t* name : kFolderValues) {
            RegSetKeyValueW(HKEY_LOCAL_MACHINE, L"Software\\Quorvex", name, REG_SZ, path.c_str(),
                            static_cast<DWORD>((path.size() + 1) * sizeof(wchar_t)));
        }
        catalogue = VelmoraOpenCatalogue();
    }
    ~HostEntry() override {
        VelmoraCloseCatalogue(catalogue);
        for (const wchar_t* name : kFolderValues) RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, L"Software\\Quorvex", name);
    }

    // Shows the selection dialog, the user doing `choose` in it.
    int Select(bool selectProfile, int nameSize, const std::function<void(HWND)>& choose) {
        DialogWatcher user(L"Materiály potrubí", choose);
        const int result = VelmoraSelectMaterial(catalogue, nullptr, VELMORA_PLACEMENT_ALL, VELMORA_MEDIUM_WATER,
                                                 selectProfile ? 1 : 0, name, nameSize, &dnIndex);
        EXPECT_TRUE(user.Stop());
        return result;
    }

    TempFolder folder;
    VelmoraCatalogue* catalogue = nullptr;
    wchar_t name[VELMORA_NAME_SIZE] = L"?";
    int dnIndex = 99;
};

// The editor's OK changes the open catalogue and the user's file; the selection dialog then gives a
// material with one of its profiles or alone, and the library tells what failed.
TEST_F(HostEntry, EditorsOkChangesTheCatalogueAndTheFileAndASelectionGivesAMaterialAndAProfile) {
    ASSERT_NE(catalogue, nullptr);
    DialogWatcher user(L"Materiály potrubí", [](HWND editor) {
        EXPECT_NE(GetDlgItem(editor, IDC_MATERIAL_ADD), nullptr) << "the editor";
        Choose(editor, u"Beton", IDC_MATERIAL_DELETE);
        Press(editor, IDOK);
    });
    EXPECT_EQ(VelmoraEditMaterials(catalogue, nullptr, VELMORA_PLACEMENT_ALL, VELMORA_MEDIUM_ALL), VELMORA_OK);
    EXPECT_TRUE(user.Stop());
    CQvxSezMaterialu saved;
    ReadCatalogue(saved, FileBytes(folder.Path() / "Velmora" / "Potrubi.qxp"));
    EXPECT_EQ(saved.Count(), 2u);
    EXPECT_EQ(saved.Find(u"Beton"), nullptr);

    bool waterFilterShown = false;
    int rows = 0;
    const int result = Select(true, VELMORA_NAME_SIZE, [&](HWND dialog) {
        waterFilterShown = IsDlgButtonChecked(dialog, IDC_FILTER_WATER) == BST_CHECKED;
        rows = ListView_GetItemCount(GetDlgItem(dialog, IDC_MATERIAL_LIST));
        Choose(dialog, u"PE 100", 0);
        const HWND profiles = GetDlgItem(dialog, CTreeListCtrl::kControlId);
        TreeView_SelectItem(profiles, TreeView_GetNextSibling(profiles, TreeView_GetRoot(profiles)));
        Press(dialog, IDOK);  // "Vyber"
    });
    EXPECT_EQ(result, VELMORA_OK);
    EXPECT_STREQ(name, L"PE 100");
    EXPECT_EQ(dnIndex, 14);
    EXPECT_TRUE(waterFilterShown);
    EXPECT_EQ(rows, 2);
    EXPECT_TRUE(CommonControls6Loaded());

    EXPECT_EQ(Select(false, VELMORA_NAME_SIZE, [](HWND dialog) { Choose(dialog, u"PVC"); }), VELMORA_OK);
    EXPECT_STREQ(name, L"PVC");
    EXPECT_EQ(dnIndex, VELMORA_NO_PROFILE);

    EXPECT_EQ(Select(false, VELMORA_NAME_SIZE, [](HWND dialog) { Press(dialog, IDCANCEL); }), VELMORA_CANCELLED);
    EXPECT_STREQ(name, L"");

    // "PVC" needs four characters with its terminating zero.
    EXPECT_EQ(Select(false, 3, [](HWND dialog) { Choose(dialog, u"PVC"); }), VELMORA_NAME_TOO_LONG);
    EXPECT_STREQ(name, L"");

    EXPECT_EQ(VelmoraSelectMaterial(catalogue, nullptr, VELMORA_PLACEMENT_ALL, 0, 0, name, VELMORA_NAME_SIZE, nullptr),
              VELMORA_INVALID_ARGUMENT);
    EXPECT_EQ(VelmoraSelectMaterial(nullptr, nullptr, 1, 1, 0, name, VELMORA_NAME_SIZE, nullptr),
              VELMORA_INVALID_ARGUMENT);
}

}  // namespace
