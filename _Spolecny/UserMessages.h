#pragma once

#include <string_view>

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
};

// Captions of the boxes above, shared by every implementation.
namespace Captions {
inline constexpr std::u16string_view kException = u"Program vyvolal výjimku";
inline constexpr std::u16string_view kUnexpectedException = u"Neočekávaná výjimka";
}  // namespace Captions

// The implementation in use.
CUserMessages& UserMessages();

// Installs `messages` (nullptr: the default) and returns the one it replaces.
CUserMessages* SetUserMessages(CUserMessages* messages);

// Installs an implementation for the lifetime of a scope (a test, the program's run).
class CUserMessagesScope {
public:
    explicit CUserMessagesScope(CUserMessages& messages) : previous_(SetUserMessages(&messages)) {}
    ~CUserMessagesScope() { SetUserMessages(previous_); }
    CUserMessagesScope(const CUserMessagesScope&) = delete;
    CUserMessagesScope& operator=(const CUserMessagesScope&) = delete;

private:
    CUserMessages* previous_;
};
