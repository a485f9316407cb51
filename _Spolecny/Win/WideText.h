#pragma once

#include <string>
#include <string_view>

// The Win32 boundary: model text is UTF-16 in char16_t, Windows takes the same units as wchar_t.
static_assert(sizeof(wchar_t) == sizeof(char16_t), "wchar_t is UTF-16 on Windows");

inline const wchar_t* Wide(const std::u16string& text) {
    return reinterpret_cast<const wchar_t*>(text.c_str());
}
inline const wchar_t* Wide(const char16_t* text) {
    return reinterpret_cast<const wchar_t*>(text);
}

inline std::u16string FromWide(std::wstring_view text) {
    return std::u16string(text.begin(), text.end());
}
