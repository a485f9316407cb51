#pragma once

// Input checks of the checked edit field: plain predicates over a null-terminated wide text and
// one character filter. They need no window system.

// Decides whether a text is acceptable (while typing, or when finished).
using TextCheck = bool (*)(const wchar_t* text);
// May replace one typed character by another.
using CharacterFilter = wchar_t (*)(wchar_t character);

// Whole numbers: "-", "+" and the empty text pass while typing; a finished number needs a digit.
bool IsIntegerPrefix(const wchar_t* text);
bool IsInteger(const wchar_t* text);

// Decimal numbers with a full stop: "1." and ".5" pass while typing; "1." is not a finished number.
bool IsDecimalPrefix(const wchar_t* text);
bool IsDecimal(const wchar_t* text);

// The decimal separator is always the full stop: a typed comma becomes one.
wchar_t CommaToPoint(wchar_t character);

// Letters, digits and the underscore only; never empty.
bool IsAlphanumeric(const wchar_t* text);

// name[.|_]name@domain.tld with at least one dotted part after the at sign; never empty.
bool IsEmail(const wchar_t* text);

// A Windows file name: not empty, not starting with a blank or a full stop, none of \/:?"<>|*.
bool IsFileName(const wchar_t* text);
