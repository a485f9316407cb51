#include "CQvxException.h"

#include <cstdio>
#include <string>

#include "TextCodec.h"

namespace {

constexpr std::u16string_view kCopyFailedMessage = u"Nepodařilo se zkopírovat C type řetězec - chyba: ";
constexpr int kCopyFailedLine = 647;

}  // namespace

CQvxException::CQvxException(std::u16string_view message, int line, std::u16string_view sourceModule) {
    const std::string narrowMessage = ToWindows1250(message);
    const std::string narrowSource = ToWindows1250(sourceModule);
    // snprintf cuts an over-long text at the buffer's end and always terminates it.
    std::snprintf(text_.data(), text_.size(), "%s, Line %i, \n%s", narrowMessage.c_str(), line,
                  narrowSource.c_str());
}

CQvxException::CQvxException(int errorCode) {
    const std::string narrowMessage = ToWindows1250(kCopyFailedMessage);
    const std::string narrowSource = ToWindows1250(SourceModule::kFunkce);
    std::snprintf(text_.data(), text_.size(), "%s, Err: %i, Line %i, \n%s", narrowMessage.c_str(), errorCode,
                  kCopyFailedLine, narrowSource.c_str());
}
