#pragma once

#include <stdexcept>
#include <string>

#include "TextCodec.h"

// A failure the tool reports to the user and stops on; the text is Czech, UTF-8.
class ToolError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The text of one of the program's own failures (Windows-1250, a line break before the source
// module) as one UTF-8 line.
inline std::string FailureText(const std::exception& failure) {
    std::string text = ToUtf8(FromWindows1250(failure.what()));
    for (char& c : text) {
        if (c == '\n') c = ' ';
    }
    for (std::string::size_type doubled; (doubled = text.find("  ")) != std::string::npos;) text.erase(doubled, 1);
    return text;
}
