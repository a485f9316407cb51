#pragma once

#include <string>

#include "CQvxException.h"
#include "TextCodec.h"

// The text of the CQvxException that `action` throws, decoded from Windows-1250.
template <typename Action>
std::u16string ThrownText(Action&& action) {
    try {
        action();
    } catch (const CQvxException& exception) {
        return FromWindows1250(exception.what());
    }
    return u"<nothing thrown>";
}

// The full text of a CQvxException: message, line and source module.
inline std::u16string ExceptionText(std::u16string_view message, int line, std::u16string_view sourceModule) {
    const std::string number = std::to_string(line);
    return std::u16string(message) + u", Line " + std::u16string(number.begin(), number.end()) + u", \n" +
           std::u16string(sourceModule);
}

// The full text of a failure thrown by the material and profile records.
inline std::u16string MaterialError(std::u16string_view message, int line) {
    return ExceptionText(message, line, u"_Spolecny\\_Velmora\\CQvxMaterial");
}
