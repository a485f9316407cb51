// The model's Windows services: the real registry of the test's Wine prefix, the real message
// boxes and task dialogs.

#include <windows.h>

#include <gtest/gtest.h>

#include "CQvxFunkce.h"
#include "CQvxRegistry.h"
#include "Win/CWin32RegistryValues.h"
#include "Win/CWin32UserMessages.h"
#include "support/ThrownText.h"
#include "win/DialogWatcher.h"

namespace {

// Without the folder values before and after.
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

// The exception box, the file-error box and the yes/no question whether to save: Czech text and
// caption, icon, no owner. The overwrite question answers with the bit of the button pressed.
TEST(CWin32UserMessages, BoxesShowTheCzechTextUnderTheirCaptionsAndAnswerWithTheButtonPressed) {
    CWin32UserMessages messages;
    CUserMessagesScope installed(messages);
    MessageBoxWatcher exception(L"Program vyvolal výjimku");
    ShowException(CQvxException(u"Příliš dlouhý výrobce", 212, SourceModule::kMaterial));
    const MessageBoxWatcher::Seen seen = exception.Stop();
    EXPECT_EQ(seen.text, L"Příliš dlouhý výrobce, Line 212, \n_Spolecny\\_Velmora\\CQvxMaterial");
    EXPECT_EQ(seen.icon, LoadIconW(nullptr, IDI_INFORMATION));
    EXPECT_EQ(seen.owner, nullptr);

    MessageBoxWatcher fileError(L"Neočekávaná výjimka");
    EXPECT_FALSE(
        RunUserAction([] { throw CFileException(CFileException::Cause::Generic, u"x"); }, FileFailureText::kReading));
    const MessageBoxWatcher::Seen error = fileError.Stop();
    EXPECT_EQ(error.text, L"Chyba při čtení ze souboru");
    EXPECT_EQ(error.icon, LoadIconW(nullptr, IDI_ERROR));

    for (const int answer : {IDYES, IDNO}) {
        MessageBoxWatcher watcher(L"Uložit materiály?", {answer});
        EXPECT_EQ(messages.AskSaveUpdated(), answer == IDYES);
        const MessageBoxWatcher::Seen seen = watcher.Stop();
        EXPECT_EQ(seen.text, L"Hlavní seznam materiálů byl při načítání projektu aktualizován\nULOŽIT?");
        EXPECT_EQ(seen.icon, LoadIconW(nullptr, IDI_QUESTION));
    }

    for (const unsigned bit :
         {TaskDialogButtons::kYes, TaskDialogButtons::kNo, TaskDialogButtons::kYesToAll, TaskDialogButtons::kNoToAll}) {
        MessageBoxWatcher watcher(L"Materiály potrubí", {CWin32UserMessages::TaskDialogButtonId(bit)}, nullptr,
                                  TDM_CLICK_BUTTON);
        EXPECT_EQ(messages.AskOverwrite(u"PE 100 SDR 11"), bit);
        const MessageBoxWatcher::Seen seen = watcher.Stop();
        for (const wchar_t* text : {L"Tento materiál již existuje, přepsat standardním?", L"PE 100 SDR 11", L"Ano",
                                    L"Ne", L"Ano všem", L"Ne všem"}) {
            EXPECT_TRUE(seen.Shows(text)) << text;
        }
        EXPECT_FALSE(seen.Shows(L"Zrušit"));
    }
}

}  // namespace
