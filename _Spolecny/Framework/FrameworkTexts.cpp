#include "Framework/FrameworkTexts.h"

#include <string>

#include "TextCodec.h"

std::u16string TooManyCharactersMessage(int maxChars) {
    const char16_t* noun = u"znaků";
    if (maxChars == 1) {
        noun = u"znak";
    } else if (maxChars >= 2 && maxChars <= 4) {
        noun = u"znaky";
    }
    return u"Zadejte nejvýše " + FromUtf8(std::to_string(maxChars)) + u" " + noun + u".";
}
