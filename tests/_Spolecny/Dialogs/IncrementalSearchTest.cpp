#include "Dialogs/IncrementalSearch.h"

#include <gtest/gtest.h>

namespace {

TEST(IncrementalSearch, PausesAllowedGrowWithTheTextOfAtMostSixteenAndTheClockMayWrap) {
    IncrementalSearch search;
    EXPECT_EQ(search.Type(u'd', 10000), u"d");
    EXPECT_EQ(search.Type(u'n', 10750), u"dn");  // 750 ms: still one word
    EXPECT_EQ(search.Type(u' ', 11501), u" ");   // 751 ms with two typed: afresh
    search.Type(u'b', 11600);
    search.Type(u'c', 11700);                      // three collected
    EXPECT_EQ(search.Type(u'd', 12700), u" bcd");  // 1000 ms allowed now
    EXPECT_EQ(search.Type(u'e', 13701), u"e");     // 1001 ms: afresh

    for (int i = 0; i < 15; ++i) search.Type(u'a', 13800 + static_cast<std::uint32_t>(i));
    EXPECT_EQ(search.Text().size(), 16u);
    EXPECT_EQ(search.Type(u'b', 13820), u"b");

    search.Type(u'a', 0xFFFFFF00u);
    EXPECT_EQ(search.Type(u'b', 0x00000010u), u"ab");  // 272 ms later, past the wrap
}

TEST(IncrementalSearch, FindsFromTheCurrentItemAndWrapsAround) {
    const std::vector<TreeItem> visible{1, 2, 3, 4};
    const std::vector<std::u16string> texts{u"", u"DN 50", u"DN 65", u"PN 10", u"DN 80"};
    auto beginsWith = [&](TreeItem item, const std::u16string& prefix) { return texts[item].rfind(prefix, 0) == 0; };

    EXPECT_EQ(FindItemStartingWith(visible, 1, u"D", beginsWith), 2u);     // one letter: the next one
    EXPECT_EQ(FindItemStartingWith(visible, 4, u"D", beginsWith), 1u);     // round to the start
    EXPECT_EQ(FindItemStartingWith(visible, 1, u"DN 5", beginsWith), 1u);  // longer: the current one fits
    EXPECT_EQ(FindItemStartingWith(visible, 0, u"D", beginsWith), 1u);     // none current: from the top
    EXPECT_EQ(FindItemStartingWith(visible, 1, u"X", beginsWith), 0u);
}

}  // namespace
