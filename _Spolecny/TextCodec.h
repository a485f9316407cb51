#pragma once

#include <string>
#include <string_view>

// Text conversions of our own, so that every platform converts the same way.
//
// Exception texts are Windows-1250 (the narrow code page of Czech Windows); catalogue files may
// hold narrow strings in that code page too. The console, CSV files and tests use UTF-8.

// Characters that Windows-1250 cannot hold become '?', as Windows' own conversion does.
std::string ToWindows1250(std::u16string_view text);
// The five bytes Windows-1250 leaves undefined map to the same-valued C1 controls, as on Windows.
std::u16string FromWindows1250(std::string_view text);

// Malformed input (a lone surrogate, a bad UTF-8 sequence) becomes U+FFFD.
std::string ToUtf8(std::u16string_view text);
std::u16string FromUtf8(std::string_view text);
