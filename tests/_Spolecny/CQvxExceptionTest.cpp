#include "CQvxException.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "TextCodec.h"

namespace {

TEST(CQvxException, FormatsMessageLineAndSourceInWindows1250) {
    const CQvxException exception(u"Příliš dlouhý výrobce", 212, SourceModule::kMaterial);
    // ř = F8, í = ED, š = 9A, ý = FD in Windows-1250.
    EXPECT_STREQ(exception.what(), "P\xF8\xEDli\x9A dlouh\xFD v\xFDrobce, Line 212, \n_Spolecny\\_Velmora\\CQvxMaterial");
}

TEST(CQvxException, CopyErrorConstructorNamesTheCodeAndTheFixedSource) {
    const CQvxException exception(34);
    EXPECT_EQ(FromWindows1250(exception.what()),
              u"Nepodařilo se zkopírovat C type řetězec - chyba: , Err: 34, Line 647, \n_Spolecny\\CQvxFunkce");
}

TEST(CQvxException, LongTextIsCutAt511Characters) {
    const std::u16string longMessage(600, u'x');
    const CQvxException exception(longMessage, 1, u"src");
    EXPECT_EQ(std::strlen(exception.what()), 511u);
    EXPECT_EQ(std::string(exception.what()), std::string(511, 'x'));
}

TEST(CQvxException, TextOfExactly511CharactersIsKeptWhole) {
    const std::string tail = ", Line 7, \nsrc";
    const std::u16string message(511 - tail.size(), u'a');
    const CQvxException exact(message, 7, u"src");
    EXPECT_EQ(std::string(exact.what()), std::string(message.size(), 'a') + tail);

    const CQvxException oneOver(message + u"a", 7, u"src");
    EXPECT_EQ(std::string(oneOver.what()), std::string(message.size() + 1, 'a') + ", Line 7, \nsr");
}

TEST(CQvxException, CopyCarriesTheWholeText) {
    const CQvxException original(u"Nelze přidat profil", 315, SourceModule::kMaterial);
    const CQvxException copy = original;
    EXPECT_STREQ(copy.what(), original.what());
    EXPECT_NE(copy.what(), original.what());
}

}  // namespace
