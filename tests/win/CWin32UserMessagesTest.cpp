#include "Win/CWin32UserMessages.h"

#include <gtest/gtest.h>

#include "CQvxFunkce.h"
#include "win/MessageBoxWatcher.h"

namespace {

TEST(CWin32UserMessages, ExceptionBoxShowsTheCzechTextUnderItsCaption) {
    CWin32UserMessages messages;
    CUserMessagesScope installed(messages);
    MessageBoxWatcher watcher(L"Program vyvolal výjimku");

    ShowException(CQvxException(u"Příliš dlouhý výrobce", 212, SourceModule::kMaterial));

    const MessageBoxWatcher::Seen& seen = watcher.Stop();
    ASSERT_TRUE(seen.found);
    EXPECT_EQ(seen.text, L"Příliš dlouhý výrobce, Line 212, \n_Spolecny\\_Velmora\\CQvxMaterial");
    EXPECT_EQ(seen.icon, LoadIconW(nullptr, IDI_INFORMATION));
    EXPECT_EQ(seen.owner, nullptr);
}

TEST(CWin32UserMessages, FileErrorBoxHasTheUnexpectedExceptionCaption) {
    CWin32UserMessages messages;
    CUserMessagesScope installed(messages);
    MessageBoxWatcher watcher(L"Neočekávaná výjimka");

    EXPECT_FALSE(RunUserAction([] { throw CFileException(CFileException::Cause::Generic, u"x"); },
                               FileFailureText::kReading));

    const MessageBoxWatcher::Seen& seen = watcher.Stop();
    ASSERT_TRUE(seen.found);
    EXPECT_EQ(seen.text, L"Chyba při čtení ze souboru");
    EXPECT_EQ(seen.icon, LoadIconW(nullptr, IDI_ERROR));
}

TEST(CWin32UserMessages, EmptyExceptionTextShowsNoBox) {
    struct Silent : std::exception {
        const char* what() const noexcept override { return ""; }
    };
    CWin32UserMessages messages;
    CUserMessagesScope installed(messages);
    MessageBoxWatcher watcher(L"Program vyvolal výjimku");
    ShowException(Silent());  // would block here if a box were shown
    Sleep(200);
    EXPECT_FALSE(watcher.Stop().found);
}

}  // namespace
