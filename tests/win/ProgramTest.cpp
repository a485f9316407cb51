// Velmora.exe itself, started as a user starts it, and a host program of velmora.dll. They run in
// Wine prefixes of their own: first_run.sh makes one with the four folder values and only the
// standard catalogue; install.sh installs the program there with its installer.

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "Win/WideText.h"
#include "_Velmora/MaterialDialogResources.h"
#include "support/CatalogueBuilding.h"
#include "support/TempFolder.h"
#include "win/DialogWatcher.h"

namespace {

std::wstring FromEnvironment(const wchar_t* name) {
    const wchar_t* value = _wgetenv(name);
    return value != nullptr ? value : L"";
}

// The window of the material dialogs (another process's): titled "Materiály potrubí", with the
// material list; none when it does not show within ten seconds.
HWND WaitForMaterialDialog() {
    HWND found = nullptr;
    DialogWatcher(
        L"Materiály potrubí", [&found](HWND dialog) { found = dialog; }, nullptr,
        [](HWND dialog) { return GetDlgItem(dialog, IDC_MATERIAL_LIST) != nullptr; })
        .Wait();
    return found;
}

// A control's text; WM_GETTEXT reaches controls of other processes too.
std::wstring ControlText(HWND dialog, int id) {
    wchar_t text[256] = {};
    return GetDlgItemTextW(dialog, id, text, 256) > 0 ? text : L"";
}

// A program started as Explorer starts it, ended when a test leaves it running.
struct StartedProgram {
    explicit StartedProgram(std::wstring path) {
        std::wstring command = L"\"" + path + L"\"";
        STARTUPINFOW startup{};
        startup.cb = sizeof(startup);
        started = CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                                 &process) != FALSE;
    }
    ~StartedProgram() {
        if (!started) return;
        TerminateProcess(process.hProcess, 1);  // refused once it has ended by itself
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }
    // The exit code once the program has ended within ten seconds; STILL_ACTIVE otherwise.
    DWORD ExitCode() const {
        DWORD exitCode = STILL_ACTIVE;
        if (WaitForSingleObject(process.hProcess, 10000) == WAIT_OBJECT_0)
            GetExitCodeProcess(process.hProcess, &exitCode);
        return exitCode;
    }

    PROCESS_INFORMATION process{};
    bool started = false;
};

TEST(Program, FirstRunMakesTheUsersCatalogueAndClosingTheEditorEndsIt) {
    const std::wstring dataFolder = FromEnvironment(L"VELMORA_FIRST_RUN_DATA");
    if (dataFolder.empty()) GTEST_SKIP() << "runs in the prefix that first_run.sh prepares";
    const std::wstring userCatalogue = dataFolder + L"\\Velmora\\Potrubi.qxp";
    ASSERT_EQ(GetFileAttributesW(userCatalogue.c_str()), INVALID_FILE_ATTRIBUTES);

    MessageBoxWatcher firstRun(L"Materiály potrubí", {IDOK}, nullptr, TDM_CLICK_BUTTON);
    StartedProgram program(FromEnvironment(L"VELMORA_PROGRAM"));
    ASSERT_TRUE(program.started);

    const MessageBoxWatcher::Seen seen = firstRun.Wait();
    EXPECT_TRUE(seen.Shows(L"Nelze otevřít soubor:\n" + userCatalogue));
    EXPECT_TRUE(seen.Shows(L"Bude načten standardní soubor"));

    const HWND editor = WaitForMaterialDialog();
    ASSERT_NE(editor, nullptr);
    EXPECT_NE(GetFileAttributesW(userCatalogue.c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(SendDlgItemMessageW(editor, IDC_MATERIAL_LIST, LVM_GETITEMCOUNT, 0, 0), 31);

    PostMessageW(editor, WM_CLOSE, 0, 0);
    EXPECT_EQ(program.ExitCode(), 0u);
}

// The sample host asks for a material for water pipes and a profile. The user moves down the list
// to the next material with profiles and presses "Vyber"; the host shows the material's name and
// the DN index of its first profile, which the selection dialog selects with the material.
TEST(Program, SampleHostPicksAMaterialAndAProfile) {
    const std::wstring host = FromEnvironment(L"VELMORA_SAMPLE_HOST");
    if (host.empty()) GTEST_SKIP() << "runs in the prefix where install.sh installed the program";
    CQvxSezMaterialu catalogue;
    ReadCatalogue(catalogue, FileBytes(FromEnvironment(L"VELMORA_FIRST_RUN_DATA") + L"\\Velmora\\Potrubi.qxp"));

    StartedProgram program(host);
    ASSERT_TRUE(program.started);
    const HWND dialog = WaitForMaterialDialog();
    ASSERT_NE(dialog, nullptr);
    std::wstring picked = ControlText(dialog, IDC_NAME);
    const CQvxMaterial* material = nullptr;
    for (int row = 1; row < 5 && (material == nullptr || material->Profiles().empty()); ++row) {
        const std::wstring previous = picked;
        PostMessageW(GetDlgItem(dialog, IDC_MATERIAL_LIST), WM_KEYDOWN, VK_DOWN, 0);
        for (int attempt = 0; attempt < 100 && picked == previous; ++attempt) {
            Sleep(50);
            picked = ControlText(dialog, IDC_NAME);
        }
        material = catalogue.Find(FromWide(picked));
    }
    ASSERT_TRUE(material != nullptr && !material->Profiles().empty()) << "no material with profiles near the top";

    MessageBoxWatcher result(L"Vybraný materiál");
    PostMessageW(GetDlgItem(dialog, IDOK), BM_CLICK, 0, 0);  // "Vyber"
    EXPECT_EQ(result.Wait().text,
              L"Materiál: " + picked + L"\nIndex DN: " + std::to_wstring(material->Profiles().begin()->first));
    EXPECT_EQ(program.ExitCode(), 0u);
}

}  // namespace
