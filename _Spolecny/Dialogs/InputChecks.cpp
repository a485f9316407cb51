#include "Dialogs/InputChecks.h"

#include <regex>
#include <string_view>

namespace {

// The pattern is compiled on every call: the checks run once per keystroke, far below any cost
// a user could notice, and a function-local regex would need a lock under threads.
bool MatchesWhole(const wchar_t* text, const wchar_t* pattern) {
    return std::regex_match(text, std::wregex(pattern, std::regex::ECMAScript));
}

}  // namespace

bool IsIntegerPrefix(const wchar_t* text) {
    return MatchesWhole(text, L"[-+]?[0-9]*");
}

bool IsInteger(const wchar_t* text) {
    return MatchesWhole(text, L"[-+]?[0-9]+");
}

bool IsDecimalPrefix(const wchar_t* text) {
    return MatchesWhole(text, L"[-+]?[0-9]*(\\.[0-9]*)?");
}

bool IsDecimal(const wchar_t* text) {
    return MatchesWhole(text, L"^[+-]?([0-9]*[.])?[0-9]+$");
}

wchar_t CommaToPoint(wchar_t character) {
    return character == L',' ? L'.' : character;
}

bool IsAlphanumeric(const wchar_t* text) {
    return *text != L'\0' && MatchesWhole(text, L"(\\w+)");
}

bool IsEmail(const wchar_t* text) {
    return *text != L'\0' && MatchesWhole(text, L"(\\w+)(\\.|_)?(\\w*)@(\\w+)(\\.(\\w+))+");
}

bool IsFileName(const wchar_t* text) {
    const std::wstring_view name(text);
    if (name.empty() || name.front() == L' ' || name.front() == L'\t' || name.front() == L'.') return false;
    return name.find_first_of(L"\\/:?\"<>|*") == std::wstring_view::npos;
}
