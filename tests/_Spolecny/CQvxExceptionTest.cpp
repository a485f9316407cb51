#include "CQvxException.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(CQvxException, FormatsMessageLineAndSourceInWindows1250) {
    const CQvxException exception(u"Příliš dlouhý výrobce", 212, SourceModule::kMaterial);
    // ř = F8, í = ED, š = 9A, ý = FD in Windows-1250.
    EXPECT_STREQ(exception.what(),
                 "P\xF8\xEDli\x9A dlouh\xFD v\xFDrobce, Line 212, \n_Spolecny\\_Velmora\\CQvxMaterial");
}

TEST(CQvxException, TextIsCutAt511Characters) {
    const std::string tail = ", Line 7, \nsrc";
    for (const std::size_t length : {511 - tail.size(), 512 - tail.size(), std::size_t{600}}) {
        SCOPED_TRACE(length);
        const CQvxException exception(std::u16string(length, u'a'), 7, u"src");
        EXPECT_EQ(std::string(exception.what()), (std::string(length, 'a') + tail).substr(0, 511));
    }
}

TEST(CQvxException, CopyCarriesTheWholeText) {
    const CQvxException original(u"Nelze přidat profil", 315, SourceModule::kMaterial);
    const CQvxException copy = original;
    EXPECT_STREQ(copy.what(), original.what());
    EXPECT_NE(copy.what(), original.what());
}

}  // namespace
