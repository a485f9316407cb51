#include <gtest/gtest.h>

#include <stdexcept>

#include "CQvxFunkce.h"
#include "support/ScriptedUserMessages.h"
#include "support/ThrownText.h"

namespace {

struct SilentFailure : std::exception {
    const char* what() const noexcept override { return ""; }
};

class FailureReporting : public ::testing::Test {
protected:
    ScriptedUserMessages messages;
    CUserMessagesScope installed{messages};
};

TEST_F(FailureReporting, UserActionShowsAFailureUnderItsCaptionAndKeepsEarlierChanges) {
    int steps = 0;
    EXPECT_TRUE(RunUserAction([&] { ++steps; }));
    EXPECT_FALSE(RunUserAction([&] {
        ++steps;
        throw CQvxException(u"Adresář nelze založit", 251, SourceModule::kRegistry);
    }));
    EXPECT_FALSE(RunUserAction([] { throw std::runtime_error("disk"); }));
    EXPECT_FALSE(RunUserAction([] { throw SilentFailure(); }));  // an empty text shows nothing
    EXPECT_FALSE(RunUserAction([] { throw CFileException(CFileException::Cause::AccessDenied, u"C:\\x.qxp"); },
                               FileFailureText::kWriting));
    EXPECT_EQ(steps, 2);
    ASSERT_EQ(messages.shown.size(), 3u);
    EXPECT_EQ(messages.shown[0].caption, u"Program vyvolal výjimku");
    EXPECT_EQ(messages.shown[0].text, u"Adresář nelze založit, Line 251, \n_Spolecny\\CQvxRegistry");
    EXPECT_EQ(messages.shown[1].text, u"disk");
    EXPECT_EQ(messages.shown[2].caption, u"Neočekávaná výjimka");
    EXPECT_EQ(messages.shown[2].text, u"Chyba při zápisu do souboru");
}

TEST_F(FailureReporting, ArchiveFailuresAndUnnamedFileFailuresPassToTheCaller) {
    const auto truncated = [] { throw CArchiveException(CArchiveException::Cause::EndOfFile); };
    EXPECT_THROW(RunUserAction(truncated), CArchiveException);
    EXPECT_THROW(RunUserAction(truncated, FileFailureText::kReading), CArchiveException);
    EXPECT_THROW(RunUserAction([] { throw CFileException(CFileException::Cause::Generic, u""); }), CFileException);
    EXPECT_TRUE(messages.shown.empty());
}

TEST(CopyToFixedBuffer, CopiesWhatFitsAndRefusesTheRestWithTheCopyError) {
    char16_t buffer[10];
    CopyToFixedBuffer(buffer, 10, u"123456789");
    EXPECT_EQ(std::u16string_view(buffer), u"123456789");

    // A text as long as the buffer leaves no room for its terminator: the copy error with ERANGE.
    EXPECT_EQ(ThrownText([&] { CopyToFixedBuffer(buffer, 10, u"1234567890"); }),
              u"Nepodařilo se zkopírovat C type řetězec - chyba: , Err: 34, Line 647, \n_Spolecny\\CQvxFunkce");
    EXPECT_EQ(buffer[0], u'\0');
}

}  // namespace
