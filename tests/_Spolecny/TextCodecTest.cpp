#include "TextCodec.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(Windows1250, CzechLettersHaveTheirBytesEveryByteRoundTripsAndTheRestIsAQuestionMark) {
    EXPECT_EQ(ToWindows1250(u"áčďéěíňóřšťúůýžÁČĎÉĚÍŇÓŘŠŤÚŮÝŽ"),
              "\xE1\xE8\xEF\xE9\xEC\xED\xF2\xF3\xF8\x9A\x9D\xFA\xF9\xFD\x9E"
              "\xC1\xC8\xCF\xC9\xCC\xCD\xD2\xD3\xD8\x8A\x8D\xDA\xD9\xDD\x8E");
    std::string all;
    for (int byte = 1; byte < 256; ++byte) all.push_back(static_cast<char>(byte));
    const std::u16string wide = FromWindows1250(all);
    ASSERT_EQ(wide.size(), all.size());
    EXPECT_EQ(ToWindows1250(wide), all);
    EXPECT_EQ(wide[0x80 - 1], u'€');
    EXPECT_EQ(wide[0xFF - 1], u'˙');
    EXPECT_EQ(ToWindows1250(u"a\u4E2Db\u00F1"), "a?b?");  // CJK and ñ are not in Windows-1250
}

TEST(Utf8, EncodesEachLengthAtItsBoundariesAndReadsBack) {
    const std::u16string text = u"\u007F\u0080 Materiály \u07FF\u0800\uFFFF \U0001F600";
    const std::string utf8 = ToUtf8(text);
    EXPECT_EQ(utf8, "\x7F\xC2\x80 Materi\xC3\xA1ly \xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF \xF0\x9F\x98\x80");
    EXPECT_EQ(FromUtf8(utf8), text);
}

TEST(Utf8, MalformedInputBecomesReplacementCharacters) {
    EXPECT_EQ(ToUtf8(std::u16string(1, char16_t(0xD800)) + u"a"), "\xEF\xBF\xBD" "a");  // lone surrogate
    for (const auto& [bytes, text] : {std::pair<std::string_view, std::u16string_view>{"\xC0\x80", u"\uFFFD"},  // overlong
                                      {"a\xE2\x82", u"a\uFFFD"},            // cut sequence
                                      {"\xED\xA0\x80", u"\uFFFD"},          // encoded surrogate
                                      {"\xFF" "b", u"\uFFFD" "b"},            // never a lead byte
                                      {"\xC3\xA1\x80", u"\u00E1\uFFFD"}}) {  // a stray continuation byte
        EXPECT_EQ(FromUtf8(bytes), text) << bytes;
    }
}

}  // namespace
