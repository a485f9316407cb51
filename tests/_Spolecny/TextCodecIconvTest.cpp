// Compares our Windows-1250 table with the C library's converter (Linux only).
#include <gtest/gtest.h>
#include <iconv.h>

#include <string>

#include "TextCodec.h"

namespace {

std::u16string IconvFromWindows1250(char byte) {
    iconv_t converter = iconv_open("UTF-16LE", "CP1250");
    if (converter == reinterpret_cast<iconv_t>(-1)) return {};
    char input[1] = {byte};
    char16_t output[4] = {};
    char* in = input;
    char* out = reinterpret_cast<char*>(output);
    std::size_t inLeft = 1;
    std::size_t outLeft = sizeof(output);
    const std::size_t result = iconv(converter, &in, &inLeft, &out, &outLeft);
    iconv_close(converter);
    if (result == static_cast<std::size_t>(-1)) return {};
    return std::u16string(output, (sizeof(output) - outLeft) / sizeof(char16_t));
}

TEST(Windows1250, AgreesWithTheSystemConverter) {
    int compared = 0;
    for (int byte = 0x80; byte < 0x100; ++byte) {
        const std::u16string expected = IconvFromWindows1250(static_cast<char>(byte));
        if (expected.empty()) continue;  // the five bytes the code page leaves undefined
        EXPECT_EQ(FromWindows1250(std::string(1, static_cast<char>(byte))), expected) << "byte " << byte;
        ++compared;
    }
    EXPECT_EQ(compared, 123);
}

}  // namespace
