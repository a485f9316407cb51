#include "Framework/FrameworkTexts.h"

#include <gtest/gtest.h>

namespace {

TEST(FrameworkTexts, TooManyCharactersUsesTheCzechPlural) {
    EXPECT_EQ(TooManyCharactersMessage(1), u"Zadejte nejvýše 1 znak.");
    EXPECT_EQ(TooManyCharactersMessage(2), u"Zadejte nejvýše 2 znaky.");
    EXPECT_EQ(TooManyCharactersMessage(4), u"Zadejte nejvýše 4 znaky.");
    EXPECT_EQ(TooManyCharactersMessage(5), u"Zadejte nejvýše 5 znaků.");
    EXPECT_EQ(TooManyCharactersMessage(0), u"Zadejte nejvýše 0 znaků.");
    EXPECT_EQ(TooManyCharactersMessage(22), u"Zadejte nejvýše 22 znaků.");
}

}  // namespace
