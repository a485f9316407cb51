#include "CQvxFunkce.h"

#include <cerrno>

void ShowException(const std::exception& exception) {
    const char* text = exception.what();
    if (text == nullptr || *text == '\0') return;
    UserMessages().ShowExceptionBox(text);
}

void CopyToFixedBuffer(char16_t* buffer, std::size_t capacity, std::u16string_view text) {
    if (buffer == nullptr || capacity == 0) throw CQvxException(EINVAL);
    if (text.size() >= capacity) {
        buffer[0] = 0;
        throw CQvxException(ERANGE);
    }
    text.copy(buffer, text.size());
    buffer[text.size()] = 0;
}
