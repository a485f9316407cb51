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

// A file of a newer version, refused at the level whose reader is in `sourceModule`.
inline std::u16string NewerVersionError(int line, std::u16string_view sourceModule) {
    return ExceptionText(u"Nelze načíst, soubor byl uložen vyšší verzí programu, aktualizujte program", line,
                         sourceModule);
}

// The failure of a folder value found in neither registry hive.
inline std::u16string MissingRegistryValueError() {
    return ExceptionText(
        u"Nelze načíst Install/Data Path z registru Windows (z HKLM ani z HKCU), chyba instalace programu", 149,
        u"_Spolecny\\CQvxRegistry");
}
