#include "Win/CWin32UserMessages.h"

#include <gtest/gtest.h>

#include "CQvxFunkce.h"
#include "win/DialogWatcher.h"

namespace {

// The exception box, the file-error box and the yes/no question whether to save: Czech text and
// caption, icon, no owner.
TEST(CWin32UserMessages, BoxesShowTheCzechTextUnderTheirCaptions) {
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
}

TEST(CWin32UserMessages, OverwriteQuestionAnswersWithTheBitOfEachButton) {
    CWin32UserMessages messages;
    for (const unsigned bit :
         {TaskDialogButtons::kYes, TaskDialogButtons::kNo, TaskDialogButtons::kYesToAll, TaskDialogButtons::kNoToAll}) {
        TaskDialogWatcher watcher(L"Materiály potrubí", CWin32UserMessages::TaskDialogButtonId(bit));
        EXPECT_EQ(messages.AskOverwrite(u"PE 100 SDR 11"), bit);
        const TaskDialogWatcher::Seen& seen = watcher.Stop();
        ASSERT_TRUE(seen.found);
        for (const wchar_t* text : {L"Tento materiál již existuje, přepsat standardním?", L"PE 100 SDR 11", L"Ano",
                                    L"Ne", L"Ano všem", L"Ne všem"}) {
            EXPECT_TRUE(seen.Shows(text)) << text;
        }
        EXPECT_FALSE(seen.Shows(L"Zrušit"));
    }
}

}  // namespace
