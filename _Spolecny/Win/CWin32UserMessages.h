#pragma once

#include "UserMessages.h"

// The program's messages as Windows message boxes and task dialogs.
class CWin32UserMessages final : public CUserMessages {
public:
    void ShowExceptionBox(std::string_view textWindows1250) override;
    void ShowFileErrorBox(std::u16string_view text) override;
    void ShowTaskDialog(std::u16string_view mainInstruction, std::u16string_view content) override;
    unsigned AskOverwrite(std::u16string_view materialName) override;
    bool AskSaveUpdated() override;
    bool AskOverwriteChangedFile() override;

    // The control ID of a task dialog button. IDs 1 and 2 would make the dialog close on Enter or
    // Escape as OK or Cancel, so every button has an ID of its own.
    static int TaskDialogButtonId(unsigned bit) { return kButtonIdBase + static_cast<int>(bit); }

private:
    static constexpr int kButtonIdBase = 1000;
};
