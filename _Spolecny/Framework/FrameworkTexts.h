#pragma once

#include <string>

// The dialog framework's own message for a text longer than its field takes, with the Czech
// plural of "znak": "Zadejte nejvýše 1 znak.", "... 4 znaky.", "... 20 znaků."
std::u16string TooManyCharactersMessage(int maxChars);
