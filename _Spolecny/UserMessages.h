#pragma once

#include <string_view>

#include "SeamScope.h"
#include "TaskDialogButtons.h"

// The messages the model and the store show to the user. The program installs the window-system
// implementation; tests install a scripted fake; without either, messages go to the error stream.
class CUserMessages {
public:
    virtual ~CUserMessages() = default;

    // Message box without owner, caption "Program vyvolal výjimku", information icon, OK.
    // The text is Windows-1250, as exception texts are.
    virtual void ShowExceptionBox(std::string_view textWindows1250) = 0;

    // Message box over the active window, caption "Neočekávaná výjimka", error icon, OK.
    virtual void ShowFileErrorBox(std::u16string_view text) = 0;

    // Task dialog over the active window, title "Materiály potrubí", error icon, one OK button.
    virtual void ShowTaskDialog(std::u16string_view mainInstruction, std::u16string_view content) = 0;

    // The question whether a material already in the list is to be overwritten from a file: title
    // "Materiály potrubí", warning icon, Questions::kOverwrite, the material's name as content, the
    // buttons Questions::kOverwriteButtons (the first is the default; there is no cancel). Returns
    // the bit of the button pressed, or 0 when the question could not be shown.
    virtual unsigned AskOverwrite(std::u16string_view materialName) = 0;

    // Message box Questions::kSaveUpdated under the caption "Uložit materiály?", Yes and No,
    // question icon. True for Yes.
    virtual bool AskSaveUpdated() = 0;

    // The question whether to replace the user's catalogue that another program has written since
    // it was read: title "Materiály potrubí", warning icon, Questions::kOverwriteChangedFile, the
    // buttons "Ano" and "Ne" (the default). True for "Ano".
    virtual bool AskOverwriteChangedFile() = 0;
};

// Captions of the boxes above, shared by every implementation.
namespace Captions {
inline constexpr std::u16string_view kException = u"Program vyvolal výjimku";
inline constexpr std::u16string_view kUnexpectedException = u"Neočekávaná výjimka";
inline constexpr std::u16string_view kProgram = u"Materiály potrubí";
inline constexpr std::u16string_view kSaveUpdated = u"Uložit materiály?";
}  // namespace Captions

namespace Questions {
inline constexpr std::u16string_view kOverwrite = u"Tento materiál již existuje, přepsat standardním?";
inline constexpr unsigned kOverwriteButtons = TaskDialogButtons::kYes | TaskDialogButtons::kNo |
                                              TaskDialogButtons::kYesToAll | TaskDialogButtons::kNoToAll;
inline constexpr std::u16string_view kSaveUpdated =
    u"Hlavní seznam materiálů byl při načítání projektu aktualizován\nULOŽIT?";
inline constexpr std::u16string_view kOverwriteChangedFile =
    u"Soubor katalogu byl mezitím změněn jiným programem. Přepsat jej provedenými změnami?";
}  // namespace Questions

// The implementation in use.
CUserMessages& UserMessages();

// Installs `messages` (nullptr: the default) and returns the one it replaces.
CUserMessages* SetUserMessages(CUserMessages* messages);

using CUserMessagesScope = CSeamScope<CUserMessages, SetUserMessages>;
