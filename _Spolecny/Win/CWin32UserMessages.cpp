#include "Win/CWin32UserMessages.h"

#include <windows.h>
#include <commctrl.h>

#include <string>
#include <vector>

#include "TextCodec.h"

static_assert(sizeof(wchar_t) == sizeof(char16_t), "model text is UTF-16, as wchar_t is on Windows");

namespace {

const wchar_t* Wide(const std::u16string& text) { return reinterpret_cast<const wchar_t*>(text.c_str()); }

}  // namespace

void CWin32UserMessages::ShowExceptionBox(std::string_view textWindows1250) {
    const std::string text(textWindows1250);
    if (GetACP() == 1250) {
        // Exception texts are Windows-1250: on a Czech system the narrow box shows them as they are.
        MessageBoxA(nullptr, text.c_str(), ToWindows1250(Captions::kException).c_str(), MB_OK | MB_ICONINFORMATION);
        return;
    }
    // Any other ANSI code page would garble the diacritics; show the same box in UTF-16.
    const std::u16string wideText = FromWindows1250(text);
    const std::u16string caption(Captions::kException);
    MessageBoxW(nullptr, Wide(wideText), Wide(caption), MB_OK | MB_ICONINFORMATION);
}

void CWin32UserMessages::ShowFileErrorBox(std::u16string_view text) {
    const std::u16string wideText(text);
    const std::u16string caption(Captions::kUnexpectedException);
    MessageBoxW(GetActiveWindow(), Wide(wideText), Wide(caption), MB_OK | MB_ICONERROR);
}

void CWin32UserMessages::ShowTaskDialog(std::u16string_view mainInstruction, std::u16string_view content) {
    const std::u16string title(Captions::kProgram);
    const std::u16string instruction(mainInstruction);
    const std::u16string body(content);
    TaskDialog(GetActiveWindow(), nullptr, Wide(title), Wide(instruction), Wide(body), TDCBF_OK_BUTTON, TD_ERROR_ICON,
               nullptr);
}

namespace {

// A task dialog titled "Materiály potrubí" with the warning icon and the buttons of `buttonBits`
// captioned from the button table; only the buttons close it. Returns the bit of the button
// pressed, or 0 when the dialog could not be shown.
unsigned AskWithButtons(std::u16string_view mainInstruction, std::u16string_view content, unsigned buttonBits,
                        unsigned defaultBit) {
    const std::u16string title(Captions::kProgram);
    const std::u16string instruction(mainInstruction);
    const std::u16string body(content);
    const std::vector<TaskDialogButtons::Button> choices = TaskDialogButtons::ButtonsOf(buttonBits);
    std::vector<std::u16string> captions;
    captions.reserve(choices.size());  // the buttons point into these strings
    std::vector<TASKDIALOG_BUTTON> buttons;
    for (const TaskDialogButtons::Button& choice : choices) {
        captions.emplace_back(choice.caption);
        buttons.push_back({CWin32UserMessages::TaskDialogButtonId(choice.bit), Wide(captions.back())});
    }

    TASKDIALOGCONFIG config{};
    config.cbSize = sizeof(config);
    config.hwndParent = GetActiveWindow();
    config.dwFlags = 0;  // without TDF_ALLOW_DIALOG_CANCELLATION only the buttons close it
    config.pszWindowTitle = Wide(title);
    config.pszMainIcon = TD_WARNING_ICON;
    config.pszMainInstruction = Wide(instruction);
    config.pszContent = body.empty() ? nullptr : Wide(body);
    config.cButtons = static_cast<UINT>(buttons.size());
    config.pButtons = buttons.data();
    config.nDefaultButton = CWin32UserMessages::TaskDialogButtonId(defaultBit);

    int pressed = 0;
    if (FAILED(TaskDialogIndirect(&config, &pressed, nullptr, nullptr))) return 0;  // not shown
    for (const TaskDialogButtons::Button& choice : choices) {
        if (pressed == CWin32UserMessages::TaskDialogButtonId(choice.bit)) return choice.bit;
    }
    return 0;
}

}  // namespace

unsigned CWin32UserMessages::AskOverwrite(std::u16string_view materialName) {
    return AskWithButtons(Questions::kOverwrite, materialName, Questions::kOverwriteButtons, TaskDialogButtons::kYes);
}

bool CWin32UserMessages::AskOverwriteChangedFile() {
    // "Ne" is the default: the other program's work is not to be lost by a hasty Enter.
    return AskWithButtons(Questions::kOverwriteChangedFile, u"", TaskDialogButtons::kYes | TaskDialogButtons::kNo,
                          TaskDialogButtons::kNo) == TaskDialogButtons::kYes;
}

bool CWin32UserMessages::AskSaveUpdated() {
    const std::u16string text(Questions::kSaveUpdated);
    const std::u16string caption(Captions::kSaveUpdated);
    return MessageBoxW(GetActiveWindow(), Wide(text), Wide(caption), MB_YESNO | MB_ICONQUESTION) == IDYES;
}
