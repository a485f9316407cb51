#include "TextCodec.h"

#include <gtest/gtest.h>

#include <string>

#if __has_include(<iconv.h>)
#include <iconv.h>
#endif

namespace {

#if __has_include(<iconv.h>)
// The C library's converter is an independent table: every byte must decode as it does. The five
// bytes it leaves undefined (0x81, 0x83, 0x88, 0x90, 0x98) stand for the control of the same number.
TEST(Windows1250, EveryByteDecodesAsTheCLibraryDoesAndEncodesBack) {
    const iconv_t converter = iconv_open("UTF-16LE", "CP1250");
    ASSERT_NE(converter, reinterpret_cast<iconv_t>(-1));
    for (int byte = 1; byte < 256; ++byte) {
        char in = static_cast<char>(byte);
        char out[4] = {};
        char* inPointer = &in;
        char* outPointer = out;
        std::size_t inLeft = 1, outLeft = sizeof out;
        const bool defined =
            iconv(converter, &inPointer, &inLeft, &outPointer, &outLeft) != static_cast<std::size_t>(-1);
        const auto expected =
            defined
                ? static_cast<char16_t>(static_cast<unsigned char>(out[0]) | static_cast<unsigned char>(out[1]) << 8)
                : static_cast<char16_t>(byte);
        EXPECT_EQ(FromWindows1250(std::string(1, in)), std::u16string(1, expected)) << byte;
        EXPECT_EQ(ToWindows1250(std::u16string(1, expected)), std::string(1, in)) << byte;
    }
    iconv_close(converter);
    EXPECT_EQ(ToWindows1250(u"a\u4E2Db\u00F1\u0080"), "a?b??");  // CJK, ñ and U+0080 are not in Windows-1250
}
#endif

TEST(Utf8, EncodesEachLengthAtItsBoundariesAndReadsBack) {
    const std::u16string text = u"\u007F\u0080 Materiály \u07FF\u0800\uFFFF \U00010000\U0010FFFF";
    const std::string utf8 = ToUtf8(text);
    EXPECT_EQ(utf8, "\x7F\xC2\x80 Materi\xC3\xA1ly \xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF \xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
    EXPECT_EQ(FromUtf8(utf8), text);
}

TEST(Utf8, MalformedInputBecomesReplacementCharacters) {
    EXPECT_EQ(ToUtf8(std::u16string(1, char16_t(0xD800)) + u"a"),
              "\xEF\xBF\xBD"
              "a");  // lone surrogate
    for (const auto& [bytes, text] :
         {std::pair<std::string_view, std::u16string_view>{"\xC0\x80", u"\uFFFD"},  // overlong
          {"a\xE2\x82", u"a\uFFFD"},                                                // cut sequence
          {"\xED\xA0\x80", u"\uFFFD"},                                              // encoded surrogate
          {"\xED\xBF\xBF", u"\uFFFD"},                                              // the last one
          {"\xFF"
           "b",
           u"\uFFFD"
           "b"},                                 // never a lead byte
          {"\xC3\xA1\x80", u"\u00E1\uFFFD"}}) {  // a stray continuation byte
        EXPECT_EQ(FromUtf8(bytes), text) << bytes;
    }
}

}  // namespace
