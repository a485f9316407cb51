#pragma once

#include "UserMessages.h"

// The program's messages as Windows message boxes.
class CWin32UserMessages final : public CUserMessages {
public:
    void ShowExceptionBox(std::string_view textWindows1250) override;
    void ShowFileErrorBox(std::u16string_view text) override;
};
