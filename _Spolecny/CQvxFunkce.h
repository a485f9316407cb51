#pragma once

#include <cstddef>
#include <exception>
#include <string_view>
#include <utility>

#include "CQvxException.h"
#include "Framework/Exceptions.h"
#include "UserMessages.h"

// Shows an exception's text in the exception box; an empty text shows nothing.
void ShowException(const std::exception& exception);

// Texts of the file-failure boxes at the catch sites.
namespace FileFailureText {
inline constexpr std::u16string_view kReading = u"Chyba při čtení ze souboru";
inline constexpr std::u16string_view kWriting = u"Chyba při zápisu do souboru";
inline constexpr std::u16string_view kCannotOpen = u"Nelze otevřít soubor";  // the file name follows directly
}  // namespace FileFailureText

// Catch site at the edge of a user action: runs `action`; any std::exception (CQvxException
// included) is shown with ShowException. Returns false when the action failed. Nothing is retried
// and what the action changed before the throw stays changed. File and archive exceptions pass.
template <typename Action>
bool RunUserAction(Action&& action) {
    try {
        std::forward<Action>(action)();
        return true;
    } catch (const std::exception& exception) {
        ShowException(exception);
        return false;
    }
}

// The same for actions that work on files: a file exception is reported with `fileFailureText`
// in the "Neočekávaná výjimka" box. Archive exceptions (a malformed file) still pass to the caller.
template <typename Action>
bool RunUserAction(Action&& action, std::u16string_view fileFailureText) {
    try {
        std::forward<Action>(action)();
        return true;
    } catch (const CFileException&) {
        UserMessages().ShowFileErrorBox(fileFailureText);
        return false;
    } catch (const std::exception& exception) {
        ShowException(exception);
        return false;
    }
}

// Bounded copy of a wide text into a fixed buffer of `capacity` units, terminator included.
// A text that does not fit throws CQvxException with the buffer-too-small code (ERANGE).
void CopyToFixedBuffer(char16_t* buffer, std::size_t capacity, std::u16string_view text);
