#include "TextCodec.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace {

// Unicode code points of the bytes 0x80..0xFF of Windows-1250.
constexpr std::array<char16_t, 128> kWindows1250High = {
    0x20AC, 0x0081, 0x201A, 0x0083, 0x201E, 0x2026, 0x2020, 0x2021,  // 80
    0x0088, 0x2030, 0x0160, 0x2039, 0x015A, 0x0164, 0x017D, 0x0179,  // 88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90
    0x0098, 0x2122, 0x0161, 0x203A, 0x015B, 0x0165, 0x017E, 0x017A,  // 98
    0x00A0, 0x02C7, 0x02D8, 0x0141, 0x00A4, 0x0104, 0x00A6, 0x00A7,  // A0
    0x00A8, 0x00A9, 0x015E, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x017B,  // A8
    0x00B0, 0x00B1, 0x02DB, 0x0142, 0x00B4, 0x00B5, 0x00B6, 0x00B7,  // B0
    0x00B8, 0x0105, 0x015F, 0x00BB, 0x013D, 0x02DD, 0x013E, 0x017C,  // B8
    0x0154, 0x00C1, 0x00C2, 0x0102, 0x00C4, 0x0139, 0x0106, 0x00C7,  // C0
    0x010C, 0x00C9, 0x0118, 0x00CB, 0x011A, 0x00CD, 0x00CE, 0x010E,  // C8
    0x0110, 0x0143, 0x0147, 0x00D3, 0x00D4, 0x0150, 0x00D6, 0x00D7,  // D0
    0x0158, 0x016E, 0x00DA, 0x0170, 0x00DC, 0x00DD, 0x0162, 0x00DF,  // D8
    0x0155, 0x00E1, 0x00E2, 0x0103, 0x00E4, 0x013A, 0x0107, 0x00E7,  // E0
    0x010D, 0x00E9, 0x0119, 0x00EB, 0x011B, 0x00ED, 0x00EE, 0x010F,  // E8
    0x0111, 0x0144, 0x0148, 0x00F3, 0x00F4, 0x0151, 0x00F6, 0x00F7,  // F0
    0x0159, 0x016F, 0x00FA, 0x0171, 0x00FC, 0x00FD, 0x0163, 0x02D9,  // F8
};

constexpr char16_t kReplacement = u'\uFFFD';

bool IsHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool IsLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

void AppendUtf16(std::u16string& out, char32_t codePoint) {
    if (codePoint < 0x10000) {
        out.push_back(static_cast<char16_t>(codePoint));
    } else {
        codePoint -= 0x10000;
        out.push_back(static_cast<char16_t>(0xD800 + (codePoint >> 10)));
        out.push_back(static_cast<char16_t>(0xDC00 + (codePoint & 0x3FF)));
    }
}

void AppendUtf8(std::string& out, char32_t codePoint) {
    if (codePoint < 0x80) {
        out.push_back(static_cast<char>(codePoint));
    } else if (codePoint < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (codePoint >> 6)));
        out.push_back(static_cast<char>(0x80 | (codePoint & 0x3F)));
    } else if (codePoint < 0x10000) {
        out.push_back(static_cast<char>(0xE0 | (codePoint >> 12)));
        out.push_back(static_cast<char>(0x80 | ((codePoint >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (codePoint & 0x3F)));
    } else {
        out.push_back(static_cast<char>(0xF0 | (codePoint >> 18)));
        out.push_back(static_cast<char>(0x80 | ((codePoint >> 12) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | ((codePoint >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (codePoint & 0x3F)));
    }
}

}  // namespace

std::string ToWindows1250(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    for (char16_t unit : text) {
        if (unit < 0x80) {
            out.push_back(static_cast<char>(unit));
            continue;
        }
        const auto found = std::find(kWindows1250High.begin(), kWindows1250High.end(), unit);
        out.push_back(found == kWindows1250High.end()
                          ? '?'
                          : static_cast<char>(0x80 + (found - kWindows1250High.begin())));
    }
    return out;
}

std::u16string FromWindows1250(std::string_view text) {
    std::u16string out;
    out.reserve(text.size());
    for (char byte : text) {
        const auto value = static_cast<unsigned char>(byte);
        out.push_back(value < 0x80 ? static_cast<char16_t>(value) : kWindows1250High[value - 0x80]);
    }
    return out;
}

std::string ToUtf8(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (IsHighSurrogate(unit) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
            const char32_t codePoint = 0x10000 + ((char32_t(unit) - 0xD800) << 10) + (char32_t(text[i + 1]) - 0xDC00);
            AppendUtf8(out, codePoint);
            ++i;
        } else if (IsHighSurrogate(unit) || IsLowSurrogate(unit)) {
            AppendUtf8(out, kReplacement);
        } else {
            AppendUtf8(out, unit);
        }
    }
    return out;
}

std::u16string FromUtf8(std::string_view text) {
    std::u16string out;
    out.reserve(text.size());
    std::size_t i = 0;
    while (i < text.size()) {
        const auto lead = static_cast<unsigned char>(text[i]);
        int length = 0;
        char32_t codePoint = 0;
        char32_t minimum = 0;
        if (lead < 0x80) {
            length = 1;
            codePoint = lead;
        } else if ((lead & 0xE0) == 0xC0) {
            length = 2;
            codePoint = lead & 0x1F;
            minimum = 0x80;
        } else if ((lead & 0xF0) == 0xE0) {
            length = 3;
            codePoint = lead & 0x0F;
            minimum = 0x800;
        } else if ((lead & 0xF8) == 0xF0) {
            length = 4;
            codePoint = lead & 0x07;
            minimum = 0x10000;
        } else {
            out.push_back(kReplacement);
            ++i;
            continue;
        }
        int taken = 1;
        while (taken < length && i + taken < text.size() &&
               (static_cast<unsigned char>(text[i + taken]) & 0xC0) == 0x80) {
            codePoint = (codePoint << 6) | (static_cast<unsigned char>(text[i + taken]) & 0x3F);
            ++taken;
        }
        const bool complete = taken == length;
        const bool valid = complete && codePoint >= minimum && codePoint <= 0x10FFFF &&
                           !(codePoint >= 0xD800 && codePoint <= 0xDFFF);
        if (valid) {
            AppendUtf16(out, codePoint);
        } else {
            out.push_back(kReplacement);
        }
        i += taken;
    }
    return out;
}
