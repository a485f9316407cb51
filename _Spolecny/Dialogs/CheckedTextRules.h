#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "Dialogs/InputChecks.h"

// What a checked edit field accepts, apart from any window: the two checks, the character filter,
// the length limit and what an empty text counts as. The field's owner sets these between uses.
struct CheckedTextRules {
    TextCheck wholeTextCheck = nullptr;  // judges a finished text; none: every text is valid
    TextCheck keystrokeCheck = nullptr;  // judges a text still being typed; none: any character
    CharacterFilter filter = nullptr;    // applied to every printable typed character first
    std::int32_t maxLength = -1;         // characters; -1: no limit
    bool emptyAllowed = false;           // an empty or all-blank text is valid

    bool HasLengthLimit() const { return maxLength >= 0; }
};

// A printable character typed into `text` whose selection runs from `selectionStart` to
// `selectionEnd`: the character to insert (after the filter), or nothing when it is refused.
// A full field refuses even when the character would replace a selection.
std::optional<char16_t> AcceptTypedCharacter(const CheckedTextRules& rules, std::u16string_view text,
                                             std::size_t selectionStart, std::size_t selectionEnd, char16_t typed);

// The text with the selection replaced by `inserted`; out-of-range positions are clamped.
std::u16string ReplaceSelection(std::u16string_view text, std::size_t selectionStart, std::size_t selectionEnd,
                                char16_t inserted);

// Whether a finished text is valid. The text is judged without its trailing blanks; an empty one
// is valid only when empty is allowed, and a text over the limit never is.
bool IsFinishedTextValid(const CheckedTextRules& rules, std::u16string_view text);

// The text without trailing blanks (space, tab, line breaks, vertical tab, form feed).
std::u16string RightTrimmed(std::u16string_view text);

// Runs a check on UTF-16 text, unit for unit, so that every platform judges the same units.
bool PassesCheck(TextCheck check, std::u16string_view text);
