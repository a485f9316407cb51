// Velmora.exe itself, started as a user starts it. Runs in a Wine prefix of its own that
// first_run.sh makes: the four folder values and only the standard catalogue.

#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "_Velmora/MaterialDialogResources.h"
#include "win/TaskDialogWatcher.h"

namespace {

std::wstring ThisFolder() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    std::wstring folder(path);
    return folder.substr(0, folder.find_last_of(L'\\') + 1);
}

std::wstring FromEnvironment(const wchar_t* name) {
    const wchar_t* value = _wgetenv(name);
    return value != nullptr ? value : L"";
}

// The editor's window: the dialog titled "Materiály potrubí" that holds the material list.
HWND WaitForEditor(DWORD milliseconds) {
    for (DWORD waited = 0; waited < milliseconds; waited += 50) {
        for (HWND window = FindWindowExW(nullptr, nullptr, L"#32770", L"Materiály potrubí"); window != nullptr;
             window = FindWindowExW(nullptr, window, L"#32770", L"Materiály potrubí")) {
            if (GetDlgItem(window, IDC_MATERIAL_LIST) != nullptr && IsWindowVisible(window)) return window;
        }
        Sleep(50);
    }
    return nullptr;
}

TEST(Program, FirstRunMakesTheUsersCatalogueAndClosingTheEditorEndsIt) {
    const std::wstring dataFolder = FromEnvironment(L"VELMORA_FIRST_RUN_DATA");
    if (dataFolder.empty()) GTEST_SKIP() << "runs in the prefix that first_run.sh prepares";
    const std::wstring userCatalogue = dataFolder + L"\\Velmora\\Potrubi.qxp";
    ASSERT_EQ(GetFileAttributesW(userCatalogue.c_str()), INVALID_FILE_ATTRIBUTES);

    std::wstring command = L"\"" + ThisFolder() + L"..\\Velmora\\Velmora.exe\"";
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION program{};
    TaskDialogWatcher firstRun(L"Materiály potrubí", IDOK);
    ASSERT_TRUE(CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                               &program));

    const TaskDialogWatcher::Seen& seen = firstRun.Wait();
    EXPECT_TRUE(seen.found);
    EXPECT_TRUE(seen.Shows(L"Nelze otevřít soubor:\n" + userCatalogue));
    EXPECT_TRUE(seen.Shows(L"Bude načten standardní soubor"));

    const HWND editor = WaitForEditor(10000);
    ASSERT_NE(editor, nullptr);
    EXPECT_NE(GetFileAttributesW(userCatalogue.c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(SendDlgItemMessageW(editor, IDC_MATERIAL_LIST, LVM_GETITEMCOUNT, 0, 0), 31);

    PostMessageW(editor, WM_CLOSE, 0, 0);
    EXPECT_EQ(WaitForSingleObject(program.hProcess, 10000), WAIT_OBJECT_0);
    DWORD exitCode = 1;
    GetExitCodeProcess(program.hProcess, &exitCode);
    EXPECT_EQ(exitCode, 0u);
    if (WaitForSingleObject(program.hProcess, 0) != WAIT_OBJECT_0) TerminateProcess(program.hProcess, 1);
    CloseHandle(program.hThread);
    CloseHandle(program.hProcess);
}

}  // namespace
