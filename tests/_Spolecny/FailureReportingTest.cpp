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

TEST_F(FailureReporting, ShowExceptionShowsTheTextUnderTheExceptionCaption) {
    ShowException(CQvxException(u"Adresář nelze založit", 251, SourceModule::kRegistry));
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].caption, u"Program vyvolal výjimku");
    EXPECT_EQ(messages.shown[0].text, u"Adresář nelze založit, Line 251, \n_Spolecny\\CQvxRegistry");
}

TEST_F(FailureReporting, EmptyTextShowsNothing) {
    ShowException(SilentFailure());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FailureReporting, UserActionReportsAnyStandardExceptionAndKeepsEarlierChanges) {
    int steps = 0;
    EXPECT_TRUE(RunUserAction([&] { ++steps; }));
    EXPECT_FALSE(RunUserAction([&] {
        ++steps;
        throw std::runtime_error("disk");
    }));
    EXPECT_EQ(steps, 2);
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].text, u"disk");
}

TEST_F(FailureReporting, FileFailureGetsItsFixedText) {
    EXPECT_FALSE(RunUserAction([] { throw CFileException(CFileException::Cause::AccessDenied, u"C:\\x.qxp"); },
                               FileFailureText::kWriting));
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].caption, u"Neočekávaná výjimka");
    EXPECT_EQ(messages.shown[0].text, u"Chyba při zápisu do souboru");
}

TEST_F(FailureReporting, ArchiveFailuresPassToTheCaller) {
    const auto truncated = [] { throw CArchiveException(CArchiveException::Cause::EndOfFile); };
    EXPECT_THROW(RunUserAction(truncated), CArchiveException);
    EXPECT_THROW(RunUserAction(truncated, FileFailureText::kReading), CArchiveException);
    // A site without a file-failure text does not swallow file failures either.
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
