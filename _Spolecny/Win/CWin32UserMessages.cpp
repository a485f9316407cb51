#include "Win/CWin32UserMessages.h"

#include <windows.h>

#include <string>

#include "TextCodec.h"

static_assert(sizeof(wchar_t) == sizeof(char16_t), "model text is UTF-16, as wchar_t is on Windows");

namespace {

const wchar_t* Wide(const std::u16string& text) { return reinterpret_cast<const wchar_t*>(text.c_str()); }

}  // namespace

void CWin32UserMessages::ShowExceptionBox(std::string_view textWindows1250) {
    const std::string text(textWindows1250);
    if (GetACP() == 1250) {
        // Exception texts are Windows-1250: on a Czech system the narrow box shows them as they are.
        MessageBoxA(nullptr, text.c_str(), ToWindows1250(Captions::kException).c_str(), MB_OK | MB_ICONINFORMATION);
        return;
    }
    // Any other ANSI code page would garble the diacritics; show the same box in UTF-16.
    const std::u16string wideText = FromWindows1250(text);
    const std::u16string caption(Captions::kException);
    MessageBoxW(nullptr, Wide(wideText), Wide(caption), MB_OK | MB_ICONINFORMATION);
}

void CWin32UserMessages::ShowFileErrorBox(std::u16string_view text) {
    const std::u16string wideText(text);
    const std::u16string caption(Captions::kUnexpectedException);
    MessageBoxW(GetActiveWindow(), Wide(wideText), Wide(caption), MB_OK | MB_ICONERROR);
}
