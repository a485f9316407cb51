#include "Win/CWin32RegistryValues.h"

#include <windows.h>

#include <gtest/gtest.h>

#include "CQvxRegistry.h"
#include "support/ThrownText.h"

namespace {

// The real registry of the test's Wine prefix. Every test starts and ends without the folder values.
class WindowsRegistry : public ::testing::Test {
protected:
    WindowsRegistry() { DeleteValues(); }
    ~WindowsRegistry() override { DeleteValues(); }

    static void Write(HKEY hive, const wchar_t* name, DWORD type, const std::wstring& value) {
        HKEY key = nullptr;
        ASSERT_EQ(RegCreateKeyExW(hive, L"Software\\Quorvex\\", 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr),
                  ERROR_SUCCESS);
        const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
        EXPECT_EQ(RegSetValueExW(key, name, 0, type, reinterpret_cast<const BYTE*>(value.c_str()), bytes),
                  ERROR_SUCCESS);
        RegCloseKey(key);
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

TEST_F(WindowsRegistry, MachineValueBeatsTheUsers) {
    Write(HKEY_LOCAL_MACHINE, L"CommonDataPath", REG_SZ, L"C:\\ProgramData\\Quorvex");
    Write(HKEY_CURRENT_USER, L"CommonDataPath", REG_SZ, L"C:\\users\\x");
    EXPECT_EQ(CQvxRegistry::ReadPath(CQvxRegistry::kCommonDataPath), u"C:\\ProgramData\\Quorvex\\");
}

TEST_F(WindowsRegistry, ExpandableOrOverlongMachineValueFallsBackToTheUsers) {
    Write(HKEY_LOCAL_MACHINE, L"CommonDataPath", REG_EXPAND_SZ, L"%ProgramData%\\Quorvex");
    Write(HKEY_CURRENT_USER, L"CommonDataPath", REG_SZ, L"C:\\data");
    EXPECT_EQ(CQvxRegistry::ReadPath(CQvxRegistry::kCommonDataPath), u"C:\\data\\");

    Write(HKEY_LOCAL_MACHINE, L"CommonInstallPath", REG_SZ, L"C:\\" + std::wstring(600, L'x'));
    Write(HKEY_CURRENT_USER, L"CommonInstallPath", REG_SZ, L"C:\\install");
    EXPECT_EQ(CQvxRegistry::ReadPath(CQvxRegistry::kCommonInstallPath), u"C:\\install\\");
}

TEST_F(WindowsRegistry, MissingValueGivesTheInstallationMessage) {
    Write(HKEY_CURRENT_USER, L"DataPath", REG_SZ, L"C:\\data");
    EXPECT_EQ(CQvxRegistry::ReadPath(CQvxRegistry::kDataPath), u"C:\\data\\");
    EXPECT_EQ(ThrownText([] { CQvxRegistry::ReadPath(CQvxRegistry::kInstallPath); }), MissingRegistryValueError());
}

}  // namespace
