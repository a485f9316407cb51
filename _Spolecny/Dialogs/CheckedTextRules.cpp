#include "Dialogs/CheckedTextRules.h"

#include <algorithm>

std::u16string ReplaceSelection(std::u16string_view text, std::size_t selectionStart, std::size_t selectionEnd,
                                char16_t inserted) {
    const std::size_t start = std::min(std::min(selectionStart, selectionEnd), text.size());
    const std::size_t end = std::min(std::max(selectionStart, selectionEnd), text.size());
    std::u16string candidate(text.substr(0, start));
    candidate += inserted;
    candidate += text.substr(end);
    return candidate;
}

std::optional<char16_t> AcceptTypedCharacter(const CheckedTextRules& rules, std::u16string_view text,
                                             std::size_t selectionStart, std::size_t selectionEnd, char16_t typed) {
    const char16_t character = rules.filter ? static_cast<char16_t>(rules.filter(typed)) : typed;
    if (rules.keystrokeCheck == nullptr && !rules.HasLengthLimit()) return character;
    if (rules.HasLengthLimit() && text.size() == static_cast<std::size_t>(rules.maxLength)) return std::nullopt;
    if (rules.keystrokeCheck == nullptr) return character;
    if (!PassesCheck(rules.keystrokeCheck, ReplaceSelection(text, selectionStart, selectionEnd, character))) {
        return std::nullopt;
    }
    return character;
}

bool IsFinishedTextValid(const CheckedTextRules& rules, std::u16string_view text) {
    if (rules.wholeTextCheck == nullptr) return true;
    const std::u16string trimmed = RightTrimmed(text);
    if (trimmed.empty()) return rules.emptyAllowed;
    if (rules.HasLengthLimit() && trimmed.size() > static_cast<std::size_t>(rules.maxLength)) return false;
    return PassesCheck(rules.wholeTextCheck, trimmed);
}

std::u16string RightTrimmed(std::u16string_view text) {
    const std::size_t end = text.find_last_not_of(u" \t\r\n\v\f");
    return std::u16string(end == std::u16string_view::npos ? std::u16string_view() : text.substr(0, end + 1));
}

bool PassesCheck(TextCheck check, std::u16string_view text) {
    const std::wstring wide(text.begin(), text.end());
    return check(wide.c_str());
}
