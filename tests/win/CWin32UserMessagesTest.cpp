#include "Win/CWin32UserMessages.h"

#include <gtest/gtest.h>

#include "CQvxFunkce.h"
#include "win/MessageBoxWatcher.h"
#include "win/TaskDialogWatcher.h"

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

TEST(CWin32UserMessages, OverwriteQuestionAnswersWithTheBitOfEachButton) {
    CWin32UserMessages messages;
    for (const unsigned bit : {TaskDialogButtons::kYes, TaskDialogButtons::kNo, TaskDialogButtons::kYesToAll,
                               TaskDialogButtons::kNoToAll}) {
        TaskDialogWatcher watcher(L"Materiály potrubí", CWin32UserMessages::TaskDialogButtonId(bit));
        EXPECT_EQ(messages.AskOverwrite(u"PE 100 SDR 11"), bit);
        const TaskDialogWatcher::Seen& seen = watcher.Stop();
        ASSERT_TRUE(seen.found);
        EXPECT_TRUE(seen.Shows(L"Tento materiál již existuje, přepsat standardním?"));
        EXPECT_TRUE(seen.Shows(L"PE 100 SDR 11"));
        for (const wchar_t* caption : {L"Ano", L"Ne", L"Ano všem", L"Ne všem"}) EXPECT_TRUE(seen.Shows(caption));
        EXPECT_FALSE(seen.Shows(L"Zrušit"));
    }
}

TEST(CWin32UserMessages, SaveQuestionIsAYesNoBox) {
    CWin32UserMessages messages;
    MessageBoxWatcher yes(L"Uložit materiály?", {IDYES});
    EXPECT_TRUE(messages.AskSaveUpdated());
    const MessageBoxWatcher::Seen& seen = yes.Stop();
    ASSERT_TRUE(seen.found);
    EXPECT_EQ(seen.text, L"Hlavní seznam materiálů byl při načítání projektu aktualizován\nULOŽIT?");
    EXPECT_EQ(seen.icon, LoadIconW(nullptr, IDI_QUESTION));

    MessageBoxWatcher no(L"Uložit materiály?", {IDNO});
    EXPECT_FALSE(messages.AskSaveUpdated());
    EXPECT_TRUE(no.Stop().found);
}

}  // namespace
