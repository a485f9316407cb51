// Compares our Windows-1250 conversion with the system's own code page 1250.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "TextCodec.h"

namespace {

TEST(Windows1250, AgreesWithTheSystemCodePage) {
    for (int byte = 0x80; byte < 0x100; ++byte) {
        const char narrow = static_cast<char>(byte);
        wchar_t wide[2] = {};
        ASSERT_EQ(MultiByteToWideChar(1250, 0, &narrow, 1, wide, 2), 1);
        EXPECT_EQ(FromWindows1250(std::string(1, narrow)), std::u16string(1, static_cast<char16_t>(wide[0])))
            << "byte " << byte;
    }
}

}  // namespace
