#include "Win/CWin32RegistryValues.h"

#include <windows.h>

#include <gtest/gtest.h>

#include "CQvxRegistry.h"
#include "support/ThrownText.h"

namespace {

// The real registry of the test's Wine prefix, without the folder values before and after.
class WindowsRegistry : public ::testing::Test {
protected:
    WindowsRegistry() { DeleteValues(); }
    ~WindowsRegistry() override { DeleteValues(); }

    static void Write(HKEY hive, const wchar_t* name, const std::wstring& value, DWORD type = REG_SZ) {
        EXPECT_EQ(RegSetKeyValueW(hive, L"Software\\Quorvex\\", name, type, value.c_str(),
                                  static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t))),
                  ERROR_SUCCESS);
    }
    static void DeleteValues() {
        for (HKEY hive : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
            for (const wchar_t* name : {L"InstallPath", L"DataPath", L"CommonInstallPath", L"CommonDataPath"}) {
                RegDeleteKeyValueW(hive, L"Software\\Quorvex", name);
            }
        }
    }

    CWin32RegistryValues values;
    CRegistryValuesScope installed{values};
};

TEST_F(WindowsRegistry, MachineValueBeatsTheUsersUnlessItIsNoPlainPathAndNoneIsAnError) {
    // The machine's value comes first; an expandable or overlong one gives way to the user's.
    Write(HKEY_LOCAL_MACHINE, L"DataPath", L"C:\\ProgramData\\Quorvex");
    Write(HKEY_CURRENT_USER, L"DataPath", L"C:\\users\\x");
    EXPECT_EQ(CQvxRegistry::ReadPath(CQvxRegistry::kDataPath), u"C:\\ProgramData\\Quorvex\\");

    Write(HKEY_LOCAL_MACHINE, L"CommonDataPath", L"%ProgramData%\\Quorvex", REG_EXPAND_SZ);
    Write(HKEY_CURRENT_USER, L"CommonDataPath", L"C:\\data");
    EXPECT_EQ(CQvxRegistry::ReadPath(CQvxRegistry::kCommonDataPath), u"C:\\data\\");

    Write(HKEY_LOCAL_MACHINE, L"CommonInstallPath", L"C:\\" + std::wstring(600, L'x'));
    Write(HKEY_CURRENT_USER, L"CommonInstallPath", L"C:\\install");
    EXPECT_EQ(CQvxRegistry::ReadPath(CQvxRegistry::kCommonInstallPath), u"C:\\install\\");

    // The user's value alone is read; with none the installation is reported broken.
    Write(HKEY_CURRENT_USER, L"InstallPath", L"C:\\install");
    EXPECT_EQ(CQvxRegistry::ReadPath(CQvxRegistry::kInstallPath), u"C:\\install\\");
    DeleteValues();
    EXPECT_EQ(ThrownText([] { CQvxRegistry::ReadPath(CQvxRegistry::kInstallPath); }), MissingRegistryValueError());
}

}  // namespace
